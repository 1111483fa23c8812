#pragma once

#include <vector>

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

/// Rows to be printed, in any of the formats.
struct Sheet {
    std::vector<LumoSeminar::Text> columns;
    std::vector<std::vector<LumoSeminar::Variant>> rows;
};

enum class Shape {
    kRows,
    /// One row: in a table a property a line, in JSON an object in place of an array.
    kOneRow,
};

/// All rows from the present one on.
Sheet ReadRows(const LumoSeminar::Ref<LumoSeminar::RecordSet>& rows);

struct TableStyle {
    /// Columns of the screen that there are; 0 for no limit.
    int width = 0;
    bool colour = false;
    /// Records in any case.
    bool records = false;
};

/// Columns aligned by what they take on a screen. NULL is dimmed where there is colour; a text that reads NULL stands
/// in quotes. Control characters and bytes that are no UTF-8 are made visible.
///
/// Where that is wider than the screen, texts are shortened as far as they stay readable; nothing else is ever cut.
/// Where that is not enough, each row is a record: a heading, and a line a column. There long texts are wrapped.
LumoSeminar::Text TableText(const Sheet& sheet, Shape shape, const TableStyle& style);

/// A table in pieces, each of them whole lines.
struct TablePieces {
    /// Empty where the rows are records.
    LumoSeminar::Text head;
    std::vector<LumoSeminar::Text> rows;
};

TablePieces PiecesOfTable(const Sheet& sheet, const TableStyle& style);

/// Numbers are exact, money with two to four decimals; moments "yyyy-mm-ddThh:mm:ss", thousandths only where there are
/// any; NULL is null; bytes that are no UTF-8 become U+FFFD. A column without a name is "column 1" by its position, the
/// second of one name gets " 2" behind it.
LumoSeminar::Text JsonText(const Sheet& sheet, Shape shape);

/// Rows that belong to a row.
struct Part {
    LumoSeminar::Text name;
    Sheet sheet;
};

/// A row as an object, the rows that belong to it as an array in it.
LumoSeminar::Text JsonText(const Sheet& row, const Part& part);

/// An array of row sets, each an array of its rows.
LumoSeminar::Text JsonText(const std::vector<Sheet>& sheets);

/// A header line, then a line a row; quoted where needed. Values as in JSON, texts byte by byte. NULL is nothing at
/// all, the empty text is "".
LumoSeminar::Text CsvText(const Sheet& sheet);

}  // namespace frontend
