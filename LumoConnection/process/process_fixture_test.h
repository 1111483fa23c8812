#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include <LumoConnection/process/process_objects.h>
#include <test_support/embedded.h>
#include <test_support/processes.h>
#include <test_support/raises.h>

namespace LumoConnection {

inline constexpr Int32 kNeeds = 7;
inline constexpr Int32 kWaitList = 8;
/// May decide at both stages of the needs and of the wait-list, at the first one, at the second one, nowhere.
inline constexpr Int32 kAnna = 17;
inline constexpr Int32 kBoris = 18;
inline constexpr Int32 kClara = 19;
inline constexpr Int32 kNobody = 20;

inline void Execute(DataSession& session, const Text& sql) {
    EXPECT_TRUE(session.ExecuteSql(sql)) << sql << "\n" << session.LastErrorText();
}

inline void Grant(DataSession& session, Int32 module, Int32 stage, Int32 user) {
    Execute(session, "INSERT INTO Sem_ProzessRecht_IT (ModulNr, Stufe, UserID) VALUES (" + std::to_string(module) +
                         ", " + std::to_string(stage) + ", " + std::to_string(user) + ")");
}

inline void GrantAll(DataSession& session) {
    for (const Int32 module : {kNeeds, kWaitList}) {
        for (const Int32 stage : {1, 2}) Grant(session, module, stage, kAnna);
        Grant(session, module, 1, kBoris);
        Grant(session, module, 2, kClara);
    }
}

/// The rows of a select, the columns parted by blanks, the rows by " | ".
inline Text Rows(DataSession& session, const Text& sql) {
    EXPECT_TRUE(session.OpenSelect(sql)) << sql << "\n" << session.LastErrorText();
    Text all;
    const auto rows = session.Recordset();
    for (; rows && !rows->Eof(); rows->MoveNext()) {
        if (!all.empty()) all += " | ";
        for (Int16 i = 0; i < rows->Fields().Count(); ++i) {
            const Variant value = rows->Fields().Item(i).Value();
            all += (i == 0 ? "" : " ") + (value.IsNull() ? Text("-") : To<Text>(value));
        }
    }
    return all;
}

/// Kind, stage and user of each step of a subject.
inline Text Steps(DataSession& session, Int32 module, Int32 key) {
    return Rows(session, "SELECT Art, Stufe, UserID FROM Sem_ProzessSchritt_IT WHERE ModulNr = " + std::to_string(module) +
                             " AND SchluesselID = " + std::to_string(key) + " ORDER BY SchrittNr");
}

/// The description of what a decision raises as refused; empty where it counts.
template <class Call>
Text Refusal(Call&& call) {
    const auto error = test_support::RaisedBy([&] {
        call();
        return 0;
    });
    if (!error) return {};
    EXPECT_EQ(error->Number(), ProcessError::kDecisionRefused);
    return error->Description();
}

/// A database in a file, with the tables and the rights of above.
class ProcessFile {
  public:
    ProcessFile() : session_(Open()) {
        test_support::RunSchemaFile(*session_, "process.sql");
        GrantAll(*session_);
    }

    const Text& ConnectionText() const { return text_; }
    EmbeddedSession& operator*() const { return *session_; }
    /// Another session on it.
    Ref<EmbeddedSession> Open() const {
        auto session = New<EmbeddedSession>();
        EXPECT_TRUE(session->Connect(text_, "", "", 30)) << session->LastErrorText();
        return session;
    }

  private:
    const test_support::Folder folder_;
    const Text text_ = "Provider=Embedded;Sync=Normal;Data Source='" + folder_.File("prozesse.db") + "'";
    const Ref<EmbeddedSession> session_;
};

/// The process objects on a database in memory.
class ProcessTest : public testing::Test {
  protected:
    ProcessTest() : session_(test_support::SchemaDatabase()) {
        test_support::RunSchemaFile(*session_, "process.sql");
        GrantAll(*session_);
    }

    void Start(Int32 module, Int32 key, Int32 user = kNobody) {
        EXPECT_TRUE(MakeProcessStarter({.session = session_})->Starten(module, key, user).IsEmpty());
    }
    Ref<InfoDispatcher> Bound(Int32 module, Int32 key, Int32 client = 1, Int32 person = 4711) {
        auto dispatcher = MakeProcessDispatcher({.session = session_});
        dispatcher->Initialisieren(module, key, client, person);
        return dispatcher;
    }

    const test_support::Database session_;
};

}  // namespace LumoConnection
