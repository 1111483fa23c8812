#pragma once

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/context.h"

namespace frontend {

/// A column of a focus area; NULL where there is no such area. One statement.
LumoSeminar::Variant LookUpArea(Context& context, const char* column, LumoSeminar::Int32 area);

/// The columns of a training need: its row, the name of its focus area, its state, the state of its process.
Sheet NeedHead();
void AddNeedRow(Context& context, Sheet& sheet, LumoSeminar::clsANWBBedarf& need);

/// "open", "fulfilled", "rejected"; the number of any other.
LumoSeminar::Text StateOf(LumoSeminar::clsANWBBedarf& need);

}  // namespace frontend
