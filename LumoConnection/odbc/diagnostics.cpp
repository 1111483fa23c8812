#include <LumoConnection/odbc/diagnostics.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include <LumoConnection/error_numbers.h>
#include <LumoConnection/odbc/wide_text.h>

namespace LumoConnection::Odbc {

namespace {

constexpr const char* kOutOfMemoryText = "There is insufficient memory to run this text.";
constexpr std::string_view kNoSuchRecord = "HY000";
// The connection's own class, and a server of PostgreSQL's that goes away.
constexpr std::string_view kLostStates[] = {"08", "57P01", "57P02", "57P03"};
// Drivers repeat themselves without end where something is broken.
constexpr SQLSMALLINT kMostRecords = 100;

// Takes off who passed the message on: "[vendor][driver][server]".
std::string_view WithoutSenders(std::string_view message) {
    while (message.starts_with('[')) {
        const auto end = message.find(']');
        if (end == std::string_view::npos) break;
        message.remove_prefix(end + 1);
    }
    constexpr std::string_view kBlanks = " \t\r\n";
    const auto first = message.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return message.substr(first, message.find_last_not_of(kBlanks) - first + 1);
}

Text OneLineText(std::string_view message) {
    Text text;
    for (const char c : message) {
        const bool blank = c == '\r' || c == '\n' || c == '\0';
        if (!blank) {
            text += c;
        } else if (!text.ends_with(' ')) {
            text += ' ';
        }
    }
    return text;
}

bool ReadRecord(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, OdbcDiagnostic& record) {
    SQLWCHAR state[6] = {};
    SQLINTEGER native = 0;
    WideText message(512);
    for (int attempt = 0;; ++attempt) {
        SQLSMALLINT length = 0;
        const SQLRETURN code = SQLGetDiagRecW(type, handle, number, state, &native, message.data(),
                                              static_cast<SQLSMALLINT>(message.size()), &length);
        if (!SQL_SUCCEEDED(code) || length < 0) return false;
        const auto units = static_cast<std::size_t>(length);
        if (units < message.size() || attempt > 0) {
            message.resize(std::min(units, message.size() - 1));
            break;
        }
        message.resize(std::min<std::size_t>(units + 1, 32'767));
    }
    for (const SQLWCHAR unit : state) {
        if (unit != 0) record.state += unit < 0x80 ? static_cast<char>(unit) : '?';
    }
    record.number = native;
    record.text = OneLineText(WithoutSenders(ToText(message)));
    return true;
}

}  // namespace

bool Diagnostics::Take(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle) {
    if (code == SQL_SUCCESS || code == SQL_NO_DATA) return true;
    const bool good = code == SQL_SUCCESS_WITH_INFO;
    const std::size_t before = records_.size();
    if (code != SQL_INVALID_HANDLE) {
        for (SQLSMALLINT i = 1; i <= kMostRecords; ++i) {
            OdbcDiagnostic record;
            if (!ReadRecord(type, handle, i, record)) break;
            records_.push_back(std::move(record));
        }
    }
    if (good) return true;
    if (records_.size() == before) {
        records_.push_back({Text(kNoSuchRecord), 0, "The driver reports a failure without a text."});
    }
    if (number_ == 0) number_ = Refused::kStorage;
    for (std::size_t i = before; i < records_.size(); ++i) {
        if (!numbered_ && records_[i].number != 0) {
            number_ = records_[i].number;
            numbered_ = true;
        }
        for (const std::string_view lost : kLostStates) lost_ = lost_ || records_[i].state.starts_with(lost);
    }
    return false;
}

void Diagnostics::Fail(Int32 number, const Text& text) {
    if (number_ == 0) number_ = number;
    records_.push_back({{}, 0, OneLineText(text)});
}

void Diagnostics::FailOutOfMemory() noexcept {
    records_.clear();
    number_ = Refused::kOutOfMemory;
    numbered_ = true;
}

void Diagnostics::Clear() {
    records_.clear();
    number_ = 0;
    numbered_ = false;
    lost_ = false;
}

Text Diagnostics::AllText() const {
    if (!Failed()) return {};
    if (records_.empty()) return kOutOfMemoryText;
    Text all;
    for (const OdbcDiagnostic& record : records_) {
        if (!all.empty()) all += ' ';
        if (!record.state.empty()) all += '[' + record.state + "] ";
        if (record.number != 0) all += std::to_string(record.number) + ": ";
        all += record.text;
    }
    return all;
}

}  // namespace LumoConnection::Odbc
