#include <LumoConnection/tables/create_tables.h>

#include <test_support/places.h>
#include <test_support/server.h>

#include "frontend/cli_test.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <sstream>

#include "frontend/sessions.h"
#include "frontend/shell_test.h"
#include "frontend/tour/chapters.h"
#include "frontend/tour/interruption.h"

namespace frontend {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::size_t WidestLine(const std::string& text) {
    std::size_t widest = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const auto inner =
            std::count_if(line.begin(), line.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; });
        widest = std::max(widest, line.size() - static_cast<std::size_t>(inner));
    }
    return widest;
}

constexpr const char* kGiven = "Provider=Embedded;Data Source=lumoseminar.db";
constexpr const char* kPause = "-- Enter: on to ";

// What stands in the shell's syntax below the last head of the tour.
std::vector<std::string> CommandsToTry(const std::string& tour) {
    std::vector<std::string> commands;
    std::istringstream lines(tour.substr(tour.find("\nFive commands to try") + 1));
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line)) commands.push_back(line.substr(3));
    return commands;
}

class TourOnAGivenDatabase : public Cli {
  protected:
    TourOnAGivenDatabase() { UseSample(); }

    void Do(const Arguments& arguments) const {
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 0) << testing::PrintToString(arguments) << done.err;
    }

    std::string EveryRow() const {
        const auto tables = Run({"tables", "--format", "csv"}).out;
        std::istringstream lines(tables);
        std::string rows = tables;
        std::string line;
        std::getline(lines, line);
        while (std::getline(lines, line)) {
            rows +=
                Run({"sql", "select * from " + line.substr(0, line.find(',')) + " order by 1, 2", "--format", "csv"}).out;
        }
        return rows;
    }
};

TEST_F(Cli, TourRunsAnywhereAndComesOutAsTold) {
    const auto done = Run({"tour"});
    EXPECT_EQ(done.code, 0) << done.out << done.err;
    EXPECT_EQ(done.err, "");
    EXPECT_THAT(done.out, StartsWith("A walk through the seminar administration\n   Petra wants a place in a seminar"));
    EXPECT_THAT(done.out, HasSubstr("\nAll 33 steps came out as told.\n\nFive commands to try, on a sample of your own:\n"));
    for (const char* head : {"1 of 4: catalogue\n   The", "2 of 4: scheduling\n   The",
                             "3 of 4: enrolment\n   Petra wants", "4 of 4: approval\n   Petra wants"}) {
        EXPECT_THAT(done.out, HasSubstr(std::string("\nChapter ") + head));
    }
    EXPECT_THAT(
        done.out,
        HasSubstr("call       list->Init(1, session)\n   statement  SELECT SemID FROM Sem_Katalog_IT WHERE (MDNr = 1 or MDNR = -1)\n"));
    EXPECT_THAT(done.out, HasSubstr("raised     error 9999: "));
    EXPECT_THAT(done.out, HasSubstr("LumoSeminar062.clsSeminar.WriteToDatabase\n"));
    EXPECT_THAT(done.out, HasSubstr("   Employee  Name           Came by   Before  After\n"));
    EXPECT_THAT(done.out, HasSubstr("\n             places free              2       0\n"));
    EXPECT_THAT(done.out, Not(HasSubstr("NOT AS TOLD")));
    EXPECT_LE(WidestLine(done.out), 80U);
    EXPECT_FALSE(fs::exists(folder_ / "lumoseminar.db"));
}

TEST_F(Cli, TourEndsWithFiveCommandsThatWork) {
    const auto commands = CommandsToTry(Run({"tour"}).out);
    ASSERT_EQ(commands.size(), 5U);
    fs::create_symlink(test_support::Program(), folder_ / "lumoseminar");
    for (const auto& command : commands) {
        const auto done = RunShell({folder_, "PATH=" + InShellQuotes(folder_) + ":$PATH; " + command});
        EXPECT_EQ(done.code, 0) << command << '\n' << done.screen;
    }
}

TEST_F(TourOnAGivenDatabase, EndsWithFiveCommandsThatWorkThere) {
    fs::rename(folder_ / "lumoseminar.db", folder_ / "other's.db");
    const auto tour = Run({"tour", "--client", "2", "--connect", "Provider=Embedded;Data Source=other's.db"});
    const auto commands = CommandsToTry(tour.out);
    ASSERT_EQ(commands.size(), 6U);
    EXPECT_THAT(commands.front(), StartsWith("export LUMOSEMINAR_CONNECT="));
    fs::create_symlink(test_support::Program(), folder_ / "lumoseminar");
    for (std::size_t i = 1; i < commands.size(); ++i) {
        const auto done =
            RunShell({folder_, commands.front() + "; PATH=" + InShellQuotes(folder_) + ":$PATH; " + commands[i]});
        EXPECT_EQ(done.code, 0) << commands[i] << '\n' << done.screen;
    }
}

TEST_F(TourOnAGivenDatabase, DoesNotShowThePasswordInAConnectionText) {
    EXPECT_THAT(Run({"tour", "catalogue", "--connect", kGiven}).out, Not(HasSubstr("export")));
    const auto tour = Run({"tour", "catalogue", "--connect", std::string(kGiven) + ";Password=geheim"});
    const auto commands = tour.out.find("Five commands");
    EXPECT_EQ(commands == std::string::npos ? commands : tour.out.find("geheim", commands), std::string::npos);
}

TEST_F(Cli, TourTakesTheNameOfAChapter) {
    for (const char* chapter : {"catalogue", "scheduling", "enrolment", "approval"}) {
        SCOPED_TRACE(chapter);
        const auto done = Run({"tour", chapter});
        EXPECT_EQ(done.code, 0) << done.out;
        EXPECT_THAT(done.out, HasSubstr(" steps came out as told.\n"));
        EXPECT_THAT(done.out, Not(HasSubstr("\nChapter ")));
        EXPECT_THAT(Run({"tour", "--help"}).out, HasSubstr(std::string("\n  ") + chapter));
    }
    EXPECT_THAT(Run({"tour", "enrolment"}).out, HasSubstr("\n   Petra wants a place"));
    EXPECT_EQ(Run({"tour", "enrollment"}).err,
              "lumoseminar: There is no chapter \"enrollment\". Did you mean \"enrolment\"?\nTry \"lumoseminar tour --help\".\n");
    const auto unlike = Run({"tour", "budget"});
    EXPECT_EQ(unlike.code, 2);
    EXPECT_EQ(unlike.err,
              "lumoseminar: There is no chapter \"budget\". There are catalogue, scheduling, enrolment, approval.\n"
              "Try \"lumoseminar tour --help\".\n");
}

TEST_F(TourOnAGivenDatabase, ComesOutAsToldAndLeavesItAsItWasWhateverWasDoneBefore) {
    Do({"seminars", "add", "--title", "Neu"});
    Do({"seminars", "set", "1", "SemTitel=", "SerienID=3", "TeilnehmerMAX=0"});
    Do({"dates", "add", "--seminar", "43"});
    Do({"dates", "set", "82", "BeginnDatum=05.04.2027"});
    Do({"participants", "enrol", "82", "101"});
    Do({"participants", "enrol", "82", "102"});
    Do({"participants", "cancel", "642", "--to-waitlist"});
    Do({"consent", "62", "101", "--user-id", "12"});
    Do({"approve", "62", "101", "--user-id", "11"});
    Do({"approve", "62", "101", "--user-id", "12"});
    // What is left of removed subjects has the keys that the next ones get.
    Do({"dates", "remove", "82", "--yes"});
    Do({"seminars", "remove", "43", "--yes"});
    Do({"sql",
        "insert into Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, MDNr, ANNr) values (900, 82, 1, 101) "
        "insert into Sem_Teilnehmer_Kosten_IT (TeilnehmerID, KostenID, Kostenbetrag) values (901, 1, 5) "
        "update Sem_Termin_IT set SemID = 44, SerienID = 9 where SemTerminID = 20"});
    // Somebody else decides, at one stage more, and costs have other types.
    Do({"sql",
        "insert into Sem_ProzessStufe_IT (ModulNr, Stufe, Bezeichnung) values (7, 4, 'Leitung'), (8, 5, 'Leitung') "
        "update Sem_ProzessRecht_IT set UserID = 500 delete from sysIData_KostenArten where KostenArten = 'Teilnehmerkosten' "
        "update Sem_Katalog_IT set SemTitel = 'O''Neill' where SemID = 2"});
    const auto before = EveryRow();
    for (const char* client : {"1", "2"}) {
        const auto done = Run({"tour", "--connect", kGiven, "--client", client});
        EXPECT_EQ(done.code, 0) << done.out << done.err;
        EXPECT_EQ(done.err, "");
    }
    for (const auto& chapter : Chapters()) {
        const auto done = Run({"tour", chapter.name, "--connect", kGiven});
        EXPECT_EQ(done.code, 0) << done.out << done.err;
        EXPECT_EQ(EveryRow(), before) << chapter.name;
    }
}

TEST_F(TourOnAGivenDatabase, StopsBehindEachChapterOnATerminal) {
    const auto all = Sit({"tour"}, {{{kPause, "\n"}, {kPause, "x \n"}, {kPause, "\n"}}, {}, 80, 24});
    EXPECT_EQ(all.code, 0);
    EXPECT_THAT(all.screen, HasSubstr("All 33 steps came out as told."));
    const auto left =
        Sit({"tour", "--connect", kGiven}, {{{kPause, "\n"}, {"-- Enter: on to enrolment, q: end --", "q"}}, {}, 80, 24});
    EXPECT_EQ(left.code, 0);
    EXPECT_THAT(left.screen, EndsWith("All 17 steps so far came out as told.\x1b[0m\r\n"));
    EXPECT_THAT(left.screen, Not(HasSubstr("Chapter 3")));
    EXPECT_EQ(Sit({"tour"}, {{{kPause, "\x04"}}, {}, 80, 24}).code, 0);
    EXPECT_THAT(RunOnTerminal({"tour", "approval"}), Not(HasSubstr(kPause)));
}

TEST_F(TourOnAGivenDatabase, IsInterruptedWithoutATrace) {
    const auto before = EveryRow();
    const std::vector<std::vector<Act>> ways = {
        {{kPause, "\n"}, {"Chapter 2", "\x03"}}, {{kPause, "\x03"}}, {{kPause, "", SIGTERM}}, {{"Petra wants", "", SIGHUP}}};
    for (const auto& acts : ways) {
        const auto done = Sit({"tour", "--connect", kGiven}, {acts, {}, 80, 24});
        EXPECT_EQ(done.code, 128 + (acts.back().signal == 0 ? SIGINT : acts.back().signal));
        EXPECT_THAT(done.screen, HasSubstr("lumoseminar: The tour was interrupted. What it had added is removed again.\r\n"));
        EXPECT_EQ(EveryRow(), before);
    }
}

TEST_F(TourOnAGivenDatabase, LeavesTheTerminalAsItWas) {
    for (const char* key : {"q", "\x03"}) {
        const auto done =
            RunShell({folder_, "trap : INT; " + InShellQuotes(test_support::Program()) + " tour; stty -a", 100, kPause, key});
        EXPECT_THAT(done.screen, HasSubstr(" icanon "));
        EXPECT_THAT(done.screen, HasSubstr(" echo "));
        EXPECT_THAT(done.screen, Not(HasSubstr("-icanon")));
    }
}

TEST_F(TourOnAGivenDatabase, LeavesNothingBehindWhereTheReaderGoesAway) {
    const auto before = EveryRow();
    const auto done = RunShell(
        {folder_, InShellQuotes(test_support::Program()) + " tour --connect " + InShellQuotes(kGiven) + " | head -2"});
    EXPECT_EQ(Lines(done.screen), 2U) << done.screen;
    EXPECT_EQ(EveryRow(), before);
}

// Wherever in a chapter a signal comes in, all is taken back that was added up to there.
TEST(Tour, IsTakenBackFromEveryPlace) {
    std::size_t calls = 0;
    std::size_t signal_at = 0;
    const auto session =
        OpenSession({"Provider=Embedded;Data Source=:memory:", "", ""}, MissingFile::kCreate, [&](const LumoConnection::TracedCall&) {
            if (++calls == signal_at) std::raise(SIGINT);
        }).session;
    std::vector<LumoSeminar::Text> tables;
    const auto files = LumoConnection::TableFiles(LumoConnection::kWithSample, {.sample_year = 2009});
    ASSERT_TRUE(LumoConnection::RunFiles(session, files));
    for (const auto& file : files) {
        for (const auto& table : LumoConnection::CreatedTables(file)) tables.push_back(table);
    }
    const auto Sizes = [&] {
        std::vector<std::pair<LumoSeminar::Text, LumoSeminar::Int32>> sizes;
        for (const auto& table : LumoConnection::ExistingTables(session, tables))
            sizes.emplace_back(table.name, table.rows);
        return sizes;
    };
    const auto before = Sizes();
    const StopSignals interruption;
    for (const auto& chapter : Chapters()) {
        int interrupted = 0;
        for (std::size_t at = 1;; at += 7) {
            const StopSignals again;
            testing::internal::CaptureStdout();
            TourPage page;
            TourGround ground{page, session, 1, {}};
            ground.FindPeople();
            calls = 0;
            signal_at = at;
            bool done = false;
            try {
                chapter.walk(ground);
                done = true;
            } catch (const TourInterrupted&) {
                ++interrupted;
            }
            signal_at = 0;
            testing::internal::GetCapturedStdout();
            ASSERT_EQ(Sizes(), before) << chapter.name << " after " << at;
            if (done) break;
        }
        EXPECT_GT(interrupted, 3) << chapter.name;
    }
}

TEST_F(Cli, TourMakesTheTablesOfTheProcessObjectsWhereOnlyTheyAreMissing) {
    const auto schema = fs::path(test_support::SourceDir()) / "schema";
    ASSERT_EQ(Run({"init", "--schema", (schema / "schema.sql").string(), (schema / "sample.sql").string()}).code, 0);
    const auto done = Run({"tour", "--connect", "Provider=Embedded;Data Source=lumoseminar.db"});
    EXPECT_EQ(done.code, 0) << done.out << done.err;
    EXPECT_EQ(Run({"sql", "select count(*) as n from Sem_ProzessSchritt_IT", "--format", "csv"}).out, "n\n0\n");
}

TEST_F(Cli, TourComesOutAsToldOnTheServer) {
    const auto text = test_support::ServerText();
    if (text.empty()) GTEST_SKIP() << "LUMOSEMINAR_TEST_ODBC names no server";
    test_support::EmptyServer();
    for (int walk = 0; walk < 2; ++walk) {
        const auto done = Run({"tour", "--connect", text});
        EXPECT_EQ(done.code, 0) << done.out << done.err;
    }
    EXPECT_EQ(Run({"seminars", "list", "--connect", text}).code, 0);
}

TEST_F(Cli, TourFillsAnEmptyDatabase) {
    EXPECT_EQ(Run({"tour", "--connect", "Provider=Embedded;Data Source=new.db"}).code, 0);
    EXPECT_EQ(Run({"seminars", "list", "--connect", "Provider=Embedded;Data Source=new.db"}).code, 0);
}

TEST_F(Cli, TourFindsOutWhatIsNotAsTold) {
    // Half an hour cannot be stored here, so that the update is not what is read back.
    auto schema = ReadAll(fs::path(test_support::SourceDir()) / "schema" / "schema.sql");
    const std::string column = "Stunden float NULL";
    ASSERT_NE(schema.find(column), std::string::npos);
    schema.replace(schema.find(column), column.size(), "Stunden int NULL");
    WriteAll(folder_ / "schema.sql", schema);
    for (const char* file : {"process.sql", "sample.sql", "process_sample.sql"}) {
        fs::copy_file(fs::path(test_support::SourceDir()) / "schema" / file, folder_ / file);
    }
    const auto done = Run({"tour"}, {}, "LUMOSEMINAR_SCHEMA=.");
    EXPECT_EQ(done.code, 1) << done.err;
    EXPECT_THAT(done.out, HasSubstr("outcome    true: another object reads 7 hours\n              THIS IS NOT AS TOLD.\n"));
    EXPECT_THAT(done.out, HasSubstr("\n1 outcome is not as told.\n"));
}

TEST_F(Cli, TourWithoutASeminarSaysSo) {
    ASSERT_EQ(Run({"init"}).code, 0);
    const auto done = Run({"tour", "--connect", "Provider=Embedded;Data Source=lumoseminar.db"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.err, "lumoseminar: Client 1 has no seminar in this database: the tour has nothing to show.\n");
}

}  // namespace
}  // namespace frontend
