#include <LumoSeminar/frame/types.h>

#include <gtest/gtest.h>

#include <LumoSeminar/frame/variant.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

TEST(Bool, IsMinusOneOrZero) {
    EXPECT_EQ(Bool().Number(), 0);
    EXPECT_EQ(Bool(false).Number(), 0);
    EXPECT_EQ(Bool(true).Number(), -1);
    EXPECT_TRUE(Bool(true) == true);
    EXPECT_TRUE(Bool() == false);
}

TEST(Bool, IsBuiltFromBoolAlone) {
    static_assert(std::is_convertible_v<bool, Bool>);
    static_assert(!std::is_constructible_v<Bool, int>);
    static_assert(!std::is_constructible_v<Bool, const char*>);
    static_assert(!std::is_constructible_v<Bool, void*>);
    static_assert(!std::is_convertible_v<Bool, int>);
}

TEST(CheckedConversion, TakesATruthValueAsMinusOneAndZero) {
    EXPECT_EQ(To<Int16>(true), -1);
    EXPECT_EQ(To<Int32>(false), 0);
    EXPECT_EQ(To<Double>(true), -1.0);
}

TEST(CheckedConversion, KeepsWhatFits) {
    EXPECT_EQ(To<Byte>(Int32{255}), 255);
    EXPECT_EQ(To<Int16>(Int32{-32768}), -32768);
    EXPECT_EQ(To<Int32>(2147483647.4), 2147483647);
    EXPECT_EQ(To<Int32>(std::int64_t{-2147483648}), -2147483648);
    EXPECT_EQ(To<Single>(0.5), 0.5f);
}

TEST(CheckedConversion, RaisesOverflowBesideTheRange) {
    EXPECT_RAISES(6, To<Byte>(Int32{256}));
    EXPECT_RAISES(6, To<Byte>(Int32{-1}));
    EXPECT_RAISES(6, To<Int16>(Int32{32768}));
    EXPECT_RAISES(6, To<Int32>(2147483647.5));
    EXPECT_RAISES(6, To<Int32>(-2147483649.0));
    EXPECT_RAISES(6, To<Int32>(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_RAISES(6, To<Int32>(std::numeric_limits<double>::infinity()));
    EXPECT_RAISES(6, To<Single>(1e300));
    EXPECT_RAISES(6, To<std::int64_t>(9223372036854775808.0));
}

TEST(CheckedConversion, RoundsHalvesToEven) {
    EXPECT_EQ(To<Int32>(0.5), 0);
    EXPECT_EQ(To<Int32>(1.5), 2);
    EXPECT_EQ(To<Int32>(2.5), 2);
    EXPECT_EQ(To<Int32>(-0.5), 0);
    EXPECT_EQ(To<Int32>(-1.5), -2);
    EXPECT_EQ(To<Int16>(12.6f), 13);
    EXPECT_EQ(To<Byte>(254.5), 254);
}

TEST(CheckedSum, RaisesOverflow) {
    EXPECT_EQ(Add(2147483646, 1), 2147483647);
    EXPECT_RAISES(6, Add(2147483647, 1));
    EXPECT_RAISES(6, Add(-2147483647 - 1, -1));
}

}  // namespace
}  // namespace LumoSeminar
