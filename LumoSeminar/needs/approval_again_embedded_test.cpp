// What failed behind the last decision is done again by deciding the same way once more.

#include <gtest/gtest.h>

#include <LumoConnection/install.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/enrolment/participant_costs.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
#include <test_support/database_calls.h>
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

/// A session that refuses what has certain words in it, as long as they are set.
class RefusingSession final : public DataSession {
  public:
    explicit RefusingSession(Ref<DataSession> session) : session_(std::move(session)) {}

    Text refused_words;

    Bool Connect(const Text&, const Text&, const Text&, Int32) override { return false; }
    Ref<Connection> AdoConnection() override { return session_->AdoConnection(); }
    Ref<RecordSet> Recordset() override { return session_->Recordset(); }
    Bool OpenSelect(const Text& sql) override { return !Refuses(sql) && session_->OpenSelect(sql); }
    Bool ExecuteSql(const Text& sql) override { return !Refuses(sql) && session_->ExecuteSql(sql); }
    Variant LookupValue(const Text& expression, const Text& table, const Text& where) override {
        return session_->LookupValue(expression, table, where);
    }
    Text LastErrorText() override { return last_refused_ ? "The disk is full." : session_->LastErrorText(); }

  private:
    bool Refuses(const Text& sql) {
        last_refused_ = !refused_words.empty() && sql.find(refused_words) != Text::npos;
        return last_refused_;
    }

    Ref<DataSession> session_;
    bool last_refused_ = false;
};

class ApprovalAgainForReal : public testing::Test {
  protected:
    ApprovalAgainForReal() : database_(test_support::SampleDatabase()), session_(New<RefusingSession>(database_)) {
        test_support::RunSchemaFile(*database_, "process.sql");
        for (const char* rights : {"7, 1, 11", "7, 2, 12", "8, 1, 11", "8, 2, 12"}) {
            test_support::Write(*database_, "INSERT INTO Sem_ProzessRecht_IT (ModulNr, Stufe, UserID) VALUES (" +
                                                std::string(rights) + ")");
        }
        common::State() = {};
        LumoConnection::Install({.session = database_});
    }
    ~ApprovalAgainForReal() override {
        common::State() = {};
        SetComponents({});
    }

    Ref<clsWBPerson> Person(Int32 key = kEmployee) {
        Ref<DataSession> session = session_;
        auto person = New<clsWBPerson>();
        person->Init(kClient, key, kKind, session);
        return person;
    }
    Ref<clsANWBBedarf> Need(Int32 key) {
        auto need = New<clsANWBBedarf>();
        need->Init(key, session_);
        return need;
    }
    Ref<clsTeilnehmer> Participant() {
        clsTermin date;
        date.Init(kDate, database_);
        for (const auto& participant : date.clscolTeilnehmer()->NewEnum()) {
            if (participant->MDNR() == kClient && participant->ANNr() == kEmployee) return participant;
        }
        return {};
    }
    Int32 Count(const Text& table) { return To<Int32>(database_->LookupValue("COUNT(*)", table, "")); }

    /// The person waits for the date, and the superior has approved.
    void AskAndPassTheSuperior() {
        Person()->TeilnahmeZustimmen(kDate, kEmployee);
        EXPECT_EQ(Person()->TeilnahmeGenehmigen(kDate, kSuperior), true);
    }

    Ref<DataSession> database_;
    Ref<RefusingSession> session_;
};

TEST_F(ApprovalAgainForReal, AParticipantThatWasRefusedIsWrittenTheSecondTime) {
    AskAndPassTheSuperior();
    session_->refused_words = "INSERT INTO Sem_Teilnehmer_IT";
    (void)Person()->TeilnahmeGenehmigen(kDate, kDepartment);
    EXPECT_FALSE(Participant());
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 3);

    session_->refused_words.clear();
    EXPECT_RAISES(70, Person()->TeilnahmeGenehmigen(kDate, kStranger));
    EXPECT_FALSE(Participant());
    EXPECT_EQ(Person()->TeilnahmeGenehmigen(kDate, kDepartment), true);
    ASSERT_TRUE(Participant());
    EXPECT_EQ(Participant()->TeilnehmerKosten(), 870);
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 3) << "no step more";

    EXPECT_EQ(Person()->TeilnahmeGenehmigen(kDate, kDepartment), false) << "the person is on the date";
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 3);
}

TEST_F(ApprovalAgainForReal, AMissingTypeOfCostsIsMetTheSecondTime) {
    AskAndPassTheSuperior();
    // none of that name, and no number free for it
    test_support::Write(*database_, "UPDATE sysIData_KostenArten SET KostenArten = 'anders' WHERE KostenArten_ID = 1");
    test_support::Write(*database_, "INSERT INTO sysIData_KostenArten (KostenArten_ID, KostenArten) VALUES (100, 'letzte')");
    EXPECT_RAISES(94, Person()->TeilnahmeGenehmigen(kDate, kDepartment));
    EXPECT_FALSE(Participant());
    test_support::Write(*database_, "UPDATE sysIData_KostenArten SET KostenArten = 'Teilnehmerkosten' WHERE KostenArten_ID = 1");
    EXPECT_EQ(Person()->TeilnahmeGenehmigen(kDate, kDepartment), true);
    ASSERT_TRUE(Participant());
    EXPECT_EQ(Participant()->TeilnehmerKosten(), 870);
}

TEST_F(ApprovalAgainForReal, APersonWhoseCostsWereRefusedIsOnTheDate) {
    AskAndPassTheSuperior();
    session_->refused_words = "INSERT INTO Sem_Teilnehmer_kosten_IT";
    EXPECT_RAISES(9999, Person()->TeilnahmeGenehmigen(kDate, kDepartment));
    ASSERT_TRUE(Participant());
    session_->refused_words.clear();
    EXPECT_EQ(Person()->TeilnahmeGenehmigen(kDate, kDepartment), false);
}

TEST_F(ApprovalAgainForReal, AnEntryOfANeedThatWasRefusedIsWrittenTheSecondTime) {
    const Int32 key = Person()->BedarfErfassen(1, kEmployee);
    Need(key)->TeilnahmeZustimmen(kDate, kSuperior);
    session_->refused_words = "Sem_Warteliste_IT (";
    EXPECT_RAISES(9999, Need(key)->TeilnahmeZustimmen(kDate, kDepartment));
    EXPECT_EQ(Person()->colWarteliste()->Count(), 0);
    session_->refused_words.clear();
    EXPECT_EQ(Need(key)->TeilnahmeZustimmen(kDate, kDepartment), Variant(true));
    EXPECT_EQ(Person()->colWarteliste()->Count(), 1);
    EXPECT_EQ(Count("Sem_ProzessSchritt_IT"), 3);
    EXPECT_RAISES(70, Need(key)->BedarfAblehnen(kDepartment));
}

TEST_F(ApprovalAgainForReal, ARejectedNeedIsSettledTheSecondTime) {
    const Int32 key = Person()->BedarfErfassen(1, kEmployee);
    session_->refused_words = "Update AN_WBBedarf_IT";
    try {
        Need(key)->BedarfAblehnen(kSuperior);
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 9999);
    }
    EXPECT_EQ(database_->LookupValue("BedarfErfuellt", "AN_WBBedarf_IT", "WBID = " + std::to_string(key)), Variant(Int16{0}));
    session_->refused_words.clear();
    EXPECT_EQ(Need(key)->BedarfAblehnen(kSuperior), false);
    EXPECT_EQ(database_->LookupValue("BedarfErfuellt", "AN_WBBedarf_IT", "WBID = " + std::to_string(key)), Variant(Int16{2}));
    EXPECT_RAISES(70, Need(key)->TeilnahmeZustimmen(kDate, kDepartment));
}

// The entry of the first person goes without the library's knowing; its key, the highest, is given to the next one.
TEST_F(ApprovalAgainForReal, AProcessStaysBehindWithTheKeyThatAnotherPersonIsGiven) {
    AskAndPassTheSuperior();
    const Text key = To<Text>(database_->LookupValue("MAX(SemWarteListeID)", "Sem_Warteliste_IT", ""));
    test_support::Write(*database_, "DELETE FROM Sem_WartelisteTermin_IT WHERE SemWarteListeID = " + key);
    test_support::Write(*database_, "DELETE FROM Sem_Warteliste_IT WHERE SemWarteListeID = " + key);
    test_support::Write(
        *database_, "INSERT INTO Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID, ErfDat, Herkunft, Status) VALUES (" +
                        key + ", 2, 1, 102, GetDate(), 3, -1)");
    test_support::Write(*database_,
                        "INSERT INTO Sem_WartelisteTermin_IT (SemWarteListeID, SemTerminID) VALUES (" + key + ", 60)");
    common::State() = {};  // somebody else at work: this thread would go on with the dispatcher of the first person
    EXPECT_RAISES(70, Person(102)->TeilnahmeGenehmigen(kDate, kSuperior));
    EXPECT_EQ(Person(102)->TeilnahmeGenehmigen(kDate, kDepartment), true) << "anew, at the last stage";
    EXPECT_EQ(database_->LookupValue("COUNT(*)", "Sem_Teilnehmer_IT", "SemTerminID = 60 AND MDNr = 1 AND ANNr = 102"),
              Variant(1));
    EXPECT_EQ(test_support::Select(*database_, "SELECT Art, Stufe, PersonID FROM Sem_ProzessSchritt_IT ORDER BY SchrittNr"),
              (test_support::Rows{{"Start", 1, 101}, {"Zustimmung", 1, 101}, {"Start", 2, 102}, {"Zustimmung", 2, 102}}));
}

}  // namespace
}  // namespace LumoSeminar
