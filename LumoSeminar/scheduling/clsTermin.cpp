#include <LumoSeminar/scheduling/clsTermin.h>

#include <LumoSeminar/catalogue/clsSeminar.h>
#include <LumoSeminar/catalogue/focus_areas.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/frame/made_once.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/frame/text_form.h>
#include <LumoSeminar/scheduling/clsSerie.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <LumoSeminar/scheduling/organiser_venue.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>

namespace LumoSeminar {
namespace {

constexpr Column<TerminRow> kColumns[] = {
    //                                            at Null
    {"SemTerminID", &TerminRow::SemTerminID},
    {"MDNr", &TerminRow::MDNr, 0},
    {"Status", &TerminRow::Status, 2},
    {"Code", &TerminRow::Code, ""},
    {"Titel", &TerminRow::Titel, ""},
    {"SemID", &TerminRow::SemID, 0},
    {"InhaltZielID", &TerminRow::InhaltZielID, 0},
    {"SelfService", &TerminRow::SelfService, 0},
    {"Sachbearbeiter", &TerminRow::Sachbearbeiter, 0},
    {"BeginnDatum", &TerminRow::BeginnDatum, 0},
    {"EndeDatum", &TerminRow::EndeDatum, 0},
    {"BeginnUhrzeit", &TerminRow::BeginnUhrzeit, 0},
    {"EndeUhrzeit", &TerminRow::EndeUhrzeit, 0},
    {"MinTeil", &TerminRow::MinTeil, 0},
    {"MaxTeil", &TerminRow::MaxTeil, 0},
    {"OptTeil", &TerminRow::OptTeil, 0},
    {"Stunden", &TerminRow::Stunden, 8},
    {"Sitzungen", &TerminRow::Sitzungen, 1},
    {"SerienID", &TerminRow::SerienID, 0},
    {"KostenProTN", &TerminRow::KostenProTN, 0},
    {"StornoDatum", &TerminRow::StornoDatum, 0},
    {"StornoKosten", &TerminRow::StornoKosten, 0},
    {"AbbruchDatum", &TerminRow::AbbruchDatum, 0},
    {"AbbruchKosten", &TerminRow::AbbruchKosten, 0},
    {"AnmeldefristDatum", &TerminRow::AnmeldefristDatum, 0},
    {"BeurteilungID", &TerminRow::BeurteilungID, 0},
    {"VeranstalterID", &TerminRow::VeranstalterID, 0},
    {"VeranstaltungsOrtID", &TerminRow::VeranstaltungsOrtID, 0},
    {"Bemerkung", &TerminRow::Bemerkung, ""},
};

// All columns but the key, in the order of the SELECT.
constexpr std::span<const Column<TerminRow>> kSelected = std::span(kColumns).subspan(1);

constexpr Statement kSelect(kColumns,
                            "SELECT MDNr, Status, Code, Titel, SemID, InhaltZielID, SelfService, Sachbearbeiter, BeginnDatum, EndeDatum, "
                            "BeginnUhrzeit, EndeUhrzeit, MinTeil, MaxTeil, OptTeil, Stunden, Sitzungen, SerienID, KostenProTN, "
                            "StornoDatum, StornoKosten, AbbruchDatum, AbbruchKosten, AnmeldefristDatum, BeurteilungID, VeranstalterID, "
                            "VeranstaltungsOrtID, Bemerkung FROM Sem_Termin_IT WHERE SemTerminID = {SemTerminID}");

constexpr Statement kSelectEmail(kColumns,
                                 "select email from arbeitnehmer as an inner join sysIData_SemSachbearbeiter_IT as sa on an.mdnr=sa.mdnr "
                                 "and an.annr=sa.annr where sachbearbeiterid={Sachbearbeiter}");

// StornoKosten and AbbruchKosten go in without the point here and below, as the server has always been sent them: under
// a decimal comma the statement is refused where they have decimals.
constexpr Statement kUpdate(kColumns,
                            "UPDATE Sem_Termin_IT SET  MDNr = {MDNr}, Status = {Status}, Code = '{Code}', Titel = '{Titel}', "
                            "SemID = {SemID or NULL}, InhaltZielID = {InhaltZielID or NULL}, SelfService = {SelfService}, "
                            "Sachbearbeiter = {Sachbearbeiter or NULL}, "
                            "BeginnDatum = {BeginnDatum:Convert(Datetime,'dd.mm.yyyy',104) or Null}, "
                            "EndeDatum = {EndeDatum:Convert(Datetime,'dd.mm.yyyy',104) or Null}, "
                            "BeginnUhrzeit = {BeginnUhrzeit:Convert(Datetime,'30.12.1899 hh:mm',104) or Null}, "
                            "EndeUhrzeit =  {EndeUhrzeit:Convert(Datetime,'30.12.1899 hh:mm',104) or NULL}, "
                            "MinTeil = {MinTeil or NULL}, MaxTeil = {MaxTeil or Null}, OptTeil = {OptTeil or NUll}, "
                            "Stunden = {Stunden}, Sitzungen = {Sitzungen}, SerienID = {SerienID or NULL}, KostenProTN = {KostenProTN}, "
                            "StornoDatum = {StornoDatum:Convert(Datetime,'dd.mm.yyyy',104) or NULL}, StornoKosten = {StornoKosten:text}, "
                            "AbbruchDatum = {AbbruchDatum:Convert(Datetime,'dd.mm.yyyy',104) or NULL}, "
                            "AbbruchKosten = {AbbruchKosten:text}, "
                            "AnmeldefristDatum = {AnmeldefristDatum:Convert(Datetime,'dd.mm.yyyy',104) or NULL}, "
                            "BeurteilungID = {BeurteilungID or Null}, VeranstalterID = {VeranstalterID}, "
                            "VeranstaltungsOrtID = {VeranstaltungsOrtID or NULL}, Bemerkung = {Bemerkung:'text' or NULL} "
                            "WHERE SemTerminID = {SemTerminID}");

// The key is worked out by the statement itself and read back in the same text.
constexpr Statement kInsert(
    kColumns,
    "INSERT INTO Sem_Termin_IT (  SemTerminID , MDNr, Status, Code, Titel, SemID, InhaltZielID,  SelfService, "
    "Sachbearbeiter, BeginnDatum, EndeDatum, BeginnUhrzeit,  EndeUhrzeit, MinTeil, MaxTeil, OptTeil, Stunden, "
    "Sitzungen,  SerienID, KostenProTN, StornoDatum, StornoKosten, AbbruchDatum,  AbbruchKosten, "
    "AnmeldefristDatum, BeurteilungID, VeranstalterID,  VeranstaltungsOrtID, Bemerkung) "
    "SELECT ISNULL(MAX(Sem_Termin_IT.SemTerminID),0)+1, {MDNr}, {Status}, '{Code}', '{Titel}', {SemID or NULL}, "
    "{InhaltZielID or NULL}, {SelfService}, {Sachbearbeiter or NULL}, "
    "{BeginnDatum:Convert(Datetime,'dd.mm.yyyy',104) or Null}, "
    "{EndeDatum:Convert(Datetime,'dd.mm.yyyy',104) or Null}, "
    "{BeginnUhrzeit:Convert(Datetime,'30.12.1899 hh:mm',104) or NULL}, "
    "{EndeUhrzeit:Convert(Datetime,'30.12.1899 hh:mm',104) or NULL}, {MinTeil or NULL}, {MaxTeil or Null}, "
    "{OptTeil or NUll}, {Stunden}, {Sitzungen}, {SerienID or NULL}, {KostenProTN}, "
    "{StornoDatum:Convert(Datetime,'dd.mm.yyyy',104) or NULL}, {StornoKosten:text}, "
    "{AbbruchDatum:Convert(Datetime,'dd.mm.yyyy',104) or NULL}, {AbbruchKosten:text}, "
    "{AnmeldefristDatum:Convert(Datetime,'dd.mm.yyyy',104) or NULL}, {BeurteilungID or Null}, {VeranstalterID}, "
    "{VeranstaltungsOrtID or NULL}, {Bemerkung:'text' or NULL} FROM Sem_Termin_IT "
    "SELECT MAX(Sem_Termin_IT.SemTerminID) As SemTerminID From Sem_Termin_IT");

constexpr Statement kDelete(kColumns, "DELETE FROM Sem_Termin_IT WHERE SemTerminID = {SemTerminID}");

struct StatusWords {
    Byte status;
    std::string_view in_full;
    std::string_view in_short;
};

constexpr StatusWords kStatusWords[] = {
    {1, "Aktiv", "A"},
    {2, "Anmeldung", "AM"},
    {3, "Storniert", "ST"},
    {4, "Abgeschlossen", "AG"},
};

Text WordOf(Byte status, std::string_view StatusWords::*word) {
    for (const StatusWords& words : kStatusWords) {
        if (words.status == status) return Text(words.*word);
    }
    return {};
}

}  // namespace

clsTermin::~clsTermin() { session_.Reset(); }

Bool clsTermin::Init(Int32 p_lngSemTerminID, const Ref<DataSession>& p_objData) try {
    row_.SemTerminID = p_lngSemTerminID;
    session_ = p_objData;
    p_blnInitialized = false;
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.Init");
}

Bool clsTermin::PropertiesInit() try {
    if (!p_blnInitialized && session_->OpenSelect(kSelect(row_))) {
        p_blnInitialized = InitPropertiesByRecordset(session_->Recordset());
    }
    return p_blnInitialized;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.PropertiesInit");
}

Bool clsTermin::InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset) try {
    if (p_objRecordset->Eof()) {
        LoadDefaults(row_, kSelected);
    } else {
        LoadRow(row_, p_objRecordset, kSelected);
    }
    p_dtmOldBeginnDatum_ = row_.BeginnDatum;
    p_dtmOldEndeDatum_ = row_.EndeDatum;
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.InitPropertiesByRecordset");
}

Text clsTermin::SachbearbeiterEmail() try {
    if (!session_->OpenSelect(kSelectEmail(row_))) return {};
    const Ref<RecordSet> rows = session_->Recordset();
    Text email;
    if (!rows->Bof() && !rows->Eof()) email = common::FieldOr(rows->Fields().Item(0), Text());
    rows->Close();
    return email;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.SachbearbeiterEmail");
}

Bool clsTermin::WriteToDatabase() try {
    if (!PropertiesInit()) return false;
    if (row_.SemTerminID != 0) {
        ExecuteOrRaise(session_, kUpdate(row_));
        TerminTageUpdate();
    } else {
        const Ref<RecordSet> rows = SelectOrRaise(session_, kInsert(row_));
        row_.SemTerminID = common::FieldOr(rows->Fields().Item(0), Int32{0});
    }
    if (p_lngOldSerienID_ != 0 && p_lngOldSerienID_ != row_.SerienID) objSerie()->DeleteOldSerie(p_lngOldSerienID_);
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.WriteToDatabase");
}

Bool clsTermin::DeleteFromDatabase() try {
    if (!PropertiesInit()) return false;
    if (!clscolTeilnehmer()->RemoveALL()) return false;
    if (!clscolSemTerminSchwerpunkte()->RemoveAll()) return false;
    if (!session_->ExecuteSql(kDelete(row_))) return false;
    const auto series = objSerie();
    series->DeleteOldSerie(SerienID());
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.DeleteFromDatabase");
}

Int16 clsTermin::AnzFreiePlaetze() try {
    if (!PropertiesInit()) return 0;
    return To<Int16>(std::int64_t{row_.MaxTeil} - AnzAnmeldungen());
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.AnzFreiePlaetze --> GET");
}

Int16 clsTermin::AnzAnmeldungen() try {
    if (!PropertiesInit()) return 0;
    Int16 enrolled = 0;
    for (const auto& participant : clscolTeilnehmer()->NewEnum()) {
        if (participant->Teilnahme() != 0) enrolled = To<Int16>(enrolled + 1);
    }
    return enrolled;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.AnzAnmeldungen --> GET");
}

// Both lists carry a label of the seminar.
Ref<colTeilnehmer> clsTermin::clscolTeilnehmer() try {
    if (!PropertiesInit()) return {};
    return MadeOnce(clscolTeilnehmer_, [&](auto& made) { (void)made.Init(row_.SemTerminID, session_); });
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSeminar.Teilnehmer");
}

Ref<colSemTerminSchwerpunkte> clsTermin::clscolSemTerminSchwerpunkte() try {
    if (!PropertiesInit()) return {};
    return MadeOnce(clscolSemTerminSchwerpunkte_, [&](auto& made) { (void)made.Init(row_.SemTerminID, session_); });
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsSeminar.Teilnehmer");
}

Ref<LumoSeminar::colTerminTage> clsTermin::colTerminTage() try {
    colTerminTage_ = New<LumoSeminar::colTerminTage>();
    colTerminTage_->Init(row_.SemTerminID, session_);
    return colTerminTage_;
} catch (...) {
    RaiseLabelled(" lumoRessourcen.clsRessource.colRessourcenDetails");
}

Ref<colSemWarteliste> clsTermin::colWarteliste() try {
    return MadeOnce(colWarteliste_, [&](auto& made) { made.LoadListSeminartermin(session_, row_.SemTerminID); });
} catch (...) {
    RaiseInLine(" in LumoSeminar.colWarteliste");
}

Ref<clsSerie> clsTermin::objSerie() try {
    if (objSerie_ && objSerie_->SerienID() != SerienID()) objSerie_.Reset();
    return MadeOnce(objSerie_, [&](auto& made) { made.Init(SerienID(), session_); });
} catch (...) {
    RaiseLabelled("LumoSeminar.clsTermin.objSerie");
}

Ref<clsSeminar> clsTermin::objSeminar() try {
    if (row_.SemID == 0) return {};
    if (objSeminar_ && objSeminar_->SemID() != row_.SemID) objSeminar_.Reset();
    return MadeOnce(objSeminar_, [&](auto& made) { made.Init(row_.SemID, session_); });
} catch (...) {
    RaiseLabelled("LumoSeminar.clsTermin.onjSeminar");
}

Ref<clsTerminVeranstalter> clsTermin::Veranstalter() try {
    if (!PropertiesInit()) return {};
    return MadeOnce(Veranstalter_, [&](auto& made) { made.Init(row_.VeranstalterID, session_); });
} catch (...) {
    RaiseLabelled(" LumoSeminar.clsTermin.Veranstalter");
}

Ref<clsTerminVeranstaltungsOrt> clsTermin::VeranstaltungsOrt() try {
    if (!PropertiesInit()) return {};
    return MadeOnce(VeranstaltungsOrt_, [&](auto& made) { made.Init(row_.VeranstaltungsOrtID, session_); });
} catch (...) {
    RaiseLabelled(" LumoSeminar.clsTermin.VeranstaltungsOrt");
}

void clsTermin::SemID(Int32 value) try {
    if (!PropertiesInit()) return;
    row_.SemID = value;
    if (row_.SemTerminID == 0 && row_.SemID != 0) TakeDefaultsOfSeminar();
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.SemID --> LET");
}

void clsTermin::TakeDefaultsOfSeminar() {
    const Ref<clsSeminar> seminar = objSeminar();
    row_.MDNr = seminar->MDNR();
    row_.Titel = seminar->SemTitel();
    row_.InhaltZielID = seminar->InhaltZielID();
    row_.Sachbearbeiter = seminar->Sachbearbeiter();
    row_.MinTeil = seminar->TeilnehmerMIN();
    row_.MaxTeil = seminar->TeilnehmerMAX();
    row_.OptTeil = seminar->TeilnehmerOPT();
    row_.Stunden = seminar->Stunden();
    row_.Sitzungen = seminar->Sitzungen();
    row_.SerienID = seminar->SerienID();
    row_.KostenProTN = seminar->KostenProTN();
}

void clsTermin::BeginnDatum(DateTime value) try {
    p_dtmOldBeginnDatum_ = row_.BeginnDatum;
    if (PropertiesInit()) row_.BeginnDatum = value;
    ErzeugeTerminTage();
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.BeginnDatum --> LET");
}

void clsTermin::EndeDatum(DateTime value, Bool p_blnLoadfromDatabase) try {
    p_dtmOldEndeDatum_ = row_.EndeDatum;
    if (!p_blnLoadfromDatabase || PropertiesInit()) row_.EndeDatum = value;
    ErzeugeTerminTage();
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.EndeDatum --> LET");
}

// The former series is not noted: the field keeps what it has.
void clsTermin::SerienID(Int32 value) {
    const Int32 old = p_lngOldSerienID_;
    p_lngOldSerienID_ = old;
    LoadAndLet(&Row::SerienID, value, " LumoSeminar062.clsTermin.SerienID --> LET");
}

Text clsTermin::StatusBezLang() try {
    return PropertiesInit() ? WordOf(row_.Status, &StatusWords::in_full) : Text();
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.StatusBezLang --> GET");
}

Text clsTermin::StatusBezKurz() try {
    return PropertiesInit() ? WordOf(row_.Status, &StatusWords::in_short) : Text();
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.StatusBezKurz --> GET");
}

Text clsTermin::Key() try { return KeyText(row_.SemTerminID); } catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.Key --> GET");
}

Bool clsTermin::NewDelOnlyTag() try { return NewDelOnlyTag_; } catch (...) {
    RaiseLabelled("LumoSeminar.clsTermin.NewDelOnlyTag");
}

void clsTermin::NewDelOnlyTag(Bool value) try { NewDelOnlyTag_ = value; } catch (...) {
    RaiseLabelled("LumoSeminar.clsTermin.NewDelOnlyTag");
}

template <class T>
T clsTermin::GetOrPlain(T Row::*field, Bool load, std::string_view label) {
    return load ? Get(field, label) : Plain(field, label);
}

template <class T>
void clsTermin::LetOrPlain(T Row::*field, std::type_identity_t<T> value, Bool load, std::string_view label) {
    if (load) {
        LoadAndLet(field, std::move(value), label);
    } else {
        Let(field, std::move(value), label);
    }
}

// clang-format off
Int32 clsTermin::SemTerminID() { return Get(&Row::SemTerminID, " LumoSeminar062.clsTermin.SemTerminID --> GET"); }
void clsTermin::SemTerminID(Int32 value) { LoadAndLet(&Row::SemTerminID, value, " LumoSeminar062.clsTermin.SemTerminID --> LET"); }
Int32 clsTermin::MDNR() { return Get(&Row::MDNr, " LumoSeminar062.clsTermin.MDNr --> GET"); }
void clsTermin::MDNR(Int32 value) { LoadAndLet(&Row::MDNr, value, " LumoSeminar062.clsTermin.MDNr --> LET"); }
Byte clsTermin::Status() { return Get(&Row::Status, " LumoSeminar062.clsTermin.Status --> GET"); }
void clsTermin::Status(Byte value) { LoadAndLet(&Row::Status, value, " LumoSeminar062.clsTermin.Status --> LET"); }
Text clsTermin::Code(Bool p_blnLoadfromDatabase) { return GetOrPlain(&Row::Code, p_blnLoadfromDatabase, " LumoSeminar062.clsTermin.Code --> GET"); }
void clsTermin::Code(Text value, Bool p_blnLoadfromDatabase) { LetOrPlain(&Row::Code, std::move(value), p_blnLoadfromDatabase, " LumoSeminar062.clsTermin.Code --> LET"); }
Text clsTermin::Titel(Bool p_blnLoadfromDatabase) { return GetOrPlain(&Row::Titel, p_blnLoadfromDatabase, " LumoSeminar062.clsTermin.Titel --> GET"); }
void clsTermin::Titel(Text value, Bool p_blnLoadfromDatabase) { LetOrPlain(&Row::Titel, std::move(value), p_blnLoadfromDatabase, " LumoSeminar062.clsTermin.Titel --> LET"); }
Int32 clsTermin::SemID() { return Get(&Row::SemID, " LumoSeminar062.clsTermin.SemID --> GET"); }
Int32 clsTermin::InhaltZielID() { return Get(&Row::InhaltZielID, " LumoSeminar062.clsTermin.InhaltZielID --> GET"); }
void clsTermin::InhaltZielID(Int32 value) { LoadAndLet(&Row::InhaltZielID, value, " LumoSeminar062.clsTermin.InhaltZielID --> LET"); }
Int16 clsTermin::SelfService() { return Get(&Row::SelfService, " LumoSeminar062.clsTermin.SelfService --> GET"); }
void clsTermin::SelfService(Int16 value) { LoadAndLet(&Row::SelfService, value, " LumoSeminar062.clsTermin.SelfService --> LET"); }
Int32 clsTermin::Sachbearbeiter() { return Get(&Row::Sachbearbeiter, " LumoSeminar062.clsTermin.Sachbearbeiter --> GET"); }
void clsTermin::Sachbearbeiter(Int32 value) { LoadAndLet(&Row::Sachbearbeiter, value, " LumoSeminar062.clsTermin.Sachbearbeiter --> LET"); }
DateTime clsTermin::BeginnDatum() { return Get(&Row::BeginnDatum, " LumoSeminar062.clsTermin.BeginnDatum --> GET"); }
DateTime clsTermin::EndeDatum(Bool p_blnLoadfromDatabase) { return GetOrPlain(&Row::EndeDatum, p_blnLoadfromDatabase, " LumoSeminar062.clsTermin.EndeDatum --> GET"); }
DateTime clsTermin::BeginnUhrzeit() { return Get(&Row::BeginnUhrzeit, " LumoSeminar062.clsTermin.BeginnUhrzeit --> GET"); }
void clsTermin::BeginnUhrzeit(DateTime value) { LoadAndLet(&Row::BeginnUhrzeit, value, " LumoSeminar062.clsTermin.BeginnUhrzeit --> LET"); }
DateTime clsTermin::EndeUhrzeit() { return Get(&Row::EndeUhrzeit, " LumoSeminar062.clsTermin.EndeUhrzeit --> GET"); }
void clsTermin::EndeUhrzeit(DateTime value) { LoadAndLet(&Row::EndeUhrzeit, value, " LumoSeminar062.clsTermin.EndeUhrzeit --> LET"); }
Int32 clsTermin::MinTeil() { return Get(&Row::MinTeil, " LumoSeminar062.clsTermin.MinTeil --> GET"); }
void clsTermin::MinTeil(Int32 value) { LoadAndLet(&Row::MinTeil, value, " LumoSeminar062.clsTermin.MinTeil --> LET"); }
Int32 clsTermin::MaxTeil() { return Get(&Row::MaxTeil, " LumoSeminar062.clsTermin.MaxTeil --> GET"); }
void clsTermin::MaxTeil(Int32 value) { LoadAndLet(&Row::MaxTeil, value, " LumoSeminar062.clsTermin.MaxTeil --> LET"); }
Int32 clsTermin::OptTeil() { return Get(&Row::OptTeil, " LumoSeminar062.clsTermin.OptTeil --> GET"); }
void clsTermin::OptTeil(Int32 value) { LoadAndLet(&Row::OptTeil, value, " LumoSeminar062.clsTermin.OptTeil --> LET"); }
Double clsTermin::Stunden() { return Get(&Row::Stunden, " LumoSeminar062.clsTermin.Stunden --> GET"); }
void clsTermin::Stunden(Double value) { LoadAndLet(&Row::Stunden, value, " LumoSeminar062.clsTermin.Stunden --> LET"); }
Int32 clsTermin::Sitzungen() { return Get(&Row::Sitzungen, " LumoSeminar062.clsTermin.Sitzungen --> GET"); }
void clsTermin::Sitzungen(Int32 value) { Let(&Row::Sitzungen, value, " LumoSeminar062.clsTermin.Sitzungen --> LET"); }  // no load
Int32 clsTermin::SerienID() { return Get(&Row::SerienID, " LumoSeminar062.clsTermin.SerienID --> GET"); }
Money clsTermin::KostenProTN() { return Get(&Row::KostenProTN, " LumoSeminar062.clsTermin.KostenProTN --> GET"); }
void clsTermin::KostenProTN(Money value) { LoadAndLet(&Row::KostenProTN, value, " LumoSeminar062.clsTermin.KostenProTN --> LET"); }
DateTime clsTermin::StornoDatum() { return Get(&Row::StornoDatum, " LumoSeminar062.clsTermin.StornoDatum --> GET"); }
void clsTermin::StornoDatum(DateTime value) { LoadAndLet(&Row::StornoDatum, value, " LumoSeminar062.clsTermin.StornoDatum --> LET"); }
Money clsTermin::StornoKosten() { return Get(&Row::StornoKosten, " LumoSeminar062.clsTermin.StornoKosten --> GET"); }
void clsTermin::StornoKosten(Money value) { LoadAndLet(&Row::StornoKosten, value, " LumoSeminar062.clsTermin.StornoKosten --> LET"); }
DateTime clsTermin::AbbruchDatum() { return Get(&Row::AbbruchDatum, " LumoSeminar062.clsTermin.AbbruchDatum --> GET"); }
void clsTermin::AbbruchDatum(DateTime value) { LoadAndLet(&Row::AbbruchDatum, value, " LumoSeminar062.clsTermin.AbbruchDatum --> LET"); }
Money clsTermin::Abbruchkosten() { return Get(&Row::AbbruchKosten, " LumoSeminar062.clsTermin.Abbruchkosten --> GET"); }
void clsTermin::Abbruchkosten(Money value) { LoadAndLet(&Row::AbbruchKosten, value, " LumoSeminar062.clsTermin.Abbruchkosten --> LET"); }
DateTime clsTermin::AnmeldefristDatum() { return Get(&Row::AnmeldefristDatum, " LumoSeminar062.clsTermin.AnmeldefristDatum --> GET"); }
void clsTermin::AnmeldefristDatum(DateTime value) { LoadAndLet(&Row::AnmeldefristDatum, value, " LumoSeminar062.clsTermin.AnmeldefristDatum --> LET"); }
Int32 clsTermin::BeurteilungID() { return Get(&Row::BeurteilungID, " LumoSeminar062.clsTermin.BeurteilungID --> GET"); }
void clsTermin::BeurteilungID(Int32 value) { LoadAndLet(&Row::BeurteilungID, value, " LumoSeminar062.clsTermin.BeurteilungID --> LET"); }
Int32 clsTermin::VeranstalterID() { return Get(&Row::VeranstalterID, " LumoSeminar062.clsTermin.VeranstalterID --> GET"); }
void clsTermin::VeranstalterID(Int32 value) { LoadAndLet(&Row::VeranstalterID, value, " LumoSeminar062.clsTermin.VeranstalterID --> LET"); }
Int32 clsTermin::VeranstaltungsOrtID() { return Get(&Row::VeranstaltungsOrtID, " LumoSeminar062.clsTermin.VeranstaltungsOrtID --> GET"); }
void clsTermin::VeranstaltungsOrtID(Int32 value) { LoadAndLet(&Row::VeranstaltungsOrtID, value, " LumoSeminar062.clsTermin.VeranstaltungsOrtID --> LET"); }
Text clsTermin::Bemerkung() { return Get(&Row::Bemerkung, " LumoSeminar062.clsTermin.Bemerkung --> GET"); }
void clsTermin::Bemerkung(Text value) { LoadAndLet(&Row::Bemerkung, std::move(value), " LumoSeminar062.clsTermin.Bemerkung --> LET"); }
// clang-format on

}  // namespace LumoSeminar
