#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class FocusCommand : public Cli {
  protected:
    FocusCommand() { UseSample(); }

    std::string OfDate(int date) const {
        return Run({"focus", "list", "--date", std::to_string(date), "--format", "csv"}).out;
    }

    // All focus areas there are.
    int AreaCount() const { return Json({"sql", "select count(*) as n from sysIData_WBS"})[0]["n"]; }
};

constexpr const char* kLeadership = "SchwerpunktID,WBS\n11,Führung\n";

TEST_F(FocusCommand, ListOfASeminarAndOfADate) {
    const auto seminar = Run({"focus", "list", "--seminar", "5"});
    EXPECT_EQ(seminar.code, 0);
    EXPECT_EQ(seminar.out,
              "SchwerpunktID  WBS\n"
              "-------------  -----------------\n"
              "            1  Arbeitssicherheit\n"
              "            2  Brandschutz\n");
    EXPECT_EQ(seminar.err, "2 focus areas\n");
    const auto date = Run({"focus", "list", "--date", "60"});
    EXPECT_EQ(date.code, 0);
    EXPECT_EQ(date.out,
              "SchwerpunktID  WBS\n"
              "-------------  -------\n"
              "           11  Führung\n");
    EXPECT_EQ(date.err, "1 focus area\n");
    EXPECT_EQ(Json({"focus", "list", "--date", "81"}), nlohmann::json::array());
}

TEST_F(FocusCommand, ListOfWhatIsNotThere) {
    const auto date = Run({"focus", "list", "--date", "67"});
    EXPECT_EQ(date.code, 1);
    EXPECT_EQ(date.out, "");
    EXPECT_EQ(date.err, "lumoseminar: There is no date 67 of client 1.\n");
    EXPECT_EQ(Run({"focus", "list", "--date", "67", "--client", "2"}).code, 0);
    const auto seminar = Run({"focus", "list", "--seminar", "99"});
    EXPECT_EQ(seminar.code, 1);
    EXPECT_EQ(seminar.out, "");
    EXPECT_EQ(seminar.err, "lumoseminar: There is no seminar 99 of client 1.\n");
}

TEST_F(FocusCommand, ListThatIsRefused) {
    ASSERT_EQ(Run({"sql", "drop table Sem_Termin_Schwerpunkte_IT"}).code, 0);
    const auto done = Run({"focus", "list", "--date", "60"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: The database refused it: Invalid object name 'Sem_Termin_Schwerpunkte_IT'.\n");
}

TEST_F(FocusCommand, TieFindsTheFocusAreaByItsName) {
    const int before = AreaCount();
    const auto done = Run({"focus", "tie", "60", "Gesprächsführung"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out,
              "SchwerpunktID  WBS\n"
              "-------------  ----------------\n"
              "           11  Führung\n"
              "           12  Gesprächsführung\n");
    EXPECT_EQ(done.err, "2 focus areas\n");
    EXPECT_EQ(AreaCount(), before);
}

TEST_F(FocusCommand, TieMakesAFocusAreaForANewName) {
    const int before = AreaCount();
    const auto areas = Json({"focus", "tie", "60", "Äußeres \"Bild\""});
    EXPECT_EQ(areas[1], nlohmann::json::parse(R"({"SchwerpunktID": 17, "WBS": "Äußeres \"Bild\""})"));
    EXPECT_EQ(AreaCount(), before + 1);
    EXPECT_EQ(Json({"focus", "tie", "61", "Äußeres \"Bild\""})[1]["SchwerpunktID"], 17);
    EXPECT_EQ(AreaCount(), before + 1);
}

TEST_F(FocusCommand, TieOfWhatIsTiedAlready) {
    const auto done = Run({"focus", "tie", "60", "Führung"});
    EXPECT_EQ(done.code, 0);
    EXPECT_THAT(done.out, HasSubstr("           11  Führung\n"));
    EXPECT_EQ(done.err, "1 focus area, tied already\n");
    EXPECT_EQ(OfDate(60), kLeadership);
}

TEST_F(FocusCommand, TieToAFocusAreaThatCannotBeMadeIsTakenBack) {
    const auto done = Run({"focus", "tie", "60", std::string(300, 'x')});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: The focus area \"" + std::string(60, 'x') + "...\" could not be made; nothing was tied.\n");
    EXPECT_EQ(OfDate(60), kLeadership);
}

TEST_F(FocusCommand, TieToANameWithQuotes) {
    const int before = AreaCount();
    const std::string name = "Rock 'n' Roll, \"L'eau\"";
    EXPECT_EQ(Json({"focus", "tie", "60", name}).back()["WBS"], name);
    EXPECT_EQ(AreaCount(), before + 1);
    EXPECT_EQ(Json({"focus", "tie", "61", name}).back()["WBS"], name) << "found, not made once more";
    EXPECT_EQ(AreaCount(), before + 1);
    EXPECT_EQ(Run({"focus", "untie", "60", "rock 'n'"}).code, 0);
    EXPECT_EQ(OfDate(60), kLeadership);
}

TEST_F(FocusCommand, ListOfAllThatTheClientSees) {
    const auto done = Run({"focus", "list"});
    EXPECT_EQ(done.code, 0);
    EXPECT_THAT(done.out, HasSubstr("\n           16  Büro und Verwaltung\n            8  CNC-Technik\n"));
    EXPECT_EQ(done.err, "14 focus areas\n");
    EXPECT_EQ(Json({"focus", "list", "--client", "2"}),
              Json({"sql",
                    "select WBS_ID as SchwerpunktID, Weiterbildungsschwerpunkt as WBS from sysIData_WBS where WBS_ID in "
                    "(select WBS_ID from sysIData_WBS_Mandant_IT where MDNr = 2) order by 2"}));
    ASSERT_EQ(Run({"sql", "update optionen_database_dt set Wert = '0' where OptionID = 30"}).code, 0);
    EXPECT_EQ(static_cast<int>(Json({"focus", "list"}).size()), AreaCount()) << "all clients share them";
}

TEST_F(FocusCommand, UntieLeavesTheFocusArea) {
    const int before = AreaCount();
    ASSERT_EQ(Run({"focus", "tie", "60", "Messtechnik"}).code, 0);
    const auto done = Run({"focus", "untie", "60", "9"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out,
              "SchwerpunktID  WBS          Outcome\n"
              "-------------  -----------  -------\n"
              "            9  Messtechnik  untied\n");
    EXPECT_EQ(done.err, "1 focus area left\n");
    EXPECT_EQ(OfDate(60), kLeadership);
    EXPECT_EQ(AreaCount(), before);
}

TEST_F(FocusCommand, UntieOfWhatIsNotTied) {
    const auto done = Run({"focus", "untie", "60", "9"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: Date 60 is not tied to the focus area 9.\n");
    EXPECT_EQ(OfDate(60), kLeadership);
}

TEST_F(FocusCommand, UntieThatIsRefusedSaysWhy) {
    ASSERT_EQ(Run({"sql",
                   "create table Halt (SchwerpunktID int not null, SemTerminID int not null, constraint FK_Halt foreign key "
                   "(SemTerminID, SchwerpunktID) references Sem_Termin_Schwerpunkte_IT (SemTerminID, SchwerpunktID)) "
                   "insert into Halt values (11, 60)"})
                  .code,
              0);
    const auto done = Run({"focus", "untie", "60", "11"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: The database refused it: The DELETE statement conflicted with"));
    EXPECT_EQ(OfDate(60), kLeadership);
}

TEST_F(FocusCommand, TieAndUntieOfDatesOfOtherClients) {
    for (const Arguments& arguments : {Arguments{"focus", "tie", "67", "Führung"}, Arguments{"focus", "untie", "67", "12"}}) {
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.out, "");
        EXPECT_EQ(done.err, "lumoseminar: There is no date 67 of client 1.\n");
    }
}

TEST_F(FocusCommand, WrongUsage) {
    ExpectUsage(Run({"focus"}), "A command is missing: list, tie, untie.", "focus");
    ExpectUsage(Run({"focus", "list", "--seminar", "5", "--date", "60"}),
                "Give one of --seminar N and --date N, or none of them.", "focus list");
    ExpectUsage(Run({"focus", "list", "--date", "x"}), "--date: \"x\" is not a whole number.", "focus list");
    ExpectUsage(Run({"focus", "tie", "60"}), "NAME is missing: Name of the focus area.", "focus tie");
    ExpectUsage(Run({"focus", "tie", "60", ""}), "NAME: a focus area has a name.", "focus tie");
    ExpectUsage(Run({"focus", "untie", "60"}), "KEY is missing: SchwerpunktID or name of the focus area.", "focus untie");
    ExpectUsage(Run({"focus", "untie", "60", "?"}), "KEY: \"?\" is neither a number nor a name.", "focus untie");
    EXPECT_EQ(OfDate(60), kLeadership);
}

}  // namespace
}  // namespace frontend
