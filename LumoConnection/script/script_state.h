#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <LumoConnection/script/script_session.h>

/// What a script and its session share. Not for programs that use a script.
namespace LumoConnection::detail {

enum class CallKind {
    kConnect,
    kOpenSelect,
    kExecuteSql,
    kLookupValue,
    kAdoConnection,
    kConnectionState,
    kConnectionOpen,
    kConnectionExecute,
    kCloseRows,
    kProcess,
};

struct ScriptCall {
    CallKind kind = CallKind::kConnect;
    std::vector<Text> arguments;

    bool operator==(const ScriptCall&) const = default;
};

/// A Close and a call on a process object cannot: they succeed or raise.
constexpr bool CanBeRefused(CallKind kind) { return kind != CallKind::kCloseRows && kind != CallKind::kProcess; }

/// "OpenSelect: SELECT ...", on one line.
std::string CallText(const ScriptCall& call);

enum class Outcome { kOk, kRefused, kRaises };

struct ScriptStepData {
    ScriptCall call;
    int number = 0;

    Outcome outcome = Outcome::kOk;
    /// The LastErrorText of a refusal, or the description of an error.
    Text failure;
    Int32 error_number = 0;
    Text error_source;

    /// Of a lookup or of a process object; Empty: the call has no answer of its own.
    Variant value = Variant::Null();
    /// Of a connection; -1 for no connection.
    Int32 state = Connection::kOpen;
    std::vector<std::string> columns;
    std::vector<std::vector<Variant>> rows;
};

/// Whether rows may be given as an answer, and whether the step gives them.
bool CanGiveRows(CallKind kind);
bool GivesRows(const ScriptStepData& step);

class ScriptState {
  public:
    ScriptStepData& Append(CallKind kind, std::vector<Text> arguments);
    ScriptCall CloseOf(int step) const;
    /// Number of the last step that gives rows and is not closed by another one; 0 if there is none.
    int LastRowsStep() const;
    const ScriptStepData& Step(int number) const;
    int StepCount() const { return static_cast<int>(steps_.size()); }
    const std::deque<ScriptStepData>& Steps() const { return steps_; }
    void FailAt(int step, FailureMode mode);

    /// Compares a call with the script. Gives the step that answers it, its outcome being that of an injected failure
    /// where one is due; a step of number 0 refuses what comes unexpectedly behind such a failure. Raises for an
    /// unexpected call and where the step raises.
    ScriptStepData Answer(const ScriptCall& call);

    /// Notes an Open of a connection that stays closed, which is no step.
    void OpenOfClosed(const ScriptCall& call);

    /// Raises again where a call has differed.
    void CheckNothingDiffered() const;
    bool NextIs(CallKind kind) const;

    std::string Report() const;
    const std::vector<std::string>& Calls() const { return calls_; }
    std::vector<std::string> CallsAfterFailure() const;
    const std::vector<std::string>& UnexpectedAfterFailure() const { return unexpected_after_failure_; }

    const Text& LastErrorText() const { return last_error_text_; }

    Int32 connection_state = Connection::kOpen;
    /// Behind an injected failure of AdoConnection: State and Open are no steps then.
    bool connection_stays_closed = false;
    int recordset_calls = 0;
    int last_error_text_calls = 0;

  private:
    std::optional<std::size_t> FindFromNext(const ScriptCall& call) const;
    bool Lenient() const { return calls_at_failure_.has_value(); }
    ScriptStepData Deliver(ScriptStepData step);
    [[noreturn]] void RaiseUnexpected(const ScriptCall& call);

    std::deque<ScriptStepData> steps_;
    std::size_t next_ = 0;

    std::vector<std::string> calls_;
    Text last_error_text_;

    /// What differed, as the report shows it and on one line as an error has it.
    std::string difference_;
    Text difference_error_;
    std::vector<std::string> refused_calls_;

    int failing_step_ = 0;
    FailureMode failure_mode_ = FailureMode::kNotOk;
    std::optional<std::size_t> calls_at_failure_;
    std::vector<std::string> unexpected_after_failure_;
};

/// The state of a session that Script::Session() gave; empty for any other.
std::shared_ptr<ScriptState> StateOf(const Ref<DataSession>& session);

}  // namespace LumoConnection::detail
