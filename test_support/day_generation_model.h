#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

/// For tests: the rules by which a date gets its days, stated a second time, on calendar days and whole numbers alone.
namespace test_support::day_generation_model {

using Date = std::chrono::local_days;
using std::chrono::days;
using std::chrono::year;

inline constexpr Date kNoDate{year{1899} / 12 / 30};
inline constexpr Date kFirstDate{year{100} / 1 / 1};
inline constexpr Date kFirstStored{year{1753} / 1 / 1};
inline constexpr Date kLastDate{year{9999} / 12 / 31};
inline constexpr int kMinutesOfADay = 24 * 60;

/// The error that a rule ends with.
struct Failure {
    int number;
};

inline Date Moved(Date date, std::int64_t by) {
    date += days{by};
    if (date < kFirstDate || date > kLastDate) throw Failure{6};
    return date;
}

inline std::int64_t RoundedHalfEven(std::int64_t dividend, std::int64_t divisor) {
    if (divisor < 0) return RoundedHalfEven(-dividend, -divisor);
    std::int64_t quotient = dividend / divisor;
    std::int64_t rest = dividend % divisor;
    if (rest < 0) {
        rest += divisor;
        --quotient;
    }
    const bool up = rest * 2 > divisor || (rest * 2 == divisor && quotient % 2 != 0);
    return quotient + (up ? 1 : 0);
}

inline int ClockMinutes(int minutes) { return ((minutes % kMinutesOfADay) + kMinutesOfADay) % kMinutesOfADay; }

inline std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

inline std::string Clock(int minutes) {
    const int on_the_clock = ClockMinutes(minutes);
    return TwoDigits(on_the_clock / 60) + ":" + TwoDigits(on_the_clock % 60);
}

inline std::string Written(Date date) {
    const std::chrono::year_month_day parts(date);
    return TwoDigits(static_cast<int>(static_cast<unsigned>(parts.day()))) + "." +
           TwoDigits(static_cast<int>(static_cast<unsigned>(parts.month()))) + "." +
           std::to_string(static_cast<int>(parts.year()));
}

/// A series; all 0 where it has no row. Times in minutes, 0 where it has none.
struct Rule {
    int tagefolge = 0;
    int taeglich = 0;
    int woche = 0;
    std::array<int, 7> flags{};  // Monday first
    int begin = 0;
    int end = 0;

    bool Flags(Date date) const { return flags[std::chrono::weekday(date).iso_encoding() - 1] == -1; }
};

struct Times {
    int from;
    int to;
};

/// What stands on a date. Hours in hundredths, times in minutes; kNoDate and 0 are "not set".
struct Fields {
    Date begin = kNoDate;
    Date end = kNoDate;
    int begin_time = 0;
    int end_time = 0;
    int hours = 800;
    int sessions = 1;
    int series = 0;

    friend bool operator==(const Fields&, const Fields&) = default;
};

/// A date, its rows of days in the table, and the series that it may have.
class Model {
  public:
    Model(Fields fields, std::map<int, Rule> rules, bool has_seminar)
        : fields_(fields), saved_(fields), rules_(std::move(rules)), has_seminar_(has_seminar) {}

    void LetBegin(Date value) {
        old_begin_ = std::exchange(fields_.begin, value);
        Generate();
    }
    void LetEnd(Date value) {
        old_end_ = std::exchange(fields_.end, value);
        Generate();
    }
    void Make(Date date, Times times) {
        if (date < kFirstStored || days_.contains(date)) throw Failure{9999};
        days_[date] = {ClockMinutes(times.from), ClockMinutes(times.to)};
    }
    void RemoveFirst() { days_.erase(days_.begin()); }
    void Save() {
        for (const Date date : {fields_.begin, fields_.end}) {
            if (date < kFirstStored) throw Failure{9999};
        }
        for (auto& [date, times] : days_) times = {ClockMinutes(fields_.begin_time), ClockMinutes(fields_.end_time)};
        saved_ = fields_;
        saved_.begin_time = ClockMinutes(fields_.begin_time);
        saved_.end_time = ClockMinutes(fields_.end_time);
    }
    void ReadAnew() {
        fields_ = saved_;
        old_begin_ = fields_.begin;
        old_end_ = fields_.end;
        leave_days_alone = false;
    }

    Fields& Row() { return fields_; }
    const std::map<Date, Times>& Made() const { return days_; }

    bool leave_days_alone = false;

  private:
    void Generate() {
        if (leave_days_alone || fields_.begin == kNoDate) return;
        if (old_begin_ != fields_.begin) Rebuild();
        if (old_end_ == fields_.end) return;
        const bool later = fields_.end > old_end_;
        const bool none_listed = days_.empty();
        if (later) {
            if (none_listed) throw Failure{9};
            const auto [last, times] = *days_.rbegin();
            MakeUpTo(fields_.end, Moved(last, 1), times, EveryDay(), Weeks());
        } else {
            days_.erase(days_.upper_bound(fields_.end), days_.end());
            if (none_listed) MakeUpTo(fields_.begin, Moved(fields_.begin, 1), OwnTimes(), true, nullptr);
        }
        if (days_.empty()) throw Failure{9};
        LetEnd(days_.rbegin()->first);
    }

    void Rebuild() {
        days_.clear();
        old_begin_ = fields_.begin;
        if (fields_.hours == 0) fields_.hours = 800;
        if (fields_.sessions == 0) fields_.sessions = 1;
        const bool takes_times = fields_.series != 0 && has_seminar_;
        if (fields_.begin_time == 0 && takes_times) fields_.begin_time = Series().begin;
        if (fields_.begin_time == 0) fields_.begin_time = 9 * 60;
        if (fields_.end_time == 0 && takes_times) fields_.end_time = Series().end;
        if (fields_.end_time == 0) {
            const std::int64_t length = RoundedHalfEven(std::int64_t{fields_.hours} * 100, fields_.sessions);
            fields_.end_time = fields_.begin_time + static_cast<int>(RoundedHalfEven(length * 60, 10'000));
        }
        fields_.end = MakeSessions();
        if (fields_.series != 0) {
            fields_.begin_time = Series().begin;
            fields_.end_time = Series().end;
        }
        old_end_ = fields_.end;
    }

    /// Counts the sessions from the begin on and gives the last day made.
    Date MakeSessions() {
        Date last = kNoDate;
        int left = fields_.sessions;
        const auto make = [&](Date date) {
            Make(date, OwnTimes());
            last = date;
            --left;
        };
        Date cursor = fields_.begin;
        const Rule* weeks = Weeks();
        while (left > 0) {
            if (!weeks) {
                if (EveryDay() || IsWorkingDay(cursor)) make(cursor);
                cursor = Moved(cursor, 1);
                continue;
            }
            const Date anchor = cursor;
            const int left_before = left;
            for (int i = 0; i < 7; ++i) {
                if (left > 0 && weeks->Flags(cursor)) make(cursor);
                cursor = Moved(cursor, 1);
            }
            cursor = NextWeek(*weeks, anchor, left < left_before);
        }
        return last;
    }

    void MakeUpTo(Date end, Date cursor, Times times, bool every_day, const Rule* weeks) {
        bool end_made = false;
        const auto make = [&](Date date) {
            Make(date, times);
            end_made = end_made || date == end;
        };
        while (cursor <= end) {
            const Date anchor = cursor;
            if (!weeks) {
                if (every_day || IsWorkingDay(cursor)) make(cursor);
                cursor = Moved(cursor, 1);
                continue;
            }
            for (int i = 0; i < 7 && weeks->Flags(cursor) && cursor <= end; ++i) {
                make(cursor);
                cursor = Moved(cursor, 1);
            }
            cursor = NextWeek(*weeks, anchor, cursor != anchor);
        }
        if (!end_made) make(end);
    }

    static Date NextWeek(const Rule& rule, Date anchor, bool made_a_day) {
        if (rule.woche == 0 && !made_a_day) throw Failure{6};
        return Moved(anchor, std::int64_t{rule.woche} * 7);
    }

    static bool IsWorkingDay(Date date) { return std::chrono::weekday(date).iso_encoding() < 6; }

    Times OwnTimes() const { return {fields_.begin_time, fields_.end_time}; }
    const Rule& Series() { return rules_[fields_.series]; }
    bool EveryDay() { return fields_.series == 0 || Series().taeglich == 1; }
    /// The rule of the weekly rhythm, none in the daily one.
    const Rule* Weeks() { return fields_.series == 0 || Series().tagefolge == 1 ? nullptr : &Series(); }

    Fields fields_;
    Fields saved_;
    Date old_begin_ = kNoDate;
    Date old_end_ = kNoDate;
    std::map<Date, Times> days_;
    std::map<int, Rule> rules_;
    bool has_seminar_;
};

}  // namespace test_support::day_generation_model
