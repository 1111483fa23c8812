#include <LumoSeminar/scheduling/colTerminTage.h>

#include <gtest/gtest.h>

#include <functional>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/scheduling/clsTerminTag.h>
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

const std::string kLabel = "LumoSeminar.colTerminTage.";
const std::string kLabelOfNewTerminTag = "LumoSeminar.colTerminTage.objNewTerminTag";
const Labels kLabelsOfALoad = {kLabel + "LoadKeysFromDataBase", kLabel + "Init"};
const Labels kLabelsOfARefusedRemove = {"LumoSeminar.clsTerminTag.DeleteFromDatabase",
                                        "LUmoSeminar.clsTerminTag.RemoveTerminTag", kLabel + "Remove"};
const Labels kLabelsOfARefusedInsert = {"LUmoSeminar.clsTerminTag.WriteToDatabase", kLabelOfNewTerminTag};

const DateTime kMonday = DateTime::Of(2010, 3, 1);
const DateTime kTuesday = DateTime::Of(2010, 3, 2);
const DateTime kWednesday = DateTime::Of(2010, 3, 3);
const DateTime kEight = DateTime::TimeOfDay(8, 0);
const DateTime kFour = DateTime::TimeOfDay(16, 0);

void ScriptList(Script& script, Int32 date, const std::vector<std::vector<Variant>>& days) {
    script.OpenSelect(SelectDays(date)).Rows(kDayColumns, days);
    script.CloseRows();
}

Ref<colTerminTage> Listed(const Ref<DataSession>& session, Int32 date = 17) {
    auto list = New<colTerminTage>();
    list->Init(date, session);
    return list;
}

std::vector<Text> KeysOf(const Ref<colTerminTage>& list) {
    std::vector<Text> keys;
    for (const auto& day : list->NewEnum()) keys.push_back(day->Key());
    return keys;
}

TEST(colTerminTage, ListsTheDaysInTheOrderOfTheServerWithOneStatementAndClosesTheRows) {
    Script script;
    script.OpenSelect("SELECT Termin  FROM Sem_Termin_Termine_IT  WHERE SemTerminID = 17 Order By Termin")
        .Rows({"Termin"}, {{kTuesday}, {kMonday}, {DateTime::Of(2009, 12, 31)}});
    script.CloseRows();
    const auto list = New<colTerminTage>();
    EXPECT_EQ(list->Init(17, script.Session()), true);
    EXPECT_EQ(list->Count(), 3);
    EXPECT_EQ(list->SemTerminID(), 17);
    EXPECT_EQ(KeysOf(list), (std::vector<Text>{"000000001720100302", "000000001720100301", "000000001720091231"}));
    EXPECT_EQ(list->Item(2)->Termin(), kMonday);
    EXPECT_EQ(list->Item(2)->SemTerminID(), 17);
    EXPECT_EQ(script.RecordsetCalls(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, InitWithAnEmptySessionIsFalseAndKeepsNothing) {
    Script script;
    ScriptList(script, 17, {{kMonday}});
    script.ExecuteSql(InsertDay(17, "03.03.2010", "08:00", "16:00"));
    const auto list = Listed(script.Session());
    EXPECT_EQ(list->Init(18, nullptr), false);
    EXPECT_EQ(list->SemTerminID(), 17);
    EXPECT_EQ(list->Count(), 1);
    list->NewTerminTag(kWednesday, kEight, kFour);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, ARefusedSelectRaises9999AndTheListKeepsDateAndSession) {
    Script script;
    script.OpenSelect(SelectDays(17)).Refused("Ungültiger Objektname 'Sem_Termin_Termine_IT'.");
    script.ExecuteSql(InsertDay(17, "03.03.2010", "08:00", "16:00"));
    colTerminTage list;
    const auto error = RaisedBy([&] { return list.Init(17, script.Session()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(),
              "Ungültiger Objektname 'Sem_Termin_Termine_IT'.\r\nLumoSeminar.colTerminTage.LoadKeysFromDataBase\r\n"
              "LumoSeminar.colTerminTage.Init");
    EXPECT_EQ(script.LastErrorTextCalls(), 1);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.SemTerminID(), 17);
    list.NewTerminTag(kWednesday, kEight, kFour);
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, ASecondInitAddsTheDaysOfTheOtherDate) {
    Script script;
    ScriptList(script, 17, {{kMonday}});
    ScriptList(script, 18, {{kMonday}});
    const auto list = Listed(script.Session());
    EXPECT_EQ(list->Init(18, script.Session()), true);
    EXPECT_EQ(KeysOf(list), (std::vector<Text>{"000000001720100301", "000000001820100301"}));
    EXPECT_EQ(list->SemTerminID(), 18);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, TwoRowsOfOneDayRaise457AlsoWhereTheirTimesDiffer) {
    Script script;
    script.OpenSelect(SelectDays(17)).Rows(kDayColumns, {{kMonday}, {DateTime::Of(2010, 3, 1, 14, 0)}});
    colTerminTage list;
    EXPECT_RAISES_UNDER(457, kLabelsOfALoad, list.Init(17, script.Session()));
}

TEST(colTerminTage, DaysThatTheDatabaseKeepsInAnotherTypeAreDays) {
    Script script;
    ScriptList(script, 17, {{"01.03.2010"}, {40239.0}, {40240}});
    EXPECT_EQ(KeysOf(Listed(script.Session())),
              (std::vector<Text>{"000000001720100301", "000000001720100302", "000000001720100303"}));
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, WhateverIsAskedForFirstTheListIsTheSame) {
    const std::function<void(colTerminTage&)> questions[] = {
        [](colTerminTage& list) { EXPECT_EQ(list.Item("000000001720100301")->Termin(), kMonday); },
        [](colTerminTage& list) { EXPECT_EQ(list.Item("000000001720100303")->Termin(), kWednesday); },
        [](colTerminTage& list) { EXPECT_EQ(list.Item(2)->Termin(), kTuesday); },
        [](colTerminTage& list) { EXPECT_EQ(list.Count(), 3); },
        [](colTerminTage& list) { EXPECT_EQ((*list.NewEnum().begin())->Termin(), kMonday); },
        [](colTerminTage& list) { EXPECT_FALSE(list.Item("000000001720100304")); },
        [](colTerminTage& list) { EXPECT_RAISES(9, list.Item(4)); },
        [](colTerminTage& list) { EXPECT_RAISES(5, list.Remove("000000001720100304")); },
        [](colTerminTage& list) { EXPECT_RAISES(9, list.Remove(4)); },
        [](colTerminTage& list) { EXPECT_RAISES(91, list.Add(nullptr)); },
        [](colTerminTage& list) { EXPECT_EQ(list.Init(18, nullptr), false); },
        [](colTerminTage& list) { list.SemTerminID(18); },
        [](colTerminTage& list) { list.Termin(kTuesday); },
    };
    for (const auto& ask : questions) {
        Script script;
        ScriptList(script, 17, {{kMonday}, {kTuesday}, {kWednesday}});
        const auto list = Listed(script.Session());
        ask(*list);
        EXPECT_EQ(list->Count(), 3);
        EXPECT_EQ(KeysOf(list), (std::vector<Text>{"000000001720100301", "000000001720100302", "000000001720100303"}));
        EXPECT_EQ(list->Item(3), list->Item("000000001720100303"));
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(colTerminTage, DaysStayBoundToTheSessionTheyWereListedOn) {
    Script one;
    Script other;
    ScriptList(one, 17, {{kMonday}});
    ScriptList(other, 18, {{kTuesday}});
    one.ExecuteSql(DeleteDay(17, "01.03.2010"));
    other.ExecuteSql(DeleteDay(18, "02.03.2010"));
    const auto list = Listed(one.Session());
    list->Init(18, other.Session());
    list->Remove(1);
    list->Remove(1);
    EXPECT_EQ(list->Count(), 0);
    EXPECT_TRUE(one.SessionReleased());
    EXPECT_EQ(one.Report() + other.Report(), "");
}

TEST(colTerminTage, AWalkOverATimeCostsOneStatementADay) {
    Script script;
    ScriptList(script, 17, {{kMonday}, {kTuesday}});
    for (const char* day : {"01.03.2010", "02.03.2010"}) {
        script.OpenSelect(SelectTimes(17, day)).Rows(kTimeColumns, {{kEight, kFour}});
        script.CloseRows();
    }
    const auto list = Listed(script.Session());
    for (const auto& day : list->NewEnum()) EXPECT_EQ(day->BegUhr(), kEight);
    for (const auto& day : list->NewEnum()) EXPECT_EQ(day->EndUhr(), kFour);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, AnotherSemTerminIDReadsNothingAndCountsForNewDaysOnly) {
    Script script;
    ScriptList(script, 17, {{kMonday}});
    script.ExecuteSql(InsertDay(18, "03.03.2010", "08:00", "16:00"));
    const auto list = Listed(script.Session());
    list->SemTerminID(18);
    EXPECT_EQ(list->SemTerminID(), 18);
    EXPECT_EQ(KeysOf(list), std::vector<Text>{"000000001720100301"});
    list->NewTerminTag(kWednesday, kEight, kFour);
    EXPECT_EQ(KeysOf(list), (std::vector<Text>{"000000001720100301", "000000001820100303"}));
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, TerminIsAValueThatNothingLooksAt) {
    Script script;
    ScriptList(script, 17, {{kMonday}});
    const auto list = Listed(script.Session());
    EXPECT_EQ(list->Termin(), DateTime());
    list->Termin(kWednesday);
    EXPECT_EQ(list->Termin(), kWednesday);
    EXPECT_EQ(KeysOf(list), std::vector<Text>{"000000001720100301"});
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, AddFilesUnderThePresentKeyAndWritesNothing) {
    Script script;
    ScriptList(script, 17, {{kMonday}});
    const auto day = Listed(script.Session())->Item(1);
    colTerminTage list;
    day->SemTerminID(18);
    EXPECT_EQ(list.Add(day), day);
    EXPECT_EQ(list.Item("000000001820100301"), day);
    day->SemTerminID(19);
    EXPECT_EQ(list.Item("000000001820100301"), day) << "the entry keeps its key";
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, AddRaisesForADayThatIsThereAndForNothing) {
    Script script;
    ScriptList(script, 17, {{kMonday}});
    const auto list = Listed(script.Session());
    EXPECT_RAISES_UNDER(457, Labels{kLabel + "Add"}, list->Add(list->Item(1)));
    EXPECT_RAISES_UNDER(91, Labels{kLabel + "Add"}, list->Add(nullptr));
    EXPECT_EQ(list->Count(), 1);
}

TEST(colTerminTage, RemoveDeletesTheRowAndTheEntryByPositionAndByKey) {
    Script script;
    ScriptList(script, 17, {{kMonday}, {kTuesday}, {kWednesday}});
    script.ExecuteSql(DeleteDay(17, "02.03.2010"));
    script.ExecuteSql(DeleteDay(17, "01.03.2010"));
    const auto list = Listed(script.Session());
    list->Remove(2);
    EXPECT_EQ(KeysOf(list), (std::vector<Text>{"000000001720100301", "000000001720100303"}));
    list->Remove("000000001720100301");
    EXPECT_EQ(KeysOf(list), std::vector<Text>{"000000001720100303"});
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, RemoveByKeyLeavesTheOrderOfTheOthers) {
    Script script;
    ScriptList(script, 17, {{kMonday}, {kTuesday}, {kWednesday}});
    script.ExecuteSql(DeleteDay(17, "01.03.2010"));
    script.ExecuteSql(InsertDay(17, "01.03.2010", "08:00", "16:00"));
    script.ExecuteSql(DeleteDay(17, "02.03.2010"));
    const auto list = Listed(script.Session());
    list->Remove("000000001720100301");
    EXPECT_EQ(list->Count(), 2);
    list->NewTerminTag(kMonday, kEight, kFour);
    EXPECT_EQ(KeysOf(list), (std::vector<Text>{"000000001720100302", "000000001720100303", "000000001720100301"}));
    list->Remove(1);
    EXPECT_EQ(KeysOf(list), (std::vector<Text>{"000000001720100303", "000000001720100301"}));
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, RemoveOfADayThatWasMovedDeletesTheRowOfItsPresentDay) {
    Script script;
    ScriptList(script, 17, {{kMonday}});
    script.ExecuteSql(DeleteDay(17, "05.03.2010"));
    const auto list = Listed(script.Session());
    list->Item(1)->Termin(DateTime::Of(2010, 3, 5));
    list->Remove("000000001720100301");
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, ADayRemovedDirectlyStaysInTheList) {
    Script script;
    ScriptList(script, 17, {{kMonday}, {kTuesday}});
    script.ExecuteSql(DeleteDay(17, "01.03.2010"));
    script.ExecuteSql(DeleteDay(17, "01.03.2010"));
    const auto list = Listed(script.Session());
    EXPECT_EQ(list->Item(1)->RemoveTerminTag(), true);
    EXPECT_EQ(KeysOf(list), (std::vector<Text>{"000000001720100301", "000000001720100302"}));
    list->Remove(1);
    EXPECT_EQ(KeysOf(list), std::vector<Text>{"000000001720100302"});
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, ADayRemovedThroughOneListStaysInTheOther) {
    Script script;
    ScriptList(script, 17, {{kMonday}});
    ScriptList(script, 17, {{kMonday}});
    script.ExecuteSql(DeleteDay(17, "01.03.2010"));
    const auto one = Listed(script.Session());
    const auto other = Listed(script.Session());
    one->Remove(1);
    EXPECT_EQ(one->Count(), 0);
    EXPECT_EQ(other->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, NewTerminTagInsertsTheRowAndFilesTheDayBehindTheOthers) {
    Script script;
    ScriptList(script, 17, {{kTuesday}});
    script.ExecuteSql(
        "Insert Into Sem_Termin_Termine_IT (  SemTerminID, Termin, BegUhr, EndUhr ) Values ( 17,"
        "convert(datetime,'03.03.2010',104),Convert(Datetime,'30.12.1899 08:00',104), "
        "Convert(Datetime,'30.12.1899 16:00',104) )");
    script.ExecuteSql(InsertDay(17, "01.03.2010", "13:30", "15:00"));
    script.OpenSelect(SelectTimes(17, "03.03.2010")).Rows(kTimeColumns, {{kEight, kFour}});
    script.CloseRows();
    const auto list = Listed(script.Session());
    list->NewTerminTag(kWednesday, kEight, kFour);
    list->NewTerminTag(kMonday, DateTime::TimeOfDay(13, 30), DateTime::TimeOfDay(15, 0));
    EXPECT_EQ(KeysOf(list), (std::vector<Text>{"000000001720100302", "000000001720100303", "000000001720100301"}));
    EXPECT_EQ(list->Item("000000001720100303")->BegUhr(), kEight) << "read anew, in one statement more";
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, NewTerminTagWritesTimesOf0As0000) {
    Script script;
    ScriptList(script, 17, {});
    script.ExecuteSql(InsertDay(17, "03.03.2010", "00:00", "00:00"));
    const auto list = Listed(script.Session());
    list->NewTerminTag(kWednesday, DateTime(), DateTime());
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, NewTerminTagOnTheListOfADateWithoutAKeyWritesARowWithTheKey0) {
    Script script;
    ScriptList(script, 0, {});
    script.ExecuteSql(InsertDay(0, "03.03.2010", "08:00", "16:00"));
    const auto list = Listed(script.Session(), 0);
    list->NewTerminTag(kWednesday, kEight, kFour);
    EXPECT_EQ(KeysOf(list), std::vector<Text>{"000000000020100303"});
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, NewTerminTagOnAListWithoutASessionDoesNothing) {
    colTerminTage list;
    list.SemTerminID(17);
    list.NewTerminTag(kWednesday, kEight, kFour);
    EXPECT_EQ(list.Count(), 0);
}

TEST(colTerminTage, ARefusedInsertRaises9999AndLeavesTheListAsItWas) {
    Script script;
    ScriptList(script, 17, {{kWednesday}});
    script.ExecuteSql(InsertDay(17, "03.03.2010", "08:00", "16:00")).Refused("Doppelter Schlüssel.");
    const auto list = Listed(script.Session());
    const auto error = RaisedBy([&] { list->NewTerminTag(kWednesday, kEight, kFour); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(),
              "Doppelter Schlüssel.\r\nLUmoSeminar.clsTerminTag.WriteToDatabase\r\nLumoSeminar.colTerminTage.objNewTerminTag");
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, ADayThatTheDatabaseTakesTwiceIsWrittenAndRefusedByTheList) {
    Script script;
    ScriptList(script, 17, {{kWednesday}});
    script.ExecuteSql(InsertDay(17, "03.03.2010", "08:00", "16:00"));
    const auto list = Listed(script.Session());
    EXPECT_RAISES_UNDER(457, (Labels{kLabel + "Add", kLabelOfNewTerminTag}), list->NewTerminTag(kWednesday, kEight, kFour));
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, ARemoveFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            ScriptList(script, 17, {{kMonday}});
            script.ExecuteSql(DeleteDay(17, "01.03.2010"));
        },
        [](const Ref<DataSession>& session) {
            const auto list = Listed(session);
            try {
                list->Remove(1);
            } catch (const Error&) {
                EXPECT_EQ(list->Count(), 1) << "a day that could not be deleted stays listed";
                throw;
            }
        },
        {{1, kNotOk, 9999, kLabelsOfALoad},
         {3, kNotOk, 9999, kLabelsOfARefusedRemove},
         {1, kRaises, 7001, kLabelsOfALoad},
         {2, kRaises, 7001, kLabelsOfALoad},
         {3, kRaises, 7001, kLabelsOfARefusedRemove}});
}

TEST(colTerminTage, ANewDayFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            ScriptList(script, 17, {});
            script.ExecuteSql(InsertDay(17, "03.03.2010", "08:00", "16:00"));
        },
        [](const Ref<DataSession>& session) {
            const auto list = Listed(session);
            try {
                list->NewTerminTag(kWednesday, kEight, kFour);
            } catch (const Error&) {
                EXPECT_EQ(list->Count(), 0) << "a day that could not be written is not listed";
                throw;
            }
        },
        {{1, kNotOk, 9999, kLabelsOfALoad},
         {3, kNotOk, 9999, kLabelsOfARefusedInsert},
         {1, kRaises, 7001, kLabelsOfALoad},
         {2, kRaises, 7001, kLabelsOfALoad},
         {3, kRaises, 7001, kLabelsOfARefusedInsert}});
}

TEST(colTerminTage, AWalkMayOutliveItsListAndRemoveWhatItMeets) {
    Script script;
    ScriptList(script, 17, {{kMonday}, {kTuesday}});
    ScriptList(script, 17, {{kMonday}, {kTuesday}});
    script.ExecuteSql(DeleteDay(17, "01.03.2010"));
    script.ExecuteSql(DeleteDay(17, "02.03.2010"));
    std::vector<DateTime> days;
    for (const auto& day : Listed(script.Session())->NewEnum()) days.push_back(day->Termin());
    EXPECT_EQ(days, (std::vector<DateTime>{kMonday, kTuesday}));
    const auto list = Listed(script.Session());
    for (const auto& day : list->NewEnum()) list->Remove(day->Key());
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colTerminTage, ADayOutlivesItsListAndBothLetGoOfTheSession) {
    Script script;
    ScriptList(script, 17, {{kMonday}});
    script.OpenSelect(SelectTimes(17, "01.03.2010")).Rows(kTimeColumns, {{kEight, kFour}});
    script.CloseRows();
    auto list = Listed(script.Session());
    auto day = list->Item(1);
    list.Reset();
    EXPECT_EQ(day->BegUhr(), kEight);
    EXPECT_FALSE(script.SessionReleased());
    day.Reset();
    EXPECT_TRUE(script.SessionReleased());
    EXPECT_EQ(script.Report(), "");
}

}  // namespace
}  // namespace LumoSeminar
