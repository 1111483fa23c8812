#include "frontend/read_value.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "frontend/exit_codes.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

[[noreturn]] void Refuse(std::string_view name, std::string_view text, std::string_view why) {
    throw UsageError(fmt::format("{}: {} {}", name, OneLine(text), why));
}

bool IsPlainNumber(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    const auto point = text.find('.');
    const auto whole = text.substr(0, point);
    const auto decimals = point == std::string_view::npos ? "0" : text.substr(point + 1);
    const auto AreDigits = [](std::string_view part) {
        return !part.empty() && part.find_first_not_of("0123456789") == std::string_view::npos;
    };
    return AreDigits(whole) && AreDigits(decimals);
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

// In a pattern 9 stands for any digit, everything else for itself.
bool HasPattern(std::string_view text, std::string_view pattern) {
    return std::ranges::equal(text, pattern,
                              [](char c, char wanted) { return wanted == '9' ? c >= '0' && c <= '9' : c == wanted; });
}

int Digits(std::string_view text, std::size_t at, std::size_t count) {
    int value = 0;
    for (const char c : text.substr(at, count)) value = value * 10 + (c - '0');
    return value;
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
    if (!IsPlainNumber(text)) Refuse(name, text, "is not a number; write it with a point, as in 7.5.");
    Double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{}) Refuse(name, text, "does not fit.");
    return value;
}

Money ReadMoney(std::string_view name, std::string_view text) {
    if (!IsPlainNumber(text)) Refuse(name, text, "is not an amount; write it with a point, as in 149.50.");
    const auto point = text.find('.');
    if (point != std::string_view::npos && text.size() - point - 1 > 4) {
        Refuse(name, text, "has more than four decimals.");
    }
    try {
        return ToMoney(text);
    } catch (const Error&) {
        Refuse(name, text, "does not fit: -922337203685477.5808 to 922337203685477.5807.");
    }
}

DateTime ReadDay(std::string_view name, std::string_view text) {
    const bool german = HasPattern(text, "99.99.9999");
    if (!german && !HasPattern(text, "9999-99-99")) {
        Refuse(name, text, "is not a day; write it as 31.12.2010 or 2010-12-31.");
    }
    const int year = Digits(text, german ? 6 : 0, 4);
    const int month = Digits(text, german ? 3 : 5, 2);
    const int day = Digits(text, german ? 0 : 8, 2);
    try {
        return DateTime::Of(year, static_cast<unsigned>(month), static_cast<unsigned>(day));
    } catch (const Error&) {
        Refuse(name, text, "is not in the calendar.");
    }
}

DateTime ReadClock(std::string_view name, std::string_view text) {
    if (!HasPattern(text, "99:99")) Refuse(name, text, "is not a time of day; write it as 09:30.");
    try {
        return DateTime::TimeOfDay(Digits(text, 0, 2), Digits(text, 3, 2));
    } catch (const Error&) {
        Refuse(name, text, "is not on the clock: 00:00 to 23:59.");
    }
}

}  // namespace frontend
