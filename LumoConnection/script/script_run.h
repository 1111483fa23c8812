#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/errors.h>

namespace LumoConnection {

/// What became of a run in which one step failed.
struct FailureOutcome {
    /// From 1.
    int step = 0;
    FailureMode mode = FailureMode::kNotOk;
    /// As Script::StepText gives it.
    std::string step_text;
    /// What left the run; an exception that is no Error counts as one of number 440.
    std::optional<Error> error;
    /// Script::Report(): empty where all calls up to the failing step were as expected.
    std::string report;
    /// The calls behind the failing step, and those of them that met no step.
    std::vector<std::string> calls_after;
    std::vector<std::string> unexpected_after;
    /// Whether the run left no reference to the session behind.
    bool session_released = false;

    /// "step 2 raises: ExecuteSql: DELETE ...", to name the run in a test's message.
    std::string Title() const;
};

/// Runs a script again and again, each step failing in turn, refused first and then raising. Steps that cannot be
/// refused are left out of the refused runs.
///
/// The run is done once without a failure before. It must meet the script then, otherwise kUnexpectedCall is raised
/// with the report: failures of a script that is not met prove nothing. A script without steps raises kBadScript.
std::vector<FailureOutcome> RunWithEachStepFailing(const std::function<void(Script&)>& write_script,
                                                   const std::function<void(const Ref<DataSession>&)>& run);

}  // namespace LumoConnection
