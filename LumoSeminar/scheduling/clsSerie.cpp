#include <LumoSeminar/scheduling/clsSerie.h>

#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/frame/text_form.h>

namespace LumoSeminar {
namespace {

constexpr Column<SerieRow> kColumns[] = {
    //                                        at Null
    {"SerienID", &SerieRow::SerienID},
    {"BeginnUhrzeit", &SerieRow::BeginnUhrzeit, 0},
    {"EndeUhrzeit", &SerieRow::EndeUhrzeit, 0},
    {"Tagefolge", &SerieRow::Tagefolge, 1},
    {"taeglich", &SerieRow::taeglich, 1},
    {"Woche", &SerieRow::Woche, 0},
    {"Mo", &SerieRow::Mo, 0},
    {"Di", &SerieRow::Di, 0},
    {"Mi", &SerieRow::Mi, 0},
    {"Do", &SerieRow::Do, 0},
    {"Fr", &SerieRow::Fr, 0},
    {"Sa", &SerieRow::Sa, 0},
    {"So", &SerieRow::So, 0},
};

// All columns but the key, in the order of the SELECT.
constexpr std::span<const Column<SerieRow>> kSelected = std::span(kColumns).subspan(1);

constexpr Statement kSelect(kColumns,
                            "SELECT BeginnUhrzeit, EndeUhrzeit, Tagefolge, taeglich, Woche, Mo, Di, Mi, Do, Fr, Sa, So "
                            "FROM Sem_Serien_IT  WHERE SerienID = {SerienID}");

constexpr Statement kInsert(kColumns,
                            "Insert Into Sem_Serien_IT (  SerienID, BeginnUhrzeit, EndeUhrzeit, Tagefolge, taeglich, Woche, Mo, Di, Mi, Do, Fr, Sa, So ) "
                            "Values ( {SerienID},{BeginnUhrzeit:Convert(Datetime,'30.12.1899 hh:nn',104)},"
                            "{EndeUhrzeit:Convert(Datetime,'30.12.1899 hh:nn',104)}, {Tagefolge},{taeglich},{Woche or Null},{Mo},{Di},{Mi},{Do},{Fr},"
                            "{Sa},{So} )");

constexpr Statement kDelete(kColumns, "Delete From Sem_Serien_IT  From Sem_Serien_IT  Where SerienID = {SerienID}");

constexpr Sql<Int32> kCountSeminars = "Select Count(SerienID) From  Sem_Katalog_IT Where SerienID = {SerienID}";
constexpr Sql<Int32> kCountDates = "Select Count(SerienID) From  Sem_Termin_IT Where SerienID = {SerienID}";

/// The number that a statement counts, 0 where it is refused.
Int32 Counted(const Ref<DataSession>& session, const Text& sql) {
    if (!session->OpenSelect(sql)) return 0;
    const Ref<RecordSet> rows = session->Recordset();
    const auto count = To<Int32>(rows->Fields().Item(0).Value());
    rows->Close();
    return count;
}

}  // namespace

clsSerie::~clsSerie() = default;

Text clsSerie::Key() try { return KeyText(row_.SerienID); } catch (...) {
    RaiseLabelled("LUmoSeminar.clsSerie.Key");
}

Bool clsSerie::Init(Int32 p_lngSerienID, const Ref<DataSession>& p_objData) try {
    if (!p_objData) return false;
    session_ = p_objData;
    p_blnInitialized = false;
    SerienID(p_lngSerienID);
    return true;
} catch (...) {
    RaiseLabelled("LUmoSeminar.clsSerie.Init");
}

Bool clsSerie::PropertiesInit() try {
    if (!p_blnInitialized && session_->OpenSelect(kSelect(row_))) {
        const Ref<RecordSet> rows = session_->Recordset();
        if (!rows->Eof()) p_blnInitialized = InitPropertiesByRecordset(rows);
        rows->Close();
    }
    return p_blnInitialized;
} catch (...) {
    RaiseLabelled("LUmoSeminar.clsSerie.PropertiesInit");
}

Bool clsSerie::InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset) try {
    LoadRow(row_, p_objRecordset, kSelected);
    return true;
} catch (...) {
    RaiseLabelled("LUmoSeminar.clsSerie.InitPropertiesByRecordset");
}

void clsSerie::UpdateProperty(const Ref<clsSerie>& p_objTempSerie) try {
    BeginnUhrzeit(p_objTempSerie->BeginnUhrzeit());
    EndeUhrzeit(p_objTempSerie->EndeUhrzeit());
    Tagefolge(p_objTempSerie->Tagefolge());
    Taeglich(p_objTempSerie->Taeglich());
    Woche(p_objTempSerie->Woche());
    Montag(p_objTempSerie->Montag());
    Dienstag(p_objTempSerie->Dienstag());
    Mittwoch(p_objTempSerie->Mittwoch());
    Donnerstag(p_objTempSerie->Donnerstag());
    Freitag(p_objTempSerie->Freitag());
    Samstag(p_objTempSerie->Samstag());
    Sonntag(p_objTempSerie->Sonntag());
} catch (...) {
    RaiseLabelled("LUmoSeminar.clsSerie.UpdateProperty");
}

Bool clsSerie::WriteToDatabase() try {
    if (row_.SerienID == 0) row_.SerienID = NextKey(session_, "max(SerienID)", "Sem_Serien_IT");
    return ExecuteOrRaise(session_, kInsert(row_));
} catch (...) {
    RaiseLabelled("LUmoSeminar.clsSerie.WriteToDatabase");
}

// The number that is counted is the argument, the row that goes is that of this object.
void clsSerie::DeleteOldSerie(Int32 p_lngOldSerienID) try {
    Int32 uses = Counted(session_, kCountSeminars(p_lngOldSerienID));
    uses = Add(uses, Counted(session_, kCountDates(p_lngOldSerienID)));
    if (uses == 0) RemoveSerie();
} catch (...) {
    RaiseLabelled("LumoSeminar.clsTermin.CheckSerie");
}

Bool clsSerie::RemoveSerie() try { return DeleteFromDatabase(); } catch (...) {
    RaiseLabelled("LUmoSeminar.clsSerie.RemoveSerie");
}

Bool clsSerie::DeleteFromDatabase() try { return ExecuteOrRaise(session_, kDelete(row_)); } catch (...) {
    RaiseLabelled("LumoSeminar.clsSerie.DeleteFromDatabase");
}

// clang-format off
Int32 clsSerie::SerienID() { return Plain(&Row::SerienID, "LumoSeminar.clsSerie.SerienID"); }
void clsSerie::SerienID(Int32 value) { Let(&Row::SerienID, value, "LumoSeminar.clsSerie.SerienID"); }
DateTime clsSerie::BeginnUhrzeit() { return Get(&Row::BeginnUhrzeit, "LumoSeminar.clsSerie.BeginnUhrzeit"); }
void clsSerie::BeginnUhrzeit(DateTime value) { Let(&Row::BeginnUhrzeit, value, "LumoSeminar.clsSerie.BeginnUhrzeit"); }
DateTime clsSerie::EndeUhrzeit() { return Get(&Row::EndeUhrzeit, "LumoSeminar.clsSerie.EndeUhrzeit"); }
void clsSerie::EndeUhrzeit(DateTime value) { Let(&Row::EndeUhrzeit, value, "LumoSeminar.clsSerie.EndeUhrzeit"); }
Byte clsSerie::Tagefolge() { return Get(&Row::Tagefolge, "LumoSeminar.clsSerie.Tagefolge"); }
void clsSerie::Tagefolge(Byte value) { Let(&Row::Tagefolge, value, "LumoSeminar.clsSerie.Tagefolge"); }
Byte clsSerie::Taeglich() { return Plain(&Row::taeglich, "LumoSeminar.clsSerie.Taeglich"); }
void clsSerie::Taeglich(Byte value) { Let(&Row::taeglich, value, "LumoSeminar.clsSerie.Taeglich"); }
Int32 clsSerie::Woche() { return Plain(&Row::Woche, "LumoSeminar.clsSerie.Woche"); }
void clsSerie::Woche(Int32 value) { Let(&Row::Woche, value, "LumoSeminar.clsSerie.Woche"); }
Int16 clsSerie::Montag() { return Plain(&Row::Mo, "LumoSeminar.clsSerie.Montag"); }
void clsSerie::Montag(Int16 value) { Let(&Row::Mo, value, "LumoSeminar.clsSerie.Montag"); }
Int16 clsSerie::Dienstag() { return Plain(&Row::Di, "LumoSeminar.clsSerie.Dienstag"); }
void clsSerie::Dienstag(Int16 value) { Let(&Row::Di, value, "LumoSeminar.clsSerie.Dienstag"); }
Int16 clsSerie::Mittwoch() { return Plain(&Row::Mi, "LumoSeminar.clsSerie.Mittwoch"); }
void clsSerie::Mittwoch(Int16 value) { Let(&Row::Mi, value, "LumoSeminar.clsSerie.Mittwoch"); }
Int16 clsSerie::Donnerstag() { return Plain(&Row::Do, "LumoSeminar.clsSerie.Donnerstag"); }
void clsSerie::Donnerstag(Int16 value) { Let(&Row::Do, value, "LumoSeminar.clsSerie.Donnerstag"); }
Int16 clsSerie::Freitag() { return Plain(&Row::Fr, "LumoSeminar.clsSerie.Freitag"); }
void clsSerie::Freitag(Int16 value) { Let(&Row::Fr, value, "LumoSeminar.clsSerie.Freitag"); }
Int16 clsSerie::Samstag() { return Plain(&Row::Sa, "LumoSeminar.clsSerie.Samstag"); }
void clsSerie::Samstag(Int16 value) { Let(&Row::Sa, value, "LumoSeminar.clsSerie.Samstag"); }
Int16 clsSerie::Sonntag() { return Plain(&Row::So, "LumoSeminar.clsSerie.Sonntag"); }
void clsSerie::Sonntag(Int16 value) { Let(&Row::So, value, "LumoSeminar.clsSerie.Sonntag"); }
// clang-format on

}  // namespace LumoSeminar
