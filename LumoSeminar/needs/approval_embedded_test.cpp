#include <gtest/gtest.h>

#include <LumoConnection/install.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/enrolment/participant_costs.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/needs/colANWBBedarf.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
#include <test_support/embedded.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

constexpr Int32 kClient = 1;
constexpr Int32 kEmployee = 101;
constexpr Byte kKind = 2;
constexpr Int32 kDate = 60;
constexpr Int32 kSuperior = 11;
constexpr Int32 kDepartment = 12;
constexpr Int32 kStranger = 13;

// The sample company, a superior and somebody of the training department.
class ApprovalForReal : public testing::Test {
  protected:
    ApprovalForReal() : session_(test_support::SampleDatabase()) {
        test_support::RunSchemaFile(*session_, "process.sql");
        for (const char* rights : {"7, 1, 11", "7, 2, 12", "8, 1, 11", "8, 2, 12"}) {
            EXPECT_TRUE(session_->ExecuteSql("INSERT INTO Sem_ProzessRecht_IT (ModulNr, Stufe, UserID) VALUES (" +
                                             std::string(rights) + ")"))
                << session_->LastErrorText();
        }
        common::State() = {};
        LumoConnection::Install(LumoConnection::Login{.session = session_});
    }
    ~ApprovalForReal() override {
        common::State() = {};
        SetComponents({});
    }

    Ref<clsWBPerson> Person() {
        auto person = New<clsWBPerson>();
        person->Init(kClient, kEmployee, kKind, session_);
        return person;
    }

    Ref<clsANWBBedarf> Need(Int32 key) {
        auto need = New<clsANWBBedarf>();
        need->Init(key, session_);
        return need;
    }

    Int32 Count(const Text& table, const Text& where = {}) {
        return To<Int32>(session_->LookupValue("count(*)", table, where));
    }

    Ref<clsTeilnehmer> Participant() {
        clsTermin date;
        date.Init(kDate, session_);
        for (const auto& participant : date.clscolTeilnehmer()->NewEnum()) {
            if (participant->MDNR() == kClient && participant->ANNr() == kEmployee) return participant;
        }
        return {};
    }

    Ref<DataSession> session_;
};

TEST_F(ApprovalForReal, ANeedBecomesAnEntryAndTheEntryAParticipant) {
    const Int32 key = Person()->BedarfErfassen(1, kEmployee);
    ASSERT_NE(key, 0);
    EXPECT_EQ(Need(key)->StatusText(), "Stufe 1 von 2: Entscheidung durch Vorgesetzte");
    EXPECT_EQ(Need(key)->BenutzerHatGenehmigungsrechte(kSuperior), true);
    EXPECT_EQ(Need(key)->BenutzerHatGenehmigungsrechte(kDepartment), false);
    EXPECT_RAISES(70, Need(key)->TeilnahmeZustimmen(kDate, kStranger));

    EXPECT_TRUE(Need(key)->TeilnahmeZustimmen(kDate, kSuperior).IsEmpty());
    EXPECT_EQ(Person()->colWarteliste()->Count(), 0);
    EXPECT_EQ(Need(key)->TeilnahmeZustimmen(kDate, kDepartment), Variant(true));
    EXPECT_EQ(Need(key)->StatusText(), "Genehmigt");
    const auto waiting = Person()->colWarteliste();
    ASSERT_EQ(waiting->Count(), 1);
    EXPECT_EQ(waiting->Item(1)->Herkunft(), 1);
    EXPECT_EQ(waiting->Item(1)->SemTerminID(), kDate);
    EXPECT_EQ(waiting->Item(1)->Status(), 1);

    EXPECT_FALSE(Participant());
    EXPECT_EQ(Person()->TeilnahmeGenehmigen(kDate, kDepartment), true);
    const auto participant = Participant();
    ASSERT_TRUE(participant);
    EXPECT_EQ(participant->Herkunft(), 4);
    EXPECT_EQ(participant->Teilnahme(), -1);
    EXPECT_EQ(participant->objKosten()->Count(), 1);
    EXPECT_EQ(participant->TeilnehmerKosten(), 870);
    EXPECT_EQ(Person()->colWarteliste()->Count(), 1) << "the entry stays";
}

TEST_F(ApprovalForReal, AConsentOfAPersonNeedsBothStages) {
    EXPECT_EQ(Person()->TeilnahmeZustimmen(kDate, kEmployee, false), Variant(true));
    EXPECT_EQ(Person()->colWarteliste()->Item(1)->Herkunft(), 3);
    EXPECT_EQ(Person()->TeilnahmePruefen(kDate)->Count(), 0);
    EXPECT_EQ(Person()->TeilnahmeGenehmigen(kDate, kSuperior), true);
    EXPECT_FALSE(Participant()) << "the training department has still to decide";
    EXPECT_RAISES(70, Person()->TeilnahmeGenehmigen(kDate, kSuperior));
    EXPECT_EQ(Person()->TeilnahmeGenehmigen(kDate, kDepartment, false), true);
    ASSERT_TRUE(Participant());
    EXPECT_EQ(Participant()->Herkunft(), 3);
}

TEST_F(ApprovalForReal, WithoutAnEntryThereIsNothingToApprove) {
    EXPECT_EQ(Person()->TeilnahmeGenehmigen(kDate, kDepartment), false);
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 0);
}

TEST_F(ApprovalForReal, AnEntryIsApprovedWithoutAProcessAndGoesWhereNobodyIsTold) {
    Person()->TeilnahmeZustimmen(kDate, kEmployee);
    const auto entry = Person()->colWarteliste()->Item(1);
    entry->DoSendInfos(false);
    EXPECT_EQ(entry->TeilnahmeGenehmigen(kDepartment), true);
    ASSERT_TRUE(Participant());
    EXPECT_EQ(Participant()->Herkunft(), 5);
    EXPECT_EQ(Person()->colWarteliste()->Count(), 0);
}

TEST_F(ApprovalForReal, AConsentCanBeWithdrawnAndGivenAgain) {
    Person()->TeilnahmeZustimmen(kDate, kEmployee);
    EXPECT_TRUE(Person()->colWarteliste()->Item(1)->ZustimmungVerwerfen(kEmployee).IsEmpty());
    EXPECT_EQ(Person()->colWarteliste()->Item(1)->Status(), 0);
    EXPECT_EQ(Person()->TeilnahmeZustimmen(kDate, kEmployee), Variant(true));
    EXPECT_EQ(Person()->colWarteliste()->Item(1)->Status(), 1);
    EXPECT_EQ(Person()->colWarteliste()->Count(), 1);
}

TEST_F(ApprovalForReal, ARejectedNeedIsSettled) {
    const Int32 key = Person()->BedarfErfassen(1, kEmployee);
    EXPECT_EQ(Need(key)->BedarfAblehnen(kSuperior), false) << "the result is never true";
    EXPECT_EQ(Need(key)->BedarfErfuellt(), 2);
    EXPECT_NE(Need(key)->Erfuellt(), DateTime());
    EXPECT_EQ(Need(key)->StatusText(), "Abgelehnt");
    EXPECT_EQ(Need(key)->DeleteFromDatabase(), true);
    EXPECT_EQ(Need(key)->StatusText(), "Kein Vorgang");
}

TEST_F(ApprovalForReal, TheListsOfThePersonTheDateAndTheSeminarShowTheSameRows) {
    Person()->TeilnahmeZustimmen(kDate, kEmployee);
    const Text key = Person()->colWarteliste()->Item(1)->Key();
    clsTermin date;
    date.Init(kDate, session_);
    EXPECT_EQ(date.colWarteliste()->Item(key)->TNID(), kEmployee);
    EXPECT_EQ(date.colWarteliste()->Count(), Count("Sem_WartelisteTermin_IT", "SemTerminID = 60"));
    colSemWarteliste all;
    all.LoadListComplete(session_);
    EXPECT_EQ(all.Count(), Count("Sem_Warteliste_IT"));
    EXPECT_EQ(Person()->colWBBedarf()->Count(), Count("AN_WBBedarf_IT", "MDNr = 1 AND ANNr = 101"));
}

}  // namespace
}  // namespace LumoSeminar
