#pragma once

#include <string_view>

#include <LumoSeminar/frame/money.h>

namespace LumoSeminar {

/// The amount of a number as to_chars writes it without an exponent: [-]digits[.digits]. Rounds to four decimals,
/// halves to the even neighbour. Raises overflow (6). Not for front ends.
Money MoneyOfDecimal(std::string_view number);

}  // namespace LumoSeminar
