#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <LumoSeminar/frame/row_set.h>

namespace LumoConnection {

using namespace LumoSeminar;

/// Numbers of the errors that a row set raises of itself.
namespace RowSetError {
inline constexpr Int32 kNoCurrentRow = 3021;
inline constexpr Int32 kClosed = 3704;
}  // namespace RowSetError

/// A row set that holds all its rows, independent of where they came from: sixteen bytes a cell, the texts in one
/// buffer. Filled row by row from left to right, then read.
class StoredRows : public RecordSet {
  public:
    using Names = std::vector<std::string>;

    /// The names are shared between the row sets of one statement.
    explicit StoredRows(std::shared_ptr<const Names> names) : names_(std::move(names)) {}
    explicit StoredRows(Names names) : StoredRows(std::make_shared<const Names>(std::move(names))) {}

    void AppendNull();
    void Append(Bool value);
    void Append(Byte value);
    void Append(Int16 value);
    void Append(Int32 value);
    void Append(Single value);
    void Append(Double value);
    void Append(Money value);
    void Append(DateTime value);
    void Append(std::string_view value);
    void Append(const Text& value);
    void Append(const char* value) { Append(std::string_view(value)); }
    /// Raises type mismatch (13) for an object; Empty becomes Null.
    void Append(const Variant& value);

    /// Rows filled so far, whole ones.
    std::size_t RowCount() const;

    Bool Eof() override;
    Bool Bof() override;
    void MoveNext() override;
    void Close() override;

  protected:
    Int16 ColumnCount() override;
    Text ColumnName(Int16 position) override;
    Int16 ColumnPosition(std::string_view name) override;
    Variant ColumnValue(Int16 position) override;

  private:
    enum class Kind : std::uint8_t { kNull, kBool, kByte, kInt16, kInt32, kSingle, kDouble, kMoney, kDateTime, kText };
    struct Cell {
        union {
            std::int64_t integer = 0;
            double real;
            std::size_t text_start;
        };
        std::uint32_t text_length = 0;
        Kind kind = Kind::kNull;
    };

    void AppendInteger(Kind kind, std::int64_t value);
    void AppendReal(Kind kind, double value);
    void CheckOpen() const;

    std::shared_ptr<const Names> names_;
    std::vector<Cell> cells_;
    std::string texts_;
    std::size_t current_ = 0;  // first cell of the current row
    bool closed_ = false;
};

}  // namespace LumoConnection
