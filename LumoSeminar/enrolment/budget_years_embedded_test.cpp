#include <gtest/gtest.h>

#include <LumoSeminar/enrolment/budget_years.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using test_support::RaisedBy;
using test_support::Rows;
using test_support::SampleDatabase;
using test_support::SchemaDatabase;
using test_support::Select;
using test_support::Write;

/// Two years from April to March.
Ref<DataSession> SmallDatabase() {
    const auto session = SchemaDatabase();
    Write(*session,
          "INSERT INTO Sem_BudgetJahr_IT (JahrID, Von, Bis) VALUES "
          "(1, Convert(datetime,'01.04.2008',104), Convert(datetime,'31.03.2009',104)), "
          "(2, Convert(datetime,'01.04.2009',104), Convert(datetime,'31.03.2010',104))");
    return session;
}

Ref<colSemBudgetJahre> Listed(const Ref<DataSession>& session) {
    auto list = New<colSemBudgetJahre>();
    EXPECT_EQ(list->Init(session), Variant(false));
    return list;
}

Ref<clsSemBudgetJahr> Bound(const Ref<DataSession>& session, Int32 key) {
    auto year = New<clsSemBudgetJahr>();
    year->Init(key, session);
    return year;
}

/// 0 for none.
Int32 YearOf(const Ref<colSemBudgetJahre>& list, DateTime moment) {
    const auto year = list->GetBudgetJahr(moment);
    return year ? year->JahrID() : 0;
}

TEST(BudgetYearsForReal, TheYearsOfTheSampleAreListedAsTheyStand) {
    const auto session = SampleDatabase();
    const auto list = Listed(session);
    Rows years;
    for (const auto& year : list->NewEnum()) years.push_back({year->JahrID(), year->Von(), year->Bis()});
    EXPECT_EQ(years, Select(*session, "SELECT JahrID, Von, Bis FROM Sem_BudgetJahr_IT ORDER BY JahrID"));
    ASSERT_EQ(list->Count(), 3);
    EXPECT_EQ(list->Item("2")->Von(), DateTime::Of(2009, 4, 1));
    EXPECT_EQ(list->Item("2")->Bis(), DateTime::Of(2010, 3, 31));
    for (const auto& year : list->NewEnum()) {
        const auto alone = Bound(session, year->JahrID());
        EXPECT_EQ(alone->Von(), year->Von());
        EXPECT_EQ(alone->Bis(), year->Bis());
    }
}

TEST(BudgetYearsForReal, EachDayOfTheSampleIsInTheYearThatTheCalendarSays) {
    const auto list = Listed(SampleDatabase());
    for (DateTime day = DateTime::Of(2008, 3, 1); day <= DateTime::Of(2011, 5, 1); day = day.AddDays(1)) {
        const std::chrono::year_month_day date(day.Date());
        const int april_year = static_cast<int>(date.year()) - (date.month() < std::chrono::April ? 1 : 0);
        const Int32 expected = april_year < 2008 || april_year > 2010 ? 0 : april_year - 2007;
        EXPECT_EQ(YearOf(list, day), expected) << day.Days();
        const bool last_day = date.month() == std::chrono::March && date.day() == std::chrono::day(31);
        EXPECT_EQ(YearOf(list, day.AddMinutes(12 * 60)), last_day ? 0 : expected) << "at noon of " << day.Days();
    }
}

TEST(BudgetYearsForReal, AYearWithoutARowRunsFrom0To0) {
    const auto year = Bound(SmallDatabase(), 99);
    EXPECT_EQ(year->Von(), DateTime());
    EXPECT_EQ(year->Bis(), DateTime());
    year->Bis(DateTime::Of(2010, 12, 31));
    EXPECT_EQ(year->Bis(), DateTime::Of(2010, 12, 31));
}

TEST(BudgetYearsForReal, WhatIsLetStaysInTheObject) {
    const auto session = SmallDatabase();
    const Rows before = Select(*session, "SELECT * FROM Sem_BudgetJahr_IT");
    const auto list = Listed(session);
    list->Item("1")->Bis(DateTime::Of(2012, 12, 31));
    EXPECT_EQ(YearOf(list, DateTime::Of(2012, 6, 1)), 1);
    list->Remove("2");
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(Select(*session, "SELECT * FROM Sem_BudgetJahr_IT"), before);
}

TEST(BudgetYearsForReal, AnEmptyTableGivesAnEmptyList) {
    const auto list = Listed(SchemaDatabase());
    EXPECT_EQ(list->Count(), 0);
    EXPECT_FALSE(list->GetBudgetJahr(DateTime::Of(2010, 1, 1)));
}

TEST(BudgetYearsForReal, TheListIsInTheOrderOfVonMissingOnesFirst) {
    const auto session = SchemaDatabase();
    Write(*session,
          "INSERT INTO Sem_BudgetJahr_IT (JahrID, Von, Bis) VALUES "
          "(1, Convert(datetime,'01.07.2010',104), Convert(datetime,'30.06.2011',104)), "
          "(2, Convert(datetime,'01.01.2010',104), Convert(datetime,'31.12.2010',104)), "
          "(3, NULL, Convert(datetime,'31.12.2008',104)), "
          "(4, Convert(datetime,'01.10.2011',104), NULL)");
    const auto list = Listed(session);
    std::vector<Int32> keys;
    for (const auto& year : list->NewEnum()) keys.push_back(year->JahrID());
    EXPECT_EQ(keys, (std::vector<Int32>{3, 2, 1, 4}));
    EXPECT_EQ(YearOf(list, DateTime::Of(2010, 8, 1)), 2) << "of two that overlap the earlier one";
    EXPECT_EQ(YearOf(list, DateTime::Of(2010, 12, 31, 12, 0)), 1) << "the noon behind its end";
    EXPECT_EQ(YearOf(list, DateTime::Of(2000, 1, 1)), 3) << "without a beginning";
    EXPECT_EQ(YearOf(list, DateTime::Of(2011, 8, 1)), 0) << "between two years";
    EXPECT_EQ(YearOf(list, DateTime::Of(2011, 11, 1)), 0) << "without an end";
}

TEST(BudgetYearsForReal, EndsWithATimeOfDayCountToTheMinute) {
    const auto session = SchemaDatabase();
    for (int hour = 0; hour < 24; ++hour) {
        for (const int minute : {0, 1, 29, 59}) {
            const Text time = std::to_string(hour) + ":" + (minute < 10 ? "0" : "") + std::to_string(minute);
            Write(*session, "DELETE FROM Sem_BudgetJahr_IT");
            Write(*session, "INSERT INTO Sem_BudgetJahr_IT (JahrID, Von, Bis) VALUES (5, Convert(datetime,'03.03.2010 " +
                                time + "',104), Convert(datetime,'04.03.2010 " + time + "',104))");
            const auto list = Listed(session);
            const DateTime from = DateTime::Of(2010, 3, 3, hour, minute);
            const DateTime to = DateTime::Of(2010, 3, 4, hour, minute);
            EXPECT_EQ(YearOf(list, from.AddMinutes(-1)), 0) << time;
            EXPECT_EQ(YearOf(list, from), 5) << time;
            EXPECT_EQ(YearOf(list, to), 5) << time;
            EXPECT_EQ(YearOf(list, to.AddMinutes(1)), 0) << time;
        }
    }
}

TEST(BudgetYearsForReal, AddFilesNothingAndTheYearReadsItsOwnRow) {
    const auto session = SmallDatabase();
    const auto list = Listed(session);
    EXPECT_EQ(list->Add(2)->Von(), DateTime::Of(2009, 4, 1));
    EXPECT_EQ(list->Count(), 2);
}

TEST(BudgetYearsForReal, WithoutTheTableLoadAndListRaise9999WithTheTextOfTheDatabase) {
    const auto session = SchemaDatabase();
    Write(*session, "DROP TABLE Sem_BudgetJahr_IT");
    const auto load = RaisedBy([&] { return Bound(session, 1)->Von(); });
    ASSERT_TRUE(load);
    EXPECT_EQ(load->Number(), 9999);
    EXPECT_EQ(load->Description(), "in line: 0\r\n" + session->LastErrorText() + " in LumoSeminar.IsInitialized");
    const auto list = RaisedBy([&] { return colSemBudgetJahre().Init(session); });
    ASSERT_TRUE(list);
    EXPECT_EQ(list->Number(), 9999);
    EXPECT_EQ(ReadDescription(list->Description()).text, session->LastErrorText());
    EXPECT_NE(list->Description().find("Sem_BudgetJahr_IT"), Text::npos) << list->Description();
}

}  // namespace
}  // namespace LumoSeminar
