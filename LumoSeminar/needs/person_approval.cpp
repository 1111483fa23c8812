// The steps by which a person comes onto a date: consent, check, approval.

#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/made_once.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/needs/colANWBBedarf.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
#include <LumoSeminar/waitlist/process_objects.h>

namespace LumoSeminar {
namespace {

constexpr Byte kConsented = 1;

constexpr Int16 kFromElsewhere = 4;
constexpr Int16 kFromHere = 3;

Int16 OriginOf(Bool is_used_by_sylvar) { return is_used_by_sylvar ? kFromElsewhere : kFromHere; }

Ref<clsTermin> Bound(Int32 date, const Ref<DataSession>& session) {
    auto result = New<clsTermin>();
    result->Init(date, session);
    return result;
}

}  // namespace

Ref<colSemWarteliste> clsWBPerson::colWarteliste() {
    return MadeOnce(colWarteliste_, [&](auto& made) { made.LoadWartelisteMA(session_, MDNR_, PersonID_); });
}

Ref<colSemWarteliste> clsWBPerson::colInteressentenliste() {
    return MadeOnce(colInteressentenliste_,
                    [&](auto& made) { made.LoadInteressentenlisteMA(session_, MDNR_, PersonID_); });
}

Ref<colANWBBedarf> clsWBPerson::colWBBedarf() {
    return MadeOnce(colWBBedarf_, [&](auto& made) { made.LoadBedarfArbeitnehmer(session_, MDNR_, PersonID_); });
}

Int32 clsWBPerson::BedarfErfassen(Int32 p_lngWBS_ID, Int32 p_lngUserID) {
    const auto need = New<clsANWBBedarf>();
    need->DoSendInfos(DoSendInfos_);
    need->Init(0, session_);
    need->MDNR(MDNR_);
    need->ANNr(PersonID_);
    need->WBS(p_lngWBS_ID);
    return need->WriteToDatabase(p_lngUserID) ? need->WBID() : 0;
}

Ref<clsSemWarteliste> clsWBPerson::WaitingFor(Int32 date) {
    const auto entry = EntryForDate(session_, MDNR_, PersonID_, date);
    if (entry) entry->DoSendInfos(DoSendInfos_);
    return entry;
}

Variant clsWBPerson::TeilnahmeZustimmen(Int32 p_lngSemTerminID, Int32 p_lngUserID, Bool p_blnIsUsedBySylvar) try {
    if (const auto entry = WaitingFor(p_lngSemTerminID)) {
        entry->Status(kConsented);
        return entry->WriteToDatabase(p_lngUserID) ? Variant(true) : Variant();
    }
    const auto entry = New<clsSemWarteliste>();
    entry->DoSendInfos(DoSendInfos_);
    entry->Init(0, session_);
    FillEntry(entry, MDNR_, PersonID_, OriginOf(p_blnIsUsedBySylvar), p_lngSemTerminID);
    const Variant result = entry->WriteToDatabase(p_lngUserID) ? Variant(true) : Variant();
    // The process is opened whatever the write has reported.
    StartProcess(ProcessModule::kWaitList, entry->SemWartelisteID(), p_lngUserID);
    return result;
} catch (...) {
    RaiseInLine(" in LumoSeminar.BedarfZustimmen");
}

// The client is not told to the participant, and the person only of an employee.
Ref<colErrorMsg> clsWBPerson::TeilnahmePruefen(Int32 p_lngSemTerminID, Bool p_blnCheckAnmeldungSeminar,
                                               Bool p_blnCheckTeilnahme, Bool p_blnCheckVoraussetzung) {
    const auto date = Bound(p_lngSemTerminID, session_);
    const auto participant = EmptyParticipant(date);
    participant->DoSendInfos(DoSendInfos_);
    if (IsArbeitnehmer()) participant->ANNr(PersonID_);
    return FindingsOf(participant, p_blnCheckAnmeldungSeminar, p_blnCheckTeilnahme, p_blnCheckVoraussetzung);
}

Bool clsWBPerson::TeilnahmeGenehmigen(Int32 p_lngSemTerminID, Int32 p_lngUserID, Bool p_blnIsUsedBySylvar) try {
    const auto entry = WaitingFor(p_lngSemTerminID);
    if (!entry) return false;
    const Ref<InfoDispatcher> process =
        common::GetInfoDispatcher(ProcessModule::kWaitList, entry->SemWartelisteID(), MDNR_, PersonID_);
    process->Zustimmen(p_lngUserID, "");
    if (process->ProzessStatus() != 0) return true;
    if (!IsInitializedPerson()) return false;
    const auto date = Bound(p_lngSemTerminID, session_);
    for (const auto& participant : date->clscolTeilnehmer()->NewEnum()) {
        // Both are compared in any case: a number that is none raises here.
        const bool same_client = participant->MDNR() == MDNR_;
        const Int32 number = participant->ANNr();
        const bool same_number = number == To<Double>(Variant(PersNr_));
        if (!same_client || !same_number) continue;
        participant->DoSendInfos(DoSendInfos_);
        return false;
    }
    const auto participant = EmptyParticipant(date);
    participant->DoSendInfos(DoSendInfos_);
    FillParticipant(
        participant, date, session_,
        {.client = MDNR_, .employee = To<Int32>(Variant(PersNr_)), .date = p_lngSemTerminID, .origin = OriginOf(p_blnIsUsedBySylvar)},
        [&] { return GetKostAN(date); });
    return participant->WriteToDatabase(p_lngUserID);
} catch (...) {
    RaiseInLine(" in LumoSeminar.TeilnahmeGenehmigen");
}

Int32 clsWBPerson::GetKostAN(const Ref<clsTermin>& date) try {
    const DateTime end = date->EndeDatum(true);
    const DateTime begin = date->BeginnDatum();
    return CostCentre(session_, MDNR_, PersonID_, begin, end);
} catch (...) {
    RaiseInLine(" in LumoSeminar.GetKostAN");
}

}  // namespace LumoSeminar
