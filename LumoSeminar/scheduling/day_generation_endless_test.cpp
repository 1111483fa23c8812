// Rules that come to no end of themselves, days that are refused, and the ends of the calendar.

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <test_support/day_generation_fixture.h>

namespace LumoSeminar {
namespace {

using test_support::Dates;
using test_support::ExpectLabels;
using test_support::kMondays;
using test_support::kMondaysTuesdays;
using test_support::kNoWeekday;
using test_support::March;
using test_support::SeriesRule;
using test_support::Weekly;

/// Each test has to be over soon, though a rule may reach for thousands of years.
class EndlessDayGeneration : public test_support::DayGenerationFixture {
  protected:
    void TearDown() override {
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start_;
        RecordProperty("seconds", std::to_string(taken.count()));
        EXPECT_LT(taken.count(), 5);
    }

    Labels RaisedInRebuild(const std::string& generator) const {
        return {kList + generator, kGenerate, kTermin + "BeginnDatum --> LET"};
    }
    Labels RaisedInExtension(const std::string& generator) const {
        return {kList + generator, kGenerate, kTermin + "EndeDatum --> LET"};
    }
    /// A day that is refused in a generator.
    static Labels Refused(Labels labels) {
        labels.insert(labels.begin(), {kInsert, kList + "objNewTerminTag"});
        return labels;
    }

  private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

TEST_F(EndlessDayGeneration, WeeksWithoutAFlagRunToTheEndOfTheCalendarAndOverflow) {
    const auto date = NewDate(Weekly(1, kNoWeekday));
    ExpectLabels(6, RaisedInRebuild("AddTermineWeekly"), [&] { date->BeginnDatum(March(3)); });
    EXPECT_EQ(RowsOf(), Days());
    EXPECT_EQ(Dates(date), "03.03.2010 to none");
}

TEST_F(EndlessDayGeneration, WeeksBackwardsWithoutAFlagRunToTheStartOfTheCalendarAndOverflow) {
    const auto date = NewDate(Weekly(-1, kNoWeekday));
    ExpectLabels(6, RaisedInRebuild("AddTermineWeekly"), [&] { date->BeginnDatum(March(3)); });
    EXPECT_EQ(RowsOf(), Days());
}

TEST_F(EndlessDayGeneration, AStepOfNoWeeksWithoutAFlagOverflowsAtOnce) {
    const auto date = NewDate(Weekly(0, kNoWeekday));
    ExpectLabels(6, RaisedInRebuild("AddTermineWeekly"), [&] { date->BeginnDatum(March(3)); });
    EXPECT_EQ(RowsOf(), Days());
    EXPECT_EQ(Dates(date), "03.03.2010 to none");
}

TEST_F(EndlessDayGeneration, ASeriesWithoutARowOverflowsAtOnce) {
    const auto date = NewDate();
    date->SerienID(99);
    ExpectLabels(6, RaisedInRebuild("AddTermineWeekly"), [&] { date->BeginnDatum(March(3)); });
    EXPECT_EQ(RowsOf(), Days());
    EXPECT_EQ(Dates(date), "03.03.2010 to none");
}

TEST_F(EndlessDayGeneration, TheOverflowNamesTheSeriesThatFindsNoDay) {
    const struct {
        std::optional<SeriesRule> rule;
        const char* series;
        unsigned end;
    } cases[] = {
        {{}, "99", 0},                     // without a row
        {Weekly(0, kNoWeekday), "4", 0},   // stuck
        {Weekly(1, kNoWeekday), "4", 0},   // at the end of the calendar
        {Weekly(-1, kNoWeekday), "4", 0},  // at its start
        {Weekly(2000000000, kMondays), "4", 0},
        {Weekly(0, kMondays), "4", 26},  // an extension
    };
    for (const auto& c : cases) {
        const auto date = NewDate(c.rule, c.end == 0 ? 3 : 1);
        if (!c.rule) date->SerienID(99);
        if (c.end != 0) date->BeginnDatum(March(3));
        const auto error = test_support::RaisedBy([&] {
            c.end == 0 ? date->BeginnDatum(March(3)) : date->EndeDatum(March(c.end));
            return 0;
        });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), 6);
        EXPECT_EQ(ReadDescription(error->Description()).text,
                  std::string("Overflow: the series with the SerienID ") + c.series +
                      " leads to no further day. It has no row, no weekday that is set to -1, or too large a step of weeks.");
    }
}

TEST_F(EndlessDayGeneration, AStepOfNoWeeksWithAFlagIsRefusedAtTheFirstDayThatComesAgain) {
    const auto date = NewDate(Weekly(0, kMondaysTuesdays));
    ExpectLabels(9999, Refused(RaisedInRebuild("AddTermineWeekly")), [&] { date->BeginnDatum(March(3)); });
    EXPECT_EQ(RowsOf(), (Days{"08.03.2010 09:00-13:00", "09.03.2010 09:00-13:00"}));
    EXPECT_EQ(Dates(date), "03.03.2010 to none");
}

TEST_F(EndlessDayGeneration, AStepOfNoWeeksDoesWhereOneWeekHasAllSessions) {
    const auto date = NewDate(Weekly(0, kMondaysTuesdays), 2, 8);
    date->BeginnDatum(March(3));
    EXPECT_EQ(RowsOf(), (Days{"08.03.2010 09:00-13:00", "09.03.2010 09:00-13:00"}));
    EXPECT_EQ(Dates(date), "03.03.2010 to 09.03.2010");
}

TEST_F(EndlessDayGeneration, StepsBackwardsMakeEarlierDaysAndTheLastOneMadeIsTheEnd) {
    const auto date = NewDate(Weekly(-2, kMondaysTuesdays), 3);
    date->BeginnDatum(March(22));
    EXPECT_EQ(RowsOf(), (Days{"08.03.2010 09:00-13:00", "22.03.2010 09:00-13:00", "23.03.2010 09:00-13:00"}));
    EXPECT_EQ(Dates(date), "22.03.2010 to 08.03.2010");
}

TEST_F(EndlessDayGeneration, AnExtensionByNoWeeksFromADayWithoutAFlagOverflowsAtOnce) {
    const auto date = NewDate(Weekly(0, kMondays), 1, 4);
    date->BeginnDatum(March(3));
    EXPECT_EQ(Dates(date), "03.03.2010 to 08.03.2010");
    ExpectLabels(6, RaisedInExtension("AddEndeTermineWeekly"), [&] { date->EndeDatum(March(26)); });
    EXPECT_EQ(RowsOf(), Days{"08.03.2010 09:00-13:00"});
    EXPECT_EQ(Dates(date), "03.03.2010 to 26.03.2010");
}

TEST_F(EndlessDayGeneration, AnExtensionByNoWeeksFromADayWithAFlagIsRefusedAtTheFirstDayThatComesAgain) {
    const auto date = NewDate(Weekly(0, kMondaysTuesdays), 1, 4);
    date->BeginnDatum(March(3));
    ExpectLabels(9999, Refused(RaisedInExtension("AddEndeTermineWeekly")), [&] { date->EndeDatum(March(26)); });
    EXPECT_EQ(RowsOf(), (Days{"08.03.2010 09:00-13:00", "09.03.2010 09:00-13:00"}));
    EXPECT_EQ(Dates(date), "03.03.2010 to 26.03.2010");
}

TEST_F(EndlessDayGeneration, AnExtensionBySevenFlagsAndNoWeeksMakesAWeekAndIsRefused) {
    const auto date = NewDate(Weekly(0, std::vector<int>(7, -1)), 1, 4);
    date->BeginnDatum(March(3));
    ExpectLabels(9999, Refused(RaisedInExtension("AddEndeTermineWeekly")), [&] { date->EndeDatum(March(26)); });
    EXPECT_EQ(RowsOf().size(), 8U);
    EXPECT_EQ(RowsOf().back(), "10.03.2010 09:00-13:00");
}

TEST_F(EndlessDayGeneration, AnExtensionBackwardsWithoutAFlagRunsToTheStartOfTheCalendarAndOverflows) {
    const auto date = NewDate(Weekly(-1, kMondays), 1, 4);
    date->BeginnDatum(March(3));
    ExpectLabels(6, RaisedInExtension("AddEndeTermineWeekly"), [&] { date->EndeDatum(March(26)); });
    EXPECT_EQ(RowsOf(), Days{"08.03.2010 09:00-13:00"});
}

TEST_F(EndlessDayGeneration, AnExtensionByWeeksWithoutAFlagStepsToTheEndAndMakesThatOneDay) {
    const auto date = NewDate();
    date->Sitzungen(1);
    date->BeginnDatum(March(3));
    test_support::InsertSeries(*session_, 4, Weekly(1, kNoWeekday));
    date->SerienID(4);
    date->EndeDatum(DateTime::Of(9999, 12, 20));
    EXPECT_EQ(RowsOf(), (Days{"03.03.2010 09:00-21:00", "20.12.9999 09:00-21:00"}));
}

TEST_F(EndlessDayGeneration, AStepBeyondTheCalendarOverflowsAlsoBehindTheLastSession) {
    const auto date = NewDate(Weekly(2147483647, kMondays), 1, 4);
    ExpectLabels(6, RaisedInRebuild("AddTermineWeekly"), [&] { date->BeginnDatum(March(3)); });
    EXPECT_EQ(RowsOf(), Days{"08.03.2010 09:00-13:00"});
    EXPECT_EQ(Dates(date), "03.03.2010 to none");
}

TEST_F(EndlessDayGeneration, TheLastDayOfTheCalendarIsMadeAndOverflowsAllTheSame) {
    const auto date = NewDate({}, 1, 4);
    const DateTime last = DateTime::Of(9999, 12, 31);
    ExpectLabels(6, RaisedInRebuild("AddTermineEvery"), [&] { date->BeginnDatum(last); });
    EXPECT_EQ(RowsOf(), Days{"31.12.9999 09:00-13:00"});
    date->BeginnDatum(last.AddDays(-1));
    EXPECT_EQ(RowsOf(), Days{"30.12.9999 09:00-13:00"});
    ExpectLabels(6, RaisedInExtension("AddTermineEndeEvery"), [&] { date->EndeDatum(last); });
    EXPECT_EQ(RowsOf(), (Days{"30.12.9999 09:00-13:00", "31.12.9999 09:00-13:00"}));
    EXPECT_EQ(Dates(date), "30.12.9999 to 31.12.9999");
}

TEST_F(EndlessDayGeneration, MoreSessionsThanTheCalendarHasDaysLeftRaiseAndThoseMadeStay) {
    const auto date = NewDate({}, 2147483647);
    EXPECT_RAISES(6, date->BeginnDatum(DateTime::Of(9999, 12, 29)));
    EXPECT_EQ(RowsOf(), (Days{"29.12.9999 09:00-09:00", "30.12.9999 09:00-09:00", "31.12.9999 09:00-09:00"}));
}

TEST_F(EndlessDayGeneration, ADayThatTheDatabaseDoesNotKnowIsRefused) {
    const auto date = NewDate(SeriesRule{.tagefolge = 2, .woche = -1, .flags = kMondays}, 3);
    ExpectLabels(9999, Refused(RaisedInRebuild("AddTermineWeekly")), [&] { date->BeginnDatum(DateTime::Of(1753, 1, 8)); });
    EXPECT_EQ(RowsOf(), (Days{"01.01.1753 09:00-13:00", "08.01.1753 09:00-13:00"}));
}

TEST_F(EndlessDayGeneration, ARefusedDayRaisesAndTheDaysBeforeItAndTheFieldStay) {
    const auto date = ThreeDays();
    Sql("DROP TABLE Sem_Termin_Termine_IT");
    Sql("CREATE TABLE Sem_Termin_Termine_IT (SemTerminID int NOT NULL, Termin datetime NOT NULL, BegUhr datetime NULL, "
        "EndUhr datetime NULL, CONSTRAINT PK_Tage PRIMARY KEY (SemTerminID, Termin), "
        "CONSTRAINT CK_Feiertag CHECK (Termin <> '02.04.2010'))");
    date->Sitzungen(4);
    ExpectLabels(9999, Refused(RaisedInRebuild("AddTermineEvery")), [&] { date->BeginnDatum(March(31)); });
    EXPECT_EQ(RowsOf(), (Days{"31.03.2010 09:00-13:00", "01.04.2010 09:00-13:00"}));
    EXPECT_EQ(Dates(date), "31.03.2010 to 05.03.2010") << "the end is still the former one";
    date->BeginnDatum(March(31));
    EXPECT_EQ(RowsOf().size(), 2U) << "the same begin again does not make up for it";
    EXPECT_RAISES(9999, date->BeginnDatum(March(30)));
    EXPECT_EQ(RowsOf().size(), 3U);
}

TEST_F(EndlessDayGeneration, AnOldDayThatCannotBeDeletedRaisesBeforeAnyDayIsMade) {
    const auto date = ThreeDays();
    Sql("CREATE TABLE Belegung (SemTerminID int NOT NULL, Termin datetime NOT NULL, CONSTRAINT FK_Belegung FOREIGN KEY "
        "(SemTerminID, Termin) REFERENCES Sem_Termin_Termine_IT (SemTerminID, Termin))");
    Sql("INSERT INTO Belegung (SemTerminID, Termin) VALUES (17, Convert(datetime,'04.03.2010',104))");
    EXPECT_RAISES(9999, date->BeginnDatum(March(10)));
    EXPECT_EQ(RowsOf(), (Days{"04.03.2010 09:00-13:00", "05.03.2010 09:00-13:00"}));
    EXPECT_EQ(Dates(date), "10.03.2010 to 05.03.2010");
}

}  // namespace
}  // namespace LumoSeminar
