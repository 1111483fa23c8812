#pragma once

#include <string>
#include <string_view>

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

// Values as they are typed. What is none raises UsageError, with the name of the option or column in front.

/// -2147483648 to 2147483647.
LumoSeminar::Int32 ReadInt32(std::string_view name, std::string_view text);

/// With a decimal point, no thousands separator.
LumoSeminar::Double ReadDouble(std::string_view name, std::string_view text);

/// With a decimal point and at most four decimals.
LumoSeminar::Money ReadMoney(std::string_view name, std::string_view text);

}  // namespace frontend
