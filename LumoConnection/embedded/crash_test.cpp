#include <gtest/gtest.h>

#include <poll.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <set>
#include <sstream>
#include <string>

#include <LumoConnection/embedded/session.h>
#include <LumoConnection/embedded/sqlite.h>
#include <test_support/processes.h>

namespace LumoConnection {
namespace {

using namespace std::chrono_literals;
using test_support::Child;
using test_support::Folder;
using test_support::PipeEnd;
using Clock = std::chrono::steady_clock;

std::string ConnectionText(const std::string& file) { return "Provider=Embedded;Data Source='" + file + "'"; }

// Inserts rows from a number on, one at a time, every fifth time two in a transaction. A row's number is told when its
// statement has been acknowledged.
void InsertForEver(const std::string& file, int first, PipeEnd& tells) {
    EmbeddedSession session;
    if (!session.Connect(ConnectionText(file), "", "", 30)) return;
    if (session.Tables().empty() &&
        !session.ExecuteSql("CREATE TABLE T (ID int NOT NULL PRIMARY KEY, Pair int NULL, Text nvarchar(200) NULL)")) {
        return;
    }
    tells.Write("ready\n");
    for (int id = first;; ++id) {
        const std::string row = "INSERT INTO T VALUES (" + std::to_string(id) + ", ";
        const std::string text = ", '" + std::string(static_cast<std::size_t>(id % 190), 'x') + "') ";
        if (id % 5 != 0) {
            if (!session.ExecuteSql(row + "NULL" + text)) return;
            if (!tells.Write(std::to_string(id) + "\n")) return;
            continue;
        }
        const std::string second = "INSERT INTO T VALUES (" + std::to_string(id + 1) + ", " + std::to_string(id) + text;
        if (!session.ExecuteSql("BEGIN TRANSACTION " + row + std::to_string(id) + text + second + "COMMIT TRANSACTION"))
            return;
        ++id;
        if (!tells.Write(std::to_string(id - 1) + "\n" + std::to_string(id) + "\n")) return;
    }
}

// What the child says within a time, counted from its first word.
std::string Hear(Child& child, std::chrono::microseconds time) {
    std::string heard = child.hears.Read();
    const auto end = Clock::now() + time;
    while (true) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        if (left <= 0ms) return heard;
        pollfd waiting{child.hears.Get(), POLLIN, 0};
        if (poll(&waiting, 1, static_cast<int>(left.count())) <= 0) return heard;
        heard += child.hears.Read();
    }
}

void ExpectSound(const std::string& file) {
    Embedded::SqliteConnection connection(file, false, 30);
    Embedded::SqliteStatement check = connection.Prepare("PRAGMA integrity_check");
    ASSERT_TRUE(check.Step(connection));
    EXPECT_EQ(check.Column(0).text, "ok");
}

TEST(EmbeddedCrash, AnAcknowledgedRowSurvivesTheEndOfTheProcess) {
    const Folder folder;
    const std::string file = folder.File("crash.db");
    std::mt19937 random(20120301);
    std::set<int> acknowledged;
    const auto end = Clock::now() + 3s;
    int rounds = 0;
    for (; rounds < 6 || Clock::now() < end; ++rounds) {
        SCOPED_TRACE(rounds);
        std::string heard;
        {
            const int first = rounds * 1'000'000 + 1;
            Child child([&](PipeEnd&, PipeEnd& tells) { InsertForEver(file, first, tells); });
            heard = Hear(child, std::chrono::microseconds(random() % 60'000));
            child.Kill();
            heard += child.hears.ReadAll();
        }
        std::istringstream lines(heard);
        std::string line;
        ASSERT_TRUE(std::getline(lines, line));
        ASSERT_EQ(line, "ready");
        while (std::getline(lines, line)) acknowledged.insert(std::stoi(line));

        ExpectSound(file);
        EmbeddedSession session;
        ASSERT_TRUE(session.Connect(ConnectionText(file), "", "", 30)) << session.LastErrorText();
        ASSERT_TRUE(session.OpenSelect("SELECT ID FROM T ORDER BY ID")) << session.LastErrorText();
        std::set<int> found;
        for (auto rows = session.Recordset(); !rows->Eof(); rows->MoveNext())
            found.insert(To<Int32>(rows->Fields().Item("ID").Value()));
        for (const int id : acknowledged) ASSERT_TRUE(found.contains(id)) << id;
        // What was not acknowledged is at most the statement that ran.
        EXPECT_LE(found.size(), acknowledged.size() + 2);
        acknowledged = found;
        EXPECT_EQ(session.LookupValue("COUNT(*)", "T a",
                                      "Pair IS NOT NULL AND (SELECT COUNT(*) FROM T b WHERE b.Pair = a.Pair) <> 2"),
                  Variant(Int32{0}));
    }
    EXPECT_GT(acknowledged.size(), static_cast<std::size_t>(rounds));
}

TEST(EmbeddedCrash, AFileWhoseCreationWasCutShortIsMadeWhole) {
    const Folder folder;
    std::mt19937 random(20120302);
    for (int round = 0; round < 30; ++round) {
        SCOPED_TRACE(round);
        const std::string file = folder.File(std::to_string(round) + ".db");
        {
            Child child([&](PipeEnd&, PipeEnd& tells) {
                tells.Write("start");
                InsertForEver(file, 1, tells);
            });
            Hear(child, std::chrono::microseconds(random() % 15'000));
            child.Kill();
        }
        EmbeddedSession session;
        ASSERT_TRUE(session.Connect(ConnectionText(file), "", "", 30)) << session.LastErrorText();
        if (session.Tables().empty()) {
            EXPECT_TRUE(session.ExecuteSql("CREATE TABLE T (a int)")) << session.LastErrorText();
        }
        EXPECT_TRUE(session.OpenSelect("SELECT * FROM T")) << session.LastErrorText();
        session.Close();
        ExpectSound(file);
    }
}

}  // namespace
}  // namespace LumoConnection
