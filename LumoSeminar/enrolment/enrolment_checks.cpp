// What speaks against an enrolment. The checks find; they forbid nothing.

#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/frame/person_kind.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/scheduling/clsTermin.h>

namespace LumoSeminar {
namespace {

// A second number for employees, which only a person set from outside can have.
constexpr Byte kOtherEmployeeID = 14;

constexpr Sql<Int32, Int32> kOfEmployee = " AND Sem_Teilnehmer_IT.ANNr = {ANNr} And Sem_Teilnehmer_IT.MDNr = {MDNr}";
constexpr Sql<Int32> kOfApplicant = " AND Sem_Teilnehmer_IT.BWID = {BWID}";

constexpr Sql<Int32, Text> kSelectOpenDates =
    "Select DISTINCT Code,Titel from Sem_Teilnehmer_IT  INNER JOIN Sem_Termin_IT ON "
    "Sem_Teilnehmer_IT.SemTerminID = Sem_Termin_IT.SemTerminID  WHERE Sem_Termin_IT.SemID = {SemID} AND "
    "Sem_Termin_IT.Status <= 2 AND Teilnahme = -1{Person} ORDER BY Code,Titel ";

constexpr Sql<Int32, Text> kSelectTakenBefore =
    "Select DISTINCT Code,Titel From Sem_Teilnehmer_IT  INNER JOIN Sem_Termin_IT ON "
    "Sem_Teilnehmer_IT.SemTerminID = Sem_Termin_IT.SemTerminID  WHERE Sem_Termin_IT.SemID = {SemID} AND "
    "Sem_Termin_IT.Status = 4 AND Teilnahme = -1{Person}";

constexpr Sql<Int32, Text> kSelectEnrolled =
    "Select TeilnehmerID From Sem_Teilnehmer_IT  Where SemTerminID = {SemTerminID}{Person}";
constexpr Sql<Int32, Int32> kEnrolledEmployee = " AND Teilnahme <> 0 AND MDNR = {MDNr} AND ANNR = {ANNr}";
constexpr Sql<Int32, Int32> kEnrolledApplicant = " AND Teilnahme <> 0  AND MDNR = {MDNr} AND BWID = {BWID}";

constexpr Sql<Int32, Text> kSelectOverlaps =
    "Select DISTINCT Code,Titel  From Sem_Termin_Termine_IT  INNER JOIN Sem_Termin_IT ON "
    "Sem_Termin_Termine_IT.SemTerminID = Sem_Termin_IT.SemTerminID  INNER JOIN Sem_Teilnehmer_IT ON "
    "Sem_Teilnehmer_IT.SemTerminID = Sem_Termin_Termine_IT.SemTerminID  WHERE Sem_Termin_Termine_IT.SemTerminID <> "
    "{SemTerminID} AND ((SELECT BegUhr FROM Sem_Termin_Termine_IT SemTerminBeginn WHERE SemTerminBeginn.Termin = "
    "Sem_Termin_Termine_IT.Termin AND SemTerminID = {SemTerminID}) BETWEEN BegUhr AND EndUhr  OR (SELECT EndUhr FROM "
    "Sem_Termin_Termine_IT SemTerminEnde WHERE SemTerminEnde.Termin = Sem_Termin_Termine_IT.Termin AND SemTerminID = "
    "{SemTerminID}) BETWEEN BegUhr AND EndUhr){Person}";

constexpr Sql<Int32> kCountRequiredSeminars = "SELECT count(gef_SemID) FROM Sem_Anford_Seminare WHERE SemID = {SemID}";

// It asks for enrolments in the seminar itself, and not in the required ones.
constexpr Sql<Int32, Int32, Text> kSelectRequiredTaken =
    "SELECT Sem_Teilnehmer_IT.MDNR,Sem_Teilnehmer_IT.ANNR  From Sem_Teilnehmer_IT INNER JOIN Sem_Termin_IT ON "
    "Sem_Teilnehmer_IT.SemTerminID = Sem_Termin_IT.SemTerminID  INNER JOIN Sem_Anford_Seminare ON Sem_Termin_IT.SemID = "
    "Sem_Anford_Seminare.SemID  Where not Sem_Teilnehmer_IT.Teilnahme = 0 AND Sem_Anford_Seminare.SemID = {SemID} AND "
    "Sem_Teilnehmer_IT.MDNr = {MDNr}{Person}";
constexpr Sql<Int32> kRequiredOfEmployee = " AND Sem_Teilnehmer_IT.ANNr = {ANNr}";
constexpr Sql<Int32> kRequiredOfApplicant = " AND Sem_Teilnehmer_IT.BWID ={BWID}";

constexpr Sql<Int32> kCountRequiredSkills = "SELECT count(Prof_ID) FROM Sem_Anford_Faehigkeiten WHERE SemID = {SemID}";

// @intSemID is sent as it stands. Nothing declares it, so that the server refuses the statement.
constexpr Sql<Int32, Int32> kCountHeldSkills =
    "SELECT Count(Prof_ID) FROM  AN_Faehigkeiten INNER JOIN Sem_Anford_Faehigkeiten ON Sem_Anford_Faehigkeiten.Prof_ID = "
    "AN_Faehigkeiten.Prof_ID  WHERE Sem_Anford_Faehigkeiten.SemID = @intSemID AND AN_Faehigkeiten.MDNr = {MDNr} AND "
    "AN_Faehigkeiten.ANNr = {ANNr}";

Int32 FirstNumber(const Ref<RecordSet>& rows) { return To<Int32>(rows->Fields().Item(0).Value()); }

Text TextOrEmpty(const Field& field) {
    const Variant value = field.Value();
    return value.IsNull() ? Text() : To<Text>(value);
}

}  // namespace

Bool clsTeilnehmer::CheckTeilnehmerAnmeldung(Bool p_blnCheckAnmeldungSeminar, Bool p_blnCheckTeilnahme,
                                             Bool p_blnCheckVoraussetzung) {
    colErrorsAnmeldung_ = New<colErrorMsg>();
    if (p_blnCheckAnmeldungSeminar) CheckAnmeldungSeminar();
    CheckAnmeldungStorno();
    CheckZeitraum();
    if (p_blnCheckTeilnahme) CheckTeilnahme();
    if (p_blnCheckVoraussetzung) CheckVoraussetzung();
    return colErrorsAnmeldung_->Count() == 0;
}

Ref<colErrorMsg> clsTeilnehmer::colErrorsAnmeldung() {
    if (!colErrorsAnmeldung_) colErrorsAnmeldung_ = New<colErrorMsg>();
    return colErrorsAnmeldung_;
}

Text clsTeilnehmer::PersonFilter(Int32 applicant) {
    const Byte kind = objWBPerson()->ModId();
    if (kind == PersonKind::kEmployeeID || kind == kOtherEmployeeID) return kOfEmployee(row_.ANNr, row_.MDNr);
    if (kind == PersonKind::kApplicantID) return kOfApplicant(applicant);
    return {};
}

void clsTeilnehmer::AddFindings(Int32 error_id, const Ref<RecordSet>& rows) {
    for (; !rows->Eof(); rows->MoveNext()) {
        const Fields fields = rows->Fields();
        const Text code = TextOrEmpty(fields.Item(0));
        const Text title = TextOrEmpty(fields.Item(1));
        colErrorsAnmeldung_->Add(error_id, code + " - " + title, DateTime());
    }
}

Bool clsTeilnehmer::CheckAnmeldungSeminar() {
    const Int32 seminar = clsTermin()->SemID();
    if (seminar == 0) return true;
    objWBPerson();  // reads the record, if that was not done: its fields go in below
    if (!session_->OpenSelect(kSelectOpenDates(seminar, PersonFilter(row_.BWID)))) return false;
    const Ref<RecordSet> rows = session_->Recordset();
    if (rows->Eof()) return true;
    AddFindings(FindingNumber::kOpenDateOfSeminar, rows);
    rows->Close();
    return false;
}

// The key fields say who the person is here; without any it is any row of the date, cancelled ones too.
Bool clsTeilnehmer::CheckAnmeldungStorno() try {
    Text person;
    if (row_.ANNr != 0) {
        person = kEnrolledEmployee(row_.MDNr, row_.ANNr);
    } else if (row_.BWID != 0) {
        person = kEnrolledApplicant(row_.MDNr, row_.BWID);
    }
    if (!session_->OpenSelect(kSelectEnrolled(row_.SemTerminID, person))) return false;
    const Ref<RecordSet> rows = session_->Recordset();
    const Bool is_free = rows->Eof();
    if (!is_free) colErrorsAnmeldung_->Add(FindingNumber::kAlreadyEnrolled, "", DateTime());
    rows->Close();
    return is_free;
} catch (...) {
    RaiseLabelled("Orbiq.Form_Termin_TNAnmeldungNew.CheckAnmeldungStorno");
}

// An applicant is looked for under the number of an employee here.
Bool clsTeilnehmer::CheckZeitraum() try {
    objWBPerson();  // as above
    if (!session_->OpenSelect(kSelectOverlaps(row_.SemTerminID, PersonFilter(row_.ANNr)))) return false;
    const Ref<RecordSet> rows = session_->Recordset();
    const Bool is_free = rows->Eof();
    AddFindings(FindingNumber::kOverlap, rows);
    rows->Close();
    return is_free;
} catch (...) {
    RaiseLabelled("Orbiq.Form_Termin_TNAnmeldungNew.CheckZeitraum");
}

Bool clsTeilnehmer::CheckTeilnahme() try {
    const Int32 seminar = clsTermin()->SemID();
    if (seminar == 0) return true;
    if (!session_->OpenSelect(kSelectTakenBefore(seminar, PersonFilter(row_.BWID)))) return false;
    const Ref<RecordSet> rows = session_->Recordset();
    if (rows->Eof()) return true;
    AddFindings(FindingNumber::kTakenBefore, rows);
    rows->Close();
    return false;
} catch (...) {
    RaiseLabelled("Orbiq.Form_Termin_TNAnmeldungNew.CheckTeilnahme");
}

Bool clsTeilnehmer::CheckVoraussetzung() {
    if (CheckRequiredSeminars()) CheckRequiredSkills();
    return true;
}

// A seminar without required seminars ends the check: its skills are not looked at.
bool clsTeilnehmer::CheckRequiredSeminars() {
    const Int32 seminar = clsTermin()->SemID();
    if (!session_->OpenSelect(kCountRequiredSeminars(seminar))) return false;
    const Ref<RecordSet> required = session_->Recordset();
    if (required->Eof()) return true;
    if (FirstNumber(required) == 0) return false;
    Text person;
    if (row_.ANNr != 0) {
        person = kRequiredOfEmployee(row_.ANNr);
    } else if (row_.BWID != 0) {
        person = kRequiredOfApplicant(row_.BWID);
    }
    if (!session_->OpenSelect(kSelectRequiredTaken(seminar, row_.MDNr, person))) return false;
    const Ref<RecordSet> taken = session_->Recordset();
    const bool none_taken = static_cast<bool>(taken->Eof());
    if (!none_taken) colErrorsAnmeldung_->Add(FindingNumber::kPrerequisiteMissing, "", DateTime());
    taken->Close();
    return none_taken;
}

void clsTeilnehmer::CheckRequiredSkills() {
    if (!session_->OpenSelect(kCountRequiredSkills(clsTermin()->SemID()))) return;
    const Ref<RecordSet> required = session_->Recordset();
    if (required->Eof() || FirstNumber(required) == 0) return;
    if (!session_->OpenSelect(kCountHeldSkills(row_.MDNr, row_.ANNr))) return;
    const Ref<RecordSet> held = session_->Recordset();
    if (held->Eof()) return;
    const Int32 asked_for = FirstNumber(required);
    if (asked_for <= FirstNumber(held)) return;
    colErrorsAnmeldung_->Add(FindingNumber::kPrerequisiteMissing, "", DateTime());
}

}  // namespace LumoSeminar
