#pragma once

#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/money.h>
#include <LumoSeminar/frame/persistent_object.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

class clsSemZielInhalt;
class colSemSchwerpunkte;
class colSemWarteliste;
class colSemZielgruppen;
class colSeminare;
class colTermine;

/// A row of Sem_Katalog_IT.
struct SeminarRow {
    Int32 SemID = 0;
    Int32 MDNr = 0;
    Text SemCode;
    Text SemTitel;
    Int32 Sachbearbeiter = 0;
    Int32 Status = 0;
    Int32 InhaltZielID = 0;
    Int32 TeilnehmerMIN = 0;
    Int32 TeilnehmerMAX = 0;
    Int32 TeilnehmerOPT = 0;
    Double Stunden = 0;
    Int32 Sitzungen = 0;
    Int32 SerienID = 0;
    Money KostenProTN;
    Money Anzahlung;
    Money Stornokosten;
    Money Abbruchkosten;
    Int32 FristStorno = 0;
    Int32 FristAbbruch = 0;
    Int32 FristAnmeldung = 0;
    Int32 Wiederholung = 0;
};

/// One entry of the seminar catalogue with its planning defaults.
///
/// A get loads the row: one statement at the first get, none after it. Where there is no row, each get looks again
/// and gives 0 or the empty text. A let stores and costs nothing. In a number 0 means "not set".
///
/// SemCode and SemTitel go into the statements as they stand, and a single quote breaks them (9999): let texts that
/// come from people as Quoted(text), also those that were read and are written back.
class clsSeminar final : public PersistentObject<SeminarRow> {
  public:
    ~clsSeminar() override;

    /// SemID in ten digits: the key of the entry in a colSeminare. No load.
    Text Key();

    /// The dates of the seminar, listed at the first get (one statement, and the load) and kept. Empty for a seminar
    /// without a row.
    Ref<LumoSeminar::colTermine> colTermine();
    /// The focus areas of the seminar, likewise.
    Ref<LumoSeminar::colSemSchwerpunkte> colSemSchwerpunkte();
    /// The target groups of the seminar, likewise; one statement more for each of them.
    Ref<LumoSeminar::colSemZielgruppen> colSemZielgruppen();
    /// The interest list of the seminar, likewise. Raises 9999 where its statement is refused.
    Ref<colSemWarteliste> colInteressentenliste();

    /// Binds the object to a key (0: a new seminar) and a session. No statement. False with an empty session.
    Bool Init(Int32 p_lngSemID, const Ref<DataSession>& p_objData);

    /// Inserts the row; a seminar with SemID 0 gets the next free key first (one lookup). An empty SemTitel is
    /// written as "<neues Seminar>"; Status, Stunden and Sitzungen 0 as 1, 8 and 1; most other 0 as NULL.
    /// One statement. Raises 9999 where it is refused, also for a row that is already there; the key given to the
    /// object then stays.
    Bool WriteToDatabase();

    /// Writes all columns back. One statement; none and false where the row has not been read before.
    /// Raises 9999 where it is refused.
    [[nodiscard]] Bool UpdateDatabase();

    /// The key; 0 for a seminar that has no row yet. No load.
    Int32 SemID();
    /// Another key under the same fields: it does not make the object load again.
    void SemID(Int32 value);

    /// Client number; -1 marks a seminar common to all clients.
    Int32 MDNR();
    void MDNR(Int32 value);
    Text SemCode();
    void SemCode(Text value);
    Text SemTitel();
    void SemTitel(Text value);
    /// Key of the clerk in charge.
    Int32 Sachbearbeiter();
    void Sachbearbeiter(Int32 value);
    /// 1 for a new seminar.
    Int32 Status();
    void Status(Int32 value);
    /// Key of the goal and content text.
    Int32 InhaltZielID();
    void InhaltZielID(Int32 value);

    /// Goal and content, read at the first get (one statement) and kept. No load: asked for before any other property
    /// it is empty and stays so.
    Ref<clsSemZielInhalt> ZielInhalt();

    Int32 TeilnehmerMIN();
    void TeilnehmerMIN(Int32 value);
    Int32 TeilnehmerMAX();
    void TeilnehmerMAX(Int32 value);
    Int32 TeilnehmerOPT();
    void TeilnehmerOPT(Int32 value);
    /// Hours in total.
    Double Stunden();
    void Stunden(Double value);
    /// Number of sessions.
    Int32 Sitzungen();
    void Sitzungen(Int32 value);
    /// Key of the recurrence series.
    Int32 SerienID();
    void SerienID(Int32 value);
    Money KostenProTN();
    void KostenProTN(Money value);
    Money Anzahlung();
    void Anzahlung(Money value);
    Money StornoKosten();
    void StornoKosten(Money value);
    Money Abbruchkosten();
    void Abbruchkosten(Money value);
    /// Deadlines in days.
    Int32 FristStorno();
    void FristStorno(Int32 value);
    Int32 FristAbbruch();
    void FristAbbruch(Int32 value);
    Int32 FristAnmeldung();
    void FristAnmeldung(Int32 value);
    Int32 Wiederholung();
    void Wiederholung(Int32 value);

  private:
    friend class colSeminare;

    /// Deletes the row. One statement, and the list of dates where it has not been read yet. False where the row has
    /// not been read before and where the seminar has dates.
    Bool DeleteFromDatabase();

    Bool PropertiesInit() override;
    Bool InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset);

    Ref<LumoSeminar::colTermine> colTermine_;
    Ref<LumoSeminar::colSemSchwerpunkte> colSemSchwerpunkte_;
    Ref<LumoSeminar::colSemZielgruppen> colSemZielgruppen_;
    Ref<clsSemZielInhalt> ZielInhalt_;
    Ref<colSemWarteliste> colInteressentenliste_;
};

}  // namespace LumoSeminar
