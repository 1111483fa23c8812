#include "frontend/output/findings.h"

#include <gtest/gtest.h>

namespace frontend {
namespace {

using namespace LumoSeminar;

Ref<clsErrorMsg> Finding(Int32 number, const Text& name = {}) { return New<colErrorMsg>()->Add(number, name); }

Text InEnglish(Int32 number, const Text& name = {}) { return FindingText(*Finding(number, name)); }
Text InGerman(Int32 number, const Text& name = {}) { return FindingText(*Finding(number, name), Language::kGerman); }

TEST(FindingText, SaysWhatEachNumberStandsFor) {
    EXPECT_EQ(InEnglish(300000001), "The person is already enrolled in this date.");
    EXPECT_EQ(InEnglish(300000002, "AS-20/1 - Löschübung"),
              "The person is booked on another date at the same time: AS-20/1 - Löschübung");
    EXPECT_EQ(InEnglish(300000003, "AS-20/1 - \"Üben\""),
              "The person is enrolled in an open date of this seminar: AS-20/1 - \"Üben\"");
    EXPECT_EQ(InEnglish(300000004, "AS-20/1 - Üben"), "The person has taken this seminar before: AS-20/1 - Üben");
    EXPECT_EQ(InEnglish(300000005), "A prerequisite of the seminar is missing.");
}

TEST(FindingText, InGerman) {
    EXPECT_EQ(InGerman(300000001), "Die Person ist für diesen Termin schon angemeldet.");
    EXPECT_EQ(InGerman(300000002, "AS-20/1 - Üben"),
              "Die Person ist zur selben Zeit in einem anderen Termin gebucht: AS-20/1 - Üben");
    EXPECT_EQ(InGerman(300000003, "AS-20/1 - Üben"),
              "Die Person ist in einem offenen Termin dieses Seminars angemeldet: AS-20/1 - Üben");
    EXPECT_EQ(InGerman(300000004, "AS-20/1 - Üben"), "Die Person hat dieses Seminar schon besucht: AS-20/1 - Üben");
    EXPECT_EQ(InGerman(300000005), "Eine Voraussetzung des Seminars fehlt.");
}

TEST(FindingText, GivesTheNumberOfOthers) {
    EXPECT_EQ(InEnglish(300000006), "Finding 300000006.");
    EXPECT_EQ(InEnglish(0, "Ort"), "Finding 0: Ort");
    EXPECT_EQ(InGerman(300000006), "Befund 300000006.");
    EXPECT_EQ(InGerman(-1, "Ort"), "Befund -1: Ort");
}

TEST(FindingText, LeavesOutACodeOrTitleThatIsEmpty) {
    EXPECT_EQ(InEnglish(300000004, " - Üben"), "The person has taken this seminar before: Üben");
    EXPECT_EQ(InEnglish(300000004, "AS-20/1 - "), "The person has taken this seminar before: AS-20/1");
    EXPECT_EQ(InEnglish(300000004, " - "), "The person has taken this seminar before.");
    EXPECT_EQ(InEnglish(300000004, "A - B - C"), "The person has taken this seminar before: A - B - C");
}

TEST(FindingText, StaysOnOneLine) {
    EXPECT_EQ(InEnglish(300000004, "A - B\n\x1b[1m"), "The person has taken this seminar before: A - B\\n\\x1b[1m");
}

}  // namespace
}  // namespace frontend
