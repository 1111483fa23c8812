#include <LumoSeminar/waitlist/process_objects.h>

#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/enrolment/cost_type.h>
#include <LumoSeminar/enrolment/participant_costs.h>
#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/person_kind.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>

#include <cmath>

namespace LumoSeminar {
namespace {

constexpr Sql<Int32, Int32, DateTime, DateTime> kSelectCostCentre =
    "Select Kost from ANKOst_LV where MDNR = {MDNR} and ANNR = {ANNR} and (GueltigAB <= '{EndeDatum:dd.mm.yyyy}' AND "
    "(GueltigBis is null Or GueltigBis >= '{BeginnDatum:dd.mm.yyyy}'))";

constexpr Int32 kNoCostLine = -1;

}  // namespace

void StartProcess(Int32 module_number, Int32 key, Int32 user) {
    const Ref<InfoStarter> starter = MakeInfoStarter();
    common::ConnectProcessObject(*starter);
    starter->Starten(module_number, key, user);
}

Text DatabaseLogin(const Ref<DataSession>& session) {
    return To<Text>(common::Nz(session->LookupValue("System_User", "opactMD", ""), ""));
}

Int32 CostCentre(const Ref<DataSession>& session, Int32 client, Int32 employee, DateTime begin, DateTime end) {
    if (!session->OpenSelect(kSelectCostCentre(client, employee, end, begin))) return 0;
    const Ref<RecordSet> rows = session->Recordset();
    const Int32 cost_centre = rows->Eof() ? 0 : common::FieldOr(rows->Fields().Item(0), Int32{0});
    rows->Close();
    return cost_centre;
}

Byte AbsoluteByte(const Field& field) { return To<Byte>(std::fabs(common::FieldOr(field, Double{0}))); }

Ref<clsSemWarteliste> EntryForDate(const Ref<DataSession>& session, Int32 client, Int32 employee, Int32 date) {
    const auto waiting = New<colSemWarteliste>();
    waiting->LoadWartelisteMA(session, client, employee);
    for (const auto& entry : waiting->NewEnum()) {
        if (entry->SemTerminID() == date) return entry;
    }
    return {};
}

void FillEntry(const Ref<clsSemWarteliste>& entry, Int32 client, Int32 employee, Int16 origin, Int32 date) {
    entry->MDNR(client);
    entry->TNID(employee);
    entry->ModId(PersonKind::kEmployeeID);
    entry->ErfDat(Now());
    entry->Herkunft(origin);
    entry->SemTerminID(date);
}

Ref<clsTeilnehmer> EmptyParticipant(const Ref<clsTermin>& date) {
    return date->clscolTeilnehmer()->AddEmptyObject().As<clsTeilnehmer>();
}

Ref<colErrorMsg> FindingsOf(const Ref<clsTeilnehmer>& participant, Bool seminar, Bool taken_before, Bool prerequisites) {
    if (participant->CheckTeilnehmerAnmeldung(seminar, taken_before, prerequisites)) return New<colErrorMsg>();
    return participant->colErrorsAnmeldung();
}

void FillParticipant(const Ref<clsTeilnehmer>& participant, const Ref<clsTermin>& date, const Ref<DataSession>& session,
                     const ApprovedRequest& request, const std::function<Int32()>& cost_centre) {
    participant->MDNR(request.client);
    participant->ANNr(request.employee);
    participant->SemTerminID(request.date);
    participant->BeginnDatum(date->BeginnDatum());
    participant->BegUhrzeit(date->BeginnUhrzeit());
    participant->EndeDatum(date->EndeDatum(true));
    participant->EndUhrzeit(date->EndeUhrzeit());
    participant->Herkunft(request.origin);
    if (date->KostenProTN() == Money()) return;
    const Int32 paid_by = cost_centre();
    if (paid_by == kNoCostLine) return;
    participant->Kost(paid_by);
    const Int32 cost_type = DefaultCostType(session);
    participant->objKosten()->Item(1)->KostenArtID(cost_type);
    participant->objKosten()->Item(1)->Kostenbetrag(To<Single>(Variant(date->KostenProTN())));
}

}  // namespace LumoSeminar
