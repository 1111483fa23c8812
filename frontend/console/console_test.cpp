#include "frontend/console/console.h"

#include <sys/stat.h>

#include <filesystem>

#include "frontend/cli_test.h"

namespace frontend {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kPrompt = "client 1> ";
constexpr const char* kMore = "...> ";

class ConsoleForReal : public Cli {
  protected:
    /// Sits at a console without colours and types each line once there is a prompt.
    Shown Type(const Arguments& arguments, const std::vector<Act>& acts) const {
        Seat seat;
        seat.acts = acts;
        seat.environment = {"NO_COLOR=1", "PAGER=cat", "XDG_STATE_HOME=" + (folder_ / "state").string()};
        seat.acts.push_back({kPrompt, "\\q\r"});
        auto shown = Sit(arguments, seat);
        EXPECT_EQ(shown.code, 0) << shown.screen;
        return shown;
    }

    fs::path History() const { return folder_ / "state" / "lumoseminar" / "history"; }
};

TEST_F(ConsoleForReal, CarriesOutCommandsOneAfterTheOther) {
    UseSample();
    const auto shown = Type({}, {{kPrompt, "seminars show 3\r"},
                                 {kPrompt, "seminars set 3 SemTitel=\"Größte Hilfe\"\r"},
                                 {kPrompt, "seminars show nosuch\r"},
                                 {kPrompt, "lumoseminar tables\r"}});
    EXPECT_THAT(shown.screen, HasSubstr("SemTitel        Erste Hilfe: Grundausbildung\r\n"));
    EXPECT_THAT(shown.screen, HasSubstr("SemTitel        Größte Hilfe\r\n"));
    EXPECT_THAT(shown.screen, HasSubstr("lumoseminar: KEY: \"nosuch\" is not a whole number.\r\n"));
    EXPECT_THAT(shown.screen, HasSubstr("Sem_Katalog_IT"));
    EXPECT_EQ(Seminar(3)["SemTitel"], "Größte Hilfe");
}

TEST_F(ConsoleForReal, RunsStatementsOverSeveralLines) {
    UseSample();
    const auto shown = Type({}, {{kPrompt, "SELECT SemTitel\r"},
                                 {kMore, "FROM Sem_Katalog_IT WHERE SemID = 3;\r"},
                                 {kPrompt, "SELECT 40 + 2 AS n\r"},
                                 {kMore, "GO\r"},
                                 {kPrompt, "SELECT SemID, Status FROM Sem_Katalog_IT WHERE SemID < 3 \\G\r"},
                                 {kPrompt, "SELECT Nosuch FROM Sem_Katalog_IT;\r"}});
    EXPECT_THAT(shown.screen, HasSubstr("\r\nErste Hilfe: Grundausbildung\r\n(1 row)\r\n"));
    EXPECT_THAT(shown.screen, HasSubstr("\r\n42\r\n"));
    EXPECT_THAT(shown.screen, HasSubstr("-- 2 -----------------------------------\r\nSemID   2\r\nStatus  1\r\n"));
    EXPECT_THAT(shown.screen, HasSubstr("Invalid column name 'Nosuch'."));
}

TEST_F(ConsoleForReal, ShowsAllRowSetsOfAText) {
    UseSample();
    const auto shown = Type({}, {{kPrompt, "SELECT 'one' AS a; SELECT 'two' AS b;\r"}});
    EXPECT_THAT(shown.screen, HasSubstr("\r\none\r\n(1 row)\r\n\r\nb\r\n---\r\ntwo\r\n(1 row)\r\n"));
}

TEST_F(ConsoleForReal, CtrlCDropsWhatWasTyped) {
    UseSample();
    const auto shown = Type({}, {{kPrompt, "DELETE FROM Sem_Katalog_IT\r"},
                                 {kMore, "WHERE SemID = 3\x03"},
                                 {kPrompt, "SELECT 'still' + ' there' AS s;\r"}});
    EXPECT_THAT(shown.screen, HasSubstr("still there\r\n"));
    EXPECT_EQ(Seminar(3)["SemID"], 3);
}

TEST_F(ConsoleForReal, EndsAtCtrlDAndAtExit) {
    UseSample();
    for (const char* end : {"\x04", "exit\r", "quit;\r"}) {
        Seat seat;
        seat.acts = {{kPrompt, end}};
        seat.environment = {"NO_COLOR=1", "HOME=" + folder_.string(), "XDG_STATE_HOME="};
        const auto shown = Sit({}, seat);
        EXPECT_EQ(shown.code, 0) << shown.screen;
    }
    EXPECT_TRUE(fs::exists(folder_ / ".local" / "state" / "lumoseminar" / "history"));
}

TEST_F(ConsoleForReal, SwitchesTimeAndTrace) {
    UseSample();
    const auto shown = Type({}, {{kPrompt, "\\timing\r"},
                                 {kPrompt, "\\trace\r"},
                                 {kPrompt, "SELECT 1 AS one;\r"},
                                 {kPrompt, "\\trace\r"},
                                 {kPrompt, "SELECT 2 AS two;\r"},
                                 {kPrompt, "\\nosuch\r"},
                                 {kPrompt, "\\?\r"}});
    EXPECT_THAT(shown.screen, HasSubstr("Timing is on.\r\n"));
    EXPECT_THAT(shown.screen, testing::ContainsRegex("Time: [0-9]+\\.[0-9] ms"));
    EXPECT_THAT(shown.screen, HasSubstr("ConnectionExecute SELECT 1 AS one"));
    EXPECT_THAT(shown.screen, Not(HasSubstr("ConnectionExecute SELECT 2 AS two")));
    EXPECT_THAT(shown.screen, HasSubstr("lumoseminar: There is no \\nosuch here; \\? tells what there is.\r\n"));
    EXPECT_THAT(shown.screen, HasSubstr("A line that begins with a command of the program is that command:\r\n"));
}

TEST_F(ConsoleForReal, TabCompletesCommandsKeysTablesAndColumns) {
    UseSample();
    const auto shown = Type({}, {{kPrompt, "semi\tsh\tFehler-\t\r"},
                                 {kPrompt, "SELECT SemTi\tFROM Sem_Kat\tWHERE SemID = 3;\r"},
                                 {kPrompt, "dates li\t--by m\t--filter Hilfe\r"}});
    EXPECT_THAT(shown.screen, HasSubstr("Fehler-Möglichkeits- und Einfluss-Analyse (FMEA)\r\n"));
    EXPECT_THAT(shown.screen, HasSubstr("\r\nErste Hilfe: Grundausbildung\r\n"));
    EXPECT_THAT(shown.screen, HasSubstr("March 2010 ("));
}

TEST_F(ConsoleForReal, OptionsOfTheStartAndOfALineAloneCountForAll) {
    UseSample();
    const auto shown = Type({"--format", "csv"}, {{kPrompt, "sql 'SELECT 1 AS a, 2 AS b'\r"},
                                                  {kPrompt, "--format json\r"},
                                                  {kPrompt, "sql 'SELECT 1 AS a' --format table\r"},
                                                  {kPrompt, "SELECT 3 AS c;\r"},
                                                  {kPrompt, "--connect other.db seminars list\r"}});
    EXPECT_THAT(shown.screen, HasSubstr("\r\na,b\r\n1,2\r\n"));
    EXPECT_THAT(shown.screen, HasSubstr("\r\na\r\n-\r\n1\r\n"));
    EXPECT_THAT(shown.screen, HasSubstr("{\"c\": 3}"));
    EXPECT_THAT(shown.screen, HasSubstr("lumoseminar: The console is connected already;"));
}

TEST_F(ConsoleForReal, BeginsWithoutADatabaseForInitToMakeOne) {
    const auto shown = Type({}, {{"not open> ", "init --sample\r"}});
    EXPECT_THAT(shown.screen, HasSubstr("There is no database file \"lumoseminar.db\""));
    EXPECT_TRUE(fs::exists(folder_ / "lumoseminar.db"));
}

TEST_F(ConsoleForReal, RemembersLinesForTheNextTime) {
    UseSample();
    Type({}, {{kPrompt, "SELECT 'Übung'\r"}, {kMore, "AS x;\r"}, {kPrompt, "--password secret seminars list\r"}});
    const auto shown = Type({}, {{kPrompt, "\x1b[A\x1b[A\r"}});
    EXPECT_THAT(shown.screen, HasSubstr("\r\nÜbung\r\n"));
    EXPECT_THAT(ReadAll(History()), Not(HasSubstr("secret")));
    struct stat told {};
    ASSERT_EQ(stat(History().c_str(), &told), 0);
    EXPECT_EQ(told.st_mode & 0777U, 0600U);
}

TEST_F(ConsoleForReal, WithoutATerminalThereIsNone) {
    const auto done = Run({}, "seminars list\n");
    EXPECT_EQ(done.code, 2);
    EXPECT_EQ(done.out, Run({"--help"}).out);
}

TEST(NameOfDatabase, IsShortAndHoldsNoSecret) {
    EXPECT_EQ(NameOfDatabase("Provider=Embedded;Data Source=/some/where/x.db"), "x.db");
    EXPECT_EQ(NameOfDatabase("Provider=Embedded;Data Source=:memory:"), ":memory:");
    EXPECT_EQ(NameOfDatabase("Driver={ODBC Driver 18};Server=hr,1433;Database=personal;UID=a;PWD=b"), "personal");
    EXPECT_EQ(NameOfDatabase("DSN=hr;PWD=b"), "hr");
    EXPECT_EQ(NameOfDatabase("Driver={x};PWD=b"), "database");
}

}  // namespace
}  // namespace frontend
