#pragma once

#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/money.h>
#include <LumoSeminar/frame/persistent_object.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

class clsSeminar;
class clsSerie;
class clsTerminVeranstalter;
class clsTerminVeranstaltungsOrt;
class colSemTerminSchwerpunkte;
class colSemWarteliste;
class colTeilnehmer;
class colTerminTage;

/// A row of Sem_Termin_IT.
struct TerminRow {
    Int32 SemTerminID = 0;
    Int32 MDNr = 0;
    Byte Status = 0;
    Text Code;
    Text Titel;
    Int32 SemID = 0;
    Int32 InhaltZielID = 0;
    Int16 SelfService = 0;
    Int32 Sachbearbeiter = 0;
    DateTime BeginnDatum;
    DateTime EndeDatum;
    DateTime BeginnUhrzeit;
    DateTime EndeUhrzeit;
    Int32 MinTeil = 0;
    Int32 MaxTeil = 0;
    Int32 OptTeil = 0;
    Double Stunden = 0;
    Int32 Sitzungen = 0;
    Int32 SerienID = 0;
    Money KostenProTN;
    DateTime StornoDatum;
    Money StornoKosten;
    DateTime AbbruchDatum;
    Money AbbruchKosten;
    DateTime AnmeldefristDatum;
    Int32 BeurteilungID = 0;
    Int32 VeranstalterID = 0;
    Int32 VeranstaltungsOrtID = 0;
    Text Bemerkung;
};

/// A scheduled date of a seminar: its calendar, limits, costs, organiser and venue.
///
/// Nearly every member loads: one statement at the first, none after it. A row that is not there counts as read and
/// reads as a new date (Status 2, Stunden 8, Sitzungen 1, all else 0 or empty). Lets load, too, so what is let stays.
/// Where the load is refused, a get gives 0 or the empty text and a let stores nothing, silently; the next member tries
/// again. In a number or a day 0 means "not set".
///
/// The lets of BeginnDatum and EndeDatum write the days of the date at once, each day in a statement of its own; all
/// other fields wait for WriteToDatabase.
///
/// Code, Titel and Bemerkung go into the statements as they stand, and a single quote breaks them (9999): let texts
/// that come from people as Quoted(text), also those that were read and are written back.
class clsTermin final : public PersistentObject<TerminRow> {
  public:
    ~clsTermin() override;

    /// The participants, listed at the first get and kept: one statement and one for each, with the load. Empty where
    /// the load is refused.
    Ref<colTeilnehmer> clscolTeilnehmer();
    /// The focus areas, listed at the first get and kept: one statement, with the load. Empty where the load is refused.
    Ref<colSemTerminSchwerpunkte> clscolSemTerminSchwerpunkte();
    /// The days. A new list at each read: one statement. Keep the list to walk it twice.
    Ref<LumoSeminar::colTerminTage> colTerminTage();
    /// The wait-list, listed at the first get and kept: one statement. No load.
    Ref<colSemWarteliste> colWarteliste();
    /// The series, kept until SerienID changes; never empty. Load.
    Ref<clsSerie> objSerie();
    /// The seminar, kept until SemID changes; empty while SemID is 0. No load.
    Ref<clsSeminar> objSeminar();
    /// The organiser, kept as first read: two statements, with the load. Empty where the load is refused.
    Ref<clsTerminVeranstalter> Veranstalter();
    /// The venue, likewise.
    Ref<clsTerminVeranstaltungsOrt> VeranstaltungsOrt();

    /// Binds the object to a key (0: a new date) and a session. No statement. True also with an empty session: the
    /// first load then raises 91.
    Bool Init(Int32 p_lngSemTerminID, const Ref<DataSession>& p_objData);

    /// Mail address of the clerk in charge; empty where there is none and where the statement is refused. One statement
    /// each time, and no load: on a date not read yet it is asked for clerk 0.
    Text SachbearbeiterEmail();

    /// The key; 0 for a date that has no row yet. Loads, as everything below where nothing else is said.
    Int32 SemTerminID();
    void SemTerminID(Int32 value);
    /// Client number; -1 marks a date common to all clients.
    Int32 MDNR();
    void MDNR(Int32 value);
    /// 1 Aktiv, 2 Anmeldung, 3 Storniert, 4 Abgeschlossen.
    Byte Status();
    void Status(Byte value);
    /// Loads only where the argument is true. So does the let.
    Text Code(Bool p_blnLoadfromDatabase = true);
    void Code(Text value, Bool p_blnLoadfromDatabase = true);
    Text Titel(Bool p_blnLoadfromDatabase = true);
    void Titel(Text value, Bool p_blnLoadfromDatabase = true);
    /// Key of the seminar. On a date with key 0 the let of a seminar copies its client, title, goal and content, clerk,
    /// limits, hours, sessions, series and costs (one statement more); its days stay as they are. A seminar without a
    /// row, or one whose load is refused, is looked for at each of these eleven: eleven statements, and all of them are
    /// 0 or empty afterwards, Stunden and Sitzungen as well.
    Int32 SemID();
    void SemID(Int32 value);
    /// Key of the goal and content text.
    Int32 InhaltZielID();
    void InhaltZielID(Int32 value);
    /// -1 where employees may put themselves down. True is let as -1.
    Int16 SelfService();
    void SelfService(Int16 value);
    void SelfService(TruthValue auto value) { SelfService(Bool(value).Number()); }
    /// Key of the clerk in charge.
    Int32 Sachbearbeiter();
    void Sachbearbeiter(Int32 value);

    /// First day. A let of another day than before deletes all days of the date and generates them anew: by the series,
    /// or one a day, as many as Sitzungen; EndeDatum becomes the last of them. Times that are 0 are set: 09:00, and the
    /// hours spread evenly; a date with a series takes the times of the series over afterwards.
    /// Raises 9999 where a day is refused (the days before it are written), and overflow (6) where the series finds no
    /// day, or none before the end of the calendar, so also for a SerienID without a row: the text names it.
    DateTime BeginnDatum();
    void BeginnDatum(DateTime value);
    /// Last day. A let of a later day adds days by the series, a let of an earlier one deletes the days behind it;
    /// EndeDatum becomes the last day that is left. Raises 9999 where a day is refused, and position out of range (9)
    /// where there is no day to go on from, or none is left.
    /// The argument as with Code.
    DateTime EndeDatum(Bool p_blnLoadfromDatabase = true);
    void EndeDatum(DateTime value, Bool p_blnLoadfromDatabase = true);

    /// Time of day.
    DateTime BeginnUhrzeit();
    void BeginnUhrzeit(DateTime value);
    DateTime EndeUhrzeit();
    void EndeUhrzeit(DateTime value);
    /// Least, most and best number of participants.
    Int32 MinTeil();
    void MinTeil(Int32 value);
    Int32 MaxTeil();
    void MaxTeil(Int32 value);
    Int32 OptTeil();
    void OptTeil(Int32 value);
    /// Hours in total.
    Double Stunden();
    void Stunden(Double value);
    /// Number of sessions. The let does not load: let before the first load it is lost.
    Int32 Sitzungen();
    void Sitzungen(Int32 value);
    /// Key of the recurrence series. The row of the former series stays.
    Int32 SerienID();
    void SerienID(Int32 value);
    Money KostenProTN();
    void KostenProTN(Money value);
    /// Until when participants may withdraw, and what it costs behind that day.
    DateTime StornoDatum();
    void StornoDatum(DateTime value);
    Money StornoKosten();
    void StornoKosten(Money value);
    /// Until when the date may be called off, and what it costs behind that day.
    DateTime AbbruchDatum();
    void AbbruchDatum(DateTime value);
    Money Abbruchkosten();
    void Abbruchkosten(Money value);
    DateTime AnmeldefristDatum();
    void AnmeldefristDatum(DateTime value);
    Int32 BeurteilungID();
    void BeurteilungID(Int32 value);
    Int32 VeranstalterID();
    void VeranstalterID(Int32 value);
    Int32 VeranstaltungsOrtID();
    void VeranstaltungsOrtID(Int32 value);
    Text Bemerkung();
    void Bemerkung(Text value);

    /// The Status in words; empty for a status without any.
    Text StatusBezLang();
    /// The Status in one or two letters.
    Text StatusBezKurz();

    /// SemTerminID in ten digits: the key of the entry in a colTermine. No load.
    Text Key();

    /// Writes the row. A date with a key is updated, then all its days take the times of the date (two statements, and
    /// one for each day). A date with key 0 is inserted and takes the largest key afterwards, both in one statement;
    /// days made before keep the key 0. False where the load is refused. Raises 9999 where the statement is refused.
    [[nodiscard]] Bool WriteToDatabase();

    /// Deletes the participants and focus areas, as far as they can be deleted, then the row, and the row of its series
    /// where nothing uses it any more. Days, cost lines and the wait-list stay. Three or four statements, the load,
    /// both lists, and two for each of their entries, which is read and deleted. False, and nothing more is done, where
    /// the load or the DELETE of the date is refused. Raises 9999 where that of the series is.
    [[nodiscard]] Bool DeleteFromDatabase();

    /// MaxTeil less AnzAnmeldungen: negative on an overbooked date. 0 where the load is refused. Raises overflow (6).
    Int16 AnzFreiePlaetze();
    /// The participants that are not cancelled, as clscolTeilnehmer was when this object first read it. 0 where the
    /// load is refused. Raises overflow (6).
    Int16 AnzAnmeldungen();

    /// Whether the lets of BeginnDatum and EndeDatum leave the days alone. False at first, not stored. No load.
    Bool NewDelOnlyTag();
    void NewDelOnlyTag(Bool value);

  private:
    Bool PropertiesInit() override;
    Bool InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset);

    /// For the properties that can be read and set without a load.
    template <class T>
    T GetOrPlain(T Row::*field, Bool load, std::string_view label);
    template <class T>
    void LetOrPlain(T Row::*field, std::type_identity_t<T> value, Bool load, std::string_view label);

    void TakeDefaultsOfSeminar();

    // Day generation.
    Bool ErzeugeTerminTage();
    void TerminTageUpdate();
    void RebuildDays();
    void BuildDaysWithoutSeries();
    void BuildDaysBySeries();
    void ExtendDays();
    void ShrinkDays();
    void CorrectEnd();
    DateTime EndOfSession() const;

    Int32 p_lngOldSerienID_ = 0;
    DateTime p_dtmOldBeginnDatum_;
    DateTime p_dtmOldEndeDatum_;
    Ref<colTeilnehmer> clscolTeilnehmer_;
    Ref<colSemTerminSchwerpunkte> clscolSemTerminSchwerpunkte_;
    Ref<clsSerie> objSerie_;
    Ref<LumoSeminar::colTerminTage> colTerminTage_;
    Ref<clsSeminar> objSeminar_;
    Ref<clsTerminVeranstalter> Veranstalter_;
    Ref<clsTerminVeranstaltungsOrt> VeranstaltungsOrt_;
    Ref<colSemWarteliste> colWarteliste_;
    Bool NewDelOnlyTag_;
};

}  // namespace LumoSeminar
