#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include <LumoConnection/odbc/odbc_session.h>
#include <test_support/postgres.h>
#include <test_support/raises.h>

// The session on a real server, through the driver manager and a real driver.
namespace LumoConnection {
namespace {

constexpr Int32 kTimeout = 2;

class OnPostgres : public testing::Test {
  protected:
    void SetUp() override {
        if (!server_)
            GTEST_SKIP() << "PostgreSQL or its ODBC driver is not installed (packages postgresql, odbc-postgresql)";
        ASSERT_TRUE(session_->Connect(server_->ConnectionText(), "", "", kTimeout)) << session_->LastErrorText();
    }
    void TearDown() override {
        if (session_->IsOpen()) (void)session_->ExecuteSql("DROP TABLE IF EXISTS Kurs");
    }
    Variant Value(const Text& sql) {
        EXPECT_TRUE(session_->OpenSelect(sql)) << sql << ": " << session_->LastErrorText();
        return session_->Recordset() ? session_->Recordset()->Fields().Item(0).Value() : Variant();
    }
    void Run(const Text& sql) { EXPECT_TRUE(session_->ExecuteSql(sql)) << sql << ": " << session_->LastErrorText(); }
    Text Refusal(const Text& sql) {
        EXPECT_FALSE(session_->ExecuteSql(sql)) << sql;
        return session_->LastErrorText();
    }

    test_support::PostgresServer* const server_ = test_support::SharedPostgres();
    const Ref<OdbcSession> session_ = New<OdbcSession>();
};

TEST_F(OnPostgres, AValueHasTheTypeOfItsColumn) {
    const struct {
        const char* type;
        const char* literal;
        Variant expected;
    } kCases[] = {
        {"smallint", "-32768", Int16{-32768}},
        {"int", "2147483647", 2147483647},
        {"bigint", "3", 3},
        {"bigint", "9007199254740993", 9007199254740992.0},
        {"numeric(10,3)", "-4.125", -4.125},
        {"money", "-12.34", Money::FromUnits(-123'400)},
        {"money", "1234567.89", Money::FromUnits(12'345'678'900)},
        {"real", "0.1", 0.1f},
        {"float8", "-1e300", -1e300},
        {"timestamp", "21.11.2026 10:15:59", DateTime::Of(2026, 11, 21, 10, 15, 59)},
        {"timestamp", "2026-11-21 10:15:59.997",
         DateTime(std::chrono::local_days{std::chrono::year{2026} / 11 / 21}, std::chrono::milliseconds{36'959'997})},
        {"timestamp", "1899-12-30 07:30:00", DateTime::TimeOfDay(7, 30)},
        {"date", "0100-01-01", DateTime::Of(100, 1, 1)},
        {"time", "23:59:59", DateTime::TimeOfDay(23, 59, 59)},
        {"text", "Größe \"12\" ''ß'' € 𝄞", "Größe \"12\" 'ß' € 𝄞"},
        {"varchar(10)", "", ""},
        {"char(5)", "ä", "ä    "},
        {"bytea", "\\x00ff", "0x00FF"},
    };
    Run("SET datestyle = 'ISO, DMY'");
    for (const auto& value : kCases) {
        SCOPED_TRACE(value.type);
        EXPECT_EQ(Value("SELECT CAST('" + Text(value.literal) + "' AS " + value.type + ")"), value.expected) << value.literal;
        EXPECT_EQ(Value("SELECT CAST(NULL AS " + Text(value.type) + ")"), Variant::Null());
    }
}

TEST_F(OnPostgres, TextsOfAnyLengthKeepEveryCharacter) {
    for (const char* piece : {"x", "ä", "𝄞", "a𝄞", "zwei\r\nZeilen\t"}) {
        for (const int count : {8190, 8191, 8192, 70'000}) {
            Text expected;
            for (int i = 0; i < count; ++i) expected += piece;
            EXPECT_TRUE(Value("SELECT '" + expected + "'") == Variant(expected)) << piece << count;
            EXPECT_TRUE(Value("SELECT repeat('" + Text(piece) + "', " + std::to_string(count) + ")") == Variant(expected));
        }
    }
}

TEST_F(OnPostgres, EscapesAndParameterMarksInTextsAreTexts) {
    EXPECT_EQ(Value("SELECT '{d ''2026-01-01''} {fn now()} ? {Name}'"), Variant("{d '2026-01-01'} {fn now()} ? {Name}"));
}

TEST_F(OnPostgres, TheFirstRowSetOfSeveralResultsCounts) {
    EXPECT_EQ(Value("SELECT 1 AS a; SELECT 2 AS b"), Variant(1));
    EXPECT_EQ(session_->Recordset()->Fields().Name(0), "a");
    EXPECT_EQ(Value("CREATE TABLE Kurs (ID int PRIMARY KEY); INSERT INTO Kurs VALUES (1), (2); SELECT MAX(ID) FROM Kurs"),
              Variant(2));
}

TEST_F(OnPostgres, ALateErrorRefusesTheCall) {
    Run("CREATE TABLE Kurs (ID int PRIMARY KEY)");
    for (const char* sql : {"SELECT 1; SELECT 1/0", "INSERT INTO Kurs VALUES (1); INSERT INTO Kurs VALUES (1)",
                            "SELECT 1/(3 - g) FROM generate_series(1, 5) g"}) {
        EXPECT_FALSE(session_->OpenSelect(sql)) << sql;
        EXPECT_EQ(session_->Recordset(), nullptr);
        EXPECT_NE(session_->LastErrorText(), "");
        EXPECT_RAISES(1, session_->AdoConnection()->Execute(sql));
    }
    EXPECT_EQ(Value("SELECT 4"), Variant(4));
    EXPECT_EQ(session_->LastErrorNumber(), 0);
}

TEST_F(OnPostgres, ARefusalIsToldInOneLineWithStateAndNumber) {
    const Text text = Refusal("SELECT ID FROM Kurse");
    EXPECT_TRUE(text.starts_with("[42P01] 1: ERROR: relation \"kurse\" does not exist")) << text;
    EXPECT_EQ(text.find_first_of("\r\n"), Text::npos);
    EXPECT_TRUE(Refusal("SELEC").starts_with("[42601] 1: ERROR: syntax error"));
    Run("CREATE TABLE Kurs (ID int PRIMARY KEY); INSERT INTO Kurs VALUES (1)");
    EXPECT_TRUE(Refusal("INSERT INTO Kurs VALUES (1)").starts_with("[23505] 1: ERROR: duplicate key"));
}

TEST_F(OnPostgres, RowsAffectedAreTold) {
    Run("CREATE TABLE Kurs (ID int PRIMARY KEY)");
    Run("INSERT INTO Kurs VALUES (1), (2), (3)");
    EXPECT_EQ(session_->RowsAffected(), 3);
    Run("DELETE FROM Kurs WHERE ID = 99");
    EXPECT_EQ(session_->RowsAffected(), 0);
    EXPECT_TRUE(session_->OpenSelect("SELECT * FROM Kurs"));
    EXPECT_EQ(session_->RowsAffected(), 3);
}

TEST_F(OnPostgres, TwoRowSetsAreReadWhileTheSessionWorksOn) {
    ASSERT_TRUE(session_->OpenSelect("SELECT g FROM generate_series(1, 3000) g"));
    const auto numbers = session_->Recordset();
    ASSERT_TRUE(session_->OpenSelect("SELECT g * 2 FROM generate_series(1, 3000) g"));
    const auto doubles = session_->Recordset();
    Run("CREATE TABLE Kurs (ID int PRIMARY KEY)");
    int count = 0;
    for (; !numbers->Eof(); numbers->MoveNext(), doubles->MoveNext()) {
        const Int32 number = To<Int32>(numbers->Fields().Item(0).Value());
        ASSERT_EQ(number, ++count);
        ASSERT_EQ(doubles->Fields().Item(0).Value(), Variant(2 * number));
        if (count % 1000 == 0) Run("INSERT INTO Kurs VALUES (" + std::to_string(number) + ")");
    }
    EXPECT_EQ(count, 3000);
    EXPECT_EQ(session_->LookupValue("count(*)", "Kurs", "ID > 1000"), Variant(2));
}

TEST_F(OnPostgres, AStatementEndsWithTheTimeoutAndTheSessionGoesOn) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(Refusal("SELECT pg_sleep(30)").starts_with("[57014]"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    EXPECT_EQ(session_->AdoConnection()->State(), Connection::kOpen);
    EXPECT_EQ(Value("SELECT 7"), Variant(7));
}

TEST_F(OnPostgres, ALostConnectionIsClosedAndOpensAgain) {
    const auto connection = session_->AdoConnection();
    const auto rows = connection->Execute("SELECT 5");
    server_->Stop();
    EXPECT_FALSE(session_->OpenSelect("SELECT 1"));
    EXPECT_NE(session_->LastErrorText(), "");
    EXPECT_EQ(connection->State(), 0);
    EXPECT_FALSE(session_->ExecuteSql("SELECT 1"));
    EXPECT_EQ(session_->LastErrorText(), "The connection is closed.");
    const auto refused = test_support::RaisedBy([&] {
        connection->Open();
        return 0;
    });
    ASSERT_TRUE(refused);
    EXPECT_TRUE(refused->Description().starts_with("[08001]")) << refused->Description();
    EXPECT_EQ(connection->State(), 0);
    server_->Start();
    connection->Open();
    EXPECT_EQ(connection->State(), Connection::kOpen);
    EXPECT_EQ(Value("SELECT 8"), Variant(8));
    EXPECT_EQ(rows->Fields().Item(0).Value(), Variant(5));
}

TEST_F(OnPostgres, SessionsOfSeveralThreadsDoNotDisturbEachOther) {
    std::array<int, 4> sums{};
    std::vector<std::thread> threads;
    for (int& sum : sums) {
        threads.emplace_back([&sum, text = server_->ConnectionText()] {
            const auto own = New<OdbcSession>();
            if (!own->Connect(text, "", "", 30)) return;
            for (int n = 1; n <= 50; ++n) {
                const Variant value = own->LookupValue("max(g)", "generate_series(1, " + std::to_string(n) + ") g", "");
                (void)own->OpenSelect("SELECT nichts");
                if (!value.IsNull()) sum += To<Int32>(value);
            }
        });
    }
    for (auto& thread : threads) thread.join();
    for (const int sum : sums) EXPECT_EQ(sum, 1275);
}

TEST_F(OnPostgres, UserAndPasswordOfTheCallLogIn) {
    const auto other = New<OdbcSession>();
    ASSERT_TRUE(other->Connect(server_->ServerText(), server_->kUser, server_->kPassword, kTimeout))
        << other->LastErrorText();
    ASSERT_TRUE(other->OpenSelect("SELECT current_user"));
    EXPECT_EQ(other->Recordset()->Fields().Item(0).Value(), Variant("lumo"));
    EXPECT_FALSE(other->Connect(server_->ServerText(), server_->kUser, "falsches Wort", kTimeout));
    EXPECT_TRUE(other->LastErrorText().starts_with("[08001] 101: ")) << other->LastErrorText();
    EXPECT_EQ(other->LastErrorText().find("falsches Wort"), Text::npos);
}

}  // namespace
}  // namespace LumoConnection
