#include <LumoSeminar/catalogue/target_groups.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <test_support/failures.h>
#include <test_support/raises.h>
#include <test_support/row_sets.h>

namespace LumoSeminar {
namespace {

using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;

using Labels = std::vector<std::string>;
using Texts = std::vector<Text>;
using Values = std::vector<Variant>;

const std::string kLabelOfAGroup = " LumoSeminar.clsSemZielgruppe.Init";
const std::string kLabelOfAList = " LumoSeminar.colSemZielgruppen.Init";

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

constexpr bool kBothWays[] = {false, true};

const std::vector<std::string> kGroupColumns = {"Kurz", "Bezeichnung"};

Texts TextsOf(clsSemZielgruppe& group) { return {group.BezeichungKurz(), group.Bezeichung()}; }

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
    EXPECT_EQ(TextsOf(group), (Texts{"Ä'1", ""}));
    group.Bezeichung("Ärztinnen und Ärzte, \"extern\"");
    EXPECT_EQ(TextsOf(group), (Texts{"Ä'1", "Ärztinnen und Ärzte, \"extern\""}));
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
    ScriptExecute(script, SelectGroup(seminar, 4), kGroupColumns, {{"AZ", "Auszubildende"}});
    script.CloseRows();
    ScriptExecute(script, SelectGroup(seminar, 9), kGroupColumns, {});
    script.CloseRows();
    script.CloseRows(groups);
}

TEST(colSemZielgruppen, ListsTheGroupsInTheOrderOfTheServerWithAStatementForEach) {
    Script script;
    script.AdoConnection();
    script.AdoConnection();
    const auto groups = script.ConnectionExecute("SELECT ZielGruppeID FROM Sem_Zielgruppen_IT WHERE SemID = 3", -1)
                            .Rows({"ZielGruppeID"}, {{9}, {4}});
    ScriptExecute(script, SelectGroup(3, 9), kGroupColumns, {{"ZA", "Leiharbeit"}});
    script.CloseRows();
    ScriptExecute(script, SelectGroup(3, 4), kGroupColumns, {{"AZ", "Auszubildende"}});
    script.CloseRows();
    script.CloseRows(groups);
    colSemZielgruppen list;
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Init(3, script.Session()), true);
    EXPECT_TRUE(script.SessionReleased());
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(TextsOf(*list.Item(1)), (Texts{"ZA", "Leiharbeit"}));
    EXPECT_EQ(TextsOf(*list.Item(2)), (Texts{"AZ", "Auszubildende"}));
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
    EXPECT_EQ(TextsOf(*list.Item(2)), Texts(2));
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
    EXPECT_EQ(TextsOf(*list.Item(1)), Texts(2));
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
    EXPECT_RAISES_UNDER(91, Labels{kLabelOfAList}, list.Init(3, nullptr));
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
        ScriptExecute(script, SelectGroup(3, 4), kGroupColumns, {{"AZ", "Auszubildende"}});
        script.CloseRows();
        colSemZielgruppen list;
        EXPECT_RAISES_UNDER(c.number, Labels{kLabelOfAList}, list.Init(3, script.Session()));
        EXPECT_EQ(list.Count(), 1) << "what was listed before stays";
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(colSemZielgruppen, ARowSetInFrontOfItsFirstRowOrBehindItsLastIsNotReadButClosed) {
    for (const bool bof : kBothWays) {
        for (const bool eof : kBothWays) {
            if (!bof && !eof) continue;
            const auto rows = New<test_support::RowsAt>(bof, eof, Labels{"ZielGruppeID"}, Values{"1"});
            colSemZielgruppen list;
            EXPECT_EQ(list.Init(3, New<test_support::OneRowSet>(rows)), true);
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
        EXPECT_RAISES_UNDER(c.number, Labels{}, list.Item(c.index)) << c.index.TypeName();
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
            ScriptExecute(script, SelectGroup(3, 4), kGroupColumns, {{"AZ", "Auszubildende"}});
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
