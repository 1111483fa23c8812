// What a C++ truth value becomes in the members that count -1 as true, and what does not become a number at all.

#include <gtest/gtest.h>

#include <functional>

#include <LumoSeminar/LumoSeminar.h>
#include <test_support/embedded.h>
#include <test_support/participant_statements.h>

namespace LumoSeminar {
namespace {

using test_support::SchemaDatabase;

class TruthValues : public participant_statements::ParticipantTest {
  protected:
    static Ref<DataSession> Session() { return SchemaDatabase(); }
};

TEST_F(TruthValues, AreLetAsMinusOneAndZero) {
    const auto session = Session();
    clsSerie series;
    clsTermin date;
    date.Init(0, session);
    const auto participant = date.clscolTeilnehmer()->Add(0);
    const struct {
        const char* member;
        std::function<Int16()> get;
        std::function<void(bool)> let;
        std::function<void(Bool)> let_bool;
        std::function<void(Int16)> let_number;
    } cases[] = {
#define MEMBER(object, member)                        \
    {                                                 \
        #member,                                      \
        [&] { return (object).member(); },            \
        [&](bool value) { (object).member(value); },  \
        [&](Bool value) { (object).member(value); },  \
        [&](Int16 value) { (object).member(value); }, \
    }
        MEMBER(series, Montag),     MEMBER(series, Dienstag),  MEMBER(series, Mittwoch),
        MEMBER(series, Donnerstag), MEMBER(series, Freitag),   MEMBER(series, Samstag),
        MEMBER(series, Sonntag),    MEMBER(date, SelfService), MEMBER(*participant, Teilnahme),
#undef MEMBER
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.member);
        c.let(true);
        EXPECT_EQ(c.get(), -1);
        c.let(false);
        EXPECT_EQ(c.get(), 0);
        c.let_bool(true);
        EXPECT_EQ(c.get(), -1);
        c.let_bool(false);
        EXPECT_EQ(c.get(), 0);
        c.let_number(7);
        EXPECT_EQ(c.get(), 7);
    }
}

TEST_F(TruthValues, OfASeriesMakeItsDays) {
    const auto session = Session();
    const auto series = New<clsSerie>();
    series->Init(0, session);
    series->Tagefolge(2);
    series->Woche(1);
    series->Montag(true);
    series->WriteToDatabase();
    const auto date = New<clsTermin>();
    date->Init(0, session);
    ASSERT_TRUE(date->WriteToDatabase());
    date->SerienID(series->SerienID());
    date->Sitzungen(2);
    date->BeginnDatum(DateTime::Of(2010, 3, 3));
    EXPECT_EQ(date->EndeDatum(), DateTime::Of(2010, 3, 15));
}

template <class T>
concept LetsCosts = requires(clsTeilnehmer& participant, T value) {
    participant.StornoKosten(value);
};
template <class T>
concept AddsDays = requires(DateTime day, T count) {
    day.AddDays(count);
    day.AddMinutes(count);
};
template <class T>
concept LetsMonday = requires(clsSerie& series, T value) {
    series.Montag(value);
};

TEST(Narrowing, IsRefusedWhileCompiling) {
    static_assert(LetsCosts<Int16>);
    static_assert(!LetsCosts<Double>);
    static_assert(!LetsCosts<Single>);
    static_assert(!LetsCosts<Money>);
    static_assert(AddsDays<Int32>);
    static_assert(!AddsDays<Double>);
    static_assert(LetsMonday<bool>);
    static_assert(LetsMonday<Bool>);
    static_assert(LetsMonday<Int16>);
    static_assert(!LetsMonday<const char*>);
    static_assert(!LetsMonday<Variant>);
}

}  // namespace
}  // namespace LumoSeminar
