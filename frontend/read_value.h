#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

// Values as they are typed. What is none raises UsageError, with the name of the option or column in front.

/// -2147483648 to 2147483647.
LumoSeminar::Int32 ReadInt32(std::string_view name, std::string_view text);

/// Each key once, in the order of their first place.
std::vector<LumoSeminar::Int32> ReadKeys(std::string_view name, const std::vector<std::string>& texts);

/// -32768 to 32767.
LumoSeminar::Int16 ReadInt16(std::string_view name, std::string_view text);

/// 0 to 255.
LumoSeminar::Byte ReadByte(std::string_view name, std::string_view text);

/// With a decimal point, no thousands separator.
LumoSeminar::Double ReadDouble(std::string_view name, std::string_view text);

/// With a decimal point and at most four decimals.
LumoSeminar::Money ReadMoney(std::string_view name, std::string_view text);

/// "dd.mm.yyyy" or "yyyy-mm-dd".
LumoSeminar::DateTime ReadDay(std::string_view name, std::string_view text);

/// "hh:mm", 00:00 to 23:59.
LumoSeminar::DateTime ReadClock(std::string_view name, std::string_view text);

}  // namespace frontend
