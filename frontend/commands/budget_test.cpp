#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

class BudgetCommand : public Cli {
  protected:
    BudgetCommand() { UseSample(); }
};

TEST_F(BudgetCommand, ListShowsTheYears) {
    const auto done = Run({"budget", "list"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out,
              "JahrID  Von         Bis\n"
              "------  ----------  ----------\n"
              "     1  2008-04-01  2009-03-31\n"
              "     2  2009-04-01  2010-03-31\n"
              "     3  2010-04-01  2011-03-31\n");
    EXPECT_EQ(done.err, "3 budget years\n");
    EXPECT_EQ(Run({"budget", "list", "--format", "csv"}).out,
              "JahrID,Von,Bis\n"
              "1,2008-04-01T00:00:00,2009-03-31T00:00:00\n"
              "2,2009-04-01T00:00:00,2010-03-31T00:00:00\n"
              "3,2010-04-01T00:00:00,2011-03-31T00:00:00\n");
}

TEST_F(BudgetCommand, ListOfNoYearsAndOfOneWithoutDays) {
    ASSERT_EQ(Run({"sql", "delete from Sem_BudgetJahr_IT"}).code, 0);
    EXPECT_EQ(Json({"budget", "list"}), nlohmann::json::array());
    ASSERT_EQ(Run({"sql", "insert into Sem_BudgetJahr_IT (JahrID) values (7)"}).code, 0);
    EXPECT_EQ(Run({"budget", "list"}).out, "JahrID  Von   Bis\n------  ----  ----\n     7  NULL  NULL\n");
}

TEST_F(BudgetCommand, OfADayCountsBothEnds) {
    const auto done = Run({"budget", "of", "31.03.2010"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out,
              "JahrID  2\n"
              "Von     2009-04-01\n"
              "Bis     2010-03-31\n");
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(Json({"budget", "of", "2010-04-01"})["JahrID"], 3);
}

TEST_F(BudgetCommand, OfADayInNoYear) {
    const auto done = Run({"budget", "of", "2011-04-01"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: 01.04.2011 lies in no budget year.\n");
}

TEST_F(BudgetCommand, ARefusedSelectIsToldWithItsLabels) {
    ASSERT_EQ(Run({"sql", "drop table Sem_BudgetJahr_IT"}).code, 0);
    for (const Arguments& arguments :
         {Arguments{"budget", "list", "--verbose"}, Arguments{"--verbose", "budget", "of", "2010-01-01"}}) {
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.out, "");
        EXPECT_EQ(done.err,
                  "lumoseminar: The database refused it: Invalid object name 'Sem_BudgetJahr_IT'.\n"
                  "    error 9999, LumoSeminar\n"
                  "    in LumoSeminar.LoadKeysFromDataBase\n"
                  "    in LumoSeminar.Init\n"
                  "    in the statement Select JahrID,von,bis from Sem_BudgetJahr_IT Order by Von\n");
    }
}

TEST_F(BudgetCommand, WrongUsage) {
    ExpectUsage(Run({"budget"}), "A command is missing: list, of.", "budget");
    ExpectUsage(Run({"budget", "of"}), "DAY is missing: The day, as 1.3.2027, today or +7d.", "budget of");
    ExpectUsage(Run({"budget", "of", "2010"}),
                "DAY: \"2010\" is not a day; write it as 1.3.2027 or 2027-03-01, or as today, tomorrow, Mo or +7d.",
                "budget of");
}

}  // namespace
}  // namespace frontend
