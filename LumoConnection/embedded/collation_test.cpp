#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include <LumoConnection/embedded/collation.h>

namespace LumoConnection::Embedded {
namespace {

TEST(Collation, TakesThePairsForEqual) {
    const std::pair<const char*, const char*> kPairs[] = {
        {"abc", "ABC"}, {"müller", "MÜLLER"}, {"a", "a   "},    {"", "   "},          {"Straße", "STRASSE"},
        {"ß", "ss"},    {"Æsop", "aesop"},    {"Łódź", "łÓDŹ"}, {"привет", "ПРИВЕТ"}, {"u\u0308", "ü"},
    };
    for (const auto& [a, b] : kPairs) {
        EXPECT_EQ(CompareTexts(a, b), 0) << a << " / " << b;
        EXPECT_EQ(CompareTexts(b, a), 0) << a << " / " << b;
    }
}

TEST(Collation, TellsTheseApart) {
    const std::pair<const char*, const char*> kPairs[] = {
        {"müller", "muller"}, {" a", "a"},    {"é", "è"},       {"ab", "abc"},
        {"a-b", "ab"},        {"a-b", "a'b"}, {"\xFF", "\xFE"}, {"1", "l"},
    };
    for (const auto& [a, b] : kPairs) {
        EXPECT_NE(CompareTexts(a, b), 0) << a << " / " << b;
        EXPECT_EQ(CompareTexts(a, b) < 0, CompareTexts(b, a) > 0) << a << " / " << b;
    }
}

TEST(Collation, SortsByBaseLettersFirst) {
    const std::vector<std::string> sorted{"",  " x", "!",   "$5",      "+",     "1", "10",    "2",
                                          "a", "Ä",  "äa",  "Äpfel",   "apfem", "b", "co-op", "coop",
                                          "o", "ö",  "Oma", "strasse", "z",     "я"};
    std::vector<std::string> texts(sorted);
    std::ranges::sort(texts, std::greater<>());
    std::ranges::stable_sort(texts, [](const std::string& a, const std::string& b) { return CompareTexts(a, b) < 0; });
    // "coop" and "co-op" differ only in the hyphen, which counts last.
    std::vector<std::string> expected(sorted);
    std::swap(*std::ranges::find(expected, "co-op"), *std::ranges::find(expected, "coop"));
    EXPECT_EQ(texts, expected);
}

TEST(Collation, IsAnOrderOverAllSortsOfTexts) {
    const std::vector<std::string> texts{"a",     "A",    "ä",
                                         "Ä",     "ae",   "æ",
                                         "a-",    "-a",   "a'",
                                         "ss",    "ß",    "s",
                                         "ssa",   "ßa",   "u\u0308",
                                         "ü",     "u",    "\xFF",
                                         "a\xFF", "\xC3", "日本",
                                         "a ",    " a",   std::string("a\0b", 3),
                                         "a1",    "1a",   "o\u0301\u0308",
                                         "_",     "~"};
    for (const auto& a : texts) {
        EXPECT_EQ(CompareTexts(a, a), 0);
        for (const auto& b : texts) {
            EXPECT_EQ(CompareTexts(a, b), -CompareTexts(b, a)) << a << " / " << b;
            for (const auto& c : texts) {
                if (CompareTexts(a, b) <= 0 && CompareTexts(b, c) <= 0) {
                    EXPECT_LE(CompareTexts(a, c), 0) << a << " / " << b << " / " << c;
                }
            }
        }
    }
}

TEST(Collation, ChangesCapitals) {
    EXPECT_EQ(UpperText("köln é"), "KÖLN É");
    EXPECT_EQ(LowerText("ÄÖÜ X"), "äöü x");
    EXPECT_EQ(UpperText("a\xFFz"), "A\xFFZ");
}

}  // namespace
}  // namespace LumoConnection::Embedded
