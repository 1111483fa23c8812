#include <LumoSeminar/enrolment/colTeilnehmer.h>

#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>

namespace LumoSeminar {
namespace {

constexpr Sql<Int32, Text> kSelectKeys = "SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = {SemTerminID}{Filter}";

constexpr const char* kKeyOfNewRecord = "0000000000";

}  // namespace

colTeilnehmer::~colTeilnehmer() {
    p_colItems.Reset();
    session_.Reset();
}

Int32 colTeilnehmer::Count() try { return p_colItems->Count(); } catch (...) {
    RaiseLabelled(" LumoSeminar062.ColTeilnehmer.Count");
}

Ref<clsTeilnehmer> colTeilnehmer::Item(const Variant& p_vntIndexKey) try {
    return p_colItems->ItemOrNothing(p_vntIndexKey);
} catch (...) {
    RaiseLabelled(" LumoSeminar062.ColTeilnehmer.Item");
}

Enumerator<clsTeilnehmer> colTeilnehmer::NewEnum() try { return Enumerator(p_colItems); } catch (...) {
    RaiseLabelled(" LumoSeminar062.ColTeilnehmer.NewEnum");
}

Bool colTeilnehmer::Init(Int32 p_lngSemTerminID, const Ref<DataSession>& p_objData, const Text& p_strFilterString) try {
    if (!ConnectionIsOpen(p_objData)) return false;
    session_ = p_objData;
    p_lngSemTerminID_ = p_lngSemTerminID;
    return LoadKeysFromDatabase(p_strFilterString);
} catch (...) {
    RaiseLabelled(" LumoSeminar062.ColTeilnehmer.Init");
}

Bool colTeilnehmer::LoadKeysFromDatabase(const Text& p_strFilterString) try {
    if (!session_->OpenSelect(kSelectKeys(p_lngSemTerminID_, p_strFilterString))) return false;
    for (const Ref<RecordSet> rows = session_->Recordset(); !rows->Eof(); rows->MoveNext()) {
        const auto record = NewRecord(To<Int32>(rows->Fields().Item(0).Value()));
        p_colItems->Add(record, record->Key());
    }
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.ColTeilnehmer.LoadKeysFromDatabase");
}

Ref<clsTeilnehmer> colTeilnehmer::NewRecord(Int32 key) {
    auto record = New<clsTeilnehmer>(MadeBy<colTeilnehmer>());
    (void)record->Init(key, session_, p_lngSemTerminID_);
    return record;
}

void colTeilnehmer::ChangeKey(const Text& p_strOldKey, const Text& p_strNewKey) try {
    p_colItems->Add(p_colItems->Item(p_strOldKey), p_strNewKey);
    p_colItems->Remove(p_strOldKey);
} catch (...) {
    RaiseLabelled("LumoSeminar.colTeilnehmer.ChangeKey");
}

Ref<clsTeilnehmer> colTeilnehmer::Add(Int32 p_lngTeilnehmerID) try {
    auto record = NewRecord(p_lngTeilnehmerID);
    p_colItems->Add(record, record->Key());
    return record;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.ColTeilnehmer.Add");
}

Ref<Object> colTeilnehmer::AddEmptyObject() try {
    if (!Item(kKeyOfNewRecord)) return Add(0);
    return Item(kKeyOfNewRecord);
} catch (...) {
    RaiseLabelled("LumoSeminar.colTeilnehmer.AddEmptyObject");
}

Bool colTeilnehmer::Remove(const Variant& p_vntIndexKey) try {
    if (!Item(p_vntIndexKey)->DeleteFromDatabase()) return false;
    p_colItems->Remove(p_vntIndexKey);
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.ColTeilnehmer.Remove");
}

Bool colTeilnehmer::RemoveColOnly(const Variant& p_vntIndexKey) try {
    p_colItems->Remove(p_vntIndexKey);
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.ColTeilnehmer.RemoveColOnly");
}

Bool colTeilnehmer::RemoveALL() try {
    for (const auto& record : *p_colItems) {
        if (record->DeleteFromDatabase()) p_colItems->Remove(record->Key());
    }
    return true;
} catch (...) {
    RaiseLabelled("LumoSeminar.colTeilnehmer.RemoveALL");
}

}  // namespace LumoSeminar
