#include "frontend/command_line/manual.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace frontend {
namespace {

using testing::HasSubstr;
using testing::Not;

struct Described {
    std::string text;
    bool flag = false;
    Command program{"prog", "A program"};

    Described() {
        program.Flag("--loud", flag, "Say more");
        program.Remark(".A dot in front.\n\n  as it \\ stands");
        auto& dates = program.Add("dates", "The dates");
        auto& show = dates.Add("show", "Show a date");
        show.Argument("KEY", &text, "Key of the date").Required();
        show.Option("--name", &text, "TEXT", "Its name, as in \"Größe\"").Required();
        program.Add("dark", "For programs").Hide();
    }
};

TEST(Manual, NamesWhatTheHelpNames) {
    const Described described;
    const auto page = ManualPage({&described.program}, "1.2.3");
    EXPECT_THAT(page, testing::StartsWith(".TH \"PROG\" 1 \"\" \"prog 1.2.3\"\n.SH NAME\nprog \\- A program\n"
                                          ".SH SYNOPSIS\n\\fBprog [OPTIONS] COMMAND\\fR\n"));
    EXPECT_THAT(page, HasSubstr(".TP\n\\fBdates\\fR\nThe dates. See prog\\-dates(1).\n"));
    EXPECT_THAT(page, HasSubstr(".TP\n\\fB\\-\\-loud\\fR\nSay more.\n"));
    EXPECT_THAT(page, Not(HasSubstr("dark")));
}

TEST(Manual, APageIsAboutAllThatIsBelowACommand) {
    const Described described;
    const CommandPath path{&described.program, &described.program.Commands().front()};
    EXPECT_EQ(NameOfPage(path), "prog-dates");
    const auto page = ManualPage(path, "1");
    EXPECT_THAT(page, HasSubstr(".SS prog dates show\n\\fBprog dates show [OPTIONS] KEY\\fR\n.PP\nShow a date.\n"
                                ".TP\n\\fIKEY\\fR\nKey of the date.\n"));
}

TEST(Manual, TextsAreNoRequests) {
    const Described described;
    const auto page = ManualPage({&described.program}, "1");
    EXPECT_THAT(page, HasSubstr(".PP\n\\&.A dot in front.\n.PP\n.nf\n  as it \\e stands\n.fi\n"));
    EXPECT_THAT(ManualPage({&described.program, &described.program.Commands().front()}, "1"),
                HasSubstr("as in \\(dqGr\\[u00F6]\\[u00DF]e\\(dq (required).\n"));
}

}  // namespace
}  // namespace frontend
