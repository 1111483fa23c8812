#include "frontend/cli_test.h"

namespace frontend {
namespace {

using nlohmann::json;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

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
    EXPECT_THAT(again.err, ContainsRegex("^lumoseminar: 34 of the 34 tables are there already, with ([0-9]+) rows. Nothing was "
                                         "changed.\n--force adds what is missing; it drops nothing.\n$"));
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

TEST_F(Cli, InitNamesTheBatchThatIsRefused) {
    WriteAll(folder_ / "a.sql", "CREATE TABLE T1 (A int NOT NULL)\nGO\n\nINSERT INTO T9 (A) VALUES (1)\n");
    const auto done = Run({"init", "--schema", "a.sql"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: error 9999: a.sql, batch from line 3: "));
    EXPECT_THAT(done.err, HasSubstr("T9"));
}

TEST_F(Cli, InitTakesTheSchemaFolderFromTheEnvironment) {
    WriteAll(folder_ / "schema.sql", "CREATE TABLE Other (A int NOT NULL)\n");
    WriteAll(folder_ / "process.sql", "CREATE TABLE Another (A int NOT NULL)\n");
    EXPECT_EQ(Run({"init", "--format", "csv"}, {}, "LUMOSEMINAR_SCHEMA=.").out, "Table,Rows\nOther,0\nAnother,0\n");
    const auto missing = Run({"init"}, {}, "LUMOSEMINAR_SCHEMA=nosuch");
    EXPECT_EQ(missing.code, 1);
    EXPECT_EQ(missing.err, "lumoseminar: error 53: The file \"nosuch/schema.sql\" cannot be read: No such file or directory.\n");
}

TEST_F(Cli, InitShowsABarOnATerminal) {
    const auto shown = RunOnTerminal({"init", "--sample"});
    EXPECT_THAT(shown, HasSubstr("\rschema.sql   [..............................] 0/"));
    EXPECT_THAT(shown, HasSubstr("\rsample.sql   [##############################] "));
}

}  // namespace
}  // namespace frontend
