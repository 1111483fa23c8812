#include <fmt/format.h>

#include <map>
#include <optional>
#include <vector>

#include "frontend/output/findings.h"
#include "frontend/tour/chapters.h"
#include "frontend/tour/ground.h"
#include "frontend/tour/tour_dates.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr const char* kParticipants = "Sem_Teilnehmer_IT";
constexpr const char* kNewRecord = "0000000000";
constexpr Int32 kUser = 1;

// Two dates of one seminar on one day, and what speaks against being on both.
class EnrolmentChapter {
  public:
    explicit EnrolmentChapter(TourGround& ground)
        : ground_(ground), page_(ground.page), session_(ground.session), client_(ground.client) {}

    void Walk() {
        const auto rows_at_first = Rows();
        seminar_.emplace(ground_);
        PlanDates();
        MeetPerson();
        EnrolFirst();
        FindWhatSpeaksAgainst();
        Overbook();
        Cancel();
        RemoveAll();
        all_->Gone();
        seminar_->Remove();
        page_.Outcome(Rows() == rows_at_first, "dates, participants, costs and lists are as they were before");
    }

  private:
    std::vector<Int32> Rows() const {
        std::vector<Int32> rows;
        for (const char* table :
             {"Sem_Katalog_IT", "Sem_Termin_IT", "Sem_Termin_Termine_IT", kParticipants, "Sem_Teilnehmer_Kosten_IT",
              "sysIData_KostenArten", "Sem_Warteliste_IT", "Sem_WartelisteSem_IT", "Sem_WartelisteTermin_IT"}) {
            rows.push_back(ground_.CountRows(table));
        }
        return rows;
    }

    void PlanDates() {
        page_.Step("Two dates on one day", fmt::format("Two new dates of one seminar, for one participant each. Both take place on {} from 9:00 "
                                                       "to 17:00 and cost 120.00.",
                                                       DateText(DayOfTourDate())));
        all_.emplace("a date with its participants", [this] { RemoveAll(); });
        page_.Call(
            "first and second: Init(0, session), SemID, MaxTeil(1), WriteToDatabase, BeginnDatum, WriteToDatabase",
            [&] {
                PlanTourDate(*first_, session_, client_, seminar_->Key(), "TOUR-1", 1);
                PlanTourDate(*second_, session_, client_, seminar_->Key(), "TOUR-2", 1);
            },
            [&] { return fmt::format("{}", page_.Sent()); });
        page_.Outcome(first_->SemTerminID() != second_->SemTerminID() && first_->EndeDatum() == second_->EndeDatum(),
                      fmt::format("dates {} and {}", first_->SemTerminID(), second_->SemTerminID()));
    }

    void MeetPerson() {
        page_.Step("A person",
                   "One object for employees, applicants and temporary workers. The name is read when it is asked for.");
        const auto person = New<clsWBPerson>();
        auto session = session_;
        page_.Call(fmt::format("person->Init({}, {}, 2, session)", client_, ground_.Asking().number),
                   [&] { person->Init(client_, ground_.Asking().number, 2, session); });
        const bool nothing_sent = page_.Sent() == 0;
        Text name;
        page_.Call("person->Nachname(), person->Vorname()", [&] { name = person->Vorname() + " " + person->Nachname(); });
        page_.Outcome(nothing_sent && page_.Sent() == 1 && !name.empty(),
                      fmt::format("{}, employee {}", name, ground_.Asking().number));
    }

    // A new record for the person on the date.
    Ref<clsTeilnehmer> NewRecord(clsTermin& date, Int32 employee) {
        auto record = date.clscolTeilnehmer()->AddEmptyObject().As<clsTeilnehmer>();
        record->MDNR(client_);
        record->ANNr(employee);
        return record;
    }

    void Write(clsTermin& date, const Ref<clsTeilnehmer>& record) {
        record->TeilnehmerKosten(120);
        Demand(record->WriteToDatabase(kUser), session_);
        date.clscolTeilnehmer()->ChangeKey(kNewRecord, record->Key());
    }

    void EnrolFirst() {
        page_.Step("Enrol the person",
                   "A new record waits in the list of the date. Days and times come from the date, the key from the "
                   "insert; the cost line is written behind it.");
        const Int32 before = ground_.CountRows(kParticipants);
        Ref<clsTeilnehmer> record;
        page_.Call(
            fmt::format("record = date->clscolTeilnehmer()->AddEmptyObject(), ->ANNr({})", ground_.Asking().number),
            [&] { record = NewRecord(*first_, ground_.Asking().number); },
            [&] { return fmt::format("{}", page_.Sent()); });
        page_.Call("record->TeilnehmerKosten(120), record->WriteToDatabase(user)", [&] { Write(*first_, record); });
        record_ = record;
        page_.Outcome(ground_.CountRows(kParticipants) == before + 1 && record->TeilnehmerKosten() == 120,
                      fmt::format("participant {}, {} of {} places free", record->TeilnehmerID(),
                                  first_->AnzFreiePlaetze(), first_->MaxTeil()));
    }

    void FindWhatSpeaksAgainst() {
        page_.Step("What speaks against the second date",
                   "The checks find and forbid nothing: the person is busy on that day, on an open date of the same seminar.");
        const auto record = NewRecord(*second_, ground_.Asking().number);
        Bool free;
        page_.Call(
            "record->CheckTeilnehmerAnmeldung()", [&] { free = record->CheckTeilnehmerAnmeldung(); },
            [&] { return fmt::format("{}", page_.Sent()); });
        std::map<Int32, Int32> found;
        for (const auto& finding : record->colErrorsAnmeldung()->NewEnum()) {
            ++found[finding->ErrID()];
            page_.Outcome(true, FindingText(*finding));
        }
        page_.Outcome(!free && found[300000002] > 0 && found[300000003] > 0 && found[300000001] == 0,
                      fmt::format("false, with {}", Counted(record->colErrorsAnmeldung()->Count(), "finding")));
        second_->clscolTeilnehmer()->RemoveColOnly(kNewRecord);
    }

    void Overbook() {
        page_.Step("Overbook the first date",
                   "Places are counted and not kept: the decision is the front end's. A fresh object reads the "
                   "list anew.");
        const auto record = NewRecord(*first_, ground_.Needing().number);
        page_.Call(
            fmt::format("another record: ->ANNr({}), ->WriteToDatabase(user)", ground_.Needing().number),
            [&] { Write(*first_, record); }, [&] { return fmt::format("{}", page_.Sent()); });
        const auto fresh = Fresh(*first_, session_);
        page_.Outcome(fresh->AnzAnmeldungen() == 2 && fresh->AnzFreiePlaetze() == -1,
                      fmt::format("{} enrolled, {} places free", fresh->AnzAnmeldungen(), fresh->AnzFreiePlaetze()));
    }

    void Cancel() {
        page_.Step("Cancel, and keep the wish",
                   "A cancellation is nothing but fields of the record. What it costs is then StornoKosten. The "
                   "wish goes to the interest list of the seminar, in one batch that can be repeated.");
        const Int32 before = ground_.CountRows("Sem_WartelisteSem_IT");
        const Int32 largest = ground_.LargestKey("SemWarteListeID", "Sem_Warteliste_IT");
        page_.Call("record->Teilnahme(0), ->storniertam(...), ->StornoKosten(25), ->WriteToDatabase(user)", [&] {
            record_->Teilnahme(0);
            record_->storniertam(TourDay(28));
            record_->StornoKosten(25);
            Demand(record_->WriteToDatabase(kUser), session_);
        });
        page_.Call("record->StornoTeilnehmerInWarteliste()   // twice", [&] {
            record_->StornoTeilnehmerInWarteliste();
            record_->StornoTeilnehmerInWarteliste();
        });
        if (ground_.LargestKey("SemWarteListeID", "Sem_Warteliste_IT") == largest + 1) entry_ = largest + 1;
        const auto fresh = Fresh(*first_, session_);
        page_.Outcome(record_->TeilnehmerKosten() == 25 && ground_.CountRows("Sem_WartelisteSem_IT") == before + 1 &&
                          fresh->AnzFreiePlaetze() == 0,
                      fmt::format("one entry more, {} places free", fresh->AnzFreiePlaetze()));
    }

    void RemoveAll() {
        if (entry_ != 0) {
            for (const char* table : {"Sem_WartelisteSem_IT", "Sem_WartelisteTermin_IT", "Sem_Warteliste_IT"}) {
                Demand(session_->ExecuteSql(fmt::format("DELETE FROM {} WHERE SemWarteListeID = {}", table, entry_)), session_);
            }
        }
        for (const auto& date : {first_, second_}) RemoveTourDate(*date, session_);
    }

    TourGround& ground_;
    TourPage& page_;
    const Ref<DataSession>& session_;
    const Int32 client_;
    std::optional<TourSeminar> seminar_;
    Ref<clsTermin> first_ = New<clsTermin>();
    Ref<clsTermin> second_ = New<clsTermin>();
    Ref<clsTeilnehmer> record_;
    Int32 entry_ = 0;
    std::optional<TakeBack> all_;
};

}  // namespace

void WalkEnrolment(TourGround& ground) { EnrolmentChapter(ground).Walk(); }

}  // namespace frontend
