#include <LumoSeminar/enrolment/clsTeilnehmer.h>

#include <LumoSeminar/enrolment/participant_costs.h>
#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/made_once.h>
#include <LumoSeminar/frame/person_kind.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/frame/text_form.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/colTermine.h>

namespace LumoSeminar {
namespace {

constexpr Column<TeilnehmerRow> kColumns[] = {
    //                                              at Null
    {"TeilnehmerID", &TeilnehmerRow::TeilnehmerID},
    {"SemTerminID", &TeilnehmerRow::SemTerminID, 0},
    {"MDNr", &TeilnehmerRow::MDNr, 0},
    {"ANNr", &TeilnehmerRow::ANNr, 0},
    {"BWID", &TeilnehmerRow::BWID, 0},
    {"LAID", &TeilnehmerRow::LAID, 0},
    {"ErfDatum", &TeilnehmerRow::ErfDatum},  // today
    {"ErfUser", &TeilnehmerRow::ErfUser},    // the user of the session defaults
    {"Teilnahme", &TeilnehmerRow::Teilnahme, -1},
    {"Herkunft", &TeilnehmerRow::Herkunft, 3},
    {"BeginnDatum", &TeilnehmerRow::BeginnDatum, 0},
    {"BegUhrzeit", &TeilnehmerRow::BegUhrzeit, 0},
    {"EndeDatum", &TeilnehmerRow::EndeDatum, 0},
    {"EndUhrzeit", &TeilnehmerRow::EndUhrzeit, 0},
    {"storniertam", &TeilnehmerRow::storniertam, 0},
    {"StornoGrund", &TeilnehmerRow::StornoGrund, 0},
    {"StornoKosten", &TeilnehmerRow::StornoKosten, 0},
    {"Ergebnis", &TeilnehmerRow::Ergebnis, 1},
    {"Bemerkung", &TeilnehmerRow::Bemerkung, ""},
};

// All columns but the key, in the order of the SELECT.
constexpr std::span<const Column<TeilnehmerRow>> kSelected = std::span(kColumns).subspan(1);
constexpr Int16 kErfDatum = 5;
constexpr Int16 kErfUser = 6;

constexpr Statement kSelect(
    kColumns,
    "SELECT Sem_Teilnehmer_IT.SemTerminID, Sem_Teilnehmer_IT.MDNr, Sem_Teilnehmer_IT.ANNR, Sem_Teilnehmer_IT.BWID, "
    "Sem_Teilnehmer_IT.LAID, Sem_Teilnehmer_IT.ErfDatum, Sem_Teilnehmer_IT.ErfUser, Sem_Teilnehmer_IT.Teilnahme, "
    "Sem_Teilnehmer_IT.Herkunft, Sem_Teilnehmer_IT.BeginnDatum, Sem_Teilnehmer_IT.BegUhrzeit, Sem_Teilnehmer_IT.EndeDatum, "
    "Sem_Teilnehmer_IT.EndUhrzeit, Sem_Teilnehmer_IT.storniertam, Sem_Teilnehmer_IT.StornoGrund, "
    "Sem_Teilnehmer_IT.StornoKosten, Sem_Teilnehmer_IT.Ergebnis, Sem_Teilnehmer_IT.Bemerkung FROM Sem_Teilnehmer_IT "
    "WHERE Sem_Teilnehmer_IT.TeilnehmerID = {TeilnehmerID}");

// A cleared storniertam has no NULL here: it is written as day 0.
constexpr Statement kUpdate(
    kColumns,
    "UPDATE Sem_Teilnehmer_IT SET   TeilnehmerID  = {TeilnehmerID}, SemTerminID = {SemTerminID}, MDNr = {MDNr}, "
    "ANNr ={ANNr or NULL}, ErfDatum = convert(datetime,'{ErfDatum:dd.mm.yyyy}',104) , ErfUser = '{ErfUser}', "
    "Teilnahme = {Teilnahme}, Herkunft = {Herkunft}, BeginnDatum = convert(datetime,'{BeginnDatum:dd.mm.yyyy}',104) , "
    "EndeDatum = convert(datetime,'{EndeDatum:dd.mm.yyyy}',104) , BegUhrzeit = '30.12.1899 {BegUhrzeit:hh:mm}', "
    "EndUhrzeit = '30.12.1899 {EndUhrzeit:hh:mm}', storniertam = convert(datetime,'{storniertam:dd.mm.yyyy}',104) , "
    "StornoGrund = {StornoGrund}, StornoKosten = {StornoKosten}, Ergebnis = {Ergebnis}, Bemerkung = '{Bemerkung}', "
    "BWID = {BWID or NULL}, LAID = {LAID or NULL} WHERE TeilnehmerID = {TeilnehmerID}\r\n");

constexpr Statement kInsert(
    kColumns,
    "INSERT INTO Sem_Teilnehmer_IT (  TeilnehmerID, SemTerminID, MDNr, ANNr, ErfDatum, ErfUser, Teilnahme,  Herkunft, "
    "BeginnDatum, EndeDatum, BegUhrzeit, EndUhrzeit, storniertam, StornoGrund,  StornoKosten, Ergebnis, Bemerkung, BWID, LAID )  "
    "SELECT ISNULL(max(TeilnehmerID),0)+1, {SemTerminID},{MDNr}, {ANNr or NULL}, convert(datetime,'{ErfDatum:dd.mm.yyyy}',104), "
    "'{ErfUser}', {Teilnahme},{Herkunft}, convert(datetime,'{BeginnDatum:dd.mm.yyyy}',104),  "
    "convert(datetime,'{EndeDatum:dd.mm.yyyy}',104), '30.12.1899 {BegUhrzeit:hh:mm}', '30.12.1899 {EndUhrzeit:hh:mm}',  "
    "{storniertam:convert(datetime,'dd.mm.yyyy',104) or NULL}, {StornoGrund}, {StornoKosten}, {Ergebnis}, '{Bemerkung}', "
    "{BWID or NULL}, {LAID or NULL} FROM Sem_Teilnehmer_IT\r\n");

constexpr Statement kDelete(kColumns, "DELETE FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = {TeilnehmerID}");

constexpr Statement kDatesOfEmployee(kColumns, " AND ANNR = {ANNr}");
constexpr Statement kDatesOfApplicant(kColumns, " AND BWID = {BWID}");
constexpr Statement kDatesOfWorker(kColumns, " AND LAID = {LAID}");

constexpr Int32 kAllSeminars = -1;

Text EntryUser() { return common::Defaults().FirstText(common::kDefaultsIndex); }

DateTime WithoutTime(DateTime day) { return ToDateTime(common::FormatDatum(day)); }

}  // namespace

clsTeilnehmer::clsTeilnehmer(MadeBy<colTeilnehmer>) {}
clsTeilnehmer::clsTeilnehmer(MadeBy<clsWBPerson>) {}

clsTeilnehmer::~clsTeilnehmer() {
    session_.Reset();
    objWBPerson_.Reset();
}

Bool clsTeilnehmer::Init(Int32 p_lngTeilnehmerID, const Ref<DataSession>& p_objData, Int32 p_lngSemTerminID) try {
    if (!ConnectionIsOpen(p_objData)) return false;
    row_.TeilnehmerID = p_lngTeilnehmerID;
    p_blnInitialized = false;
    session_ = p_objData;
    if (p_lngSemTerminID != 0) {
        SemTerminID(p_lngSemTerminID);
        // The load of a new record has linked the date with key 0.
        clsTermin_.Reset();
    }
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.Init");
}

Bool clsTeilnehmer::PropertiesInit() try {
    if (!p_blnInitialized) {
        if (session_->OpenSelect(kSelect(row_))) InitPropertiesByRecordset(session_->Recordset());
        p_blnInitialized = true;
    }
    return p_blnInitialized;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.PropertiesInit");
}

// The label names the date's class.
Bool clsTeilnehmer::InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset) try {
    if (p_objRecordset->Eof()) {
        const TeilnehmerRow before = row_;
        const Int32 date = clsTermin()->SemTerminID();
        LoadDefaults(row_, kSelected);
        row_.SemTerminID = date;
        row_.ANNr = before.ANNr;
        row_.BWID = before.BWID;
        row_.LAID = before.LAID;
        row_.ErfDatum = Today();
        row_.ErfUser = EntryUser();
    } else {
        LoadRow(row_, p_objRecordset, kSelected);
        const Fields fields = p_objRecordset->Fields();
        if (!row_.ErfDatum && fields.Item(kErfDatum).Value().IsNull()) row_.ErfDatum = Today();
        if (row_.ErfUser.empty() && fields.Item(kErfUser).Value().IsNull()) row_.ErfUser = EntryUser();
    }
    NewStorno_ = false;
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTermin.InitPropertiesByRecordset");
}

Bool clsTeilnehmer::WriteToDatabase(Int32) try {
    if (!PropertiesInit()) return false;
    FillGapsFromDate();
    const bool is_stored = row_.TeilnehmerID > 0;
    const Text sql = is_stored ? kUpdate(row_) : kInsert(row_);
    if (!is_stored) p_blnInfoPending_ = true;
    if (!session_->OpenSelect(sql)) return false;
    if (row_.TeilnehmerID == 0) {
        row_.TeilnehmerID = To<Int32>(session_->LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT", ""));
    }
    for (const auto& cost : objKosten()->NewEnum()) {
        if (cost->TeilnehmerID() == 0) cost->TeilnehmerID(row_.TeilnehmerID);
        cost->WriteToDatabase();
    }
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.WriteToDatabase");
}

void clsTeilnehmer::FillGapsFromDate() {
    const DateTime begin = WithoutTime(clsTermin()->BeginnDatum());
    row_.BeginnDatum = row_.BeginnDatum ? WithoutTime(row_.BeginnDatum) : begin;
    const DateTime end = WithoutTime(clsTermin()->EndeDatum(true));
    row_.EndeDatum = row_.EndeDatum ? WithoutTime(row_.EndeDatum) : end;
    const DateTime from = clsTermin()->BeginnUhrzeit();
    if (!row_.BegUhrzeit) row_.BegUhrzeit = from;
    const DateTime to = clsTermin()->EndeUhrzeit();
    if (!row_.EndUhrzeit) row_.EndUhrzeit = to;
}

Bool clsTeilnehmer::DeleteFromDatabase() try { return session_->ExecuteSql(kDelete(row_)); } catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.DeleteFromDatabase");
}

Text clsTeilnehmer::Key() try { return KeyText(row_.TeilnehmerID); } catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.Key");
}

Bool clsTeilnehmer::DoSendInfos() { return DoSendInfos_; }
void clsTeilnehmer::DoSendInfos(Bool value) { DoSendInfos_ = value; }

Ref<LumoSeminar::colTermine> clsTeilnehmer::colTermine() try {
    if (!colTermine_) {
        colTermine_ = New<LumoSeminar::colTermine>();
        const Text kind = objWBPerson()->PersGr();
        const auto List = [&](const Text& filter) {
            (void)colTermine_->Init(kAllSeminars, row_.MDNr, session_, filter, true);
        };
        if (kind == PersonKind::kEmployee) List(kDatesOfEmployee(row_));
        if (kind == PersonKind::kApplicant) List(kDatesOfApplicant(row_));
        if (kind == PersonKind::kWorker) List(kDatesOfWorker(row_));
    }
    return colTermine_;
} catch (...) {
    RaiseLabelled("LumoSeminar.clsTeilnehmer.ColTermine");
}

Ref<LumoSeminar::clsTermin> clsTeilnehmer::clsTermin() try {
    return MadeOnce(clsTermin_, [&](auto& made) { made.Init(row_.SemTerminID, session_); });
} catch (...) {
    RaiseLabelled("LumoSeminar.clsTeilnehmer.ClsTermin");
}

Ref<colTeilnehmerKosten> clsTeilnehmer::objKosten() try {
    return MadeOnce(objKosten_, [&](auto& made) { made.Init(row_.TeilnehmerID, session_); });
} catch (...) {
    RaiseInLine(" in LumoSeminar.objKosten");
}

void clsTeilnehmer::objKosten(Ref<colTeilnehmerKosten> value) { objKosten_ = std::move(value); }

Ref<clsWBPerson> clsTeilnehmer::objWBPerson() {
    Byte kind = PersonKind::kEmployeeID;
    Int32 key = ANNr();
    if (key == 0) {
        key = BWID();
        kind = PersonKind::kApplicantID;
    }
    if (key == 0) {
        key = LAID();
        kind = PersonKind::kWorkerID;
    }
    if (key == 0) kind = PersonKind::kEmployeeID;
    if (objWBPerson_) return objWBPerson_;
    if (Ref<clsWBPerson> owner = owner_.lock()) return owner;
    objWBPerson_ = New<clsWBPerson>();
    objWBPerson_->Init(row_.MDNr, key, kind, session_);
    return objWBPerson_;
}

void clsTeilnehmer::objWBPerson(Ref<clsWBPerson> value) {
    if (!value) owner_.reset();
    // The owner is not held: it holds the record.
    objWBPerson_ = value == Ref<clsWBPerson>(owner_.lock()) ? Ref<clsWBPerson>() : std::move(value);
}

Int32 clsTeilnehmer::TNID() try { return PropertiesInit() ? objWBPerson()->PersonID() : 0; } catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.TNID -> Property GET");
}

void clsTeilnehmer::TNID(Int32 value) try {
    if (PropertiesInit()) objWBPerson()->PersonID(value);
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.TNID -> Property LET");
}

void clsTeilnehmer::Teilnahme(Int16 value) try {
    if (!PropertiesInit()) return;
    row_.Teilnahme = value;
    p_blnInfoPending_ = true;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.Teilnahme -> Property LET");
}

Text clsTeilnehmer::Name() try { return PropertiesInit() ? objWBPerson()->Nachname() : Text(); } catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.Name -> Property GET");
}

void clsTeilnehmer::Name(Text value) try {
    if (PropertiesInit()) objWBPerson()->Nachname(std::move(value));
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.Name -> Property LET");
}

Text clsTeilnehmer::Vorname() try { return PropertiesInit() ? objWBPerson()->Vorname() : Text(); } catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.VorName -> Property GET");
}

void clsTeilnehmer::Vorname(Text value) try {
    if (PropertiesInit()) objWBPerson()->Vorname(std::move(value));
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.VorName -> Property LET");
}

Text clsTeilnehmer::MDPersNr() try {
    const Text kind = PersGr();
    const auto AndKey = [this](Int32 (clsTeilnehmer::*key)()) {
        const Int32 client = MDNR();
        return DefaultText(client) + "M" + DefaultText((this->*key)());
    };
    if (kind == PersonKind::kEmployee) return AndKey(&clsTeilnehmer::ANNr);
    if (kind == PersonKind::kApplicant) return AndKey(&clsTeilnehmer::BWID);
    if (kind == PersonKind::kWorker) return AndKey(&clsTeilnehmer::LAID);
    return {};
} catch (...) {
    RaiseLabelled("LumoSeminar.clsTeilnehmer.MDPersNr");
}

void clsTeilnehmer::MDPersNr(const Text& value) try {
    const std::size_t mark = value.find('M');
    if (mark == Text::npos) RaiseTypeMismatch("a text without M", "client and person");
    ANNr(To<Int32>(Variant(value.substr(mark + 1))));
    MDNR(To<Int32>(Variant(value.substr(0, mark))));
} catch (...) {
    RaiseLabelled("LumoSeminar.clsTeilnehmer.MDPersNr");
}

Int32 clsTeilnehmer::Kost() try {
    if (!PropertiesInit() || objKosten()->Count() == 0) return 0;
    return objKosten()->Item(1)->Kost();
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.Kost -> Property GET");
}

void clsTeilnehmer::Kost(Int32 value) try {
    if (objKosten()->Count() == 0) {
        objKosten()->Add(0)->Kost(value);
        return;
    }
    for (Int32 i = 1; i <= objKosten()->Count(); ++i) objKosten()->Item(i)->Kost(value);
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.Kost -> Property LET");
}

Text clsTeilnehmer::NameVorname() try {
    if (!PropertiesInit()) return {};
    const Text name = Name();
    const Text first_name = Vorname();
    return name.empty() && first_name.empty() ? Text() : name + ", " + first_name;
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.NameVorname -> Property GET");
}

Text clsTeilnehmer::PersGr() try { return PropertiesInit() ? objWBPerson()->PersGr() : Text(); } catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.PersGr -> Property GET");
}

Text clsTeilnehmer::PersNr() try { return PropertiesInit() ? objWBPerson()->PersNr() : Text(); } catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.PersNr -> Property GET");
}

void clsTeilnehmer::PersNr(Text value) try {
    if (PropertiesInit()) objWBPerson()->PersNr(std::move(value));
} catch (...) {
    RaiseLabelled(" LumoSeminar062.clsTeilnehmer.PersNr -> Property LET");
}

Bool clsTeilnehmer::NewStorno() try { return NewStorno_; } catch (...) {
    RaiseLabelled("LumoSeminar.clsTeilnehmer.NewStorno");
}

void clsTeilnehmer::NewStorno(Bool value) try {
    if (PropertiesInit()) NewStorno_ = value;
} catch (...) {
    RaiseLabelled("LumoSeminar.clsTeilnehmer.NewStorno");
}

Single clsTeilnehmer::TeilnehmerKosten() try {
    if (!PropertiesInit()) return 0;
    if (Teilnahme() == 0) return StornoKosten();
    Single sum = 0;
    for (Int32 i = 1; i <= objKosten()->Count(); ++i) sum = To<Single>(sum + objKosten()->Item(i)->Kostenbetrag());
    return sum;
} catch (...) {
    RaiseInLine(" in LumoSeminar.TeilnehmerKosten");
}

void clsTeilnehmer::TeilnehmerKosten(Single value) try {
    if (!PropertiesInit()) return;
    if (Teilnahme() == 0) {
        StornoKosten(To<Int16>(value));
        return;
    }
    const Int32 lines = objKosten()->Count();
    if (lines == 0) objKosten()->Add(0)->Kostenbetrag(value);
    if (lines == 1) objKosten()->Item(1)->Kostenbetrag(value);
} catch (...) {
    RaiseInLine(" in LumoSeminar.TeilnehmerKosten");
}

// clang-format off
Int32 clsTeilnehmer::TeilnehmerID() { return Get(&Row::TeilnehmerID, " LumoSeminar062.clsTeilnehmer.TeilnehmerID -> Property GET"); }
void clsTeilnehmer::TeilnehmerID(Int32 value) { Let(&Row::TeilnehmerID, value, " LumoSeminar062.clsTeilnehmer.MDNr -> Property LET"); }  // no load, and the label of MDNr
Int32 clsTeilnehmer::SemTerminID() { return Get(&Row::SemTerminID, " LumoSeminar062.clsTeilnehmer.SemTerminID -> Property GET"); }
void clsTeilnehmer::SemTerminID(Int32 value) { LoadAndLet(&Row::SemTerminID, value, " LumoSeminar062.clsTeilnehmer.MDNr -> Property LET"); }  // the label of MDNr
Int32 clsTeilnehmer::MDNR() { return Get(&Row::MDNr, " LumoSeminar062.clsTeilnehmer.MDNr -> Property GET"); }
void clsTeilnehmer::MDNR(Int32 value) { LoadAndLet(&Row::MDNr, value, " LumoSeminar062.clsTeilnehmer.MDNr -> Property LET"); }
DateTime clsTeilnehmer::ErfDatum() { return Get(&Row::ErfDatum, " LumoSeminar062.clsTeilnehmer.ErfDatum -> Property GET"); }
void clsTeilnehmer::ErfDatum(DateTime value) { LoadAndLet(&Row::ErfDatum, value, " LumoSeminar062.clsTeilnehmer.ErfDatum -> Property LET"); }
Text clsTeilnehmer::ErfUser() { return Get(&Row::ErfUser, " LumoSeminar062.clsTeilnehmer.ErfUser -> Property GET"); }
void clsTeilnehmer::ErfUser(Text value) { LoadAndLet(&Row::ErfUser, std::move(value), " LumoSeminar062.clsTeilnehmer.ErfUser -> Property LET"); }
Int16 clsTeilnehmer::Teilnahme() { return Get(&Row::Teilnahme, " LumoSeminar062.clsTeilnehmer.Teilnahme -> Property GET"); }
Int32 clsTeilnehmer::Herkunft() { return Get(&Row::Herkunft, " LumoSeminar062.clsTeilnehmer.Herkunft -> Property GET"); }
void clsTeilnehmer::Herkunft(Int32 value) { LoadAndLet(&Row::Herkunft, value, " LumoSeminar062.clsTeilnehmer.Herkunft -> Property LET"); }
DateTime clsTeilnehmer::BeginnDatum() { return Get(&Row::BeginnDatum, " LumoSeminar062.clsTeilnehmer.BeginnDatum -> Property GET"); }
void clsTeilnehmer::BeginnDatum(DateTime value) { LoadAndLet(&Row::BeginnDatum, value, " LumoSeminar062.clsTeilnehmer.BeginnDatum -> Property LET"); }
DateTime clsTeilnehmer::EndeDatum() { return Get(&Row::EndeDatum, " LumoSeminar062.clsTeilnehmer.EndeDatum -> Property GET"); }
void clsTeilnehmer::EndeDatum(DateTime value) { LoadAndLet(&Row::EndeDatum, value, " LumoSeminar062.clsTeilnehmer.EndeDatum -> Property LET"); }
DateTime clsTeilnehmer::BegUhrzeit() { return Get(&Row::BegUhrzeit, " LumoSeminar062.clsTeilnehmer.BegUhrzeit -> Property GET"); }
void clsTeilnehmer::BegUhrzeit(DateTime value) { LoadAndLet(&Row::BegUhrzeit, value, " LumoSeminar062.clsTeilnehmer.BegUhrzeit -> Property LET"); }
DateTime clsTeilnehmer::EndUhrzeit() { return Get(&Row::EndUhrzeit, " LumoSeminar062.clsTeilnehmer.EndUhrzeit -> Property GET"); }
void clsTeilnehmer::EndUhrzeit(DateTime value) { LoadAndLet(&Row::EndUhrzeit, value, " LumoSeminar062.clsTeilnehmer.EndUhrzeit -> Property LET"); }
DateTime clsTeilnehmer::storniertam() { return Get(&Row::storniertam, " LumoSeminar062.clsTeilnehmer.storniertam -> Property GET"); }
void clsTeilnehmer::storniertam(DateTime value) { LoadAndLet(&Row::storniertam, value, " LumoSeminar062.clsTeilnehmer.storniertam -> Property LET"); }
Int32 clsTeilnehmer::StornoGrund() { return Get(&Row::StornoGrund, " LumoSeminar062.clsTeilnehmer.StornoGrund -> Property GET"); }
void clsTeilnehmer::StornoGrund(Int32 value) { LoadAndLet(&Row::StornoGrund, value, " LumoSeminar062.clsTeilnehmer.StornoGrund -> Property LET"); }
Int16 clsTeilnehmer::StornoKosten() { return Get(&Row::StornoKosten, " LumoSeminar062.clsTeilnehmer.StornoKosten -> Property GET"); }
void clsTeilnehmer::StornoKosten(Int16 value) { LoadAndLet(&Row::StornoKosten, value, " LumoSeminar062.clsTeilnehmer.StornoKosten -> Property LET"); }
Int32 clsTeilnehmer::Ergebnis() { return Get(&Row::Ergebnis, " LumoSeminar062.clsTeilnehmer.Ergebnis -> Property GET"); }
void clsTeilnehmer::Ergebnis(Int32 value) { LoadAndLet(&Row::Ergebnis, value, " LumoSeminar062.clsTeilnehmer.Ergebnis -> Property LET"); }
Text clsTeilnehmer::Bemerkung() { return Get(&Row::Bemerkung, " LumoSeminar062.clsTeilnehmer.Bemerkung -> Property GET"); }
void clsTeilnehmer::Bemerkung(Text value) { LoadAndLet(&Row::Bemerkung, std::move(value), " LumoSeminar062.clsTeilnehmer.Bemerkung -> Property LET"); }
Int32 clsTeilnehmer::ANNr() { return Get(&Row::ANNr, " LumoSeminar062.clsTeilnehmer.ANNr -> Property GET"); }
void clsTeilnehmer::ANNr(Int32 value) { LoadAndLet(&Row::ANNr, value, " LumoSeminar062.clsTeilnehmer.ANNr -> Property LET"); }
Int32 clsTeilnehmer::BWID() { return Get(&Row::BWID, " LumoSeminar062.clsTeilnehmer.BWID -> Property GET"); }
void clsTeilnehmer::BWID(Int32 value) { LoadAndLet(&Row::BWID, value, " LumoSeminar062.clsTeilnehmer.BWID -> Property LET"); }
Int32 clsTeilnehmer::LAID() { return Get(&Row::LAID, " LumoSeminar062.clsTeilnehmer.LAID -> Property GET"); }
void clsTeilnehmer::LAID(Int32 value) { Let(&Row::LAID, value, " LumoSeminar062.clsTeilnehmer.LAID -> Property LET"); }  // no load
// clang-format on

}  // namespace LumoSeminar
