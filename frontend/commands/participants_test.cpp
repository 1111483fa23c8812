#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {
namespace {

using testing::AnyOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ParticipantsCommand : public Cli {
  protected:
    ParticipantsCommand() { UseSample(); }

    void Sql(const std::string& text) const {
        const auto done = Run({"sql", text});
        ASSERT_EQ(done.code, 0) << done.err;
    }

    int Count(const std::string& table, const std::string& where) const {
        return Json({"sql", "select count(*) as n from " + table + " where " + where})[0]["n"];
    }

    nlohmann::json Row(int key) const {
        return Json({"sql", "select * from Sem_Teilnehmer_IT where TeilnehmerID = " + std::to_string(key)})[0];
    }

    // On all lists there are.
    int Waiting() const { return Count("Sem_Warteliste_IT", "1 = 1"); }

    std::string Today() const {
        return Json({"sql", "select getdate() as Heute"})[0]["Heute"].get<std::string>().substr(0, 10);
    }

    std::string CostsAsCsv(int key) const {
        return Run({"participants", "costs", std::to_string(key), "--format", "csv"}).out;
    }

    // From now on the database keeps this row: its deletion is refused.
    void Hold(const std::string& table, const std::string& columns, const std::string& values) const {
        const auto column = [](const std::string& names) {
            return names.substr(0, names.find(',')) + " int not null" +
                   (names.find(',') == std::string::npos ? "" : "," + names.substr(names.find(',') + 1) + " int not null");
        };
        Sql("create table Halt (" + column(columns) + ", constraint FK_Halt foreign key (" + columns + ") references " +
            table + " (" + columns + ")) insert into Halt values (" + values + ")");
    }
};

constexpr const char* kUnknown = "lumoseminar: There is no participant 999 of client 1.\n";

TEST_F(ParticipantsCommand, ListShowsPersonsStatesDaysAndCosts) {
    const auto done = Run({"participants", "list", "61"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(
        done.out,
        "TeilnehmerID  MDNr  PersGr  PersNr  NameVorname          State      BeginnDatum  EndeDatum   Days  TeilnehmerKosten\n"
        "------------  ----  ------  ------  -------------------  ---------  -----------  ----------  ----  ----------------\n"
        "         469     1  AN      166     Rüsing, Ute          cancelled  2010-09-06   2010-09-10     5              0.00\n"
        "         470     1  AN      311     Kuhn, Jörg           enrolled   2010-09-06   2010-09-10     5           1250.00\n"
        "         471     1  AN      309     Schmidt, Heike       enrolled   2010-09-06   2010-09-10     5           1250.00\n"
        "         478     1  AN      217     Kühn, Maren          enrolled   2010-09-06   2010-09-10     5           1250.00\n"
        "         487     1  AN      201     Maier, Alexander     enrolled   2010-09-06   2010-09-10     5           1250.00\n"
        "         488     1  AN      151     Preuß, Katharina     cancelled  2010-09-06   2010-09-10     5            300.00\n"
        "         504     1  AN      156     Winkler, Oliver      enrolled   2010-09-06   2010-09-10     5           1250.00\n"
        "         507     1  AN      294     Esposito, Salvatore  enrolled   2010-09-06   2010-09-10     5           1250.00\n");
    EXPECT_EQ(done.err, "8 participants, 0 of 6 places free\n");
}

TEST_F(ParticipantsCommand, ListOfThoseEnrolled) {
    const auto done = Run({"participants", "list", "61", "--enrolled"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(Lines(done.out), 2U + 6U);
    EXPECT_THAT(done.out, Not(HasSubstr("cancelled")));
    EXPECT_EQ(done.err, "6 participants, 0 of 6 places free\n");
    EXPECT_THAT(Run({"participants", "list", "61", "--enrolled", "--trace"}).err,
                HasSubstr("SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = 61 AND Teilnahme <> 0\n"));
}

TEST_F(ParticipantsCommand, ListSaysHowManyPlacesAreLeft) {
    EXPECT_EQ(Run({"participants", "list", "78"}).err, "9 participants, 2 of 10 places free\n");
    Sql("update Sem_Teilnehmer_IT set Teilnahme = -1 where TeilnehmerID = 469");
    EXPECT_EQ(Run({"participants", "list", "61"}).err, "8 participants, overbooked by 1\n");
    EXPECT_EQ(Run({"participants", "list", "61", "--enrolled"}).err, "7 participants, overbooked by 1\n");
    EXPECT_EQ(Run({"participants", "list", "79"}).err, "0 participants, no limit of places\n");
    EXPECT_EQ(Run({"participants", "list", "79", "--format", "json"}).err, "");
    EXPECT_EQ(Json({"participants", "list", "79"}), nlohmann::json::array());
}

TEST_F(ParticipantsCommand, ListCountsTheDaysOfAttendance) {
    Sql("update Sem_Teilnehmer_IT set BeginnDatum = '20100907', EndeDatum = '20100908' where TeilnehmerID = 470 "
        "update Sem_Teilnehmer_IT set BeginnDatum = null, EndeDatum = '20100908' where TeilnehmerID = 471");
    const auto list = Json({"participants", "list", "61"});
    EXPECT_EQ(list[1]["Days"], 2);
    EXPECT_EQ(list[1]["BeginnDatum"], "2010-09-07T00:00:00");
    EXPECT_EQ(list[2]["Days"], 3);
    EXPECT_EQ(list[2]["BeginnDatum"], "2010-09-06T00:00:00") << "that of the date";
}

TEST_F(ParticipantsCommand, ListOfWhatIsNotThereOrRefused) {
    const auto unknown = Run({"participants", "list", "67"});
    EXPECT_EQ(unknown.code, 1);
    EXPECT_EQ(unknown.out, "");
    EXPECT_EQ(unknown.err, "lumoseminar: There is no date 67 of client 1.\n");
    EXPECT_EQ(Json({"participants", "list", "67", "--client", "2"}).size(), 3U);
    Sql("drop table Sem_Teilnehmer_IT");
    const auto refused = Run({"participants", "list", "61"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err, "lumoseminar: The database refused it: Invalid object name 'Sem_Teilnehmer_IT'.\n");
}

TEST_F(ParticipantsCommand, SetChangesColumnsAndShowsTheRecord) {
    const auto done =
        Run({"participants", "set", "505", "ergebnis=2", "Bemerkung=kam \"später\"", "--end", "30.09.2010", "--to", "12:30"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out,
              "TeilnehmerID      505\n"
              "SemTerminID       60\n"
              "MDNr              1\n"
              "ANNr              174\n"
              "BWID              0\n"
              "LAID              0\n"
              "ErfDatum          2010-07-16\n"
              "ErfUser           sthieme\n"
              "Teilnahme         yes\n"
              "Herkunft          3\n"
              "BeginnDatum       2010-09-02\n"
              "BegUhrzeit        09:00\n"
              "EndeDatum         2010-09-30\n"
              "EndUhrzeit        12:30\n"
              "storniertam       NULL\n"
              "StornoGrund       0\n"
              "StornoKosten      0\n"
              "Ergebnis          2\n"
              "Bemerkung         kam \"später\"\n"
              "PersGr            AN\n"
              "PersNr            174\n"
              "NameVorname       Lorenz, Sandra\n"
              "TeilnehmerKosten  907.80\n");
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(Count("Sem_Teilnehmer_Kosten_IT", "TeilnehmerID = 505"), 2);
}

TEST_F(ParticipantsCommand, SetMovesAParticipantToAnotherDate) {
    const auto moved =
        Json({"participants", "set", "505", "SemTerminID=78", "BeginnDatum=", "EndeDatum=", "BegUhrzeit=", "EndUhrzeit="});
    EXPECT_EQ(moved["SemTerminID"], 78);
    EXPECT_EQ(moved["BeginnDatum"], "2010-11-24T00:00:00") << "that of the other date";
    EXPECT_EQ(moved["EndeDatum"], "2010-11-24T00:00:00");
    EXPECT_EQ(moved["EndUhrzeit"], "16:30");
    const auto nowhere = Run({"participants", "set", "505", "SemTerminID=67"});
    EXPECT_EQ(nowhere.code, 1);
    EXPECT_EQ(nowhere.out, "");
    EXPECT_EQ(nowhere.err, "lumoseminar: There is no date 67 of client 1.\n");
    EXPECT_EQ(Row(505)["SemTerminID"], 78);
}

TEST_F(ParticipantsCommand, SetTakesACancellationBack) {
    const auto back = Json({"participants", "set", "488", "Teilnahme=-1", "storniertam=", "StornoGrund=0", "StornoKosten=0"});
    EXPECT_EQ(back["Teilnahme"], true);
    EXPECT_TRUE(back["storniertam"].is_null());
    EXPECT_EQ(Row(488)["storniertam"], "1899-12-30T00:00:00") << "stored as day 0";
}

TEST_F(ParticipantsCommand, SetThatIsRefusedChangesNothing) {
    const auto before = Row(505);
    const auto done = Run({"participants", "set", "505", "Ergebnis=2", "Bemerkung=" + std::string(256, 'x')});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: The database refused it: "));
    EXPECT_EQ(Row(505), before);
}

TEST_F(ParticipantsCommand, ParticipantsAreReachedThroughTheirDate) {
    for (const Arguments& arguments :
         {Arguments{"participants", "set", "999", "Ergebnis=2"}, Arguments{"participants", "cancel", "999"},
          Arguments{"participants", "remove", "--yes", "505", "999"},
          Arguments{"participants", "costs", "999", "--add", "1"}}) {
        const auto done = Run(arguments);
        EXPECT_EQ(done.code, 1);
        EXPECT_EQ(done.out, "");
        EXPECT_EQ(done.err, kUnknown);
    }
    EXPECT_EQ(Count("Sem_Teilnehmer_IT", "TeilnehmerID = 505"), 1);
    EXPECT_EQ(Run({"participants", "costs", "439"}).err, "lumoseminar: There is no participant 439 of client 1.\n");
    EXPECT_EQ(Run({"participants", "costs", "439", "--client", "2"}).code, 0);
    Sql("drop table Sem_Teilnehmer_IT");
    const auto refused = Run({"participants", "cancel", "505"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.err, "lumoseminar: The database refused it: Invalid object name 'Sem_Teilnehmer_IT'.\n");
}

TEST_F(ParticipantsCommand, CancelStoresDayReasonAndCosts) {
    const int waiting = Waiting();
    const auto cancelled = Json({"participants", "cancel", "505", "--on", "30.08.2010", "--reason", "2", "--cost", "150"});
    EXPECT_EQ(cancelled["Teilnahme"], false);
    EXPECT_EQ(cancelled["storniertam"], "2010-08-30T00:00:00");
    EXPECT_EQ(cancelled["StornoGrund"], 2);
    EXPECT_EQ(cancelled["StornoKosten"], 150);
    EXPECT_EQ(cancelled["TeilnehmerKosten"], 150);
    EXPECT_EQ(Count("Sem_Teilnehmer_Kosten_IT", "TeilnehmerID = 505"), 2) << "cost lines stay";
    EXPECT_EQ(Waiting(), waiting);
}

TEST_F(ParticipantsCommand, CancelWithoutADayIsOfToday) {
    const auto before = Today();
    const auto cancelled = Json({"participants", "cancel", "505"});
    EXPECT_THAT(cancelled["storniertam"].get<std::string>(), AnyOf(before + "T00:00:00", Today() + "T00:00:00"));
    EXPECT_EQ(cancelled["StornoGrund"], 0);
    EXPECT_EQ(cancelled["StornoKosten"], 0);
}

TEST_F(ParticipantsCommand, CancelOfOneWhoIsCancelledAlready) {
    const auto before = Row(488);
    const int waiting = Waiting();
    const auto done = Run({"participants", "cancel", "488", "--to-waitlist"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: Participant 488 is cancelled already, since 24.08.2010.\n");
    EXPECT_EQ(Row(488), before);
    EXPECT_EQ(Waiting(), waiting);
    Sql("update Sem_Teilnehmer_IT set storniertam = null where TeilnehmerID = 488");
    EXPECT_EQ(Run({"participants", "cancel", "488"}).err, "lumoseminar: Participant 488 is cancelled already.\n");
}

constexpr const char* kInterested =
    "Sem_Warteliste_IT inner join Sem_WartelisteSem_IT on Sem_Warteliste_IT.SemWarteListeID = "
    "Sem_WartelisteSem_IT.SemWarteListeID";

TEST_F(ParticipantsCommand, CancelPutsThePersonOnTheInterestListOfTheSeminar) {
    const auto done = Run({"participants", "cancel", "505", "--on", "2010-08-30", "--to-waitlist"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_THAT(done.out, HasSubstr("\nTeilnahme         no\n"));
    EXPECT_EQ(done.err, "on the interest list of seminar 31\n");
    EXPECT_EQ(Count(kInterested, "SemID = 31 and ModID = 2 and MDNr = 1 and TNID = 174 and Herkunft = 2"), 1);
    EXPECT_EQ(Row(505)["Teilnahme"], 0);
}

TEST_F(ParticipantsCommand, CancelOfADateWithoutASeminarPutsThePersonOnItsWaitList) {
    ASSERT_EQ(Run({"participants", "enrol", "81", "130"}).code, 0);
    const auto done = Run({"participants", "cancel", "642", "--to-waitlist"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.err, "on the wait-list of date 81\n");
    EXPECT_EQ(Count("Sem_Warteliste_IT inner join Sem_WartelisteTermin_IT on Sem_Warteliste_IT.SemWarteListeID = "
                    "Sem_WartelisteTermin_IT.SemWarteListeID",
                    "SemTerminID = 81 and TNID = 130 and Herkunft = 2"),
              1);
}

TEST_F(ParticipantsCommand, CancelLeavesTheEnrolmentWhereTheWaitListIsRefused) {
    Sql("drop table Sem_WartelisteSem_IT");
    const auto before = Row(505);
    const auto done = Run({"participants", "cancel", "505", "--to-waitlist"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: The database refused it: Invalid object name 'Sem_WartelisteSem_IT'.\n");
    EXPECT_THAT(Run({"participants", "cancel", "505", "--to-waitlist", "--verbose"}).err,
                HasSubstr("\n    LumoSeminar.clsTeilnehmer.TeilnehmerInWarteliste\n"));
    EXPECT_EQ(Row(505), before);
}

TEST_F(ParticipantsCommand, CancelThatIsRefusedBehindTheWaitListCanBeGivenOnceMore) {
    const auto Interested = [&] { return Count(kInterested, "SemID = 31 and TNID = 174 and Herkunft = 2"); };
    // A day that the calendar of the database does not reach.
    const auto refused = Run({"participants", "cancel", "505", "--to-waitlist", "--on", "1.1.1700"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_THAT(refused.err, StartsWith("lumoseminar: Participant 505 waits now, but is still enrolled.\n"
                                        "lumoseminar: The database refused it: "));
    EXPECT_EQ(Row(505)["Teilnahme"], -1);
    EXPECT_EQ(Interested(), 1);
    EXPECT_EQ(Run({"participants", "cancel", "505", "--to-waitlist"}).code, 0);
    EXPECT_EQ(Row(505)["Teilnahme"], 0);
    EXPECT_EQ(Interested(), 1) << "no second entry";
}

TEST_F(ParticipantsCommand, RemoveTakesTheCostLinesWithIt) {
    const auto done = Run({"participants", "remove", "--yes", "505", "469", "505"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out,
              "TeilnehmerID  NameVorname     Outcome  CostLines\n"
              "------------  --------------  -------  ---------\n"
              "         505  Lorenz, Sandra  removed          2\n"
              "         469  Rüsing, Ute     removed          0\n");
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(Count("Sem_Teilnehmer_IT", "TeilnehmerID in (469, 505)"), 0);
    EXPECT_EQ(Count("Sem_Teilnehmer_Kosten_IT", "TeilnehmerID = 505"), 0);
}

TEST_F(ParticipantsCommand, RemoveThatIsRefusedKeepsTheCostLines) {
    Hold("Sem_Teilnehmer_IT", "TeilnehmerID", "505");
    const auto done = Run({"participants", "remove", "--yes", "469", "505", "470"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out,
              "TeilnehmerID  NameVorname  Outcome  CostLines\n"
              "------------  -----------  -------  ---------\n"
              "         469  Rüsing, Ute  removed          0\n");
    EXPECT_THAT(done.err, StartsWith("lumoseminar: The database refused it: The DELETE statement conflicted with"));
    EXPECT_EQ(Count("Sem_Teilnehmer_IT", "TeilnehmerID in (469, 470, 505)"), 2);
    EXPECT_EQ(Count("Sem_Teilnehmer_Kosten_IT", "TeilnehmerID = 505"), 2);
}

TEST_F(ParticipantsCommand, RemoveTellsCostLinesThatStayBehind) {
    Hold("Sem_Teilnehmer_Kosten_IT", "TeilnehmerID, KostenID", "505, 2");
    const auto done = Run({"participants", "remove", "--yes", "505", "470", "--verbose"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out,
              "TeilnehmerID  NameVorname     Outcome                 CostLines\n"
              "------------  --------------  ----------------------  ---------\n"
              "         505  Lorenz, Sandra  removed, its costs not          2\n");
    EXPECT_THAT(done.err, HasSubstr("\n    in LumoSeminar.DeleteFromDatabase\n"));
    EXPECT_EQ(Count("Sem_Teilnehmer_IT", "TeilnehmerID in (470, 505)"), 1);
    EXPECT_EQ(Count("Sem_Teilnehmer_Kosten_IT", "TeilnehmerID = 505"), 1);
}

TEST_F(ParticipantsCommand, CostsShowsTheLines) {
    const auto done = Run({"participants", "costs", "505"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out,
              "KostenID  KostenArtID  KostenArt         Kostenbetrag  Kost\n"
              "--------  -----------  ----------------  ------------  ----\n"
              "       1            1  Teilnehmerkosten        870.00  4320\n"
              "       2            2  Reisekosten              37.80  4320\n");
    EXPECT_EQ(done.err, "2 cost lines, 907.80 in all\n");
    const auto cancelled = Run({"participants", "costs", "488"});
    EXPECT_EQ(cancelled.code, 0);
    EXPECT_EQ(cancelled.err, "cancelled: 300.00 in place of the cost lines\n");
}

TEST_F(ParticipantsCommand, CostsAddsALine) {
    const auto done = Run({"participants", "costs", "505", "--add", "49.90", "--centre", "5200", "--type", "4"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.err, "3 cost lines, 957.70 in all\n");
    EXPECT_EQ(CostsAsCsv(505),
              "KostenID,KostenArtID,KostenArt,Kostenbetrag,Kost\n"
              "1,1,Teilnehmerkosten,870.00,4320\n"
              "2,2,Reisekosten,37.80,4320\n"
              "3,4,Verpflegung,49.90,5200\n");
}

TEST_F(ParticipantsCommand, CostsAddsALineOfTheUsualType) {
    const auto lines = Json({"participants", "costs", "469", "--add", "12"});
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0], nlohmann::json::parse(R"({"KostenID": 1, "KostenArtID": 1, "KostenArt": "Teilnehmerkosten",
                                                  "Kostenbetrag": 12, "Kost": 0})"));
}

TEST_F(ParticipantsCommand, CostsOfAnAmountThatIsNoMoneyShowsTheNumber) {
    Sql("update Sem_Teilnehmer_Kosten_IT set Kostenbetrag = 1e20 where TeilnehmerID = 505 and KostenID = 2");
    EXPECT_THAT(CostsAsCsv(505), EndsWith("\n2,2,Reisekosten,1e+20,4320\n"));
    EXPECT_EQ(Run({"participants", "costs", "505"}).err, "2 cost lines, 1E+20 in all\n");
}

TEST_F(ParticipantsCommand, CostsThatAreRefusedAreNotAdded) {
    Sql("drop table sysIData_KostenArten");
    const auto done = Run({"participants", "costs", "505", "--add", "12"});
    EXPECT_EQ(done.code, 1);
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: The database refused it: Invalid object name 'sysIData_KostenArten'.\n");
    EXPECT_THAT(Run({"participants", "costs", "505", "--add", "12", "--verbose"}).err,
                HasSubstr("\n    in LumoSeminar.WriteToDatabase\n"));
    EXPECT_EQ(Count("Sem_Teilnehmer_Kosten_IT", "TeilnehmerID = 505"), 2);
}

TEST_F(ParticipantsCommand, WrongUsageChangesNothing) {
    const auto before = Row(505);
    ExpectUsage(Run({"participants"}), "A command is missing: list, enrol, set, cancel, remove, costs.", "participants");
    ExpectUsage(Run({"participants", "list"}), "DATE is missing: SemTerminID of the date.", "participants list");
    ExpectUsage(Run({"participants", "list", "x"}), "DATE: \"x\" is not a whole number.", "participants list");
    const char* const set = "participants set";
    ExpectUsage(Run({"participants", "set", "505"}), "Nothing to set: name a column and its value.", set);
    ExpectUsage(Run({"participants", "set", "505", "Ergebnis"}), "\"Ergebnis\" is not of the form column=value.", set);
    ExpectUsage(Run({"participants", "set", "505", "Titel=A"}), "A participant has no column \"Titel\".", set);
    ExpectUsage(Run({"participants", "set", "505", "TeilnehmerID=7"}), "TeilnehmerID is the key and cannot be changed.", set);
    ExpectUsage(Run({"participants", "set", "505", "Bemerkung=A", "--attendance", "40000"}),
                "--attendance: \"40000\" is neither yes nor no.", set);
    const char* const cancel = "participants cancel";
    ExpectUsage(Run({"participants", "cancel", "505", "--on", "neulich"}),
                "--on: \"neulich\" is not a day; write it as 1.3.2027 or 2027-03-01, or as today, tomorrow, Mo or +7d.",
                cancel);
    ExpectUsage(Run({"participants", "cancel", "505", "--cost", "49.90"}), "--cost: \"49.90\" is not a whole number.", cancel);
    ExpectUsage(Run({"participants", "cancel", "505", "--reason", "krank"}),
                "--reason: \"krank\" is not a whole number.", cancel);
    ExpectUsage(Run({"participants", "remove"}), "KEY is missing: TeilnehmerID of each participant.", "participants remove");
    ExpectUsage(Run({"participants", "remove", "--yes", "505", "x"}), "KEY: \"x\" is not a whole number.", "participants remove");
    const char* const costs = "participants costs";
    ExpectUsage(Run({"participants", "costs", "505", "--add", "viel"}),
                "--add: \"viel\" is not an amount; write it as 149.50 or 149,50.", costs);
    ExpectUsage(Run({"participants", "costs", "505", "--centre", "4320"}), "--centre goes with --add only.", costs);
    ExpectUsage(Run({"participants", "costs", "505", "--type", "1"}), "--type goes with --add only.", costs);
    EXPECT_EQ(Row(505), before);
}

}  // namespace
}  // namespace frontend
