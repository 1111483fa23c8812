#pragma once

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

class clsANWBBedarf;

/// The training needs of one employee, in the order of the server. One statement fetches the list with all its entries.
class colANWBBedarf final : public Object {
  public:
    ~colANWBBedarf() override;

    /// Makes a need with the session of the loader, files it and returns it. No statement. Raises 457 where the key is
    /// there already.
    Ref<clsANWBBedarf> Add(Int32 p_lngWBID);

    /// By position from 1 or by the decimal text of the key. Raises key not found (5), position out of range (9).
    Ref<clsANWBBedarf> Item(const Variant& vntIndexKey);

    Int32 Count();

    /// Takes the entry out of the list; its row stays. Raises as Item does.
    void Remove(const Variant& vntIndexKey);

    Enumerator<clsANWBBedarf> NewEnum();

    /// Adds the needs of an employee. The result is Empty. Raises 457 at the first that is listed already, 9999 where
    /// the statement is refused; entries read before a failure stay.
    Variant LoadBedarfArbeitnehmer(const Ref<DataSession>& p_objData, Int32 p_lngMDNr, Int32 p_lngANNr);

  private:
    void LoadListe(const Text& where);

    Ref<Collection<clsANWBBedarf>> p_colItems = New<Collection<clsANWBBedarf>>();
    Ref<DataSession> session_;
};

}  // namespace LumoSeminar
