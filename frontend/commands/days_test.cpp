#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class DaysCommand : public Cli {
  protected:
    DaysCommand() { UseSample(); }

    std::string Days(int date) const { return Run({"days", "list", std::to_string(date), "--format", "csv"}).out; }
};

constexpr const char* kModules =
    "Termin,BegUhr,EndUhr\n"
    "2010-09-02T00:00:00,09:00,16:00\n"
    "2010-09-30T00:00:00,09:00,16:00\n"
    "2010-10-28T00:00:00,09:00,16:00\n";

TEST_F(DaysCommand, ListShowsDaysAndTimes) {
    const auto done = Run({"days", "list", "60"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out,
              "Termin      BegUhr  EndUhr\n"
              "----------  ------  ------\n"
              "2010-09-02  09:00   16:00\n"
              "2010-09-30  09:00   16:00\n"
              "2010-10-28  09:00   16:00\n");
    EXPECT_EQ(done.err, "3 days\n");
    EXPECT_EQ(Days(60), kModules);
    EXPECT_EQ(Json({"days", "list", "79"}), nlohmann::json::array());
}

TEST_F(DaysCommand, ListWithTheCalendarBelow) {
    const auto done = Run({"days", "list", "61", "--calendar"});
    EXPECT_EQ(done.out,
              "Termin      BegUhr  EndUhr\n"
              "----------  ------  ------\n"
              "2010-09-06  08:00   16:00\n"
              "2010-09-07  08:00   16:00\n"
              "2010-09-08  08:00   16:00\n"
              "2010-09-09  08:00   16:00\n"
              "2010-09-10  08:00   16:00\n"
              "\n"
              " September 2010\n"
              " Mo  Tu  We  Th  Fr  Sa  Su\n"
              "          1   2   3   4   5\n"
              "[ 6][ 7][ 8][ 9][10] 11  12\n"
              " 13  14  15  16  17  18  19\n"
              " 20  21  22  23  24  25  26\n"
              " 27  28  29  30\n");
    EXPECT_THAT(Run({"days", "list", "61", "--calendar", "--weeks"}).out, HasSubstr("\n 36 |[ 6][ 7][ 8][ 9][10] 11  12\n"));
    EXPECT_THAT(Run({"days", "list", "79", "--calendar"}).out, testing::EndsWith("\n\nNo days.\n"));
}

TEST_F(DaysCommand, OnATerminalMonthsStandSideBySideInColours) {
    const auto shown = RunOnTerminal({"days", "list", "60", "--calendar"});
    EXPECT_THAT(shown, HasSubstr("\x1b[1m September 2010\x1b[0m                \x1b[1m October 2010\x1b[0m\r\n"));
    EXPECT_THAT(shown, HasSubstr(" \x1b[7m28\x1b[0m  29  30  31\r\n"));
    EXPECT_THAT(shown, Not(HasSubstr("[28]")));
    const auto plain = RunOnTerminal({"days", "list", "60", "--calendar"}, "1");
    EXPECT_THAT(plain, HasSubstr(" September 2010                 October 2010\r\n"));
    EXPECT_THAT(plain, HasSubstr("[28] 29  30  31\r\n"));
    EXPECT_THAT(plain, Not(HasSubstr("\x1b[")));
}

TEST_F(DaysCommand, AddTakesTheTimesOfTheDateWhereNoneAreTyped) {
    const auto done = Run({"days", "add", "60", "11.09.2010"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out,
              "Termin  2010-09-11\n"
              "BegUhr  09:00\n"
              "EndUhr  16:00\n");
    EXPECT_EQ(Json({"days", "add", "60", "2010-09-12", "--from", "10:15", "--to", "13:00"}),
              nlohmann::json::parse(R"({"Termin": "2010-09-12T00:00:00", "BegUhr": "10:15", "EndUhr": "13:00"})"));
    EXPECT_EQ(Json({"days", "add", "60", "2010-09-13", "--to", "12:00"})["BegUhr"], "09:00");
    EXPECT_EQ(Days(60),
              "Termin,BegUhr,EndUhr\n"
              "2010-09-02T00:00:00,09:00,16:00\n"
              "2010-09-11T00:00:00,09:00,16:00\n"
              "2010-09-12T00:00:00,10:15,13:00\n"
              "2010-09-13T00:00:00,09:00,12:00\n"
              "2010-09-30T00:00:00,09:00,16:00\n"
              "2010-10-28T00:00:00,09:00,16:00\n");
}

TEST_F(DaysCommand, AddToADateWithoutTimesStoresMidnightAndLeavesTheDateOpen) {
    EXPECT_EQ(Json({"days", "add", "79", "2011-02-01"})["BegUhr"], "00:00");
    const auto date = Json({"dates", "show", "79"});
    EXPECT_TRUE(date["BeginnDatum"].is_null());
    EXPECT_EQ(date["Days"], 1);
}

TEST_F(DaysCommand, AddOfADayThatIsThereIsRefused) {
    const auto done = Run({"days", "add", "60", "30.09.2010", "--from", "07:00", "--verbose"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: The database refused it: Violation of PRIMARY KEY constraint"));
    EXPECT_THAT(done.err, HasSubstr("\n    LUmoSeminar.clsTerminTag.WriteToDatabase\n"
                                    "    LumoSeminar.colTerminTage.objNewTerminTag\n"));
    EXPECT_EQ(Days(60), kModules);
}

TEST_F(DaysCommand, RemoveTakesEachDayOnce) {
    const auto done = Run({"days", "remove", "--yes", "60", "30.09.2010", "2010-09-02", "2010-09-30"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out,
              "Termin      Outcome\n"
              "----------  -------\n"
              "2010-09-30  removed\n"
              "2010-09-02  removed\n");
    EXPECT_EQ(done.err, "1 day left\n");
    EXPECT_EQ(Days(60), "Termin,BegUhr,EndUhr\n2010-10-28T00:00:00,09:00,16:00\n");
}

TEST_F(DaysCommand, RemoveOfADayThatIsNotThereRemovesNothing) {
    const auto done = Run({"days", "remove", "--yes", "60", "30.09.2010", "01.10.2010"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: Date 60 does not take place on 01.10.2010.\n");
    EXPECT_EQ(Days(60), kModules);
}

TEST_F(DaysCommand, DatesOfOtherClientsAreUnknown) {
    for (const Arguments& arguments : {Arguments{"days", "list", "67"}, Arguments{"days", "add", "67", "01.10.2010"},
                                       Arguments{"days", "remove", "--yes", "67", "05.10.2010"}}) {
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.out, "");
        EXPECT_EQ(done.err, "lumoseminar: There is no date 67 of client 1.\n");
    }
    EXPECT_EQ(Run({"days", "list", "67", "--client", "2"}).code, 0);
}

TEST_F(DaysCommand, WrongUsageChangesNothing) {
    ExpectUsage(Run({"days", "list"}), "DATE is missing: SemTerminID of the date.", "days list");
    ExpectUsage(Run({"days", "list", "60", "--calendar", "--format", "json"}),
                "The calendar is for people: it has no other format than table.", "days list");
    ExpectUsage(Run({"days", "list", "60", "--weeks"}), "--weeks goes with --calendar only.", "days list");
    ExpectUsage(Run({"days", "add", "60"}), "DAY is missing: The day, as 1.3.2027, today or +7d.", "days add");
    ExpectUsage(Run({"days", "add", "60", "1.9.10"}),
                "DAY: \"1.9.10\" has a short year; write it with four digits, as in 1.3.2027.", "days add");
    ExpectUsage(Run({"days", "add", "60", "31.09.2010"}), "DAY: \"31.09.2010\" is not in the calendar.", "days add");
    ExpectUsage(Run({"days", "add", "60", "01.09.2010", "--from", "24:00"}),
                "--from: \"24:00\" is not on the clock: 0:00 to 23:59.", "days add");
    ExpectUsage(Run({"days", "remove", "--yes", "60", "2010-09-02", "bald"}),
                "DAY: \"bald\" is not a day; write it as 1.3.2027 or 2027-03-01, or as today, tomorrow, Mo or +7d.",
                "days remove");
    EXPECT_EQ(Days(60), kModules);
}

}  // namespace
}  // namespace frontend
