#include <LumoConnection/script/script_state.h>

#include <algorithm>

#include <LumoConnection/script/text_difference.h>

namespace LumoConnection::detail {
namespace {

constexpr std::string_view kScript = "Script";
constexpr std::size_t kMostRefusedCallsShown = 10;

struct KindNames {
    std::string_view name;
    std::vector<std::string_view> arguments;
};

const KindNames& NamesOf(CallKind kind) {
    static const KindNames kNames[] = {
        {"Connect", {"connection text", "user", "password", "timeout"}},
        {"OpenSelect", {"statement"}},
        {"ExecuteSql", {"statement"}},
        {"LookupValue", {"expression", "table", "where"}},
        {"AdoConnection", {}},
        {"State of the connection", {}},
        {"Open of the connection", {"connection text", "user", "password", "options"}},
        {"Execute of the connection", {"statement", "options"}},
        {"Close of the rows", {"step"}},
        {"Process", {"call"}},
    };
    return kNames[static_cast<std::size_t>(kind)];
}

std::string NameText(CallKind kind) { return std::string(NamesOf(kind).name); }

std::string StepName(int number) { return "Step " + std::to_string(number); }

}  // namespace

bool CanGiveRows(CallKind kind) { return kind == CallKind::kOpenSelect || kind == CallKind::kConnectionExecute; }
bool GivesRows(const ScriptStepData& step) { return CanGiveRows(step.call.kind) && step.outcome == Outcome::kOk; }

std::string CallText(const ScriptCall& call) {
    const std::vector<Text>& arguments = call.arguments;
    std::string text = NameText(call.kind);
    const auto append = [&text](std::string_view word, const Text& argument) {
        text.append(word).append(OnOneLine(argument));
    };
    switch (call.kind) {
        case CallKind::kOpenSelect:
        case CallKind::kExecuteSql:
        case CallKind::kProcess:
            append(": ", arguments[0]);
            break;
        case CallKind::kLookupValue:
            append(": ", arguments[0]);
            append(" from ", arguments[1]);
            if (!arguments[2].empty()) append(" where ", arguments[2]);
            break;
        case CallKind::kConnect:
            append(": ", arguments[0]);
            append(", user ", arguments[1]);
            append(", password ", arguments[2]);
            append(", timeout ", arguments[3]);
            break;
        case CallKind::kConnectionOpen:
            if (!arguments[0].empty()) append(": ", arguments[0]);
            if (!arguments[1].empty()) append(", user ", arguments[1]);
            if (!arguments[2].empty()) append(", password ", arguments[2]);
            if (arguments[3] != std::to_string(Connection::kNoOptions)) append(", options ", arguments[3]);
            break;
        case CallKind::kConnectionExecute:
            append(": ", arguments[0]);
            if (arguments[1] != std::to_string(Connection::kNoOptions)) append(", options ", arguments[1]);
            break;
        case CallKind::kCloseRows:
            append(" of step ", arguments[0]);
            break;
        case CallKind::kAdoConnection:
        case CallKind::kConnectionState:
            break;
    }
    return text;
}

ScriptStepData& ScriptState::Append(CallKind kind, std::vector<Text> arguments) {
    ScriptStepData& step = steps_.emplace_back();
    step.call = {kind, std::move(arguments)};
    step.number = StepCount();
    return step;
}

ScriptCall ScriptState::CloseOf(int step) const { return {CallKind::kCloseRows, {std::to_string(step)}}; }

int ScriptState::LastRowsStep() const {
    int last = 0;
    for (const ScriptStepData& step : steps_) {
        if (!GivesRows(step)) continue;
        const ScriptCall close = CloseOf(step.number);
        const auto closes = [&](const ScriptStepData& other) { return other.call == close; };
        if (std::ranges::none_of(steps_, closes)) last = step.number;
    }
    return last;
}

const ScriptStepData& ScriptState::Step(int number) const {
    if (number < 1 || number > StepCount()) {
        Raise(ErrorNumber::kPositionOutOfRange, "There is no step " + std::to_string(number) + " in the script.");
    }
    return steps_[static_cast<std::size_t>(number) - 1];
}

void ScriptState::FailAt(int step, FailureMode mode) {
    if (mode == FailureMode::kNotOk && !CanBeRefused(Step(step).call.kind)) {
        Raise(ScriptError::kBadScript, StepName(step) + " of the script is a " +
                                           (Step(step).call.kind == CallKind::kProcess ? "call on a process object" : "Close") +
                                           ", which cannot be refused.");
    }
    failing_step_ = Step(step).number;
    failure_mode_ = mode;
}

bool ScriptState::NextIs(CallKind kind) const { return next_ < steps_.size() && steps_[next_].call.kind == kind; }

std::optional<std::size_t> ScriptState::FindFromNext(const ScriptCall& call) const {
    const std::size_t end = Lenient() ? steps_.size() : std::min(next_ + 1, steps_.size());
    for (std::size_t at = next_; at < end; ++at) {
        if (steps_[at].call == call) return at;
    }
    return {};
}

void ScriptState::CheckNothingDiffered() const {
    if (!difference_.empty()) Raise(ScriptError::kUnexpectedCall, difference_error_);
}

ScriptStepData ScriptState::Answer(const ScriptCall& call) {
    calls_.push_back(CallText(call));
    if (!difference_.empty()) {
        refused_calls_.push_back(calls_.back());
        CheckNothingDiffered();
    }
    const std::optional<std::size_t> found = FindFromNext(call);
    ScriptStepData step;
    if (found) {
        step = steps_[*found];
        next_ = *found + 1;
        if (step.number == failing_step_) {
            calls_at_failure_ = calls_.size();
            const bool raises = failure_mode_ == FailureMode::kRaises;
            step.outcome = raises ? Outcome::kRaises : Outcome::kRefused;
            step.failure = (raises ? "raised at step " : "refused at step ") + std::to_string(step.number);
            step.error_number = ScriptError::kStepFailed;
            step.error_source = kScript;
        }
    } else if (Lenient()) {
        unexpected_after_failure_.push_back(calls_.back());
        step.call = call;
        step.outcome = Outcome::kRefused;
        step.failure = "after the failure";
    } else {
        RaiseUnexpected(call);
    }
    return Deliver(std::move(step));
}

ScriptStepData ScriptState::Deliver(ScriptStepData step) {
    if (step.outcome == Outcome::kRaises) throw Error(step.error_number, step.failure, step.error_source);
    const bool refused = step.outcome == Outcome::kRefused;
    switch (step.call.kind) {
        case CallKind::kConnect:
        case CallKind::kOpenSelect:
        case CallKind::kExecuteSql:
        case CallKind::kLookupValue:
            if (!refused) break;
            last_error_text_ = step.failure;
            step.value = Variant::Null();
            break;
        case CallKind::kAdoConnection:
            if (refused) step.state = 0;
            connection_state = std::max(step.state, Int32{0});
            connection_stays_closed = refused;
            break;
        case CallKind::kConnectionState:
        case CallKind::kConnectionOpen:
            connection_state = refused ? 0 : step.state;
            break;
        case CallKind::kConnectionExecute:
            if (refused) throw Error(ScriptError::kStepFailed, step.failure, std::string(kScript));
            break;
        case CallKind::kCloseRows:
        case CallKind::kProcess:
            break;
    }
    return step;
}

void ScriptState::RaiseUnexpected(const ScriptCall& call) {
    const std::string& actual_text = calls_.back();
    if (next_ == steps_.size()) {
        const std::string what = "Call " + std::to_string(calls_.size()) + " comes behind the last step of the script";
        difference_ = what + ".\n  actual    " + actual_text + "\n";
        difference_error_ = what + ": " + actual_text;
    } else {
        const ScriptStepData& step = steps_[next_];
        const std::string expected_text = CallText(step.call);
        const std::string both = "  expected  " + expected_text + "\n  actual    " + actual_text + "\n";
        std::string what = StepName(step.number) + " differs: ";
        if (step.call.kind != call.kind) {
            what += NameText(step.call.kind) + " was expected, it is " + NameText(call.kind);
            difference_ = what + ".\n" + both;
            difference_error_ = what + ". Expected " + expected_text + ", actual " + actual_text;
        } else {
            std::size_t at = 0;
            while (step.call.arguments[at] == call.arguments[at]) ++at;
            const Text& expected = step.call.arguments[at];
            const Text& actual = call.arguments[at];
            const TextPlace place = FirstDifference(expected, actual);
            what += NameText(call.kind) + ", " + std::string(NamesOf(call.kind).arguments[at]) + ", " +
                    PlaceText(expected, actual);
            difference_ = what + ".\n" + DifferenceLines(expected, actual) + "Whole:\n" + both;
            difference_error_ =
                what + ". Expected " + Surroundings(expected, place) + ", actual " + Surroundings(actual, place);
        }
    }
    Raise(ScriptError::kUnexpectedCall, difference_error_);
}

void ScriptState::OpenOfClosed(const ScriptCall& call) { calls_.push_back(CallText(call)); }

std::string ScriptState::Report() const {
    std::string report = difference_;
    if (!refused_calls_.empty()) {
        report += "Calls refused from then on:\n";
        const std::size_t shown = std::min(refused_calls_.size(), kMostRefusedCallsShown);
        for (std::size_t i = 0; i < shown; ++i) report += "  " + refused_calls_[i] + "\n";
        if (shown < refused_calls_.size())
            report += "  and " + std::to_string(refused_calls_.size() - shown) + " more\n";
    }
    if (Lenient()) return report;
    const std::size_t left = next_ + (difference_.empty() || next_ == steps_.size() ? 0 : 1);
    if (left < steps_.size()) report += "Not reached:\n";
    for (std::size_t i = left; i < steps_.size(); ++i) {
        report += "  " + StepName(steps_[i].number) + "  " + CallText(steps_[i].call) + "\n";
    }
    return report;
}

std::vector<std::string> ScriptState::CallsAfterFailure() const {
    if (!Lenient()) return {};
    return {calls_.begin() + static_cast<std::ptrdiff_t>(*calls_at_failure_), calls_.end()};
}

}  // namespace LumoConnection::detail
