#include <LumoSeminar/enrolment/clsTeilnehmer.h>

#include <gtest/gtest.h>

#include <functional>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <test_support/check_statements.h>

namespace LumoSeminar {
namespace {

using namespace check_statements;
using LumoConnection::Script;

const Variant kNull = Variant::Null();

class EnrolmentChecks : public participant_statements::ParticipantTest {};

// The run

TEST_F(EnrolmentChecks, RunInOrderAndARunWithoutAFindingIsTrue) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptDate(script);
    script
        .OpenSelect(
            "Select DISTINCT Code,Titel from Sem_Teilnehmer_IT  INNER JOIN Sem_Termin_IT ON Sem_Teilnehmer_IT.SemTerminID = "
            "Sem_Termin_IT.SemTerminID  WHERE Sem_Termin_IT.SemID = 105 AND Sem_Termin_IT.Status <= 2 AND Teilnahme = -1 AND "
            "Sem_Teilnehmer_IT.ANNr = 100 And Sem_Teilnehmer_IT.MDNr = 5 ORDER BY Code,Titel ")
        .Rows({"Code", "Titel"}, {});
    script
        .OpenSelect("Select TeilnehmerID From Sem_Teilnehmer_IT  Where SemTerminID = 17 AND Teilnahme <> 0 AND MDNR = 5 AND ANNR = 100")
        .Rows({"TeilnehmerID"}, {});
    script.CloseRows();
    script
        .OpenSelect(
            "Select DISTINCT Code,Titel  From Sem_Termin_Termine_IT  INNER JOIN Sem_Termin_IT ON "
            "Sem_Termin_Termine_IT.SemTerminID = Sem_Termin_IT.SemTerminID  INNER JOIN Sem_Teilnehmer_IT ON "
            "Sem_Teilnehmer_IT.SemTerminID = Sem_Termin_Termine_IT.SemTerminID  WHERE Sem_Termin_Termine_IT.SemTerminID <> 17 "
            "AND ((SELECT BegUhr FROM Sem_Termin_Termine_IT SemTerminBeginn WHERE SemTerminBeginn.Termin = "
            "Sem_Termin_Termine_IT.Termin AND SemTerminID = 17) BETWEEN BegUhr AND EndUhr  OR (SELECT EndUhr FROM "
            "Sem_Termin_Termine_IT SemTerminEnde WHERE SemTerminEnde.Termin = Sem_Termin_Termine_IT.Termin AND SemTerminID = "
            "17) BETWEEN BegUhr AND EndUhr) AND Sem_Teilnehmer_IT.ANNr = 100 And Sem_Teilnehmer_IT.MDNr = 5")
        .Rows({"Code", "Titel"}, {});
    script.CloseRows();
    script
        .OpenSelect(
            "Select DISTINCT Code,Titel From Sem_Teilnehmer_IT  INNER JOIN Sem_Termin_IT ON Sem_Teilnehmer_IT.SemTerminID = "
            "Sem_Termin_IT.SemTerminID  WHERE Sem_Termin_IT.SemID = 105 AND Sem_Termin_IT.Status = 4 AND Teilnahme = -1 AND "
            "Sem_Teilnehmer_IT.ANNr = 100 And Sem_Teilnehmer_IT.MDNr = 5")
        .Rows({"Code", "Titel"}, {});
    script.OpenSelect("SELECT count(gef_SemID) FROM Sem_Anford_Seminare WHERE SemID = 105").Rows({""}, {{2}});
    script
        .OpenSelect(
            "SELECT Sem_Teilnehmer_IT.MDNR,Sem_Teilnehmer_IT.ANNR  From Sem_Teilnehmer_IT INNER JOIN Sem_Termin_IT ON "
            "Sem_Teilnehmer_IT.SemTerminID = Sem_Termin_IT.SemTerminID  INNER JOIN Sem_Anford_Seminare ON Sem_Termin_IT.SemID "
            "= Sem_Anford_Seminare.SemID  Where not Sem_Teilnehmer_IT.Teilnahme = 0 AND Sem_Anford_Seminare.SemID = 105 AND "
            "Sem_Teilnehmer_IT.MDNr = 5 AND Sem_Teilnehmer_IT.ANNr = 100")
        .Rows({"MDNR", "ANNR"}, {});
    script.CloseRows();
    script.OpenSelect("SELECT count(Prof_ID) FROM Sem_Anford_Faehigkeiten WHERE SemID = 105").Rows({""}, {{1}});
    script
        .OpenSelect(
            "SELECT Count(Prof_ID) FROM  AN_Faehigkeiten INNER JOIN Sem_Anford_Faehigkeiten ON "
            "Sem_Anford_Faehigkeiten.Prof_ID = AN_Faehigkeiten.Prof_ID  WHERE Sem_Anford_Faehigkeiten.SemID = @intSemID AND "
            "AN_Faehigkeiten.MDNr = 5 AND AN_Faehigkeiten.ANNr = 100")
        .Refused("Must declare the scalar variable \"@intSemID\".");
    auto record = Record(script.Session());
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), true);
    EXPECT_EQ(FindingsOf(*record), Findings{});
    ExpectMet(script, record);
}

TEST_F(EnrolmentChecks, FindingsStandInTheOrderOfTheChecksAndOfTheRows) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptDate(script);
    const std::string person = OfEmployee(100, 5);
    ScriptOpenDates(script, person, {{"LÖ-2", "Löten für \"Anfänger\""}, {"LÖ-3", "Löten's Feinheiten"}});
    ScriptEnrolled(script, EnrolledEmployee(5, 100), {{41}, {42}});
    ScriptOverlaps(script, person, {{"Z", "Übung"}, {"A", "Ärger - und mehr"}});
    ScriptTakenBefore(script, person, {{"LÖ-1", "Löten"}});
    ScriptCount(script, CountRequiredSeminars(kSeminar), 2);
    ScriptRequiredTaken(script, RequiredOfEmployee(100), {{5, 100}, {5, 100}});
    auto record = Record(script.Session());
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), false);
    EXPECT_EQ(FindingsOf(*record), (Findings{{300000003, "LÖ-2 - Löten für \"Anfänger\""},
                                             {300000003, "LÖ-3 - Löten's Feinheiten"},
                                             {300000001, ""},
                                             {300000002, "Z - Übung"},
                                             {300000002, "A - Ärger - und mehr"},
                                             {300000004, "LÖ-1 - Löten"},
                                             {300000005, ""}}));
    ExpectMet(script, record);
}

TEST_F(EnrolmentChecks, ANullInCodeOrTitelIsAnEmptyText) {
    const RowValues rows = {{kNull, "Löten"}, {"LÖ-1", kNull}, {kNull, kNull}, {"", ""}, {17, 4.5}};
    const Text names[] = {" - Löten", "LÖ-1 - ", " - ", " - ", "17 - 4.5"};
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptDate(script);
    ScriptOpenDates(script, OfEmployee(100, 5), rows);
    ScriptEnrolled(script, EnrolledEmployee(5, 100));
    ScriptOverlaps(script, OfEmployee(100, 5), rows);
    ScriptTakenBefore(script, OfEmployee(100, 5), rows);
    auto record = Record(script.Session());
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(true, true, false), false);
    Findings expected;
    for (const Int32 number : {300000003, 300000002, 300000004}) {
        for (const Text& name : names) expected.emplace_back(number, name);
    }
    EXPECT_EQ(FindingsOf(*record), expected);
    ExpectMet(script, record);
}

TEST_F(EnrolmentChecks, EachOptionSwitchesOneCheckAndTwoChecksHaveNone) {
    for (int options = 0; options < 8; ++options) {
        const bool open_dates = (options & 1) != 0;
        const bool taken_before = (options & 2) != 0;
        const bool prerequisite = (options & 4) != 0;
        SCOPED_TRACE(options);
        Script script;
        ScriptRecord(script, kEmployee);
        if (open_dates) {
            ScriptDate(script);
            ScriptOpenDates(script, OfEmployee(100, 5));
        }
        ScriptAlways(script);
        if (!open_dates && (taken_before || prerequisite)) ScriptDate(script);
        if (taken_before) ScriptTakenBefore(script, OfEmployee(100, 5));
        if (prerequisite) ScriptCount(script, CountRequiredSeminars(kSeminar), 0);
        auto record = Record(script.Session());
        EXPECT_EQ(record->CheckTeilnehmerAnmeldung(open_dates, taken_before, prerequisite), true);
        ExpectMet(script, record);
    }
}

TEST_F(EnrolmentChecks, OptionsThatAreNotGivenAreTrue) {
    const std::function<Bool(clsTeilnehmer&)> calls[] = {
        [](clsTeilnehmer& record) { return record.CheckTeilnehmerAnmeldung(); },
        [](clsTeilnehmer& record) { return record.CheckTeilnehmerAnmeldung(true); },
        [](clsTeilnehmer& record) { return record.CheckTeilnehmerAnmeldung(true, true); },
    };
    for (const auto& call : calls) {
        Script script;
        ScriptRecord(script, kEmployee);
        ScriptDate(script);
        ScriptOpenDates(script, OfEmployee(100, 5));
        ScriptAlways(script);
        ScriptTakenBefore(script, OfEmployee(100, 5));
        ScriptCount(script, CountRequiredSeminars(kSeminar), 0);
        auto record = Record(script.Session());
        EXPECT_EQ(call(*record), true);
        ExpectMet(script, record);
    }
}

TEST_F(EnrolmentChecks, OneFindingOfAnyCheckMakesTheResultFalse) {
    for (int finding = 0; finding < 5; ++finding) {
        SCOPED_TRACE(finding);
        const auto rows = [&](int check) { return check == finding ? RowValues{{"X", "Y"}} : RowValues{}; };
        Script script;
        ScriptRecord(script, kEmployee);
        ScriptDate(script);
        ScriptOpenDates(script, OfEmployee(100, 5), rows(0));
        ScriptEnrolled(script, EnrolledEmployee(5, 100), finding == 1 ? RowValues{{41}} : RowValues{});
        ScriptOverlaps(script, OfEmployee(100, 5), rows(2));
        ScriptTakenBefore(script, OfEmployee(100, 5), rows(3));
        ScriptCount(script, CountRequiredSeminars(kSeminar), finding == 4 ? 1 : 0);
        if (finding == 4) ScriptRequiredTaken(script, RequiredOfEmployee(100), {{5, 100}});
        auto record = Record(script.Session());
        EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), false);
        EXPECT_EQ(record->colErrorsAnmeldung()->Count(), 1);
        ExpectMet(script, record);
    }
}

TEST_F(EnrolmentChecks, ANewRecordIsCheckedWithThePersonItWasGiven) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(participant_statements::Select(0));
    script.OpenSelect(termin_statements::Select(0)).Rows(termin_statements::kColumns, {});
    ScriptDate(script);
    ScriptOpenDates(script, OfEmployee(100, 5));
    ScriptAlways(script);
    ScriptTakenBefore(script, OfEmployee(100, 5), {{"LÖ-1", "Löten"}});
    ScriptCount(script, CountRequiredSeminars(kSeminar), 0);
    auto record = Record(script.Session(), kDate, 0);
    record->MDNR(5);
    record->ANNr(100);
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), false);
    EXPECT_EQ(FindingsOf(*record), (Findings{{300000004, "LÖ-1 - Löten"}}));
    EXPECT_EQ(record->Key(), "0000000000");
    ExpectMet(script, record);
}

TEST_F(EnrolmentChecks, ADateThatIsSetLaterIsCheckedWithTheSeminarOfTheFormerOne) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptDate(script);
    ScriptOpenDates(script, OfEmployee(100, 5));
    ScriptEnrolled(script, EnrolledEmployee(5, 100), {}, 18);
    ScriptOverlaps(script, OfEmployee(100, 5), {}, 18);
    ScriptTakenBefore(script, OfEmployee(100, 5));
    auto record = Record(script.Session());
    EXPECT_EQ(record->clsTermin().UseCount(), 2);
    record->SemTerminID(18);
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(true, true, false), true);
    ExpectMet(script, record);
}

TEST_F(EnrolmentChecks, ARecordBoundAnewIsReadWhereThePersonIsAskedForFirst) {
    for (const bool open_dates : {true, false}) {
        Script script;
        ScriptRecord(script, kEmployee);
        ScriptDate(script);
        script.AdoConnection();
        const auto script_row = [&] {
            auto row = participant_statements::NullRow();
            row[0] = kDate;
            row[1] = 5;
            row[3] = 77;
            script.OpenSelect(participant_statements::Select(43)).Rows(participant_statements::kColumns, {row});
        };
        if (open_dates) {
            script_row();
            ScriptOpenDates(script, OfApplicant(77));
            ScriptEnrolled(script, EnrolledApplicant(5, 77));
        } else {
            ScriptEnrolled(script, EnrolledEmployee(5, 100));
            script_row();
        }
        ScriptOverlaps(script, OfApplicant(0));
        auto record = Record(script.Session());
        EXPECT_EQ(record->clsTermin()->SemID(), kSeminar);
        EXPECT_EQ(record->Init(43, script.Session()), true);
        EXPECT_EQ(record->CheckTeilnehmerAnmeldung(open_dates, false, false), true);
        ExpectMet(script, record);
    }
}

// The list

TEST_F(EnrolmentChecks, BeforeTheFirstRunTheListIsEmptyAndTheRunReplacesIt) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptEnrolled(script, EnrolledEmployee(5, 100), {{41}});
    ScriptOverlaps(script, OfEmployee(100, 5));
    auto record = Record(script.Session());
    const auto before = record->colErrorsAnmeldung();
    ASSERT_TRUE(before);
    EXPECT_EQ(before->Count(), 0);
    EXPECT_EQ(record->colErrorsAnmeldung(), before) << "one list until a run";
    before->Add(1);
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(false, false, false), false);
    EXPECT_FALSE(record->colErrorsAnmeldung() == before);
    EXPECT_EQ(FindingsOf(*record), (Findings{{300000001, ""}}));
    EXPECT_EQ(FindingsOf(*before), (Findings{{1, ""}}));
    ExpectMet(script, record);
}

TEST_F(EnrolmentChecks, ASecondRunReplacesTheListAndTheOldOneStaysAsItWas) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptEnrolled(script, EnrolledEmployee(5, 100), {{41}});
    ScriptOverlaps(script, OfEmployee(100, 5), {{"Z", "Übung"}});
    ScriptAlways(script);
    auto record = Record(script.Session());
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(false, false, false), false);
    const auto first = record->colErrorsAnmeldung();
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(false, false, false), true);
    EXPECT_EQ(FindingsOf(*record), Findings{});
    ExpectMet(script, record);
    EXPECT_EQ(FindingsOf(*first), (Findings{{300000001, ""}, {300000002, "Z - Übung"}}));
}

TEST_F(EnrolmentChecks, TheSecondRunSendsAllStatementsAgainButLoadsNothing) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptDate(script);
    for (int run = 0; run < 2; ++run) {
        ScriptOpenDates(script, OfEmployee(100, 5), {{"A", "B"}});
        ScriptAlways(script);
        ScriptTakenBefore(script, OfEmployee(100, 5));
        ScriptCount(script, CountRequiredSeminars(kSeminar), 0);
    }
    auto record = Record(script.Session());
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), false);
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), false);
    EXPECT_EQ(FindingsOf(*record), (Findings{{300000003, "A - B"}}));
    ExpectMet(script, record);
}

// The person

/// The four checks that ask for the person, of a record with these keys.
void ScriptPersonConditions(Script& script, const std::string& filter, const std::string& enrolled,
                            const std::string& overlap_filter, const std::string& required) {
    ScriptDate(script);
    ScriptOpenDates(script, filter);
    ScriptEnrolled(script, enrolled);
    ScriptOverlaps(script, overlap_filter);
    ScriptTakenBefore(script, filter);
    ScriptCount(script, CountRequiredSeminars(kSeminar), 1);
    ScriptRequiredTaken(script, required);
    ScriptCount(script, CountRequiredSkills(kSeminar), 0);
}

TEST_F(EnrolmentChecks, TheKeyFieldsOfTheRecordSayWhoItIs) {
    const std::string employee = " AND Teilnahme <> 0 AND MDNR = 5 AND ANNR = 100";
    const std::string applicant = " AND Teilnahme <> 0  AND MDNR = 5 AND BWID = 77";
    const struct {
        PersonKeys keys;
        std::string filter;
        std::string enrolled;
        std::string overlap_filter;
        std::string required;
    } cases[] = {
        {kEmployee, OfEmployee(100, 5), employee, OfEmployee(100, 5), " AND Sem_Teilnehmer_IT.ANNr = 100"},
        {{100, 77, 9}, OfEmployee(100, 5), employee, OfEmployee(100, 5), " AND Sem_Teilnehmer_IT.ANNr = 100"},
        {{-3, 0, 0}, OfEmployee(-3, 5), EnrolledEmployee(5, -3), OfEmployee(-3, 5), RequiredOfEmployee(-3)},
        {kApplicant, OfApplicant(77), applicant, OfApplicant(0), " AND Sem_Teilnehmer_IT.BWID =77"},
        {{0, 77, 9}, OfApplicant(77), applicant, OfApplicant(0), " AND Sem_Teilnehmer_IT.BWID =77"},
        {kWorker, "", "", "", ""},
        {kNobody, OfEmployee(0, 5), "", OfEmployee(0, 5), ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.filter);
        Script script;
        ScriptRecord(script, c.keys);
        ScriptPersonConditions(script, c.filter, c.enrolled, c.overlap_filter, c.required);
        auto record = Record(script.Session());
        EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), true);
        ExpectMet(script, record);
    }
}

TEST_F(EnrolmentChecks, AnApplicantIsLookedForUnderTheNumberOfAnEmployeeInTheOverlaps) {
    Script script;
    ScriptRecord(script, kApplicant);
    ScriptEnrolled(script, EnrolledApplicant(5, 77));
    ScriptOverlaps(script, " AND Sem_Teilnehmer_IT.BWID = 0");
    auto record = Record(script.Session());
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(false, false, false), true);
    ExpectMet(script, record);
}

TEST_F(EnrolmentChecks, ThePersonSetFromOutsideDecidesButNotWhereTheKeyFieldsDo) {
    const std::string employee = " AND Sem_Teilnehmer_IT.ANNr = 100 And Sem_Teilnehmer_IT.MDNr = 5";
    const struct {
        Byte kind;
        std::string filter;
        std::string overlap_filter;
    } cases[] = {{2, employee, employee},
                 {14, employee, employee},
                 {3, " AND Sem_Teilnehmer_IT.BWID = 77", " AND Sem_Teilnehmer_IT.BWID = 100"},
                 {4, "", ""},
                 {9, "", ""},
                 {0, "", ""}};
    for (const auto& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.kind));
        Script script;
        ScriptRecord(script, {.ANNr = 100, .BWID = 77, .LAID = 9});
        ScriptPersonConditions(script, c.filter, EnrolledEmployee(5, 100), c.overlap_filter, RequiredOfEmployee(100));
        auto record = Record(script.Session());
        const auto person = New<clsWBPerson>();
        auto session = script.Session();
        person->Init(6, 4711, c.kind, session);
        session.Reset();
        record->objWBPerson(person);
        EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(EnrolmentChecks, APersonThatWasMadeOnceKeepsItsKindWhateverTheKeyFieldsBecome) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptEnrolled(script, EnrolledApplicant(5, 77));
    ScriptOverlaps(script, OfEmployee(0, 5));
    auto record = Record(script.Session());
    EXPECT_EQ(record->PersGr(), "AN");
    record->ANNr(0);
    record->BWID(77);
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(false, false, false), true);
    ExpectMet(script, record);
}

// The date without a seminar

TEST_F(EnrolmentChecks, WithoutASeminarTwoChecksSendNothingAndThePrerequisitesAreThoseOfSeminar0) {
    for (const Variant& seminar : {kNull, Variant(0)}) {
        Script script;
        ScriptRecord(script, kEmployee);
        ScriptDate(script, seminar);
        ScriptAlways(script);
        ScriptCount(script, CountRequiredSeminars(0), 3);
        ScriptRequiredTaken(script, RequiredOfEmployee(100), {}, 0);
        ScriptCount(script, CountRequiredSkills(0), 2);
        ScriptCount(script, CountHeldSkills(5, 100), 1);
        auto record = Record(script.Session());
        EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), false);
        EXPECT_EQ(FindingsOf(*record), (Findings{{300000005, ""}}));
        ExpectMet(script, record);
    }
}

TEST_F(EnrolmentChecks, ADateWithoutARowIsOneWithoutASeminar) {
    Script script;
    ScriptRecord(script, kEmployee);
    script.OpenSelect(termin_statements::Select(kDate)).Rows(termin_statements::kColumns, {});
    ScriptAlways(script);
    ScriptCount(script, CountRequiredSeminars(0), 0);
    auto record = Record(script.Session());
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(), true);
    ExpectMet(script, record);
}

// The prerequisites

TEST_F(EnrolmentChecks, AnEnrolmentInTheSeminarItselfCountsAsAMissingPrerequisiteAndNoneDoesNot) {
    for (const bool enrolled : {true, false}) {
        Script script;
        ScriptRecord(script, kEmployee);
        ScriptAlways(script);
        ScriptDate(script);
        ScriptCount(script, CountRequiredSeminars(kSeminar), 1);
        ScriptRequiredTaken(script, RequiredOfEmployee(100), enrolled ? RowValues{{5, 100}} : RowValues{});
        if (!enrolled) ScriptCount(script, CountRequiredSkills(kSeminar), 0);
        auto record = Record(script.Session());
        EXPECT_EQ(record->CheckTeilnehmerAnmeldung(false, false, true), !enrolled);
        EXPECT_EQ(FindingsOf(*record), (enrolled ? Findings{{300000005, ""}} : Findings{}));
        ExpectMet(script, record);
    }
}

TEST_F(EnrolmentChecks, WithoutRequiredSeminarsTheSkillsAreNotLookedAt) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptAlways(script);
    ScriptDate(script);
    ScriptCount(script, CountRequiredSeminars(kSeminar), 0);
    auto record = Record(script.Session());
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(false, false, true), true);
    ExpectMet(script, record);
}

TEST_F(EnrolmentChecks, ACountWithoutARowLeadsToTheSkills) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptAlways(script);
    ScriptDate(script);
    script.OpenSelect(CountRequiredSeminars(kSeminar)).Rows({""}, {});
    script.OpenSelect(CountRequiredSkills(kSeminar)).Rows({""}, {});
    auto record = Record(script.Session());
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(false, false, true), true);
    ExpectMet(script, record);
}

TEST_F(EnrolmentChecks, TheSkillsAreCountedWithTheLiteralTextIntSemIDAndTheClientAndNumberOfAnyPerson) {
    const struct {
        PersonKeys keys;
        std::string enrolled;
        std::string overlap_filter;
        std::string required;
        int number;
    } cases[] = {{kEmployee, EnrolledEmployee(5, 100), OfEmployee(100, 5), RequiredOfEmployee(100), 100},
                 {kApplicant, EnrolledApplicant(5, 77), OfApplicant(0), RequiredOfApplicant(77), 0},
                 {kWorker, "", "", "", 0}};
    for (const auto& c : cases) {
        Script script;
        ScriptRecord(script, c.keys);
        ScriptEnrolled(script, c.enrolled);
        ScriptOverlaps(script, c.overlap_filter);
        ScriptDate(script);
        ScriptCount(script, CountRequiredSeminars(kSeminar), 1);
        ScriptRequiredTaken(script, c.required);
        ScriptCount(script, CountRequiredSkills(kSeminar), 2);
        ScriptCount(script,
                    "SELECT Count(Prof_ID) FROM  AN_Faehigkeiten INNER JOIN Sem_Anford_Faehigkeiten ON "
                    "Sem_Anford_Faehigkeiten.Prof_ID = AN_Faehigkeiten.Prof_ID  WHERE Sem_Anford_Faehigkeiten.SemID = "
                    "@intSemID AND AN_Faehigkeiten.MDNr = 5 AND AN_Faehigkeiten.ANNr = " +
                        std::to_string(c.number),
                    1);
        auto record = Record(script.Session());
        EXPECT_EQ(record->CheckTeilnehmerAnmeldung(false, false, true), false);
        EXPECT_EQ(FindingsOf(*record), (Findings{{300000005, ""}}));
        ExpectMet(script, record);
    }
}

TEST_F(EnrolmentChecks, SkillsAreMissingWhereFewerAreHeldThanRequired) {
    const struct {
        Int32 required;
        Int32 held;
        bool missing;
    } cases[] = {{1, 0, true}, {1, 1, false}, {1, 2, false}, {3, 2, true}, {3, 3, false}, {-1, -2, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.held) + " of " + std::to_string(c.required));
        Script script;
        ScriptRecord(script, kEmployee);
        ScriptUpToTheSkills(script);
        ScriptCount(script, CountRequiredSkills(kSeminar), c.required);
        ScriptCount(script, CountHeldSkills(5, 100), c.held);
        auto record = Record(script.Session());
        EXPECT_EQ(record->CheckTeilnehmerAnmeldung(false, false, true), !c.missing);
        EXPECT_EQ(FindingsOf(*record), (c.missing ? Findings{{300000005, ""}} : Findings{}));
        ExpectMet(script, record);
    }
}

TEST_F(EnrolmentChecks, ACountOfHeldSkillsWithoutARowIsNoFinding) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptUpToTheSkills(script);
    ScriptCount(script, CountRequiredSkills(kSeminar), 2);
    script.OpenSelect(CountHeldSkills(5, 100)).Rows({""}, {});
    auto record = Record(script.Session());
    EXPECT_EQ(record->CheckTeilnehmerAnmeldung(false, false, true), true);
    ExpectMet(script, record);
}

}  // namespace
}  // namespace LumoSeminar
