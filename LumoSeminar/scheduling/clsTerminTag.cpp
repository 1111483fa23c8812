#include <LumoSeminar/scheduling/clsTerminTag.h>

#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/frame/text_form.h>

namespace LumoSeminar {
namespace {

constexpr Column<TerminTagRow> kColumns[] = {
    {"SemTerminID", &TerminTagRow::SemTerminID},
    {"Termin", &TerminTagRow::Termin},
    {"BegUhr", &TerminTagRow::BegUhr},
    {"EndUhr", &TerminTagRow::EndUhr},
};

constexpr std::span<const Column<TerminTagRow>> kSelected = std::span(kColumns).subspan(2);

constexpr Statement kSelect(kColumns,
                            "SELECT  BegUhr, EndUhr  FROM Sem_Termin_Termine_IT  "
                            "WHERE Termin = {Termin:convert(datetime,'dd.mm.yyyy',104)}  AND SemTerminID = {SemTerminID}");

constexpr Statement kInsert(kColumns,
                            "Insert Into Sem_Termin_Termine_IT (  SemTerminID, Termin, BegUhr, EndUhr ) Values ( {SemTerminID},"
                            "{Termin:convert(datetime,'dd.mm.yyyy',104)},{BegUhr:Convert(Datetime,'30.12.1899 hh:mm',104)}, "
                            "{EndUhr:Convert(Datetime,'30.12.1899 hh:mm',104)} )");

constexpr Statement kUpdate(kColumns,
                            "Update Sem_Termin_Termine_IT   Set BegUhr = {BegUhr:Convert(Datetime,'30.12.1899 hh:mm',104)}  "
                            ", EndUhr = {EndUhr:Convert(Datetime,'30.12.1899 hh:mm',104)} From Sem_Termin_Termine_IT  "
                            "Where SemTerminID = {SemTerminID} AND Termin = {Termin:Convert(datetime,'dd.mm.yyyy',104)} ");

constexpr Statement kDelete(kColumns,
                            "Delete From Sem_Termin_Termine_IT  WHERE SemTerminID = {SemTerminID} "
                            "AND Termin = {Termin:convert(datetime,'dd.mm.yyyy',104)}");

}  // namespace

clsTerminTag::clsTerminTag(MadeBy<colTerminTage>) {}

clsTerminTag::~clsTerminTag() = default;

Text clsTerminTag::Key() try {
    Text key;
    key.reserve(20);
    return key.append(KeyText(SemTerminID())).append(CompactDateText(Termin()));
} catch (...) {
    RaiseLabelled("LUmoSeminar.clsTerminTag.Key");
}

Bool clsTerminTag::Init(DateTime p_dtmTermin, Int32 p_lngSemTerminID, const Ref<DataSession>& p_objData) try {
    if (!p_objData) return false;
    session_ = p_objData;
    Termin(p_dtmTermin);
    SemTerminID(p_lngSemTerminID);
    return true;
} catch (...) {
    RaiseLabelled("LUmoSeminar.clsTerminTag.Init");
}

Bool clsTerminTag::PropertiesInit() try {
    if (!p_blnInitialized && session_->OpenSelect(kSelect(row_))) {
        const Ref<RecordSet> rows = session_->Recordset();
        if (!rows->Eof()) p_blnInitialized = InitPropertiesByRecordset(rows);
        rows->Close();
    }
    return p_blnInitialized;
} catch (...) {
    RaiseLabelled("LUmoSeminar.clsTerminTag.PropertiesInit");
}

Bool clsTerminTag::InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset) try {
    LoadRow(row_, p_objRecordset, kSelected);
    return true;
} catch (...) {
    RaiseLabelled("LUmoSeminar.clsTerminTag.InitPropertiesByRecordset");
}

Bool clsTerminTag::UpdateDatabase() try { return ExecuteOrRaise(session_, kUpdate(row_)); } catch (...) {
    RaiseLabelled("LumoSeminar.clsTerminTag.UpdateDatabase");
}

Bool clsTerminTag::WriteToDatabase() try { return ExecuteOrRaise(session_, kInsert(row_)); } catch (...) {
    RaiseLabelled("LUmoSeminar.clsTerminTag.WriteToDatabase");
}

Bool clsTerminTag::RemoveTerminTag() try { return DeleteFromDatabase(); } catch (...) {
    RaiseLabelled("LUmoSeminar.clsTerminTag.RemoveTerminTag");
}

Bool clsTerminTag::DeleteFromDatabase() try { return ExecuteOrRaise(session_, kDelete(row_)); } catch (...) {
    RaiseLabelled("LumoSeminar.clsTerminTag.DeleteFromDatabase");
}

// clang-format off
Int32 clsTerminTag::SemTerminID() { return Plain(&Row::SemTerminID, "LumoSeminar.clsTerminTag.SemTerminID"); }
void clsTerminTag::SemTerminID(Int32 value) { Let(&Row::SemTerminID, value, "LumoSeminar.clsTerminTag.SemTerminID"); }
DateTime clsTerminTag::Termin() { return Plain(&Row::Termin, "LumoSeminar.clsTerminTag.Termin"); }
void clsTerminTag::Termin(DateTime value) { Let(&Row::Termin, value, "LumoSeminar.clsTerminTag.Termin"); }
DateTime clsTerminTag::BegUhr() { return Get(&Row::BegUhr, "LumoSeminar.clsTerminTag.BegUhr"); }
void clsTerminTag::BegUhr(DateTime value) { Let(&Row::BegUhr, value, "LumoSeminar.clsTerminTag.BegUhr"); }
DateTime clsTerminTag::EndUhr() { return Get(&Row::EndUhr, "LumoSeminar.clsTerminTag.EndUhr"); }
void clsTerminTag::EndUhr(DateTime value) { Let(&Row::EndUhr, value, "LumoSeminar.clsTerminTag.EndUhr"); }
// clang-format on

}  // namespace LumoSeminar
