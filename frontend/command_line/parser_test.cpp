#include "frontend/command_line/parser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frontend/command_line/help.h"
#include "frontend/exit_codes.h"

namespace frontend {
namespace {

// A program with one command of each shape.
struct Described {
    bool loud = false;
    std::optional<std::string> client;
    std::string key;
    std::vector<std::string> changes;
    std::string by;
    bool weeks = false;
    bool calendar = false;
    Command program{"prog", "A program"};

    Described() {
        program.Option("--client", &client, "N", "Number of the client");
        program.Flag("--loud", loud, "Say more");
        auto& dates = program.Add("dates", "The dates");
        auto& set = dates.Add("set", "Change a date");
        set.Argument("KEY", &key, "Key of the date").Required();
        set.Argument("CHANGES", &changes, "column=value");
        auto& list = dates.Add("list", "List the dates");
        list.Option("--by", &by, "GROUP", "In groups").OneOf({"year", "month"});
        list.Flag("--calendar", calendar, "Show a calendar").Excludes("--by");
        list.Flag("--weeks", weeks, "Show weeks").Needs("--calendar");
    }

    std::string Read(const std::vector<std::string>& words) {
        const auto chosen = ChooseCommand(program, words);
        try {
            ReadWords(chosen);
        } catch (const UsageError& error) {
            return error.what();
        }
        return NameOf(chosen.path);
    }
};

TEST(CommandLine, GeneralOptionsStandAnywhere) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{"--client", "2", "dates", "set", "7", "a=1", "b=2"},
                                                  {"dates", "--client", "2", "set", "7", "a=1", "b=2"},
                                                  {"dates", "set", "7", "--client=2", "a=1", "b=2"},
                                                  {"dates", "set", "7", "a=1", "b=2", "--client", "2"}}) {
        Described described;
        EXPECT_EQ(described.Read(words), "prog dates set");
        EXPECT_EQ(described.client, "2");
        EXPECT_EQ(described.key, "7");
        EXPECT_EQ(described.changes, (std::vector<std::string>{"a=1", "b=2"}));
    }
}

TEST(CommandLine, ValuesMayLookLikeCommandsNumbersAndBrackets) {
    Described described;
    EXPECT_EQ(described.Read({"dates", "set", "dates", "set"}), "prog dates set");
    EXPECT_EQ(described.key, "dates");
    EXPECT_EQ(described.changes, std::vector<std::string>{"set"});
    EXPECT_EQ(Described().Read({"dates", "set", "-5"}), "prog dates set");
    Described behind_mark;
    EXPECT_EQ(behind_mark.Read({"dates", "set", "--", "--loud", "[x,y]"}), "prog dates set");
    EXPECT_EQ(behind_mark.key, "--loud");
    EXPECT_FALSE(behind_mark.loud);
}

TEST(CommandLine, RefusesWithOneVoice) {
    struct Case {
        std::vector<std::string> words;
        const char* message;
    };
    const Case cases[] = {
        {{"daets"}, "There is no command \"daets\". Did you mean \"dates\"?"},
        {{"dates", "lsit"}, "There is no command \"lsit\". Did you mean \"list\"?"},
        {{"nothing"}, "There is no command \"nothing\"."},
        {{"--lowd", "dates", "list"}, "There is no option --lowd. Did you mean --loud?"},
        {{"dates", "list", "--calender"}, "There is no option --calender. Did you mean --calendar?"},
        {{"dates", "list", "more"}, "\"more\" is too much: prog dates list takes no argument."},
        {{"dates", "list", "--by", "mnoth"}, "--by: \"mnoth\" is none of year, month. Did you mean \"month\"?"},
        {{"dates", "list", "--by"}, "--by needs a value: GROUP."},
        {{"dates", "list", "--by", "year", "--by", "month"}, "--by is given 2 times."},
        {{"dates", "list", "--weeks"}, "--weeks goes with --calendar only."},
        {{"dates", "list", "--calendar", "--by", "year"}, "Give --by or --calendar, not both."},
        {{"dates", "set"}, "KEY is missing: Key of the date."},
    };
    for (const auto& one : cases) EXPECT_EQ(Described().Read(one.words), one.message);
}

TEST(CommandLine, HelpIsWantedInFrontOfTheMarkOnly) {
    Described described;
    EXPECT_TRUE(IsHelpWanted(ChooseCommand(described.program, {"dates", "--help"})));
    EXPECT_TRUE(IsHelpWanted(ChooseCommand(described.program, {"-h"})));
    EXPECT_FALSE(IsHelpWanted(ChooseCommand(described.program, {"dates", "set", "--", "--help"})));
}

TEST(CommandLine, HelpIsWrappedAtWordEnds) {
    Described described;
    const auto chosen = ChooseCommand(described.program, {"dates", "set"});
    EXPECT_EQ(HelpText(chosen.path, 80),
              "Usage: prog dates set KEY [CHANGES ...]\n"
              "\n"
              "Change a date.\n"
              "\n"
              "Arguments:\n"
              "  KEY                         Key of the date\n"
              "  CHANGES ...                 column=value\n"
              "\n"
              "General options, formats and exit codes: prog --help\n");
    described.program.Remark("A remark that is longer than the screen is wide\nand comes in two lines.\n\n  as it stands");
    EXPECT_THAT(HelpText({&described.program}, 50), testing::EndsWith("\n\nA remark that is longer than the screen is wide\n"
                                                                      "and comes in two lines.\n\n  as it stands\n"));
}

TEST(CommandLine, NamesTheLikeliest) {
    const std::vector<std::string> names{"seminars", "series", "sql", "participants"};
    EXPECT_EQ(LikelyMeant("seminar", names), "seminars");
    EXPECT_EQ(LikelyMeant("parti", names), "participants");
    EXPECT_EQ(LikelyMeant("sqll", names), "sql");
    EXPECT_EQ(LikelyMeant("SERIES", names), "series");
    EXPECT_EQ(LikelyMeant("xyz", names), "");
    EXPECT_EQ(LikelyMeant("", names), "");
}

}  // namespace
}  // namespace frontend
