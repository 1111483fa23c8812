#include <gtest/gtest.h>

#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/enrolment/participant_costs.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/colTermine.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace participant_statements;
using test_support::RaisedBy;
using test_support::SampleDatabase;
using test_support::SchemaDatabase;
using test_support::Value;
using test_support::Write;
using Session = Ref<LumoConnection::AnySession>;

using clsTeilnehmerForReal = ParticipantTest;

constexpr Int32 kUserID = 11;

Variant CountOf(DataSession& session, const Text& rows) { return Value(session, "SELECT COUNT(*) FROM " + rows); }

/// A database with date 17 alone.
Session OneDate() {
    auto session = SchemaDatabase();
    Write(*session,
          "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, BeginnDatum, EndeDatum, BeginnUhrzeit, EndeUhrzeit) VALUES (17, 5, "
          "convert(datetime,'03.03.2010',104), convert(datetime,'05.03.2010',104), "
          "convert(datetime,'30.12.1899 08:30',104), convert(datetime,'30.12.1899 16:45',104))");
    return session;
}

TEST_F(clsTeilnehmerForReal, TheFirstInsertIntoAnEmptyTableGetsKey1AndTheDaysAndTimesOfTheDate) {
    const auto session = OneDate();
    const auto record = NewOfDate(session);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->Key(), "0000000001");
    EXPECT_EQ(record->BeginnDatum(), DateTime::Of(2010, 3, 3));
    const auto read = Bound(session, 1);
    EXPECT_EQ(read->SemTerminID(), 17);
    EXPECT_EQ(read->MDNR(), 0);
    EXPECT_EQ(read->Teilnahme(), -1);
    EXPECT_EQ(read->Herkunft(), 3);
    EXPECT_EQ(read->Ergebnis(), 1);
    EXPECT_EQ(read->ErfDatum(), kToday);
    EXPECT_EQ(read->ErfUser(), kUser);
    EXPECT_EQ(read->BeginnDatum(), DateTime::Of(2010, 3, 3));
    EXPECT_EQ(read->EndeDatum(), DateTime::Of(2010, 3, 5));
    EXPECT_EQ(read->BegUhrzeit(), DateTime::TimeOfDay(8, 30));
    EXPECT_EQ(read->EndUhrzeit(), DateTime::TimeOfDay(16, 45));
    EXPECT_EQ(CountOf(*session,
                      "Sem_Teilnehmer_IT WHERE ANNr IS NULL AND BWID IS NULL AND LAID IS NULL AND storniertam IS NULL AND "
                      "StornoGrund = 0 AND StornoKosten = 0 AND Bemerkung = ''"),
              Variant(1));
    EXPECT_EQ(read->ANNr(), 0);
    EXPECT_EQ(read->storniertam(), DateTime());
}

TEST_F(clsTeilnehmerForReal, ANewRecordIsInsertedAndReadBackColumnByColumn) {
    const auto session = OneDate();
    const auto record = NewOfDate(session);
    LetAll(*record, &Property::full);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    ExpectValues(*Bound(session, 1), All(), &Property::full);
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT"), Variant(1));
}

TEST_F(clsTeilnehmerForReal, AnUpdateChangesItsRowOnly) {
    const auto session = SampleDatabase();
    const auto record = Bound(session, 641);
    record->Herkunft();
    LetAll(*record, &Property::full);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    ExpectValues(*Bound(session, 641), All(), &Property::full);
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT"), Variant(641));
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT WHERE StornoGrund = 9"), Variant(1));
}

TEST_F(clsTeilnehmerForReal, NullsInEveryColumnReadAsTheDefaults) {
    const auto session = SchemaDatabase();
    Write(*session, "INSERT INTO Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID) VALUES (7, 0)");
    ExpectValues(*Bound(session, 7), All(), &Property::at_null);
}

TEST_F(clsTeilnehmerForReal, AClearedCancellationIsNullByTheInsertAndDayZeroByTheUpdate) {
    const auto session = OneDate();
    const auto record = NewOfDate(session);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT WHERE storniertam IS NULL"), Variant(1));
    for (const DateTime cancelled : {DateTime::Of(2010, 2, 28, 12, 0), DateTime()}) {
        record->storniertam(cancelled);
        EXPECT_EQ(record->WriteToDatabase(kUserID), true);
        EXPECT_EQ(Value(*session, "SELECT storniertam FROM Sem_Teilnehmer_IT"), Variant(cancelled.DatePart()));
        EXPECT_EQ(Bound(session, 1)->storniertam(), cancelled.DatePart());
    }
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT WHERE storniertam = convert(datetime,'30.12.1899',104)"), Variant(1));
    Write(*session, "UPDATE Sem_Teilnehmer_IT SET storniertam = NULL");
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(Value(*session, "SELECT storniertam FROM Sem_Teilnehmer_IT"), Variant(DateTime()));
}

TEST_F(clsTeilnehmerForReal, KeysOfThePersonThatAreZeroAreNullByTheUpdateToo) {
    const auto session = SampleDatabase();
    const auto record = Bound(session, 641);
    EXPECT_EQ(record->ANNr(), 159);
    record->ANNr(0);
    record->BWID(1);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT WHERE TeilnehmerID = 641 AND ANNr IS NULL AND BWID = 1 AND LAID IS NULL"),
              Variant(1));
    const auto read = Bound(session, 641);
    EXPECT_EQ(read->ANNr(), 0);
    EXPECT_EQ(read->NameVorname(), "D'Angelo, Chiara");
    EXPECT_EQ(read->PersNr(), "B-2009-003");
    EXPECT_EQ(read->MDPersNr(), "1M1");
}

TEST_F(clsTeilnehmerForReal, TheKeyIsTheLargestAndOneAndThatOfADeletedLastRowIsGivenAgain) {
    const auto session = SampleDatabase();
    for (int i = 0; i < 2; ++i) {
        const auto record = NewOfDate(session, 64);
        EXPECT_EQ(record->WriteToDatabase(kUserID), true);
        EXPECT_EQ(record->TeilnehmerID(), 642);
        EXPECT_EQ(record->DeleteFromDatabase(), true);
        EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT WHERE TeilnehmerID = 642"), Variant(0));
    }
}

TEST_F(clsTeilnehmerForReal, BehindTheLargestKeyAnInsertIsRefusedInSilence) {
    const auto session = OneDate();
    Write(*session, "INSERT INTO Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID) VALUES (2147483647, 17)");
    const auto record = NewOfDate(session);
    EXPECT_EQ(record->WriteToDatabase(kUserID), false);
    EXPECT_EQ(record->Key(), "0000000000");
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT"), Variant(1));
}

TEST_F(clsTeilnehmerForReal, ANegativeKeyIsInsertedUnderAKeyOfItsOwnAndKept) {
    const auto session = OneDate();
    const auto record = Bound(session, -3);
    record->SemTerminID(17);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(record->TeilnehmerID(), -3);
    EXPECT_EQ(Value(*session, "SELECT TeilnehmerID FROM Sem_Teilnehmer_IT"), Variant(1));
}

TEST_F(clsTeilnehmerForReal, TextsComeBackOrAreRefusedByInsertAndUpdateInSilenceAndWithoutATrace) {
    const struct {
        Text text;
        bool accepted;
    } cases[] = {
        {"Müller & Söhne: \"Größe\" {ANNr}", true},
        {"100 % [x] --kein Kommentar /* auch nicht */ a\\b", true},
        {"Zeile\r\nZeile", true},
        {Text(255, 'x'), true},
        {Text(256, 'x'), false},
        {"Rock'n Roll", false},
        {"', 'x", false},
        {"\xFF\xFE", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(OneLine(c.text));
        const auto session = SampleDatabase();
        for (const bool stored : {false, true}) {
            const auto record = stored ? Bound(session, 641) : NewOfDate(session, 64);
            record->Bemerkung(c.text);
            EXPECT_EQ(record->WriteToDatabase(kUserID), c.accepted);
            EXPECT_EQ(record->Bemerkung(), c.text);
            EXPECT_EQ(record->TeilnehmerID(), stored ? 641 : c.accepted ? 642 : 0);
            if (c.accepted) {
                EXPECT_EQ(Bound(session, record->TeilnehmerID())->Bemerkung(), c.text);
                continue;
            }
            record->Bemerkung("jetzt ohne Apostroph");
            EXPECT_EQ(record->WriteToDatabase(kUserID), true) << "the same record, tried again";
            EXPECT_EQ(Bound(session, record->TeilnehmerID())->Bemerkung(), "jetzt ohne Apostroph");
        }
        EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT"), Variant(642));
    }
}

TEST_F(clsTeilnehmerForReal, AnEntryUserOfMoreThanFiftyLettersOrWithAnApostropheIsRefusedInSilence) {
    const auto session = OneDate();
    const auto record = NewOfDate(session);
    for (const Text& user : {Text("O'Neill"), Text(51, 'x')}) {
        record->ErfUser(user);
        EXPECT_EQ(record->WriteToDatabase(kUserID), false);
    }
    record->ErfUser("Ümit \"Ü\" Özgür");
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(Bound(session, 1)->ErfUser(), "Ümit \"Ü\" Özgür");
}

// Costs.

TEST_F(clsTeilnehmerForReal, CostsAddedToANewRecordAreStoredUnderItsKey) {
    const auto session = OneDate();
    const auto record = NewOfDate(session);
    record->TeilnehmerKosten(120.5f);
    record->Kost(4110);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_Kosten_IT"), Variant(1));
    EXPECT_EQ(CountOf(*session,
                      "Sem_Teilnehmer_Kosten_IT WHERE TeilnehmerID = 1 AND KostenID = 1 AND KostenArtID = 1 AND Kostenbetrag "
                      "= 120.5 AND Kost = 4110"),
              Variant(1));
    const auto read = Bound(session, 1);
    EXPECT_EQ(read->TeilnehmerKosten(), 120.5f);
    EXPECT_EQ(read->Kost(), 4110);
}

TEST_F(clsTeilnehmerForReal, WithTwoCostLinesTheSumIsReadACentreGoesToBothAndAnAmountToNone) {
    const auto session = SampleDatabase();
    const auto record = Bound(session, 100);
    EXPECT_EQ(record->TeilnehmerKosten(), 189.95f + 61.2f);
    EXPECT_EQ(record->Kost(), 7300);
    record->TeilnehmerKosten(1);
    record->Kost(4110);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    const auto read = Bound(session, 100);
    EXPECT_EQ(read->TeilnehmerKosten(), 189.95f + 61.2f);
    EXPECT_EQ(read->Kost(), 4110);
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_Kosten_IT WHERE TeilnehmerID = 100 AND Kost = 4110"), Variant(2));
}

TEST_F(clsTeilnehmerForReal, ACancelledRecordCostsItsStornoKostenAndItsLinesStay) {
    const auto session = SampleDatabase();
    const auto record = Bound(session, 100);
    record->Teilnahme(0);
    record->TeilnehmerKosten(12.6f);
    record->storniertam(kToday);
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    const auto read = Bound(session, 100);
    EXPECT_EQ(read->TeilnehmerKosten(), 13.0f);
    EXPECT_EQ(read->StornoKosten(), 13);
    EXPECT_EQ(read->objKosten()->Count(), 2);
    read->Teilnahme(-1);
    EXPECT_EQ(read->TeilnehmerKosten(), 189.95f + 61.2f);
}

TEST_F(clsTeilnehmerForReal, CostsThatAreRefusedRaise9999BehindAStoredRecord) {
    const auto session = OneDate();
    Write(*session, "DROP TABLE Sem_Teilnehmer_Kosten_IT");
    const auto record = NewOfDate(session);
    const auto error = RaisedBy([&] { return record->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(ReadDescription(error->Description()).text, session->LastErrorText());
    EXPECT_EQ(LabelsOf(error), (Labels{" in LumoSeminar.LoadKeysFromDataBase", " in LumoSeminar.Init",
                                       " in LumoSeminar.objKosten", kLabel + "WriteToDatabase"}));
    EXPECT_EQ(record->TeilnehmerID(), 1);
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT"), Variant(1));
}

// Deletes.

TEST_F(clsTeilnehmerForReal, ADeleteLeavesTheCostLines) {
    const auto session = SampleDatabase();
    EXPECT_EQ(Bound(session, 100)->DeleteFromDatabase(), true);
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_IT"), Variant(640));
    EXPECT_EQ(CountOf(*session, "Sem_Teilnehmer_Kosten_IT WHERE TeilnehmerID = 100"), Variant(2));
    EXPECT_EQ(Bound(session, 100)->DeleteFromDatabase(), true) << "nothing to delete is no failure";
    Write(*session, "DROP TABLE Sem_Teilnehmer_IT");
    EXPECT_EQ(Bound(session, 101)->DeleteFromDatabase(), false);
}

// Persons and links.

TEST_F(clsTeilnehmerForReal, NamesAreThoseOfThePersonOfEachKind) {
    const auto session = SampleDatabase();
    const auto record = NewOfDate(session, 64);
    record->MDNR(1);
    record->LAID(2);
    EXPECT_EQ(record->NameVorname(), "Heinrichs, Hans-Jürgen");
    EXPECT_EQ(record->PersNr(), "2");
    EXPECT_EQ(record->MDPersNr(), "1M2");
    const auto employee = Bound(session, 641);
    EXPECT_EQ(employee->PersNr(), "159");
    EXPECT_EQ(employee->MDPersNr(), "1M159");
    EXPECT_EQ(Variant(employee->Name()), Value(*session, "SELECT Name FROM Arbeitnehmer WHERE MDNR = 1 AND ANNR = 159"));
    EXPECT_EQ(Variant(employee->Vorname()), Value(*session, "SELECT Vorname FROM Arbeitnehmer WHERE MDNR = 1 AND ANNR = 159"));
    const auto nobody = NewOfDate(session, 64);
    EXPECT_EQ(nobody->NameVorname(), "");
    EXPECT_EQ(nobody->PersNr(), "");
}

TEST_F(clsTeilnehmerForReal, TheDateIsLinkedAndTheDatesOfThePersonAreRefusedForUnqualifiedColumns) {
    const auto session = SampleDatabase();
    const auto record = Bound(session, 641);
    EXPECT_EQ(record->SemTerminID(), 64);
    EXPECT_EQ(record->clsTermin()->SemTerminID(), 64);
    EXPECT_EQ(Variant(record->clsTermin()->Titel()), Value(*session, "SELECT Titel FROM Sem_Termin_IT WHERE SemTerminID = 64"));
    EXPECT_EQ(record->colTermine()->Count(), 0);
    constexpr Int32 kAmbiguousColumn = 209;
    EXPECT_EQ(session->LastErrorNumber(), kAmbiguousColumn);
}

TEST_F(clsTeilnehmerForReal, AListHandsOutAnEmptyRecordWhichIsFiledUnderItsKeyOnceItIsStored) {
    const auto session = OneDate();
    colTeilnehmer list;
    EXPECT_EQ(list.Init(17, session), true);
    const auto record = list.AddEmptyObject().As<clsTeilnehmer>();
    record->MDPersNr("7M123");
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    list.ChangeKey("0000000000", record->Key());
    colTeilnehmer again;
    EXPECT_EQ(again.Init(17, session), true);
    ASSERT_EQ(again.Count(), 1);
    EXPECT_EQ(again.Item("0000000001")->MDPersNr(), "7M123");
    EXPECT_TRUE(list.Item("0000000001") == record);
}

}  // namespace
}  // namespace LumoSeminar
