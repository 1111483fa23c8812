#include <LumoConnection/tracing/tracing_session.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoConnection/stored_rows.h>

namespace LumoConnection {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Ref<StoredRows> TwoRows() {
    auto rows = New<StoredRows>(StoredRows::Names{"SemID"});
    rows->Append(Int32{1});
    rows->Append(Int32{2});
    return rows;
}

/// A row set of somebody else's, which does not tell how many rows it has.
class AnotherRowSet final : public RecordSet {
  public:
    Bool Eof() override { return false; }
    Bool Bof() override { return false; }
    void MoveNext() override {}
    void Close() override {}

  protected:
    Int16 ColumnCount() override { return 0; }
    Text ColumnName(Int16) override { return {}; }
    Int16 ColumnPosition(std::string_view) override { return -1; }
    Variant ColumnValue(Int16) override { return {}; }
};

class FakeConnection final : public Connection {
  public:
    Int32 State() override { return state; }
    void Open(const Text& connection_text, const Text&, const Text&, Int32) override {
        opened_with = connection_text;
        state = kOpen;
    }
    Ref<RecordSet> Execute(const Text& sql, Int32 options) override {
        if (sql.empty()) Raise(102, "Incorrect syntax.");
        executed_with = options;
        if (sql.starts_with("DELETE")) return New<StoredRows>(StoredRows::Names{});
        return TwoRows();
    }

    Int32 state = 0;
    Int32 executed_with = 0;
    Text opened_with;
};

/// Refuses what contains REFUSE, raises for what contains RAISE.
class FakeSession final : public DataSession {
  public:
    Bool Connect(const Text& text, const Text& user, const Text& password, Int32 timeout) override {
        connected_with = {text, user, password, std::to_string(timeout)};
        return Answer(text);
    }
    Ref<Connection> AdoConnection() override { return connection; }
    Ref<RecordSet> Recordset() override {
        if (recordset_raises) Raise(3704, "closed");
        return rows;
    }
    Bool OpenSelect(const Text& sql) override { return Answer(sql); }
    Bool ExecuteSql(const Text& sql) override { return Answer(sql); }
    Variant LookupValue(const Text& expression, const Text&, const Text&) override {
        Answer(expression);
        return Int32{41};
    }
    Text LastErrorText() override { return "Refused by the server."; }

    std::vector<Text> connected_with;
    Ref<Connection> connection = New<FakeConnection>();
    Ref<RecordSet> rows = TwoRows();
    bool recordset_raises = false;

  private:
    static Bool Answer(const Text& text) {
        if (text.find("RAISE") != text.npos) throw Error(102, "Incorrect syntax.", "the server");
        if (text.find("THROW") != text.npos) throw 1;
        return text.find("REFUSE") == text.npos;
    }
};

class TracingSessionTest : public testing::Test {
  protected:
    const TracedCall& Last() const { return told.at(told.size() - 1); }

    std::vector<TracedCall> told;
    Ref<FakeSession> inner = New<FakeSession>();
    Ref<DataSession> session = New<TracingSession>(inner, [this](const TracedCall& call) { told.push_back(call); });
};

TEST_F(TracingSessionTest, TellsAboutASelectAndItsRows) {
    EXPECT_TRUE(session->OpenSelect("SELECT SemID FROM Sem_Katalog_IT WHERE SemTitel = 'Führung'"));
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(Last().kind, TracedKind::kOpenSelect);
    EXPECT_EQ(Last().statement, "SELECT SemID FROM Sem_Katalog_IT WHERE SemTitel = 'Führung'");
    EXPECT_TRUE(Last().ok);
    EXPECT_EQ(Last().rows, 2);
    EXPECT_GE(Last().seconds, 0);
    EXPECT_LT(Last().seconds, 10);
    EXPECT_EQ(Last().error, "");
}

TEST_F(TracingSessionTest, HandsOutTheRowSetItselfOnItsFirstRow) {
    (void)session->OpenSelect("SELECT");
    EXPECT_TRUE(session->Recordset() == inner->rows);
    EXPECT_EQ(session->Recordset()->Fields().Item("SemID").Value(), Variant(1));
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(TracingSessionTest, CountsTheRowsOfAScript) {
    Script script;
    script.OpenSelect("SELECT").Rows({"SemID"}, {{1}, {2}});
    const Ref<DataSession> traced =
        New<TracingSession>(script.Session(), [this](const TracedCall& call) { told.push_back(call); });
    EXPECT_TRUE(traced->OpenSelect("SELECT"));
    EXPECT_EQ(Last().rows, 2);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(TracingSessionTest, KnowsNoCountWhereTheRowSetIsAnother) {
    const Ref<RecordSet> another = New<AnotherRowSet>();
    inner->rows = another;
    EXPECT_TRUE(session->OpenSelect("SELECT"));
    EXPECT_EQ(Last().rows, TracedCall::kNoRows);
    EXPECT_TRUE(session->Recordset() == another);
}

TEST_F(TracingSessionTest, ARowSetThatCannotBeHadIsNoFailureOfTheSelect) {
    inner->recordset_raises = true;
    EXPECT_TRUE(session->OpenSelect("SELECT"));
    EXPECT_TRUE(Last().ok);
    EXPECT_EQ(Last().rows, TracedCall::kNoRows);
}

TEST_F(TracingSessionTest, TellsWhyACallWasRefused) {
    EXPECT_FALSE(session->OpenSelect("REFUSE 1"));
    EXPECT_FALSE(session->ExecuteSql("REFUSE 2"));
    EXPECT_FALSE(session->Connect("REFUSE=3", "", "", 30));
    ASSERT_EQ(told.size(), 3U);
    for (const TracedCall& call : told) {
        SCOPED_TRACE(call.statement);
        EXPECT_FALSE(call.ok);
        EXPECT_EQ(call.error, "Refused by the server.");
        EXPECT_EQ(call.rows, TracedCall::kNoRows);
    }
    EXPECT_EQ(session->LastErrorText(), "Refused by the server.");
    EXPECT_EQ(told.size(), 3U);
}

TEST_F(TracingSessionTest, ARaisedErrorIsToldAndPassesUnchanged) {
    try {
        (void)session->ExecuteSql("RAISE");
        ADD_FAILURE() << "nothing raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 102);
        EXPECT_EQ(error.Source(), "the server");
        EXPECT_EQ(error.Description(), "Incorrect syntax.");
    }
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(Last().kind, TracedKind::kExecuteSql);
    EXPECT_FALSE(Last().ok);
    EXPECT_EQ(Last().error, "Incorrect syntax.");
}

TEST_F(TracingSessionTest, AnythingElseThatIsThrownIsToldToo) {
    EXPECT_THROW((void)session->ExecuteSql("THROW"), int);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_FALSE(Last().ok);
    EXPECT_EQ(Last().error, "An exception of an unknown type was thrown.");
}

TEST_F(TracingSessionTest, TellsAboutALookupInWords) {
    EXPECT_EQ(session->LookupValue("max(SemID)", "Sem_Katalog_IT", ""), Variant(41));
    EXPECT_EQ(Last().statement, "max(SemID) from Sem_Katalog_IT");
    EXPECT_TRUE(Last().ok);
    session->LookupValue("Wert", "Optionen", "ID = 30");
    EXPECT_EQ(Last().kind, TracedKind::kLookupValue);
    EXPECT_EQ(Last().statement, "Wert from Optionen where ID = 30");
}

TEST_F(TracingSessionTest, SeesWhatTheConnectionExecutes) {
    const Ref<Connection> connection = session->AdoConnection();
    EXPECT_THAT(told, IsEmpty());
    EXPECT_EQ(connection->State(), 0);
    connection->Open();
    EXPECT_EQ(Last().kind, TracedKind::kConnectionOpen);
    EXPECT_TRUE(Last().ok);
    EXPECT_EQ(connection->State(), 1);

    const Ref<RecordSet> rows = connection->Execute("SELECT Name FROM Orte", 7);
    EXPECT_EQ(rows->Fields().Item(Int16{0}).Value(), Variant(1));
    EXPECT_EQ(inner->connection.As<FakeConnection>()->executed_with, 7);
    EXPECT_EQ(Last().kind, TracedKind::kConnectionExecute);
    EXPECT_EQ(Last().statement, "SELECT Name FROM Orte");
    EXPECT_EQ(Last().rows, 2);

    connection->Execute("DELETE FROM Orte");
    EXPECT_EQ(Last().rows, TracedCall::kNoRows);
    EXPECT_TRUE(Last().ok);

    EXPECT_THROW(connection->Execute(""), Error);
    EXPECT_FALSE(Last().ok);
    EXPECT_EQ(Last().error, "Incorrect syntax.");
}

TEST_F(TracingSessionTest, AnEmptyConnectionStaysEmpty) {
    inner->connection.Reset();
    EXPECT_FALSE(session->AdoConnection());
}

TEST_F(TracingSessionTest, PasswordsReachTheSessionButNotTheTrace) {
    struct {
        const char* text;
        const char* shown;
    } const cases[] = {
        {"Provider=Embedded;Data Source=:memory:", "Provider=Embedded;Data Source=:memory:"},
        {"Server=a;PWD=geheim;Database=b", "Server=a;PWD=***;Database=b"},
        {"Server=a; Password = x", "Server=a; Password =***"},
        {"pwd={a;b}}c};Server=d;", "pwd=***;Server=d;"},
        {"pwd={a}};b};Server=d", "pwd=***;Server=d"},
        {"pwd='a'';b';Server=d", "pwd=***;Server=d"},
        {"pwd=\"a;\"\"b\";Server=d", "pwd=***;Server=d"},
        {"pwd= 'a;b' ;Server=d", "pwd=***;Server=d"},
        {"pwd={never closed;Server=d", "pwd=***"},
        {"pwd=", "pwd=***"},
        {"pwd", "pwd"},
        {";;a=b;", ";;a=b;"},
        {"", ""},
    };
    for (const auto& [text, shown] : cases) {
        SCOPED_TRACE(text);
        EXPECT_TRUE(session->Connect(text, "user", "secret", 30));
        EXPECT_THAT(inner->connected_with, ElementsAre(text, "user", "secret", "30"));
        EXPECT_EQ(Last().kind, TracedKind::kConnect);
        EXPECT_EQ(Last().statement, shown);
        session->AdoConnection()->Open(text);
        EXPECT_EQ(inner->connection.As<FakeConnection>()->opened_with, text);
        EXPECT_EQ(Last().statement, shown);
    }
}

TEST(RecordIntoTest, KeepsAReadableListOfTheCalls) {
    const auto calls = std::make_shared<std::vector<std::string>>();
    const Ref<DataSession> session = New<TracingSession>(New<FakeSession>(), RecordInto(calls));
    (void)session->Connect("Provider=Embedded", "", "", 30);
    (void)session->OpenSelect("SELECT 1");
    (void)session->ExecuteSql("REFUSE");
    session->LookupValue("max(SemID)", "Sem_Katalog_IT", "");
    session->AdoConnection()->Open();
    session->AdoConnection()->Execute("SELECT 2");
    EXPECT_THAT(*calls, ElementsAre("Connect: Provider=Embedded", "OpenSelect: SELECT 1", "ExecuteSql: REFUSE",
                                    "LookupValue: max(SemID) from Sem_Katalog_IT",
                                    "ConnectionOpen: ", "ConnectionExecute: SELECT 2"));
}

TEST(TracingSessionLifeTest, HoldsTheOtherSessionNoLongerThanItself) {
    Script script;
    script.AdoConnection();
    {
        const Ref<DataSession> session = New<TracingSession>(script.Session(), [](const TracedCall&) {});
        session->AdoConnection();
        EXPECT_FALSE(script.SessionReleased());
    }
    EXPECT_TRUE(script.SessionReleased());
    EXPECT_EQ(script.Report(), "");
}

}  // namespace
}  // namespace LumoConnection
