#include <LumoSeminar/needs/clsWBPerson.h>

#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/person_kind.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/needs/colANWBBedarf.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>

namespace LumoSeminar {
namespace {

constexpr Int32 kTimeout = 30;

constexpr Sql<Int32, Int32> kSelectEmployee =
    "Select Name,Vorname,ANNR from Arbeitnehmer where MDNR = {MDNR} AND ANNR = {PersonID}";
constexpr Sql<Int32> kSelectApplicant = "Select Nachname,Vornamem,BWNr from BW where BWID = {PersonID}";
constexpr Sql<Int32> kSelectWorker = "Select Name,Vorname,LID from LA where LID = {PersonID}";

constexpr Sql<Int32, Int32> kHistoryOfEmployee =
    "Select TeilnehmerID,SemTerminID from Sem_Teilnehmer_IT WHERE MDNR = {MDNR} AND ANNR ={PersonID}"
    " Order by BeginnDatum, BegUhrzeit,EndeDatum,EndUhrzeit ";
constexpr Sql<Int32> kHistoryOfApplicant =
    "Select TeilnehmerID,SemTerminID from Sem_Teilnehmer_IT WHERE BWID = {PersonID}"
    " Order by BeginnDatum, BegUhrzeit,EndeDatum,EndUhrzeit ";
constexpr Sql<Int32> kHistoryOfWorker =
    "Select TeilnehmerID,SemTerminID from Sem_Teilnehmer_IT WHERE LAID = {PersonID}"
    " Order by BeginnDatum, BegUhrzeit,EndeDatum,EndUhrzeit ";

}  // namespace

clsWBPerson::~clsWBPerson() {
    colWeiterbildungen_.Reset();
    colWarteliste_.Reset();
    colInteressentenliste_.Reset();
    colWBBedarf_.Reset();
}

Bool clsWBPerson::Init(Int32 p_lngMDNr, Int32 p_lngPersonID, Byte p_bytModID, Ref<DataSession>& p_objData,
                       const Text& p_strConn, const Text& p_strUserName, const Text& p_strPWD) try {
    if (!p_objData) {
        p_objData = MakeDataSession();
        (void)p_objData->Connect(p_strConn, p_strUserName, p_strPWD, kTimeout);
    }
    MDNR_ = p_lngMDNr;
    PersonID_ = p_lngPersonID;
    ModId_ = p_bytModID;
    session_ = p_objData;
    return false;
} catch (...) {
    RaiseInLine(" in LumoSeminar.Init");
}

Bool clsWBPerson::Init(Int32 p_lngMDNr, Int32 p_lngPersonID, Byte p_bytModID) {
    Ref<DataSession> session;
    return Init(p_lngMDNr, p_lngPersonID, p_bytModID, session);
}

Bool clsWBPerson::IsInitializedPerson() try {
    if (p_blnInitialized) return true;
    const Text select = IsArbeitnehmer() ? kSelectEmployee(MDNR_, PersonID_)
                        : IsBewerber()   ? kSelectApplicant(PersonID_)
                                         : kSelectWorker(PersonID_);
    const Ref<RecordSet> rows = SelectOrRaise(session_, select);
    if (!rows->Eof()) {
        const Fields fields = rows->Fields();
        Nachname_ = common::FieldOr(fields.Item(0), Text());
        Vorname_ = common::FieldOr(fields.Item(1), Text());
        PersNr_ = common::FieldOr(fields.Item(2), Text());
    }
    rows->Close();
    p_blnInitialized = true;
    return true;
} catch (...) {
    RaiseInLine(" in LumoSeminar.IsInitializedPerson");
}

Ref<Collection<clsTeilnehmer>> clsWBPerson::colWeiterbildungen() try {
    if (!colWeiterbildungen_) LoadWeiterbildungenPerson();
    // The list belongs to the person: a reference to it holds the person.
    if (const auto self = weak_from_this().lock()) {
        return std::shared_ptr<Collection<clsTeilnehmer>>(self, colWeiterbildungen_.Get());
    }
    return colWeiterbildungen_;
} catch (...) {
    RaiseInLine(" in LumoSeminar.colWeiterbildungen");
}

void clsWBPerson::LoadWeiterbildungenPerson() try {
    colWeiterbildungen_ = New<Collection<clsTeilnehmer>>();
    colWeiterbildungen_->HoldsAlso(weak_from_this());
    const Text select = IsArbeitnehmer() ? kHistoryOfEmployee(MDNR_, PersonID_)
                        : IsBewerber()   ? kHistoryOfApplicant(PersonID_)
                                         : kHistoryOfWorker(PersonID_);
    const Ref<RecordSet> rows = SelectOrRaise(session_, select);
    for (; !rows->Eof(); rows->MoveNext()) {
        auto participant = New<clsTeilnehmer>(MadeBy<clsWBPerson>());
        const Fields fields = rows->Fields();
        const auto key = common::FieldOr(fields.Item(0), Int32{0});
        const auto date = common::FieldOr(fields.Item(1), Int32{0});
        (void)participant->Init(key, session_, date);
        participant->owner_ = weak_from_this();
        colWeiterbildungen_->Add(participant, participant->Key());
    }
    rows->Close();
} catch (...) {
    RaiseInLine(" in LumoSeminar.LoadWeiterbildungenPerson");
}

Int32 clsWBPerson::MDNR() { return MDNR_; }
void clsWBPerson::MDNR(Int32 value) { MDNR_ = value; }
Int32 clsWBPerson::PersonID() { return PersonID_; }
void clsWBPerson::PersonID(Int32 value) { PersonID_ = value; }
Byte clsWBPerson::ModId() { return ModId_; }
void clsWBPerson::ModId(Byte value) { ModId_ = value; }

Bool clsWBPerson::IsArbeitnehmer() { return ModId_ == PersonKind::kEmployeeID; }
Bool clsWBPerson::IsBewerber() { return ModId_ == PersonKind::kApplicantID; }
Bool clsWBPerson::IsLeiharbeiter() { return ModId_ == PersonKind::kWorkerID; }

Text clsWBPerson::Vorname() { return IsInitializedPerson() ? Vorname_ : Text(); }
void clsWBPerson::Vorname(Text value) {
    if (IsInitializedPerson()) Vorname_ = std::move(value);
}
Text clsWBPerson::Nachname() { return IsInitializedPerson() ? Nachname_ : Text(); }
void clsWBPerson::Nachname(Text value) {
    if (IsInitializedPerson()) Nachname_ = std::move(value);
}
Text clsWBPerson::PersNr() { return IsInitializedPerson() ? PersNr_ : Text(); }
void clsWBPerson::PersNr(Text value) {
    if (IsInitializedPerson()) PersNr_ = std::move(value);
}

Bool clsWBPerson::DoSendInfos() { return DoSendInfos_; }
void clsWBPerson::DoSendInfos(Bool value) { DoSendInfos_ = value; }

Text clsWBPerson::PersGr() {
    if (IsArbeitnehmer()) return Text(PersonKind::kEmployee);
    if (IsBewerber()) return Text(PersonKind::kApplicant);
    return Text(PersonKind::kWorker);
}

Text clsWBPerson::ConnectionString() { return common::State().g_strConnectionString; }
void clsWBPerson::ConnectionString(Text value) { common::State().g_strConnectionString = std::move(value); }

}  // namespace LumoSeminar
