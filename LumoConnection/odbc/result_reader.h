#pragma once

#include <vector>

#include <LumoConnection/odbc/diagnostics.h>
#include <LumoConnection/odbc/handle.h>
#include <LumoConnection/odbc/wide_text.h>
#include <LumoConnection/stored_rows.h>

namespace LumoConnection::Odbc {

using Statement = Handle<SQL_HANDLE_STMT>;

/// What a row set needs to know of a column.
struct ResultColumn {
    enum class Kind : std::uint8_t {
        kBit,
        kByte,
        kInt16,
        kInt32,
        kInt64,
        kSingle,
        kDouble,
        kDecimal,
        kMoney,
        kMoment,
        kTime,
        kBinary,
        kText,
    };

    Text name;
    Kind kind = Kind::kText;
};

/// Reads the current result of a statement into memory, column by column from left to right.
class ResultReader {
  public:
    ResultReader(SQLHSTMT statement, Diagnostics& diagnostics) : statement_(statement), diagnostics_(diagnostics) {}

    /// The rows up to the first failure, which the diagnostics then hold.
    Ref<StoredRows> Read(SQLSMALLINT column_count);

    /// Walks through the rows without looking at them: what fails in one of them is to be seen.
    void Skip();

  private:
    bool Describe(SQLUSMALLINT number, ResultColumn& column);
    Text TypeName(SQLUSMALLINT number);
    bool IsUnsigned(SQLUSMALLINT number);
    bool Fetch();
    bool ReadField(SQLUSMALLINT number, const ResultColumn& column, StoredRows& rows);

    template <class T>
    bool Get(SQLUSMALLINT number, SQLSMALLINT c_type, T& value, bool& null);
    bool GetWide(SQLUSMALLINT number, bool& null);
    bool GetBinary(SQLUSMALLINT number, bool& null);
    template <class Unit>
    bool GetPieces(SQLUSMALLINT number, SQLSMALLINT c_type, std::size_t end_mark, std::vector<Unit>& piece,
                   std::vector<Unit>& whole, bool& null);

    SQLHSTMT statement_;
    Diagnostics& diagnostics_;
    WideText wide_piece_;
    WideText wide_;
    std::vector<SQLCHAR> byte_piece_;
    std::vector<SQLCHAR> bytes_;
};

}  // namespace LumoConnection::Odbc
