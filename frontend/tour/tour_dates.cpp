#include "frontend/tour/tour_dates.h"

#include <fmt/format.h>

#include <chrono>

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr int kDayOfDate = 35;

std::chrono::local_days FirstMonday() {
    using namespace std::chrono;
    const auto next_year = year_month_day(Today().Date()).year() + years(1);
    const year_month_weekday in_march = next_year / March / Monday[1];
    // Where that is the 7th, the 26 days end in April; in May of such a year it is the 2nd.
    return local_days(year_month_day(local_days(in_march)).day() == day(7) ? next_year / May / Monday[1] : in_march);
}

}  // namespace

DateTime TourDay(int offset) { return DateTime(FirstMonday() + std::chrono::days(offset)); }

DateTime DayOfTourDate() { return TourDay(kDayOfDate); }

std::string CodeText(DateTime day) {
    const std::chrono::year_month_day date(day.Date());
    return fmt::format("DateTime::Of({}, {}, {})", int{date.year()}, unsigned{date.month()}, unsigned{date.day()});
}

TourSeminar::TourSeminar(const TourGround& ground) : ground_(ground) {
    fresh_keys_.emplace(ground.session);
    cost_type_before_ = ground.LargestKey("KostenArten_ID", "sysIData_KostenArten");
    const auto seminar = New<clsSeminar>();
    seminar->Init(0, ground.session);
    seminar->MDNR(ground.client);
    seminar->SemCode("ÜB-99");
    seminar->SemTitel("Größen schätzen");
    seminar->TeilnehmerMAX(12);
    seminar->Stunden(7.5);
    seminar->KostenProTN(Money(120));
    seminar->WriteToDatabase();
    key_ = seminar->SemID();
    row_.emplace(fmt::format("seminar {}", key_), [this] {
        for (const auto& statement :
             {fmt::format("DELETE FROM Sem_Katalog_IT WHERE SemID = {}", key_),
              fmt::format("DELETE FROM sysIData_KostenArten WHERE KostenArten_ID > {}", cost_type_before_)}) {
            if (!ground_.session->ExecuteSql(statement)) RaiseRefused(ground_.session->LastErrorText());
        }
    });
}

void TourSeminar::Remove() {
    row_.reset();
    fresh_keys_.reset();
}

void PlanTourDate(clsTermin& date, const Ref<DataSession>& session, Int32 client, Int32 seminar, const Text& code, Int32 places) {
    date.Init(0, session);
    date.SemID(seminar);
    date.Code(code);
    date.MDNR(client);
    date.MaxTeil(places);
    date.SerienID(0);
    date.Sitzungen(1);
    date.KostenProTN(Money(120));
    date.BeginnUhrzeit(DateTime::TimeOfDay(9, 0));
    date.EndeUhrzeit(DateTime::TimeOfDay(17, 0));
    Demand(date.WriteToDatabase(), session);
    date.BeginnDatum(DayOfTourDate());
    Demand(date.WriteToDatabase(), session);
}

Ref<clsTermin> Fresh(clsTermin& date, const Ref<DataSession>& session) {
    auto fresh = New<clsTermin>();
    fresh->Init(date.SemTerminID(), session);
    return fresh;
}

void RemoveTourDate(clsTermin& date, const Ref<DataSession>& session) {
    if (date.SemTerminID() == 0) return;
    const auto fresh = Fresh(date, session);
    for (const auto& record : fresh->clscolTeilnehmer()->NewEnum()) {
        for (const auto& cost : record->objKosten()->NewEnum()) cost->DeleteFromDatabase();
    }
    const auto days = fresh->colTerminTage();
    for (const auto& day : days->NewEnum()) days->Remove(day->Key());
    Demand(Fresh(date, session)->DeleteFromDatabase(), session);
}

}  // namespace frontend
