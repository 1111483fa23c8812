#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/clsTerminTag.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <test_support/day_generation_fixture.h>

namespace LumoSeminar {
namespace {

using test_support::Dates;
using test_support::ExpectLabels;
using test_support::InsertSeries;
using test_support::kMondays;
using test_support::kMondaysThursdays;
using test_support::kMondaysTuesdays;
using test_support::kNoWeekday;
using test_support::March;
using test_support::SeriesRule;
using test_support::Shown;
using test_support::Times;
using test_support::Weekly;
using test_support::WorkingDays;

class DayGenerationForReal : public test_support::DayGenerationFixture {};

TEST_F(DayGenerationForReal, WorkedResults) {
    const struct {
        const char* name;
        std::optional<SeriesRule> series;
        DateTime begin;
        Int32 sessions;
        Double hours;
        std::vector<DateTime> ends;
        Days days;
        std::string dates;
    } kCases[] = {
        {"without a series and without times",
         {},
         March(3),
         3,
         12,
         {},
         {"03.03.2010 09:00-13:00", "04.03.2010 09:00-13:00", "05.03.2010 09:00-13:00"},
         "03.03.2010 to 05.03.2010"},
        {"working days over a weekend",
         WorkingDays(),
         March(5),
         3,
         12,
         {},
         {"05.03.2010 09:00-13:00", "08.03.2010 09:00-13:00", "09.03.2010 09:00-13:00"},
         "05.03.2010 to 09.03.2010"},
        {"every second week, counted from a day that is not flagged",
         Weekly(2, kMondaysThursdays),
         March(3),
         5,
         10,
         {},
         {"04.03.2010 09:00-11:00", "08.03.2010 09:00-11:00", "18.03.2010 09:00-11:00", "22.03.2010 09:00-11:00",
          "01.04.2010 09:00-11:00"},
         "03.03.2010 to 01.04.2010"},
        {"a weekly end behind a day that is not flagged",
         Weekly(1, {-1, 0, -1, 0, 0, 0, 0}),
         March(1),
         3,
         12,
         {March(26)},
         {"01.03.2010 09:00-13:00", "03.03.2010 09:00-13:00", "08.03.2010 09:00-13:00", "26.03.2010 09:00-13:00"},
         "01.03.2010 to 26.03.2010"},
        {"a weekly end behind a Sunday, flagged from Monday on",
         Weekly(1, kMondaysTuesdays),
         March(1),
         2,
         8,
         {March(7), March(26)},
         {"01.03.2010 09:00-13:00", "02.03.2010 09:00-13:00", "07.03.2010 09:00-13:00", "08.03.2010 09:00-13:00",
          "09.03.2010 09:00-13:00", "15.03.2010 09:00-13:00", "16.03.2010 09:00-13:00", "22.03.2010 09:00-13:00",
          "23.03.2010 09:00-13:00", "26.03.2010 09:00-13:00"},
         "01.03.2010 to 26.03.2010"},
        {"an earlier end", {}, March(3), 3, 12, {March(4)}, {"03.03.2010 09:00-13:00", "04.03.2010 09:00-13:00"}, "03.03.2010 to 04.03.2010"},
        {"a later end",
         {},
         March(3),
         3,
         12,
         {March(7)},
         {"03.03.2010 09:00-13:00", "04.03.2010 09:00-13:00", "05.03.2010 09:00-13:00", "06.03.2010 09:00-13:00",
          "07.03.2010 09:00-13:00"},
         "03.03.2010 to 07.03.2010"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        const auto date = NewDate(c.series, c.sessions, c.hours);
        date->BeginnDatum(c.begin);
        for (const DateTime end : c.ends) date->EndeDatum(end);
        EXPECT_EQ(RowsOf(), c.days);
        EXPECT_EQ(Dates(date), c.dates);
        EXPECT_EQ(date->Sitzungen(), c.sessions) << "the number of sessions does not follow the days";
    }
}

TEST_F(DayGenerationForReal, TheHoursAreSpreadEvenlyOverTheSessions) {
    const struct {
        const char* name;
        DateTime begin;
        Double hours;
        Int32 sessions;
        const char* times;
        const char* end = nullptr;
    } kCases[] = {
        {"a third of twelve", {}, 12, 3, "09:00-13:00"},
        {"2.3333 hours are 140 minutes", {}, 7, 3, "09:00-11:20"},
        {"0.3333 hours are 20 minutes", {}, 1, 3, "09:00-09:20"},
        {"from another begin", DateTime::TimeOfDay(8, 15), 7, 3, "08:15-10:35"},
        {"112.5 minutes go down to even", {}, 7.5, 4, "09:00-10:52"},
        {"91.5 minutes go up to even", {}, 1.525, 1, "09:00-10:32"},
        {"61.5 minutes, which a binary fraction of an hour misses", {}, 2.05, 2, "09:00-10:02"},
        {"124.5 minutes, likewise", {}, 4.15, 2, "09:00-11:04"},
        {"1.5 minutes", {}, 0.025, 1, "09:00-09:02"},
        {"the fourth decimal is rounded first", {}, 0.07504, 1, "09:00-09:04"},
        {"the fourth decimal goes down to even", {}, 0.07505, 1, "09:00-09:04"},
        {"the fourth decimal goes up to even", {}, 0.02495, 1, "09:00-09:02"},
        {"less than half a minute", {}, 0.008, 1, "09:00-09:00"},
        {"hours of 0 are 8", {}, 0, 2, "09:00-13:00"},
        {"behind midnight", DateTime::TimeOfDay(20, 0), 8, 1, "20:00-04:00", "31.12.1899 04:00:00"},
        {"to midnight", DateTime::TimeOfDay(16, 0), 8, 1, "16:00-00:00", "31.12.1899"},
        {"two whole days", {}, 48, 1, "09:00-09:00", "01.01.1900 09:00:00"},
        {"hours below 0 end before they begin", {}, -2, 1, "09:00-07:00"},
    };
    const auto date = NewDate();
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        date->BeginnDatum({});
        date->BeginnUhrzeit(c.begin);
        date->EndeUhrzeit({});
        date->Stunden(c.hours);
        date->Sitzungen(c.sessions);
        date->BeginnDatum(March(3));
        const Days days = RowsOf();
        ASSERT_EQ(static_cast<Int32>(days.size()), c.sessions);
        for (const std::string& day : days) EXPECT_EQ(day.substr(day.find(' ') + 1), c.times);
        if (c.end) {
            EXPECT_EQ(Shown(date->EndeUhrzeit()), c.end);
        }
    }
}

TEST_F(DayGenerationForReal, ARebuildFillsHoursSessionsAndTimesThatAreZero) {
    const auto date = NewDate({}, 0, 0);
    date->BeginnDatum(March(3));
    EXPECT_EQ(date->Stunden(), 8);
    EXPECT_EQ(date->Sitzungen(), 1);
    EXPECT_EQ(Times(date), "09:00:00 to 17:00:00");
    EXPECT_EQ(RowsOf(), Days{"03.03.2010 09:00-17:00"});
}

TEST_F(DayGenerationForReal, ARebuildKeepsTimesThatAreSet) {
    const auto date = NewDate();
    date->BeginnUhrzeit(DateTime::TimeOfDay(10, 30));
    date->EndeUhrzeit(DateTime::TimeOfDay(10, 45));
    date->Sitzungen(1);
    date->BeginnDatum(March(3));
    EXPECT_EQ(RowsOf(), Days{"03.03.2010 10:30-10:45"});
    date->BeginnUhrzeit({});
    date->BeginnDatum(March(4));
    EXPECT_EQ(RowsOf(), Days{"04.03.2010 09:00-10:45"});
}

TEST_F(DayGenerationForReal, HoursBeyondTheCalendarRaiseOverflowWhenTheOldDaysAreGone) {
    const auto date = ThreeDays();
    for (const Double hours : {1e9, -1e8, 1e12, 1e300}) {
        date->Stunden(hours);
        date->EndeUhrzeit({});
        EXPECT_RAISES(6, date->BeginnDatum(date->BeginnDatum().AddDays(1)));
        EXPECT_EQ(RowsOf(), Days());
        EXPECT_EQ(Shown(date->EndeUhrzeit()), "none");
    }
}

TEST_F(DayGenerationForReal, DaysRunOverTheEndOfFebruaryAndOfTheYear) {
    const auto date = NewDate();
    date->BeginnDatum(DateTime::Of(2012, 2, 28));
    EXPECT_EQ(RowsOf(), (Days{"28.02.2012 09:00-13:00", "29.02.2012 09:00-13:00", "01.03.2012 09:00-13:00"}));
    date->BeginnDatum(DateTime::Of(1900, 2, 28));
    EXPECT_EQ(RowsOf(), (Days{"28.02.1900 09:00-13:00", "01.03.1900 09:00-13:00", "02.03.1900 09:00-13:00"}));
    date->BeginnDatum(DateTime::Of(2009, 12, 30));
    EXPECT_EQ(RowsOf(), (Days{"30.12.2009 09:00-13:00", "31.12.2009 09:00-13:00", "01.01.2010 09:00-13:00"}));
}

TEST_F(DayGenerationForReal, NothingButTheTwoDatesChangesADay) {
    const auto date = ThreeDays();
    InsertSeries(*session_, 4, Weekly(1, kMondays));
    date->Sitzungen(9);
    date->Stunden(40);
    date->BeginnUhrzeit(DateTime::TimeOfDay(7, 0));
    date->EndeUhrzeit(DateTime::TimeOfDay(8, 0));
    date->SerienID(4);
    date->SemID(5);
    EXPECT_EQ(RowsOf(), TheThreeDays());
    EXPECT_EQ(Dates(date), "03.03.2010 to 05.03.2010");
    date->BeginnDatum(March(2));
    EXPECT_EQ(RowsOf().size(), 9U);
    EXPECT_EQ(RowsOf().front(), "08.03.2010 07:00-08:00");
}

TEST_F(DayGenerationForReal, TheSameBeginAgainChangesNothing) {
    const auto date = ThreeDays();
    Sql("UPDATE Sem_Termin_Termine_IT SET BegUhr = Convert(Datetime,'30.12.1899 10:00',104)");
    date->Sitzungen(9);
    date->BeginnDatum(March(3));
    EXPECT_EQ(RowsOf(), (Days{"03.03.2010 10:00-13:00", "04.03.2010 10:00-13:00", "05.03.2010 10:00-13:00"}));
    EXPECT_EQ(date->WriteToDatabase(), true);
    const auto bound = Bound(kKey);
    bound->BeginnDatum(March(3));
    EXPECT_EQ(RowsOf(), TheThreeDays());
}

TEST_F(DayGenerationForReal, TheSameEndAgainChangesNothing) {
    const auto date = ThreeDays();
    date->EndeDatum(March(5));
    EXPECT_EQ(RowsOf(), TheThreeDays());
    EXPECT_EQ(date->WriteToDatabase(), true);
    Bound(kKey)->EndeDatum(March(5));
    EXPECT_EQ(RowsOf(), TheThreeDays());
}

TEST_F(DayGenerationForReal, ABeginOfZeroLeavesTheDays) {
    const auto date = ThreeDays();
    date->BeginnDatum({});
    EXPECT_EQ(RowsOf(), TheThreeDays());
    EXPECT_EQ(Dates(date), "none to 05.03.2010");
    date->EndeDatum(March(9));
    EXPECT_EQ(RowsOf(), TheThreeDays());
    EXPECT_EQ(Dates(date), "none to 09.03.2010");
}

TEST_F(DayGenerationForReal, TheFormerBeginAfterABeginOfZeroBuildsTheDaysAnew) {
    const auto date = ThreeDays();
    date->BeginnDatum({});
    date->Sitzungen(1);
    date->BeginnDatum(March(3));
    EXPECT_EQ(RowsOf(), Days{"03.03.2010 09:00-13:00"});
    EXPECT_EQ(Dates(date), "03.03.2010 to 03.03.2010");
}

TEST_F(DayGenerationForReal, WithNewDelOnlyTagTheDatesLeaveTheDays) {
    const auto date = ThreeDays();
    date->NewDelOnlyTag(true);
    date->BeginnDatum(March(10));
    date->EndeDatum(March(12));
    EXPECT_EQ(RowsOf(), TheThreeDays());
    EXPECT_EQ(Dates(date), "10.03.2010 to 12.03.2010");
    date->colTerminTage()->NewTerminTag(March(11), DateTime::TimeOfDay(8, 0), DateTime::TimeOfDay(9, 30));
    date->colTerminTage()->Remove(1);
    EXPECT_EQ(RowsOf(), (Days{"04.03.2010 09:00-13:00", "05.03.2010 09:00-13:00", "11.03.2010 08:00-09:30"}));
}

TEST_F(DayGenerationForReal, AnEndBehindABeginThatNewDelOnlyTagHeldBackIsLostInTheRebuild) {
    const auto date = ThreeDays();
    date->NewDelOnlyTag(true);
    date->BeginnDatum(March(10));
    date->NewDelOnlyTag(false);
    date->EndeDatum(March(20));
    EXPECT_EQ(RowsOf(), (Days{"10.03.2010 09:00-13:00", "11.03.2010 09:00-13:00", "12.03.2010 09:00-13:00"}));
    EXPECT_EQ(Dates(date), "10.03.2010 to 12.03.2010");
}

TEST_F(DayGenerationForReal, TheSameBeginMakesUpForAnEndThatNewDelOnlyTagHeldBack) {
    const auto date = ThreeDays();
    date->NewDelOnlyTag(true);
    date->EndeDatum(March(6));
    date->NewDelOnlyTag(false);
    date->BeginnDatum(March(3));
    EXPECT_EQ(RowsOf().size(), 4U);
    EXPECT_EQ(RowsOf().back(), "06.03.2010 09:00-13:00");
    date->NewDelOnlyTag(true);
    date->EndeDatum(March(4));
    date->NewDelOnlyTag(false);
    date->BeginnDatum(March(3));
    EXPECT_EQ(RowsOf(), (Days{"03.03.2010 09:00-13:00", "04.03.2010 09:00-13:00"}));
}

TEST_F(DayGenerationForReal, AnEndBeforeTheFirstDayRemovesAllDaysAndRaisesAndTheFieldKeepsIt) {
    const auto date = ThreeDays();
    ExpectLabels(9, {kList + "Item", kGenerate, kTermin + "EndeDatum --> LET"}, [&] { date->EndeDatum(March(2)); });
    EXPECT_EQ(RowsOf(), Days());
    EXPECT_EQ(Dates(date), "03.03.2010 to 02.03.2010");
}

TEST_F(DayGenerationForReal, AnEndOfZeroRemovesAllDaysAndRaises) {
    const auto date = ThreeDays();
    ExpectLabels(9, {kList + "Item", kGenerate, kTermin + "EndeDatum --> LET"}, [&] { date->EndeDatum(DateTime()); });
    EXPECT_EQ(RowsOf(), Days());
    EXPECT_EQ(Dates(date), "03.03.2010 to none");
}

TEST_F(DayGenerationForReal, ALaterEndOfADateWithoutDaysRaisesAndTheFieldKeepsIt) {
    const auto date = ThreeDays();
    Sql("DELETE FROM Sem_Termin_Termine_IT");
    ExpectLabels(9, {kList + "Item", kGenerate, kTermin + "EndeDatum --> LET"}, [&] { date->EndeDatum(March(9)); });
    EXPECT_EQ(RowsOf(), Days());
    EXPECT_EQ(Dates(date), "03.03.2010 to 09.03.2010");
}

TEST_F(DayGenerationForReal, AnEarlierEndOfADateWithoutDaysMakesOneOnItsBegin) {
    const auto date = ThreeDays();
    Sql("DELETE FROM Sem_Termin_Termine_IT");
    date->EndeDatum(March(4));
    EXPECT_EQ(RowsOf(), Days{"03.03.2010 09:00-13:00"});
    EXPECT_EQ(Dates(date), "03.03.2010 to 03.03.2010");
}

// The correction moves the end later here, and the begin is then made a second time.
TEST_F(DayGenerationForReal, AnEndBeforeTheBeginOfADateWithoutDaysMakesOneOnItsBeginAndIsRefusedAllTheSame) {
    const auto date = ThreeDays();
    Sql("DELETE FROM Sem_Termin_Termine_IT");
    ExpectLabels(9999,
                 {kInsert, kList + "objNewTerminTag", kList + "AddTermineEndeEvery", kGenerate,
                  kTermin + "EndeDatum --> LET", kGenerate, kTermin + "EndeDatum --> LET"},
                 [&] { date->EndeDatum(March(2)); });
    EXPECT_EQ(RowsOf(), Days{"03.03.2010 09:00-13:00"});
    EXPECT_EQ(Dates(date), "03.03.2010 to 03.03.2010");
}

TEST_F(DayGenerationForReal, AnEndBetweenTwoDaysIsCorrectedDownToTheDayBeforeIt) {
    const auto date = NewDate(Weekly(2, kMondaysThursdays), 5, 10);
    date->BeginnDatum(March(3));
    date->EndeDatum(March(21));
    EXPECT_EQ(RowsOf(), (Days{"04.03.2010 09:00-11:00", "08.03.2010 09:00-11:00", "18.03.2010 09:00-11:00"}));
    EXPECT_EQ(Dates(date), "03.03.2010 to 18.03.2010");
    date->EndeDatum(March(17));
    EXPECT_EQ(Dates(date), "03.03.2010 to 08.03.2010");
    date->EndeDatum(March(8));
    EXPECT_EQ(RowsOf(), (Days{"04.03.2010 09:00-11:00", "08.03.2010 09:00-11:00"}));
    EXPECT_EQ(Dates(date), "03.03.2010 to 08.03.2010");
}

TEST_F(DayGenerationForReal, AnEndOnAWeekendGetsADayInWorkingDayModeToo) {
    const auto date = NewDate(WorkingDays(), 1, 4);
    date->BeginnDatum(March(4));
    date->EndeDatum(March(6));
    EXPECT_EQ(RowsOf(), (Days{"04.03.2010 09:00-13:00", "05.03.2010 09:00-13:00", "06.03.2010 09:00-13:00"}));
    date->EndeDatum(March(14));
    EXPECT_EQ(RowsOf(), (Days{"04.03.2010 09:00-13:00", "05.03.2010 09:00-13:00", "06.03.2010 09:00-13:00",
                              "08.03.2010 09:00-13:00", "09.03.2010 09:00-13:00", "10.03.2010 09:00-13:00",
                              "11.03.2010 09:00-13:00", "12.03.2010 09:00-13:00", "14.03.2010 09:00-13:00"}));
    EXPECT_EQ(Dates(date), "04.03.2010 to 14.03.2010");
}

TEST_F(DayGenerationForReal, OnlyADailyRhythmOfExactlyOneHasWeekends) {
    for (const int daily : {1, 0, 2, 255}) {
        SCOPED_TRACE(daily);
        const auto date = NewDate(SeriesRule{.taeglich = daily}, 2);
        date->BeginnDatum(March(5));
        EXPECT_EQ(RowsOf().back(), daily == 1 ? "06.03.2010 09:00-15:00" : "08.03.2010 09:00-15:00");
    }
}

TEST_F(DayGenerationForReal, AWeekdayCountsAtExactlyMinusOne) {
    const auto date = NewDate(Weekly(1, {1, -2, -1, 0, 32767, -32768, 0}), 2);
    date->BeginnDatum(March(1));
    EXPECT_EQ(RowsOf(), (Days{"03.03.2010 09:00-15:00", "10.03.2010 09:00-15:00"}));
}

TEST_F(DayGenerationForReal, EachWeekdayHasItsFlag) {
    for (unsigned weekday = 0; weekday < 7; ++weekday) {
        std::vector<int> flags = kNoWeekday;
        flags[weekday] = -1;
        const auto date = NewDate(Weekly(1, flags), 1);
        date->BeginnDatum(March(1));
        EXPECT_EQ(RowsOf(), Days{"0" + std::to_string(1 + weekday) + ".03.2010 09:00-21:00"}) << "the first was a Monday";
    }
}

TEST_F(DayGenerationForReal, TheWeeksOfASeriesBeginOnTheWeekdayOfTheBegin) {
    const auto date = NewDate(Weekly(3, kMondaysThursdays), 3);
    date->BeginnDatum(March(4));
    EXPECT_EQ(RowsOf(), (Days{"04.03.2010 09:00-13:00", "08.03.2010 09:00-13:00", "25.03.2010 09:00-13:00"}));
}

TEST_F(DayGenerationForReal, AWeeklyExtensionEndsEachWeekAtItsFirstDayWithoutAFlag) {
    const auto date = NewDate(Weekly(1, {-1, -1, 0, -1, 0, 0, -1}), 1);
    date->BeginnDatum(DateTime::Of(2010, 2, 27));
    EXPECT_EQ(Dates(date), "27.02.2010 to 28.02.2010");
    date->EndeDatum(March(15));
    EXPECT_EQ(RowsOf(), (Days{"28.02.2010 09:00-21:00", "01.03.2010 09:00-21:00", "02.03.2010 09:00-21:00",
                              "08.03.2010 09:00-21:00", "09.03.2010 09:00-21:00", "15.03.2010 09:00-21:00"}));
}

TEST_F(DayGenerationForReal, AnExtensionTakesTheTimesOfTheLastDay) {
    const auto date = ThreeDays();
    Sql("UPDATE Sem_Termin_Termine_IT SET BegUhr = Convert(Datetime,'30.12.1899 18:00',104), "
        "EndUhr = Convert(Datetime,'30.12.1899 20:15',104) WHERE Termin = Convert(Datetime,'05.03.2010',104)");
    date->EndeDatum(March(6));
    EXPECT_EQ(RowsOf().back(), "06.03.2010 18:00-20:15");
    EXPECT_EQ(Times(date), "09:00:00 to 13:00:00");
}

TEST_F(DayGenerationForReal, AnExtensionBehindADayWithoutTimesMakesDaysAtMidnight) {
    const auto date = ThreeDays();
    Sql("UPDATE Sem_Termin_Termine_IT SET BegUhr = NULL, EndUhr = NULL");
    date->EndeDatum(March(6));
    date->colTerminTage()->Remove(1);
    date->colTerminTage()->Remove(1);
    date->colTerminTage()->Remove(1);
    EXPECT_EQ(RowsOf(), Days{"06.03.2010 00:00-00:00"});
}

TEST_F(DayGenerationForReal, AnExtensionToADayBeforeTheLastOneIsRefusedAtTheCorrection) {
    const auto date = ThreeDays();
    date->colTerminTage()->NewTerminTag(March(10), DateTime::TimeOfDay(8, 0), DateTime::TimeOfDay(9, 0));
    ExpectLabels(9999,
                 {kInsert, kList + "objNewTerminTag", kList + "AddTermineEndeEvery", kGenerate,
                  kTermin + "EndeDatum --> LET", kGenerate, kTermin + "EndeDatum --> LET"},
                 [&] { date->EndeDatum(March(8)); });
    EXPECT_EQ(RowsOf().size(), 5U);
    EXPECT_EQ(RowsOf()[3], "08.03.2010 08:00-09:00");
    EXPECT_EQ(Dates(date), "03.03.2010 to 10.03.2010");
}

TEST_F(DayGenerationForReal, ASeriesWithoutTimesLeavesTheDateWithoutTimesWhileItsDaysHaveThem) {
    const auto date = NewDate(SeriesRule{}, 3, 12, 5);
    date->BeginnDatum(March(3));
    EXPECT_EQ(RowsOf(), TheThreeDays());
    EXPECT_EQ(Times(date), "none to none");
}

TEST_F(DayGenerationForReal, ARebuildTakesOverTheTimesOfTheSeriesBehindTheDays) {
    const struct {
        const char* name;
        Int32 seminar;
        DateTime begin;
        DateTime end;
        const char* series_begin;
        const char* series_end;
        const char* day;
        const char* times_afterwards;
    } kCases[] = {
        {"the series' times", 5, {}, {}, "14:00", "18:30", "14:00-18:30", "14:00:00 to 18:30:00"},
        {"no seminar, so not the series' times", 0, {}, {}, "14:00", "18:30", "09:00-13:00", "14:00:00 to 18:30:00"},
        {"the date's own times", 5, DateTime::TimeOfDay(7, 0), DateTime::TimeOfDay(8, 0), "14:00", "18:30",
         "07:00-08:00", "14:00:00 to 18:30:00"},
        {"the date's own begin", 5, DateTime::TimeOfDay(7, 0), {}, "14:00", "18:30", "07:00-18:30", "14:00:00 to 18:30:00"},
        {"the series' begin alone", 5, {}, {}, "14:00", "00:00", "14:00-18:00", "14:00:00 to none"},
        {"the series' end alone", 5, {}, {}, "00:00", "18:30", "09:00-18:30", "none to 18:30:00"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        const auto date = NewDate(SeriesRule{.begin = c.series_begin, .end = c.series_end}, 1, 4, c.seminar);
        date->BeginnUhrzeit(c.begin);
        date->EndeUhrzeit(c.end);
        date->BeginnDatum(March(3));
        EXPECT_EQ(RowsOf(), Days{std::string("03.03.2010 ") + c.day});
        EXPECT_EQ(Times(date), c.times_afterwards);
    }
}

TEST_F(DayGenerationForReal, ASaveGivesAllDaysTheTimesOfTheDateAlsoWhereTheSeriesHasNone) {
    const auto date = NewDate(SeriesRule{}, 2, 12, 5);
    date->BeginnDatum(March(3));
    EXPECT_EQ(RowsOf(), (Days{"03.03.2010 09:00-15:00", "04.03.2010 09:00-15:00"}));
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(RowsOf(), (Days{"03.03.2010 00:00-00:00", "04.03.2010 00:00-00:00"}));
    date->BeginnUhrzeit(DateTime::TimeOfDay(8, 5));
    date->EndeUhrzeit(DateTime::TimeOfDay(9, 50));
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(RowsOf(), (Days{"03.03.2010 08:05-09:50", "04.03.2010 08:05-09:50"}));
}

TEST_F(DayGenerationForReal, TheDateItselfWaitsForItsSave) {
    const auto date = ThreeDays();
    EXPECT_EQ(Dates(Bound(kKey)), "none to none");
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(Dates(Bound(kKey)), "03.03.2010 to 05.03.2010");
    EXPECT_EQ(Times(Bound(kKey)), "09:00:00 to 13:00:00");
}

TEST_F(DayGenerationForReal, ANewDateWritesItsDaysUnderKeyZeroAndItsInsertLeavesThemThere) {
    const auto other = ThreeDays();
    Sql("INSERT INTO Sem_Termin_Termine_IT (SemTerminID, Termin) VALUES (0, Convert(datetime,'24.12.2008',104))");
    const auto date = Bound(0);
    date->BeginnDatum(March(8));
    EXPECT_EQ(RowsOf(0), Days{"08.03.2010 09:00-17:00"}) << "the row of another new date is gone";
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(date->SemTerminID(), 18);
    EXPECT_EQ(RowsOf(0), Days{"08.03.2010 09:00-17:00"});
    EXPECT_EQ(RowsOf(18), Days());
    EXPECT_RAISES(9, date->EndeDatum(March(9)));
    date->BeginnDatum(March(9));
    EXPECT_EQ(RowsOf(18), Days{"09.03.2010 09:00-17:00"});
    EXPECT_EQ(RowsOf(0), Days{"08.03.2010 09:00-17:00"});
    EXPECT_EQ(RowsOf(), TheThreeDays());
    const auto next = Bound(0);
    next->BeginnDatum(March(10));
    EXPECT_EQ(RowsOf(0), Days{"10.03.2010 09:00-17:00"});
}

TEST_F(DayGenerationForReal, SessionsBelowZeroMakeNoDayAndAnEndOfZero) {
    const auto date = ThreeDays();
    date->Sitzungen(-1);
    date->BeginnDatum(March(10));
    EXPECT_EQ(RowsOf(), Days());
    EXPECT_EQ(Dates(date), "10.03.2010 to none");
    EXPECT_EQ(date->Sitzungen(), -1);
    InsertSeries(*session_, 4, Weekly(0, kNoWeekday));
    date->SerienID(4);
    date->BeginnDatum(March(11));
    EXPECT_EQ(Dates(date), "11.03.2010 to none");
}

// The get of the end loads here, and the load brings another old end: only what was read afterwards counts.
TEST_F(DayGenerationForReal, AnEndLetWithoutALoadIsComparedWithWhatTheLoadOfTheGenerationBrings) {
    const auto date = ThreeDays();
    ASSERT_TRUE(date->WriteToDatabase());
    Sql("UPDATE Sem_Termin_IT SET EndeDatum = Convert(Datetime,'10.03.2010',104)");
    date->Init(kKey, session_);
    date->EndeDatum(March(7), false);
    EXPECT_EQ(RowsOf(), TheThreeDays());
    EXPECT_EQ(Dates(date), "03.03.2010 to 05.03.2010");
}

}  // namespace
}  // namespace LumoSeminar
