#include "frontend/tour/tour_dates.h"

namespace frontend {

using namespace LumoSeminar;

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
    date.WriteToDatabase();
    date.BeginnDatum(DateTime::Of(2027, 4, 5));
    date.WriteToDatabase();
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
    Fresh(date, session)->DeleteFromDatabase();
}

}  // namespace frontend
