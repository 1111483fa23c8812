#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <LumoSeminar/frame/date_time.h>

namespace LumoConnection::Embedded {

using namespace LumoSeminar;

// Moments as the database keeps them: ticks of 1/300 second since 01.01.1900, from 01.01.1753 to 31.12.9999.
using Ticks = std::int64_t;

inline constexpr Ticks kTicksPerSecond = 300;
inline constexpr Ticks kTicksPerMinute = 60 * kTicksPerSecond;
inline constexpr Ticks kTicksPerHour = 60 * kTicksPerMinute;
inline constexpr Ticks kTicksPerDay = 24 * kTicksPerHour;
inline constexpr Ticks kFirstMoment = -53690 * kTicksPerDay;
inline constexpr Ticks kLastMoment = 2958464 * kTicksPerDay - 1;

constexpr bool IsMoment(Ticks ticks) { return ticks >= kFirstMoment && ticks <= kLastMoment; }

/// A moment taken apart.
struct Civil {
    int year = 1900;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    /// 0 to 999.
    int millisecond = 0;
};

Civil CivilOf(Ticks ticks);

/// Rounds thousandths to ticks. False for a day or time that does not exist or lies outside the range.
bool TicksOf(const Civil& civil, Ticks& ticks);

DateTime DateTimeOf(Ticks ticks);
/// Refuses what lies outside the range.
Ticks TicksOf(DateTime moment);
Ticks TicksOfDays(double days);
double DaysOf(Ticks ticks);

/// Reads a moment in the order of a CONVERT style; 0 reads day first. Refuses what is none.
Ticks ReadMoment(std::string_view text, int style, const char* type_name);

/// Writes a moment in a CONVERT style; refuses a style that is not covered.
std::string WriteMoment(Ticks ticks, int style);

enum class DatePart : std::uint8_t {
    kYear,
    kQuarter,
    kMonth,
    kDayOfYear,
    kDay,
    kWeekday,
    kHour,
    kMinute,
    kSecond,
    kMillisecond,
};

/// False for a name that is none.
bool FindDatePart(std::string_view name, DatePart& part);

std::int64_t PartOf(Ticks ticks, DatePart part);
/// Refuses a result outside the range.
Ticks AddParts(Ticks ticks, DatePart part, std::int64_t count);
/// The borders crossed on the way from the one to the other.
std::int64_t PartsBetween(Ticks from, Ticks to, DatePart part);

}  // namespace LumoConnection::Embedded
