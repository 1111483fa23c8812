#include "frontend/read_value.h"

#include <gtest/gtest.h>

#include "frontend/exit_codes.h"

namespace frontend {
namespace {

using LumoSeminar::Money;

template <class Read>
std::string Refusal(Read read, std::string_view text) {
    try {
        read("--x", text);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "(taken)";
}

TEST(ReadValue, TakesPlainNumbers) {
    EXPECT_EQ(ReadInt32("", "-2147483648"), -2147483647 - 1);
    EXPECT_EQ(ReadInt32("", "0000000042"), 42);
    EXPECT_EQ(ReadDouble("", "7.5"), 7.5);
    EXPECT_EQ(ReadDouble("", "-0.25"), -0.25);
    EXPECT_EQ(ReadMoney("", "149.5"), Money::FromUnits(1'495'000));
    EXPECT_EQ(ReadMoney("", "-922337203685477.5808").Units(), std::numeric_limits<std::int64_t>::min());
}

TEST(ReadValue, RefusesEverythingElseWithAReason) {
    for (const char* text : {"", " 1", "1 ", "1,5", "1.5", "0x10", "+1", "1e3", "eins"}) {
        EXPECT_NE(Refusal(ReadInt32, text).find("is not a whole number."), std::string::npos) << text;
    }
    EXPECT_EQ(Refusal(ReadInt32, "2147483648"), "--x: \"2147483648\" does not fit: -2147483648 to 2147483647.");
    for (const char* text : {"", "-", ".", "1.", ".5", "1,5", "1e3", "nan", "inf", "1.5.2", " 1"}) {
        EXPECT_NE(Refusal(ReadDouble, text).find("is not a number; write it with a point"), std::string::npos) << text;
        EXPECT_NE(Refusal(ReadMoney, text).find("is not an amount; write it with a point"), std::string::npos) << text;
    }
    EXPECT_EQ(Refusal(ReadMoney, "1.23456"), "--x: \"1.23456\" has more than four decimals.");
    EXPECT_EQ(Refusal(ReadMoney, "922337203685477.5808"),
              "--x: \"922337203685477.5808\" does not fit: -922337203685477.5808 to 922337203685477.5807.");
    EXPECT_EQ(Refusal(ReadDouble, std::string(400, '9')).find("--x: "), 0U);
}

}  // namespace
}  // namespace frontend
