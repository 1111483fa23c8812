// A server that runs its texts on the embedded database: "Driver=...;Database=FILE" or ":memory:", one for each
// connection then. With it everything that is meant for a server can be run where there is none.
#include <test_support/odbc_driver/server.h>

#include <chrono>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

#include <LumoConnection/embedded/session.h>
#include <LumoConnection/odbc/wide_text.h>

namespace odbc_driver {
namespace {

using namespace LumoSeminar;
using LumoConnection::EmbeddedSession;

Text Narrow(const std::u16string& text) { return LumoConnection::Odbc::ToText({text.begin(), text.end()}); }

std::u16string Wide(std::string_view text) {
    const auto wide = LumoConnection::Odbc::ToWide(text);
    return {wide.begin(), wide.end()};
}

SQL_TIMESTAMP_STRUCT Timestamp(DateTime moment) {
    using namespace std::chrono;
    const year_month_day day{moment.Date()};
    const auto time = moment.Time();
    const hh_mm_ss parts{time};
    SQL_TIMESTAMP_STRUCT stamp{};
    stamp.year = static_cast<SQLSMALLINT>(static_cast<int>(day.year()));
    stamp.month = static_cast<SQLUSMALLINT>(static_cast<unsigned>(day.month()));
    stamp.day = static_cast<SQLUSMALLINT>(static_cast<unsigned>(day.day()));
    stamp.hour = static_cast<SQLUSMALLINT>(parts.hours().count());
    stamp.minute = static_cast<SQLUSMALLINT>(parts.minutes().count());
    stamp.second = static_cast<SQLUSMALLINT>(parts.seconds().count());
    stamp.fraction = static_cast<SQLUINTEGER>(duration_cast<nanoseconds>(parts.subseconds()).count());
    return stamp;
}

// A value as a driver keeps it, and what its column is said to be.
struct Told {
    Cell cell;
    Column column;

    void operator()(std::monostate) {}
    void operator()(Variant::NullValue) {}
    void operator()(Bool value) { Set(static_cast<long long>(value ? 1 : 0), SQL_BIT, u"bit"); }
    void operator()(Byte value) {
        Set(static_cast<long long>(value), SQL_TINYINT, u"tinyint");
        column.is_unsigned = true;
    }
    void operator()(Int16 value) { Set(static_cast<long long>(value), SQL_SMALLINT, u"smallint"); }
    void operator()(Int32 value) { Set(static_cast<long long>(value), SQL_INTEGER, u"int"); }
    void operator()(Single value) { Set(static_cast<double>(value), SQL_REAL, u"real"); }
    void operator()(Double value) { Set(value, SQL_FLOAT, u"float"); }
    void operator()(Money value) { Set(Wide(MoneyDigits(value)), SQL_DECIMAL, u"money"); }
    void operator()(DateTime value) { Set(Timestamp(value), SQL_TYPE_TIMESTAMP, u"datetime"); }
    void operator()(const Text& value) { Set(Wide(value), SQL_WVARCHAR, u"nvarchar"); }
    void operator()(const Ref<Object>&) {}

    static Text MoneyDigits(Money value);

  private:
    template <class Value>
    void Set(Value value, SQLSMALLINT type, const char16_t* type_name) {
        cell = std::move(value);
        column.type = type;
        column.type_name = type_name;
    }
};

// "-12.3400"
Text Told::MoneyDigits(Money value) {
    constexpr std::int64_t kUnits = 10'000;
    const std::int64_t units = value.Units();
    const bool negative = units < 0;
    const auto amount = negative ? 0 - static_cast<std::uint64_t>(units) : static_cast<std::uint64_t>(units);
    Text decimals = std::to_string(amount % kUnits);
    decimals.insert(0, 4 - decimals.size(), '0');
    return (negative ? "-" : "") + std::to_string(amount / kUnits) + "." + decimals;
}

Result RowsOf(RecordSet& rows) {
    Result result;
    const Fields fields = rows.Fields();
    for (Int16 i = 0; i < fields.Count(); ++i) result.columns.push_back({.name = Wide(fields.Name(i))});
    for (; !rows.Eof(); rows.MoveNext()) {
        auto& cells = result.rows.emplace_back();
        for (std::size_t i = 0; i < result.columns.size(); ++i) {
            Told told;
            fields.Item(static_cast<Int16>(i)).Value().Visit(told);
            Column& column = result.columns[i];
            if (!std::holds_alternative<std::monostate>(told.cell)) {
                column.type = told.column.type;
                column.type_name = told.column.type_name;
                column.is_unsigned = told.column.is_unsigned;
            }
            cells.push_back(std::move(told.cell));
        }
    }
    return result;
}

Result Refusal(const EmbeddedSession& session, Text text) {
    return {.code = SQL_ERROR, .messages = {{"42000", session.LastErrorNumber(), u"[Engine]" + Wide(text)}}};
}

class EngineServer final : public Server {
  public:
    bool Open(const Text& file, const Text& user, std::vector<Message>& messages) {
        if (session_->Connect("Provider=Embedded;Sync=Normal;Data Source='" + file + "'", user, "", 30)) return true;
        messages.push_back({"08001", session_->LastErrorNumber(), u"[Engine]" + Wide(session_->LastErrorText())});
        return false;
    }

    std::vector<Result> Run(const std::u16string& text) override {
        const Text sql = Narrow(text);
        if (auto known = Beyond(sql)) return {std::move(*known)};
        if (!session_->OpenSelect(sql)) return {Refusal(*session_, session_->LastErrorText())};
        const auto rows = session_->Recordset();
        std::vector<Result> results;
        if (rows->Fields().Count() > 0) {
            // As a server does that counts what it has written before it gives rows.
            results.push_back({.row_count = session_->RowsAffected()});
            results.push_back(RowsOf(*rows));
        } else {
            results.push_back({.row_count = session_->RowsAffected()});
        }
        return results;
    }

  private:
    // Texts for a server that the embedded database does not know.
    std::optional<Result> Beyond(const Text& sql) {
        if (sql == "SET DATEFORMAT dmy") return Result{};
        if (sql.starts_with("SELECT DB_NAME() ")) {
            Result name;
            name.columns.push_back({.name = u""});
            name.rows.push_back({u"lumo_test"});
            return name;
        }
        constexpr std::string_view kDrop = "IF OBJECT_ID(N'";
        if (!sql.starts_with(kDrop)) return std::nullopt;
        const Text table = sql.substr(kDrop.size(), sql.find('\'', kDrop.size()) - kDrop.size());
        for (const auto& known : session_->Tables()) {
            if (known.name == table && !session_->ExecuteSql("DROP TABLE " + table))
                return Refusal(*session_, session_->LastErrorText());
        }
        return Result{};
    }

    const Ref<EmbeddedSession> session_ = New<EmbeddedSession>();
};

Text ValueOf(const Text& connection_text, std::string_view key) {
    const auto at = (";" + connection_text).find(";" + Text(key) + "=");
    if (at == Text::npos) return {};
    const auto start = at + key.size() + 1;
    return connection_text.substr(start, connection_text.find(';', start) - start);
}

}  // namespace

std::unique_ptr<Server> LogIn(const std::u16string& connection_text, std::vector<Message>& messages) {
    const Text text = Narrow(connection_text);
    auto server = std::make_unique<EngineServer>();
    if (!server->Open(ValueOf(text, "Database"), ValueOf(text, "UID"), messages)) return nullptr;
    return server;
}

std::u16string ServerName() { return u"Microsoft SQL Server"; }

}  // namespace odbc_driver
