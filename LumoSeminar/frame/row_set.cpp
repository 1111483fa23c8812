#include <LumoSeminar/frame/row_set.h>

#include <string>

namespace LumoSeminar {
namespace {

void CheckPosition(Int16 position, Int16 count) {
    if (position >= 0 && position < count) return;
    Raise(ErrorNumber::kPositionOutOfRange, "There is no field at position " + std::to_string(position) + " of the row set.");
}

}  // namespace

Variant Field::Value() const { return rows_->ColumnValue(position_); }

Field Fields::Item(Int16 position) const {
    CheckPosition(position, rows_->ColumnCount());
    return {*rows_, position};
}

Field Fields::Item(std::string_view name) const {
    const Int16 position = rows_->ColumnPosition(name);
    if (position < 0) Raise(ErrorNumber::kKeyNotFound, "There is no field " + OneLine(name) + " in the row set.");
    return {*rows_, position};
}

Int16 Fields::Count() const { return rows_->ColumnCount(); }

Text Fields::Name(Int16 position) const {
    CheckPosition(position, rows_->ColumnCount());
    return rows_->ColumnName(position);
}

}  // namespace LumoSeminar
