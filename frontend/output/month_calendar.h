#pragma once

#include <chrono>
#include <vector>

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

struct CalendarStyle {
    /// Columns of the screen: as many months stand side by side as fit. 0: below each other.
    int width = 0;
    bool colour = false;
    /// Whether the number of the week (ISO 8601) stands in front of each line.
    bool weeks = false;
};

/// The months from the first of the days to the last, the days marked in them: by brackets, where there is colour by
/// reversed colours in place of them. A year and more without a day is left out and told in a line. "No days." where
/// there are none.
LumoSeminar::Text MonthCalendar(const std::vector<LumoSeminar::DateTime>& days, const CalendarStyle& style = {});

/// "March 2010"
LumoSeminar::Text MonthName(std::chrono::year_month month);

/// Prints a calendar on standard output, as its terminal can show it.
void PrintMonthCalendar(const std::vector<LumoSeminar::DateTime>& days, bool weeks);

}  // namespace frontend
