#include <fmt/format.h>

#include <optional>
#include <vector>

#include <LumoConnection/process/process_objects.h>

#include "frontend/commands/requests.h"
#include "frontend/output/counted.h"
#include "frontend/output/findings.h"
#include "frontend/output/sheet.h"
#include "frontend/tour/chapters.h"
#include "frontend/tour/ground.h"
#include "frontend/tour/tour_dates.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr const char* kEntries = "Sem_Warteliste_IT";
constexpr const char* kSteps = "Sem_ProzessSchritt_IT";
constexpr const char* kRights = "Sem_ProzessRecht_IT";
constexpr const char* kStages = "Sem_ProzessStufe_IT";
constexpr Int32 kNeeds = 7;
constexpr Int32 kWaitList = 8;
constexpr Byte kEmployee = 2;
constexpr Int32 kUser = 1;
constexpr Int32 kPlaces = 3;

// Two requests for one date, each decided on stage by stage: one begins as a training need, one as a consent.
class ApprovalChapter {
  public:
    explicit ApprovalChapter(TourGround& ground)
        : ground_(ground), page_(ground.page), session_(ground.session), client_(ground.client) {}

    void Walk() {
        const auto rows_at_first = Rows();
        seminar_.emplace(ground_);
        PlanDate();
        AppointApprovers();
        RecordNeed();
        DecideOnNeed();
        LookAtWaitList();
        ApproveNeedBorn();
        Consent();
        ChangeMind();
        ApproveConsent();
        ShowPlaces();
        RemoveAll();
        all_->Gone();
        seminar_->Remove();
        page_.Outcome(Rows() == rows_at_first, "date, need, entries, steps and rights are as they were before");
    }

  private:
    std::vector<Int32> Rows() const {
        std::vector<Int32> rows;
        for (const char* table : {"Sem_Katalog_IT", "Sem_Termin_IT", "Sem_Termin_Termine_IT", "Sem_Teilnehmer_IT",
                                  "Sem_Teilnehmer_Kosten_IT", "sysIData_KostenArten", kEntries,
                                  "Sem_WartelisteTermin_IT", "AN_WBBedarf_IT", kSteps, kRights}) {
            rows.push_back(ground_.CountRows(table));
        }
        return rows;
    }

    void PlanDate() {
        page_.Step("A date with places to give",
                   "A new date with three places, one of which is taken. Two more employees are going to ask for a place.");
        all_.emplace("a date with its requests", [this] { RemoveAll(); });
        page_.Call(
            "date: Init(0, session), SemID, MaxTeil(3), ... WriteToDatabase",
            [&] { PlanTourDate(*date_, session_, client_, seminar_->Key(), "TOUR-3", kPlaces); },
            [&] { return fmt::format("{}", page_.Sent()); });
        const auto record = date_->clscolTeilnehmer()->AddEmptyObject().As<clsTeilnehmer>();
        record->MDNR(client_);
        record->ANNr(ground_.Enrolled().number);
        record->TeilnehmerKosten(120);
        Demand(record->WriteToDatabase(kUser), session_);
        before_ = Names();
        free_before_ = Fresh(*date_, session_)->AnzFreiePlaetze();
        page_.Outcome(before_.size() == 1 && free_before_ == kPlaces - 1,
                      fmt::format("date {}, {} of {} places free", date_->SemTerminID(), free_before_, kPlaces));
    }

    Ref<clsWBPerson> Person(const TourPerson& employee) const {
        auto person = New<clsWBPerson>();
        auto session = session_;
        person->Init(client_, employee.number, kEmployee, session);
        return person;
    }

    std::vector<TourPerson> Names() const {
        std::vector<TourPerson> names;
        for (const auto& record : Fresh(*date_, session_)->clscolTeilnehmer()->NewEnum()) {
            for (const auto& employee : ground_.people) {
                if (employee.number == record->ANNr()) names.push_back(employee);
            }
        }
        return names;
    }

    // Of a module, first to last: those that the table names, otherwise two.
    std::vector<Int32> StagesOf(Int32 module) const {
        std::vector<Int32> stages;
        for (Variant stage = NextStage(module, std::nullopt); !stage.IsNull(); stage = NextStage(module, stages.back()))
            stages.push_back(To<Int32>(stage));
        return stages.empty() ? std::vector{1, 2} : stages;
    }

    Variant NextStage(Int32 module, std::optional<Int32> behind) const {
        return session_->LookupValue(
            "min(Stufe)", kStages,
            fmt::format("ModulNr = {}{}", module, behind ? fmt::format(" AND Stufe > {}", *behind) : ""));
    }

    void AppointApprovers() {
        page_.Step("Those who decide",
                   "Who decides at which stage stands in a table: the training department at the last, a superior at each "
                   "before it. A module is 7 for training needs and 8 for the wait-list.");
        superior_ = ground_.LargestKey("UserID", kRights) + 1;
        department_ = superior_ + 1;
        stranger_ = superior_ + 2;
        std::size_t rights = 0;
        page_.Call("session->ExecuteSql(insert)   // for each module", [&] {
            for (const Int32 module : {kNeeds, kWaitList}) {
                const auto stages = StagesOf(module);
                rights += stages.size();
                std::string rows;
                for (const Int32 stage : stages) {
                    rows += fmt::format("{}({}, {}, {})", rows.empty() ? "" : ", ", module, stage,
                                        stage == stages.back() ? department_ : superior_);
                }
                Demand(session_->ExecuteSql(fmt::format("INSERT INTO {} (ModulNr, Stufe, UserID) VALUES {}", kRights, rows)),
                       session_);
            }
        });
        page_.Outcome(RightsOfTour() == rights, fmt::format("superior {}, training department {}", superior_, department_));
    }

    std::size_t RightsOfTour() const {
        return static_cast<std::size_t>(
            ground_.CountRows(kRights, fmt::format("UserID = {} OR UserID = {}", superior_, department_)));
    }

    void RecordNeed() {
        const auto& employee = ground_.Needing();
        page_.Step("A training need", fmt::format("{} needs training in a focus area. The need is written, its process opened, and written "
                                                  "again with its status.",
                                                  employee.name));
        const auto areas = session_->LookupValue("min(WBS_ID)", "sysIData_WBS", "");
        const Int32 focus_area = areas.IsNull() ? 1 : To<Int32>(areas);
        need_ = ground_.LargestKey("WBID", "AN_WBBedarf_IT") + 1;
        const auto person = Person(employee);
        Int32 key = 0;
        page_.Call(fmt::format("person->BedarfErfassen({}, {})", focus_area, kUser),
                   [&] { key = person->BedarfErfassen(focus_area, kUser); });
        const bool alone = StagesOf(kNeeds).size() == 1;
        page_.Outcome(key == need_ && Need()->BenutzerHatGenehmigungsrechte(alone ? department_ : superior_) &&
                          !Need()->BenutzerHatGenehmigungsrechte(alone ? superior_ : department_),
                      fmt::format("need {}: {}", key, Need()->StatusText()));
    }

    Ref<clsANWBBedarf> Need() const {
        auto need = New<clsANWBBedarf>();
        need->Init(need_, session_);
        return need;
    }

    void DecideOnNeed() {
        page_.Step("Stage by stage",
                   "A consent counts at the stage that the process waits at, from somebody who may decide there. Behind the "
                   "last stage the need becomes an entry on the wait-list of the date.");
        const Int32 date = date_->SemTerminID();
        const Int32 refused = page_.FailingCall(fmt::format("need->TeilnahmeZustimmen({}, {})", date, stranger_),
                                                [&] { Need()->TeilnahmeZustimmen(date, stranger_); });
        page_.Outcome(refused == LumoConnection::ProcessError::kDecisionRefused, "nothing was changed");
        Variant result;
        for (auto stages = StagesOf(kNeeds); stages.size() > 1; stages.pop_back()) {
            page_.Call(
                fmt::format("need->TeilnahmeZustimmen({}, {})", date, superior_),
                [&] { result = Need()->TeilnahmeZustimmen(date, superior_); },
                [&] { return fmt::format("{}", page_.Sent()); });
            page_.Outcome(result.IsEmpty(), fmt::format("Empty: {}", Need()->StatusText()));
        }
        const Int32 largest = ground_.LargestKey("SemWarteListeID", kEntries);
        page_.Call(fmt::format("need->TeilnahmeZustimmen({}, {})", date, department_),
                   [&] { result = Need()->TeilnahmeZustimmen(date, department_); });
        if (ground_.LargestKey("SemWarteListeID", kEntries) == largest + 1) entries_.push_back(largest + 1);
        page_.Outcome(!result.IsEmpty() && To<Bool>(result) && entries_.size() == 1,
                      fmt::format("true: {}, entry {} on the wait-list", Need()->StatusText(), largest + 1));
    }

    void LookAtWaitList() {
        page_.Step("The wait-list, and the checks",
                   "One statement fetches the list with all its entries. The checks tell what speaks against the date; "
                   "they gate nothing.");
        const auto date = Fresh(*date_, session_);
        Ref<colSemWarteliste> waiting;
        page_.Call("date->colWarteliste()", [&] { waiting = date->colWarteliste(); });
        page_.Outcome(waiting->Count() == 1 && waiting->Item(1)->TNID() == ground_.Needing().number,
                      fmt::format("{}: employee {}", Entries(waiting->Count()), waiting->Item(1)->TNID()));
        Ref<colErrorMsg> findings;
        page_.Call(
            fmt::format("person->TeilnahmePruefen({})", date_->SemTerminID()),
            [&] { findings = Person(ground_.Needing())->TeilnahmePruefen(date_->SemTerminID()); },
            [&] { return fmt::format("{}", page_.Sent()); });
        for (const auto& finding : findings->NewEnum()) page_.Outcome(true, FindingText(*finding));
        page_.Outcome(page_.Sent() > 0, Counted(findings->Count(), "finding"));
    }

    void ApproveNeedBorn() {
        page_.Step("From the entry to a place",
                   "The need was decided on already, and no process of the entry has been opened. The decision of the last "
                   "stage is enough: nothing is pending any more, and the library makes the participant.");
        Approve(ground_.Needing(), department_, true, 2);
    }

    // @param made  whether the person is to be a participant afterwards
    void Approve(const TourPerson& employee, Int32 user, bool made, std::size_t participants) {
        Bool result;
        page_.Call(
            fmt::format("person->TeilnahmeGenehmigen({}, {})", date_->SemTerminID(), user),
            [&] { result = Person(employee)->TeilnahmeGenehmigen(date_->SemTerminID(), user); },
            [&] { return fmt::format("{}", page_.Sent()); });
        const auto fresh = Fresh(*date_, session_);
        page_.Outcome(result && Names().size() == participants,
                      fmt::format("true: {}, {} of {} places free",
                                  made ? employee.name + " is a participant" : "recorded, and more is pending",
                                  fresh->AnzFreiePlaetze(), kPlaces));
    }

    void Consent() {
        const auto& employee = ground_.Asking();
        page_.Step("A wish without a need",
                   fmt::format("{} asks for a place. The consent makes an entry and opens its process.", employee.name));
        const Int32 key = ground_.LargestKey("SemWarteListeID", kEntries) + 1;
        entries_.push_back(key);
        Variant result;
        page_.Call(fmt::format("person->TeilnahmeZustimmen({}, {})", date_->SemTerminID(), kUser),
                   [&] { result = Person(employee)->TeilnahmeZustimmen(date_->SemTerminID(), kUser); });
        page_.Outcome(!result.IsEmpty() && To<Bool>(result),
                      fmt::format("entry {}: {}", key, ProcessOf(*Waiting())->ProzessStatusText()));
    }

    Ref<clsSemWarteliste> Waiting() const {
        return Person(ground_.Asking())->colWarteliste()->Item(fmt::format("{}", entries_.back()));
    }

    void ChangeMind() {
        page_.Step("Withdraw, and consent again",
                   "A withdrawn entry stays where it is, first come first listed. A consent renews it; the process goes on.");
        const auto entry = Waiting();
        page_.Call(fmt::format("entry->ZustimmungVerwerfen({})", kUser), [&] { entry->ZustimmungVerwerfen(kUser); });
        page_.Outcome(entry->Status() == 0, "status 0");
        page_.Call(fmt::format("person->TeilnahmeZustimmen({}, {})", date_->SemTerminID(), kUser),
                   [&] { Person(ground_.Asking())->TeilnahmeZustimmen(date_->SemTerminID(), kUser); });
        page_.Outcome(Waiting()->SemWartelisteID() == entry->SemWartelisteID() && Waiting()->Status() == 1,
                      fmt::format("status 1: {}", ProcessOf(*entry)->ProzessStatusText()));
    }

    void ApproveConsent() {
        page_.Step("Superior and department",
                   "The superior's approval is recorded and nothing else; that of the department makes the place.");
        for (auto stages = StagesOf(kWaitList); stages.size() > 1; stages.pop_back())
            Approve(ground_.Asking(), superior_, false, 2);
        Approve(ground_.Asking(), department_, true, 3);
    }

    void ShowPlaces() {
        page_.Step("What has become of the date", "Those on the date, and its free places, before the requests and after them.");
        const auto fresh = Fresh(*date_, session_);
        Sheet sheet{{"Employee", "Name", "Came by", "Before", "After"}, {}};
        for (const auto& record : fresh->clscolTeilnehmer()->NewEnum()) {
            for (const auto& employee : ground_.people) {
                if (employee.number != record->ANNr()) continue;
                const bool was_there = !before_.empty() && before_.front().number == employee.number;
                const Text by = was_there                                     ? "enrolled"
                                : employee.number == ground_.Needing().number ? "need"
                                                                              : "consent";
                sheet.rows.push_back({employee.number, employee.name, by, Text(was_there ? "x" : ""), Text("x")});
            }
        }
        sheet.rows.push_back({Text(), Text("places free"), Text(), fmt::format("{}", free_before_),
                              fmt::format("{}", fresh->AnzFreiePlaetze())});
        page_.Outcome(Names().size() == 3 && free_before_ == 2 && fresh->AnzFreiePlaetze() == 0, "two requests, two places less");
        page_.Picture(TableText(sheet, Shape::kRows, {}));
    }

    void RemoveAll() {
        for (const Int32 key : entries_) {
            const auto entry = New<clsSemWarteliste>();
            entry->Init(key, session_);
            entry->DeleteFromDatabase();
            RemoveSteps(kWaitList, key);
        }
        if (need_ != 0) {
            if (ground_.CountRows("AN_WBBedarf_IT", fmt::format("WBID = {}", need_)) == 1) Need()->DeleteFromDatabase();
            RemoveSteps(kNeeds, need_);
        }
        if (superior_ != 0)
            Demand(session_->ExecuteSql(
                       fmt::format("DELETE FROM {} WHERE UserID = {} OR UserID = {}", kRights, superior_, department_)),
                   session_);
        RemoveTourDate(*date_, session_);
    }

    void RemoveSteps(Int32 module, Int32 key) {
        Demand(session_->ExecuteSql(fmt::format("DELETE FROM {} WHERE ModulNr = {} AND SchluesselID = {}", kSteps, module, key)),
               session_);
    }

    TourGround& ground_;
    TourPage& page_;
    const Ref<DataSession>& session_;
    const Int32 client_;
    std::optional<TourSeminar> seminar_;
    Ref<clsTermin> date_ = New<clsTermin>();
    std::vector<TourPerson> before_;
    Int32 free_before_ = 0;
    Int32 superior_ = 0;
    Int32 department_ = 0;
    Int32 stranger_ = 0;
    Int32 need_ = 0;
    std::vector<Int32> entries_;
    std::optional<TakeBack> all_;
};

}  // namespace

void WalkApproval(TourGround& ground) { ApprovalChapter(ground).Walk(); }

}  // namespace frontend
