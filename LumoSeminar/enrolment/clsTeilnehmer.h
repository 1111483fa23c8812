#pragma once

#include <concepts>
#include <memory>

#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/error_list.h>
#include <LumoSeminar/frame/persistent_object.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

class clsTermin;
class clsWBPerson;
class colTeilnehmer;
class colTeilnehmerKosten;
class colTermine;

/// A row of Sem_Teilnehmer_IT.
struct TeilnehmerRow {
    Int32 TeilnehmerID = 0;
    Int32 SemTerminID = 0;
    Int32 MDNr = 0;
    Int32 ANNr = 0;
    Int32 BWID = 0;
    Int32 LAID = 0;
    DateTime ErfDatum;
    Text ErfUser;
    Int16 Teilnahme = 0;
    Int32 Herkunft = 0;
    DateTime BeginnDatum;
    DateTime BegUhrzeit;
    DateTime EndeDatum;
    DateTime EndUhrzeit;
    DateTime storniertam;
    Int32 StornoGrund = 0;
    Int16 StornoKosten = 0;
    Int32 Ergebnis = 0;
    Text Bemerkung;
};

/// One enrolment of one person in one date. Made by the list of participants of the date, or by the person for its
/// training history.
///
/// Nearly every member loads: one statement at the first, none after it. A row that is not there counts as read and
/// makes a new record, at the cost of a second statement, the load of its date: enrolled (Teilnahme -1), Herkunft 3,
/// Ergebnis 1, entered today by the user of the session defaults. A link to another object is made at the first use and
/// kept.
///
/// BEWARE: A REFUSED LOAD COUNTS AS READ, TOO, silently and until the next Init. The record then stands with zeroes and
/// empty texts (Teilnahme 0: cancelled, MDNR 0), and WriteToDatabase writes them over the row that could not be read.
/// Look at MDNR before an existing record is written: 0 tells it.
///
/// ErfUser and Bemerkung go into the statements as they stand, and a single quote breaks them: the write is false. Let
/// texts that come from people as Quoted(text), also those that were read and are written back.
///
/// The first of ANNr, BWID and LAID that is not 0 says who the person is: an employee, an applicant, a temporary worker.
class clsTeilnehmer final : public PersistentObject<TeilnehmerRow> {
  public:
    explicit clsTeilnehmer(MadeBy<colTeilnehmer>);
    explicit clsTeilnehmer(MadeBy<clsWBPerson>);
    ~clsTeilnehmer() override;

    /// The dates of the person. One statement, and those that tell who it is.
    Ref<LumoSeminar::colTermine> colTermine();
    /// The date of the enrolment.
    Ref<LumoSeminar::clsTermin> clsTermin();
    /// The cost lines. One statement.
    Ref<colTeilnehmerKosten> objKosten();
    void objKosten(Ref<colTeilnehmerKosten> value);

    /// TeilnehmerID in ten digits: the key of the entry in a colTeilnehmer. No load.
    Text Key();

    /// A mark of the callers; true at first. No load.
    Bool DoSendInfos();
    void DoSendInfos(Bool value);

    /// Binds the record to a key (0: a new record) and a session. False, and nothing is kept, where the connection is
    /// not open. No statement; with a date one, because it loads.
    /// @param p_lngSemTerminID  the date; 0: the one of the row
    [[nodiscard]] Bool Init(Int32 p_lngTeilnehmerID, const Ref<DataSession>& p_objData, Int32 p_lngSemTerminID = 0);

    /// Updates the row, or inserts it where the key is not above 0. Days and times that are 0 are taken from the date
    /// first, into the record, too. Then each cost line is written. One statement, and the loads of the record and its
    /// date.
    ///
    /// False, without an error, where the statement is refused, and only there: a refused load is no reason, the zeroes
    /// that it leaves are written. Costs raise 9999.
    ///
    /// An insert makes the largest key of the table plus one. A record with key 0 then takes the largest key that it
    /// finds (one lookup more); one with a negative key keeps that, and its new cost lines go there.
    [[nodiscard]] Bool WriteToDatabase(Int32 p_lngUserID);

    /// Deletes the row; cost lines stay. One statement; false where it is refused.
    [[nodiscard]] Bool DeleteFromDatabase();

    /// The key; 0 for a record that has no row yet. The let does not load.
    Int32 TeilnehmerID();
    void TeilnehmerID(Int32 value);
    Int32 SemTerminID();
    void SemTerminID(Int32 value);
    /// Client number.
    Int32 MDNR();
    void MDNR(Int32 value);
    /// Key of the person in the table of its kind.
    Int32 TNID();
    void TNID(Int32 value);
    /// Day of entry.
    DateTime ErfDatum();
    void ErfDatum(DateTime value);
    /// User who entered it.
    Text ErfUser();
    void ErfUser(Text value);
    /// -1 enrolled, 0 cancelled; anything else mostly counts as enrolled. True is let as -1.
    Int16 Teilnahme();
    void Teilnahme(Int16 value);
    void Teilnahme(TruthValue auto value) { Teilnahme(Bool(value).Number()); }
    /// How it came about: 3 enrolled by hand or approved, 4 approved from elsewhere, 5 from the wait-list.
    Int32 Herkunft();
    void Herkunft(Int32 value);
    /// First day of attendance; 0: that of the date.
    DateTime BeginnDatum();
    void BeginnDatum(DateTime value);
    /// Last day of attendance; 0: that of the date.
    DateTime EndeDatum();
    void EndeDatum(DateTime value);
    /// Times of day; 0: those of the date.
    DateTime BegUhrzeit();
    void BegUhrzeit(DateTime value);
    DateTime EndUhrzeit();
    void EndUhrzeit(DateTime value);
    /// Day of cancellation; 0: none. Once stored, a 0 is stored as the day 30.12.1899.
    DateTime storniertam();
    void storniertam(DateTime value);
    /// Code of the reason for cancelling; 0: none.
    Int32 StornoGrund();
    void StornoGrund(Int32 value);
    /// What a cancelled enrolment costs, in whole ones.
    Int16 StornoKosten();
    void StornoKosten(Int16 value);
    template <std::floating_point T>
    void StornoKosten(T value) = delete;  // say StornoKosten(To<Int16>(value)): it rounds
    /// Code of the result; 1 at first.
    Int32 Ergebnis();
    void Ergebnis(Int32 value);
    Text Bemerkung();
    void Bemerkung(Text value);

    /// Names of the person; a let changes the person in memory only.
    Text Name();
    void Name(Text value);
    Text Vorname();
    void Vorname(Text value);
    /// Number of the employee; 0: another kind of person.
    Int32 ANNr();
    void ANNr(Int32 value);
    /// Key of the applicant; 0: another kind of person.
    Int32 BWID();
    void BWID(Int32 value);
    /// Client and person in one text: 7M123. The let takes the client from before the M and an employee's number from
    /// behind it, whatever the kind of person. Raises type mismatch (13) for any other text, overflow (6).
    Text MDPersNr();
    void MDPersNr(const Text& value);
    /// Cost centre of the first cost line; 0 without one. The let sets it on all lines and adds one where there is none.
    Int32 Kost();
    void Kost(Int32 value);
    /// Key of the temporary worker; 0: another kind of person. The let does not load.
    Int32 LAID();
    void LAID(Int32 value);
    /// "Name, Vorname"; empty without either.
    Text NameVorname();
    /// Kind of person: "AN", "BW" or "LA".
    Text PersGr();
    /// Number of the person as a text.
    Text PersNr();
    void PersNr(Text value);
    /// A mark for a cancellation in progress, false after each load, not stored. The get does not load.
    Bool NewStorno();
    void NewStorno(Bool value);

    /// Puts the person on the interest list of the seminar; where the date has no seminar, on the wait-list of the
    /// date. The record stays as it is. One statement, which does nothing where there is such an entry already; and
    /// those that tell who the person is and which seminar it is. Raises 9999 where it is refused.
    void StornoTeilnehmerInWarteliste();

    /// The person.
    Ref<clsWBPerson> objWBPerson();
    void objWBPerson(Ref<clsWBPerson> value);

    /// What the enrolment costs: the sum of the cost lines, or StornoKosten once it is cancelled. The let goes to the only
    /// cost line, which it adds where there is none, or to StornoKosten, rounded; with several lines it does nothing.
    Single TeilnehmerKosten();
    void TeilnehmerKosten(Single value);

    /// Runs the checks of an enrolment and lists what speaks against it in colErrorsAnmeldung; true where there is
    /// nothing. A refused statement finds nothing. Two statements, one for each of the first two options, up to four
    /// for the third; and those that tell who the person is and which seminar it is.
    /// @param p_blnCheckAnmeldungSeminar  is the person enrolled in an open date of the seminar?
    /// @param p_blnCheckTeilnahme  has the person taken the seminar before?
    /// @param p_blnCheckVoraussetzung  is a prerequisite missing?
    [[nodiscard]] Bool CheckTeilnehmerAnmeldung(Bool p_blnCheckAnmeldungSeminar = true, Bool p_blnCheckTeilnahme = true,
                                                Bool p_blnCheckVoraussetzung = true);
    /// The findings of the last run, a new list each; empty before the first.
    Ref<colErrorMsg> colErrorsAnmeldung();

  private:
    friend class clsWBPerson;

    Bool PropertiesInit() override;
    Bool InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset);
    void FillGapsFromDate();

    Bool CheckAnmeldungSeminar();
    Bool CheckAnmeldungStorno();
    Bool CheckZeitraum();
    Bool CheckTeilnahme();
    Bool CheckVoraussetzung();
    /// Whether the skills are looked at after the required seminars.
    bool CheckRequiredSeminars();
    void CheckRequiredSkills();
    /// The condition for the person, by its kind; the applicant is the one with that key.
    Text PersonFilter(Int32 applicant);
    void AddFindings(Int32 error_id, const Ref<RecordSet>& rows);

    Bool NewStorno_;
    Ref<LumoSeminar::colTermine> colTermine_;
    Ref<LumoSeminar::clsTermin> clsTermin_;
    Ref<colTeilnehmerKosten> objKosten_;
    Bool p_blnInfoPending_;
    Bool DoSendInfos_ = true;
    Ref<clsWBPerson> objWBPerson_;
    /// The person whose training history the record belongs to. That one holds the record.
    std::weak_ptr<clsWBPerson> owner_;
    Ref<colErrorMsg> colErrorsAnmeldung_;
};

}  // namespace LumoSeminar
