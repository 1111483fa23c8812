#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include <LumoConnection/batches.h>
#include <LumoConnection/embedded/session.h>

namespace test_support {

/// An empty database in memory.
inline LumoSeminar::Ref<LumoConnection::EmbeddedSession> EmptyDatabase() {
    auto session = LumoSeminar::New<LumoConnection::EmbeddedSession>();
    if (!session->Connect("Provider=Embedded;Data Source=:memory:", "sa", "", 30))
        ADD_FAILURE() << session->LastErrorText();
    return session;
}

/// Runs a file of the schema folder.
inline void RunSchemaFile(LumoSeminar::DataSession& session, const std::string& name) {
    std::ifstream file(LUMO_SOURCE_DIR "/schema/" + name);
    std::ostringstream text;
    text << file.rdbuf();
    const auto batches = LumoConnection::SplitBatches(text.str());
    EXPECT_FALSE(batches.empty()) << name;
    for (const auto& batch : batches) {
        EXPECT_TRUE(session.ExecuteSql(batch.text)) << name << ", line " << batch.line << ": " << session.LastErrorText();
    }
}

/// A database in memory with all tables, without a row.
inline LumoSeminar::Ref<LumoConnection::EmbeddedSession> SchemaDatabase() {
    auto session = EmptyDatabase();
    RunSchemaFile(*session, "schema.sql");
    return session;
}

/// The sample company.
inline LumoSeminar::Ref<LumoConnection::EmbeddedSession> SampleDatabase() {
    auto session = SchemaDatabase();
    RunSchemaFile(*session, "sample.sql");
    return session;
}

}  // namespace test_support
