#pragma once

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/persistent_object.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

/// Focus areas: named subjects that seminars and dates are tied to. SchwerpunktID is everywhere the WBS_ID of the focus
/// area, WBS its name.
namespace LumoSeminar {

class clsTermin;
class colSemSchwerpunkte;

/// A row of Sem_Schwerpunkte_IT with the name of its focus area.
struct SemSchwerpunktRow {
    Int32 SemID = 0;
    Int32 SchwerpunktID = 0;
    Text WBS;
};

/// A focus area of a seminar. Made by the list of focus areas.
///
/// Every get but Key loads: one statement at the first, none after it. Where there is no such link, and without a
/// session, each get looks again and gives 0 or the empty text. A let stores and costs nothing.
///
/// WBS goes into the statement as it stands, and a single quote breaks it: let a name that comes from people as
/// Quoted(name).
class clsSemSchwerpunkt final : public PersistentObject<SemSchwerpunktRow> {
  public:
    explicit clsSemSchwerpunkt(MadeBy<colSemSchwerpunkte>);

    /// SchwerpunktID in ten digits: the key of the entry in a colSemSchwerpunkte. No load.
    Text Key();

    /// Key of the seminar.
    Int32 SemID();
    void SemID(Int32 value);
    Int32 SchwerpunktID();
    void SchwerpunktID(Int32 value);
    /// Name of the focus area. What is let before the first load of an existing link is overwritten by it.
    Text WBS();
    void WBS(Text value);

    /// Binds the object to a link and a session. No statement. False where the connection is not open: nothing is kept.
    /// Raises 91 for an empty session.
    [[nodiscard]] Bool Init(Int32 p_lngSchwerpunktID, Int32 p_lngSemID, const Ref<DataSession>& p_objData);

    /// Inserts the link, then the focus area: two statements, and none where the link has not been read before. True
    /// only where both were new, so under another SchwerpunktID than was read. A refused insert is false without an
    /// error, and a link that was inserted before it stays.
    [[nodiscard]] Bool WriteToDatabase();

  private:
    friend class colSemSchwerpunkte;

    /// Deletes the link; the focus area stays. One statement. False where the link has not been read before and where
    /// the statement is refused.
    Bool DeleteFromDatabase();

    Bool PropertiesInit() override;
    Bool InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset);
};

/// The focus areas of one seminar, in the order of the server. The list costs one statement; each entry reads its name
/// at the first get.
class colSemSchwerpunkte final : public Object {
  public:
    /// By position from 1 or by key text. Raises key not found (5), position out of range (9).
    Ref<clsSemSchwerpunkt> Item(const Variant& vntIndexKey);

    Int32 Count();

    /// Deletes the link of an entry and takes the entry out of the list. One statement. The entry stays where the
    /// statement is refused, and, without a statement, where it was never read. The result is always false: look at
    /// Count. Raises as Item does.
    Bool Remove(const Variant& p_vntIndexKey);

    Enumerator<clsSemSchwerpunkt> NewEnum();

    /// Makes an entry with the next free SchwerpunktID and without a name, and files it. One lookup; nothing is
    /// written. The entry has no session until its Init. Raises 457 where the key is listed already, so at a second Add
    /// with no new focus area in the database between.
    Ref<clsSemSchwerpunkt> Add();

    /// Lists the focus areas of a seminar. One statement. False where the connection is not open (nothing is kept) and
    /// where the statement is refused. A second call adds to what is there, and raises 457 at the first key that is
    /// listed.
    [[nodiscard]] Bool Init(Int32 p_lngSemID, const Ref<DataSession>& p_objData);

  private:
    Bool LoadKeysFromDatabase();

    Ref<DataSession> session_;
    Int32 p_lngSemID_ = 0;
    Ref<Collection<clsSemSchwerpunkt>> p_colItems = New<Collection<clsSemSchwerpunkt>>();
};

/// A row of Sem_Termin_Schwerpunkte_IT with the name of its focus area.
struct SemTerminSchwerpunktRow {
    Int32 SemTerminID = 0;
    Int32 SchwerpunktID = 0;
    Text WBS;
};

/// A focus area of a date. A new one is made by its name: Init with SchwerpunktID 0, let WBS, WriteToDatabase.
///
/// Gets and lets of WBS and the get of SchwerpunktID load: one statement at the first, none after it. A link that is
/// not there counts as read; its WBS is empty. Where the load is refused, a get gives 0 or the empty text and a let of
/// WBS stores nothing, silently; the next member tries again.
///
/// WBS goes into the statements as it stands, and a single quote breaks them: let a name that comes from people as
/// Quoted(name). It is then looked for, and stored, as it was written.
class clsSemTerminSchwerpunkt final : public PersistentObject<SemTerminSchwerpunktRow> {
  public:
    /// SchwerpunktID in ten digits: the key of the entry in a colSemTerminSchwerpunkte. No load.
    Text Key();

    /// Key of the date. No load.
    Int32 SemTerminID();
    void SemTerminID(Int32 value);
    /// The let does not load.
    Int32 SchwerpunktID();
    void SchwerpunktID(Int32 value);
    /// Name of the focus area. A let takes effect by WriteToDatabase, which looks for the name and renames nothing.
    Text WBS();
    void WBS(Text value);

    /// Binds the object to a link and a session. No statement. False where the connection is not open: nothing is kept.
    /// Raises 91 for an empty session, and type mismatch (13), invalid use of Null (94) and overflow (6) for a
    /// p_lngSchwerpunktID that is no number: the session is then kept.
    [[nodiscard]] Bool Init(const Variant& p_lngSchwerpunktID, Int32 p_lngSemTerminID, const Ref<DataSession>& p_objData);

    /// Ties the date to the focus area of this name, which is made where there is none. Where focus areas are kept per
    /// client, only those of the active client are looked at, and a new one is made visible to it. Two to ten
    /// statements, and the load.
    ///
    /// True where the link is there afterwards; where it is new, SchwerpunktID becomes that of the focus area. Where a
    /// new focus area cannot be inserted, the link is written all the same. False where the load or the insert of the
    /// link is refused. Raises 91 where the search for the name or for the link is refused (for a name with a single
    /// quote: nothing is written), and invalid use of Null (94) where there is no key for a new focus area; behind the
    /// label stands the session's LastErrorText.
    [[nodiscard]] Bool WriteToDatabase();

    /// Deletes the link; the focus area stays. One statement, and the load. False where either is refused.
    [[nodiscard]] Bool DeleteFromDatabase();

  private:
    Bool PropertiesInit() override;
    Bool InitPropertiesByRecordset(const Ref<RecordSet>& p_objRecordset);

    /// The focus areas of that name. Empty where the statement is refused.
    Ref<RecordSet> SelectByName();
    /// Inserts a focus area of that name and gives its key, also where the insert is refused.
    Int32 InsertFocusArea();
};

/// The focus areas of one date, in the order of the server. The list costs one statement; each entry reads its name at
/// the first get.
class colSemTerminSchwerpunkte final : public Object {
  public:
    /// By position from 1 or by key text. Raises key not found (5), position out of range (9).
    Ref<clsSemTerminSchwerpunkt> Item(const Variant& vntIndexKey);

    Int32 Count();

    /// Deletes the link of an entry and takes the entry out of the list. One statement, and the load of the entry. It
    /// stays where either is refused. The result is always false: look at Count. Raises as Item does.
    Bool Remove(const Variant& p_vntIndexKey);

    Enumerator<clsSemTerminSchwerpunkt> NewEnum();

    /// Files a focus area under its present Key: add a new one after its WriteToDatabase. No statement. The result is
    /// always false. Raises 457 where the key is there already.
    Bool Add(const Ref<clsSemTerminSchwerpunkt>& p_clsNewSemTerminSchwerpunkt);

    /// Lists the focus areas of a date. One statement. False where the connection is not open (nothing is kept) and
    /// where the statement is refused. A second call adds to what is there, and raises 457 at the first key that is
    /// listed.
    [[nodiscard]] Bool Init(Int32 p_lngSemTerminID, const Ref<DataSession>& p_objData);

  private:
    /// Empties the list of a date that is deleted.
    friend class clsTermin;

    Bool LoadKeysFromDatabase();

    /// Deletes the links of all entries, each as Remove does. An entry whose link cannot be deleted stays. True.
    Bool RemoveAll();

    Ref<DataSession> session_;
    Int32 p_lngSemTerminID_ = 0;
    Ref<Collection<clsSemTerminSchwerpunkt>> p_colItems = New<Collection<clsSemTerminSchwerpunkt>>();
};

}  // namespace LumoSeminar
