#include <LumoSeminar/enrolment/clsTeilnehmer.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/errors.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <test_support/check_statements.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>
#include <test_support/failures.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace check_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;
using test_support::Rows;
using test_support::SchemaDatabase;
using test_support::Select;
using test_support::Write;

using Labels = std::vector<std::string>;

const Variant kNull = Variant::Null();
const std::string kLabelOfTheTransfer = "LumoSeminar.clsTeilnehmer.TeilnehmerInWarteliste";

class Cancellation : public participant_statements::ParticipantTest {};

TEST_F(Cancellation, ADateOfASeminarLeadsToTheInterestListOfTheSeminarWhichLooksInverted) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptDate(script, 105);
    script.ExecuteSql(
        "Declare @SemWartelisteID int\r\n"
        "set @SemWartelisteID = isnull((Select Max(SemWarteListeID) From Sem_Warteliste_IT),0)+1\r\n"
        "if not exists (Select Sem_Warteliste_IT.SemWarteListeID From Sem_Warteliste_IT INNER JOIN Sem_WartelisteSem_IT ON "
        "Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteSem_IT.SemWarteListeID  Where SemID = 105 AND TNID = 100 AND "
        "MDNr = 5 AND ModID = 2)\r\n"
        "Begin\r\n"
        "Insert Into Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID, ErfDat, Herkunft) Values( "
        "@SemWartelisteID,2,5,100,getdate(),2)\r\n"
        "Insert Into Sem_WartelisteSem_IT (SemWarteListeID, SemID) Values (@SemWartelisteID, 105)\r\n"
        "End");
    auto record = Record(script.Session());
    record->StornoTeilnehmerInWarteliste();
    ExpectMet(script, record);
}

TEST_F(Cancellation, OnlyADateWithoutASeminarLeadsToTheWaitListOfTheDateWhichLooksInverted) {
    for (const Variant& seminar : {Variant(0), kNull}) {
        Script script;
        ScriptRecord(script, kEmployee);
        ScriptDate(script, seminar);
        script.ExecuteSql(
            "Declare @SemWartelisteID int\r\n"
            "set @SemWartelisteID = isnull((Select Max(SemWarteListeID) From Sem_Warteliste_IT),0)+1\r\n"
            "if not exists (Select Sem_Warteliste_IT.SemWarteListeID From Sem_Warteliste_IT INNER JOIN "
            "Sem_WartelisteTermin_IT ON Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteTermin_IT.SemWarteListeID  Where "
            "SemTerminID = 17 AND TNID = 100 AND MDNr = 5 AND ModID = 2)\r\n"
            "Begin\r\n"
            "Insert Into Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID, ErfDat, Herkunft) Values( "
            "@SemWartelisteID,2,5,100,getdate(),2)\r\n"
            "Insert Into Sem_WartelisteTermin_IT (SemWarteListeID, SemTerminID) Values (@SemWartelisteID, 17)\r\n"
            "End");
        auto record = Record(script.Session());
        record->StornoTeilnehmerInWarteliste();
        ExpectMet(script, record);
    }
}

TEST_F(Cancellation, EachKindOfPersonIsTransferredUnderItsNumberAndItsKey) {
    const struct {
        PersonKeys keys;
        int person;
        int kind;
    } cases[] = {{kEmployee, 100, 2}, {kApplicant, 77, 3},    {kWorker, 9, 4},
                 {kNobody, 0, 2},     {{100, 77, 9}, 100, 2}, {{0, 77, 9}, 77, 3}};
    for (const auto& c : cases) {
        for (const bool has_seminar : {true, false}) {
            Script script;
            ScriptRecord(script, c.keys);
            ScriptDate(script, has_seminar ? 105 : 0);
            script.ExecuteSql(has_seminar ? TransferToSeminar(105, c.person, 5, c.kind)
                                          : TransferToDate(kDate, c.person, 5, c.kind));
            auto record = Record(script.Session());
            record->StornoTeilnehmerInWarteliste();
            ExpectMet(script, record);
        }
    }
}

// A person has one of the three groups of letters, whatever its kind: one of another group, which would go in with
// ModID 0, cannot be made.
TEST_F(Cancellation, APersonOfAnyOtherKindIsTransferredAsATemporaryWorkerAsItsLettersAre) {
    for (const Byte kind : {Byte{0}, Byte{9}, Byte{14}}) {
        for (const bool has_seminar : {true, false}) {
            Script script;
            ScriptRecord(script, kEmployee);
            ScriptDate(script, has_seminar ? kSeminar : 0);
            script.ExecuteSql(has_seminar ? TransferToSeminar(kSeminar, 4711, 5, 4) : TransferToDate(kDate, 4711, 5, 4));
            const auto record = Record(script.Session());
            const auto person = New<clsWBPerson>();
            auto session = script.Session();
            person->Init(6, 4711, kind, session);
            record->objWBPerson(person);
            EXPECT_EQ(record->PersGr(), "LA");
            record->StornoTeilnehmerInWarteliste();
            EXPECT_EQ(script.Report(), "") << "the client is that of the record, the key that of the person";
        }
    }
}

TEST_F(Cancellation, ASecondCallSendsTheBatchAgain) {
    Script script;
    ScriptRecord(script, kApplicant);
    ScriptDate(script);
    script.ExecuteSql(TransferToSeminar(kSeminar, 77, 5, 3));
    script.ExecuteSql(TransferToSeminar(kSeminar, 77, 5, 3));
    auto record = Record(script.Session());
    record->StornoTeilnehmerInWarteliste();
    record->StornoTeilnehmerInWarteliste();
    ExpectMet(script, record);
}

TEST_F(Cancellation, ARecordThatWasNotReadIsReadFirst) {
    Script script;
    ScriptRecord(script, kWorker);
    ScriptDate(script);
    script.ExecuteSql(TransferToSeminar(kSeminar, 9, 5, 4));
    auto record = participant_statements::Bound(script.Session(), kRecord);
    record->StornoTeilnehmerInWarteliste();
    ExpectMet(script, record);
}

TEST_F(Cancellation, TheTransferLeavesTheRecordAsItIs) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptDate(script);
    script.ExecuteSql(TransferToSeminar(kSeminar, 100, 5, 2));
    auto record = Record(script.Session());
    record->NewStorno(true);
    record->StornoGrund(4);
    record->StornoTeilnehmerInWarteliste();
    EXPECT_EQ(record->Teilnahme(), -1);
    EXPECT_EQ(record->storniertam(), DateTime());
    EXPECT_EQ(record->StornoGrund(), 4);
    EXPECT_EQ(record->StornoKosten(), 0);
    EXPECT_EQ(record->NewStorno(), true);
    EXPECT_EQ(record->Key(), "0000000042");
    ExpectMet(script, record);
}

TEST_F(Cancellation, ARefusedBatchRaises9999WithALabelWithoutTheWordStorno) {
    Script script;
    ScriptRecord(script, kEmployee);
    ScriptDate(script);
    script.ExecuteSql(TransferToSeminar(kSeminar, 100, 5, 2)).Refused("Die Tabelle \"Sem_Warteliste_IT\" ist für Sie gesperrt.");
    auto record = Record(script.Session());
    const auto error = RaisedBy([&] {
        record->StornoTeilnehmerInWarteliste();
        return 0;
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(),
              "Die Tabelle \"Sem_Warteliste_IT\" ist für Sie gesperrt.\r\n"
              "LumoSeminar.clsTeilnehmer.TeilnehmerInWarteliste");
    EXPECT_EQ(script.LastErrorTextCalls(), 1);
    EXPECT_EQ(record->Teilnahme(), -1);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(Cancellation, FailsAsDocumentedAtEachStep) {
    const std::string label = " LumoSeminar062.clsTeilnehmer.";
    const std::string date = "OpenSelect: " + termin_statements::Select(kDate);
    const auto sent = [](const std::string& batch) {
        Script script;
        script.ExecuteSql(batch);
        return script.StepText(1);
    };
    ExpectFailures(
        [](Script& script) {
            ScriptRecord(script, kEmployee);
            ScriptDate(script);
            script.ExecuteSql(TransferToSeminar(kSeminar, 100, 5, 2));
        },
        [](const Ref<DataSession>& session) {
            const auto record = Record(session);
            if (record) record->StornoTeilnehmerInWarteliste();
        },
        {{1, kNotOk, 0, {}, {"Open of the connection"}},
         // Nobody, an employee without a number, is meant where the record cannot be read.
         {2, kNotOk, 9999, {kLabelOfTheTransfer}, {date, sent(TransferToSeminar(kSeminar, 0, 0, 2))}},
         // A date that cannot be read has no seminar, so that the entry is one for the date.
         {3, kNotOk, 9999, {kLabelOfTheTransfer}, {sent(TransferToDate(kDate, 100, 5, 2))}},
         {4, kNotOk, 9999, {kLabelOfTheTransfer}},
         {1, kRaises, 7001, {label + "Init"}},
         {2, kRaises, 7001, {label + "PropertiesInit", label + "MDNr -> Property LET", label + "Init"}},
         {3, kRaises, 7001, {" LumoSeminar062.clsTermin.PropertiesInit", " LumoSeminar062.clsTermin.SemID --> GET", kLabelOfTheTransfer}},
         {4, kRaises, 7001, {kLabelOfTheTransfer}}});
}

TEST_F(Cancellation, TheLoadOfARecordThatWasNotReadFailsWithTheLabelOfTheTransferLast) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(participant_statements::Select(kRecord)).Raises(7001, "Verbindung getrennt");
    auto record = participant_statements::Bound(script.Session(), kRecord);
    const auto error = RaisedBy([&] {
        record->StornoTeilnehmerInWarteliste();
        return 0;
    });
    EXPECT_EQ(LabelsOf(error), (Labels{" LumoSeminar062.clsTeilnehmer.PropertiesInit",
                                       " LumoSeminar062.clsTeilnehmer.ANNr -> Property GET", kLabelOfTheTransfer}));
    ExpectMet(script, record);
}

// For real

const Text kEntries = "SELECT SemWarteListeID, ModID, MDNr, TNID, Herkunft FROM Sem_Warteliste_IT ORDER BY SemWarteListeID";
const Text kDateEntries = "SELECT SemWarteListeID, SemTerminID FROM Sem_WartelisteTermin_IT ORDER BY SemWarteListeID";
const Text kSeminarEntries = "SELECT SemWarteListeID, SemID FROM Sem_WartelisteSem_IT ORDER BY SemWarteListeID";

class CancellationForReal : public participant_statements::ParticipantTest {
  protected:
    /// Date 17 of seminar 105, date 18 without one, and an employee, an applicant and a temporary worker in both.
    CancellationForReal() {
        Write(*session_,
              "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, Status, Code, Titel, SemID) VALUES "
              "(17, 5, 2, N'LÖ-1', N'Löten für \"Anfänger\"', 105), (18, 5, 2, N'Ö', N'Tag der offenen Tür', NULL)");
        Write(*session_,
              "INSERT INTO Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, MDNr, ANNr, BWID, LAID, ErfUser, Teilnahme, "
              "StornoKosten, Bemerkung) VALUES "
              "(1, 17, 5, 100, NULL, NULL, N'Jäger', -1, 20, N'Gemüse'), (2, 17, 5, NULL, 77, NULL, N'Jäger', -1, 0, NULL), "
              "(3, 17, 5, NULL, NULL, 9, N'Jäger', -1, 0, NULL), (4, 18, 5, 100, NULL, NULL, N'Jäger', 0, 0, NULL), "
              "(5, 18, 5, NULL, 77, NULL, N'Jäger', -1, 0, NULL), (6, 18, 5, NULL, NULL, 9, N'Jäger', -1, 0, NULL)");
    }

    /// A record as the list of its date has it.
    Ref<clsTeilnehmer> Stored(Int32 date, Int32 key) {
        colTeilnehmer list;
        EXPECT_EQ(list.Init(date, session_), true);
        return list.Item(KeyOf(key));
    }

    static Text KeyOf(Int32 key) { return "000000000" + std::to_string(key); }

    Ref<DataSession> session_ = SchemaDatabase();
};

TEST_F(CancellationForReal, TheFirstEntryHasKey1AndBelongsToTheSeminar) {
    Stored(17, 1)->StornoTeilnehmerInWarteliste();
    EXPECT_EQ(Select(*session_, kEntries), (Rows{{1, Int16{2}, 5, 100, Int16{2}}}));
    EXPECT_EQ(Select(*session_, kSeminarEntries), (Rows{{1, 105}}));
    EXPECT_EQ(Select(*session_, kDateEntries), Rows{});
}

TEST_F(CancellationForReal, ADateWithoutASeminarGivesAnEntryForTheDate) {
    Stored(18, 4)->StornoTeilnehmerInWarteliste();
    EXPECT_EQ(Select(*session_, kEntries), (Rows{{1, Int16{2}, 5, 100, Int16{2}}}));
    EXPECT_EQ(Select(*session_, kDateEntries), (Rows{{1, 18}}));
    EXPECT_EQ(Select(*session_, kSeminarEntries), Rows{});
}

TEST_F(CancellationForReal, AllKindsOfPersonGetTheirEntriesBehindTheLargestKey) {
    Write(*session_, "INSERT INTO Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID) VALUES (40, 2, 5, 1), (12, 2, 5, 2)");
    for (const Int32 key : {1, 2, 3}) Stored(17, key)->StornoTeilnehmerInWarteliste();
    for (const Int32 key : {4, 5, 6}) Stored(18, key)->StornoTeilnehmerInWarteliste();
    EXPECT_EQ(Select(*session_, kEntries), (Rows{{12, Int16{2}, 5, 2, kNull},
                                                 {40, Int16{2}, 5, 1, kNull},
                                                 {41, Int16{2}, 5, 100, Int16{2}},
                                                 {42, Int16{3}, 5, 77, Int16{2}},
                                                 {43, Int16{4}, 5, 9, Int16{2}},
                                                 {44, Int16{2}, 5, 100, Int16{2}},
                                                 {45, Int16{3}, 5, 77, Int16{2}},
                                                 {46, Int16{4}, 5, 9, Int16{2}}}));
    EXPECT_EQ(Select(*session_, kSeminarEntries), (Rows{{41, 105}, {42, 105}, {43, 105}}));
    EXPECT_EQ(Select(*session_, kDateEntries), (Rows{{44, 18}, {45, 18}, {46, 18}}));
}

TEST_F(CancellationForReal, ARepeatedCallAddsNoRowAlsoFromAnotherRecordOfThePerson) {
    for (int i = 0; i < 2; ++i) {
        const auto record = Stored(17, 1);
        record->StornoTeilnehmerInWarteliste();
        record->StornoTeilnehmerInWarteliste();
        Stored(18, 5)->StornoTeilnehmerInWarteliste();
    }
    EXPECT_EQ(Select(*session_, kEntries), (Rows{{1, Int16{2}, 5, 100, Int16{2}}, {2, Int16{3}, 5, 77, Int16{2}}}));
    EXPECT_EQ(Select(*session_, kSeminarEntries), (Rows{{1, 105}}));
    EXPECT_EQ(Select(*session_, kDateEntries), (Rows{{2, 18}}));
}

TEST_F(CancellationForReal, AnEntryOfAnotherPersonKindClientOrSeminarIsNoHindrance) {
    Write(*session_,
          "INSERT INTO Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID) VALUES "
          "(1, 3, 5, 100), (2, 2, 6, 100), (3, 2, 5, 101), (4, 2, 5, 100), (5, 2, 5, 100)");
    Write(*session_, "INSERT INTO Sem_WartelisteSem_IT (SemWarteListeID, SemID) VALUES (1, 105), (2, 105), (3, 105), (4, 106)");
    Write(*session_, "INSERT INTO Sem_WartelisteTermin_IT (SemWarteListeID, SemTerminID) VALUES (5, 17)");
    Stored(17, 1)->StornoTeilnehmerInWarteliste();
    EXPECT_EQ(Select(*session_, kSeminarEntries), (Rows{{1, 105}, {2, 105}, {3, 105}, {4, 106}, {6, 105}}));
}

TEST_F(CancellationForReal, AnEntryFromElsewhereForTheSamePersonAndSeminarCountsAsDone) {
    Write(*session_, "INSERT INTO Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID, Herkunft) VALUES (8, 2, 5, 100, 1)");
    Write(*session_, "INSERT INTO Sem_WartelisteSem_IT (SemWarteListeID, SemID) VALUES (8, 105)");
    Stored(17, 1)->StornoTeilnehmerInWarteliste();
    EXPECT_EQ(Select(*session_, kEntries), (Rows{{8, Int16{2}, 5, 100, Int16{1}}}));
}

TEST_F(CancellationForReal, TheEntryIsDatedByTheServerAtTheMomentOfTheBatchAndTheOtherColumnsStayNull) {
    NOT_ON_A_SERVER("its clock cannot be pinned");
    const auto record = Stored(17, 1);
    EXPECT_EQ(record->ErfDatum(), participant_statements::kToday);
    // The clock of the embedded server is that of the thread.
    const PinnedNow later(DateTime::Of(2010, 9, 6, 11, 20, 31));
    record->StornoTeilnehmerInWarteliste();
    EXPECT_EQ(Select(*session_, "SELECT ErfDat, Wunschtermin, Status, GeaendertAm, GeaendertVon FROM Sem_Warteliste_IT"),
              (Rows{{DateTime::Of(2010, 9, 6, 11, 20, 31), kNull, kNull, kNull, kNull}}));
}

TEST_F(CancellationForReal, TheEnrolmentStaysAsItWas) {
    const Text rows = "SELECT * FROM Sem_Teilnehmer_IT ORDER BY TeilnehmerID";
    const Rows before = Select(*session_, rows);
    ASSERT_EQ(before.size(), 6u);
    const auto record = Stored(17, 1);
    record->StornoTeilnehmerInWarteliste();
    EXPECT_EQ(Select(*session_, rows), before);
    EXPECT_EQ(record->Teilnahme(), -1);
    EXPECT_EQ(record->Bemerkung(), "Gemüse");
}

TEST_F(CancellationForReal, AFailureBetweenTheInsertsIsNotUndone) {
    Write(*session_, "CREATE UNIQUE INDEX EinEintrag ON Sem_WartelisteSem_IT (SemID)");
    Stored(17, 1)->StornoTeilnehmerInWarteliste();
    const auto error = RaisedBy([&] {
        Stored(17, 2)->StornoTeilnehmerInWarteliste();
        return 0;
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(LabelsOf(error), Labels{kLabelOfTheTransfer});
    EXPECT_EQ(ReadDescription(error->Description()).text, session_->LastErrorText());
    EXPECT_EQ(Select(*session_, kEntries), (Rows{{1, Int16{2}, 5, 100, Int16{2}}, {2, Int16{3}, 5, 77, Int16{2}}}));
    EXPECT_EQ(Select(*session_, kSeminarEntries), (Rows{{1, 105}}));
}

TEST_F(CancellationForReal, CancellingIsNothingButFieldsAndNeitherCostLinesNorWaitListReact) {
    Write(*session_,
          "INSERT INTO Sem_Teilnehmer_Kosten_IT (TeilnehmerID, KostenID, KostenArtID, Kostenbetrag, Kost) VALUES "
          "(1, 1, 3, 120.5, 4110), (1, 2, 3, 30, 4110)");
    const Text lines = "SELECT * FROM Sem_Teilnehmer_Kosten_IT ORDER BY KostenID";
    const Rows before = Select(*session_, lines);
    const auto record = Stored(17, 1);
    EXPECT_EQ(record->TeilnehmerKosten(), 150.5f);
    record->Teilnahme(0);
    EXPECT_EQ(record->TeilnehmerKosten(), 20.0f) << "before the write";
    record->storniertam(DateTime::Of(2010, 2, 28));
    record->StornoGrund(4);
    record->TeilnehmerKosten(12.5f);
    EXPECT_EQ(record->WriteToDatabase(0), true);
    EXPECT_EQ(Select(*session_, "SELECT Teilnahme, storniertam, StornoGrund, StornoKosten FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = 1"),
              (Rows{{Int16{0}, DateTime::Of(2010, 2, 28), 4, Int16{12}}}));
    EXPECT_EQ(Select(*session_, lines), before);
    EXPECT_EQ(Select(*session_, kEntries), Rows{});
    EXPECT_EQ(Stored(17, 1)->TeilnehmerKosten(), 12.0f);
}

TEST_F(CancellationForReal, TheOrderOfWriteAndTransferIsFree) {
    for (const Int32 key : {2, 3}) {
        const auto record = Stored(17, key);
        record->Teilnahme(0);
        if (key == 2) record->StornoTeilnehmerInWarteliste();
        EXPECT_EQ(record->WriteToDatabase(0), true);
        if (key == 3) record->StornoTeilnehmerInWarteliste();
    }
    EXPECT_EQ(Select(*session_, "SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE Teilnahme = 0 ORDER BY TeilnehmerID"),
              (Rows{{2}, {3}, {4}}));
    EXPECT_EQ(Select(*session_, kSeminarEntries), (Rows{{1, 105}, {2, 105}}));
}

}  // namespace
}  // namespace LumoSeminar
