#include <LumoConnection/odbc/field_value.h>

#include <gtest/gtest.h>

#include <limits>

#include <LumoConnection/odbc/wide_text.h>
#include <test_support/raises.h>

namespace LumoConnection::Odbc {
namespace {

using std::chrono::local_days;
using std::chrono::milliseconds;
using std::chrono::year;

TEST(FieldValue, MoneyIsReadExactly) {
    const struct {
        const char* text;
        std::int64_t units;
    } kTexts[] = {
        {"0", 0},
        {"0.0000", 0},
        {".5000", 5000},
        {"-.5", -5000},
        {"-0.0001", -1},
        {"12", 120'000},
        {"12.", 120'000},
        {"12.30", 123'000},
        {"12.340000", 123'400},
        {"$1,234.56", 12'345'600},
        {"-$12.34", -123'400},
        {"$-12.34", -123'400},
        {"922337203685477.5807", std::numeric_limits<std::int64_t>::max()},
        {"-922337203685477.5808", std::numeric_limits<std::int64_t>::min()},
    };
    for (const auto& money : kTexts) EXPECT_EQ(ReadMoney(money.text).Units(), money.units) << money.text;
    for (const char* text : {"", "-", ".", "$", "12,5x", "1.23456", "--1", "1-", "1.2.3", "1e3", " 1", "12 "})
        EXPECT_RAISES(13, ReadMoney(text)) << text;
    for (const char* text : {"922337203685477.5808", "-922337203685477.5809", "99999999999999999999"})
        EXPECT_RAISES(6, ReadMoney(text)) << text;
}

TEST(FieldValue, ADecimalIsTheNearestDouble) {
    EXPECT_EQ(ReadDecimal("0.1"), 0.1);
    EXPECT_EQ(ReadDecimal(".1"), 0.1);
    EXPECT_EQ(ReadDecimal("-12345678901234567890123456789012345678"), -12345678901234567890123456789012345678.0);
    for (const char* text : {"", "1,5", "x", "1 "}) EXPECT_RAISES(13, ReadDecimal(text)) << text;
    EXPECT_RAISES(6, ReadDecimal("1e999"));
}

TEST(FieldValue, MomentsAreRoundedToMilliseconds) {
    const struct {
        SQL_TIMESTAMP_STRUCT moment;
        DateTime expected;
    } kMoments[] = {
        {{2026, 11, 21, 10, 15, 0, 0}, DateTime::Of(2026, 11, 21, 10, 15)},
        {{2026, 11, 21, 0, 0, 0, 3'333'333}, DateTime(local_days{year{2026} / 11 / 21}, milliseconds{3})},
        {{2026, 11, 21, 0, 0, 0, 6'666'667}, DateTime(local_days{year{2026} / 11 / 21}, milliseconds{7})},
        {{2026, 12, 31, 23, 59, 59, 999'499'999}, DateTime(local_days{year{2026} / 12 / 31}, milliseconds{86'399'999})},
        {{2026, 12, 31, 23, 59, 59, 999'500'000}, DateTime::Of(2027, 1, 1)},
        {{9999, 12, 31, 23, 59, 59, 999'999'900}, DateTime(local_days{year{9999} / 12 / 31}, milliseconds{86'399'999})},
        {{1899, 12, 29, 6, 0, 0, 0}, DateTime::Of(1899, 12, 29, 6)},
        {{100, 1, 1, 0, 0, 0, 0}, DateTime::Of(100, 1, 1)},
    };
    for (const auto& moment : kMoments) EXPECT_EQ(MomentOf(moment.moment), moment.expected) << moment.expected.Days();
    EXPECT_EQ(TimeOfDayOf({2026, 11, 21, 7, 30, 0, 0}), DateTime::TimeOfDay(7, 30));
    EXPECT_EQ(TimeOfDayOf({2026, 11, 21, 23, 59, 59, 999'999'900}).Date(), DateTime::TimeOfDay(0, 0).Date());
    EXPECT_RAISES(6, MomentOf({99, 12, 31, 0, 0, 0, 0}));
    EXPECT_RAISES(13, MomentOf({2026, 2, 29, 0, 0, 0, 0}));
    EXPECT_RAISES(13, MomentOf({2026, 2, 28, 24, 0, 0, 0}));
}

TEST(WideText, TextsGoThereAndBack) {
    for (const char* text : {"", "a", "äöüß€", "\xEF\xBF\xBF", "𝄞", "a𝄞\xF4\x8F\xBF\xBF-", "\xED\x9F\xBF\xEE\x80\x80"}) {
        EXPECT_EQ(ToText(ToWide(text)), text);
    }
    EXPECT_EQ(ToWide("a€𝄞"), (WideText{'a', 0x20AC, 0xD834, 0xDD1E}));
    const Text kNul("a\0b", 3);
    EXPECT_EQ(ToText(ToWide(kNul)), kNul);
}

TEST(WideText, HalfAPairIsReplaced) {
    const Text kReplaced = "\xEF\xBF\xBD";
    EXPECT_EQ(ToText({0xD834}), kReplaced);
    EXPECT_EQ(ToText({'a', 0xDD1E, 'b'}), "a" + kReplaced + "b");
    EXPECT_EQ(ToText({0xD834, 0xD834, 0xDD1E}), kReplaced + "𝄞");
    EXPECT_EQ(ToText({0xDD1E, 0xD834}), kReplaced + kReplaced);
}

}  // namespace
}  // namespace LumoConnection::Odbc
