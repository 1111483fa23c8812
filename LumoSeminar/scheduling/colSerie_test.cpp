#include <LumoSeminar/scheduling/colSerie.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/scheduling/clsSerie.h>
#include <test_support/raises.h>
#include <test_support/serie_list.h>
#include <test_support/serie_statements.h>

namespace LumoSeminar {

namespace {

using namespace serie_statements;
using LumoConnection::Script;

using Labels = std::vector<std::string>;

const std::string kLabel = "LumoSeminar.colSerien.";
const std::string kLabelOfAdd = "LumoSeminar.colSerie.Add";
const Labels kLabelsOfLoad = {kLabel + "LoadKeysFromDataBase", kLabel + "Init"};

/// A list of series that are bound to these keys.
Ref<colSerie> ListOf(const Ref<DataSession>& session, const std::vector<Int32>& keys) {
    auto list = New<colSerie>();
    for (const Int32 key : keys) list->Add(Bound(session, key));
    return list;
}

std::vector<Int32> KeysOf(colSerie& list) {
    std::vector<Int32> keys;
    for (const auto& series : list.NewEnum()) keys.push_back(series->SerienID());
    return keys;
}

void ScriptList(Script& script, const std::vector<std::vector<Variant>>& keys) {
    script.OpenSelect(kSelectKeys).Rows({"SerienID"}, keys);
    script.CloseRows();
}

TEST(colSerie, InitOfAFreshListIsFalseWithoutAStatementAndKeepsNothing) {
    Script script;
    colSerie list;
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(list.Init(script.Session()), false);
        EXPECT_EQ(list.Count(), 0);
        EXPECT_TRUE(script.SessionReleased());
    }
    EXPECT_EQ(list.Init(nullptr), false);
    EXPECT_TRUE(script.Calls().empty());
    EXPECT_EQ(script.Report(), "");
}

TEST(colSerie, InitOfAFilledListIsFalseTooThoughItsEntriesHoldASession) {
    Script script;
    const auto list = ListOf(script.Session(), {5});
    EXPECT_EQ(list->Init(script.Session()), false);
    EXPECT_EQ(KeysOf(*list), (std::vector<Int32>{5}));
    EXPECT_TRUE(script.Calls().empty());
}

TEST(colSerie, AddFilesUnderTheKeyAndWritesNothing) {
    Script script;
    colSerie list;
    const auto series = Bound(script.Session(), 8);
    EXPECT_EQ(list.Add(series), series);
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list.Item("0000000008"), series);
    EXPECT_EQ(list.Item(1), series);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSerie, AnEntryStaysUnderTheKeyItHadWhenItWasAdded) {
    colSerie list;
    const auto series = New<clsSerie>();
    list.Add(series);
    series->SerienID(8);
    EXPECT_EQ(list.Item("0000000000"), series);
    EXPECT_RAISES(5, list.Item("0000000008"));
}

TEST(colSerie, TwoNewSeriesCollideOnTheKey) {
    colSerie list;
    const auto first = New<clsSerie>();
    list.Add(first);
    EXPECT_RAISES_UNDER(457, Labels{kLabelOfAdd}, list.Add(New<clsSerie>()));
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list.Item(1), first);
}

TEST(colSerie, AddOfAnEmptyReferenceRaises91) {
    colSerie list;
    EXPECT_RAISES_UNDER(91, Labels{kLabelOfAdd}, list.Add(nullptr));
    EXPECT_EQ(list.Count(), 0);
}

TEST(colSerie, RemoveTakesTheEntryFromTheListOnly) {
    Script script;
    const auto list = ListOf(script.Session(), {3, 1, 2});
    const auto removed = list->Item("0000000001");
    list->Remove("0000000001");
    EXPECT_EQ(list->Count(), 2);
    EXPECT_RAISES(5, list->Item("0000000001"));
    list->Remove(1);
    EXPECT_EQ(KeysOf(*list), (std::vector<Int32>{2}));
    EXPECT_EQ(removed->SerienID(), 1);
    EXPECT_EQ(list->Add(removed), removed) << "the key is free again";
    EXPECT_EQ(KeysOf(*list), (std::vector<Int32>{2, 1}));
    EXPECT_TRUE(script.Calls().empty());
}

TEST(colSerie, AnEntryOutlivesItsListAndHoldsTheSession) {
    Script script;
    ScriptLoad(script, 1, {FullRow()});
    auto list = ListOf(script.Session(), {1});
    auto series = list->Item(1);
    list.Reset();
    EXPECT_EQ(series->Tagefolge(), 2);
    EXPECT_EQ(script.Report(), "");
    series.Reset();
    EXPECT_TRUE(script.SessionReleased());
}

TEST(colSerie, AListThatHasASessionTakesTheGivenOneAndListsAllSeries) {
    Script old_session;
    Script script;
    ScriptList(script, {{3}, {1}, {Variant::Null()}});
    ScriptLoad(script, 3, {FullRow()});
    auto list = New<colSerie>();
    SessionOf(*list) = old_session.Session();
    EXPECT_EQ(list->Init(script.Session()), true);
    EXPECT_TRUE(old_session.SessionReleased());
    EXPECT_TRUE(old_session.Calls().empty());
    EXPECT_EQ(KeysOf(*list), (std::vector<Int32>{3, 1, 0}));
    EXPECT_EQ(list->Item("0000000003")->Tagefolge(), 2) << "bound, and read at the first get";
    EXPECT_EQ(script.Report(), "");
    list.Reset();
    EXPECT_TRUE(script.SessionReleased());
}

TEST(colSerie, AListThatHasASessionTakesAnEmptyOneAndRaises91) {
    Script script;
    colSerie list;
    SessionOf(list) = script.Session();
    EXPECT_RAISES_UNDER(91, kLabelsOfLoad, list.Init(nullptr));
    EXPECT_EQ(list.Init(script.Session()), false) << "fresh again";
    EXPECT_TRUE(script.Calls().empty());
}

}  // namespace
}  // namespace LumoSeminar
