#include "frontend/commands/approval_test.h"

namespace frontend {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class NeedsCommand : public ApprovalCli {
  protected:
    nlohmann::json Need(int person, std::size_t index = 0) const {
        return Json({"needs", "list", std::to_string(person)})[index];
    }

    // Need 37, that of employee 130.
    void AddNeed() const { EXPECT_EQ(Json({"needs", "add", "130", "8", "--user-id", kNobody})["WBID"], 37); }

    bool MayDecide(const char* user) const { return Json({"needs", "list", "130", "--user-id", user})[0]["MayDecide"]; }

    int Needs() const { return Count("AN_WBBedarf_IT"); }
};

TEST_F(NeedsCommand, ListShowsNeedsAndHowFarTheyHaveCome) {
    const auto done = Run({"needs", "list", "190"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(
        done.out,
        "WBID  MDNr  ANNr  WBS  Schwerpunkt          erfDat      erford      Erfuellt    erfUser  State     Bemerkungen  Process\n"
        "----  ----  ----  ---  -------------------  ----------  ----------  ----------  -------  --------  -----------  ------------\n"
        "  13     1   190   10  Qualitätssicherung   2009-07-10  NULL        2009-10-23  sthieme  rejected               Kein Vorgang\n"
        "  31     1   190   16  Büro und Verwaltung  2010-06-02  2010-10-16  NULL        sthieme  open                   Kein Vorgang\n");
    EXPECT_EQ(done.err, "2 training needs\n");
    EXPECT_EQ(Run({"needs", "list", "275", "--format", "csv"}).out,
              "WBID,MDNr,ANNr,WBS,Schwerpunkt,erfDat,erford,Erfuellt,erfUser,State,Bemerkungen,Process\n"
              "4,1,275,7,Fertigungstechnik,2009-03-27T00:00:00,2009-08-28T00:00:00,2009-07-13T00:00:00,sthieme,fulfilled,"
              "vor Übernahme der Schichtleitung,Kein Vorgang\n");
}

TEST_F(NeedsCommand, ListOfNoNeedsAndOfOtherClients) {
    EXPECT_EQ(Json({"needs", "list", "130"}), nlohmann::json::array());
    EXPECT_EQ(Run({"needs", "list", "130"}).err, "0 training needs\n");
    EXPECT_EQ(Json({"needs", "list", "143", "--client", "2"})[0]["WBID"], 5);
}

TEST_F(NeedsCommand, ListGivesTheNumberOfOtherStatesAndLeavesOutNamesThatAreNotThere) {
    Sql("update AN_WBBedarf_IT set BedarfErfuellt = 3, WBS = 99 where WBID = 31");
    EXPECT_EQ(Need(190, 1)["State"], "3");
    EXPECT_EQ(Need(190, 1)["Schwerpunkt"], nullptr);
}

TEST_F(NeedsCommand, ListTellsWhetherAUserMayDecideNow) {
    AddNeed();
    EXPECT_TRUE(MayDecide(kFirst));
    EXPECT_FALSE(MayDecide(kSecond));
    ASSERT_EQ(Run({"consent", "71", "--need", "37", "--user-id", kFirst}).code, 0);
    EXPECT_FALSE(MayDecide(kFirst));
    EXPECT_TRUE(MayDecide(kSecond));
    EXPECT_EQ(Need(130)["Process"], kAtSecond);
    ASSERT_EQ(Run({"needs", "reject", "37", "--user-id", kSecond}).code, 0);
    EXPECT_FALSE(MayDecide(kSecond));
}

TEST_F(NeedsCommand, ListCostsAsManyStatementsAsTheHelpSays) {
    const auto lines = [&](const Arguments& more) {
        return Lines(Run(With({"needs", "list", "130", "--trace"}, more)).err);
    };
    const auto none = lines({});
    const auto none_with_user = lines({"--user-id", kFirst});
    EXPECT_EQ(none_with_user, none);
    AddNeed();
    EXPECT_EQ(lines({}), none + 3U);
    EXPECT_EQ(lines({"--user-id", kFirst}), none + 3U + 2U);
    Sql("delete from Sem_ProzessSchritt_IT");
    EXPECT_EQ(lines({"--user-id", kFirst}), none + 2U + 3U);
}

TEST_F(NeedsCommand, AddRecordsTheNeedAndOpensItsProcess) {
    const auto done = Run({"needs", "add", "130", "8", "--user-id", kNobody});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_THAT(done.out, StartsWith("WBID         37\n"
                                     "MDNr         1\n"
                                     "ANNr         130\n"
                                     "WBS          8\n"
                                     "Schwerpunkt  CNC-Technik\n"));
    EXPECT_THAT(done.out, HasSubstr("\nState        open\n"
                                    "Bemerkungen\n"
                                    "Process      Stufe 1 von 2: Entscheidung durch Vorgesetzte\n"
                                    "Outcome      recorded, process opened\n"));
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(Steps(7, 37), "Start 1 13");
}

TEST_F(NeedsCommand, AddForAPersonOrAFocusAreaThatIsNotThere) {
    const int before = Needs();
    ExpectRefused(Run({"needs", "add", "9999", "8", "--user-id", kFirst}), "There is no employee 9999 of client 1.");
    ExpectRefused(Run({"needs", "add", "130", "99", "--user-id", kFirst}), "There is no focus area 99.");
    EXPECT_EQ(Needs(), before);
}

TEST_F(NeedsCommand, AddTellsThatTheProcessIsMissing) {
    Sql("drop table Sem_ProzessSchritt_IT");
    const auto done = Run({"needs", "add", "130", "8", "--user-id", kFirst});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: The need was recorded, but its process was not opened.\n"
                                     "lumoseminar: The database refused it: Invalid object name 'Sem_ProzessSchritt_IT'.\n"));
    EXPECT_EQ(Count("AN_WBBedarf_IT", "ANNr = 130"), 1);
}

TEST_F(NeedsCommand, AddThatIsRefusedRecordsNothing) {
    const int before = Needs();
    const auto done = Run({"needs", "add", "130", "8", "--user-id", kFirst, "--user", "O'Neill"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: The database refused it: "));
    EXPECT_EQ(Needs(), before);
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 0);
}

TEST_F(NeedsCommand, RejectSettlesTheNeed) {
    AddNeed();
    const auto done = Json({"needs", "reject", "37", "--user-id", kFirst});
    EXPECT_EQ(done["State"], "rejected");
    EXPECT_EQ(done["Process"], kRejected);
    EXPECT_EQ(done["Outcome"], "rejected");
    EXPECT_NE(done["Erfuellt"], nullptr);
    EXPECT_EQ(Steps(7, 37), "Start 1 13 | Ablehnung 1 11");
    EXPECT_EQ(Count("AN_WBBedarf_IT", "WBID = 37 and BedarfErfuellt = 2"), 1);
}

TEST_F(NeedsCommand, RejectOfANeedWithoutAProcessIsForThoseOfTheLastStage) {
    ExpectRefused(Run({"needs", "reject", "31", "--user-id", kFirst}),
                  "User 11 may not decide on training need 31 at stage 2 (Weiterbildung). Nothing was changed.");
    EXPECT_EQ(Json({"needs", "reject", "31", "--user-id", kSecond})["State"], "rejected");
}

TEST_F(NeedsCommand, RejectThatDoesNotCountChangesNothing) {
    AddNeed();
    ExpectRefused(Run({"needs", "reject", "37", "--user-id", kNobody}),
                  "User 13 may not decide on training need 37 at stage 1 (Vorgesetzte). Nothing was changed.");
    EXPECT_EQ(Need(130)["State"], "open");
    ASSERT_EQ(Run({"needs", "reject", "37", "--user-id", kFirst}).code, 0);
    EXPECT_EQ(Json({"needs", "reject", "37", "--user-id", kFirst})["Outcome"], "rejected") << "given once more";
    ExpectRefused(Run({"consent", "71", "--need", "37", "--user-id", kFirst}),
                  "User 11 may not decide: training need 37 is rejected already. Nothing was changed.");
    EXPECT_EQ(Steps(7, 37), "Start 1 13 | Ablehnung 1 11");
}

TEST_F(NeedsCommand, RejectTellsTheStateWhereTheNeedCouldNotBeSettled) {
    AddNeed();
    // The update takes the day away by which it is wanted, as there is none.
    Sql("drop table AN_WBBedarf_IT create table AN_WBBedarf_IT (WBID int not null, MDNr int null, ANNr int null, WBS int null, "
        "erfDat datetime null, erford datetime not null, Erfuellt datetime null, erfUser nvarchar(50) null, "
        "BedarfErfuellt smallint null, Bemerkungen nvarchar(255) null) "
        "insert into AN_WBBedarf_IT (WBID, MDNr, ANNr, WBS, erford, BedarfErfuellt) values (37, 1, 130, 8, '30.12.1899', 0)");
    const auto done = Run({"needs", "reject", "37", "--user-id", kFirst});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err,
                StartsWith("lumoseminar: The process is in the state \"Abgelehnt\".\nlumoseminar: The database refused it: "));
    EXPECT_EQ(Need(130)["State"], "open");
}

TEST_F(NeedsCommand, RejectLeavesTheRemarkAsItIs) {
    AddNeed();
    Sql("update AN_WBBedarf_IT set Bemerkungen = 'L''eau, ''n'' und Öl' where WBID = 37");
    const auto rejected = Json({"needs", "reject", "37", "--user-id", kFirst});
    EXPECT_EQ(rejected["State"], "rejected");
    EXPECT_EQ(rejected["Bemerkungen"], "L'eau, 'n' und Öl");
}

TEST_F(NeedsCommand, AddTakesNamesOfPersonAndFocusArea) {
    const auto added = Json({"needs", "add", "Norbert Kölbl", "cnc", "--user-id", kFirst});
    EXPECT_EQ(added["ANNr"], 130);
    EXPECT_EQ(added["WBS"], 8);
    const auto many = Run({"needs", "add", "130", "D", "--user-id", kFirst});
    EXPECT_EQ(many.code, 1);
    EXPECT_EQ(many.err,
              "lumoseminar: AREA: \"D\" is not unambiguous: 2 focus areas.\n"
              "    4  Datenschutz und Informationssicherheit\n"
              "    6  Deutsch am Arbeitsplatz\n");
    ExpectRefused(Run({"needs", "add", "130", "Töpfern", "--user-id", kFirst}),
                  "There is no focus area \"Töpfern\". \"lumoseminar focus list\" tells which there are.");
}

TEST_F(NeedsCommand, RejectWithoutTheTablesOfTheProcesses) {
    Sql("drop table Sem_ProzessSchritt_IT");
    ExpectRefused(Run({"needs", "reject", "31", "--user-id", kFirst}),
                  "The database refused it: Invalid object name 'Sem_ProzessSchritt_IT'.");
}

TEST_F(NeedsCommand, RemoveDropsTheProcessToo) {
    AddNeed();
    const auto done = Run({"needs", "remove", "--yes", "37", "31"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out,
              "WBID  ANNr  Outcome\n"
              "----  ----  -------\n"
              "  37   130  removed\n"
              "  31   190  removed\n");
    EXPECT_EQ(Count("AN_WBBedarf_IT", "WBID in (31, 37)"), 0);
    EXPECT_EQ(Steps(7, 37), "Start 1 13 | Löschung - -");
    EXPECT_EQ(Steps(7, 31), "");
}

TEST_F(NeedsCommand, RemoveLooksUpEveryKeyFirst) {
    const int before = Needs();
    ExpectRefused(Run({"needs", "remove", "--yes", "31", "999"}), "There is no training need 999 of client 1.");
    EXPECT_EQ(Needs(), before);
}

TEST_F(NeedsCommand, RemoveShowsHowFarItCame) {
    Sql("create table Halt (WBID int not null, constraint FK_Halt foreign key (WBID) references AN_WBBedarf_IT (WBID)) "
        "insert into Halt values (4)");
    const auto done = Run({"needs", "remove", "--yes", "31", "4", "13", "--format", "csv"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "WBID,ANNr,Outcome\n31,190,removed\n");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: The database refused it: "));
    EXPECT_EQ(Count("AN_WBBedarf_IT", "WBID in (4, 13)"), 2);
}

TEST_F(NeedsCommand, NeedsThatAreNotThere) {
    ExpectRefused(Run({"needs", "list", "9999"}), "There is no employee 9999 of client 1.");
    for (const char* key : {"999", "0", "5"}) {
        ExpectRefused(Run({"needs", "reject", key, "--user-id", kFirst}),
                      std::string("There is no training need ") + key + " of client 1.");
    }
}

TEST_F(NeedsCommand, ARefusedListIsToldWithItsLabel) {
    Sql("drop table AN_WBBedarf_IT");
    ExpectRefused(Run({"needs", "list", "190"}), "The database refused it: Invalid object name 'AN_WBBedarf_IT'.");
    EXPECT_THAT(Run({"needs", "list", "190", "--verbose"}).err, HasSubstr("\n    in LumoSeminar.LoadListe\n"));
}

TEST_F(NeedsCommand, WrongUsageChangesNothing) {
    const int before = Needs();
    ExpectUsage(Run({"needs"}), "A command is missing: list, add, reject, remove.", "needs");
    ExpectUsage(Run({"needs", "list"}), "PERSON is missing: Number or name of the employee.", "needs list");
    ExpectUsage(Run({"needs", "list", "190", "--user-id", "lena"}), "--user-id: \"lena\" is not a whole number.", "needs list");
    ExpectUsage(Run({"needs", "add", "130", "--user-id", "1"}), "AREA is missing: Key or name of the focus area (WBS).",
                "needs add");
    ExpectUsage(Run({"needs", "add", "130", "8"}),
                "--user-id is missing: Number of the user on whose behalf the process is opened.", "needs add");
    ExpectUsage(Run({"needs", "add", "130", "8.", "--user-id", "1"}), "AREA: \"8.\" is neither a number nor a name.",
                "needs add");
    ExpectUsage(Run({"needs", "reject", "31"}), "--user-id is missing: Number of the user who decides.", "needs reject");
    ExpectUsage(Run({"needs", "reject", "x", "--user-id", "1"}), "KEY: \"x\" is not a whole number.", "needs reject");
    ExpectUsage(Run({"needs", "remove"}), "KEY is missing: WBID of each need.", "needs remove");
    EXPECT_EQ(Needs(), before);
}

}  // namespace
}  // namespace frontend
