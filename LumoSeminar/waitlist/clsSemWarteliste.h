#pragma once

#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/error_list.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

class clsTermin;
class colSemWarteliste;

/// A row of Sem_Warteliste_IT with its bindings.
struct WartelisteRow {
    Int32 SemWarteListeID = 0;
    Int16 ModID = 0;
    Int32 MDNr = 0;
    Int32 TNID = 0;
    DateTime ErfDat;
    Int16 Herkunft = 0;
    DateTime Wunschtermin;
    Byte Status = 0;
    DateTime GeaendertAm;
    Text GeaendertVon;
    Int32 SemID = 0;
    Int32 SemTerminID = 0;
};

/// One request of one person: bound to a date an entry of its wait-list, bound to a seminar an entry of its interest
/// list.
///
/// The properties load, lets included: one statement at the first, none after it; an entry without a row has empty
/// values and is not looked for again. A refused load raises 9999. An entry that its list has filled is loaded; one
/// that was only bound by Init reads Status, GeaendertAm and GeaendertVon from the column before: as its SemID
/// (overflow (6) above 255), as the day that the stored status counts, and as the text of the change moment.
class clsSemWarteliste final : public Object {
  public:
    ~clsSemWarteliste() override;

    /// The date, made at the first get from the SemTerminID that the object then holds, and kept. No load.
    Ref<clsTermin> objSemTermin();

    /// SemWartelisteID as decimal text: the key of the entry in a colSemWarteliste. No load.
    Text Key();

    /// The key; 0 for an entry that has no row yet. No load.
    Int32 SemWartelisteID();
    void SemWartelisteID(Int32 value);
    /// Kind of person: 2 employee, 3 applicant, 4 temporary worker.
    Int16 ModId();
    void ModId(Int16 value);
    /// Client number.
    Int32 MDNR();
    void MDNR(Int32 value);
    /// Number of the person within its kind.
    Int32 TNID();
    void TNID(Int32 value);
    /// Moment at which the entry was made.
    DateTime ErfDat();
    void ErfDat(DateTime value);
    /// Where it came from: 1 a training need, 2 a cancelled participant, 3 and 4 a consent.
    Int16 Herkunft();
    void Herkunft(Int16 value);
    /// The day that the person wishes; 0: none.
    DateTime Wunschtermin();
    void Wunschtermin(DateTime value);
    /// The seminar; 0: none.
    Int32 SemID();
    void SemID(Int32 value);
    /// The date; 0: none.
    Int32 SemTerminID();
    void SemTerminID(Int32 value);
    /// 1: the consent stands. 0: it was withdrawn.
    Byte Status();
    void Status(Byte value);
    /// Moment of the last write.
    DateTime GeaendertAm();
    void GeaendertAm(DateTime value);
    /// Login of the last writer. WriteToDatabase sets it; what is let never gets into a statement.
    Text GeaendertVon();
    void GeaendertVon(const Text& value);
    /// Whether the entry stays once it was approved by TeilnahmeGenehmigen; true at first. No load.
    Bool DoSendInfos();
    void DoSendInfos(Bool value);

    /// Binds the object to a key (0: a new entry) and a session. No statement. The result is always false.
    Bool Init(Int32 p_lngSemWartelisteID, const Ref<DataSession>& p_objData);

    /// Writes the entry as it stands in the object, without a load. An entry with a key is updated: Wunschtermin, Status
    /// and the last change. One with key 0 is inserted with the next free key, Status 1 and the present moment, then bound
    /// to its date, or else to its seminar. False, and nothing is written, for one with neither.
    /// One lookup and one statement; a new one two of each. Raises 9999 where a statement is refused.
    [[nodiscard]] Bool WriteToDatabase(Int32 p_lngUserID);

    /// Deletes the entry and its bindings. One statement. Raises 9999 where it is refused.
    Bool DeleteFromDatabase();

    /// Checks an enrolment in the date, without telling who the person is, and gives the findings.
    /// @see clsTeilnehmer::CheckTeilnehmerAnmeldung
    [[nodiscard]] Ref<colErrorMsg> TeilnahmePruefen(Bool p_blnCheckAnmeldungSeminar = true,
                                                    Bool p_blnCheckTeilnahme = true, Bool p_blnCheckVoraussetzung = true);

    /// Makes the person a participant of the date, with costs, without a process. False, and nothing is written, where
    /// it is one already; false where the write is refused. With DoSendInfos false the entry is deleted afterwards.
    [[nodiscard]] Bool TeilnahmeGenehmigen(Int32 p_lngUserID);

    /// Withdraws the consent: writes Status 0. No load: an entry that was not read loses its Wunschtermin. The result
    /// is Empty.
    Variant ZustimmungVerwerfen(Int32 p_lngUserID);

  private:
    friend class colSemWarteliste;

    Bool IsInitialized();
    void SetIsInitialized(Int16 value);
    void Insert();
    Int32 GetKostAN();

    Ref<DataSession> session_;
    WartelisteRow row_;
    Ref<clsTermin> objSemTermin_;
    Bool p_blnInitialized;
    Bool DoSendInfos_ = true;
};

}  // namespace LumoSeminar
