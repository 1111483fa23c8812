// A cancelled participant goes to the wait-list. The cancellation itself is nothing but fields of the record.

#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/frame/person_kind.h>
#include <LumoSeminar/frame/session_calls.h>
#include <LumoSeminar/frame/statement.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/scheduling/clsTermin.h>

namespace LumoSeminar {
namespace {

// Date or seminar, TNID, MDNr, ModID.
using Transfer = Sql<Int32, Int32, Int32, Int32>;

constexpr Transfer kToDate =
    "Declare @SemWartelisteID int\r\n"
    "set @SemWartelisteID = isnull((Select Max(SemWarteListeID) From Sem_Warteliste_IT),0)+1\r\n"
    "if not exists (Select Sem_Warteliste_IT.SemWarteListeID From Sem_Warteliste_IT INNER JOIN Sem_WartelisteTermin_IT ON "
    "Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteTermin_IT.SemWarteListeID  Where SemTerminID = {SemTerminID} AND "
    "TNID = {TNID} AND MDNr = {MDNr} AND ModID = {ModID})\r\n"
    "Begin\r\n"
    "Insert Into Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID, ErfDat, Herkunft) Values( "
    "@SemWartelisteID,{ModID},{MDNr},{TNID},getdate(),2)\r\n"
    "Insert Into Sem_WartelisteTermin_IT (SemWarteListeID, SemTerminID) Values (@SemWartelisteID, {SemTerminID})\r\n"
    "End";

constexpr Transfer kToSeminar =
    "Declare @SemWartelisteID int\r\n"
    "set @SemWartelisteID = isnull((Select Max(SemWarteListeID) From Sem_Warteliste_IT),0)+1\r\n"
    "if not exists (Select Sem_Warteliste_IT.SemWarteListeID From Sem_Warteliste_IT INNER JOIN Sem_WartelisteSem_IT ON "
    "Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteSem_IT.SemWarteListeID  Where SemID = {SemID} AND "
    "TNID = {TNID} AND MDNr = {MDNr} AND ModID = {ModID})\r\n"
    "Begin\r\n"
    "Insert Into Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID, ErfDat, Herkunft) Values( "
    "@SemWartelisteID,{ModID},{MDNr},{TNID},getdate(),2)\r\n"
    "Insert Into Sem_WartelisteSem_IT (SemWarteListeID, SemID) Values (@SemWartelisteID, {SemID})\r\n"
    "End";

Int32 KindNumber(std::string_view kind) {
    if (kind == PersonKind::kEmployee) return PersonKind::kEmployeeID;
    if (kind == PersonKind::kApplicant) return PersonKind::kApplicantID;
    if (kind == PersonKind::kWorker) return PersonKind::kWorkerID;
    return 0;
}

}  // namespace

// A date of a seminar leads to the list of the seminar; only a date without one has a list of its own here.
void clsTeilnehmer::StornoTeilnehmerInWarteliste() try {
    const Int32 kind = KindNumber(objWBPerson()->PersGr());
    const Int32 person = TNID();
    const Int32 seminar = clsTermin()->SemID();
    ExecuteOrRaise(session_, seminar == 0 ? kToDate(row_.SemTerminID, person, row_.MDNr, kind)
                                          : kToSeminar(seminar, person, row_.MDNr, kind));
} catch (...) {
    RaiseLabelled("LumoSeminar.clsTeilnehmer.TeilnehmerInWarteliste");
}

}  // namespace LumoSeminar
