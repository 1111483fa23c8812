#include <LumoSeminar/catalogue/focus_areas.h>

#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/frame/text_form.h>

namespace LumoSeminar {
namespace {

constexpr Column<SemSchwerpunktRow> kSeminarColumns[] = {
    {"SemID", &SemSchwerpunktRow::SemID},
    {"SchwerpunktID", &SemSchwerpunktRow::SchwerpunktID},
    {"WBS", &SemSchwerpunktRow::WBS},
};

constexpr Statement kSelectOfSeminar(kSeminarColumns,
                                     "SELECT Weiterbildungsschwerpunkt FROM Sem_Schwerpunkte_IT INNER JOIN sysIData_WBS "
                                     "ON Sem_Schwerpunkte_IT.SchwerpunktID = sysIData_WBS.WBS_ID "
                                     "WHERE Sem_Schwerpunkte_IT.SemID = {SemID} AND Sem_Schwerpunkte_IT.SchwerpunktID = {SchwerpunktID}");

constexpr Statement kInsertOfSeminar(kSeminarColumns,
                                     "INSERT INTO Sem_Schwerpunkte_IT (SchwerpunktID, SemID) VALUES ({SchwerpunktID}, {SemID})");

constexpr Statement kInsertNamed(kSeminarColumns,
                                 "INSERT INTO sysIData_WBS (WBS_ID, Weiterbildungsschwerpunkt) VALUES ({SchwerpunktID}, '{WBS}')");

constexpr Statement kDeleteOfSeminar(kSeminarColumns,
                                     "DELETE FROM Sem_Schwerpunkte_IT WHERE (SemID = {SemID} AND SchwerpunktID = {SchwerpunktID})");

constexpr Sql<Int32> kSelectKeysOfSeminar = "SELECT SchwerpunktID, SemID FROM Sem_Schwerpunkte_IT WHERE SemID = {SemID}";

constexpr Column<SemTerminSchwerpunktRow> kDateColumns[] = {
    {"SemTerminID", &SemTerminSchwerpunktRow::SemTerminID},
    {"SchwerpunktID", &SemTerminSchwerpunktRow::SchwerpunktID},
};

constexpr Statement kSelectOfDate(
    kDateColumns,
    "SELECT Isnull(Weiterbildungsschwerpunkt,'') AS WBS FROM Sem_Termin_Schwerpunkte_IT INNER JOIN sysIData_WBS "
    "ON (Sem_Termin_Schwerpunkte_IT.SchwerpunktID = sysIData_WBS.WBS_ID)"
    "WHERE (Sem_Termin_Schwerpunkte_IT.SemTerminID = {SemTerminID} AND Sem_Termin_Schwerpunkte_IT.SchwerpunktID = {SchwerpunktID})");

constexpr Statement kDeleteOfDate(kDateColumns,
                                  "DELETE FROM Sem_Termin_Schwerpunkte_IT  "
                                  "WHERE  (SemTerminID = {SemTerminID} AND SchwerpunktID = {SchwerpunktID})");

constexpr Sql<Int32> kSelectKeysOfDate =
    "SELECT SchwerpunktID, SemTerminID FROM Sem_Termin_Schwerpunkte_IT WHERE SemTerminID = {SemTerminID}";

constexpr Sql<Text, Int32> kSelectByNameAndClient =
    "SELECT sysIData_WBS.WBS_ID FROM sysIData_WBS INNER JOIN sysIData_WBS_Mandant_IT "
    "on sysIData_WBS.WBS_ID = sysIData_WBS_Mandant_IT.wbs_ID WHERE Weiterbildungsschwerpunkt= '{WBS}' AND MDNR={MDNr}";

constexpr Sql<Text> kSelectByName = "SELECT WBS_ID FROM sysIData_WBS WHERE Weiterbildungsschwerpunkt= '{WBS}'";

constexpr Sql<Int32, Text> kInsertFocusArea =
    "INSERT INTO sysIData_WBS (WBS_ID, Weiterbildungsschwerpunkt)  SELECT {WBS_ID}, '{WBS}'";

constexpr Sql<Int32, Int32> kInsertClient = "INSERT INTO sysIData_WBS_Mandant_IT (WBS_ID, MDNr) VALUES ({WBS_ID},{MDNr})";

constexpr Sql<Int32, Int32> kSelectLink =
    "SELECT SemTerminID FROM Sem_Termin_Schwerpunkte_IT WHERE SemTerminID={SemTerminID} AND SchwerpunktID={WBS_ID}";

constexpr Sql<Int32, Int32> kInsertLink =
    "INSERT INTO Sem_Termin_Schwerpunkte_IT (SchwerpunktID, SemTerminID) VALUES ({WBS_ID}, {SemTerminID})";

// Stands behind the label of a write.
Text LastErrorAddition(const Ref<DataSession>& session) { return "\r\nADO-Fehlermeldung: " + session->LastErrorText(); }

// The rows of a statement; an empty reference, which raises 91 once it is used, where it is refused.
Ref<RecordSet> RowsOrNone(const Ref<DataSession>& session, const Text& sql) {
    (void)session->OpenSelect(sql);
    return session->Recordset();
}

// Runs a statement that yields no rows as if it did, and drops what it gives.
Bool RunAsSelect(const Ref<DataSession>& session, const Text& sql) {
    if (!session->OpenSelect(sql)) return false;
    session->Recordset();
    return true;
}

}  // namespace

clsSemSchwerpunkt::clsSemSchwerpunkt(MadeBy<colSemSchwerpunkte>) {}

Text clsSemSchwerpunkt::Key() try { return KeyText(row_.SchwerpunktID); } catch (...) {
    RaiseLabelled("LumoSeminar.clsSemSchwerpunkt.Key");
}

Bool clsSemSchwerpunkt::Init(Int32 p_lngSchwerpunktID, Int32 p_lngSemID, const Ref<DataSession>& p_objData) try {
    if (!ConnectionIsOpen(p_objData)) return false;
    session_ = p_objData;
    row_.SchwerpunktID = p_lngSchwerpunktID;
    row_.SemID = p_lngSemID;
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSemSchwerpunkt.Init");
}

Bool clsSemSchwerpunkt::PropertiesInit() try {
    if (!p_blnInitialized && session_ && session_->OpenSelect(kSelectOfSeminar(row_))) {
        const Ref<RecordSet> rows = session_->Recordset();
        if (!rows->Eof()) p_blnInitialized = InitPropertiesByRecordset(rows);
    }
    return p_blnInitialized;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSemSchwerpunkt.PropertiesInit");
}

Bool clsSemSchwerpunkt::InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset) try {
    if (!p_objRecordset->Eof()) row_.WBS = common::FieldOr(p_objRecordset->Fields().Item(0), Text());
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSemSchwerpunkt.InitPropertiesByRecordset");
}

Bool clsSemSchwerpunkt::WriteToDatabase() try {
    if (!p_blnInitialized) return false;
    return RunAsSelect(session_, kInsertOfSeminar(row_)) && RunAsSelect(session_, kInsertNamed(row_));
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSemSchwerpunkt.WriteToDatabase", LastErrorAddition(session_));
}

Bool clsSemSchwerpunkt::DeleteFromDatabase() try {
    if (!p_blnInitialized) return false;
    return RunAsSelect(session_, kDeleteOfSeminar(row_));
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSemSchwerpunkt.DeleteFromDatabase");
}

// clang-format off
Int32 clsSemSchwerpunkt::SemID() { return Get(&Row::SemID, " LumoSeminar062.clsSemSchwerpunkt.SemID --> GET"); }
void clsSemSchwerpunkt::SemID(Int32 value) { Let(&Row::SemID, value, " LumoSeminar062.clsSemSchwerpunkt.SemID --> LET"); }
Int32 clsSemSchwerpunkt::SchwerpunktID() { return Get(&Row::SchwerpunktID, " LumoSeminar062.clsSemSchwerpunkt.SchwerpunktID --> GET"); }
void clsSemSchwerpunkt::SchwerpunktID(Int32 value) { Let(&Row::SchwerpunktID, value, " LumoSeminar062.clsSemSchwerpunkt.SchwerpunktID --> LET"); }
Text clsSemSchwerpunkt::WBS() { return Get(&Row::WBS, " LumoSeminar062.clsSemSchwerpunkt.WBS --> GET"); }
void clsSemSchwerpunkt::WBS(Text value) { Let(&Row::WBS, std::move(value), " LumoSeminar062.clsSemSchwerpunkt.WBS --> LET"); }
// clang-format on

Ref<clsSemSchwerpunkt> colSemSchwerpunkte::Item(const Variant& vntIndexKey) try {
    return p_colItems->Item(vntIndexKey);
} catch (...) {
    RaiseLabelled(" LumoSeminar062.colSemSchwerpunkte.Item");
}

Int32 colSemSchwerpunkte::Count() try { return p_colItems->Count(); } catch (...) {
    RaiseLabelled(" LumoSeminar062.colSemSchwerpunkte.Count");
}

Bool colSemSchwerpunkte::Remove(const Variant& p_vntIndexKey) try {
    if (Item(p_vntIndexKey)->DeleteFromDatabase()) p_colItems->Remove(p_vntIndexKey);
    return false;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.colSemSchwerpunkte.Remove");
}

Enumerator<clsSemSchwerpunkt> colSemSchwerpunkte::NewEnum() try { return Enumerator(p_colItems); } catch (...) {
    RaiseLabelled(" LumoSeminar062.colSemSchwerpunkte.NewEnum");
}

// The labels of Add, Init and the load are those of other lists.
Ref<clsSemSchwerpunkt> colSemSchwerpunkte::Add() try {
    auto focus_area = New<clsSemSchwerpunkt>(MadeBy<colSemSchwerpunkte>());
    focus_area->SemID(p_lngSemID_);
    focus_area->SchwerpunktID(NextKey(session_, "max(WBS_ID)", "sysIData_WBS"));
    focus_area->WBS("");
    p_colItems->Add(focus_area, focus_area->Key());
    return focus_area;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColTermine.Add");
}

Bool colSemSchwerpunkte::Init(Int32 p_lngSemID, const Ref<DataSession>& p_objData) try {
    if (!ConnectionIsOpen(p_objData)) return false;
    session_ = p_objData;
    p_lngSemID_ = p_lngSemID;
    return LoadKeysFromDatabase();
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColSemSchwerpunkte.Init");
}

Bool colSemSchwerpunkte::LoadKeysFromDatabase() try {
    if (!session_->OpenSelect(kSelectKeysOfSeminar(p_lngSemID_))) return false;
    for (const Ref<RecordSet> rows = session_->Recordset(); !rows->Eof(); rows->MoveNext()) {
        const Fields fields = rows->Fields();
        const auto focus_area = To<Int32>(fields.Item(0).Value());
        const auto seminar = To<Int32>(fields.Item(1).Value());
        auto entry = New<clsSemSchwerpunkt>(MadeBy<colSemSchwerpunkte>());
        if (!entry->Init(focus_area, seminar, session_)) return false;
        p_colItems->Add(entry, entry->Key());
    }
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColTermine.LoadKeysFromDatabase");
}

Text clsSemTerminSchwerpunkt::Key() try { return KeyText(row_.SchwerpunktID); } catch (...) {
    RaiseLabelled("LumoSeminar.clsSemTerminSchwerpunkt.Key");
}

Bool clsSemTerminSchwerpunkt::Init(const Variant& p_lngSchwerpunktID, Int32 p_lngSemTerminID,
                                   const Ref<DataSession>& p_objData) try {
    if (!ConnectionIsOpen(p_objData)) return false;
    session_ = p_objData;
    row_.SchwerpunktID = To<Int32>(p_lngSchwerpunktID);
    row_.SemTerminID = p_lngSemTerminID;
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSemTerminSchwerpunkt.Init");
}

// Also without a row the link counts as read.
Bool clsSemTerminSchwerpunkt::PropertiesInit() try {
    if (!p_blnInitialized && session_ && session_->OpenSelect(kSelectOfDate(row_))) {
        p_blnInitialized = InitPropertiesByRecordset(session_->Recordset());
    }
    return p_blnInitialized;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSemTerminSchwerpunkt.PropertiesInit");
}

Bool clsSemTerminSchwerpunkt::InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset) try {
    if (row_.SchwerpunktID == 0) {
        row_.WBS.clear();
    } else if (!p_objRecordset->Eof()) {
        row_.WBS = common::FieldOr(p_objRecordset->Fields().Item(0), Text());
    }
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSemTerminSchwerpunkt.InitPropertiesByRecordset");
}

Bool clsSemTerminSchwerpunkt::WriteToDatabase() try {
    if (!PropertiesInit()) return false;
    Bool linked = false;
    Ref<RecordSet> rows = SelectByName();
    const Int32 focus_area = rows->Eof() ? InsertFocusArea() : To<Int32>(rows->Fields().Item(0).Value());
    if (focus_area != 0) {
        rows = RowsOrNone(session_, kSelectLink(row_.SemTerminID, focus_area));
        if (!rows->Eof()) {
            linked = true;
        } else if (session_->ExecuteSql(kInsertLink(focus_area, row_.SemTerminID))) {
            row_.SchwerpunktID = focus_area;
            linked = true;
        }
    }
    rows->Close();
    return linked;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSemTerminSchwerpunkt.WriteToDatabase", LastErrorAddition(session_));
}

Ref<RecordSet> clsSemTerminSchwerpunkt::SelectByName() {
    return RowsOrNone(session_, common::IsMDabhKonst(session_) ? kSelectByNameAndClient(row_.WBS, common::GetActMD(session_))
                                                               : kSelectByName(row_.WBS));
}

Int32 clsSemTerminSchwerpunkt::InsertFocusArea() {
    const auto id = To<Int32>(session_->LookupValue("ISNULL(max(WBS_ID),0)+1", "sysIData_WBS", ""));
    if (session_->ExecuteSql(kInsertFocusArea(id, row_.WBS)) && common::IsMDabhKonst(session_)) {
        (void)session_->ExecuteSql(kInsertClient(id, common::GetActMD(session_)));
    }
    return id;
}

Bool clsSemTerminSchwerpunkt::DeleteFromDatabase() try {
    return PropertiesInit() && session_->ExecuteSql(kDeleteOfDate(row_));
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSemTerminSchwerpunkt.DeleteFromDatabase");
}

// clang-format off
Int32 clsSemTerminSchwerpunkt::SemTerminID() { return Plain(&Row::SemTerminID, " LumoSeminar062.clsSemTerminSchwerpunkt.SemTerminID --> GET"); }
void clsSemTerminSchwerpunkt::SemTerminID(Int32 value) { Let(&Row::SemTerminID, value, " LumoSeminar062.clsSemTerminSchwerpunkt.SemID --> LET"); }  // SemID
Int32 clsSemTerminSchwerpunkt::SchwerpunktID() { return Get(&Row::SchwerpunktID, " LumoSeminar062.clsSemTerminSchwerpunkt.SchwerpunktID --> GET"); }
void clsSemTerminSchwerpunkt::SchwerpunktID(Int32 value) { Let(&Row::SchwerpunktID, value, " LumoSeminar062.clsSemTerminSchwerpunkt.SchwerpunktID --> LET"); }
Text clsSemTerminSchwerpunkt::WBS() { return Get(&Row::WBS, " LumoSeminar062.clsSemTerminSchwerpunkt.WBS --> GET"); }
void clsSemTerminSchwerpunkt::WBS(Text value) { LoadAndLet(&Row::WBS, std::move(value), " LumoSeminar062.clsSemTerminSchwerpunkt.WBS --> LET"); }
// clang-format on

Ref<clsSemTerminSchwerpunkt> colSemTerminSchwerpunkte::Item(const Variant& vntIndexKey) try {
    return p_colItems->Item(vntIndexKey);
} catch (...) {
    RaiseLabelled(" LumoSeminar062.colSemTerminSchwerpunkte.Item");
}

Int32 colSemTerminSchwerpunkte::Count() try { return p_colItems->Count(); } catch (...) {
    RaiseLabelled(" LumoSeminar062.colSemTerminSchwerpunkte.Count");
}

Bool colSemTerminSchwerpunkte::Remove(const Variant& p_vntIndexKey) try {
    if (Item(p_vntIndexKey)->DeleteFromDatabase()) p_colItems->Remove(p_vntIndexKey);
    return false;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.colSemTerminSchwerpunkte.Remove");
}

Enumerator<clsSemTerminSchwerpunkt> colSemTerminSchwerpunkte::NewEnum() try {
    return Enumerator(p_colItems);
} catch (...) {
    RaiseLabelled(" LumoSeminar062.colSemTerminSchwerpunkte.NewEnum");
}

Bool colSemTerminSchwerpunkte::Add(const Ref<clsSemTerminSchwerpunkt>& p_clsNewSemTerminSchwerpunkt) try {
    p_colItems->Add(p_clsNewSemTerminSchwerpunkt, p_clsNewSemTerminSchwerpunkt->Key());
    return false;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColSemTerminSchwerpunkte.Add");
}

Bool colSemTerminSchwerpunkte::Init(Int32 p_lngSemTerminID, const Ref<DataSession>& p_objData) try {
    if (!ConnectionIsOpen(p_objData)) return false;
    session_ = p_objData;
    p_lngSemTerminID_ = p_lngSemTerminID;
    return LoadKeysFromDatabase();
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColSemTerminSchwerpunkte.Init");
}

Bool colSemTerminSchwerpunkte::LoadKeysFromDatabase() try {
    if (!session_->OpenSelect(kSelectKeysOfDate(p_lngSemTerminID_))) return false;
    for (const Ref<RecordSet> rows = session_->Recordset(); !rows->Eof(); rows->MoveNext()) {
        const Fields fields = rows->Fields();
        const Variant focus_area = fields.Item(0).Value();
        const auto date = To<Int32>(fields.Item(1).Value());
        auto entry = New<clsSemTerminSchwerpunkt>();
        if (!entry->Init(focus_area, date, session_)) return false;
        p_colItems->Add(entry, entry->Key());
    }
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsColSemTerminSchwerpunkte.LoadKeysFromDatabase");
}

Bool colSemTerminSchwerpunkte::RemoveAll() try {
    for (const auto& entry : *p_colItems) {
        if (entry->DeleteFromDatabase()) p_colItems->Remove(entry->Key());
    }
    return true;
} catch (...) {
    RaiseLabelled("LumoSeminar.colSemTerminSchwerpunkte.RemoveAll");
}

}  // namespace LumoSeminar
