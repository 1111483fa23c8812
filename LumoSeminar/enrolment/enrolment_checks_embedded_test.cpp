#include <gtest/gtest.h>

#include <LumoConnection/tracing/tracing_session.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <test_support/check_statements.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>

namespace LumoSeminar {
namespace {

using namespace check_statements;
using LumoConnection::TracedCall;
using test_support::Rows;
using test_support::SampleDatabase;
using test_support::SchemaDatabase;
using test_support::Select;
using test_support::Write;

// The person in question, as MDNr, ANNr, BWID, LAID, and others.
const Text kSelf = "5, 100, NULL, NULL";
const Text kSomebody = "5, 101, NULL, NULL";
const Text kSameNumberElsewhere = "6, 100, NULL, NULL";
const Text kSelfAsApplicant = "5, NULL, 77, NULL";
const Text kSelfAsWorker = "5, NULL, NULL, 9";

/// A date. NULL goes in as a word.
Text Date(int key, const Text& status, const Text& seminar, const Text& code = "N'X'", const Text& title = "N'Übung'") {
    return "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, Status, SemID, Code, Titel) VALUES (" + std::to_string(key) +
           ", 5, " + status + ", " + seminar + ", " + code + ", " + title + ")";
}

Text Clock(const Text& time) { return time.empty() ? "NULL" : "Convert(datetime,'30.12.1899 " + time + "',104)"; }

Text Day(int date, const Text& from, const Text& to, const Text& day = "02.03.2010") {
    return "INSERT INTO Sem_Termin_Termine_IT (SemTerminID, Termin, BegUhr, EndUhr) VALUES (" + std::to_string(date) +
           ", Convert(datetime,'" + day + "',104), " + Clock(from) + ", " + Clock(to) + ")";
}

Text Enrol(int date, const Text& state = "-1", const Text& person = kSelf) {
    return "INSERT INTO Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, Teilnahme, MDNr, ANNr, BWID, LAID) SELECT "
           "isnull(max(TeilnehmerID),0)+1, " +
           std::to_string(date) + ", " + state + ", " + person + " FROM Sem_Teilnehmer_IT";
}

Text RequireSeminar(int seminar, int required) {
    return "INSERT INTO Sem_Anford_Seminare (SemID, gef_SemID) VALUES (" + std::to_string(seminar) + ", " +
           std::to_string(required) + ")";
}

Text RequireSkill(int seminar, int skill) {
    return "INSERT INTO Sem_Anford_Faehigkeiten (SemID, Prof_ID) VALUES (" + std::to_string(seminar) + ", " +
           std::to_string(skill) + ")";
}

const std::pair<Int32, Text> kAlreadyEnrolled(300000001, "");
const std::pair<Int32, Text> kPrerequisite(300000005, "");
std::pair<Int32, Text> Overlap(const Text& name = "X - Übung") { return {300000002, name}; }
std::pair<Int32, Text> OpenDate(const Text& name = "X - Übung") { return {300000003, name}; }
std::pair<Int32, Text> Taken(const Text& name = "X - Übung") { return {300000004, name}; }
/// The date itself as an open date.
const std::pair<Int32, Text> kThisDate = OpenDate("LÖ-1 - Löten für \"Anfänger\"");

struct Case {
    const char* name;
    std::vector<Text> rows;
    Findings findings;
};

class EnrolmentChecksForReal : public participant_statements::ParticipantTest {
  protected:
    /// Runs each case in a database that has, beside its rows, date 17 of seminar 105 alone, on 2 March from 9 to 16.
    void ExpectCases(const PersonKeys& keys, const std::vector<Case>& cases) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.name);
            for (const char* table : {"Sem_Termin_IT", "Sem_Termin_Termine_IT", "Sem_Teilnehmer_IT",
                                      "Sem_Anford_Seminare", "Sem_Anford_Faehigkeiten", "AN_Faehigkeiten"}) {
                Write(*session_, Text("DELETE FROM ") + table);
            }
            Write(*session_, Date(17, "2", "105", "N'LÖ-1'", "N'Löten für \"Anfänger\"'"));
            Write(*session_, Day(17, "09:00", "16:00"));
            for (const Text& row : c.rows) Write(*session_, row);
            const auto record = NewRecord(keys);
            EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), c.findings.empty());
            EXPECT_EQ(FindingsOf(*record), c.findings);
        }
    }

    /// A record of the person that is not stored, as an approval fills it.
    Ref<clsTeilnehmer> NewRecord(const PersonKeys& keys, Int32 date = 17) {
        colTeilnehmer list;
        EXPECT_EQ(list.Init(date, session_), true);
        const auto record = list.AddEmptyObject().As<clsTeilnehmer>();
        record->MDNR(5);
        record->ANNr(keys.ANNr);
        record->BWID(keys.BWID);
        record->LAID(keys.LAID);
        return record;
    }

    Ref<DataSession> session_ = SchemaDatabase();
};

TEST_F(EnrolmentChecksForReal, TheDateItself) {
    ExpectCases(kEmployee, {
                               {"nobody is enrolled", {}, {}},
                               {"enrolled", {Enrol(17)}, {kThisDate, kAlreadyEnrolled}},
                               {"enrolled twice", {Enrol(17), Enrol(17)}, {kThisDate, kAlreadyEnrolled}},
                               {"cancelled", {Enrol(17, "0")}, {}},
                               {"in another state", {Enrol(17, "1")}, {kAlreadyEnrolled}},
                               {"in no state", {Enrol(17, "NULL")}, {}},
                               {"somebody else", {Enrol(17, "-1", kSomebody)}, {}},
                               {"the number with another client", {Enrol(17, "-1", kSameNumberElsewhere)}, {}},
                               {"an applicant of that key", {Enrol(17, "-1", "5, NULL, 100, NULL")}, {}},
                               {"another date, of no seminar", {Date(18, "2", "NULL"), Enrol(18)}, {}},
                           });
}

TEST_F(EnrolmentChecksForReal, AnotherOpenDateOfTheSeminar) {
    ExpectCases(
        kEmployee,
        {
            {"active", {Date(18, "1", "105"), Enrol(18)}, {OpenDate()}},
            {"open for enrolment", {Date(18, "2", "105"), Enrol(18)}, {OpenDate()}},
            {"cancelled date", {Date(18, "3", "105"), Enrol(18)}, {}},
            {"closed date", {Date(18, "4", "105"), Enrol(18)}, {Taken()}},
            {"date without a status, which is read as open elsewhere", {Date(18, "NULL", "105"), Enrol(18)}, {}},
            {"status 0", {Date(18, "0", "105"), Enrol(18)}, {OpenDate()}},
            {"cancelled enrolment", {Date(18, "2", "105"), Enrol(18, "0")}, {}},
            {"enrolment in another state", {Date(18, "2", "105"), Enrol(18, "1")}, {}},
            {"another seminar", {Date(18, "2", "106"), Enrol(18)}, {}},
            {"somebody else", {Date(18, "2", "105"), Enrol(18, "-1", kSomebody)}, {}},
            {"the number with another client", {Date(18, "2", "105"), Enrol(18, "-1", kSameNumberElsewhere)}, {}},
            {"two dates, by code and title",
             {Date(18, "2", "105", "N'B'", "N'a'"), Date(19, "1", "105", "N'A'", "N'z'"),
              Date(20, "1", "105", "N'A'", "N'Ähre'"), Enrol(18), Enrol(19), Enrol(20)},
             {OpenDate("A - Ähre"), OpenDate("A - z"), OpenDate("B - a")}},
            {"two dates of one code and title", {Date(18, "2", "105"), Date(19, "1", "105"), Enrol(18), Enrol(19)}, {OpenDate()}},
            {"no code and no title", {Date(18, "2", "105", "NULL", "NULL"), Enrol(18)}, {OpenDate(" - ")}},
            {"no code", {Date(18, "2", "105", "NULL"), Enrol(18)}, {OpenDate(" - Übung")}},
            {"quotes", {Date(18, "2", "105", "N'\"Ö\"'", "N'Löten''s Reiz'"), Enrol(18)}, {OpenDate("\"Ö\" - Löten's Reiz")}},
        });
}

TEST_F(EnrolmentChecksForReal, AnotherDateAtTheSameTime) {
    const Text other = Date(18, "2", "106");
    ExpectCases(
        kEmployee,
        {
            {"the same hours", {other, Day(18, "09:00", "16:00"), Enrol(18)}, {Overlap()}},
            {"it holds the beginning", {other, Day(18, "08:00", "10:00"), Enrol(18)}, {Overlap()}},
            {"it holds the end", {other, Day(18, "15:00", "18:00"), Enrol(18)}, {Overlap()}},
            {"it holds both", {other, Day(18, "08:00", "18:00"), Enrol(18)}, {Overlap()}},
            {"it lies wholly inside, which is not found", {other, Day(18, "10:00", "15:00"), Enrol(18)}, {}},
            {"it ends at the beginning", {other, Day(18, "07:00", "09:00"), Enrol(18)}, {Overlap()}},
            {"it begins at the end", {other, Day(18, "16:00", "18:00"), Enrol(18)}, {Overlap()}},
            {"it ends a minute before", {other, Day(18, "07:00", "08:59"), Enrol(18)}, {}},
            {"it begins a minute behind", {other, Day(18, "16:01", "18:00"), Enrol(18)}, {}},
            {"another calendar day", {other, Day(18, "09:00", "16:00", "03.03.2010"), Enrol(18)}, {}},
            {"the year before", {other, Day(18, "09:00", "16:00", "02.03.2009"), Enrol(18)}, {}},
            {"one of several days",
             {other, Day(18, "09:00", "16:00", "01.03.2010"), Day(18, "10:00", "17:00"), Enrol(18)},
             {Overlap()}},
            {"two days, one finding",
             {other, Day(17, "09:00", "16:00", "03.03.2010"), Day(18, "09:00", "16:00"),
              Day(18, "09:00", "16:00", "03.03.2010"), Enrol(18)},
             {Overlap()}},
            {"cancelled enrolment, which counts", {other, Day(18, "09:00", "16:00"), Enrol(18, "0")}, {Overlap()}},
            {"enrolment in no state", {other, Day(18, "09:00", "16:00"), Enrol(18, "NULL")}, {Overlap()}},
            {"cancelled date, which counts", {Date(18, "3", "106"), Day(18, "09:00", "16:00"), Enrol(18)}, {Overlap()}},
            {"a date without a seminar", {Date(18, "2", "NULL"), Day(18, "09:00", "16:00"), Enrol(18)}, {Overlap()}},
            {"somebody else", {other, Day(18, "09:00", "16:00"), Enrol(18, "-1", kSomebody)}, {}},
            {"the number with another client", {other, Day(18, "09:00", "16:00"), Enrol(18, "-1", kSameNumberElsewhere)}, {}},
            {"days without times", {other, Day(18, "", ""), Enrol(18)}, {}},
            {"no days", {other, Enrol(18)}, {}},
            {"the date has no days", {"DELETE FROM Sem_Termin_Termine_IT", other, Day(18, "09:00", "16:00"), Enrol(18)}, {}},
            {"the date has no times",
             {"UPDATE Sem_Termin_Termine_IT SET BegUhr = NULL, EndUhr = NULL", other, Day(18, "09:00", "16:00"), Enrol(18)},
             {}},
            {"the date itself", {Enrol(17, "0")}, {}},
            {"an open date of the seminar", {Date(18, "2", "105"), Day(18, "09:00", "16:00"), Enrol(18)}, {OpenDate(), Overlap()}},
            {"two dates of one code and title",
             {other, Day(18, "09:00", "16:00"), Enrol(18), Date(19, "2", "107"), Day(19, "10:00", "16:00"), Enrol(19)},
             {Overlap()}},
        });
}

TEST_F(EnrolmentChecksForReal, TheSeminarTakenBefore) {
    ExpectCases(kEmployee,
                {
                    {"taken", {Date(18, "4", "105"), Enrol(18)}, {Taken()}},
                    {"not attended", {Date(18, "4", "105"), Enrol(18, "0")}, {}},
                    {"in another state", {Date(18, "4", "105"), Enrol(18, "1")}, {}},
                    {"another seminar", {Date(18, "4", "106"), Enrol(18)}, {}},
                    {"somebody else", {Date(18, "4", "105"), Enrol(18, "-1", kSomebody)}, {}},
                    {"the number with another client", {Date(18, "4", "105"), Enrol(18, "-1", kSameNumberElsewhere)}, {}},
                    {"twice under one name", {Date(18, "4", "105"), Date(19, "4", "105"), Enrol(18), Enrol(19)}, {Taken()}},
                    {"no title", {Date(18, "4", "105", "N'Ü'", "NULL"), Enrol(18)}, {Taken("Ü - ")}},
                });
}

TEST_F(EnrolmentChecksForReal, ThePrerequisitesAskForTheSeminarItselfAndNotForTheRequiredOne) {
    const Text required = RequireSeminar(105, 90);
    ExpectCases(
        kEmployee,
        {
            {"never enrolled in either", {required}, {}},
            {"the required one taken", {required, Date(18, "4", "90"), Enrol(18)}, {}},
            {"enrolled in a cancelled date of this one", {required, Date(18, "3", "105"), Enrol(18)}, {kPrerequisite}},
            {"enrolled in this one in another state", {required, Date(18, "3", "105"), Enrol(18, "2")}, {kPrerequisite}},
            {"cancelled in this one", {required, Date(18, "3", "105"), Enrol(18, "0")}, {}},
            {"in no state in this one", {required, Date(18, "3", "105"), Enrol(18, "NULL")}, {}},
            {"somebody else in this one", {required, Date(18, "3", "105"), Enrol(18, "-1", kSomebody)}, {}},
            {"another client in this one", {required, Date(18, "3", "105"), Enrol(18, "-1", kSameNumberElsewhere)}, {}},
            {"two required, one finding", {required, RequireSeminar(105, 91), Date(18, "3", "105"), Enrol(18)}, {kPrerequisite}},
            {"none required", {Date(18, "3", "105"), Enrol(18)}, {}},
            {"required for another seminar", {RequireSeminar(106, 105), Date(18, "3", "105"), Enrol(18)}, {}},
            {"this one taken", {required, Date(18, "4", "105"), Enrol(18)}, {Taken(), kPrerequisite}},
        });
}

TEST_F(EnrolmentChecksForReal, MissingSkillsAreNeverFoundBecauseTheStatementIsRefused) {
    ExpectCases(kEmployee, {
                               {"missing", {RequireSeminar(105, 90), RequireSkill(105, 1)}, {}},
                               {"held",
                                {RequireSeminar(105, 90), RequireSkill(105, 1),
                                 "INSERT INTO AN_Faehigkeiten (MDNr, ANNr, Prof_ID) VALUES (5, 100, 1)"},
                                {}},
                               {"missing, and no seminar required", {RequireSkill(105, 1)}, {}},
                               {"none required", {RequireSeminar(105, 90), RequireSkill(106, 1)}, {}},
                           });
}

TEST_F(EnrolmentChecksForReal, TheServerRefusesTheLiteralTextIntSemID) {
    Write(*session_, Date(17, "2", "105"));
    Write(*session_, RequireSeminar(105, 90));
    Write(*session_, RequireSkill(105, 1));
    std::vector<std::pair<Text, Text>> refused;
    const auto watched = New<LumoConnection::TracingSession>(session_, [&](const TracedCall& call) {
        if (!call.ok) refused.emplace_back(call.statement, call.error);
    });
    colTeilnehmer list;
    EXPECT_EQ(list.Init(17, watched), true);
    const auto record = list.Add(0);
    record->MDNR(5);
    record->ANNr(100);
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), true);
    const Text reason = "Must declare the scalar variable \"@intSemID\".";
    ASSERT_EQ(refused.size(), 1U);
    EXPECT_EQ(refused[0].first, CountHeldSkills(5, 100));
    EXPECT_TRUE(refused[0].second.ends_with(reason)) << refused[0].second;
    EXPECT_TRUE(session_->LastErrorText().ends_with(reason)) << session_->LastErrorText();
}

TEST_F(EnrolmentChecksForReal, AnApplicantFindsAllButTheOverlapsOfHisOwn) {
    ExpectCases(
        kApplicant,
        {
            {"enrolled", {Enrol(17, "-1", kSelfAsApplicant)}, {kThisDate, kAlreadyEnrolled}},
            {"enrolled with another client, which the first check leaves out of account",
             {Enrol(17, "-1", "6, NULL, 77, NULL")},
             {kThisDate}},
            {"cancelled", {Enrol(17, "0", kSelfAsApplicant)}, {}},
            {"open date", {Date(18, "2", "105"), Enrol(18, "-1", kSelfAsApplicant)}, {OpenDate()}},
            {"overlap", {Date(18, "2", "106"), Day(18, "09:00", "16:00"), Enrol(18, "-1", kSelfAsApplicant)}, {}},
            {"overlap of an applicant of key 0, which is the one asked for",
             {Date(18, "2", "106"), Day(18, "09:00", "16:00"), Enrol(18, "-1", "5, NULL, 0, NULL")},
             {Overlap()}},
            {"taken", {Date(18, "4", "105"), Enrol(18, "-1", kSelfAsApplicant)}, {Taken()}},
            {"prerequisite", {RequireSeminar(105, 90), Date(18, "3", "105"), Enrol(18, "-1", kSelfAsApplicant)}, {kPrerequisite}},
            {"prerequisite with another client",
             {RequireSeminar(105, 90), Date(18, "3", "105"), Enrol(18, "-1", "6, NULL, 77, NULL")},
             {}},
            {"another applicant", {Enrol(17, "-1", "5, NULL, 78, NULL")}, {}},
            {"an employee of that number", {Enrol(17, "-1", "5, 77, NULL, NULL")}, {}},
        });
}

TEST_F(EnrolmentChecksForReal, ATemporaryWorkerGetsTheFindingsOfEverybody) {
    ExpectCases(kWorker, {
                             {"nobody is enrolled", {}, {}},
                             {"somebody in the date", {Enrol(17, "-1", kSomebody)}, {kThisDate, kAlreadyEnrolled}},
                             {"somebody cancelled in the date", {Enrol(17, "0", kSomebody)}, {kAlreadyEnrolled}},
                             {"somebody in an open date", {Date(18, "2", "105"), Enrol(18, "-1", kSomebody)}, {OpenDate()}},
                             {"an applicant of another client at that time",
                              {Date(18, "2", "106"), Day(18, "09:00", "16:00"), Enrol(18, "-1", "6, NULL, 77, NULL")},
                              {Overlap()}},
                             {"somebody took it", {Date(18, "4", "105"), Enrol(18, "-1", kSameNumberElsewhere)}, {Taken()}},
                             {"somebody of the client in the seminar",
                              {RequireSeminar(105, 90), Date(18, "3", "105"), Enrol(18, "-1", kSomebody)},
                              {kPrerequisite}},
                             {"somebody of another client in the seminar",
                              {RequireSeminar(105, 90), Date(18, "3", "105"), Enrol(18, "-1", kSameNumberElsewhere)},
                              {}},
                             {"himself", {Date(18, "2", "105"), Enrol(18, "-1", kSelfAsWorker)}, {OpenDate()}},
                         });
}

TEST_F(EnrolmentChecksForReal, ARecordOfNobodyIsAnEmployeeOfNumber0ButAnyRowOfTheDateCounts) {
    ExpectCases(kNobody, {
                             {"nobody is enrolled", {}, {}},
                             {"somebody", {Enrol(17, "-1", kSomebody)}, {kAlreadyEnrolled}},
                             {"somebody cancelled", {Enrol(17, "0", kSomebody)}, {kAlreadyEnrolled}},
                             {"number 0", {Enrol(17, "-1", "5, 0, NULL, NULL")}, {kThisDate, kAlreadyEnrolled}},
                             {"a row of another date", {Date(18, "2", "105"), Enrol(18, "-1", kSomebody)}, {}},
                         });
}

TEST_F(EnrolmentChecksForReal, ADateWithoutASeminarIsCheckedForItselfAndForOverlaps) {
    const Text no_seminar = "UPDATE Sem_Termin_IT SET SemID = NULL";
    ExpectCases(kEmployee,
                {
                    {"nothing", {no_seminar}, {}},
                    {"enrolled", {no_seminar, Enrol(17)}, {kAlreadyEnrolled}},
                    {"other dates of the former seminar",
                     {no_seminar, Date(18, "2", "105"), Date(19, "4", "105"), Enrol(18), Enrol(19)},
                     {}},
                    {"overlap", {no_seminar, Date(18, "2", "NULL"), Day(18, "09:00", "16:00"), Enrol(18)}, {Overlap()}},
                });
}

TEST_F(EnrolmentChecksForReal, AllFindingsTogetherStandInTheOrderOfTheChecks) {
    ExpectCases(kEmployee, {{"all",
                             {RequireSeminar(105, 90), Enrol(17), Date(18, "1", "105", "N'A'", "N'Ämter'"), Enrol(18),
                              Date(19, "2", "106", "N'B'", "N'Öfen'"), Day(19, "15:00", "17:00"), Enrol(19, "0"),
                              Date(20, "4", "105", "N'C'", "N'Übung'"), Enrol(20)},
                             {OpenDate("A - Ämter"), kThisDate, kAlreadyEnrolled, Overlap("B - Öfen"),
                              Taken("C - Übung"), kPrerequisite}}});
}

TEST_F(EnrolmentChecksForReal, AStoredEnrolmentFindsItself) {
    Write(*session_, Date(17, "2", "105", "N'LÖ-1'", "N'Löten für \"Anfänger\"'"));
    const auto record = NewRecord(kEmployee);
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), true);
    const auto before = record->colErrorsAnmeldung();
    EXPECT_EQ(record->WriteToDatabase(0), true);
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), false);
    EXPECT_EQ(FindingsOf(*record), (Findings{kThisDate, kAlreadyEnrolled}));
    record->Teilnahme(0);
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), false) << "the row counts, not the object";
    EXPECT_EQ(record->WriteToDatabase(0), true);
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), true);
    EXPECT_EQ(FindingsOf(*before), Findings{});
}

TEST_F(EnrolmentChecksForReal, AnApplicantSetFromOutsideIsLookedForUnderTheNumberOfTheRecordInTheOverlaps) {
    Write(*session_, Date(17, "2", "105"));
    Write(*session_, Day(17, "09:00", "16:00"));
    Write(*session_, Date(18, "2", "106", "N'B'", "N'Öfen'"));
    Write(*session_, Day(18, "09:00", "16:00"));
    Write(*session_, Enrol(18, "-1", "5, NULL, 100, NULL"));
    const auto record = NewRecord(kEmployee);
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), true);
    const auto person = New<clsWBPerson>();
    person->Init(5, 77, 3, session_);
    record->objWBPerson(person);
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), false);
    EXPECT_EQ(FindingsOf(*record), (Findings{Overlap("B - Öfen")}));
}

class EnrolmentChecksOfTheSampleCompany : public participant_statements::ParticipantTest {};

TEST_F(EnrolmentChecksOfTheSampleCompany, NoStatementButThatOfTheSkillsIsRefusedAndEveryEnrolledEmployeeFindsHimself) {
    const auto session = SampleDatabase();
    int skills = 0;
    const Ref<DataSession> watched = New<LumoConnection::TracingSession>(session, [&](const TracedCall& call) {
        const bool of_skills = call.statement.find("@intSemID") != Text::npos;
        if (of_skills) ++skills;
        EXPECT_EQ(call.ok, !of_skills) << call.statement << ": " << call.error;
    });
    // Every twentieth, and those of the seminars that ask for something.
    const Rows participants = Select(
        *session,
        "SELECT TeilnehmerID, Sem_Teilnehmer_IT.SemTerminID, Teilnahme, ANNr FROM Sem_Teilnehmer_IT INNER JOIN Sem_Termin_IT ON "
        "Sem_Teilnehmer_IT.SemTerminID = Sem_Termin_IT.SemTerminID WHERE TeilnehmerID % 20 = 0 OR (TeilnehmerID % 5 = 0 AND "
        "Sem_Termin_IT.SemID IN (SELECT SemID FROM Sem_Anford_Seminare))");
    ASSERT_GT(participants.size(), 30u);
    int found_themselves = 0;
    for (const auto& row : participants) {
        SCOPED_TRACE(To<Text>(row[0]));
        const auto record = Record(watched, To<Int32>(row[1]), To<Int32>(row[0]));
        const bool clean = static_cast<bool>(record->CheckTeilnehmerAnmeldung());
        EXPECT_EQ(clean, record->colErrorsAnmeldung()->Count() == 0);
        if (row[3].IsNull()) continue;
        bool found = false;
        for (const auto& [number, name] : FindingsOf(*record)) found = found || number == 300000001;
        if (To<Int32>(row[2]) != 0) {
            EXPECT_TRUE(found);
            ++found_themselves;
        }
    }
    EXPECT_GT(found_themselves, 20);
    EXPECT_GT(skills, 0);
}

}  // namespace
}  // namespace LumoSeminar
