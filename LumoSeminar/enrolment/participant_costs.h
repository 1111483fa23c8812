#pragma once

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/row_set.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

/// A row of Sem_Teilnehmer_Kosten_IT.
struct TeilnehmerKostenRow {
    Int32 TeilnehmerID = 0;
    Int32 KostenID = 0;
    Int32 KostenArtID = 0;
    Single Kostenbetrag = 0;
    Int32 Kost = 0;
};

/// One cost line of a participant.
///
/// The first get or let of KostenArtID, Kostenbetrag or Kost loads the row: one statement, none after it, and what is
/// let stays. A line without a row counts as loaded and keeps its fields as they are. Raises 9999 where the statement
/// is refused, and the line is then still to be loaded.
class clsTeilnehmerKosten final : public Object {
  public:
    ~clsTeilnehmerKosten() override;

    /// Key of the participant. No load.
    Int32 TeilnehmerID();
    void TeilnehmerID(Int32 value);
    /// Counts the lines of one participant; 0 for a line that is still to be written. No load.
    Int32 KostenID();
    void KostenID(Int32 value);
    /// Key of the cost type; 0 stands for none.
    Int32 KostenArtID();
    void KostenArtID(Int32 value);
    /// In the currency of the client.
    Single Kostenbetrag();
    void Kostenbetrag(Single value);
    /// The cost centre that pays; 0 for none.
    Int32 Kost();
    void Kost(Int32 value);

    /// Binds the object to a key and a session; an empty one is taken as well. No statement. What was loaded before
    /// stays loaded. The result is Empty.
    Variant Init(Int32 p_lngTeilnehmerID, Int32 p_lngKostenID, const Ref<DataSession>& p_objData);

    /// Updates the row of a line that has a KostenID: one statement, and the load. KostenArtID and Kostenbetrag 0 are
    /// written as NULL; a line without a row stays without one, and the result is true all the same.
    ///
    /// Inserts the row of a line without a KostenID and gives it the next one of its participant: two lookups and one
    /// statement. KostenArtID 0 goes into the row, not into the object, as the key of the cost type 'Teilnehmerkosten'.
    /// Where that type is missing it is made first, at the cost of a statement and a lookup more, with the largest key
    /// plus one; behind key 100 none is made, and invalid use of Null (94) is raised.
    ///
    /// Raises 9999 where a statement is refused; KostenID then stays 0.
    Bool WriteToDatabase();

    /// Deletes the row; a list that holds the line keeps it. One statement. True also where there is no row. Raises
    /// 9999 where it is refused.
    Bool DeleteFromDatabase();

  private:
    friend class colTeilnehmerKosten;

    Bool IsInitialized();
    void InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset);

    void Update();
    void Insert();

    Ref<DataSession> session_;
    TeilnehmerKostenRow row_;
    Bool p_blnInitialized;
};

/// The cost lines of one participant in the order of the server. They are loaded with the list, in one statement.
class colTeilnehmerKosten final : public Object {
  public:
    ~colTeilnehmerKosten() override;

    /// Makes a line of the participant, files it under its KostenID and returns it. No statement. A new line has the
    /// KostenID 0. Raises 457 where the key is there already: the entry of a new line stays filed under 0, also when
    /// WriteToDatabase has given it a KostenID.
    Ref<clsTeilnehmerKosten> Add(Int32 p_lngKostenID);

    /// By position from 1 or by the decimal text of KostenID; an empty reference for a key that is not there. Raises
    /// position out of range (9).
    Ref<clsTeilnehmerKosten> Item(const Variant& vntIndexKey);

    Int32 Count();

    /// Takes the entry out of the list; its row stays. Raises key not found (5), position out of range (9).
    void Remove(const Variant& vntIndexKey);

    Enumerator<clsTeilnehmerKosten> NewEnum();

    /// Lists and loads the lines of a participant. One statement. The result holds true. A second call adds to what is
    /// there, and raises 457 at the first KostenID that is listed. Raises 9999 where the statement is refused.
    Variant Init(Int32 p_lngTeilnehmerID, const Ref<DataSession>& p_objData);

  private:
    Bool LoadKeysFromDatabase();

    Ref<Collection<clsTeilnehmerKosten>> p_colItems = New<Collection<clsTeilnehmerKosten>>();
    Ref<DataSession> session_;
    Int32 p_lngTeilnehmerID_ = 0;
};

}  // namespace LumoSeminar
