#pragma once

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/row_set.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

/// A row of Sem_BudgetJahr_IT.
struct SemBudgetJahrRow {
    Int32 JahrID = 0;
    DateTime Von;
    DateTime Bis;
};

/// A budget year, which need not be that of the calendar. It is never written.
///
/// The first get or let of Von or Bis loads the row: one statement, none after it. A year without a row counts as
/// loaded, from 0 to 0. Raises 9999 where the statement is refused, and the year is then still to be loaded.
class clsSemBudgetJahr final : public Object {
  public:
    ~clsSemBudgetJahr() override;

    /// The key. No load.
    Int32 JahrID();
    void JahrID(Int32 value);
    /// The first moment of the year. A let changes the object only.
    DateTime Von();
    void Von(DateTime value);
    /// The last moment of the year: a day at midnight leaves out the rest of that day.
    DateTime Bis();
    void Bis(DateTime value);

    /// Binds the object to a key and a session; an empty one is taken as well. No statement. What was loaded before
    /// stays loaded. The result is Empty.
    Variant Init(Int32 p_lngJahrID, const Ref<DataSession>& p_objData);

  private:
    friend class colSemBudgetJahre;

    Bool IsInitialized();
    void InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset);

    Ref<DataSession> session_;
    SemBudgetJahrRow row_;
    Bool p_blnInitialized;
};

/// All budget years in the order of their beginnings. They are loaded with the list, in one statement.
class colSemBudgetJahre final : public Object {
  public:
    ~colSemBudgetJahre() override;

    /// The first year of the list that the moment lies in, both ends counted and the time of day with them; an empty
    /// reference where there is none. No statement. The ends are those of the objects: what was let counts.
    Ref<clsSemBudgetJahr> GetBudgetJahr(DateTime p_dtmDatum);

    /// Makes a year that is bound to the session of the list, and returns it. It is not filed. No statement.
    Ref<clsSemBudgetJahr> Add(Int32 p_lngJahrID);

    /// By position from 1 or by the decimal text of JahrID; an empty reference for a key that is not there. Raises
    /// position out of range (9).
    Ref<clsSemBudgetJahr> Item(const Variant& vntIndexKey);

    Int32 Count();

    /// Takes the entry out of the list. Raises key not found (5), position out of range (9).
    void Remove(const Variant& vntIndexKey);

    Enumerator<clsSemBudgetJahr> NewEnum();

    /// Lists and loads the years. One statement. The result always holds false: look at Count. A second call adds to
    /// what is there, and raises 457 at the first year that is listed. Raises 9999 where the statement is refused.
    Variant Init(const Ref<DataSession>& p_objData);

  private:
    Bool LoadKeysFromDatabase();

    Ref<Collection<clsSemBudgetJahr>> p_colItems = New<Collection<clsSemBudgetJahr>>();
    Ref<DataSession> session_;
};

}  // namespace LumoSeminar
