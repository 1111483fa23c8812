#include <LumoSeminar/needs/colANWBBedarf.h>

#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <LumoSeminar/waitlist/process_objects.h>

namespace LumoSeminar {
namespace {

constexpr Sql<Text> kSelect =
    "Select WBID,MDNr,ANNr,WBS,erfDat,erford,Erfuellt,erfUser,BedarfErfuellt,Bemerkungen from AN_WBBedarf_IT{Where}";
constexpr Sql<Int32, Int32> kOfEmployee = " WHERE MDNR = {MDNR} AND ANNr = {ANNr}";

}  // namespace

colANWBBedarf::~colANWBBedarf() = default;

Ref<clsANWBBedarf> colANWBBedarf::Add(Int32 p_lngWBID) {
    auto need = New<clsANWBBedarf>();
    need->Init(p_lngWBID, session_);
    p_colItems->Add(need, need->Key());
    return need;
}

Ref<clsANWBBedarf> colANWBBedarf::Item(const Variant& vntIndexKey) { return p_colItems->Item(vntIndexKey); }
Int32 colANWBBedarf::Count() { return p_colItems->Count(); }
void colANWBBedarf::Remove(const Variant& vntIndexKey) { p_colItems->Remove(vntIndexKey); }
Enumerator<clsANWBBedarf> colANWBBedarf::NewEnum() { return Enumerator(p_colItems); }

Variant colANWBBedarf::LoadBedarfArbeitnehmer(const Ref<DataSession>& p_objData, Int32 p_lngMDNr, Int32 p_lngANNr) {
    session_ = p_objData;
    LoadListe(kOfEmployee(p_lngMDNr, p_lngANNr));
    return {};
}

void colANWBBedarf::LoadListe(const Text& where) try {
    const Ref<RecordSet> rows = SelectOrRaise(session_, kSelect(where));
    for (; !rows->Eof(); rows->MoveNext()) {
        using common::FieldOr;
        const Fields fields = rows->Fields();
        auto need = New<clsANWBBedarf>();
        need->Init(FieldOr(fields.Item(0), Int32{0}), session_);
        need->SetIsInitialized(-1);
        need->MDNR(FieldOr(fields.Item(1), Int32{0}));
        need->ANNr(FieldOr(fields.Item(2), Int32{0}));
        need->WBS(FieldOr(fields.Item(3), Int32{0}));
        need->ErfDat(FieldOr(fields.Item(4), DateTime()));
        need->Erford(FieldOr(fields.Item(5), DateTime()));
        need->Erfuellt(FieldOr(fields.Item(6), DateTime()));
        need->ErfUser(FieldOr(fields.Item(7), Text()));
        need->BedarfErfuellt(AbsoluteByte(fields.Item(8)));
        need->Bemerkungen(FieldOr(fields.Item(9), Text()));
        p_colItems->Add(need, need->Key());
    }
    rows->Close();
} catch (...) {
    RaiseInLine(" in LumoSeminar.LoadListe");
}

}  // namespace LumoSeminar
