#pragma once

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

/// With two to four decimals.
LumoSeminar::Text MoneyText(LumoSeminar::Money value);

/// "yyyy-mm-ddThh:mm:ss", thousandths where there are any.
LumoSeminar::Text IsoText(LumoSeminar::DateTime value);

/// For people: "yyyy-mm-dd hh:mm:ss", midnight and the base date left out.
LumoSeminar::Text ScreenText(LumoSeminar::DateTime value);

/// The shortest text that reads back as the same number.
LumoSeminar::Text ExactText(LumoSeminar::Double value);
LumoSeminar::Text ExactText(LumoSeminar::Single value);

/// Whether tables put the value to the right.
bool IsNumber(const LumoSeminar::Variant& value);

bool IsNothing(const LumoSeminar::Variant& value);

}  // namespace frontend
