#include <LumoConnection/odbc/field_value.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <string>
#include <system_error>

#include <LumoSeminar/frame/errors.h>

namespace LumoConnection::Odbc {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kDay{std::chrono::days{1}};

milliseconds TimeOf(const SQL_TIMESTAMP_STRUCT& moment) {
    if (moment.hour > 23 || moment.minute > 59 || moment.second > 59)
        RaiseTypeMismatch("a time that does not exist", "DateTime");
    constexpr SQLUINTEGER kNanoseconds = 1'000'000;
    const SQLUINTEGER rounded = moment.fraction / kNanoseconds + (moment.fraction % kNanoseconds >= kNanoseconds / 2 ? 1 : 0);
    return std::chrono::hours{moment.hour} + std::chrono::minutes{moment.minute} + std::chrono::seconds{moment.second} +
           milliseconds{rounded};
}

}  // namespace

DateTime MomentOf(const SQL_TIMESTAMP_STRUCT& moment) {
    const std::chrono::year_month_day date{std::chrono::year{moment.year}, std::chrono::month{moment.month},
                                           std::chrono::day{moment.day}};
    if (!date.ok()) RaiseTypeMismatch("a day that does not exist", "DateTime");
    auto day = std::chrono::local_days{date};
    milliseconds time = TimeOf(moment);
    if (time >= kDay) {
        constexpr std::chrono::local_days kLastDay{std::chrono::year{9999} / 12 / 31};
        const bool last = day == kLastDay;
        time = last ? kDay - milliseconds{1} : time - kDay;
        if (!last) day += std::chrono::days{1};
    }
    return DateTime(day, time);
}

DateTime TimeOfDayOf(const SQL_TIMESTAMP_STRUCT& moment) {
    constexpr std::chrono::local_days kDayZero{std::chrono::year{1899} / 12 / 30};
    return DateTime(kDayZero, std::min(TimeOf(moment), kDay - milliseconds{1}));
}

Money ReadMoney(std::string_view text) {
    constexpr std::size_t kDecimals = 4;
    std::string digits;
    std::size_t decimals = 0;
    bool point = false;
    bool any = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c >= '0' && c <= '9') {
            any = true;
            if (point && ++decimals > kDecimals) {
                if (c != '0') RaiseTypeMismatch(OneLine(text), "Money");
                continue;
            }
            digits += c;
        } else if (c == '.' && !point) {
            point = true;
        } else if (c == '-' && digits.empty() && !point) {
            digits += '-';
        } else if (!(c == '$' && !any && !point) && !(c == ',' && any && !point)) {
            RaiseTypeMismatch(OneLine(text), "Money");
        }
    }
    if (!any) RaiseTypeMismatch(OneLine(text), "Money");
    digits.append(kDecimals - std::min(decimals, kDecimals), '0');
    std::int64_t units = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), units);
    if (error == std::errc::result_out_of_range) RaiseOverflow();
    if (error != std::errc{} || end != digits.data() + digits.size()) RaiseTypeMismatch(OneLine(text), "Money");
    return Money::FromUnits(units);
}

Double ReadDecimal(std::string_view text) {
    Double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) RaiseOverflow();
    if (error != std::errc{} || end != text.data() + text.size()) RaiseTypeMismatch(OneLine(text), "Double");
    return value;
}

Text HexText(std::span<const unsigned char> bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    Text text = "0x";
    for (const unsigned char byte : bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

}  // namespace LumoConnection::Odbc
