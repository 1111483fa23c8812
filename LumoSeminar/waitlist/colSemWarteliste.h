#pragma once

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

class clsSemWarteliste;

/// Requests, first come first listed: the wait-list of a date, the interest list of a seminar, both lists of a person.
/// One statement fetches a list with all its entries.
///
/// Each loader adds to what is there, and raises 457 at the first entry that is listed already; 9999 where its
/// statement is refused; entries read before a failure stay. The result of a loader is Empty. The loaders for a person
/// look for employees (kind 2), whatever kind of person asks.
class colSemWarteliste final : public Object {
  public:
    ~colSemWarteliste() override;

    /// Makes an entry with the session of the last loader, files it and returns it. No statement. Raises 457 where the
    /// key is there already.
    Ref<clsSemWarteliste> Add(Int32 p_lngWartelisteID);

    /// By position from 1 or by the decimal text of the key. Raises key not found (5), position out of range (9).
    Ref<clsSemWarteliste> Item(const Variant& vntIndexKey);

    Int32 Count();

    /// Takes the entry out of the list; its row stays. Raises as Item does.
    void Remove(const Variant& vntIndexKey);

    Enumerator<clsSemWarteliste> NewEnum();

    /// All entries of all clients, unbound ones too.
    Variant LoadListComplete(const Ref<DataSession>& p_objData);
    /// All entries of an employee.
    Variant LoadListCompleteMA(const Ref<DataSession>& p_objData, Int32 p_lngMDNr, Int32 p_lngANNr);
    /// Those bound to a date.
    Variant LoadWartelisteMA(const Ref<DataSession>& p_objData, Int32 p_lngMDNr, Int32 p_lngANNr);
    /// Those bound to a seminar.
    Variant LoadInteressentenlisteMA(const Ref<DataSession>& p_objData, Int32 p_lngMDNr, Int32 p_lngANNr);
    /// The interest list of a seminar.
    Variant LoadListSeminar(const Ref<DataSession>& p_objData, Int32 p_lngSemID);
    /// The wait-list of a date.
    Variant LoadListSeminartermin(const Ref<DataSession>& p_objData, Int32 p_lngSemTerminID);

  private:
    void LoadList(const Text& where);

    Ref<Collection<clsSemWarteliste>> p_colItems = New<Collection<clsSemWarteliste>>();
    Ref<DataSession> session_;
};

}  // namespace LumoSeminar
