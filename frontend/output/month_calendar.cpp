#include "frontend/output/month_calendar.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <set>
#include <string>

#include "frontend/output/terminal.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

using std::chrono::local_days;
using std::chrono::months;
using std::chrono::year_month;
using std::chrono::year_month_day;

constexpr std::string_view kBold = "\x1b[1m";
constexpr std::string_view kDim = "\x1b[2m";
constexpr std::string_view kReversed = "\x1b[7m";
constexpr std::string_view kPlain = "\x1b[0m";

constexpr const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                   "July",    "August",   "September", "October", "November", "December"};

constexpr std::string_view kWeekdays = " Mo  Tu  We  Th  Fr  Sa  Su ";
constexpr std::string_view kNoDay = "    ";
constexpr std::string_view kBetweenMonths = "   ";
// So many months without a day are not shown.
constexpr int kLongGap = 12;

using Days = std::set<local_days>;
using Lines = std::vector<Text>;

year_month MonthOf(local_days day) {
    const year_month_day date{day};
    return date.year() / date.month();
}

// 0 on Mondays.
int PlaceInWeek(local_days day) { return static_cast<int>(std::chrono::weekday{day}.iso_encoding()) - 1; }

// The week is of the year that its Thursday is in.
int IsoWeek(local_days monday) {
    const auto thursday = monday + std::chrono::days{3};
    const local_days new_year{year_month_day{thursday}.year() / 1 / 1};
    return static_cast<int>((thursday - new_year).count()) / 7 + 1;
}

class Painter {
  public:
    Painter(const Days& days, const CalendarStyle& style) : days_(days), style_(style) {}

    // Columns of the screen that each line of a month takes.
    int Width() const { return static_cast<int>(kWeekdays.size()) + (style_.weeks ? 5 : 0); }

    Lines Month(year_month month) const {
        const Text name = ' ' + MonthName(month);
        Lines lines{Painted(name, kBold) + Text(static_cast<std::size_t>(Width()) - name.size(), ' '),
                    (style_.weeks ? Painted(" Wk |", kDim) : Text()) + Painted(kWeekdays, kDim)};
        const local_days last{month / std::chrono::last};
        const local_days first{month / 1};
        for (auto monday = first - std::chrono::days{PlaceInWeek(first)}; monday <= last; monday += std::chrono::days{7}) {
            lines.push_back(Week(monday, month));
        }
        return lines;
    }

    // Months side by side in rows.
    Text Page(const std::vector<year_month>& shown) const {
        const int with_gap = Width() + static_cast<int>(kBetweenMonths.size());
        const int fit = (style_.width + static_cast<int>(kBetweenMonths.size())) / with_gap;
        const auto in_a_row = static_cast<std::size_t>(std::max(fit, 1));
        Text text;
        for (std::size_t at = 0; at < shown.size(); at += in_a_row) {
            if (at > 0) text += '\n';
            std::vector<Lines> row;
            for (std::size_t i = at; i < std::min(at + in_a_row, shown.size()); ++i) row.push_back(Month(shown[i]));
            text += Row(row);
        }
        return text;
    }

  private:
    Text Row(const std::vector<Lines>& row) const {
        std::size_t height = 0;
        for (const auto& lines : row) height = std::max(height, lines.size());
        Text text;
        for (std::size_t i = 0; i < height; ++i) {
            for (std::size_t month = 0; month < row.size(); ++month) {
                if (month > 0) text += kBetweenMonths;
                text += i < row[month].size() ? row[month][i] : Text(static_cast<std::size_t>(Width()), ' ');
            }
            text.erase(text.find_last_not_of(' ') + 1);
            text += '\n';
        }
        return text;
    }

    Text Week(local_days monday, year_month month) const {
        Text line = style_.weeks ? Painted(fmt::format(" {:2} |", IsoWeek(monday)), kDim) : Text();
        for (int i = 0; i < 7; ++i) {
            const auto day = monday + std::chrono::days{i};
            line += MonthOf(day) == month ? Day(day) : Text(kNoDay);
        }
        return line;
    }

    Text Day(local_days day) const {
        const Text number = fmt::format("{:2}", static_cast<unsigned>(year_month_day{day}.day()));
        if (!days_.contains(day)) return ' ' + number + ' ';
        return style_.colour ? ' ' + Painted(number, kReversed) + ' ' : '[' + number + ']';
    }

    Text Painted(std::string_view text, std::string_view paint) const {
        return style_.colour ? Text(paint).append(text).append(kPlain) : Text(text);
    }

    const Days& days_;
    const CalendarStyle& style_;
};

}  // namespace

Text MonthCalendar(const std::vector<DateTime>& days, const CalendarStyle& style) {
    if (days.empty()) return "No days.\n";
    Days marked;
    std::ranges::transform(days, std::inserter(marked, marked.end()), &DateTime::Date);
    const Painter painter(marked, style);
    Text text;
    std::vector<year_month> shown;
    for (const auto day : marked) {
        const auto month = MonthOf(day);
        if (!shown.empty() && (month - shown.back()).count() > kLongGap) {
            text += painter.Page(shown) + fmt::format("\n({} months without a day)\n\n", (month - shown.back()).count() - 1);
            shown.clear();
        }
        if (shown.empty()) shown.push_back(month);
        while (shown.back() < month) shown.push_back(shown.back() + months{1});
    }
    return text + painter.Page(shown);
}

Text MonthName(year_month month) {
    return fmt::format("{} {}", kMonths[static_cast<unsigned>(month.month()) - 1], static_cast<int>(month.year()));
}

void PrintMonthCalendar(const std::vector<DateTime>& days, bool weeks) {
    const auto terminal = TerminalOf(stdout);
    fmt::print("{}", MonthCalendar(days, {terminal.width, terminal.colour, weeks}));
}

}  // namespace frontend
