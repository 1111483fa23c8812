#include <LumoSeminar/scheduling/colSerie.h>

#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/scheduling/clsSerie.h>

namespace LumoSeminar {

colSerie::~colSerie() = default;

Ref<clsSerie> colSerie::Add(const Ref<clsSerie>& p_objTempSerie) try {
    p_colItems->Add(p_objTempSerie, p_objTempSerie->Key());
    return p_objTempSerie;
} catch (...) {
    RaiseLabelled("LumoSeminar.colSerie.Add");
}

// It is the list's own session that is tested, and not the argument.
Bool colSerie::Init(const Ref<DataSession>& p_objData) try {
    if (!session_) return false;
    session_ = p_objData;
    return LoadKeysFromDataBase();
} catch (...) {
    RaiseLabelled("LumoSeminar.colSerien.Init");
}

Bool colSerie::LoadKeysFromDataBase() try {
    const Ref<RecordSet> rows = SelectOrRaise(session_, "SELECT SerienID  FROM Sem_Serien_IT ");
    for (; !rows->Eof(); rows->MoveNext()) {
        auto series = New<clsSerie>();
        series->Init(common::FieldOr(rows->Fields().Item(0), Int32{0}), session_);
        p_colItems->Add(series, series->Key());
    }
    rows->Close();
    return true;
} catch (...) {
    RaiseLabelled("LumoSeminar.colSerien.LoadKeysFromDataBase");
}

Ref<clsSerie> colSerie::Item(const Variant& vntIndexKey) try { return p_colItems->Item(vntIndexKey); } catch (...) {
    RaiseLabelled("LumoSeminar.colSerien.Item");
}

Int32 colSerie::Count() try { return p_colItems->Count(); } catch (...) {
    RaiseLabelled("LumoSeminar.colSerien.Count");
}

void colSerie::Remove(const Variant& vntIndexKey) try { p_colItems->Remove(vntIndexKey); } catch (...) {
    RaiseLabelled("LumoSeminar.colSerien.Remove");
}

Enumerator<clsSerie> colSerie::NewEnum() try { return Enumerator(p_colItems); } catch (...) {
    RaiseLabelled("LumoSeminar.colSerien.NewEnum");
}

}  // namespace LumoSeminar
