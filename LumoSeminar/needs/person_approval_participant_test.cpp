// The approval that makes a participant of a person.

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <test_support/approval_steps.h>
#include <test_support/need_statements.h>
#include <test_support/participant_statements.h>
#include <test_support/person_statements.h>
#include <test_support/process_calls.h>
#include <test_support/raises.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

using namespace approval_steps;
using namespace process_calls;
using need_statements::kLabelOfApproval;
using need_statements::Labels;
using person_statements::PersonOf;
namespace entries = waitlist_statements;
namespace participants = participant_statements;

using PersonApprovalTest = ProcessTest;

const Variant kNull = Variant::Null();

// Up to the state of the process.

TEST_F(PersonApprovalTest, WithoutAnEntryForTheDateTheResultIsFalseAndNoDispatcherIsTouched) {
    for (const entries::Rows& rows : {entries::Rows{}, entries::Rows{entries::RowOfDate(40, 16), entries::RowOfDate(41, 18)}}) {
        Script script;
        entries::ScriptList(script, kWaits, rows);
        EXPECT_EQ(Approve(script), false);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(PersonApprovalTest, WhileAnythingIsPendingTheResultIsTrueAndNothingMoreIsDone) {
    for (const int status : {1, 2, 3, -1, 2147483647}) {
        Script script;
        script.OpenSelect(entries::SelectList(kWaits)).Rows(entries::kColumns, {entries::RowOfDate(42, kDate)});
        script.CloseRows();
        script.Process("New InfoDispatcher");
        script.Process("InfoDispatcher.ConnectionString '" + kConnectionText + "'");
        script.Process("InfoDispatcher.Initialisieren 8, 42, 5, 45");
        script.Process("InfoDispatcher.Zustimmen 11, ''");
        script.Process("InfoDispatcher.ProzessStatus").Gives(status);
        EXPECT_EQ(Approve(script), true);
        EXPECT_EQ(script.Report(), "") << status;
    }
}

TEST_F(PersonApprovalTest, OfTwoEntriesForTheDateTheOlderOneIsApproved) {
    Script script;
    entries::ScriptList(script, kWaits, {entries::RowOfDate(43, kDate), entries::RowOfDate(40, kDate)});
    ScriptNewDispatcher(script, kWaitList, 43, 5, 45);
    ScriptConsent(script, kUserID, 1);
    EXPECT_EQ(Approve(script), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonApprovalTest, AWithdrawnEntryCanBeApproved) {
    for (const Variant& stored : {Variant(Int16{0}), kNull}) {
        Script script;
        auto row = entries::RowOfDate(42, kDate);
        row[9] = stored;
        entries::ScriptList(script, kWaits, {row});
        ScriptNewDispatcher(script, kWaitList, 42, 5, 45);
        ScriptConsent(script, kUserID, 0);
        ScriptPerson(script);
        ScriptDate(script);
        ScriptNewParticipant(script);
        ScriptFreeInsert(script);
        EXPECT_EQ(Approve(script), true);
        EXPECT_EQ(script.Report(), "") << "neither is the entry changed nor deleted";
    }
}

TEST_F(PersonApprovalTest, TheDispatcherIsKeptForTheEntryAndBoundAnewForAnother) {
    Script script;
    Install(script.Session());
    const auto person = PersonOf(script.Session(), kEmployee);
    const auto other = PersonOf(script.Session(), kEmployee, 46);
    const auto list = [&](int employee, int key) {
        entries::ScriptList(script, entries::WhereEmployeeWaits(5, employee), {entries::RowOfDate(key, kDate)});
    };
    list(45, 42);
    ScriptNewDispatcher(script, kWaitList, 42, 5, 45);
    ScriptConsent(script, kUserID, 1);
    EXPECT_EQ(person->TeilnahmeGenehmigen(kDate, kUserID), true);
    list(45, 42);
    ScriptCachedDispatcher(script);
    ScriptConsent(script, 12, 1);
    EXPECT_EQ(person->TeilnahmeGenehmigen(kDate, 12), true);
    list(46, 43);
    ScriptReboundDispatcher(script, kWaitList, 43, 5, 46);
    ScriptConsent(script, kUserID, 1);
    EXPECT_EQ(other->TeilnahmeGenehmigen(kDate, kUserID), true);
    ScriptReboundDispatcher(script, kTrainingNeed, 43, 5, 46);
    common::GetInfoDispatcher(kTrainingNeed, 43, 5, 46);
    list(46, 43);
    ScriptReboundDispatcher(script, kWaitList, 43, 5, 46);
    ScriptConsent(script, kUserID, 1);
    EXPECT_EQ(other->TeilnahmeGenehmigen(kDate, kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

// The person among the participants.

TEST_F(PersonApprovalTest, APersonWhoIsOnTheDateAlreadyIsNotWrittenAndTheResultIsFalse) {
    Script script;
    ScriptApproved(script);
    ScriptPerson(script);
    ScriptDate(script, {{7, 5, 44}, {8, 5, 45}, {9, 5, 46}});
    EXPECT_EQ(Approve(script), false);
    EXPECT_EQ(script.Report(), "") << "the approval is recorded all the same";
}

TEST_F(PersonApprovalTest, AParticipantOfAnotherClientOrWithAnotherNumberIsNotThePerson) {
    Script script;
    ScriptApproved(script);
    ScriptPerson(script);
    ScriptDate(script, {{7, 6, 45}, {8, 5, 44}, {9, kNull, 45}, {10, 5, kNull}});
    ScriptNewParticipant(script);
    ScriptFreeInsert(script);
    EXPECT_EQ(Approve(script), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonApprovalTest, APersonWhoseNumberIsNoneRaisesAmongTheParticipantsOrElseWithTheNewOne) {
    for (const Text& number : {Text("B-2010-ä"), Text()}) {
        for (const bool has_participants : {true, false}) {
            Script script;
            ScriptApproved(script);
            ScriptPerson(script, number);
            if (has_participants) {
                ScriptDate(script, {{7, 6, 99}});
            } else {
                ScriptDate(script);
                ScriptNewParticipant(script);
            }
            EXPECT_RAISES_UNDER(13, Labels{kLabelOfApproval}, Approve(script));
            EXPECT_EQ(script.Report(), "") << "the approval is recorded, and nothing is written";
        }
    }
}

TEST_F(PersonApprovalTest, APersonWithoutARowHasNoNumberEither) {
    Script script;
    ScriptApproved(script);
    person_statements::ScriptLoad(script, person_statements::SelectEmployee(5, 45), {});
    ScriptDate(script, {{7, 5, 45}});
    EXPECT_RAISES_UNDER(13, Labels{kLabelOfApproval}, Approve(script));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonApprovalTest, ANumberBeyondTheIntegersIsNobodysAndOverflowsWithTheNewParticipant) {
    Script script;
    ScriptApproved(script);
    ScriptPerson(script, "2147483648");
    ScriptDate(script, {{7, 5, 45}});
    ScriptNewParticipant(script);
    EXPECT_RAISES_UNDER(6, Labels{kLabelOfApproval}, Approve(script));
    EXPECT_EQ(script.Report(), "");
}

// The new participant.

TEST_F(PersonApprovalTest, ThePersonBecomesAParticipantWithTheDaysAndTimesOfTheDate) {
    Script script;
    ScriptApproved(script);
    ScriptPerson(script);
    participants::ScriptDate(script, {kFreeDate});
    script.AdoConnection();
    script.OpenSelect("SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = 17").Rows({"TeilnehmerID"});
    ScriptNewParticipant(script);
    participants::ScriptDate(script);
    script.OpenSelect(
        "INSERT INTO Sem_Teilnehmer_IT (  TeilnehmerID, SemTerminID, MDNr, ANNr, ErfDatum, ErfUser, Teilnahme,  Herkunft, "
        "BeginnDatum, EndeDatum, BegUhrzeit, EndUhrzeit, storniertam, StornoGrund,  StornoKosten, Ergebnis, Bemerkung, BWID, "
        "LAID )  SELECT ISNULL(max(TeilnehmerID),0)+1, 17,5, 45, convert(datetime,'02.03.2010',104), 'Käthe Löffler', "
        "-1,4, convert(datetime,'03.03.2010',104),  convert(datetime,'05.03.2010',104), '30.12.1899 08:30', '30.12.1899 "
        "16:45',  NULL, 0, 0, 1, '', NULL, NULL FROM Sem_Teilnehmer_IT\r\n");
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT", "").Gives(42);
    participants::ScriptCosts(script, 42);
    EXPECT_EQ(Approve(script), true);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "") << "the entry stays, and a date without costs asks neither centre nor type";
}

TEST_F(PersonApprovalTest, TheOriginIsFourForOneThatComesFromElsewhereAndThreeOtherwise) {
    for (const bool used : {true, false}) {
        for (const bool infos : {true, false}) {
            Script script;
            ScriptApproved(script);
            ScriptPerson(script);
            ScriptDate(script);
            ScriptNewParticipant(script);
            ScriptFreeInsert(script, 45, used ? 4 : 3);
            Install(script.Session());
            const auto person = PersonOf(script.Session(), kEmployee);
            person->DoSendInfos(infos);
            EXPECT_EQ(person->TeilnahmeGenehmigen(kDate, kUserID, used), true);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST_F(PersonApprovalTest, ThePersonOfAnyKindIsEnrolledAsTheEmployeeOfItsNumberForAnEntryOfAnEmployee) {
    const struct {
        Byte kind;
        std::string select;
        Variant number;
        int written;
    } cases[] = {
        {kApplicant, person_statements::SelectApplicant(45), "0077", 77},
        {kApplicant, person_statements::SelectApplicant(45), " 78 ", 78},
        {kWorker, person_statements::SelectWorker(45), 45, 45},
        {9, person_statements::SelectWorker(45), -5, -5},
    };
    for (const auto& c : cases) {
        Script script;
        ScriptApproved(script);
        person_statements::ScriptLoad(script, c.select, {{"Löffler", "Käthe", c.number}});
        ScriptDate(script, {{7, 5, 46}});
        ScriptNewParticipant(script);
        ScriptFreeInsert(script, c.written);
        EXPECT_EQ(Approve(script, c.kind), true);
        EXPECT_EQ(script.Report(), "") << int{c.kind};
    }
}

TEST_F(PersonApprovalTest, TheNumberOfThePersonIsComparedAndNotItsKey) {
    Script script;
    ScriptApproved(script);
    person_statements::ScriptLoad(script, person_statements::SelectApplicant(45), {{"Löffler", "Käthe", "0077"}});
    ScriptDate(script, {{7, 5, 45}, {8, 5, 77}});
    EXPECT_EQ(Approve(script, kApplicant), false);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonApprovalTest, ARefusedWriteOfTheParticipantIsFalseAndSilent) {
    Script script;
    ScriptApproved(script);
    ScriptPerson(script);
    ScriptDate(script);
    ScriptNewParticipant(script);
    participants::ScriptDate(script);
    script.OpenSelect(InsertOf(45)).Refused("Verletzung des Primärschlüssels.");
    EXPECT_EQ(Approve(script), false);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

}  // namespace
}  // namespace LumoSeminar
