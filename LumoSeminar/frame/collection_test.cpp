#include <LumoSeminar/frame/collection.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

class Thing final : public Object {
  public:
    explicit Thing(int number) : number_(number) { ++alive; }
    ~Thing() override { --alive; }
    int Number() const { return number_; }

    static inline int alive = 0;

  private:
    int number_;
};

Ref<Collection<Thing>> Things(int count) {
    auto things = New<Collection<Thing>>();
    for (int i = 1; i <= count; ++i) things->Add(New<Thing>(i), std::to_string(i));
    return things;
}

std::vector<int> Numbers(const Ref<Collection<Thing>>& things) {
    std::vector<int> numbers;
    for (const auto& thing : *things) numbers.push_back(thing->Number());
    return numbers;
}

TEST(Collection, IsOrderedAndCountsFromOne) {
    const auto things = Things(3);
    EXPECT_EQ(things->Count(), 3);
    EXPECT_EQ(things->Item(1)->Number(), 1);
    EXPECT_EQ(things->Item(3)->Number(), 3);
    EXPECT_EQ(Numbers(things), (std::vector{1, 2, 3}));
}

TEST(Collection, FindsByKeyAndByPositionOfAnyNumberType) {
    const auto things = Things(3);
    EXPECT_EQ(things->Item("2")->Number(), 2);
    EXPECT_EQ(things->Item(Int16{2})->Number(), 2);
    EXPECT_EQ(things->Item(2.5)->Number(), 2);
    EXPECT_EQ(things->Item(Byte{1})->Number(), 1);
}

TEST(Collection, RaisesForWhatIsNotThere) {
    const auto things = Things(2);
    EXPECT_RAISES(5, things->Item("7"));
    EXPECT_RAISES(5, things->Item(""));
    EXPECT_RAISES(9, things->Item(0));
    EXPECT_RAISES(9, things->Item(3));
    EXPECT_RAISES(9, things->Item(-1));
    EXPECT_RAISES(9, things->Item(Variant()));
    EXPECT_RAISES(94, things->Item(Variant::Null()));
    EXPECT_RAISES(13, things->Item(New<Thing>(1)));
    EXPECT_RAISES(5, things->Remove("7"));
    EXPECT_RAISES(9, things->Remove(3));
    EXPECT_EQ(things->Count(), 2);
}

TEST(Collection, RefusesAKeyThatIsAlreadyThere) {
    const auto things = Things(1);
    EXPECT_RAISES(457, things->Add(New<Thing>(9), "1"));
    EXPECT_EQ(Numbers(things), (std::vector{1}));
    things->Add(New<Thing>(10), "A");
    things->Add(New<Thing>(11), "a");
    EXPECT_EQ(things->Item("a")->Number(), 11);
}

TEST(Collection, EntriesWithoutAKeyHaveAPositionOnly) {
    const auto things = New<Collection<Thing>>();
    const auto same = New<Thing>(1);
    things->Add(same);
    things->Add(same);
    EXPECT_EQ(things->Count(), 2);
    EXPECT_RAISES(5, things->Item("1"));
    things->Remove(1);
    EXPECT_EQ(things->Item(1), same);
}

TEST(Collection, KeysAreFoundInAnyOrderOfAddingAndAsking) {
    const std::string long_key(40, 'x');
    const std::vector<std::vector<std::string>> orders = {{"01", "02", "03", "04", long_key},
                                                          {"04", "03", "02", "01", long_key},
                                                          {long_key, "02", "04", "01", "03"},
                                                          {"", "1", "10", "2", "ä"}};
    for (const auto& keys : orders) {
        const auto things = New<Collection<Thing>>();
        for (int i = 0; i < 5; ++i) things->Add(New<Thing>(i), keys[static_cast<std::size_t>(i)]);
        for (int round = 0; round < 3; ++round) {
            for (std::size_t i = 5; i-- > 0;) {
                EXPECT_EQ(things->Item(keys[i])->Number(), static_cast<int>(i));
                EXPECT_RAISES(5, things->Item(keys[i] + "?"));
                EXPECT_EQ(things->ItemOrNothing(keys[i])->Number(), static_cast<int>(i));
                EXPECT_FALSE(things->ItemOrNothing("!" + keys[i]));
            }
        }
        for (const auto& key : keys) EXPECT_RAISES(457, things->Add(New<Thing>(9), key));
        EXPECT_EQ(things->Count(), 5);
    }
}

TEST(Collection, ItemOrNothingRaisesForAPositionThatIsNotThere) {
    const auto things = Things(1);
    EXPECT_EQ(things->ItemOrNothing(1)->Number(), 1);
    EXPECT_RAISES(9, things->ItemOrNothing(2));
    EXPECT_RAISES(94, things->ItemOrNothing(Variant::Null()));
}

// Whatever way the entries are kept: against a plain list of pairs.
TEST(Collection, IsAPlainListUnderAnyMixOfCalls) {
    std::mt19937 random(20270301);
    const auto Below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int round = 0; round < 200; ++round) {
        const auto things = New<Collection<Thing>>();
        std::vector<std::pair<std::string, int>> plain;
        for (int step = 0; step < 120; ++step) {
            const int number = step;
            const bool rising = round % 2 == 0 && Below(20) != 0;
            const std::string key = std::to_string(rising ? 10'000 + step : 10'000 + Below(150));
            const auto known = std::ranges::find(plain, key, &std::pair<std::string, int>::first);
            switch (Below(5)) {
                case 0:
                case 1:
                    if (known == plain.end()) {
                        things->Add(New<Thing>(number), key);
                        plain.emplace_back(key, number);
                    } else {
                        EXPECT_RAISES(457, things->Add(New<Thing>(number), key));
                    }
                    break;
                case 2:
                    if (known == plain.end()) {
                        EXPECT_RAISES(5, things->Remove(key));
                    } else {
                        things->Remove(key);
                        plain.erase(known);
                    }
                    break;
                case 3:
                    if (known == plain.end()) {
                        EXPECT_FALSE(things->ItemOrNothing(key));
                    } else {
                        EXPECT_EQ(things->Item(key)->Number(), known->second);
                    }
                    break;
                default:
                    if (plain.empty()) break;
                    const int at = Below(static_cast<int>(plain.size()));
                    EXPECT_EQ(things->Item(at + 1)->Number(), plain[static_cast<std::size_t>(at)].second);
                    if (Below(3) == 0) {
                        things->Remove(at + 1);
                        plain.erase(plain.begin() + at);
                    }
            }
            ASSERT_EQ(things->Count(), static_cast<Int32>(plain.size()));
        }
        std::vector<int> expected;
        for (const auto& entry : plain) expected.push_back(entry.second);
        ASSERT_EQ(Numbers(things), expected) << "round " << round;
    }
    EXPECT_EQ(Thing::alive, 0);
}

TEST(Collection, AKeyIsFreeAgainAfterItsRemoval) {
    const auto things = Things(2);
    things->Remove("1");
    things->Add(New<Thing>(3), "1");
    EXPECT_EQ(Numbers(things), (std::vector{2, 3}));
    things->Remove(1);
    EXPECT_RAISES(5, things->Item("2"));
}

TEST(Collection, PositionsStayRightInAnyOrderOfAccess) {
    const auto things = Things(50);
    for (const int position : {1, 2, 3, 50, 49, 25, 24, 26, 1, 50, 10})
        EXPECT_EQ(things->Item(position)->Number(), position);
    things->Remove(10);
    EXPECT_EQ(things->Item(10)->Number(), 11);
    EXPECT_EQ(things->Item(49)->Number(), 50);
    things->Add(New<Thing>(51), "51");
    EXPECT_EQ(things->Item(50)->Number(), 51);
}

TEST(Collection, EntriesMayGoDuringAWalk) {
    const auto things = Things(5);
    std::vector<int> met;
    for (const auto& thing : *things) {
        met.push_back(thing->Number());
        things->Remove(std::to_string(thing->Number()));
    }
    EXPECT_EQ(met, (std::vector{1, 2, 3, 4, 5}));
    EXPECT_EQ(things->Count(), 0);
}

TEST(Collection, AWalkPassesOverEntriesRemovedAheadOfIt) {
    const auto things = Things(5);
    std::vector<int> met;
    for (const auto& thing : *things) {
        met.push_back(thing->Number());
        if (thing->Number() == 2) {
            things->Remove("2");
            things->Remove("3");
            things->Remove("1");
        }
    }
    EXPECT_EQ(met, (std::vector{1, 2, 4, 5}));
}

TEST(Collection, AWalkMeetsEntriesAddedMeanwhile) {
    const auto things = Things(2);
    std::vector<int> met;
    for (const auto& thing : *things) {
        met.push_back(thing->Number());
        if (thing->Number() == 2) {
            things->Remove("2");
            things->Add(New<Thing>(3), "3");
        }
    }
    EXPECT_EQ(met, (std::vector{1, 2, 3}));
}

TEST(Collection, WalksDoNotDisturbEachOther) {
    const auto things = Things(3);
    std::vector<int> met;
    for (const auto& outer : *things) {
        for (const auto& inner : *things) met.push_back(outer->Number() * 10 + inner->Number());
        if (outer->Number() == 1) things->Remove("3");
    }
    EXPECT_EQ(met, (std::vector{11, 12, 13, 21, 22}));
}

TEST(Enumerator, KeepsItsCollectionAlive) {
    std::vector<int> met;
    for (const auto& thing : Enumerator(Things(2))) met.push_back(thing->Number());
    EXPECT_EQ(met, (std::vector{1, 2}));
}

TEST(Collection, SharesItsEntriesAndLetsThemGo) {
    const int before = Thing::alive;
    auto things = Things(3);
    auto kept = things->Item(2);
    EXPECT_EQ(kept.UseCount(), 2);
    things->Remove(1);
    EXPECT_EQ(Thing::alive - before, 2);
    things.Reset();
    EXPECT_EQ(Thing::alive - before, 1);
    EXPECT_EQ(kept->Number(), 2);
}

TEST(Collection, HoldsManyEntries) {
    constexpr int kMany = 100'000;
    const auto things = Things(kMany);
    for (int position = 1; position <= kMany; ++position) ASSERT_EQ(things->Item(position)->Number(), position);
    for (const auto& thing : *things) things->Remove(std::to_string(thing->Number()));
    EXPECT_EQ(things->Count(), 0);
}

// An object that the references given out hold, too.

/// Three things and a fourth that goes with the owner.
struct Owner final : Object {
    Ref<Collection<Thing>> things = Things(3);
    Thing own{0};
};

Ref<Owner> OwnerHeldByItsThings() {
    auto owner = New<Owner>();
    owner->things->HoldsAlso(owner.Shared());
    return owner;
}

TEST(CollectionHoldsAlso, EveryReferenceThatTheListGivesOutHoldsTheObjectAndThroughItTheOthers) {
    const int before = Thing::alive;
    const struct {
        const char* name;
        Ref<Thing> (*second)(Collection<Thing>&);
    } ways[] = {
        {"position", [](Collection<Thing>& things) { return things.Item(2); }},
        {"key", [](Collection<Thing>& things) { return things.Item("2"); }},
        {"position or nothing", [](Collection<Thing>& things) { return things.ItemOrNothing(2); }},
        {"key or nothing", [](Collection<Thing>& things) { return things.ItemOrNothing("2"); }},
        {"walk", [](Collection<Thing>& things) { return *++things.begin(); }},
        {"walk over an entry that is taken out",
         [](Collection<Thing>& things) {
             auto place = things.begin();
             ++place;
             things.Remove(2);
             return *place;
         }},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.name);
        auto owner = OwnerHeldByItsThings();
        auto second = way.second(*owner->things);
        owner.Reset();
        EXPECT_EQ(second->Number(), 2);
        EXPECT_EQ(Thing::alive - before, 4);
        second.Reset();
        EXPECT_EQ(Thing::alive, before);
    }
}

TEST(CollectionHoldsAlso, WithoutItAReferenceHoldsItsEntryOnly) {
    const int before = Thing::alive;
    auto owner = New<Owner>();
    const auto second = owner->things->Item(2);
    owner.Reset();
    EXPECT_EQ(Thing::alive - before, 1);
}

TEST(CollectionHoldsAlso, TheListItselfDoesNotHoldTheObject) {
    const int before = Thing::alive;
    auto owner = OwnerHeldByItsThings();
    auto things = owner->things;
    owner.Reset();
    EXPECT_EQ(Thing::alive - before, 3);
    auto second = things->Item(2);
    EXPECT_EQ(second.UseCount(), 2) << "handed out as it is";
    things.Reset();
    EXPECT_EQ(Thing::alive - before, 1);
}

TEST(CollectionHoldsAlso, ReferencesToOneEntryAreTheSame) {
    const auto owner = New<Owner>();
    const auto& things = owner->things;
    const auto first = things->Item(1);
    things->HoldsAlso(owner.Shared());
    EXPECT_EQ(things->Item(1), first);
    EXPECT_EQ(things->Item("1"), things->Item(1));
    EXPECT_EQ(things->Item(1).Get(), first.Get());
    EXPECT_NE(things->Item(2), first);
}

TEST(CollectionHoldsAlso, AnEntryThatIsTakenOutHoldsTheObjectAsLongAsItIsHeld) {
    const int before = Thing::alive;
    auto owner = OwnerHeldByItsThings();
    auto second = owner->things->Item(2);
    owner->things->Remove(2);
    owner.Reset();
    EXPECT_EQ(Thing::alive - before, 4);
    second.Reset();
    EXPECT_EQ(Thing::alive, before);
}

TEST(CollectionHoldsAlso, CountsForEntriesThatAreAddedLaterAndRaisesAsEver) {
    const int before = Thing::alive;
    auto owner = OwnerHeldByItsThings();
    owner->things->Add(New<Thing>(4), "4");
    owner->things->Add(nullptr, "nothing");
    EXPECT_FALSE(owner->things->Item("nothing"));
    EXPECT_FALSE(owner->things->ItemOrNothing("7"));
    EXPECT_RAISES(5, owner->things->Item("7"));
    EXPECT_RAISES(9, owner->things->Item(6));
    const auto fourth = owner->things->Item("4");
    owner.Reset();
    EXPECT_EQ(Thing::alive - before, 5);
}

TEST(CollectionHoldsAlso, AnotherObjectMayTakeThePlaceAndNoneAtAll) {
    const int before = Thing::alive;
    auto things = Things(1);
    auto other = New<Thing>(9);
    things->HoldsAlso(New<Thing>(8).Shared());
    things->HoldsAlso(other.Shared());
    const auto first = things->Item(1);
    other.Reset();
    EXPECT_EQ(Thing::alive - before, 2);
    things->HoldsAlso({});
    EXPECT_EQ(things->Item(1), first);
    EXPECT_EQ(Thing::alive - before, 2) << "what was given out still holds it";
}

TEST(CollectionHoldsAlso, AWalkInWhichTheOwnerIsDroppedGoesOnOverAHeldList) {
    const int before = Thing::alive;
    auto owner = OwnerHeldByItsThings();
    std::vector<int> met;
    for (const auto& thing : Enumerator(owner->things)) {
        owner.Reset();
        met.push_back(thing->Number());
        EXPECT_EQ(Thing::alive - before, met.size() == 1 ? 4 : 3) << "the first reference held the owner";
    }
    EXPECT_EQ(met, (std::vector{1, 2, 3}));
    EXPECT_EQ(Thing::alive, before);
}

}  // namespace
}  // namespace LumoSeminar
