#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <LumoConnection/any_session.h>
#include <LumoConnection/batches.h>
#include <test_support/places.h>

/// The server that tests run on where the environment variable LUMOSEMINAR_TEST_ODBC holds an ODBC connection text of a
/// Microsoft SQL Server. Its database has to have "test" in its name: the tests drop the tables of the schema in it.
namespace test_support {

/// Empty where the tests run on the embedded database.
inline std::string ServerText() {
    const char* text = std::getenv("LUMOSEMINAR_TEST_ODBC");
    return text ? text : "";
}

inline std::vector<LumoConnection::Batch> SchemaBatches(const std::string& name) {
    std::ifstream file(SourceDir() + "/schema/" + name);
    std::ostringstream text;
    text << file.rdbuf();
    return LumoConnection::SplitBatches(text.str());
}

/// The names of the tables that a file of the schema folder creates, in its order.
inline std::vector<std::string> TablesOf(const std::string& name) {
    constexpr std::string_view kCreate = "CREATE TABLE ";
    std::vector<std::string> tables;
    for (const auto& batch : SchemaBatches(name)) {
        for (auto at = batch.text.find(kCreate); at != std::string::npos; at = batch.text.find(kCreate, at + 1)) {
            const auto start = at + kCreate.size();
            tables.push_back(batch.text.substr(start, batch.text.find_first_of(" (\r\n", start) - start));
        }
    }
    return tables;
}

/// Drops those of the tables that are there, the last one first.
inline void DropTables(LumoSeminar::DataSession& session, std::vector<std::string> tables) {
    std::ranges::reverse(tables);
    for (const std::string& table : tables) {
        const std::string sql = "IF OBJECT_ID(N'" + table + "', N'U') IS NOT NULL DROP TABLE " + table;
        EXPECT_TRUE(session.ExecuteSql(sql)) << sql << ": " << session.LastErrorText();
    }
}

/// A session on the server, without any table of the schema. Raises where the server is not reached and where its
/// database is none for tests.
inline LumoSeminar::Ref<LumoConnection::AnySession> EmptyServer() {
    auto session = LumoSeminar::New<LumoConnection::AnySession>();
    if (!session->Connect(ServerText(), "", "", 30)) throw std::runtime_error(session->LastErrorText());
    if (!session->OpenSelect("SELECT DB_NAME() WHERE LOWER(DB_NAME()) LIKE '%test%'") || session->Recordset()->Eof())
        throw std::runtime_error("the database of LUMOSEMINAR_TEST_ODBC has no \"test\" in its name");
    for (const char* file : {"process.sql", "schema.sql"}) DropTables(*session, TablesOf(file));
    return session;
}

/// The name that the database knows its user by.
inline std::string LoginOf(LumoSeminar::DataSession& session) {
    EXPECT_TRUE(session.OpenSelect("SELECT SYSTEM_USER")) << session.LastErrorText();
    return LumoSeminar::To<LumoSeminar::Text>(session.Recordset()->Fields().Item(0).Value());
}

}  // namespace test_support

/// Skips the test where the tests run on a server.
#define NOT_ON_A_SERVER(why) \
    if (!test_support::ServerText().empty()) GTEST_SKIP() << "not on a server: " << why
