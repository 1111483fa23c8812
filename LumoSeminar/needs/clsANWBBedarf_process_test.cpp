// A training need and its process: consent, rejection, rights, the state in words, and the one dispatcher of the thread.

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <test_support/failures.h>
#include <test_support/need_statements.h>
#include <test_support/process_calls.h>
#include <test_support/raises.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

using namespace need_statements;
using namespace process_calls;
using LumoConnection::Script;
using test_support::ExpectedFailure;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;
namespace entries = waitlist_statements;

using TrainingNeedProcessTest = ProcessTest;

constexpr Int32 kUserID = 11;
constexpr Int32 kDate = 17;
const std::string kPresent = "02.03.2010 17:45:09";
const std::string kWaits = entries::WhereEmployeeWaits(5, 123);

/// What the employee of the full row waits for.
void ScriptWaiting(Script& script, const entries::Rows& rows = {}) { entries::ScriptList(script, kWaits, rows); }

/// A new entry of the wait-list: its load, which finds none, and its insert.
void ScriptNewEntry(Script& script, int date = kDate) {
    entries::ScriptEntry(script, 0, {});
    entries::ScriptInsertForDate(script, 42, 5, 123, 1, date, kPresent);
}

/// A load, a new dispatcher and a consent.
void ScriptConsentOfNeed(Script& script, int status) {
    ScriptLoad(script);
    ScriptNewDispatcher(script, kTrainingNeed, 7, 5, 123);
    ScriptConsent(script, kUserID, status);
}

/// The delete of an entry that could not be bound to its date, as it stands among the calls.
const std::string kTakenBack =
    "ExecuteSql:  Delete Sem_WartelisteTermin_IT WHERE SemWarteListeID = 1\\r\\n Delete Sem_WartelisteSem_IT WHERE "
    "SemWarteListeID = 1\\r\\nDELETE Sem_Warteliste_IT WHERE SemWarteListeID = 1";

// Consent.

TEST_F(TrainingNeedProcessTest, OnceTheProcessIsApprovedTheEmployeeComesOnTheWaitListOfTheDate) {
    Script script;
    ScriptLoad(script);
    script.Process("New InfoDispatcher");
    script.Process("InfoDispatcher.ConnectionString '" + kConnectionText + "'");
    script.Process("InfoDispatcher.Initialisieren 7, 7, 5, 123");
    script.Process("InfoDispatcher.Zustimmen 11, ''");
    script.Process("InfoDispatcher.ProzessStatus").Gives(2);
    ScriptWaiting(script);
    entries::ScriptEntry(script, 0, {});
    entries::ScriptLogin(script);
    entries::ScriptLargestKey(script, 41);
    script.ExecuteSql(
        "INSERT INTO Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID,ErfDat, Herkunft,Wunschtermin,Status,"
        "GeaendertAm,GeaendertVon)  Values (42,2,5,123,'02.03.2010 17:45:09',1,Null,-1,'02.03.2010 17:45:09',"
        "'Jörg \"Jo\" Ähre')");
    script.ExecuteSql("Insert Into Sem_WartelisteTermin_IT (SemWarteListeID, SemTerminID) values (42,17)");
    Install(script.Session());
    const auto need = Bound(script.Session());
    EXPECT_EQ(need->TeilnahmeZustimmen(kDate, kUserID), Variant(true));
    ExpectValues(*need, &Property::full);
    EXPECT_EQ(script.Report(), "") << "no process is opened for the entry, and the need stays as it is";
}

TEST_F(TrainingNeedProcessTest, AnyOtherStateOfTheProcessEndsAConsentWithEmpty) {
    for (const int status : {0, 1, 3, 4, -2, 2147483647}) {
        Script script;
        ScriptConsentOfNeed(script, status);
        Install(script.Session());
        const auto need = Bound(script.Session());
        EXPECT_TRUE(need->TeilnahmeZustimmen(kDate, kUserID).IsEmpty()) << status;
        ExpectValues(*need, &Property::full);
        EXPECT_EQ(script.Report(), "") << status;
    }
}

TEST_F(TrainingNeedProcessTest, AnEntryForTheDateThatIsThereIsLeftAloneAndTheResultIsEmpty) {
    for (const Int32 status : {-1, 0}) {
        Script script;
        ScriptConsentOfNeed(script, 2);
        auto row = entries::RowOfDate(41, kDate);
        row[9] = status;
        ScriptWaiting(script, {entries::RowOfDate(40, 16), row});
        Install(script.Session());
        EXPECT_TRUE(Bound(script.Session())->TeilnahmeZustimmen(kDate, kUserID).IsEmpty());
        EXPECT_EQ(script.Report(), "") << "whether it stands or was withdrawn";
    }
}

TEST_F(TrainingNeedProcessTest, EntriesForOtherDatesDoNotCount) {
    Script script;
    ScriptConsentOfNeed(script, 2);
    ScriptWaiting(script, {entries::RowOfDate(39, 16), entries::RowOfDate(40, 18)});
    ScriptNewEntry(script);
    Install(script.Session());
    EXPECT_EQ(Bound(script.Session())->TeilnahmeZustimmen(kDate, kUserID), Variant(true));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(TrainingNeedProcessTest, WithoutADateNothingIsWrittenAndTheResultIsEmpty) {
    Script script;
    ScriptConsentOfNeed(script, 2);
    ScriptWaiting(script);
    entries::ScriptEntry(script, 0, {});
    entries::ScriptLogin(script);
    Install(script.Session());
    EXPECT_TRUE(Bound(script.Session())->TeilnahmeZustimmen(0, kUserID).IsEmpty());
    EXPECT_EQ(script.Report(), "");
}

TEST_F(TrainingNeedProcessTest, AConsentActsForClientAndEmployeeAsTheObjectHasThem) {
    Script script;
    ScriptLoad(script);
    ScriptNewDispatcher(script, kTrainingNeed, 7, 6, 99);
    ScriptConsent(script, kUserID, 2);
    entries::ScriptList(script, entries::WhereEmployeeWaits(6, 99));
    entries::ScriptEntry(script, 0, {});
    entries::ScriptInsertForDate(script, 42, 6, 99, 1, kDate, kPresent);
    Install(script.Session());
    const auto need = Bound(script.Session());
    need->MDNR(6);
    need->ANNr(99);
    EXPECT_EQ(need->TeilnahmeZustimmen(kDate, kUserID), Variant(true));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(TrainingNeedProcessTest, EveryFailureOfAConsentRaisesUnderItsLabels) {
    const Labels consent = {kLabelOfConsent};
    const Labels load = {kLabelOfLoad, kLabelOfConsent};
    const Labels list = {" in LumoSeminar.LoadList", kLabelOfConsent};
    const Labels write = {kLabelOfWrite, kLabelOfConsent};
    const auto write_script = [](Script& script) {
        ScriptConsentOfNeed(script, 2);
        ScriptWaiting(script);
        entries::ScriptEntry(script, 0, {});
        entries::ScriptLogin(script, Variant::Null());
        entries::ScriptLargestKey(script, Variant::Null());
        script.ExecuteSql(entries::Insert("1,2,5,123,'" + kPresent + "',1,Null,-1,'" + kPresent + "',''"));
        script.ExecuteSql(entries::BindToDate(1, kDate));
    };
    std::vector<ExpectedFailure> expected = {
        {1, kNotOk, 9999, load},
        {8, kNotOk, 9999, list},
        {10, kNotOk, 9999, load},
        {12, kNotOk, 0, {}, StepsBehind(12, write_script)},
        {13, kNotOk, 0, {}, StepsBehind(13, write_script)},
        {14, kNotOk, 9999, write},
        // The entry is taken back, which is refused in turn.
        {15, kNotOk, 9999, {kLabelOfDelete, kLabelOfWrite, kLabelOfConsent}, {kTakenBack}},
    };
    const std::vector<Labels> labels = {load, load, consent, consent, consent, consent, consent, list,
                                        list, load, load,    write,   write,   write,   write};
    for (int step = 1; step <= 15; ++step) {
        expected.push_back({step, kRaises, 7001, labels[static_cast<std::size_t>(step - 1)]});
    }
    ExpectFailures(
        write_script,
        [](const Ref<DataSession>& session) {
            Install(session);
            Bound(session)->TeilnahmeZustimmen(kDate, kUserID);
        },
        expected);
}

// Rejection.

TEST_F(TrainingNeedProcessTest, OnceTheProcessIsRejectedTheNeedIsSettledAndStoredAndTheResultIsFalseAllTheSame) {
    Script script;
    ScriptLoad(script);
    ScriptNewDispatcher(script, kTrainingNeed, 7, 5, 123);
    script.Process("InfoDispatcher.Ablehnen 11, ''");
    script.Process("InfoDispatcher.ProzessStatus").Gives(3);
    script.ExecuteSql(
        "Update AN_WBBedarf_IT Set Erford = '01.06.2010', Erfuellt = '02.03.2010', BedarfErfuellt = 2, "
        "Bemerkungen = 'für die \"große\" Halle & später', WBS = 4 WHERE WBID = 7");
    Install(script.Session());
    const auto need = Bound(script.Session());
    EXPECT_EQ(need->BedarfAblehnen(kUserID), false);
    EXPECT_EQ(need->BedarfErfuellt(), 2);
    EXPECT_EQ(need->Erfuellt(), kNow);
    EXPECT_EQ(script.Report(), "") << "neither is a process opened nor dropped";
}

TEST_F(TrainingNeedProcessTest, AnyOtherStateOfTheProcessLeavesARejectedNeedUnchanged) {
    for (const int status : {0, 1, 2, 4, -3}) {
        Script script;
        ScriptLoad(script);
        ScriptNewDispatcher(script, kTrainingNeed, 7, 5, 123);
        ScriptRejection(script, kUserID, status);
        Install(script.Session());
        const auto need = Bound(script.Session());
        EXPECT_EQ(need->BedarfAblehnen(kUserID), false);
        ExpectValues(*need, &Property::full);
        EXPECT_EQ(script.Report(), "") << status;
    }
}

TEST_F(TrainingNeedProcessTest, ANeedCanBeRejectedWhateverItsStatus) {
    for (const Int32 stored : {0, -1, 2}) {
        Script script;
        auto row = FullRow();
        row[8] = stored;
        ScriptLoad(script, {row});
        ScriptNewDispatcher(script, kTrainingNeed, 7, 5, 123);
        ScriptRejection(script, kUserID, 3);
        script.ExecuteSql(
            Update("Erford = '01.06.2010', Erfuellt = '02.03.2010', BedarfErfuellt = 2, Bemerkungen = 'für die \"große\" "
                   "Halle & später', WBS = 4"));
        Install(script.Session());
        EXPECT_EQ(Bound(script.Session())->BedarfAblehnen(kUserID), false);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(TrainingNeedProcessTest, EveryFailureOfARejectionRaisesWithTheLabelsFromBelowAndNoneOfItsOwn) {
    const Labels load = {kLabelOfLoad};
    const Labels write = {kLabelOfWrite};
    ExpectFailures(
        [](Script& script) {
            ScriptLoad(script, {});
            ScriptNewDispatcher(script, kTrainingNeed, 7, 0, 0);
            ScriptRejection(script, kUserID, 3);
            script.ExecuteSql(Update("Erford = Null, Erfuellt = '02.03.2010', BedarfErfuellt = 2, Bemerkungen = Null, WBS = 0"));
        },
        [](const Ref<DataSession>& session) {
            Install(session);
            Bound(session)->BedarfAblehnen(kUserID);
        },
        {{1, kNotOk, 9999, load},
         {8, kNotOk, 9999, write},
         {1, kRaises, 7001, load},
         {2, kRaises, 7001, load},
         {3, kRaises, 7001},
         {4, kRaises, 7001},
         {5, kRaises, 7001},
         {6, kRaises, 7001},
         {7, kRaises, 7001},
         {8, kRaises, 7001, write}});
}

// Rights and the state in words.

TEST_F(TrainingNeedProcessTest, RightsAndTheStateInWordsAreThoseOfTheProcess) {
    Script script;
    ScriptLoad(script);
    ScriptNewDispatcher(script, kTrainingNeed, 7, 5, 123);
    script.Process("InfoDispatcher.BenutzerHatRechte 11").Gives(true);
    ScriptCachedDispatcher(script);
    script.Process("InfoDispatcher.BenutzerHatRechte 12");
    ScriptCachedDispatcher(script);
    script.Process("InfoDispatcher.ProzessStatusText").Gives("Stufe 1: \"Vorgesetzte\" & Käthe's");
    ScriptCachedDispatcher(script);
    script.Process("InfoDispatcher.ProzessStatusText");
    Install(script.Session());
    const auto need = Bound(script.Session());
    EXPECT_EQ(need->BenutzerHatGenehmigungsrechte(11), true);
    EXPECT_EQ(need->BenutzerHatGenehmigungsrechte(12), false);
    EXPECT_EQ(need->StatusText(), "Stufe 1: \"Vorgesetzte\" & Käthe's");
    EXPECT_EQ(need->StatusText(), "");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(TrainingNeedProcessTest, NoStepAsksForRights) {
    Script script;
    ScriptConsentOfNeed(script, 1);
    ScriptCachedDispatcher(script);
    ScriptRejection(script, 4711, 1);
    Install(script.Session());
    const auto need = Bound(script.Session());
    EXPECT_TRUE(need->TeilnahmeZustimmen(kDate, kUserID).IsEmpty());
    EXPECT_EQ(need->BedarfAblehnen(4711), false);
    EXPECT_EQ(script.Report(), "") << "the user goes to the dispatcher, which judges";
}

TEST_F(TrainingNeedProcessTest, EveryFailureOfRightsAndStateRaisesWithoutALabelOfItsOwn) {
    for (const bool rights : {true, false}) {
        ExpectFailures(
            [&](Script& script) {
                ScriptLoad(script, {});
                ScriptNewDispatcher(script, kTrainingNeed, 7, 0, 0, Connected::kByDefaults);
                script.Process(rights ? "InfoDispatcher.BenutzerHatRechte 11" : "InfoDispatcher.ProzessStatusText");
            },
            [&](const Ref<DataSession>& session) {
                Install(session, "");
                if (rights) (void)Bound(session)->BenutzerHatGenehmigungsrechte(kUserID);
                if (!rights) Bound(session)->StatusText();
            },
            {{1, kNotOk, 9999, {kLabelOfLoad}},
             {1, kRaises, 7001, {kLabelOfLoad}},
             {2, kRaises, 7001, {kLabelOfLoad}},
             {3, kRaises, 7001},
             {4, kRaises, 7001},
             {5, kRaises, 7001},
             {6, kRaises, 7001},
             {7, kRaises, 7001},
             {8, kRaises, 7001},
             {9, kRaises, 7001}});
    }
}

// The one dispatcher of the thread.

/// The operations of a need that work on its process; each is answered so that it does nothing further.
struct Operation {
    const char* name;
    void (*script)(Script&);
    void (*run)(clsANWBBedarf&);
};

const Operation kOperations[] = {
    {"TeilnahmeZustimmen", [](Script& s) { ScriptConsent(s, kUserID, 1); },
     [](clsANWBBedarf& need) { need.TeilnahmeZustimmen(kDate, kUserID); }},
    {"BedarfAblehnen", [](Script& s) { ScriptRejection(s, kUserID, 1); },
     [](clsANWBBedarf& need) { need.BedarfAblehnen(kUserID); }},
    {"BenutzerHatGenehmigungsrechte", [](Script& s) { s.Process("InfoDispatcher.BenutzerHatRechte 11"); },
     [](clsANWBBedarf& need) { (void)need.BenutzerHatGenehmigungsrechte(kUserID); }},
    {"StatusText", [](Script& s) { s.Process("InfoDispatcher.ProzessStatusText"); },
     [](clsANWBBedarf& need) { need.StatusText(); }},
    {"DeleteFromDatabase", [](Script& s) { s.Process("InfoDispatcher.Loeschen"); },
     [](clsANWBBedarf& need) { need.DeleteFromDatabase(); }},
};

/// A delete runs its statement before it asks for the dispatcher.
void ScriptDeleteFirst(Script& script, const Operation& operation, int key) {
    if (operation.name == std::string("DeleteFromDatabase")) script.ExecuteSql(Delete(key));
}

/// A need that was read.
Ref<clsANWBBedarf> Loaded(const Ref<DataSession>& session, Int32 key) {
    auto need = Bound(session, key);
    EXPECT_EQ(need->WBS(), 4);
    return need;
}

TEST_F(TrainingNeedProcessTest, EveryOperationKeepsTheDispatcherOfItsNeedAndBindsOneOfAnotherKeyAnew) {
    for (const Operation& operation : kOperations) {
        SCOPED_TRACE(operation.name);
        Script script;
        Install(script.Session());
        ScriptLoad(script);
        const auto need = Loaded(script.Session(), 7);
        ScriptLoad(script, {FullRow(8)}, 8);
        const auto other = Loaded(script.Session(), 8);

        ScriptDeleteFirst(script, operation, 7);
        ScriptNewDispatcher(script, kTrainingNeed, 7, 5, 123);
        operation.script(script);
        operation.run(*need);

        ScriptDeleteFirst(script, operation, 7);
        ScriptCachedDispatcher(script);
        operation.script(script);
        operation.run(*need);

        ScriptDeleteFirst(script, operation, 8);
        ScriptReboundDispatcher(script, kTrainingNeed, 8, 5, 123);
        operation.script(script);
        operation.run(*other);

        ScriptDeleteFirst(script, operation, 7);
        ScriptReboundDispatcher(script, kTrainingNeed, 7, 5, 123);
        operation.script(script);
        operation.run(*need);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(TrainingNeedProcessTest, ADispatcherOfTheOtherModuleWithTheSameKeyIsBoundAnew) {
    for (const Operation& operation : kOperations) {
        SCOPED_TRACE(operation.name);
        Script script;
        Install(script.Session());
        ScriptNewDispatcher(script, kWaitList, 7, 5, 45);
        common::GetInfoDispatcher(kWaitList, 7, 5, 45);
        ScriptLoad(script);
        const auto need = Loaded(script.Session(), 7);
        ScriptDeleteFirst(script, operation, 7);
        ScriptReboundDispatcher(script, kTrainingNeed, 7, 5, 123);
        operation.script(script);
        operation.run(*need);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(TrainingNeedProcessTest, AnotherEmployeeAloneDoesNotBindTheDispatcherAnew) {
    Script script;
    Install(script.Session());
    ScriptLoad(script);
    const auto need = Loaded(script.Session(), 7);
    ScriptNewDispatcher(script, kTrainingNeed, 7, 5, 123);
    script.Process("InfoDispatcher.ProzessStatusText");
    ScriptCachedDispatcher(script);
    script.Process("InfoDispatcher.ProzessStatusText");
    EXPECT_EQ(need->StatusText(), "");
    need->MDNR(6);
    need->ANNr(99);
    EXPECT_EQ(need->StatusText(), "");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(TrainingNeedProcessTest, WhatTheDispatcherSaysItIsBoundToDecides) {
    Script script;
    Install(script.Session());
    ScriptLoad(script);
    const auto need = Loaded(script.Session(), 7);
    ScriptNewDispatcher(script, kTrainingNeed, 7, 5, 123);
    script.Process("InfoDispatcher.ProzessStatusText");
    EXPECT_EQ(need->StatusText(), "");
    for (const auto& [module_number, key] : {std::pair{8, 7}, {7, 8}, {0, 0}}) {
        script.Process("InfoDispatcher.ModulNr").Gives(module_number);
        script.Process("InfoDispatcher.SchluesselID").Gives(key);
        ScriptNewDispatcher(script, kTrainingNeed, 7, 5, 123);
        script.Process("InfoDispatcher.ProzessStatusText").Gives("gebunden");
        EXPECT_EQ(need->StatusText(), "gebunden");
    }
    EXPECT_EQ(script.Report(), "");
}

TEST_F(TrainingNeedProcessTest, ANewDispatcherIsConnectedByTheTextOrElseByTheSessionDefaultsWhichAreMadeOnce) {
    Script script;
    Install(script.Session(), "");
    ScriptLoad(script);
    const auto need = Loaded(script.Session(), 7);
    ScriptNewDispatcher(script, kTrainingNeed, 7, 5, 123, Connected::kByDefaults);
    script.Process("InfoDispatcher.ProzessStatusText");
    need->StatusText();
    need->WBID(8);
    ScriptReboundDispatcher(script, kTrainingNeed, 8, 5, 123, Connected::kByKeptDefaults);
    script.Process("InfoDispatcher.ProzessStatusText");
    need->StatusText();
    need->WBID(9);
    need->ConnectionString(kConnectionText);
    ScriptReboundDispatcher(script, kTrainingNeed, 9, 5, 123, Connected::kByText);
    script.Process("InfoDispatcher.ProzessStatusText");
    need->StatusText();
    EXPECT_EQ(script.Report(), "");
}

TEST_F(TrainingNeedProcessTest, ADispatcherThatCouldNotBeBoundStaysAndIsAskedWhatItIsBoundTo) {
    Script script;
    Install(script.Session());
    ScriptLoad(script);
    const auto need = Loaded(script.Session(), 7);
    script.Process("New InfoDispatcher");
    script.Process("InfoDispatcher.ConnectionString '" + kConnectionText + "'").Raises(-1, "Keine Verbindung.", "COM");
    ScriptReboundDispatcher(script, kTrainingNeed, 7, 5, 123);
    script.Process("InfoDispatcher.ProzessStatusText").Gives("doch noch");
    const auto error = RaisedBy([&] { return need->StatusText(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -1);
    EXPECT_EQ(error->Source(), "COM");
    EXPECT_EQ(error->Description(), "Keine Verbindung.") << "neither the dispatcher nor the state has a label";
    EXPECT_EQ(need->StatusText(), "doch noch");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(TrainingNeedProcessTest, WithoutAMakerOfDispatchersEveryOperationRaises429) {
    for (const Operation& operation : kOperations) {
        SCOPED_TRACE(operation.name);
        Script script;
        ScriptLoad(script);
        ScriptDeleteFirst(script, operation, 7);
        const auto need = Loaded(script.Session(), 7);
        EXPECT_RAISES(429, operation.run(*need));
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(TrainingNeedProcessTest, OnlyTheLoadTheWritesAndTheConsentHaveLabels) {
    const struct {
        const char* member;
        Labels labels;
        std::function<void(clsANWBBedarf&)> run;
    } cases[] = {
        {"WBS", {kLabelOfLoad}, [](clsANWBBedarf& n) { n.WBS(); }},
        {"WriteToDatabase", {kLabelOfLoad, kLabelOfWrite}, [](clsANWBBedarf& n) { n.WriteToDatabase(kUserID); }},
        {"DeleteFromDatabase", {kLabelOfDelete}, [](clsANWBBedarf& n) { n.DeleteFromDatabase(); }},
        {"TeilnahmeZustimmen",
         {kLabelOfLoad, " in LumoSeminar.BedarfZustimmen"},
         [](clsANWBBedarf& n) { n.TeilnahmeZustimmen(kDate, kUserID); }},
        {"BedarfAblehnen", {kLabelOfLoad}, [](clsANWBBedarf& n) { n.BedarfAblehnen(kUserID); }},
        {"BenutzerHatGenehmigungsrechte",
         {kLabelOfLoad},
         [](clsANWBBedarf& n) { (void)n.BenutzerHatGenehmigungsrechte(kUserID); }},
        {"StatusText", {kLabelOfLoad}, [](clsANWBBedarf& n) { n.StatusText(); }},
    };
    for (const auto& c : cases) {
        clsANWBBedarf need;
        need.Init(7, {});
        const auto error = RaisedBy([&] { return c.run(need), 0; });
        ASSERT_TRUE(error) << c.member;
        EXPECT_EQ(error->Number(), 91) << c.member;
        EXPECT_EQ(LabelsOf(error), c.labels) << c.member;
    }
}

}  // namespace
}  // namespace LumoSeminar
