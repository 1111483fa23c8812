#include <LumoConnection/script/text_difference.h>

#include <gtest/gtest.h>

namespace LumoConnection::detail {
namespace {

TEST(OnOneLineTest, WritesWhatCannotBeSeen) {
    struct {
        std::string_view text;
        const char* line;
    } const cases[] = {
        {"SELECT 'a' FROM \"b\"", "SELECT 'a' FROM \"b\""},
        {"a\r\n\tb", "a\\r\\n\\tb"},
        {"C:\\new", "C:\\\\new"},
        {std::string_view("a\0b\x7F", 4), "a\\x00b\\x7F"},
        {"Führung 日本 \U0001F600", "Führung 日本 \U0001F600"},
        {"F\xFChrung", "F\\xFChrung"},
        {"cut \xE6\x97", "cut \\xE6\\x97"},
        {"\xC0\xAF \xED\xA0\x80 \xF4\x90\x80\x80 \xE0\x80\x80 \xF0\x80\x80\x80",
         "\\xC0\\xAF \\xED\\xA0\\x80 \\xF4\\x90\\x80\\x80 \\xE0\\x80\\x80 \\xF0\\x80\\x80\\x80"},
        {"", ""},
    };
    for (const auto& [text, line] : cases) EXPECT_EQ(OnOneLine(text), line);
}

TEST(FirstDifferenceTest, IsTheBeginningOfAWholeCharacter) {
    struct {
        const char* name;
        std::string_view expected;
        std::string_view actual;
        std::size_t offset;
        std::size_t character;
        std::size_t line;
        std::size_t column;
    } const cases[] = {
        {"first", "a", "b", 0, 1, 1, 1},
        {"against nothing", "a", "", 0, 1, 1, 1},
        {"the actual one is longer", "ab", "abc", 2, 3, 1, 3},
        {"the actual one is shorter", "abc", "ab", 2, 3, 1, 3},
        {"ä and ö share their first byte", "Bär", "Bör", 1, 2, 1, 2},
        {"behind umlauts", "äöü1", "äöü2", 6, 4, 1, 4},
        {"ä against its first byte", "xä", "x\xC3", 1, 2, 1, 2},
        {"first byte of an umlaut against the umlaut", "x\xC3(", "xä", 1, 2, 1, 2},
        {"four bytes", "\U0001F600", "\U0001F601", 0, 1, 1, 1},
        {"bytes that are no UTF-8 count one by one",
         "\xFF\xFE"
         "a",
         "\xFF\xFE"
         "b",
         2, 3, 1, 3},
        {"in the second line", "ä\r\nü1", "ä\r\nü2", 6, 5, 2, 2},
        {"another line break", "a\r\nb", "a\nb", 1, 2, 1, 2},
        {"at the start of a line", "a\nb", "a\nc", 2, 3, 2, 1},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const TextPlace place = FirstDifference(row.expected, row.actual);
        EXPECT_EQ(place.offset, row.offset);
        EXPECT_EQ(place.character, row.character);
        EXPECT_EQ(place.line, row.line);
        EXPECT_EQ(place.column, row.column);
    }
}

TEST(PlaceTextTest, NamesLineAndColumnOnlyWhereThereAreLines) {
    EXPECT_EQ(PlaceText("abc", "abd"), "at character 3");
    EXPECT_EQ(PlaceText("ab\nc", "ab\nd"), "at character 4 (line 2, column 1)");
    EXPECT_EQ(PlaceText("ab", "a\nb"), "at character 2 (line 1, column 2)");
}

TEST(DifferenceLinesTest, MarksThePlaceBelowBothTexts) {
    EXPECT_EQ(DifferenceLines("WHERE Titel = 'Bär'", "WHERE Titel = 'Bör'"),
              "  expected  WHERE Titel = 'Bär'\n"
              "  actual    WHERE Titel = 'Bör'\n"
              "                            ^\n");
}

TEST(DifferenceLinesTest, ShowsTheEndOfTheShorterText) {
    EXPECT_EQ(DifferenceLines("WHERE 1=1", "WHERE 1=1 "),
              "  expected  WHERE 1=1\n"
              "  actual    WHERE 1=1 \n"
              "                     ^\n");
}

TEST(DifferenceLinesTest, CutsLongTextsAroundThePlaceBetweenCharacters) {
    const std::string before = [] {
        std::string text;
        for (int i = 0; i < 50'000; ++i) text += "ä";
        return text;
    }();
    std::string shown;
    for (int i = 0; i < 30; ++i) shown += "ä";
    const std::string behind(50'000, 'x');
    EXPECT_EQ(DifferenceLines(before + "1" + behind, before + "2" + behind),
              "  expected  ..." + shown + "1" + std::string(29, 'x') + "...\n" + "  actual    ..." + shown + "2" +
                  std::string(29, 'x') + "...\n" + "            " + std::string(33, ' ') + "^\n");
}

TEST(DifferenceLinesTest, ALineBreakInFrontOfThePlaceDoesNotShiftTheMark) {
    EXPECT_EQ(DifferenceLines("a\r\nb", "a\r\nc"),
              "  expected  a\\r\\nb\n"
              "  actual    a\\r\\nc\n"
              "                 ^\n");
}

}  // namespace
}  // namespace LumoConnection::detail
