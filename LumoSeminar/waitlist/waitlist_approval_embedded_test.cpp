#include <gtest/gtest.h>

#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
#include <test_support/check_statements.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>
#include <test_support/participant_statements.h>
#include <test_support/raises.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

using check_statements::Findings;
using check_statements::FindingsOf;
using participant_statements::kToday;
using participant_statements::kUser;
using participant_statements::Labels;
using test_support::Rows;
using test_support::Select;
using test_support::Value;
using test_support::Write;
using waitlist_statements::Bound;

constexpr Int32 kUserID = 99;
const Variant kNull = Variant::Null();

/// Employee 45 of client 5 waits with entry 42 for date 17 of seminar 105, from 03.03.2010 to 05.03.2010.
class WaitListApprovalForReal : public participant_statements::ParticipantTest {
  protected:
    WaitListApprovalForReal() : session_(test_support::SchemaDatabase()) {
        Write(*session_,
              "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, Status, Code, Titel, SemID, BeginnDatum, EndeDatum, "
              "BeginnUhrzeit, EndeUhrzeit, KostenProTN) VALUES (17, 5, 2, N'BS-17', N'Größe \"L\"', 105, "
              "Convert(datetime,'03.03.2010',104), Convert(datetime,'05.03.2010',104), Convert(datetime,'30.12.1899 "
              "08:30',104), Convert(datetime,'30.12.1899 16:45',104), 120.5)");
        Write(*session_, "INSERT INTO sysIData_KostenArten (KostenArten_ID, KostenArten) VALUES (3, N'Teilnehmerkosten')");
        Write(*session_,
              "INSERT INTO Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID, ErfDat, Herkunft, Wunschtermin, Status, "
              "GeaendertAm, GeaendertVon) VALUES (42, 2, 5, 45, Convert(datetime,'14.02.2010 08:30:05',104), 3, NULL, -1, "
              "Convert(datetime,'14.02.2010 08:30:05',104), N'Jörg')");
        Write(*session_, waitlist_statements::BindToDate(42, 17));
        CostCentre(4110, "01.01.2000", "NULL");
    }

    void CostCentre(Int32 number, const Text& from, const Text& to) {
        Write(*session_, "INSERT INTO ANKOst_LV (MDNR, ANNR, Kost, GueltigAB, GueltigBis) VALUES (5, 45, " +
                             std::to_string(number) + ", Convert(datetime,'" + from + "',104), " +
                             (to == "NULL" ? to : "Convert(datetime,'" + to + "',104)") + ")");
    }

    void Enrol(Int32 key, Int32 client, Int32 number, Int32 participation = -1) {
        Write(*session_, "INSERT INTO Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, MDNr, ANNr, Teilnahme) VALUES (" +
                             std::to_string(key) + ", 17, " + std::to_string(client) + ", " + std::to_string(number) +
                             ", " + std::to_string(participation) + ")");
    }

    Ref<clsSemWarteliste> Listed() {
        colSemWarteliste list;
        list.LoadListSeminartermin(session_, 17);
        return list.Item("42");
    }

    /// Client, number and origin of those on the date.
    Rows Enrolled() {
        return Select(*session_,
                      "SELECT MDNr, ANNr, Herkunft FROM Sem_Teilnehmer_IT WHERE SemTerminID = 17 ORDER BY TeilnehmerID");
    }

    Rows Lines() { return Select(*session_, "SELECT * FROM Sem_Teilnehmer_Kosten_IT ORDER BY TeilnehmerID, KostenID"); }

    /// The stored status of the entry; Empty where it is gone.
    Variant Status() { return Value(*session_, "SELECT Status FROM Sem_Warteliste_IT WHERE SemWarteListeID = 42"); }

    Ref<DataSession> session_;
};

TEST_F(WaitListApprovalForReal, ARequestBecomesAParticipantWithTheCostsOfTheDate) {
    EXPECT_EQ(Bound(session_)->TeilnahmeGenehmigen(kUserID), true);
    clsTermin date;
    date.Init(17, session_);
    ASSERT_EQ(date.clscolTeilnehmer()->Count(), 1);
    const auto participant = date.clscolTeilnehmer()->Item(1);
    EXPECT_EQ(participant->MDNR(), 5);
    EXPECT_EQ(participant->ANNr(), 45);
    EXPECT_EQ(participant->Herkunft(), 5);
    EXPECT_EQ(participant->Teilnahme(), -1);
    EXPECT_EQ(participant->BeginnDatum(), DateTime::Of(2010, 3, 3));
    EXPECT_EQ(participant->BegUhrzeit(), DateTime::TimeOfDay(8, 30));
    EXPECT_EQ(participant->EndeDatum(), DateTime::Of(2010, 3, 5));
    EXPECT_EQ(participant->EndUhrzeit(), DateTime::TimeOfDay(16, 45));
    EXPECT_EQ(participant->ErfDatum(), kToday);
    EXPECT_EQ(participant->ErfUser(), kUser);
    EXPECT_EQ(Lines(), (Rows{{1, 1, 3, Single{120.5}, 4110}}));
    EXPECT_EQ(Status(), Variant(Int16{-1})) << "the entry stays as it was";
}

TEST_F(WaitListApprovalForReal, AnEntryThatSendsNoInfosIsGoneWithItsBindings) {
    Write(*session_, waitlist_statements::BindToSeminar(42, 105));
    const auto entry = Bound(session_);
    entry->DoSendInfos(false);
    EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), true);
    EXPECT_EQ(Enrolled(), (Rows{{5, 45, 5}}));
    EXPECT_TRUE(Status().IsEmpty());
    EXPECT_EQ(Select(*session_, "SELECT * FROM Sem_WartelisteTermin_IT"), Rows{});
    EXPECT_EQ(Select(*session_, "SELECT * FROM Sem_WartelisteSem_IT"), Rows{});
}

TEST_F(WaitListApprovalForReal, ConsentedThenWithdrawnARequestCanBeApproved) {
    for (const bool infos : {true, false}) {
        Write(*session_, "DELETE FROM Sem_Teilnehmer_IT");
        Write(*session_, "DELETE FROM Sem_Teilnehmer_Kosten_IT");
        EXPECT_TRUE(Listed()->ZustimmungVerwerfen(kUserID).IsEmpty());
        EXPECT_EQ(Status(), Variant(Int16{0}));
        const auto entry = Listed();
        EXPECT_EQ(entry->Status(), 0);
        entry->DoSendInfos(infos);
        EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), true);
        EXPECT_EQ(Enrolled(), (Rows{{5, 45, 5}}));
        EXPECT_EQ(Status(), infos ? Variant(Int16{0}) : Variant());
    }
}

TEST_F(WaitListApprovalForReal, APersonOnTheDateIsNotEnrolledAgainCancelledOrNotAndTheEntryStays) {
    for (const Int32 participation : {-1, 0}) {
        Write(*session_, "DELETE FROM Sem_Teilnehmer_IT");
        Enrol(23, 5, 45, participation);
        const auto entry = Bound(session_);
        entry->DoSendInfos(false);
        EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), false);
        EXPECT_EQ(Enrolled(), (Rows{{5, 45, kNull}}));
        EXPECT_EQ(Status(), Variant(Int16{-1}));
    }
    EXPECT_EQ(Lines(), Rows{});
}

TEST_F(WaitListApprovalForReal, TheSameNumberAtAnotherClientIsNoMatch) {
    Enrol(23, 6, 45);
    EXPECT_EQ(Bound(session_)->TeilnahmeGenehmigen(kUserID), true);
    EXPECT_EQ(Enrolled(), (Rows{{6, 45, kNull}, {5, 45, 5}}));
    EXPECT_EQ(Bound(session_)->TeilnahmeGenehmigen(kUserID), false) << "now there is one";
    EXPECT_EQ(Enrolled().size(), 2U);
}

TEST_F(WaitListApprovalForReal, ADateThatCostsNothingMakesNoLineAndNoCostType) {
    for (const char* cost : {"0", "NULL"}) {
        Write(*session_, "DELETE FROM Sem_Teilnehmer_IT");
        Write(*session_, "DELETE FROM sysIData_KostenArten");
        Write(*session_, "UPDATE Sem_Termin_IT SET KostenProTN = " + Text(cost));
        EXPECT_EQ(Bound(session_)->TeilnahmeGenehmigen(kUserID), true);
        EXPECT_EQ(Enrolled(), (Rows{{5, 45, 5}}));
        EXPECT_EQ(Lines(), Rows{});
        EXPECT_EQ(Select(*session_, "SELECT * FROM sysIData_KostenArten"), Rows{});
    }
}

TEST_F(WaitListApprovalForReal, TheCostCentreIsOneThatIsValidOnADayOfTheDate) {
    const struct {
        const char* from;
        const char* to;
        Int32 cost_centre;
    } cases[] = {
        {"01.01.2000", "NULL", 4130},       {"05.03.2010", "NULL", 4130},       {"06.03.2010", "NULL", 0},
        {"01.01.2000", "03.03.2010", 4130}, {"01.01.2000", "02.03.2010", 0},    {"04.03.2010", "04.03.2010", 4130},
        {"05.03.2010", "31.12.2010", 4130}, {"03.03.2010", "05.03.2010", 4130},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Text(c.from) + " to " + c.to);
        for (const char* table : {"Sem_Teilnehmer_IT", "Sem_Teilnehmer_Kosten_IT", "ANKOst_LV"}) {
            Write(*session_, "DELETE FROM " + Text(table));
        }
        CostCentre(4130, c.from, c.to);
        EXPECT_EQ(Bound(session_)->TeilnahmeGenehmigen(kUserID), true);
        EXPECT_EQ(Lines(), (Rows{{1, 1, 3, Single{120.5}, c.cost_centre}}));
    }
}

TEST_F(WaitListApprovalForReal, OfSeveralCostCentresItIsOneOfThem) {
    CostCentre(4130, "04.03.2010", "NULL");
    EXPECT_EQ(Bound(session_)->TeilnahmeGenehmigen(kUserID), true);
    const auto lines = Lines();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_TRUE(lines[0][4] == Variant(4110) || lines[0][4] == Variant(4130));
}

TEST_F(WaitListApprovalForReal, WithoutTheTableOfCostCentresItIs0) {
    Write(*session_, "DROP TABLE ANKOst_LV");
    EXPECT_EQ(Bound(session_)->TeilnahmeGenehmigen(kUserID), true);
    EXPECT_EQ(Lines(), (Rows{{1, 1, 3, Single{120.5}, 0}}));
}

TEST_F(WaitListApprovalForReal, AMissingCostTypeIsMadeBehindTheLargestKeyBelow100) {
    for (const Int32 largest : {0, 7, 99}) {
        for (const char* table : {"Sem_Teilnehmer_IT", "Sem_Teilnehmer_Kosten_IT", "sysIData_KostenArten"}) {
            Write(*session_, "DELETE FROM " + Text(table));
        }
        if (largest != 0) {
            Write(*session_, "INSERT INTO sysIData_KostenArten (KostenArten_ID, KostenArten) VALUES (" +
                                 std::to_string(largest) + ", N'Übernachtung')");
        }
        EXPECT_EQ(Bound(session_)->TeilnahmeGenehmigen(kUserID), true);
        EXPECT_EQ(Lines(), (Rows{{1, 1, largest + 1, Single{120.5}, 4110}}));
    }
}

TEST_F(WaitListApprovalForReal, WhereTheLargestCostTypeIs100NobodyIsEnrolled) {
    Write(*session_, "UPDATE sysIData_KostenArten SET KostenArten_ID = 100, KostenArten = N'Übernachtung'");
    const auto entry = Bound(session_);
    entry->DoSendInfos(false);
    EXPECT_RAISES_UNDER(94, Labels{" in LumoSeminar.TeilnahmeGenehmigen"}, entry->TeilnahmeGenehmigen(kUserID));
    EXPECT_EQ(Enrolled(), Rows{});
    EXPECT_EQ(Lines(), Rows{});
    EXPECT_EQ(Status(), Variant(Int16{-1}));
}

TEST_F(WaitListApprovalForReal, AnEntryThatIsGoneIsApprovedForDate0) {
    Write(*session_, waitlist_statements::Delete(42));
    EXPECT_EQ(Bound(session_)->TeilnahmeGenehmigen(kUserID), true);
    EXPECT_EQ(Select(*session_, "SELECT SemTerminID, MDNr, ANNr, Herkunft FROM Sem_Teilnehmer_IT"), (Rows{{0, 0, kNull, 5}}));
}

// Checks

TEST_F(WaitListApprovalForReal, ACheckKnowsNoPersonAndFindsWhoeverIsOnTheDateCancelledOrNot) {
    EXPECT_EQ(FindingsOf(*Listed()->TeilnahmePruefen()), Findings{});
    Enrol(23, 6, 46, 0);
    EXPECT_EQ(FindingsOf(*Listed()->TeilnahmePruefen()), (Findings{{300000001, ""}}));
    EXPECT_EQ(FindingsOf(*Listed()->TeilnahmePruefen(false, false, false)), (Findings{{300000001, ""}}));
    EXPECT_EQ(Listed()->TeilnahmeGenehmigen(kUserID), true) << "a finding keeps nobody back";
    EXPECT_EQ(Enrolled(), (Rows{{6, 46, kNull}, {5, 45, 5}}));
}

TEST_F(WaitListApprovalForReal, ACheckDoesNotFindOtherDatesOfThePerson) {
    Write(*session_,
          "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, Status, Code, Titel, SemID) VALUES (18, 5, 4, N'BS-18', "
          "N'Größe', 105)");
    Write(*session_,
          "INSERT INTO Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, MDNr, ANNr, Teilnahme) VALUES (23, 18, 5, "
          "45, -1)");
    EXPECT_EQ(FindingsOf(*Listed()->TeilnahmePruefen()), Findings{}) << "the person has taken the seminar before";
}

TEST_F(WaitListApprovalForReal, ACheckedEntryThenApprovedHasOneParticipant) {
    const auto entry = Listed();
    EXPECT_EQ(entry->TeilnahmePruefen()->Count(), 0);
    EXPECT_EQ(Enrolled(), Rows{}) << "nothing is written by a check";
    EXPECT_EQ(entry->objSemTermin()->clscolTeilnehmer()->Count(), 1);
    EXPECT_EQ(entry->TeilnahmeGenehmigen(kUserID), true);
    EXPECT_EQ(Enrolled(), (Rows{{5, 45, 5}}));
    EXPECT_EQ(entry->objSemTermin()->clscolTeilnehmer()->Count(), 1);
}

TEST_F(WaitListApprovalForReal, AnEntryThatWasOnlyBoundIsCheckedAgainstDate0) {
    Enrol(23, 6, 46);
    EXPECT_EQ(FindingsOf(*Bound(session_)->TeilnahmePruefen()), Findings{});
    const auto read = Bound(session_);
    EXPECT_EQ(read->SemTerminID(), 17);
    EXPECT_EQ(FindingsOf(*read->TeilnahmePruefen()), (Findings{{300000001, ""}}));
}

}  // namespace
}  // namespace LumoSeminar
