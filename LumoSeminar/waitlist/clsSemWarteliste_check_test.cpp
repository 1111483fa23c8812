#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
#include <test_support/check_statements.h>
#include <test_support/failures.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

using LumoConnection::Script;
using participant_statements::Labels;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;
using waitlist_statements::Bound;
using waitlist_statements::Rows;
namespace checks = check_statements;
namespace participants = participant_statements;

using clsSemWartelisteCheck = participants::ParticipantTest;

/// The condition for an employee without number and client.
const std::string kOfNobody = checks::OfEmployee(0, 0);

/// The date of the entry, who is on it, and the participant that is made for the check.
void ScriptNewParticipant(Script& script) {
    checks::ScriptDate(script);
    script.AdoConnection();
    script.OpenSelect(participants::SelectKeys(17)).Rows({"TeilnehmerID"});
    participants::ScriptNew(script);
}

/// All checks without a finding. The participant has a date of its own.
void ScriptChecks(Script& script) {
    checks::ScriptDate(script);
    checks::ScriptOpenDates(script, kOfNobody);
    checks::ScriptEnrolled(script, "");
    checks::ScriptOverlaps(script, kOfNobody);
    checks::ScriptTakenBefore(script, kOfNobody);
    checks::ScriptCount(script, checks::CountRequiredSeminars(105), 0);
}

/// Entry 42 of date 17 as its list has filled it: it sends no load.
Ref<clsSemWarteliste> Waiting(Script& script) {
    waitlist_statements::ScriptList(script, waitlist_statements::WhereDate(17), {waitlist_statements::RowOfDate(42, 17)});
    colSemWarteliste list;
    list.LoadListSeminartermin(script.Session(), 17);
    return list.Item(1);
}

Ref<clsTeilnehmer> EmptyParticipantOf(const Ref<clsSemWarteliste>& entry) {
    return entry->objSemTermin()->clscolTeilnehmer()->Item("0000000000");
}

TEST_F(clsSemWartelisteCheck, ANewParticipantWithoutAPersonIsCheckedAgainstTheDateAndStaysInItsList) {
    Script script;
    const auto entry = Waiting(script);
    ScriptNewParticipant(script);
    ScriptChecks(script);
    const auto findings = entry->TeilnahmePruefen();
    ASSERT_TRUE(findings);
    EXPECT_EQ(findings->Count(), 0);
    const auto list = entry->objSemTermin()->clscolTeilnehmer();
    ASSERT_EQ(list->Count(), 1);
    EXPECT_EQ(list->Item(1), EmptyParticipantOf(entry));
    EXPECT_EQ(list->Item(1)->ANNr(), 0);
    EXPECT_EQ(list->Item(1)->MDNR(), 0);
    EXPECT_EQ(list->Item(1)->SemTerminID(), 17);
    EXPECT_EQ(entry->TNID(), 45);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteCheck, WithoutAFindingTheResultIsANewListEachTimeAndTheParticipantIsTheSame) {
    Script script;
    const auto entry = Waiting(script);
    ScriptNewParticipant(script);
    checks::ScriptEnrolled(script, "");
    checks::ScriptOverlaps(script, kOfNobody);
    checks::ScriptEnrolled(script, "");
    checks::ScriptOverlaps(script, kOfNobody);
    const auto first = entry->TeilnahmePruefen(false, false, false);
    const auto participant = EmptyParticipantOf(entry);
    const auto second = entry->TeilnahmePruefen(false, false, false);
    EXPECT_FALSE(first == second);
    EXPECT_FALSE(second == participant->colErrorsAnmeldung());
    EXPECT_EQ(EmptyParticipantOf(entry), participant);
    EXPECT_EQ(entry->objSemTermin()->clscolTeilnehmer()->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteCheck, FindingsAreThoseOfTheParticipantInTheSameList) {
    Script script;
    const auto entry = Waiting(script);
    ScriptNewParticipant(script);
    checks::ScriptDate(script);
    checks::ScriptOpenDates(script, kOfNobody, {{"BS-01", "Brandschutz \"groß\""}});
    checks::ScriptEnrolled(script, "", {{23}});
    checks::ScriptOverlaps(script, kOfNobody, {{"KO-02", "Körpersprache"}});
    checks::ScriptTakenBefore(script, kOfNobody, {{"BS-00", "Brandschutz '09"}});
    checks::ScriptCount(script, checks::CountRequiredSeminars(105), 1);
    script.OpenSelect(checks::RequiredTaken(105, 0)).Rows({"MDNR", "ANNR"}, {{5, 100}});
    script.CloseRows();
    const auto findings = entry->TeilnahmePruefen();
    EXPECT_EQ(checks::FindingsOf(*findings), (checks::Findings{{300000003, "BS-01 - Brandschutz \"groß\""},
                                                               {300000001, ""},
                                                               {300000002, "KO-02 - Körpersprache"},
                                                               {300000004, "BS-00 - Brandschutz '09"},
                                                               {300000005, ""}}));
    EXPECT_EQ(findings, EmptyParticipantOf(entry)->colErrorsAnmeldung());
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteCheck, EachFlagLeavesOutItsCheck) {
    for (const bool seminar : {true, false}) {
        for (const bool taken_before : {true, false}) {
            for (const bool prerequisites : {true, false}) {
                Script script;
                const auto entry = Waiting(script);
                ScriptNewParticipant(script);
                if (seminar) checks::ScriptDate(script);
                if (seminar) checks::ScriptOpenDates(script, kOfNobody);
                checks::ScriptEnrolled(script, "");
                checks::ScriptOverlaps(script, kOfNobody);
                if (!seminar && (taken_before || prerequisites)) checks::ScriptDate(script);
                if (taken_before) checks::ScriptTakenBefore(script, kOfNobody);
                if (prerequisites) checks::ScriptCount(script, checks::CountRequiredSeminars(105), 0);
                EXPECT_EQ(entry->TeilnahmePruefen(seminar, taken_before, prerequisites)->Count(), 0);
                EXPECT_EQ(script.Report(), "") << seminar << taken_before << prerequisites;
            }
        }
    }
}

TEST_F(clsSemWartelisteCheck, AnEntryThatWasNotReadIsCheckedAgainstDate0) {
    Script script;
    script.OpenSelect(termin_statements::Select(0)).Rows(termin_statements::kColumns);
    script.AdoConnection();
    script.OpenSelect(participants::SelectKeys(0)).Rows({"TeilnehmerID"});
    script.AdoConnection();
    checks::ScriptEnrolled(script, "", {}, 0);
    script.OpenSelect(participants::Select(0)).Rows(participants::kColumns);
    script.OpenSelect(termin_statements::Select(0)).Rows(termin_statements::kColumns);
    checks::ScriptOverlaps(script, kOfNobody, {}, 0);
    EXPECT_EQ(Bound(script.Session())->TeilnahmePruefen(false, false, false)->Count(), 0);
    EXPECT_EQ(script.Report(), "") << "the entry is not loaded";
}

TEST_F(clsSemWartelisteCheck, TheParticipantThatACheckLeavesIsTheOneThatAnApprovalEnrols) {
    Script script;
    const auto entry = Waiting(script);
    ScriptNewParticipant(script);
    checks::ScriptEnrolled(script, "");
    checks::ScriptOverlaps(script, kOfNobody);
    EXPECT_EQ(entry->TeilnahmePruefen(false, false, false)->Count(), 0);
    const auto checked = EmptyParticipantOf(entry);
    EXPECT_EQ(script.Report(), "");
    checks::ScriptDate(script);
    script.OpenSelect(participants::Insert(
        "17,5, 45, convert(datetime,'02.03.2010',104), 'Käthe Löffler', -1,5, convert(datetime,'30.12.1899',104),  "
        "convert(datetime,'30.12.1899',104), '30.12.1899 00:00', '30.12.1899 00:00',  NULL, 0, 0, 1, '', NULL, NULL"));
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(43);
    participants::ScriptCosts(script, 43);
    EXPECT_EQ(entry->TeilnahmeGenehmigen(99), true);
    EXPECT_EQ(checked->TeilnehmerID(), 43);
    EXPECT_EQ(checked->ANNr(), 45);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteCheck, AFindingDoesNotKeepAnApprovalBack) {
    Script script;
    const auto entry = Waiting(script);
    ScriptNewParticipant(script);
    checks::ScriptEnrolled(script, "", {{23}});
    checks::ScriptOverlaps(script, kOfNobody);
    EXPECT_EQ(entry->TeilnahmePruefen(false, false, false)->Count(), 1);
    checks::ScriptDate(script);
    script.OpenSelect(participants::Insert(
        "17,5, 45, convert(datetime,'02.03.2010',104), 'Käthe Löffler', -1,5, convert(datetime,'30.12.1899',104),  "
        "convert(datetime,'30.12.1899',104), '30.12.1899 00:00', '30.12.1899 00:00',  NULL, 0, 0, 1, '', NULL, NULL"));
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(43);
    participants::ScriptCosts(script, 43);
    EXPECT_EQ(entry->TeilnahmeGenehmigen(99), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteCheck, AnErrorOfACheckPassesWithoutALabelOfTheEntry) {
    Script script;
    const auto entry = Waiting(script);
    ScriptNewParticipant(script);
    checks::ScriptEnrolled(script, "");
    script.OpenSelect(checks::Overlaps(17, kOfNobody)).Raises(-7, "Die Leitung ist tot.", "Treiber");
    const auto error = RaisedBy([&] { return entry->TeilnahmePruefen(false, false, false); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -7);
    EXPECT_EQ(error->Source(), "Treiber");
    EXPECT_EQ(error->Description(), "Die Leitung ist tot.\r\nOrbiq.Form_Termin_TNAnmeldungNew.CheckZeitraum");
    EXPECT_EQ(script.Report(), "");
}

void ScriptShortCheck(Script& script) {
    waitlist_statements::ScriptList(script, waitlist_statements::WhereDate(17), {waitlist_statements::RowOfDate(42, 17)});
    ScriptNewParticipant(script);
    checks::ScriptEnrolled(script, "");
    checks::ScriptOverlaps(script, kOfNobody);
}

Labels CallsBehind(int step) {
    Script script;
    ScriptShortCheck(script);
    Labels calls;
    for (int i = step + 1; i <= script.StepCount(); ++i) calls.push_back(script.StepText(i));
    return calls;
}

TEST_F(clsSemWartelisteCheck, ACheckFailsWithTheLabelsOfTheDateAndTheParticipantAloneAtEachStep) {
    const std::string record = " LumoSeminar062.clsTeilnehmer.";
    const std::string list = " LumoSeminar062.ColTeilnehmer.";
    const std::string date = " LumoSeminar062.clsTermin.";
    const std::string of_date = " LumoSeminar062.clsSeminar.Teilnehmer";
    const std::string add = list + "Add";
    const std::string add_empty = "LumoSeminar.colTeilnehmer.AddEmptyObject";
    const std::string load = record + "PropertiesInit";
    const std::string let = record + "MDNr -> Property LET";
    const std::string bind = record + "Init";
    const std::string enrolled = "Orbiq.Form_Termin_TNAnmeldungNew.CheckAnmeldungStorno";
    const std::string overlaps = "Orbiq.Form_Termin_TNAnmeldungNew.CheckZeitraum";
    const std::string waiting = " in LumoSeminar.LoadList";
    const std::string open = "Open of the connection";
    ExpectFailures(ScriptShortCheck,
                   [](const Ref<DataSession>& session) {
                       colSemWarteliste entries;
                       entries.LoadListSeminartermin(session, 17);
                       (void)entries.Item(1)->TeilnahmePruefen(false, false, false);
                   },
                   {{1, kNotOk, 9999, {waiting}},
                    {3, kNotOk, 91},
                    {4, kNotOk, 91, {bind, add, add_empty}, {open}},
                    {5, kNotOk, 0, {}, CallsBehind(5)},
                    {6, kNotOk, 91, {enrolled}, {open}},
                    {7, kNotOk, 0, {}, CallsBehind(8)},
                    {8, kNotOk, 0, {}, CallsBehind(8)},
                    {9, kNotOk, 0, {}, CallsBehind(10)},
                    {11, kNotOk},
                    {1, kRaises, 7001, {waiting}},
                    {2, kRaises, 7001, {waiting}},
                    {3, kRaises, 7001, {date + "PropertiesInit", of_date}},
                    {4, kRaises, 7001, {list + "Init", of_date}},
                    {5, kRaises, 7001, {list + "LoadKeysFromDatabase", list + "Init", of_date}},
                    {6, kRaises, 7001, {bind, add, add_empty}},
                    {7, kRaises, 7001, {load, let, bind, add, add_empty}},
                    {8,
                     kRaises,
                     7001,
                     {date + "PropertiesInit", date + "SemTerminID --> GET", date + "InitPropertiesByRecordset", load,
                      let, bind, add, add_empty}},
                    {9, kRaises, 7001, {enrolled}},
                    {10, kRaises, 7001, {enrolled}},
                    {11, kRaises, 7001, {overlaps}},
                    {12, kRaises, 7001, {overlaps}}});
}

}  // namespace
}  // namespace LumoSeminar
