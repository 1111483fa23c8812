#include "frontend/output/tree.h"

#include <gtest/gtest.h>

namespace frontend {
namespace {

using namespace LumoSeminar;

const Sheet kSheet{{"Key", "Title"}, {{Int32{7}, "Größe"}, {Int32{12}, "Maß und Übermaß in der Prüfung"}, {Int32{1}, "a\nb"}}};

TEST(TreeText, PutsAHeadingInFrontOfTheRowsOfEachBranch) {
    EXPECT_EQ(TreeText(kSheet, {{"2010", 2}, {"2009\x1b", 1}}, {}),
              "  Key  Title\n"
              "  ---  ------------------------------\n"
              "2010\n"
              "    7  Größe\n"
              "   12  Maß und Übermaß in der Prüfung\n"
              "2009\\x1b\n"
              "    1  a\\nb\n");
}

TEST(TreeText, FitsTheScreenWithItsIndentation) {
    EXPECT_EQ(TreeText(kSheet, {{"2010", 3}}, {27, true}),
              "  \x1b[1mKey\x1b[0m  \x1b[1mTitle\x1b[0m\n"
              "  ---  --------------------\n"
              "\x1b[1m2010\x1b[0m\n"
              "    7  Größe\n"
              "   12  Maß und Übermaß in …\n"
              "    1  a\\nb\n");
}

TEST(TreeText, KeepsRecordsUnderTheirHeadings) {
    const Sheet sheet{{"From", "To"},
                      {{DateTime::Of(2026, 2, 28), DateTime::Of(2026, 3, 1)}, {DateTime::Of(2026, 4, 1), "open"}}};
    EXPECT_EQ(TreeText(sheet, {{"2026", 1}, {"others", 1}}, {20, false}),
              "2026\n"
              "  -- 1 -------------\n"
              "  From  2026-02-28\n"
              "  To    2026-03-01\n"
              "others\n"
              "  -- 2 -------------\n"
              "  From  2026-04-01\n"
              "  To    open\n");
}

TEST(TreeText, WithoutRowsIsTheHeader) {
    EXPECT_EQ(TreeText({{"A"}, {}}, {}, {}), "  A\n  -\n");
    EXPECT_EQ(TreeText({{"A"}, {}}, {{"none", 0}}, {}), "  A\n  -\nnone\n");
}

}  // namespace
}  // namespace frontend
