#include "frontend/cli_test.h"

namespace frontend {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(Cli, SqlPrintsTheRowsOfEachBatch) {
    UseSample();
    const auto done =
        Run({"sql", "select SemID, SemCode, KostenProTN from Sem_Katalog_IT where SemID in (1, 42) order by SemID\nGO\nselect MDNR from OpactMD"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out,
              "SemID  SemCode  KostenProTN\n"
              "-----  -------  -----------\n"
              "    1  AS-01    NULL\n"
              "   42  NULL     NULL\n"
              "\n"
              "MDNR\n"
              "----\n"
              "   1\n");
    EXPECT_EQ(done.err, "(2 rows)\n(1 row)\n");
}

TEST_F(Cli, SqlInTheFormatsForPrograms) {
    UseSample();
    const std::string text =
        "select SemID, SemCode, SemTitel, KostenProTN from Sem_Katalog_IT where SemID = 42 or SemID = 4 order by SemID";
    EXPECT_EQ(Run({"sql", text, "--format", "json"}).out,
              "[\n"
              "  {\"SemID\": 4, \"SemCode\": \"AS-11\", \"SemTitel\": \"Erste Hilfe: Auffrischung\", \"KostenProTN\": 48.50},\n"
              "  {\"SemID\": 42, \"SemCode\": null, \"SemTitel\": \"Büroorganisation für kleine Teams\", \"KostenProTN\": null}\n"
              "]\n");
    EXPECT_EQ(Run({"sql", text, "--format", "csv"}).out,
              "SemID,SemCode,SemTitel,KostenProTN\n"
              "4,AS-11,Erste Hilfe: Auffrischung,48.50\n"
              "42,,Büroorganisation für kleine Teams,\n");
    EXPECT_EQ(Run({"sql", text, "--format", "csv"}).err, "");
}

TEST_F(Cli, SqlFromAFileAndFromStandardInput) {
    UseSample();
    WriteAll(folder_ / "q.sql",
             "\xEF\xBB\xBFUPDATE Sem_Katalog_IT SET SemTitel = N'Ä' WHERE SemID = 3\r\nGO\r\nselect SemTitel from Sem_Katalog_IT where SemID = 3\r\n");
    const char* const expected = "SemTitel\nÄ\n";
    EXPECT_EQ(Run({"sql", "--file", "q.sql", "--format", "csv"}).out, expected);
    EXPECT_EQ(Run({"sql", "-", "--format", "csv"}, ReadAll(folder_ / "q.sql")).out, expected);
}

TEST_F(Cli, SqlPrintsAllRowSetsOfABatch) {
    UseSample();
    const auto done =
        Run({"sql", "select 1 as a; declare @n int = 2; select @n as b; select 3 as c where 1 = 0", "--format", "csv"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out, "a\n1\n\nb\n2\n\nc\n");
    const auto refused = Run({"sql", "select 1 as a; select 2 as b; select 1 / 0 as c", "--format", "csv"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.out, "a\n1\n\nb\n2\n");
}

TEST_F(Cli, SqlStopsAtTheBatchThatIsRefused) {
    UseSample();
    const auto done =
        Run({"sql", "select MDNR from OpactMD\nGO\nselect Nosuch from Sem_Katalog_IT\nGO\nUPDATE Sem_Katalog_IT SET Status = 9",
             "--format", "csv"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "MDNR\n1\n");
    EXPECT_EQ(done.err,
              "lumoseminar: error 207: Invalid column name 'Nosuch'.\n"
              "    line 3: select Nosuch from Sem_Katalog_IT\n"
              "                   ^\n"
              "    in the batch from line 3; the batches behind it were not run\n");
    EXPECT_EQ(Seminar(1)["Status"], 1);
}

TEST_F(Cli, SqlTellsHowManyRowsWereChanged) {
    UseSample();
    const auto done =
        Run({"sql", "UPDATE Sem_Katalog_IT SET Status = 2 WHERE SemID < 4\nGO\nDELETE FROM OpactMD WHERE MDNR = 9"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "(3 rows changed)\n(0 rows changed)\n");
}

TEST_F(Cli, SqlShowsThePlaceOfASyntaxError) {
    UseSample();
    const auto done = Run({"sql", "select SemTitel,\n  'Übung' +\nfrom Sem_Katalog_IT"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.err,
              "lumoseminar: error 156: Incorrect syntax near the keyword 'from'.\n"
              "    line 3: from Sem_Katalog_IT\n"
              "            ^\n");
}

TEST_F(Cli, SqlNamesTheKeyThatIsThereAlready) {
    UseSample();
    const auto done = Run({"sql", "INSERT INTO Sem_Katalog_IT (SemID, MDNr) VALUES (1, 1)"});
    EXPECT_EQ(done.code, 1);
    EXPECT_THAT(done.err, StartsWith("lumoseminar: error 2627: Violation of PRIMARY KEY constraint 'PK_Sem_Katalog_IT'."));
    EXPECT_THAT(done.err, HasSubstr("The duplicate key value is (1)."));
}

TEST_F(Cli, TextsThatAreNoUtf8DoNotStopJson) {
    UseSample();
    Run({"sql", "UPDATE Sem_Katalog_IT SET SemTitel = 'a\xFF\xC3z' WHERE SemID = 3"});
    const auto done = Run({"seminars", "list", "--format", "json"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_TRUE(json::accept(done.out));
}

TEST_F(Cli, SqlReadsWhatIsTypedOnATerminal) {
    UseSample();
    const auto shown = Sit({"sql", "-"}, {.acts = {{"", "SELECT 41 + 1 AS n\n"}, {"AS n\r\n", "\x04"}}});
    EXPECT_EQ(shown.code, 0) << shown.screen;
    EXPECT_THAT(shown.screen, HasSubstr("42\r\n"));
}

TEST_F(Cli, SqlPrintsOneDocumentOfJson) {
    UseSample();
    EXPECT_EQ(Run({"sql", "select 1 as a\nGO\nselect 2 as b where 1 = 0\nGO\nselect 3 as c", "--format", "json"}).out,
              "[\n  [\n    {\"a\": 1}\n  ],\n  [],\n  [\n    {\"c\": 3}\n  ]\n]\n");
    EXPECT_EQ(Run({"sql", "update OpactMD set MDNR = 1", "--format", "json"}).out, "[]\n");
    const auto refused = Run({"sql", "select 1 as a\nGO\nselect Nosuch", "--format", "json"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.out, "[\n  [\n    {\"a\": 1}\n  ]\n]\n");
}

}  // namespace
}  // namespace frontend
