#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

using testing::HasSubstr;

class SeriesCommand : public Cli {
  protected:
    SeriesCommand() { UseSample(); }

    Arguments Add(const Arguments& rule) const {
        Arguments arguments = {"series", "add", "--begin", "09:00", "--end", "16:30"};
        arguments.insert(arguments.end(), rule.begin(), rule.end());
        return arguments;
    }
};

TEST_F(SeriesCommand, ListSaysTheRulesInWords) {
    const auto done = Run({"series", "list"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out,
              "SerienID  BeginnUhrzeit  EndeUhrzeit  Rule\n"
              "--------  -------------  -----------  -----------------------------------\n"
              "       1  08:00          16:00        every working day, Monday to Friday\n"
              "       2  16:30          18:00        every week on Mo, Mi\n"
              "       3  16:30          18:00        every week on Di, Do\n"
              "       4  14:30          16:00        every week on Di, Do\n"
              "       5  13:00          16:00        every 2 weeks on Fr\n"
              "       6  09:00          16:00        every 4 weeks on Do\n"
              "       7  08:30          15:30        every working day, Monday to Friday\n");
    EXPECT_EQ(done.err, "7 series\n");
    EXPECT_EQ(Json({"series", "list"})[4], nlohmann::json::parse(R"({"SerienID": 5, "BeginnUhrzeit": "13:00", "EndeUhrzeit": "16:00",
                                        "Rule": "every 2 weeks on Fr"})"));
}

TEST_F(SeriesCommand, ListOfNone) {
    ASSERT_EQ(Run({"sql", "delete from Sem_Serien_IT"}).code, 0);
    EXPECT_EQ(Run({"series", "list", "--format", "csv"}).out, "SerienID,BeginnUhrzeit,EndeUhrzeit,Rule\n");
    ASSERT_EQ(Run({"sql", "drop table Sem_Serien_IT"}).code, 0);
    const auto refused = Run({"series", "list"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.err, "lumoseminar: The database refused it: Invalid object name 'Sem_Serien_IT'.\n");
}

TEST_F(SeriesCommand, ShowPrintsEveryColumn) {
    const auto done = Run({"series", "show", "3"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out,
              "SerienID       3\n"
              "BeginnUhrzeit  16:30\n"
              "EndeUhrzeit    18:00\n"
              "Tagefolge      2\n"
              "taeglich       0\n"
              "Woche          1\n"
              "Mo             no\n"
              "Di             yes\n"
              "Mi             no\n"
              "Do             yes\n"
              "Fr             no\n"
              "Sa             no\n"
              "So             no\n"
              "Rule           every week on Di, Do\n");
    EXPECT_EQ(done.err, "");
}

TEST_F(SeriesCommand, ShowOfRulesThatAreOddOrHaveNoTimes) {
    ASSERT_EQ(Run({"sql",
                   "insert into Sem_Serien_IT (SerienID, Tagefolge, Woche, Mo, Di) values (20, 2, 3, 1, 0) "
                   "insert into Sem_Serien_IT (SerienID) values (21)"})
                  .code,
              0);
    const auto flagged_by_one = Json({"series", "show", "20"});
    EXPECT_EQ(flagged_by_one["Rule"], "every 3 weeks on no day") << "only -1 counts";
    EXPECT_TRUE(flagged_by_one["BeginnUhrzeit"].is_null());
    EXPECT_EQ(Json({"series", "show", "21"})["Rule"], "every day");
}

TEST_F(SeriesCommand, ShowOfAnUnknownKey) {
    const auto done = Run({"series", "show", "99"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: There is no series 99.\n");
}

TEST_F(SeriesCommand, AddDaily) {
    const auto daily = Json(Add({"--daily"}));
    EXPECT_EQ(daily["SerienID"], 8);
    EXPECT_EQ(daily["BeginnUhrzeit"], "09:00");
    EXPECT_EQ(daily["EndeUhrzeit"], "16:30");
    EXPECT_EQ(daily["Tagefolge"], 1);
    EXPECT_EQ(daily["taeglich"], 1);
    EXPECT_EQ(daily["Rule"], "every day");
    const auto workdays = Json(Add({"--workdays"}));
    EXPECT_EQ(workdays["SerienID"], 9);
    EXPECT_EQ(workdays["Tagefolge"], 1);
    EXPECT_EQ(workdays["taeglich"], 0);
    EXPECT_EQ(workdays["Rule"], "every working day, Monday to Friday");
    EXPECT_EQ(Json({"series", "show", "9"}), workdays);
}

TEST_F(SeriesCommand, AddWeekly) {
    const auto weekly = Json(Add({"--weekly", "2", "--on", "so, DO,Mo,Mo"}));
    EXPECT_EQ(weekly["SerienID"], 8);
    EXPECT_EQ(weekly["Tagefolge"], 2);
    EXPECT_EQ(weekly["Woche"], 2);
    EXPECT_EQ(weekly["Rule"], "every 2 weeks on Mo, Do, So");
    for (const char* day : {"Mo", "Do", "So"}) EXPECT_EQ(weekly[day], true) << day;
    for (const char* day : {"Di", "Mi", "Fr", "Sa"}) EXPECT_EQ(weekly[day], false) << day;
    EXPECT_EQ(Json({"series", "show", "8"}), weekly);
}

TEST_F(SeriesCommand, WrongUsageAddsNothing) {
    const char* const add = "series add";
    ExpectUsage(Run({"series", "add", "--begin", "09:00", "--daily"}),
                "--end is missing: Time at which each session ends.", add);
    ExpectUsage(Run(Add({})), "Give one of --daily, --workdays and --weekly N.", add);
    ExpectUsage(Run(Add({"--daily", "--weekly", "1", "--on", "Mo"})), "Give one of --daily, --workdays and --weekly N.", add);
    ExpectUsage(Run(Add({"--workdays", "--on", "Mo"})), "--on goes with --weekly only.", add);
    ExpectUsage(Run(Add({"--weekly", "1"})), "--weekly needs --on: on which weekdays.", add);
    ExpectUsage(Run(Add({"--weekly", "0", "--on", "Mo"})), "--weekly: every how many weeks; 1 or more.", add);
    ExpectUsage(Run(Add({"--weekly", "1", "--on", "Mo,Tu"})), "--on: \"Tu\" is none of Mo, Di, Mi, Do, Fr, Sa, So.", add);
    ExpectUsage(Run(Add({"--weekly", "1", "--on", "Mo,"})), "--on: \"\" is none of Mo, Di, Mi, Do, Fr, Sa, So.", add);
    ExpectUsage(Run({"series", "add", "--begin", "neun", "--end", "10:00", "--daily"}),
                "--begin: \"neun\" is not a time of day; write it as 9:00 or 09.30.", add);
    EXPECT_EQ(Json({"series", "list"}).size(), 7U);
}

TEST_F(SeriesCommand, ARefusedInsertIsToldWithItsLabel) {
    ASSERT_EQ(Run({"sql", "drop table Sem_Serien_IT"}).code, 0);
    const auto done = Run(Add({"--daily"}));
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: The database refused it: Invalid object name 'Sem_Serien_IT'.\n");
    EXPECT_THAT(Run(Add({"--daily", "--verbose"})).err, testing::HasSubstr("\n    LUmoSeminar.clsSerie.WriteToDatabase\n"));
}

TEST_F(SeriesCommand, HelpNamesTheWeekdays) {
    EXPECT_THAT(Run({"series", "add", "--help"}).out,
                HasSubstr("as Mo,Do: Mo, Di, Mi, Do, Fr,\n                              Sa, So\n"));
}

}  // namespace
}  // namespace frontend
