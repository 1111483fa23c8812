#include "frontend/output/failure.h"

#include <gtest/gtest.h>

namespace frontend {
namespace {

using LumoSeminar::Error;

TEST(Failure, IsASentence) {
    EXPECT_EQ(FailureSentence(Error(9999, "Refused.\r\n Inner.Call\r\n Outer.Call")), "Refused.");
    EXPECT_EQ(FailureSentence(Error(5, "Not there")), "Not there.");
    EXPECT_EQ(FailureSentence(Error(5, "Not there? ")), "Not there?");
    EXPECT_EQ(FailureSentence(Error(5, "Not\x1b there.")), "Not\\x1b there.");
    EXPECT_EQ(FailureSentence(Error(5, "")), "There was error 5, which has no text.");
}

TEST(Failure, HasDetailsALineEach) {
    EXPECT_EQ(FailureDetails(Error(9999, "Refused.\r\n Inner.Call\r\n Outer.Call", "Server")),
              "    error 9999, Server\n    Inner.Call\n    Outer.Call\n");
    EXPECT_EQ(FailureDetails(Error(5, "Not there.")), "    error 5, LumoSeminar\n");
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
