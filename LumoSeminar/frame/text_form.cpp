#include <LumoSeminar/frame/text_form.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <locale>

namespace LumoSeminar {
namespace {

// A finite number as 0.d1d2d3... times ten to the exponent, without trailing zeros.
struct Decimal {
    bool negative = false;
    std::array<char, 20> digits{};
    int count = 0;
    int exponent = 0;
};

template <std::floating_point F>
Decimal Round(F value, int significant) {
    std::array<char, 40> scientific;
    const auto end = std::to_chars(scientific.data(), scientific.data() + scientific.size(), value,
                                   std::chars_format::scientific, significant - 1)
                         .ptr;
    Decimal result;
    const char* at = scientific.data();
    if (*at == '-') {
        result.negative = true;
        ++at;
    }
    const char* e = std::find(at, static_cast<const char*>(end), 'e');
    for (; at != e; ++at) {
        if (*at != '.') result.digits[static_cast<std::size_t>(result.count++)] = *at;
    }
    while (result.count > 0 && result.digits[static_cast<std::size_t>(result.count - 1)] == '0') --result.count;
    ++e;
    if (*e == '+') ++e;
    std::from_chars(e, end, result.exponent);
    ++result.exponent;
    return result;
}

template <std::floating_point F>
void AppendFloating(Text& to, F value) {
    constexpr int significant = std::same_as<F, Single> ? 7 : 15;
    constexpr F limit = std::same_as<F, Single> ? F(1e7) : F(1e15);
    if (!std::isfinite(value)) RaiseOverflow();
    if (std::fabs(value) < limit && std::trunc(value) == value) {
        AppendNumber(to, static_cast<std::int64_t>(value));
        return;
    }
    const Decimal number = Round(value, significant);
    const std::string_view digits(number.digits.data(), static_cast<std::size_t>(number.count));
    if (number.negative) to += '-';
    const int behind = number.count - number.exponent;
    if (number.exponent > significant || behind > significant) {
        to += digits[0];
        if (digits.size() > 1) {
            to += DecimalSeparator();
            to += digits.substr(1);
        }
        const int power = number.exponent - 1;
        to += power < 0 ? "E-" : "E+";
        if (std::abs(power) < 10) to += '0';
        AppendNumber(to, std::abs(power));
    } else if (number.exponent <= 0) {
        to += '0';
        to += DecimalSeparator();
        to.append(static_cast<std::size_t>(-number.exponent), '0');
        to += digits;
    } else if (behind <= 0) {
        to += digits;
        to.append(static_cast<std::size_t>(-behind), '0');
    } else {
        to += digits.substr(0, static_cast<std::size_t>(number.exponent));
        to += DecimalSeparator();
        to += digits.substr(static_cast<std::size_t>(number.exponent));
    }
}

void AppendPadded(Text& to, int value, int width) {
    std::array<char, 12> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    const auto length = end - digits.data();
    if (length < width) to.append(static_cast<std::size_t>(width - length), '0');
    to.append(digits.data(), end);
}

struct Civil {
    explicit Civil(DateTime moment)
        : date(moment.Date()), time(std::chrono::floor<std::chrono::seconds>(moment.Time())) {}
    int Year() const { return static_cast<int>(date.year()); }
    int Month() const { return static_cast<int>(static_cast<unsigned>(date.month())); }
    int Day() const { return static_cast<int>(static_cast<unsigned>(date.day())); }
    int Hour() const { return static_cast<int>(time.count() / 3600); }
    int Minute() const { return static_cast<int>(time.count() / 60 % 60); }
    int Second() const { return static_cast<int>(time.count() % 60); }

    std::chrono::year_month_day date;
    std::chrono::seconds time;
};

void AppendDate(Text& to, const Civil& civil) {
    AppendPadded(to, civil.Day(), 2);
    to += '.';
    AppendPadded(to, civil.Month(), 2);
    to += '.';
    AppendPadded(to, civil.Year(), 4);
}

void AppendClock(Text& to, const Civil& civil) {
    AppendPadded(to, civil.Hour(), 2);
    to += ':';
    AppendPadded(to, civil.Minute(), 2);
}

void AppendClockWithSeconds(Text& to, const Civil& civil) {
    AppendClock(to, civil);
    to += ':';
    AppendPadded(to, civil.Second(), 2);
}

std::string_view Trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// [sign] digits [separator digits] [E [sign] digits], at least one digit before the exponent; rewritten with a point.
bool ReadNumber(std::string_view text, Text& plain) {
    const char separator = DecimalSeparator();
    std::size_t at = 0;
    std::size_t digits = 0;
    const auto Sign = [&](std::size_t& position) {
        if (position < text.size() && (text[position] == '+' || text[position] == '-')) {
            if (text[position] == '-') plain += '-';
            ++position;
        }
    };
    const auto Digits = [&] {
        std::size_t count = 0;
        for (; at < text.size() && IsDigit(text[at]); ++at, ++count) plain += text[at];
        return count;
    };
    Sign(at);
    digits += Digits();
    if (at < text.size() && text[at] == separator) {
        plain += '.';
        ++at;
        digits += Digits();
    }
    if (digits == 0) return false;
    if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
        plain += 'e';
        ++at;
        Sign(at);
        if (Digits() == 0) return false;
    }
    return at == text.size();
}

// Takes up to `most` digits off the front.
bool TakeNumber(std::string_view& text, std::size_t least, std::size_t most, int& value) {
    std::size_t length = 0;
    while (length < text.size() && length < most && IsDigit(text[length])) ++length;
    if (length < least) return false;
    std::from_chars(text.data(), text.data() + length, value);
    text.remove_prefix(length);
    return true;
}

bool Take(std::string_view& text, char c) {
    if (!text.starts_with(c)) return false;
    text.remove_prefix(1);
    return true;
}

bool EqualsWithoutCase(std::string_view text, std::string_view lower) {
    return std::ranges::equal(text, lower,
                              [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a + ('a' - 'A') : a) == b; });
}

[[noreturn]] void RaiseNo(std::string_view type) { RaiseTypeMismatch("the text", type); }

}  // namespace

char DecimalSeparator() { return std::use_facet<std::numpunct<char>>(std::locale()).decimal_point(); }

void AppendNumber(Text& to, std::int64_t value) {
    std::array<char, 20> digits;
    to.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
}

void AppendDefault(Text& to, Double value) { AppendFloating(to, value); }
void AppendDefault(Text& to, Single value) { AppendFloating(to, value); }

void AppendDefault(Text& to, Money value) {
    constexpr auto kWhole = static_cast<std::uint64_t>(Money::kUnitsPerWhole);
    const bool negative = value.Units() < 0;
    const auto units = negative ? 0 - static_cast<std::uint64_t>(value.Units()) : static_cast<std::uint64_t>(value.Units());
    if (negative) to += '-';
    AppendNumber(to, static_cast<std::int64_t>(units / kWhole));
    auto rest = static_cast<int>(units % kWhole);
    if (rest == 0) return;
    int width = 4;
    for (; rest % 10 == 0; rest /= 10) --width;
    to += DecimalSeparator();
    AppendPadded(to, rest, width);
}

void AppendDefault(Text& to, DateTime value) {
    const Civil civil(value);
    const bool time_only = !value.DatePart();
    if (!time_only) AppendDate(to, civil);
    if (civil.time.count() == 0 && !time_only) return;
    if (!time_only) to += ' ';
    AppendClockWithSeconds(to, civil);
}

Text DefaultText(Int32 value) {
    Text text;
    AppendNumber(text, value);
    return text;
}

Text DefaultText(Double value) {
    Text text;
    AppendDefault(text, value);
    return text;
}

Text DefaultText(Single value) {
    Text text;
    AppendDefault(text, value);
    return text;
}

Text DefaultText(Money value) {
    Text text;
    AppendDefault(text, value);
    return text;
}

Text DefaultText(DateTime value) {
    Text text;
    AppendDefault(text, value);
    return text;
}

Text DefaultText(Bool value) { return value ? "True" : "False"; }

void AppendDate(Text& to, DateTime value) { AppendDate(to, Civil(value)); }

void AppendClock(Text& to, DateTime value) { AppendClock(to, Civil(value)); }

void AppendMoment(Text& to, DateTime value) {
    const Civil civil(value);
    AppendDate(to, civil);
    to += ' ';
    AppendClockWithSeconds(to, civil);
}

void AppendCompactDate(Text& to, DateTime value) {
    const Civil civil(value);
    AppendPadded(to, civil.Year(), 4);
    AppendPadded(to, civil.Month(), 2);
    AppendPadded(to, civil.Day(), 2);
}

Text KeyText(Int32 key) {
    Text text = DefaultText(key);
    const std::size_t sign = key < 0 ? 1 : 0;
    const std::size_t digits = text.size() - sign;
    if (digits < 10) text.insert(sign, 10 - digits, '0');
    return text;
}

Double ToDouble(std::string_view text) {
    Text plain;
    if (!ReadNumber(Trim(text), plain)) RaiseNo("Double");
    Double value = 0;
    const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const auto power = plain.find("e-");
        if (power == Text::npos && plain.find_first_of("123456789") < plain.find('.')) RaiseOverflow();
        return 0;
    }
    return value;
}

Money ToMoney(std::string_view text) {
    Text plain;
    if (!ReadNumber(Trim(text), plain)) RaiseNo("Money");
    if (plain.find('e') != Text::npos) return Money::FromDouble(ToDouble(text));
    const bool negative = plain.starts_with('-');
    std::int64_t units = 0;
    int decimals = -1;
    bool odd = false;
    bool above_half = false;
    bool half = false;
    for (const char c : std::string_view(plain).substr(negative ? 1 : 0)) {
        if (c == '.') {
            decimals = 0;
        } else if (decimals < 4) {
            const int digit = c - '0';
            if (__builtin_mul_overflow(units, 10, &units) || __builtin_sub_overflow(units, digit, &units))
                RaiseOverflow();
            odd = digit % 2 != 0;
            if (decimals >= 0) ++decimals;
        } else if (decimals == 4) {
            half = c >= '5';
            above_half = c > '5';
            ++decimals;
        } else {
            above_half = above_half || (half && c != '0');
        }
    }
    for (int i = std::max(decimals, 0); i < 4; ++i) {
        if (__builtin_mul_overflow(units, 10, &units)) RaiseOverflow();
        odd = false;
    }
    if ((above_half || (half && odd)) && __builtin_sub_overflow(units, 1, &units)) RaiseOverflow();
    if (!negative && __builtin_sub_overflow(std::int64_t{0}, units, &units)) RaiseOverflow();
    return Money::FromUnits(units);
}

DateTime ToDateTime(std::string_view text) {
    std::string_view rest = Trim(text);
    int day = 30;
    int month = 12;
    int year = 1899;
    int hour = 0;
    int minute = 0;
    int second = 0;
    bool valid = !rest.empty();
    if (rest.find('.') != std::string_view::npos) {
        valid = TakeNumber(rest, 1, 2, day) && Take(rest, '.') && TakeNumber(rest, 1, 2, month) && Take(rest, '.') &&
                TakeNumber(rest, 4, 4, year) && (rest.empty() || Take(rest, ' '));
    }
    if (valid && !rest.empty()) {
        valid = TakeNumber(rest, 1, 2, hour) && Take(rest, ':') && TakeNumber(rest, 2, 2, minute) &&
                (rest.empty() || (Take(rest, ':') && TakeNumber(rest, 2, 2, second) && rest.empty()));
    }
    if (!valid) RaiseNo("DateTime");
    return DateTime::Of(year, static_cast<unsigned>(month), static_cast<unsigned>(day), hour, minute, second);
}

Bool ToBool(std::string_view text) {
    const auto word = Trim(text);
    if (EqualsWithoutCase(word, "true")) return true;
    if (EqualsWithoutCase(word, "false")) return false;
    Text plain;
    if (!ReadNumber(word, plain)) RaiseNo("Bool");
    return ToDouble(word) != 0;
}

}  // namespace LumoSeminar
