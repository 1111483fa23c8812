#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>
#include <test_support/participant_statements.h>
#include <test_support/person_statements.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using person_statements::PersonOf;
using test_support::RaisedBy;
using test_support::SampleDatabase;
using test_support::SchemaDatabase;
using test_support::Select;
using test_support::Value;
using test_support::Write;
using Session = Ref<LumoConnection::AnySession>;

using PersonsForReal = participant_statements::ParticipantTest;
using LifeOfAPerson = participant_statements::ParticipantTest;
using colTeilnehmerForReal = participant_statements::ParticipantTest;

using Keys = std::vector<Int32>;
using History = Ref<Collection<clsTeilnehmer>>;

constexpr Byte kEmployee = 2;
constexpr Byte kApplicant = 3;
constexpr Byte kWorker = 4;
constexpr Int32 kUserID = 11;
const Text kNewKey = "0000000000";

/// The keys that a select gives, sorted.
Keys KeysOf(DataSession& session, const Text& condition) {
    Keys keys;
    for (const auto& row : Select(session, "SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE " + condition)) {
        keys.push_back(To<Int32>(row[0]));
    }
    std::ranges::sort(keys);
    return keys;
}

template <class List>
Keys InOrder(List&& list) {
    Keys keys;
    for (const auto& record : list) keys.push_back(record->TeilnehmerID());
    return keys;
}

Keys KeysOf(const Ref<colTeilnehmer>& list) {
    Keys keys = InOrder(list->NewEnum());
    std::ranges::sort(keys);
    return keys;
}

Keys KeysOf(const History& list) {
    Keys keys = InOrder(*list);
    std::ranges::sort(keys);
    return keys;
}

// Names

TEST_F(PersonsForReal, EveryEmployeeHasNamesAndNumberOfItsRow) {
    const auto session = SampleDatabase();
    const auto rows = Select(*session, "SELECT MDNR, ANNR, Name, Vorname FROM Arbeitnehmer");
    EXPECT_GT(rows.size(), 100U);
    for (const auto& row : rows) {
        const Int32 number = To<Int32>(row[1]);
        const auto person = PersonOf(session, kEmployee, number, To<Int32>(row[0]));
        EXPECT_EQ(Variant(person->Nachname()), row[2]);
        EXPECT_EQ(Variant(person->Vorname()), row[3]);
        EXPECT_EQ(person->PersNr(), std::to_string(number)) << "a number arrives as its decimal text";
    }
}

TEST_F(PersonsForReal, EveryApplicantAndTemporaryWorkerHasNamesAndNumberOfItsRowWhateverTheClient) {
    const auto session = SampleDatabase();
    const auto applicants = Select(*session, "SELECT BWID, Nachname, Vornamem, BWNr FROM BW");
    EXPECT_EQ(applicants.size(), 14U);
    for (const auto& row : applicants) {
        const auto person = PersonOf(session, kApplicant, To<Int32>(row[0]), 99);
        EXPECT_EQ(Variant(person->Nachname()), row[1]);
        EXPECT_EQ(Variant(person->Vorname()), row[2]);
        EXPECT_EQ(Variant(person->PersNr()), row[3]);
    }
    const auto workers = Select(*session, "SELECT LID, Name, Vorname FROM LA");
    EXPECT_EQ(workers.size(), 18U);
    for (const auto& row : workers) {
        for (const Byte kind : {kWorker, Byte{0}, Byte{9}}) {
            const auto person = PersonOf(session, kind, To<Int32>(row[0]), 99);
            EXPECT_EQ(Variant(person->Nachname()), row[1]);
            EXPECT_EQ(Variant(person->Vorname()), row[2]);
            EXPECT_EQ(person->PersNr(), std::to_string(To<Int32>(row[0])));
        }
    }
}

TEST_F(PersonsForReal, UmlautsAndQuotesComeAsTheyStand) {
    const auto session = SampleDatabase();
    const auto yildiz = PersonOf(session, kApplicant, 2);
    EXPECT_EQ(yildiz->Nachname(), "Yıldız");
    EXPECT_EQ(yildiz->Vorname(), "Çetin");
    EXPECT_EQ(yildiz->PersNr(), "B-2009-010");
    EXPECT_EQ(PersonOf(session, kApplicant, 1)->Nachname(), "D'Angelo");
    EXPECT_EQ(PersonOf(session, kWorker, 15)->Nachname(), "Häußler");
    Write(*session, "UPDATE Arbeitnehmer SET Name = 'von der Größe, \"Öl\" & ''Söhne''', Vorname = NULL WHERE ANNR = 159");
    const auto employee = PersonOf(session, kEmployee, 159, 1);
    EXPECT_EQ(employee->Nachname(), "von der Größe, \"Öl\" & 'Söhne'");
    EXPECT_EQ(employee->Vorname(), "");
    EXPECT_EQ(employee->PersNr(), "159");
}

TEST_F(PersonsForReal, APersonWithoutARowIsEmptyKeepsWhatIsLetAndIsNotWritten) {
    const auto session = SampleDatabase();
    const Text rows = "SELECT COUNT(*) FROM ";
    for (const Byte kind : {kEmployee, kApplicant, kWorker, Byte{9}}) {
        const auto person = PersonOf(session, kind, 4711, 1);
        EXPECT_EQ(person->Nachname(), "");
        EXPECT_EQ(person->Vorname(), "");
        EXPECT_EQ(person->PersNr(), "");
        person->Vorname("Käthe");
        EXPECT_EQ(person->Vorname(), "Käthe");
        EXPECT_EQ(person->colWeiterbildungen()->Count(), 0);
    }
    EXPECT_EQ(Value(*session, rows + "BW"), Variant(14));
    EXPECT_EQ(Value(*session, rows + "LA"), Variant(18));
    EXPECT_EQ(Value(*session, rows + "Arbeitnehmer WHERE ANNR = 4711"), Variant(0));
}

TEST_F(PersonsForReal, WithoutItsTableAPersonRaises9999AndIsReadOnceItIsThere) {
    const auto session = test_support::EmptyDatabase();
    const auto person = PersonOf(session, kWorker, 1);
    const auto error = RaisedBy([&] { return person->Nachname(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(), "in line: 0\r\n" + session->LastErrorText() + " in LumoSeminar.IsInitializedPerson");
    EXPECT_NE(session->LastErrorText(), "");
    test_support::RunSchemaFile(*session, "schema.sql");
    Write(*session, "INSERT INTO LA (LID, Name, Vorname) VALUES (1, 'Löffler', 'Käthe')");
    EXPECT_EQ(person->Nachname(), "Löffler");
}

// Sessions of its own

void MakeEmbeddedSessions() {
    SetComponents({.data_session = [] { return New<LumoConnection::EmbeddedSession>(); },
                   .info_dispatcher = {},
                   .info_starter = {},
                   .session_defaults = {}});
}

TEST_F(PersonsForReal, APersonMakesItsSessionFromAConnectionText) {
    MakeEmbeddedSessions();
    Ref<DataSession> session;
    const auto person = New<clsWBPerson>();
    EXPECT_EQ(person->Init(1, 7, kWorker, session, "Provider=Embedded;Data Source=:memory:", "sa", ""), false);
    ASSERT_TRUE(session);
    test_support::RunSchemaFile(*session, "schema.sql");
    test_support::RunSchemaFile(*session, "sample.sql");
    EXPECT_EQ(person->Nachname(), "Lewandowski");
    EXPECT_EQ(person->Vorname(), "Krzysztof");
}

TEST_F(PersonsForReal, ASessionThatCouldNotConnectShowsAtTheFirstStatement) {
    MakeEmbeddedSessions();
    for (const char* text : {"", "Provider=Embedded;Data Source=/dieses/Verzeichnis/gibt/es/nicht/größe.db"}) {
        Ref<DataSession> session;
        const auto person = New<clsWBPerson>();
        EXPECT_EQ(person->Init(1, 7, kWorker, session, text), false);
        ASSERT_TRUE(session);
        EXPECT_EQ(person->PersGr(), "LA");
        EXPECT_RAISES(9999, person->Nachname());
        EXPECT_RAISES(9999, person->colWeiterbildungen());
        EXPECT_EQ(person->colWeiterbildungen()->Count(), 0);
    }
}

// Training histories

TEST_F(PersonsForReal, EveryPersonOfEveryKindHasItsEnrolmentsInTheOrderOfTheirDays) {
    const auto session = SampleDatabase();
    const struct {
        Byte kind;
        const char* people;
        const char* column;
    } cases[] = {{kEmployee, "SELECT MDNR, ANNR FROM Arbeitnehmer WHERE ANNR < 200", "ANNr"},
                 {kApplicant, "SELECT 1, BWID FROM BW", "BWID"},
                 {kWorker, "SELECT 1, LID FROM LA", "LAID"},
                 {9, "SELECT 1, LID FROM LA", "LAID"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(int{c.kind});
        std::size_t enrolments = 0;
        Int32 longest = 0;
        for (const auto& row : Select(*session, c.people)) {
            const Int32 client = To<Int32>(row[0]);
            const Int32 key = To<Int32>(row[1]);
            Text condition = Text(c.column) + " = " + std::to_string(key);
            if (c.kind == kEmployee) condition += " AND MDNr = " + std::to_string(client);
            const auto person = PersonOf(session, c.kind, key, client);
            const auto history = person->colWeiterbildungen();
            EXPECT_EQ(KeysOf(history), KeysOf(*session, condition)) << condition;
            std::vector<std::tuple<DateTime, DateTime, DateTime, DateTime>> days;
            for (const auto& record : *history) {
                EXPECT_EQ(record->objWBPerson(), person);
                EXPECT_EQ(history->Item(record->Key()), record);
                EXPECT_EQ(Variant(record->SemTerminID()),
                          Value(*session, "SELECT SemTerminID FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = " +
                                              std::to_string(record->TeilnehmerID())));
                days.emplace_back(record->BeginnDatum(), record->BegUhrzeit(), record->EndeDatum(), record->EndUhrzeit());
            }
            EXPECT_TRUE(std::ranges::is_sorted(days)) << condition;
            enrolments += days.size();
            longest = std::max(longest, history->Count());
        }
        EXPECT_GT(enrolments, c.kind == kApplicant ? 1U : 10U);
        EXPECT_GE(longest, c.kind == kApplicant ? 1 : 3);
    }
}

TEST_F(PersonsForReal, EnrolmentsOfOneDayAreOrderedByTheirTimesAndTheirEnd) {
    const auto session = SchemaDatabase();
    const auto Enrol = [&](int key, const Text& begin, const Text& from, const Text& end, const Text& to) {
        const auto Time = [](const Text& text) { return "convert(datetime,'" + text + "',104)"; };
        Write(*session,
              "INSERT INTO Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, BWID, BeginnDatum, BegUhrzeit, EndeDatum, EndUhrzeit) "
              "VALUES (" +
                  std::to_string(key) + ", 1, 45, " + Time(begin) + ", " + Time("30.12.1899 " + from) + ", " +
                  Time(end) + ", " + Time("30.12.1899 " + to) + ")");
    };
    Enrol(1, "04.03.2010", "08:00", "04.03.2010", "16:00");
    Enrol(2, "03.03.2010", "09:00", "03.03.2010", "10:00");
    Enrol(3, "03.03.2010", "08:00", "05.03.2010", "09:00");
    Enrol(4, "03.03.2010", "08:00", "04.03.2010", "17:00");
    Enrol(5, "03.03.2010", "08:00", "04.03.2010", "16:00");
    Enrol(6, "31.12.2009", "18:00", "06.03.2010", "20:00");
    Write(*session, "INSERT INTO Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, BWID, LAID) VALUES (7, 1, 45, 45)");
    EXPECT_EQ(InOrder(*PersonOf(session, kApplicant)->colWeiterbildungen()), (Keys{7, 6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(InOrder(*PersonOf(session, kWorker)->colWeiterbildungen()), Keys{7});
    EXPECT_EQ(InOrder(*PersonOf(session, kEmployee)->colWeiterbildungen()), Keys{});
}

TEST_F(PersonsForReal, TheEmployeeOfOneClientHasNotTheHistoryOfTheSameNumberOfAnother) {
    const auto session = SampleDatabase();
    const auto first = PersonOf(session, kEmployee, 102, 1);
    const auto second = PersonOf(session, kEmployee, 102, 2);
    EXPECT_EQ(KeysOf(first->colWeiterbildungen()), KeysOf(*session, "MDNr = 1 AND ANNr = 102"));
    EXPECT_EQ(KeysOf(second->colWeiterbildungen()), KeysOf(*session, "MDNr = 2 AND ANNr = 102"));
    EXPECT_NE(KeysOf(first->colWeiterbildungen()), KeysOf(second->colWeiterbildungen()));
    EXPECT_FALSE(first->Nachname() + first->Vorname() == second->Nachname() + second->Vorname());
}

TEST_F(PersonsForReal, AHistoryIsASnapshotAndItsRecordsAreWrittenBackForThePerson) {
    const auto session = SampleDatabase();
    const auto person = PersonOf(session, kWorker, 7, 1);
    const auto history = person->colWeiterbildungen();
    const auto before = KeysOf(history);
    const auto record = history->Item(1);
    record->Bemerkung("Käthe \"Kät\" löst ab");
    EXPECT_EQ(record->WriteToDatabase(kUserID), true);
    Write(*session, "INSERT INTO Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, MDNr, LAID) VALUES (900, 64, 1, 7)");
    EXPECT_EQ(KeysOf(person->colWeiterbildungen()), before);
    const auto again = PersonOf(session, kWorker, 7, 1)->colWeiterbildungen();
    EXPECT_EQ(again->Count(), static_cast<Int32>(before.size()) + 1);
    EXPECT_EQ(again->Item(record->Key())->Bemerkung(), "Käthe \"Kät\" löst ab");
    EXPECT_EQ(again->Item("0000000900")->NameVorname(), "Lewandowski, Krzysztof");
}

// Lives. The session is held by person and participants, so its count tells whether all of them are gone.

/// A database with temporary worker 7, who has the enrolments 440, 459 and 557 in date 54, and applicant 1.
Session TwoPersons() {
    auto session = SchemaDatabase();
    Write(*session, "INSERT INTO LA (LID, Name, Vorname) VALUES (7, 'Löffler', 'Käthe')");
    Write(*session, "INSERT INTO BW (BWID, BWNr, Nachname, Vornamem) VALUES (1, 'B-1', 'D''Angelo', 'Chiara')");
    for (const char* key : {"440", "459", "557"}) {
        Write(*session, "INSERT INTO Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, MDNr, LAID, ErfUser) VALUES (" +
                            Text(key) + ", 54, 1, 7, 'Jörg')");
    }
    return session;
}

/// The temporary worker, with its history read and none of it held.
Ref<clsWBPerson> WithHistory(const Session& session) {
    auto person = PersonOf(session, kWorker, 7, 1);
    EXPECT_EQ(KeysOf(person->colWeiterbildungen()), (Keys{440, 459, 557}));
    EXPECT_EQ(session.UseCount(), 5) << "the test, the person, the records";
    return person;
}

bool AllGone(const Session& session) { return session.UseCount() == 1; }

TEST_F(LifeOfAPerson, APersonThatIsDroppedFirstIsReachedThroughAParticipantAndSoAreTheOthers) {
    const auto session = TwoPersons();
    auto person = WithHistory(session);
    const clsWBPerson* const address = person.Get();
    auto record = person->colWeiterbildungen()->Item("0000000459");
    person.Reset();
    EXPECT_EQ(record->objWBPerson().Get(), address);
    EXPECT_EQ(record->NameVorname(), "Löffler, Käthe");
    EXPECT_EQ(KeysOf(record->objWBPerson()->colWeiterbildungen()), (Keys{440, 459, 557}));
    EXPECT_EQ(record->objWBPerson()->colWeiterbildungen()->Item(record->Key()), record);
    record.Reset();
    EXPECT_TRUE(AllGone(session));
}

TEST_F(LifeOfAPerson, APersonTakenFromAParticipantStaysWithoutIt) {
    const auto session = TwoPersons();
    auto record = WithHistory(session)->colWeiterbildungen()->Item(1);
    auto person = record->objWBPerson();
    record.Reset();
    EXPECT_EQ(person->Nachname(), "Löffler");
    EXPECT_EQ(person->colWeiterbildungen()->Count(), 3);
    person.Reset();
    EXPECT_TRUE(AllGone(session));
}

TEST_F(LifeOfAPerson, AnEntryThatIsFiledOnceMoreInItsHistoryHoldsNobody) {
    const auto session = TwoPersons();
    {
        const auto history = WithHistory(session)->colWeiterbildungen();
        history->Add(history->Item(1), "noch einmal");
        EXPECT_EQ(history->Item("noch einmal"), history->Item(1));
    }
    EXPECT_TRUE(AllGone(session));
}

TEST_F(LifeOfAPerson, AParticipantThatIsGivenItsOwnPersonHoldsNobody) {
    const auto session = TwoPersons();
    {
        const auto record = WithHistory(session)->colWeiterbildungen()->Item(1);
        const auto own = record->objWBPerson();
        record->objWBPerson(own);
        EXPECT_EQ(record->objWBPerson(), own);
        const auto other = PersonOf(session, kEmployee, 2);
        record->objWBPerson(other);
        EXPECT_EQ(record->objWBPerson(), other);
        record->objWBPerson(own);
        EXPECT_EQ(record->objWBPerson(), own);
    }
    EXPECT_TRUE(AllGone(session));
}

TEST_F(LifeOfAPerson, ParticipantsThatAreDroppedFirstStayWithThePerson) {
    const auto session = TwoPersons();
    auto person = WithHistory(session);
    std::vector<Ref<clsTeilnehmer>> records;
    for (const auto& record : *person->colWeiterbildungen()) records.push_back(record);
    records[0]->Bemerkung("im Speicher");
    records.clear();
    EXPECT_EQ(person->colWeiterbildungen()->Item(1)->Bemerkung(), "im Speicher");
    person.Reset();
    EXPECT_TRUE(AllGone(session));
}

TEST_F(LifeOfAPerson, ParticipantsTakenOutOfTheHistoryGoUnlessTheyAreHeldAndReachThePersonThatNoLongerListsThem) {
    const auto session = TwoPersons();
    auto person = WithHistory(session);
    auto record = person->colWeiterbildungen()->Item(1);
    while (person->colWeiterbildungen()->Count() > 0) person->colWeiterbildungen()->Remove(1);
    EXPECT_EQ(session.UseCount(), 3) << "the test, the person, the record";
    person.Reset();
    EXPECT_EQ(record->objWBPerson()->PersonID(), 7);
    EXPECT_EQ(record->objWBPerson()->colWeiterbildungen()->Count(), 0);
    record.Reset();
    EXPECT_TRUE(AllGone(session));
}

TEST_F(LifeOfAPerson, TheListAloneKeepsPersonAndParticipants) {
    const auto session = TwoPersons();
    auto person = WithHistory(session);
    const clsWBPerson* const address = person.Get();
    History list = person->colWeiterbildungen();
    person.Reset();
    for (const auto& record : *list) EXPECT_EQ(record->objWBPerson().Get(), address);
    EXPECT_EQ(list->Item(1)->NameVorname(), "Löffler, Käthe");
    EXPECT_EQ(list->Item(1)->objWBPerson()->colWeiterbildungen(), list);
    list.Reset();
    EXPECT_TRUE(AllGone(session));
}

TEST_F(LifeOfAPerson, AnEnumeratorAloneKeepsPersonAndParticipants) {
    const auto session = TwoPersons();
    auto person = WithHistory(session);
    const clsWBPerson* const address = person.Get();
    {
        const Enumerator<clsTeilnehmer> walk(person->colWeiterbildungen());
        person.Reset();
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(InOrder(walk).size(), 3U);
            for (const auto& record : walk) EXPECT_EQ(record->objWBPerson().Get(), address);
        }
    }
    EXPECT_TRUE(AllGone(session));
}

TEST_F(LifeOfAPerson, AWalkGoesOnWhileThePersonIsDroppedAndTheHistoryEmptied) {
    const auto session = TwoPersons();
    auto person = WithHistory(session);
    Keys met;
    Ref<clsTeilnehmer> last;
    for (const auto& record : Enumerator(person->colWeiterbildungen())) {
        person.Reset();
        EXPECT_EQ(record->objWBPerson()->PersonID(), 7);
        record->objWBPerson()->colWeiterbildungen()->Remove(record->Key());
        met.push_back(record->TeilnehmerID());
        last = record;
    }
    std::ranges::sort(met);
    EXPECT_EQ(met, (Keys{440, 459, 557}));
    EXPECT_EQ(last->objWBPerson()->colWeiterbildungen()->Count(), 0);
    last.Reset();
    EXPECT_TRUE(AllGone(session));
}

TEST_F(LifeOfAPerson, AParticipantGivenAnotherPersonStillKeepsItsHistory) {
    const auto session = TwoPersons();
    auto person = WithHistory(session);
    auto list = person->colWeiterbildungen();
    auto record = list->Item(1);
    record->objWBPerson(PersonOf(session, kApplicant, 1));
    person.Reset();
    list.Reset();
    EXPECT_EQ(record->NameVorname(), "D'Angelo, Chiara");
    EXPECT_EQ(session.UseCount(), 6) << "the other person, too";
    record.Reset();
    EXPECT_TRUE(AllGone(session));
}

TEST_F(LifeOfAPerson, ParticipantsOfADateHavePersonsWithHistoriesOfTheirOwn) {
    const auto session = TwoPersons();
    auto list = New<colTeilnehmer>();
    EXPECT_EQ(list->Init(54, session), true);
    auto record = list->Item("0000000459");
    auto same = record->objWBPerson()->colWeiterbildungen()->Item("0000000459");
    EXPECT_FALSE(same == record);
    EXPECT_EQ(same->objWBPerson(), record->objWBPerson());
    list.Reset();
    record.Reset();
    EXPECT_EQ(same->NameVorname(), "Löffler, Käthe");
    EXPECT_EQ(KeysOf(same->objWBPerson()->colWeiterbildungen()), (Keys{440, 459, 557}));
    same.Reset();
    EXPECT_TRUE(AllGone(session));
}

TEST_F(LifeOfAPerson, AHistoryThatFailsHalfWayLeavesNothingBehind) {
    const auto session = TwoPersons();
    Write(*session, "UPDATE Sem_Teilnehmer_IT SET ErfUser = NULL WHERE TeilnehmerID = 459");
    SetComponents({});
    auto person = PersonOf(session, kWorker, 7, 1);
    const auto error = RaisedBy([&] { return person->colWeiterbildungen(); });
    ASSERT_TRUE(error) << "there is no maker of the session defaults";
    EXPECT_EQ(error->Number(), 429);
    auto record = person->colWeiterbildungen()->Item("0000000440");
    EXPECT_EQ(person->colWeiterbildungen()->Count(), 1);
    person.Reset();
    EXPECT_EQ(record->NameVorname(), "Löffler, Käthe");
    record.Reset();
    EXPECT_TRUE(AllGone(session));
}

TEST_F(LifeOfAPerson, AHistoryOfAPersonThatIsNotSharedIsListedAndItsParticipantsHavePersonsOfTheirOwn) {
    const auto session = TwoPersons();
    History list;
    {
        clsWBPerson person;
        Ref<DataSession> of = session;
        person.Init(1, 7, kWorker, of);
        list = person.colWeiterbildungen();
        EXPECT_EQ(list, person.colWeiterbildungen());
        EXPECT_FALSE(list->Item(1)->objWBPerson().Get() == &person);
    }
    EXPECT_EQ(KeysOf(list), (Keys{440, 459, 557}));
    EXPECT_EQ(list->Item(1)->NameVorname(), "Löffler, Käthe");
    list.Reset();
    EXPECT_TRUE(AllGone(session));
}

// Lists of participants

Ref<colTeilnehmer> Listed(const Session& session, Int32 date) {
    auto list = New<colTeilnehmer>();
    EXPECT_EQ(list->Init(date, session), true);
    return list;
}

TEST_F(colTeilnehmerForReal, EveryDateListsItsParticipantsAndTheFilterTheEnrolledOnes) {
    const auto session = SampleDatabase();
    int cancelled = 0;
    Int32 listed = 0;
    for (const auto& row : Select(*session, "SELECT SemTerminID FROM Sem_Termin_IT")) {
        const Int32 date = To<Int32>(row[0]);
        const Text of_date = "SemTerminID = " + std::to_string(date);
        const auto all = Listed(session, date);
        EXPECT_EQ(KeysOf(all), KeysOf(*session, of_date)) << date;
        listed += all->Count();
        const auto enrolled = New<colTeilnehmer>();
        EXPECT_EQ(enrolled->Init(date, session, " AND Teilnahme <> 0"), true);
        EXPECT_EQ(KeysOf(enrolled), KeysOf(*session, "Teilnahme <> 0 AND " + of_date)) << date;
        cancelled += static_cast<int>(KeysOf(*session, "Teilnahme = 0 AND " + of_date).size());
    }
    EXPECT_GT(cancelled, 0);
    EXPECT_EQ(Value(*session, "SELECT COUNT(*) FROM Sem_Teilnehmer_IT"), Variant(listed));
}

TEST_F(colTeilnehmerForReal, AFilterMayHoldUmlautsQuotesAndAnOrderAndABrokenOneIsFalse) {
    const auto session = SampleDatabase();
    Write(*session, "UPDATE Sem_Teilnehmer_IT SET Bemerkung = 'Größe \"L\", Käthe''s Wunsch' WHERE TeilnehmerID = 641");
    const auto list = New<colTeilnehmer>();
    EXPECT_EQ(list->Init(64, session, " AND Bemerkung = 'Größe \"L\", Käthe''s Wunsch'"), true);
    ASSERT_EQ(list->Count(), 1);
    EXPECT_EQ(list->Item("0000000641")->Bemerkung(), "Größe \"L\", Käthe's Wunsch");
    const auto ordered = New<colTeilnehmer>();
    EXPECT_EQ(ordered->Init(64, session, " ORDER BY TeilnehmerID DESC"), true);
    EXPECT_EQ(ordered->Item(1)->TeilnehmerID(), 641);
    for (const char* broken : {" AND Bemerkung = 'Käthe's'", "AND Teilnahme", " AND Größe = 1", " OR"}) {
        colTeilnehmer none;
        EXPECT_EQ(none.Init(64, session, broken), false) << broken;
        EXPECT_EQ(none.Count(), 0);
    }
}

TEST_F(colTeilnehmerForReal, RemoveDeletesOneRowAndRemoveColOnlyNoneAndTheListIsASnapshot) {
    const auto session = SampleDatabase();
    const auto list = Listed(session, 64);
    const Int32 all = list->Count();
    const Text count = "SELECT COUNT(*) FROM Sem_Teilnehmer_IT WHERE SemTerminID = 64";
    EXPECT_EQ(Value(*session, count), Variant(all));
    list->AddEmptyObject();
    EXPECT_EQ(list->Remove(kNewKey), true);
    EXPECT_EQ(Value(*session, count), Variant(all));
    EXPECT_EQ(list->Remove("0000000641"), true);
    EXPECT_EQ(Value(*session, count), Variant(all - 1));
    EXPECT_EQ(list->RemoveColOnly(1), true);
    EXPECT_EQ(list->Count(), all - 2);
    EXPECT_EQ(Value(*session, count), Variant(all - 1));
    Write(*session, "DELETE FROM Sem_Teilnehmer_IT WHERE SemTerminID = 64");
    EXPECT_EQ(list->Count(), all - 2);
    EXPECT_EQ(list->Remove(1), true) << "nothing to delete is no failure";
    Write(*session, "DROP TABLE Sem_Teilnehmer_IT");
    EXPECT_EQ(list->Remove(1), false);
    EXPECT_EQ(list->Count(), all - 3);
}

TEST_F(colTeilnehmerForReal, TwoEmptyObjectsWrittenOneBehindTheOtherNeedAChangeKeyBetween) {
    const auto session = SampleDatabase();
    const auto list = Listed(session, 64);
    const auto first = list->AddEmptyObject().As<clsTeilnehmer>();
    first->Bemerkung("Ähre");
    EXPECT_EQ(first->WriteToDatabase(kUserID), true);
    EXPECT_EQ(list->AddEmptyObject(), first);
    list->ChangeKey(kNewKey, first->Key());
    const auto second = list->AddEmptyObject().As<clsTeilnehmer>();
    second->Bemerkung("Öl");
    EXPECT_EQ(second->WriteToDatabase(kUserID), true);
    list->ChangeKey(kNewKey, second->Key());
    EXPECT_EQ(first->TeilnehmerID(), 642);
    EXPECT_EQ(second->TeilnehmerID(), 643);
    EXPECT_EQ(KeysOf(list), KeysOf(*session, "SemTerminID = 64"));
    EXPECT_EQ(Listed(session, 64)->Item("0000000643")->Bemerkung(), "Öl");
}

}  // namespace
}  // namespace LumoSeminar
