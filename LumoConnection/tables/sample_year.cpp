#include <LumoConnection/tables/sample_year.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>

#include <LumoSeminar/frame/errors.h>

#include <LumoConnection/ascii.h>

namespace LumoConnection {

using namespace LumoSeminar;
using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

namespace {

constexpr std::string_view kBudgetYears = "INSERT INTO Sem_BudgetJahr_IT";
constexpr std::string_view kInsert = "INSERT INTO ";
constexpr year_month_day kTimeOfDay{year{1899}, std::chrono::December, std::chrono::day{30}};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

template <class T>
T NumberIn(std::string_view digits) {
    T number{};
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

std::string Digits(int number, std::size_t count) {
    std::string text = std::to_string(number);
    return std::string(count - std::min(count, text.size()), '0') + text;
}

// The day at the front of "dd.mm.yyyy" or "dd.mm.yyyy hh:mm..."; none in any other text.
std::optional<year_month_day> DayOf(std::string_view text) {
    constexpr std::string_view kForm = "dd.dd.dddd";
    if (text.size() < kForm.size() || (text.size() > kForm.size() && text[kForm.size()] != ' ')) return {};
    for (std::size_t i = 0; i < kForm.size(); ++i) {
        if (kForm[i] == '.' ? text[i] != '.' : !IsDigit(text[i])) return {};
    }
    return year_month_day{year{NumberIn<int>(text.substr(6, 4))}, std::chrono::month{NumberIn<unsigned>(text.substr(3, 2))},
                          std::chrono::day{NumberIn<unsigned>(text.substr(0, 2))}};
}

std::string DayText(year_month_day day) {
    return Digits(static_cast<int>(static_cast<unsigned>(day.day())), 2) + "." +
           Digits(static_cast<int>(static_cast<unsigned>(day.month())), 2) + "." + Digits(static_cast<int>(day.year()), 4);
}

// "/09-" and "-2009-": the years of the sample, and the next one, for which it plans.
std::string WithOtherYears(std::string text, int years) {
    struct Form {
        char front;
        std::size_t digits;
    };
    for (const int year_number : {kSampleYear, kSampleYear + 1, kSampleYear + 2}) {
        for (const Form form : {Form{'/', 2}, Form{'-', 4}}) {
            const auto written = [form](int number) {
                return form.front + Digits(number, 4).substr(4 - form.digits) + "-";
            };
            const std::string old = written(year_number);
            const auto at = text.find(old);
            if (at != std::string::npos) return text.replace(at, old.size(), written(year_number + years));
        }
    }
    return text;
}

// Where a comment that begins there ends; the place itself where none begins.
std::size_t BehindComment(std::string_view text, std::size_t at) {
    const auto mark = text.substr(at, 2);
    if (mark == "--") return std::min(text.find('\n', at), text.size());
    if (mark != "/*") return at;
    const auto end = text.find("*/", at + 2);
    return end == std::string_view::npos ? text.size() : end + 2;
}

// Behind the closing quote of a text that begins there.
std::size_t BehindText(std::string_view text, std::size_t at) {
    for (++at; at < text.size(); ++at) {
        if (text[at] != '\'') continue;
        if (text.substr(at + 1, 1) != "'") return at + 1;
        ++at;
    }
    return text.size();
}

}  // namespace

SampleMove::SampleMove(int first_year) : years_(first_year - kSampleYear) {
    constexpr int kFirst = 1762;
    constexpr int kLast = 9997;
    if (first_year < kFirst || first_year > kLast) {
        Raise(ErrorNumber::kOverflow, "The sample cannot be moved to the year " + std::to_string(first_year) + ": years from " +
                                          std::to_string(kFirst) + " to " + std::to_string(kLast) + " are possible.");
    }
    // The second year, in which the sample has its present, comes nearest.
    const auto start_of = [](int number) { return sys_days(year{number} / 1 / 1); };
    const auto apart = (start_of(first_year + 1) - start_of(kSampleYear + 1)).count();
    days_ = static_cast<int>(std::lround(static_cast<double>(apart) / 7)) * 7;
}

std::string SampleMove::Moved(std::string_view batch) const {
    if (years_ == 0) return std::string(batch);
    std::string moved;
    moved.reserve(batch.size());
    bool budget_years = false;
    for (std::size_t at = 0; at < batch.size();) {
        if (SameWithoutCase(batch.substr(at, kInsert.size()), kInsert))
            budget_years = SameWithoutCase(batch.substr(at, kBudgetYears.size()), kBudgetYears);
        if (const auto end = BehindComment(batch, at); end > at) {
            moved.append(batch, at, end - at);
            at = end;
            continue;
        }
        if (batch[at] != '\'') {
            moved += batch[at++];
            continue;
        }
        const auto end = BehindText(batch, at);
        std::string text(batch.substr(at, end - at));
        if (const auto day = DayOf(std::string_view(text).substr(1, text.size() - 2)); !day) {
            text = WithOtherYears(std::move(text), years_);
        } else if (*day != kTimeOfDay) {
            const year_month_day other =
                budget_years ? *day + std::chrono::years(years_) : year_month_day(sys_days(*day) + days(days_));
            const std::string written = DayText(other);
            text.replace(1, written.size(), written);
        }
        moved += text;
        at = end;
    }
    return moved;
}

}  // namespace LumoConnection
