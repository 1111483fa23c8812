#include "frontend/command_line/words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace frontend {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(PartWords, PartsAsAShellDoes) {
    EXPECT_THAT(PartWords("").words, IsEmpty());
    EXPECT_THAT(PartWords("  seminars\tlist ").words, ElementsAre("seminars", "list"));
    EXPECT_THAT(PartWords("set 1 SemTitel=\"Erste Hilfe\" 'a \"b\"'").words,
                ElementsAre("set", "1", "SemTitel=Erste Hilfe", "a \"b\""));
    EXPECT_THAT(PartWords("a\\ b \"c\\\"d\\n\" 'e\\' ''").words, ElementsAre("a b", "c\"d\\n", "e\\", ""));
    EXPECT_EQ(PartWords("say 'it").open_quote, '\'');
    EXPECT_EQ(PartWords("say it's \"").open_quote, '\'');
    EXPECT_EQ(PartWords("say \"it's\"").open_quote, 0);
}

TEST(PartTyped, HasAnEmptyWordBehindABlank) {
    EXPECT_THAT(PartTyped("").words, ElementsAre(""));
    EXPECT_THAT(PartTyped("seminars ").words, ElementsAre("seminars", ""));
    EXPECT_EQ(PartTyped("seminars ").last_begins, 9U);
    EXPECT_THAT(PartTyped("seminars 'a b").words, ElementsAre("seminars", "a b"));
    EXPECT_EQ(PartTyped("seminars 'a b").last_begins, 9U);
    EXPECT_THAT(PartTyped("a\\ ").words, ElementsAre("a "));
}

TEST(AsTyped, IsPartedIntoTheWordAgain) {
    for (const char* word : {"plain", "", "Erste Hilfe", "it's", "a\"b", "back\\slash", "Größe"}) {
        EXPECT_THAT(PartWords(AsTyped(word)).words, ElementsAre(word));
    }
    EXPECT_EQ(AsTyped("plain"), "plain");
}

}  // namespace
}  // namespace frontend
