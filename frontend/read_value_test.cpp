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
    for (const char* text : {"", "-", ".", "1.", ".5", "1,", ",5", "+5", "1e3", "nan", "inf", " 1", "1 ", "49.90 €", "--5"}) {
        EXPECT_EQ(Refusal(ReadDouble, text), std::string("--x: \"") + text + "\" is not a number; write it as 7.5 or 7,5.");
        EXPECT_EQ(Refusal(ReadMoney, text), std::string("--x: \"") + text + "\" is not an amount; write it as 149.50 or 149,50.");
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

TEST(ReadValue, TakesAPointOrAComma) {
    EXPECT_EQ(ReadDouble("", "7,5"), 7.5);
    EXPECT_EQ(ReadDouble("", "-0,125"), -0.125);
    EXPECT_EQ(ReadDouble("", "1234,5"), 1234.5);
    EXPECT_EQ(ReadDouble("", "0,125"), 0.125);
    EXPECT_EQ(ReadMoney("", "149,50"), Money::FromUnits(1'495'000));
    EXPECT_EQ(ReadMoney("", "-1234,5"), Money::FromUnits(-12'345'000));
    EXPECT_EQ(ReadMoney("", "1234.567"), Money::FromUnits(12'345'670));
    EXPECT_EQ(ReadMoney("", "1,2345"), Money::FromUnits(12'345));
    EXPECT_EQ(Refusal(ReadMoney, "1,23456"), "--x: \"1,23456\" has more than four decimals.");
}

TEST(ReadValue, RefusesMarksForThousands) {
    for (const char* text : {"1.234,50", "1,234.50", "1.234.567", "1'234.50", "1 234,50", "-1.234,50", "1.5.2"}) {
        const std::string told =
            std::string("--x: \"") + text + "\" has a mark for the thousands; write it without, as in 1234.50 or 1234,50.";
        EXPECT_EQ(Refusal(ReadDouble, text), told);
        EXPECT_EQ(Refusal(ReadMoney, text), told);
    }
    EXPECT_EQ(Refusal(ReadMoney, "1.234"), "--x: \"1.234\" could mean 1234 or a little more than 1; write 1234 or 1.2340.");
    EXPECT_EQ(Refusal(ReadDouble, "-12,500"),
              "--x: \"-12,500\" could mean -12500 or a little more than -12; write -12500 or -12.5000.");
}

TEST(ReadValue, TakesDaysAsPeopleWriteThem) {
    for (const char* text : {"03.02.2010", "3.2.2010", "03.2.2010", "3.02.2010", "2010-02-03", "2010-2-3"}) {
        EXPECT_EQ(ReadDay("", text), DateTime::Of(2010, 2, 3)) << text;
    }
    EXPECT_EQ(ReadDay("", "29.2.2012"), DateTime::Of(2012, 2, 29));
    EXPECT_EQ(ReadDay("", "9999-12-31"), DateTime::Of(9999, 12, 31));
}

TEST(ReadValue, CountsDaysFromToday) {
    const LumoSeminar::PinnedNow now(DateTime::Of(2028, 2, 28, 23, 59));
    for (const char* text : {"today", "Today", "heute", "HEUTE"}) {
        EXPECT_EQ(ReadDay("", text), DateTime::Of(2028, 2, 28)) << text;
    }
    for (const char* text : {"tomorrow", "morgen", "Morgen", "+1d"}) {
        EXPECT_EQ(ReadDay("", text), DateTime::Of(2028, 2, 29)) << text;
    }
    for (const char* text : {"yesterday", "gestern", "-1d", "-1D"}) {
        EXPECT_EQ(ReadDay("", text), DateTime::Of(2028, 2, 27)) << text;
    }
    EXPECT_EQ(ReadDay("", "+7d"), DateTime::Of(2028, 3, 6));
    EXPECT_EQ(ReadDay("", "+0d"), DateTime::Of(2028, 2, 28));
    EXPECT_EQ(ReadDay("", "-3d"), DateTime::Of(2028, 2, 25));
    EXPECT_EQ(ReadDay("", "+2w"), DateTime::Of(2028, 3, 13));
    EXPECT_EQ(Refusal(ReadDay, "+9999999w"), "--x: \"+9999999w\" is not in the calendar.");
    EXPECT_EQ(Refusal(ReadDay, "-9999999d"), "--x: \"-9999999d\" is not in the calendar.");
}

TEST(ReadValue, TakesTheNextWeekdayFromTodayOn) {
    // A Wednesday.
    const LumoSeminar::PinnedNow now(DateTime::Of(2027, 3, 3, 9, 0));
    const struct {
        std::vector<const char*> words;
        int day;
    } weekdays[] = {
        {{"Mi", "mi", "Wed", "Mittwoch", "wednesday"}, 3}, {{"Do", "Thu", "Donnerstag", "Thursday"}, 4},
        {{"Fr", "Fri", "Freitag", "Friday"}, 5},           {{"Sa", "Sat", "Samstag", "Saturday"}, 6},
        {{"So", "Sun", "Sonntag", "Sunday"}, 7},           {{"Mo", "mo", "Mon", "Montag", "MONDAY"}, 8},
        {{"Di", "Tue", "Dienstag", "Tuesday"}, 9},
    };
    for (const auto& [words, day] : weekdays) {
        for (const char* word : words) {
            EXPECT_EQ(ReadDay("", word), DateTime::Of(2027, 3, static_cast<unsigned>(day))) << word;
        }
    }
}

TEST(ReadValue, RefusesDaysThatAreNone) {
    for (const char* text : {"", "03-02-2010", "2010-02-03 ", " 2010-02-03", "03.02.2010 09:00", "20100203", "Mo,Di",
                             "next Mo", "+d", "d", "7d", "+7m", "+1.5d", "31", "1.2.20100", "a.b.2010", "Tu"}) {
        EXPECT_EQ(Refusal(ReadDay, text),
                  std::string("--x: \"") + text +
                      "\" is not a day; write it as 1.3.2027 or 2027-03-01, or as today, tomorrow, Mo or +7d.");
    }
    for (const char* text : {"29.2.2010", "31.4.2010", "0.1.2010", "2010-13-1", "2010-00-01", "1.1.0099", "99.99.9999"}) {
        EXPECT_EQ(Refusal(ReadDay, text), std::string("--x: \"") + text + "\" is not in the calendar.");
    }
}

TEST(ReadValue, TellsWhatADayLacks) {
    EXPECT_EQ(Refusal(ReadDay, "1.3.27"), "--x: \"1.3.27\" has a short year; write it with four digits, as in 1.3.2027.");
    EXPECT_EQ(Refusal(ReadDay, "1.3."), "--x: \"1.3.\" has no year; write it with four digits, as in 1.3.2027.");
    EXPECT_EQ(Refusal(ReadDay, "24.12"), "--x: \"24.12\" has no year; write it with four digits, as in 1.3.2027.");
    EXPECT_EQ(Refusal(ReadDay, "03/02/2010"),
              "--x: \"03/02/2010\" could be read with the day or with the month first; write it as 1.3.2027 (1 March) or "
              "2027-03-01.");
    EXPECT_EQ(Refusal(ReadDay, "+7"), "--x: \"+7\" counts days or weeks? Write +7d or +7w.");
}

TEST(ReadValue, TakesTimesAsPeopleWriteThem) {
    for (const char* text : {"09:05", "9:05", "9.05", "09.05", "9h05"}) {
        EXPECT_EQ(ReadClock("", text), DateTime::TimeOfDay(9, 5)) << text;
    }
    for (const char* text : {"9", "09", "9:00", "9.00", "9h", "9H", "09h00"}) {
        EXPECT_EQ(ReadClock("", text), DateTime::TimeOfDay(9, 0)) << text;
    }
    EXPECT_EQ(ReadClock("", "0:00"), DateTime());
    EXPECT_EQ(ReadClock("", "23:59"), DateTime::TimeOfDay(23, 59));
}

TEST(ReadValue, RefusesTimesThatAreNone) {
    for (const char* text :
         {"", "0900", "930", "09:00:00", "09:0x", "9 Uhr", "9:", ":30", "h", "9,30", "-9:00", "9pm", "9.300"}) {
        EXPECT_EQ(Refusal(ReadClock, text),
                  std::string("--x: \"") + text + "\" is not a time of day; write it as 9:00 or 09.30.");
    }
    for (const char* text : {"24:00", "09:60", "99:99", "24", "30"}) {
        EXPECT_EQ(Refusal(ReadClock, text), std::string("--x: \"") + text + "\" is not on the clock: 0:00 to 23:59.");
    }
    EXPECT_EQ(Refusal(ReadClock, "9.5"), "--x: \"9.5\" has one digit for the minutes; write 9:50 or 9:05.");
}

}  // namespace
}  // namespace frontend
