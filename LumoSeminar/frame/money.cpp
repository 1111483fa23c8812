#include <LumoSeminar/frame/money.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <ostream>

#include <LumoSeminar/frame/decimal.h>
#include <LumoSeminar/frame/text_form.h>

namespace LumoSeminar {
namespace {

// Beside the range of money, and below the half of its smallest unit. Between them 64 characters are plenty.
constexpr Double kBeyond = 1e15;
constexpr Double kNothing = 1e-5;

template <std::floating_point F>
Money Nearest(F value) {
    const auto size = static_cast<Double>(std::fabs(value));
    if (!(size < kBeyond)) RaiseOverflow();
    if (size < kNothing) return {};
    std::array<char, 64> text;
    const char* end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
    return MoneyOfDecimal({text.data(), end});
}

}  // namespace

Money MoneyOfDecimal(std::string_view number) {
    const bool negative = number.starts_with('-');
    // Counted downwards: the smallest amount has no positive one.
    std::int64_t units = 0;
    int decimals = -1;
    bool odd = false;
    bool above_half = false;
    bool half = false;
    for (const char c : number.substr(negative ? 1 : 0)) {
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

Money Money::FromDouble(Double value) { return Nearest(value); }
Money Money::FromSingle(Single value) { return Nearest(value); }

Double Money::ToDouble() const {
    return static_cast<Double>(static_cast<long double>(units_) / static_cast<long double>(kUnitsPerWhole));
}

std::int64_t Money::Rounded() const {
    const std::int64_t whole = units_ / kUnitsPerWhole;
    const std::int64_t rest = units_ % kUnitsPerWhole;
    const std::int64_t twice = (rest < 0 ? -rest : rest) * 2;
    if (twice < kUnitsPerWhole || (twice == kUnitsPerWhole && whole % 2 == 0)) return whole;
    return units_ < 0 ? whole - 1 : whole + 1;
}

std::ostream& operator<<(std::ostream& to, Money value) { return to << DefaultText(value); }

}  // namespace LumoSeminar
