#pragma once

#include <optional>
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

/// With a decimal point or comma, no thousands separator. A text that could be a number of thousands as well, as
/// "1.234", is refused.
LumoSeminar::Double ReadDouble(std::string_view name, std::string_view text);

/// As ReadDouble, with at most four decimals.
LumoSeminar::Money ReadMoney(std::string_view name, std::string_view text);

/// "1.3.2027" or "2027-03-01"; a day counted from today: "today", "tomorrow", "yesterday" (heute, morgen, gestern), "+7d",
/// "-3d", "+2w"; a weekday in German or English, short or in full: the next one, today where it is one.
LumoSeminar::DateTime ReadDay(std::string_view name, std::string_view text);

/// 0 for Monday to 6 for Sunday: a weekday in German or English, short or in full. Nothing where the text is none.
std::optional<int> WeekdayOf(std::string_view text);

/// "9", "9:00", "09.30", "9h", "9h30", 0:00 to 23:59.
LumoSeminar::DateTime ReadClock(std::string_view name, std::string_view text);

}  // namespace frontend
