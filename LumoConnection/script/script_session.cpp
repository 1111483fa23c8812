#include <LumoConnection/script/script_session.h>

#include <LumoConnection/script/recording_session.h>
#include <LumoConnection/script/rows.h>
#include <LumoConnection/script/script_code.h>
#include <LumoConnection/script/script_file.h>
#include <LumoConnection/script/script_state.h>
#include <LumoConnection/stored_rows.h>
#include <LumoConnection/text_file.h>

namespace LumoConnection {
namespace {

using detail::CallKind;
using detail::Outcome;
using detail::ScriptCall;
using detail::ScriptState;
using detail::ScriptStepData;

using SharedState = std::shared_ptr<ScriptState>;

constexpr Int32 kClosed = 0;
constexpr Int32 kNoConnection = -1;

// Rows of a step, whose Close is a call.
class ScriptRows final : public StoredRows {
  public:
    ScriptRows(SharedState state, const ScriptStepData& step)
        : StoredRows(step.columns), state_(std::move(state)), step_(step.number) {
        for (const std::vector<Variant>& row : step.rows) {
            for (const Variant& value : row) Append(value);
        }
    }

    void Close() override {
        state_->Answer(state_->CloseOf(step_));
        StoredRows::Close();
    }

  private:
    SharedState state_;
    int step_;
};

class ScriptConnection final : public Connection {
  public:
    explicit ScriptConnection(SharedState state) : state_(std::move(state)) {}

    Int32 State() override {
        state_->CheckNothingDiffered();
        const bool is_step = !state_->connection_stays_closed && state_->NextIs(CallKind::kConnectionState);
        if (is_step) state_->Answer({CallKind::kConnectionState, {}});
        return state_->connection_state;
    }

    void Open(const Text& connection_text, const Text& user, const Text& password, Int32 options) override {
        const ScriptCall call{CallKind::kConnectionOpen, {connection_text, user, password, std::to_string(options)}};
        if (state_->connection_stays_closed) {
            state_->OpenOfClosed(call);
        } else {
            state_->Answer(call);
        }
    }

    Ref<RecordSet> Execute(const Text& sql, Int32 options) override {
        return New<ScriptRows>(state_, state_->Answer({CallKind::kConnectionExecute, {sql, std::to_string(options)}}));
    }

  private:
    SharedState state_;
};

class ScriptSession final : public DataSession {
  public:
    explicit ScriptSession(SharedState state) : state_(std::move(state)) {}

    Bool Connect(const Text& connection_text, const Text& user, const Text& password, Int32 timeout) override {
        return Ok(state_->Answer({CallKind::kConnect, {connection_text, user, password, std::to_string(timeout)}}));
    }

    Ref<Connection> AdoConnection() override {
        if (state_->Answer({CallKind::kAdoConnection, {}}).state == kNoConnection) return {};
        return New<ScriptConnection>(state_);
    }

    Ref<RecordSet> Recordset() override {
        ++state_->recordset_calls;
        state_->CheckNothingDiffered();
        return rows_;
    }

    Bool OpenSelect(const Text& sql) override {
        rows_.Reset();
        const ScriptStepData step = state_->Answer({CallKind::kOpenSelect, {sql}});
        if (Ok(step)) rows_ = New<ScriptRows>(state_, step);
        return Ok(step);
    }

    Bool ExecuteSql(const Text& sql) override { return Ok(state_->Answer({CallKind::kExecuteSql, {sql}})); }

    Variant LookupValue(const Text& expression, const Text& table, const Text& where) override {
        return state_->Answer({CallKind::kLookupValue, {expression, table, where}}).value;
    }

    Text LastErrorText() override {
        ++state_->last_error_text_calls;
        return state_->LastErrorText();
    }

    const SharedState& State() const { return state_; }

  private:
    static bool Ok(const ScriptStepData& step) { return step.outcome == Outcome::kOk; }

    SharedState state_;
    Ref<RecordSet> rows_;
};

void Refuse(ScriptStepData& step, Text last_error_text) {
    step.outcome = Outcome::kRefused;
    step.failure = std::move(last_error_text);
}

void GiveValue(ScriptStepData& step, Variant value) {
    step.outcome = Outcome::kOk;
    step.value = std::move(value);
}

void GiveState(ScriptStepData& step, Int32 state) {
    step.outcome = Outcome::kOk;
    step.state = state;
}

}  // namespace

std::shared_ptr<ScriptState> detail::StateOf(const Ref<DataSession>& session) {
    const auto* script = dynamic_cast<const ScriptSession*>(session.Get());
    return script ? script->State() : nullptr;
}

void ScriptStep::Raises(Int32 number, Text description, Text source) const {
    data_->outcome = Outcome::kRaises;
    data_->error_number = number;
    data_->failure = std::move(description);
    data_->error_source = std::move(source);
}

RowsStep RowsStep::Rows(std::vector<std::string> columns, std::vector<std::vector<Variant>> rows) const {
    for (const std::vector<Variant>& row : rows) {
        if (row.size() == columns.size()) continue;
        Raise(ScriptError::kBadScript, "A row of step " + std::to_string(data_->number) + " has " + std::to_string(row.size()) +
                                           " values for " + std::to_string(columns.size()) + " columns.");
    }
    data_->outcome = Outcome::kOk;
    data_->columns = std::move(columns);
    data_->rows = std::move(rows);
    return *this;
}

RowsStep RowsStep::RowsOf(const RowTable& table) const { return Rows(table.Columns(), table.Rows()); }

void SelectStep::Refused(Text last_error_text) const { Refuse(*data_, std::move(last_error_text)); }

void StatementStep::Ok() const { data_->outcome = Outcome::kOk; }
void StatementStep::Refused(Text last_error_text) const { Refuse(*data_, std::move(last_error_text)); }

void LookupStep::Gives(Variant value) const { GiveValue(*data_, std::move(value)); }
void LookupStep::Refused(Text last_error_text) const { Refuse(*data_, std::move(last_error_text)); }

void AdoConnectionStep::Open() const { GiveState(*data_, Connection::kOpen); }
void AdoConnectionStep::Closed() const { GiveState(*data_, kClosed); }
void AdoConnectionStep::Empty() const { GiveState(*data_, kNoConnection); }

void StateStep::Gives(Int32 state) const { GiveState(*data_, state); }

void ConnectionOpenStep::Ok() const { GiveState(*data_, Connection::kOpen); }
void ConnectionOpenStep::StaysClosed() const { GiveState(*data_, kClosed); }

void ProcessStep::Gives(Variant value) const { GiveValue(*data_, std::move(value)); }

Script::Script() : Script(std::make_shared<ScriptState>()) {}
Script::Script(SharedState state) : state_(std::move(state)), session_(New<ScriptSession>(state_)) {}
Script::~Script() = default;
Script::Script(Script&&) noexcept = default;
Script& Script::operator=(Script&&) noexcept = default;

StatementStep Script::Connect(Text connection_text, Text user, Text password, Int32 timeout) {
    return StatementStep(state_->Append(
        CallKind::kConnect, {std::move(connection_text), std::move(user), std::move(password), std::to_string(timeout)}));
}
SelectStep Script::OpenSelect(Text sql) { return SelectStep(state_->Append(CallKind::kOpenSelect, {std::move(sql)})); }
StatementStep Script::ExecuteSql(Text sql) {
    return StatementStep(state_->Append(CallKind::kExecuteSql, {std::move(sql)}));
}
LookupStep Script::LookupValue(Text expression, Text table, Text where) {
    return LookupStep(state_->Append(CallKind::kLookupValue, {std::move(expression), std::move(table), std::move(where)}));
}
AdoConnectionStep Script::AdoConnection() { return AdoConnectionStep(state_->Append(CallKind::kAdoConnection, {})); }
StateStep Script::ConnectionState() { return StateStep(state_->Append(CallKind::kConnectionState, {})); }
ConnectionOpenStep Script::ConnectionOpen(Text connection_text, Text user, Text password, Int32 options) {
    return ConnectionOpenStep(state_->Append(CallKind::kConnectionOpen, {std::move(connection_text), std::move(user),
                                                                         std::move(password), std::to_string(options)}));
}
RowsStep Script::ConnectionExecute(Text sql, Int32 options) {
    return RowsStep(state_->Append(CallKind::kConnectionExecute, {std::move(sql), std::to_string(options)}));
}

CloseStep Script::CloseRows() {
    const int rows = state_->LastRowsStep();
    if (rows == 0) Raise(ScriptError::kBadScript, "No step gives rows that are still to be closed.");
    return CloseStep(state_->Append(CallKind::kCloseRows, {std::to_string(rows)}));
}
CloseStep Script::CloseRows(const RowsStep& rows) {
    return CloseStep(state_->Append(CallKind::kCloseRows, {std::to_string(rows.data_->number)}));
}

ProcessStep Script::Process(Text call) {
    ScriptStepData& step = state_->Append(CallKind::kProcess, {std::move(call)});
    step.value = Variant();
    return ProcessStep(step);
}

Ref<DataSession> Script::Session() { return session_; }

std::string Script::Report() const { return state_->Report(); }
const std::vector<std::string>& Script::Calls() const { return state_->Calls(); }
int Script::RecordsetCalls() const { return state_->recordset_calls; }
int Script::LastErrorTextCalls() const { return state_->last_error_text_calls; }
bool Script::SessionReleased() const { return session_.UseCount() == 1; }
int Script::StepCount() const { return state_->StepCount(); }
std::string Script::StepText(int step) const { return detail::CallText(state_->Step(step).call); }
bool Script::CanFail(int step, FailureMode mode) const {
    return mode == FailureMode::kRaises || detail::CanBeRefused(state_->Step(step).call.kind);
}
void Script::FailAt(int step, FailureMode mode) { state_->FailAt(step, mode); }
std::vector<std::string> Script::CallsAfterFailure() const { return state_->CallsAfterFailure(); }
const std::vector<std::string>& Script::UnexpectedAfterFailure() const { return state_->UnexpectedAfterFailure(); }

Ref<RecordingSession> Script::Record(Ref<DataSession> session) { return New<RecordingSession>(std::move(session)); }
std::string Script::CppText(std::string_view name) const { return detail::CppText(state_->Steps(), name); }
std::string Script::FileText() const { return detail::FileText(state_->Steps()); }
Script Script::Read(std::string_view file_text) { return Script(detail::ReadFileText(file_text)); }
Script Script::ReadFile(const std::filesystem::path& path) { return Read(ReadTextFile(path)); }

}  // namespace LumoConnection
