#pragma once

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/commands/columns.h"

namespace frontend {

/// The short list is not among them: what it shows is read in another way.
const ColumnTable<LumoSeminar::clsTermin>& DateColumns();

}  // namespace frontend
