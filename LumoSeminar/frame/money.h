#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <iosfwd>

#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

/// Whole numbers that Int32 does not hold all of, and truth values, which are -1 here and 1 there.
template <class T>
concept CutByInt32 = std::integral<T> &&
    (std::same_as<T, bool> || sizeof(T) > sizeof(Int32) || (sizeof(T) == sizeof(Int32) && std::unsigned_integral<T>));

/// Fixed point with four decimals, exact from -922,337,203,685,477.5808 to 922,337,203,685,477.5807.
class Money {
  public:
    constexpr Money() = default;
    constexpr Money(Int32 whole) : units_(std::int64_t{whole} * kUnitsPerWhole) {}

    // What would be cut is refused; the message of the compiler shows the line, and with it what to write.
    template <std::floating_point T>
    Money(T) = delete;  // say Money::FromDouble(value): it rounds to four decimals
    template <CutByInt32 T>
    Money(T) = delete;  // say Money(To<Int32>(value)), or Money::FromUnits(value) for ten-thousandths

    /// From ten-thousandths.
    static constexpr Money FromUnits(std::int64_t units) {
        Money result;
        result.units_ = units;
        return result;
    }

    /// Rounds to four decimals, halves to the even neighbour. What counts is the shortest decimal text that reads back
    /// as the number: 0.00015 is a half, though the Double lies beside it. Raises overflow (6).
    static Money FromDouble(Double value);
    static Money FromSingle(Single value);

    /// Ten-thousandths.
    constexpr std::int64_t Units() const { return units_; }

    Double ToDouble() const;

    /// The nearest whole number, halves to the even neighbour.
    std::int64_t Rounded() const;

    friend constexpr auto operator<=>(Money, Money) = default;

    /// The default text form.
    friend std::ostream& operator<<(std::ostream& to, Money value);

    static constexpr std::int64_t kUnitsPerWhole = 10'000;

  private:
    std::int64_t units_ = 0;
};

}  // namespace LumoSeminar
