#include "frontend/output/value_text.h"

#include <fmt/format.h>

#include <chrono>

namespace frontend {

using namespace LumoSeminar;

namespace {

Text IsoDay(DateTime value) {
    const std::chrono::year_month_day day{value.Date()};
    return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                       static_cast<unsigned>(day.day()));
}

Text IsoClock(DateTime value) {
    const auto thousandths = value.Time().count();
    const auto seconds = thousandths / 1000;
    Text text = fmt::format("{:02}:{:02}:{:02}", seconds / 3600, seconds / 60 % 60, seconds % 60);
    if (thousandths % 1000 != 0) text += fmt::format(".{:03}", thousandths % 1000);
    return text;
}

}  // namespace

Text MoneyText(Money value) {
    const bool negative = value.Units() < 0;
    const auto magnitude = static_cast<std::uint64_t>(value.Units());
    const std::uint64_t units = negative ? 0 - magnitude : magnitude;
    constexpr auto kWhole = static_cast<std::uint64_t>(Money::kUnitsPerWhole);
    Text text = fmt::format("{}{}.{:04}", negative ? "-" : "", units / kWhole, units % kWhole);
    for (int i = 0; i < 2 && text.back() == '0'; ++i) text.pop_back();
    return text;
}

Text IsoText(DateTime value) { return IsoDay(value) + 'T' + IsoClock(value); }

Text ScreenText(DateTime value) {
    if (!value.DatePart()) return IsoClock(value);
    if (value.Time().count() == 0) return IsoDay(value);
    return IsoDay(value) + ' ' + IsoClock(value);
}

Text ExactText(Double value) { return fmt::format("{}", value); }
Text ExactText(Single value) { return fmt::format("{}", value); }

bool IsNumber(const Variant& value) {
    return value.Is<Byte>() || value.Is<Int16>() || value.Is<Int32>() || value.Is<Single>() || value.Is<Double>() ||
           value.Is<Money>();
}

bool IsNothing(const Variant& value) { return value.IsNull() || value.IsEmpty(); }

}  // namespace frontend
