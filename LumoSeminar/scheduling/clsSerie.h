#pragma once

#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/persistent_object.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

/// A row of Sem_Serien_IT.
struct SerieRow {
    Int32 SerienID = 0;
    DateTime BeginnUhrzeit;
    DateTime EndeUhrzeit;
    Byte Tagefolge = 0;
    Byte taeglich = 0;
    Int32 Woche = 0;
    Int16 Mo = 0;
    Int16 Di = 0;
    Int16 Mi = 0;
    Int16 Do = 0;
    Int16 Fr = 0;
    Int16 Sa = 0;
    Int16 So = 0;
};

/// A recurrence rule: at what times, in which rhythm and on which weekdays the sessions of a date take place. Seminars
/// and dates may share one.
///
/// Only the gets of BeginnUhrzeit, EndeUhrzeit and Tagefolge load (one statement at the first, none after it; a row
/// that is not there is looked for again at each). Read one of them before Taeglich, Woche or a weekday, which give
/// what the object holds. A let stores and costs nothing.
class clsSerie final : public PersistentObject<SerieRow> {
  public:
    ~clsSerie() override;

    /// SerienID in ten digits. No load.
    Text Key();

    /// Binds the object to a key (0: a new series) and a session. No statement. False with an empty session.
    Bool Init(Int32 p_lngSerienID, const Ref<DataSession>& p_objData);

    /// Takes over everything but the key from another series, which may have to load for it.
    void UpdateProperty(const Ref<clsSerie>& p_objTempSerie);

    /// Inserts the row, always; a series with SerienID 0 gets the next free key first (one lookup). One statement.
    /// Raises 9999 where it is refused, also for a series that has a row already.
    Bool WriteToDatabase();

    /// Counts the seminars and dates that use a series and, where there is none, deletes the row of this object:
    /// call it on the series whose key it is given. Two statements, and the DELETE. A count that is refused is 0.
    /// Raises 9999 where the DELETE is refused.
    void DeleteOldSerie(Int32 p_lngOldSerienID);

    /// Deletes the row, in use or not. One statement. Raises 9999 where it is refused.
    Bool RemoveSerie();

    /// The key; 0 for a series that has no row yet. No load.
    Int32 SerienID();
    void SerienID(Int32 value);

    /// Time of day at which each session starts; 0 where the series has none. Loads.
    DateTime BeginnUhrzeit();
    void BeginnUhrzeit(DateTime value);
    /// Time of day at which each session ends; 0 where the series has none. Loads.
    DateTime EndeUhrzeit();
    void EndeUhrzeit(DateTime value);
    /// 1: the daily rhythm. Anything else: the weekly one. Loads.
    Byte Tagefolge();
    void Tagefolge(Byte value);

    /// In the daily rhythm, 1: every day; anything else: Monday to Friday. No load, nor below.
    Byte Taeglich();
    void Taeglich(Byte value);
    /// In the weekly rhythm: every how many weeks.
    Int32 Woche();
    void Woche(Int32 value);
    /// In the weekly rhythm: -1 where there are sessions on that weekday. Any other number counts as none; true is let
    /// as -1.
    Int16 Montag();
    void Montag(Int16 value);
    void Montag(TruthValue auto value) { Montag(Bool(value).Number()); }
    Int16 Dienstag();
    void Dienstag(Int16 value);
    void Dienstag(TruthValue auto value) { Dienstag(Bool(value).Number()); }
    Int16 Mittwoch();
    void Mittwoch(Int16 value);
    void Mittwoch(TruthValue auto value) { Mittwoch(Bool(value).Number()); }
    Int16 Donnerstag();
    void Donnerstag(Int16 value);
    void Donnerstag(TruthValue auto value) { Donnerstag(Bool(value).Number()); }
    Int16 Freitag();
    void Freitag(Int16 value);
    void Freitag(TruthValue auto value) { Freitag(Bool(value).Number()); }
    Int16 Samstag();
    void Samstag(Int16 value);
    void Samstag(TruthValue auto value) { Samstag(Bool(value).Number()); }
    Int16 Sonntag();
    void Sonntag(Int16 value);
    void Sonntag(TruthValue auto value) { Sonntag(Bool(value).Number()); }

  private:
    Bool DeleteFromDatabase();

    Bool PropertiesInit() override;
    Bool InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset);
};

}  // namespace LumoSeminar
