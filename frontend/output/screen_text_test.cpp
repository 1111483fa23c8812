#include "frontend/output/screen_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace frontend {
namespace {

using testing::ElementsAre;

TEST(ScreenWidth, CountsColumns) {
    EXPECT_EQ(ScreenWidth(""), 0);
    EXPECT_EQ(ScreenWidth("Maß"), 3);
    EXPECT_EQ(ScreenWidth("e\xCC\x81"), 1);
    EXPECT_EQ(ScreenWidth("漢字"), 4);
    EXPECT_EQ(ScreenWidth("a\xFF"), 2);
}

TEST(Shorten, CutsBetweenCharacters) {
    EXPECT_EQ(Shorten("Größe", 5), "Größe");
    EXPECT_EQ(Shorten("Größen", 5), "Größ…");
    EXPECT_EQ(Shorten("漢字漢", 4), "漢…");
}

TEST(Wrap, BreaksAtBlanksAndBehindCommas) {
    EXPECT_THAT(Wrap("one two three", 7), ElementsAre("one two", "three"));
    EXPECT_THAT(Wrap("Größe Übung", 6), ElementsAre("Größe", "Übung"));
    EXPECT_THAT(Wrap("NUll,NUll,NUll", 11), ElementsAre("NUll,NUll,", "NUll"));
    EXPECT_THAT(Wrap("unbreakable", 4), ElementsAre("unbreakable"));
    EXPECT_THAT(Wrap("", 4), ElementsAre(""));
}

TEST(FoldCase, MakesTextsComparable) {
    EXPECT_EQ(FoldCase("GRÖSSE"), FoldCase("größe"));
    EXPECT_EQ(FoldCase("U\xCC\x88"), FoldCase("ü"));
    EXPECT_NE(FoldCase("u"), FoldCase("ü"));
    EXPECT_EQ(FoldCase("\xFF"), "\xFF");
}

}  // namespace
}  // namespace frontend
