#pragma once

#include <string_view>

#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

class RecordSet;

/// One column of the current row.
class Field {
  public:
    /// The value in the current row; Null for a database NULL. Raises where there is no current row.
    Variant Value() const;

  private:
    friend class Fields;
    Field(RecordSet& rows, Int16 position) : rows_(&rows), position_(position) {}

    RecordSet* rows_;
    Int16 position_;
};

/// The columns of a row set, in the order of the select list.
class Fields {
  public:
    /// Position from 0. Raises 9 outside the select list.
    Field Item(Int16 position) const;

    /// By name, capitals not being told apart; the first of several columns of one name.
    /// Raises 5 for a name that is not there.
    Field Item(std::string_view name) const;

    Int16 Count() const;

    /// Name of a column, empty for an expression without one. Raises 9 outside the select list.
    Text Name(Int16 position) const;

  private:
    friend class RecordSet;
    explicit Fields(RecordSet& rows) : rows_(&rows) {}

    RecordSet* rows_;
};

/// Rows of a statement, read forward. It stands on the first row when it is handed out, and it stays readable
/// whatever is done with the session meanwhile. A field reads through the row set that it came from.
class RecordSet : public Object {
  public:
    /// True past the last row, and at once where there is no row.
    virtual Bool Eof() = 0;
    /// True in front of the first row: in a row set without rows.
    virtual Bool Bof() = 0;
    virtual void MoveNext() = 0;
    virtual void Close() = 0;

    LumoSeminar::Fields Fields() { return LumoSeminar::Fields(*this); }

  protected:
    friend class Field;
    friend class LumoSeminar::Fields;

    virtual Int16 ColumnCount() = 0;
    virtual Text ColumnName(Int16 position) = 0;
    /// -1 for a name that is not there.
    virtual Int16 ColumnPosition(std::string_view name) = 0;
    virtual Variant ColumnValue(Int16 position) = 0;
};

}  // namespace LumoSeminar
