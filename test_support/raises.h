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

/// What an error says that has gathered these labels.
inline std::string Described(std::string text, const Labels& labels) {
    for (const auto& label : labels) {
        const bool in_line = label.starts_with(" in LumoSeminar.");
        text = (in_line ? "in line: 0\r\n" + text : text + "\r\n") + label;
    }
    return text;
}

/// @param text  what the description says before its labels; none: whatever
template <class Call>
testing::AssertionResult RaisesUnder(std::int32_t number, const std::optional<std::string>& text, const Labels& labels,
                                     const char* expression, Call&& call) {
    const auto error = RaisedBy([&] {
        call();
        return 0;
    });
    if (!error) return testing::AssertionFailure() << expression << " raises nothing";
    const auto wanted = Described(text ? *text : LumoSeminar::ReadDescription(error->Description()).text, labels);
    if (error->Number() == number && error->Source() == "LumoSeminar" && error->Description() == wanted) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << expression << " raises " << error->Number() << " of " << error->Source()
                                       << ": " << testing::PrintToString(error->Description()) << "\nexpected "
                                       << number << " of LumoSeminar: " << testing::PrintToString(wanted);
}

}  // namespace test_support

/// Expects that the expression raises an Error of this number.
#define EXPECT_RAISES(number, ...) \
    EXPECT_TRUE(test_support::Raises(number, #__VA_ARGS__, [&] { static_cast<void>(__VA_ARGS__); }))

/// Expects that the expression raises an Error of the library with this number and these labels.
#define EXPECT_RAISES_UNDER(number, labels, ...) \
    EXPECT_TRUE(                                 \
        test_support::RaisesUnder(number, std::nullopt, labels, #__VA_ARGS__, [&] { static_cast<void>(__VA_ARGS__); }))

/// The same, and that it says this text before its labels.
#define EXPECT_RAISES_TEXT(number, text, labels, ...) \
    EXPECT_TRUE(test_support::RaisesUnder(number, text, labels, #__VA_ARGS__, [&] { static_cast<void>(__VA_ARGS__); }))
