#include <test_support/postgres.h>

#include "frontend/cli_test.h"

// The program on a server, reached by another connection text and nothing else. This one takes statements of the
// standard; it has no tables of the suite.
namespace frontend {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

class OnServer : public Cli {
  protected:
    void SetUp() override {
        server_ = test_support::SharedPostgres();
        if (!server_)
            GTEST_SKIP() << "PostgreSQL or its ODBC driver is not installed (packages postgresql, odbc-postgresql)";
        EXPECT_EQ(Sql("drop table if exists Kurse").code, 0);
        EXPECT_EQ(Sql("create table Kurse (Nr int not null primary key, Titel varchar(40), Preis money)").code, 0);
        EXPECT_EQ(Sql("insert into Kurse values (1, 'Gespräche führen', 12.5), (2, null, null)").code, 0);
    }

    Outcome OnIt(Arguments arguments) const {
        arguments.insert(arguments.begin(),
                         {"--connect", server_->ServerText(), "--user", server_->kUser, "--password", server_->kPassword});
        return Run(arguments);
    }
    Outcome Sql(const std::string& text) const { return OnIt({"sql", text, "--format", "csv"}); }

    test_support::PostgresServer* server_ = nullptr;
};

TEST_F(OnServer, RunsTextsAndTellsRows) {
    const auto rows = Sql("select Nr, Titel, Preis from Kurse order by Nr");
    EXPECT_EQ(rows.code, 0) << rows.err;
    EXPECT_EQ(rows.out, "nr,titel,preis\n1,Gespräche führen,12.50\n2,,\n");
    EXPECT_EQ(OnIt({"sql", "delete from Kurse"}).err, "(2 rows changed)\n");
}

TEST_F(OnServer, TellsWhyATextIsRefused) {
    const auto refused = Sql("select Ort from Kurse");
    EXPECT_EQ(refused.code, 1);
    EXPECT_THAT(refused.err, StartsWith("lumoseminar: error "));
    EXPECT_THAT(refused.err, HasSubstr("ort"));
}

TEST_F(OnServer, TellsItsTables) {
    const auto tables = OnIt({"tables", "--format", "csv"});
    EXPECT_EQ(tables.code, 0) << tables.err;
    EXPECT_THAT(tables.out, HasSubstr("\nkurse,3,2\n"));
    const auto columns = OnIt({"tables", "KURSE", "--format", "csv"});
    EXPECT_EQ(columns.out,
              "Column,Type,Nullable,Key\nnr,integer,false,true\ntitel,character varying(40),true,false\npreis,money,true,false\n");
}

TEST_F(OnServer, InitNamesTheStatementThatTheServerDoesNotTake) {
    const auto refused = OnIt({"init"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_THAT(refused.err, HasSubstr("schema.sql, batch from line"));
}

TEST_F(OnServer, AWrongPasswordIsToldAndNothingIsCreated) {
    const auto refused =
        Run({"--connect", server_->ServerText(), "--user", "lumo", "--password", "falsch", "sql", "select 1"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_THAT(refused.err, HasSubstr("password"));
}

}  // namespace
}  // namespace frontend
