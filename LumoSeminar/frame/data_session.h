#pragma once

#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/row_set.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

/// The open database connection behind a session.
class Connection : public Object {
  public:
    static constexpr Int32 kOpen = 1;
    static constexpr Int32 kNoOptions = -1;

    /// 1 while the connection is open, otherwise 0.
    virtual Int32 State() = 0;

    /// With empty texts: opens again with what the connection already holds. Raises where that fails.
    virtual void Open(const Text& connection_text = {}, const Text& user = {}, const Text& password = {},
                      Int32 options = kNoOptions) = 0;

    /// Runs a text and gives the rows of its first statement that yields any; a row set without columns where none
    /// does. Raises where the database refuses it.
    virtual Ref<RecordSet> Execute(const Text& sql, Int32 options = kNoOptions) = 0;
};

/// The one way to the database. A front end opens it, hands it to the objects and closes it; every object keeps a
/// reference. Calls that report `ok` return it; what the database refuses is `false` with a LastErrorText, never an
/// exception.
class DataSession : public Object {
  public:
    /// Opens the session.
    /// @param timeout seconds, for the login and for each statement
    [[nodiscard]] virtual Bool Connect(const Text& connection_text, const Text& user, const Text& password, Int32 timeout) = 0;

    virtual Ref<Connection> AdoConnection() = 0;

    /// The rows of the last OpenSelect, on the first row. Empty where that one was refused.
    virtual Ref<RecordSet> Recordset() = 0;

    /// Runs a text that yields rows.
    [[nodiscard]] virtual Bool OpenSelect(const Text& sql) = 0;

    /// Runs a text that yields no rows.
    [[nodiscard]] virtual Bool ExecuteSql(const Text& sql) = 0;

    /// The value of a column or an aggregate over a table, restricted by `where` (without that word) if it is not
    /// empty. Null where there is no row, where the value is Null and where the database refuses the lookup.
    virtual Variant LookupValue(const Text& expression, const Text& table, const Text& where) = 0;

    /// Why the last refused call was refused, also after calls that went well; empty before the first. One line.
    virtual Text LastErrorText() = 0;
};

}  // namespace LumoSeminar
