#include <LumoConnection/script/script_run.h>

namespace LumoConnection {
namespace {

using Run = std::function<void(const Ref<DataSession>&)>;

std::optional<Error> ErrorOf(const Run& run, const Ref<DataSession>& session) {
    try {
        run(session);
        return {};
    } catch (const Error& error) {
        return error;
    } catch (const std::exception& other) {
        return Error(ErrorNumber::kForeignException, other.what());
    } catch (...) {
        return Error(ErrorNumber::kForeignException, "An exception of an unknown type was thrown.");
    }
}

}  // namespace

std::string FailureOutcome::Title() const {
    return "step " + std::to_string(step) + (mode == FailureMode::kRaises ? " raises: " : " is refused: ") + step_text;
}

std::vector<FailureOutcome> RunWithEachStepFailing(const std::function<void(Script&)>& write_script, const Run& run) {
    Script whole;
    write_script(whole);
    if (whole.StepCount() == 0) Raise(ScriptError::kBadScript, "The script has no step that could fail.");
    ErrorOf(run, whole.Session());
    if (const std::string report = whole.Report(); !report.empty()) {
        Raise(ScriptError::kUnexpectedCall, "Without a failure the run does not meet its script. " + report);
    }

    std::vector<FailureOutcome> outcomes;
    for (int step = 1; step <= whole.StepCount(); ++step) {
        for (const FailureMode mode : {FailureMode::kNotOk, FailureMode::kRaises}) {
            if (!whole.CanFail(step, mode)) continue;
            Script script;
            write_script(script);
            script.FailAt(step, mode);
            FailureOutcome& outcome = outcomes.emplace_back();
            outcome.step = step;
            outcome.mode = mode;
            outcome.step_text = script.StepText(step);
            outcome.error = ErrorOf(run, script.Session());
            outcome.report = script.Report();
            outcome.calls_after = script.CallsAfterFailure();
            outcome.unexpected_after = script.UnexpectedAfterFailure();
            outcome.session_released = script.SessionReleased();
        }
    }
    return outcomes;
}

}  // namespace LumoConnection
