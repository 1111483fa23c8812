#include <LumoConnection/embedded/records_test.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <fstream>

#include <LumoConnection/embedded/database.h>
#include <LumoConnection/embedded/moment.h>

namespace LumoConnection::Embedded {
namespace {

constexpr std::string_view kDocumentedNumber = "# documented number: ";

[[gnu::format(printf, 1, 2)]] std::string Format(const char* form, ...) {
    std::array<char, 400> text{};
    std::va_list arguments;
    va_start(arguments, form);
    const int length = std::vsnprintf(text.data(), text.size(), form, arguments);
    va_end(arguments);
    return {text.data(), static_cast<std::size_t>(length)};
}

char LetterOf(Kind kind) {
    switch (kind) {
        case Kind::kInt:
            return 'I';
        case Kind::kSmallint:
            return 'S';
        case Kind::kTinyint:
            return 'B';
        case Kind::kBit:
            return 'b';
        case Kind::kMoney:
            return 'M';
        case Kind::kDecimal:
        case Kind::kFloat:
            return 'F';
        case Kind::kReal:
            return 'R';
        case Kind::kDatetime:
            return 'D';
        default:
            return IsText(kind) ? 'T' : '?';
    }
}

std::string MomentText(DateTime moment) {
    const std::chrono::year_month_day date{moment.Date()};
    const std::chrono::hh_mm_ss time{moment.Time()};
    return Format("%04d-%02u-%02u %02d:%02d:%02d.%03d", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()), static_cast<int>(time.subseconds().count()));
}

// As the files write a value; what is not of the column's type says so.
std::string ValueText(const Variant& value, char letter) {
    if (value.IsNull()) return "NULL";
    switch (letter) {
        case 'I':
            if (const auto* number = value.If<Int32>()) return std::to_string(*number);
            break;
        case 'S':
            if (const auto* number = value.If<Int16>()) return std::to_string(*number);
            break;
        case 'B':
            if (const auto* number = value.If<Byte>()) return std::to_string(*number);
            break;
        case 'b':
            if (const auto* truth = value.If<Bool>()) return *truth ? "1" : "0";
            break;
        case 'M':
            if (const auto* money = value.If<Money>()) return FixedText(money->Units(), 4);
            break;
        case 'F':
            if (const auto* number = value.If<Double>()) return Format("%.15g", *number);
            break;
        case 'R':
            if (const auto* number = value.If<Single>()) return Format("%.7g", static_cast<double>(*number));
            break;
        case 'D':
            if (const auto* moment = value.If<DateTime>()) return MomentText(*moment);
            break;
        case 'T':
            if (const auto* text = value.If<Text>()) {
                return text->empty() || text->front() == ' ' || text->back() == ' ' ? "|" + *text + "|" : *text;
            }
            break;
        default:
            break;
    }
    return "a value of type " + std::string(value.TypeName());
}

std::vector<std::string> RowTexts(StoredRows& rows, const std::string& types) {
    std::vector<std::string> texts;
    for (; !rows.Eof(); rows.MoveNext()) {
        std::string& line = texts.emplace_back();
        for (std::size_t i = 0; i < types.size(); ++i) {
            if (i > 0) line += '\t';
            line += ValueText(rows.Fields().Item(static_cast<Int16>(i)).Value(), types[i]);
        }
    }
    return texts;
}

std::string Joined(const std::vector<std::string>& rows) {
    std::string text;
    for (const std::string& row : rows) text += "\n        " + row;
    return text.empty() ? " no row" : text;
}

std::string RunQuery(const TestRecord& record, const Outcome& outcome) {
    if (!outcome.rows) {
        return outcome.refusal ? "refused with " + std::to_string(outcome.refusal->Number()) + " " + outcome.refusal->Text()
                               : "no rows";
    }
    std::string letters;
    for (const Type type : outcome.types) letters += LetterOf(type.kind);
    if (letters != record.types) return "types " + letters + " instead of " + record.types;
    std::vector<std::string> rows = RowTexts(*outcome.rows, letters);
    std::vector<std::string> expected = record.rows;
    if (record.sorted) {
        std::ranges::sort(rows);
        std::ranges::sort(expected);
    }
    return rows == expected ? std::string() : "rows" + Joined(rows) + "\n    instead of" + Joined(expected);
}

// Empty where the record holds.
std::string RunRecord(const TestRecord& record, Database& database) {
    const Outcome outcome = database.Run(record.text);
    switch (record.what) {
        case TestRecord::What::kReset:
            return {};
        case TestRecord::What::kOk:
            if (!outcome.refusal) return {};
            return "refused with " + std::to_string(outcome.refusal->Number()) + " " + outcome.refusal->Text();
        case TestRecord::What::kRefused:
            if (!outcome.refusal) return "not refused";
            if (record.number != 0 && outcome.refusal->Number() != record.number) {
                return "refused with " + std::to_string(outcome.refusal->Number()) + " " + outcome.refusal->Text() +
                       " instead of " + std::to_string(record.number);
            }
            return {};
        case TestRecord::What::kQuery:
            return RunQuery(record, outcome);
    }
    return {};
}

// Reads "statement ..." or "query ..." into the record.
bool ReadHead(const std::string& line, TestRecord& record) {
    if (line == "statement ok") {
        record.what = TestRecord::What::kOk;
        return true;
    }
    constexpr std::string_view kRefusedHead = "statement refused";
    if (line.starts_with(kRefusedHead)) {
        record.what = TestRecord::What::kRefused;
        const std::string number = line.substr(kRefusedHead.size());
        if (!number.empty()) record.number = std::stoi(number);
        return true;
    }
    constexpr std::string_view kQueryHead = "query ";
    if (!line.starts_with(kQueryHead)) return false;
    record.what = TestRecord::What::kQuery;
    const auto end = std::min(line.find(' ', kQueryHead.size()), line.size());
    record.types = line.substr(kQueryHead.size(), end - kQueryHead.size());
    record.sorted = line.substr(end) == " rowsort";
    return record.sorted || end == line.size();
}

}  // namespace

std::vector<TestRecord> ReadTestRecords(const std::string& path, std::vector<std::string>& errors) {
    std::vector<TestRecord> records;
    std::ifstream file(path, std::ios::binary);
    if (!file) errors.push_back(path + " cannot be read");
    std::string line;
    int number = 0;
    bool crlf = false;
    int documented = 0;
    while (std::getline(file, line)) {
        ++number;
        if (line.empty()) continue;
        if (line.front() == '#') {
            if (line == "# crlf") crlf = true;
            if (line.starts_with(kDocumentedNumber)) documented = std::stoi(line.substr(kDocumentedNumber.size()));
            continue;
        }
        TestRecord record;
        record.line = number;
        record.number = documented;
        if (line == "connection reset") {
            records.push_back(record);
            continue;
        }
        if (!ReadHead(line, record)) errors.push_back(path + ":" + std::to_string(number) + " is no record: " + line);
        bool rows = false;
        while (std::getline(file, line) && !line.empty()) {
            ++number;
            if (rows) {
                record.rows.push_back(line);
            } else if (record.what == TestRecord::What::kQuery && line == "----") {
                rows = true;
            } else {
                if (!record.text.empty()) record.text += crlf ? "\r\n" : "\n";
                record.text += line;
            }
        }
        ++number;
        records.push_back(std::move(record));
        crlf = false;
        documented = 0;
    }
    return records;
}

std::vector<std::string> RunTestRecords(const std::vector<TestRecord>& records) {
    std::vector<std::string> failures;
    std::optional<Database> database;
    const auto reset = [&] { database.emplace(Database::Options{":memory:", "tester", true, 1}); };
    reset();
    for (const TestRecord& record : records) {
        if (record.what == TestRecord::What::kReset) {
            reset();
            continue;
        }
        const std::string failure = RunRecord(record, *database);
        if (!failure.empty()) {
            failures.push_back("line " + std::to_string(record.line) + ": " + failure + "\n    " + record.text.substr(0, 300));
        }
    }
    return failures;
}

}  // namespace LumoConnection::Embedded
