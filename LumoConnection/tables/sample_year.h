#pragma once

#include <string>
#include <string_view>

namespace LumoConnection {

/// The first of the two years that schema/sample.sql and schema/process_sample.sql tell of.
inline constexpr int kSampleYear = 2009;

/// Moves the texts of the sample to other years.
///
/// Every moment moves by the same number of whole weeks, the one nearest to the years between; so weekdays, spans and
/// orders stay, and a day of the calendar moves by up to four days. Times of day, which lie on 30.12.1899, stay. Budget
/// years move by whole years: they go on to begin on 1 April, and as no date of the sample ends within four days of
/// that, each stays in the budget year it was in. The years in codes of dates ("FT-101/09-1") and in numbers of
/// applicants ("B-2009-003") move along.
class SampleMove {
  public:
    /// Raises overflow (6) for a year in which the sample does not fit the database's moments.
    explicit SampleMove(int first_year);

    std::string Moved(std::string_view batch) const;

  private:
    int years_;
    int days_;
};

}  // namespace LumoConnection
