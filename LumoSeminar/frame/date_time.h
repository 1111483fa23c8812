#pragma once

#include <chrono>
#include <compare>
#include <concepts>
#include <iosfwd>

#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

/// A moment in days since 30.12.1899, from 01.01.0100 to 31.12.9999. 0 is "no date".
///
/// The whole part is the day; the fraction counts forward from midnight whatever the sign of the day, so that
/// -1.25 is 29.12.1899 06:00. A time of day alone lies on day 0. Moments compare in the order of time.
class DateTime {
  public:
    constexpr DateTime() = default;

    /// Raises overflow (6) outside the range.
    explicit DateTime(Double days);
    explicit DateTime(std::chrono::local_days date, std::chrono::milliseconds time = {});

    /// Raises type mismatch (13) for a day or a time that does not exist, overflow (6) outside the range.
    static DateTime Of(int year, unsigned month, unsigned day, int hour = 0, int minute = 0, int second = 0);
    static DateTime TimeOfDay(int hour, int minute, int second = 0);

    Double Days() const { return days_; }
    std::chrono::local_days Date() const;

    /// Since midnight, to the nearest millisecond.
    std::chrono::milliseconds Time() const;

    /// False for the value 0.
    explicit operator bool() const { return days_ != 0; }

    DateTime DatePart() const;

    /// Calendar addition. Raises overflow (6) where it leaves the range.
    DateTime AddDays(Int32 count) const;
    DateTime AddMinutes(Int32 minutes) const;
    template <std::floating_point T>
    DateTime AddDays(T count) const = delete;  // whole days: say AddDays(To<Int32>(count))
    template <std::floating_point T>
    DateTime AddMinutes(T minutes) const = delete;  // whole minutes: say AddMinutes(To<Int32>(minutes))

    friend bool operator==(DateTime, DateTime) = default;
    friend std::partial_ordering operator<=>(DateTime a, DateTime b) { return a.OnTheLine() <=> b.OnTheLine(); }

    /// The default text form.
    friend std::ostream& operator<<(std::ostream& to, DateTime value);

  private:
    Double OnTheLine() const;

    Double days_ = 0;
};

}  // namespace LumoSeminar
