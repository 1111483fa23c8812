#include <LumoConnection/batches.h>

#include <gtest/gtest.h>

namespace LumoConnection {
namespace {

std::string Shown(std::string_view text) {
    std::string shown;
    for (const auto& batch : SplitBatches(text)) shown += std::to_string(batch.line) + ":[" + batch.text + "]";
    return shown;
}

TEST(SplitBatches, PartsAtGoLines) {
    EXPECT_EQ(Shown("a\nGO\nb\nc\n go \r\nd"), "1:[a\n]3:[b\nc\n]6:[d]");
    EXPECT_EQ(Shown("a"), "1:[a]");
    EXPECT_EQ(Shown("GOTO x\nGO 5\nlet go"), "1:[GOTO x\nGO 5\nlet go]");
}

TEST(SplitBatches, LeavesOutWhatIsEmpty) {
    EXPECT_EQ(Shown(""), "");
    EXPECT_EQ(Shown("GO\n \n\nGO\nGO"), "");
    EXPECT_EQ(Shown("\xEF\xBB\xBFGO\na"), "2:[a]");
}

TEST(SplitBatches, GoInsideOfATextIsNone) {
    EXPECT_EQ(Shown("select 'a\nGO\nb'\nGO\nc"), "1:[select 'a\nGO\nb'\n]5:[c]");
    EXPECT_EQ(Shown("/* a /* b */\nGO\n*/ c\nGO\nd"), "1:[/* a /* b */\nGO\n*/ c\n]5:[d]");
    EXPECT_EQ(Shown("-- it's\nGO\nd"), "1:[-- it's\n]3:[d]");
    EXPECT_EQ(Shown("select 'it''s'\nGO\nd"), "1:[select 'it''s'\n]3:[d]");
    EXPECT_EQ(Shown("select [a'\nGO\nb]\nGO\nd"), "1:[select [a'\nGO\nb]\n]5:[d]");
}

}  // namespace
}  // namespace LumoConnection
