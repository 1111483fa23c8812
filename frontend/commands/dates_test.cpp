#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class DatesCommand : public Cli {
  protected:
    DatesCommand() { UseSample(); }

    nlohmann::json Date(int key) const { return Json({"dates", "show", std::to_string(key)}); }

    void Sql(const std::string& text) const {
        const auto done = Run({"sql", text});
        ASSERT_EQ(done.code, 0) << done.err;
    }

    // "2010-09-02 09:00-16:00 ..."
    std::string Days(int key) const {
        std::string days;
        for (const auto& day : Json({"sql", "select Termin, BegUhr, EndUhr from Sem_Termin_Termine_IT where SemTerminID = " +
                                                std::to_string(key) + " order by Termin"})) {
            const auto Clock = [&](const char* name) { return day[name].get<std::string>().substr(11, 5); };
            days += day["Termin"].get<std::string>().substr(0, 10) + ' ' + Clock("BegUhr") + '-' + Clock("EndUhr") + '\n';
        }
        return days;
    }

    int Count(const std::string& table, const std::string& where) const {
        return Json({"sql", "select count(*) as n from " + table + " where " + where})[0]["n"];
    }
};

constexpr const char* kWeek =
    "2010-09-06 08:00-16:00\n"
    "2010-09-07 08:00-16:00\n"
    "2010-09-08 08:00-16:00\n"
    "2010-09-09 08:00-16:00\n"
    "2010-09-10 08:00-16:00\n";

TEST_F(DatesCommand, ShowPrintsColumnsNamesAndCalendar) {
    const auto done = Run({"dates", "show", "61"});
    EXPECT_EQ(done.code, 0);
    EXPECT_THAT(done.out, StartsWith("SemTerminID          61\n"
                                     "MDNr                 1\n"
                                     "Status               1\n"
                                     "Code                 FT-110/10-2\n"));
    EXPECT_THAT(done.out, HasSubstr("\nBeginnDatum          2010-09-06\n"
                                    "EndeDatum            2010-09-10\n"
                                    "BeginnUhrzeit        08:00\n"
                                    "EndeUhrzeit          16:00\n"));
    EXPECT_THAT(done.out, EndsWith("\nStatusBezLang        Aktiv\n"
                                   "Veranstalter         Ausbildungszentrum Ölschläger\n"
                                   "VeranstaltungsOrt    Lehrwerkstatt\n"
                                   "Days                 5\n"
                                   "\n"
                                   " September 2010\n"
                                   " Mo  Tu  We  Th  Fr  Sa  Su\n"
                                   "          1   2   3   4   5\n"
                                   "[ 6][ 7][ 8][ 9][10] 11  12\n"
                                   " 13  14  15  16  17  18  19\n"
                                   " 20  21  22  23  24  25  26\n"
                                   " 27  28  29  30\n"));
    EXPECT_EQ(Lines(done.out), 29U + 4U + 8U);
    EXPECT_EQ(done.err, "");
    EXPECT_THAT(Run({"dates", "show", "61", "--weeks"}).out, HasSubstr("\n 36 |[ 6][ 7][ 8][ 9][10] 11  12\n"));
}

TEST_F(DatesCommand, ShowAsJsonHasNoCalendar) {
    const auto date = Date(61);
    EXPECT_EQ(date["Days"], 5);
    EXPECT_EQ(date["BeginnDatum"], "2010-09-06T00:00:00");
    EXPECT_EQ(date["EndeUhrzeit"], "16:00");
    EXPECT_EQ(date["KostenProTN"], 1250);
    EXPECT_THAT(Run({"dates", "show", "61", "--format", "csv"}).out, Not(HasSubstr("September")));
}

TEST_F(DatesCommand, ShowOfAnOpenDate) {
    const auto date = Date(79);
    for (const char* name : {"BeginnDatum", "EndeDatum", "BeginnUhrzeit", "EndeUhrzeit", "AnmeldefristDatum"}) {
        EXPECT_TRUE(date[name].is_null()) << name;
    }
    EXPECT_EQ(date["Veranstalter"], "");
    EXPECT_EQ(date["VeranstaltungsOrt"], "");
    EXPECT_THAT(Run({"dates", "show", "79"}).out, EndsWith("\nDays                 0\n\nNo days.\n"));
}

TEST_F(DatesCommand, UnknownKeysAreRefused) {
    for (const Arguments& arguments : {Arguments{"dates", "show", "999"}, Arguments{"dates", "set", "999", "Status=2"},
                                       Arguments{"dates", "remove", "--yes", "61", "999"}}) {
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.out, "");
        EXPECT_EQ(done.err, "lumoseminar: There is no date 999 of client 1.\n");
    }
    EXPECT_EQ(Run({"dates", "show", "67"}).code, 1) << "a date of client 2";
    EXPECT_EQ(Run({"dates", "show", "67", "--client", "2"}).code, 0);
    EXPECT_EQ(Date(61)["Days"], 5) << "remove looks up every key first";
}

TEST_F(DatesCommand, AddTakesTheDefaultsOfTheSeminarAndMakesTheDaysUnderItsKey) {
    const auto seminar = Seminar(9);
    const auto date = Json({"dates", "add", "--seminar", "9", "--begin", "10.01.2011", "--sessions", "3"});
    EXPECT_EQ(date["SemTerminID"], 82);
    EXPECT_EQ(date["MDNr"], -1);
    EXPECT_EQ(date["Status"], 2);
    EXPECT_EQ(date["Code"], "");
    EXPECT_EQ(date["Titel"], "Englisch für den Beruf, Grundstufe");
    EXPECT_EQ(date["SemID"], 9);
    EXPECT_EQ(date["MinTeil"], seminar["TeilnehmerMIN"]);
    EXPECT_EQ(date["KostenProTN"], seminar["KostenProTN"]);
    EXPECT_EQ(date["Sitzungen"], 3);
    EXPECT_EQ(date["SerienID"], seminar["SerienID"]);
    EXPECT_EQ(date["BeginnDatum"], "2011-01-10T00:00:00");
    EXPECT_EQ(date["Days"], 3);
    EXPECT_EQ(Json({"days", "list", "82"}).size(), 3U);
    EXPECT_EQ(Count("Sem_Termin_Termine_IT", "SemTerminID = 0"), 0) << "no day without a key";
    EXPECT_EQ(Date(82), date);
}

TEST_F(DatesCommand, AddOfADateWithASeriesFollowsIt) {
    ASSERT_EQ(Run({"series", "add", "--begin", "09:00", "--end", "16:30", "--weekly", "2", "--on", "Mo,Do"}).code, 0);
    const auto done = Run({"dates", "add", "--seminar", "9", "--series", "8", "--sessions", "5", "--begin", "2010-03-03"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_THAT(done.out, HasSubstr("\nEndeDatum            2010-04-01\n"
                                    "BeginnUhrzeit        09:00\n"
                                    "EndeUhrzeit          16:30\n"));
    EXPECT_THAT(done.out, EndsWith("\nDays                 5\n"
                                   "\n"
                                   " March 2010\n"
                                   " Mo  Tu  We  Th  Fr  Sa  Su\n"
                                   "  1   2   3 [ 4]  5   6   7\n"
                                   "[ 8]  9  10  11  12  13  14\n"
                                   " 15  16  17 [18] 19  20  21\n"
                                   "[22] 23  24  25  26  27  28\n"
                                   " 29  30  31\n"
                                   "\n"
                                   " April 2010\n"
                                   " Mo  Tu  We  Th  Fr  Sa  Su\n"
                                   "            [ 1]  2   3   4\n"
                                   "  5   6   7   8   9  10  11\n"
                                   " 12  13  14  15  16  17  18\n"
                                   " 19  20  21  22  23  24  25\n"
                                   " 26  27  28  29  30\n"));
}

TEST_F(DatesCommand, AddWithTypedTimesKeepsThemWithASeriesToo) {
    ASSERT_EQ(Run({"series", "add", "--begin", "09:00", "--end", "16:30", "--daily"}).code, 0);
    const auto date = Json({"dates", "add", "--seminar", "9", "--series", "8", "--sessions", "2", "--begin",
                            "2010-03-03", "--from", "10:00", "--to", "12:30"});
    EXPECT_EQ(date["BeginnUhrzeit"], "10:00");
    EXPECT_EQ(date["EndeUhrzeit"], "12:30");
    EXPECT_EQ(Days(82), "2010-03-03 10:00-12:30\n2010-03-04 10:00-12:30\n");
}

TEST_F(DatesCommand, AddWithoutABeginIsOpenAndTakesEveryColumn) {
    const auto date =
        Json({"dates",         "add",        "--seminar",      "34",          "--mdnr",         "2",
              "--status",      "3",          "--code",         "ÜB/1",        "--title",        "Größe & \"Maß\"",
              "--content",     "4",          "--self-service", "-1",          "--clerk",        "12",
              "--min",         "1",          "--max",          "9",           "--opt",          "5",
              "--hours",       "7.5",        "--cost",         "49.90",       "--cancel-until", "2011-01-02",
              "--cancel-cost", "10.5",       "--abort-until",  "03.01.2011",  "--abort-cost",   "20",
              "--enrol-until", "2010-12-31", "--rating",       "7",           "--organiser",    "3",
              "--venue",       "2",          "--remark",       "Bitte prüfen"});
    EXPECT_EQ(date["MDNr"], 2);
    EXPECT_EQ(date["Status"], 3);
    EXPECT_EQ(date["StatusBezLang"], "Storniert");
    EXPECT_EQ(date["Code"], "ÜB/1");
    EXPECT_EQ(date["Titel"], "Größe & \"Maß\"");
    EXPECT_EQ(date["SemID"], 34);
    EXPECT_EQ(date["InhaltZielID"], 4);
    EXPECT_EQ(date["SelfService"], true);
    EXPECT_EQ(date["Sachbearbeiter"], 12);
    EXPECT_EQ(date["MinTeil"], 1);
    EXPECT_EQ(date["MaxTeil"], 9);
    EXPECT_EQ(date["OptTeil"], 5);
    EXPECT_EQ(date["Stunden"], 7.5);
    EXPECT_EQ(date["KostenProTN"], 49.90);
    EXPECT_EQ(date["StornoDatum"], "2011-01-02T00:00:00");
    EXPECT_EQ(date["StornoKosten"], 10.5);
    EXPECT_EQ(date["AbbruchDatum"], "2011-01-03T00:00:00");
    EXPECT_EQ(date["AbbruchKosten"], 20);
    EXPECT_EQ(date["AnmeldefristDatum"], "2010-12-31T00:00:00");
    EXPECT_EQ(date["BeurteilungID"], 7);
    EXPECT_EQ(date["Veranstalter"], "Hilfsdienst Köln, Breitenausbildung");
    EXPECT_EQ(date["VeranstaltungsOrt"], "Schulungsraum 2, Verwaltung");
    EXPECT_EQ(date["Bemerkung"], "Bitte prüfen");
    EXPECT_TRUE(date["BeginnDatum"].is_null());
    EXPECT_EQ(date["Days"], 0);
}

TEST_F(DatesCommand, AddForASeminarThatIsNotThereAddsNothing) {
    const auto done = Run({"dates", "add", "--seminar", "999", "--begin", "2010-03-03"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: There is no seminar 999 of client 1.\n");
    EXPECT_EQ(Run({"dates", "add", "--seminar", "36", "--begin", "2010-03-03"}).code, 1) << "a seminar of client 2";
    EXPECT_EQ(Count("Sem_Termin_IT", "SemTerminID > 81"), 0);
}

TEST_F(DatesCommand, AddTellsThatTheDateIsThereWhereItsDaysAreRefused) {
    Sql("insert into Sem_Serien_IT (SerienID, Tagefolge, Woche, Mo) values (8, 2, 0, -1)");
    const auto done = Run({"dates", "add", "--seminar", "9", "--series", "8", "--sessions", "2", "--begin", "2010-03-01"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: Date 82 was added, but not with all its days.\n"
                                     "lumoseminar: The database refused it: Violation of PRIMARY KEY constraint"));
    EXPECT_EQ(Date(82)["Days"], 1);
    EXPECT_TRUE(Date(82)["BeginnDatum"].is_null());
}

TEST_F(DatesCommand, ATitleThatIsTooLongIsRefused) {
    const auto done = Run({"dates", "add", "--seminar", "9", "--title", std::string(256, 'x'), "--verbose"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: The database refused it: "));
    EXPECT_THAT(done.err,
                HasSubstr("\n    LumoSeminar062.clsTermin.WriteToDatabase\n    in the statement INSERT INTO Sem_Termin_IT "));
    EXPECT_EQ(Count("Sem_Termin_IT", "SemTerminID > 81"), 0);
}

TEST_F(DatesCommand, SetChangesByColumnAndByOption) {
    auto expected = Date(61);
    const auto set = Json({"dates", "set", "61", "titel=Drehen = Üben", "KostenProTN=81.5", "--status", "4",
                           "StornoDatum=", "Sitzungen=7"});
    expected["Titel"] = "Drehen = Üben";
    expected["KostenProTN"] = 81.5;
    expected["Status"] = 4;
    expected["StatusBezLang"] = "Abgeschlossen";
    expected["StornoDatum"] = nullptr;
    expected["Sitzungen"] = 7;
    EXPECT_EQ(set, expected);
    EXPECT_EQ(Date(61), expected);
    EXPECT_EQ(Days(61), kWeek);
    const auto alone = Json({"dates", "set", "61", "Sitzungen=3"});
    EXPECT_EQ(alone["Sitzungen"], 3) << "its let alone does not read the row";
    EXPECT_EQ(alone["Titel"], "Drehen = Üben");
}

TEST_F(DatesCommand, SetOfALaterEndAddsDaysAndShowsBothCalendars) {
    const auto done = Run({"dates", "set", "61", "EndeDatum=14.09.2010"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_THAT(done.out, EndsWith("\nDays                 7\n"
                                   "\n"
                                   "Before: 5 days\n"
                                   "\n"
                                   " September 2010\n"
                                   " Mo  Tu  We  Th  Fr  Sa  Su\n"
                                   "          1   2   3   4   5\n"
                                   "[ 6][ 7][ 8][ 9][10] 11  12\n"
                                   " 13  14  15  16  17  18  19\n"
                                   " 20  21  22  23  24  25  26\n"
                                   " 27  28  29  30\n"
                                   "\n"
                                   "Now: 7 days\n"
                                   "\n"
                                   " September 2010\n"
                                   " Mo  Tu  We  Th  Fr  Sa  Su\n"
                                   "          1   2   3   4   5\n"
                                   "[ 6][ 7][ 8][ 9][10] 11  12\n"
                                   "[13][14] 15  16  17  18  19\n"
                                   " 20  21  22  23  24  25  26\n"
                                   " 27  28  29  30\n"));
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(Days(61), std::string(kWeek) + "2010-09-13 08:00-16:00\n2010-09-14 08:00-16:00\n");
    EXPECT_THAT(Run({"dates", "set", "61", "Status=2"}).out, EndsWith("\nDays                 7\n")) << "the days stay";
}

TEST_F(DatesCommand, SetOfAnEarlierEndGoesBackToTheLastDayThatIsLeft) {
    const auto set = Json({"dates", "set", "60", "--end", "2010-10-27"});
    EXPECT_EQ(set["EndeDatum"], "2010-09-30T00:00:00");
    EXPECT_EQ(Days(60), "2010-09-02 09:00-16:00\n2010-09-30 09:00-16:00\n");
}

TEST_F(DatesCommand, SetOfAnotherBeginMakesTheDaysFromAllThatIsTypedWithIt) {
    const auto set = Json({"dates", "set", "61", "EndeDatum=2010-09-17", "BeginnDatum=2010-09-13", "EndeUhrzeit=12:00",
                           "Sitzungen=2", "SerienID=0"});
    EXPECT_EQ(set["BeginnDatum"], "2010-09-13T00:00:00");
    EXPECT_EQ(set["EndeDatum"], "2010-09-17T00:00:00");
    EXPECT_EQ(Days(61),
              "2010-09-13 08:00-12:00\n2010-09-14 08:00-12:00\n2010-09-15 08:00-12:00\n"
              "2010-09-16 08:00-12:00\n2010-09-17 08:00-12:00\n");
}

TEST_F(DatesCommand, SetGivesAllDaysTheTimesOfTheDate) {
    ASSERT_EQ(Run({"days", "add", "61", "2010-09-11", "--from", "10:00", "--to", "11:00"}).code, 0);
    ASSERT_EQ(Run({"dates", "set", "61", "Bemerkung="}).code, 0);
    EXPECT_EQ(Days(61), std::string(kWeek) + "2010-09-11 08:00-16:00\n");
}

TEST_F(DatesCommand, SetTakesBeginAndEndAwayTogetherAndTheDaysStay) {
    const auto set = Json({"dates", "set", "61", "BeginnDatum=", "EndeDatum="});
    EXPECT_TRUE(set["BeginnDatum"].is_null());
    EXPECT_TRUE(set["EndeDatum"].is_null());
    EXPECT_EQ(Days(61), kWeek);
}

TEST_F(DatesCommand, SetRefusesAnEndThatWouldLeaveNoDay) {
    const char* const why = "EndeDatum must not lie before BeginnDatum: no day would be left.";
    ExpectUsage(Run({"dates", "set", "61", "EndeDatum=2010-09-05"}), why, "dates set");
    ExpectUsage(Run({"dates", "set", "61", "EndeDatum="}), why, "dates set");
    ExpectUsage(Run({"dates", "set", "61", "EndeDatum=2010-09-10", "--begin", "2010-09-11"}), why, "dates set");
    EXPECT_EQ(Days(61), kWeek);
}

TEST_F(DatesCommand, SetTellsThatTheDaysHaveChangedWhereTheDateIsNotSaved) {
    const auto title = "Titel=" + std::string(256, 'x');
    const auto done = Run({"dates", "set", "61", "EndeDatum=2010-09-08", title});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: Date 61 was not saved, but its days were changed: 5 before, 3 now.\n"
                                     "lumoseminar: The database refused it: "));
    EXPECT_EQ(Date(61)["EndeDatum"], "2010-09-10T00:00:00");
    const auto same_days = Run({"dates", "set", "61", title});
    EXPECT_EQ(same_days.code, 1);
    EXPECT_THAT(same_days.err, StartsWith("lumoseminar: The database refused it: "));
}

TEST_F(DatesCommand, RemoveTellsWhichDaysStayBehind) {
    const auto done = Run({"dates", "remove", "--yes", "79", "61", "79"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out,
              "SemTerminID  Titel                                     Outcome  DaysLeft\n"
              "-----------  ----------------------------------------  -------  --------\n"
              "         79  Additive Fertigung: 3D-Druck in Metall    removed         0\n"
              "         61  CNC-Drehen: Programmieren und Einrichten  removed         5\n");
    EXPECT_EQ(done.err, "5 days of date 61 stay behind in Sem_Termin_Termine_IT.\n");
    EXPECT_EQ(Count("Sem_Termin_IT", "SemTerminID in (61, 79)"), 0);
    EXPECT_EQ(Days(61), kWeek);
    EXPECT_EQ(Count("Sem_Serien_IT", "SerienID = 1"), 1) << "others use the series";
}

TEST_F(DatesCommand, RemoveTakesASeriesWithItThatNothingElseUses) {
    ASSERT_EQ(Run({"series", "add", "--begin", "09:00", "--end", "16:30", "--daily"}).code, 0);
    ASSERT_EQ(Run({"dates", "add", "--seminar", "9", "--series", "8"}).code, 0);
    const auto done = Json({"dates", "remove", "--yes", "82"});
    ASSERT_EQ(done.size(), 1U);
    EXPECT_EQ(done[0]["Outcome"], "removed");
    EXPECT_EQ(done[0]["DaysLeft"], 0);
    EXPECT_EQ(Count("Sem_Serien_IT", "SerienID = 8"), 0);
}

TEST_F(DatesCommand, RemoveShowsWhatWasRemovedBeforeARefusal) {
    Sql("drop table Sem_Serien_IT");
    const auto done = Run({"dates", "remove", "--yes", "61", "79", "80"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out,
              "SemTerminID  Titel                                     Outcome                  DaysLeft\n"
              "-----------  ----------------------------------------  -----------------------  --------\n"
              "         61  CNC-Drehen: Programmieren und Einrichten  removed                         5\n"
              "         79  Additive Fertigung: 3D-Druck in Metall    removed, its series not         0\n");
    EXPECT_THAT(done.err, HasSubstr("lumoseminar: The database refused it: Invalid object name 'Sem_Serien_IT'."));
    EXPECT_EQ(Count("Sem_Termin_IT", "SemTerminID in (61, 79, 80)"), 1);
}

TEST_F(DatesCommand, WrongUsageChangesNothing) {
    const auto before = Date(61);
    ExpectUsage(Run({"dates", "show", "x"}), "KEY: \"x\" is not a whole number.", "dates show");
    ExpectUsage(Run({"dates", "add"}), "--seminar is missing: Key of the seminar (SemID).", "dates add");
    ExpectUsage(Run({"dates", "add", "--seminar", "9", "--begin", "3.3."}),
                "--begin: \"3.3.\" has no year; write it with four digits, as in 1.3.2027.", "dates add");
    ExpectUsage(Run({"dates", "set", "61"}), "Nothing to set: name a column and its value.", "dates set");
    ExpectUsage(Run({"dates", "set", "61", "SemTitel=A"}), "A date has no column \"SemTitel\".", "dates set");
    ExpectUsage(Run({"dates", "set", "61", "SemTerminID=7"}), "SemTerminID is the key and cannot be changed.", "dates set");
    ExpectUsage(Run({"dates", "set", "61", "Titel=A", "Status=256"}), "Status: \"256\" does not fit: 0 to 255.", "dates set");
    ExpectUsage(Run({"dates", "set", "61", "BeginnDatum=30.02.2010"}),
                "BeginnDatum: \"30.02.2010\" is not in the calendar.", "dates set");
    ExpectUsage(Run({"dates", "set", "61", "BeginnUhrzeit=neun"}),
                "BeginnUhrzeit: \"neun\" is not a time of day; write it as 9:00 or 09.30.", "dates set");
    ExpectUsage(Run({"dates", "remove"}), "KEY is missing: SemTerminID of each date.", "dates remove");
    EXPECT_EQ(Date(61), before);
}

TEST_F(DatesCommand, HelpTellsWhatDoesWhat) {
    EXPECT_THAT(Run({"--help"}).out, HasSubstr("  dates                       The dates of the seminars: list, show, add, set,\n"
                                               "                              remove\n"));
    EXPECT_THAT(Run({"dates", "--help"}).out, StartsWith("Usage: lumoseminar dates COMMAND\n\n"
                                                         "The dates of the seminars: list, show, add, set, remove.\n"));
    EXPECT_THAT(Run({"dates", "set", "--help"}).out, HasSubstr("\n  --begin DAY                 First day; another one makes all days anew\n"
                                                               "                              (BeginnDatum)\n"));
    EXPECT_THAT(Run({"dates", "remove", "--help"}).out, HasSubstr("Its days stay behind"));
}

}  // namespace
}  // namespace frontend
