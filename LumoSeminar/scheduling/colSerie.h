#pragma once

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

class clsSerie;

/// A list of recurrence series, filled by Add: Init does not load a fresh list.
class colSerie final : public Object {
  public:
    ~colSerie() override;

    /// Files a series under its present Key and returns it. No statement. Raises 457 where the key is there already.
    Ref<clsSerie> Add(const Ref<clsSerie>& p_objTempSerie);

    /// Lists all series where the list holds a session already, which no call gives it: on every list the result is
    /// false, and nothing is kept. No statement.
    Bool Init(const Ref<DataSession>& p_objData);

    /// By position from 1 or by key text. Raises key not found (5), position out of range (9).
    Ref<clsSerie> Item(const Variant& vntIndexKey);

    Int32 Count();

    /// Takes the entry out of the list; its row stays. Raises as Item does.
    void Remove(const Variant& vntIndexKey);

    Enumerator<clsSerie> NewEnum();

  private:
    Bool LoadKeysFromDataBase();

    Ref<Collection<clsSerie>> p_colItems = New<Collection<clsSerie>>();
    Ref<DataSession> session_;
};

}  // namespace LumoSeminar
