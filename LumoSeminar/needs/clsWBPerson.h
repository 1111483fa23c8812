#pragma once

#include <memory>

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/error_list.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

class clsSemWarteliste;
class clsTeilnehmer;
class clsTermin;
class colANWBBedarf;
class colSemWarteliste;

/// One person of any kind: an employee, an applicant, a temporary worker. Nothing is written about a person; a let
/// changes the object only.
///
/// The names and PersNr load: one statement at the first, none after it; a person without a row has empty texts and is
/// not looked for again. A refused load raises 9999. Lists are made at the first use and kept as they were then.
///
/// To be made by New: the person and its training history share their life. Whoever holds the person, the list or one
/// of the participants in it keeps all of them, and they go together.
class clsWBPerson final : public Object, public std::enable_shared_from_this<clsWBPerson> {
  public:
    ~clsWBPerson() override;

    /// Client number.
    Int32 MDNR();
    void MDNR(Int32 value);
    /// Key of the person in the table of its kind.
    Int32 PersonID();
    void PersonID(Int32 value);
    /// Kind of person: 2 employee, 3 applicant, 4 temporary worker.
    Byte ModId();
    void ModId(Byte value);
    Bool IsArbeitnehmer();
    Bool IsBewerber();
    Bool IsLeiharbeiter();
    Text Vorname();
    void Vorname(Text value);
    Text Nachname();
    void Nachname(Text value);
    /// Number of the person as a text.
    Text PersNr();
    void PersNr(Text value);
    /// Passed on to everything that the person handles; true at first.
    Bool DoSendInfos();
    void DoSendInfos(Bool value);

    /// Binds the object. No statement. The result is always false.
    /// @param p_objData  where it is empty, a new session is made, connected by the further arguments, and put into it;
    ///     whether it could connect shows at the first statement
    Bool Init(Int32 p_lngMDNr, Int32 p_lngPersonID, Byte p_bytModID, Ref<DataSession>& p_objData,
              const Text& p_strConn = {}, const Text& p_strUserName = {}, const Text& p_strPWD = {});
    /// With a new session, which the object keeps to itself.
    Bool Init(Int32 p_lngMDNr, Int32 p_lngPersonID, Byte p_bytModID);

    /// The enrolments of the person, clsTeilnehmer under their Key, the earliest first. One statement and one for each
    /// enrolment. Raises 9999 where the list is refused; after a failure the list stays as far as it came.
    Ref<Collection<clsTeilnehmer>> colWeiterbildungen();

    /// "AN", "BW" or, for any other kind, "LA". No statement.
    Text PersGr();

    /// The person's entries on wait-lists of dates. One statement. An employee's entries, whatever kind the person is.
    Ref<colSemWarteliste> colWarteliste();
    /// The person's entries on interest lists of seminars, likewise.
    Ref<colSemWarteliste> colInteressentenliste();
    /// The person's training needs, likewise.
    Ref<colANWBBedarf> colWBBedarf();

    /// Records a new training need, which opens its process, and gives its key. The list of needs stays as it is.
    /// Raises 9999 where a statement is refused.
    Int32 BedarfErfassen(Int32 p_lngWBS_ID, Int32 p_lngUserID);

    /// Consents for the person: an entry on the wait-list of the date gets its consent again; without one a new entry
    /// is made and its process opened. True where something was written, otherwise Empty.
    /// @param p_blnIsUsedBySylvar  whether the entry comes from elsewhere (Herkunft 4, otherwise 3)
    Variant TeilnahmeZustimmen(Int32 p_lngSemTerminID, Int32 p_lngUserID, Bool p_blnIsUsedBySylvar = true);

    /// Checks an enrolment in a date and gives the findings.
    /// @see clsTeilnehmer::CheckTeilnehmerAnmeldung
    [[nodiscard]] Ref<colErrorMsg> TeilnahmePruefen(Int32 p_lngSemTerminID, Bool p_blnCheckAnmeldungSeminar = true,
                                                    Bool p_blnCheckTeilnahme = true, Bool p_blnCheckVoraussetzung = true);

    /// Records the approval of that user. Once nothing is pending in the process (state 0), the person becomes a
    /// participant of the date, with costs; the entry stays. True where the approval was recorded and more is pending,
    /// and where the participant was written. False where there is no entry, where the person is a participant already,
    /// and where the write of the participant was refused; in the last two the approval is recorded all the same.
    [[nodiscard]] Bool TeilnahmeGenehmigen(Int32 p_lngSemTerminID, Int32 p_lngUserID, Bool p_blnIsUsedBySylvar = true);

    /// Connection text of the process objects, one for all objects of the thread.
    Text ConnectionString();
    void ConnectionString(Text value);

  private:
    Bool IsInitializedPerson();
    void LoadWeiterbildungenPerson();
    /// The oldest entry of the person on the wait-list of the date; empty without one.
    Ref<clsSemWarteliste> WaitingFor(Int32 date);
    Int32 GetKostAN(const Ref<clsTermin>& date);

    Int32 MDNR_ = 0;
    Int32 PersonID_ = 0;
    Byte ModId_ = 0;
    Text PersNr_;
    Ref<DataSession> session_;
    Text Vorname_;
    Text Nachname_;
    Ref<Collection<clsTeilnehmer>> colWeiterbildungen_;
    Ref<colSemWarteliste> colWarteliste_;
    Ref<colSemWarteliste> colInteressentenliste_;
    Ref<colANWBBedarf> colWBBedarf_;
    Bool p_blnInitialized;
    Bool DoSendInfos_ = true;
};

}  // namespace LumoSeminar
