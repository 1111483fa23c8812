#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include <LumoSeminar/catalogue/clsSeminar.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
#include <test_support/check_statements.h>
#include <test_support/comma_locale.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

using participant_statements::kNow;
using participant_statements::Labels;
using test_support::LabelsOf;
using test_support::RaisedBy;
using test_support::Rows;
using test_support::Select;
using test_support::Write;
using waitlist_statements::Bound;
using waitlist_statements::kLogin;
using waitlist_statements::Property;
using Keys = std::vector<Text>;

constexpr Int32 kUserID = 99;
const Variant kNull = Variant::Null();

/// The moment is pinned to 02.03.2010 17:45:09.
using WaitListForReal = participant_statements::ParticipantTest;

/// All tables, a client, and nothing else, for a user of the database.
Ref<DataSession> Database(const Text& login = kLogin) {
    auto session = New<LumoConnection::EmbeddedSession>();
    EXPECT_EQ(session->Connect("Provider=Embedded;Data Source=:memory:", login, "", 30), true);
    test_support::RunSchemaFile(*session, "schema.sql");
    Write(*session, "INSERT INTO OpactMD (MDNR, Bezeichnung) VALUES (5, N'Käthe Löffler \"Söhne\"')");
    return session;
}

/// A new entry of employee 45 of client 5, not yet written.
Ref<clsSemWarteliste> NewEntry(const Ref<DataSession>& session, Int32 date, Int32 seminar = 0) {
    auto entry = Bound(session, 0);
    entry->ModId(2);
    entry->MDNR(5);
    entry->TNID(45);
    entry->Herkunft(3);
    entry->SemTerminID(date);
    entry->SemID(seminar);
    return entry;
}

/// An entry as another program may have stored it.
void Store(const Ref<DataSession>& session, Int32 key, const Text& moment, Int32 kind = 2, Int32 person = 45) {
    Write(*session,
          "INSERT INTO Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID, ErfDat, Herkunft, Wunschtermin, "
          "Status, GeaendertAm, GeaendertVon) VALUES (" +
              std::to_string(key) + ", " + std::to_string(kind) + ", 5, " + std::to_string(person) +
              ", Convert(datetime,'" + moment +
              "',104), 3, Convert(datetime,'01.04.2010',104), -1, Convert(datetime,'20.02.2010 23:59:58',104), "
              "N'Özgür')");
}

void BindToDate(const Ref<DataSession>& session, Int32 key, Int32 date) {
    Write(*session, waitlist_statements::BindToDate(key, date));
}

void BindToSeminar(const Ref<DataSession>& session, Int32 key, Int32 seminar) {
    Write(*session, waitlist_statements::BindToSeminar(key, seminar));
}

Rows Stored(const Ref<DataSession>& session) {
    return Select(*session, "SELECT * FROM Sem_Warteliste_IT ORDER BY SemWarteListeID");
}

Rows OnDates(const Ref<DataSession>& session) {
    return Select(*session, "SELECT * FROM Sem_WartelisteTermin_IT ORDER BY SemWarteListeID, SemTerminID");
}

Rows OnSeminars(const Ref<DataSession>& session) {
    return Select(*session, "SELECT * FROM Sem_WartelisteSem_IT ORDER BY SemWarteListeID, SemID");
}

Ref<colSemWarteliste> All(const Ref<DataSession>& session) {
    auto list = New<colSemWarteliste>();
    list->LoadListComplete(session);
    return list;
}

Keys KeysOf(const Ref<colSemWarteliste>& list) {
    Keys keys;
    for (const auto& entry : list->NewEnum()) keys.push_back(entry->Key());
    return keys;
}

// Entries

TEST_F(WaitListForReal, ANewEntryIsStoredAndReadsPlainFromItsListAndShiftedAlone) {
    const auto session = Database();
    const auto entry = NewEntry(session, 17);
    entry->Wunschtermin(DateTime::Of(2010, 4, 1, 23, 59));
    EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
    EXPECT_EQ(Stored(session),
              (Rows{{1, Int16{2}, 5, 45, kNow, Int16{3}, DateTime::Of(2010, 4, 1), Int16{-1}, kNow, kLogin}}));
    EXPECT_EQ(OnDates(session), (Rows{{1, 17}}));
    EXPECT_EQ(OnSeminars(session), Rows{});

    const auto listed = All(session)->Item("1");
    EXPECT_EQ(listed->ModId(), 2);
    EXPECT_EQ(listed->MDNR(), 5);
    EXPECT_EQ(listed->TNID(), 45);
    EXPECT_EQ(listed->ErfDat(), kNow);
    EXPECT_EQ(listed->Herkunft(), 3);
    EXPECT_EQ(listed->Wunschtermin(), DateTime::Of(2010, 4, 1));
    EXPECT_EQ(listed->SemTerminID(), 17);
    EXPECT_EQ(listed->SemID(), 0);
    EXPECT_EQ(listed->Status(), 1);
    EXPECT_EQ(listed->GeaendertAm(), kNow);
    EXPECT_EQ(listed->GeaendertVon(), kLogin);

    const auto alone = Bound(session, 1);
    EXPECT_EQ(alone->TNID(), 45);
    EXPECT_EQ(alone->ErfDat(), kNow);
    EXPECT_EQ(alone->SemTerminID(), 17);
    EXPECT_EQ(alone->Status(), 0) << "the seminar, though -1 is stored";
    EXPECT_EQ(alone->GeaendertAm(), DateTime::Of(1899, 12, 29));
    EXPECT_EQ(alone->GeaendertVon(), "02.03.2010 17:45:09");
}

TEST_F(WaitListForReal, KeysCountOnFromTheLargestAndAnEntryIsBoundToItsDateOrElseToItsSeminar) {
    const auto session = Database();
    Store(session, 41, "14.02.2010 08:30:05");
    EXPECT_EQ(NewEntry(session, 17)->WriteToDatabase(kUserID), true);
    EXPECT_EQ(NewEntry(session, 0, 105)->WriteToDatabase(kUserID), true);
    EXPECT_EQ(NewEntry(session, 18, 106)->WriteToDatabase(kUserID), true);
    EXPECT_EQ(OnDates(session), (Rows{{42, 17}, {44, 18}}));
    EXPECT_EQ(OnSeminars(session), (Rows{{43, 105}}));
}

TEST_F(WaitListForReal, AtMidnightAndWithACommaAsTheDecimalSeparatorTheMomentOfEntryIsTakenToo) {
    const PinnedNow midnight(DateTime::Of(2010, 3, 3));
    const test_support::CommaLocale comma;
    const auto session = Database();
    EXPECT_EQ(NewEntry(session, 17)->WriteToDatabase(kUserID), true);
    EXPECT_EQ(All(session)->Item(1)->ErfDat(), DateTime::Of(2010, 3, 3));
    EXPECT_EQ(All(session)->Item(1)->GeaendertAm(), DateTime::Of(2010, 3, 3));
}

TEST_F(WaitListForReal, AnUpdateChangesWishStatusAndTheLastChangeAlone) {
    const auto session = Database();
    Store(session, 42, "14.02.2010 08:30:05");
    BindToDate(session, 42, 17);
    const auto entry = All(session)->Item(1);
    for (const Property& property : waitlist_statements::Properties()) property.let(*entry, property.other);
    entry->Status(5);
    EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
    EXPECT_EQ(Stored(session), (Rows{{42, Int16{2}, 5, 45, DateTime::Of(2010, 2, 14, 8, 30, 5), Int16{3},
                                      DateTime::Of(2010, 5, 3), Int16{0}, kNow, kLogin}}));
    EXPECT_EQ(OnDates(session), (Rows{{42, 17}}));
    EXPECT_EQ(OnSeminars(session), Rows{});
}

TEST_F(WaitListForReal, AnEntryThatWasOnlyBoundLosesItsWishAndItsConsentWithTheWrite) {
    const auto session = Database();
    Store(session, 7, "14.02.2010 08:30:05");
    EXPECT_EQ(Bound(session, 7)->WriteToDatabase(kUserID), true);
    const auto stored = Stored(session);
    ASSERT_EQ(stored.size(), 1U);
    EXPECT_EQ(stored[0][6], kNull);
    EXPECT_EQ(stored[0][7], Variant(Int16{0}));
    EXPECT_EQ(stored[0][9], Variant(kLogin));
}

TEST_F(WaitListForReal, AnEntryWithoutABindingIsNotStored) {
    const auto session = Database();
    EXPECT_EQ(NewEntry(session, 0)->WriteToDatabase(kUserID), false);
    EXPECT_EQ(Stored(session), Rows{});
}

TEST_F(WaitListForReal, ALoginWithAQuoteBreaksInsertAndUpdate) {
    const auto session = Database("Sinéad O'Ähre");
    const auto entry = NewEntry(session, 17);
    const auto insert = RaisedBy([&] { return entry->WriteToDatabase(kUserID); });
    ASSERT_TRUE(insert);
    EXPECT_EQ(insert->Number(), 9999);
    EXPECT_EQ(LabelsOf(insert), Labels{" in LumoSeminar.WriteToDatabase"});
    EXPECT_NE(ReadDescription(insert->Description()).text, "");
    EXPECT_EQ(Stored(session), Rows{});
    EXPECT_EQ(OnDates(session), Rows{});
    Store(session, 42, "14.02.2010 08:30:05");
    const auto before = Stored(session);
    EXPECT_RAISES(9999, Bound(session, 42)->WriteToDatabase(kUserID));
    EXPECT_EQ(Stored(session), before);
}

TEST_F(WaitListForReal, WithoutAnActiveClientThereIsNoLogin) {
    const auto session = Database();
    Write(*session, "DELETE FROM OpactMD");
    EXPECT_EQ(NewEntry(session, 17)->WriteToDatabase(kUserID), true);
    EXPECT_EQ(All(session)->Item(1)->GeaendertVon(), "");
}

TEST_F(WaitListForReal, WhereTheBindingIsRefusedTheRowIsTakenBackAndTheReasonIsTold) {
    const auto session = Database();
    Write(*session, "DROP TABLE Sem_WartelisteTermin_IT");
    Write(*session,
          "CREATE TABLE Sem_WartelisteTermin_IT (SemWarteListeID int NOT NULL, SemTerminID int NOT NULL CHECK "
          "(SemTerminID < 1000))");
    const auto entry = NewEntry(session, 1017);
    const auto error = RaisedBy([&] { return entry->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(LabelsOf(error), Labels{" in LumoSeminar.WriteToDatabase"});
    EXPECT_THAT(ReadDescription(error->Description()).text, testing::HasSubstr("Sem_WartelisteTermin_IT"));
    EXPECT_EQ(entry->SemWartelisteID(), 1);
    EXPECT_EQ(Stored(session), Rows{});
    EXPECT_EQ(NewEntry(session, 17)->WriteToDatabase(kUserID), true);
    EXPECT_EQ(OnDates(session), (Rows{{1, 17}}));
}

TEST_F(WaitListForReal, WhereTheRowCannotBeTakenBackItStaysWithoutABinding) {
    const auto session = Database();
    const auto entry = NewEntry(session, 17);
    Write(*session, "DROP TABLE Sem_WartelisteTermin_IT");
    EXPECT_RAISES_UNDER(9999, (Labels{" in LumoSeminar.DeleteFromDatabase", " in LumoSeminar.WriteToDatabase"}),
                        entry->WriteToDatabase(kUserID));
    EXPECT_EQ(Stored(session).size(), 1U);
}

/// Passes everything on, but for the largest key, which it has asked for too early.
class AskedTooEarly final : public DataSession {
  public:
    explicit AskedTooEarly(Ref<DataSession> to)
        : to_(std::move(to)), largest_(to_->LookupValue("max(SemWartelisteID)", "Sem_Warteliste_IT", "")) {}
    Ref<Connection> AdoConnection() override { return to_->AdoConnection(); }
    Ref<RecordSet> Recordset() override { return to_->Recordset(); }
    Bool OpenSelect(const Text& sql) override { return to_->OpenSelect(sql); }
    Bool Connect(const Text&, const Text&, const Text&, Int32) override { return false; }
    Bool ExecuteSql(const Text& sql) override { return to_->ExecuteSql(sql); }
    Variant LookupValue(const Text& expression, const Text& table, const Text& where) override {
        return expression == "max(SemWartelisteID)" ? largest_ : to_->LookupValue(expression, table, where);
    }
    Text LastErrorText() override { return to_->LastErrorText(); }

  private:
    Ref<DataSession> to_;
    Variant largest_;
};

TEST_F(WaitListForReal, OfTwoWritersWithOneKeyTheSecondIsRefused) {
    const auto session = Database();
    const auto second = NewEntry(New<AskedTooEarly>(session), 18);
    EXPECT_EQ(NewEntry(session, 17)->WriteToDatabase(kUserID), true);
    EXPECT_RAISES_UNDER(9999, Labels{" in LumoSeminar.WriteToDatabase"}, second->WriteToDatabase(kUserID));
    EXPECT_EQ(Stored(session).size(), 1U);
    EXPECT_EQ(OnDates(session), (Rows{{1, 17}})) << "the row of the first is not taken back";
}

TEST_F(WaitListForReal, ADeleteTakesTheEntryAndBothBindingsAndIsTrueWhereThereIsNothingToo) {
    const auto session = Database();
    for (const Int32 key : {7, 42}) {
        Store(session, key, "14.02.2010 08:30:05");
        BindToDate(session, key, 17);
        BindToSeminar(session, key, 105);
    }
    const auto entry = Bound(session, 42);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(entry->DeleteFromDatabase(), true);
    EXPECT_EQ(KeysOf(All(session)), Keys{"7"});
    EXPECT_EQ(OnDates(session), (Rows{{7, 17}}));
    EXPECT_EQ(OnSeminars(session), (Rows{{7, 105}}));
}

TEST_F(WaitListForReal, AloneTheEntryOfSeminar300OverflowsItsStatusAndInItsListItDoesNot) {
    const auto session = Database();
    Store(session, 7, "14.02.2010 08:30:05");
    BindToSeminar(session, 7, 300);
    const auto entry = Bound(session, 7);
    EXPECT_RAISES_UNDER(6, Labels{" in LumoSeminar.IsInitialized"}, entry->Status());
    EXPECT_RAISES(6, entry->TNID());
    EXPECT_EQ(All(session)->Item("7")->Status(), 1);

    Store(session, 8, "14.02.2010 08:30:05");
    BindToSeminar(session, 8, 105);
    EXPECT_EQ(Bound(session, 8)->Status(), 105);
}

TEST_F(WaitListForReal, AConsentIsWithdrawnForListedAndForBoundEntriesAndTheLatterLoseTheirWish) {
    const auto session = Database();
    for (const Int32 key : {7, 8}) Store(session, key, "14.02.2010 08:30:05");
    EXPECT_TRUE(All(session)->Item("7")->ZustimmungVerwerfen(kUserID).IsEmpty());
    EXPECT_TRUE(Bound(session, 8)->ZustimmungVerwerfen(kUserID).IsEmpty());
    const auto list = All(session);
    EXPECT_EQ(list->Item("7")->Status(), 0);
    EXPECT_EQ(list->Item("7")->Wunschtermin(), DateTime::Of(2010, 4, 1));
    EXPECT_EQ(list->Item("7")->GeaendertVon(), kLogin);
    EXPECT_EQ(list->Item("8")->Status(), 0);
    EXPECT_EQ(list->Item("8")->Wunschtermin(), DateTime());
}

// Lists

TEST_F(WaitListForReal, ListsComeInTheOrderOfEntryAndTiesInAny) {
    const auto session = Database();
    Store(session, 1, "14.02.2010 08:30:05");
    Store(session, 2, "13.02.2010 23:59:59");
    Store(session, 3, "14.02.2010 08:30:04");
    Store(session, 4, "14.02.2010 08:30:05");
    Store(session, 5, "31.12.2009");
    auto keys = KeysOf(All(session));
    ASSERT_EQ(keys.size(), 5U);
    std::sort(keys.begin() + 3, keys.end());
    EXPECT_EQ(keys, (Keys{"5", "2", "3", "1", "4"}));
}

TEST_F(WaitListForReal, AnEntryWithBothBindingsIsInBothListsAndOneWithNoneInNeither) {
    const auto session = Database();
    for (const Int32 key : {1, 2, 3, 4}) Store(session, key, "14.02.2010 08:30:0" + std::to_string(key));
    BindToDate(session, 1, 17);
    BindToDate(session, 2, 17);
    BindToSeminar(session, 2, 105);
    BindToSeminar(session, 3, 105);
    const auto all = New<colSemWarteliste>();
    all->LoadListCompleteMA(session, 5, 45);
    EXPECT_EQ(KeysOf(all), (Keys{"1", "2", "3", "4"}));
    EXPECT_EQ(all->Item("2")->SemTerminID(), 17);
    EXPECT_EQ(all->Item("2")->SemID(), 105);
    EXPECT_EQ(all->Item("4")->SemTerminID(), 0);
    EXPECT_EQ(all->Item("4")->SemID(), 0);
    const auto waiting = New<colSemWarteliste>();
    waiting->LoadWartelisteMA(session, 5, 45);
    EXPECT_EQ(KeysOf(waiting), (Keys{"1", "2"}));
    const auto interested = New<colSemWarteliste>();
    interested->LoadInteressentenlisteMA(session, 5, 45);
    EXPECT_EQ(KeysOf(interested), (Keys{"2", "3"}));
}

TEST_F(WaitListForReal, AnEntryOfTwoDatesBreaksTheListsThatShowBoth) {
    const auto session = Database();
    for (const Int32 key : {1, 2}) Store(session, key, "14.02.2010 08:30:0" + std::to_string(key));
    for (const Int32 date : {17, 18}) BindToDate(session, 2, date);
    BindToDate(session, 1, 17);
    colSemWarteliste of_date;
    of_date.LoadListSeminartermin(session, 17);
    EXPECT_EQ(of_date.Count(), 2);
    const auto of_person = New<colSemWarteliste>();
    EXPECT_RAISES_UNDER(457, Labels{" in LumoSeminar.LoadList"}, of_person->LoadWartelisteMA(session, 5, 45));
    EXPECT_EQ(KeysOf(of_person), (Keys{"1", "2"}));
}

TEST_F(WaitListForReal, TheListsOfAPersonShowEmployeesAloneAndThoseOfDateAndSeminarEveryKind) {
    const auto session = Database();
    for (const Int32 kind : {2, 3, 4}) {
        Store(session, kind, "14.02.2010 08:30:0" + std::to_string(kind), kind);
        BindToDate(session, kind, 17);
        BindToSeminar(session, kind, 105);
    }
    Store(session, 5, "14.02.2010", 2, 46);
    BindToDate(session, 5, 18);
    colSemWarteliste of_person;
    of_person.LoadListCompleteMA(session, 5, 45);
    EXPECT_EQ(of_person.Count(), 1);
    EXPECT_EQ(of_person.Item("2")->ModId(), 2);
    colSemWarteliste of_other_client;
    of_other_client.LoadListCompleteMA(session, 6, 45);
    EXPECT_EQ(of_other_client.Count(), 0);
    clsTermin date;
    date.Init(17, session);
    EXPECT_EQ(KeysOf(date.colWarteliste()), (Keys{"2", "3", "4"}));
    colSemWarteliste of_seminar;
    of_seminar.LoadListSeminar(session, 105);
    EXPECT_EQ(of_seminar.Count(), 3);
}

TEST_F(WaitListForReal, WhatIsRemovedFromAListIsThereAgainInTheNext) {
    const auto session = Database();
    for (const Int32 key : {1, 2}) {
        Store(session, key, "14.02.2010 08:30:0" + std::to_string(key));
        BindToDate(session, key, 17);
    }
    const auto list = New<colSemWarteliste>();
    list->LoadWartelisteMA(session, 5, 45);
    list->Remove("2");
    EXPECT_EQ(KeysOf(list), Keys{"1"});
    EXPECT_EQ(Stored(session).size(), 2U);
    list->Remove(1);
    list->LoadWartelisteMA(session, 5, 45);
    EXPECT_EQ(KeysOf(list), (Keys{"1", "2"}));
    EXPECT_RAISES(457, list->LoadWartelisteMA(session, 5, 45));
}

TEST_F(WaitListForReal, AnEntryOfACancellationHasNeitherConsentNorChange) {
    const auto session = Database();
    Write(*session, check_statements::TransferToDate(17, 45, 5, 2));
    const auto entry = All(session)->Item("1");
    EXPECT_EQ(entry->TNID(), 45);
    EXPECT_EQ(entry->Herkunft(), 2);
    EXPECT_EQ(entry->SemTerminID(), 17);
    EXPECT_EQ(entry->Wunschtermin(), DateTime());
    EXPECT_EQ(entry->Status(), 0);
    EXPECT_EQ(entry->GeaendertAm(), DateTime());
    EXPECT_EQ(entry->GeaendertVon(), "");
    const auto alone = Bound(session, 1);
    EXPECT_EQ(alone->Status(), 0);
    EXPECT_EQ(alone->GeaendertVon(), "");
}

TEST_F(WaitListForReal, DatesAndSeminarsOfTheSampleShowWhoWaitsForThem) {
    const auto session = test_support::SampleDatabase();
    clsTermin date;
    date.Init(62, session);
    EXPECT_EQ(KeysOf(date.colWarteliste()), (Keys{"35", "39", "52"}));
    EXPECT_EQ(date.colWarteliste()->Item("39")->GeaendertVon(), "spuetz");
    clsSeminar seminar;
    seminar.Init(35, session);
    EXPECT_EQ(KeysOf(seminar.colInteressentenliste()), (Keys{"19", "22", "32"}));
    EXPECT_EQ(seminar.colInteressentenliste()->Item("32")->Wunschtermin(), DateTime::Of(2011, 3, 1));
    clsSeminar missing;
    missing.Init(999, session);
    EXPECT_FALSE(missing.colInteressentenliste());
}

}  // namespace
}  // namespace LumoSeminar
