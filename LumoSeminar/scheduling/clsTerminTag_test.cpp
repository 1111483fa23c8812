#include <LumoSeminar/scheduling/clsTerminTag.h>

#include <gtest/gtest.h>

#include <functional>
#include <type_traits>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <test_support/day_statements.h>
#include <test_support/failures.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace day_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;

// Some operations carry the one spelling, some the other.
const std::string kLUmo = "LUmoSeminar.clsTerminTag.";
const std::string kLumo = "LumoSeminar.clsTerminTag.";

const DateTime kDay = DateTime::Of(2010, 3, 2);
const std::string kDayText = "02.03.2010";

static_assert(!std::is_default_constructible_v<clsTerminTag>, "only a list of days makes days");

void ScriptTimes(Script& script, const std::vector<std::vector<Variant>>& rows) {
    script.OpenSelect(SelectTimes(17, kDayText)).Rows(kTimeColumns, rows);
    script.CloseRows();
}

TEST(clsTerminTag, KeyIsTheDateInTenDigitsAndTheDayInEight) {
    const struct {
        DateTime day;
        Int32 date;
        const char* key;
    } cases[] = {
        {kDay, 17, "000000001720100302"},
        {DateTime::Of(2010, 12, 31, 23, 59, 59), 1, "000000000120101231"},
        {DateTime(), 0, "000000000018991230"},
        {DateTime::Of(100, 1, 1), 2147483647, "214748364701000101"},
        {DateTime::Of(9999, 12, 31), -1, "-000000000199991231"},
    };
    for (const auto& c : cases) {
        Script script;
        EXPECT_EQ(BoundDay(script.Session(), c.day, c.date)->Key(), c.key);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTerminTag, InitBindsWithoutAStatement) {
    Script script;
    const auto day = BoundDay(script.Session());
    EXPECT_EQ(day->Termin(), kDay);
    EXPECT_EQ(day->SemTerminID(), 17);
    EXPECT_FALSE(script.SessionReleased());
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTerminTag, InitWithAnEmptySessionIsFalseAndKeepsNothing) {
    Script script;
    ScriptTimes(script, {{DateTime::TimeOfDay(8, 0), DateTime::TimeOfDay(16, 0)}});
    const auto day = BoundDay(script.Session());
    EXPECT_EQ(day->Init(DateTime::Of(2011, 1, 1), 18, nullptr), false);
    EXPECT_EQ(day->Key(), "000000001720100302");
    EXPECT_EQ(day->BegUhr(), DateTime::TimeOfDay(8, 0)) << "bound to the session it had";
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTerminTag, LetsOfDateAndDayStoreAndChangeTheKey) {
    Script script;
    const auto day = BoundDay(script.Session());
    day->SemTerminID(18);
    day->Termin(DateTime::Of(2010, 3, 4));
    EXPECT_EQ(day->SemTerminID(), 18);
    EXPECT_EQ(day->Termin(), DateTime::Of(2010, 3, 4));
    EXPECT_EQ(day->Key(), "000000001820100304");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTerminTag, LooksForAMissingRowAgainAtEachGetAndGives0) {
    Script script;
    for (int i = 0; i < 3; ++i) ScriptTimes(script, {});
    ScriptTimes(script, {{DateTime::TimeOfDay(8, 30), DateTime::TimeOfDay(16, 45)}});
    const auto day = BoundDay(script.Session());
    EXPECT_EQ(day->BegUhr(), DateTime());
    EXPECT_EQ(day->EndUhr(), DateTime());
    day->BegUhr(DateTime::TimeOfDay(8, 0));
    EXPECT_EQ(day->BegUhr(), DateTime()) << "0 also where a time has been let";
    EXPECT_EQ(day->EndUhr(), DateTime::TimeOfDay(16, 45));
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTerminTag, AnotherDayOnALoadedObjectDoesNotLoadAgain) {
    Script script;
    ScriptTimes(script, {{DateTime::TimeOfDay(8, 30), DateTime::TimeOfDay(16, 45)}});
    script.ExecuteSql(InsertDay(18, "04.03.2010", "08:30", "16:45"));
    const auto day = BoundDay(script.Session());
    EXPECT_EQ(day->BegUhr(), DateTime::TimeOfDay(8, 30));
    EXPECT_EQ(day->Init(DateTime::Of(2010, 3, 3), 18, script.Session()), true);
    day->Termin(DateTime::Of(2010, 3, 4));
    EXPECT_EQ(day->EndUhr(), DateTime::TimeOfDay(16, 45));
    EXPECT_EQ(day->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTerminTag, WriteInsertsWithoutALoad) {
    Script script;
    script.ExecuteSql(
        "Insert Into Sem_Termin_Termine_IT (  SemTerminID, Termin, BegUhr, EndUhr ) Values ( 17,"
        "convert(datetime,'02.03.2010',104),Convert(Datetime,'30.12.1899 08:30',104), "
        "Convert(Datetime,'30.12.1899 16:45',104) )");
    const auto day = BoundDay(script.Session());
    day->BegUhr(DateTime::TimeOfDay(8, 30));
    day->EndUhr(DateTime::TimeOfDay(16, 45));
    EXPECT_EQ(day->WriteToDatabase(), true);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTerminTag, ADayWrittenIsReadAnewAtTheNextGet) {
    Script script;
    script.ExecuteSql(InsertDay(17, kDayText, "08:30", "00:00"));
    ScriptTimes(script, {{DateTime::TimeOfDay(8, 31), DateTime::TimeOfDay(0, 1)}});
    const auto day = BoundDay(script.Session());
    day->BegUhr(DateTime::TimeOfDay(8, 30));
    day->WriteToDatabase();
    EXPECT_EQ(day->BegUhr(), DateTime::TimeOfDay(8, 31));
    EXPECT_EQ(day->EndUhr(), DateTime::TimeOfDay(0, 1));
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTerminTag, WriteAlwaysInsertsAlsoAfterALoad) {
    Script script;
    ScriptTimes(script, {{DateTime::TimeOfDay(8, 30), DateTime::TimeOfDay(16, 45)}});
    script.ExecuteSql(InsertDay(17, kDayText, "08:30", "16:45")).Refused("Violation of PRIMARY KEY constraint");
    const auto day = BoundDay(script.Session());
    EXPECT_EQ(day->BegUhr(), DateTime::TimeOfDay(8, 30));
    EXPECT_RAISES(9999, day->WriteToDatabase());
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTerminTag, TimesAreWrittenOnThe24HourClockCutToMinutesAnd0As0000) {
    const struct {
        DateTime time;
        const char* text;
    } cases[] = {
        {DateTime(), "00:00"},
        {DateTime::TimeOfDay(0, 5), "00:05"},
        {DateTime::TimeOfDay(9, 7), "09:07"},
        {DateTime::TimeOfDay(12, 0), "12:00"},
        {DateTime::TimeOfDay(13, 30), "13:30"},
        {DateTime::TimeOfDay(23, 59, 59), "23:59"},
        {DateTime::Of(2010, 3, 2, 14, 10), "14:10"},
        {DateTime::Of(2010, 11, 30), "00:00"},
    };
    for (const auto& c : cases) {
        Script script;
        script.ExecuteSql(InsertDay(17, kDayText, c.text, c.text));
        script.ExecuteSql(UpdateDay(17, kDayText, c.text, c.text));
        const auto day = BoundDay(script.Session());
        day->BegUhr(c.time);
        day->EndUhr(c.time);
        EXPECT_EQ(day->WriteToDatabase(), true);
        EXPECT_EQ(day->UpdateDatabase(), true);
        EXPECT_EQ(script.Report(), "") << c.text;
    }
}

TEST(clsTerminTag, DaysAreWrittenAsDaysInAllStatements) {
    const struct {
        DateTime day;
        const char* text;
    } cases[] = {
        {DateTime(), "30.12.1899"},
        {DateTime::Of(2010, 3, 2, 14, 10), "02.03.2010"},
        {DateTime::Of(2008, 2, 29), "29.02.2008"},
        {DateTime::Of(100, 1, 1), "01.01.0100"},
        {DateTime::Of(9999, 12, 31), "31.12.9999"},
    };
    for (const auto& c : cases) {
        Script script;
        script.ExecuteSql(InsertDay(0, c.text, "00:00", "00:00"));
        script.ExecuteSql(UpdateDay(0, c.text, "00:00", "00:00"));
        script.ExecuteSql(DeleteDay(0, c.text));
        script.OpenSelect(SelectTimes(0, c.text)).Rows(kTimeColumns);
        script.CloseRows();
        const auto day = BoundDay(script.Session(), c.day, 0);
        EXPECT_EQ(day->WriteToDatabase(), true);
        EXPECT_EQ(day->UpdateDatabase(), true);
        EXPECT_EQ(day->RemoveTerminTag(), true);
        EXPECT_EQ(day->BegUhr(), DateTime());
        EXPECT_EQ(script.Report(), "") << c.text;
    }
}

TEST(clsTerminTag, AnUpdateWritesBothTimes) {
    Script script;
    ScriptTimes(script, {{DateTime::TimeOfDay(8, 30), DateTime::TimeOfDay(16, 45)}});
    script.ExecuteSql(
        "Update Sem_Termin_Termine_IT   Set BegUhr = Convert(Datetime,'30.12.1899 10:00',104)  , "
        "EndUhr = Convert(Datetime,'30.12.1899 16:45',104) From Sem_Termin_Termine_IT  "
        "Where SemTerminID = 17 AND Termin = Convert(datetime,'02.03.2010',104) ");
    const auto day = BoundDay(script.Session());
    EXPECT_EQ(day->BegUhr(), DateTime::TimeOfDay(8, 30));
    day->BegUhr(DateTime::TimeOfDay(10, 0));
    EXPECT_EQ(day->UpdateDatabase(), true);
    EXPECT_EQ(day->BegUhr(), DateTime::TimeOfDay(10, 0));
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTerminTag, AnUpdateOfADayThatWasNeverReadIsSentAndOverwritesTheTimeThatWasNotLet) {
    Script script;
    script.ExecuteSql(UpdateDay(17, kDayText, "10:00", "00:00"));
    const auto day = BoundDay(script.Session());
    day->BegUhr(DateTime::TimeOfDay(10, 0));
    EXPECT_EQ(day->UpdateDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTerminTag, AnUpdateOfADayWithoutARowSucceeds) {
    Script script;
    ScriptTimes(script, {});
    script.ExecuteSql(UpdateDay(17, kDayText, "10:00", "11:00")).Ok();
    const auto day = BoundDay(script.Session());
    EXPECT_EQ(day->BegUhr(), DateTime());
    day->BegUhr(DateTime::TimeOfDay(10, 0));
    day->EndUhr(DateTime::TimeOfDay(11, 0));
    EXPECT_EQ(day->UpdateDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTerminTag, RemoveDeletesTheRowWithoutALoad) {
    Script script;
    script.ExecuteSql("Delete From Sem_Termin_Termine_IT  WHERE SemTerminID = 17 AND Termin = convert(datetime,'02.03.2010',104)");
    const auto day = BoundDay(script.Session());
    EXPECT_EQ(day->RemoveTerminTag(), true);
    EXPECT_EQ(day->Key(), "000000001720100302");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTerminTag, WhatWritesFailsAsDocumentedWithTheTextOfTheSession) {
    const struct {
        std::string statement;
        std::function<void(clsTerminTag&)> run;
        const char* description;
        Labels labels;
    } cases[] = {
        {InsertDay(17, kDayText, "00:00", "00:00"),
         [](clsTerminTag& day) { day.WriteToDatabase(); },
         "Doppelter Schlüssel.\r\nLUmoSeminar.clsTerminTag.WriteToDatabase",
         {kLUmo + "WriteToDatabase"}},
        {UpdateDay(17, kDayText, "00:00", "00:00"),
         [](clsTerminTag& day) { day.UpdateDatabase(); },
         "Doppelter Schlüssel.\r\nLumoSeminar.clsTerminTag.UpdateDatabase",
         {kLumo + "UpdateDatabase"}},
        {DeleteDay(17, kDayText),
         [](clsTerminTag& day) { day.RemoveTerminTag(); },
         "Doppelter Schlüssel.\r\nLumoSeminar.clsTerminTag.DeleteFromDatabase\r\nLUmoSeminar.clsTerminTag.RemoveTerminTag",
         {kLumo + "DeleteFromDatabase", kLUmo + "RemoveTerminTag"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.statement);
        ExpectFailures([&](Script& script) { script.ExecuteSql(c.statement); },
                       [&](const Ref<DataSession>& session) { c.run(*BoundDay(session)); },
                       {{1, kNotOk, 9999, c.labels}, {1, kRaises, 7001, c.labels}});
        Script script;
        script.ExecuteSql(c.statement).Refused("Doppelter Schlüssel.");
        const auto day = BoundDay(script.Session());
        const auto error = RaisedBy([&] { c.run(*day); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Description(), c.description);
        EXPECT_EQ(script.LastErrorTextCalls(), 1);
        EXPECT_EQ(script.Report(), "");
    }
}

}  // namespace
}  // namespace LumoSeminar
