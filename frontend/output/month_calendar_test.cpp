#include "frontend/output/month_calendar.h"

#include <gtest/gtest.h>

namespace frontend {
namespace {

using namespace LumoSeminar;

std::vector<DateTime> DaysIn(int year, unsigned month, const std::vector<unsigned>& days) {
    std::vector<DateTime> result;
    result.reserve(days.size());
    for (const unsigned day : days) result.push_back(DateTime::Of(year, month, day));
    return result;
}

TEST(MonthCalendar, AMonthThatStartsOnAMonday) {
    EXPECT_EQ(MonthCalendar(DaysIn(2010, 3, {3, 4, 31}), {}),
              " March 2010\n"
              " Mo  Tu  We  Th  Fr  Sa  Su\n"
              "  1   2 [ 3][ 4]  5   6   7\n"
              "  8   9  10  11  12  13  14\n"
              " 15  16  17  18  19  20  21\n"
              " 22  23  24  25  26  27  28\n"
              " 29  30 [31]\n");
}

TEST(MonthCalendar, AMonthThatStartsOnASunday) {
    EXPECT_EQ(MonthCalendar(DaysIn(2010, 8, {1, 31}), {}),
              " August 2010\n"
              " Mo  Tu  We  Th  Fr  Sa  Su\n"
              "                        [ 1]\n"
              "  2   3   4   5   6   7   8\n"
              "  9  10  11  12  13  14  15\n"
              " 16  17  18  19  20  21  22\n"
              " 23  24  25  26  27  28  29\n"
              " 30 [31]\n");
}

TEST(MonthCalendar, FebruaryHasFullWeeksOrALeapDay) {
    EXPECT_EQ(MonthCalendar(DaysIn(2010, 2, {28}), {}),
              " February 2010\n"
              " Mo  Tu  We  Th  Fr  Sa  Su\n"
              "  1   2   3   4   5   6   7\n"
              "  8   9  10  11  12  13  14\n"
              " 15  16  17  18  19  20  21\n"
              " 22  23  24  25  26  27 [28]\n");
    EXPECT_EQ(MonthCalendar(DaysIn(2012, 2, {29}), {}),
              " February 2012\n"
              " Mo  Tu  We  Th  Fr  Sa  Su\n"
              "          1   2   3   4   5\n"
              "  6   7   8   9  10  11  12\n"
              " 13  14  15  16  17  18  19\n"
              " 20  21  22  23  24  25  26\n"
              " 27  28 [29]\n");
}

TEST(MonthCalendar, ShowsTheMonthsBetweenTheFirstDayAndTheLastInWhateverOrderTheyCome) {
    EXPECT_EQ(MonthCalendar({DateTime::Of(2010, 1, 1, 9, 30), DateTime::Of(2009, 11, 30), DateTime::Of(2010, 1, 1)}, {}),
              " November 2009\n"
              " Mo  Tu  We  Th  Fr  Sa  Su\n"
              "                          1\n"
              "  2   3   4   5   6   7   8\n"
              "  9  10  11  12  13  14  15\n"
              " 16  17  18  19  20  21  22\n"
              " 23  24  25  26  27  28  29\n"
              "[30]\n"
              "\n"
              " December 2009\n"
              " Mo  Tu  We  Th  Fr  Sa  Su\n"
              "      1   2   3   4   5   6\n"
              "  7   8   9  10  11  12  13\n"
              " 14  15  16  17  18  19  20\n"
              " 21  22  23  24  25  26  27\n"
              " 28  29  30  31\n"
              "\n"
              " January 2010\n"
              " Mo  Tu  We  Th  Fr  Sa  Su\n"
              "                [ 1]  2   3\n"
              "  4   5   6   7   8   9  10\n"
              " 11  12  13  14  15  16  17\n"
              " 18  19  20  21  22  23  24\n"
              " 25  26  27  28  29  30  31\n");
}

TEST(MonthCalendar, WeeksOfTheYearsEndBelongToTheYearOfTheirThursday) {
    EXPECT_EQ(MonthCalendar(DaysIn(2010, 1, {1}), {0, false, true}),
              " January 2010\n"
              " Wk | Mo  Tu  We  Th  Fr  Sa  Su\n"
              " 53 |                [ 1]  2   3\n"
              "  1 |  4   5   6   7   8   9  10\n"
              "  2 | 11  12  13  14  15  16  17\n"
              "  3 | 18  19  20  21  22  23  24\n"
              "  4 | 25  26  27  28  29  30  31\n");
    EXPECT_EQ(MonthCalendar(DaysIn(2008, 12, {31}), {0, false, true}),
              " December 2008\n"
              " Wk | Mo  Tu  We  Th  Fr  Sa  Su\n"
              " 49 |  1   2   3   4   5   6   7\n"
              " 50 |  8   9  10  11  12  13  14\n"
              " 51 | 15  16  17  18  19  20  21\n"
              " 52 | 22  23  24  25  26  27  28\n"
              "  1 | 29  30 [31]\n");
}

TEST(MonthCalendar, MonthsStandSideBySideWhereTheyFit) {
    const std::vector<DateTime> days = {DateTime::Of(2009, 12, 31), DateTime::Of(2010, 2, 1)};
    const char* const two_in_a_row =
        " December 2009                  January 2010\n"
        " Mo  Tu  We  Th  Fr  Sa  Su     Mo  Tu  We  Th  Fr  Sa  Su\n"
        "      1   2   3   4   5   6                      1   2   3\n"
        "  7   8   9  10  11  12  13      4   5   6   7   8   9  10\n"
        " 14  15  16  17  18  19  20     11  12  13  14  15  16  17\n"
        " 21  22  23  24  25  26  27     18  19  20  21  22  23  24\n"
        " 28  29  30 [31]                25  26  27  28  29  30  31\n"
        "\n"
        " February 2010\n"
        " Mo  Tu  We  Th  Fr  Sa  Su\n"
        "[ 1]  2   3   4   5   6   7\n"
        "  8   9  10  11  12  13  14\n"
        " 15  16  17  18  19  20  21\n"
        " 22  23  24  25  26  27  28\n";
    EXPECT_EQ(MonthCalendar(days, {59, false}), two_in_a_row);
    EXPECT_EQ(MonthCalendar(days, {80, false}), two_in_a_row);
    EXPECT_EQ(MonthCalendar(days, {58, false}), MonthCalendar(days, {}));
    EXPECT_EQ(MonthCalendar(days, {90, false}).find("\n\n"), Text::npos) << "three in one row";
    EXPECT_EQ(MonthCalendar(days, {68, false, true}), MonthCalendar(days, {0, false, true}));
    EXPECT_NE(MonthCalendar(days, {69, false, true}), MonthCalendar(days, {0, false, true}));
}

TEST(MonthCalendar, ColoursStandInPlaceOfTheBrackets) {
    EXPECT_EQ(MonthCalendar(DaysIn(2010, 2, {1, 28}), {0, true, true}),
              "\x1b[1m February 2010\x1b[0m\n"
              "\x1b[2m Wk |\x1b[0m\x1b[2m Mo  Tu  We  Th  Fr  Sa  Su \x1b[0m\n"
              "\x1b[2m  5 |\x1b[0m \x1b[7m 1\x1b[0m   2   3   4   5   6   7\n"
              "\x1b[2m  6 |\x1b[0m  8   9  10  11  12  13  14\n"
              "\x1b[2m  7 |\x1b[0m 15  16  17  18  19  20  21\n"
              "\x1b[2m  8 |\x1b[0m 22  23  24  25  26  27  \x1b[7m28\x1b[0m\n");
}

TEST(MonthCalendar, LeavesOutAYearWithoutADay) {
    const char* const january =
        " January 2010\n"
        " Mo  Tu  We  Th  Fr  Sa  Su\n"
        "                  1   2 [ 3]\n"
        "  4   5   6   7   8   9  10\n"
        " 11  12  13  14  15  16  17\n"
        " 18  19  20  21  22  23  24\n"
        " 25  26  27  28  29  30  31\n";
    const char* const last =
        " December 9999\n"
        " Mo  Tu  We  Th  Fr  Sa  Su\n"
        "          1   2   3   4   5\n"
        "  6   7   8   9  10  11  12\n"
        " 13  14  15  16  17  18  19\n"
        " 20  21  22  23  24  25  26\n"
        " 27  28  29  30 [31]\n";
    EXPECT_EQ(MonthCalendar({DateTime::Of(2010, 1, 3), DateTime::Of(9999, 12, 31)}, {}),
              january + Text("\n(95878 months without a day)\n\n") + last);
    const Text a_year = MonthCalendar({DateTime::Of(2010, 1, 3), DateTime::Of(2011, 2, 1)}, {});
    EXPECT_NE(a_year.find("\n(12 months without a day)\n"), Text::npos) << a_year;
    const Text less = MonthCalendar({DateTime::Of(2010, 1, 3), DateTime::Of(2011, 1, 1)}, {});
    EXPECT_NE(less.find(" December 2010\n"), Text::npos) << less;
}

TEST(MonthCalendar, SaysThatThereAreNoDays) { EXPECT_EQ(MonthCalendar({}, {80, true, true}), "No days.\n"); }

}  // namespace
}  // namespace frontend
