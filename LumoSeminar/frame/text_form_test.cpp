#include <LumoSeminar/frame/text_form.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include <test_support/comma_locale.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

TEST(DefaultText, OfDoubleHasUpTo15DigitsAndNoTrailingZeros) {
    const struct {
        Double value;
        const char* text;
    } cases[] = {
        {0.0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-8, "-8"},
        {6.5, "6.5"},
        {-0.5, "-0.5"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {100.25, "100.25"},
        {1234567.891, "1234567.891"},
        {999999999999999, "999999999999999"},
        {123456789012345.6, "123456789012346"},
        {1e14 + 0.5, "100000000000000"},
        {1e15, "1E+15"},
        {-1.5e15, "-1.5E+15"},
        {999999999999999.9, "1E+15"},
        {1.7976931348623157e308, "1.79769313486232E+308"},
        {0.001, "0.001"},
        {1e-15, "0.000000000000001"},
        {1e-16, "1E-16"},
        {0.012345678901234, "0.012345678901234"},
        {0.0123456789012345678, "1.23456789012346E-02"},
        {5e-324, "4.94065645841247E-324"},
    };
    for (const auto& c : cases) EXPECT_EQ(DefaultText(c.value), c.text);
}

TEST(DefaultText, OfSingleHasUpTo7Digits) {
    const struct {
        Single value;
        const char* text;
    } cases[] = {
        {0.0f, "0"},
        {12.5f, "12.5"},
        {0.1f, "0.1"},
        {-99.99f, "-99.99"},
        {9999999.0f, "9999999"},
        {1e7f, "1E+07"},
        {12345678.0f, "1.234568E+07"},
        {1.0f / 3, "0.3333333"},
        {0.0000001f, "0.0000001"},
        {1e-8f, "1E-08"},
    };
    for (const auto& c : cases) EXPECT_EQ(DefaultText(c.value), c.text);
}

TEST(DefaultText, AgreesWithRoundingTo15And7DigitsOverManyValues) {
    std::mt19937_64 random(20100302);
    std::uniform_real_distribution<Double> mantissa(-1, 1);
    for (int i = 0; i < 200'000; ++i) {
        // Half of them plain noise, half of them with up to five decimals, as hours and amounts are.
        Double value = mantissa(random) * std::pow(10, static_cast<int>(random() % 13) - 3);
        if (i % 2 == 0) {
            const Double power = std::pow(10, static_cast<int>(random() % 6));
            value = std::round(value * power) / power;
        }
        char expected[40];
        std::snprintf(expected, sizeof expected, "%.15g", value);
        if (std::string_view(expected).find('e') == std::string_view::npos && std::fabs(value) >= 1) {
            ASSERT_EQ(DefaultText(value), value == 0 ? "0" : expected);
        }
        const auto single = static_cast<Single>(value);
        std::snprintf(expected, sizeof expected, "%.7g", static_cast<Double>(single));
        if (std::string_view(expected).find('e') == std::string_view::npos && std::fabs(single) >= 1) {
            ASSERT_EQ(DefaultText(single), expected);
        }
    }
}

TEST(DefaultText, OfWholeNumbers) {
    EXPECT_EQ(DefaultText(Int32{0}), "0");
    EXPECT_EQ(DefaultText(std::numeric_limits<Int32>::max()), "2147483647");
    EXPECT_EQ(DefaultText(std::numeric_limits<Int32>::min()), "-2147483648");
    EXPECT_EQ(DefaultText(Byte{255}), "255");
    EXPECT_EQ(DefaultText(Int16{-1}), "-1");
    EXPECT_EQ(DefaultText(Bool(true)), "True");
    EXPECT_EQ(DefaultText(Bool(false)), "False");
}

TEST(DefaultText, OfWhatIsNoNumberRaisesOverflow) {
    EXPECT_RAISES(6, DefaultText(std::numeric_limits<Double>::infinity()));
    EXPECT_RAISES(6, DefaultText(std::numeric_limits<Single>::quiet_NaN()));
}

TEST(DefaultText, FollowsTheDecimalSeparatorOfTheLocale) {
    const test_support::CommaLocale comma;
    EXPECT_EQ(DefaultText(6.5), "6,5");
    EXPECT_EQ(DefaultText(0.25f), "0,25");
    EXPECT_EQ(DefaultText(1.5e20), "1,5E+20");
    EXPECT_EQ(DefaultText(1234567.5), "1234567,5");
    EXPECT_EQ(DefaultText(Int32{1234567}), "1234567");
}

TEST(KeyText, HasTenDigits) {
    EXPECT_EQ(KeyText(0), "0000000000");
    EXPECT_EQ(KeyText(42), "0000000042");
    EXPECT_EQ(KeyText(2147483647), "2147483647");
    EXPECT_EQ(KeyText(-1), "-0000000001");
}

TEST(ToDouble, ReadsNumbersStrictly) {
    const struct {
        const char* text;
        Double value;
    } cases[] = {{"0", 0},        {"12", 12},     {"-12.5", -12.5}, {"+3", 3},  {".5", 0.5},   {"5.", 5},
                 {"1E+15", 1e15}, {"1e-3", 1e-3}, {"  7 ", 7},      {"007", 7}, {"1e-400", 0}, {"0e999", 0}};
    for (const auto& c : cases) EXPECT_EQ(ToDouble(c.text), c.value) << c.text;
    for (const char* text :
         {"", " ", "-", ".", "1,5", "12x", "x12", "1 2", "1E", "--1", "0x10", "inf", "nan", "1.2.3", "7M123"}) {
        EXPECT_RAISES(13, ToDouble(text)) << text;
    }
    EXPECT_RAISES(6, ToDouble("1e400"));
}

TEST(ToDouble, FollowsTheDecimalSeparatorOfTheLocale) {
    const test_support::CommaLocale comma;
    EXPECT_EQ(ToDouble("6,5"), 6.5);
    EXPECT_RAISES(13, ToDouble("6.5"));
    EXPECT_RAISES(13, ToDouble("1.234,5"));
}

TEST(Quoted, DoublesEachSingleQuoteAndNothingElse) {
    const struct {
        const char* text;
        const char* quoted;
    } cases[] = {{"", ""},       {"Führung", "Führung"}, {"O'Neil", "O''Neil"},   {"'", "''"},
                 {"''", "''''"}, {"'a'", "''a''"},       {"\"{a}\"%", "\"{a}\"%"}};
    for (const auto& c : cases) EXPECT_EQ(Quoted(c.text), c.quoted) << c.text;
}

TEST(ToBool, ReadsWordsAndNumbers) {
    EXPECT_EQ(ToBool("True"), true);
    EXPECT_EQ(ToBool(" false "), false);
    EXPECT_EQ(ToBool("-1"), true);
    EXPECT_EQ(ToBool("0"), false);
    EXPECT_EQ(ToBool("0.5"), true);
    for (const char* text : {"", "ja", "wahr", "T", "yes"}) EXPECT_RAISES(13, ToBool(text)) << text;
}

}  // namespace
}  // namespace LumoSeminar
