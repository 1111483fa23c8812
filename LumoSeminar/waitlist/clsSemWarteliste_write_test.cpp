#include <gtest/gtest.h>

#include <tuple>
#include <utility>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
#include <test_support/failures.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>
#include <test_support/termin_statements.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

using namespace waitlist_statements;
using LumoConnection::Script;
using participant_statements::kNow;
using participant_statements::Labels;
using termin_statements::With;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;

/// The moment is pinned to 02.03.2010 17:45:09.
using clsSemWartelisteWrite = participant_statements::ParticipantTest;

constexpr Int32 kUserID = 99;
const Variant kNull = Variant::Null();
const std::string kPresent = "02.03.2010 17:45:09";
const Labels kLabelsOfWrite = {" in LumoSeminar.WriteToDatabase"};
const Labels kLabelsOfDelete = {" in LumoSeminar.DeleteFromDatabase"};
const Labels kLabelsOfCleanUp = {" in LumoSeminar.DeleteFromDatabase", " in LumoSeminar.WriteToDatabase"};

/// Entry 42 as its list has filled it: it sends no load.
Ref<clsSemWarteliste> Listed(Script& script, const std::vector<Variant>& row = FullRow()) {
    ScriptList(script, "", {row});
    colSemWarteliste list;
    list.LoadListComplete(script.Session());
    return list.Item(1);
}

std::string UpdateOf(const std::string& wish, int status) { return Update(42, wish, status, kPresent, kLogin); }

/// A new entry of employee 45 of client 5 with these bindings, that has been looked for under key 0.
Ref<clsSemWarteliste> NewEntry(const Ref<DataSession>& session, Int32 date, Int32 seminar) {
    auto entry = Bound(session, 0);
    entry->ModId(2);
    entry->MDNR(5);
    entry->TNID(45);
    entry->Herkunft(3);
    entry->SemTerminID(date);
    entry->SemID(seminar);
    return entry;
}

const std::string kInsertOfNew = Insert("42,2,5,45,'" + kPresent + "',3,Null,-1,'" + kPresent + "','" + kLogin + "'");

/// From the fruitless load to the insert, without the binding.
void ScriptInsert(Script& script, const std::string& insert = kInsertOfNew) {
    ScriptEntry(script, 0, {});
    ScriptLogin(script);
    ScriptLargestKey(script);
    script.ExecuteSql(insert);
}

// Update

TEST_F(clsSemWartelisteWrite, AnEntryWithAKeyIsUpdatedInOneStatementBehindTheLookupOfTheLogin) {
    Script script;
    const auto entry = Listed(script);
    ScriptLogin(script);
    script.ExecuteSql(
        " UPDATE Sem_Warteliste_IT Set Wunschtermin = '01.04.2010', Status = -1, GeaendertAm = "
        "'02.03.2010 17:45:09', GeaendertVon = 'Jörg \"Jo\" Ähre' WHERE SemWarteListeID = 42");
    EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
    EXPECT_EQ(entry->GeaendertAm(), kNow);
    EXPECT_EQ(entry->GeaendertVon(), kLogin);
    EXPECT_EQ(entry->ErfDat(), DateTime::Of(2010, 2, 14, 8, 30, 5));
    EXPECT_EQ(entry->Status(), 1);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, EveryWriteAsksForTheLoginAgainAndTheUserMakesNoDifference) {
    Script script;
    const auto entry = Listed(script);
    for (const auto& [user, login] : {std::pair{0, "Käthe"}, {99, "Özgür"}, {-1, "sa"}}) {
        ScriptLogin(script, login);
        script.ExecuteSql(Update(42, "'01.04.2010'", -1, kPresent, login));
        EXPECT_EQ(entry->WriteToDatabase(user), true);
        EXPECT_EQ(entry->GeaendertVon(), login);
    }
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, OnlyStatus1IsStoredAsMinus1AndTheObjectKeepsItsOwn) {
    const std::pair<Byte, int> cases[] = {{0, 0}, {1, -1}, {2, 0}, {5, 0}, {255, 0}};
    for (const auto& [status, stored] : cases) {
        Script script;
        const auto entry = Listed(script);
        ScriptLogin(script);
        script.ExecuteSql(UpdateOf("'01.04.2010'", stored));
        entry->Status(status);
        EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
        EXPECT_EQ(entry->Status(), status);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsSemWartelisteWrite, AWishIsWrittenWithoutItsTimeAndAsNullOnlyWhereItIs0) {
    const std::pair<DateTime, const char*> cases[] = {{DateTime(), "Null"},
                                                      {DateTime::Of(2010, 4, 1), "'01.04.2010'"},
                                                      {DateTime::Of(2010, 4, 1, 23, 59, 59), "'01.04.2010'"},
                                                      {DateTime::TimeOfDay(12, 0), "'30.12.1899'"},
                                                      {DateTime::Of(1899, 12, 29), "'29.12.1899'"}};
    for (const auto& [wish, written] : cases) {
        Script script;
        const auto entry = Listed(script);
        ScriptLogin(script);
        script.ExecuteSql(UpdateOf(written, -1));
        entry->Wunschtermin(wish);
        EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
        EXPECT_EQ(entry->Wunschtermin(), wish) << "the object keeps the time";
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsSemWartelisteWrite, AnUpdateWritesFourColumnsWhateverElseWasLet) {
    Script script;
    const auto entry = Listed(script);
    ScriptLogin(script);
    script.ExecuteSql(UpdateOf("'03.05.2010'", 0));
    for (const Property& property : Properties()) property.let(*entry, property.other);
    EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
    EXPECT_EQ(entry->ModId(), 3);
    EXPECT_EQ(entry->SemTerminID(), 18);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, AnUpdateGoesToTheKeyThatTheObjectHolds) {
    for (const Int32 key : {43, -3}) {
        Script script;
        const auto entry = Listed(script);
        ScriptLogin(script);
        script.ExecuteSql(Update(key, "'01.04.2010'", -1, kPresent, kLogin));
        entry->SemWartelisteID(key);
        EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsSemWartelisteWrite, ALoginThatIsNullIsEmptyAndOneWithAQuoteGoesInAsItStands) {
    const std::pair<Variant, Text> cases[] = {{kNull, ""}, {"", ""}, {"Sinéad O'Ähre", "Sinéad O'Ähre"}, {7, "7"}};
    for (const auto& [login, written] : cases) {
        Script script;
        const auto entry = Listed(script);
        ScriptLogin(script, login);
        script.ExecuteSql(Update(42, "'01.04.2010'", -1, kPresent, written));
        EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
        EXPECT_EQ(entry->GeaendertVon(), written);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsSemWartelisteWrite, AnEntryThatWasOnlyBoundIsWrittenWithoutALoadAndLosesWishAndConsent) {
    Script script;
    ScriptLogin(script);
    script.ExecuteSql(Update(7, "Null", 0, kPresent, kLogin));
    const auto entry = Bound(script.Session(), 7);
    EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
    ScriptEntry(script, 7, {FullRow(7)});
    ExpectValues(*entry, &Property::alone);
    EXPECT_EQ(script.Report(), "") << "it is loaded at the next get";
}

TEST_F(clsSemWartelisteWrite, ARefusedUpdateRaises9999AndTheObjectKeepsMomentAndLogin) {
    Script script;
    const auto entry = Listed(script);
    ScriptLogin(script, "O'Ähre");
    script.ExecuteSql(Update(42, "'01.04.2010'", -1, kPresent, "O'Ähre")).Refused("Falsche Syntax in der Nähe von 'Ähre'.");
    const auto error = RaisedBy([&] { return entry->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(), "in line: 0\r\nFalsche Syntax in der Nähe von 'Ähre'. in LumoSeminar.WriteToDatabase");
    EXPECT_EQ(entry->GeaendertAm(), kNow);
    EXPECT_EQ(entry->GeaendertVon(), "O'Ähre");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, WhereTheLoginCannotBeLookedUpTheMomentIsSetAndTheLoginKept) {
    Script script;
    const auto entry = Listed(script);
    script.LookupValue("System_User", "opactMD").Raises(-7, "Die Leitung ist tot.", "Treiber");
    const auto error = RaisedBy([&] { return entry->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -7);
    EXPECT_EQ(LabelsOf(error), kLabelsOfWrite);
    EXPECT_EQ(entry->GeaendertAm(), kNow);
    EXPECT_EQ(entry->GeaendertVon(), kLogin);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, AnUpdateFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            ScriptLogin(script);
            script.ExecuteSql(Update(42, "Null", 0, kPresent, kLogin));
        },
        [](const Ref<DataSession>& session) { (void)Bound(session)->WriteToDatabase(kUserID); },
        // without a login the statement is another one
        {{1, kNotOk, 9999, kLabelsOfWrite, {"ExecuteSql: " + Update(42, "Null", 0, kPresent, "")}},
         {2, kNotOk, 9999, kLabelsOfWrite},
         {1, kRaises, 7001, kLabelsOfWrite},
         {2, kRaises, 7001, kLabelsOfWrite}});
}

// Insert

TEST_F(clsSemWartelisteWrite, AnEntryWithoutKeyDateAndSeminarIsNotWrittenButNotesWhoTried) {
    Script script;
    ScriptLogin(script);
    const auto entry = Bound(script.Session(), 0);
    EXPECT_EQ(entry->WriteToDatabase(kUserID), false);
    EXPECT_EQ(script.Report(), "") << "no load";
    ScriptEntry(script, 0, {});
    EXPECT_EQ(entry->GeaendertAm(), kNow);
    EXPECT_EQ(entry->GeaendertVon(), kLogin);
    EXPECT_EQ(entry->Status(), 0);
    EXPECT_EQ(entry->ErfDat(), DateTime());
    EXPECT_EQ(entry->SemWartelisteID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, ANewEntryForADateIsInsertedWithTheNextKeyThenBound) {
    Script script;
    ScriptEntry(script, 0, {});
    script.LookupValue("System_User", "opactMD").Gives(kLogin);
    script.LookupValue("max(SemWartelisteID)", "Sem_Warteliste_IT").Gives(41);
    script.ExecuteSql(
        "INSERT INTO Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID,ErfDat, Herkunft,Wunschtermin,"
        "Status,GeaendertAm,GeaendertVon)  Values (42,2,5,45,'02.03.2010 17:45:09',3,Null,-1,"
        "'02.03.2010 17:45:09','Jörg \"Jo\" Ähre')");
    script.ExecuteSql("Insert Into Sem_WartelisteTermin_IT (SemWarteListeID, SemTerminID) values (42,17)");
    const auto entry = NewEntry(script.Session(), 17, 0);
    entry->ErfDat(DateTime::Of(1999, 1, 1));
    entry->Status(0);
    EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
    EXPECT_EQ(entry->SemWartelisteID(), 42);
    EXPECT_EQ(entry->Key(), "42");
    EXPECT_EQ(entry->Status(), 1) << "whatever it was";
    EXPECT_EQ(entry->ErfDat(), kNow) << "whatever it was";
    EXPECT_EQ(entry->GeaendertAm(), kNow);
    EXPECT_EQ(entry->GeaendertVon(), kLogin);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, ANewEntryIsBoundToItsDateOrElseToItsSeminarAndNeverToBoth) {
    const struct {
        Int32 date;
        Int32 seminar;
        std::string bind;
    } cases[] = {{17, 0, BindToDate(42, 17)},
                 {17, 105, BindToDate(42, 17)},
                 {0, 105, "Insert Into Sem_WartelisteSem_IT (SemWarteListeID,SemID) values (42,105)"},
                 {-1, 105, BindToDate(42, -1)}};
    for (const auto& c : cases) {
        Script script;
        ScriptInsert(script);
        script.ExecuteSql(c.bind);
        const auto entry = NewEntry(script.Session(), c.date, c.seminar);
        EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
        EXPECT_EQ(entry->SemTerminID(), c.date);
        EXPECT_EQ(entry->SemID(), c.seminar);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsSemWartelisteWrite, AnInsertTakesWishKindAndOriginAsTheyStand) {
    Script script;
    ScriptInsert(
        script, Insert("42,4,-1,2147483647,'" + kPresent + "',-32768,'01.04.2010',-1,'" + kPresent + "','" + kLogin + "'"));
    script.ExecuteSql(BindToSeminar(42, 105));
    const auto entry = NewEntry(script.Session(), 0, 105);
    entry->ModId(4);
    entry->MDNR(-1);
    entry->TNID(2147483647);
    entry->Herkunft(-32768);
    entry->Wunschtermin(DateTime::Of(2010, 4, 1, 12, 30));
    EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, AtMidnightTheMomentOfEntryIsADayAloneAndThatOfTheChangeIsNot) {
    const PinnedNow midnight(DateTime::Of(2010, 3, 3));
    Script script;
    ScriptInsert(script, Insert("42,2,5,45,'03.03.2010',3,Null,-1,'03.03.2010 00:00:00','" + kLogin + "'"));
    script.ExecuteSql(BindToDate(42, 17));
    EXPECT_EQ(NewEntry(script.Session(), 17, 0)->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, TheFirstKeyIs1AndBehindTheLargestThereIsNone) {
    Script script;
    ScriptEntry(script, 0, {});
    ScriptInsertForDate(script, 1, 5, 45, 3, 17, kPresent);
    EXPECT_EQ(NewEntry(script.Session(), 17, 0)->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");

    Script empty;
    ScriptEntry(empty, 0, {});
    ScriptLogin(empty);
    ScriptLargestKey(empty, kNull);
    empty.ExecuteSql(With(kInsertOfNew, "(42,", "(1,"));
    empty.ExecuteSql(BindToDate(1, 17));
    EXPECT_EQ(NewEntry(empty.Session(), 17, 0)->WriteToDatabase(kUserID), true);
    EXPECT_EQ(empty.Report(), "");

    Script full;
    ScriptEntry(full, 0, {});
    ScriptLogin(full);
    ScriptLargestKey(full, 2147483647);
    const auto entry = NewEntry(full.Session(), 17, 0);
    EXPECT_RAISES_UNDER(6, kLabelsOfWrite, entry->WriteToDatabase(kUserID));
    EXPECT_EQ(entry->SemWartelisteID(), 0);
    EXPECT_EQ(full.Report(), "");
}

TEST_F(clsSemWartelisteWrite, BehindAnInsertTheSameObjectIsUpdated) {
    Script script;
    ScriptInsert(script);
    script.ExecuteSql(BindToDate(42, 17));
    ScriptLogin(script);
    script.ExecuteSql(UpdateOf("Null", -1));
    const auto entry = NewEntry(script.Session(), 17, 0);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, ARefusedInsertRaises9999BindsNothingAndTheObjectKeepsItsNewKey) {
    Script script;
    ScriptEntry(script, 0, {});
    ScriptLogin(script);
    ScriptLargestKey(script);
    script.ExecuteSql(kInsertOfNew).Refused("Verletzung der PRIMARY KEY-Einschränkung.");
    const auto entry = NewEntry(script.Session(), 17, 0);
    const auto error = RaisedBy([&] { return entry->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(), "in line: 0\r\nVerletzung der PRIMARY KEY-Einschränkung. in LumoSeminar.WriteToDatabase");
    EXPECT_EQ(entry->SemWartelisteID(), 42);
    EXPECT_EQ(entry->Status(), 1);
    EXPECT_EQ(entry->ErfDat(), kNow);
    EXPECT_EQ(script.Report(), "");
    ScriptLogin(script);
    script.ExecuteSql(UpdateOf("Null", -1));
    EXPECT_EQ(entry->WriteToDatabase(kUserID), true) << "the next write is an update";
    EXPECT_EQ(script.Report(), "");
}

/// Passes everything on; its error text tells behind which statement it was read.
class TellsWhenItIsAsked final : public DataSession {
  public:
    explicit TellsWhenItIsAsked(Ref<DataSession> to) : to_(std::move(to)) {}
    Ref<Connection> AdoConnection() override { return to_->AdoConnection(); }
    Ref<RecordSet> Recordset() override { return to_->Recordset(); }
    Bool OpenSelect(const Text& sql) override { return to_->OpenSelect(sql); }
    Bool Connect(const Text& text, const Text& user, const Text& password, Int32 timeout) override {
        return to_->Connect(text, user, password, timeout);
    }
    Bool ExecuteSql(const Text& sql) override {
        last_ = sql;
        return to_->ExecuteSql(sql);
    }
    Variant LookupValue(const Text& expression, const Text& table, const Text& where) override {
        return to_->LookupValue(expression, table, where);
    }
    Text LastErrorText() override { return "asked behind: " + last_; }

  private:
    Ref<DataSession> to_;
    Text last_;
};

TEST_F(clsSemWartelisteWrite, WhereTheBindingIsRefusedTheRowIsTakenBackAndTheErrorTextReadBehindThat) {
    const struct {
        Int32 date;
        Int32 seminar;
        std::string bind;
    } cases[] = {{17, 0, BindToDate(42, 17)}, {0, 105, BindToSeminar(42, 105)}};
    for (const auto& c : cases) {
        Script script;
        ScriptInsert(script);
        script.ExecuteSql(c.bind).Refused("Der Termin fehlt.");
        script.ExecuteSql(Delete(42));
        const auto entry = NewEntry(New<TellsWhenItIsAsked>(script.Session()), c.date, c.seminar);
        const auto error = RaisedBy([&] { return entry->WriteToDatabase(kUserID); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), 9999);
        EXPECT_EQ(error->Description(), "in line: 0\r\nasked behind: " + Delete(42) + " in LumoSeminar.WriteToDatabase");
        EXPECT_EQ(entry->SemWartelisteID(), 42) << "it is not taken back";
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsSemWartelisteWrite, WhereTheRowCannotBeTakenBackThatErrorIsRaisedAndNotTheFirst) {
    Script script;
    ScriptInsert(script);
    script.ExecuteSql(BindToDate(42, 17)).Refused("Der Termin fehlt.");
    script.ExecuteSql(Delete(42)).Refused("Die Tabelle ist gesperrt.");
    const auto entry = NewEntry(script.Session(), 17, 0);
    const auto error = RaisedBy([&] { return entry->WriteToDatabase(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(),
              "in line: 0\r\nin line: 0\r\nDie Tabelle ist gesperrt. in LumoSeminar.DeleteFromDatabase"
              " in LumoSeminar.WriteToDatabase");
    EXPECT_EQ(script.LastErrorTextCalls(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, AnInsertFailsAsDocumentedAtEachStep) {
    const std::string delete_call =
        "ExecuteSql: " + With(With(Delete(42), "42\r\n Delete", "42\\r\\n Delete"), "42\r\nDELETE", "42\\r\\nDELETE");
    for (const auto& [date, seminar, bind] :
         {std::tuple{17, 0, BindToDate(42, 17)}, std::tuple{0, 105, BindToSeminar(42, 105)}}) {
        ExpectFailures(
            [&, statement = bind](Script& script) {
                ScriptInsert(script);
                script.ExecuteSql(statement);
            },
            [&, on = date, of = seminar](const Ref<DataSession>& session) {
                (void)NewEntry(session, on, of)->WriteToDatabase(kUserID);
            },
            {{1, kNotOk, 9999, {" in LumoSeminar.IsInitialized"}},
             {3,
              kNotOk,
              9999,
              kLabelsOfWrite,
              {"LookupValue: max(SemWartelisteID) from Sem_Warteliste_IT",
               "ExecuteSql: " + With(kInsertOfNew, "'" + kLogin + "'", "''")}},
             {4, kNotOk, 9999, kLabelsOfWrite, {"ExecuteSql: " + With(kInsertOfNew, "(42,", "(1,")}},
             {5, kNotOk, 9999, kLabelsOfWrite},
             {6, kNotOk, 9999, kLabelsOfCleanUp, {delete_call}},
             {1, kRaises, 7001, {" in LumoSeminar.IsInitialized"}},
             {2, kRaises, 7001, {" in LumoSeminar.IsInitialized"}},
             {3, kRaises, 7001, kLabelsOfWrite},
             {4, kRaises, 7001, kLabelsOfWrite},
             {5, kRaises, 7001, kLabelsOfWrite},
             {6, kRaises, 7001, kLabelsOfWrite}});
    }
}

// Delete

TEST_F(clsSemWartelisteWrite, ADeleteIsOneTextOfThreeStatementsWithoutALoadAndTheObjectKeepsItsFields) {
    Script script;
    script.ExecuteSql(
        " Delete Sem_WartelisteTermin_IT WHERE SemWarteListeID = 7\r\n"
        " Delete Sem_WartelisteSem_IT WHERE SemWarteListeID = 7\r\n"
        "DELETE Sem_Warteliste_IT WHERE SemWarteListeID = 7");
    EXPECT_EQ(Bound(script.Session(), 7)->DeleteFromDatabase(), true);
    const auto entry = Listed(script);
    script.ExecuteSql(Delete(42));
    EXPECT_EQ(entry->DeleteFromDatabase(), true);
    ExpectValues(*entry, &Property::in_list);
    EXPECT_EQ(entry->SemWartelisteID(), 42);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, ADeleteOfANewEntryIsSentForKey0) {
    Script script;
    script.ExecuteSql(Delete(0));
    EXPECT_EQ(Bound(script.Session(), 0)->DeleteFromDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, WritesAndDeletesDoNotLookAtDoSendInfos) {
    Script script;
    const auto entry = Listed(script);
    entry->DoSendInfos(false);
    ScriptLogin(script);
    script.ExecuteSql(UpdateOf("'01.04.2010'", -1));
    script.ExecuteSql(Delete(42));
    EXPECT_EQ(entry->WriteToDatabase(kUserID), true);
    EXPECT_EQ(entry->DeleteFromDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, ADeleteFailsAsDocumentedAtEachStep) {
    ExpectFailures([](Script& script) { script.ExecuteSql(Delete(42)); },
                   [](const Ref<DataSession>& session) { Bound(session)->DeleteFromDatabase(); },
                   {{1, kNotOk, 9999, kLabelsOfDelete}, {1, kRaises, 7001, kLabelsOfDelete}});
}

// The consent

TEST_F(clsSemWartelisteWrite, AConsentedEntryIsWithdrawnByAnUpdateAndTheResultIsEmpty) {
    Script script;
    const auto entry = Listed(script);
    EXPECT_EQ(entry->Status(), 1);
    ScriptLogin(script);
    script.ExecuteSql(UpdateOf("'01.04.2010'", 0));
    EXPECT_TRUE(entry->ZustimmungVerwerfen(kUserID).IsEmpty());
    EXPECT_EQ(entry->Status(), 0);
    EXPECT_EQ(entry->GeaendertAm(), kNow);
    EXPECT_EQ(script.Report(), "") << "no process is told";
    EXPECT_TRUE(asked_.empty());
}

TEST_F(clsSemWartelisteWrite, WithdrawingAnEntryThatWasOnlyBoundDoesNotLoadAndStoresNullAsItsWish) {
    Script script;
    ScriptLogin(script);
    script.ExecuteSql(Update(42, "Null", 0, kPresent, kLogin));
    EXPECT_TRUE(Bound(script.Session())->ZustimmungVerwerfen(kUserID).IsEmpty());
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, WithdrawingAnEntryWithoutKeyAndBindingIsEmptyTooThoughNothingIsWritten) {
    Script script;
    ScriptLogin(script);
    EXPECT_TRUE(Bound(script.Session(), 0)->ZustimmungVerwerfen(kUserID).IsEmpty());
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, WithdrawingANewEntryInsertsItAsConsented) {
    Script script;
    ScriptInsert(script);
    script.ExecuteSql(BindToDate(42, 17));
    const auto entry = NewEntry(script.Session(), 17, 0);
    EXPECT_TRUE(entry->ZustimmungVerwerfen(kUserID).IsEmpty());
    EXPECT_EQ(entry->Status(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteWrite, AFailedWithdrawalHasTheLabelOfTheWriteAloneAndTheObjectIsWithdrawn) {
    Script script;
    const auto entry = Listed(script);
    ScriptLogin(script);
    script.ExecuteSql(UpdateOf("'01.04.2010'", 0)).Refused("time-out");
    const auto error = RaisedBy([&] { return entry->ZustimmungVerwerfen(kUserID); });
    EXPECT_EQ(LabelsOf(error), kLabelsOfWrite);
    EXPECT_EQ(entry->Status(), 0);
    EXPECT_EQ(script.Report(), "");

    ExpectFailures(
        [](Script& again) {
            ScriptLogin(again);
            again.ExecuteSql(Update(42, "Null", 0, kPresent, kLogin));
        },
        [](const Ref<DataSession>& session) { Bound(session)->ZustimmungVerwerfen(kUserID); },
        {{1, kNotOk, 9999, kLabelsOfWrite, {"ExecuteSql: " + Update(42, "Null", 0, kPresent, "")}},
         {2, kNotOk, 9999, kLabelsOfWrite},
         {1, kRaises, 7001, kLabelsOfWrite},
         {2, kRaises, 7001, kLabelsOfWrite}});
}

}  // namespace
}  // namespace LumoSeminar
