#pragma once

#include <string>
#include <vector>

namespace LumoConnection::Embedded {

/// One record of a file that says what a text does:
///
///     statement ok          query TYPES [rowsort]
///     TEXT                  TEXT
///                           ----
///     statement refused [number]          ROWS, a TAB between columns
///     TEXT
///
/// A blank line ends a record; a line that begins with # is a comment; "connection reset" starts on an empty database.
/// "# crlf" in front gives the text CR LF as line ends, "# documented number: n" the number of a refusal.
struct TestRecord {
    enum class What { kReset, kOk, kRefused, kQuery };

    What what = What::kReset;
    int line = 0;
    std::string text;
    int number = 0;
    std::string types;
    bool sorted = false;
    std::vector<std::string> rows;
};

/// Reads a file. Whatever is no record ends up in `errors`.
std::vector<TestRecord> ReadTestRecords(const std::string& path, std::vector<std::string>& errors);

/// Runs the records in order; gives a text for each that does not hold: its line, and what came instead.
std::vector<std::string> RunTestRecords(const std::vector<TestRecord>& records);

}  // namespace LumoConnection::Embedded
