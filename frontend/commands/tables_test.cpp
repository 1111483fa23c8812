#include "frontend/cli_test.h"

namespace frontend {
namespace {

using testing::HasSubstr;

TEST_F(Cli, TablesListsNamesColumnsAndRows) {
    UseSample();
    Run({"sql",
         "create table [Ein Ort] (ID int not null, Name nvarchar(20) null, constraint PK_Ort primary key (ID)) "
         "insert into [Ein Ort] values (1, N'Köln'), (2, null)"});
    const auto tables = Json({"tables"});
    bool found = false;
    for (const auto& table : tables) {
        if (table["Table"] != "Ein Ort") continue;
        found = true;
        EXPECT_EQ(table["Columns"], 2);
        EXPECT_EQ(table["Rows"], 2);
    }
    EXPECT_TRUE(found);
    EXPECT_EQ(Run({"tables", "ein ort"}).out,
              "Column  Type          Nullable  Key\n"
              "------  ------------  --------  ---\n"
              "ID      int           no        yes\n"
              "Name    nvarchar(20)  yes       no\n");
}

TEST_F(Cli, TablesShowsTheColumnsOfAll) {
    UseSample();
    const auto columns = Json({"tables", "--columns"});
    EXPECT_EQ(columns[0]["Table"].get<std::string>() < columns.back()["Table"].get<std::string>(), true);
    bool found = false;
    for (const auto& column : columns) {
        if (column["Table"] == "Sem_Katalog_IT" && column["Column"] == "KostenProTN") {
            found = true;
            EXPECT_EQ(column["Type"], "money");
        }
    }
    EXPECT_TRUE(found);
}

TEST_F(Cli, TablesRefusesATableThatIsNotThere) {
    UseSample();
    const auto outcome = Run({"tables", "Nirgends"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_THAT(outcome.err, HasSubstr("There is no table \"Nirgends\" in the database."));
}

TEST_F(Cli, SqlPrintsRowsFromAroundARefusalInTheSameBatch) {
    UseSample();
    const auto outcome = Run({"sql", "select MDNR from OpactMD insert into OpactMD (MDNR) values (1) select 2 as Danach"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out, "MDNR\n----\n   1\n\nDanach\n------\n     2\n");
    EXPECT_THAT(outcome.err, HasSubstr("PK_OpactMD"));
}

}  // namespace
}  // namespace frontend
