#include "frontend/sessions.h"

#include <LumoConnection/tables/create_tables.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <test_support/places.h>

namespace frontend {
namespace {

using namespace LumoSeminar;

TEST(OpenSession, TheProcessObjectsWorkOnItAlsoInMemory) {
    std::vector<std::string> inserted;
    const auto watcher = [&](const LumoConnection::TracedCall& call) {
        if (call.statement.starts_with("INSERT INTO Sem_Prozess")) inserted.push_back(call.statement);
    };
    const auto session = OpenSession({"Provider=Embedded;Data Source=:memory:", "", ""}, MissingFile::kRefuse, watcher).session;
    EXPECT_TRUE(LumoConnection::RunFiles(
        session, {LumoConnection::ReadSqlFile(test_support::SourceDir() + "/schema/process.sql")}));
    MakeInfoStarter()->Starten(8, 57, 11);
    const auto process = MakeInfoDispatcher();
    process->Initialisieren(8, 57, 1, 130);
    EXPECT_EQ(process->ProzessStatusText(), "Stufe 1 von 2: Entscheidung durch Vorgesetzte");
    EXPECT_EQ(inserted.size(), 1U) << "the watcher sees the process too";
}

TEST(OpenSession, TheLaterOneCounts) {
    const auto Open = [] {
        auto session = OpenSession({"Provider=Embedded;Data Source=:memory:", "", ""}, MissingFile::kRefuse).session;
        EXPECT_TRUE(LumoConnection::RunFiles(
            session, {LumoConnection::ReadSqlFile(test_support::SourceDir() + "/schema/process.sql")}));
        return session;
    };
    const auto earlier = Open();
    const auto later = Open();
    MakeInfoStarter()->Starten(7, 1, 11);
    EXPECT_EQ(To<Int32>(earlier->LookupValue("count(*)", "Sem_ProzessSchritt_IT", "")), 0);
    EXPECT_EQ(To<Int32>(later->LookupValue("count(*)", "Sem_ProzessSchritt_IT", "")), 1);
}

}  // namespace
}  // namespace frontend
