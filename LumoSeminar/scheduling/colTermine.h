#pragma once

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

class clsTermin;

/// Dates of a seminar, of a client or of a person, the latest end first; dates without an end stand as of today.
/// The list costs one statement, and EndeDatum, Titel and Code of its entries are read with it: ask for them with
/// `false`. Any other property of an entry costs one statement more and replaces those three.
class colTermine final : public Object {
  public:
    ~colTermine() override;

    /// Files a date under its present Key. No statement. The result is always false. Raises 457 where the key is there
    /// already.
    Bool Add(Ref<clsTermin>& p_clsTermin);

    /// Files an entry under another key, at the end. The result is Empty. Raises as Item of a Collection does.
    Variant ChangeKey(const Text& p_strOldKey, const Text& p_strNewKey);

    Int32 Count();

    /// By position from 1 or by key text; an empty reference for a key that is not there. Raises position out of
    /// range (9).
    Ref<clsTermin> Item(const Variant& vntIndexKey);

    /// Deletes a date as its DeleteFromDatabase does and takes the entry out of the list. False, and the entry stays,
    /// where the date says that it was not deleted. Raises 91 for a key that is not there.
    [[nodiscard]] Bool Remove(const Variant& p_vntIndexKey);

    /// What the dates of the list are grouped by in a tree: the latest year or month first, the budget periods by their
    /// text, the last one first, so that "9/2009 - 8/2010" stands before "10/2010 - 9/2011". One statement, or an empty
    /// reference where it is refused.
    /// @param p_lngGruppierungsart  1: the years in which they end (Jahr). 2: the months (JahrMonat, the first of the
    ///     month). 3: the budget periods (JahrMonat as a text, von, bis), without the dates that have no end or end on
    ///     the first or last day of a period. Anything else runs an empty statement.
    Ref<RecordSet> Gruppen(Int32 p_lngGruppierungsart);

    Enumerator<clsTermin> NewEnum();

    /// Lists the dates of a client, and those common to all clients, anew. One statement. False where the connection is
    /// not open (the list stays as it was) or the statement is refused.
    /// @param p_lngSemID  the seminar; -1: all
    /// @param p_strFilterString  a further condition: " AND ...", the blank included; a text that comes from people
    ///     stands in it as Quoted(text)
    /// @param p_blnFromTeilnehmer  whether the participants are joined, for a filter on their columns. The columns of the
    ///     statement are not qualified: a database where both tables have them refuses it. A filter that finds two
    ///     participants of one date raises 457.
    [[nodiscard]] Bool Init(Int32 p_lngSemID, Int32 p_lngMDNr, const Ref<DataSession>& p_objData,
                            const Text& p_strFilterString = {}, Bool p_blnFromTeilnehmer = false);

  private:
    Bool LoadKeysFromDatabase();
    /// The conditions of all statements, with their WHERE.
    Text Conditions() const;

    Ref<DataSession> session_;
    Int32 p_lngSemID_ = 0;
    Int32 p_lngMDNr_ = 0;
    Text p_strFilterString_;
    Bool p_blnFromTeilnehmer_;
    Ref<Collection<clsTermin>> p_colItems = New<Collection<clsTermin>>();
};

}  // namespace LumoSeminar
