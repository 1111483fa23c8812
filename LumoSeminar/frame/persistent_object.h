#pragma once

#include <string_view>
#include <type_traits>
#include <utility>

#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/errors.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

/// One row of a table, bound to a session and read at the first get.
///
/// Init binds the object and reads nothing. The first get of a property costs one statement; a row that is not there
/// is looked for again at each get, and its properties are 0 or empty. A let only stores: what was let before the
/// first get of an existing row is overwritten by the load. So read a property, then let, then update.
template <class TableRow>
class PersistentObject : public Object {
  protected:
    using Row = TableRow;

    /// The load; true once the row has been read.
    virtual Bool PropertiesInit() = 0;

    /// Get of a property: loads, and gives the empty value of the type where there is no row.
    template <class T>
    T Get(T Row::*field, std::string_view label) try {
        return PropertiesInit() ? row_.*field : T{};
    } catch (...) {
        RaiseLabelled(label);
    }

    /// Get of a property that does not load.
    template <class T>
    T Plain(T Row::*field, std::string_view label) try {
        return row_.*field;
    } catch (...) {
        RaiseLabelled(label);
    }

    /// Let of a property: stores.
    template <class T>
    void Let(T Row::*field, std::type_identity_t<T> value, std::string_view label) try {
        row_.*field = std::move(value);
    } catch (...) {
        RaiseLabelled(label);
    }

    /// Let of a property that loads first: stores only where the row could be read.
    template <class T>
    void LoadAndLet(T Row::*field, std::type_identity_t<T> value, std::string_view label) try {
        if (PropertiesInit()) row_.*field = std::move(value);
    } catch (...) {
        RaiseLabelled(label);
    }

    Ref<DataSession> session_;
    Row row_;
    Bool p_blnInitialized;
};

}  // namespace LumoSeminar
