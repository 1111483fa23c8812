#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/catalogue/focus_areas.h>
#include <test_support/failures.h>
#include <test_support/focus_area_removal.h>
#include <test_support/focus_area_statements.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace focus_area_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;
using Rows = std::vector<std::vector<Variant>>;

const std::string kLabel = " LumoSeminar062.clsSemTerminSchwerpunkt.";
const std::string kLabelOfRemove = " LumoSeminar062.colSemTerminSchwerpunkte.Remove";
const std::string kLabelOfRemoveAll = "LumoSeminar.colSemTerminSchwerpunkte.RemoveAll";
const std::vector<std::string> kNameColumns = {"WBS"};

/// A focus area of the date 17.
Ref<clsSemTerminSchwerpunkt> Bound(const Ref<DataSession>& session, Int32 focus_area) {
    auto bound = New<clsSemTerminSchwerpunkt>();
    EXPECT_EQ(bound->Init(focus_area, 17, session), true);
    return bound;
}

void ScriptBound(Script& script, Int32 focus_area, const Rows& names) {
    script.AdoConnection();
    script.OpenSelect(SelectOfDate(17, focus_area)).Rows(kNameColumns, names);
}

TEST(clsSemTerminSchwerpunkt, InitBindsWithoutAStatement) {
    Script script;
    script.AdoConnection();
    const auto focus_area = Bound(script.Session(), 7);
    EXPECT_EQ(focus_area->Key(), "0000000007");
    EXPECT_EQ(focus_area->SemTerminID(), 17);
    EXPECT_FALSE(script.SessionReleased());
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemTerminSchwerpunkt, InitTakesAnyNumberAsSchwerpunktID) {
    const struct {
        Variant given;
        Text key;
    } cases[] = {{7, "0000000007"},           {Int16{7}, "0000000007"}, {Byte{255}, "0000000255"},
                 {" 7 ", "0000000007"},       {6.5, "0000000006"},      {Variant(), "0000000000"},
                 {true, "-0000000001"},       {-1, "-0000000001"},      {Money(7), "0000000007"},
                 {2147483647.0, "2147483647"}};
    for (const auto& c : cases) {
        Script script;
        script.AdoConnection();
        clsSemTerminSchwerpunkt focus_area;
        EXPECT_EQ(focus_area.Init(c.given, 17, script.Session()), true);
        EXPECT_EQ(focus_area.Key(), c.key) << c.given.TypeName();
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSemTerminSchwerpunkt, InitRaisesForASchwerpunktIDThatIsNoNumberAndKeepsTheSession) {
    const struct {
        Variant given;
        Int32 number;
    } cases[] = {{Variant::Null(), 94}, {"Führung", 13}, {"", 13}, {3e9, 6}};
    for (const auto& c : cases) {
        Script script;
        script.AdoConnection();
        clsSemTerminSchwerpunkt focus_area;
        EXPECT_RAISES_UNDER(c.number, Labels{kLabel + "Init"}, focus_area.Init(c.given, 17, script.Session()))
            << c.given.TypeName();
        EXPECT_EQ(focus_area.SemTerminID(), 0);
        EXPECT_FALSE(script.SessionReleased());
    }
}

TEST(clsSemTerminSchwerpunkt, InitIsFalseAndKeepsNothingWhereTheConnectionStaysClosed) {
    for (const bool empty : {true, false}) {
        Script script;
        if (empty) {
            script.AdoConnection().Empty();
        } else {
            script.AdoConnection().Closed();
            script.ConnectionOpen().StaysClosed();
        }
        clsSemTerminSchwerpunkt focus_area;
        EXPECT_EQ(focus_area.Init(7, 17, script.Session()), false);
        EXPECT_EQ(focus_area.Key(), "0000000000");
        EXPECT_EQ(focus_area.SemTerminID(), 0);
        EXPECT_TRUE(script.SessionReleased());
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSemTerminSchwerpunkt, InitWithAnEmptySessionRaises91WithItsLabel) {
    clsSemTerminSchwerpunkt focus_area;
    EXPECT_RAISES_UNDER(91, Labels{kLabel + "Init"}, focus_area.Init(7, 17, nullptr));
}

TEST(clsSemTerminSchwerpunkt, WithoutASessionEverythingIsEmptyOrFalse) {
    clsSemTerminSchwerpunkt focus_area;
    focus_area.SchwerpunktID(7);
    focus_area.WBS("Führung");
    EXPECT_EQ(focus_area.WBS(), "");
    EXPECT_EQ(focus_area.SchwerpunktID(), 0);
    EXPECT_EQ(focus_area.Key(), "0000000007");
    EXPECT_EQ(focus_area.WriteToDatabase(), false);
    EXPECT_EQ(focus_area.DeleteFromDatabase(), false);
}

TEST(clsSemTerminSchwerpunkt, WithSchwerpunktID0TheSelectIsSentAndItsRowNotLookedAt) {
    Script script;
    ScriptBound(script, 0, {{"Führung"}});
    const auto focus_area = Bound(script.Session(), 0);
    EXPECT_EQ(focus_area->WBS(), "");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemTerminSchwerpunkt, ARefusedSelectIsSilentAndTriedAgainByGetsAndLets) {
    Script script;
    script.AdoConnection();
    for (int i = 0; i < 4; ++i) script.OpenSelect(SelectOfDate(17, 7)).Refused("time-out");
    script.OpenSelect(SelectOfDate(17, 7)).Rows(kNameColumns, {{"Führung"}});
    const auto focus_area = Bound(script.Session(), 7);
    EXPECT_EQ(focus_area->WBS(), "");
    EXPECT_EQ(focus_area->SchwerpunktID(), 0);
    focus_area->WBS("Qualität");
    EXPECT_EQ(focus_area->WriteToDatabase(), false);
    EXPECT_EQ(focus_area->WBS(), "Führung") << "the let has stored nothing";
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemTerminSchwerpunkt, ALetOfTheNameLoadsFirstThoseOfTheKeysDoNot) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(SelectOfDate(-1, 2147483647)).Rows(kNameColumns, {{"Führung"}});
    const auto focus_area = Bound(script.Session(), 7);
    focus_area->SemTerminID(-1);
    focus_area->SchwerpunktID(2147483647);
    EXPECT_EQ(focus_area->SemTerminID(), -1);
    EXPECT_EQ(focus_area->Key(), "2147483647");
    focus_area->WBS("Qualität");
    EXPECT_EQ(focus_area->WBS(), "Qualität");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemTerminSchwerpunkt, WhatWritesAndDeletesCarriesItsLabelWhereItLoads) {
    const struct {
        const char* label;
        std::function<void(clsSemTerminSchwerpunkt&)> call;
        Labels behind;
    } calls[] = {
        {"DeleteFromDatabase", [](clsSemTerminSchwerpunkt& f) { (void)f.DeleteFromDatabase(); }, {}},
        {"WriteToDatabase", [](clsSemTerminSchwerpunkt& f) { (void)f.WriteToDatabase(); }, {"ADO-Fehlermeldung: "}},
    };
    for (const auto& c : calls) {
        SCOPED_TRACE(c.label);
        Script script;
        script.AdoConnection();
        script.OpenSelect(SelectOfDate(17, 7)).Raises(-2147467259, "Verbindung verloren", "Treiber");
        const auto focus_area = Bound(script.Session(), 7);
        const auto error = RaisedBy([&] {
            c.call(*focus_area);
            return 0;
        });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), -2147467259);
        EXPECT_EQ(error->Source(), "Treiber");
        Labels labels = {kLabel + "PropertiesInit", kLabel + c.label};
        labels.insert(labels.end(), c.behind.begin(), c.behind.end());
        EXPECT_EQ(LabelsOf(error), labels);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSemTerminSchwerpunkt, DeleteLoadsFirst) {
    Script script;
    ScriptBound(script, 7, {{"Führung"}});
    script.ExecuteSql("DELETE FROM Sem_Termin_Schwerpunkte_IT  WHERE  (SemTerminID = 17 AND SchwerpunktID = 7)");
    script.ExecuteSql(DeleteOfDate(17, 7));
    const auto focus_area = Bound(script.Session(), 7);
    EXPECT_EQ(focus_area->DeleteFromDatabase(), true);
    EXPECT_EQ(focus_area->DeleteFromDatabase(), true) << "the server has nothing against deleting nothing";
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemTerminSchwerpunkt, DeleteIsFalseWithoutAnErrorWhereTheLoadOrTheStatementIsRefused) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(SelectOfDate(17, 7)).Refused("time-out");
    script.OpenSelect(SelectOfDate(17, 7)).Rows(kNameColumns, {{"Führung"}});
    script.ExecuteSql(DeleteOfDate(17, 7)).Refused("The row is in use.");
    const auto focus_area = Bound(script.Session(), 7);
    EXPECT_EQ(focus_area->DeleteFromDatabase(), false);
    EXPECT_EQ(focus_area->DeleteFromDatabase(), false);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSemTerminSchwerpunkt, ADeleteFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            ScriptBound(script, 7, {{"Führung"}});
            script.ExecuteSql(DeleteOfDate(17, 7));
        },
        [](const Ref<DataSession>& session) {
            clsSemTerminSchwerpunkt focus_area;
            if (focus_area.Init(7, 17, session)) (void)focus_area.DeleteFromDatabase();
        },
        {{1, kNotOk, 0, {}, {"Open of the connection"}},
         {2, kNotOk},
         {3, kNotOk},
         {1, kRaises, 7001, {kLabel + "Init"}},
         {2, kRaises, 7001, {kLabel + "PropertiesInit", kLabel + "DeleteFromDatabase"}},
         {3, kRaises, 7001, {kLabel + "DeleteFromDatabase"}}});
}

/// The focus areas 7 and 9 of the date 17.
void ScriptList(Script& script) {
    script.AdoConnection();
    script.OpenSelect(SelectKeysOfDate(17)).Rows({"SchwerpunktID", "SemTerminID"}, {{7, 17}, {9, 17}});
    script.AdoConnection();
    script.AdoConnection();
}

void ScriptDelete(Script& script, Int32 focus_area) {
    script.OpenSelect(SelectOfDate(17, focus_area)).Rows(kNameColumns, {{"Führung"}});
    script.ExecuteSql(DeleteOfDate(17, focus_area));
}

Ref<colSemTerminSchwerpunkte> Listed(const Ref<DataSession>& session) {
    auto list = New<colSemTerminSchwerpunkte>();
    EXPECT_EQ(list->Init(17, session), true);
    return list;
}

TEST(colSemTerminSchwerpunkte, AnEntryKnowsTheDateOfItsRow) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(SelectKeysOfDate(17)).Rows({"SchwerpunktID", "SemTerminID"}, {{"7", "18"}});
    script.AdoConnection();
    const auto list = Listed(script.Session());
    EXPECT_EQ(list->Item("0000000007")->SemTerminID(), 18);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemTerminSchwerpunkte, AKeyThatIsNullRaisesInTheInitOfTheEntry) {
    Script script;
    script.AdoConnection();
    script.OpenSelect(SelectKeysOfDate(17)).Rows({"SchwerpunktID", "SemTerminID"}, {{Variant::Null(), 17}});
    script.AdoConnection();
    colSemTerminSchwerpunkte list;
    EXPECT_RAISES_UNDER(94,
                        (Labels{kLabel + "Init", " LumoSeminar062.clsColSemTerminSchwerpunkte.LoadKeysFromDatabase",
                                " LumoSeminar062.clsColSemTerminSchwerpunkte.Init"}),
                        list.Init(17, script.Session()));
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemTerminSchwerpunkte, AddFilesUnderThePresentKeyWritesNothingAndIsFalse) {
    Script script;
    ScriptList(script);
    script.AdoConnection();
    const auto list = Listed(script.Session());
    const auto added = Bound(script.Session(), 8);
    EXPECT_EQ(list->Add(added), false);
    EXPECT_EQ(list->Item("0000000008"), added);
    EXPECT_EQ(list->Item(3), added);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemTerminSchwerpunkte, AddRaisesForAKeyThatIsThereAndForNothing) {
    colSemTerminSchwerpunkte list;
    const auto fresh = New<clsSemTerminSchwerpunkt>();
    EXPECT_EQ(list.Add(fresh), false);
    EXPECT_RAISES_UNDER(457, Labels{" LumoSeminar062.clsColSemTerminSchwerpunkte.Add"},
                        list.Add(New<clsSemTerminSchwerpunkt>()));
    EXPECT_RAISES_UNDER(91, Labels{" LumoSeminar062.clsColSemTerminSchwerpunkte.Add"}, list.Add(nullptr));
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list.Item(1), fresh);
}

TEST(colSemTerminSchwerpunkte, RemoveDeletesTheLinkAlsoOfAnUnreadOneAndIsFalse) {
    Script script;
    ScriptList(script);
    ScriptDelete(script, 9);
    ScriptDelete(script, 7);
    const auto list = Listed(script.Session());
    EXPECT_EQ(list->Remove(2), false);
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(list->Item(1)->Key(), "0000000007");
    EXPECT_EQ(list->Remove("0000000007"), false);
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemTerminSchwerpunkte, ARemoveFailsAsDocumentedAtEachStepAndTheEntryStays) {
    const struct {
        int step;
        LumoConnection::FailureMode mode;
        Labels labels;
    } cases[] = {
        {5, kNotOk, {}},
        {6, kNotOk, {}},
        {5, kRaises, {kLabel + "PropertiesInit", kLabel + "DeleteFromDatabase", kLabelOfRemove}},
        {6, kRaises, {kLabel + "DeleteFromDatabase", kLabelOfRemove}},
    };
    for (const auto& c : cases) {
        Script script;
        ScriptList(script);
        ScriptDelete(script, 7);
        script.FailAt(c.step, c.mode);
        const auto list = Listed(script.Session());
        const auto error = RaisedBy([&] { return list->Remove(1); });
        ASSERT_EQ(error.has_value(), !c.labels.empty());
        if (error) {
            EXPECT_EQ(error->Number(), 7001);
            EXPECT_EQ(LabelsOf(error), c.labels);
        }
        EXPECT_EQ(list->Count(), 2);
        EXPECT_EQ(script.CallsAfterFailure(), std::vector<std::string>{});
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(colSemTerminSchwerpunkte, RemoveAllDeletesEveryLinkAndEmptiesTheList) {
    Script script;
    ScriptList(script);
    ScriptDelete(script, 7);
    ScriptDelete(script, 9);
    const auto list = Listed(script.Session());
    EXPECT_EQ(RemoveAllOf(*list), true);
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(RemoveAllOf(*list), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemTerminSchwerpunkte, RemoveAllKeepsWhatCannotBeDeletedAndIsTrueAllTheSame) {
    Script script;
    ScriptList(script);
    script.OpenSelect(SelectOfDate(17, 7)).Rows(kNameColumns, {{"Führung"}});
    script.ExecuteSql(DeleteOfDate(17, 7)).Refused("The row is in use.");
    ScriptDelete(script, 9);
    const auto list = Listed(script.Session());
    EXPECT_EQ(RemoveAllOf(*list), true);
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(list->Item(1)->Key(), "0000000007");
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemTerminSchwerpunkte, RemoveAllLooksForThePresentKeyAndRaisesWhereTheEntryIsFiledUnderAnother) {
    Script script;
    ScriptList(script);
    ScriptDelete(script, 8);
    const auto list = Listed(script.Session());
    list->Item(1)->SchwerpunktID(8);
    EXPECT_RAISES_UNDER(5, Labels{kLabelOfRemoveAll}, RemoveAllOf(*list));
    EXPECT_EQ(list->Count(), 2);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSemTerminSchwerpunkte, RemoveAllThatRaisesCarriesItsLabelAndKeepsTheRest) {
    Script script;
    ScriptList(script);
    ScriptDelete(script, 7);
    script.OpenSelect(SelectOfDate(17, 9)).Raises(-2147467259, "Verbindung verloren");
    const auto list = Listed(script.Session());
    const auto error = RaisedBy([&] { return RemoveAllOf(*list); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -2147467259);
    EXPECT_EQ(LabelsOf(error), (Labels{kLabel + "PropertiesInit", kLabel + "DeleteFromDatabase", kLabelOfRemoveAll}));
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(list->Item(1)->Key(), "0000000009");
    EXPECT_EQ(script.Report(), "");
}

}  // namespace
}  // namespace LumoSeminar
