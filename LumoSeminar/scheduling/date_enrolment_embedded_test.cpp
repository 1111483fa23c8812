#include <gtest/gtest.h>

#include <map>
#include <set>

#include <LumoSeminar/catalogue/focus_areas.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/colTermine.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>
#include <test_support/termin_properties.h>

namespace LumoSeminar {
namespace {

using termin_properties::Bound;
using test_support::Rows;
using test_support::SampleDatabase;
using test_support::SchemaDatabase;
using test_support::Select;
using test_support::Value;
using test_support::Write;

/// New participants take the day and the user from outside the database.
using DateEnrolmentForReal = participant_statements::ParticipantTest;

constexpr Int32 kUserID = 11;

Int32 CountOf(DataSession& session, const Text& rows) {
    return To<Int32>(Value(session, "SELECT COUNT(*) FROM " + rows));
}

void AddDate(DataSession& session, int key, const Text& limit = "10") {
    Write(session,
          "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, MaxTeil) VALUES (" + std::to_string(key) + ", 1, " + limit + ")");
}

/// @param participation  as it stands in the statement
void Enrol(DataSession& session, int key, int date, const Text& participation = "-1") {
    Write(session, "INSERT INTO Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, Teilnahme, Bemerkung) VALUES (" +
                       std::to_string(key) + ", " + std::to_string(date) + ", " + participation + ", N'O''Neill \"Süd\"')");
}

void AddFocusArea(DataSession& session, int key, int date, const Text& name) {
    Write(session, "INSERT INTO sysIData_WBS (WBS_ID, Weiterbildungsschwerpunkt) VALUES (" + std::to_string(key) +
                       ", N'" + name + "')");
    Write(session, "INSERT INTO Sem_Termin_Schwerpunkte_IT (SchwerpunktID, SemTerminID) VALUES (" +
                       std::to_string(key) + ", " + std::to_string(date) + ")");
}

/// Rows of another table that hold on to one of a column.
void HoldOnTo(DataSession& session, const Text& table, const Text& column, int key) {
    Write(session, "CREATE TABLE Urkunden (ID int NOT NULL, CONSTRAINT FK_Urkunden FOREIGN KEY (ID) REFERENCES " +
                       table + " (" + column + "))");
    Write(session, "INSERT INTO Urkunden (ID) VALUES (" + std::to_string(key) + ")");
}

// Places.

TEST_F(DateEnrolmentForReal, EveryDateOfTheSampleHasItsParticipantsItsFocusAreasAndItsPlaces) {
    const auto session = SampleDatabase();
    std::map<Int32, std::set<Int32>> participants;
    std::map<Int32, Int32> enrolled;
    for (const auto& row : Select(*session, "SELECT SemTerminID, TeilnehmerID, Teilnahme FROM Sem_Teilnehmer_IT")) {
        const auto date = To<Int32>(row[0]);
        participants[date].insert(To<Int32>(row[1]));
        enrolled[date] += To<Int32>(row[2]) != 0;
    }
    std::map<Int32, std::set<Int32>> focus_areas;
    for (const auto& row : Select(*session, "SELECT SemTerminID, SchwerpunktID FROM Sem_Termin_Schwerpunkte_IT")) {
        focus_areas[To<Int32>(row[0])].insert(To<Int32>(row[1]));
    }
    Int32 all = 0;
    std::set<Int32> overbooked;
    for (const auto& row : Select(*session, "SELECT SemTerminID, Isnull(MaxTeil,0) FROM Sem_Termin_IT")) {
        const auto key = To<Int32>(row[0]);
        SCOPED_TRACE(key);
        const auto date = Bound(session, key);
        EXPECT_EQ(date->AnzAnmeldungen(), enrolled[key]);
        EXPECT_EQ(date->AnzFreiePlaetze(), To<Int32>(row[1]) - enrolled[key]);
        if (date->AnzFreiePlaetze() < 0) overbooked.insert(key);
        all += date->AnzAnmeldungen();
        std::set<Int32> listed;
        for (const auto& record : date->clscolTeilnehmer()->NewEnum()) listed.insert(record->TeilnehmerID());
        EXPECT_EQ(listed, participants[key]);
        listed.clear();
        for (const auto& focus_area : date->clscolSemTerminSchwerpunkte()->NewEnum()) {
            listed.insert(focus_area->SchwerpunktID());
            EXPECT_NE(focus_area->WBS(), "");
        }
        EXPECT_EQ(listed, focus_areas[key]);
    }
    EXPECT_EQ(all, 574) << "of 641, the others are cancelled";
    EXPECT_EQ(Bound(session, 64)->AnzFreiePlaetze(), -2);
    EXPECT_TRUE(overbooked.contains(64));
}

TEST_F(DateEnrolmentForReal, OfThreeParticipantsOneCancelledTwoAreEnrolled) {
    const auto session = SchemaDatabase();
    AddDate(*session, 1);
    AddDate(*session, 2, "NULL");
    for (const int date : {1, 2}) {
        Enrol(*session, 3 * date, date);
        Enrol(*session, 3 * date + 1, date, "0");
        Enrol(*session, 3 * date + 2, date, "NULL");
    }
    EXPECT_EQ(Bound(session, 1)->AnzAnmeldungen(), 2);
    EXPECT_EQ(Bound(session, 1)->AnzFreiePlaetze(), 8);
    EXPECT_EQ(Bound(session, 2)->AnzFreiePlaetze(), -2) << "no limit";
    EXPECT_EQ(Bound(session, 1)->clscolTeilnehmer()->Item(1)->Bemerkung(), "O'Neill \"Süd\"");
    EXPECT_EQ(Bound(session, 3)->AnzFreiePlaetze(), 0) << "a date without a row";
}

TEST_F(DateEnrolmentForReal, LimitsThatAreOutOfReachRaiseOverflow) {
    const auto session = SchemaDatabase();
    AddDate(*session, 1, "32768");
    AddDate(*session, 2, "-32768");
    EXPECT_RAISES(6, Bound(session, 1)->AnzFreiePlaetze());
    EXPECT_EQ(Bound(session, 2)->AnzFreiePlaetze(), -32768);
    for (const int date : {1, 2}) Enrol(*session, date, date);
    EXPECT_EQ(Bound(session, 1)->AnzFreiePlaetze(), 32767);
    EXPECT_RAISES(6, Bound(session, 2)->AnzFreiePlaetze());
}

TEST_F(DateEnrolmentForReal, FiguresStayAsFirstReadByTheirObject) {
    const auto session = SampleDatabase();
    const auto date = Bound(session, 62);
    EXPECT_EQ(date->AnzAnmeldungen(), 6);
    const Int16 places = date->AnzFreiePlaetze();
    Enrol(*session, 642, 62);
    Write(*session, "UPDATE Sem_Termin_IT SET MaxTeil = MaxTeil + 5 WHERE SemTerminID = 62");
    EXPECT_EQ(date->AnzAnmeldungen(), 6);
    EXPECT_EQ(date->AnzFreiePlaetze(), places);
    EXPECT_EQ(Bound(session, 62)->AnzAnmeldungen(), 7);
    EXPECT_EQ(Bound(session, 62)->AnzFreiePlaetze(), places + 4);
}

TEST_F(DateEnrolmentForReal, AParticipantIsEnrolledAndCancelledThroughTheListOfTheDate) {
    const auto session = SchemaDatabase();
    AddDate(*session, 1);
    const auto date = Bound(session, 1);
    EXPECT_EQ(date->AnzFreiePlaetze(), 10);
    date->clscolTeilnehmer()->AddEmptyObject();
    EXPECT_EQ(date->AnzFreiePlaetze(), 9) << "before it is stored";
    EXPECT_EQ(Bound(session, 1)->AnzFreiePlaetze(), 10);
    const auto record = date->clscolTeilnehmer()->Item("0000000000");
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    date->clscolTeilnehmer()->ChangeKey("0000000000", record->Key());
    EXPECT_EQ(Bound(session, 1)->AnzFreiePlaetze(), 9);
    record->Teilnahme(0);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(date->AnzAnmeldungen(), 0);
    EXPECT_EQ(Bound(session, 1)->AnzAnmeldungen(), 0);
    EXPECT_EQ(Bound(session, 1)->clscolTeilnehmer()->Count(), 1);
}

TEST_F(DateEnrolmentForReal, WithoutTheTableOfParticipantsNobodyIsEnrolled) {
    const auto session = SampleDatabase();
    Write(*session, "DROP TABLE Sem_Teilnehmer_IT");
    const auto date = Bound(session, 64);
    EXPECT_EQ(date->AnzAnmeldungen(), 0);
    EXPECT_EQ(date->AnzFreiePlaetze(), 15);
    EXPECT_EQ(date->clscolTeilnehmer()->Count(), 0);
}

// Delete.

TEST_F(DateEnrolmentForReal, ADeleteTakesParticipantsAndFocusAreasAndLeavesDaysCostsAndTheWaitList) {
    const auto session = SampleDatabase();
    const char* const all_rows[] = {"Sem_Termin_IT",
                                    "Sem_Teilnehmer_IT",
                                    "Sem_Termin_Schwerpunkte_IT",
                                    "Sem_Termin_Termine_IT",
                                    "Sem_Teilnehmer_Kosten_IT",
                                    "Sem_WartelisteTermin_IT",
                                    "Sem_Warteliste_IT",
                                    "sysIData_WBS",
                                    "Sem_Serien_IT"};
    const Text costs_of_date =
        "Sem_Teilnehmer_Kosten_IT WHERE TeilnehmerID IN (SELECT TeilnehmerID FROM "
        "Sem_Teilnehmer_IT WHERE SemTerminID = 62)";
    const auto Counts = [&] {
        std::map<Text, Int32> counts;
        for (const char* table : all_rows) counts[table] = CountOf(*session, table);
        return counts;
    };
    auto wanted = Counts();
    EXPECT_EQ(CountOf(*session, costs_of_date), 8);
    const Int32 days = CountOf(*session, "Sem_Termin_Termine_IT WHERE SemTerminID = 62");
    EXPECT_GT(days, 0);
    const Int32 waiting = CountOf(*session, "Sem_WartelisteTermin_IT WHERE SemTerminID = 62");
    EXPECT_EQ(waiting, 3);

    const auto date = Bound(session, 62);
    EXPECT_EQ(date->DeleteFromDatabase(), true);

    wanted["Sem_Termin_IT"] -= 1;
    wanted["Sem_Teilnehmer_IT"] -= 7;
    wanted["Sem_Termin_Schwerpunkte_IT"] -= 1;
    EXPECT_EQ(Counts(), wanted);
    for (const char* table : {"Sem_Termin_IT", "Sem_Teilnehmer_IT", "Sem_Termin_Schwerpunkte_IT"}) {
        EXPECT_EQ(CountOf(*session, Text(table) + " WHERE SemTerminID = 62"), 0) << table;
    }
    EXPECT_EQ(CountOf(*session, "Sem_Termin_Termine_IT WHERE SemTerminID = 62"), days);
    EXPECT_EQ(CountOf(*session, "Sem_WartelisteTermin_IT WHERE SemTerminID = 62"), waiting);
    EXPECT_EQ(date->clscolTeilnehmer()->Count(), 0);
    EXPECT_EQ(date->clscolSemTerminSchwerpunkte()->Count(), 0);
    EXPECT_EQ(date->AnzAnmeldungen(), 0);
}

TEST_F(DateEnrolmentForReal, TheListOfDatesRemovesADateWithItsParticipants) {
    const auto session = SchemaDatabase();
    for (const int date : {1, 2}) {
        AddDate(*session, date);
        Enrol(*session, date, date);
        AddFocusArea(*session, date, date, "Löten & \"Kleben\": O''Neill");
    }
    colTermine list;
    EXPECT_EQ(list.Init(-1, 1, session), true);
    EXPECT_EQ(list.Item("0000000001")->clscolSemTerminSchwerpunkte()->Item(1)->WBS(), "Löten & \"Kleben\": O'Neill");
    EXPECT_EQ(list.Remove("0000000001"), true);
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(Select(*session, "SELECT TeilnehmerID, SemTerminID FROM Sem_Teilnehmer_IT"), (Rows{{2, 2}}));
    EXPECT_EQ(Select(*session, "SELECT SchwerpunktID, SemTerminID FROM Sem_Termin_Schwerpunkte_IT"), (Rows{{2, 2}}));
    EXPECT_EQ(CountOf(*session, "sysIData_WBS"), 2) << "the focus areas themselves stay";
}

TEST_F(DateEnrolmentForReal, AParticipantThatTheDatabaseDoesNotLetGoStaysWithoutItsDate) {
    const auto session = SchemaDatabase();
    AddDate(*session, 1);
    for (const int key : {23, 24, 25}) Enrol(*session, key, 1);
    HoldOnTo(*session, "Sem_Teilnehmer_IT", "TeilnehmerID", 24);
    const auto date = Bound(session, 1);
    EXPECT_EQ(date->DeleteFromDatabase(), true);
    EXPECT_EQ(Select(*session, "SELECT TeilnehmerID, SemTerminID FROM Sem_Teilnehmer_IT"), (Rows{{24, 1}}));
    EXPECT_EQ(CountOf(*session, "Sem_Termin_IT"), 0);
    EXPECT_EQ(date->clscolTeilnehmer()->Count(), 1);
    EXPECT_EQ(date->clscolTeilnehmer()->Item(1)->Key(), "0000000024");
}

TEST_F(DateEnrolmentForReal, ADateThatTheDatabaseDoesNotLetGoStaysWithoutItsParticipants) {
    const auto session = SchemaDatabase();
    AddDate(*session, 1);
    Enrol(*session, 23, 1);
    AddFocusArea(*session, 2, 1, "Führung");
    HoldOnTo(*session, "Sem_Termin_IT", "SemTerminID", 1);
    EXPECT_EQ(Bound(session, 1)->DeleteFromDatabase(), false);
    EXPECT_EQ(CountOf(*session, "Sem_Termin_IT"), 1);
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT"), 0);
    EXPECT_EQ(CountOf(*session, "Sem_Termin_Schwerpunkte_IT"), 0);
}

TEST_F(DateEnrolmentForReal, WithoutTheTablesOfTheListsTheDateGoesAllTheSame) {
    const auto session = SampleDatabase();
    Write(*session, "DROP TABLE Sem_Teilnehmer_IT");
    Write(*session, "DROP TABLE Sem_Termin_Schwerpunkte_IT");
    EXPECT_EQ(Bound(session, 62)->DeleteFromDatabase(), true);
    EXPECT_EQ(CountOf(*session, "Sem_Termin_IT WHERE SemTerminID = 62"), 0);
}

TEST_F(DateEnrolmentForReal, WhoIsEnrolledBehindTheReadingOfTheListOutlivesTheDate) {
    const auto session = SchemaDatabase();
    AddDate(*session, 1);
    Enrol(*session, 23, 1);
    const auto date = Bound(session, 1);
    EXPECT_EQ(date->AnzAnmeldungen(), 1);
    Enrol(*session, 24, 1);
    EXPECT_EQ(date->DeleteFromDatabase(), true);
    EXPECT_EQ(Select(*session, "SELECT TeilnehmerID FROM Sem_Teilnehmer_IT"), (Rows{{24}}));
}

TEST_F(DateEnrolmentForReal, AnUnstoredParticipantGoesWithTheDateAndOneFiledUnderItsFormerKeyStopsTheDelete) {
    const auto session = SchemaDatabase();
    for (const bool stored : {false, true}) {
        SCOPED_TRACE(stored);
        AddDate(*session, 1);
        const auto date = Bound(session, 1);
        date->clscolTeilnehmer()->AddEmptyObject();
        if (!stored) {
            EXPECT_EQ(date->DeleteFromDatabase(), true);
            EXPECT_EQ(date->clscolTeilnehmer()->Count(), 0);
            continue;
        }
        EXPECT_EQ(date->clscolTeilnehmer()->Item("0000000000")->WriteToDatabase(kUserID), true);
        EXPECT_RAISES(5, date->DeleteFromDatabase());
        EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT"), 0) << "its row is gone";
        EXPECT_EQ(CountOf(*session, "Sem_Termin_IT"), 1);
    }
}

}  // namespace
}  // namespace LumoSeminar
