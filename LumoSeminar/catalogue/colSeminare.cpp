#include <LumoSeminar/catalogue/colSeminare.h>

#include <LumoSeminar/catalogue/clsSeminar.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>

namespace LumoSeminar {
namespace {

constexpr Sql<Int32> kSelectKeys = "SELECT SemID FROM Sem_Katalog_IT WHERE (MDNr = {MDNr} or MDNR = -1)";

}  // namespace

colSeminare::~colSeminare() = default;

Ref<clsSeminar> colSeminare::Add(const Ref<clsSeminar>& p_objTempSeminar) try {
    p_colItems->Add(p_objTempSeminar, p_objTempSeminar->Key());
    return p_objTempSeminar;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColSeminare.Add");
}

Bool colSeminare::Init(Int32 p_lngMDNr, const Ref<DataSession>& p_objData) try {
    if (!ConnectionIsOpen(p_objData)) return false;
    session_ = p_objData;
    p_lngMDNr_ = p_lngMDNr;
    return LoadKeysFromDatabase();
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColSeminar.Init");
}

Bool colSeminare::LoadKeysFromDatabase() try {
    if (!session_->OpenSelect(kSelectKeys(p_lngMDNr_))) return false;
    for (const Ref<RecordSet> rows = session_->Recordset(); !rows->Eof(); rows->MoveNext()) {
        auto seminar = New<clsSeminar>();
        seminar->Init(To<Int32>(rows->Fields().Item(0).Value()), session_);
        p_colItems->Add(seminar, seminar->Key());
    }
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColSeminar.LoadKeysFromDatabase");
}

Int32 colSeminare::Count() try { return p_colItems->Count(); } catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColSeminar.lngCount");
}

Ref<clsSeminar> colSeminare::Item(const Variant& p_vntIndexKey) try {
    return p_colItems->Item(p_vntIndexKey);
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColSeminar.Item");
}

Enumerator<clsSeminar> colSeminare::NewEnum() try { return Enumerator(p_colItems); } catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColSeminar.NewEnum");
}

// The label is that of Add.
Bool colSeminare::Remove(const Variant& p_vntIndexKey) try {
    if (Item(p_vntIndexKey)->DeleteFromDatabase()) p_colItems->Remove(p_vntIndexKey);
    return false;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColSeminare.Add");
}

}  // namespace LumoSeminar
