#include <LumoSeminar/catalogue/clsSeminar.h>

#include <LumoSeminar/catalogue/focus_areas.h>
#include <LumoSeminar/catalogue/target_groups.h>
#include <LumoSeminar/frame/made_once.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/frame/text_form.h>
#include <LumoSeminar/scheduling/colTermine.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>

namespace LumoSeminar {
namespace {

constexpr Column<SeminarRow> kColumns[] = {
    //                                              at Null
    {"SemID", &SeminarRow::SemID},
    {"MDNr", &SeminarRow::MDNr, 0},
    {"SemCode", &SeminarRow::SemCode, ""},
    {"SemTitel", &SeminarRow::SemTitel, "<neues Seminar>"},
    {"Sachbearbeiter", &SeminarRow::Sachbearbeiter, 0},
    {"Status", &SeminarRow::Status, 1},
    {"InhaltZielID", &SeminarRow::InhaltZielID, 0},
    {"TeilnehmerMIN", &SeminarRow::TeilnehmerMIN, 0},
    {"TeilnehmerMAX", &SeminarRow::TeilnehmerMAX, 0},
    {"TeilnehmerOPT", &SeminarRow::TeilnehmerOPT, 0},
    {"Stunden", &SeminarRow::Stunden, 8},
    {"Sitzungen", &SeminarRow::Sitzungen, 1},
    {"SerienID", &SeminarRow::SerienID, 0},
    {"KostenProTN", &SeminarRow::KostenProTN, 0},
    {"Anzahlung", &SeminarRow::Anzahlung, 0},
    {"Stornokosten", &SeminarRow::Stornokosten, 0},
    {"Abbruchkosten", &SeminarRow::Abbruchkosten, 0},
    {"FristStorno", &SeminarRow::FristStorno, 0},
    {"FristAbbruch", &SeminarRow::FristAbbruch, 0},
    {"FristAnmeldung", &SeminarRow::FristAnmeldung, 0},
    {"Wiederholung", &SeminarRow::Wiederholung, 0},
};

// All columns but the key, in the order of the SELECT.
constexpr std::span<const Column<SeminarRow>> kSelected = std::span(kColumns).subspan(1);

constexpr Statement kSelect(kColumns,
                            "SELECT MDNr, SemCode, SemTitel, Sachbearbeiter, Status, InhaltZielID, TeilnehmerMIN, TeilnehmerMAX, TeilnehmerOPT, "
                            "Stunden, Sitzungen, SerienID, KostenProTN, Anzahlung, Stornokosten, Abbruchkosten, FristStorno, FristAbbruch, "
                            "FristAnmeldung, Wiederholung FROM Sem_Katalog_IT WHERE SemID = {SemID}");

// Stunden goes in without the point here, as the server has always been sent it: under a decimal comma the statement
// has one value too many.
constexpr Statement kInsert(
    kColumns,
    "INSERT INTO Sem_Katalog_IT (SemID, MDNr, SemCode, SemTitel, Sachbearbeiter, Status, InhaltZielID, TeilnehmerMIN, "
    "TeilnehmerMAX, TeilnehmerOPT, Stunden, Sitzungen, SerienID, KostenProTN, Anzahlung, Stornokosten, Abbruchkosten, "
    "FristStorno, FristAbbruch, FristAnmeldung, Wiederholung) VALUES ({SemID},{MDNr},'{SemCode}',"
    "'{SemTitel or <neues Seminar>}',{Sachbearbeiter or NUll},{Status or 1},{InhaltZielID or NUll},"
    "{TeilnehmerMIN or NUll},{TeilnehmerMAX or NUll},{TeilnehmerOPT or NUll},{Stunden:text or 8},{Sitzungen or 1},"
    "{SerienID or NUll},{KostenProTN or NUll},{Anzahlung or NUll},{Stornokosten or NUll},{Abbruchkosten or NUll},"
    "{FristStorno or NUll},{FristAbbruch or NUll},{FristAnmeldung or NUll},{Wiederholung or NUll})");

constexpr Statement kUpdate(kColumns,
                            "UPDATE Sem_Katalog_IT SET  MDNr = {MDNr}, SemCode = '{SemCode}', SemTitel = '{SemTitel}', "
                            "Sachbearbeiter = {Sachbearbeiter or NUll}, Status = {Status or 1}, InhaltZielID = {InhaltZielID or NUll}, "
                            "TeilnehmerMIN = {TeilnehmerMIN or NUll}, TeilnehmerMAX = {TeilnehmerMAX or NUll}, "
                            "TeilnehmerOPT = {TeilnehmerOPT or NUll}, Stunden = {Stunden or 8}, Sitzungen = {Sitzungen or 1}, "
                            "SerienID = {SerienID or NUll}, KostenProTN = {KostenProTN or NUll}, Anzahlung = {Anzahlung or NUll}, "
                            "Stornokosten = {Stornokosten or NUll}, Abbruchkosten = {Abbruchkosten or NUll}, "
                            "FristStorno = {FristStorno or NUll}, FristAbbruch = {FristAbbruch or NUll}, "
                            "FristAnmeldung = {FristAnmeldung or NUll}, Wiederholung = {Wiederholung or NUll} WHERE SemID = {SemID}");

constexpr Statement kDelete(kColumns, "DELETE FROM Sem_Katalog_IT WHERE SemID = {SemID}");

}  // namespace

clsSeminar::~clsSeminar() {
    session_.Reset();
    colTermine_.Reset();
    colSemSchwerpunkte_.Reset();
    colInteressentenliste_.Reset();
}

Text clsSeminar::Key() try { return KeyText(row_.SemID); } catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSeminar.Key");
}

Ref<LumoSeminar::colTermine> clsSeminar::colTermine() try {
    if (!colTermine_ && !PropertiesInit()) return {};
    return MadeOnce(colTermine_, [&](auto& made) { (void)made.Init(row_.SemID, row_.MDNr, session_); });
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSeminar.Termine");
}

Ref<LumoSeminar::colSemSchwerpunkte> clsSeminar::colSemSchwerpunkte() try {
    if (!colSemSchwerpunkte_ && !PropertiesInit()) return {};
    return MadeOnce(colSemSchwerpunkte_, [&](auto& made) { (void)made.Init(row_.SemID, session_); });
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSeminar.SemSchwerpunkte");
}

Ref<LumoSeminar::colSemZielgruppen> clsSeminar::colSemZielgruppen() try {
    if (!colSemZielgruppen_ && !PropertiesInit()) return {};
    return MadeOnce(colSemZielgruppen_, [&](auto& made) { made.Init(row_.SemID, session_); });
} catch (...) {
    RaiseLabelled(" LumoSeminar.clsSeminar.colSemZielgruppen");
}

Ref<colSemWarteliste> clsSeminar::colInteressentenliste() {
    if (!colInteressentenliste_ && !PropertiesInit()) return {};
    return MadeOnce(colInteressentenliste_, [&](auto& made) { made.LoadListSeminar(session_, row_.SemID); });
}

Ref<clsSemZielInhalt> clsSeminar::ZielInhalt() try {
    return MadeOnce(ZielInhalt_, [&](auto& made) { made.Init(row_.InhaltZielID, session_); });
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSeminar.ZielInhalt -> Property GET");
}

Bool clsSeminar::Init(Int32 p_lngSemID, const Ref<DataSession>& p_objData) try {
    if (!p_objData) return false;
    session_ = p_objData;
    SemID(p_lngSemID);
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSeminar.Init");
}

Bool clsSeminar::PropertiesInit() try {
    if (!p_blnInitialized && session_ && session_->OpenSelect(kSelect(row_))) {
        const Ref<RecordSet> rows = session_->Recordset();
        if (!rows->Eof()) p_blnInitialized = InitPropertiesByRecordset(rows);
    }
    return p_blnInitialized;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSeminar.PropertiesInit");
}

Bool clsSeminar::InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset) try {
    if (!p_objRecordset->Eof()) LoadRow(row_, p_objRecordset, kSelected);
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSeminar.InitPropertiesByRecordset");
}

Bool clsSeminar::WriteToDatabase() try {
    if (row_.SemID == 0) SemID(NextKey(session_, "max(SemID)", "Sem_Katalog_IT"));
    return ExecuteOrRaise(session_, kInsert(row_));
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSeminar.WriteToDatabase");
}

Bool clsSeminar::UpdateDatabase() try {
    if (!p_blnInitialized) return false;
    return ExecuteOrRaise(session_, kUpdate(row_));
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSeminar.UpdateDatabase");
}

Bool clsSeminar::DeleteFromDatabase() try {
    if (!p_blnInitialized || colTermine()->Count() != 0) return false;
    return ExecuteOrRaise(session_, kDelete(row_));
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSeminar.DeleteFromDatabase");
}

// clang-format off
Int32 clsSeminar::SemID() { return Plain(&Row::SemID, " LumoSeminar062.clsSeminar.SemID -> Property GET"); }
void clsSeminar::SemID(Int32 value) { Let(&Row::SemID, value, " LumoSeminar062.clsSeminar.MDNr -> Property LET"); }  // the label of MDNr
Int32 clsSeminar::MDNR() { return Get(&Row::MDNr, " LumoSeminar062.clsSeminar.MDNr -> Property GET"); }
void clsSeminar::MDNR(Int32 value) { Let(&Row::MDNr, value, " LumoSeminar062.clsSeminar.MDNr -> Property LET"); }
Text clsSeminar::SemCode() { return Get(&Row::SemCode, " LumoSeminar062.clsSeminar.SemCode -> Property GET"); }
void clsSeminar::SemCode(Text value) { Let(&Row::SemCode, std::move(value), " LumoSeminar062.clsSeminar.SemCode -> Property LET"); }
Text clsSeminar::SemTitel() { return Get(&Row::SemTitel, " LumoSeminar062.clsSeminar.SemTitel -> Property GET"); }
void clsSeminar::SemTitel(Text value) { Let(&Row::SemTitel, std::move(value), " LumoSeminar062.clsSeminar.SemTitel -> Property LET"); }
Int32 clsSeminar::Sachbearbeiter() { return Get(&Row::Sachbearbeiter, " LumoSeminar062.clsSeminar.Sachbearbeiter -> Property GET"); }
void clsSeminar::Sachbearbeiter(Int32 value) { Let(&Row::Sachbearbeiter, value, " LumoSeminar062.clsSeminar.Sachbearbeiter -> Property LET"); }
Int32 clsSeminar::Status() { return Get(&Row::Status, " LumoSeminar062.clsSeminar.Status -> Property GET"); }
void clsSeminar::Status(Int32 value) { Let(&Row::Status, value, " LumoSeminar062.clsSeminar.Status -> Property LET"); }
Int32 clsSeminar::InhaltZielID() { return Get(&Row::InhaltZielID, " LumoSeminar062.clsSeminar.InhaltZielID -> Property GET"); }
void clsSeminar::InhaltZielID(Int32 value) { Let(&Row::InhaltZielID, value, " LumoSeminar062.clsSeminar.InhaltZielID -> Property LET"); }
Int32 clsSeminar::TeilnehmerMIN() { return Get(&Row::TeilnehmerMIN, " LumoSeminar062.clsSeminar.TeilnehmerMIN -> Property GET"); }
void clsSeminar::TeilnehmerMIN(Int32 value) { Let(&Row::TeilnehmerMIN, value, " LumoSeminar062.clsSeminar.TeilnehmerMIN -> Property LET"); }
Int32 clsSeminar::TeilnehmerMAX() { return Get(&Row::TeilnehmerMAX, " LumoSeminar062.clsSeminar.TeilnehmerMAX -> Property GET"); }
void clsSeminar::TeilnehmerMAX(Int32 value) { Let(&Row::TeilnehmerMAX, value, " LumoSeminar062.clsSeminar.TeilnehmerMAX -> Property LET"); }
Int32 clsSeminar::TeilnehmerOPT() { return Get(&Row::TeilnehmerOPT, " LumoSeminar062.clsSeminar.TeilnehmerOPT -> Property GET"); }
void clsSeminar::TeilnehmerOPT(Int32 value) { Let(&Row::TeilnehmerOPT, value, " LumoSeminar062.clsSeminar.TeilnehmerOPT -> Property LET"); }
Double clsSeminar::Stunden() { return Get(&Row::Stunden, " LumoSeminar062.clsSeminar.Stunden -> Property GET"); }
void clsSeminar::Stunden(Double value) { Let(&Row::Stunden, value, " LumoSeminar062.clsSeminar.Stunden -> Property LET"); }
Int32 clsSeminar::Sitzungen() { return Get(&Row::Sitzungen, " LumoSeminar062.clsSeminar.Sitzungen -> Property GET"); }
void clsSeminar::Sitzungen(Int32 value) { Let(&Row::Sitzungen, value, " LumoSeminar062.clsSeminar.Sitzungen -> Property LET"); }
Int32 clsSeminar::SerienID() { return Get(&Row::SerienID, " LumoSeminar062.clsSeminar.SerienID -> Property GET"); }
void clsSeminar::SerienID(Int32 value) { Let(&Row::SerienID, value, " LumoSeminar062.clsSeminar.SerienID -> Property LET"); }
Money clsSeminar::KostenProTN() { return Get(&Row::KostenProTN, " LumoSeminar062.clsSeminar.KostenProTN -> Property GET"); }
void clsSeminar::KostenProTN(Money value) { Let(&Row::KostenProTN, value, " LumoSeminar062.clsSeminar.KostenProTN -> Property LET"); }
Money clsSeminar::Anzahlung() { return Get(&Row::Anzahlung, " LumoSeminar062.clsSeminar.Anzahlung -> Property GET"); }
void clsSeminar::Anzahlung(Money value) { Let(&Row::Anzahlung, value, " LumoSeminar062.clsSeminar.Anzahlung -> Property LET"); }
Money clsSeminar::StornoKosten() { return Get(&Row::Stornokosten, " LumoSeminar062.clsSeminar.StornoKosten -> Property GET"); }
void clsSeminar::StornoKosten(Money value) { Let(&Row::Stornokosten, value, " LumoSeminar062.clsSeminar.StornoKosten -> Property LET"); }
Money clsSeminar::Abbruchkosten() { return Get(&Row::Abbruchkosten, " LumoSeminar062.clsSeminar.Abbruchkosten -> Property GET"); }
void clsSeminar::Abbruchkosten(Money value) { Let(&Row::Abbruchkosten, value, " LumoSeminar062.clsSeminar.Abbruchkosten -> Property LET"); }
Int32 clsSeminar::FristStorno() { return Get(&Row::FristStorno, " LumoSeminar062.clsSeminar.FristStorno -> Property GET"); }
void clsSeminar::FristStorno(Int32 value) { Let(&Row::FristStorno, value, " LumoSeminar062.clsSeminar.FristStorno -> Property LET"); }
Int32 clsSeminar::FristAbbruch() { return Get(&Row::FristAbbruch, " LumoSeminar062.clsSeminar.FristAbbruch -> Property GET"); }
void clsSeminar::FristAbbruch(Int32 value) { Let(&Row::FristAbbruch, value, " LumoSeminar062.clsSeminar.FristAbbruch -> Property LET"); }
Int32 clsSeminar::FristAnmeldung() { return Get(&Row::FristAnmeldung, " LumoSeminar062.clsSeminar.FristAnmeldung -> Property GET"); }
void clsSeminar::FristAnmeldung(Int32 value) { Let(&Row::FristAnmeldung, value, " LumoSeminar062.clsSeminar.FristAnmeldung -> Property LET"); }
Int32 clsSeminar::Wiederholung() { return Get(&Row::Wiederholung, " LumoSeminar062.clsSeminar.Wiederholung -> Property GET"); }
void clsSeminar::Wiederholung(Int32 value) { Let(&Row::Wiederholung, value, " LumoSeminar062.clsSeminar.Wiederholung -> Property LET"); }
// clang-format on

}  // namespace LumoSeminar
