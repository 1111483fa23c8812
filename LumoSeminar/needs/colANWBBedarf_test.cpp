#include <LumoSeminar/needs/colANWBBedarf.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <test_support/need_statements.h>
#include <test_support/process_calls.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace need_statements;
using LumoConnection::Script;
using test_support::RaisedBy;

using colANWBBedarfTest = process_calls::ProcessTest;
using Keys = std::vector<Text>;

const Variant kNull = Variant::Null();

void ScriptList(Script& script, const std::vector<std::vector<Variant>>& rows) {
    script.OpenSelect(SelectList(5, 123)).Rows(kColumns, rows);
    script.CloseRows();
}

Keys KeysOf(colANWBBedarf& list) {
    Keys keys;
    for (const auto& need : list.NewEnum()) keys.push_back(need->Key());
    return keys;
}

TEST_F(colANWBBedarfTest, OneStatementFetchesTheNeedsOfAnEmployeeFilledInTheOrderOfTheServer) {
    Script script;
    script
        .OpenSelect(
            "Select WBID,MDNr,ANNr,WBS,erfDat,erford,Erfuellt,erfUser,BedarfErfuellt,Bemerkungen from "
            "AN_WBBedarf_IT WHERE MDNR = 5 AND ANNr = 123")
        .Rows(kColumns, {FullRow(9), FullRow(7), FullRow(8)});
    script.CloseRows();
    auto list = New<colANWBBedarf>();
    EXPECT_TRUE(list->LoadBedarfArbeitnehmer(script.Session(), 5, 123).IsEmpty());
    EXPECT_EQ(script.Report(), "");
    EXPECT_EQ(list->Count(), 3);
    EXPECT_EQ(KeysOf(*list), (Keys{"9", "7", "8"}));
    for (const auto& need : list->NewEnum()) {
        ExpectValues(*need, &Property::full);
        EXPECT_EQ(need->DoSendInfos(), true);
    }
    EXPECT_EQ(script.RecordsetCalls(), 1);
    EXPECT_EQ(script.Report(), "") << "a walk over the list costs nothing further";
    EXPECT_FALSE(script.SessionReleased());
    list.Reset();
    EXPECT_TRUE(script.SessionReleased());
}

TEST_F(colANWBBedarfTest, ClientAndEmployeeGoInAsTheyAre) {
    for (const auto& [client, employee] : {std::pair{0, 0}, {-1, -5}, {2147483647, -2147483647 - 1}}) {
        Script script;
        script.OpenSelect(SelectList(client, employee)).Rows(kColumns);
        script.CloseRows();
        colANWBBedarf().LoadBedarfArbeitnehmer(script.Session(), client, employee);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(colANWBBedarfTest, NullsAreZeroesAndEmptyTextsAndTheKeyIsZero) {
    Script script;
    ScriptList(script, {NullRow()});
    colANWBBedarf list;
    list.LoadBedarfArbeitnehmer(script.Session(), 5, 123);
    ASSERT_EQ(KeysOf(list), Keys{"0"});
    ExpectValues(*list.Item(1), &Property::zero);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colANWBBedarfTest, TheStatusIsReadWithoutItsSign) {
    Script script;
    std::vector<std::vector<Variant>> rows;
    const std::pair<Variant, Byte> cases[] = {{Int16{0}, 0},  {Int16{-1}, 1}, {Int16{1}, 1}, {Int16{2}, 2},
                                              {Int16{-2}, 2}, {kNull, 0},     {-255, 255}};
    for (const auto& c : cases) {
        rows.push_back(FullRow(static_cast<int>(rows.size()) + 1));
        rows.back()[8] = c.first;
    }
    ScriptList(script, rows);
    colANWBBedarf list;
    list.LoadBedarfArbeitnehmer(script.Session(), 5, 123);
    ASSERT_EQ(list.Count(), 7);
    Int32 position = 0;
    for (const auto& c : cases) EXPECT_EQ(list.Item(++position)->BedarfErfuellt(), c.second) << position;
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colANWBBedarfTest, AnEntryKnowsTheSessionAndItsRow) {
    Script script;
    ScriptList(script, {FullRow(7)});
    script.ExecuteSql(Update(kFullAssignments));
    colANWBBedarf list;
    list.LoadBedarfArbeitnehmer(script.Session(), 5, 123);
    EXPECT_EQ(list.Item("7")->WriteToDatabase(11), true);
    EXPECT_EQ(script.Report(), "") << "it is not read again";
}

// The members of the list.

TEST_F(colANWBBedarfTest, AddMakesANeedOfTheSessionOfTheLoaderAndWritesNothing) {
    Script script;
    ScriptList(script, {FullRow(7)});
    ScriptLoad(script, {FullRow(12)}, 12);
    colANWBBedarf list;
    list.LoadBedarfArbeitnehmer(script.Session(), 5, 123);
    const auto need = list.Add(12);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Item("12"), need);
    EXPECT_EQ(need->WBID(), 12);
    ExpectValues(*need, &Property::full);
    EXPECT_RAISES(457, list.Add(7));
    EXPECT_RAISES(457, list.Add(12));
    EXPECT_EQ(KeysOf(list), (Keys{"7", "12"}));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(colANWBBedarfTest, AddBeforeTheLoaderGivesANeedWithoutASession) {
    colANWBBedarf list;
    const auto need = list.Add(12);
    EXPECT_EQ(list.Item(1), need);
    EXPECT_RAISES_UNDER(91, Labels{kLabelOfLoad}, need->WBS());
}

// Loading twice, and failures.

TEST_F(colANWBBedarfTest, ASecondLoadOfAnotherEmployeeAddsAndTheNewSessionIsTheOneOfTheList) {
    Script first;
    Script second;
    ScriptList(first, {FullRow(7)});
    second.OpenSelect(SelectList(6, 99)).Rows(kColumns, {FullRow(8)});
    second.CloseRows();
    ScriptLoad(second, {FullRow(12)}, 12);
    colANWBBedarf list;
    list.LoadBedarfArbeitnehmer(first.Session(), 5, 123);
    list.LoadBedarfArbeitnehmer(second.Session(), 6, 99);
    EXPECT_EQ(KeysOf(list), (Keys{"7", "8"}));
    EXPECT_EQ(list.Add(12)->WBS(), 4);
    EXPECT_EQ(first.Report(), "");
    EXPECT_EQ(second.Report(), "");
}

TEST_F(colANWBBedarfTest, ARefusedListRaises9999AndHasTakenTheSession) {
    Script script;
    script.OpenSelect(SelectList(5, 123)).Refused("Ungültiger Objektname.");
    ScriptLoad(script);
    colANWBBedarf list;
    const auto error = RaisedBy([&] { return list.LoadBedarfArbeitnehmer(script.Session(), 5, 123); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(), "in line: 0\r\nUngültiger Objektname. in LumoSeminar.LoadListe");
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Add(7)->WBS(), 4);
    EXPECT_EQ(script.Report(), "");
}

}  // namespace
}  // namespace LumoSeminar
