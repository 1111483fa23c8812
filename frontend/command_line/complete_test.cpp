#include "frontend/command_line/complete.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace frontend {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Described {
    std::string client;
    bool loud = false;
    std::string key;
    std::string by;
    std::string file;
    std::vector<std::string> more;
    Command program{"prog", "A program"};

    Described() {
        program.Option("--client", &client, "N", "Number of the client");
        program.Flag("--loud", loud, "Say more");
        auto& dates = program.Add("dates", "The dates");
        auto& show = dates.Add("show", "Show a date");
        show.Argument("KEY", &key, "Key").Required().Naming(Names::kDate);
        show.Option("--by", &by, "GROUP", "In groups").OneOf({"year", "month"});
        show.Option("--from", &file, "FILE", "From a file").ExistingFile().Excludes("--by");
        auto& remove = dates.Add("remove", "Remove dates");
        remove.Argument("KEY", &more, "Keys").Required().Naming(Names::kDate);
        program.Add("days", "The days");
        program.Add("dark", "For programs").Hide();
    }

    std::vector<std::string> Texts(const std::vector<std::string>& words) const {
        std::vector<std::string> texts;
        const auto names = [](Names what, const CommandPath&) {
            return what == Names::kDate ? std::vector<Candidate>{{"7", "Erste Hilfe"}, {"12", "Übung"}, {"13", "Prüfung"}}
                                        : std::vector<Candidate>{};
        };
        for (const auto& one : Complete(program, words, names).all) texts.push_back(one.text);
        return texts;
    }
};

TEST(Complete, OffersCommandsOptionsAndValues) {
    const Described described;
    EXPECT_THAT(described.Texts({""}), ElementsAre("dates", "days"));
    EXPECT_THAT(described.Texts({"dat"}), ElementsAre("dates"));
    EXPECT_THAT(described.Texts({"--client", "2", "dates", ""}), ElementsAre("show", "remove"));
    EXPECT_THAT(described.Texts({"dates", "show", "--"}), ElementsAre("--by", "--from", "--client", "--loud"));
    EXPECT_THAT(described.Texts({"--"}), ElementsAre("--client", "--loud"));
    EXPECT_THAT(described.Texts({"dates", "show", "--by", ""}), ElementsAre("year", "month"));
    EXPECT_THAT(described.Texts({"dates", "show", "--by=m"}), ElementsAre("--by=month"));
    EXPECT_THAT(described.Texts({"dates", "show", ""}), ElementsAre("7", "12", "13"));
    EXPECT_THAT(described.Texts({"dates", "show", "1"}), ElementsAre("12", "13"));
}

TEST(Complete, OffersNothingThatWouldBeRefused) {
    const Described described;
    EXPECT_THAT(described.Texts({"dates", "show", "--by", "year", "--"}), ElementsAre("--client", "--loud"));
    EXPECT_THAT(described.Texts({"dates", "show", "7", ""}), IsEmpty());
    EXPECT_THAT(described.Texts({"dates", "remove", "7", "12", "1"}), ElementsAre("12", "13"));
    EXPECT_THAT(described.Texts({"nosuch", ""}), IsEmpty());
    EXPECT_THAT(described.Texts({"dates", "show", "--", "--"}), IsEmpty());
    EXPECT_THAT(described.Texts({"--loud=x"}), IsEmpty());
    EXPECT_THAT(described.Texts({}), IsEmpty());
}

TEST(Complete, FindsKeysByWhatTheyStandFor) {
    const Described described;
    EXPECT_THAT(described.Texts({"dates", "show", "erste"}), ElementsAre("7"));
    EXPECT_THAT(described.Texts({"dates", "show", "ÜB"}), ElementsAre("12"));
}

TEST(Complete, LeavesFilesToWhoeverAsks) {
    const Described described;
    EXPECT_TRUE(Complete(described.program, {"dates", "show", "--from", "x"}, {}).files);
    EXPECT_FALSE(Complete(described.program, {"dates", "show", "x"}, {}).files);
}

TEST(TakeOptionsOf, TakesThoseOfTheProgram) {
    Described described;
    TakeOptionsOf(described.program, {"dates", "--client", "7", "show", "--loud", "--by", "year"});
    EXPECT_EQ(described.client, "7");
    EXPECT_EQ(described.by, "");
    TakeOptionsOf(described.program, {"--client=8", "dates", "--client"});
    EXPECT_EQ(described.client, "8");
}

}  // namespace
}  // namespace frontend
