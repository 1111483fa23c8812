#pragma once

#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>

#include <LumoSeminar/frame/errors.h>

namespace LumoSeminar {

using Int32 = std::int32_t;
using Int16 = std::int16_t;
using Byte = std::uint8_t;
using Double = double;
using Single = float;

/// UTF-8, empty by default.
using Text = std::string;

/// Truth value that is -1 or 0 wherever it is seen as a number: in memory, in the database, in a statement.
class Bool {
  public:
    constexpr Bool() = default;
    template <std::same_as<bool> T>
    constexpr Bool(T value) : value_(value ? Int16{-1} : Int16{0}) {}

    constexpr explicit operator bool() const { return value_ != 0; }

    /// -1 or 0.
    constexpr Int16 Number() const { return value_; }

    friend constexpr bool operator==(Bool, Bool) = default;

  private:
    Int16 value_ = 0;
};

/// A truth value of C++ or of the library: no number that is none, -1 or 1 by the way it came.
template <class T>
concept TruthValue = std::same_as<T, bool> || std::same_as<T, Bool>;

template <class T>
concept Number = (std::integral<T> && !std::same_as<T, bool>) || std::floating_point<T>;

/// Checked conversion between numbers: halves round to the even neighbour.
/// Raises overflow (6) where the value does not fit, a NaN included.
template <Number T, Number F>
T To(F value) {
    if constexpr (std::floating_point<T>) {
        const T result = static_cast<T>(value);
        if (!std::isfinite(result)) RaiseOverflow();
        return result;
    } else if constexpr (std::floating_point<F>) {
        const F rounded = std::nearbyint(value);
        constexpr F lowest = static_cast<F>(std::numeric_limits<T>::min());
        constexpr T half_limit = std::numeric_limits<T>::max() / 2 + 1;  // a power of two, exact in every F
        constexpr F limit = static_cast<F>(half_limit) * 2;
        if (!(rounded >= lowest && rounded < limit)) RaiseOverflow();
        return static_cast<T>(rounded);
    } else {
        if (!std::in_range<T>(value)) RaiseOverflow();
        return static_cast<T>(value);
    }
}

/// Integer sum that raises overflow (6) in place of wrapping round.
inline Int32 Add(Int32 a, Int32 b) { return To<Int32>(std::int64_t{a} + b); }

}  // namespace LumoSeminar
