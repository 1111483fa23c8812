#include "frontend/output/failure.h"

#include <gtest/gtest.h>

namespace frontend {
namespace {

using LumoSeminar::Error;

TEST(FailureText, PutsEachLabelOnALineOfItsOwn) {
    EXPECT_EQ(FailureText(Error(9999, "Refused.\r\n Inner.Call\r\n Outer.Call")),
              "error 9999: Refused.\n    Inner.Call\n    Outer.Call\n");
    EXPECT_EQ(FailureText(Error(5, "Not there.")), "error 5: Not there.\n");
    EXPECT_EQ(FailureText(Error(5, "Not\x1b there.")), "error 5: Not\\x1b there.\n");
}

TEST(PlaceText, PutsACaretUnderThePlace) {
    EXPECT_EQ(PlaceText("select foo", 7), "    line 1: select foo\n                   ^\n");
    EXPECT_EQ(PlaceText("select 1,\r\n  ä, foo\r\nfrom T", 17, 5), "    line 6:   ä, foo\n                 ^\n");
    EXPECT_EQ(PlaceText("select", 6), "    line 1: select\n                  ^\n");
    EXPECT_EQ(PlaceText("", 0), "    line 1: \n            ^\n");
    EXPECT_EQ(PlaceText("select", 600), "    line 1: select\n                  ^\n");
}

TEST(PlaceText, ShowsALongLineInPart) {
    const std::string text = std::string(100, 'a') + 'X' + std::string(100, 'b');
    EXPECT_EQ(PlaceText(text, 100),
              "    line 1: …" + std::string(50, 'a') + 'X' + std::string(19, 'b') + "…\n" + std::string(63, ' ') + "^\n");
}

}  // namespace
}  // namespace frontend
