#include "frontend/commands/approval_test.h"

namespace frontend {
namespace {

using testing::HasSubstr;
using testing::Not;

class RequestLists : public ApprovalCli {};

TEST_F(RequestLists, WaitlistOfADateShowsWhoWaits) {
    const auto done = Run({"waitlist", "--date", "62"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(
        done.out,
        "SemWartelisteID  MDNr  PersGr  TNID  NameVorname    ErfDat               Herkunft  Wunschtermin  Consent  GeaendertAm          GeaendertVon\n"
        "---------------  ----  ------  ----  -------------  -------------------  --------  ------------  -------  -------------------  ------------\n"
        "             35     1  AN       311  Kuhn, Jörg     2010-08-06 07:24:30         1  NULL          yes      2010-08-06 07:24:30  spuetz\n"
        "             39     1  AN       271  Bauer, Felix   2010-08-16 10:31:56         1  NULL          yes      2010-08-16 10:31:56  spuetz\n"
        "             52     1  AN       221  Becker, Julia  2010-08-31 08:06:49         1  NULL          yes      2010-08-31 08:06:49  spuetz\n");
    EXPECT_EQ(done.err, "3 requests\n");
}

TEST_F(RequestLists, WaitlistOfAPersonShowsTheDates) {
    EXPECT_EQ(Run({"waitlist", "--person", "311", "--format", "csv"}).out,
              "SemWartelisteID,SemTerminID,Code,Titel,ErfDat,Herkunft,Wunschtermin,Consent,GeaendertAm,GeaendertVon\n"
              "35,62,QS-202/10-1,\"Koordinatenmesstechnik, Stufe 1\",2010-08-06T07:24:30,1,,true,2010-08-06T07:24:30,spuetz\n"
              "45,70,FT-101/10-1,\"Zeichnungen lesen: Maße, Passungen, Oberflächen\",2010-08-26T08:04:45,3,,true,"
              "2010-08-26T08:04:45,jkuhn\n");
    EXPECT_EQ(Json({"waitlist", "--person", "140", "--client", "2"}).size(), 2U);
}

TEST_F(RequestLists, WaitlistShowsAConsentThatWasWithdrawn) {
    const auto list = Json({"waitlist", "--person", "163"});
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0], nlohmann::json::parse(R"({"SemWartelisteID": 42, "SemTerminID": 64, "Code": "AS-10/10-2",
        "Titel": "Erste Hilfe: Grundausbildung", "ErfDat": "2010-08-25T08:28:31", "Herkunft": 3, "Wunschtermin": null,
        "Consent": false, "GeaendertAm": "2010-08-27T16:50:48", "GeaendertVon": "mkoehler"})"));
}

TEST_F(RequestLists, TemporaryWorkersAndApplicantsAreNamed) {
    const auto waiting = Json({"waitlist", "--date", "66"});
    ASSERT_EQ(waiting.size(), 2U);
    EXPECT_EQ(waiting[0]["PersGr"], "LA");
    EXPECT_EQ(waiting[0]["NameVorname"], "Fernández, Nuno");
    const auto interested = Json({"interest", "--seminar", "7"});
    ASSERT_EQ(interested.size(), 1U);
    EXPECT_EQ(interested[0]["PersGr"], "BW");
    EXPECT_EQ(interested[0]["NameVorname"], "Silva, Detlef");
    EXPECT_EQ(interested[0]["Wunschtermin"], "2010-11-02T00:00:00");
}

TEST_F(RequestLists, APersonWithoutARowHasNoName) {
    Sql("update Sem_Warteliste_IT set TNID = 9999 where SemWarteListeID = 35");
    EXPECT_EQ(Json({"waitlist", "--date", "62"})[0]["NameVorname"], "");
}

TEST_F(RequestLists, WaitlistShowsTheStateOfTheApprovalIfWanted) {
    Sql("insert into Sem_ProzessSchritt_IT (ModulNr, SchluesselID, SchrittNr, Art, Zeitpunkt, Status, NaechsteStufe) values "
        "(8, 35, 1, 'Start', getdate(), 1, 2), (8, 39, 1, 'Zustimmung', getdate(), 2, null)");
    const auto list = Json({"waitlist", "--date", "62", "--state"});
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(list[0]["Process"], kAtSecond);
    EXPECT_EQ(list[1]["Process"], kApproved);
    EXPECT_EQ(list[2]["Process"], kNoProcess);
    EXPECT_EQ(Json({"waitlist", "--person", "271", "--state"})[0]["Process"], kApproved);
    EXPECT_FALSE(Json({"waitlist", "--date", "62"})[0].contains("Process"));
}

TEST_F(RequestLists, TheStateCostsOneSelectMoreAndTwoWhilePending) {
    Sql("insert into Sem_ProzessSchritt_IT (ModulNr, SchluesselID, SchrittNr, Art, Zeitpunkt, Status, NaechsteStufe) values "
        "(8, 35, 1, 'Start', getdate(), 1, 2), (8, 39, 1, 'Zustimmung', getdate(), 2, null)");
    const auto without = Run({"waitlist", "--date", "62", "--trace"});
    const auto with = Run({"waitlist", "--date", "62", "--state", "--trace"});
    EXPECT_THAT(without.err, Not(HasSubstr("Sem_Prozess")));
    EXPECT_EQ(Lines(with.err), Lines(without.err) + 2U + 1U + 1U);
}

TEST_F(RequestLists, InterestInASeminar) {
    const auto done = Run({"interest", "--seminar", "26"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(
        done.out,
        "SemWartelisteID  MDNr  PersGr  TNID  NameVorname        ErfDat               Herkunft  Wunschtermin  Consent  GeaendertAm  GeaendertVon\n"
        "---------------  ----  ------  ----  -----------------  -------------------  --------  ------------  -------  -----------  ------------\n"
        "              3     1  AN       184  Löffler, Jakob     2009-11-24 08:13:05         2  NULL          no       NULL\n"
        "              4     1  AN       159  Breuer, Hannelore  2009-11-24 10:57:38         2  NULL          no       NULL\n"
        "              5     1  AN       196  Ostermann, Axel    2009-11-24 15:58:50         2  NULL          no       NULL\n");
    EXPECT_EQ(done.err, "3 requests\n");
}

TEST_F(RequestLists, InterestOfAPerson) {
    EXPECT_EQ(Run({"interest", "--person", "131", "--format", "csv"}).out,
              "SemWartelisteID,SemID,SemCode,SemTitel,ErfDat,Herkunft,Wunschtermin,Consent,GeaendertAm,GeaendertVon\n"
              "24,34,FT-150,Additive Fertigung: 3D-Druck in Metall,2010-05-11T11:19:20,4,2011-01-17T00:00:00,true,"
              "2010-05-11T11:19:20,spuetz\n");
}

TEST_F(RequestLists, ListsOfNothing) {
    EXPECT_EQ(Run({"waitlist", "--date", "79"}).err, "0 requests\n");
    EXPECT_EQ(Json({"waitlist", "--person", "130"}), nlohmann::json::array());
    EXPECT_EQ(Json({"interest", "--seminar", "3"}), nlohmann::json::array());
    EXPECT_EQ(Json({"interest", "--person", "130"}), nlohmann::json::array());
}

TEST_F(RequestLists, ListsOfWhatIsNotThere) {
    ExpectRefused(Run({"waitlist", "--date", "67"}), "There is no date 67 of client 1.");
    ExpectRefused(Run({"waitlist", "--person", "9999"}), "There is no employee 9999 of client 1.");
    ExpectRefused(Run({"interest", "--person", "9999"}), "There is no employee 9999 of client 1.");
    const auto seminar = Run({"interest", "--seminar", "999"});
    EXPECT_EQ(seminar.code, 1);
    EXPECT_EQ(seminar.out, "");
    EXPECT_THAT(seminar.err, HasSubstr("lumoseminar: "));
}

TEST_F(RequestLists, RefusedListsAreToldWithTheirLabels) {
    Sql("drop table Sem_WartelisteTermin_IT");
    const std::string told = "The database refused it: Invalid object name 'Sem_WartelisteTermin_IT'.";
    for (const Arguments& arguments : {Arguments{"waitlist", "--date", "62"}, Arguments{"waitlist", "--person", "311"},
                                       Arguments{"interest", "--seminar", "26"}, Arguments{"interest", "--person", "131"}}) {
        ExpectRefused(Run(arguments), told);
        auto verbose = arguments;
        verbose.emplace_back("--verbose");
        EXPECT_THAT(Run(verbose).err, HasSubstr("\n    in LumoSeminar.LoadList\n"));
    }
}

TEST_F(RequestLists, TheStateNeedsTheTablesOfTheProcessesAndNothingElseDoes) {
    Sql("drop table Sem_ProzessSchritt_IT");
    ExpectRefused(Run({"waitlist", "--date", "62", "--state"}),
                  "The database refused it: Invalid object name 'Sem_ProzessSchritt_IT'.");
    EXPECT_EQ(Json({"waitlist", "--date", "62"}).size(), 3U);
}

TEST_F(RequestLists, WrongUsage) {
    ExpectUsage(Run({"waitlist"}), "Give one of --date N and --person PERSON.", "waitlist");
    ExpectUsage(Run({"waitlist", "--date", "62", "--person", "1"}), "Give one of --date N and --person PERSON.", "waitlist");
    ExpectUsage(Run({"waitlist", "--date", "x"}), "--date: \"x\" is not a whole number.", "waitlist");
    ExpectUsage(Run({"waitlist", "--person", "+"}), "--person: \"+\" is neither a number nor a name.", "waitlist");
    ExpectUsage(Run({"interest"}), "Give one of --seminar N and --person PERSON.", "interest");
    ExpectUsage(Run({"interest", "--seminar", "1", "--person", "1"}), "Give one of --seminar N and --person PERSON.", "interest");
    ExpectUsage(Run({"interest", "--seminar", ""}), "--seminar: \"\" is not a whole number.", "interest");
    ExpectUsage(Run({"interest", "--person", "1", "--state"}), "There is no option --state.", "interest");
}

}  // namespace
}  // namespace frontend
