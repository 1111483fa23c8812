#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include <LumoConnection/embedded/session.h>
#include <LumoConnection/embedded/sqlite.h>
#include <test_support/storage_faults.h>

// The library's own allocations.
void* operator new(std::size_t size) {
    if (test_support::Faults().Fails(test_support::Fault::kOwnMemory)) throw std::bad_alloc();
    if (void* block = std::malloc(size == 0 ? 1 : size)) return block;
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }

namespace LumoConnection {
namespace {

using test_support::Fault;
using test_support::Faults;

class Folder {
  public:
    Folder() {
        std::string name = testing::TempDir() + "lumo_faults_XXXXXX";
        path_ = mkdtemp(name.data());
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string File(const std::string& name) const { return (path_ / name).string(); }

  private:
    std::filesystem::path path_;
};

std::string ConnectionText(const std::string& file) { return "Provider=Embedded;Data Source='" + file + "'"; }

bool Connect(EmbeddedSession& session, const std::string& file) {
    return static_cast<bool>(session.Connect(ConnectionText(file), "meier", "", 1));
}

std::string Rows(EmbeddedSession& session, const std::string& sql) {
    if (!session.OpenSelect(sql)) return sql + ": " + session.LastErrorText();
    std::string text;
    const auto rows = session.Recordset();
    for (; !rows->Eof(); rows->MoveNext()) {
        for (Int16 i = 0; i < rows->Fields().Count(); ++i) {
            const Variant value = rows->Fields().Item(i).Value();
            text += value.IsNull() ? "NULL" : To<Text>(value);
            text += '|';
        }
        text += '\n';
    }
    return text;
}

// All that is in the database, read through the session.
std::string Content(EmbeddedSession& session) {
    std::string text;
    for (const TableInfo& table : session.Tables()) {
        text += table.name + ":";
        for (const ColumnInfo& column : table.columns) text += " " + column.name + " " + column.type;
        text += "\n" + Rows(session, "SELECT * FROM " + table.name + " ORDER BY 1");
    }
    return text;
}

std::string Check(const std::string& file) {
    Embedded::SqliteConnection connection(file, false, 1);
    Embedded::SqliteStatement check = connection.Prepare("PRAGMA integrity_check");
    if (!check.Step(connection)) return "no answer";
    std::string answer(check.Column(0).text);
    if (connection.Number("SELECT count(*) FROM pragma_foreign_key_check") != 0) answer += ", references broken";
    return answer;
}

constexpr const char* kSetUp = R"(
CREATE TABLE Ort (Nr int NOT NULL CONSTRAINT PK_Ort PRIMARY KEY, Name nvarchar(20) NULL, Preis money NULL)
CREATE TABLE Termin (Nr int NOT NULL PRIMARY KEY, Ort int NULL CONSTRAINT FK_Ort REFERENCES Ort (Nr), Tag datetime NULL)
CREATE UNIQUE INDEX UX_Name ON Ort (Name)
INSERT INTO Ort VALUES (1, N'Köln', 1.5), (2, N'Bonn', 2), (3, N'Ulm', NULL)
INSERT INTO Termin VALUES (1, 1, '01.02.2012'), (2, 2, NULL), (3, NULL, '31.12.2012 10:30'))";

struct Operation {
    const char* name;
    /// Run as one text; %n stands for the number of the attempt, so that each is a shape of its own.
    const char* sql;
    /// Takes the change back.
    const char* undo = nullptr;
    /// What the statement is refused with even where nothing fails.
    int refusal = 0;
    /// Run before the failures begin.
    const char* before = nullptr;
    /// A statement before the one that fails may have done its work already.
    bool first_stays = false;
};

constexpr Operation kOperations[] = {
    {"insert", "/* %n */ INSERT INTO Ort (Nr, Name) SELECT ISNULL(MAX(Nr), 0) + 1, N'Köln ' + STR(5) FROM Ort",
     "DELETE FROM Ort WHERE Nr > 3"},
    {"insert again", "INSERT INTO Ort (Nr, Name) VALUES (4, N'Wuppertal a. d. W.')", "DELETE FROM Ort WHERE Nr = 4"},
    {"insert clash", "/* %n */ INSERT INTO Ort VALUES (4, 'a', 1), (5, 'b', 2), (1, 'c', 3)", nullptr, 2627},
    {"update", "/* %n */ UPDATE Ort SET Preis = Preis * 2 WHERE Name LIKE '%n'",
     "UPDATE Ort SET Preis = Preis / 2 WHERE Name LIKE '%n'"},
    {"update moves keys", "/* %n */ UPDATE Termin SET Nr = Nr + 1", "UPDATE Termin SET Nr = Nr - 1"},
    {"update clash", "/* %n */ UPDATE Ort SET Name = 'x' WHERE Nr > 1", nullptr, 2601},
    {"delete", "/* %n */ DELETE FROM Termin WHERE Ort = 2", "INSERT INTO Termin VALUES (2, 2, NULL)"},
    {"delete clash", "/* %n */ DELETE FROM Ort", nullptr, 547},
    {"select", "/* %n */ SELECT o.Name, COUNT(*), MAX(t.Tag), UPPER(o.Name) FROM Ort o LEFT JOIN Termin t ON t.Ort = o.Nr GROUP BY o.Name ORDER BY o.Name DESC"},
    {"select again", "SELECT Name, CONVERT(nvarchar(10), Preis), REPLACE(Name, 'l', 'll') FROM Ort ORDER BY Name"},
    {"batch", "/* %n */ DECLARE @n int SET @n = (SELECT MAX(Nr) FROM Ort) INSERT INTO Ort (Nr, Name) VALUES (@n + 1, 'neu') SELECT @n + 1",
     "DELETE FROM Ort WHERE Nr = 4", 0, nullptr, true},
    {"choice", "/* %n */ IF EXISTS (SELECT * FROM Ort WHERE Nr = 3) BEGIN UPDATE Ort SET Preis = 9 WHERE Nr = 3 END ELSE DELETE FROM Ort",
     "UPDATE Ort SET Preis = NULL WHERE Nr = 3"},
    {"create table", "/* %n */ CREATE TABLE Neu (a int NOT NULL PRIMARY KEY, b nvarchar(9) NULL DEFAULT 'x', CHECK (a > 0))",
     "DROP TABLE Neu"},
    {"create index", "/* %n */ CREATE INDEX IX_Tag ON Termin (Tag)", "DROP INDEX IX_Tag ON Termin"},
    {"drop index", "/* %n */ DROP INDEX IX_Tag ON Termin", "CREATE INDEX IX_Tag ON Termin (Tag)", 0,
     "CREATE INDEX IX_Tag ON Termin (Tag)"},
    {"add column", "/* %n */ ALTER TABLE Neu ADD c int NOT NULL DEFAULT 5", "DROP TABLE Neu CREATE TABLE Neu (a int)",
     0, "CREATE TABLE Neu (a int)"},
    {"drop table", "/* %n */ DROP TABLE Neu", "CREATE TABLE Neu (a int)", 0, "CREATE TABLE Neu (a int)"},
    {"transaction", "/* %n */ BEGIN TRANSACTION INSERT INTO Ort (Nr) VALUES (4) UPDATE Ort SET Name = 'y' WHERE Nr = 4 COMMIT TRANSACTION",
     "DELETE FROM Ort WHERE Nr = 4"},
    {"transaction taken back",
     "/* %n */ BEGIN TRANSACTION INSERT INTO Ort (Nr) VALUES (4) CREATE TABLE Neu (a int) ROLLBACK TRANSACTION"},
};

struct Case {
    const char* name;
    Fault fault;
    bool persistent;
    bool in_memory;
};

constexpr Case kCases[] = {
    {"OneSqliteBlockInMemory", Fault::kSqliteMemory, false, true},
    {"AllSqliteBlocksInMemory", Fault::kSqliteMemory, true, true},
    {"OneSqliteBlock", Fault::kSqliteMemory, false, false},
    {"AllSqliteBlocks", Fault::kSqliteMemory, true, false},
    {"OneOwnBlock", Fault::kOwnMemory, false, false},
    {"AllOwnBlocks", Fault::kOwnMemory, true, false},
    {"OneOwnBlockInMemory", Fault::kOwnMemory, false, true},
    {"OneDeviceCall", Fault::kDevice, false, false},
    {"AllDeviceCalls", Fault::kDevice, true, false},
    {"OneFullWrite", Fault::kFull, false, false},
    {"AllFullWrites", Fault::kFull, true, false},
    {"OneBusyLock", Fault::kBusy, false, false},
    {"AllBusyLocks", Fault::kBusy, true, false},
};

class EmbeddedFaults : public testing::TestWithParam<Case> {
  protected:
    // Runs something with the failure at call n.
    bool Strike(long n, const std::function<bool()>& run) {
        Faults().Arm(GetParam().fault, n, GetParam().persistent);
        bool ok = false;
        try {
            ok = run();
        } catch (...) {
            Faults().Disarm();
            ADD_FAILURE() << "raised";
        }
        fired_ = Faults().Disarm() > 0;
        return ok;
    }

    std::string NewFile() { return GetParam().in_memory ? ":memory:" : folder_.File(std::to_string(++files_) + ".db"); }

    Folder folder_;
    int files_ = 0;
    bool fired_ = false;
};

std::string Numbered(std::string_view sql, long n) {
    std::string text(sql);
    if (const auto at = text.find("/* %n */"); at != std::string::npos) text.replace(at + 3, 2, std::to_string(n));
    return text;
}

constexpr long kMostCalls = 20'000;

TEST_P(EmbeddedFaults, AFailedStatementChangesNothing) {
    for (const Operation& operation : kOperations) {
        SCOPED_TRACE(operation.name);
        const std::string file = NewFile();
        EmbeddedSession session;
        ASSERT_TRUE(Connect(session, file)) << session.LastErrorText();
        ASSERT_TRUE(session.ExecuteSql(kSetUp)) << session.LastErrorText();
        if (operation.before) {
            ASSERT_TRUE(session.ExecuteSql(operation.before)) << session.LastErrorText();
        }
        const std::string before = Content(session);
        std::string after;
        long failed = 0;
        long n = 1;
        for (;; ++n) {
            ASSERT_LT(n, kMostCalls);
            SCOPED_TRACE(n);
            const std::string sql = Numbered(operation.sql, n);
            const bool ok = Strike(n, [&] { return static_cast<bool>(session.OpenSelect(sql)); });
            const std::string text = session.LastErrorText();
            const Int32 number = session.LastErrorNumber();
            if (!ok) {
                ++failed;
                ASSERT_NE(text, "");
                ASSERT_NE(number, 0);
                // A transaction stays open for the caller to take back.
                (void)session.ExecuteSql("ROLLBACK");
                if (operation.first_stays && Content(session) != before) {
                    ASSERT_TRUE(session.ExecuteSql(operation.undo));
                }
                ASSERT_EQ(Content(session), before) << text;
                if (fired_) continue;
                { ASSERT_EQ(number, operation.refusal) << text; }
                break;
            }
            ASSERT_EQ(operation.refusal, 0);
            const std::string now = Content(session);
            if (after.empty()) after = now;
            { ASSERT_EQ(now, after); }
            if (operation.undo) {
                ASSERT_TRUE(session.ExecuteSql(operation.undo)) << session.LastErrorText();
            }
            ASSERT_EQ(Content(session), before);
            if (!fired_) break;
        }
        if (GetParam().fault == Fault::kSqliteMemory || GetParam().fault == Fault::kOwnMemory) {
            EXPECT_GT(failed, 0);
        }
        session.Close();
        if (GetParam().in_memory) continue;
        { EXPECT_EQ(Check(file), "ok"); }
        ASSERT_TRUE(Connect(session, file)) << session.LastErrorText();
        EXPECT_EQ(Content(session), before);
    }
}

TEST_P(EmbeddedFaults, AFailedStatementOfATransactionLeavesTheOthers) {
    const std::string file = NewFile();
    EmbeddedSession session;
    ASSERT_TRUE(Connect(session, file)) << session.LastErrorText();
    ASSERT_TRUE(session.ExecuteSql(kSetUp)) << session.LastErrorText();
    const std::string before = Content(session);
    for (long n = 1;; ++n) {
        ASSERT_LT(n, kMostCalls);
        SCOPED_TRACE(n);
        ASSERT_TRUE(session.ExecuteSql("BEGIN TRANSACTION INSERT INTO Ort (Nr, Name) VALUES (10, 'zuerst')"));
        const std::string sql = Numbered("/* %n */ INSERT INTO Ort (Nr, Name) VALUES (11, 'a'), (12, 'b')", n);
        const bool ok = Strike(n, [&] { return static_cast<bool>(session.ExecuteSql(sql)); });
        const std::string text = ok ? "" : session.LastErrorText();
        EXPECT_EQ(text.empty(), ok);
        const bool taken_back = text.find("has been taken back") != std::string::npos;
        EXPECT_NE(static_cast<bool>(session.ExecuteSql("COMMIT TRANSACTION")), taken_back) << text;
        EXPECT_EQ(Rows(session, "SELECT Nr FROM Ort WHERE Nr > 9 ORDER BY Nr"), taken_back ? ""
                                                                                : ok       ? "10|\n11|\n12|\n"
                                                                                           : "10|\n")
            << text;
        ASSERT_TRUE(session.ExecuteSql("DELETE FROM Ort WHERE Nr > 9"));
        ASSERT_EQ(Content(session), before);
        if (!fired_) {
            EXPECT_TRUE(ok) << text;
            break;
        }
    }
    session.Close();
    if (!GetParam().in_memory) {
        EXPECT_EQ(Check(file), "ok");
    }
}

TEST_P(EmbeddedFaults, AFailedConnectLeavesTheFileSound) {
    const std::string there = NewFile();
    std::string before;
    {
        EmbeddedSession session;
        ASSERT_TRUE(Connect(session, there));
        ASSERT_TRUE(session.ExecuteSql(kSetUp));
        before = Content(session);
    }
    for (const bool fresh : {true, false}) {
        SCOPED_TRACE(fresh ? "a new file" : "a file that is there");
        if (!fresh && GetParam().in_memory) continue;
        for (long n = 1;; ++n) {
            ASSERT_LT(n, kMostCalls);
            SCOPED_TRACE(n);
            const std::string file = fresh ? NewFile() : there;
            const Text connection_text = ConnectionText(file);
            const Text user = "meier";
            const Text password;
            EmbeddedSession session;
            const bool ok =
                Strike(n, [&] { return static_cast<bool>(session.Connect(connection_text, user, password, 1)); });
            EXPECT_EQ(session.IsOpen(), ok);
            EXPECT_EQ(session.LastErrorNumber() == 0, ok);
            const bool hit = fired_;
            if (!ok) {
                EXPECT_FALSE(session.ExecuteSql("SELECT 1"));
                ASSERT_TRUE(Connect(session, file)) << session.LastErrorText();
            }
            if (fresh) {
                EXPECT_TRUE(session.ExecuteSql("CREATE TABLE T (a int) INSERT INTO T VALUES (1)")) << session.LastErrorText();
            } else {
                EXPECT_EQ(Content(session), before);
            }
            session.Close();
            if (!GetParam().in_memory) {
                EXPECT_EQ(Check(file), "ok");
                if (fresh) std::filesystem::remove(file);
            }
            if (hit) continue;
            { EXPECT_TRUE(ok); }
            break;
        }
    }
}

TEST_P(EmbeddedFaults, LooksUpOrSaysWhyNot) {
    EmbeddedSession session;
    ASSERT_TRUE(Connect(session, NewFile()));
    ASSERT_TRUE(session.ExecuteSql(kSetUp));
    const Text table = "Ort";
    for (long n = 1;; ++n) {
        ASSERT_LT(n, kMostCalls);
        SCOPED_TRACE(n);
        const Text where = Numbered("/* %n */ Nr = 1", n);
        const Text expression = "Name + ' am Rhein, wo er breit ist'";
        Variant found;
        Strike(n, [&] {
            found = session.LookupValue(expression, table, where);
            return true;
        });
        if (session.LastErrorNumber() == 0) {
            ASSERT_EQ(found, Variant("Köln am Rhein, wo er breit ist"));
        } else {
            ASSERT_TRUE(found.IsNull());
        }
        if (fired_) continue;
        { EXPECT_EQ(session.LastErrorNumber(), 0); }
        break;
    }
}

TEST_P(EmbeddedFaults, ClosingNeverFails) {
    for (long n = 1;; ++n) {
        ASSERT_LT(n, kMostCalls);
        SCOPED_TRACE(n);
        const std::string file = NewFile();
        EmbeddedSession session;
        ASSERT_TRUE(Connect(session, file));
        ASSERT_TRUE(session.ExecuteSql(kSetUp));
        const std::string before = Content(session);
        ASSERT_TRUE(session.ExecuteSql("BEGIN TRANSACTION DELETE FROM Termin"));
        Strike(n, [&] {
            session.Close();
            return true;
        });
        const bool hit = fired_;
        EXPECT_FALSE(session.IsOpen());
        if (!GetParam().in_memory) {
            EXPECT_EQ(Check(file), "ok");
            ASSERT_TRUE(Connect(session, file)) << session.LastErrorText();
            EXPECT_EQ(Content(session), before);
            session.Close();
            std::filesystem::remove(file);
        }
        if (!hit) break;
    }
}

// What survives a loss of power is what was synced before it was acknowledged.
TEST(EmbeddedSync, AWriteIsSyncedBeforeItIsAcknowledged) {
    const Folder folder;
    for (const bool full : {true, false}) {
        EmbeddedSession session;
        const std::string file = folder.File(full ? "full.db" : "normal.db");
        ASSERT_TRUE(session.Connect(ConnectionText(file) + (full ? "" : ";Sync=Normal"), "", "", 1));
        ASSERT_TRUE(session.ExecuteSql("CREATE TABLE T (a int)"));
        for (int i = 0; i < 10; ++i) {
            const long before = Faults().syncs;
            ASSERT_TRUE(session.ExecuteSql("INSERT INTO T VALUES (1)"));
            EXPECT_EQ(Faults().syncs > before, full) << i;
            const long between = Faults().syncs;
            ASSERT_TRUE(session.ExecuteSql("BEGIN TRANSACTION UPDATE T SET a = 2 COMMIT TRANSACTION"));
            EXPECT_EQ(Faults().syncs > between, full) << i;
        }
        const long before = Faults().syncs;
        ASSERT_TRUE(session.OpenSelect("SELECT * FROM T"));
        EXPECT_EQ(Faults().syncs, before);
    }
}

INSTANTIATE_TEST_SUITE_P(All, EmbeddedFaults, testing::ValuesIn(kCases),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace LumoConnection

int main(int argc, char** argv) {
    if (!test_support::InstallStorageFaults()) return 2;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
