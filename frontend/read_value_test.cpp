#include "frontend/read_value.h"

#include <gtest/gtest.h>

#include "frontend/exit_codes.h"

namespace frontend {
namespace {

using LumoSeminar::DateTime;
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
    EXPECT_EQ(ReadInt16("", "-32768"), -32768);
    EXPECT_EQ(ReadByte("", "255"), 255);
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
    EXPECT_EQ(Refusal(ReadInt32, std::string(400, '9')),
              "--x: \"" + std::string(60, '9') + "...\" does not fit: -2147483648 to 2147483647.");
    EXPECT_EQ(Refusal(ReadInt16, "32768"), "--x: \"32768\" does not fit: -32768 to 32767.");
    EXPECT_EQ(Refusal(ReadByte, "-1"), "--x: \"-1\" does not fit: 0 to 255.");
    EXPECT_EQ(Refusal(ReadByte, "256"), "--x: \"256\" does not fit: 0 to 255.");
}

TEST(ReadValue, TakesEachKeyOnce) {
    EXPECT_EQ(ReadKeys("KEY", {"7", "3", "007", "4"}), (std::vector<LumoSeminar::Int32>{7, 3, 4}));
    EXPECT_EQ(Refusal(
                  [](std::string_view name, std::string_view text) {
                      ReadKeys(name, {"1", std::string(text)});
                  },
                  "b"),
              "--x: \"b\" is not a whole number.");
}

TEST(ReadValue, TakesDaysInBothFormsAndTimesOfDay) {
    EXPECT_EQ(ReadDay("", "03.02.2010"), DateTime::Of(2010, 2, 3));
    EXPECT_EQ(ReadDay("", "2010-02-03"), DateTime::Of(2010, 2, 3));
    EXPECT_EQ(ReadDay("", "29.02.2012"), DateTime::Of(2012, 2, 29));
    EXPECT_EQ(ReadDay("", "9999-12-31"), DateTime::Of(9999, 12, 31));
    EXPECT_EQ(ReadClock("", "09:05"), DateTime::TimeOfDay(9, 5));
    EXPECT_EQ(ReadClock("", "00:00"), DateTime());
    EXPECT_EQ(ReadClock("", "23:59"), DateTime::TimeOfDay(23, 59));
}

TEST(ReadValue, RefusesDaysAndTimesThatAreNone) {
    for (const char* text : {"", "3.2.2010", "03.02.10", "03/02/2010", "2010-2-3", "2010-02-03 ", " 2010-02-03",
                             "03.02.2010 09:00", "02-03-2010", "heute"}) {
        EXPECT_EQ(Refusal(ReadDay, text),
                  std::string("--x: \"") + text + "\" is not a day; write it as 31.12.2010 or 2010-12-31.");
    }
    for (const char* text : {"29.02.2010", "31.04.2010", "00.01.2010", "2010-13-01", "2010-00-01", "01.01.0099"}) {
        EXPECT_EQ(Refusal(ReadDay, text), std::string("--x: \"") + text + "\" is not in the calendar.");
    }
    for (const char* text : {"", "9:00", "09.00", "0900", "09:00:00", "09:0x", "9 Uhr"}) {
        EXPECT_EQ(Refusal(ReadClock, text), std::string("--x: \"") + text + "\" is not a time of day; write it as 09:30.");
    }
    for (const char* text : {"24:00", "09:60", "99:99"}) {
        EXPECT_EQ(Refusal(ReadClock, text), std::string("--x: \"") + text + "\" is not on the clock: 00:00 to 23:59.");
    }
}

}  // namespace
}  // namespace frontend
