#include <LumoSeminar/frame/money.h>

namespace LumoSeminar {

Money Money::FromDouble(Double value) {
    // The product is taken in more digits than a double holds, so that 0.00005 is a half and not just beside it.
    return FromUnits(To<std::int64_t>(static_cast<long double>(value) * kUnitsPerWhole));
}

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

}  // namespace LumoSeminar
