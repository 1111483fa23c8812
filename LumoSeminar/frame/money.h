#pragma once

#include <compare>
#include <cstdint>

#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

/// Fixed point with four decimals, exact from -922,337,203,685,477.5808 to 922,337,203,685,477.5807.
class Money {
  public:
    constexpr Money() = default;
    constexpr Money(Int32 whole) : units_(std::int64_t{whole} * kUnitsPerWhole) {}

    /// From ten-thousandths.
    static constexpr Money FromUnits(std::int64_t units) {
        Money result;
        result.units_ = units;
        return result;
    }

    /// Rounds to four decimals, halves to the even neighbour. Raises overflow (6).
    static Money FromDouble(Double value);

    /// Ten-thousandths.
    constexpr std::int64_t Units() const { return units_; }

    Double ToDouble() const;

    /// The nearest whole number, halves to the even neighbour.
    std::int64_t Rounded() const;

    friend constexpr auto operator<=>(Money, Money) = default;

    static constexpr std::int64_t kUnitsPerWhole = 10'000;

  private:
    std::int64_t units_ = 0;
};

}  // namespace LumoSeminar
