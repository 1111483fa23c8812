#include <test_support/places.h>
#include <test_support/server.h>

#include "frontend/cli_test.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace frontend {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

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

TEST_F(Cli, TourRunsAnywhereAndComesOutAsTold) {
    const auto done = Run({"tour"});
    EXPECT_EQ(done.code, 0) << done.out << done.err;
    EXPECT_EQ(done.err, "");
    EXPECT_THAT(done.out, EndsWith("\nAll 33 steps came out as told.\n"));
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

TEST_F(Cli, TourLeavesAGivenDatabaseAsItWas) {
    UseSample();
    const auto everything = [this] {
        std::string rows = Run({"tables", "--format", "csv"}).out;
        for (const char* table :
             {"Sem_Katalog_IT", "Sem_Warteliste_IT", "AN_WBBedarf_IT", "Sem_ProzessSchritt_IT", "Sem_ProzessRecht_IT"}) {
            rows += Run({"sql", std::string("select * from ") + table + " order by 1, 2, 3", "--format", "csv"}).out;
        }
        return rows;
    };
    const auto before = everything();
    for (const char* client : {"1", "2"}) {
        const auto done = Run({"tour", "--connect", "Provider=Embedded;Data Source=lumoseminar.db", "--client", client});
        EXPECT_EQ(done.code, 0) << done.out << done.err;
    }
    EXPECT_EQ(everything(), before);
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
    EXPECT_THAT(done.out, EndsWith("\n1 outcome is not as told.\n"));
}

TEST_F(Cli, TourWithoutASeminarSaysSo) {
    ASSERT_EQ(Run({"init"}).code, 0);
    const auto done = Run({"tour", "--connect", "Provider=Embedded;Data Source=lumoseminar.db"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.err, "lumoseminar: error 9: Client 1 has no seminar in this database: the tour has nothing to show.\n");
}

}  // namespace
}  // namespace frontend
