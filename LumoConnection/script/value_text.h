#pragma once

#include <charconv>
#include <chrono>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>

#include <LumoSeminar/frame/date_time.h>

/// What both written forms of a script say of a value.
namespace LumoConnection::detail {

/// The shortest digits that are read back as the same number.
inline std::string NumberText(std::floating_point auto number) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
    return {buffer, end};
}

/// A moment taken apart.
struct MomentParts {
    std::chrono::year_month_day day;
    std::chrono::hh_mm_ss<std::chrono::milliseconds> time;
};

/// None for a moment that is not made of a day and whole milliseconds.
inline std::optional<MomentParts> PartsOf(LumoSeminar::DateTime moment) {
    const auto date = moment.Date();
    const auto time = moment.Time();
    if (LumoSeminar::DateTime(date, time) != moment) return {};
    return MomentParts{std::chrono::year_month_day(date), std::chrono::hh_mm_ss(time)};
}

}  // namespace LumoConnection::detail
