#include <gtest/gtest.h>

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <LumoConnection/embedded/session.h>
#include <LumoConnection/embedded/sqlite.h>
#include <test_support/processes.h>
#include <test_support/raises.h>

namespace LumoConnection {
namespace {

using test_support::Child;
using test_support::Folder;
using test_support::PipeEnd;

std::string Bytes(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void WriteBytes(const std::string& file, const std::string& bytes) { std::ofstream(file, std::ios::binary) << bytes; }

bool Connect(EmbeddedSession& session, const std::string& file) {
    return static_cast<bool>(session.Connect("Provider=Embedded;Data Source=\"" + file + "\"", "", "", 1));
}

/// Why a file is refused; empty where it is not.
std::string Refusal(const std::string& file) {
    EmbeddedSession session;
    if (Connect(session, file)) return "";
    { EXPECT_FALSE(session.IsOpen()); }
    EXPECT_FALSE(session.ExecuteSql("CREATE TABLE T (a int)"));
    EXPECT_FALSE(Connect(session, file));
    return session.LastErrorText();
}

void MakeRaw(const std::string& file, const char* sql) {
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &raw), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(raw, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(raw);
    sqlite3_close(raw);
}

TEST(EmbeddedFiles, AFileThatIsNoDatabaseIsLeftAsItIs) {
    const Folder folder;
    const std::string file = folder.File("a.db");
    for (const std::string& bytes : {std::string("x"), std::string("SQLite format 3"), std::string(5000, 'x'),
                                     std::string(99, '\0'), std::string(1'000'000, '\xFF')}) {
        WriteBytes(file, bytes);
        EXPECT_EQ(Refusal(file), "The file '" + file + "' is no database.");
        EXPECT_TRUE(Bytes(file) == bytes) << bytes.substr(0, 20);
    }
}

TEST(EmbeddedFiles, ADatabaseOfAnotherProgramIsLeftAsItIs) {
    const Folder folder;
    const std::string named = folder.File("named.db");
    MakeRaw(named, "PRAGMA application_id = 77; CREATE TABLE t(a)");
    const std::string nameless = folder.File("nameless.db");
    MakeRaw(nameless, "CREATE TABLE t(a)");
    // One that has been left with writes beside it.
    const std::string live = folder.File("live.db");
    sqlite3* raw = nullptr;
    sqlite3_open(live.c_str(), &raw);
    sqlite3_exec(raw, "PRAGMA journal_mode = WAL; CREATE TABLE t(a); INSERT INTO t VALUES (1)", nullptr, nullptr, nullptr);
    const std::string left = folder.File("left.db");
    std::filesystem::copy_file(live, left);
    std::filesystem::copy_file(live + "-wal", left + "-wal");
    sqlite3_close(raw);
    for (const std::string& file : {named, nameless, left}) {
        const std::string before = Bytes(file);
        const std::string beside = Bytes(file + "-wal");
        EXPECT_EQ(Refusal(file), "The file '" + file + "' is a database of another program.");
        EXPECT_TRUE(Bytes(file) == before) << file;
        EXPECT_TRUE(Bytes(file + "-wal") == beside) << file;
    }
}

TEST(EmbeddedFiles, AFileOfANewerFormatIsLeftAsItIs) {
    const Folder folder;
    const std::string file = folder.File("newer.db");
    {
        EmbeddedSession session;
        ASSERT_TRUE(Connect(session, file));
        ASSERT_TRUE(session.ExecuteSql("CREATE TABLE T (a int)"));
    }
    MakeRaw(file, "PRAGMA user_version = 2");
    const std::string before = Bytes(file);
    EXPECT_EQ(Refusal(file), "The file '" + file + "' was written by a newer version: its format is 2, known is 1.");
    EXPECT_TRUE(Bytes(file) == before);
    EXPECT_FALSE(std::filesystem::exists(file + "-wal"));
}

TEST(EmbeddedFiles, ADamagedFileIsRefusedWhereItIsRead) {
    const Folder folder;
    const std::string file = folder.File("a.db");
    {
        EmbeddedSession session;
        ASSERT_TRUE(Connect(session, file));
        ASSERT_TRUE(session.ExecuteSql("CREATE TABLE T (ID int NOT NULL PRIMARY KEY, a nvarchar(4000) NULL)"));
        for (int i = 0; i < 20; ++i)
            ASSERT_TRUE(session.ExecuteSql("INSERT INTO T VALUES (" + std::to_string(i) + ", '" + std::string(3000, 'x') + "')"));
    }
    const std::string whole = Bytes(file);
    int refused = 0;
    for (std::size_t page = 0; page * 4096 < whole.size(); ++page) {
        std::string bytes = whole;
        bytes.replace(page * 4096 + (page == 0 ? 100 : 0), 300, 300, '\x5A');
        WriteBytes(file, bytes);
        EmbeddedSession session;
        if (Connect(session, file) && session.OpenSelect("SELECT * FROM T")) continue;
        ++refused;
        EXPECT_NE(session.LastErrorText(), "") << page;
        EXPECT_NE(session.LastErrorNumber(), 0) << page;
    }
    EXPECT_GT(refused, 3);
    WriteBytes(file, whole.substr(0, whole.size() / 2));
    EmbeddedSession session;
    EXPECT_FALSE(Connect(session, file) && session.OpenSelect("SELECT * FROM T"));
    EXPECT_NE(session.LastErrorText(), "");
}

TEST(EmbeddedFiles, AnEmptyFileBecomesADatabase) {
    const Folder folder;
    WriteBytes(folder.File("a.db"), "");
    EXPECT_EQ(Refusal(folder.File("a.db")), "");
    EmbeddedSession session;
    ASSERT_TRUE(Connect(session, folder.File("a.db")));
    EXPECT_TRUE(session.ExecuteSql("CREATE TABLE T (a int)")) << session.LastErrorText();
}

TEST(EmbeddedFiles, WhatIsNoPlaceForAFileIsRefused) {
    const Folder folder;
    const auto cannot_open = [](const std::string& file, const std::string& why) {
        return "The database file '" + file + "' cannot be opened: " + why + ".";
    };
    const std::string missing = folder.File("missing/a.db");
    const std::string beneath = folder.File("a.txt/a.db");
    const std::string long_path = folder.File(std::string(3000, 'x'));
    const std::string long_name = folder.File(std::string(300, 'x'));
    WriteBytes(folder.File("a.txt"), "x");
    EXPECT_EQ(Refusal(folder.Path()), cannot_open(folder.Path(), "Is a directory"));
    EXPECT_EQ(Refusal(missing), cannot_open(missing, "No such file or directory"));
    EXPECT_EQ(Refusal(beneath), cannot_open(beneath, "Not a directory"));
    EXPECT_EQ(Refusal(long_path), cannot_open(long_path, "The path is too long"));
    EXPECT_EQ(Refusal(long_name), cannot_open(long_name, "File name too long"));
    EXPECT_NE(Refusal("/dev/null/x"), "");
}

TEST(EmbeddedFiles, AFileNameIsNeverTakenForAnAddress) {
    const Folder folder;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    {
        EmbeddedSession session;
        EXPECT_TRUE(Connect(session, "file:a.db?mode=memory")) << session.LastErrorText();
        EXPECT_TRUE(session.ExecuteSql("CREATE TABLE T (a int)")) << session.LastErrorText();
    }
    EXPECT_TRUE(std::filesystem::exists("file:a.db?mode=memory"));
    std::filesystem::current_path(before);
}

// Runs checks in a process that file permissions hold for; the checks tell what is wrong.
std::string WithoutRights(const Folder& folder, const std::function<std::string()>& check) {
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::all);
    constexpr uid_t kNobody = 65534;
    Child child([&](PipeEnd&, PipeEnd& tells) {
        if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) {
            tells.Write("the rights cannot be given up");
            return;
        }
        tells.Write(check());
    });
    std::string wrong = child.hears.ReadAll();
    if (!child.Wait()) wrong += "the process broke down";
    return wrong;
}

std::string Expect(const std::string& text, const std::string& wanted) {
    return text == wanted ? "" : "'" + text + "' instead of '" + wanted + "'; ";
}

TEST(EmbeddedFiles, AReadOnlyFileIsReadAndNotWritten) {
    const Folder folder;
    const std::string file = folder.File("a.db");
    {
        EmbeddedSession session;
        ASSERT_TRUE(Connect(session, file));
        ASSERT_TRUE(session.ExecuteSql("CREATE TABLE T (a int) INSERT INTO T VALUES (7)"));
    }
    const std::string before = Bytes(file);
    chmod(file.c_str(), 0444);
    EXPECT_EQ(WithoutRights(folder,
                            [&] {
                                EmbeddedSession session;
                                if (!Connect(session, file)) return session.LastErrorText();
                                std::string wrong;
                                if (session.LookupValue("a", "T", "") != Variant(Int32{7}))
                                    wrong += session.LastErrorText();
                                const std::string refusal = "Failed to update the database because the database is read-only.";
                                for (const char* sql : {"INSERT INTO T VALUES (8)", "CREATE TABLE U (a int)", "UPDATE T SET a = 8",
                                                        "DELETE FROM T", "BEGIN TRANSACTION UPDATE T SET a = 8"}) {
                                    if (session.ExecuteSql(sql)) wrong += sql + std::string(" went through; ");
                                    wrong += Expect(session.LastErrorText(), refusal);
                                }
                                if (session.LookupValue("a", "T", "") != Variant(Int32{7}))
                                    wrong += "no longer readable";
                                return wrong;
                            }),
              "");
    EXPECT_TRUE(Bytes(file) == before);
}

std::string ReadOnlyText(const std::string& file) {
    return "Provider=Embedded;mode=readonly;Data Source=\"" + file + "\"";
}

TEST(EmbeddedFiles, ModeReadOnlyReadsAndRefusesEachChange) {
    const Folder folder;
    const std::string file = folder.File("a.db");
    {
        EmbeddedSession session;
        ASSERT_TRUE(Connect(session, file));
        ASSERT_TRUE(session.ExecuteSql("CREATE TABLE T (a int) CREATE INDEX I ON T (a) INSERT INTO T VALUES (7)"));
    }
    const std::string before = Bytes(file);
    {
        EmbeddedSession session;
        EmbeddedSession second;
        ASSERT_TRUE(session.Connect(ReadOnlyText(file), "", "", 1)) << session.LastErrorText();
        ASSERT_TRUE(second.Connect(ReadOnlyText(file), "", "", 1)) << second.LastErrorText();
        for (const char* sql :
             {"INSERT INTO T VALUES (8)", "UPDATE T SET a = 8", "UPDATE T SET a = 8 WHERE a = 9", "DELETE FROM T",
              "CREATE TABLE U (a int)", "ALTER TABLE T ADD b int NULL", "CREATE INDEX J ON T (a)", "DROP INDEX I ON T",
              "DROP TABLE T", "BEGIN TRANSACTION UPDATE T SET a = 8", "ROLLBACK DELETE FROM T"}) {
            EXPECT_FALSE(session.ExecuteSql(sql)) << sql;
            EXPECT_EQ(session.LastErrorNumber(), 3906) << sql;
            EXPECT_EQ(session.LastErrorText(), "Failed to update the database because it was opened with Mode=ReadOnly.");
        }
        EXPECT_RAISES(3906, session.AdoConnection()->Execute("DELETE FROM T"));
        EXPECT_TRUE(session.ExecuteSql("BEGIN TRANSACTION DECLARE @a int SET @a = 1"));
        EXPECT_EQ(session.LookupValue("a", "T", ""), Variant(7));
        EXPECT_TRUE(session.ExecuteSql("COMMIT"));
        EXPECT_EQ(second.LookupValue("a", "T", ""), Variant(7));
        EXPECT_EQ(session.Tables().size(), 1u);
    }
    EXPECT_TRUE(Bytes(file) == before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1) << "nothing is left beside it";
}

TEST(EmbeddedFiles, ModeReadOnlySeesWhatAnotherSessionWrites) {
    const Folder folder;
    const std::string file = folder.File("a.db");
    EmbeddedSession writer;
    ASSERT_TRUE(Connect(writer, file));
    ASSERT_TRUE(writer.ExecuteSql("CREATE TABLE T (a int)"));
    EmbeddedSession reader;
    ASSERT_TRUE(reader.Connect(ReadOnlyText(file), "", "", 1)) << reader.LastErrorText();
    EXPECT_EQ(reader.LookupValue("max(a)", "T", ""), Variant::Null());
    ASSERT_TRUE(writer.ExecuteSql("INSERT INTO T VALUES (7) CREATE TABLE U (b int)"));
    EXPECT_EQ(reader.LookupValue("max(a)", "T", ""), Variant(7));
    EXPECT_EQ(reader.Tables().size(), 2u);
    ASSERT_TRUE(reader.ExecuteSql("BEGIN TRANSACTION"));
    EXPECT_EQ(reader.LookupValue("max(a)", "T", ""), Variant(7));
    ASSERT_TRUE(writer.ExecuteSql("INSERT INTO T VALUES (8)")) << "an open reader stops nobody";
    EXPECT_EQ(reader.LookupValue("max(a)", "T", ""), Variant(7)) << "one view for one transaction";
    ASSERT_TRUE(reader.ExecuteSql("COMMIT"));
    EXPECT_EQ(reader.LookupValue("max(a)", "T", ""), Variant(8));
}

TEST(EmbeddedFiles, ModeReadOnlyMakesNothing) {
    const Folder folder;
    const std::string missing = folder.File("missing.db");
    EmbeddedSession session;
    EXPECT_FALSE(session.Connect(ReadOnlyText(missing), "", "", 1));
    EXPECT_EQ(session.LastErrorText(), "The database file '" + missing + "' cannot be opened: No such file or directory.");
    EXPECT_FALSE(std::filesystem::exists(missing));
    const std::string empty = folder.File("empty.db");
    WriteBytes(empty, "");
    EXPECT_FALSE(session.Connect(ReadOnlyText(empty), "", "", 1));
    EXPECT_EQ(session.LastErrorText(), "The file '" + empty + "' is empty: with Mode=ReadOnly no database is made of it.");
    EXPECT_EQ(Bytes(empty), "");
    EXPECT_FALSE(session.Connect("Provider=Embedded;Mode=ReadOnly;Data Source=:memory:", "", "", 1));
    EXPECT_NE(session.LastErrorText().find("Mode=ReadOnly is for files"), Text::npos) << session.LastErrorText();
    EXPECT_FALSE(session.Connect("Provider=Embedded;Mode=Read;Data Source=a.db", "", "", 1));
    EXPECT_EQ(session.LastErrorText(), "The connection text cannot be used: Mode is ReadWrite or ReadOnly, not \"Read\".");
    EXPECT_TRUE(session.Connect("Provider=Embedded;Mode=ReadWrite;Data Source=:memory:", "", "", 1));
}

TEST(EmbeddedFiles, AFileThatMayNotBeReadIsRefused) {
    const Folder folder;
    const std::string file = folder.File("a.db");
    WriteBytes(file, "");
    chmod(file.c_str(), 0);
    EXPECT_EQ(WithoutRights(folder,
                            [&] {
                                return Expect(Refusal(file),
                                              "The database file '" + file + "' cannot be opened: Permission denied.");
                            }),
              "");
    const std::string empty = folder.File("empty.db");
    WriteBytes(empty, "");
    chmod(empty.c_str(), 0444);
    EXPECT_EQ(
        WithoutRights(
            folder,
            [&] { return Expect(Refusal(empty), "Failed to update the database because the database is read-only."); }),
        "");
    EXPECT_EQ(Bytes(empty), "");
}

TEST(EmbeddedFiles, AFolderThatMayNotBeWrittenIsRefused) {
    const Folder folder;
    const std::string inner = folder.File("inner");
    const std::string file = inner + "/a.db";
    std::filesystem::create_directory(inner);
    {
        EmbeddedSession session;
        ASSERT_TRUE(Connect(session, file));
        ASSERT_TRUE(session.ExecuteSql("CREATE TABLE T (a int) INSERT INTO T VALUES (7)"));
    }
    const std::string before = Bytes(file);
    chmod(file.c_str(), 0666);
    chmod(inner.c_str(), 0555);
    const std::string fresh = inner + "/new.db";
    EXPECT_EQ(
        WithoutRights(
            folder,
            [&] {
                return Expect(Refusal(fresh), "The database file '" + fresh + "' cannot be opened: Permission denied.") +
                       Expect(Refusal(file),
                              "The database is read-only: in the folder of its file nothing may be written, which is needed even for reading.");
            }),
        "");
    EXPECT_TRUE(Bytes(file) == before);
    chmod(inner.c_str(), 0777);
}

TEST(EmbeddedFiles, AFileThatMayNotGrowKeepsWhatItHas) {
    const Folder folder;
    const std::string file = folder.File("a.db");
    Child child([&](PipeEnd&, PipeEnd& tells) {
        std::signal(SIGXFSZ, SIG_IGN);
        EmbeddedSession session;
        if (!Connect(session, file) ||
            !session.ExecuteSql("CREATE TABLE T (ID int NOT NULL PRIMARY KEY, a nvarchar(3000) NULL)")) {
            tells.Write(session.LastErrorText());
            return;
        }
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlim_t before = limit.rlim_cur;
        limit.rlim_cur = 300'000;
        setrlimit(RLIMIT_FSIZE, &limit);
        Int32 rows = 0;
        const auto insert = [&] {
            return static_cast<bool>(session.ExecuteSql("INSERT INTO T VALUES (" + std::to_string(rows + 1) + ", '" +
                                                        std::string(3000, 'x') + "')"));
        };
        while (rows < 1000 && insert()) ++rows;
        std::string wrong;
        if (rows == 0 || rows == 1000) wrong += std::to_string(rows) + " rows; ";
        constexpr int kWriteFailed = SQLITE_IOERR_WRITE;
        wrong += Expect(session.LastErrorText(),
                        "The operating system returned an error while the database file was read or written: disk I/O error (" +
                            std::to_string(kWriteFailed) + ").");
        if (session.LookupValue("COUNT(*)", "T", "") != Variant(rows)) wrong += "rows are lost; ";
        limit.rlim_cur = before;
        setrlimit(RLIMIT_FSIZE, &limit);
        if (!insert()) wrong += session.LastErrorText();
        if (session.LookupValue("COUNT(*)", "T", "") != Variant(rows + 1)) wrong += "the row is not there; ";
        session.Close();
        tells.Write(wrong);
    });
    EXPECT_EQ(child.hears.ReadAll(), "");
    EXPECT_TRUE(child.Wait());
    Embedded::SqliteConnection connection(file, true, 1);
    EXPECT_EQ(connection.Number("SELECT count(*) FROM pragma_integrity_check WHERE integrity_check = 'ok'"), 1);
}

}  // namespace
}  // namespace LumoConnection
