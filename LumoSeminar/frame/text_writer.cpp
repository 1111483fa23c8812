#include <LumoSeminar/frame/text_writer.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include <LumoSeminar/frame/text_form.h>

namespace LumoSeminar::text_writer {
namespace {

// A finite number as 0.d1d2d3... times ten to the exponent, without trailing zeros.
struct Decimal {
    std::string_view Digits() const { return {digits.data(), static_cast<std::size_t>(count)}; }

    bool negative = false;
    std::array<char, 20> digits;
    int count = 0;
    int exponent = 0;
};

// Reads d.dddde+xx as to_chars writes it.
Decimal ReadScientific(const char* at, const char* end) {
    Decimal result;
    if (*at == '-') {
        result.negative = true;
        ++at;
    }
    for (; *at != 'e'; ++at) {
        if (*at != '.') result.digits[static_cast<std::size_t>(result.count++)] = *at;
    }
    while (result.count > 0 && result.digits[static_cast<std::size_t>(result.count - 1)] == '0') --result.count;
    ++at;
    if (*at == '+') ++at;
    std::from_chars(at, end, result.exponent);
    ++result.exponent;
    return result;
}

template <std::floating_point F>
Decimal Round(F value, int significant) {
    std::array<char, 40> text;
    char* const limit = text.data() + text.size();
    // The shortest text that reads back as the value is much cheaper than a rounded one. In the normal range of Double
    // it is the same where it has no more digits.
    if (std::same_as<F, Double> && std::isnormal(value)) {
        const char* end = std::to_chars(text.data(), limit, value, std::chars_format::scientific).ptr;
        const Decimal shortest = ReadScientific(text.data(), end);
        if (shortest.count <= significant) return shortest;
    }
    const char* end = std::to_chars(text.data(), limit, value, std::chars_format::scientific, significant - 1).ptr;
    return ReadScientific(text.data(), end);
}

char* Put(char* to, std::string_view text) {
    text.copy(to, text.size());
    return to + text.size();
}

char* PutZeros(char* to, int count) { return std::fill_n(to, count, '0'); }

char* WriteInteger(char* to, std::int64_t value) { return std::to_chars(to, to + kMostCharacters, value).ptr; }

char* WritePadded(char* to, int value, int width) {
    for (int i = width; i-- > 0; value /= 10) to[i] = static_cast<char>('0' + value % 10);
    return to + width;
}

char* WriteTenThousandths(char* to, std::int64_t units) {
    constexpr auto kWhole = static_cast<std::uint64_t>(Money::kUnitsPerWhole);
    const auto bits = static_cast<std::uint64_t>(units);
    const std::uint64_t absolute = units < 0 ? 0 - bits : bits;
    if (units < 0) *to++ = '-';
    to = WriteInteger(to, static_cast<std::int64_t>(absolute / kWhole));
    auto rest = static_cast<int>(absolute % kWhole);
    if (rest == 0) return to;
    int width = 4;
    for (; rest % 10 == 0; rest /= 10) --width;
    *to++ = DecimalSeparator();
    return WritePadded(to, rest, width);
}

template <std::floating_point F>
char* WriteFloating(char* to, F value) {
    constexpr int significant = std::same_as<F, Single> ? 7 : 15;
    constexpr F limit = std::same_as<F, Single> ? F(1e7) : F(1e15);
    if (!std::isfinite(value)) RaiseOverflow();
    // Hours and amounts mostly have a few decimals and are then the same as so many ten-thousandths: the product is
    // rounded by less than the last digit shown.
    if (const F units = value * Money::kUnitsPerWhole; std::fabs(units) < limit && std::trunc(units) == units) {
        return WriteTenThousandths(to, static_cast<std::int64_t>(units));
    }
    const Decimal number = Round(value, significant);
    const std::string_view digits = number.Digits();
    if (number.negative) *to++ = '-';
    const int behind = number.count - number.exponent;
    if (number.exponent > significant || behind > significant) {
        *to++ = digits[0];
        if (digits.size() > 1) {
            *to++ = DecimalSeparator();
            to = Put(to, digits.substr(1));
        }
        const int power = number.exponent - 1;
        to = Put(to, power < 0 ? "E-" : "E+");
        if (std::abs(power) < 10) *to++ = '0';
        return WriteNumber(to, std::abs(power));
    }
    if (number.exponent <= 0) {
        *to++ = '0';
        *to++ = DecimalSeparator();
        to = PutZeros(to, -number.exponent);
        return Put(to, digits);
    }
    if (behind <= 0) return PutZeros(Put(to, digits), -behind);
    to = Put(to, digits.substr(0, static_cast<std::size_t>(number.exponent)));
    *to++ = DecimalSeparator();
    return Put(to, digits.substr(static_cast<std::size_t>(number.exponent)));
}

struct Civil {
    explicit Civil(DateTime moment)
        : date(moment.Date()), seconds(static_cast<int>(moment.Time() / std::chrono::seconds{1})) {}
    int Year() const { return static_cast<int>(date.year()); }
    int Month() const { return static_cast<int>(static_cast<unsigned>(date.month())); }
    int Day() const { return static_cast<int>(static_cast<unsigned>(date.day())); }

    std::chrono::year_month_day date;
    int seconds;  // since midnight, whole ones
};

char* WriteDate(char* to, const Civil& civil) {
    to = WritePadded(to, civil.Day(), 2);
    *to++ = '.';
    to = WritePadded(to, civil.Month(), 2);
    *to++ = '.';
    return WritePadded(to, civil.Year(), 4);
}

char* WriteClock(char* to, const Civil& civil) {
    to = WritePadded(to, civil.seconds / 3600, 2);
    *to++ = ':';
    return WritePadded(to, civil.seconds / 60 % 60, 2);
}

char* WriteClockWithSeconds(char* to, const Civil& civil) {
    to = WriteClock(to, civil);
    *to++ = ':';
    return WritePadded(to, civil.seconds % 60, 2);
}

}  // namespace

char* WriteNumber(char* to, Int32 value) { return std::to_chars(to, to + kMostOfInt32, value).ptr; }

char* WriteDefault(char* to, Double value) { return WriteFloating(to, value); }
char* WriteDefault(char* to, Single value) { return WriteFloating(to, value); }

char* WriteDefault(char* to, Money value) { return WriteTenThousandths(to, value.Units()); }

char* WriteDefault(char* to, DateTime value) {
    const Civil civil(value);
    const bool time_only = !value.DatePart();
    if (!time_only) {
        to = WriteDate(to, civil);
        if (civil.seconds == 0) return to;
        *to++ = ' ';
    }
    return WriteClockWithSeconds(to, civil);
}

char* WriteDate(char* to, DateTime value) { return WriteDate(to, Civil(value)); }

char* WriteClock(char* to, DateTime value) { return WriteClock(to, Civil(value)); }

char* WriteMoment(char* to, DateTime value) {
    const Civil civil(value);
    to = WriteDate(to, civil);
    *to++ = ' ';
    return WriteClockWithSeconds(to, civil);
}

char* WriteCompactDate(char* to, DateTime value) {
    const std::chrono::year_month_day date(value.Date());
    const int number = (static_cast<int>(date.year()) * 100 + static_cast<int>(static_cast<unsigned>(date.month()))) * 100 +
                       static_cast<int>(static_cast<unsigned>(date.day()));
    return WritePadded(to, number, 8);
}

}  // namespace LumoSeminar::text_writer
