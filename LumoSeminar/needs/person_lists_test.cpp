// The lists that a person keeps, and the recording of a training need.

#include <gtest/gtest.h>

#include <functional>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/needs/colANWBBedarf.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
#include <test_support/failures.h>
#include <test_support/need_statements.h>
#include <test_support/person_statements.h>
#include <test_support/process_calls.h>
#include <test_support/raises.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

using LumoConnection::Script;
using need_statements::Labels;
using person_statements::PersonOf;
using process_calls::Connected;
using process_calls::Install;
using process_calls::ScriptStart;
using process_calls::StepsBehind;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;
namespace entries = waitlist_statements;
namespace needs = need_statements;

using PersonListsTest = process_calls::ProcessTest;

constexpr Int32 kUserID = 11;
constexpr Int32 kFocusArea = 4;
constexpr Byte kKinds[] = {2, 3, 4, 0, 9};
const Text kLogin = "Jörg \"Jo\" Ähre";

/// A list of the person: its statement for person 45 of client 5, and how it is got.
struct List {
    const char* name;
    std::string sql;
    std::vector<std::string> columns;
    std::vector<Variant> row;
    std::function<Object*(clsWBPerson&)> get;
    std::function<Int32(clsWBPerson&)> count;
    std::string label;
};

std::vector<List> Lists() {
    return {
        {"colWarteliste", entries::SelectList(entries::WhereEmployeeWaits(5, 45)), entries::kColumns,
         entries::FullRow(), [](clsWBPerson& p) { return p.colWarteliste().Get(); },
         [](clsWBPerson& p) { return p.colWarteliste()->Count(); }, " in LumoSeminar.LoadList"},
        {"colInteressentenliste", entries::SelectList(entries::WhereEmployeeIsInterested(5, 45)), entries::kColumns,
         entries::FullRow(), [](clsWBPerson& p) { return p.colInteressentenliste().Get(); },
         [](clsWBPerson& p) { return p.colInteressentenliste()->Count(); }, " in LumoSeminar.LoadList"},
        {"colWBBedarf", needs::SelectList(5, 45), needs::kColumns, needs::FullRow(),
         [](clsWBPerson& p) { return p.colWBBedarf().Get(); }, [](clsWBPerson& p) { return p.colWBBedarf()->Count(); },
         " in LumoSeminar.LoadListe"},
    };
}

TEST_F(PersonListsTest, EachListIsMadeAtItsFirstUseForAnEmployeeWhateverKindThePersonIs) {
    for (const List& list : Lists()) {
        for (const Byte kind : kKinds) {
            SCOPED_TRACE(list.name);
            Script script;
            const auto person = PersonOf(script.Session(), kind);
            EXPECT_EQ(script.Report(), "");
            script.OpenSelect(list.sql).Rows(list.columns, {list.row});
            script.CloseRows();
            EXPECT_EQ(list.count(*person), 1);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST_F(PersonListsTest, TheWholeTextsOfTheThreeLists) {
    const std::string select =
        "SELECT Sem_Warteliste_IT.SemWarteListeID,  Sem_Warteliste_IT.ModID,  Sem_Warteliste_IT.MDNr,  "
        "Sem_Warteliste_IT.TNID, Sem_Warteliste_IT.ErfDat,  Sem_Warteliste_IT.Herkunft,  Sem_Warteliste_IT.Wunschtermin,  "
        "Sem_WartelisteTermin_IT.SemTerminID,  Sem_WartelisteSem_IT.SemID,  Sem_Warteliste_IT.Status,  "
        "Sem_Warteliste_IT.GeaendertAm,  Sem_Warteliste_IT.GeaendertVon  FROM Sem_Warteliste_IT LEFT OUTER JOIN  "
        "Sem_WartelisteTermin_IT ON Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteTermin_IT.SemWarteListeID LEFT OUTER "
        "JOIN  Sem_WartelisteSem_IT ON Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteSem_IT.SemWarteListeID  Where "
        "Sem_Warteliste_IT.ModId = 2 AND Sem_Warteliste_IT.MdNr = 5 AND Sem_Warteliste_IT.TnId = 45 AND Not ";
    const std::string order = " Is Null Order by Sem_Warteliste_IT.ErfDat";
    Script script;
    script.OpenSelect(select + "Sem_WartelisteTermin_IT.SemTerminID" + order).Rows(entries::kColumns);
    script.CloseRows();
    script.OpenSelect(select + "Sem_WartelisteSem_IT.SemID" + order).Rows(entries::kColumns);
    script.CloseRows();
    script
        .OpenSelect(
            "Select WBID,MDNr,ANNr,WBS,erfDat,erford,Erfuellt,erfUser,BedarfErfuellt,Bemerkungen from "
            "AN_WBBedarf_IT WHERE MDNR = 5 AND ANNr = 45")
        .Rows(needs::kColumns);
    script.CloseRows();
    const auto person = PersonOf(script.Session(), 3);
    EXPECT_EQ(person->colWarteliste()->Count(), 0);
    EXPECT_EQ(person->colInteressentenliste()->Count(), 0);
    EXPECT_EQ(person->colWBBedarf()->Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonListsTest, EachListIsKeptEmptyOrNotWhateverBecomesOfTheKeys) {
    for (const List& list : Lists()) {
        for (const bool empty : {false, true}) {
            SCOPED_TRACE(list.name);
            Script script;
            std::vector<std::vector<Variant>> rows;
            if (!empty) rows.push_back(list.row);
            script.OpenSelect(list.sql).Rows(list.columns, rows);
            script.CloseRows();
            const auto person = PersonOf(script.Session(), 2);
            const Object* first = list.get(*person);
            person->MDNR(6);
            person->PersonID(99);
            person->ModId(3);
            EXPECT_EQ(list.get(*person), first);
            EXPECT_EQ(list.count(*person), empty ? 0 : 1);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST_F(PersonListsTest, KeysLetBeforeTheFirstUseCount) {
    Script script;
    entries::ScriptList(script, entries::WhereEmployeeWaits(6, 99));
    entries::ScriptList(script, entries::WhereEmployeeIsInterested(6, 99));
    script.OpenSelect(needs::SelectList(6, 99)).Rows(needs::kColumns);
    script.CloseRows();
    const auto person = PersonOf(script.Session(), 2);
    person->MDNR(6);
    person->PersonID(99);
    for (const List& list : Lists()) EXPECT_EQ(list.count(*person), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonListsTest, WaitListAndInterestListAreTwoListsAndAnEntryMayBeInBoth) {
    Script script;
    entries::ScriptList(script, entries::WhereEmployeeWaits(5, 45), {entries::FullRow(42)});
    entries::ScriptList(script, entries::WhereEmployeeIsInterested(5, 45), {entries::FullRow(42)});
    const auto person = PersonOf(script.Session(), 2);
    EXPECT_EQ(person->colWarteliste()->Item("42")->SemID(), 105);
    EXPECT_EQ(person->colInteressentenliste()->Item("42")->SemTerminID(), 17);
    EXPECT_NE(person->colWarteliste()->Item(1), person->colInteressentenliste()->Item(1));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonListsTest, EntriesOfTheListsDoNotTakeDoSendInfosOfThePerson) {
    Script script;
    for (const List& list : Lists()) {
        script.OpenSelect(list.sql).Rows(list.columns, {list.row});
        script.CloseRows();
    }
    const auto person = PersonOf(script.Session(), 2);
    person->DoSendInfos(false);
    EXPECT_EQ(person->colWarteliste()->Item(1)->DoSendInfos(), true);
    EXPECT_EQ(person->colInteressentenliste()->Item(1)->DoSendInfos(), true);
    EXPECT_EQ(person->colWBBedarf()->Item(1)->DoSendInfos(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonListsTest, ARefusedListRaises9999UnderTheLabelOfTheLoaderAloneAndStaysAsAnEmptyList) {
    for (const List& list : Lists()) {
        SCOPED_TRACE(list.name);
        Script script;
        script.OpenSelect(list.sql).Refused("Ungültiger Objektname.");
        const auto person = PersonOf(script.Session(), 2);
        const auto error = RaisedBy([&] { return list.count(*person); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), 9999);
        EXPECT_EQ(error->Description(), "in line: 0\r\nUngültiger Objektname." + list.label);
        EXPECT_EQ(list.count(*person), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(PersonListsTest, EveryFailureOfAListRaisesUnderTheLabelOfTheLoaderAlone) {
    for (const List& list : Lists()) {
        SCOPED_TRACE(list.name);
        ExpectFailures(
            [&](Script& script) {
                script.OpenSelect(list.sql).Rows(list.columns, {list.row});
                script.CloseRows();
            },
            [&](const Ref<DataSession>& session) { list.count(*PersonOf(session, 2)); },
            {{1, kNotOk, 9999, {list.label}}, {1, kRaises, 7001, {list.label}}, {2, kRaises, 7001, {list.label}}});
    }
}

TEST_F(PersonListsTest, ListsEndWithThePerson) {
    Script script;
    for (const List& list : Lists()) {
        script.OpenSelect(list.sql).Rows(list.columns, {list.row});
        script.CloseRows();
    }
    auto person = PersonOf(script.Session(), 2);
    for (const List& list : Lists()) EXPECT_EQ(list.count(*person), 1);
    EXPECT_FALSE(script.SessionReleased());
    person.Reset();
    EXPECT_TRUE(script.SessionReleased());
}

// A new training need.

const std::string kInsertedNeed = needs::Insert("8,5,45,4,'02.03.2010',Null,Null,'" + kLogin + "',0,Null");
const std::string kUpdatedNeed =
    needs::Update("Erford = Null, Erfuellt = Null, BedarfErfuellt = 0, Bemerkungen = Null, WBS = 4", 8);

void ScriptNewNeed(Script& script, Connected connected = Connected::kByText) {
    needs::ScriptLoad(script, {}, 0);
    needs::ScriptLookups(script, 7, kLogin);
    script.ExecuteSql(kInsertedNeed);
    ScriptStart(script, process_calls::kTrainingNeed, 8, kUserID, connected);
    script.ExecuteSql(kUpdatedNeed);
}

TEST_F(PersonListsTest, RecordingANeedInsertsItOpensItsProcessAndGivesItsKeyWhateverKindThePersonIs) {
    for (const Byte kind : kKinds) {
        for (const bool infos : {true, false}) {
            Script script;
            needs::ScriptLoad(script, {}, 0);
            script.LookupValue("max(WBID)", "AN_WBBedarf_IT", "").Gives(7);
            script.LookupValue("System_User", "opactMD", "").Gives(kLogin);
            script.ExecuteSql(
                "Insert Into AN_WBBedarf_IT (WBID,MDNr,ANNr,WBS,erfDat,erford,Erfuellt,erfUser,BedarfErfuellt,Bemerkungen)"
                " values (8,5,45,4,'02.03.2010',Null,Null,'Jörg \"Jo\" Ähre',0,Null)");
            ScriptStart(script, process_calls::kTrainingNeed, 8, kUserID);
            script.ExecuteSql(
                "Update AN_WBBedarf_IT Set Erford = Null, Erfuellt = Null, BedarfErfuellt = 0, Bemerkungen = Null, WBS = 4 "
                "WHERE WBID = 8");
            Install(script.Session());
            const auto person = PersonOf(script.Session(), kind);
            person->DoSendInfos(infos);
            EXPECT_EQ(person->BedarfErfassen(kFocusArea, kUserID), 8);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST_F(PersonListsTest, ANeedThatWasRecordedIsNotInAListThatWasMadeBefore) {
    Script script;
    script.OpenSelect(needs::SelectList(5, 45)).Rows(needs::kColumns, {needs::FullRow(7)});
    script.CloseRows();
    ScriptNewNeed(script);
    Install(script.Session());
    const auto person = PersonOf(script.Session(), 2);
    EXPECT_EQ(person->colWBBedarf()->Count(), 1);
    EXPECT_EQ(person->BedarfErfassen(kFocusArea, kUserID), 8);
    EXPECT_EQ(person->colWBBedarf()->Count(), 1);
    EXPECT_EQ(person->colWBBedarf()->Item(1)->WBID(), 7);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonListsTest, ARefusedWriteOfANeedRaises9999InPlaceOfGivingZero) {
    Script script;
    needs::ScriptLoad(script, {}, 0);
    needs::ScriptLookups(script, 7, kLogin);
    script.ExecuteSql(kInsertedNeed).Refused("Verletzung des Primärschlüssels.");
    Install(script.Session());
    const auto error = RaisedBy([&] { return PersonOf(script.Session(), 2)->BedarfErfassen(kFocusArea, kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(), "in line: 0\r\nVerletzung des Primärschlüssels. in LumoSeminar.WriteToDatabase");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonListsTest, EveryFailureOfRecordingANeedRaisesWithTheLabelsFromBelowAndNoneOfItsOwn) {
    const Labels load = {needs::kLabelOfLoad};
    const Labels write = {needs::kLabelOfWrite};
    const Labels twice = {needs::kLabelOfWrite, needs::kLabelOfWrite};
    const auto write_script = [](Script& script) {
        needs::ScriptLoad(script, {}, 0);
        needs::ScriptLookups(script, Variant::Null(), Variant::Null());
        script.ExecuteSql(needs::Insert("1,5,45,4,'02.03.2010',Null,Null,'',0,Null"));
        ScriptStart(script, process_calls::kTrainingNeed, 1, kUserID, Connected::kByDefaults);
        script.ExecuteSql(needs::Update("Erford = Null, Erfuellt = Null, BedarfErfuellt = 0, Bemerkungen = Null, WBS = 4", 1));
    };
    ExpectFailures(write_script,
                   [](const Ref<DataSession>& session) {
                       Install(session, "");
                       PersonOf(session, 2)->BedarfErfassen(kFocusArea, kUserID);
                   },
                   {
                       {1, kNotOk, 9999, load},
                       {3, kNotOk, 0, {}, StepsBehind(3, write_script)},
                       {4, kNotOk, 0, {}, StepsBehind(4, write_script)},
                       {5, kNotOk, 9999, write},
                       {12, kNotOk, 9999, twice},
                       {1, kRaises, 7001, load},
                       {2, kRaises, 7001, load},
                       {3, kRaises, 7001, write},
                       {4, kRaises, 7001, write},
                       {5, kRaises, 7001, write},
                       {6, kRaises, 7001, write},
                       {7, kRaises, 7001, write},
                       {8, kRaises, 7001, write},
                       {9, kRaises, 7001, write},
                       {10, kRaises, 7001, write},
                       {11, kRaises, 7001, write},
                       {12, kRaises, 7001, twice},
                   });
}

TEST_F(PersonListsTest, ConsentAndApprovalAloneAddALabelOfTheirOwnAndThatOfTheConsentNamesTheNeed) {
    const std::string list = " in LumoSeminar.LoadList";
    const struct {
        const char* member;
        Labels labels;
        std::function<void(clsWBPerson&)> run;
    } cases[] = {
        {"colWarteliste", {list}, [](clsWBPerson& p) { p.colWarteliste(); }},
        {"colInteressentenliste", {list}, [](clsWBPerson& p) { p.colInteressentenliste(); }},
        {"colWBBedarf", {" in LumoSeminar.LoadListe"}, [](clsWBPerson& p) { p.colWBBedarf(); }},
        {"BedarfErfassen", {" in LumoSeminar.IsInitialized"}, [](clsWBPerson& p) { p.BedarfErfassen(4, kUserID); }},
        {"TeilnahmeZustimmen",
         {list, " in LumoSeminar.BedarfZustimmen"},
         [](clsWBPerson& p) { p.TeilnahmeZustimmen(17, kUserID); }},
        {"TeilnahmePruefen",
         {" LumoSeminar062.clsTermin.PropertiesInit", " LumoSeminar062.clsSeminar.Teilnehmer"},
         [](clsWBPerson& p) { (void)p.TeilnahmePruefen(17); }},
        {"TeilnahmeGenehmigen",
         {list, " in LumoSeminar.TeilnahmeGenehmigen"},
         [](clsWBPerson& p) { (void)p.TeilnahmeGenehmigen(17, kUserID); }},
    };
    for (const auto& c : cases) {
        clsWBPerson person;
        const auto error = RaisedBy([&] { return c.run(person), 0; });
        ASSERT_TRUE(error) << c.member;
        EXPECT_EQ(error->Number(), 91) << c.member;
        EXPECT_EQ(LabelsOf(error), c.labels) << c.member;
    }
}

}  // namespace
}  // namespace LumoSeminar
