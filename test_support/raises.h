#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include <LumoSeminar/frame/errors.h>

namespace test_support {

/// The error that the call raises, if it raises one.
template <class Call>
std::optional<LumoSeminar::Error> RaisedBy(Call&& call) {
    try {
        static_cast<void>(call());
    } catch (const LumoSeminar::Error& error) {
        return error;
    }
    return std::nullopt;
}

using Labels = std::vector<std::string>;

/// The labels that an error has gathered.
inline Labels LabelsOf(const std::optional<LumoSeminar::Error>& error) {
    return error ? LumoSeminar::ReadDescription(error->Description()).labels : Labels{"nothing raised"};
}

template <class Call>
testing::AssertionResult Raises(std::int32_t number, const char* expression, Call&& call) {
    const auto error = RaisedBy([&] {
        call();
        return 0;
    });
    if (!error) return testing::AssertionFailure() << expression << " raises nothing";
    if (error->Number() == number) return testing::AssertionSuccess();
    return testing::AssertionFailure() << expression << " raises " << error->Number() << ": " << error->Description();
}

}  // namespace test_support

/// Expects that the expression raises an Error of this number.
#define EXPECT_RAISES(number, ...) \
    EXPECT_TRUE(test_support::Raises(number, #__VA_ARGS__, [&] { static_cast<void>(__VA_ARGS__); }))
