#pragma once

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

class clsSeminar;

/// The seminar catalogue of one client: its own seminars and those common to all clients, in the order of the server.
/// The list costs one statement; each entry reads its row at the first get of a property.
class colSeminare final : public Object {
  public:
    ~colSeminare() override;

    /// Files a seminar under its present Key and returns it. No statement. Raises 457 where the key is there already:
    /// add a new seminar after its WriteToDatabase.
    Ref<clsSeminar> Add(const Ref<clsSeminar>& p_objTempSeminar);

    /// Lists the catalogue of a client. One statement. False where the connection is not open (nothing is kept) or the
    /// statement is refused. A second call adds to what is there, and raises 457 at the first key that is listed.
    [[nodiscard]] Bool Init(Int32 p_lngMDNr, const Ref<DataSession>& p_objData);

    Int32 Count();

    /// By position from 1 or by key text. Raises key not found (5), position out of range (9).
    Ref<clsSeminar> Item(const Variant& p_vntIndexKey);

    Enumerator<clsSeminar> NewEnum();

    /// Deletes the row of an entry and takes the entry out of the list. Two statements, the first of them the list of
    /// its dates where that has not been read. The entry stays where it has dates, and, without a statement, where its
    /// row was never read. The result is always false: look at Count. Raises 9999 where the delete is refused.
    Bool Remove(const Variant& p_vntIndexKey);

  private:
    Bool LoadKeysFromDatabase();

    Ref<DataSession> session_;
    Int32 p_lngMDNr_ = 0;
    Ref<Collection<clsSeminar>> p_colItems = New<Collection<clsSeminar>>();
};

}  // namespace LumoSeminar
