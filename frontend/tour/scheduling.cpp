#include <fmt/format.h>

#include <chrono>
#include <optional>
#include <vector>

#include "frontend/output/month_calendar.h"
#include "frontend/tour/chapters.h"
#include "frontend/tour/ground.h"
#include "frontend/tour/tour_dates.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr const char* kDates = "Sem_Termin_IT";
constexpr const char* kDays = "Sem_Termin_Termine_IT";
constexpr const char* kSeries = "Sem_Serien_IT";

// One date: its defaults, its series, its calendar as the end moves, and its end.
class SchedulingChapter {
  public:
    explicit SchedulingChapter(TourGround& ground)
        : ground_(ground), page_(ground.page), session_(ground.session), client_(ground.client) {}

    void Walk() {
        const auto rows_at_first = Rows();
        seminar_.emplace(ground_);
        PlanDate();
        StoreSeries();
        SetBegin();
        MoveEndLater();
        MoveEndEarlier();
        SaveDate();
        GroupDates();
        RemoveDate();
        seminar_->Remove();
        page_.Outcome(Rows() == rows_at_first, "dates, days and series are as they were before");
    }

  private:
    std::vector<Int32> Rows() const {
        return {ground_.CountRows("Sem_Katalog_IT"), ground_.CountRows(kDates), ground_.CountRows(kDays),
                ground_.CountRows(kSeries)};
    }

    void PlanDate() {
        page_.Step("Plan a date",
                   "A date that is given a seminar takes over its title, limits, hours and costs. Its row is looked for "
                   "first: with the key 0 there is none, and it reads as a new date. The insert works its key out by "
                   "itself and brings it back.");
        const Int32 seminar_key = seminar_->Key();
        const auto seminar = New<clsSeminar>();
        seminar->Init(seminar_key, session_);
        const Text title = seminar->SemTitel();
        const Int32 most = seminar->TeilnehmerMAX();
        page_.Call("date->Init(0, session)", [&] { date_->Init(0, session_); });
        page_.Call(fmt::format("date->SemID({})", seminar_key), [&] { date_->SemID(seminar_key); });
        page_.Outcome(page_.Sent() == 2 && date_->Titel() == title && date_->MaxTeil() == most,
                      fmt::format("\"{}\", at most {} participants", date_->Titel(), date_->MaxTeil()));
        const Int32 largest = ground_.LargestKey("SemTerminID", kDates);
        Bool written;
        page_.Call("date->WriteToDatabase()", [&] { written = date_->WriteToDatabase(); });
        date_row_.emplace(fmt::format("date {}", date_->SemTerminID()), [this] { RemoveAll(); });
        page_.Outcome(written && page_.Sent() == 1 && date_->SemTerminID() == largest + 1,
                      fmt::format("key {}", date_->SemTerminID()));
    }

    void StoreSeries() {
        page_.Step("A weekly series",
                   "Every week from Monday to Thursday, 9:00 to 16:30. A rule of its own in the database, which "
                   "seminars and dates may share.");
        page_.Call("series->Tagefolge(2), ->Woche(1), ->Montag(-1), ... ->WriteToDatabase()", [&] {
            series_->Init(0, session_);
            series_->BeginnUhrzeit(DateTime::TimeOfDay(9, 0));
            series_->EndeUhrzeit(DateTime::TimeOfDay(16, 30));
            series_->Tagefolge(2);
            series_->Woche(1);
            series_->Montag(-1);
            series_->Dienstag(-1);
            series_->Mittwoch(-1);
            series_->Donnerstag(-1);
            series_->WriteToDatabase();
        });
        page_.Outcome(page_.Sent() == 2 && series_->SerienID() == ground_.LargestKey("SerienID", kSeries),
                      fmt::format("key {}", series_->SerienID()));
    }

    void SetBegin() {
        page_.Step("Set the begin", fmt::format("Six sessions from {} on. The begin builds the calendar at once, a statement a day; "
                                                "the row of the date itself waits until it is written.",
                                                DateText(TourDay(0))));
        page_.Call(fmt::format("date->SerienID({}), ->Sitzungen(6)", series_->SerienID()), [&] {
            date_->SerienID(series_->SerienID());
            date_->Sitzungen(6);
        });
        const bool nothing_sent = page_.Sent() == 0;
        page_.Call(fmt::format("date->BeginnDatum({})", CodeText(TourDay(0))), [&] { date_->BeginnDatum(TourDay(0)); });
        page_.Outcome(nothing_sent && page_.Sent() == 9 && Days() == TourDays({0, 1, 2, 3, 7, 8}) &&
                          date_->EndeDatum() == TourDay(8),
                      fmt::format("six days, the last on {}", DateText(date_->EndeDatum())));
        ShowCalendar();
    }

    void MoveEndLater() {
        page_.Step("Move the end later",
                   "Days are added behind the last one, Tuesday: from Wednesday on, in each week as far as the flagged weekdays "
                   "follow without a gap. The end date gets a day in any case, here a Friday.");
        page_.Call(
            fmt::format("date->EndeDatum({})", CodeText(TourDay(25))), [&] { date_->EndeDatum(TourDay(25)); },
            [&] { return fmt::format("{}: lists of the days, the last day's times, 7 inserts", page_.Sent()); });
        page_.Outcome(page_.Sent() == 12 && Days() == TourDays({0, 1, 2, 3, 7, 8, 9, 10, 16, 17, 23, 24, 25}), "13 days");
        ShowCalendar();
    }

    void MoveEndEarlier() {
        page_.Step("Move the end earlier",
                   "The days behind the new end go, and an end between two days is corrected to the last day "
                   "that is left.");
        page_.Call(
            fmt::format("date->EndeDatum({})", CodeText(TourDay(13))), [&] { date_->EndeDatum(TourDay(13)); },
            [&] { return fmt::format("{}: lists of the days, and 5 deletes", page_.Sent()); });
        page_.Outcome(page_.Sent() == 11 && Days() == TourDays({0, 1, 2, 3, 7, 8, 9, 10}) && date_->EndeDatum() == TourDay(10),
                      fmt::format("8 days, and the end is {}", DateText(date_->EndeDatum())));
        ShowCalendar();
    }

    void SaveDate() {
        page_.Step("Save it", "Only now the row of the date changes. All its days take its times, also those edited one by one.");
        page_.Call(
            "date->WriteToDatabase()", [&] { Demand(date_->WriteToDatabase(), session_); },
            [&] { return fmt::format("{}: the update, the list of the days, and one a day", page_.Sent()); });
        const auto stored = Stored();
        page_.Outcome(
            page_.Sent() == 10 && stored->EndeDatum() == date_->EndeDatum(),
            fmt::format("another object reads {} to {}", DateText(stored->BeginnDatum()), DateText(stored->EndeDatum())));
    }

    void GroupDates() {
        page_.Step("The dates of the client",
                   "One statement lists them with end, title and code. What a tree groups them by comes "
                   "from the database as well, here the months.");
        const auto dates = New<colTermine>();
        page_.Call(fmt::format("dates->Init(-1, {}, session)", client_),
                   [&] { Demand(dates->Init(-1, client_, session_), session_); });
        const auto listed = dates->Item(date_->Key());
        const bool known = page_.Sent() == 1 && listed && listed->Titel(false) == date_->Titel();
        Ref<RecordSet> months;
        page_.Call("dates->Gruppen(2)", [&] { months = dates->Gruppen(2); });
        std::size_t count = 0;
        bool among_them = false;
        const std::chrono::year_month_day end(date_->EndeDatum().Date());
        const DateTime month(std::chrono::local_days(end.year() / end.month() / 1));
        for (; !months->Eof(); months->MoveNext(), ++count) {
            among_them = among_them || To<DateTime>(months->Fields().Item(0).Value()) == month;
        }
        months->Close();
        page_.Outcome(known && among_them, fmt::format("{}, in {}", Counted(dates->Count(), "date"), Counted(count, "month")));
    }

    void RemoveDate() {
        page_.Step("Remove it",
                   "Days are removed by the list of the days. The date takes its series along, as nothing else uses it.");
        page_.Call(
            "for (const auto& day : days->NewEnum()) days->Remove(day->Key())", [&] { RemoveDays(); },
            [&] { return fmt::format("{}: the list, and one a day", page_.Sent()); });
        const auto dates = New<colTermine>();
        Demand(dates->Init(-1, client_, session_), session_);
        const Text key = date_->Key();
        Bool removed;
        page_.Call(fmt::format("dates->Remove(\"{}\")", key), [&] { removed = dates->Remove(key); });
        if (removed) date_row_->Gone();
        page_.Outcome(removed && page_.Sent() == 7, "true");
    }

    // A new object for the date of the tour.
    Ref<clsTermin> Stored() {
        auto date = New<clsTermin>();
        date->Init(date_->SemTerminID(), session_);
        return date;
    }

    std::vector<DateTime> Days() {
        const auto days = New<colTerminTage>();
        days->Init(date_->SemTerminID(), session_);
        std::vector<DateTime> result;
        for (const auto& day : days->NewEnum()) result.push_back(day->Termin());
        return result;
    }

    static std::vector<DateTime> TourDays(std::initializer_list<int> offsets) {
        std::vector<DateTime> days;
        for (const int offset : offsets) days.push_back(TourDay(offset));
        return days;
    }

    void ShowCalendar() { page_.Picture(MonthCalendar(Days(), {})); }

    void RemoveDays() {
        const auto days = date_->colTerminTage();
        for (const auto& day : days->NewEnum()) days->Remove(day->Key());
    }

    void RemoveAll() {
        RemoveDays();
        Demand(Stored()->DeleteFromDatabase(), session_);
        if (series_->SerienID() != 0) series_->DeleteOldSerie(series_->SerienID());
    }

    TourGround& ground_;
    TourPage& page_;
    const Ref<DataSession>& session_;
    const Int32 client_;
    std::optional<TourSeminar> seminar_;
    Ref<clsTermin> date_ = New<clsTermin>();
    Ref<clsSerie> series_ = New<clsSerie>();
    std::optional<TakeBack> date_row_;
};

}  // namespace

void WalkScheduling(TourGround& ground) { SchedulingChapter(ground).Walk(); }

}  // namespace frontend
