#include <LumoSeminar/frame/variant.h>

#include <gtest/gtest.h>

#include <sstream>

#include <LumoSeminar/frame/error_list.h>
#include <test_support/comma_locale.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

TEST(Variant, HoldsEachType) {
    const struct {
        Variant value;
        const char* type;
    } cases[] = {
        {{}, "Empty"},
        {Variant::Null(), "Null"},
        {true, "Bool"},
        {Byte{1}, "Byte"},
        {Int16{1}, "Int16"},
        {1, "Int32"},
        {1.0f, "Single"},
        {1.0, "Double"},
        {Money(1), "Money"},
        {DateTime(1), "DateTime"},
        {"Ü", "Text"},
        {Text("x"), "Text"},
        {New<colErrorMsg>(), "Object"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.value.TypeName(), c.type);
    EXPECT_TRUE(Variant().IsEmpty());
    EXPECT_TRUE(Variant::Null().IsNull());
    EXPECT_FALSE(Variant(0).IsEmpty());
}

TEST(Variant, TakesATextLiteralAsTextAndNotAsATruthValue) {
    EXPECT_EQ(*Variant("Müller").If<Text>(), "Müller");
    EXPECT_EQ(Variant(true).If<Bool>()->Number(), -1);
}

TEST(Variant, EmptyConvertsToTheEmptyValueOfEachType) {
    const Variant empty;
    EXPECT_EQ(To<Int32>(empty), 0);
    EXPECT_EQ(To<Byte>(empty), 0);
    EXPECT_EQ(To<Double>(empty), 0);
    EXPECT_EQ(To<Text>(empty), "");
    EXPECT_EQ(To<Bool>(empty), false);
    EXPECT_EQ(To<Money>(empty), Money());
    EXPECT_EQ(To<DateTime>(empty), DateTime());
}

template <class T>
void ExpectRaisesForEachType(const Variant& value, std::int32_t number) {
    EXPECT_RAISES(number, To<T>(value));
}

template <class... T>
void ExpectRaisesForAll(const Variant& value, std::int32_t number) {
    (ExpectRaisesForEachType<T>(value, number), ...);
}

TEST(Variant, NullConvertsToNothing) {
    ExpectRaisesForAll<Bool, Byte, Int16, Int32, Single, Double, Money, DateTime, Text>(Variant::Null(), 94);
}

TEST(Variant, AnObjectConvertsToNothing) {
    ExpectRaisesForAll<Bool, Byte, Int16, Int32, Single, Double, Money, DateTime, Text>(New<colErrorMsg>(), 13);
}

TEST(Variant, ATextThatIsNoSuchValueRaisesTypeMismatch) {
    ExpectRaisesForAll<Bool, Byte, Int16, Int32, Single, Double, Money, DateTime>("keiner", 13);
    ExpectRaisesForAll<Bool, Byte, Int16, Int32, Single, Double, Money, DateTime>("", 13);
}

TEST(Variant, ConvertsBetweenNumbers) {
    EXPECT_EQ(To<Int32>(Variant(2.5)), 2);
    EXPECT_EQ(To<Int32>(Variant(3.5f)), 4);
    EXPECT_EQ(To<Int16>(Variant(Money::FromUnits(126'000))), 13);
    EXPECT_EQ(To<Byte>(Variant(Int16{200})), 200);
    EXPECT_EQ(To<Double>(Variant(Money::FromUnits(12'345))), 1.2345);
    EXPECT_EQ(To<Money>(Variant(1.23456)), Money::FromUnits(12'346));
    EXPECT_EQ(To<Money>(Variant(7)), Money(7));
    EXPECT_EQ(To<Single>(Variant(0.1)), 0.1f);
    EXPECT_EQ(To<Int32>(Variant(true)), -1);
    EXPECT_EQ(To<Money>(Variant(true)), Money(-1));
    EXPECT_EQ(To<Bool>(Variant(0.5)), true);
    EXPECT_EQ(To<Bool>(Variant(Money())), false);
    EXPECT_EQ(To<DateTime>(Variant(-1)), DateTime(-1));
    EXPECT_EQ(To<Double>(Variant(DateTime(0.375))), 0.375);
    EXPECT_EQ(To<Bool>(Variant(DateTime())), false);
}

TEST(Variant, RaisesOverflow) {
    EXPECT_RAISES(6, To<Byte>(Variant(300)));
    EXPECT_RAISES(6, To<Byte>(Variant(true)));
    EXPECT_RAISES(6, To<Int16>(Variant(40000)));
    EXPECT_RAISES(6, To<Int32>(Variant(3e9)));
    EXPECT_RAISES(6, To<Int32>(Variant("2147483648")));
    EXPECT_RAISES(6, To<Money>(Variant(1e20)));
    EXPECT_RAISES(6, To<DateTime>(Variant(3'000'000)));
    EXPECT_RAISES(6, To<Single>(Variant(1e300)));
}

TEST(Variant, ConvertsToAndFromText) {
    EXPECT_EQ(To<Text>(Variant(12)), "12");
    EXPECT_EQ(To<Text>(Variant(Byte{7})), "7");
    EXPECT_EQ(To<Text>(Variant(2.5)), "2.5");
    EXPECT_EQ(To<Text>(Variant(true)), "True");
    EXPECT_EQ(To<Text>(Variant(DateTime(40239.5))), "02.03.2010 12:00:00");
    EXPECT_EQ(To<Int32>(Variant(" 42 ")), 42);
    EXPECT_EQ(To<Int32>(Variant("2.5")), 2);
    EXPECT_EQ(To<Bool>(Variant("-1")), true);
    EXPECT_EQ(To<DateTime>(Variant("02.03.2010")), DateTime(40239));
    EXPECT_EQ(To<Money>(Variant("99.9999")), Money::FromUnits(999'999));
    const test_support::CommaLocale comma;
    EXPECT_EQ(To<Text>(Variant(2.5)), "2,5");
    EXPECT_EQ(To<Double>(Variant("2,5")), 2.5);
}

TEST(Reference, EmptyOneUsedAsObjectRaises91) {
    Ref<colErrorMsg> nothing;
    EXPECT_RAISES(91, nothing->Count());
    EXPECT_RAISES(91, (*nothing).Count());
    EXPECT_FALSE(nothing);
}

TEST(Reference, IsCountedAndSeenAsItsBase) {
    auto list = New<colErrorMsg>();
    const Ref<Object> object = list;
    EXPECT_EQ(list.UseCount(), 2);
    EXPECT_EQ(object, list);
    EXPECT_EQ(object.As<colErrorMsg>(), list);
    EXPECT_EQ(object.As<clsErrorMsg>(), nullptr);
    list.Reset();
    EXPECT_EQ(object.UseCount(), 1);
}

TEST(Variant, IsWrittenToAStreamInItsTextForm) {
    const struct {
        Variant value;
        const char* text;
    } cases[] = {
        {Variant(), ""},
        {Variant::Null(), "Null"},
        {Variant(true), "True"},
        {Variant(Int32{-7}), "-7"},
        {Variant(1.5), "1.5"},
        {Variant(Money::FromUnits(15)), "0.0015"},
        {Variant(DateTime::Of(2010, 3, 2)), "02.03.2010"},
        {Variant("Führung"), "Führung"},
        {Variant(Ref<Object>()), "Object"},
    };
    for (const auto& c : cases) {
        std::ostringstream stream;
        stream << c.value;
        EXPECT_EQ(stream.str(), c.text);
    }
}

}  // namespace
}  // namespace LumoSeminar
