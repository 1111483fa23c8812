#include <LumoConnection/any_session.h>
#include <test_support/places.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "frontend/cli_test.h"

namespace frontend {
namespace {

using nlohmann::json;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

class Init : public Cli {
  protected:
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& file : std::filesystem::directory_iterator(folder_)) names.push_back(file.path().filename());
        return names;
    }

    // A schema that takes its time.
    void WriteLongSchema() const {
        std::string text = "CREATE TABLE T1 (A int NOT NULL)\nGO\n";
        for (int i = 0; i < 20000; ++i) text += "INSERT INTO T1 (A) VALUES (" + std::to_string(i) + ")\nGO\n";
        WriteAll(folder_ / "long.sql", text);
    }
};

TEST_F(Cli, InitCreatesTheTables) {
    const auto done = Run({"init"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_THAT(done.out, StartsWith("Table                          Rows\n"
                                     "-----------------------------  ----\n"
                                     "OpactMD                           0\n"
                                     "optionen_database_dt              0\n"
                                     "Sem_Katalog_IT                    0\n"));
    EXPECT_EQ(Lines(done.out), 36U);
    EXPECT_THAT(
        done.err,
        ContainsRegex("^schema.sql: ([0-9]+) of ([0-9]+) batches done\nprocess.sql: 3 of 3 batches done\n34 tables, 0 rows\n$"));
}

TEST_F(Cli, InitWithSampleFillsThem) {
    const auto done = Run({"init", "--sample", "--format", "json"});
    EXPECT_EQ(done.code, 0) << done.err;
    const auto tables = json::parse(done.out);
    ASSERT_EQ(tables.size(), 34U);
    for (const auto& table : tables) EXPECT_GT(table["Rows"], 0) << table["Table"];
    EXPECT_EQ(tables[2]["Table"], "Sem_Katalog_IT");
    EXPECT_EQ(tables[2]["Rows"], RowCount());
    EXPECT_GE(RowCount(), 40);
}

TEST_F(Cli, InitRefusesWhereTablesAreThere) {
    UseSample();
    const int before = RowCount();
    const auto again = Run({"init", "--sample"});
    EXPECT_EQ(again.code, 1);
    EXPECT_EQ(again.out, "");
    EXPECT_THAT(
        again.err,
        ContainsRegex("^lumoseminar: 34 of the 34 tables are there already, with ([0-9]+) rows. Nothing was "
                      "changed.\n--force adds what is missing and drops nothing; --reset drops them and makes them anew.\n$"));
    EXPECT_EQ(RowCount(), before);

    const auto forced = Run({"init", "--force"});
    EXPECT_EQ(forced.code, 0) << forced.err;
    EXPECT_THAT(forced.err, HasSubstr("passed over: schema.sql, batch from line"));
    EXPECT_EQ(RowCount(), before);
}

TEST_F(Cli, InitTakesOtherFiles) {
    WriteAll(folder_ / "a.sql", "CREATE TABLE T1 (A int NOT NULL)\nGO\nINSERT INTO T1 (A) VALUES (1)\nGO\n");
    WriteAll(folder_ / "b.sql", "CREATE TABLE T2 (A int NOT NULL)\n");
    const auto done = Run({"init", "--schema", "a.sql", "b.sql", "--format", "csv"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out, "Table,Rows\nT1,1\nT2,0\n");
    EXPECT_EQ(done.err, "a.sql: 2 of 2 batches done\nb.sql: 1 of 1 batches done\n");
}

TEST_F(Init, NamesTheBatchThatIsRefused) {
    WriteAll(folder_ / "a.sql", "CREATE TABLE T1 (A int NOT NULL)\nGO\n\nINSERT INTO T9 (A) VALUES (1)\n");
    const auto done = Run({"init", "--schema", "a.sql"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: a.sql, batch from line 3: "));
    EXPECT_THAT(Files(), testing::UnorderedElementsAre("a.sql", "in", "out", "err"));
    EXPECT_THAT(done.err, HasSubstr("T9"));
}

TEST_F(Cli, InitTakesTheSchemaFolderFromTheEnvironment) {
    WriteAll(folder_ / "schema.sql", "CREATE TABLE Other (A int NOT NULL)\n");
    WriteAll(folder_ / "process.sql", "CREATE TABLE Another (A int NOT NULL)\n");
    EXPECT_EQ(Run({"init", "--format", "csv"}, {}, "LUMOSEMINAR_SCHEMA=.").out, "Table,Rows\nOther,0\nAnother,0\n");
    const auto missing = Run({"init"}, {}, "LUMOSEMINAR_SCHEMA=nosuch");
    EXPECT_EQ(missing.code, 1);
    EXPECT_EQ(missing.err, "lumoseminar: The file \"nosuch/schema.sql\" cannot be read: No such file or directory.\n");
}

TEST_F(Cli, InitShowsABarOnATerminal) {
    const auto shown = RunOnTerminal({"init", "--sample"});
    EXPECT_THAT(shown, HasSubstr("\rschema.sql   [..............................] 0/"));
    EXPECT_THAT(shown, HasSubstr("\rsample.sql   [##############################] "));
}

TEST_F(Init, InterruptedLeavesNoFile) {
    WriteLongSchema();
    for (const Act& act : {Act{"10/20001", "\x03"}, Act{"10/20001", "", SIGTERM}}) {
        const auto shown = Sit({"init", "--schema", "long.sql"}, {.acts = {act}});
        EXPECT_EQ(shown.code, 128 + (act.signal == 0 ? SIGINT : act.signal)) << shown.screen.substr(0, 2000);
        EXPECT_THAT(shown.screen, HasSubstr("lumoseminar: Interrupted. Nothing was made, nothing was changed.\r\n"));
        EXPECT_THAT(Files(), testing::ElementsAre("long.sql"));
    }
}

TEST_F(Init, InterruptedLeavesADatabaseThatIsThereAsItWas) {
    ASSERT_EQ(Run({"init"}).code, 0);
    WriteLongSchema();
    const auto shown = Sit({"init", "--schema", "long.sql"}, {.acts = {{"10/20001", "\x03"}}});
    EXPECT_EQ(shown.code, 128 + SIGINT);
    EXPECT_EQ(Json({"tables"}).size(), 34U);
}

TEST_F(Init, AReaderMeanwhileSeesNothing) {
    WriteLongSchema();
    const std::string program = InShellQuotes(test_support::Program());
    // The reader comes when the file beside is there, and while the first program is at work.
    const std::string script =
        "cd " + InShellQuotes(folder_) + " && { " + program +
        " init --schema long.sql >out 2>err & } ; while ! ls lumoseminar.db.new-* >listed 2>&1; do :; done; " +
        program + " seminars list 2>reader; kill -INT $!; wait $!; exit 0";
    ASSERT_EQ(std::system(("sh -m -c " + InShellQuotes(script)).c_str()), 0);
    EXPECT_EQ(ReadAll(folder_ / "reader"),
              "lumoseminar: There is no database file \"lumoseminar.db\"; the command init creates it.\n");
}

TEST_F(Init, OfTwoAtOnceOneMakesTheFile) {
    const std::string program = InShellQuotes(test_support::Program());
    const std::string script = "cd " + InShellQuotes(folder_) + " && " + program +
                               " init --sample >a 2>a.err & first=$!; cd " + InShellQuotes(folder_) + " && " + program +
                               " init --sample >b 2>b.err; echo $? >b.code; wait $first; echo $? >a.code";
    ASSERT_EQ(std::system(script.c_str()), 0);
    const auto codes = ReadAll(folder_ / "a.code") + ReadAll(folder_ / "b.code");
    EXPECT_THAT(codes, testing::AnyOf("0\n1\n", "1\n0\n")) << ReadAll(folder_ / "a.err") << ReadAll(folder_ / "b.err");
    EXPECT_THAT(ReadAll(folder_ / "a.err") + ReadAll(folder_ / "b.err"),
                testing::AnyOf(HasSubstr("was made by somebody else meanwhile. It stays as it is."),
                               HasSubstr("are there already")));
    EXPECT_GE(RowCount(), 40);
    EXPECT_THAT(Files(), testing::Not(testing::Contains(HasSubstr(".new-"))));
}

TEST_F(Init, ResetDropsAndMakesAnew) {
    UseSample();
    ASSERT_EQ(Run({"sql", "CREATE TABLE Mine (A int NOT NULL) INSERT INTO Mine VALUES (7)"}).code, 0);
    const auto refused = Run({"init", "--reset"}, "y\n");
    EXPECT_EQ(refused.code, 1);
    EXPECT_THAT(refused.err,
                ContainsRegex("^34 tables with [0-9]+ rows would be dropped, and made anew.\n"
                              "lumoseminar: Nothing was changed: nobody can be asked here, and --yes was not given.\n$"));
    EXPECT_EQ(Sit({"init", "--reset"}, {.acts = {{"Drop them? [y/N] ", "n\n"}}}).code, 1);
    EXPECT_GE(RowCount(), 40);
    EXPECT_EQ(Sit({"init", "--reset"}, {.acts = {{"Drop them? [y/N] ", "y\n"}}}).code, 0);
    EXPECT_EQ(RowCount(), 0);
    EXPECT_EQ(Run({"init", "--reset", "--sample", "--yes"}).code, 0);
    EXPECT_GE(RowCount(), 40);
    EXPECT_EQ(Json({"sql", "select A from Mine"})[0]["A"], 7) << "what init has not made stays";
}

TEST_F(Init, AResetThatIsRefusedLeavesWhatWasThere) {
    UseSample();
    const int before = RowCount();
    WriteAll(folder_ / "a.sql", "CREATE TABLE Sem_Katalog_IT (A int NOT NULL)\nGO\nINSERT INTO Nosuch VALUES (1)\n");
    const auto done = Run({"init", "--schema", "a.sql", "--reset", "--yes"});
    EXPECT_EQ(done.code, 1);
    EXPECT_THAT(done.err, HasSubstr("lumoseminar: a.sql, batch from line 3: "));
    EXPECT_EQ(RowCount(), before);
}

TEST_F(Init, TheSampleTellsOfThePresentOrOfTheYearThatIsAskedFor) {
    const auto First = [&](const Arguments& arguments) {
        EXPECT_EQ(Run(arguments).code, 0);
        return Json({"--db", arguments[1], "sql",
                     "select YEAR(min(BeginnDatum)) as y, YEAR(GETDATE()) as now from Sem_Termin_IT"})[0];
    };
    EXPECT_EQ(First({"--db", "a.db", "init", "--sample", "--sample-year", "2009"})["y"], 2009);
    EXPECT_EQ(First({"--db", "b.db", "init", "--sample", "--sample-year", "2031"})["y"], 2031);
    const auto present = First({"--db", "c.db", "init", "--sample"});
    EXPECT_EQ(static_cast<int>(present["y"]) + 1, static_cast<int>(present["now"]));
}

TEST_F(Init, MakesADatabaseOfAnEmptyFile) {
    WriteAll(folder_ / "empty.db", "");
    EXPECT_EQ(Run({"--db", "empty.db", "seminars", "list"}).err,
              "lumoseminar: The file \"empty.db\" is empty; the command init makes a database of it.\n");
    EXPECT_TRUE(std::filesystem::is_empty(folder_ / "empty.db"));
    EXPECT_EQ(Run({"--db", "empty.db", "init"}).code, 0);
    EXPECT_EQ(Run({"--db", "empty.db", "seminars", "list"}).err, "0 seminars\n");
}

TEST_F(Init, IsNamedWhereThereAreNoTables) {
    WriteAll(folder_ / "a.sql", "CREATE TABLE T1 (A int NOT NULL)\n");
    ASSERT_EQ(Run({"init", "--schema", "a.sql"}).code, 0);
    for (const Arguments& arguments :
         {Arguments{"seminars", "list"}, Arguments{"dates", "show", "1"}, Arguments{"persons", "show", "1"},
          Arguments{"waitlist", "--date", "1"}, Arguments{"participants", "remove", "1", "--dry-run"}}) {
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.err,
                  "lumoseminar: There are no tables of the seminar administration in this database. The command init makes them: "
                  "\"lumoseminar init\", with --sample for a company to try things on.\n");
    }
    EXPECT_EQ(Json({"tables"}).size(), 1U);
    EXPECT_EQ(Run({"sql", "select A from T1"}).code, 0);
}

// The driver stands in for that of a server.
TEST_F(Init, OnAServerItIsAllOrNothing) {
    if (!LumoConnection::OdbcAvailable()) GTEST_SKIP() << "this build has no ODBC";
    const std::string driver =
        (std::filesystem::path(test_support::ScriptedDriver()).parent_path() / "liblumo_odbc_engine_driver.so").string();
    const std::string server = "Driver=" + driver + ";Database=" + (folder_ / "server.db").string();
    EXPECT_THAT(Run({"--connect", server, "seminars", "list"}).err,
                HasSubstr("The command init makes them: \"lumoseminar init\""));
    WriteAll(folder_ / "a.sql", "CREATE TABLE T1 (A int NOT NULL)\nGO\nINSERT INTO Nosuch VALUES (1)\n");
    EXPECT_EQ(Run({"--connect", server, "init", "--schema", "a.sql"}).code, 1);
    const auto done = Run({"--connect", server, "init", "--sample"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(Run({"--connect", server, "sql", "select A from T1"}).code, 1) << "taken back";
    EXPECT_EQ(Run({"--connect", server, "seminars", "set", "5", "Status=2", "--dry-run"}).code, 0);
    EXPECT_EQ(Run({"--connect", server, "seminars", "list"}).code, 0);
}

}  // namespace
}  // namespace frontend
