#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include <LumoConnection/script/script_run.h>

namespace test_support {

/// What is to become of a run whose one step fails. No number: nothing is raised.
struct ExpectedFailure {
    int step;
    LumoConnection::FailureMode mode;
    LumoSeminar::Int32 number = 0;
    std::vector<std::string> labels = {};
    /// The calls behind the failing step.
    std::vector<std::string> calls_after = {};
};

inline constexpr auto kNotOk = LumoConnection::FailureMode::kNotOk;
inline constexpr auto kRaises = LumoConnection::FailureMode::kRaises;

/// Runs the script with each step failing in turn, in every way it can fail, and expects exactly these outcomes, each
/// with its labels, and the session released.
inline void ExpectFailures(const std::function<void(LumoConnection::Script&)>& write_script,
                           const std::function<void(const LumoSeminar::Ref<LumoSeminar::DataSession>&)>& run,
                           const std::vector<ExpectedFailure>& expected) {
    const auto outcomes = LumoConnection::RunWithEachStepFailing(write_script, run);
    ASSERT_EQ(outcomes.size(), expected.size());
    for (const auto& outcome : outcomes) {
        SCOPED_TRACE(outcome.Title());
        const auto wanted = std::ranges::find_if(
            expected, [&](const auto& e) { return e.step == outcome.step && e.mode == outcome.mode; });
        ASSERT_NE(wanted, expected.end());
        EXPECT_EQ(outcome.report, "");
        EXPECT_EQ(outcome.calls_after, wanted->calls_after);
        EXPECT_TRUE(outcome.session_released);
        if (wanted->number == 0) {
            EXPECT_FALSE(outcome.error) << outcome.error->Description();
            continue;
        }
        ASSERT_TRUE(outcome.error);
        EXPECT_EQ(outcome.error->Number(), wanted->number);
        const bool raised_by_step = wanted->number == LumoConnection::ScriptError::kStepFailed;
        EXPECT_EQ(outcome.error->Source(), raised_by_step ? "Script" : "LumoSeminar");
        const auto description = LumoSeminar::ReadDescription(outcome.error->Description());
        EXPECT_EQ(description.labels, wanted->labels);
        if (wanted->mode == kRaises) {
            EXPECT_EQ(description.text, "raised at step " + std::to_string(outcome.step));
        }
        if (wanted->number == LumoSeminar::ErrorNumber::kStatementRefused) {
            EXPECT_EQ(description.text, outcome.calls_after.empty() ? "refused at step " + std::to_string(outcome.step)
                                                                    : "after the failure");
        }
    }
}

}  // namespace test_support
