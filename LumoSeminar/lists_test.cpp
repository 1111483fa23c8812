#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <test_support/failures.h>
#include <test_support/list_kinds.h>
#include <test_support/raises.h>

/// What holds for all lists. What is special in one of them stands in its own test.
namespace LumoSeminar {
namespace {

using lists::AnyList;
using lists::ListKind;
using LumoConnection::Script;
using test_support::ExpectedFailure;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::Labels;
using Keys = std::vector<Text>;

class Lists : public testing::TestWithParam<ListKind> {
  protected:
    const ListKind& kind_ = GetParam();
    Script script_;

    void Read(const std::vector<Int32>& numbers, Int32 owner = 17) {
        lists::ScriptList(script_, kind_, numbers, owner);
    }
    std::unique_ptr<AnyList> Listed(Int32 owner = 17) {
        auto list = kind_.make();
        EXPECT_EQ(list->Init(owner, script_.Session()), kind_.read);
        return list;
    }
    Text Key(Int32 number, Int32 owner = 17) const { return kind_.key(owner, number); }
    Keys KeysOf(const std::vector<Int32>& numbers, Int32 owner = 17) const {
        Keys keys;
        for (const Int32 number : numbers) keys.push_back(Key(number, owner));
        return keys;
    }
    /// Texts that look like keys and are none of a list of entry 1.
    Keys NoKeys() const {
        const Text key = Key(1);
        Keys no_keys = {Key(9), "", key + " ", "0" + key, key.substr(1), "Größe"};
        no_keys.push_back(key == "1" ? "0000000001" : "1");
        return no_keys;
    }
};

class ListsOnAConnection : public Lists {};
class ListsWithANullKey : public Lists {};
class ListsThatOnlyForget : public Lists {};

struct NoPosition {
    Variant index;
    Int32 number;
};
const NoPosition kNoPositions[] = {{0, 9}, {2, 9}, {-1, 9}, {Variant(), 9}, {Variant::Null(), 94}, {2147483648.0, 6}};

TEST_P(Lists, HaveTheirEntriesInTheOrderOfTheServerWithOneStatement) {
    const auto& numbers = kind_.numbers;
    Read(numbers);
    const auto list = Listed();
    EXPECT_EQ(list->Count(), 4);
    EXPECT_EQ(list->Keys(), KeysOf(numbers));
    EXPECT_EQ(script_.RecordsetCalls(), 1 + 4 * kind_.row_sets_of_an_entry);
    for (Int32 position = 1; position <= 4; ++position) {
        const auto entry = list->Item(position);
        ASSERT_TRUE(entry);
        EXPECT_EQ(list->Item(Key(numbers[static_cast<std::size_t>(position) - 1])), entry);
        EXPECT_EQ(list->Item(Double(position)), entry);
        EXPECT_EQ(list->Item(static_cast<Int16>(position)), entry);
    }
    EXPECT_EQ(script_.Report(), "");
}

TEST_P(Lists, AreEmptyBeforeTheyAreReadAndWhereThereIsNothing) {
    for (const Int32 owner : {17, 0}) Read({}, owner);
    const auto list = kind_.make();
    EXPECT_EQ(list->Count(), 0);
    for (const Int32 owner : {17, 0}) EXPECT_EQ(list->Init(owner, script_.Session()), kind_.read);
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(list->Keys(), Keys{});
    EXPECT_EQ(script_.Report(), "");
}

TEST_P(Lists, PutTheirOwnerIntoTheStatementAsItIs) {
    for (const Int32 owner : {-1, 2147483647}) Read({}, owner);
    const auto list = Listed(-1);
    EXPECT_EQ(list->Init(2147483647, script_.Session()), kind_.read);
    EXPECT_EQ(script_.Report(), "");
}

TEST_P(ListsOnAConnection, OpenAClosedOneFirst) {
    script_.AdoConnection().Closed();
    script_.ConnectionOpen().Ok();
    script_.OpenSelect(kind_.select(17)).Rows(kind_.columns, {kind_.row(17, 1)});
    kind_.script_entry(script_, 1);
    EXPECT_EQ(Listed()->Keys(), KeysOf({1}));
    EXPECT_EQ(script_.Report(), "");
}

TEST_P(ListsOnAConnection, AreFalseAndStayAsTheyWereWhereItStaysClosed) {
    for (const bool empty : {true, false}) {
        Script closed;
        if (empty) {
            closed.AdoConnection().Empty();
        } else {
            closed.AdoConnection().Closed();
            closed.ConnectionOpen().StaysClosed();
        }
        Script open;
        lists::ScriptList(open, kind_, {2});
        const auto list = kind_.make();
        list->Init(17, open.Session());
        EXPECT_EQ(list->Init(18, closed.Session()), Variant(false));
        EXPECT_EQ(list->Keys(), KeysOf({2}));
        EXPECT_TRUE(closed.SessionReleased());
        EXPECT_EQ(open.Report() + closed.Report(), "");
    }
}

TEST_P(Lists, AreFalseOrRaiseAndStayAsTheyWereWhereTheSelectIsRefused) {
    Read({2});
    if (kind_.asks_for_connection) script_.AdoConnection();
    script_.OpenSelect(kind_.select(17)).Refused("Ungültiger Objektname.");
    const auto list = Listed();
    const int row_sets = script_.RecordsetCalls();
    if (kind_.asks_for_connection) {
        EXPECT_EQ(list->Init(17, script_.Session()), Variant(false));
    } else {
        EXPECT_RAISES_TEXT(9999, "Ungültiger Objektname.", kind_.of_load, list->Init(17, script_.Session()));
    }
    EXPECT_EQ(list->Keys(), kind_.starts_anew ? Keys{} : KeysOf({2}));
    EXPECT_EQ(script_.RecordsetCalls(), row_sets);
    EXPECT_EQ(script_.LastErrorTextCalls(), kind_.asks_for_connection ? 0 : 1);
    EXPECT_EQ(script_.Report(), "");
}

TEST_P(Lists, AreFalseOrRaise91WithoutASession) {
    Read({2});
    const auto list = Listed();
    if (kind_.without_a_session.empty()) {
        EXPECT_EQ(list->Init(18, nullptr), Variant(false));
    } else {
        EXPECT_RAISES_TEXT(91, "An empty reference was used as an object.", kind_.without_a_session, list->Init(18, nullptr));
    }
    EXPECT_EQ(list->Keys(), KeysOf({2}));
}

TEST_P(Lists, AddWhatASecondInitReadsOrStartAnew) {
    Read({2});
    Read({3, 1}, 18);
    const auto list = Listed();
    const auto first = list->Item(1);
    EXPECT_EQ(list->Init(18, script_.Session()), kind_.read);
    Keys expected = KeysOf({3, 1}, 18);
    if (!kind_.starts_anew) {
        expected.insert(expected.begin(), Key(2));
        EXPECT_EQ(list->Item(1), first);
    }
    EXPECT_EQ(list->Keys(), expected);
    EXPECT_EQ(script_.Report(), "");
}

TEST_P(Lists, Raise457AtTheFirstKeyThatIsThereAndKeepWhatCameBeforeIt) {
    const auto collision = "The key \"" + Key(1) + "\" is already in the collection.";
    for (const bool in_one_load : {true, false}) {
        Script script;
        if (!in_one_load) lists::ScriptList(script, kind_, {1, 2});
        if (kind_.asks_for_connection) script.AdoConnection();
        std::vector<lists::Row> rows;
        for (const Int32 number : {3, 1, 4}) rows.push_back(kind_.row(17, number));
        if (in_one_load || kind_.starts_anew) rows.insert(rows.begin(), kind_.row(17, 1));
        script.OpenSelect(kind_.select(17)).Rows(kind_.columns, rows);
        if (in_one_load || kind_.starts_anew) kind_.script_entry(script, 1);
        for (const Int32 number : {3, 1}) kind_.script_entry(script, number);
        const auto list = kind_.make();
        if (!in_one_load) list->Init(17, script.Session());
        EXPECT_RAISES_TEXT(457, collision, kind_.of_load, list->Init(17, script.Session()));
        EXPECT_EQ(list->Keys(), in_one_load || kind_.starts_anew ? KeysOf({1, 3}) : KeysOf({1, 2, 3}));
        EXPECT_EQ(script.Report(), "") << "the rows are not closed";
    }
}

TEST_P(Lists, RaiseForARowThatDoesNotFitAndKeepThoseBeforeIt) {
    ASSERT_FALSE(kind_.misfits.empty());
    for (const auto& misfit : kind_.misfits) {
        SCOPED_TRACE(testing::PrintToString(misfit.row.size()) + " columns, " + std::to_string(misfit.number));
        Script script;
        if (kind_.asks_for_connection) script.AdoConnection();
        script.OpenSelect(kind_.select(17)).Rows(kind_.columns, {kind_.row(17, 1), misfit.row, kind_.row(17, 4)});
        kind_.script_entry(script, 1);
        const auto list = kind_.make();
        EXPECT_RAISES_UNDER(misfit.number, kind_.of_load, list->Init(17, script.Session()));
        EXPECT_EQ(list->Count(), 1);
        EXPECT_EQ(list->Keys(), KeysOf({1}));
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_P(ListsWithANullKey, FileItUnderZero) {
    script_.OpenSelect(kind_.select(17)).Rows(kind_.columns, {lists::Row(kind_.columns.size(), Variant::Null())});
    script_.CloseRows();
    EXPECT_EQ(Listed()->Keys(), Keys{kind_.key_of_null});
    EXPECT_EQ(script_.Report(), "");
}

TEST_P(Lists, RaiseOrGiveNothingForAKeyThatIsNotListed) {
    Read({1});
    const auto list = Listed();
    for (const auto& key : NoKeys()) {
        const auto missing = "There is no entry under the key \"" + key + "\" in the collection.";
        if (kind_.gives_nothing) {
            EXPECT_FALSE(list->Item(key)) << key;
        } else {
            EXPECT_RAISES_TEXT(5, missing, kind_.of_item, list->Item(key));
        }
        if (kind_.gives_nothing && kind_.removes_through_item) {
            EXPECT_RAISES_TEXT(91, "An empty reference was used as an object.", Labels{kind_.of_remove.back()},
                               list->Remove(key));
        } else {
            EXPECT_RAISES_TEXT(5, missing, kind_.of_remove, list->Remove(key));
        }
    }
    EXPECT_EQ(list->Keys(), KeysOf({1}));
    EXPECT_EQ(script_.Report(), "");
}

TEST_P(Lists, RaiseForWhatIsNoPosition) {
    Read({1});
    const auto list = Listed();
    for (const auto& no : kNoPositions) {
        SCOPED_TRACE(no.index.TypeName());
        EXPECT_RAISES_UNDER(no.number, kind_.of_item, list->Item(no.index));
        EXPECT_RAISES_UNDER(no.number, kind_.of_remove, list->Remove(no.index));
    }
    EXPECT_RAISES_UNDER(13, kind_.of_item, list->Item(list->Item(1)));
    EXPECT_RAISES_UNDER(13, kind_.of_remove, list->Remove(list->Item(1)));
    EXPECT_RAISES_TEXT(9, "There is no entry at position 7 of the collection.", kind_.of_item, list->Item(7));
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(script_.Report(), "");
}

TEST_P(ListsThatOnlyForget, LetAnEntryGoWithoutAStatement) {
    Read({3, 1, 2});
    Read({3, 1});
    const auto list = Listed();
    EXPECT_EQ(list->Remove(Key(1)), Variant());
    EXPECT_EQ(list->Keys(), KeysOf({3, 2}));
    list->Remove(1);
    EXPECT_EQ(list->Keys(), KeysOf({2}));
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(list->Init(17, script_.Session()), kind_.read);
    EXPECT_EQ(list->Keys(), KeysOf({2, 3, 1})) << "a load brings them back";
    list->NewWalk()([&](const Text& key) { list->Remove(key); });
    EXPECT_EQ(list->Count(), 0) << "a walk may remove what it meets";
    EXPECT_EQ(script_.Report(), "");
}

TEST_P(Lists, MayGoBeforeAWalkAndAnEntryAndLetGoOfTheSession) {
    Read({2, 1});
    auto list = Listed();
    auto walk = list->NewWalk();
    auto entry = list->Item(1);
    list.reset();
    Keys met;
    walk([&](const Text& key) { met.push_back(key); });
    EXPECT_EQ(met, KeysOf({2, 1}));
    walk = nullptr;
    EXPECT_FALSE(script_.SessionReleased()) << "the entry holds it";
    entry.Reset();
    EXPECT_TRUE(script_.SessionReleased());
    EXPECT_EQ(script_.Report(), "");
}

TEST_P(Lists, FailAsDocumentedAtEachStep) {
    std::vector<ExpectedFailure> expected;
    if (kind_.asks_for_connection) {
        expected = {{1, kNotOk, 0, {}, {lists::kOpen}},
                    {2, kNotOk},
                    {1, kRaises, 7001, {kind_.of_load.back()}},
                    {2, kRaises, 7001, kind_.of_load}};
        expected.insert(expected.end(), kind_.failures_of_entries.begin(), kind_.failures_of_entries.end());
    } else {
        expected = {{1, kNotOk, 9999, kind_.of_load}, {1, kRaises, 7001, kind_.of_load}, {2, kRaises, 7001, kind_.of_load}};
    }
    ExpectFailures(
        [&](Script& script) {
            lists::ScriptList(script, kind_, {1, 2});
        },
        [&](const Ref<DataSession>& session) { kind_.make()->Init(17, session); }, expected);
}

TEST_P(ListsOnAConnection, FailAsDocumentedWhereItIsToBeOpened) {
    const std::string init = kind_.of_load.back();
    ExpectFailures(
        [&](Script& script) {
            script.AdoConnection().Closed();
            script.ConnectionOpen().Ok();
            script.OpenSelect(kind_.select(17)).Rows(kind_.columns);
        },
        [&](const Ref<DataSession>& session) { kind_.make()->Init(17, session); },
        {{1, kNotOk, 0, {}, {lists::kOpen}},
         {2, kNotOk},
         {3, kNotOk},
         {1, kRaises, 7001, {init}},
         {2, kRaises, 7001, {"LumoSeminar.common.OpenADOConnection", init}},
         {3, kRaises, 7001, kind_.of_load}});
}

template <class Has>
auto Those(Has has) {
    auto kinds = lists::AllLists();
    std::erase_if(kinds, [&](const ListKind& kind) { return !has(kind); });
    return testing::ValuesIn(kinds);
}
std::string NameOf(const testing::TestParamInfo<ListKind>& list) { return list.param.name; }

INSTANTIATE_TEST_SUITE_P(All, Lists, testing::ValuesIn(lists::AllLists()), NameOf);
INSTANTIATE_TEST_SUITE_P(All, ListsOnAConnection, Those([](auto& kind) { return kind.asks_for_connection; }), NameOf);
INSTANTIATE_TEST_SUITE_P(All, ListsWithANullKey, Those([](auto& kind) { return !kind.key_of_null.empty(); }), NameOf);
INSTANTIATE_TEST_SUITE_P(All, ListsThatOnlyForget, Those([](auto& kind) { return kind.removes_from_list_only; }), NameOf);

}  // namespace
}  // namespace LumoSeminar
