// One request on its whole road, on a real database: each statement that the library sends, in order.

#include <gtest/gtest.h>

#include <LumoConnection/install.h>
#include <LumoConnection/tracing/tracing_session.h>
#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/error_list.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <test_support/check_statements.h>
#include <test_support/cost_statements.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>
#include <test_support/participant_statements.h>
#include <test_support/person_statements.h>
#include <test_support/termin_statements.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

namespace checks = check_statements;
namespace costs = cost_statements;
namespace dates = termin_statements;
namespace entries = waitlist_statements;
namespace participants = participant_statements;
using Statements = std::vector<std::string>;

constexpr Int32 kClient = 1;
constexpr Int32 kEmployee = 101;
constexpr Int32 kDate = 60;
constexpr Int32 kSeminar = 31;
constexpr Int32 kSuperior = 11;
constexpr Int32 kDepartment = 12;

/// The sample company with two who may decide. What the library sends is written down; what the process objects do for
/// themselves is not.
class RequestRoad : public testing::Test {
  protected:
    RequestRoad() : database_(test_support::SampleDatabase()) {
        test_support::RunSchemaFile(*database_, "process.sql");
        for (const char* rights : {"8, 1, 11", "8, 2, 12"}) {
            test_support::Write(*database_, "INSERT INTO Sem_ProzessRecht_IT (ModulNr, Stufe, UserID) VALUES (" +
                                                std::string(rights) + ")");
        }
        common::State() = {};
        LumoConnection::Install({.user = "pkühn", .session = database_});
        session_ = New<LumoConnection::TracingSession>(database_, LumoConnection::RecordInto(sent_));
    }
    ~RequestRoad() override {
        common::State() = {};
        SetComponents({});
    }

    /// What was sent since the last call.
    Statements Sent() { return std::exchange(*sent_, {}); }

    Int16 FreePlaces() {
        clsTermin date;
        date.Init(kDate, session_);
        return date.AnzFreiePlaetze();
    }

    Ref<DataSession> database_;
    Ref<DataSession> session_;

  private:
    std::shared_ptr<Statements> sent_ = std::make_shared<Statements>();
    PinnedNow now_{DateTime::Of(2010, 8, 16, 9, 30, 5)};
};

Statements Selects(const Statements& texts) {
    Statements calls;
    for (const auto& text : texts) calls.push_back("OpenSelect: " + text);
    return calls;
}

/// The date, its list and everybody in it.
Statements DateWithParticipants(const std::vector<Int32>& keys) {
    Statements texts = {dates::Select(kDate), participants::SelectKeys(kDate)};
    for (const Int32 key : keys) texts.push_back(participants::Select(key));
    return Selects(texts);
}

/// A new participant reads no row, and the date of nobody.
const Statements kNewParticipant = Selects({participants::Select(0), dates::Select(0)});

Statements operator+(Statements first, const Statements& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TEST_F(RequestRoad, APersonIsCheckedAsksIsApprovedAndTakesAPlace) {
    std::vector<Int32> enrolled;
    for (const auto& row :
         test_support::Select(*database_, "SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = 60")) {
        enrolled.push_back(To<Int32>(row[0]));
    }
    ASSERT_GT(enrolled.size(), 1U);
    const Int16 free_places = FreePlaces();
    EXPECT_EQ(Sent(), DateWithParticipants(enrolled));

    // The person costs nothing.
    const auto person = person_statements::PersonOf(session_, 2, kEmployee, kClient);
    EXPECT_EQ(Sent(), Statements{});

    // The check reads what the date has and asks what speaks against it. The client of the person is not in it.
    EXPECT_EQ(person->TeilnahmePruefen(kDate)->Count(), 0);
    EXPECT_EQ(Sent(), (DateWithParticipants(enrolled) + kNewParticipant +
                       Selects({
                           dates::Select(kDate),
                           checks::OpenDates(kSeminar, checks::OfEmployee(kEmployee, 0)),
                           checks::Enrolled(kDate, checks::EnrolledEmployee(0, kEmployee)),
                           checks::Overlaps(kDate, checks::OfEmployee(kEmployee, 0)),
                           checks::TakenBefore(kSeminar, checks::OfEmployee(kEmployee, 0)),
                           checks::CountRequiredSeminars(kSeminar),
                       })));

    // The request: nothing waits for the date yet, so an entry is made and its process opened.
    const Statements waiting = Selects({entries::SelectList(entries::WhereEmployeeWaits(kClient, kEmployee))});
    EXPECT_EQ(person->TeilnahmeZustimmen(kDate, kEmployee), Variant(true));
    EXPECT_EQ(Sent(), (waiting + Selects({entries::SelectEntry(0)}) +
                       Statements{
                           "LookupValue: System_User from opactMD",
                           "LookupValue: max(SemWartelisteID) from Sem_Warteliste_IT",
                           "ExecuteSql: " + entries::Insert("57,2,1,101,'16.08.2010 09:30:05',4,Null,-1,"
                                                            "'16.08.2010 09:30:05','" +
                                                            test_support::LoginOf(*database_) + "'"),
                           "ExecuteSql: " + entries::BindToDate(57, kDate),
                       }));

    // The superior approves: the department has still to, so the library's part ends with the entry.
    EXPECT_EQ(person->TeilnahmeGenehmigen(kDate, kSuperior), true);
    EXPECT_EQ(Sent(), waiting);

    // The department approves: the person becomes a participant, with costs.
    EXPECT_EQ(person->TeilnahmeGenehmigen(kDate, kDepartment), true);
    const Int32 key = To<Int32>(test_support::Value(*database_, "SELECT MAX(TeilnehmerID) FROM Sem_Teilnehmer_IT"));
    EXPECT_EQ(Sent(),
              (waiting + Selects({person_statements::SelectEmployee(kClient, kEmployee)}) +
               DateWithParticipants(enrolled) + kNewParticipant +
               Selects({
                   entries::SelectCostCentre(kClient, kEmployee, "02.09.2010", "28.10.2010"),
                   costs::SelectLines(0),
                   costs::SelectLine(0, 0),
               }) +
               Statements{
                   "LookupValue: KostenArten_ID from sysIData_KostenArten where KostenArten = 'Teilnehmerkosten'",
                   "OpenSelect: " + dates::Select(kDate),
                   "OpenSelect: " + participants::Insert("60,1, 101, convert(datetime,'16.08.2010',104), 'pkühn', -1,4, "
                                                         "convert(datetime,'02.09.2010',104),  "
                                                         "convert(datetime,'28.10.2010',104), '30.12.1899 09:00', "
                                                         "'30.12.1899 16:00',  NULL, 0, 0, 1, '', NULL, NULL"),
                   "LookupValue: max(TeilnehmerID) from Sem_Teilnehmer_IT",
                   "LookupValue: KostenArten_ID from sysIData_KostenArten where KostenArten = 'Teilnehmerkosten'",
                   "LookupValue: max(KostenID) from Sem_Teilnehmer_Kosten_IT where TeilnehmerID =" + std::to_string(key),
                   "ExecuteSql: " + costs::InsertLine(std::to_string(key) + ",1,1,870,9100"),
               }));

    // One place less, and the entry stays.
    enrolled.push_back(key);
    EXPECT_EQ(FreePlaces(), free_places - 1);
    EXPECT_EQ(Sent(), DateWithParticipants(enrolled));
    EXPECT_EQ(test_support::Value(*database_, "SELECT Status FROM Sem_Warteliste_IT WHERE SemWarteListeID = 57"),
              Variant(Int16{-1}));

    // What was decided, by whom.
    const auto steps = test_support::Select(
        *database_, "SELECT ModulNr, SchluesselID, Art, UserID FROM Sem_ProzessSchritt_IT ORDER BY SchrittNr");
    EXPECT_EQ(steps, (test_support::Rows{
                         {8, 57, "Start", kEmployee}, {8, 57, "Zustimmung", kSuperior}, {8, 57, "Zustimmung", kDepartment}}));
}

}  // namespace
}  // namespace LumoSeminar
