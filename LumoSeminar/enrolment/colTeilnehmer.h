#pragma once

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

class clsTeilnehmer;
class clsTermin;

/// The participants of one date, as they were when the list was read. The list costs one statement and one for each
/// participant. It holds at most one record that is not stored yet.
class colTeilnehmer final : public Object {
  public:
    ~colTeilnehmer() override;

    Int32 Count();

    /// By position from 1 or by key text; an empty reference for a key that is not there. Raises position out of
    /// range (9).
    Ref<clsTeilnehmer> Item(const Variant& p_vntIndexKey);

    Enumerator<clsTeilnehmer> NewEnum();

    /// Lists the participants of a date, in the order of the server. False where the connection is not open (nothing is
    /// kept) or the statement is refused. A second call adds to what is there, and raises 457 at the first key that is
    /// listed.
    /// @param p_strFilterString  a further condition: " AND ...", the blank included; a text that comes from people
    ///     stands in it as Quoted(text)
    [[nodiscard]] Bool Init(Int32 p_lngSemTerminID, const Ref<DataSession>& p_objData, const Text& p_strFilterString = {});

    /// Files an entry under another key, at the end: a record that was new gets its Key by
    /// ChangeKey("0000000000", record->Key()). No statement. Raises key not found (5), and 457.
    void ChangeKey(const Text& p_strOldKey, const Text& p_strNewKey);

    /// Makes a record of the date with that key (0: a new one), loads it and files it. On a closed connection it stays
    /// unbound and is filed as a new one. One statement, two where there is no such row. Raises 457 where the key is
    /// there already.
    Ref<clsTeilnehmer> Add(Int32 p_lngTeilnehmerID);

    /// The new record that waits in the list, otherwise one made as by Add(0).
    Ref<Object> AddEmptyObject();

    /// Deletes the row of an entry and takes the entry out of the list. One statement. False, and the entry stays,
    /// where it is refused. Raises 91 for a key that is not there.
    [[nodiscard]] Bool Remove(const Variant& p_vntIndexKey);

    /// Takes an entry out of the list; its row stays. True. Raises key not found (5), position out of range (9).
    Bool RemoveColOnly(const Variant& p_vntIndexKey);

  private:
    friend class clsTermin;

    Bool LoadKeysFromDatabase(const Text& p_strFilterString);
    /// Deletes the rows of all entries; one whose delete is refused stays. One statement an entry. True.
    Bool RemoveALL();
    Ref<clsTeilnehmer> NewRecord(Int32 key);

    Ref<DataSession> session_;
    Int32 p_lngSemTerminID_ = 0;
    Ref<Collection<clsTeilnehmer>> p_colItems = New<Collection<clsTeilnehmer>>();
};

}  // namespace LumoSeminar
