// Training needs and the approval steps of a person on a real database with real process objects.

#include <gtest/gtest.h>

#include <LumoConnection/install.h>
#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/needs/colANWBBedarf.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>
#include <test_support/need_statements.h>
#include <test_support/person_statements.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using need_statements::Bound;
using test_support::RaisedBy;
using test_support::Rows;
using test_support::Select;
using test_support::Value;
using test_support::Write;

constexpr Int32 kClient = 1;
constexpr Int32 kEmployee = 101;
constexpr Byte kEmployeeKind = 2;
constexpr Byte kApplicantKind = 3;
constexpr Int32 kDate = 60;
constexpr Int32 kFreeDate = 63;
constexpr Int32 kFocusArea = 4;
constexpr Int32 kSuperior = 11;
constexpr Int32 kDepartment = 12;
constexpr Int32 kStranger = 13;
const DateTime kNow = DateTime::Of(2010, 9, 6, 14, 15, 16);
const DateTime kToday = DateTime::Of(2010, 9, 6);
const Variant kNull = Variant::Null();

/// The sample company, a superior and somebody of the training department.
class NeedsForReal : public testing::Test {
  protected:
    NeedsForReal() : session_(test_support::SampleDatabase()) {
        test_support::RunSchemaFile(*session_, "process.sql");
        for (const char* rights : {"7, 1, 11", "7, 2, 12", "8, 1, 11", "8, 2, 12"}) {
            Write(*session_, "INSERT INTO Sem_ProzessRecht_IT (ModulNr, Stufe, UserID) VALUES (" + std::string(rights) + ")");
        }
        common::State() = {};
        LumoConnection::Install({.user = "pkühn", .session = session_});
    }
    ~NeedsForReal() override {
        common::State() = {};
        SetComponents({});
    }

    Ref<clsWBPerson> Person(Int32 key = kEmployee, Byte kind = kEmployeeKind) {
        return person_statements::PersonOf(session_, kind, key, kClient);
    }

    /// A new need of the employee that is not written yet.
    Ref<clsANWBBedarf> NewNeed(Byte status) {
        auto need = Bound(session_, 0);
        need->MDNR(kClient);
        need->ANNr(kEmployee);
        need->WBS(kFocusArea);
        need->BedarfErfuellt(status);
        return need;
    }

    Variant Stored(Int32 need, const Text& column) {
        return Value(*session_, "SELECT " + column + " FROM AN_WBBedarf_IT WHERE WBID = " + std::to_string(need));
    }

    Int32 Count(const Text& table, const Text& where = "1 = 1") {
        return To<Int32>(Value(*session_, "SELECT COUNT(*) FROM " + table + " WHERE " + where));
    }

    /// What was done in the processes of a module: kind of step and state behind it.
    Rows Steps(Int32 module_number, Int32 key) {
        return Select(*session_, "SELECT Art, UserID, Status FROM Sem_ProzessSchritt_IT WHERE ModulNr = " +
                                     std::to_string(module_number) + " AND SchluesselID = " + std::to_string(key) +
                                     " ORDER BY SchrittNr");
    }

    Int32 ParticipantsOf(Int32 date, Int32 employee) {
        return Count("Sem_Teilnehmer_IT",
                     "SemTerminID = " + std::to_string(date) + " AND MDNr = 1 AND ANNr = " + std::to_string(employee));
    }

    Ref<DataSession> session_;

  private:
    PinnedNow now_{kNow};
};

using ApprovalOfAPersonForReal = NeedsForReal;

// Reading.

TEST_F(NeedsForReal, EveryNeedReadsAsItsRowAloneAndInTheListOfItsEmployee) {
    const Rows rows = Select(*session_,
                             "SELECT WBID, MDNr, ANNr, WBS, erfDat, erford, Erfuellt, erfUser, BedarfErfuellt, "
                             "Bemerkungen FROM AN_WBBedarf_IT");
    ASSERT_GT(rows.size(), 30U);
    int fulfilled = 0;
    for (const auto& row : rows) {
        const auto day = [&](std::size_t column) {
            return row[column].IsNull() ? DateTime() : To<DateTime>(row[column]);
        };
        const Int32 key = To<Int32>(row[0]);
        colANWBBedarf list;
        list.LoadBedarfArbeitnehmer(session_, To<Int32>(row[1]), To<Int32>(row[2]));
        for (const auto& need : {Bound(session_, key), list.Item(std::to_string(key))}) {
            EXPECT_EQ(Variant(need->MDNR()), row[1]);
            EXPECT_EQ(Variant(need->ANNr()), row[2]);
            EXPECT_EQ(Variant(need->WBS()), row[3]);
            EXPECT_EQ(need->ErfDat(), day(4));
            EXPECT_EQ(need->Erford(), day(5));
            EXPECT_EQ(need->Erfuellt(), day(6));
            EXPECT_EQ(Variant(need->ErfUser()), row[7]);
            EXPECT_EQ(need->BedarfErfuellt(), std::abs(To<Int32>(row[8])));
            EXPECT_EQ(need->Bemerkungen(), row[9].IsNull() ? Text() : To<Text>(row[9]));
            if (need->BedarfErfuellt() == 1) ++fulfilled;
        }
    }
    EXPECT_GT(fulfilled, 0) << "stored as -1";
}

TEST_F(NeedsForReal, TheListOfEachEmployeeHasAllItsNeeds) {
    const Rows employees = Select(*session_, "SELECT MDNr, ANNr, COUNT(*) FROM AN_WBBedarf_IT GROUP BY MDNr, ANNr");
    Int32 listed = 0;
    for (const auto& row : employees) {
        colANWBBedarf list;
        list.LoadBedarfArbeitnehmer(session_, To<Int32>(row[0]), To<Int32>(row[1]));
        EXPECT_EQ(list.Count(), To<Int32>(row[2]));
        listed += list.Count();
    }
    EXPECT_EQ(listed, Count("AN_WBBedarf_IT"));
    colANWBBedarf nobody;
    nobody.LoadBedarfArbeitnehmer(session_, 99, 99);
    EXPECT_EQ(nobody.Count(), 0);
}

TEST_F(NeedsForReal, LoadingAListTwiceFailsAtItsFirstRow) {
    colANWBBedarf list;
    list.LoadBedarfArbeitnehmer(session_, 2, 101);
    ASSERT_EQ(list.Count(), 1);
    EXPECT_RAISES_UNDER(457, need_statements::Labels{" in LumoSeminar.LoadListe"},
                        list.LoadBedarfArbeitnehmer(session_, 2, 101));
}

// The states of a need.

TEST_F(NeedsForReal, ANewOpenNeedIsStoredWithTheDayOfCaptureAndItsProcessIsOpen) {
    const Int32 largest = To<Int32>(Value(*session_, "SELECT MAX(WBID) FROM AN_WBBedarf_IT"));
    const auto need = NewNeed(0);
    need->Bemerkungen("für die \"große\" Halle & später");
    need->Erford(DateTime::Of(2010, 12, 1, 23, 59, 59));
    EXPECT_EQ(need->WriteToDatabase(kEmployee), true);
    const Int32 key = need->WBID();
    EXPECT_EQ(key, largest + 1);
    EXPECT_EQ(Select(*session_,
                     "SELECT MDNr, ANNr, WBS, erfDat, erford, Erfuellt, erfUser, BedarfErfuellt, Bemerkungen FROM "
                     "AN_WBBedarf_IT WHERE WBID = " +
                         need->Key()),
              (Rows{{kClient, kEmployee, kFocusArea, kToday, DateTime::Of(2010, 12, 1), kNull,
                     test_support::LoginOf(*session_), Int16{0}, "für die \"große\" Halle & später"}}));
    EXPECT_EQ(Steps(7, key), (Rows{{"Start", kEmployee, Byte{1}}}));
    EXPECT_EQ(need->Erford(), DateTime::Of(2010, 12, 1, 23, 59, 59));
    EXPECT_EQ(Bound(session_, key)->Erford(), DateTime::Of(2010, 12, 1)) << "the time is lost";
    EXPECT_EQ(Bound(session_, key)->StatusText(), "Stufe 1 von 2: Entscheidung durch Vorgesetzte");
}

TEST_F(NeedsForReal, ANewFulfilledNeedIsStoredAsMinusOneWithoutAProcess) {
    const auto need = NewNeed(1);
    EXPECT_EQ(need->WriteToDatabase(kEmployee), true);
    EXPECT_EQ(Stored(need->WBID(), "BedarfErfuellt"), Variant(Int16{-1}));
    EXPECT_TRUE(Stored(need->WBID(), "Erfuellt").IsNull());
    EXPECT_EQ(Bound(session_, need->WBID())->BedarfErfuellt(), 1);
    EXPECT_EQ(Steps(7, need->WBID()), Rows{});
}

TEST_F(NeedsForReal, ANewNeedWithAStatusAboveOneIsSettledTodayWithoutAProcess) {
    for (const Byte status : {Byte{2}, Byte{3}, Byte{255}}) {
        const auto need = NewNeed(status);
        EXPECT_EQ(need->WriteToDatabase(kEmployee), true);
        EXPECT_EQ(Stored(need->WBID(), "BedarfErfuellt"), Variant(Int16{status}));
        EXPECT_EQ(Stored(need->WBID(), "Erfuellt"), Variant(kToday));
        EXPECT_EQ(need->Erfuellt(), kNow);
        EXPECT_EQ(Steps(7, need->WBID()), Rows{});
    }
}

TEST_F(NeedsForReal, ARejectionThatDoesNotCountRaisesAndLeavesTheNeedAsItIs) {
    const auto need = NewNeed(0);
    need->WriteToDatabase(kEmployee);
    EXPECT_RAISES_UNDER(70, need_statements::Labels{}, need->BedarfAblehnen(kStranger));
    EXPECT_EQ(Stored(need->WBID(), "BedarfErfuellt"), Variant(Int16{0}));
    EXPECT_EQ(need->BedarfErfuellt(), 0);
}

TEST_F(NeedsForReal, ARejectionAtTheSecondStageSettlesTheNeedToo) {
    const auto need = NewNeed(0);
    need->WriteToDatabase(kEmployee);
    EXPECT_TRUE(need->TeilnahmeZustimmen(kDate, kSuperior).IsEmpty());
    EXPECT_EQ(need->BedarfAblehnen(kDepartment), false);
    EXPECT_EQ(Stored(need->WBID(), "BedarfErfuellt"), Variant(Int16{2}));
    EXPECT_EQ(Stored(need->WBID(), "Erfuellt"), Variant(kToday));
    EXPECT_EQ(Steps(7, need->WBID()),
              (Rows{{"Start", kEmployee, Byte{1}}, {"Zustimmung", kSuperior, Byte{1}}, {"Ablehnung", kDepartment, Byte{3}}}));
}

TEST_F(NeedsForReal, AnApprovedNeedKeepsItsStatusAndLeavesAnEntryThatIsThereAlone) {
    for (const bool withdrawn : {false, true}) {
        const Int32 employee = withdrawn ? 103 : kEmployee;
        Person(employee)->TeilnahmeZustimmen(kDate, employee, false);
        const auto entry = Person(employee)->colWarteliste()->Item(1);
        if (withdrawn) entry->ZustimmungVerwerfen(employee);
        const Int32 key = Person(employee)->BedarfErfassen(kFocusArea, employee);
        const auto need = Bound(session_, key);
        EXPECT_TRUE(need->TeilnahmeZustimmen(kDate, kSuperior).IsEmpty());
        EXPECT_TRUE(need->TeilnahmeZustimmen(kDate, kDepartment).IsEmpty());
        EXPECT_EQ(need->StatusText(), "Genehmigt");
        EXPECT_EQ(Stored(key, "BedarfErfuellt"), Variant(Int16{0}));
        const auto waiting = Person(employee)->colWarteliste();
        ASSERT_EQ(waiting->Count(), 1);
        EXPECT_EQ(waiting->Item(1)->SemWartelisteID(), entry->SemWartelisteID());
        EXPECT_EQ(waiting->Item(1)->Herkunft(), 3);
        EXPECT_EQ(waiting->Item(1)->Status(), withdrawn ? 0 : 1);
    }
}

TEST_F(NeedsForReal, AnEntryFromANeedHasNoProcessOfItsOwn) {
    const Int32 key = Person()->BedarfErfassen(kFocusArea, kEmployee);
    Bound(session_, key)->TeilnahmeZustimmen(kDate, kSuperior);
    EXPECT_EQ(Bound(session_, key)->TeilnahmeZustimmen(kDate, kDepartment), Variant(true));
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT", "ModulNr = 8"), 0);
    EXPECT_EQ(Select(*session_, "SELECT ModID, Herkunft, Status FROM Sem_Warteliste_IT WHERE MDNr = 1 AND TNID = 101"),
              (Rows{{Int16{2}, Int16{1}, Int16{-1}}}));
}

TEST_F(NeedsForReal, ADeletedNeedIsGoneAndItsProcessIsDropped) {
    const Int32 key = Person()->BedarfErfassen(kFocusArea, kEmployee);
    const auto need = Bound(session_, key);
    EXPECT_EQ(need->WBS(), kFocusArea);
    EXPECT_EQ(need->DeleteFromDatabase(), true);
    EXPECT_EQ(Count("AN_WBBedarf_IT", "WBID = " + std::to_string(key)), 0);
    EXPECT_EQ(Steps(7, key), (Rows{{"Start", kEmployee, Byte{1}}, {"Löschung", kNull, Byte{4}}}));
    EXPECT_EQ(need->DeleteFromDatabase(), true) << "there is nothing to delete any more, which is no failure";
}

TEST_F(NeedsForReal, ANeedThatWasNotReadIsDeletedToo) {
    const Int32 key = Person()->BedarfErfassen(kFocusArea, kEmployee);
    const auto need = Bound(session_, key);
    EXPECT_EQ(need->DeleteFromDatabase(), true);
    EXPECT_EQ(Count("AN_WBBedarf_IT", "WBID = " + std::to_string(key)), 0);
    EXPECT_EQ(need->ANNr(), 0) << "it was looked for behind its end";
    EXPECT_EQ(Steps(7, key).back()[0], Variant("Löschung"));
}

// Writing.

TEST_F(NeedsForReal, AnUpdateChangesDaysStatusRemarksAndFocusAreaAlone) {
    const Int32 key = Person()->BedarfErfassen(kFocusArea, kEmployee);
    const auto need = Bound(session_, key);
    need->MDNR(2);
    need->ANNr(128);
    need->ErfDat(DateTime::Of(2001, 1, 1));
    need->ErfUser("niemand");
    need->WBS(5);
    need->BedarfErfuellt(1);
    need->Erfuellt(DateTime::Of(2010, 9, 1, 8, 0));
    need->Bemerkungen("Öl \"und\" Äther");
    EXPECT_EQ(need->WriteToDatabase(kEmployee), true);
    EXPECT_EQ(Select(*session_,
                     "SELECT MDNr, ANNr, WBS, erfDat, erford, Erfuellt, erfUser, BedarfErfuellt, Bemerkungen "
                     "FROM AN_WBBedarf_IT WHERE WBID = " +
                         need->Key()),
              (Rows{{kClient, kEmployee, 5, kToday, kNull, DateTime::Of(2010, 9, 1), test_support::LoginOf(*session_),
                     Int16{-1}, "Öl \"und\" Äther"}}));
    need->Bemerkungen("");
    need->Erfuellt(DateTime());
    EXPECT_EQ(need->WriteToDatabase(kEmployee), true);
    EXPECT_TRUE(Stored(key, "Bemerkungen").IsNull());
    EXPECT_TRUE(Stored(key, "Erfuellt").IsNull());
}

TEST_F(NeedsForReal, AnUpdateOfANeedThatWasNotReadEmptiesAllButTheFocusArea) {
    EXPECT_EQ(Bound(session_, 1)->WriteToDatabase(kEmployee), true);
    EXPECT_EQ(Select(*session_, "SELECT WBS, erford, Erfuellt, BedarfErfuellt, Bemerkungen FROM AN_WBBedarf_IT WHERE WBID = 1"),
              (Rows{{4, kNull, kNull, Int16{0}, kNull}}));
}

TEST_F(NeedsForReal, AnUpdateOfAKeyWithoutARowChangesNothingAndIsTrue) {
    const Rows before = Select(*session_, "SELECT * FROM AN_WBBedarf_IT");
    const auto need = Bound(session_, 4711);
    need->WBS(kFocusArea);
    EXPECT_EQ(need->WriteToDatabase(kEmployee), true);
    EXPECT_EQ(Select(*session_, "SELECT * FROM AN_WBBedarf_IT"), before);
}

TEST_F(NeedsForReal, ASingleQuoteBreaksTheStatementAndADoubledOneIsStoredAsOne) {
    const Int32 rows = Count("AN_WBBedarf_IT");
    const auto need = NewNeed(0);
    need->Bemerkungen("Rock'n Roll");
    const auto error = RaisedBy([&] { return need->WriteToDatabase(kEmployee); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(), "in line: 0\r\n" + session_->LastErrorText() + " in LumoSeminar.WriteToDatabase");
    EXPECT_EQ(Count("AN_WBBedarf_IT"), rows);
    EXPECT_NE(need->WBID(), 0) << "the key stays";
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 0);
    need->WBID(0);
    need->Bemerkungen("Rock''n Roll");
    EXPECT_EQ(need->WriteToDatabase(kEmployee), true);
    EXPECT_EQ(Bound(session_, need->WBID())->Bemerkungen(), "Rock'n Roll");
}

// Consent and approval of a person.

TEST_F(ApprovalOfAPersonForReal, WithoutADateNothingIsWrittenAndNoProcessBegins) {
    const Int32 entries = Count("Sem_Warteliste_IT");
    EXPECT_TRUE(Person()->TeilnahmeZustimmen(0, kEmployee).IsEmpty());
    EXPECT_EQ(Count("Sem_Warteliste_IT"), entries);
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 0);
}

TEST_F(ApprovalOfAPersonForReal, SomebodyWhoIsOnTheDateAlreadyIsApprovedAndNotWritten) {
    constexpr Int32 kEnrolled = 192;
    ASSERT_EQ(ParticipantsOf(kDate, kEnrolled), 1);
    const auto person = Person(kEnrolled);
    EXPECT_EQ(person->TeilnahmeZustimmen(kDate, kEnrolled), Variant(true));
    const Int32 entry = person->colWarteliste()->Item(1)->SemWartelisteID();
    EXPECT_EQ(person->TeilnahmeGenehmigen(kDate, kSuperior), true);
    EXPECT_EQ(person->TeilnahmeGenehmigen(kDate, kDepartment), false);
    EXPECT_EQ(ParticipantsOf(kDate, kEnrolled), 1);
    EXPECT_EQ(Steps(8, entry).back(), (std::vector<Variant>{"Zustimmung", kDepartment, Byte{2}}));
    EXPECT_EQ(Count("Sem_Warteliste_IT", "SemWarteListeID = " + std::to_string(entry)), 1);
}

TEST_F(ApprovalOfAPersonForReal, AWithdrawnEntryCanBeApprovedAndStaysWithdrawn) {
    const auto person = Person();
    person->TeilnahmeZustimmen(kDate, kEmployee);
    person->colWarteliste()->Item(1)->ZustimmungVerwerfen(kEmployee);
    EXPECT_EQ(person->TeilnahmeGenehmigen(kDate, kSuperior), true);
    EXPECT_EQ(ParticipantsOf(kDate, kEmployee), 0);
    EXPECT_EQ(person->TeilnahmeGenehmigen(kDate, kDepartment), true);
    EXPECT_EQ(ParticipantsOf(kDate, kEmployee), 1);
    EXPECT_EQ(Person()->colWarteliste()->Item(1)->Status(), 0);
}

TEST_F(ApprovalOfAPersonForReal, TheSameNumberAtAnotherClientIsSomebodyElseAndAFreeDateMakesNoCosts) {
    constexpr Int32 kNumber = 124;
    ASSERT_EQ(Count("Sem_Teilnehmer_IT", "SemTerminID = 63 AND MDNr = 2 AND ANNr = 124"), 1);
    const auto person = Person(kNumber);
    const Int32 lines = Count("Sem_Teilnehmer_Kosten_IT");
    person->TeilnahmeZustimmen(kFreeDate, kNumber);
    (void)person->TeilnahmeGenehmigen(kFreeDate, kSuperior);
    EXPECT_EQ(person->TeilnahmeGenehmigen(kFreeDate, kDepartment), true);
    EXPECT_EQ(ParticipantsOf(kFreeDate, kNumber), 1);
    EXPECT_EQ(Count("Sem_Teilnehmer_Kosten_IT"), lines);
}

TEST_F(ApprovalOfAPersonForReal, AnApplicantWaitsAsAnEmployeeAndANumberThatIsNoneEndsTheApproval) {
    constexpr Int32 kApplicant = 2;
    const auto person = Person(kApplicant, kApplicantKind);
    EXPECT_EQ(person->PersNr(), "B-2009-010");
    EXPECT_EQ(person->TeilnahmeZustimmen(kDate, kApplicant), Variant(true));
    const auto waiting = person->colWarteliste();
    ASSERT_EQ(waiting->Count(), 1);
    EXPECT_EQ(waiting->Item(1)->ModId(), 2);
    EXPECT_EQ(waiting->Item(1)->TNID(), kApplicant);
    const Int32 participants = Count("Sem_Teilnehmer_IT");
    EXPECT_EQ(person->TeilnahmeGenehmigen(kDate, kSuperior), true);
    EXPECT_RAISES_UNDER(13, need_statements::Labels{" in LumoSeminar.TeilnahmeGenehmigen"},
                        person->TeilnahmeGenehmigen(kDate, kDepartment));
    EXPECT_EQ(Count("Sem_Teilnehmer_IT"), participants);
    EXPECT_EQ(Steps(8, waiting->Item(1)->SemWartelisteID()).size(), 3U) << "the approval is recorded";
}

TEST_F(ApprovalOfAPersonForReal, ANeedOfAnApplicantIsRecordedUnderItsKeyAsAnEmployees) {
    const auto person = Person(2, kApplicantKind);
    EXPECT_EQ(person->colWBBedarf()->Count(), 0);
    const Int32 key = person->BedarfErfassen(kFocusArea, kEmployee);
    EXPECT_EQ(Stored(key, "ANNr"), Variant(2));
    EXPECT_EQ(person->colWBBedarf()->Count(), 0) << "the list was made before";
    EXPECT_EQ(Person(2)->colWBBedarf()->Item(1)->WBID(), key);
}

TEST_F(ApprovalOfAPersonForReal, AMissingCostTypeIsMadeWithTheNextKey) {
    Write(*session_, "DELETE FROM sysIData_KostenArten WHERE KostenArten = 'Teilnehmerkosten'");
    const auto person = Person();
    person->TeilnahmeZustimmen(kDate, kEmployee);
    (void)person->TeilnahmeGenehmigen(kDate, kSuperior);
    EXPECT_EQ(person->TeilnahmeGenehmigen(kDate, kDepartment), true);
    EXPECT_EQ(Value(*session_, "SELECT KostenArten_ID FROM sysIData_KostenArten WHERE KostenArten = 'Teilnehmerkosten'"),
              Variant(6));
    EXPECT_EQ(Count("Sem_Teilnehmer_Kosten_IT", "KostenArtID = 6 AND Kostenbetrag = 870 AND Kost = 9100"), 1);
}

TEST_F(ApprovalOfAPersonForReal, WhereTheCostTypesAreUsedUpTheApprovalRaisesAndTheParticipantIsNotWritten) {
    Write(*session_, "UPDATE sysIData_KostenArten SET KostenArten_ID = 100 WHERE KostenArten_ID = 5");
    Write(*session_, "DELETE FROM sysIData_KostenArten WHERE KostenArten = 'Teilnehmerkosten'");
    const auto person = Person();
    person->TeilnahmeZustimmen(kDate, kEmployee);
    (void)person->TeilnahmeGenehmigen(kDate, kSuperior);
    EXPECT_RAISES_UNDER(94, need_statements::Labels{" in LumoSeminar.TeilnahmeGenehmigen"},
                        person->TeilnahmeGenehmigen(kDate, kDepartment));
    EXPECT_EQ(ParticipantsOf(kDate, kEmployee), 0);
    EXPECT_EQ(Count("sysIData_KostenArten", "KostenArten = 'Teilnehmerkosten'"), 0);
}

}  // namespace
}  // namespace LumoSeminar
