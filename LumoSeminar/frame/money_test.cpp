#include <LumoSeminar/frame/money.h>

#include <gtest/gtest.h>

#include <sstream>

#include <LumoSeminar/frame/text_form.h>
#include <LumoSeminar/frame/variant.h>
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

TEST(Money, FromANumberRoundsTheHalvesOfItsDecimalTextToEven) {
    const struct {
        Double number;
        std::int64_t units;
    } cases[] = {
        {0.00005, 0},
        {0.00015, 2},
        {0.00025, 2},
        {0.00035, 4},
        {0.00045, 4},
        {1.00005, 10'000},
        {1.00015, 10'002},
        {120.00005, 1'200'000},
        {120.12335, 1'201'234},
        {120.12345, 1'201'234},
        {123456.78905, 1'234'567'890},
        {99999999.99995, 1'000'000'000'000},
        // beside a half
        {0.00004999, 0},
        {0.000050001, 1},
        {0.000149999, 1},
        {0.000250001, 3},
        {1.5e-5, 0},
        {1e-5, 0},
        {1e-300, 0},
        {120.75, 1'207'500},
        {0.1 + 0.2, 3'000},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.number);
        EXPECT_EQ(Money::FromDouble(c.number).Units(), c.units);
        EXPECT_EQ(Money::FromDouble(-c.number).Units(), -c.units);
        EXPECT_EQ(To<Money>(Variant(c.number)).Units(), c.units);
        EXPECT_EQ(To<Money>(Variant(-c.number)).Units(), -c.units);
    }
}

TEST(Money, FromASingleGoesByTheDecimalTextOfTheSingle) {
    const struct {
        Single number;
        std::int64_t units;
    } cases[] = {{0.00005F, 0},        {0.00015F, 2},        {0.00025F, 2}, {12.34565F, 123'456},
                 {12.34575F, 123'458}, {120.75F, 1'207'500}, {0.1F, 1'000}, {1e-30F, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.number);
        EXPECT_EQ(Money::FromSingle(c.number).Units(), c.units);
        EXPECT_EQ(To<Money>(Variant(c.number)).Units(), c.units);
        EXPECT_EQ(To<Money>(Variant(-c.number)).Units(), -c.units);
    }
    EXPECT_RAISES(6, Money::FromSingle(1e15F));
}

TEST(Money, TakesNoNumberThatItWouldCut) {
    static_assert(!std::is_constructible_v<Money, Double>);
    static_assert(!std::is_convertible_v<Double, Money>);
    static_assert(!std::is_constructible_v<Money, Single>);
    static_assert(!std::is_constructible_v<Money, long double>);
    static_assert(!std::is_constructible_v<Money, bool>);
    static_assert(!std::is_constructible_v<Money, Bool>);
    static_assert(!std::is_constructible_v<Money, std::int64_t>);
    static_assert(!std::is_constructible_v<Money, std::uint32_t>);
    static_assert(!std::is_assignable_v<Money&, Double>);
    static_assert(!std::equality_comparable_with<Money, Double>);
    static_assert(std::is_convertible_v<Int32, Money>);
    static_assert(std::is_convertible_v<Int16, Money>);
    static_assert(std::is_convertible_v<Byte, Money>);
}

TEST(Money, IsWrittenToAStreamInItsTextForm) {
    std::ostringstream stream;
    stream << Money::FromUnits(1'205'000) << ' ' << Money(-3);
    EXPECT_EQ(stream.str(), "120.5 -3");
}

TEST(Money, RefusesDoublesBesideItsRange) {
    EXPECT_EQ(Money::FromDouble(9e14).Units(), 9'000'000'000'000'000'000);
    EXPECT_RAISES(6, Money::FromDouble(922337203685478.0));
    EXPECT_RAISES(6, Money::FromDouble(1e15));
    EXPECT_RAISES(6, Money::FromDouble(1e300));
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
