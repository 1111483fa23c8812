#include <LumoConnection/odbc/result_reader.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include <LumoConnection/ascii.h>
#include <LumoConnection/error_numbers.h>
#include <LumoConnection/odbc/field_value.h>

namespace LumoConnection::Odbc {
namespace {

using Kind = ResultColumn::Kind;

// Of the server's driver, beside those of the standard.
constexpr SQLSMALLINT kSqlServerTime = -154;
constexpr std::size_t kPieceUnits = 8192;
// Drivers end a piece early rather than part a character, which is not longer than this.
constexpr std::size_t kLongestCharacter = 4;

bool IsMoneyName(std::string_view type_name) {
    return SameWithoutCase(type_name, "money") || SameWithoutCase(type_name, "smallmoney");
}

Text ColumnText(const ResultColumn& column, SQLUSMALLINT number) {
    return column.name.empty() ? "column " + std::to_string(number) : "column " + OneLine(column.name);
}

}  // namespace

Ref<StoredRows> ResultReader::Read(SQLSMALLINT column_count) {
    std::vector<ResultColumn> columns(static_cast<std::size_t>(column_count));
    StoredRows::Names names;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!Describe(static_cast<SQLUSMALLINT>(i + 1), columns[i])) return {};
        names.push_back(columns[i].name);
    }
    auto rows = New<StoredRows>(std::move(names));
    while (Fetch()) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const auto number = static_cast<SQLUSMALLINT>(i + 1);
            try {
                if (!ReadField(number, columns[i], *rows)) return rows;
            } catch (const Error& error) {
                diagnostics_.Fail(Refused::kStorage, "The value of " + ColumnText(columns[i], number) +
                                                         " cannot be read. " + error.Description());
                return rows;
            }
        }
    }
    return rows;
}

void ResultReader::Skip() {
    while (Fetch()) {
    }
}

bool ResultReader::Fetch() {
    const SQLRETURN code = SQLFetch(statement_);
    return diagnostics_.Take(code, SQL_HANDLE_STMT, statement_) && code != SQL_NO_DATA;
}

bool ResultReader::Describe(SQLUSMALLINT number, ResultColumn& column) {
    WideText name(1024);
    SQLSMALLINT length = 0;
    SQLSMALLINT type = SQL_UNKNOWN_TYPE;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    const SQLRETURN code = SQLDescribeColW(statement_, number, name.data(), static_cast<SQLSMALLINT>(name.size()),
                                           &length, &type, &size, &digits, &nullable);
    if (!diagnostics_.Take(code, SQL_HANDLE_STMT, statement_)) return false;
    name.resize(std::min(static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0)), name.size() - 1));
    column.name = ToText(name);
    switch (type) {
        case SQL_BIT:
            column.kind = Kind::kBit;
            break;
        case SQL_TINYINT:
            column.kind = IsUnsigned(number) ? Kind::kByte : Kind::kInt16;
            break;
        case SQL_SMALLINT:
            column.kind = IsUnsigned(number) ? Kind::kInt32 : Kind::kInt16;
            break;
        case SQL_INTEGER:
            column.kind = IsUnsigned(number) ? Kind::kInt64 : Kind::kInt32;
            break;
        case SQL_BIGINT:
            column.kind = Kind::kInt64;
            break;
        case SQL_REAL:
            column.kind = Kind::kSingle;
            break;
        case SQL_FLOAT:
        case SQL_DOUBLE:
            column.kind = IsMoneyName(TypeName(number)) ? Kind::kMoney : Kind::kDouble;
            break;
        case SQL_DECIMAL:
        case SQL_NUMERIC:
            column.kind = IsMoneyName(TypeName(number)) ? Kind::kMoney : Kind::kDecimal;
            break;
        case SQL_DATETIME:
        case SQL_TIMESTAMP:
        case SQL_TYPE_DATE:
        case SQL_TYPE_TIMESTAMP:
            column.kind = Kind::kMoment;
            break;
        case SQL_TIME:
        case SQL_TYPE_TIME:
        case kSqlServerTime:
            column.kind = Kind::kTime;
            break;
        case SQL_BINARY:
        case SQL_VARBINARY:
        case SQL_LONGVARBINARY:
            column.kind = Kind::kBinary;
            break;
        default:
            column.kind = Kind::kText;
    }
    return true;
}

Text ResultReader::TypeName(SQLUSMALLINT number) {
    WideText name(128);
    SQLSMALLINT bytes = 0;
    const SQLRETURN code = SQLColAttributeW(statement_, number, SQL_DESC_TYPE_NAME, name.data(),
                                            static_cast<SQLSMALLINT>(name.size() * sizeof(SQLWCHAR)), &bytes, nullptr);
    if (!SQL_SUCCEEDED(code)) return {};
    name.resize(static_cast<std::size_t>(std::ranges::find(name, SQLWCHAR{0}) - name.begin()));
    return ToText(name);
}

bool ResultReader::IsUnsigned(SQLUSMALLINT number) {
    SQLLEN is_unsigned = SQL_FALSE;
    const SQLRETURN code = SQLColAttributeW(statement_, number, SQL_DESC_UNSIGNED, nullptr, 0, nullptr, &is_unsigned);
    return SQL_SUCCEEDED(code) && is_unsigned == SQL_TRUE;
}

template <class T>
bool ResultReader::Get(SQLUSMALLINT number, SQLSMALLINT c_type, T& value, bool& null) {
    SQLLEN length = 0;
    const SQLRETURN code = SQLGetData(statement_, number, c_type, &value, sizeof value, &length);
    if (!diagnostics_.Take(code, SQL_HANDLE_STMT, statement_)) return false;
    null = length == SQL_NULL_DATA;
    return true;
}

template <class Unit>
bool ResultReader::GetPieces(SQLUSMALLINT number, SQLSMALLINT c_type, std::size_t end_mark, std::vector<Unit>& piece,
                             std::vector<Unit>& whole, bool& null) {
    piece.resize(kPieceUnits);
    whole.clear();
    null = false;
    const std::size_t room = piece.size() - end_mark;
    const auto room_bytes = static_cast<SQLLEN>(room * sizeof(Unit));
    while (true) {
        if (end_mark > 0) std::fill(piece.end() - kLongestCharacter - 1, piece.end(), Unit{1});
        SQLLEN bytes = 0;
        const SQLRETURN code =
            SQLGetData(statement_, number, c_type, piece.data(), static_cast<SQLLEN>(piece.size() * sizeof(Unit)), &bytes);
        if (code == SQL_NO_DATA) return true;
        if (code == SQL_ERROR || code == SQL_INVALID_HANDLE)
            return diagnostics_.Take(code, SQL_HANDLE_STMT, statement_);
        if (bytes == SQL_NULL_DATA) {
            null = true;
            return true;
        }
        if (bytes >= 0 && bytes <= room_bytes) {
            whole.insert(whole.end(), piece.begin(), piece.begin() + bytes / static_cast<SQLLEN>(sizeof(Unit)));
            return true;
        }
        std::size_t filled = room;
        for (std::size_t i = room - kLongestCharacter; end_mark > 0 && i < room; ++i) {
            if (piece[i] == 0 && filled == room) filled = i;
        }
        whole.insert(whole.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(filled));
    }
}

bool ResultReader::GetWide(SQLUSMALLINT number, bool& null) {
    return GetPieces(number, SQL_C_WCHAR, 1, wide_piece_, wide_, null);
}

bool ResultReader::GetBinary(SQLUSMALLINT number, bool& null) {
    return GetPieces(number, SQL_C_BINARY, 0, byte_piece_, bytes_, null);
}

bool ResultReader::ReadField(SQLUSMALLINT number, const ResultColumn& column, StoredRows& rows) {
    bool null = false;
    const auto read_as = [&]<class T>(T value, SQLSMALLINT c_type, auto&& append) {
        if (!Get(number, c_type, value, null)) return false;
        if (null) {
            rows.AppendNull();
        } else {
            append(value);
        }
        return true;
    };
    const auto read_wide = [&](auto&& append) {
        if (!GetWide(number, null)) return false;
        if (null) {
            rows.AppendNull();
        } else {
            append(ToText(wide_));
        }
        return true;
    };
    switch (column.kind) {
        case Kind::kBit:
            return read_as(SQLCHAR{0}, SQL_C_BIT, [&](SQLCHAR value) { rows.Append(Bool(value != 0)); });
        case Kind::kByte:
            return read_as(SQLCHAR{0}, SQL_C_UTINYINT, [&](SQLCHAR value) { rows.Append(Byte{value}); });
        case Kind::kInt16:
            return read_as(SQLSMALLINT{0}, SQL_C_SSHORT, [&](SQLSMALLINT value) { rows.Append(Int16{value}); });
        case Kind::kInt32:
            return read_as(SQLINTEGER{0}, SQL_C_SLONG, [&](SQLINTEGER value) { rows.Append(Int32{value}); });
        case Kind::kInt64:
            return read_as(SQLBIGINT{0}, SQL_C_SBIGINT, [&](SQLBIGINT value) {
                if (std::in_range<Int32>(value)) {
                    rows.Append(static_cast<Int32>(value));
                } else {
                    rows.Append(static_cast<Double>(value));
                }
            });
        case Kind::kSingle:
            return read_as(SQLREAL{0}, SQL_C_FLOAT, [&](SQLREAL value) { rows.Append(Single{value}); });
        case Kind::kDouble:
            return read_as(SQLDOUBLE{0}, SQL_C_DOUBLE, [&](SQLDOUBLE value) { rows.Append(Double{value}); });
        case Kind::kMoment:
            return read_as(SQL_TIMESTAMP_STRUCT{}, SQL_C_TYPE_TIMESTAMP,
                           [&](const SQL_TIMESTAMP_STRUCT& value) { rows.Append(MomentOf(value)); });
        case Kind::kTime:
            return read_as(SQL_TIMESTAMP_STRUCT{}, SQL_C_TYPE_TIMESTAMP,
                           [&](const SQL_TIMESTAMP_STRUCT& value) { rows.Append(TimeOfDayOf(value)); });
        case Kind::kMoney:
            return read_wide([&](const Text& text) { rows.Append(ReadMoney(text)); });
        case Kind::kDecimal:
            return read_wide([&](const Text& text) { rows.Append(ReadDecimal(text)); });
        case Kind::kText:
            return read_wide([&](const Text& text) { rows.Append(text); });
        case Kind::kBinary:
            if (!GetBinary(number, null)) return false;
            if (null) {
                rows.AppendNull();
            } else {
                rows.Append(HexText(bytes_));
            }
            return true;
    }
    return false;
}

}  // namespace LumoConnection::Odbc
