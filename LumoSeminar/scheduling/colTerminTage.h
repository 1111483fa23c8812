#pragma once

#include <cstddef>
#include <vector>

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

class clsSerie;
class clsTermin;
class clsTerminTag;

/// The days of one date in calendar order, days added later behind them. It writes through: NewTerminTag inserts the
/// row, Remove deletes it.
class colTerminTage final : public Object {
  public:
    ~colTerminTage() override;

    /// Files a day under its present Key and returns it. No statement. Raises 457 where the key is there already.
    Ref<clsTerminTag> Add(const Ref<clsTerminTag>& p_objTempTerminTag);

    /// Lists the days of a date. One statement. False with an empty session. A second call adds to what is there.
    /// Raises 9999 where the statement is refused.
    Bool Init(Int32 p_lngSemTerminID, const Ref<DataSession>& p_objData);

    /// Key of the date: that of the days still to be made.
    Int32 SemTerminID();
    void SemTerminID(Int32 value);
    /// A value for the caller's own use.
    DateTime Termin();
    void Termin(DateTime value);

    /// By position from 1 or by key text; an empty reference for a key that is not there. Raises position out of
    /// range (9).
    Ref<clsTerminTag> Item(const Variant& vntIndexKey);

    Int32 Count();

    /// Deletes the row of an entry, then takes the entry out of the list. One statement. Raises key not found (5),
    /// position out of range (9), and 9999 where the delete is refused: the entry then stays.
    void Remove(const Variant& vntIndexKey);

    Enumerator<clsTerminTag> NewEnum();

    /// Inserts a day with its times and files it at the end. One statement. Raises 9999 where it is refused, also for a
    /// day that is already there: the list then stays as it was. A list of a date without a key inserts a row with
    /// SemTerminID 0. Without a session nothing happens.
    void NewTerminTag(DateTime p_dtmTermin, DateTime p_dtmBegUhr, DateTime p_dtmEndUhr);

  private:
    /// Generates days; one statement each.
    friend class clsTermin;

    Bool LoadKeysFromDataBase();

    /// A day that was listed becomes an object once somebody asks for it or for one behind it.
    void MakeNext();
    void MakeAll();
    /// Makes what it takes to find an entry.
    void MakeUpTo(const Variant& vntIndexKey);

    /// Daily rhythm, a number of sessions from a day on; gives the last day made, 0 where there is none.
    void AddTermineEvery(DateTime p_dtmStart, Byte p_bytTaeglich, DateTime p_dtmBegUhr, DateTime p_dtmEndUhr,
                         Int32 p_lngSitzungen, DateTime& p_dtmLetzterTag);
    /// Daily rhythm up to an end date, which gets a day in any case.
    void AddTermineEndeEvery(DateTime p_dtmStart, Byte p_bytTaeglich, DateTime p_dtmBegUhr, DateTime p_dtmEndUhr,
                             DateTime p_dtmEnde);
    /// Weekly rhythm, a number of sessions from a day on; gives the last day made, 0 where there is none.
    void AddTermineWeekly(DateTime p_dtmStart, DateTime p_dtmBegUhr, DateTime p_dtmEndUhr, Int32 p_lngSitzungen,
                          const Ref<clsSerie>& p_objSerie, DateTime& p_dtmLetzterTag);
    /// Weekly rhythm up to an end date, which gets a day in any case. Within a week the days end at the first weekday
    /// that is not flagged.
    void AddEndeTermineWeekly(DateTime p_dtmStart, DateTime p_dtmBegUhr, DateTime p_dtmEndUhr,
                              const Ref<clsSerie>& p_objSerie, DateTime p_dtmEnde);

    Ref<Collection<clsTerminTag>> p_colItems = New<Collection<clsTerminTag>>();
    Ref<DataSession> session_;
    Int32 SemTerminID_ = 0;
    DateTime Termin_;
    std::vector<DateTime> listed_;
    std::size_t made_ = 0;
    Int32 listed_for_ = 0;
};

}  // namespace LumoSeminar
