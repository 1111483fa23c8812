#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

class CheckCommand : public Cli {
  protected:
    CheckCommand() { UseSample(); }

    void Sql(const std::string& text) const {
        const auto done = Run({"sql", text});
        ASSERT_EQ(done.code, 0) << done.err;
    }
    int Participants() const { return Json({"sql", "select count(*) as n from Sem_Teilnehmer_IT"})[0]["n"]; }
};

TEST_F(CheckCommand, FindsNothing) {
    const int before = Participants();
    const auto done = Run({"check", "78", "130"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out, "ErrID  Finding\n-----  -------\n");
    EXPECT_EQ(done.err, "0 findings, looked for without a client\n");
    EXPECT_EQ(Participants(), before);
}

TEST_F(CheckCommand, OfAnEmployeeFindsOnlyWhatIsEnteredWithoutAClient) {
    // The enrolment at the same time that participants enrol finds.
    EXPECT_EQ(Json({"check", "60", "309"}), nlohmann::json::array());
    Sql("update Sem_Teilnehmer_IT set MDNr = 0 where ANNr = 309");
    const auto done = Run({"check", "60", "309"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out,
              "    ErrID  Finding\n"
              "---------  -------------------------------------------------------------------------------------------------------------\n"
              "300000002  The person is booked on another date at the same time: FT-112/10-1 - Fünfachsiges Fräsen für Fortgeschrittene\n");
    EXPECT_EQ(done.err, "1 finding, looked for without a client\n");
}

TEST_F(CheckCommand, OfAnybodyElseTakesEachParticipantOfTheDateForThePerson) {
    for (const Arguments& who : {Arguments{"9", "--kind", "worker"}, Arguments{"3", "--kind", "applicant"}}) {
        Arguments arguments = {"check", "61"};
        arguments.insert(arguments.end(), who.begin(), who.end());
        arguments.insert(arguments.end(), {"--format", "json"});
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.err, "");
        EXPECT_EQ(nlohmann::json::parse(done.out)[0]["Finding"], "The person is already enrolled in this date.");
        arguments[1] = "79";
        EXPECT_EQ(Run(arguments).out, "[]\n") << "a date without participants";
    }
}

class CheckCommandWithFindings : public CheckCommand {
  protected:
    // Of the seminar of date 77 a past date and the date itself.
    CheckCommandWithFindings() {
        Sql("insert into Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, MDNr, ANNr, Teilnahme) values "
            "(700, 77, 0, 130, -1), (701, 34, 0, 130, -1)");
    }

    std::string Findings(const Arguments& more) const {
        Arguments arguments = {"check", "77", "130", "--format", "csv"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.err, "");
        return done.out;
    }
};

constexpr const char* kOpen =
    "300000003,The person is enrolled in an open date of this seminar: FT-102/10-1 - Form- und Lagetoleranzen\n";
constexpr const char* kEnrolled = "300000001,The person is already enrolled in this date.\n";
constexpr const char* kTaken = "300000004,The person has taken this seminar before: FT-102/09-1 - Form- und Lagetoleranzen\n";
constexpr const char* kPrerequisite = "300000005,A prerequisite of the seminar is missing.\n";

TEST_F(CheckCommandWithFindings, SaysThemInPlainWords) {
    EXPECT_EQ(Findings({}), std::string("ErrID,Finding\n") + kOpen + kEnrolled + kTaken + kPrerequisite);
}

TEST_F(CheckCommandWithFindings, SaysThemInGerman) {
    EXPECT_EQ(Findings({"--german"}),
              "ErrID,Finding\n"
              "300000003,Die Person ist in einem offenen Termin dieses Seminars angemeldet: FT-102/10-1 - Form- und Lagetoleranzen\n"
              "300000001,Die Person ist für diesen Termin schon angemeldet.\n"
              "300000004,Die Person hat dieses Seminar schon besucht: FT-102/09-1 - Form- und Lagetoleranzen\n"
              "300000005,Eine Voraussetzung des Seminars fehlt.\n");
}

TEST_F(CheckCommandWithFindings, LeavesOutChecksThatAreNotWanted) {
    EXPECT_EQ(Findings({"--no-check-seminar"}), std::string("ErrID,Finding\n") + kEnrolled + kTaken + kPrerequisite);
    EXPECT_EQ(Findings({"--no-check-taken"}), std::string("ErrID,Finding\n") + kOpen + kEnrolled + kPrerequisite);
    EXPECT_EQ(Findings({"--no-check-prerequisites"}), std::string("ErrID,Finding\n") + kOpen + kEnrolled + kTaken);
    EXPECT_EQ(Findings({"--no-check-seminar", "--no-check-taken", "--no-check-prerequisites"}),
              std::string("ErrID,Finding\n") + kEnrolled);
}

TEST_F(CheckCommand, WhatIsNotThere) {
    const auto date = Run({"check", "67", "130"});
    EXPECT_EQ(date.code, 1);
    EXPECT_EQ(date.err, "lumoseminar: There is no date 67 of client 1.\n");
    const auto person = Run({"check", "78", "130", "--kind", "worker"});
    EXPECT_EQ(person.code, 1);
    EXPECT_EQ(person.out, "");
    EXPECT_EQ(person.err, "lumoseminar: There is no worker 130.\n");
}

TEST_F(CheckCommand, WrongUsage) {
    ExpectUsage(Run({"check", "78"}),
                "PERSON is missing: Number or name of the employee, key or name of the applicant or temporary worker.",
                "check");
    ExpectUsage(Run({"check", "x", "130"}), "DATE: \"x\" is not a whole number.", "check");
    ExpectUsage(Run({"check", "78", "1.5"}), "PERSON: \"1.5\" is neither a number nor a name.", "check");
    ExpectUsage(Run({"check", "78", "130", "--kind", "guest"}),
                "--kind: \"guest\" is none of employee, applicant, worker.", "check");
    ExpectUsage(Run({"check", "78", "130", "--force"}), "There is no option --force.", "check");
}

}  // namespace
}  // namespace frontend
