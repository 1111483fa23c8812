#include "frontend/output/pager.h"

#include "frontend/cli_test.h"

namespace frontend {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(IsLongerThan, CountsTheLinesOfTheScreen) {
    EXPECT_FALSE(IsLongerThan("a\nb\n", 80, 3));
    EXPECT_TRUE(IsLongerThan("a\nb\nc\n", 80, 3));
    EXPECT_TRUE(IsLongerThan("aaaaaaa\n", 3, 3));
    EXPECT_FALSE(IsLongerThan("ÄÖÜäöü\n", 3, 3));
    EXPECT_FALSE(IsLongerThan("", 80, 2));
}

class Pager : public Cli {
  protected:
    Shown Under(const std::string& pager, const Arguments& arguments, unsigned short rows = 24) const {
        Seat seat;
        seat.environment = {"PAGER=" + pager};
        seat.rows = rows;
        return Sit(arguments, seat);
    }

    Shown List(const Arguments& more, const char* pager, unsigned short rows = 10) const {
        Arguments arguments{"seminars", "list"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Under(pager, arguments, rows);
    }
};

TEST_F(Pager, ShowsWhatIsLongerThanTheScreen) {
    UseSample();
    const auto shown = List({}, "sed s/^/paged:/");
    EXPECT_EQ(shown.code, 0);
    EXPECT_THAT(shown.screen, HasSubstr("paged:   26"));
    EXPECT_THAT(shown.screen, testing::EndsWith("35 seminars\r\n"));
    EXPECT_THAT(List({}, "sed s/^/paged:/", 60).screen, Not(HasSubstr("paged:")));
    EXPECT_THAT(List({"--no-pager"}, "sed s/^/paged:/").screen, Not(HasSubstr("paged:")));
}

TEST_F(Pager, ThatIsNoneShowsTheTextAllTheSame) {
    UseSample();
    for (const char* pager : {"", "cat", "/no/such/pager"}) {
        const auto shown = List({}, pager);
        EXPECT_EQ(shown.code, 0) << pager;
        EXPECT_THAT(shown.screen, HasSubstr("   26  ")) << pager;
    }
}

TEST_F(Pager, ThatEndsEarlyIsNoFailure) {
    UseSample();
    const auto shown = Under("head -n 1; exit 3",
                             {"sql", "SELECT a.SemID, b.SemTitel FROM Sem_Katalog_IT a CROSS JOIN Sem_Katalog_IT b"});
    EXPECT_EQ(shown.code, 0) << shown.screen;
    EXPECT_THAT(shown.screen, testing::EndsWith(" rows)\r\n"));
    EXPECT_LT(Lines(shown.screen), 5U);
}

TEST_F(Pager, TellsLessHowToShowColours) {
    UseSample();
    const auto shown = List({}, "cat >/dev/null; echo options=$LESS");
    EXPECT_THAT(shown.screen, HasSubstr("options=FRX\r\n"));
}

TEST_F(Pager, IsForTerminalsAlone) {
    UseSample();
    EXPECT_THAT(Run({"seminars", "list"}, {}, "PAGER='sed s/^/paged:/'").out, Not(HasSubstr("paged:")));
}

}  // namespace
}  // namespace frontend
