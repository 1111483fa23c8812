#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <LumoConnection/embedded/session.h>
#include <test_support/processes.h>

namespace LumoConnection {
namespace {

using namespace std::chrono_literals;
using test_support::Child;
using test_support::Folder;
using test_support::PipeEnd;
using Clock = std::chrono::steady_clock;

constexpr int kWriters = 4;

void Open(EmbeddedSession& session, const std::string& file, Int32 timeout = 30) {
    const bool ok = static_cast<bool>(session.Connect("Provider=Embedded;Data Source='" + file + "'", "", "", timeout));
    ASSERT_TRUE(ok) << session.LastErrorText();
}

// Starts so many processes on a file, lets all begin at once, and gives what they complain of.
std::string RunWriters(const std::string& file, const std::function<bool(EmbeddedSession&, int writer)>& work) {
    std::vector<std::unique_ptr<Child>> writers;
    for (int writer = 0; writer < kWriters; ++writer) {
        writers.push_back(std::make_unique<Child>([&](PipeEnd& hears, PipeEnd& tells) {
            EmbeddedSession session;
            hears.Read();
            const Text text = "Provider=Embedded;Data Source='" + file + "'";
            if (!session.Connect(text, "", "", 30) || !work(session, writer))
                tells.Write(session.LastErrorText() + "\n");
        }));
    }
    for (const auto& writer : writers) writer->tells.Write("go");
    std::string complaints;
    for (const auto& writer : writers) {
        complaints += writer->hears.ReadAll();
        if (!writer->Wait()) complaints += "a writer broke down\n";
    }
    return complaints;
}

TEST(EmbeddedWriters, FourProcessesMayMakeTheSameFile) {
    const Folder folder;
    for (int round = 0; round < 5; ++round) {
        const std::string file = folder.File(std::to_string(round) + ".db");
        EXPECT_EQ(RunWriters(file,
                             [](EmbeddedSession& session, int writer) {
                                 const std::string table = "T" + std::to_string(writer);
                                 return static_cast<bool>(session.ExecuteSql("CREATE TABLE " + table + " (a int)")) &&
                                        static_cast<bool>(session.ExecuteSql("INSERT INTO " + table + " VALUES (1)"));
                             }),
                  "");
        EmbeddedSession session;
        Open(session, file);
        EXPECT_EQ(session.Tables().size(), std::size_t{kWriters});
    }
}

TEST(EmbeddedWriters, FourProcessesLoseNothingAndTakeNoKeyTwice) {
    const Folder folder;
    const std::string file = folder.File("keys.db");
    {
        EmbeddedSession session;
        Open(session, file);
        ASSERT_TRUE(
            session.ExecuteSql("CREATE TABLE T (Nr int NOT NULL PRIMARY KEY, Writer int NOT NULL)"
                               " CREATE TABLE S (a int NOT NULL) INSERT INTO S VALUES (0)"));
    }
    constexpr int kRows = 60;
    const auto work = [](EmbeddedSession& session, int writer) {
        const std::string own = std::to_string(writer);
        for (int row = 0; row < kRows; row += 3) {
            const std::string texts[] = {
                "INSERT INTO T (Nr, Writer) SELECT ISNULL(MAX(Nr), 0) + 1, " + own + " FROM T",
                "INSERT INTO T (Nr, Writer) VALUES ((SELECT ISNULL(MAX(Nr), 0) + 1 FROM T), " + own + ")",
                "BEGIN TRANSACTION DECLARE @nr int SET @nr = (SELECT MAX(Nr) FROM T) "
                "INSERT INTO T (Nr, Writer) VALUES (ISNULL(@nr, 0) + 1, " +
                    own + ") UPDATE S SET a = a + 3 COMMIT TRANSACTION",
            };
            for (const std::string& text : texts)
                if (!session.ExecuteSql(text)) return false;
            // What is read in front of a write must not make the write fail.
            if (!session.ExecuteSql("DECLARE @n int = (SELECT COUNT(*) FROM T) IF @n > 0 DELETE FROM S WHERE a < 0"))
                return false;
        }
        return true;
    };
    EXPECT_EQ(RunWriters(file, work), "");
    EmbeddedSession session;
    Open(session, file);
    EXPECT_EQ(session.LookupValue("COUNT(*)", "T", ""), Variant(Int32{kWriters * kRows}));
    EXPECT_EQ(session.LookupValue("MAX(Nr)", "T", ""), Variant(Int32{kWriters * kRows}));
    EXPECT_EQ(session.LookupValue("a", "S", ""), Variant(Int32{kWriters * kRows}));
    for (int writer = 0; writer < kWriters; ++writer)
        EXPECT_EQ(session.LookupValue("COUNT(*)", "T", "Writer = " + std::to_string(writer)), Variant(Int32{kRows}));
}

// Another process that has opened a transaction and written, until it is told to go on.
void HoldTheLock(const std::string& file, PipeEnd& hears, PipeEnd& tells) {
    EmbeddedSession session;
    Open(session, file);
    tells.Write(session.ExecuteSql("BEGIN TRANSACTION INSERT INTO T VALUES (1)") ? "locked" : session.LastErrorText());
    hears.Read();
    tells.Write(session.ExecuteSql("COMMIT TRANSACTION") ? "done" : session.LastErrorText());
}

class EmbeddedTimeout : public testing::Test {
  protected:
    void SetUp() override {
        EmbeddedSession session;
        Open(session, file_);
        ASSERT_TRUE(session.ExecuteSql("CREATE TABLE T (a int NOT NULL)"));
    }

    const Folder folder_;
    const std::string file_ = folder_.File("lock.db");
};

TEST_F(EmbeddedTimeout, AWriteWaitsForAnotherProcess) {
    Child child([&](PipeEnd& hears, PipeEnd& tells) { HoldTheLock(file_, hears, tells); });
    ASSERT_EQ(child.hears.Read(), "locked");
    EmbeddedSession session;
    Open(session, file_);
    EXPECT_EQ(session.LookupValue("COUNT(*)", "T", ""), Variant(Int32{0}));
    std::thread release([&] {
        std::this_thread::sleep_for(300ms);
        child.tells.Write("go on");
    });
    const auto start = Clock::now();
    EXPECT_TRUE(session.ExecuteSql("INSERT INTO T VALUES (2)")) << session.LastErrorText();
    EXPECT_GE(Clock::now() - start, 250ms);
    release.join();
    EXPECT_EQ(child.hears.Read(), "done");
    EXPECT_EQ(session.LookupValue("SUM(a)", "T", ""), Variant(Int32{3}));
}

TEST_F(EmbeddedTimeout, AWriteThatWaitsTooLongIsRefused) {
    Child child([&](PipeEnd& hears, PipeEnd& tells) { HoldTheLock(file_, hears, tells); });
    ASSERT_EQ(child.hears.Read(), "locked");
    EmbeddedSession session;
    Open(session, file_, 1);
    const auto start = Clock::now();
    EXPECT_FALSE(session.ExecuteSql("INSERT INTO T VALUES (2)"));
    EXPECT_GE(Clock::now() - start, 900ms);
    EXPECT_LT(Clock::now() - start, 10s);
    EXPECT_EQ(session.LastErrorNumber(), 1222);
    EXPECT_EQ(session.LastErrorText(), "Lock request time out period exceeded: another session keeps the database locked.");
    child.tells.Write("go on");
    EXPECT_EQ(child.hears.Read(), "done");
    EXPECT_TRUE(session.ExecuteSql("INSERT INTO T VALUES (2)")) << session.LastErrorText();
    EXPECT_EQ(session.LookupValue("SUM(a)", "T", ""), Variant(Int32{3}));
}

}  // namespace
}  // namespace LumoConnection
