#include <gtest/gtest.h>

#include <string>

#include <LumoConnection/odbc/odbc_session.h>
#include <test_support/odbc_drivers.h>
#include <test_support/raises.h>

// The session on a driver without wide calls: between it and the driver manager only ASCII is safe.
namespace LumoConnection {
namespace {

class OnSqlite : public testing::Test {
  protected:
    void SetUp() override {
        if (text_.empty()) GTEST_SKIP() << "the SQLite driver is not installed (package libsqliteodbc)";
        ASSERT_TRUE(session_->Connect(text_, "", "", 30)) << session_->LastErrorText();
    }
    void Run(const Text& sql) { EXPECT_TRUE(session_->ExecuteSql(sql)) << sql << ": " << session_->LastErrorText(); }

    const test_support::Folder folder_;
    const Text text_ = test_support::SqliteOdbcText(folder_);
    const Ref<OdbcSession> session_ = New<OdbcSession>();
};

TEST_F(OnSqlite, AColumnHasTheTypeOfItsDeclaration) {
    Run("CREATE TABLE Arten (i int, b bigint, f float, n numeric, c varchar(10), t text, d date, z timestamp, x blob)");
    Run("INSERT INTO Arten VALUES (-5, 3, 6.5, 12.25, 'Ol ''x''', 'kurz', '2026-11-21', '2026-11-21 10:15:59.250', x'00ff')");
    Run("INSERT INTO Arten (i) VALUES (NULL)");
    ASSERT_TRUE(session_->OpenSelect("SELECT * FROM Arten")) << session_->LastErrorText();
    const auto rows = session_->Recordset();
    const Variant kExpected[] = {
        -5,
        3,
        6.5,
        12.25,
        "Ol 'x'",
        "kurz",
        DateTime::Of(2026, 11, 21),
        DateTime(std::chrono::local_days{std::chrono::year{2026} / 11 / 21}, std::chrono::milliseconds{36'959'250}),
        "0x00FF"};
    for (Int16 i = 0; i < 9; ++i) EXPECT_EQ(rows->Fields().Item(i).Value(), kExpected[i]) << rows->Fields().Name(i);
    rows->MoveNext();
    for (Int16 i = 0; i < 9; ++i) EXPECT_EQ(rows->Fields().Item(i).Value(), Variant::Null()) << rows->Fields().Name(i);
    EXPECT_EQ(rows->Fields().Item("Z").Value(), Variant::Null());
}

TEST_F(OnSqlite, LongTextsKeepEveryCharacter) {
    Run("CREATE TABLE Texte (t text)");
    for (const char* piece : {"x", "zwei\r\nZeilen"}) {
        Text expected;
        for (int i = 0; i < 70'000; ++i) expected += piece;
        Run("DELETE FROM Texte");
        Run("INSERT INTO Texte VALUES ('" + expected + "')");
        EXPECT_TRUE(session_->LookupValue("t", "Texte", "") == Variant(expected)) << piece;
    }
}

TEST_F(OnSqlite, RefusalsAreTold) {
    EXPECT_FALSE(session_->OpenSelect("SELECT nichts FROM nirgends"));
    EXPECT_NE(session_->LastErrorText().find("no such table: nirgends"), Text::npos) << session_->LastErrorText();
    Run("CREATE TABLE Kurs (ID int PRIMARY KEY)");
    Run("INSERT INTO Kurs VALUES (1)");
    EXPECT_FALSE(session_->ExecuteSql("INSERT INTO Kurs VALUES (1)"));
    EXPECT_NE(session_->LastErrorText().find("UNIQUE"), Text::npos) << session_->LastErrorText();
    EXPECT_EQ(session_->LookupValue("count(*) + 0", "Kurs", ""), Variant(1));
}

TEST_F(OnSqlite, AClosedSessionOpensAgain) {
    Run("CREATE TABLE Kurs (ID int)");
    const auto connection = session_->AdoConnection();
    session_->Close();
    EXPECT_EQ(connection->State(), 0);
    connection->Open();
    Run("INSERT INTO Kurs VALUES (1)");
    EXPECT_EQ(session_->LookupValue("ID", "Kurs", "ID = 1"), Variant(1));
}

}  // namespace
}  // namespace LumoConnection
