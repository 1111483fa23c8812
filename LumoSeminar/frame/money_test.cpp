#include <LumoSeminar/frame/money.h>

#include <gtest/gtest.h>

#include <LumoSeminar/frame/text_form.h>
#include <test_support/comma_locale.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

constexpr Money kLargest = Money::FromUnits(std::numeric_limits<std::int64_t>::max());
constexpr Money kSmallest = Money::FromUnits(std::numeric_limits<std::int64_t>::min());

TEST(Money, TextFormHasUpToFourDecimalsAndNoTrailingZeros) {
    const struct {
        std::int64_t units;
        const char* text;
    } cases[] = {
        {0, "0"},
        {10'000, "1"},
        {-10'000, "-1"},
        {1'205'000, "120.5"},
        {1, "0.0001"},
        {-1, "-0.0001"},
        {10, "0.001"},
        {100, "0.01"},
        {1'000, "0.1"},
        {12'345, "1.2345"},
        {999'999, "99.9999"},
        {-5'000, "-0.5"},
        {1'234'567'890'000, "123456789"},
    };
    for (const auto& c : cases) EXPECT_EQ(DefaultText(Money::FromUnits(c.units)), c.text);
}

TEST(Money, IsExactAtBothEndsOfItsRange) {
    EXPECT_EQ(DefaultText(kLargest), "922337203685477.5807");
    EXPECT_EQ(DefaultText(kSmallest), "-922337203685477.5808");
    EXPECT_EQ(ToMoney("922337203685477.5807"), kLargest);
    EXPECT_EQ(ToMoney("-922337203685477.5808"), kSmallest);
    EXPECT_RAISES(6, ToMoney("922337203685477.5808"));
    EXPECT_RAISES(6, ToMoney("922337203685477.58075"));
    EXPECT_RAISES(6, ToMoney("-922337203685477.5809"));
    EXPECT_RAISES(6, ToMoney("99999999999999999999"));
}

TEST(Money, RoundsTheFifthDecimalHalfToEven) {
    EXPECT_EQ(ToMoney("0.00005").Units(), 0);
    EXPECT_EQ(ToMoney("0.00015").Units(), 2);
    EXPECT_EQ(ToMoney("0.00025").Units(), 2);
    EXPECT_EQ(ToMoney("0.000250001").Units(), 3);
    EXPECT_EQ(ToMoney("-0.00015").Units(), -2);
    EXPECT_EQ(ToMoney("5.00005").Units(), 50'000);
    EXPECT_EQ(Money::FromDouble(0.5).Units(), 5'000);
    EXPECT_EQ(Money::FromDouble(-1.00004).Units(), -10'000);
    EXPECT_EQ(Money::FromDouble(0.1).Units(), 1'000);
}

TEST(Money, RefusesDoublesBesideItsRange) {
    EXPECT_EQ(Money::FromDouble(9e14).Units(), 9'000'000'000'000'000'000);
    EXPECT_RAISES(6, Money::FromDouble(1e15));
    EXPECT_RAISES(6, Money::FromDouble(-1e15));
    EXPECT_RAISES(6, Money::FromDouble(std::numeric_limits<double>::quiet_NaN()));
}

TEST(Money, RoundedGoesToTheEvenNeighbour) {
    EXPECT_EQ(Money::FromUnits(5'000).Rounded(), 0);
    EXPECT_EQ(Money::FromUnits(15'000).Rounded(), 2);
    EXPECT_EQ(Money::FromUnits(-25'000).Rounded(), -2);
    EXPECT_EQ(Money::FromUnits(-25'001).Rounded(), -3);
    EXPECT_EQ(kLargest.Rounded(), 922'337'203'685'478);
}

TEST(Money, Compares) {
    EXPECT_LT(Money(1), Money(2));
    EXPECT_LT(Money(-2), Money(-1));
    EXPECT_EQ(Money(3), Money::FromUnits(30'000));
}

TEST(Money, FollowsTheDecimalSeparatorOfTheLocaleAndHasNoThousandsSeparator) {
    const test_support::CommaLocale comma;
    EXPECT_EQ(DefaultText(Money::FromUnits(12'345'678'905'000)), "1234567890,5");
    EXPECT_EQ(ToMoney("120,5").Units(), 1'205'000);
    EXPECT_RAISES(13, ToMoney("120.5"));
}

}  // namespace
}  // namespace LumoSeminar
