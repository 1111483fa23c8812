#include <LumoSeminar/catalogue/target_groups.h>

#include <gtest/gtest.h>

#include <type_traits>

#include <LumoConnection/script/script_session.h>
#include <LumoConnection/stored_rows.h>
#include <test_support/failures.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;
using Texts = std::vector<Text>;
using Values = std::vector<Variant>;

const std::string kLabelOfAGroup = " LumoSeminar.clsSemZielgruppe.Init";
const std::string kLabelOfAList = " LumoSeminar.colSemZielgruppen.Init";
const std::string kLabelOfAGoal = " LumoSeminar.clsSemZielInhalt.Init";
const std::string kLabelOfTheOpening = "LumoSeminar.common.OpenADOConnection";

std::string SelectGroup(int seminar, int group) {
    return "SELECT sysIData_Zielgruppen.Kurz, sysIData_Zielgruppen.Bezeichnung FROM Sem_Zielgruppen_IT INNER JOIN "
           "sysIData_Zielgruppen ON Sem_Zielgruppen_IT.ZielGruppeID = sysIData_Zielgruppen.ID WHERE "
           "Sem_Zielgruppen_IT.SemID = " +
           std::to_string(seminar) + " AND Sem_Zielgruppen_IT.ZielGruppeID = " + std::to_string(group);
}

std::string SelectGroups(int seminar) {
    return "SELECT ZielGruppeID FROM Sem_Zielgruppen_IT WHERE SemID = " + std::to_string(seminar);
}

std::string SelectGoal(int key) {
    return "SELECT Ziel, Inhalt FROM Sem_ZielInhalt_IT WHERE ZielInhaltID = " + std::to_string(key);
}

/// A statement on the open connection, which is asked for twice.
void ScriptExecute(Script& script, const std::string& sql, const std::vector<std::string>& columns,
                   const std::vector<Values>& rows) {
    script.AdoConnection();
    script.AdoConnection();
    script.ConnectionExecute(sql).Rows(columns, rows);
}

/// A row set that says of itself what it is told to say, and stands on a row all the while.
class RowsAt final : public LumoConnection::StoredRows {
  public:
    RowsAt(bool bof, bool eof) : StoredRows({"Erste", "Zweite"}), bof_(bof), eof_(eof) {
        Append("1");
        Append("2");
    }
    Bool Eof() override { return eof_; }
    Bool Bof() override { return bof_; }
    void MoveNext() override { eof_ = true; }
    void Close() override { ++closes; }

    int closes = 0;

  private:
    Bool bof_;
    Bool eof_;
};

/// A session whose connection gives one row set, whatever is asked.
class OneRowSet final : public DataSession {
  public:
    explicit OneRowSet(Ref<RecordSet> rows) : rows_(std::move(rows)) {}
    Ref<Connection> AdoConnection() override { return New<Face>(rows_); }
    Bool Connect(const Text&, const Text&, const Text&, Int32) override { return false; }
    Ref<RecordSet> Recordset() override { return nullptr; }
    Bool OpenSelect(const Text&) override { return false; }
    Bool ExecuteSql(const Text&) override { return false; }
    Variant LookupValue(const Text&, const Text&, const Text&) override { return Variant::Null(); }
    Text LastErrorText() override { return {}; }

  private:
    class Face final : public Connection {
      public:
        explicit Face(Ref<RecordSet> rows) : rows_(std::move(rows)) {}
        Int32 State() override { return kOpen; }
        void Open(const Text&, const Text&, const Text&, Int32) override {}
        Ref<RecordSet> Execute(const Text&, Int32) override { return rows_; }

      private:
        Ref<RecordSet> rows_;
    };

    Ref<RecordSet> rows_;
};

constexpr bool kBothWays[] = {false, true};

struct Group {
    using Class = clsSemZielgruppe;
    static Bool Init(Class& group, Int32 key, const Ref<DataSession>& session) { return group.Init(3, key, session); }
    static Texts TextsOf(Class& group) { return {group.BezeichungKurz(), group.Bezeichung()}; }
    static std::string Select(int key) { return SelectGroup(3, key); }
    static std::vector<std::string> Columns() { return {"Kurz", "Bezeichnung"}; }
    static Texts Full() { return {"FK", "\"Führungskräfte\" & O'Neill"}; }
    static std::string Label() { return kLabelOfAGroup; }
    static std::string Name() { return "clsSemZielgruppe"; }
};

struct Goal {
    using Class = clsSemZielInhalt;
    static Bool Init(Class& goal, Int32 key, const Ref<DataSession>& session) { return goal.Init(key, session); }
    static Texts TextsOf(Class& goal) { return {goal.Ziel(), goal.Inhalt()}; }
    static std::string Select(int key) { return SelectGoal(key); }
    static std::vector<std::string> Columns() { return {"Ziel", "Inhalt"}; }
    static Texts Full() { return {"Jede weiß, \"was\" sie darf.", "Prüfungen,\r\nO'Neills Übungen {Ziel}"}; }
    static std::string Label() { return kLabelOfAGoal; }
    static std::string Name() { return "clsSemZielInhalt"; }
};

/// What holds for groups and for goals.
template <class Kind>
class ReadAtOnce : public testing::Test {
  protected:
    static Values FullRow() {
        const Texts texts = Kind::Full();
        return {texts.begin(), texts.end()};
    }
    static void ScriptRead(Script& script, Int32 key, const std::vector<Values>& rows) {
        ScriptExecute(script, Kind::Select(key), Kind::Columns(), rows);
        script.CloseRows();
    }
};

struct KindNames {
    template <class Kind>
    static std::string GetName(int) {
        return Kind::Name();
    }
};
using Kinds = testing::Types<Group, Goal>;
TYPED_TEST_SUITE(ReadAtOnce, Kinds, KindNames);

TYPED_TEST(ReadAtOnce, InitReadsTheRowOnceAndKeepsNoSession) {
    Script script;
    this->ScriptRead(script, 9, {this->FullRow()});
    typename TypeParam::Class object;
    EXPECT_EQ(TypeParam::TextsOf(object), Texts(2));
    EXPECT_EQ(TypeParam::Init(object, 9, script.Session()), true);
    EXPECT_TRUE(script.SessionReleased());
    EXPECT_EQ(TypeParam::TextsOf(object), TypeParam::Full());
    EXPECT_EQ(script.RecordsetCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(ReadAtOnce, ANullGivesAnEmptyText) {
    for (std::size_t i = 0; i < 2; ++i) {
        auto row = this->FullRow();
        row[i] = Variant::Null();
        auto expected = TypeParam::Full();
        expected[i] = "";
        Script script;
        this->ScriptRead(script, 9, {row});
        typename TypeParam::Class object;
        EXPECT_EQ(TypeParam::Init(object, 9, script.Session()), true);
        EXPECT_EQ(TypeParam::TextsOf(object), expected);
        EXPECT_EQ(script.Report(), "");
    }
}

TYPED_TEST(ReadAtOnce, WithoutARowTheResultIsTrueAndTheTextsAreEmpty) {
    for (const Int32 key : {0, -1, 2147483647}) {
        Script script;
        this->ScriptRead(script, key, {});
        typename TypeParam::Class object;
        EXPECT_EQ(TypeParam::Init(object, key, script.Session()), true);
        EXPECT_EQ(TypeParam::TextsOf(object), Texts(2));
        EXPECT_EQ(script.Report(), "");
    }
}

TYPED_TEST(ReadAtOnce, OfSeveralRowsTheFirstCounts) {
    Script script;
    this->ScriptRead(script, 9, {this->FullRow(), {"anders", "anders"}});
    typename TypeParam::Class object;
    TypeParam::Init(object, 9, script.Session());
    EXPECT_EQ(TypeParam::TextsOf(object), TypeParam::Full());
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(ReadAtOnce, WhatWasReadStaysUntilAnInitFindsARow) {
    Script script;
    this->ScriptRead(script, 9, {this->FullRow()});
    this->ScriptRead(script, 10, {});
    script.AdoConnection().Empty();
    this->ScriptRead(script, 11, {{"neu", Variant::Null()}});
    typename TypeParam::Class object;
    TypeParam::Init(object, 9, script.Session());
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(TypeParam::Init(object, 10, script.Session()), true);
        EXPECT_EQ(TypeParam::TextsOf(object), TypeParam::Full());
    }
    TypeParam::Init(object, 11, script.Session());
    EXPECT_EQ(TypeParam::TextsOf(object), (Texts{"neu", ""}));
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(ReadAtOnce, AClosedConnectionIsOpenedFirst) {
    Script script;
    script.AdoConnection().Closed();
    script.ConnectionOpen().Ok();
    script.AdoConnection();
    script.ConnectionExecute(TypeParam::Select(9)).Rows(TypeParam::Columns(), {this->FullRow()});
    script.CloseRows();
    typename TypeParam::Class object;
    EXPECT_EQ(TypeParam::Init(object, 9, script.Session()), true);
    EXPECT_EQ(TypeParam::TextsOf(object), TypeParam::Full());
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(ReadAtOnce, InitIsTrueWithoutAStatementWhereThereIsNoOpenConnection) {
    for (const bool empty : kBothWays) {
        Script script;
        if (empty) {
            script.AdoConnection().Empty();
        } else {
            script.AdoConnection().Closed();
            script.ConnectionOpen().StaysClosed();
        }
        typename TypeParam::Class object;
        EXPECT_EQ(TypeParam::Init(object, 9, script.Session()), true);
        EXPECT_EQ(TypeParam::TextsOf(object), Texts(2));
        EXPECT_TRUE(script.SessionReleased());
        EXPECT_EQ(script.Report(), "");
    }
}

TYPED_TEST(ReadAtOnce, AnEmptySessionRaises91) {
    typename TypeParam::Class object;
    const auto error = RaisedBy([&] { return TypeParam::Init(object, 9, nullptr); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 91);
    EXPECT_EQ(LabelsOf(error), Labels{TypeParam::Label()});
}

TYPED_TEST(ReadAtOnce, WhatTheConnectionRaisesKeepsItsNumberAndSource) {
    Script script;
    script.AdoConnection();
    script.AdoConnection();
    script.ConnectionExecute(TypeParam::Select(9)).Raises(-2147217865, "Ungültiger Objektname.", "Datenbank");
    typename TypeParam::Class object;
    const auto error = RaisedBy([&] { return TypeParam::Init(object, 9, script.Session()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -2147217865);
    EXPECT_EQ(error->Source(), "Datenbank");
    EXPECT_EQ(error->Description(), "Ungültiger Objektname.\r\n" + TypeParam::Label());
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(ReadAtOnce, ARowThatIsTooShortRaisesAndTheTextBeforeIsTaken) {
    Script script;
    ScriptExecute(script, TypeParam::Select(9), {TypeParam::Columns()[0]}, {{"kurz"}});
    typename TypeParam::Class object;
    const auto error = RaisedBy([&] { return TypeParam::Init(object, 9, script.Session()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9);
    EXPECT_EQ(LabelsOf(error), Labels{TypeParam::Label()});
    EXPECT_EQ(TypeParam::TextsOf(object), (Texts{"kurz", ""}));
    EXPECT_EQ(script.Report(), "");
}

TYPED_TEST(ReadAtOnce, ARowSetInFrontOfItsFirstRowOrBehindItsLastIsNotReadButClosed) {
    for (const bool bof : kBothWays) {
        for (const bool eof : kBothWays) {
            const auto rows = New<RowsAt>(bof, eof);
            typename TypeParam::Class object;
            EXPECT_EQ(TypeParam::Init(object, 9, New<OneRowSet>(rows)), true);
            EXPECT_EQ(TypeParam::TextsOf(object), bof || eof ? Texts(2) : (Texts{"1", "2"}));
            EXPECT_EQ(rows->closes, 1);
        }
    }
}

TYPED_TEST(ReadAtOnce, InitFailsAsDocumentedAtEachStep) {
    const Labels labels = {TypeParam::Label()};
    ExpectFailures(
        [&](Script& script) {
            script.AdoConnection().Closed();
            script.ConnectionOpen().Ok();
            script.AdoConnection();
            script.ConnectionExecute(TypeParam::Select(9)).Rows(TypeParam::Columns(), {this->FullRow()});
            script.CloseRows();
        },
        [](const Ref<DataSession>& session) {
            typename TypeParam::Class object;
            EXPECT_EQ(TypeParam::Init(object, 9, session), true);
        },
        {{1, kNotOk, 0, {}, {"Open of the connection"}},
         {2, kNotOk},
         // The connection that is taken for the statement is not tested: the statement is sent all the same.
         {3, kNotOk, 0, {}, {"Execute of the connection: " + TypeParam::Select(9), "Close of the rows of step 4"}},
         {4, kNotOk, 7001, labels},
         {1, kRaises, 7001, labels},
         {2, kRaises, 7001, {kLabelOfTheOpening, TypeParam::Label()}},
         {3, kRaises, 7001, labels},
         {4, kRaises, 7001, labels},
         {5, kRaises, 7001, labels}});
}

TEST(clsSemZielgruppe, TheStatementJoinsTheGroupWithItsNames) {
    Script script;
    script.AdoConnection();
    script.AdoConnection();
    script
        .ConnectionExecute(
            "SELECT sysIData_Zielgruppen.Kurz, sysIData_Zielgruppen.Bezeichnung FROM Sem_Zielgruppen_IT INNER JOIN "
            "sysIData_Zielgruppen ON Sem_Zielgruppen_IT.ZielGruppeID = sysIData_Zielgruppen.ID WHERE Sem_Zielgruppen_IT.SemID "
            "= -5 AND Sem_Zielgruppen_IT.ZielGruppeID = 7",
            -1)
        .Rows({"Kurz", "Bezeichnung"}, {{"AD", "Außendienst"}});
    script.CloseRows();
    clsSemZielgruppe group;
    EXPECT_EQ(group.Init(-5, 7, script.Session()), true);
    EXPECT_EQ(group.BezeichungKurz(), "AD");
    EXPECT_EQ(group.Bezeichung(), "Außendienst");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemZielgruppe, TheLetsChangeTheObjectOnly) {
    clsSemZielgruppe group;
    group.BezeichungKurz("Ä'1");
    EXPECT_EQ(Group::TextsOf(group), (Texts{"Ä'1", ""}));
    group.Bezeichung("Ärztinnen und Ärzte, \"extern\"");
    EXPECT_EQ(Group::TextsOf(group), (Texts{"Ä'1", "Ärztinnen und Ärzte, \"extern\""}));
}

TEST(clsSemZielInhalt, TheKeyIsTakenWhereARowWasFoundAlone) {
    Script script;
    script.AdoConnection();
    script.AdoConnection();
    script.ConnectionExecute("SELECT Ziel, Inhalt FROM Sem_ZielInhalt_IT WHERE ZielInhaltID = 12", -1)
        .Rows({"Ziel", "Inhalt"}, {{Variant::Null(), Variant::Null()}});
    script.CloseRows();
    ScriptExecute(script, SelectGoal(13), {"Ziel", "Inhalt"}, {});
    script.CloseRows();
    clsSemZielInhalt goal;
    EXPECT_EQ(goal.ZielInhaltID(), 0);
    EXPECT_EQ(goal.Init(12, script.Session()), true);
    EXPECT_EQ(goal.ZielInhaltID(), 12);
    EXPECT_EQ(goal.Init(13, script.Session()), true);
    EXPECT_EQ(goal.ZielInhaltID(), 12);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemZielInhalt, WithoutARowTheKeyStays0) {
    Script script;
    ScriptExecute(script, SelectGoal(99), {"Ziel", "Inhalt"}, {});
    script.CloseRows();
    clsSemZielInhalt goal;
    EXPECT_EQ(goal.Init(99, script.Session()), true);
    EXPECT_EQ(goal.ZielInhaltID(), 0);
    EXPECT_EQ(script.Report(), "");
}

/// Two groups, the second without names.
void ScriptGroups(Script& script, int seminar) {
    script.AdoConnection();
    script.AdoConnection();
    const auto groups = script.ConnectionExecute(SelectGroups(seminar)).Rows({"ZielGruppeID"}, {{4}, {9}});
    ScriptExecute(script, SelectGroup(seminar, 4), Group::Columns(), {{"AZ", "Auszubildende"}});
    script.CloseRows();
    ScriptExecute(script, SelectGroup(seminar, 9), Group::Columns(), {});
    script.CloseRows();
    script.CloseRows(groups);
}

TEST(colSemZielgruppen, ListsTheGroupsInTheOrderOfTheServerWithAStatementForEach) {
    Script script;
    script.AdoConnection();
    script.AdoConnection();
    const auto groups = script.ConnectionExecute("SELECT ZielGruppeID FROM Sem_Zielgruppen_IT WHERE SemID = 3", -1)
                            .Rows({"ZielGruppeID"}, {{9}, {4}});
    ScriptExecute(script, SelectGroup(3, 9), Group::Columns(), {{"ZA", "Leiharbeit"}});
    script.CloseRows();
    ScriptExecute(script, SelectGroup(3, 4), Group::Columns(), {{"AZ", "Auszubildende"}});
    script.CloseRows();
    script.CloseRows(groups);
    colSemZielgruppen list;
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Init(3, script.Session()), true);
    EXPECT_TRUE(script.SessionReleased());
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(Group::TextsOf(*list.Item(1)), (Texts{"ZA", "Leiharbeit"}));
    EXPECT_EQ(Group::TextsOf(*list.Item(2)), (Texts{"AZ", "Auszubildende"}));
    EXPECT_EQ(script.RecordsetCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemZielgruppen, ASeminarWithoutGroupsHasAnEmptyListAndTheResultIsTrue) {
    Script script;
    ScriptExecute(script, SelectGroups(0), {"ZielGruppeID"}, {});
    script.CloseRows();
    colSemZielgruppen list;
    EXPECT_EQ(list.Init(0, script.Session()), true);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemZielgruppen, AGroupWithoutNamesIsListedWithEmptyTexts) {
    Script script;
    ScriptGroups(script, 3);
    colSemZielgruppen list;
    EXPECT_EQ(list.Init(3, script.Session()), true);
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(Group::TextsOf(*list.Item(2)), Texts(2));
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemZielgruppen, AGroupWhoseConnectionIsGoneIsListedWithEmptyTexts) {
    Script script;
    script.AdoConnection();
    script.AdoConnection();
    const auto groups = script.ConnectionExecute(SelectGroups(3)).Rows({"ZielGruppeID"}, {{9}});
    script.AdoConnection().Empty();
    script.CloseRows(groups);
    colSemZielgruppen list;
    EXPECT_EQ(list.Init(3, script.Session()), true);
    ASSERT_EQ(list.Count(), 1);
    EXPECT_EQ(Group::TextsOf(*list.Item(1)), Texts(2));
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemZielgruppen, ASecondInitAddsAndTheSameGroupMayBeListedTwice) {
    Script script;
    ScriptGroups(script, 3);
    ScriptGroups(script, 3);
    colSemZielgruppen list;
    list.Init(3, script.Session());
    list.Init(3, script.Session());
    EXPECT_EQ(list.Count(), 4);
    EXPECT_EQ(list.Item(3)->BezeichungKurz(), "AZ");
    EXPECT_NE(list.Item(3), list.Item(1));
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemZielgruppen, WithoutAnOpenConnectionTheListIsEmptyAndTheResultTrue) {
    for (const bool empty : kBothWays) {
        Script script;
        if (empty) {
            script.AdoConnection().Empty();
        } else {
            script.AdoConnection().Closed();
            script.ConnectionOpen().StaysClosed();
        }
        colSemZielgruppen list;
        EXPECT_EQ(list.Init(3, script.Session()), true);
        EXPECT_EQ(list.Count(), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(colSemZielgruppen, AnEmptySessionRaises91) {
    colSemZielgruppen list;
    const auto error = RaisedBy([&] { return list.Init(3, nullptr); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 91);
    EXPECT_EQ(LabelsOf(error), Labels{kLabelOfAList});
}

TEST(colSemZielgruppen, AKeyThatIsNoNumberRaisesAndANullToo) {
    const struct {
        Variant key;
        Int32 number;
    } cases[] = {{Variant::Null(), 94}, {"vier", 13}, {1e10, 6}};
    for (const auto& c : cases) {
        Script script;
        script.AdoConnection();
        script.AdoConnection();
        script.ConnectionExecute(SelectGroups(3)).Rows({"ZielGruppeID"}, {{4}, {c.key}});
        ScriptExecute(script, SelectGroup(3, 4), Group::Columns(), {{"AZ", "Auszubildende"}});
        script.CloseRows();
        colSemZielgruppen list;
        const auto error = RaisedBy([&] { return list.Init(3, script.Session()); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), c.number);
        EXPECT_EQ(LabelsOf(error), Labels{kLabelOfAList});
        EXPECT_EQ(list.Count(), 1) << "what was listed before stays";
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(colSemZielgruppen, ARowSetInFrontOfItsFirstRowOrBehindItsLastIsNotReadButClosed) {
    for (const bool bof : kBothWays) {
        for (const bool eof : kBothWays) {
            if (!bof && !eof) continue;
            const auto rows = New<RowsAt>(bof, eof);
            colSemZielgruppen list;
            EXPECT_EQ(list.Init(3, New<OneRowSet>(rows)), true);
            EXPECT_EQ(list.Count(), 0);
            EXPECT_EQ(rows->closes, 1);
        }
    }
}

TEST(colSemZielgruppen, ItemTakesAPositionAndRaisesWithoutALabel) {
    Script script;
    ScriptGroups(script, 3);
    colSemZielgruppen list;
    list.Init(3, script.Session());
    EXPECT_EQ(list.Item(2.0), list.Item(2));
    const struct {
        Variant index;
        Int32 number;
    } cases[] = {{0, 9}, {3, 9}, {-1, 9}, {Variant(), 9}, {"1", 5}, {"AZ", 5}, {Variant::Null(), 94}};
    for (const auto& c : cases) {
        const auto error = RaisedBy([&] { return list.Item(c.index); });
        ASSERT_TRUE(error) << c.index.TypeName();
        EXPECT_EQ(error->Number(), c.number);
        EXPECT_EQ(LabelsOf(error), Labels{});
    }
}

TEST(colSemZielgruppen, AWalkMayOutliveItsListAndAGroupToo) {
    Script script;
    ScriptGroups(script, 3);
    auto list = New<colSemZielgruppen>();
    list->Init(3, script.Session());
    const auto walk = list->NewEnum();
    const auto group = list->Item(1);
    list.Reset();
    std::vector<Text> names;
    for (const auto& entry : walk) names.push_back(entry->Bezeichung());
    EXPECT_EQ(names, (Texts{"Auszubildende", ""}));
    EXPECT_EQ(group->Bezeichung(), "Auszubildende");
}

TEST(colSemZielgruppen, AListFailsAsDocumentedAtEachStep) {
    const Labels of_list = {kLabelOfAList};
    const Labels of_group = {kLabelOfAGroup, kLabelOfAList};
    ExpectFailures(
        [](Script& script) {
            script.AdoConnection();
            script.AdoConnection();
            const auto groups = script.ConnectionExecute(SelectGroups(3)).Rows({"ZielGruppeID"}, {{4}});
            ScriptExecute(script, SelectGroup(3, 4), Group::Columns(), {{"AZ", "Auszubildende"}});
            script.CloseRows();
            script.CloseRows(groups);
        },
        [](const Ref<DataSession>& session) {
            colSemZielgruppen list;
            EXPECT_EQ(list.Init(3, session), true);
        },
        {{1, kNotOk, 0, {}, {"Open of the connection"}},
         {2,
          kNotOk,
          0,
          {},
          {"Execute of the connection: " + SelectGroups(3), "AdoConnection", "AdoConnection",
           "Execute of the connection: " + SelectGroup(3, 4), "Close of the rows of step 6", "Close of the rows of step 3"}},
         {3, kNotOk, 7001, of_list},
         {4, kNotOk, 0, {}, {"Open of the connection", "Close of the rows of step 3"}},
         {5, kNotOk, 0, {}, {"Execute of the connection: " + SelectGroup(3, 4), "Close of the rows of step 6", "Close of the rows of step 3"}},
         {6, kNotOk, 7001, of_group},
         {1, kRaises, 7001, of_list},
         {2, kRaises, 7001, of_list},
         {3, kRaises, 7001, of_list},
         {4, kRaises, 7001, of_group},
         {5, kRaises, 7001, of_group},
         {6, kRaises, 7001, of_group},
         {7, kRaises, 7001, of_group},
         {8, kRaises, 7001, of_list}});
}

}  // namespace
}  // namespace LumoSeminar
