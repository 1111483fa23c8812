#include "frontend/read_value.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

#include "frontend/exit_codes.h"
#include "frontend/output/screen_text.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

[[noreturn]] void Refuse(std::string_view name, std::string_view text, std::string_view why) {
    throw UsageError(fmt::format("{}: {} {}", name, OneLine(text), why));
}

bool AreDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool HasThousands(std::string_view text) {
    const auto first = text.find_first_of(".,' ");
    return first != std::string_view::npos && text.find_first_of(".,' ", first + 1) != std::string_view::npos &&
           text.find_first_not_of("0123456789.,' ") == std::string_view::npos;
}

// The number with a point, whether it was typed with a point or a comma.
// @param none  why a text is refused that is no number at all
std::string WithPoint(std::string_view name, std::string_view text, const char* none) {
    const auto unsigned_text = text.substr(text.starts_with('-') ? 1 : 0);
    const auto mark = unsigned_text.find_first_of(".,");
    const auto whole = unsigned_text.substr(0, mark);
    const auto decimals = mark == std::string_view::npos ? "0" : unsigned_text.substr(mark + 1);
    if (!AreDigits(whole) || !AreDigits(decimals)) {
        if (!whole.empty() && HasThousands(unsigned_text)) {
            Refuse(name, text, "has a mark for the thousands; write it without, as in 1234.50 or 1234,50.");
        }
        Refuse(name, text, none);
    }
    if (decimals.size() == 3 && whole.size() <= 3 && whole.front() != '0') {
        const std::string sign = unsigned_text.size() == text.size() ? "" : "-";
        Refuse(name, text,
               fmt::format("could mean {0}{1}{2} or a little more than {0}{1}; write {0}{1}{2} or {0}{1}.{2}0.", sign,
                           whole, decimals));
    }
    std::string number(text);
    std::ranges::replace(number, ',', '.');
    return number;
}

template <class T>
T ReadWhole(std::string_view name, std::string_view text) {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size() || error == std::errc::invalid_argument) {
        Refuse(name, text, "is not a whole number.");
    }
    if (error != std::errc{} || !std::in_range<T>(value)) {
        Refuse(name, text,
               fmt::format("does not fit: {} to {}.", std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
    }
    return static_cast<T>(value);
}

// The number, with at most that many digits; nothing where the text is none.
std::optional<int> Digits(std::string_view text, std::size_t most) {
    if (!AreDigits(text) || text.size() > most) return std::nullopt;
    int value = 0;
    for (const char c : text) value = value * 10 + (c - '0');
    return value;
}

// The parts of a text between its marks; nothing where they are not as many as wanted.
std::vector<std::string_view> Parts(std::string_view text, char mark, std::size_t wanted) {
    std::vector<std::string_view> parts;
    for (std::size_t at = 0; at <= text.size();) {
        const auto end = std::min(text.find(mark, at), text.size());
        parts.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    if (parts.size() != wanted) parts.clear();
    return parts;
}

struct CivilDay {
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
};

std::optional<CivilDay> ReadCivilDay(std::string_view day, std::string_view month, std::string_view year) {
    const auto d = Digits(day, 2);
    const auto m = Digits(month, 2);
    const auto y = year.size() == 4 ? Digits(year, 4) : std::nullopt;
    if (!d || !m || !y) return std::nullopt;
    return CivilDay{*y, static_cast<unsigned>(*m), static_cast<unsigned>(*d)};
}

std::optional<CivilDay> ReadCivilDay(std::string_view text) {
    if (const auto german = Parts(text, '.', 3); !german.empty()) return ReadCivilDay(german[0], german[1], german[2]);
    if (const auto iso = Parts(text, '-', 3); !iso.empty()) return ReadCivilDay(iso[2], iso[1], iso[0]);
    return std::nullopt;
}

constexpr std::string_view kHowDaysAreTyped =
    "is not a day; write it as 1.3.2027 or 2027-03-01, or as today, tomorrow, Mo or +7d.";

// What people write as a day and what is none here, because it does not say enough.
[[noreturn]] void RefuseDay(std::string_view name, std::string_view text) {
    constexpr const char* kNoYear = "has no year; write it with four digits, as in 1.3.2027.";
    if (const auto parts = Parts(text, '.', 2); !parts.empty() && Digits(parts[0], 2) && Digits(parts[1], 2)) {
        Refuse(name, text, kNoYear);
    }
    if (const auto parts = Parts(text, '.', 3); !parts.empty() && Digits(parts[0], 2) && Digits(parts[1], 2)) {
        if (parts[2].empty()) Refuse(name, text, kNoYear);
        if (Digits(parts[2], 3)) Refuse(name, text, "has a short year; write it with four digits, as in 1.3.2027.");
    }
    if (const auto parts = Parts(text, '/', 3);
        !parts.empty() && Digits(parts[0], 2) && Digits(parts[1], 2) && Digits(parts[2], 4)) {
        Refuse(name, text, "could be read with the day or with the month first; write it as 1.3.2027 (1 March) or 2027-03-01.");
    }
    if ((text.starts_with('+') || text.starts_with('-')) && AreDigits(text.substr(1))) {
        Refuse(name, text, fmt::format("counts days or weeks? Write {0}d or {0}w.", text));
    }
    Refuse(name, text, kHowDaysAreTyped);
}

// Days from today on, or weeks: "+7d", "-3d", "+2w".
std::optional<int> ReadDistance(std::string_view text) {
    if (text.size() < 3 || (text.front() != '+' && text.front() != '-')) return std::nullopt;
    const auto count = Digits(text.substr(1, text.size() - 2), 7);
    const char unit = text.back();
    if (!count || (unit != 'd' && unit != 'w')) return std::nullopt;
    return (text.front() == '-' ? -1 : 1) * *count * (unit == 'w' ? 7 : 1);
}

struct DayWord {
    std::string_view word;
    int distance;
};

constexpr DayWord kDayWords[] = {
    {"today", 0}, {"heute", 0}, {"tomorrow", 1}, {"morgen", 1}, {"yesterday", -1}, {"gestern", -1},
};

// In German and English; the two letters are the German ones.
constexpr std::string_view kWeekdays[7][4] = {
    {"mo", "mon", "montag", "monday"},      {"di", "tue", "dienstag", "tuesday"},
    {"mi", "wed", "mittwoch", "wednesday"}, {"do", "thu", "donnerstag", "thursday"},
    {"fr", "fri", "freitag", "friday"},     {"sa", "sat", "samstag", "saturday"},
    {"so", "sun", "sonntag", "sunday"},
};

// How many days from today on.
std::optional<int> ReadDayWord(std::string_view text) {
    const std::string word = FoldCase(text);
    for (const auto& one : kDayWords) {
        if (one.word == word) return one.distance;
    }
    if (const auto weekday = WeekdayOf(word)) {
        const auto today = static_cast<int>(std::chrono::weekday(Today().Date()).iso_encoding()) - 1;
        return (*weekday - today + 7) % 7;
    }
    return ReadDistance(word);
}

struct Clock {
    std::string_view hour;
    std::string_view minute;
};

// The hour and the minutes, with nothing said about what they are.
Clock SplitClock(std::string_view text) {
    const auto mark = text.find_first_of(":.hH");
    if (mark == std::string_view::npos) return {text, "00"};
    const auto minute = text.substr(mark + 1);
    const bool by_letter = text[mark] == 'h' || text[mark] == 'H';
    return {text.substr(0, mark), minute.empty() && by_letter ? "00" : minute};
}

}  // namespace

Int32 ReadInt32(std::string_view name, std::string_view text) { return ReadWhole<Int32>(name, text); }

std::vector<Int32> ReadKeys(std::string_view name, const std::vector<std::string>& texts) {
    std::vector<Int32> keys;
    for (const auto& text : texts) {
        const Int32 key = ReadInt32(name, text);
        if (std::ranges::find(keys, key) == keys.end()) keys.push_back(key);
    }
    return keys;
}

Int16 ReadInt16(std::string_view name, std::string_view text) { return ReadWhole<Int16>(name, text); }

Byte ReadByte(std::string_view name, std::string_view text) { return ReadWhole<Byte>(name, text); }

Double ReadDouble(std::string_view name, std::string_view text) {
    const std::string number = WithPoint(name, text, "is not a number; write it as 7.5 or 7,5.");
    Double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error != std::errc{}) Refuse(name, text, "does not fit.");
    return value;
}

Money ReadMoney(std::string_view name, std::string_view text) {
    const std::string number = WithPoint(name, text, "is not an amount; write it as 149.50 or 149,50.");
    const auto point = number.find('.');
    if (point != std::string::npos && number.size() - point - 1 > 4) Refuse(name, text, "has more than four decimals.");
    try {
        return ToMoney(number);
    } catch (const Error&) {
        Refuse(name, text, "does not fit: -922337203685477.5808 to 922337203685477.5807.");
    }
}

std::optional<int> WeekdayOf(std::string_view text) {
    const std::string word = FoldCase(text);
    for (int i = 0; i < 7; ++i) {
        if (std::ranges::find(kWeekdays[i], word) != std::end(kWeekdays[i])) return i;
    }
    return std::nullopt;
}

DateTime ReadDay(std::string_view name, std::string_view text) {
    try {
        if (const auto day = ReadCivilDay(text)) return DateTime::Of(day->year, day->month, day->day);
        if (const auto distance = ReadDayWord(text)) return Today().AddDays(*distance);
    } catch (const Error&) {
        Refuse(name, text, "is not in the calendar.");
    }
    RefuseDay(name, text);
}

DateTime ReadClock(std::string_view name, std::string_view text) {
    const auto [typed_hour, typed_minute] = SplitClock(text);
    const auto hour = Digits(typed_hour, 2);
    const auto minute = typed_minute.size() == 2 ? Digits(typed_minute, 2) : std::nullopt;
    if (hour && Digits(typed_minute, 1)) {
        Refuse(name, text, fmt::format("has one digit for the minutes; write {0}:{1}0 or {0}:0{1}.", *hour, typed_minute));
    }
    if (!hour || !minute) Refuse(name, text, "is not a time of day; write it as 9:00 or 09.30.");
    try {
        return DateTime::TimeOfDay(*hour, *minute);
    } catch (const Error&) {
        Refuse(name, text, "is not on the clock: 0:00 to 23:59.");
    }
}

}  // namespace frontend
