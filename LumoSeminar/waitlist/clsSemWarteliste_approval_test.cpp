#include <gtest/gtest.h>

#include <utility>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/enrolment/participant_costs.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
#include <test_support/cost_statements.h>
#include <test_support/failures.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>
#include <test_support/termin_statements.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

using namespace waitlist_statements;
using LumoConnection::Script;
using participant_statements::Labels;
using termin_statements::With;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;
namespace costs = cost_statements;
namespace dates = termin_statements;
namespace participants = participant_statements;

/// The session defaults give the user who enters a participant; there is no process object.
using clsSemWartelisteApproval = participants::ParticipantTest;

constexpr Int32 kUserID = 99;
const Variant kNull = Variant::Null();
const Labels kLabels = {" in LumoSeminar.TeilnahmeGenehmigen"};

// Employee 45 of client 5 waits with entry 42 for date 17, from 03.03.2010 08:30 to 05.03.2010 16:45.

void ScriptWaiting(Script& script) { ScriptEntry(script, 42, {RowOfDate(42, 17)}); }

void ScriptDate(Script& script, const Variant& cost = Money::FromUnits(11'205'000)) {
    auto row = dates::FullRow();
    row[18] = cost;
    script.OpenSelect(dates::Select(17)).Rows(dates::kColumns, {row});
}

struct Enrolled {
    Int32 key;
    Int32 client;
    Int32 number;
    Int16 participation = -1;
};

void ScriptEnrolled(Script& script, const std::vector<Enrolled>& enrolled = {}) {
    Rows keys;
    for (const auto& one : enrolled) keys.push_back({one.key});
    script.AdoConnection();
    script.OpenSelect(participants::SelectKeys(17)).Rows({"TeilnehmerID"}, keys);
    for (const auto& one : enrolled) {
        auto row = participants::FullRow();
        row[1] = one.client;
        row[2] = one.number;
        row[7] = one.participation;
        participants::ScriptRecord(script, {row}, one.key);
    }
}

/// Up to the new participant.
void ScriptNewParticipant(Script& script, const Variant& cost = Money::FromUnits(11'205'000),
                          const std::vector<Enrolled>& enrolled = {}) {
    ScriptWaiting(script);
    ScriptDate(script, cost);
    ScriptEnrolled(script, enrolled);
    participants::ScriptNew(script);
}

void ScriptPaidBy(Script& script, const Rows& rows = {{4110}}) {
    ScriptCostCentre(script, 5, 45, "03.03.2010", "05.03.2010", rows);
}

/// The new cost line.
void ScriptLine(Script& script) {
    participants::ScriptCosts(script, 0);
    costs::ScriptLoad(script, {}, 0, 0);
}

void ScriptCostType(Script& script, const Variant& key = 3) {
    script.LookupValue("KostenArten_ID", "sysIData_KostenArten", "KostenArten = 'Teilnehmerkosten'").Gives(key);
}

const std::string kInsert =
    participants::Insert(With(With(participants::kNewValues, "17,0, NULL,", "17,5, 45,"), "-1,3,", "-1,5,"));

/// The write of the new participant, which gets key 43. The date is another object of it.
void ScriptParticipant(Script& script) {
    ScriptDate(script);
    script.OpenSelect(kInsert);
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(43);
}

/// The write of its cost line.
void ScriptLineOf(Script& script, const std::string& values = "43,1,3,1120.5,4110") {
    ScriptCostType(script);
    script.LookupValue("max(KostenID)", "Sem_Teilnehmer_Kosten_IT", "TeilnehmerID =43").Gives(kNull);
    script.ExecuteSql(costs::InsertLine(values));
}

/// An approval with costs from beginning to end.
void ScriptApproval(Script& script) {
    ScriptNewParticipant(script);
    ScriptPaidBy(script);
    ScriptLine(script);
    ScriptCostType(script);
    ScriptParticipant(script);
    ScriptLineOf(script);
}

/// An approval of a date that costs nothing.
void ScriptApprovalWithoutCosts(Script& script, const Variant& cost = Money(), const std::vector<Enrolled>& enrolled = {}) {
    ScriptNewParticipant(script, cost, enrolled);
    ScriptParticipant(script);
    participants::ScriptCosts(script, 43);
}

// Approval

TEST_F(clsSemWartelisteApproval, ARequestBecomesAParticipantWithCostsInTheseStatementsAndTheEntryStays) {
    Script script;
    // the entry
    script.OpenSelect(SelectEntry(42)).Rows(kColumns, {RowOfDate(42, 17)});
    script.CloseRows();
    // who is on the date
    ScriptDate(script);
    script.AdoConnection();
    script.OpenSelect("SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = 17").Rows({"TeilnehmerID"});
    // the new participant
    script.AdoConnection();
    script.OpenSelect(participants::Select(0)).Rows(participants::kColumns);
    script.OpenSelect(dates::Select(0)).Rows(dates::kColumns);
    // its costs
    script
        .OpenSelect(
            "Select Kost from ANKOst_LV where MDNR = 5 and ANNR = 45 and (GueltigAB <= '05.03.2010' AND "
            "(GueltigBis is null Or GueltigBis >= '03.03.2010'))")
        .Rows({"Kost"}, {{4110}, {4120}});
    script.CloseRows();
    ScriptLine(script);
    script.LookupValue("KostenArten_ID", "sysIData_KostenArten", "KostenArten = 'Teilnehmerkosten'").Gives(3);
    // its write
    ScriptDate(script);
    script.OpenSelect(
        "INSERT INTO Sem_Teilnehmer_IT (  TeilnehmerID, SemTerminID, MDNr, ANNr, ErfDatum, ErfUser, Teilnahme,  "
        "Herkunft, BeginnDatum, EndeDatum, BegUhrzeit, EndUhrzeit, storniertam, StornoGrund,  StornoKosten, "
        "Ergebnis, Bemerkung, BWID, LAID )  SELECT ISNULL(max(TeilnehmerID),0)+1, 17,5, 45, "
        "convert(datetime,'02.03.2010',104), 'Käthe Löffler', -1,5, convert(datetime,'03.03.2010',104),  "
        "convert(datetime,'05.03.2010',104), '30.12.1899 08:30', '30.12.1899 16:45',  NULL, 0, 0, 1, '', "
        "NULL, NULL FROM Sem_Teilnehmer_IT\r\n");
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(43);
    script.LookupValue("KostenArten_ID", "sysIData_KostenArten", "KostenArten = 'Teilnehmerkosten'").Gives(3);
    script.LookupValue("max(KostenID)", "Sem_Teilnehmer_Kosten_IT", "TeilnehmerID =43").Gives(kNull);
    script.ExecuteSql(costs::InsertLine("43,1,3,1120.5,4110"));

    const auto entry = Bound(script.Session());
    EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), true);
    EXPECT_EQ(entry->SemWartelisteID(), 42);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteApproval, TheParticipantHasThePersonTheDateItsDaysAndOrigin5) {
    Script script;
    ScriptApproval(script);
    const auto entry = Bound(script.Session());
    EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), true);
    const auto list = entry->objSemTermin()->clscolTeilnehmer();
    ASSERT_EQ(list->Count(), 1);
    const auto participant = list->Item(1);
    EXPECT_EQ(participant->TeilnehmerID(), 43);
    EXPECT_EQ(participant->MDNR(), 5);
    EXPECT_EQ(participant->ANNr(), 45);
    EXPECT_EQ(participant->SemTerminID(), 17);
    EXPECT_EQ(participant->BeginnDatum(), DateTime::Of(2010, 3, 3));
    EXPECT_EQ(participant->BegUhrzeit(), DateTime::TimeOfDay(8, 30));
    EXPECT_EQ(participant->EndeDatum(), DateTime::Of(2010, 3, 5));
    EXPECT_EQ(participant->EndUhrzeit(), DateTime::TimeOfDay(16, 45));
    EXPECT_EQ(participant->Herkunft(), 5);
    EXPECT_EQ(participant->Teilnahme(), -1);
    EXPECT_EQ(participant->DoSendInfos(), New<clsSemWarteliste>()->DoSendInfos());
    EXPECT_EQ(participant->objKosten()->Count(), 1);
    EXPECT_EQ(participant->Kost(), 4110);
    EXPECT_EQ(participant->TeilnehmerKosten(), 1120.5F);
    EXPECT_EQ(participant->objKosten()->Item(1)->KostenArtID(), 3);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteApproval, AnEntryThatSendsNoInfosIsDeletedAtTheEndAndItsParticipantSendsThemAsAnyOther) {
    Script script;
    ScriptApproval(script);
    script.ExecuteSql(Delete(42));
    const auto entry = Bound(script.Session());
    entry->DoSendInfos(false);
    EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), true);
    const auto participant = entry->objSemTermin()->clscolTeilnehmer()->Item(1);
    EXPECT_NE(participant->DoSendInfos(), entry->DoSendInfos()) << "it is not passed on";
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteApproval, ConsentedOrWithdrawnAnEntryIsApprovedAndStaysOnlyWhereItSendsInfos) {
    for (const Variant& status : {Variant(Int16{-1}), Variant(Int16{0}), kNull}) {
        for (const bool infos : {true, false}) {
            Script script;
            auto row = RowOfDate(42, 17);
            row[9] = status;
            ScriptList(script, WhereDate(17), {row});
            ScriptDate(script);
            ScriptEnrolled(script);
            participants::ScriptNew(script);
            ScriptPaidBy(script);
            ScriptLine(script);
            ScriptCostType(script);
            ScriptParticipant(script);
            ScriptLineOf(script);
            if (!infos) script.ExecuteSql(Delete(42));
            colSemWarteliste list;
            list.LoadListSeminartermin(script.Session(), 17);
            const auto entry = list.Item("42");
            const Byte before = entry->Status();
            entry->DoSendInfos(infos);
            EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), true);
            EXPECT_EQ(entry->Status(), before);
            EXPECT_EQ(list.Count(), 1) << "the list keeps it in either case";
            EXPECT_EQ(script.Report(), "") << "an entry of a list is not read again";
        }
    }
}

TEST_F(clsSemWartelisteApproval, APersonThatIsOnTheDateIsNotEnrolledAgainAndTheEntryStays) {
    const std::vector<Enrolled> cases[] = {
        {{23, 5, 45}},
        {{23, 5, 45, 0}},
        {{23, 5, 44}, {24, 5, 45}, {25, 5, 46}},
    };
    for (const auto& enrolled : cases) {
        for (const bool infos : {true, false}) {
            Script script;
            ScriptWaiting(script);
            ScriptDate(script);
            ScriptEnrolled(script, enrolled);
            const auto entry = Bound(script.Session());
            entry->DoSendInfos(infos);
            EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), false);
            EXPECT_EQ(entry->objSemTermin()->clscolTeilnehmer()->Count(), static_cast<Int32>(enrolled.size()));
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST_F(clsSemWartelisteApproval, TheSameNumberAtAnotherClientOrAnotherNumberIsNoMatch) {
    Script script;
    ScriptApprovalWithoutCosts(script, Money(), {{23, 6, 45}, {24, 5, 46}, {25, 45, 5}, {26, 5, 0}});
    EXPECT_EQ(Bound(script.Session())->TeilnahmeGenehmigen(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteApproval, ASecondApprovalFindsTheParticipantOfTheFirst) {
    Script script;
    ScriptApprovalWithoutCosts(script);
    const auto entry = Bound(script.Session());
    EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), true);
    EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), false);
    EXPECT_EQ(script.Report(), "") << "in the list that it has read";
}

TEST_F(clsSemWartelisteApproval, WhereTheParticipantIsRefusedTheResultIsFalseAndNoEntryIsDeleted) {
    for (const bool infos : {true, false}) {
        Script script;
        ScriptNewParticipant(script, Money());
        ScriptDate(script);
        script.OpenSelect(kInsert).Refused("Die Tabelle ist gesperrt.");
        const auto entry = Bound(script.Session());
        entry->DoSendInfos(infos);
        EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), false);
        EXPECT_EQ(script.LastErrorTextCalls(), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsSemWartelisteApproval, WhereTheEntryCannotBeDeletedTheErrorIsRaisedThoughTheParticipantIsWritten) {
    Script script;
    ScriptApproval(script);
    script.ExecuteSql(Delete(42)).Refused("Die Tabelle ist gesperrt.");
    const auto entry = Bound(script.Session());
    entry->DoSendInfos(false);
    const auto error = RaisedBy([&] { return entry->TeilnahmeGenehmigen(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(),
              "in line: 0\r\nin line: 0\r\nDie Tabelle ist gesperrt. in LumoSeminar.DeleteFromDatabase"
              " in LumoSeminar.TeilnahmeGenehmigen");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteApproval, AnEntryWithoutARowIsApprovedForDate0AndNobody) {
    Script script;
    ScriptEntry(script, 42, {});
    script.OpenSelect(dates::Select(0)).Rows(dates::kColumns);
    script.AdoConnection();
    script.OpenSelect(participants::SelectKeys(0)).Rows({"TeilnehmerID"}, {{23}});
    script.AdoConnection();
    auto row = participants::NullRow();
    script.OpenSelect(participants::Select(23)).Rows(participants::kColumns, {row});
    EXPECT_EQ(Bound(script.Session())->TeilnahmeGenehmigen(kUserID), false) << "somebody without numbers is there";
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteApproval, ADateAskedForBeforeTheLoadIsTheOneThatIsSearchedAndGivesTheDays) {
    Script script;
    const auto entry = Bound(script.Session());
    entry->objSemTermin();
    ScriptWaiting(script);
    auto date = dates::FullRow();
    date[8] = DateTime::Of(2011, 1, 1);
    date[9] = DateTime::Of(2011, 1, 2);
    date[18] = Money();
    script.OpenSelect(dates::Select(0)).Rows(dates::kColumns, {date});
    script.AdoConnection();
    script.OpenSelect(participants::SelectKeys(0)).Rows({"TeilnehmerID"});
    participants::ScriptNew(script);
    script.OpenSelect(With(With(kInsert, "'03.03.2010'", "'01.01.2011'"), "'05.03.2010'", "'02.01.2011'"));
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(43);
    participants::ScriptCosts(script, 43);
    EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), true);
    EXPECT_EQ(script.Report(), "") << "date 0, though the participant is one of date 17";
}

// Costs

TEST_F(clsSemWartelisteApproval, ADateThatCostsNothingNeedsNeitherCostCentreNorCostTypeAndThereIsNoLine) {
    for (const Variant& cost : {Variant(Money()), Variant(0), kNull}) {
        Script script;
        ScriptApprovalWithoutCosts(script, cost);
        const auto entry = Bound(script.Session());
        EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), true);
        const auto participant = entry->objSemTermin()->clscolTeilnehmer()->Item(1);
        EXPECT_EQ(participant->Kost(), 0);
        EXPECT_EQ(participant->objKosten()->Count(), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsSemWartelisteApproval, AnyOtherCostIsThatOfTheLine) {
    const std::pair<Money, const char*> cases[] = {
        {Money::FromUnits(1), "0.0001"}, {Money(-5), "-5"}, {Money(870), "870"}, {Money::FromUnits(1'234'567), "123.4567"}};
    for (const auto& [cost, written] : cases) {
        Script script;
        ScriptNewParticipant(script, cost);
        ScriptPaidBy(script);
        ScriptLine(script);
        ScriptCostType(script);
        ScriptParticipant(script);
        ScriptLineOf(script, "43,1,3," + std::string(written) + ",4110");
        EXPECT_EQ(Bound(script.Session())->TeilnahmeGenehmigen(kUserID), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsSemWartelisteApproval, TheCostCentreIsTheFirstThatTheServerDeliversAndWithoutOneItIs0) {
    const std::pair<Rows, const char*> cases[] = {
        {{{4110}}, "4110"}, {{{4120}, {4110}}, "4120"}, {{}, "0"},     {{{kNull}}, "0"}, {{{kNull}, {4110}}, "0"},
        {{{0}}, "0"},       {{{"4130"}}, "4130"},       {{{-2}}, "-2"}};
    for (const auto& [rows, written] : cases) {
        SCOPED_TRACE(written);
        Script script;
        ScriptNewParticipant(script);
        ScriptPaidBy(script, rows);
        ScriptLine(script);
        ScriptCostType(script);
        ScriptParticipant(script);
        ScriptLineOf(script, "43,1,3,1120.5," + std::string(written));
        EXPECT_EQ(Bound(script.Session())->TeilnahmeGenehmigen(kUserID), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsSemWartelisteApproval, ADateWithoutDaysAsksForTheCostCentreOfDay0) {
    Script script;
    auto date = dates::NullRow();
    date[18] = Money(870);
    ScriptWaiting(script);
    script.OpenSelect(dates::Select(17)).Rows(dates::kColumns, {date});
    ScriptEnrolled(script);
    participants::ScriptNew(script);
    ScriptCostCentre(script, 5, 45, "30.12.1899", "30.12.1899", {{-1}});
    script.OpenSelect(dates::Select(17)).Rows(dates::kColumns, {date});
    script.OpenSelect(
        With(With(With(With(kInsert, "'03.03.2010'", "'30.12.1899'"), "'05.03.2010'", "'30.12.1899'"), "08:30", "00:00"),
             "16:45", "00:00"));
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(43);
    participants::ScriptCosts(script, 43);
    EXPECT_EQ(Bound(script.Session())->TeilnahmeGenehmigen(kUserID), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteApproval, ARefusedCostCentreIs0AndSilent) {
    Script script;
    ScriptNewParticipant(script);
    script.OpenSelect(SelectCostCentre(5, 45, "03.03.2010", "05.03.2010")).Refused("time-out");
    ScriptLine(script);
    ScriptCostType(script);
    ScriptParticipant(script);
    ScriptLineOf(script, "43,1,3,1120.5,0");
    EXPECT_EQ(Bound(script.Session())->TeilnahmeGenehmigen(kUserID), true);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteApproval, CostCentreMinus1LeavesOutTheCosts) {
    Script script;
    ScriptNewParticipant(script);
    ScriptPaidBy(script, {{-1}});
    ScriptParticipant(script);
    participants::ScriptCosts(script, 43);
    const auto entry = Bound(script.Session());
    EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), true);
    EXPECT_EQ(entry->objSemTermin()->clscolTeilnehmer()->Item(1)->objKosten()->Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteApproval, ACostCentreThatIsNoNumberRaisesUnderBothLabelsAndNothingIsWritten) {
    for (const auto& [value, number] : {std::pair{Variant("Küche"), 13}, {2147483648.0, 6}}) {
        Script script;
        ScriptNewParticipant(script);
        script.OpenSelect(SelectCostCentre(5, 45, "03.03.2010", "05.03.2010")).Rows({"Kost"}, {{value}});
        const auto entry = Bound(script.Session());
        EXPECT_RAISES_UNDER(number, (Labels{" in LumoSeminar.GetKostAN", " in LumoSeminar.TeilnahmeGenehmigen"}),
                            entry->TeilnahmeGenehmigen(kUserID));
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsSemWartelisteApproval, ACostTypeThatIsMissingIsMadeAndLookedUpAgain) {
    for (const Variant& none : {kNull, Variant(0)}) {
        Script script;
        ScriptNewParticipant(script);
        ScriptPaidBy(script);
        ScriptLine(script);
        ScriptCostType(script, none);
        script.ExecuteSql(
            "Insert Into sysIData_KostenArten (KostenArten_ID,KostenArten)  Select "
            "isnull(Max(KostenArten_ID),0) +1, 'Teilnehmerkosten'  From sysIData_KostenArten  Having "
            "Max(KostenArten_ID) < 100 or Max(KostenArten_ID) is null");
        ScriptCostType(script, 100);
        ScriptParticipant(script);
        ScriptLineOf(script, "43,1,100,1120.5,4110");
        EXPECT_EQ(Bound(script.Session())->TeilnahmeGenehmigen(kUserID), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(clsSemWartelisteApproval, WhereNoCostTypeCouldBeMadeTheSecondLookupRaisesAndNobodyIsEnrolled) {
    Script script;
    ScriptNewParticipant(script);
    ScriptPaidBy(script);
    ScriptLine(script);
    ScriptCostType(script, kNull);
    script.ExecuteSql(costs::kInsertCostType);
    ScriptCostType(script, kNull);
    const auto entry = Bound(script.Session());
    entry->DoSendInfos(false);
    EXPECT_RAISES_UNDER(94, kLabels, entry->TeilnahmeGenehmigen(kUserID));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(clsSemWartelisteApproval, ARefusedCostTypeRaises9999AndNobodyIsEnrolled) {
    Script script;
    ScriptNewParticipant(script);
    ScriptPaidBy(script);
    ScriptLine(script);
    ScriptCostType(script, kNull);
    script.ExecuteSql(costs::kInsertCostType).Refused("Die Tabelle ist gesperrt.");
    const auto entry = Bound(script.Session());
    const auto error = RaisedBy([&] { return entry->TeilnahmeGenehmigen(kUserID); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(), "in line: 0\r\nDie Tabelle ist gesperrt. in LumoSeminar.TeilnahmeGenehmigen");
    EXPECT_EQ(script.Report(), "");
}

// Failures

/// What an approval calls behind a step, up to and with another.
Labels CallsBehind(int step, int last = 22) {
    Script script;
    ScriptApproval(script);
    script.ExecuteSql(Delete(42));
    Labels calls;
    for (int i = step + 1; i <= last; ++i) calls.push_back(script.StepText(i));
    return calls;
}

Labels Then(Labels first, const Labels& more) {
    first.insert(first.end(), more.begin(), more.end());
    return first;
}

/// These labels and that of the approval.
Labels In(const Labels& labels) { return Then(labels, kLabels); }

TEST_F(clsSemWartelisteApproval, AnApprovalFailsAsDocumentedAtEachStep) {
    const std::string record = " LumoSeminar062.clsTeilnehmer.";
    const std::string list = " LumoSeminar062.ColTeilnehmer.";
    const std::string date = " LumoSeminar062.clsTermin.";
    const Labels of_date = {" LumoSeminar062.clsSeminar.Teilnehmer"};
    const Labels add = {list + "Add", "LumoSeminar.colTeilnehmer.AddEmptyObject"};
    const Labels record_load = Then({record + "PropertiesInit", record + "MDNr -> Property LET", record + "Init"}, add);
    const Labels line_list = {" in LumoSeminar.LoadKeysFromDataBase", " in LumoSeminar.Init",
                              " in LumoSeminar.objKosten", record + "Kost -> Property LET"};
    const Labels line_load = {" in LumoSeminar.IsInitialized", record + "Kost -> Property LET"};
    const Labels write = {record + "WriteToDatabase"};
    const Labels line_write = {" in LumoSeminar.WriteToDatabase", record + "WriteToDatabase"};
    const std::string make_cost_type = "ExecuteSql: " + costs::kInsertCostType;
    // that of a participant whose record could not be read: it has not even its defaults
    const std::string insert_of_zeros =
        "OpenSelect: " +
        With(With(With(With(With(kInsert, "'02.03.2010'", "'30.12.1899'"), "Käthe Löffler", ""), "-1,5,", "0,5,"),
                  "0, 0, 1,", "0, 0, 0,"),
             "\r\n", "\\r\\n");
    const Labels dates_again(3, "OpenSelect: " + dates::Select(17));
    ExpectFailures(
        [](Script& script) {
            ScriptApproval(script);
            script.ExecuteSql(Delete(42));
        },
        [](const Ref<DataSession>& session) {
            const auto entry = Bound(session);
            entry->DoSendInfos(false);
            (void)entry->TeilnahmeGenehmigen(kUserID);
        },
        {{1, kNotOk, 9999, In({" in LumoSeminar.IsInitialized"})},
         {3, kNotOk, 91, kLabels},
         {4, kNotOk, 91, In(Then({record + "Init"}, add)), {"Open of the connection"}},
         {5, kNotOk, 0, {}, CallsBehind(5)},
         {6, kNotOk, 91, In({record + "PropertiesInit", record + "MDNr -> Property LET"}), {"Open of the connection"}},
         {7, kNotOk, 0, {}, Then(CallsBehind(8, 16), {insert_of_zeros})},
         {8, kNotOk, 0, {}, CallsBehind(8)},
         // the line names cost centre 0 then
         {9, kNotOk, 9999, In(line_write), Then(CallsBehind(10, 20), {"ExecuteSql: " + costs::InsertLine("43,1,3,1120.5,0")})},
         {11, kNotOk, 9999, In(line_list)},
         {13, kNotOk, 9999, In(line_load)},
         {15, kNotOk, 9999, kLabels, {make_cost_type}},
         {16, kNotOk, 0, {}, Then(dates_again, CallsBehind(16))},
         {17, kNotOk},
         {18, kNotOk, 94, In(write)},
         {19, kNotOk, 9999, In(line_write), {make_cost_type}},
         {20, kNotOk, 0, {}, CallsBehind(20)},
         {21, kNotOk, 9999, In(line_write)},
         {22, kNotOk, 9999, In({" in LumoSeminar.DeleteFromDatabase"})},
         {1, kRaises, 7001, In({" in LumoSeminar.IsInitialized"})},
         {2, kRaises, 7001, In({" in LumoSeminar.IsInitialized"})},
         {3, kRaises, 7001, In(Then({date + "PropertiesInit"}, of_date))},
         {4, kRaises, 7001, In(Then({list + "Init"}, of_date))},
         {5, kRaises, 7001, In(Then({list + "LoadKeysFromDatabase", list + "Init"}, of_date))},
         {6, kRaises, 7001, In(Then({record + "Init"}, add))},
         {7, kRaises, 7001, In(record_load)},
         {8, kRaises, 7001,
          In(Then({date + "PropertiesInit", date + "SemTerminID --> GET", date + "InitPropertiesByRecordset"}, record_load))},
         {9, kRaises, 7001, In({" in LumoSeminar.GetKostAN"})},
         {10, kRaises, 7001, In({" in LumoSeminar.GetKostAN"})},
         {11, kRaises, 7001, In(line_list)},
         {12, kRaises, 7001, In(line_list)},
         {13, kRaises, 7001, In(line_load)},
         {14, kRaises, 7001, In(line_load)},
         {15, kRaises, 7001, kLabels},
         {16, kRaises, 7001, In({date + "PropertiesInit", date + "BeginnDatum --> GET", record + "WriteToDatabase"})},
         {17, kRaises, 7001, In(write)},
         {18, kRaises, 7001, In(write)},
         {19, kRaises, 7001, In(line_write)},
         {20, kRaises, 7001, In(line_write)},
         {21, kRaises, 7001, In(line_write)},
         {22, kRaises, 7001, In({" in LumoSeminar.DeleteFromDatabase"})}});
}

}  // namespace
}  // namespace LumoSeminar
