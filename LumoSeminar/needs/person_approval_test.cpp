// Consent for a person, and the check of an enrolment.

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/error_list.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
#include <test_support/check_statements.h>
#include <test_support/failures.h>
#include <test_support/need_statements.h>
#include <test_support/person_statements.h>
#include <test_support/process_calls.h>
#include <test_support/raises.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

using namespace process_calls;
using LumoConnection::Script;
using need_statements::kLabelOfConsent;
using need_statements::kLabelOfDelete;
using need_statements::kLabelOfLoad;
using need_statements::kLabelOfWrite;
using need_statements::Labels;
using person_statements::PersonOf;
using test_support::ExpectedFailure;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;
namespace checks = check_statements;
namespace entries = waitlist_statements;
namespace participants = participant_statements;

using PersonConsentTest = ProcessTest;
using PersonCheckTest = ProcessTest;

constexpr Int32 kUserID = 11;
constexpr Int32 kDate = 17;
constexpr Byte kEmployee = 2;
constexpr Byte kKinds[] = {2, 3, 4, 0, 9};
const std::string kPresent = "02.03.2010 17:45:09";
const std::string kWaits = entries::WhereEmployeeWaits(5, 45);

// Consent.

TEST_F(PersonConsentTest, WithoutAnEntryANewOneIsWrittenAndItsProcessOpenedAsAnEmployeesWhateverKindThePersonIs) {
    for (const Byte kind : kKinds) {
        Script script;
        script.OpenSelect(entries::SelectList(kWaits)).Rows(entries::kColumns);
        script.CloseRows();
        entries::ScriptEntry(script, 0, {});
        script.LookupValue("System_User", "opactMD", "").Gives(entries::kLogin);
        script.LookupValue("max(SemWartelisteID)", "Sem_Warteliste_IT", "").Gives(41);
        script.ExecuteSql(
            "INSERT INTO Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID,ErfDat, Herkunft,Wunschtermin,Status,"
            "GeaendertAm,GeaendertVon)  Values (42,2,5,45,'02.03.2010 17:45:09',4,Null,-1,'02.03.2010 17:45:09',"
            "'Jörg \"Jo\" Ähre')");
        script.ExecuteSql("Insert Into Sem_WartelisteTermin_IT (SemWarteListeID, SemTerminID) values (42,17)");
        script.Process("New InfoStarter");
        script.Process("InfoStarter.ConnectionString '" + kConnectionText + "'");
        script.Process("InfoStarter.Starten 8, 42, 11");
        Install(script.Session());
        const auto person = PersonOf(script.Session(), kind);
        EXPECT_EQ(person->TeilnahmeZustimmen(kDate, kUserID), Variant(true));
        EXPECT_EQ(script.LastErrorTextCalls(), 0);
        EXPECT_EQ(script.Report(), "") << int{kind};
    }
}

TEST_F(PersonConsentTest, TheOriginIsFourForOneThatComesFromElsewhereAndThreeOtherwise) {
    for (const bool used : {true, false}) {
        Script script;
        entries::ScriptList(script, kWaits);
        entries::ScriptEntry(script, 0, {});
        entries::ScriptInsertForDate(script, 42, 5, 45, used ? 4 : 3, kDate, kPresent);
        ScriptStart(script, kWaitList, 42, kUserID);
        Install(script.Session());
        EXPECT_EQ(PersonOf(script.Session(), kEmployee)->TeilnahmeZustimmen(kDate, kUserID, used), Variant(true));
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(PersonConsentTest, AnEntryForTheDateGetsItsConsentAgainAndNoProcess) {
    for (const Variant& stored : {Variant(Int16{-1}), Variant(Int16{0}), Variant::Null()}) {
        for (const bool infos : {true, false}) {
            Script script;
            auto row = entries::RowOfDate(40, kDate);
            row[9] = stored;
            entries::ScriptList(script, kWaits, {entries::RowOfDate(39, 16), row});
            entries::ScriptLogin(script, "Käthe");
            script.ExecuteSql(
                " UPDATE Sem_Warteliste_IT Set Wunschtermin = Null, Status = -1, GeaendertAm = '02.03.2010 17:45:09', "
                "GeaendertVon = 'Käthe' WHERE SemWarteListeID = 40");
            Install(script.Session());
            const auto person = PersonOf(script.Session(), kEmployee);
            person->DoSendInfos(infos);
            EXPECT_EQ(person->TeilnahmeZustimmen(kDate, kUserID), Variant(true));
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST_F(PersonConsentTest, OfTwoEntriesForTheDateTheOlderOneIsTaken) {
    Script script;
    auto older = entries::RowOfDate(43, kDate);
    older[6] = DateTime::Of(2010, 4, 1);
    entries::ScriptList(script, kWaits, {older, entries::RowOfDate(40, kDate)});
    entries::ScriptLogin(script);
    script.ExecuteSql(entries::Update(43, "'01.04.2010'", -1, kPresent, entries::kLogin));
    Install(script.Session());
    EXPECT_EQ(PersonOf(script.Session(), kEmployee)->TeilnahmeZustimmen(kDate, kUserID), Variant(true));
    EXPECT_EQ(script.Report(), "") << "the list is in the order of ErfDat";
}

TEST_F(PersonConsentTest, AnApplicantIsLookedForAmongTheEmployees) {
    Script script;
    entries::ScriptList(script, kWaits, {entries::RowOfDate(40, kDate)});
    entries::ScriptLogin(script);
    script.ExecuteSql(entries::Update(40, "Null", -1, kPresent, entries::kLogin));
    Install(script.Session());
    EXPECT_EQ(PersonOf(script.Session(), 3)->TeilnahmeZustimmen(kDate, kUserID), Variant(true));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonConsentTest, WithoutADateNothingIsWrittenAProcessOfKeyZeroIsStartedAndTheResultIsEmpty) {
    Script script;
    entries::ScriptList(script, kWaits);
    entries::ScriptEntry(script, 0, {});
    entries::ScriptLogin(script);
    ScriptStart(script, kWaitList, 0, kUserID);
    Install(script.Session());
    EXPECT_TRUE(PersonOf(script.Session(), kEmployee)->TeilnahmeZustimmen(0, kUserID).IsEmpty());
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonConsentTest, AListOfThePersonThatWasMadeBeforeDoesNotShowTheEntryAndIsNotLookedAt) {
    Script script;
    entries::ScriptList(script, kWaits, {entries::RowOfDate(40, kDate)});
    entries::ScriptList(script, kWaits);
    entries::ScriptEntry(script, 0, {});
    entries::ScriptInsertForDate(script, 42, 5, 45, 4, kDate, kPresent);
    ScriptStart(script, kWaitList, 42, kUserID);
    Install(script.Session());
    const auto person = PersonOf(script.Session(), kEmployee);
    EXPECT_EQ(person->colWarteliste()->Count(), 1);
    EXPECT_EQ(person->TeilnahmeZustimmen(kDate, kUserID), Variant(true));
    EXPECT_EQ(person->colWarteliste()->Count(), 1);
    EXPECT_EQ(person->colWarteliste()->Item(1)->SemWartelisteID(), 40);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonConsentTest, TheStarterIsConnectedByTheTextOrElseByTheSessionDefaultsWhichAreMadeOnce) {
    Script script;
    Install(script.Session(), "");
    const auto person = PersonOf(script.Session(), kEmployee);
    for (const Connected connected : {Connected::kByDefaults, Connected::kByKeptDefaults, Connected::kByText}) {
        entries::ScriptList(script, kWaits);
        entries::ScriptEntry(script, 0, {});
        entries::ScriptInsertForDate(script, 42, 5, 45, 4, kDate, kPresent);
        ScriptStart(script, kWaitList, 42, kUserID, connected);
        if (connected == Connected::kByText) person->ConnectionString(kConnectionText);
        EXPECT_EQ(person->TeilnahmeZustimmen(kDate, kUserID), Variant(true));
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(PersonConsentTest, AStartThatRaisesLeavesTheEntry) {
    Script script;
    entries::ScriptList(script, kWaits);
    entries::ScriptEntry(script, 0, {});
    entries::ScriptInsertForDate(script, 42, 5, 45, 4, kDate, kPresent);
    script.Process("New InfoStarter");
    ScriptConnection(script, "InfoStarter", Connected::kByText);
    script.Process("InfoStarter.Starten 8, 42, 11").Raises(-2147467259, "Keine Verbindung.", "InfoStarter");
    Install(script.Session());
    const auto error = RaisedBy([&] { return PersonOf(script.Session(), kEmployee)->TeilnahmeZustimmen(kDate, kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -2147467259);
    EXPECT_EQ(error->Source(), "InfoStarter");
    EXPECT_EQ(error->Description(), "in line: 0\r\nKeine Verbindung. in LumoSeminar.BedarfZustimmen");
    EXPECT_EQ(script.Report(), "") << "nothing is taken back";
}

TEST_F(PersonConsentTest, EveryFailureWithANewEntryRaisesUnderTheLabelOfTheNeed) {
    const Labels consent = {kLabelOfConsent};
    const Labels list = {" in LumoSeminar.LoadList", kLabelOfConsent};
    const Labels load = {kLabelOfLoad, kLabelOfConsent};
    const Labels write = {kLabelOfWrite, kLabelOfConsent};
    const auto write_script = [](Script& script) {
        entries::ScriptList(script, kWaits);
        entries::ScriptEntry(script, 0, {});
        entries::ScriptLogin(script, Variant::Null());
        entries::ScriptLargestKey(script, Variant::Null());
        script.ExecuteSql(entries::Insert("1,2,5,45,'" + kPresent + "',4,Null,-1,'" + kPresent + "',''"));
        script.ExecuteSql(entries::BindToDate(1, kDate));
        ScriptStart(script, kWaitList, 1, kUserID, Connected::kByDefaults);
    };
    std::vector<ExpectedFailure> expected = {
        {1, kNotOk, 9999, list},
        {3, kNotOk, 9999, load},
        {5, kNotOk, 0, {}, StepsBehind(5, write_script)},
        {6, kNotOk, 0, {}, StepsBehind(6, write_script)},
        {7, kNotOk, 9999, write},
        // The entry is taken back, which is refused in turn.
        {8,
         kNotOk,
         9999,
         {kLabelOfDelete, kLabelOfWrite, kLabelOfConsent},
         {"ExecuteSql:  Delete Sem_WartelisteTermin_IT WHERE SemWarteListeID = 1\\r\\n Delete Sem_WartelisteSem_IT WHERE "
          "SemWarteListeID = 1\\r\\nDELETE Sem_Warteliste_IT WHERE SemWarteListeID = 1"}},
    };
    const std::vector<Labels> labels = {list,  list,    load,    load,    write,   write,   write,
                                        write, consent, consent, consent, consent, consent, consent};
    for (int step = 1; step <= 14; ++step) {
        expected.push_back({step, kRaises, 7001, labels[static_cast<std::size_t>(step - 1)]});
    }
    ExpectFailures(
        write_script,
        [](const Ref<DataSession>& session) {
            Install(session, "");
            PersonOf(session, kEmployee)->TeilnahmeZustimmen(kDate, kUserID);
        },
        expected);
}

TEST_F(PersonConsentTest, EveryFailureWithAnEntryRaisesUnderTheLabelOfTheNeed) {
    const Labels list = {" in LumoSeminar.LoadList", kLabelOfConsent};
    const Labels write = {kLabelOfWrite, kLabelOfConsent};
    const auto write_script = [](Script& script) {
        entries::ScriptList(script, kWaits, {entries::RowOfDate(40, kDate)});
        entries::ScriptLogin(script, Variant::Null());
        script.ExecuteSql(entries::Update(40, "Null", -1, kPresent, ""));
    };
    ExpectFailures(write_script,
                   [](const Ref<DataSession>& session) {
                       Install(session);
                       PersonOf(session, kEmployee)->TeilnahmeZustimmen(kDate, kUserID);
                   },
                   {{1, kNotOk, 9999, list},
                    {3, kNotOk, 0, {}, StepsBehind(3, write_script)},
                    {4, kNotOk, 9999, write},
                    {1, kRaises, 7001, list},
                    {2, kRaises, 7001, list},
                    {3, kRaises, 7001, write},
                    {4, kRaises, 7001, write}});
}

// The check of an enrolment.

/// The new participant of the date's list.
void ScriptNewParticipant(Script& script) {
    participants::ScriptNew(script);
    script.Process("New SessionDefaults");
    script.Process("SessionDefaults.FirstText 2").Gives(kUser);
}

/// The date, its list with nobody in it, and the new participant in that list.
void ScriptDateWithNewParticipant(Script& script) {
    participants::ScriptDate(script);
    script.AdoConnection();
    script.OpenSelect(participants::SelectKeys(kDate)).Rows({"TeilnehmerID"});
    ScriptNewParticipant(script);
}

TEST_F(PersonCheckTest, AnEmployeeIsCheckedByItsNumberWithoutTheClient) {
    Script script;
    ScriptDateWithNewParticipant(script);
    participants::ScriptDate(script);  // the participant's own
    checks::ScriptOpenDates(script, " AND Sem_Teilnehmer_IT.ANNr = 45 And Sem_Teilnehmer_IT.MDNr = 0");
    checks::ScriptEnrolled(script, " AND Teilnahme <> 0 AND MDNR = 0 AND ANNR = 45");
    checks::ScriptOverlaps(script, " AND Sem_Teilnehmer_IT.ANNr = 45 And Sem_Teilnehmer_IT.MDNr = 0");
    checks::ScriptTakenBefore(script, " AND Sem_Teilnehmer_IT.ANNr = 45 And Sem_Teilnehmer_IT.MDNr = 0");
    checks::ScriptCount(script, checks::CountRequiredSeminars(105), 0);
    Install(script.Session());
    const auto found = PersonOf(script.Session(), kEmployee)->TeilnahmePruefen(kDate);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->Count(), 0) << "without a finding: a new empty list";
    EXPECT_EQ(script.Report(), "") << "no process";
}

TEST_F(PersonCheckTest, EveryOtherKindIsCheckedAsNobody) {
    for (const Byte kind : {Byte{3}, Byte{4}, Byte{0}, Byte{9}}) {
        Script script;
        ScriptDateWithNewParticipant(script);
        participants::ScriptDate(script);
        checks::ScriptOpenDates(script, checks::OfEmployee(0, 0));
        checks::ScriptEnrolled(script, "");
        checks::ScriptOverlaps(script, checks::OfEmployee(0, 0));
        checks::ScriptTakenBefore(script, checks::OfEmployee(0, 0));
        checks::ScriptCount(script, checks::CountRequiredSeminars(105), 0);
        Install(script.Session());
        EXPECT_EQ(PersonOf(script.Session(), kind)->TeilnahmePruefen(kDate)->Count(), 0);
        EXPECT_EQ(script.Report(), "") << int{kind};
    }
}

TEST_F(PersonCheckTest, FindingsAreThoseOfTheParticipantInTheirOrder) {
    Script script;
    ScriptDateWithNewParticipant(script);
    participants::ScriptDate(script);
    checks::ScriptOpenDates(script, checks::OfEmployee(45, 0), {{"BS-18", "Brandschutz \"Öl\""}});
    checks::ScriptEnrolled(script, checks::EnrolledEmployee(0, 45), {{7}});
    checks::ScriptOverlaps(script, checks::OfEmployee(45, 0), {{"EX-1", "Excel für Käthe"}});
    checks::ScriptTakenBefore(script, checks::OfEmployee(45, 0), {{"BS-9", "Brandschutz"}});
    checks::ScriptCount(script, checks::CountRequiredSeminars(105), 1);
    script.OpenSelect(checks::RequiredTaken(105, 0, checks::RequiredOfEmployee(45))).Rows({"MDNR", "ANNR"}, {{0, 45}});
    script.CloseRows();
    Install(script.Session());
    const auto found = PersonOf(script.Session(), kEmployee)->TeilnahmePruefen(kDate);
    EXPECT_EQ(checks::FindingsOf(*found), (checks::Findings{{300000003, "BS-18 - Brandschutz \"Öl\""},
                                                            {300000001, ""},
                                                            {300000002, "EX-1 - Excel für Käthe"},
                                                            {300000004, "BS-9 - Brandschutz"},
                                                            {300000005, ""}}));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonCheckTest, EachFlagTurnsItsCheckOff) {
    for (int off = 0; off < 8; ++off) {
        const bool seminar = (off & 1) == 0;
        const bool taken = (off & 2) == 0;
        const bool prerequisites = (off & 4) == 0;
        Script script;
        ScriptDateWithNewParticipant(script);
        if (seminar) {
            participants::ScriptDate(script);
            checks::ScriptOpenDates(script, checks::OfEmployee(45, 0));
        }
        checks::ScriptEnrolled(script, checks::EnrolledEmployee(0, 45));
        checks::ScriptOverlaps(script, checks::OfEmployee(45, 0));
        if (!seminar && (taken || prerequisites)) participants::ScriptDate(script);
        if (taken) checks::ScriptTakenBefore(script, checks::OfEmployee(45, 0));
        if (prerequisites) checks::ScriptCount(script, checks::CountRequiredSeminars(105), 0);
        Install(script.Session());
        const auto person = PersonOf(script.Session(), kEmployee);
        EXPECT_EQ(person->TeilnahmePruefen(kDate, seminar, taken, prerequisites)->Count(), 0);
        EXPECT_EQ(script.Report(), "") << off;
    }
}

TEST_F(PersonCheckTest, EachCheckWorksOnADateOfItsOwnAndGivesAListOfItsOwn) {
    Script script;
    for (int i = 0; i < 2; ++i) {
        participants::ScriptDate(script);
        script.AdoConnection();
        script.OpenSelect(participants::SelectKeys(kDate)).Rows({"TeilnehmerID"});
        participants::ScriptNew(script);
        if (i == 0) script.Process("New SessionDefaults");
        script.Process("SessionDefaults.FirstText 2").Gives(kUser);
        checks::ScriptEnrolled(script, checks::EnrolledEmployee(0, 45), {{7}});
        checks::ScriptOverlaps(script, checks::OfEmployee(45, 0));
    }
    Install(script.Session());
    const auto person = PersonOf(script.Session(), kEmployee);
    const auto first = person->TeilnahmePruefen(kDate, false, false, false);
    const auto second = person->TeilnahmePruefen(kDate, false, false, false);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->Count(), 1);
    EXPECT_EQ(second->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonCheckTest, EveryFailureRaisesWithTheLabelsFromBelowAndNoneOfItsOwn) {
    const Labels enrolled = {"Orbiq.Form_Termin_TNAnmeldungNew.CheckAnmeldungStorno"};
    const Labels overlaps = {"Orbiq.Form_Termin_TNAnmeldungNew.CheckZeitraum"};
    const std::string participant = " LumoSeminar062.clsTeilnehmer.";
    const Labels add = {" LumoSeminar062.ColTeilnehmer.Add", "LumoSeminar.colTeilnehmer.AddEmptyObject"};
    const auto with_add = [&](Labels inner) {
        inner.insert(inner.end(), add.begin(), add.end());
        return inner;
    };
    const Labels load =
        with_add({participant + "PropertiesInit", participant + "MDNr -> Property LET", participant + "Init"});
    const Labels defaults = with_add({" LumoSeminar062.clsTermin.InitPropertiesByRecordset", participant + "PropertiesInit",
                                      participant + "MDNr -> Property LET", participant + "Init"});
    Labels date_of_nobody = {" LumoSeminar062.clsTermin.PropertiesInit", " LumoSeminar062.clsTermin.SemTerminID --> GET"};
    date_of_nobody.insert(date_of_nobody.end(), defaults.begin(), defaults.end());
    const auto write_script = [](Script& script) {
        ScriptDateWithNewParticipant(script);
        checks::ScriptEnrolled(script, checks::EnrolledEmployee(0, 45));
        checks::ScriptOverlaps(script, checks::OfEmployee(45, 0));
    };
    const std::vector<Labels> labels = {
        {" LumoSeminar062.clsTermin.PropertiesInit", " LumoSeminar062.clsSeminar.Teilnehmer"},
        {" LumoSeminar062.ColTeilnehmer.Init", " LumoSeminar062.clsSeminar.Teilnehmer"},
        {" LumoSeminar062.ColTeilnehmer.LoadKeysFromDatabase", " LumoSeminar062.ColTeilnehmer.Init",
         " LumoSeminar062.clsSeminar.Teilnehmer"},
        with_add({participant + "Init"}),
        load,
        date_of_nobody,
        defaults,
        defaults,
        enrolled,
        enrolled,
        overlaps,
        overlaps,
    };
    const std::string open = "Open of the connection";
    std::vector<ExpectedFailure> expected = {
        {1, kNotOk, 91},
        {2, kNotOk, 91, with_add({participant + "Init"}), {open}},
        {3, kNotOk, 0, {}, StepsBehind(3, write_script)},
        {4, kNotOk, 91, {participant + "PropertiesInit", participant + "ANNr -> Property LET"}, {open}},
        {5, kNotOk, 0, {}, StepsBehind(8, write_script)},
        {6, kNotOk, 0, {}, StepsBehind(6, write_script)},
        {9, kNotOk, 0, {}, StepsBehind(10, write_script)},
        {11, kNotOk},
    };
    for (int step = 1; step <= 12; ++step) {
        expected.push_back({step, kRaises, 7001, labels[static_cast<std::size_t>(step - 1)]});
    }
    ExpectFailures(
        write_script,
        [](const Ref<DataSession>& session) {
            Install(session);
            (void)PersonOf(session, kEmployee)->TeilnahmePruefen(kDate, false, false, false);
        },
        expected);
}

}  // namespace
}  // namespace LumoSeminar
