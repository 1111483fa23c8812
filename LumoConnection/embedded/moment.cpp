#include <LumoConnection/embedded/moment.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdarg>
#include <cstdio>

#include <LumoConnection/ascii.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {
namespace {

using std::chrono::days;
using std::chrono::local_days;
using std::chrono::year_month_day;

constexpr local_days kDayZero{std::chrono::year{1900} / 1 / 1};
constexpr Ticks kOffsetToDateTime = 2;  // from 30.12.1899 to 01.01.1900

Ticks FloorDay(Ticks ticks) {
    return ticks >= 0 ? ticks / kTicksPerDay : -((-ticks + kTicksPerDay - 1) / kTicksPerDay);
}

[[noreturn]] void RefuseRange(const char* type_name) {
    Refuse(Refused::kMomentRange, std::string("The conversion of a ") + type_name +
                                      " data type to a datetime data type resulted in an out-of-range value.");
}

[[noreturn]] void RefuseForm() {
    Refuse(Refused::kNoMoment, "Conversion failed when converting date and/or time from character string.");
}

// Reads the parts of a moment from left to right.
class Reader {
  public:
    explicit Reader(std::string_view text) : text_(text) { Blanks(); }

    bool AtEnd() const { return at_ == text_.size(); }
    char Peek() const { return AtEnd() ? '\0' : text_[at_]; }
    bool AtDigit() const { return Peek() >= '0' && Peek() <= '9'; }

    void Blanks() {
        while (!AtEnd() && text_[at_] == ' ') ++at_;
    }
    bool Take(char c) {
        if (Peek() != c || AtEnd()) return false;
        ++at_;
        return true;
    }
    // A word in either case.
    bool TakeWord(std::string_view upper) {
        if (text_.size() - at_ < upper.size()) return false;
        for (std::size_t i = 0; i < upper.size(); ++i) {
            const char c = text_[at_ + i];
            if ((c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c) != upper[i]) return false;
        }
        at_ += upper.size();
        return true;
    }
    int Number(std::size_t& digits) {
        constexpr std::size_t kMostDigits = 9;
        int value = 0;
        digits = 0;
        while (AtDigit()) {
            if (++digits > kMostDigits) RefuseForm();
            value = value * 10 + (text_[at_++] - '0');
        }
        if (digits == 0) RefuseForm();
        return value;
    }
    int Number() {
        std::size_t digits = 0;
        return Number(digits);
    }
    std::size_t DigitsAhead() const {
        std::size_t end = at_;
        while (end < text_.size() && text_[end] >= '0' && text_[end] <= '9') ++end;
        return end - at_;
    }
    // What follows the digits ahead, blanks passed over.
    char BehindDigits() const {
        std::size_t end = at_ + DigitsAhead();
        while (end < text_.size() && text_[end] == ' ') ++end;
        return end < text_.size() ? text_[end] : '\0';
    }

  private:
    std::string_view text_;
    std::size_t at_ = 0;
};

int WholeYear(int year, std::size_t digits) {
    constexpr int kCutOff = 50;
    if (digits > 2) return year;
    return year < kCutOff ? 2000 + year : 1900 + year;
}

void ReadTime(Reader& reader, Civil& civil) {
    constexpr int kHoursOfHalfDay = 12;
    std::size_t digits = 0;
    civil.hour = reader.Number(digits);
    reader.Blanks();
    if (reader.Take(':')) {
        reader.Blanks();
        civil.minute = reader.Number();
        if (reader.Take(':')) {
            civil.second = reader.Number();
            const bool thousandths = reader.Peek() == ':';
            if (reader.Take('.') || reader.Take(':')) {
                civil.millisecond = reader.Number(digits);
                if (digits > 3) RefuseForm();
                if (!thousandths) {
                    for (; digits < 3; ++digits) civil.millisecond *= 10;
                }
            }
        }
    }
    reader.Blanks();
    const bool afternoon = reader.TakeWord("PM");
    if (afternoon || reader.TakeWord("AM")) {
        if (civil.hour < 1 || civil.hour > kHoursOfHalfDay) {
            if (!afternoon || civil.hour > 23) RefuseForm();
        } else {
            civil.hour = civil.hour % kHoursOfHalfDay + (afternoon ? kHoursOfHalfDay : 0);
        }
    }
    reader.Blanks();
}

// yyyymmdd or yymmdd
void ReadCompact(Reader& reader, Civil& civil) {
    std::size_t digits = 0;
    const int value = reader.Number(digits);
    if (digits != 8 && digits != 6) RefuseForm();
    civil.day = value % 100;
    civil.month = value / 100 % 100;
    civil.year = WholeYear(value / 10000, digits - 4);
}

void ReadDate(Reader& reader, Civil& civil, bool year_first_month_next) {
    std::array<int, 3> parts{};
    std::array<std::size_t, 3> digits{};
    char separator = '\0';
    for (std::size_t i = 0; i < parts.size(); ++i) {
        parts[i] = reader.Number(digits[i]);
        if (digits[i] > 4 || digits[i] == 3) RefuseForm();
        if (i == 2) break;
        reader.Blanks();
        const char found = reader.Peek();
        if (found != '.' && found != '/' && found != '-') RefuseForm();
        if (i == 1 && found != separator) RefuseForm();
        separator = found;
        reader.Take(found);
        reader.Blanks();
    }
    if (digits[0] == 4) {
        if (digits[1] == 4 || digits[2] == 4) RefuseForm();
        civil.year = parts[0];
        civil.month = year_first_month_next ? parts[1] : parts[2];
        civil.day = year_first_month_next ? parts[2] : parts[1];
    } else {
        if (digits[1] == 4) RefuseForm();
        civil.day = parts[0];
        civil.month = parts[1];
        civil.year = WholeYear(parts[2], digits[2]);
    }
}

constexpr std::array kMonthNames{"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

[[gnu::format(printf, 1, 2)]] std::string Format(const char* form, ...) {
    std::array<char, 64> text{};
    std::va_list values;
    va_start(values, form);
    const int length = std::vsnprintf(text.data(), text.size(), form, values);
    va_end(values);
    return {text.data(), static_cast<std::size_t>(length)};
}

[[noreturn]] void RefuseAdded() {
    Refuse(Refused::kMomentOverflow, "Adding a value to a 'datetime' column caused an overflow.");
}

std::int64_t MonthsOf(const Civil& civil) { return std::int64_t{civil.year} * 12 + civil.month - 1; }

}  // namespace

Civil CivilOf(Ticks ticks) {
    const Ticks day = FloorDay(ticks);
    const Ticks time = ticks - day * kTicksPerDay;
    const year_month_day date{kDayZero + days{day}};
    Civil civil;
    civil.year = static_cast<int>(date.year());
    civil.month = static_cast<int>(static_cast<unsigned>(date.month()));
    civil.day = static_cast<int>(static_cast<unsigned>(date.day()));
    civil.hour = static_cast<int>(time / kTicksPerHour);
    civil.minute = static_cast<int>(time / kTicksPerMinute % 60);
    civil.second = static_cast<int>(time / kTicksPerSecond % 60);
    civil.millisecond = static_cast<int>((time % kTicksPerSecond * 10 + 1) / 3);
    return civil;
}

bool TicksOf(const Civil& civil, Ticks& ticks) {
    const year_month_day date{std::chrono::year{civil.year}, std::chrono::month{static_cast<unsigned>(civil.month)},
                              std::chrono::day{static_cast<unsigned>(civil.day)}};
    if (civil.year > 9999 || !date.ok() || civil.hour > 23 || civil.minute > 59 || civil.second > 59) return false;
    const Ticks day = (local_days{date} - kDayZero).count();
    const Ticks seconds = (Ticks{civil.hour} * 60 + civil.minute) * 60 + civil.second;
    // Three thousandths and a third are one tick; halves go up.
    const Ticks rest = (Ticks{civil.millisecond} * 3 + 5) / 10;
    ticks = day * kTicksPerDay + seconds * kTicksPerSecond + rest;
    return IsMoment(ticks);
}

DateTime DateTimeOf(Ticks ticks) {
    const Ticks floor = FloorDay(ticks);
    const Ticks day = floor + kOffsetToDateTime;
    const Ticks time = ticks - floor * kTicksPerDay;
    if (time == 0) return DateTime(static_cast<double>(day));
    const Ticks milliseconds = (time * 10 + 1) / 3;
    constexpr double kMillisecondsPerDay = 86'400'000;
    const double fraction = static_cast<double>(milliseconds) / kMillisecondsPerDay;
    const double whole = static_cast<double>(day);
    return DateTime(day < 0 ? whole - fraction : whole + fraction);
}

Ticks TicksOf(DateTime moment) {
    const Ticks day = (moment.Date() - kDayZero).count();
    const Ticks ticks = day * kTicksPerDay + (moment.Time().count() * 3 + 5) / 10;
    if (!IsMoment(ticks)) RefuseRange("datetime");
    return ticks;
}

Ticks TicksOfDays(double days_since) {
    const double ticks = std::round(days_since * static_cast<double>(kTicksPerDay));
    if (!(ticks >= static_cast<double>(kFirstMoment) && ticks <= static_cast<double>(kLastMoment))) {
        Refuse(Refused::kOverflow, "Arithmetic overflow error converting expression to data type datetime.");
    }
    return static_cast<Ticks>(ticks);
}

double DaysOf(Ticks ticks) { return static_cast<double>(ticks) / static_cast<double>(kTicksPerDay); }

Ticks ReadMoment(std::string_view text, int style, const char* type_name) {
    constexpr int kYearMonthDay = 120;
    constexpr int kIso = 126;
    Reader reader(text);
    Civil civil;
    if (!reader.AtEnd()) {
        bool year_first_month_next = style == kYearMonthDay || style == kIso;
        const std::size_t ahead = reader.DigitsAhead();
        const char behind = reader.BehindDigits();
        const bool time_alone =
            ahead <= 2 && (behind == ':' || behind == 'A' || behind == 'a' || behind == 'P' || behind == 'p');
        if (!time_alone) {
            // The form with a T does not depend on the connection.
            if (text.find('T') != std::string_view::npos && ahead == 4) year_first_month_next = true;
            if (ahead >= 6) {
                ReadCompact(reader, civil);
            } else {
                ReadDate(reader, civil, year_first_month_next);
            }
            const bool blank = reader.Peek() == ' ';
            reader.Blanks();
            if (!blank && !reader.AtEnd() && !(year_first_month_next && reader.Take('T'))) RefuseForm();
        }
        if (!reader.AtEnd()) ReadTime(reader, civil);
        if (!reader.AtEnd()) RefuseForm();
    }
    Ticks ticks = 0;
    if (!TicksOf(civil, ticks)) RefuseRange(type_name);
    return ticks;
}

std::string WriteMoment(Ticks ticks, int style) {
    const Civil c = CivilOf(ticks);
    const int short_year = c.year % 100;
    const int half_hour = c.hour % 12 == 0 ? 12 : c.hour % 12;
    const char* half = c.hour < 12 ? "AM" : "PM";
    switch (style) {
        case 0:
        case 100:
            return Format("%s %2d %d %2d:%02d%s", kMonthNames[static_cast<std::size_t>(c.month - 1)], c.day, c.year,
                          half_hour, c.minute, half);
        case 4:
            return Format("%02d.%02d.%02d", c.day, c.month, short_year);
        case 8:
        case 108:
            return Format("%02d:%02d:%02d", c.hour, c.minute, c.second);
        case 102:
            return Format("%d.%02d.%02d", c.year, c.month, c.day);
        case 103:
            return Format("%02d/%02d/%d", c.day, c.month, c.year);
        case 104:
            return Format("%02d.%02d.%d", c.day, c.month, c.year);
        case 105:
            return Format("%02d-%02d-%d", c.day, c.month, c.year);
        case 112:
            return Format("%d%02d%02d", c.year, c.month, c.day);
        case 20:
        case 120:
            return Format("%d-%02d-%02d %02d:%02d:%02d", c.year, c.month, c.day, c.hour, c.minute, c.second);
        case 21:
        case 121:
            return Format("%d-%02d-%02d %02d:%02d:%02d.%03d", c.year, c.month, c.day, c.hour, c.minute, c.second, c.millisecond);
        case 126:
            return Format(c.millisecond == 0 ? "%d-%02d-%02dT%02d:%02d:%02d" : "%d-%02d-%02dT%02d:%02d:%02d.%03d",
                          c.year, c.month, c.day, c.hour, c.minute, c.second, c.millisecond);
        default:
            RefuseNotCovered("The style " + std::to_string(style) + " of a conversion from datetime to a text");
    }
}

bool FindDatePart(std::string_view name, DatePart& part) {
    struct Entry {
        std::string_view name;
        DatePart part;
    };
    static constexpr Entry kNames[] = {
        {"year", DatePart::kYear},      {"yy", DatePart::kYear},
        {"yyyy", DatePart::kYear},      {"quarter", DatePart::kQuarter},
        {"qq", DatePart::kQuarter},     {"q", DatePart::kQuarter},
        {"month", DatePart::kMonth},    {"mm", DatePart::kMonth},
        {"m", DatePart::kMonth},        {"dayofyear", DatePart::kDayOfYear},
        {"dy", DatePart::kDayOfYear},   {"y", DatePart::kDayOfYear},
        {"day", DatePart::kDay},        {"dd", DatePart::kDay},
        {"d", DatePart::kDay},          {"weekday", DatePart::kWeekday},
        {"dw", DatePart::kWeekday},     {"hour", DatePart::kHour},
        {"hh", DatePart::kHour},        {"minute", DatePart::kMinute},
        {"mi", DatePart::kMinute},      {"n", DatePart::kMinute},
        {"second", DatePart::kSecond},  {"ss", DatePart::kSecond},
        {"s", DatePart::kSecond},       {"millisecond", DatePart::kMillisecond},
        {"ms", DatePart::kMillisecond},
    };
    const auto same = [&](const Entry& entry) { return std::ranges::equal(entry.name, name, {}, {}, LowerAscii); };
    const auto* found = std::ranges::find_if(kNames, same);
    if (found == std::end(kNames)) return false;
    part = found->part;
    return true;
}

std::int64_t PartOf(Ticks ticks, DatePart part) {
    const Civil civil = CivilOf(ticks);
    switch (part) {
        case DatePart::kYear:
            return civil.year;
        case DatePart::kQuarter:
            return (civil.month + 2) / 3;
        case DatePart::kMonth:
            return civil.month;
        case DatePart::kDayOfYear: {
            Civil first;
            first.year = civil.year;
            Ticks start = 0;
            TicksOf(first, start);
            return FloorDay(ticks) - FloorDay(start) + 1;
        }
        case DatePart::kDay:
            return civil.day;
        case DatePart::kWeekday:
            return (FloorDay(ticks) % 7 + 7) % 7 + 1;  // 01.01.1900 was a Monday
        case DatePart::kHour:
            return civil.hour;
        case DatePart::kMinute:
            return civil.minute;
        case DatePart::kSecond:
            return civil.second;
        case DatePart::kMillisecond:
            return civil.millisecond;
    }
    return 0;
}

Ticks AddParts(Ticks ticks, DatePart part, std::int64_t count) {
    Ticks unit = 0;
    std::int64_t months = 0;
    switch (part) {
        case DatePart::kYear:
            months = 12;
            break;
        case DatePart::kQuarter:
            months = 3;
            break;
        case DatePart::kMonth:
            months = 1;
            break;
        case DatePart::kDayOfYear:
        case DatePart::kDay:
        case DatePart::kWeekday:
            unit = kTicksPerDay;
            break;
        case DatePart::kHour:
            unit = kTicksPerHour;
            break;
        case DatePart::kMinute:
            unit = kTicksPerMinute;
            break;
        case DatePart::kSecond:
            unit = kTicksPerSecond;
            break;
        case DatePart::kMillisecond:
            break;
    }
    if (months != 0) {
        Civil civil = CivilOf(ticks);
        const std::int64_t total = MonthsOf(civil) + count * months;
        const std::int64_t year = total / 12;
        if (total < 0 || year > 9999) RefuseAdded();
        const auto month = static_cast<unsigned>(total % 12 + 1);
        const auto last = (std::chrono::year{static_cast<int>(year)} / std::chrono::month{month} / std::chrono::last).day();
        const Ticks time = ticks - FloorDay(ticks) * kTicksPerDay;
        Civil moved;
        moved.year = static_cast<int>(year);
        moved.month = static_cast<int>(month);
        moved.day = std::min(civil.day, static_cast<int>(static_cast<unsigned>(last)));
        Ticks result = 0;
        if (!TicksOf(moved, result)) RefuseAdded();
        return result + time;
    }
    // Counts are ints, so that no product leaves 64 bits.
    const Ticks sum = unit != 0 ? ticks + count * unit : ticks + (count * 3 + (count >= 0 ? 5 : -5)) / 10;
    if (!IsMoment(sum)) RefuseAdded();
    return sum;
}

std::int64_t PartsBetween(Ticks from, Ticks to, DatePart part) {
    const auto borders = [&](Ticks unit) {
        const auto floor = [unit](Ticks ticks) { return ticks >= 0 ? ticks / unit : -((-ticks + unit - 1) / unit); };
        return floor(to) - floor(from);
    };
    switch (part) {
        case DatePart::kYear:
            return CivilOf(to).year - CivilOf(from).year;
        case DatePart::kQuarter:
            return MonthsOf(CivilOf(to)) / 3 - MonthsOf(CivilOf(from)) / 3;
        case DatePart::kMonth:
            return MonthsOf(CivilOf(to)) - MonthsOf(CivilOf(from));
        case DatePart::kDayOfYear:
        case DatePart::kDay:
        case DatePart::kWeekday:
            return borders(kTicksPerDay);
        case DatePart::kHour:
            return borders(kTicksPerHour);
        case DatePart::kMinute:
            return borders(kTicksPerMinute);
        case DatePart::kSecond:
            return borders(kTicksPerSecond);
        case DatePart::kMillisecond:
            return ((to - from) * 10 + (to >= from ? 1 : -1)) / 3;
    }
    return 0;
}

}  // namespace LumoConnection::Embedded
