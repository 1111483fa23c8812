#include <LumoSeminar/frame/date_time.h>

#include <cmath>
#include <ostream>

#include <LumoSeminar/frame/text_form.h>

namespace LumoSeminar {
namespace {

using std::chrono::days;
using std::chrono::local_days;
using std::chrono::milliseconds;

constexpr local_days kBaseDate{std::chrono::year{1899} / 12 / 30};
constexpr std::chrono::year kFirstYear{100};
constexpr std::chrono::year kLastYear{9999};
constexpr local_days kFirstDate{kFirstYear / 1 / 1};
constexpr local_days kLastDate{kLastYear / 12 / 31};
constexpr milliseconds kDay{days{1}};

struct Parts {
    std::int32_t day;  // since the base date
    milliseconds time;
};

Parts Split(Double value) {
    const Double day = std::trunc(value);
    if (day == value) return {static_cast<std::int32_t>(day), milliseconds{0}};
    Parts parts{static_cast<std::int32_t>(day), milliseconds{std::llround(std::fabs(value - day) * kDay.count())}};
    if (parts.time == kDay) {
        parts.time = milliseconds{0};
        ++parts.day;
        if (kBaseDate + days{parts.day} > kLastDate) return {parts.day - 1, kDay - milliseconds{1}};
    }
    return parts;
}

// The calendar repeats itself after so many years.
constexpr int kCycle = 400;

// Asked before any of the numbers becomes one of <chrono>, which keeps 16 bits of a year and 8 of a month or a day.
bool IsInCalendar(int year, unsigned month, unsigned day) {
    using namespace std::chrono;
    if (month < 1 || month > 12) return false;
    const auto last = (std::chrono::year(2 * kCycle + year % kCycle) / std::chrono::month(month) / std::chrono::last).day();
    return day >= 1 && day <= static_cast<unsigned>(last);
}

}  // namespace

DateTime::DateTime(Double days) {
    constexpr Double first = (kFirstDate - kBaseDate).count();
    constexpr Double beyond = (kLastDate - kBaseDate).count() + 1.0;
    if (!(days > first - 1 && days < beyond)) RaiseOverflow();
    days_ = days > -1 ? std::fabs(days) : days;
}

DateTime::DateTime(local_days date, milliseconds time) {
    if (time < milliseconds{0} || time >= kDay) RaiseOverflow();
    if (date < kFirstDate || date > kLastDate) RaiseOverflow();
    const Double day = static_cast<Double>((date - kBaseDate).count());
    const Double fraction = static_cast<Double>(time.count()) / static_cast<Double>(kDay.count());
    days_ = day < 0 ? day - fraction : day + fraction;
}

DateTime DateTime::Of(int year, unsigned month, unsigned day, int hour, int minute, int second) {
    if (!IsInCalendar(year, month, day) || hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) {
        RaiseTypeMismatch("a day or time that does not exist", "DateTime");
    }
    if (year < static_cast<int>(kFirstYear) || year > static_cast<int>(kLastYear)) RaiseOverflow();
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
    return DateTime(local_days{date}, std::chrono::hours{hour} + std::chrono::minutes{minute} + std::chrono::seconds{second});
}

DateTime DateTime::TimeOfDay(int hour, int minute, int second) { return Of(1899, 12, 30, hour, minute, second); }

local_days DateTime::Date() const { return kBaseDate + days{Split(days_).day}; }

milliseconds DateTime::Time() const { return Split(days_).time; }

DateTime DateTime::DatePart() const { return DateTime(Date()); }

DateTime DateTime::AddDays(Int32 count) const { return DateTime(Date() + days{count}, Time()); }

DateTime DateTime::AddMinutes(Int32 minutes) const {
    const auto moment = Date() + Time() + std::chrono::minutes{minutes};
    const auto date = std::chrono::floor<days>(moment);
    return DateTime(date, moment - date);
}

std::ostream& operator<<(std::ostream& to, DateTime value) { return to << DefaultText(value); }

Double DateTime::OnTheLine() const {
    const Double day = std::trunc(days_);
    return day + std::fabs(days_ - day);
}

}  // namespace LumoSeminar
