#include <LumoConnection/stored_rows.h>

#include <algorithm>
#include <type_traits>

#include <LumoConnection/ascii.h>

namespace LumoConnection {
void StoredRows::AppendInteger(Kind kind, std::int64_t value) {
    Cell& cell = cells_.emplace_back();
    cell.integer = value;
    cell.kind = kind;
}

void StoredRows::AppendReal(Kind kind, double value) {
    Cell& cell = cells_.emplace_back();
    cell.real = value;
    cell.kind = kind;
}

void StoredRows::AppendNull() { cells_.emplace_back(); }
void StoredRows::Append(Bool value) { AppendInteger(Kind::kBool, value.Number()); }
void StoredRows::Append(Byte value) { AppendInteger(Kind::kByte, value); }
void StoredRows::Append(Int16 value) { AppendInteger(Kind::kInt16, value); }
void StoredRows::Append(Int32 value) { AppendInteger(Kind::kInt32, value); }
void StoredRows::Append(Single value) { AppendReal(Kind::kSingle, static_cast<double>(value)); }
void StoredRows::Append(Double value) { AppendReal(Kind::kDouble, value); }
void StoredRows::Append(Money value) { AppendInteger(Kind::kMoney, value.Units()); }
void StoredRows::Append(DateTime value) { AppendReal(Kind::kDateTime, value.Days()); }

void StoredRows::Append(std::string_view value) {
    const auto length = To<std::uint32_t>(value.size());
    Cell& cell = cells_.emplace_back();
    cell.text_start = texts_.size();
    cell.text_length = length;
    cell.kind = Kind::kText;
    texts_.append(value);
}

void StoredRows::Append(const Text& value) { Append(std::string_view(value)); }

void StoredRows::Append(const Variant& value) {
    value.Visit([this]<class T>(const T& held) {
        if constexpr (std::is_same_v<T, std::monostate> || std::is_same_v<T, Variant::NullValue>) {
            AppendNull();
        } else if constexpr (std::is_same_v<T, Ref<Object>>) {
            RaiseTypeMismatch("an object", "a field");
        } else {
            Append(held);
        }
    });
}

std::size_t StoredRows::RowCount() const { return names_->empty() ? 0 : cells_.size() / names_->size(); }

void StoredRows::CheckOpen() const {
    if (closed_) Raise(RowSetError::kClosed, "The row set is closed.");
}

Bool StoredRows::Eof() {
    CheckOpen();
    return current_ >= cells_.size();
}

Bool StoredRows::Bof() {
    CheckOpen();
    return cells_.empty();
}

void StoredRows::MoveNext() {
    CheckOpen();
    if (current_ >= cells_.size())
        Raise(RowSetError::kNoCurrentRow, "The row set is at its end: there is no next row.");
    current_ += names_->size();
}

void StoredRows::Close() {
    CheckOpen();
    closed_ = true;
    cells_ = {};
    texts_ = {};
}

Int16 StoredRows::ColumnCount() { return To<Int16>(names_->size()); }

Text StoredRows::ColumnName(Int16 position) { return (*names_)[static_cast<std::size_t>(position)]; }

Int16 StoredRows::ColumnPosition(std::string_view name) {
    const auto found = std::ranges::find_if(*names_, [&](const std::string& own) { return SameWithoutCase(own, name); });
    return found == names_->end() ? Int16{-1} : To<Int16>(found - names_->begin());
}

Variant StoredRows::ColumnValue(Int16 position) {
    CheckOpen();
    if (current_ >= cells_.size()) Raise(RowSetError::kNoCurrentRow, "The row set has no current row.");
    const Cell& cell = cells_[current_ + static_cast<std::size_t>(position)];
    switch (cell.kind) {
        case Kind::kNull:
            return Variant::Null();
        case Kind::kBool:
            return cell.integer != 0;
        case Kind::kByte:
            return static_cast<Byte>(cell.integer);
        case Kind::kInt16:
            return static_cast<Int16>(cell.integer);
        case Kind::kInt32:
            return static_cast<Int32>(cell.integer);
        case Kind::kSingle:
            return static_cast<Single>(cell.real);
        case Kind::kDouble:
            return cell.real;
        case Kind::kMoney:
            return Money::FromUnits(cell.integer);
        case Kind::kDateTime:
            return DateTime(cell.real);
        case Kind::kText:
            return std::string_view(texts_).substr(cell.text_start, cell.text_length);
    }
    return {};
}

}  // namespace LumoConnection
