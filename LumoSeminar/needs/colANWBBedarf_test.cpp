#include <LumoSeminar/needs/colANWBBedarf.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <test_support/failures.h>
#include <test_support/need_statements.h>
#include <test_support/process_calls.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace need_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
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

TEST_F(colANWBBedarfTest, NoRowsAreAnEmptyList) {
    Script script;
    ScriptList(script, {});
    colANWBBedarf list;
    EXPECT_TRUE(list.LoadBedarfArbeitnehmer(script.Session(), 5, 123).IsEmpty());
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(KeysOf(list), Keys{});
    EXPECT_EQ(script.Report(), "");
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

TEST_F(colANWBBedarfTest, ItemTakesPositionsFromOneAndKeys) {
    Script script;
    ScriptList(script, {FullRow(12), FullRow(7)});
    colANWBBedarf list;
    list.LoadBedarfArbeitnehmer(script.Session(), 5, 123);
    EXPECT_EQ(list.Item(1)->WBID(), 12);
    EXPECT_EQ(list.Item(2)->WBID(), 7);
    EXPECT_EQ(list.Item("7"), list.Item(2));
    for (const bool remove : {false, true}) {
        const auto of = [&](const Variant& key) {
            return RaisedBy([&] { return remove ? list.Remove(key) : static_cast<void>(list.Item(key)), 0; });
        };
        for (const auto& [key, number] :
             {std::pair<Variant, Int32>{"8", 5}, {"0000000007", 5}, {"", 5}, {0, 9}, {3, 9}, {-1, 9}}) {
            const auto error = of(key);
            ASSERT_TRUE(error);
            EXPECT_EQ(error->Number(), number);
            EXPECT_EQ(LabelsOf(error), Labels{}) << "a plain member has no label";
        }
    }
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(script.Report(), "");
}

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
    const auto error = RaisedBy([&] { return need->WBS(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 91);
    EXPECT_EQ(LabelsOf(error), Labels{kLabelOfLoad});
}

TEST_F(colANWBBedarfTest, RemoveTakesFromTheListOnlyAndTheEntryComesBackWithTheNextLoad) {
    Script script;
    ScriptList(script, {FullRow(7), FullRow(8), FullRow(9)});
    ScriptList(script, {FullRow(7), FullRow(8)});
    colANWBBedarf list;
    list.LoadBedarfArbeitnehmer(script.Session(), 5, 123);
    list.Remove("8");
    list.Remove(2);
    EXPECT_EQ(KeysOf(list), Keys{"7"});
    list.Remove(1);
    EXPECT_EQ(list.Count(), 0);
    list.LoadBedarfArbeitnehmer(script.Session(), 5, 123);
    EXPECT_EQ(KeysOf(list), (Keys{"7", "8"}));
    EXPECT_EQ(script.Report(), "") << "no row is deleted";
}

// Loading twice, and failures.

TEST_F(colANWBBedarfTest, ASecondLoadRaises457AtTheFirstRowThatIsListedAlready) {
    Script script;
    ScriptList(script, {FullRow(7), FullRow(8)});
    script.OpenSelect(SelectList(6, 99)).Rows(kColumns, {FullRow(5), FullRow(8), FullRow(6)});
    colANWBBedarf list;
    list.LoadBedarfArbeitnehmer(script.Session(), 5, 123);
    const auto error = RaisedBy([&] { return list.LoadBedarfArbeitnehmer(script.Session(), 6, 99); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 457);
    EXPECT_EQ(LabelsOf(error), Labels{" in LumoSeminar.LoadListe"});
    EXPECT_EQ(KeysOf(list), (Keys{"7", "8", "5"})) << "what was read before stays, and the row set is not closed";
    EXPECT_EQ(script.Report(), "");
}

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

TEST_F(colANWBBedarfTest, WithoutASessionTheListRaises91UnderItsLabel) {
    colANWBBedarf list;
    const auto error = RaisedBy([&] { return list.LoadBedarfArbeitnehmer({}, 5, 123); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 91);
    EXPECT_EQ(LabelsOf(error), Labels{kLabelOfList});
}

TEST_F(colANWBBedarfTest, AValueThatDoesNotFitRaisesUnderTheLabelAndTheEntriesBeforeItStay) {
    const struct {
        std::size_t column;
        Variant value;
        Int32 number;
    } cases[] = {{0, "sieben", 13}, {1, 2147483648.0, 6}, {3, "x", 13}, {4, "kein Datum", 13}, {8, 256, 6}};
    for (const auto& c : cases) {
        Script script;
        auto row = FullRow(8);
        row[c.column] = c.value;
        script.OpenSelect(SelectList(5, 123)).Rows(kColumns, {FullRow(7), row, FullRow(9)});
        colANWBBedarf list;
        const auto error = RaisedBy([&] { return list.LoadBedarfArbeitnehmer(script.Session(), 5, 123); });
        ASSERT_TRUE(error) << c.column;
        EXPECT_EQ(error->Number(), c.number);
        EXPECT_EQ(LabelsOf(error), Labels{kLabelOfList});
        EXPECT_EQ(KeysOf(list), Keys{"7"});
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(colANWBBedarfTest, EveryFailureRaisesUnderTheLabel) {
    ExpectFailures(
        [](Script& script) { ScriptList(script, {FullRow(7)}); },
        [](const Ref<DataSession>& session) { colANWBBedarf().LoadBedarfArbeitnehmer(session, 5, 123); },
        {{1, kNotOk, 9999, {kLabelOfList}}, {1, kRaises, 7001, {kLabelOfList}}, {2, kRaises, 7001, {kLabelOfList}}});
}

}  // namespace
}  // namespace LumoSeminar
