#pragma once

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/commands/columns.h"

namespace frontend {

const ColumnTable<LumoSeminar::clsSeminar>& SeminarColumns();

}  // namespace frontend
