#pragma once

#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/persistent_object.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

class colTerminTage;

/// A row of Sem_Termin_Termine_IT.
struct TerminTagRow {
    DateTime EndUhr;
    DateTime Termin;
    DateTime BegUhr;
    Int32 SemTerminID = 0;
};

/// One day of a date with times of its own. Made by the list of days.
///
/// The gets of BegUhr and EndUhr load: one statement at the first, none after it; a row that is not there is looked for
/// again at each, and the times are 0. A let stores and costs nothing; what was let before the first load of an
/// existing row is overwritten by it.
class clsTerminTag final : public PersistentObject<TerminTagRow> {
  public:
    explicit clsTerminTag(MadeBy<colTerminTage>);
    ~clsTerminTag() override;

    /// SemTerminID in ten digits and the day as "yyyymmdd". No load.
    Text Key();

    /// Binds the object to a day of a date and a session. No statement. False with an empty session.
    Bool Init(DateTime p_dtmTermin, Int32 p_lngSemTerminID, const Ref<DataSession>& p_objData);

    /// Writes both times; a time of 0 as 00:00. One statement; a day without a row stays without one, and the result is
    /// true all the same. Raises 9999 where it is refused.
    Bool UpdateDatabase();

    /// Inserts the row. One statement. Raises 9999 where it is refused, also for a day that is already there.
    Bool WriteToDatabase();

    /// Deletes the row; a list that holds the day keeps it. One statement. Raises 9999 where it is refused.
    Bool RemoveTerminTag();

    /// Key of the date. No load.
    Int32 SemTerminID();
    void SemTerminID(Int32 value);
    /// The day. No load.
    DateTime Termin();
    void Termin(DateTime value);
    /// Time of day at which the day starts. Loads.
    DateTime BegUhr();
    void BegUhr(DateTime value);
    /// Time of day at which the day ends. Loads.
    DateTime EndUhr();
    void EndUhr(DateTime value);

  private:
    Bool DeleteFromDatabase();

    Bool PropertiesInit() override;
    Bool InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset);
};

}  // namespace LumoSeminar
