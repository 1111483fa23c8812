#include <LumoSeminar/needs/clsWBPerson.h>

#include <gtest/gtest.h>

#include <thread>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/frame/components.h>
#include <test_support/failures.h>
#include <test_support/participant_statements.h>
#include <test_support/person_statements.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace person_statements;
using LumoConnection::Script;
using participant_statements::FullRow;
using participant_statements::Labels;
using participant_statements::ScriptRecord;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;

using clsWBPersonTest = participant_statements::ParticipantTest;
using Keys = std::vector<Text>;
using History = Ref<Collection<clsTeilnehmer>>;

const Labels kLabelsOfHistory = {" in LumoSeminar.LoadWeiterbildungenPerson", " in LumoSeminar.colWeiterbildungen"};
const std::string kParticipant = " LumoSeminar062.clsTeilnehmer.";
const Variant kNull = Variant::Null();

Labels InHistory(Labels inner) {
    inner.insert(inner.end(), kLabelsOfHistory.begin(), kLabelsOfHistory.end());
    return inner;
}

/// The texts that load.
struct Name {
    Text (clsWBPerson::*get)();
    void (clsWBPerson::*let)(Text);
};
const Name kNames[] = {{&clsWBPerson::Vorname, &clsWBPerson::Vorname},
                       {&clsWBPerson::Nachname, &clsWBPerson::Nachname},
                       {&clsWBPerson::PersNr, &clsWBPerson::PersNr}};

void ExpectNames(clsWBPerson& person, const Text& surname, const Text& first_name, const Text& number) {
    EXPECT_EQ(person.Nachname(), surname);
    EXPECT_EQ(person.Vorname(), first_name);
    EXPECT_EQ(person.PersNr(), number);
}

Keys KeysOf(const History& history) {
    Keys keys;
    for (const auto& record : *history) keys.push_back(record->Key());
    return keys;
}

/// While it lives, the thread makes sessions of this script and counts them.
class Maker {
  public:
    explicit Maker(Script& script) {
        SetComponents({.data_session =
                           [this, &script] {
                               ++made_;
                               return script.Session();
                           },
                       .info_dispatcher = {},
                       .info_starter = {},
                       .session_defaults = {}});
    }
    ~Maker() { SetComponents({}); }
    Maker(const Maker&) = delete;
    Maker& operator=(const Maker&) = delete;

    int Made() const { return made_; }

  private:
    int made_ = 0;
};

// Init and the plain fields

TEST_F(clsWBPersonTest, ANewPersonIsNobodyAndSendsInfos) {
    clsWBPerson person;
    EXPECT_EQ(person.MDNR(), 0);
    EXPECT_EQ(person.PersonID(), 0);
    EXPECT_EQ(person.ModId(), 0);
    EXPECT_EQ(person.DoSendInfos(), true);
    EXPECT_EQ(person.PersGr(), "LA");
    EXPECT_EQ(person.ConnectionString(), "");
}

TEST_F(clsWBPersonTest, PlainFieldsKeepWhatIsLet) {
    Script script;
    const auto person = PersonOf(script.Session(), 2);
    person->MDNR(-2147483647 - 1);
    person->PersonID(2147483647);
    person->ModId(255);
    person->DoSendInfos(false);
    EXPECT_EQ(person->MDNR(), -2147483647 - 1);
    EXPECT_EQ(person->PersonID(), 2147483647);
    EXPECT_EQ(person->ModId(), 255);
    EXPECT_EQ(person->DoSendInfos(), false);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsWBPersonTest, InitBindsToTheSessionThatIsGivenReadsNothingAndIsFalse) {
    Script script;
    Script unasked;
    const Maker maker(unasked);
    Ref<DataSession> session = script.Session();
    auto person = New<clsWBPerson>();
    EXPECT_EQ(person->Init(5, 45, 3, session, "Provider=Embedded", "Käthe", "geheim"), false);
    EXPECT_EQ(person->MDNR(), 5);
    EXPECT_EQ(person->PersonID(), 45);
    EXPECT_EQ(person->ModId(), 3);
    EXPECT_EQ(session, script.Session());
    EXPECT_EQ(maker.Made(), 0);
    EXPECT_EQ(script.Report(), "") << "the connection arguments are not looked at";
    session.Reset();
    EXPECT_FALSE(script.SessionReleased());
    person.Reset();
    EXPECT_TRUE(script.SessionReleased());
}

TEST_F(clsWBPersonTest, InitWithoutASessionMakesAndConnectsOneWhichTheCallerHoldsAndIsFalse) {
    const struct {
        Text text, user, password;
    } cases[] = {{"Provider=Embedded;Data Source=Größe.db", "Käthe", "\"geheim\" 'x'"}, {"", "", ""}, {"text", "", "x"}};
    for (const auto& c : cases) {
        Script script;
        script.Connect(c.text, c.user, c.password, 30);
        ScriptLoad(script, SelectApplicant(45));
        const Maker maker(script);
        Ref<DataSession> session;
        const auto person = New<clsWBPerson>();
        EXPECT_EQ(person->Init(5, 45, 3, session, c.text, c.user, c.password), false);
        EXPECT_EQ(session, script.Session());
        EXPECT_EQ(maker.Made(), 1);
        EXPECT_EQ(person->Nachname(), "Löffler");
        EXPECT_EQ(script.Report(), "");
        const auto other = New<clsWBPerson>();
        EXPECT_EQ(other->Init(5, 46, 3, session, c.text, c.user, c.password), false);
        EXPECT_EQ(maker.Made(), 1) << "the variable holds one now";
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsWBPersonTest, InitWithoutASessionAndWithoutAConnectionTextKeepsTheNewSessionToItself) {
    Script script;
    script.Connect("", "", "", 30);
    ScriptLoad(script, SelectEmployee(5, 45));
    const Maker maker(script);
    auto person = New<clsWBPerson>();
    EXPECT_EQ(person->Init(5, 45, 2), false);
    EXPECT_EQ(person->Vorname(), "Käthe \"Kät\"");
    EXPECT_EQ(script.Report(), "");
    EXPECT_FALSE(script.SessionReleased());
    person.Reset();
    EXPECT_TRUE(script.SessionReleased());
}

TEST_F(clsWBPersonTest, ASessionThatCouldNotConnectShowsAtTheFirstStatement) {
    Script script;
    script.Connect("nirgends", "", "", 30).Refused("Es gibt keinen solchen Server.");
    script.OpenSelect(SelectEmployee(5, 45)).Refused("Die Sitzung ist nicht verbunden.");
    const Maker maker(script);
    Ref<DataSession> session;
    const auto person = New<clsWBPerson>();
    EXPECT_EQ(person->Init(5, 45, 2, session, "nirgends"), false);
    EXPECT_EQ(session, script.Session());
    EXPECT_EQ(person->PersonID(), 45);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    const auto error = RaisedBy([&] { return person->Nachname(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(), "in line: 0\r\nDie Sitzung ist nicht verbunden. in LumoSeminar.IsInitializedPerson");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsWBPersonTest, AConnectThatRaisesLeavesThePersonUnboundAndTheSessionWithTheCaller) {
    Script script;
    script.Connect("nirgends", "", "", 30).Raises(-2147467259, "Die Leitung ist tot.", "Treiber");
    const Maker maker(script);
    Ref<DataSession> session;
    const auto person = New<clsWBPerson>();
    const auto error = RaisedBy([&] { return person->Init(5, 45, 3, session, "nirgends"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -2147467259);
    EXPECT_EQ(error->Source(), "Treiber");
    EXPECT_EQ(error->Description(), "in line: 0\r\nDie Leitung ist tot. in LumoSeminar.Init");
    EXPECT_EQ(session, script.Session());
    EXPECT_EQ(person->MDNR(), 0);
    EXPECT_EQ(person->PersonID(), 0);
    EXPECT_EQ(person->ModId(), 0);
    EXPECT_RAISES(91, person->Nachname());
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsWBPersonTest, InitWithoutASessionAndWithoutAMakerRaises429) {
    SetComponents({});
    Ref<DataSession> session;
    const auto person = New<clsWBPerson>();
    for (const bool with_variable : {true, false}) {
        const auto error =
            RaisedBy([&] { return with_variable ? person->Init(5, 45, 2, session, "text") : person->Init(5, 45, 2); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), 429);
        EXPECT_EQ(error->Source(), "LumoSeminar");
        EXPECT_EQ(error->Description(),
                  "in line: 0\r\nThe component DataSession cannot be created: this thread has no maker for it."
                  " Call LumoConnection::Install or SetComponents in it first. in LumoSeminar.Init");
        EXPECT_FALSE(session);
        EXPECT_EQ(person->PersonID(), 0);
    }
}

TEST_F(clsWBPersonTest, TheKindIsToldByItsNumberAndEverythingElseReadsAsATemporaryWorkerWithoutAStatement) {
    Script script;
    for (const Kind& kind : Kinds()) {
        SCOPED_TRACE(int{kind.number});
        const auto person = PersonOf(script.Session(), kind.number);
        EXPECT_EQ(person->IsArbeitnehmer(), kind.number == 2);
        EXPECT_EQ(person->IsBewerber(), kind.number == 3);
        EXPECT_EQ(person->IsLeiharbeiter(), kind.number == 4);
        EXPECT_EQ(person->PersGr(), kind.letters);
    }
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsWBPersonTest, TheConnectionStringIsOneForAllObjectsOfTheThread) {
    const auto person = New<clsWBPerson>();
    person->ConnectionString("Data Source=Größe.db");
    EXPECT_EQ(New<clsWBPerson>()->ConnectionString(), "Data Source=Größe.db");
    EXPECT_EQ(common::State().g_strConnectionString, "Data Source=Größe.db");
    Text before;
    Text after;
    std::thread([&] {
        before = person->ConnectionString();
        person->ConnectionString("andere");
        after = New<clsWBPerson>()->ConnectionString();
    }).join();
    EXPECT_EQ(before, "");
    EXPECT_EQ(after, "andere");
    EXPECT_EQ(person->ConnectionString(), "Data Source=Größe.db");
    person->ConnectionString("");
    EXPECT_EQ(New<clsWBPerson>()->ConnectionString(), "");
}

// Names and number

TEST_F(clsWBPersonTest, NamesAndNumberAreReadInOneStatementByTheKind) {
    const struct {
        Byte kind;
        const char* statement;
        std::vector<Variant> row;
        Text number;
    } cases[] = {
        {2, "Select Name,Vorname,ANNR from Arbeitnehmer where MDNR = 5 AND ANNR = 45", {"Löffler", "Käthe", 45}, "45"},
        {3, "Select Nachname,Vornamem,BWNr from BW where BWID = 45", {"Löffler", "Käthe", "B-2010-\"ä\""}, "B-2010-\"ä\""},
        {4, "Select Name,Vorname,LID from LA where LID = 45", {"Löffler", "Käthe", -45}, "-45"},
        {0, "Select Name,Vorname,LID from LA where LID = 45", {"Löffler", "Käthe", 45}, "45"},
        {9, "Select Name,Vorname,LID from LA where LID = 45", {"Löffler", "Käthe", 45}, "45"},
    };
    for (const auto& c : cases) {
        for (const Name& first : kNames) {
            SCOPED_TRACE(c.statement);
            Script script;
            script.OpenSelect(c.statement).Rows({"Name", "Vorname", "Nummer"}, {c.row});
            script.CloseRows();
            const auto person = PersonOf(script.Session(), c.kind);
            EXPECT_NE(((*person).*first.get)(), "");
            ExpectNames(*person, "Löffler", "Käthe", c.number);
            EXPECT_EQ(script.RecordsetCalls(), 1);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST_F(clsWBPersonTest, KeysLetBeforeTheLoadCountAndKeysLetBehindItChangeNeitherNamesNorHistory) {
    Script script;
    ScriptLoad(script, SelectEmployee(6, 99));
    ScriptHistory(script, HistoryOfEmployee(6, 99), {7});
    const auto person = PersonOf(script.Session(), 3);
    person->MDNR(6);
    person->PersonID(99);
    person->ModId(2);
    EXPECT_EQ(person->Nachname(), "Löffler");
    EXPECT_EQ(person->colWeiterbildungen()->Count(), 1);
    person->MDNR(5);
    person->PersonID(45);
    person->ModId(3);
    ExpectNames(*person, "Löffler", "Käthe \"Kät\"", "B-2010-ä");
    EXPECT_EQ(person->colWeiterbildungen()->Count(), 1);
    EXPECT_EQ(person->PersGr(), "BW");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsWBPersonTest, ASecondInitBindsAnewAndKeepsNamesAndHistory) {
    Script first;
    Script second;
    ScriptLoad(first, SelectApplicant(45));
    ScriptHistory(first, HistoryOfApplicant(45), {7});
    const auto person = PersonOf(first.Session(), 3);
    EXPECT_EQ(person->Nachname(), "Löffler");
    EXPECT_EQ(person->colWeiterbildungen()->Count(), 1);
    Ref<DataSession> session = second.Session();
    EXPECT_EQ(person->Init(6, 99, 2, session), false);
    EXPECT_EQ(person->PersonID(), 99);
    EXPECT_EQ(person->PersGr(), "AN");
    EXPECT_EQ(person->Nachname(), "Löffler");
    EXPECT_EQ(person->colWeiterbildungen()->Count(), 1);
    EXPECT_EQ(first.Report() + second.Report(), "");
}

// The training history

TEST_F(clsWBPersonTest, TheHistoryIsListedByTheKindInOneStatementAndOneForEachEnrolment) {
    const struct {
        Byte kind;
        const char* statement;
    } cases[] = {
        {2,
         "Select TeilnehmerID,SemTerminID from Sem_Teilnehmer_IT WHERE MDNR = 5 AND ANNR =45"
         " Order by BeginnDatum, BegUhrzeit,EndeDatum,EndUhrzeit "},
        {3,
         "Select TeilnehmerID,SemTerminID from Sem_Teilnehmer_IT WHERE BWID = 45"
         " Order by BeginnDatum, BegUhrzeit,EndeDatum,EndUhrzeit "},
        {4,
         "Select TeilnehmerID,SemTerminID from Sem_Teilnehmer_IT WHERE LAID = 45"
         " Order by BeginnDatum, BegUhrzeit,EndeDatum,EndUhrzeit "},
        {0,
         "Select TeilnehmerID,SemTerminID from Sem_Teilnehmer_IT WHERE LAID = 45"
         " Order by BeginnDatum, BegUhrzeit,EndeDatum,EndUhrzeit "},
        {9,
         "Select TeilnehmerID,SemTerminID from Sem_Teilnehmer_IT WHERE LAID = 45"
         " Order by BeginnDatum, BegUhrzeit,EndeDatum,EndUhrzeit "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.statement);
        Script script;
        const auto history =
            script.OpenSelect(c.statement).Rows({"TeilnehmerID", "SemTerminID"}, {{12, 18}, {7, 19}, {8, 18}});
        for (const Int32 key : {12, 7, 8}) ScriptRecord(script, {FullRow()}, key);
        script.CloseRows(history);
        const auto person = PersonOf(script.Session(), c.kind);
        const auto list = person->colWeiterbildungen();
        EXPECT_EQ(list->Count(), 3);
        EXPECT_EQ(KeysOf(list), (Keys{"0000000012", "0000000007", "0000000008"})) << "in the order of the server";
        EXPECT_EQ(list->Item("0000000007"), list->Item(2));
        EXPECT_EQ(list->Item("0000000007")->SemTerminID(), 19);
        EXPECT_EQ(list->Item(3)->SemTerminID(), 18);
        for (const auto& record : *list) EXPECT_EQ(record->Bemerkung(), "vegetarisch: \"Gemüse\" & Nüsse");
        EXPECT_EQ(script.RecordsetCalls(), 4);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsWBPersonTest, TheHistoryIsMadeOnceAndKept) {
    Script script;
    ScriptHistory(script, HistoryOfApplicant(45), {7, 8});
    const auto person = PersonOf(script.Session(), 3);
    const auto list = person->colWeiterbildungen();
    EXPECT_EQ(person->colWeiterbildungen(), list);
    EXPECT_EQ(person->colWeiterbildungen()->Item(1), list->Item(1));
    list->Remove(1);
    EXPECT_EQ(KeysOf(person->colWeiterbildungen()), Keys{"0000000008"});
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsWBPersonTest, AnEmptyHistoryIsKeptToo) {
    Script script;
    ScriptHistory(script, HistoryOfWorker(45), {});
    const auto person = PersonOf(script.Session(), 4);
    EXPECT_EQ(person->colWeiterbildungen()->Count(), 0);
    EXPECT_EQ(person->colWeiterbildungen()->Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsWBPersonTest, EveryParticipantOfTheHistoryHasThePersonWhateverItsKeysSayAndReadsItsNamesOnce) {
    for (const Kind& kind : Kinds()) {
        Script script;
        ScriptHistory(script, kind.history, {7, 8});
        ScriptLoad(script, kind.select);
        const auto person = PersonOf(script.Session(), kind.number);
        for (const auto& record : *person->colWeiterbildungen()) {
            EXPECT_EQ(record->objWBPerson(), person);
            EXPECT_EQ(record->TNID(), 45);
            EXPECT_EQ(record->ANNr(), 123);
            EXPECT_EQ(record->PersGr(), kind.letters);
            EXPECT_EQ(record->NameVorname(), "Löffler, Käthe \"Kät\"");
            EXPECT_EQ(record->objWBPerson()->colWeiterbildungen(), person->colWeiterbildungen());
        }
        person->Vorname("Kät");
        EXPECT_EQ(person->colWeiterbildungen()->Item(2)->Vorname(), "Kät");
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsWBPersonTest, TheHistoryDoesNotTakeDoSendInfosOfThePerson) {
    Script script;
    ScriptHistory(script, HistoryOfApplicant(45), {7});
    const auto person = PersonOf(script.Session(), 3);
    person->DoSendInfos(false);
    EXPECT_EQ(person->colWeiterbildungen()->Item(1)->DoSendInfos(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsWBPersonTest, NullsInTheHistoryAreKeysOfZeroAndWithoutADateARecordIsBoundOnly) {
    Script script;
    const auto history = script.OpenSelect(HistoryOfApplicant(45)).Rows(kHistoryColumns, {{kNull, 17}, {7, kNull}, {8, 0}});
    participant_statements::ScriptNew(script);
    script.AdoConnection();
    script.AdoConnection();
    script.CloseRows(history);
    EXPECT_EQ(KeysOf(PersonOf(script.Session(), 3)->colWeiterbildungen()), (Keys{"0000000000", "0000000007", "0000000008"}));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsWBPersonTest, ARefusedHistoryRaises9999AndStaysAnEmptyListThatIsNotTriedAgain) {
    for (const Kind& kind : Kinds()) {
        Script script;
        script.OpenSelect(kind.history).Refused("Ungültiger Objektname.");
        const auto person = PersonOf(script.Session(), kind.number);
        const auto error = RaisedBy([&] { return person->colWeiterbildungen(); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), 9999);
        EXPECT_EQ(error->Source(), "LumoSeminar");
        EXPECT_EQ(error->Description(),
                  "in line: 0\r\nin line: 0\r\nUngültiger Objektname. in LumoSeminar.LoadWeiterbildungenPerson"
                  " in LumoSeminar.colWeiterbildungen");
        EXPECT_EQ(person->colWeiterbildungen()->Count(), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsWBPersonTest, AHistoryThatFailsHalfWayStaysAsFarAsItCameAndIsNotTriedAgain) {
    Script script;
    script.OpenSelect(HistoryOfApplicant(45)).Rows(kHistoryColumns, {{7, 17}, {8, 17}, {9, 17}});
    ScriptRecord(script);
    script.AdoConnection();
    script.OpenSelect(participant_statements::Select(8)).Raises(-1, "Die Leitung ist tot.", "Treiber");
    const auto person = PersonOf(script.Session(), 3);
    const auto error = RaisedBy([&] { return person->colWeiterbildungen(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -1);
    EXPECT_EQ(error->Source(), "Treiber");
    EXPECT_EQ(error->Description(),
              "in line: 0\r\nin line: 0\r\nDie Leitung ist tot.\r\n LumoSeminar062.clsTeilnehmer.PropertiesInit\r\n"
              " LumoSeminar062.clsTeilnehmer.MDNr -> Property LET\r\n LumoSeminar062.clsTeilnehmer.Init"
              " in LumoSeminar.LoadWeiterbildungenPerson in LumoSeminar.colWeiterbildungen");
    EXPECT_EQ(KeysOf(person->colWeiterbildungen()), Keys{"0000000007"});
    EXPECT_EQ(person->colWeiterbildungen()->Item(1)->objWBPerson(), person);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsWBPersonTest, ParticipantsThatFindTheConnectionClosedAreUnboundAndTheSecondRaises457) {
    Script script;
    script.OpenSelect(HistoryOfApplicant(45)).Rows(kHistoryColumns, {{7, 17}, {8, 17}});
    script.AdoConnection().Empty();
    script.AdoConnection().Empty();
    const auto person = PersonOf(script.Session(), 3);
    EXPECT_RAISES_UNDER(457, kLabelsOfHistory, person->colWeiterbildungen());
    EXPECT_EQ(KeysOf(person->colWeiterbildungen()), Keys{"0000000000"});
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsWBPersonTest, AKeyThatDoesNotFitRaisesUnderBothLabels) {
    const struct {
        std::vector<Variant> row;
        Int32 number;
    } cases[] = {{{"sieben", 17}, 13}, {{7, "siebzehn"}, 13}, {{2147483648.0, 17}, 6}};
    for (const auto& c : cases) {
        Script script;
        script.OpenSelect(HistoryOfApplicant(45)).Rows(kHistoryColumns, {c.row});
        const auto person = PersonOf(script.Session(), 3);
        EXPECT_RAISES_UNDER(c.number, kLabelsOfHistory, person->colWeiterbildungen()) << c.number;
        EXPECT_EQ(person->colWeiterbildungen()->Count(), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

// Failures

TEST_F(clsWBPersonTest, EveryFailureOfAHistoryIsSilentOrRaisesUnderItsLabels) {
    const std::string open = "Open of the connection";
    const std::string close = "Close of the rows of step 1";
    const std::string select = "OpenSelect: " + participant_statements::Select(8);
    const Labels record =
        InHistory({kParticipant + "PropertiesInit", kParticipant + "MDNr -> Property LET", kParticipant + "Init"});
    ExpectFailures(
        [](Script& script) {
            ScriptHistory(script, HistoryOfApplicant(45), {7, 8});
        },
        [](const Ref<DataSession>& session) { PersonOf(session, 3)->colWeiterbildungen(); },
        {{1, kNotOk, 9999, kLabelsOfHistory},
         {2, kNotOk, 0, {}, {open, "AdoConnection", select, close}},
         {3, kNotOk, 0, {}, {"AdoConnection", select, close}},
         {4, kNotOk, 0, {}, {open, close}},
         {5, kNotOk, 0, {}, {close}},
         {1, kRaises, 7001, kLabelsOfHistory},
         {2, kRaises, 7001, InHistory({kParticipant + "Init"})},
         {3, kRaises, 7001, record},
         {4, kRaises, 7001, InHistory({kParticipant + "Init"})},
         {5, kRaises, 7001, record},
         {6, kRaises, 7001, kLabelsOfHistory}});
}

TEST_F(clsWBPersonTest, EveryMemberWithAHandlerAddsItsOwnLabel) {
    SetComponents({});
    const struct {
        Labels labels;
        void (*run)(clsWBPerson&);
    } cases[] = {
        {{" in LumoSeminar.Init"}, [](clsWBPerson& p) { p.Init(5, 45, 2); }},
        {{" in LumoSeminar.IsInitializedPerson"}, [](clsWBPerson& p) { p.Vorname(); }},
        {{" in LumoSeminar.IsInitializedPerson"}, [](clsWBPerson& p) { p.Vorname("x"); }},
        {{" in LumoSeminar.IsInitializedPerson"}, [](clsWBPerson& p) { p.Nachname(); }},
        {{" in LumoSeminar.IsInitializedPerson"}, [](clsWBPerson& p) { p.Nachname("x"); }},
        {{" in LumoSeminar.IsInitializedPerson"}, [](clsWBPerson& p) { p.PersNr(); }},
        {{" in LumoSeminar.IsInitializedPerson"}, [](clsWBPerson& p) { p.PersNr("x"); }},
        {{" in LumoSeminar.LoadWeiterbildungenPerson", " in LumoSeminar.colWeiterbildungen"},
         [](clsWBPerson& p) { p.colWeiterbildungen(); }},
    };
    for (const auto& c : cases) {
        const auto error = RaisedBy([&] { return c.run(*New<clsWBPerson>()), 0; });
        EXPECT_EQ(LabelsOf(error), c.labels);
    }
}

}  // namespace
}  // namespace LumoSeminar
