#include <LumoConnection/embedded/session.h>

#include <algorithm>
#include <limits>
#include <new>

#include <LumoConnection/connection_text.h>
#include <LumoConnection/embedded/database.h>
#include <LumoConnection/lookup_text.h>
#include <LumoConnection/system_user.h>

namespace LumoConnection {

using Embedded::kNoPlace;
using Embedded::Outcome;
using Embedded::Refusal;

namespace {

constexpr Int32 kDefaultTimeout = 30;
constexpr const char* kOutOfMemoryText = "There is insufficient memory to run this text.";
constexpr const char* kTakenBackText = " The open transaction has been taken back.";

Text OneLineText(Text text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
    return text;
}

ErrorPlace PlaceIn(std::string_view text, std::size_t offset) {
    ErrorPlace place;
    place.offset = std::min(offset, text.size());
    for (std::size_t i = 0; i < place.offset; ++i) {
        if (text[i] == '\n') {
            ++place.line;
            place.column = 1;
        } else if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
            ++place.column;
        }
    }
    return place;
}

}  // namespace

// What the session and its connection face share.
class EmbeddedSession::State : public Object {
  public:
    std::optional<Embedded::Database> database;
    Text connection_text;
    Text user;
    Int32 timeout = kDefaultTimeout;

    Ref<RecordSet> rows;
    Ref<RecordSet> rows_before_refusal;
    bool keeps_further_rows = false;
    std::vector<Ref<RecordSet>> further_rows;
    /// For a text that yields none; made before it runs, as nothing may fail behind it.
    Ref<RecordSet> no_rows;
    std::vector<Embedded::Type> types;
    /// Of the last call.
    Int32 error_number = 0;
    std::optional<ErrorPlace> error_place;
    bool taken_back = false;
    /// Of the last refusal, which later calls leave as it is.
    bool was_refused = false;
    Text error_text;
    bool refusal_taken_back = false;
    Int32 affected = -1;

    void Clear() {
        error_number = 0;
        error_place.reset();
        taken_back = false;
        affected = -1;
        further_rows.clear();
    }

    // Needs no memory.
    void FailOutOfMemory() noexcept {
        Refuse(Refused::kOutOfMemory);
        error_text.clear();
        error_place.reset();
    }

    void Refuse(Int32 number) noexcept {
        error_number = number;
        was_refused = true;
        refusal_taken_back = taken_back;
    }

    // A text is there after each failure, also where there was no memory for one.
    Text ErrorText() const {
        if (!was_refused) return {};
        Text text = error_text.empty() ? kOutOfMemoryText : error_text;
        if (refusal_taken_back) text += kTakenBackText;
        return text;
    }

    void Fail(Int32 number, Text text) {
        error_text = OneLineText(std::move(text));
        Refuse(number);
    }

    // Like Execute(), but forgets no rows.
    bool Try(const Text& sql, Outcome& outcome) {
        Clear();
        try {
            if (!database) {
                Fail(Refused::kNotOpen, connection_text.empty() ? "The session is not connected." : "The connection is closed.");
                return false;
            }
            if (!no_rows) no_rows = New<StoredRows>(StoredRows::Names());
            rows_before_refusal.Reset();
            database->KeepFurtherRows(keeps_further_rows);
            outcome = database->Run(sql);
            if (outcome.rows) rows_before_refusal = Ref<StoredRows>(outcome.rows);
            for (auto& further : outcome.further_rows) further_rows.emplace_back(Ref<StoredRows>(std::move(further)));
            taken_back = outcome.taken_back;
            affected = static_cast<Int32>(std::clamp<std::int64_t>(outcome.affected, -1, std::numeric_limits<Int32>::max()));
            if (outcome.refusal) {
                Fail(outcome.refusal->Number(), outcome.refusal->Text());
                if (outcome.refusal->Place() != kNoPlace) error_place = PlaceIn(sql, outcome.refusal->Place());
            } else if (outcome.out_of_memory) {
                FailOutOfMemory();
            }
        } catch (const std::bad_alloc&) {
            FailOutOfMemory();
        }
        return error_number == 0;
    }

    bool Open(const Text& text, const Text& user_name, Int32 seconds) {
        Close();
        Clear();
        try {
            return OpenTarget(text, user_name, seconds);
        } catch (const std::bad_alloc&) {
            FailOutOfMemory();
        }
        database.reset();
        return false;
    }

    bool OpenTarget(const Text& text, const Text& user_name, Int32 seconds) {
        try {
            EmbeddedTarget target = ReadEmbeddedTarget(text);
            Embedded::Database::Options options;
            options.file = std::move(target.file);
            options.sync_full = target.sync_full;
            options.read_only = target.read_only;
            options.user = !user_name.empty() ? user_name : !target.user.empty() ? target.user : SystemUser();
            options.timeout_seconds = seconds > 0 ? seconds : kDefaultTimeout;
            connection_text = text;
            user = user_name;
            timeout = seconds;
            database.emplace(std::move(options));
            return true;
        } catch (const Refusal& refusal) {
            Fail(refusal.Number(), refusal.Text());
        } catch (const Error& error) {
            Fail(error.Number(), error.Description());
        }
        database.reset();
        return false;
    }

    void Close() {
        database.reset();
        rows.Reset();
        rows_before_refusal.Reset();
        types.clear();
        affected = -1;
    }
};

// The open connection as objects see it.
class EmbeddedSession::AdoFace final : public Connection {
  public:
    explicit AdoFace(Ref<EmbeddedSession::State> state) : state_(std::move(state)) {}

    Int32 State() override { return state_->database ? kOpen : 0; }

    void Open(const Text& connection_text, const Text& user, const Text& /*password*/, Int32 /*options*/) override {
        const Text text = connection_text.empty() ? state_->connection_text : connection_text;
        const Text name = user.empty() ? state_->user : user;
        if (!state_->Open(text, name, state_->timeout)) Raise(state_->error_number, state_->ErrorText());
    }

    Ref<RecordSet> Execute(const Text& sql, Int32 /*options*/) override {
        Outcome outcome;
        if (!state_->Try(sql, outcome)) Raise(state_->error_number, state_->ErrorText());
        if (!outcome.rows) return std::move(state_->no_rows);
        return Ref<StoredRows>(std::move(outcome.rows));
    }

  private:
    Ref<EmbeddedSession::State> state_;
};

EmbeddedSession::EmbeddedSession() : state_(New<State>()) {}
EmbeddedSession::~EmbeddedSession() = default;

Bool EmbeddedSession::Connect(const Text& connection_text, const Text& user, const Text& /*password*/, Int32 timeout) {
    return state_->Open(connection_text, user, timeout);
}

Ref<Connection> EmbeddedSession::AdoConnection() { return New<AdoFace>(state_); }

Ref<RecordSet> EmbeddedSession::Recordset() { return state_->rows; }

Bool EmbeddedSession::OpenSelect(const Text& sql) {
    State& state = *state_;
    state.rows.Reset();
    state.rows_before_refusal.Reset();
    state.types.clear();
    Outcome outcome;
    const bool ok = state.Try(sql, outcome);
    state.types = std::move(outcome.types);
    if (!ok) return false;
    state.rows = state.rows_before_refusal ? state.rows_before_refusal : std::move(state.no_rows);
    return true;
}

Bool EmbeddedSession::ExecuteSql(const Text& sql) {
    Outcome outcome;
    return state_->Try(sql, outcome);
}

Variant EmbeddedSession::LookupValue(const Text& expression, const Text& table, const Text& where) {
    try {
        Outcome outcome;
        if (!state_->Try(LookupText(expression, table, where), outcome) || !outcome.rows || outcome.rows->Eof())
            return Variant::Null();
        RecordSet& rows = *outcome.rows;
        return rows.Fields().Item(Int16{0}).Value();
    } catch (const std::bad_alloc&) {
        state_->FailOutOfMemory();
        return Variant::Null();
    }
}

Text EmbeddedSession::LastErrorText() { return state_->ErrorText(); }
Int32 EmbeddedSession::LastErrorNumber() const { return state_->error_number; }
std::optional<ErrorPlace> EmbeddedSession::LastErrorPlace() const { return state_->error_place; }
Int32 EmbeddedSession::RowsAffected() const { return state_->affected; }
std::vector<Text> EmbeddedSession::ColumnTypes() const {
    std::vector<Text> names;
    for (const Embedded::Type type : state_->types) names.push_back(Embedded::TypeText(type));
    return names;
}
Ref<RecordSet> EmbeddedSession::RowsBeforeRefusal() const { return state_->rows_before_refusal; }
void EmbeddedSession::KeepFurtherRows(bool keep) { state_->keeps_further_rows = keep; }
const std::vector<Ref<RecordSet>>& EmbeddedSession::FurtherRows() const { return state_->further_rows; }
void EmbeddedSession::Close() { state_->Close(); }
bool EmbeddedSession::IsOpen() const { return state_->database.has_value(); }
std::vector<TableInfo> EmbeddedSession::Tables() const {
    std::vector<TableInfo> tables;
    if (!state_->database) return tables;
    for (const Embedded::Table* table : state_->database->Tables().All()) {
        TableInfo& info = tables.emplace_back();
        info.name = table->name;
        const Embedded::Key* key = table->PrimaryKey();
        for (std::size_t i = 0; i < table->columns.size(); ++i) {
            const Embedded::Column& column = table->columns[i];
            const bool in_key = key && std::ranges::find(key->columns, static_cast<int>(i)) != key->columns.end();
            info.columns.push_back({column.name, Embedded::TypeText(column.type), column.nullable, in_key});
        }
    }
    return tables;
}
std::uint64_t EmbeddedSession::PlanHits() const { return state_->database ? state_->database->Plans().Hits() : 0; }
std::size_t EmbeddedSession::PlanCount() const { return state_->database ? state_->database->Plans().Size() : 0; }

Ref<DataSession> MakeEmbeddedSession() { return New<EmbeddedSession>(); }

}  // namespace LumoConnection
