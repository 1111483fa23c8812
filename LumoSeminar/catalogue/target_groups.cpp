#include <LumoSeminar/catalogue/target_groups.h>

#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>

namespace LumoSeminar {
namespace {

constexpr Column<SemZielgruppeRow> kGroupColumns[] = {
    {"Kurz", &SemZielgruppeRow::Kurz},
    {"Bezeichnung", &SemZielgruppeRow::Bezeichnung},
};

constexpr Sql<Int32, Int32> kSelectGroup =
    "SELECT sysIData_Zielgruppen.Kurz, sysIData_Zielgruppen.Bezeichnung FROM Sem_Zielgruppen_IT "
    "INNER JOIN sysIData_Zielgruppen ON Sem_Zielgruppen_IT.ZielGruppeID = sysIData_Zielgruppen.ID "
    "WHERE Sem_Zielgruppen_IT.SemID = {SemID} AND Sem_Zielgruppen_IT.ZielGruppeID = {ZielgruppeID}";

constexpr Sql<Int32> kSelectGroups = "SELECT ZielGruppeID FROM Sem_Zielgruppen_IT WHERE SemID = {SemID}";

constexpr Column<SemZielInhaltRow> kGoalColumns[] = {
    {"Ziel", &SemZielInhaltRow::Ziel},
    {"Inhalt", &SemZielInhaltRow::Inhalt},
};

constexpr Sql<Int32> kSelectGoal = "SELECT Ziel, Inhalt FROM Sem_ZielInhalt_IT WHERE ZielInhaltID = {ZielInhaltID}";

// Hands the rows to the reader; does nothing where there is no open connection.
template <class Read>
void ReadRows(const Ref<DataSession>& session, const Text& sql, Read read) {
    if (!ConnectionIsOpen(session)) return;
    const Ref<RecordSet> rows = session->AdoConnection()->Execute(sql);
    read(rows);
    rows->Close();
}

bool IsOnARow(const Ref<RecordSet>& rows) { return !rows->Bof() && !rows->Eof(); }

}  // namespace

Bool clsSemZielgruppe::Init(Int32 p_lngSemID, Int32 p_lngZielgruppeID, const Ref<DataSession>& p_objAdoDirect) try {
    ReadRows(p_objAdoDirect, kSelectGroup(p_lngSemID, p_lngZielgruppeID), [&](const Ref<RecordSet>& rows) {
        if (IsOnARow(rows)) LoadRow<SemZielgruppeRow>(row_, rows, kGroupColumns);
    });
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar.clsSemZielgruppe.Init");
}

Text clsSemZielgruppe::BezeichungKurz() { return row_.Kurz; }
void clsSemZielgruppe::BezeichungKurz(Text value) { row_.Kurz = std::move(value); }
Text clsSemZielgruppe::Bezeichung() { return row_.Bezeichnung; }
void clsSemZielgruppe::Bezeichung(Text value) { row_.Bezeichnung = std::move(value); }

Bool colSemZielgruppen::Init(Int32 p_lngSemID, const Ref<DataSession>& p_objAdoDirect) try {
    ReadRows(p_objAdoDirect, kSelectGroups(p_lngSemID), [&](const Ref<RecordSet>& rows) {
        for (; IsOnARow(rows); rows->MoveNext()) {
            auto group = New<clsSemZielgruppe>();
            group->Init(p_lngSemID, To<Int32>(rows->Fields().Item(0).Value()), p_objAdoDirect);
            p_colItems->Add(group);
        }
    });
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar.colSemZielgruppen.Init");
}

Ref<clsSemZielgruppe> colSemZielgruppen::Item(const Variant& Index) { return p_colItems->Item(Index); }

Int32 colSemZielgruppen::Count() { return p_colItems->Count(); }

Enumerator<clsSemZielgruppe> colSemZielgruppen::NewEnum() { return Enumerator(p_colItems); }

Bool clsSemZielInhalt::Init(Int32 p_lngZielInhaltID, const Ref<DataSession>& p_objAdoDirect) try {
    ReadRows(p_objAdoDirect, kSelectGoal(p_lngZielInhaltID), [&](const Ref<RecordSet>& rows) {
        if (!IsOnARow(rows)) return;
        row_.ZielInhaltID = p_lngZielInhaltID;
        LoadRow<SemZielInhaltRow>(row_, rows, kGoalColumns);
    });
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar.clsSemZielInhalt.Init");
}

Int32 clsSemZielInhalt::ZielInhaltID() { return row_.ZielInhaltID; }
Text clsSemZielInhalt::Ziel() { return row_.Ziel; }
Text clsSemZielInhalt::Inhalt() { return row_.Inhalt; }

}  // namespace LumoSeminar
