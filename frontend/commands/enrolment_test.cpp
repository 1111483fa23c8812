#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <test_support/places.h>

#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class EnrolCommand : public Cli {
  protected:
    EnrolCommand() { UseSample(); }

    Arguments Enrol(int date, int person, const Arguments& options = {}) const {
        Arguments arguments = {"participants", "enrol", std::to_string(date), std::to_string(person)};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return arguments;
    }

    int Count(const std::string& table, const std::string& where = "1 = 1") const {
        return Json({"sql", "select count(*) as n from " + table + " where " + where})[0]["n"];
    }

    int Participants() const { return Count("Sem_Teilnehmer_IT"); }

    void Force(int date, int person) const {
        const auto done = Run(Enrol(date, person, {"--force"}));
        ASSERT_EQ(done.code, 0) << done.err;
    }

    struct Conversation {
        int code = -1;
        /// Both streams and what was typed.
        std::string shown;
    };

    /// Runs the program on a terminal, where somebody types.
    /// @param redirection  of the shell, behind the command
    Conversation Talk(const Arguments& arguments, const std::string& typed, const std::string& redirection = {}) const {
        std::string command = "exec " + InShellQuotes(test_support::Program());
        for (const auto& argument : arguments) command += " " + InShellQuotes(argument);
        command += " " + redirection;
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            if (chdir(folder_.c_str()) == 0) execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            _exit(127);
        }
        EXPECT_EQ(write(terminal, typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
        Conversation done;
        char buffer[4096];
        ssize_t count = 0;
        while ((count = read(terminal, buffer, sizeof buffer)) > 0) {
            done.shown.append(buffer, static_cast<std::size_t>(count));
        }
        close(terminal);
        int status = 0;
        waitpid(child, &status, 0);
        if (WIFEXITED(status)) done.code = WEXITSTATUS(status);
        return done;
    }
};

constexpr const char* kQuestion = "Enrol all the same? [y/N] ";

TEST_F(EnrolCommand, StoresTheRecordWithTheCostsOfTheDate) {
    const auto done = Run(Enrol(78, 130, {"--user", "lena", "--entered-on", "2010-09-07"}));
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out,
              "TeilnehmerID      642\n"
              "SemTerminID       78\n"
              "MDNr              1\n"
              "ANNr              130\n"
              "BWID              0\n"
              "LAID              0\n"
              "ErfDatum          2010-09-07\n"
              "ErfUser           lena\n"
              "Teilnahme         yes\n"
              "Herkunft          3\n"
              "BeginnDatum       2010-11-24\n"
              "BegUhrzeit        09:00\n"
              "EndeDatum         2010-11-24\n"
              "EndUhrzeit        16:30\n"
              "storniertam       NULL\n"
              "StornoGrund       0\n"
              "StornoKosten      0\n"
              "Ergebnis          1\n"
              "Bemerkung\n"
              "PersGr            AN\n"
              "PersNr            130\n"
              "NameVorname       Kölbl, Norbert\n"
              "TeilnehmerKosten  340.00\n");
    EXPECT_EQ(done.err, "1 of 10 places free\n");
    EXPECT_EQ(Run({"participants", "costs", "642", "--format", "csv"}).out,
              "KostenID,KostenArtID,KostenArt,Kostenbetrag,Kost\n1,1,Teilnehmerkosten,340.00,0\n");
}

TEST_F(EnrolCommand, WithoutCostsOfTheDateThereIsNoCostLine) {
    EXPECT_EQ(Json(Enrol(79, 130))["TeilnehmerKosten"], 0);
    EXPECT_EQ(Count("Sem_Teilnehmer_Kosten_IT", "TeilnehmerID = 642"), 0);
}

TEST_F(EnrolCommand, TakesApplicantsTemporaryWorkersAndEmployeesOfOtherClients) {
    const auto applicant = Json(Enrol(79, 3, {"--kind", "applicant"}));
    EXPECT_EQ(applicant["BWID"], 3);
    EXPECT_EQ(applicant["ANNr"], 0);
    EXPECT_EQ(applicant["PersGr"], "BW");
    EXPECT_EQ(applicant["NameVorname"], "Çelik, Hüseyin");
    const auto worker = Json(Enrol(80, 9, {"--kind", "worker"}));
    EXPECT_EQ(worker["LAID"], 9);
    EXPECT_EQ(worker["MDNr"], 1);
    EXPECT_EQ(worker["PersGr"], "LA");
    EXPECT_EQ(worker["NameVorname"], "Löffler, Jan");
    const auto of_another_client = Json(Enrol(76, 130, {"--client", "2"}));
    EXPECT_EQ(of_another_client["MDNr"], 2) << "the date is common to all";
    EXPECT_EQ(of_another_client["NameVorname"], "Vößing, Peter");
}

TEST_F(EnrolCommand, TakesColumnsFromOptions) {
    const auto record = Json(Enrol(60, 130,
                                   {"--overbook", "--remark", "nur \"Ü\"-Teil", "--begin", "30.09.2010", "--from",
                                    "10:15", "--origin", "5", "--result", "3", "--entered-by", "maria"}));
    EXPECT_EQ(record["Bemerkung"], "nur \"Ü\"-Teil");
    EXPECT_EQ(record["BeginnDatum"], "2010-09-30T00:00:00");
    EXPECT_EQ(record["EndeDatum"], "2010-10-28T00:00:00") << "that of the date";
    EXPECT_EQ(record["BegUhrzeit"], "10:15");
    EXPECT_EQ(record["EndUhrzeit"], "16:00") << "that of the date";
    EXPECT_EQ(record["Herkunft"], 5);
    EXPECT_EQ(record["Ergebnis"], 3);
    EXPECT_EQ(record["ErfUser"], "maria");
}

TEST_F(EnrolCommand, OneWhoIsEnteredAsCancelledHasTheCostLineAllTheSame) {
    EXPECT_EQ(Json(Enrol(78, 130, {"--attendance", "0", "--cancel-cost", "30"}))["TeilnehmerKosten"], 30);
    EXPECT_EQ(Count("Sem_Teilnehmer_Kosten_IT", "TeilnehmerID = 642 and Kostenbetrag = 340"), 1);
}

TEST_F(EnrolCommand, TellsThatADateIsOverbooked) {
    const auto done = Run(Enrol(61, 130, {"--overbook"}));
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.err, "overbooked by 1\n");
    EXPECT_EQ(Run({"participants", "list", "61"}).err, "9 participants, overbooked by 1\n");
}

TEST_F(EnrolCommand, OnAFullDateItAsks) {
    const int before = Participants();
    const auto refused = Run(Enrol(61, 130), "y\n");
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err,
              "Date 61 is full: 6 participants for 6 places.\n"
              "lumoseminar: Kölbl, Norbert was not enrolled in date 61: nobody can be asked here, and --overbook was not given.\n");
    const auto no = Sit(Enrol(61, 130), {.acts = {{kQuestion, "n\n"}}});
    EXPECT_EQ(no.code, 1);
    EXPECT_THAT(no.screen, HasSubstr("lumoseminar: Kölbl, Norbert was not enrolled in date 61.\r\n"));
    EXPECT_EQ(Participants(), before);
    EXPECT_EQ(Sit(Enrol(61, 130), {.acts = {{kQuestion, "Ja\n"}}}).code, 0);
    EXPECT_EQ(Participants(), before + 1);
    EXPECT_EQ(Run(Enrol(61, 131, {"--attendance", "no"})).code, 0) << "takes no place";
}

TEST_F(EnrolCommand, WithFindingsNothingIsWritten) {
    const int before = Participants();
    const auto done = Run(Enrol(60, 309, {"--overbook"}), "y\n");
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err,
              "1 finding:\n"
              "    The person is booked on another date at the same time: FT-112/10-1 - Fünfachsiges Fräsen für Fortgeschrittene\n"
              "lumoseminar: Schmidt, Heike was not enrolled in date 60: nobody can be asked here, and --force was not given.\n");
    EXPECT_EQ(Participants(), before);
    EXPECT_EQ(Run(Enrol(60, 309, {"--overbook", "--format", "json"})).err, done.err);
}

TEST_F(EnrolCommand, ForceWritesInSpiteOfFindings) {
    const auto done = Run(Enrol(60, 309, {"--overbook", "--force", "--format", "json"}));
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(nlohmann::json::parse(done.out)["TeilnehmerID"], 642);
    EXPECT_EQ(done.err,
              "1 finding:\n"
              "    The person is booked on another date at the same time: FT-112/10-1 - Fünfachsiges Fräsen für Fortgeschrittene\n");
}

class EnrolCommandWithAllFindings : public EnrolCommand {
  protected:
    // A date at the same time; and of the seminar a past one, and the one that is asked for.
    EnrolCommandWithAllFindings() {
        const auto other = Json({"dates", "add", "--seminar", "33", "--code", "FK-Ü", "--title", "Üben \"kurz\"",
                                 "--begin", "23.11.2010", "--from", "15:00", "--to", "17:00", "--sessions", "1"});
        EXPECT_EQ(other["SemTerminID"], 82);
        for (const int date : {82, 34, 77}) Force(date, 130);
        before_ = Participants();
    }

    int before_ = 0;
};

TEST_F(EnrolCommandWithAllFindings, SaysThemInPlainWords) {
    const auto done = Run(Enrol(77, 130));
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err,
              "5 findings:\n"
              "    The person is enrolled in an open date of this seminar: FT-102/10-1 - Form- und Lagetoleranzen\n"
              "    The person is already enrolled in this date.\n"
              "    The person is booked on another date at the same time: FK-Ü - Üben \"kurz\"\n"
              "    The person has taken this seminar before: FT-102/09-1 - Form- und Lagetoleranzen\n"
              "    A prerequisite of the seminar is missing.\n"
              "lumoseminar: Kölbl, Norbert was not enrolled in date 77: nobody can be asked here, and --force was not given.\n");
    EXPECT_EQ(Participants(), before_);
}

TEST_F(EnrolCommandWithAllFindings, SaysThemInGerman) {
    const auto done = Run(Enrol(77, 130, {"--german"}));
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.err,
              "5 findings:\n"
              "    Die Person ist in einem offenen Termin dieses Seminars angemeldet: FT-102/10-1 - Form- und Lagetoleranzen\n"
              "    Die Person ist für diesen Termin schon angemeldet.\n"
              "    Die Person ist zur selben Zeit in einem anderen Termin gebucht: FK-Ü - Üben \"kurz\"\n"
              "    Die Person hat dieses Seminar schon besucht: FT-102/09-1 - Form- und Lagetoleranzen\n"
              "    Eine Voraussetzung des Seminars fehlt.\n"
              "lumoseminar: Kölbl, Norbert was not enrolled in date 77: nobody can be asked here, and --force was not given.\n");
}

TEST_F(EnrolCommandWithAllFindings, LeavesOutChecksThatAreNotWanted) {
    constexpr const char* kOpen = "in an open date of this seminar";
    constexpr const char* kTaken = "has taken this seminar before";
    constexpr const char* kPrerequisite = "A prerequisite";
    EXPECT_THAT(Run(Enrol(77, 130, {"--no-check-seminar"})).err, AllOf(StartsWith("4 findings:\n"), Not(HasSubstr(kOpen))));
    EXPECT_THAT(Run(Enrol(77, 130, {"--no-check-taken"})).err, AllOf(StartsWith("4 findings:\n"), Not(HasSubstr(kTaken))));
    EXPECT_THAT(Run(Enrol(77, 130, {"--no-check-prerequisites"})).err,
                AllOf(StartsWith("4 findings:\n"), Not(HasSubstr(kPrerequisite))));
    EXPECT_THAT(Run(Enrol(77, 130, {"--no-check-seminar", "--no-check-taken", "--no-check-prerequisites"})).err,
                StartsWith("2 findings:\n    The person is already enrolled in this date.\n"));
    EXPECT_EQ(Participants(), before_);
}

TEST_F(EnrolCommand, ATemporaryWorkerIsToldTheFindingsOfEverybody) {
    const auto done = Run(Enrol(78, 9, {"--kind", "worker"}));
    EXPECT_EQ(done.code, 1);
    EXPECT_THAT(done.err, HasSubstr("\n    The person is already enrolled in this date.\n"));
    EXPECT_EQ(Count("Sem_Teilnehmer_IT", "SemTerminID = 78 and LAID is not null"), 0);
}

TEST_F(EnrolCommand, OnATerminalAYesEnrols) {
    const int before = Participants();
    for (const char* yes : {"y\n", "Y\n", "yes\n"}) {
        const auto done = Talk(Enrol(60, 309, {"--overbook"}), yes);
        EXPECT_EQ(done.code, 0);
        EXPECT_THAT(done.shown, AllOf(HasSubstr("1 finding:"), HasSubstr(kQuestion), HasSubstr("Schmidt, Heike")));
        ASSERT_EQ(Run({"participants", "remove", "--yes", "642"}).code, 0) << done.shown;
    }
    EXPECT_EQ(Participants(), before);
}

TEST_F(EnrolCommand, OnATerminalAnythingElseDoesNot) {
    const int before = Participants();
    for (const char* other : {"n\n", "\n", "yo\n", "\x04"}) {
        const auto done = Talk(Enrol(60, 309, {"--overbook"}), other);
        EXPECT_EQ(done.code, 1);
        EXPECT_THAT(done.shown, AllOf(HasSubstr(kQuestion), HasSubstr("was not enrolled in date 60")));
    }
    EXPECT_EQ(Participants(), before);
}

TEST_F(EnrolCommand, NobodyIsAskedWhereNobodyIsThereOrThereIsNothingToAsk) {
    const auto errors_elsewhere = Talk(Enrol(60, 309, {"--overbook"}), "y\n", "2>told");
    EXPECT_EQ(errors_elsewhere.code, 1) << errors_elsewhere.shown;
    EXPECT_THAT(ReadAll(folder_ / "told"), AllOf(HasSubstr("1 finding:"), Not(HasSubstr(kQuestion))));
    const auto input_elsewhere = Talk(Enrol(60, 309, {"--overbook"}), "", "</dev/null");
    EXPECT_EQ(input_elsewhere.code, 1);
    EXPECT_THAT(input_elsewhere.shown, AllOf(HasSubstr("1 finding:"), Not(HasSubstr(kQuestion))));
    const auto nothing_found = Talk(Enrol(78, 130), "n\n");
    EXPECT_EQ(nothing_found.code, 0);
    EXPECT_THAT(nothing_found.shown, Not(HasSubstr(kQuestion)));
    const auto forced = Talk(Enrol(60, 309, {"--overbook", "--force"}), "n\n");
    EXPECT_EQ(forced.code, 0);
    EXPECT_THAT(forced.shown, AllOf(HasSubstr("1 finding:"), Not(HasSubstr(kQuestion))));
}

TEST_F(EnrolCommand, UnknownDatesAndPersons) {
    const int before = Participants();
    const auto date = Run(Enrol(67, 130));
    EXPECT_EQ(date.code, 1);
    EXPECT_EQ(date.out, "");
    EXPECT_EQ(date.err, "lumoseminar: There is no date 67 of client 1.\n");
    const auto person = Run(Enrol(78, 9999, {"--force"}));
    EXPECT_EQ(person.code, 1);
    EXPECT_EQ(person.out, "");
    EXPECT_EQ(person.err, "lumoseminar: There is no employee 9999 of client 1.\n");
    EXPECT_EQ(Run(Enrol(78, 130, {"--kind", "worker"})).err, "lumoseminar: There is no worker 130.\n");
    EXPECT_EQ(Participants(), before);
}

TEST_F(EnrolCommand, AnInsertThatIsRefusedIsTold) {
    const int before = Participants();
    const auto done = Run(Enrol(78, 130, {"--remark", std::string(256, 'x')}));
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: The database refused it: "));
    EXPECT_EQ(Participants(), before);
    EXPECT_EQ(Count("Sem_Teilnehmer_Kosten_IT", "TeilnehmerID = 642"), 0);
}

TEST_F(EnrolCommand, CostsThatAreRefusedBehindTheInsertAreTold) {
    ASSERT_EQ(Run({"sql", "drop table sysIData_KostenArten"}).code, 0);
    const auto done = Run(Enrol(78, 130, {"--verbose"}));
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: Participant 642 was enrolled, but without the costs.\n"
                                     "lumoseminar: The database refused it: Invalid object name 'sysIData_KostenArten'.\n"
                                     "    error 9999, LumoSeminar\n"
                                     "    in LumoSeminar.WriteToDatabase\n"
                                     "    LumoSeminar062.clsTeilnehmer.WriteToDatabase\n"));
    EXPECT_EQ(Count("Sem_Teilnehmer_IT", "TeilnehmerID = 642"), 1);
}

TEST_F(EnrolCommand, WrongUsageWritesNothing) {
    const int before = Participants();
    const char* const enrol = "participants enrol";
    ExpectUsage(Run({"participants", "enrol", "78"}),
                "PERSON is missing: Number or name of the employee, key or name of the applicant or temporary worker.", enrol);
    ExpectUsage(Run({"participants", "enrol", "78", ""}), "PERSON: \"\" is neither a number nor a name.", enrol);
    ExpectUsage(Run(Enrol(78, 130, {"--kind", "guest"})), "--kind: \"guest\" is none of employee, applicant, worker.", enrol);
    ExpectUsage(Run(Enrol(78, 130, {"--begin", "24.11."})),
                "--begin: \"24.11.\" has no year; write it with four digits, as in 1.3.2027.", enrol);
    ExpectUsage(Run(Enrol(78, 130, {"--mdnr", "2"})), "There is no option --mdnr.", enrol);
    EXPECT_EQ(Participants(), before);
}

}  // namespace
}  // namespace frontend
