#include <LumoSeminar/waitlist/clsSemWarteliste.h>

#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/made_once.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/frame/text_form.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/waitlist/process_objects.h>

namespace LumoSeminar {
namespace {

using Row = WartelisteRow;

constexpr Column<Row> kColumns[] = {
    {"SemWarteListeID", &Row::SemWarteListeID},
    {"ModID", &Row::ModID},
    {"MDNr", &Row::MDNr},
    {"TNID", &Row::TNID},
    {"ErfDat", &Row::ErfDat},
    {"Herkunft", &Row::Herkunft},
    {"Wunschtermin", &Row::Wunschtermin},
    {"SemTerminID", &Row::SemTerminID},
    {"SemID", &Row::SemID},
    {"GeaendertAm", &Row::GeaendertAm},
    {"GeaendertVon", &Row::GeaendertVon},
};

constexpr Statement kSelect(kColumns,
                            "SELECT Sem_Warteliste_IT.SemWarteListeID,  Sem_Warteliste_IT.ModID,  Sem_Warteliste_IT.MDNr,  Sem_Warteliste_IT.TNID, "
                            "Sem_Warteliste_IT.ErfDat,  Sem_Warteliste_IT.Herkunft,  Sem_Warteliste_IT.Wunschtermin,  "
                            "Sem_WartelisteTermin_IT.SemTerminID,  Sem_WartelisteSem_IT.SemID,  Sem_Warteliste_IT.Status,  "
                            "Sem_Warteliste_IT.GeaendertAm,  Sem_Warteliste_IT.GeaendertVon  FROM Sem_Warteliste_IT LEFT OUTER JOIN  "
                            "Sem_WartelisteTermin_IT ON Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteTermin_IT.SemWarteListeID LEFT OUTER JOIN  "
                            "Sem_WartelisteSem_IT ON Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteSem_IT.SemWarteListeID  "
                            "WHERE Sem_Warteliste_IT.SemWartelisteID = {SemWarteListeID}");

// {Status} is StoredStatus of the row.
constexpr Sql<DateTime, Int32, DateTime, Text, Int32> kUpdate =
    " UPDATE Sem_Warteliste_IT Set Wunschtermin = {Wunschtermin:'dd.mm.yyyy' or Null}, Status = {Status}, "
    "GeaendertAm = '{GeaendertAm:dd.mm.yyyy hh:nn:ss}', GeaendertVon = '{GeaendertVon}' WHERE SemWarteListeID = {SemWarteListeID}";

// ErfDat goes in by the default text form and not as dd.mm.yyyy.
constexpr Sql<Int32, Int16, Int32, Int32, DateTime, Int16, DateTime, Int32, DateTime, Text> kInsert =
    "INSERT INTO Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID,ErfDat, Herkunft,Wunschtermin,Status,GeaendertAm,"
    "GeaendertVon)  Values ({SemWarteListeID},{ModID},{MDNr},{TNID},'{ErfDat:text}',{Herkunft},"
    "{Wunschtermin:'dd.mm.yyyy' or Null},{Status},'{GeaendertAm:dd.mm.yyyy hh:nn:ss}','{GeaendertVon}')";

constexpr Statement kBindToDate(
    kColumns, "Insert Into Sem_WartelisteTermin_IT (SemWarteListeID, SemTerminID) values ({SemWarteListeID},{SemTerminID})");
constexpr Statement kBindToSeminar(kColumns,
                                   "Insert Into Sem_WartelisteSem_IT (SemWarteListeID,SemID) values ({SemWarteListeID},{SemID})");

constexpr Statement kDelete(kColumns,
                            " Delete Sem_WartelisteTermin_IT WHERE SemWarteListeID = {SemWarteListeID}\r\n"
                            " Delete Sem_WartelisteSem_IT WHERE SemWarteListeID = {SemWarteListeID}\r\n"
                            "DELETE Sem_Warteliste_IT WHERE SemWarteListeID = {SemWarteListeID}");

constexpr Byte kConsented = 1;
constexpr Byte kWithdrawn = 0;
constexpr Int32 kFromWaitList = 5;

Int32 StoredStatus(Byte status) { return status == kConsented ? -1 : 0; }

}  // namespace

clsSemWarteliste::~clsSemWarteliste() = default;

Ref<clsTermin> clsSemWarteliste::objSemTermin() {
    return MadeOnce(objSemTermin_, [&](auto& made) { made.Init(row_.SemTerminID, session_); });
}

Text clsSemWarteliste::Key() { return DefaultText(row_.SemWarteListeID); }

Bool clsSemWarteliste::Init(Int32 p_lngSemWartelisteID, const Ref<DataSession>& p_objData) try {
    row_.SemWarteListeID = p_lngSemWartelisteID;
    session_ = p_objData;
    return false;
} catch (...) {
    RaiseInLine(" in LumoSeminar.Init");
}

// From the status on each field is taken from the column in front of its own.
Bool clsSemWarteliste::IsInitialized() try {
    if (p_blnInitialized) return true;
    const Ref<RecordSet> rows = SelectOrRaise(session_, kSelect(row_));
    if (!rows->Eof()) {
        using common::FieldOr;
        const Fields fields = rows->Fields();
        row_.SemWarteListeID = FieldOr(fields.Item(0), Int32{0});
        row_.ModID = FieldOr(fields.Item(1), Int16{0});
        row_.MDNr = FieldOr(fields.Item(2), Int32{0});
        row_.TNID = FieldOr(fields.Item(3), Int32{0});
        row_.ErfDat = FieldOr(fields.Item(4), DateTime());
        row_.Herkunft = FieldOr(fields.Item(5), Int16{0});
        row_.Wunschtermin = FieldOr(fields.Item(6), DateTime());
        row_.SemTerminID = FieldOr(fields.Item(7), Int32{0});
        row_.SemID = FieldOr(fields.Item(8), Int32{0});
        row_.Status = AbsoluteByte(fields.Item(8));
        row_.GeaendertAm = FieldOr(fields.Item(9), DateTime());
        row_.GeaendertVon = FieldOr(fields.Item(10), Text());
        rows->MoveNext();
    }
    p_blnInitialized = true;
    rows->Close();
    return p_blnInitialized;
} catch (...) {
    RaiseInLine(" in LumoSeminar.IsInitialized");
}

void clsSemWarteliste::SetIsInitialized(Int16 value) { p_blnInitialized = value != 0; }

Int32 clsSemWarteliste::GetKostAN() try {
    const DateTime end = objSemTermin()->EndeDatum(true);
    const DateTime begin = objSemTermin()->BeginnDatum();
    return CostCentre(session_, row_.MDNr, row_.TNID, begin, end);
} catch (...) {
    RaiseInLine(" in LumoSeminar.GetKostAN");
}

Bool clsSemWarteliste::WriteToDatabase(Int32) try {
    row_.GeaendertAm = Now();
    row_.GeaendertVon = DatabaseLogin(session_);
    if (row_.SemWarteListeID != 0) {
        return ExecuteOrRaise(session_, kUpdate(row_.Wunschtermin, StoredStatus(row_.Status), row_.GeaendertAm,
                                                row_.GeaendertVon, row_.SemWarteListeID));
    }
    if (row_.SemID == 0 && row_.SemTerminID == 0) return false;
    Insert();
    return true;
} catch (...) {
    RaiseInLine(" in LumoSeminar.WriteToDatabase");
}

void clsSemWarteliste::Insert() {
    row_.SemWarteListeID = NextKey(session_, "max(SemWartelisteID)", "Sem_Warteliste_IT");
    row_.Status = kConsented;
    row_.ErfDat = Now();
    ExecuteOrRaise(session_, kInsert(row_.SemWarteListeID, row_.ModID, row_.MDNr, row_.TNID, row_.ErfDat, row_.Herkunft,
                                     row_.Wunschtermin, StoredStatus(row_.Status), row_.GeaendertAm, row_.GeaendertVon));
    const Text bind = row_.SemTerminID != 0 ? kBindToDate(row_) : kBindToSeminar(row_);
    if (session_->ExecuteSql(bind)) return;
    // The row is taken back first: the text that is raised is the one that the session has after that.
    DeleteFromDatabase();
    RaiseRefused(session_->LastErrorText());
}

Bool clsSemWarteliste::DeleteFromDatabase() try { return ExecuteOrRaise(session_, kDelete(row_)); } catch (...) {
    RaiseInLine(" in LumoSeminar.DeleteFromDatabase");
}

// The participant gets no person, so that the checks that depend on one find what concerns everybody or nobody.
Ref<colErrorMsg> clsSemWarteliste::TeilnahmePruefen(Bool p_blnCheckAnmeldungSeminar, Bool p_blnCheckTeilnahme,
                                                    Bool p_blnCheckVoraussetzung) {
    const auto participant = EmptyParticipant(objSemTermin());
    return FindingsOf(participant, p_blnCheckAnmeldungSeminar, p_blnCheckTeilnahme, p_blnCheckVoraussetzung);
}

Bool clsSemWarteliste::TeilnahmeGenehmigen(Int32 p_lngUserID) try {
    if (!IsInitialized()) return false;
    for (const auto& participant : objSemTermin()->clscolTeilnehmer()->NewEnum()) {
        if (participant->ANNr() == row_.TNID && participant->MDNR() == row_.MDNr) return false;
    }
    const auto participant = EmptyParticipant(objSemTermin());
    FillParticipant(participant, objSemTermin(), session_,
                    {.client = row_.MDNr, .employee = row_.TNID, .date = row_.SemTerminID, .origin = kFromWaitList},
                    [this] { return GetKostAN(); });
    if (!participant->WriteToDatabase(p_lngUserID)) return false;
    if (!DoSendInfos_) DeleteFromDatabase();
    return true;
} catch (...) {
    RaiseInLine(" in LumoSeminar.TeilnahmeGenehmigen");
}

Variant clsSemWarteliste::ZustimmungVerwerfen(Int32 p_lngUserID) {
    row_.Status = kWithdrawn;
    (void)WriteToDatabase(p_lngUserID);
    return {};
}

// clang-format off
Int32 clsSemWarteliste::SemWartelisteID() { return row_.SemWarteListeID; }
void clsSemWarteliste::SemWartelisteID(Int32 value) { row_.SemWarteListeID = value; }
Int16 clsSemWarteliste::ModId() { return IsInitialized() ? row_.ModID : Int16{0}; }
void clsSemWarteliste::ModId(Int16 value) { if (IsInitialized()) row_.ModID = value; }
Int32 clsSemWarteliste::MDNR() { return IsInitialized() ? row_.MDNr : 0; }
void clsSemWarteliste::MDNR(Int32 value) { if (IsInitialized()) row_.MDNr = value; }
Int32 clsSemWarteliste::TNID() { return IsInitialized() ? row_.TNID : 0; }
void clsSemWarteliste::TNID(Int32 value) { if (IsInitialized()) row_.TNID = value; }
DateTime clsSemWarteliste::ErfDat() { return IsInitialized() ? row_.ErfDat : DateTime(); }
void clsSemWarteliste::ErfDat(DateTime value) { if (IsInitialized()) row_.ErfDat = value; }
Int16 clsSemWarteliste::Herkunft() { return IsInitialized() ? row_.Herkunft : Int16{0}; }
void clsSemWarteliste::Herkunft(Int16 value) { if (IsInitialized()) row_.Herkunft = value; }
DateTime clsSemWarteliste::Wunschtermin() { return IsInitialized() ? row_.Wunschtermin : DateTime(); }
void clsSemWarteliste::Wunschtermin(DateTime value) { if (IsInitialized()) row_.Wunschtermin = value; }
Int32 clsSemWarteliste::SemID() { return IsInitialized() ? row_.SemID : 0; }
void clsSemWarteliste::SemID(Int32 value) { if (IsInitialized()) row_.SemID = value; }
Int32 clsSemWarteliste::SemTerminID() { return IsInitialized() ? row_.SemTerminID : 0; }
void clsSemWarteliste::SemTerminID(Int32 value) { if (IsInitialized()) row_.SemTerminID = value; }
Byte clsSemWarteliste::Status() { return IsInitialized() ? row_.Status : Byte{0}; }
void clsSemWarteliste::Status(Byte value) { if (IsInitialized()) row_.Status = value; }
DateTime clsSemWarteliste::GeaendertAm() { return IsInitialized() ? row_.GeaendertAm : DateTime(); }
void clsSemWarteliste::GeaendertAm(DateTime value) { if (IsInitialized()) row_.GeaendertAm = value; }
Text clsSemWarteliste::GeaendertVon() { return IsInitialized() ? row_.GeaendertVon : Text(); }
void clsSemWarteliste::GeaendertVon(const Text& value) { if (IsInitialized()) row_.GeaendertVon = value; }
Bool clsSemWarteliste::DoSendInfos() { return DoSendInfos_; }
void clsSemWarteliste::DoSendInfos(Bool value) { DoSendInfos_ = value; }
// clang-format on

}  // namespace LumoSeminar
