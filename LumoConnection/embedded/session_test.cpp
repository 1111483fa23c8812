#include <gtest/gtest.h>

#include <sqlite3.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

#include <LumoConnection/embedded/session.h>

namespace LumoConnection {
namespace {

// A folder that is gone after the test.
class Folder {
  public:
    Folder() {
        std::string name = testing::TempDir() + "lumo_session_XXXXXX";
        path_ = mkdtemp(name.data());
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string File(const std::string& name) const { return (path_ / name).string(); }

  private:
    std::filesystem::path path_;
};

Ref<EmbeddedSession> Open(const std::string& file = ":memory:") {
    auto session = New<EmbeddedSession>();
    EXPECT_TRUE(session->Connect("Provider=Embedded;Data Source=\"" + file + "\"", "meier", "", 30))
        << session->LastErrorText();
    return session;
}

Variant First(EmbeddedSession& session, const std::string& sql) {
    if (!session.OpenSelect(sql)) {
        ADD_FAILURE() << sql << ": " << session.LastErrorText();
        return {};
    }
    auto rows = session.Recordset();
    return rows->Eof() ? Variant() : rows->Fields().Item(Int16{0}).Value();
}

TEST(EmbeddedSession, BringsEachColumnInItsType) {
    auto session = Open();
    ASSERT_TRUE(session->ExecuteSql(
        "CREATE TABLE T (i int, s smallint, t tinyint, b bit, m money, f float, r real, d datetime, n nvarchar(10))"));
    ASSERT_TRUE(session->ExecuteSql("INSERT INTO T VALUES (1, 2, 3, 1, 4.5, 0.25, 0.1, '30.12.1899 09:30', N'Ü')"));
    ASSERT_TRUE(session->ExecuteSql("INSERT INTO T (i) VALUES (NULL)"));
    ASSERT_TRUE(session->OpenSelect("SELECT * FROM T")) << session->LastErrorText();
    auto rows = session->Recordset();
    EXPECT_EQ(rows->Fields().Count(), 9);
    EXPECT_EQ(rows->Fields().Item("I").Value(), Variant(Int32{1}));
    EXPECT_EQ(rows->Fields().Item("s").Value(), Variant(Int16{2}));
    EXPECT_EQ(rows->Fields().Item("t").Value(), Variant(Byte{3}));
    EXPECT_EQ(rows->Fields().Item("b").Value(), Variant(true));
    EXPECT_EQ(rows->Fields().Item("m").Value(), Variant(Money::FromUnits(45000)));
    EXPECT_EQ(rows->Fields().Item("f").Value(), Variant(0.25));
    EXPECT_EQ(rows->Fields().Item("r").Value(), Variant(0.1F));
    EXPECT_EQ(rows->Fields().Item("d").Value(), Variant(DateTime::TimeOfDay(9, 30)));
    EXPECT_EQ(rows->Fields().Item("n").Value(), Variant("Ü"));
    rows->MoveNext();
    for (Int16 i = 0; i < 9; ++i) EXPECT_TRUE(rows->Fields().Item(i).Value().IsNull()) << i;
    EXPECT_EQ(session->ColumnTypes(),
              (std::vector<Text>{"int", "smallint", "tinyint", "bit", "money", "float", "real", "datetime", "nvarchar(10)"}));
}

TEST(EmbeddedSession, LooksUpOneValue) {
    auto session = Open();
    EXPECT_TRUE(session->ExecuteSql(
        "CREATE TABLE T (ID int NOT NULL PRIMARY KEY, Name nvarchar(20) NULL) INSERT INTO T VALUES (1, 'a'), (2, NULL)"));
    EXPECT_EQ(session->LookupValue("Name", "T", "ID = 1"), Variant("a"));
    EXPECT_EQ(session->LookupValue("MAX(ID)", "T", ""), Variant(Int32{2}));
    EXPECT_TRUE(session->LookupValue("Name", "T", "ID = 2").IsNull());
    EXPECT_TRUE(session->LookupValue("Name", "T", "ID = 3").IsNull());
    EXPECT_EQ(session->LastErrorText(), "");
    EXPECT_TRUE(session->LookupValue("Nahme", "T", "ID = 1").IsNull());
    EXPECT_EQ(session->LastErrorText(), "Invalid column name 'Nahme'.");
}

TEST(EmbeddedSession, SaysWhyAndWhereItRefuses) {
    auto session = Open();
    EXPECT_TRUE(session->ExecuteSql("CREATE TABLE T (ID int NOT NULL CONSTRAINT PK_T PRIMARY KEY, Name nvarchar(5) NOT NULL)"));
    EXPECT_FALSE(session->ExecuteSql("SELECT 1\n FROM Tö WHERE"));
    EXPECT_EQ(session->LastErrorNumber(), 102);
    EXPECT_FALSE(session->ExecuteSql("SELECT N'ü',\r\n  Nix FROM T"));
    EXPECT_EQ(session->LastErrorText(), "Invalid column name 'Nix'.");
    ASSERT_TRUE(session->LastErrorPlace());
    EXPECT_EQ(session->LastErrorPlace()->line, 2u);
    EXPECT_EQ(session->LastErrorPlace()->column, 3u);
    EXPECT_TRUE(session->ExecuteSql("INSERT INTO T VALUES (7, 'a')"));
    EXPECT_EQ(session->LastErrorText(), "Invalid column name 'Nix'.");
    EXPECT_EQ(session->LastErrorNumber(), 0);
    EXPECT_FALSE(session->LastErrorPlace());
    EXPECT_FALSE(session->ExecuteSql("INSERT INTO T VALUES (6, 'b'), (7, 'c')"));
    EXPECT_EQ(session->LastErrorNumber(), 2627);
    EXPECT_EQ(session->LastErrorText(),
              "Violation of PRIMARY KEY constraint 'PK_T'. Cannot insert duplicate key in object 'dbo.T'. The duplicate key value is (7).");
    EXPECT_FALSE(session->ExecuteSql("INSERT INTO T (ID) VALUES (8)"));
    EXPECT_EQ(session->LastErrorText(),
              "Cannot insert the value NULL into column 'Name', table 'dbo.T'; column does not allow nulls. INSERT fails.");
    EXPECT_FALSE(session->ExecuteSql("INSERT INTO T VALUES (8, 'zu\r\nlang')"));
    EXPECT_EQ(session->LastErrorText(), "String or binary data would be truncated.");
    EXPECT_FALSE(session->ExecuteSql("SELECT CAST('a\r\nb' AS int)"));
    EXPECT_EQ(session->LastErrorText(), "Conversion failed when converting the varchar value 'a  b' to data type int.");
    EXPECT_EQ(First(*session, "SELECT COUNT(*) FROM T"), Variant(Int32{1}));
}

TEST(EmbeddedSession, GivesTheRowsOfTheFirstStatementThatYieldsAny) {
    auto session = Open();
    EXPECT_EQ(First(*session, "CREATE TABLE T (a int) INSERT INTO T VALUES (5) SELECT a FROM T SELECT 9"), Variant(Int32{5}));
    ASSERT_TRUE(session->OpenSelect("UPDATE T SET a = 6"));
    EXPECT_EQ(session->RowsAffected(), 1);
    EXPECT_EQ(session->Recordset()->Fields().Count(), 0);
    EXPECT_TRUE(session->Recordset()->Eof());
    EXPECT_FALSE(session->OpenSelect("SELECT a FROM T SELECT nix FROM T"));
    EXPECT_FALSE(session->Recordset());
}

TEST(EmbeddedSession, KeepsRowSetsReadable) {
    auto session = Open();
    EXPECT_TRUE(session->ExecuteSql("CREATE TABLE T (a nvarchar(10)) INSERT INTO T VALUES ('eins')"));
    ASSERT_TRUE(session->OpenSelect("SELECT a FROM T"));
    auto rows = session->Recordset();
    EXPECT_FALSE(session->OpenSelect("SELECT nix FROM T"));
    EXPECT_TRUE(session->ExecuteSql("DROP TABLE T"));
    session.Reset();
    EXPECT_EQ(rows->Fields().Item("a").Value(), Variant("eins"));
}

TEST(EmbeddedSession, CarriesTextsOfAllSortsUnharmed) {
    auto session = Open();
    EXPECT_TRUE(session->ExecuteSql("CREATE TABLE T (ID int NOT NULL PRIMARY KEY, a nvarchar(max) NULL)"));
    const std::string kTexts[] = {
        "O'Neil",
        "''",
        "\\",
        "Größe ß",
        "日本 \U0001F600",
        std::string("a\0b", 3),
        "a\tb\r\nc",
        "{x} [y] %_",
        std::string(100'000, 'x'),
        "",
    };
    int id = 0;
    for (const std::string& text : kTexts) {
        std::string quoted;
        for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
        ASSERT_TRUE(session->ExecuteSql("INSERT INTO T VALUES (" + std::to_string(++id) + ", '" + quoted + "')"))
            << session->LastErrorText();
        EXPECT_EQ(First(*session, "SELECT a FROM T WHERE ID = " + std::to_string(id)), Variant(text)) << id;
        EXPECT_EQ(First(*session, "SELECT ID FROM T WHERE a = '" + quoted + "'"), Variant(Int32{id})) << id;
    }
}

TEST(EmbeddedSession, RefusesATextThatIsNotUtf8) {
    auto session = Open();
    EXPECT_FALSE(session->ExecuteSql("CREATE TABLE T (a nvarchar(9)) INSERT INTO T VALUES ('\xC3\xA4\xFF')"));
    EXPECT_EQ(session->LastErrorText(), "The text is not UTF-8.");
    ASSERT_TRUE(session->LastErrorPlace());
    EXPECT_EQ(session->LastErrorPlace()->offset, 56u);
    EXPECT_FALSE(session->OpenSelect("SELECT a FROM T"));
}

TEST(EmbeddedSession, IsRefusedBeforeConnectAndAfterClose) {
    EmbeddedSession session;
    EXPECT_FALSE(session.OpenSelect("SELECT 1"));
    EXPECT_EQ(session.LastErrorText(), "The session is not connected.");
    EXPECT_EQ(session.AdoConnection()->State(), 0);
    EXPECT_TRUE(session.LookupValue("1", "T", "").IsNull());
    ASSERT_TRUE(session.Connect("provider = embedded ; data source = ':memory:'", "", "", 0)) << session.LastErrorText();
    EXPECT_EQ(session.AdoConnection()->State(), Connection::kOpen);
    EXPECT_TRUE(session.OpenSelect("SELECT 1"));
    session.Close();
    EXPECT_FALSE(session.ExecuteSql("SELECT 1"));
    EXPECT_EQ(session.LastErrorText(), "The connection is closed.");
    session.AdoConnection()->Open();
    EXPECT_TRUE(session.OpenSelect("SELECT 1"));
}

TEST(EmbeddedSession, RefusesConnectionTextsThatItDoesNotUnderstand) {
    const char* kTexts[] = {
        "",
        "Provider=Embedded",
        "Data Source=x.db",
        "Provider=Other;Data Source=x",
        "Provider=Embedded;Data Source=:memory:;Sync=Maybe",
        "Provider=Embedded;Data Source=:memory:;Colour=red",
        "Provider=Embedded;Data Source=\"x",
        "Provider",
        "=",
        "Provider=Embedded;Data Source=/no/such/folder/x.db",
        "Provider=Embedded;Data Source=/",
    };
    for (const char* text : kTexts) {
        EmbeddedSession session;
        EXPECT_FALSE(session.Connect(text, "", "", 1)) << text;
        EXPECT_NE(session.LastErrorText(), "") << text;
        EXPECT_FALSE(session.ExecuteSql("SELECT 1")) << text;
    }
}

TEST(EmbeddedSession, RefusesFilesThatAreNoDatabaseOfItsKind) {
    const Folder folder;
    std::ofstream(folder.File("text.db")) << std::string(5000, 'x');
    EmbeddedSession session;
    EXPECT_FALSE(session.Connect("Provider=Embedded;Data Source=" + folder.File("text.db"), "", "", 1));
    EXPECT_EQ(session.LastErrorText(), "The file '" + folder.File("text.db") + "' is no database.");
    const auto make = [&](const std::string& name, const char* sql) {
        sqlite3* raw = nullptr;
        sqlite3_open(folder.File(name).c_str(), &raw);
        EXPECT_EQ(sqlite3_exec(raw, sql, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(raw);
        return session.Connect("Provider=Embedded;Data Source=" + folder.File(name), "", "", 1);
    };
    EXPECT_FALSE(make("other.db", "CREATE TABLE t(a)"));
    EXPECT_NE(session.LastErrorText().find("another program"), std::string::npos);
    EXPECT_TRUE(Open(folder.File("newer.db"))->ExecuteSql("CREATE TABLE T (a int)"));
    EXPECT_FALSE(make("newer.db", "PRAGMA user_version = 99"));
    EXPECT_NE(session.LastErrorText().find("newer version"), std::string::npos);
}

TEST(EmbeddedSession, KeepsEverythingInTheFile) {
    const Folder folder;
    {
        auto session = Open(folder.File("a.db"));
        ASSERT_TRUE(session->ExecuteSql(
            "CREATE TABLE T (ID int NOT NULL, t tinyint NULL DEFAULT 7, n nvarchar(3) NULL, CONSTRAINT PK_T PRIMARY KEY (ID))"));
        ASSERT_TRUE(session->ExecuteSql("CREATE UNIQUE INDEX UX ON T (n)"));
        ASSERT_TRUE(session->ExecuteSql("INSERT INTO T (ID, n) VALUES (1, 'a')"));
    }
    auto session = Open(folder.File("a.db"));
    EXPECT_EQ(First(*session, "SELECT t FROM T"), Variant(Byte{7}));
    EXPECT_FALSE(session->ExecuteSql("INSERT INTO T (ID, n) VALUES (2, 'abcd')"));
    EXPECT_EQ(session->LastErrorNumber(), 8152);
    EXPECT_FALSE(session->ExecuteSql("INSERT INTO T (ID, n) VALUES (1, 'b')"));
    EXPECT_NE(session->LastErrorText().find("'PK_T'"), std::string::npos);
    EXPECT_FALSE(session->ExecuteSql("INSERT INTO T (ID, n) VALUES (2, 'A')"));
    EXPECT_EQ(session->LastErrorNumber(), 2601);
}

TEST(EmbeddedSession, SeesTheTablesThatAnotherSessionChanges) {
    const Folder folder;
    auto one = Open(folder.File("a.db"));
    auto two = Open(folder.File("a.db"));
    ASSERT_TRUE(one->ExecuteSql("CREATE TABLE T (a int)"));
    ASSERT_TRUE(two->ExecuteSql("INSERT INTO T VALUES (1)")) << two->LastErrorText();
    EXPECT_EQ(First(*two, "SELECT a FROM T WHERE a = 1"), Variant(Int32{1}));
    ASSERT_TRUE(one->ExecuteSql("DROP TABLE T"));
    ASSERT_TRUE(one->ExecuteSql("CREATE TABLE T (b nvarchar(5) NULL, a money NULL)"));
    ASSERT_TRUE(one->ExecuteSql("INSERT INTO T (a) VALUES (1)"));
    EXPECT_EQ(First(*two, "SELECT a FROM T WHERE a = 1"), Variant(Money(1)));
    EXPECT_FALSE(two->ExecuteSql("INSERT INTO T VALUES (1)"));
    EXPECT_EQ(two->LastErrorNumber(), 213);
    ASSERT_TRUE(one->ExecuteSql("DROP TABLE T"));
    EXPECT_FALSE(two->ExecuteSql("INSERT INTO T (a) VALUES (1)"));
    EXPECT_EQ(two->LastErrorNumber(), 208);
}

TEST(EmbeddedSession, LetsWritersWaitForEachOther) {
    const Folder folder;
    const std::string file = folder.File("a.db");
    ASSERT_TRUE(Open(file)->ExecuteSql("CREATE TABLE T (ID int NOT NULL PRIMARY KEY)"));
    constexpr int kWriters = 3;
    constexpr int kRows = 40;
    std::atomic<int> failures = 0;
    std::vector<std::thread> writers;
    for (int i = 0; i < kWriters; ++i) {
        writers.emplace_back([&] {
            EmbeddedSession session;
            if (!session.Connect("Provider=Embedded;Sync=Normal;Data Source=" + file, "", "", 30)) ++failures;
            for (int row = 0; row < kRows; ++row) {
                if (!session.ExecuteSql("INSERT INTO T SELECT ISNULL(MAX(ID), 0) + 1 FROM T")) ++failures;
            }
        });
    }
    for (std::thread& writer : writers) writer.join();
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(First(*Open(file), "SELECT COUNT(*) FROM T"), Variant(Int32{kWriters * kRows}));
}

TEST(EmbeddedSession, HasTransactions) {
    auto session = Open();
    EXPECT_TRUE(session->ExecuteSql("CREATE TABLE T (a int NOT NULL PRIMARY KEY)"));
    EXPECT_TRUE(session->ExecuteSql("BEGIN TRAN INSERT INTO T VALUES (1) BEGIN TRAN INSERT INTO T VALUES (2) COMMIT ROLLBACK"));
    EXPECT_EQ(First(*session, "SELECT COUNT(*) FROM T"), Variant(Int32{0}));
    EXPECT_TRUE(session->ExecuteSql("BEGIN TRANSACTION"));
    EXPECT_TRUE(session->ExecuteSql("INSERT INTO T VALUES (1)"));
    EXPECT_FALSE(session->ExecuteSql("INSERT INTO T VALUES (1)"));
    EXPECT_TRUE(session->ExecuteSql("INSERT INTO T VALUES (2) COMMIT TRANSACTION"));
    EXPECT_EQ(First(*session, "SELECT COUNT(*) FROM T"), Variant(Int32{2}));
    EXPECT_FALSE(session->ExecuteSql("COMMIT"));
    EXPECT_EQ(session->LastErrorNumber(), 3902);
    EXPECT_FALSE(session->ExecuteSql("ROLLBACK"));
    EXPECT_EQ(session->LastErrorNumber(), 3903);
    EXPECT_TRUE(session->ExecuteSql("BEGIN TRAN"));
    EXPECT_TRUE(session->ExecuteSql("CREATE TABLE U (a int)"));
    EXPECT_TRUE(session->ExecuteSql("ROLLBACK"));
    EXPECT_FALSE(session->ExecuteSql("SELECT * FROM U"));
    EXPECT_TRUE(session->ExecuteSql("CREATE TABLE U (a int)"));
}

TEST(EmbeddedSession, RaisesOnTheConnection) {
    auto session = Open();
    auto connection = session->AdoConnection();
    EXPECT_EQ(connection->Execute("SELECT 5 AS Zahl")->Fields().Item("zahl").Value(), Variant(Int32{5}));
    EXPECT_EQ(connection->Execute("CREATE TABLE T (a int)")->Fields().Count(), 0);
    try {
        connection->Execute("SELECT nix FROM T");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 207);
        EXPECT_EQ(error.Description(), "Invalid column name 'nix'.");
    }
}

TEST(EmbeddedSession, KnowsTheUser) {
    auto session = Open();
    EXPECT_EQ(First(*session, "SELECT System_User"), Variant("meier"));
    session = New<EmbeddedSession>();
    EXPECT_TRUE(session->Connect("Provider=Embedded;Data Source=:memory:", "", "", 30));
    EXPECT_NE(First(*session, "SELECT SYSTEM_USER"), Variant(""));
}

TEST(EmbeddedSession, ListsItsTables) {
    auto session = Open();
    EXPECT_TRUE(session->ExecuteSql("CREATE TABLE b (x int NOT NULL PRIMARY KEY, y nvarchar(7) NULL) CREATE TABLE A (z money)"));
    const auto tables = session->Tables();
    ASSERT_EQ(tables.size(), 2u);
    EXPECT_EQ(tables[0].name, "A");
    ASSERT_EQ(tables[1].columns.size(), 2u);
    EXPECT_TRUE(tables[1].columns[0].in_primary_key);
    EXPECT_FALSE(tables[1].columns[0].nullable);
    EXPECT_EQ(tables[1].columns[1].type, "nvarchar(7)");
}

TEST(EmbeddedSession, RefusesTextsBeyondItsBounds) {
    auto session = Open();
    EXPECT_FALSE(session->ExecuteSql("SELECT '" + std::string(std::size_t{17} << 20, 'x') + "'"));
    EXPECT_NE(session->LastErrorText().find("longer than"), std::string::npos);
    std::string many = "SELECT 1 WHERE 1=1";
    for (int i = 0; i < 5000; ++i) many += " OR 2=1";
    EXPECT_TRUE(session->OpenSelect(many)) << session->LastErrorText();
    std::string deep = "1";
    for (int i = 0; i < 300; ++i) deep = "isnull(" + deep + ", 1)";
    EXPECT_FALSE(session->OpenSelect("SELECT " + deep));
    EXPECT_EQ(session->LastErrorNumber(), 191);
}

}  // namespace
}  // namespace LumoConnection
