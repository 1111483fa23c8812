#pragma once

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>

#include <LumoConnection/any_session.h>
#include <test_support/server.h>

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
    const auto batches = SchemaBatches(name);
    EXPECT_FALSE(batches.empty()) << name;
    for (const auto& batch : batches) {
        EXPECT_TRUE(session.ExecuteSql(batch.text)) << name << ", line " << batch.line << ": " << session.LastErrorText();
    }
}

/// All tables, without a row, in memory.
inline LumoSeminar::Ref<LumoConnection::EmbeddedSession> EmbeddedSchemaDatabase() {
    auto session = EmptyDatabase();
    RunSchemaFile(*session, "schema.sql");
    return session;
}

/// A session on a database of the test's own: in memory, or on the server of server.h.
class Database : public LumoSeminar::Ref<LumoConnection::AnySession> {
  public:
    explicit Database(LumoSeminar::Ref<LumoConnection::AnySession> session) : Ref(std::move(session)) {}

    /// For tests that are about the embedded database; raises on the server.
    operator LumoSeminar::Ref<LumoConnection::EmbeddedSession>() const {
        auto embedded = (*this)->Embedded();
        if (!embedded) throw std::runtime_error("this test names the embedded database; it cannot run on a server");
        return embedded;
    }
};

/// A database with all tables, without a row.
inline Database SchemaDatabase() {
    auto session = ServerText().empty() ? LumoSeminar::New<LumoConnection::AnySession>() : EmptyServer();
    if (ServerText().empty() && !session->Connect("Provider=Embedded;Data Source=:memory:", "sa", "", 30))
        ADD_FAILURE() << session->LastErrorText();
    RunSchemaFile(*session, "schema.sql");
    return Database(std::move(session));
}

/// The sample company.
inline Database SampleDatabase() {
    auto session = SchemaDatabase();
    RunSchemaFile(*session, "sample.sql");
    return session;
}

}  // namespace test_support
