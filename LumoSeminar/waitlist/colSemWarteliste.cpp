#include <LumoSeminar/waitlist/colSemWarteliste.h>

#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/process_objects.h>

namespace LumoSeminar {
namespace {

constexpr Sql<Text> kSelect =
    "SELECT Sem_Warteliste_IT.SemWarteListeID,  Sem_Warteliste_IT.ModID,  Sem_Warteliste_IT.MDNr,  Sem_Warteliste_IT.TNID, "
    "Sem_Warteliste_IT.ErfDat,  Sem_Warteliste_IT.Herkunft,  Sem_Warteliste_IT.Wunschtermin,  "
    "Sem_WartelisteTermin_IT.SemTerminID,  Sem_WartelisteSem_IT.SemID,  Sem_Warteliste_IT.Status,  "
    "Sem_Warteliste_IT.GeaendertAm,  Sem_Warteliste_IT.GeaendertVon  FROM Sem_Warteliste_IT LEFT OUTER JOIN  "
    "Sem_WartelisteTermin_IT ON Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteTermin_IT.SemWarteListeID LEFT OUTER JOIN  "
    "Sem_WartelisteSem_IT ON Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteSem_IT.SemWarteListeID {Where} "
    "Order by Sem_Warteliste_IT.ErfDat";

constexpr Sql<Int32, Int32> kOfEmployee =
    " Where Sem_Warteliste_IT.ModId = 2 AND Sem_Warteliste_IT.MdNr = {MDNr} AND Sem_Warteliste_IT.TnId = {ANNr}";
constexpr Sql<Int32, Int32> kDatesOfEmployee =
    " Where Sem_Warteliste_IT.ModId = 2 AND Sem_Warteliste_IT.MdNr = {MDNr} AND Sem_Warteliste_IT.TnId = {ANNr}"
    " AND Not Sem_WartelisteTermin_IT.SemTerminID Is Null";
constexpr Sql<Int32, Int32> kSeminarsOfEmployee =
    " Where Sem_Warteliste_IT.ModId = 2 AND Sem_Warteliste_IT.MdNr = {MDNr} AND Sem_Warteliste_IT.TnId = {ANNr}"
    " AND Not Sem_WartelisteSem_IT.SemID Is Null";
constexpr Sql<Int32> kOfSeminar = " Where Sem_WartelisteSem_IT.SemID = {SemID}";
constexpr Sql<Int32> kOfDate = " Where Sem_WartelisteTermin_IT.SemTerminID  = {SemTerminID}";

}  // namespace

colSemWarteliste::~colSemWarteliste() = default;

Ref<clsSemWarteliste> colSemWarteliste::Add(Int32 p_lngWartelisteID) {
    auto entry = New<clsSemWarteliste>();
    entry->Init(p_lngWartelisteID, session_);
    p_colItems->Add(entry, entry->Key());
    return entry;
}

Ref<clsSemWarteliste> colSemWarteliste::Item(const Variant& vntIndexKey) { return p_colItems->Item(vntIndexKey); }
Int32 colSemWarteliste::Count() { return p_colItems->Count(); }
void colSemWarteliste::Remove(const Variant& vntIndexKey) { p_colItems->Remove(vntIndexKey); }
Enumerator<clsSemWarteliste> colSemWarteliste::NewEnum() { return Enumerator(p_colItems); }

Variant colSemWarteliste::LoadListComplete(const Ref<DataSession>& p_objData) {
    session_ = p_objData;
    LoadList("");
    return {};
}

Variant colSemWarteliste::LoadListCompleteMA(const Ref<DataSession>& p_objData, Int32 p_lngMDNr, Int32 p_lngANNr) {
    session_ = p_objData;
    LoadList(kOfEmployee(p_lngMDNr, p_lngANNr));
    return {};
}

Variant colSemWarteliste::LoadWartelisteMA(const Ref<DataSession>& p_objData, Int32 p_lngMDNr, Int32 p_lngANNr) {
    session_ = p_objData;
    LoadList(kDatesOfEmployee(p_lngMDNr, p_lngANNr));
    return {};
}

Variant colSemWarteliste::LoadInteressentenlisteMA(const Ref<DataSession>& p_objData, Int32 p_lngMDNr, Int32 p_lngANNr) {
    session_ = p_objData;
    LoadList(kSeminarsOfEmployee(p_lngMDNr, p_lngANNr));
    return {};
}

Variant colSemWarteliste::LoadListSeminar(const Ref<DataSession>& p_objData, Int32 p_lngSemID) {
    session_ = p_objData;
    LoadList(kOfSeminar(p_lngSemID));
    return {};
}

Variant colSemWarteliste::LoadListSeminartermin(const Ref<DataSession>& p_objData, Int32 p_lngSemTerminID) {
    session_ = p_objData;
    LoadList(kOfDate(p_lngSemTerminID));
    return {};
}

void colSemWarteliste::LoadList(const Text& where) try {
    const Ref<RecordSet> rows = SelectOrRaise(session_, kSelect(where));
    for (; !rows->Eof(); rows->MoveNext()) {
        using common::FieldOr;
        const Fields fields = rows->Fields();
        auto entry = New<clsSemWarteliste>();
        entry->Init(FieldOr(fields.Item(0), Int32{0}), session_);
        entry->SetIsInitialized(-1);
        entry->ModId(FieldOr(fields.Item(1), Int16{0}));
        entry->MDNR(FieldOr(fields.Item(2), Int32{0}));
        entry->TNID(FieldOr(fields.Item(3), Int32{0}));
        entry->ErfDat(FieldOr(fields.Item(4), DateTime()));
        entry->Herkunft(FieldOr(fields.Item(5), Int16{0}));
        entry->Wunschtermin(FieldOr(fields.Item(6), DateTime()));
        entry->SemTerminID(FieldOr(fields.Item(7), Int32{0}));
        entry->SemID(FieldOr(fields.Item(8), Int32{0}));
        entry->Status(AbsoluteByte(fields.Item(9)));
        entry->GeaendertAm(FieldOr(fields.Item(10), DateTime()));
        entry->GeaendertVon(FieldOr(fields.Item(11), Text()));
        p_colItems->Add(entry, entry->Key());
    }
    rows->Close();
} catch (...) {
    RaiseInLine(" in LumoSeminar.LoadList");
}

}  // namespace LumoSeminar
