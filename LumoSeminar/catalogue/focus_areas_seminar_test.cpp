#include <gtest/gtest.h>

#include <type_traits>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/catalogue/focus_areas.h>
#include <test_support/failures.h>
#include <test_support/focus_area_statements.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace focus_area_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;

const std::string kLabel = " LumoSeminar062.clsSemSchwerpunkt.";
const std::string kLabelOfRemove = " LumoSeminar062.colSemSchwerpunkte.Remove";
const Labels kLabelsOfALoad = {" LumoSeminar062.clsColTermine.LoadKeysFromDatabase",
                               " LumoSeminar062.clsColSemSchwerpunkte.Init"};
const std::string kLabelOfAdd = " LumoSeminar062.clsColTermine.Add";
const std::string kNoErrorText = "ADO-Fehlermeldung: ";
const std::vector<std::string> kNameColumns = {"Weiterbildungsschwerpunkt"};

static_assert(!std::is_default_constructible_v<clsSemSchwerpunkt>, "front ends get them from a list only");

/// The list of seminar 5 with one focus area, 7.
void ScriptList(Script& script) {
    script.AdoConnection();
    script.OpenSelect(SelectKeysOfSeminar(5)).Rows({"SchwerpunktID", "SemID"}, {{7, 5}});
    script.AdoConnection();
}

void ScriptName(Script& script, const Variant& name) {
    script.OpenSelect(SelectOfSeminar(5, 7)).Rows(kNameColumns, {{name}});
}

Ref<colSemSchwerpunkte> Listed(const Ref<DataSession>& session) {
    auto list = New<colSemSchwerpunkte>();
    EXPECT_EQ(list->Init(5, session), true);
    return list;
}

/// The focus area 7 of seminar 5, for a script that starts with the list.
Ref<clsSemSchwerpunkt> Bound(const Ref<DataSession>& session) { return Listed(session)->Item(1); }

TEST(clsSemSchwerpunkt, InitBindsWithoutAStatement) {
    Script script;
    ScriptList(script);
    script.AdoConnection();
    script.OpenSelect(SelectOfSeminar(8, 9)).Rows(kNameColumns, {{"Kundendienst"}});
    const auto focus_area = Bound(script.Session());
    EXPECT_EQ(focus_area->Key(), "0000000007");
    EXPECT_EQ(focus_area->Init(9, 8, script.Session()), true);
    EXPECT_EQ(focus_area->Key(), "0000000009");
    EXPECT_EQ(focus_area->WBS(), "Kundendienst");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemSchwerpunkt, InitKeepsNothingWhereTheConnectionStaysClosed) {
    Script script;
    ScriptList(script);
    script.AdoConnection().Closed();
    script.ConnectionOpen().StaysClosed();
    script.AdoConnection().Empty();
    ScriptName(script, "Führung");
    const auto focus_area = Bound(script.Session());
    EXPECT_EQ(focus_area->Init(9, 8, script.Session()), false);
    EXPECT_EQ(focus_area->Init(9, 8, script.Session()), false);
    EXPECT_EQ(focus_area->SemID(), 5);
    EXPECT_EQ(focus_area->SchwerpunktID(), 7);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemSchwerpunkt, InitWithAnEmptySessionRaises91WithItsLabel) {
    Script script;
    ScriptList(script);
    const auto focus_area = Bound(script.Session());
    EXPECT_RAISES_UNDER(91, Labels{kLabel + "Init"}, focus_area->Init(9, 8, nullptr));
    EXPECT_EQ(focus_area->Key(), "0000000007");
}

TEST(clsSemSchwerpunkt, LooksForAMissingRowAgainAtEachGetAndGivesEmptyValues) {
    Script script;
    ScriptList(script);
    for (int i = 0; i < 3; ++i) script.OpenSelect(SelectOfSeminar(5, 7)).Rows(kNameColumns, {});
    const auto focus_area = Bound(script.Session());
    EXPECT_EQ(focus_area->SemID(), 0);
    EXPECT_EQ(focus_area->SchwerpunktID(), 0);
    EXPECT_EQ(focus_area->WBS(), "");
    EXPECT_EQ(focus_area->Key(), "0000000007");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemSchwerpunkt, LetsBeforeTheFirstGetTurnTheLoadAndLoseTheName) {
    Script script;
    ScriptList(script);
    script.OpenSelect(SelectOfSeminar(-1, 2147483647)).Rows(kNameColumns, {{"Führung"}});
    const auto focus_area = Bound(script.Session());
    focus_area->SemID(-1);
    focus_area->SchwerpunktID(2147483647);
    focus_area->WBS("Qualität");
    EXPECT_EQ(focus_area->Key(), "2147483647");
    EXPECT_EQ(focus_area->WBS(), "Führung");
    EXPECT_EQ(focus_area->SemID(), -1);
    focus_area->WBS("Qualität");
    EXPECT_EQ(focus_area->WBS(), "Qualität");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemSchwerpunkt, AWriteOfAnUnreadOneDoesNothing) {
    Script script;
    ScriptList(script);
    const auto focus_area = Bound(script.Session());
    focus_area->WBS("Führung");
    EXPECT_EQ(focus_area->WriteToDatabase(), false);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemSchwerpunkt, AWriteInsertsTheLinkThenTheFocusAreaAndFetchesARowSetAfterEach) {
    Script script;
    ScriptList(script);
    ScriptName(script, "Führung");
    script.OpenSelect(InsertOfSeminar(5, 17));
    script.OpenSelect(InsertNamed(17, "Führung, Rock'n Roll & {WBS}"));
    const auto focus_area = Bound(script.Session());
    EXPECT_EQ(focus_area->WBS(), "Führung");
    focus_area->SchwerpunktID(17);
    focus_area->WBS("Führung, Rock'n Roll & {WBS}");
    const int fetched = script.RecordsetCalls();
    EXPECT_EQ(focus_area->WriteToDatabase(), true);
    EXPECT_EQ(script.RecordsetCalls(), fetched + 2);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemSchwerpunkt, ARefusedWriteIsFalseWithoutAnError) {
    Script script;
    ScriptList(script);
    ScriptName(script, "Führung");
    script.OpenSelect(InsertOfSeminar(5, 7)).Refused("Violation of PRIMARY KEY constraint");
    script.OpenSelect(InsertOfSeminar(6, 7));
    script.OpenSelect(InsertNamed(7, "Führung")).Refused("Violation of PRIMARY KEY constraint");
    const auto focus_area = Bound(script.Session());
    EXPECT_EQ(focus_area->WBS(), "Führung");
    EXPECT_EQ(focus_area->WriteToDatabase(), false);
    focus_area->SemID(6);
    EXPECT_EQ(focus_area->WriteToDatabase(), false) << "the link is in, its focus area was there already";
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemSchwerpunkt, AWriteThatRaisesCarriesTheLastErrorTextBehindItsLabelEvenAnOlderOne) {
    Script script;
    ScriptList(script);
    ScriptName(script, "Führung");
    script.OpenSelect(InsertOfSeminar(5, 7)).Refused("Schlüssel ist schon da");
    script.OpenSelect(InsertOfSeminar(5, 7)).Raises(-2147467259, "Verbindung verloren", "Treiber");
    const auto focus_area = Bound(script.Session());
    focus_area->WBS();
    EXPECT_EQ(focus_area->WriteToDatabase(), false);
    const auto error = RaisedBy([&] { return focus_area->WriteToDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -2147467259);
    EXPECT_EQ(error->Source(), "Treiber");
    EXPECT_EQ(error->Description(),
              "Verbindung verloren\r\n LumoSeminar062.clsSemSchwerpunkt.WriteToDatabase\r\nADO-Fehlermeldung: Schlüssel ist schon da");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemSchwerpunkt, AWriteFailsAsDocumentedAtEachStep) {
    const Labels labels = {kLabel + "WriteToDatabase", kNoErrorText};
    ExpectFailures(
        [](Script& script) {
            ScriptList(script);
            ScriptName(script, "Führung");
            script.OpenSelect(InsertOfSeminar(5, 7));
            script.OpenSelect(InsertNamed(7, "Führung"));
        },
        [](const Ref<DataSession>& session) {
            colSemSchwerpunkte list;
            if (!list.Init(5, session)) return;
            list.Item(1)->WBS();
            (void)list.Item(1)->WriteToDatabase();
        },
        {{1, kNotOk, 0, {}, {"Open of the connection"}},
         {2, kNotOk},
         {3, kNotOk, 0, {}, {"Open of the connection"}},
         {4, kNotOk},
         {5, kNotOk},
         {6, kNotOk},
         {1, kRaises, 7001, {" LumoSeminar062.clsColSemSchwerpunkte.Init"}},
         {2, kRaises, 7001, kLabelsOfALoad},
         {3, kRaises, 7001, {kLabel + "Init", kLabelsOfALoad[0], kLabelsOfALoad[1]}},
         {4, kRaises, 7001, {kLabel + "PropertiesInit", kLabel + "WBS --> GET"}},
         {5, kRaises, 7001, labels},
         {6, kRaises, 7001, labels}});
}

TEST(colSemSchwerpunkte, AnEntryKnowsTheSeminarOfItsRow) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(SelectKeysOfSeminar(5)).Rows({"SchwerpunktID", "SemID"}, {{"7", 6}});
    script.AdoConnection();
    script.OpenSelect(SelectOfSeminar(6, 7)).Rows(kNameColumns, {{"Führung"}});
    EXPECT_EQ(Bound(script.Session())->SemID(), 6);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemSchwerpunkte, AddMakesTheNextFocusAreaInMemory) {
    Script script;
    ScriptList(script);
    script.LookupValue("max(WBS_ID)", "sysIData_WBS", "").Gives(41);
    const auto list = Listed(script.Session());
    const auto added = list->Add();
    EXPECT_EQ(list->Count(), 2);
    EXPECT_EQ(list->Item("0000000042"), added);
    EXPECT_EQ(list->Item(2), added);
    EXPECT_EQ(added->Key(), "0000000042");
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemSchwerpunkte, AnAddedEntryHasNoSessionUntilItsInit) {
    Script script;
    ScriptList(script);
    script.LookupValue("max(WBS_ID)", "sysIData_WBS", "").Gives(41);
    script.AdoConnection();
    script.OpenSelect(SelectOfSeminar(5, 42)).Rows(kNameColumns, {{"Führung"}});
    const auto list = Listed(script.Session());
    const auto added = list->Add();
    added->WBS("Qualität");
    EXPECT_EQ(added->SemID(), 0);
    EXPECT_EQ(added->SchwerpunktID(), 0);
    EXPECT_EQ(added->WBS(), "");
    EXPECT_EQ(added->WriteToDatabase(), false);
    EXPECT_EQ(list->Remove(2), false);
    EXPECT_EQ(list->Count(), 2);
    EXPECT_EQ(added->Init(42, 5, script.Session()), true);
    EXPECT_EQ(added->WBS(), "Führung");
    EXPECT_EQ(added->SemID(), 5);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemSchwerpunkte, AddGivesTheFirstKeyWhereThereIsNoFocusAreaAndWhereTheLookupIsRefused) {
    for (const bool refused : {false, true}) {
        Script script;
        ScriptList(script);
        const auto lookup = script.LookupValue("max(WBS_ID)", "sysIData_WBS", "");
        if (refused) lookup.Refused("time-out");
        EXPECT_EQ(Listed(script.Session())->Add()->Key(), "0000000001");
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(colSemSchwerpunkte, ASecondAddWithoutAWriteBetweenCollidesOnTheKey) {
    Script script;
    ScriptList(script);
    for (int i = 0; i < 2; ++i) script.LookupValue("max(WBS_ID)", "sysIData_WBS", "").Gives(41);
    script.LookupValue("max(WBS_ID)", "sysIData_WBS", "").Gives(42);
    const auto list = Listed(script.Session());
    list->Add();
    EXPECT_RAISES_UNDER(457, Labels{kLabelOfAdd}, list->Add());
    EXPECT_EQ(list->Count(), 2);
    EXPECT_EQ(list->Add()->Key(), "0000000043") << "once somebody has written the focus area 42";
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemSchwerpunkte, BehindTheLargestKeyThereIsNone) {
    Script script;
    ScriptList(script);
    script.LookupValue("max(WBS_ID)", "sysIData_WBS", "").Gives(2147483647);
    const auto list = Listed(script.Session());
    EXPECT_RAISES_UNDER(6, Labels{kLabelOfAdd}, list->Add());
    EXPECT_EQ(list->Count(), 1);
}

TEST(colSemSchwerpunkte, AddOfAnUnboundListRaises91WithTheLabelOfAnotherList) {
    colSemSchwerpunkte list;
    EXPECT_RAISES_UNDER(91, Labels{" LumoSeminar062.clsColTermine.Add"}, list.Add());
    EXPECT_EQ(list.Count(), 0);
}

TEST(colSemSchwerpunkte, RemoveOfAReadOneDeletesTheLinkThroughASelectAndIsFalse) {
    Script script;
    ScriptList(script);
    ScriptName(script, "Führung");
    script.OpenSelect("DELETE FROM Sem_Schwerpunkte_IT WHERE (SemID = 5 AND SchwerpunktID = 7)");
    const auto list = Listed(script.Session());
    EXPECT_EQ(list->Item(1)->WBS(), "Führung");
    const int fetched = script.RecordsetCalls();
    EXPECT_EQ(list->Remove("0000000007"), false);
    EXPECT_EQ(script.RecordsetCalls(), fetched + 1);
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemSchwerpunkte, RemoveOfAnUnreadOneDeletesNothing) {
    Script script;
    ScriptList(script);
    script.OpenSelect(SelectOfSeminar(5, 7)).Rows(kNameColumns, {});
    const auto list = Listed(script.Session());
    EXPECT_EQ(list->Remove(1), false);
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(list->Item(1)->WBS(), "");
    EXPECT_EQ(list->Remove(1), false) << "a row that was looked for in vain was not read";
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemSchwerpunkte, ARefusedDeleteLeavesTheEntryWithoutAnError) {
    Script script;
    ScriptList(script);
    ScriptName(script, "Führung");
    script.OpenSelect(DeleteOfSeminar(5, 7)).Refused("The row is in use.");
    const auto list = Listed(script.Session());
    list->Item(1)->WBS();
    EXPECT_EQ(list->Remove(1), false);
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemSchwerpunkte, ADeleteThatRaisesCarriesBothLabelsAndTheEntryStays) {
    Script script;
    ScriptList(script);
    ScriptName(script, "Führung");
    script.OpenSelect(DeleteOfSeminar(5, 7)).Raises(-2147467259, "Verbindung verloren");
    const auto list = Listed(script.Session());
    list->Item(1)->WBS();
    const auto error = RaisedBy([&] { return list->Remove(1); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -2147467259);
    EXPECT_EQ(LabelsOf(error), (Labels{kLabel + "DeleteFromDatabase", kLabelOfRemove}));
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemSchwerpunkte, AnAddThatRaisesCarriesItsLabelAndFilesNothing) {
    Script script;
    ScriptList(script);
    script.LookupValue("max(WBS_ID)", "sysIData_WBS", "").Raises(-2147467259, "Verbindung verloren");
    const auto list = Listed(script.Session());
    const auto error = RaisedBy([&] { return list->Add(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Description(), "Verbindung verloren\r\n LumoSeminar062.clsColTermine.Add");
    EXPECT_EQ(list->Count(), 1);
}

}  // namespace
}  // namespace LumoSeminar
