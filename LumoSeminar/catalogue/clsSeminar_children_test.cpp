#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <utility>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/catalogue/clsSeminar.h>
#include <LumoSeminar/catalogue/colSeminare.h>
#include <LumoSeminar/catalogue/focus_areas.h>
#include <LumoSeminar/catalogue/target_groups.h>
#include <test_support/database_calls.h>
#include <test_support/embedded.h>
#include <test_support/failures.h>
#include <test_support/focus_area_statements.h>
#include <test_support/raises.h>
#include <test_support/seminar_statements.h>

namespace LumoSeminar {
namespace {

using namespace seminar_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::SampleDatabase;
using test_support::SchemaDatabase;
using test_support::Value;
using test_support::Write;

using Labels = std::vector<std::string>;
using Texts = std::vector<Text>;

const std::string kLabel = " LumoSeminar062.clsSeminar.";
const std::string kLabelOfGoal = kLabel + "ZielInhalt -> Property GET";
const std::string kOpen = "Open of the connection";

Ref<clsSeminar> Bound(const Ref<DataSession>& session, Int32 key) {
    auto seminar = New<clsSeminar>();
    EXPECT_EQ(seminar->Init(key, session), true);
    return seminar;
}

// The statements.

std::string SelectGroups(int seminar) {
    return "SELECT ZielGruppeID FROM Sem_Zielgruppen_IT WHERE SemID = " + std::to_string(seminar);
}

std::string SelectGroup(int seminar, int group) {
    return "SELECT sysIData_Zielgruppen.Kurz, sysIData_Zielgruppen.Bezeichnung FROM Sem_Zielgruppen_IT INNER JOIN "
           "sysIData_Zielgruppen ON Sem_Zielgruppen_IT.ZielGruppeID = sysIData_Zielgruppen.ID WHERE "
           "Sem_Zielgruppen_IT.SemID = " +
           std::to_string(seminar) + " AND Sem_Zielgruppen_IT.ZielGruppeID = " + std::to_string(group);
}

std::string SelectGoal(int key) {
    return "SELECT Ziel, Inhalt FROM Sem_ZielInhalt_IT WHERE ZielInhaltID = " + std::to_string(key);
}

/// Goal and content 3 in the full row.
void ScriptSeminar(Script& script, int key = 5) { script.OpenSelect(Select(key)).Rows(kColumns, {FullRow()}); }

void ScriptFocusAreas(Script& script, int seminar) {
    script.AdoConnection();
    script.OpenSelect(focus_area_statements::SelectKeysOfSeminar(seminar))
        .Rows({"SchwerpunktID", "SemID"}, {{10, seminar}, {2, seminar}});
    script.AdoConnection();
    script.AdoConnection();
}

/// What is executed on the connection, which is asked for twice.
LumoConnection::RowsStep ScriptExecute(Script& script, const std::string& sql) {
    script.AdoConnection();
    script.AdoConnection();
    return script.ConnectionExecute(sql);
}

void ScriptTargetGroups(Script& script, int seminar) {
    const auto groups = ScriptExecute(script, SelectGroups(seminar)).Rows({"ZielGruppeID"}, {{7}, {4}});
    for (const auto& [key, name] : {std::pair(7, "AD"), std::pair(4, "FK")}) {
        ScriptExecute(script, SelectGroup(seminar, key)).Rows({"Kurz", "Bezeichnung"}, {{name, "Führungskräfte"}});
        script.CloseRows();
    }
    script.CloseRows(groups);
}

void ScriptGoal(Script& script, int key, const std::vector<std::vector<Variant>>& rows = {}) {
    ScriptExecute(script, SelectGoal(key)).Rows({"Ziel", "Inhalt"}, rows);
    script.CloseRows();
}

// The two lists, each with two entries.

Texts NamesOf(const Ref<colSemZielgruppen>& list) {
    Texts names;
    for (const auto& group : list->NewEnum()) names.push_back(group->BezeichungKurz());
    return names;
}

Texts KeysOf(const Ref<colSemSchwerpunkte>& list) {
    Texts keys;
    for (const auto& entry : list->NewEnum()) keys.push_back(entry->Key());
    return keys;
}

struct List {
    const char* name;
    void (*script)(Script& script, int seminar);
    Ref<Object> (*object)(clsSeminar& seminar);
    Int32 (*count)(clsSeminar& seminar);
    std::string label;
    Texts (*entries)(clsSeminar& seminar);
    Texts wanted;
};

const List kLists[] = {
    {"colSemSchwerpunkte",
     &ScriptFocusAreas,
     [](clsSeminar& seminar) -> Ref<Object> { return seminar.colSemSchwerpunkte(); },
     [](clsSeminar& seminar) { return seminar.colSemSchwerpunkte()->Count(); },
     kLabel + "SemSchwerpunkte",
     [](clsSeminar& seminar) { return KeysOf(seminar.colSemSchwerpunkte()); },
     {"0000000010", "0000000002"}},
    {"colSemZielgruppen",
     &ScriptTargetGroups,
     [](clsSeminar& seminar) -> Ref<Object> { return seminar.colSemZielgruppen(); },
     [](clsSeminar& seminar) { return seminar.colSemZielgruppen()->Count(); },
     " LumoSeminar.clsSeminar.colSemZielgruppen",
     [](clsSeminar& seminar) { return NamesOf(seminar.colSemZielgruppen()); },
     {"AD", "FK"}},
};

TEST(clsSeminar, ListsItsFocusAreasAndItsTargetGroupsOnceBehindTheLoad) {
    for (const auto& list : kLists) {
        SCOPED_TRACE(list.name);
        Script script;
        ScriptSeminar(script);
        list.script(script, 5);
        const auto seminar = Bound(script.Session(), 5);
        const auto first = list.object(*seminar);
        ASSERT_TRUE(first);
        EXPECT_TRUE(list.object(*seminar) == first);
        EXPECT_EQ(list.entries(*seminar), list.wanted);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSeminar, AFocusAreaOfASeminarReadsItsNameLater) {
    Script script;
    ScriptSeminar(script);
    ScriptFocusAreas(script, 5);
    script.OpenSelect(focus_area_statements::SelectOfSeminar(5, 2)).Rows({"Weiterbildungsschwerpunkt"}, {{"\"Löschen\""}});
    EXPECT_EQ(Bound(script.Session(), 5)->colSemSchwerpunkte()->Item("0000000002")->WBS(), "\"Löschen\"");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, WithoutARowThereIsNoListAndEachGetLooksAgain) {
    for (const auto& list : kLists) {
        SCOPED_TRACE(list.name);
        Script script;
        script.OpenSelect(Select(5)).Rows(kColumns, {});
        script.OpenSelect(Select(5)).Refused("time-out");
        ScriptSeminar(script);
        list.script(script, 5);
        const auto seminar = Bound(script.Session(), 5);
        EXPECT_FALSE(list.object(*seminar)) << "no row";
        EXPECT_FALSE(list.object(*seminar)) << "the load is refused";
        EXPECT_TRUE(list.object(*seminar));
        EXPECT_EQ(list.entries(*seminar), list.wanted);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSeminar, AnUnboundSeminarHasNoLists) {
    for (const auto& list : kLists) {
        clsSeminar seminar;
        EXPECT_FALSE(list.object(seminar)) << list.name;
    }
}

TEST(clsSeminar, AListThatCouldNotBeReadIsKeptEmpty) {
    const std::pair<const char*, void (*)(Script&)> ways[] = {
        {"no connection", [](Script& script) { script.AdoConnection().Empty(); }},
        {"closed",
         [](Script& script) {
             script.AdoConnection().Closed();
             script.ConnectionOpen().StaysClosed();
         }},
    };
    for (const auto& list : kLists) {
        for (const auto& [how, script_no_list] : ways) {
            SCOPED_TRACE(std::string(list.name) + ", " + how);
            Script script;
            ScriptSeminar(script);
            script_no_list(script);
            const auto seminar = Bound(script.Session(), 5);
            const auto first = list.object(*seminar);
            ASSERT_TRUE(first);
            EXPECT_TRUE(list.object(*seminar) == first);
            EXPECT_EQ(list.count(*seminar), 0);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST(clsSeminar, FocusAreasWhoseStatementIsRefusedAreKeptAsAnEmptyList) {
    Script script;
    ScriptSeminar(script);
    script.AdoConnection();
    script.OpenSelect(focus_area_statements::SelectKeysOfSeminar(5)).Refused("time-out");
    const auto seminar = Bound(script.Session(), 5);
    const auto first = seminar->colSemSchwerpunkte();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->Count(), 0);
    EXPECT_TRUE(seminar->colSemSchwerpunkte() == first);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, AListIsThatOfTheKeyAtItsFirstGet) {
    for (const auto& list : kLists) {
        SCOPED_TRACE(list.name);
        Script script;
        ScriptSeminar(script);
        list.script(script, 6);
        const auto seminar = Bound(script.Session(), 5);
        EXPECT_EQ(seminar->MDNR(), 5);
        seminar->SemID(6);
        const auto first = list.object(*seminar);
        seminar->SemID(7);
        EXPECT_TRUE(list.object(*seminar) == first);
        EXPECT_EQ(list.entries(*seminar), list.wanted);
        EXPECT_EQ(script.Report(), "");
    }
}

// Goal and content.

TEST(clsSeminar, GoalAndContentAreReadOnceBehindALoadUnderTheKeyOfTheRow) {
    Script script;
    ScriptSeminar(script);
    ScriptGoal(script, 3, {{"Jede weiß, \"was\" sie darf.", "Prüfungen,\r\nO'Neills Übungen"}});
    const auto seminar = Bound(script.Session(), 5);
    EXPECT_EQ(seminar->InhaltZielID(), 3);
    const auto goal = seminar->ZielInhalt();
    ASSERT_TRUE(goal);
    EXPECT_EQ(goal->ZielInhaltID(), 3);
    EXPECT_EQ(goal->Ziel(), "Jede weiß, \"was\" sie darf.");
    EXPECT_EQ(goal->Inhalt(), "Prüfungen,\r\nO'Neills Übungen");
    EXPECT_TRUE(seminar->ZielInhalt() == goal);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, GoalAndContentAskedForBeforeAnyOtherPropertyAreBuiltWithKeyZeroAndStaySo) {
    Script script;
    ScriptGoal(script, 0);
    ScriptSeminar(script);
    const auto seminar = Bound(script.Session(), 5);
    const auto goal = seminar->ZielInhalt();
    ASSERT_TRUE(goal);
    EXPECT_EQ(seminar->InhaltZielID(), 3) << "the load comes with this get only";
    EXPECT_TRUE(seminar->ZielInhalt() == goal);
    EXPECT_EQ(goal->ZielInhaltID(), 0);
    EXPECT_EQ(goal->Ziel(), "");
    EXPECT_EQ(goal->Inhalt(), "");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, GoalAndContentFollowWhatIsLetBeforeTheirFirstGetAndNothingBehindIt) {
    for (const bool loaded : {false, true}) {
        SCOPED_TRACE(loaded);
        Script script;
        if (loaded) ScriptSeminar(script);
        ScriptGoal(script, 9, {{"Überblick", "Übungen"}});
        const auto seminar = Bound(script.Session(), 5);
        if (loaded) {
            EXPECT_EQ(seminar->Status(), 2);
        }
        seminar->InhaltZielID(9);
        EXPECT_EQ(seminar->ZielInhalt()->Ziel(), "Überblick");
        seminar->InhaltZielID(10);
        EXPECT_EQ(seminar->ZielInhalt()->ZielInhaltID(), 9);
        EXPECT_EQ(script.Report(), "") << "no load";
    }
}

TEST(clsSeminar, AlsoASeminarWithoutARowHasGoalAndContentThoseOfKeyZero) {
    Script script;
    script.OpenSelect(Select(5)).Rows(kColumns, {});
    ScriptGoal(script, 0);
    const auto seminar = Bound(script.Session(), 5);
    EXPECT_EQ(seminar->InhaltZielID(), 0);
    ASSERT_TRUE(seminar->ZielInhalt());
    EXPECT_EQ(seminar->ZielInhalt()->Ziel(), "");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, GoalAndContentThatCouldNotBeReadAreKeptEmpty) {
    Script script;
    ScriptSeminar(script);
    script.AdoConnection().Closed();
    script.ConnectionOpen().StaysClosed();
    const auto seminar = Bound(script.Session(), 5);
    EXPECT_EQ(seminar->InhaltZielID(), 3);
    const auto goal = seminar->ZielInhalt();
    ASSERT_TRUE(goal);
    EXPECT_TRUE(seminar->ZielInhalt() == goal);
    EXPECT_EQ(goal->ZielInhaltID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSeminar, GoalAndContentOfAnUnboundSeminarRaise91) {
    clsSeminar seminar;
    EXPECT_RAISES_UNDER(91, (Labels{" LumoSeminar.clsSemZielInhalt.Init", kLabelOfGoal}), seminar.ZielInhalt());
}

// Failures.

TEST(clsSeminar, ReadingItsFocusAreasFailsAsDocumentedAtEachStep) {
    const std::string label = kLabel + "SemSchwerpunkte";
    const std::string init = " LumoSeminar062.clsColSemSchwerpunkte.Init";
    const std::string load = " LumoSeminar062.clsColTermine.LoadKeysFromDatabase";
    const std::string entry = " LumoSeminar062.clsSemSchwerpunkt.Init";
    ExpectFailures(
        [](Script& script) {
            ScriptSeminar(script);
            ScriptFocusAreas(script, 5);
        },
        [](const Ref<DataSession>& session) { Bound(session, 5)->colSemSchwerpunkte(); },
        {{1, kNotOk},
         {2, kNotOk, 0, {}, {kOpen}},
         {3, kNotOk},
         {4, kNotOk, 0, {}, {kOpen}},
         {5, kNotOk, 0, {}, {kOpen}},
         {1, kRaises, 7001, {kLabel + "PropertiesInit", label}},
         {2, kRaises, 7001, {init, label}},
         {3, kRaises, 7001, {load, init, label}},
         {4, kRaises, 7001, {entry, load, init, label}},
         {5, kRaises, 7001, {entry, load, init, label}}});
}

TEST(clsSeminar, ReadingItsTargetGroupsFailsAsDocumentedAtEachStep) {
    const auto write_script = [](Script& script) {
        ScriptSeminar(script);
        const auto groups = ScriptExecute(script, SelectGroups(5)).Rows({"ZielGruppeID"}, {{7}});
        ScriptExecute(script, SelectGroup(5, 7)).Rows({"Kurz", "Bezeichnung"}, {{"AD", "Außendienst"}});
        script.CloseRows();
        script.CloseRows(groups);
    };
    Script whole;
    write_script(whole);
    const std::string close_groups = whole.StepText(9);
    const std::string select_group = whole.StepText(7);
    const std::string close_group = whole.StepText(8);
    const Labels of_list = {" LumoSeminar.colSemZielgruppen.Init", " LumoSeminar.clsSeminar.colSemZielgruppen"};
    const Labels of_group = {" LumoSeminar.clsSemZielgruppe.Init", of_list[0], of_list[1]};
    ExpectFailures(
        write_script, [](const Ref<DataSession>& session) { Bound(session, 5)->colSemZielgruppen(); },
        {{1, kNotOk},
         {2, kNotOk, 0, {}, {kOpen}},
         // the connection is open already where it is asked for again
         {3, kNotOk, 0, {}, {whole.StepText(4), "AdoConnection", "AdoConnection", select_group, close_group, close_groups}},
         {4, kNotOk, 7001, of_list},
         {5, kNotOk, 0, {}, {kOpen, close_groups}},
         {6, kNotOk, 0, {}, {select_group, close_group, close_groups}},
         {7, kNotOk, 7001, of_group},
         {1, kRaises, 7001, {kLabel + "PropertiesInit", of_list[1]}},
         {2, kRaises, 7001, of_list},
         {3, kRaises, 7001, of_list},
         {4, kRaises, 7001, of_list},
         {5, kRaises, 7001, of_group},
         {6, kRaises, 7001, of_group},
         {7, kRaises, 7001, of_group},
         {8, kRaises, 7001, of_group},
         {9, kRaises, 7001, of_list}});
}

TEST(clsSeminar, ReadingGoalAndContentFailsAsDocumentedAtEachStep) {
    const Labels labels = {" LumoSeminar.clsSemZielInhalt.Init", kLabelOfGoal};
    ExpectFailures([](Script& script) { ScriptGoal(script, 0); },
                   [](const Ref<DataSession>& session) { Bound(session, 5)->ZielInhalt(); },
                   {{1, kNotOk, 0, {}, {kOpen}},
                    {2, kNotOk, 0, {}, {"Execute of the connection: " + SelectGoal(0), "Close of the rows of step 3"}},
                    {3, kNotOk, 7001, labels},
                    {1, kRaises, 7001, labels},
                    {2, kRaises, 7001, labels},
                    {3, kRaises, 7001, labels},
                    {4, kRaises, 7001, labels}});
}

TEST(clsSeminar, ItsListsOutliveItAndLetGoOfTheSession) {
    for (const auto& list : kLists) {
        SCOPED_TRACE(list.name);
        Script script;
        ScriptSeminar(script);
        list.script(script, 5);
        Ref<Object> outlives = list.object(*Bound(script.Session(), 5));
        outlives.Reset();
        EXPECT_TRUE(script.SessionReleased());
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSeminar, TargetGroupsAndGoalHoldNoSession) {
    Script script;
    ScriptSeminar(script);
    ScriptTargetGroups(script, 5);
    ScriptGoal(script, 3, {{"Überblick", "Übungen"}});
    auto seminar = Bound(script.Session(), 5);
    const auto groups = seminar->colSemZielgruppen();
    const auto goal = seminar->ZielInhalt();
    EXPECT_FALSE(script.SessionReleased());
    seminar.Reset();
    EXPECT_TRUE(script.SessionReleased());
    EXPECT_EQ(NamesOf(groups), (Texts{"AD", "FK"}));
    EXPECT_EQ(goal->Ziel(), "Überblick");
    EXPECT_EQ(script.Report(), "");
}

// For real.

Int32 CountOf(DataSession& session, const Text& rows) {
    return To<Int32>(Value(session, "SELECT COUNT(*) FROM " + rows));
}

TEST(SeminarChildrenForReal, EverySeminarOfTheSampleHasTheChildrenOfItsTables) {
    const auto session = SampleDatabase();
    Int32 focus_areas = 0;
    Int32 groups = 0;
    Int32 goals = 0;
    for (Int32 key = 1; key <= 42; ++key) {
        SCOPED_TRACE(key);
        const auto seminar = Bound(session, key);
        const std::string of_seminar = " WHERE SemID = " + std::to_string(key);
        EXPECT_EQ(seminar->colSemSchwerpunkte()->Count(), CountOf(*session, "Sem_Schwerpunkte_IT" + of_seminar));
        EXPECT_EQ(seminar->colSemZielgruppen()->Count(), CountOf(*session, "Sem_Zielgruppen_IT" + of_seminar));
        const Int32 goal = seminar->InhaltZielID();
        EXPECT_EQ(seminar->ZielInhalt()->ZielInhaltID(), goal);
        EXPECT_EQ(seminar->ZielInhalt()->Ziel().empty(), goal == 0);
        for (const auto& focus_area : seminar->colSemSchwerpunkte()->NewEnum()) EXPECT_NE(focus_area->WBS(), "");
        focus_areas += seminar->colSemSchwerpunkte()->Count();
        groups += seminar->colSemZielgruppen()->Count();
        goals += goal != 0;
    }
    EXPECT_EQ(focus_areas, CountOf(*session, "Sem_Schwerpunkte_IT"));
    EXPECT_EQ(groups, CountOf(*session, "Sem_Zielgruppen_IT"));
    EXPECT_EQ(goals, CountOf(*session, "Sem_Katalog_IT WHERE InhaltZielID IS NOT NULL"));
    EXPECT_GT(std::min({focus_areas, groups, goals}), 0);
}

TEST(SeminarChildrenForReal, ASeminarOfTheSampleHasItsOwn) {
    const auto seminar = Bound(SampleDatabase(), 14);
    Texts names;
    for (const auto& focus_area : seminar->colSemSchwerpunkte()->NewEnum()) names.push_back(focus_area->WBS());
    std::ranges::sort(names);
    EXPECT_EQ(names, (Texts{"Fertigungstechnik", "Messtechnik"}));
    EXPECT_EQ(NamesOf(seminar->colSemZielgruppen()), (Texts{"FA", "QS"}));
    EXPECT_EQ(seminar->ZielInhalt()->Ziel(), "Form- und Lagetoleranzen verstehen, prüfen und einhalten.")
        << "the lists have loaded the row";
}

TEST(SeminarChildrenForReal, NamesKeepTheirUmlautsAndQuotes) {
    const auto session = SchemaDatabase();
    Write(*session, "INSERT INTO Sem_Katalog_IT (SemID, MDNr, InhaltZielID) VALUES (5, 1, 3)");
    Write(*session, "INSERT INTO sysIData_WBS (WBS_ID, Weiterbildungsschwerpunkt) VALUES (2, N'Löten & \"Kleben\": O''Neill')");
    Write(*session, "INSERT INTO Sem_Schwerpunkte_IT (SchwerpunktID, SemID) VALUES (2, 5), (2, 6)");
    Write(*session, "INSERT INTO sysIData_Zielgruppen (ID, Kurz, Bezeichnung) VALUES (4, N'Ä''s', N'Ärztinnen \"Süd\"')");
    Write(*session, "INSERT INTO Sem_Zielgruppen_IT (SemID, ZielGruppeID) VALUES (5, 4), (6, 4)");
    Write(*session, "INSERT INTO Sem_ZielInhalt_IT (ZielInhaltID, Ziel, Inhalt) VALUES (3, N'Größe \"zeigen\"', N'O''Neill')");
    const auto seminar = Bound(session, 5);
    ASSERT_TRUE(seminar->colSemSchwerpunkte());
    EXPECT_EQ(seminar->colSemSchwerpunkte()->Count(), 1);
    EXPECT_EQ(seminar->colSemSchwerpunkte()->Item("0000000002")->WBS(), "Löten & \"Kleben\": O'Neill");
    EXPECT_EQ(NamesOf(seminar->colSemZielgruppen()), Texts{"Ä's"});
    EXPECT_EQ(seminar->ZielInhalt()->Ziel(), "Größe \"zeigen\"");
    EXPECT_EQ(seminar->ZielInhalt()->Inhalt(), "O'Neill");
}

TEST(SeminarChildrenForReal, GoalAndContentAreThoseOfTheRowOnlyBehindALoad) {
    const auto session = SampleDatabase();
    const auto unread = Bound(session, 3);
    EXPECT_EQ(unread->ZielInhalt()->Ziel(), "");
    EXPECT_EQ(unread->InhaltZielID(), 1);
    EXPECT_EQ(unread->ZielInhalt()->Ziel(), "");
    const auto read = Bound(session, 3);
    EXPECT_EQ(read->InhaltZielID(), 1);
    EXPECT_EQ(Variant(read->ZielInhalt()->Ziel()),
              Value(*session, "SELECT Ziel FROM Sem_ZielInhalt_IT WHERE ZielInhaltID = 1"));
    EXPECT_NE(read->ZielInhalt()->Ziel(), "");
}

TEST(SeminarChildrenForReal, WithoutARowThereAreNoListsAndAnEmptyGoal) {
    const auto session = SampleDatabase();
    const auto seminar = Bound(session, 43);
    for (const auto& list : kLists) EXPECT_FALSE(list.object(*seminar)) << list.name;
    EXPECT_EQ(seminar->ZielInhalt()->Ziel(), "");
    const auto new_seminar = Bound(session, 0);
    new_seminar->SemTitel("Löten für Anfänger");
    EXPECT_EQ(new_seminar->WriteToDatabase(), true);
    for (const auto& list : kLists) {
        ASSERT_TRUE(list.object(*new_seminar)) << list.name;
        EXPECT_EQ(list.count(*new_seminar), 0) << list.name;
    }
}

TEST(SeminarChildrenForReal, ListsStayAsFirstRead) {
    const auto session = SampleDatabase();
    const auto seminar = Bound(session, 8);
    const auto other = Bound(session, 8);
    const Int32 focus_areas = seminar->colSemSchwerpunkte()->Count();
    EXPECT_EQ(seminar->colSemZielgruppen()->Count(), 3);
    Write(*session, "INSERT INTO sysIData_WBS (WBS_ID, Weiterbildungsschwerpunkt) VALUES (99, N'Löten')");
    Write(*session, "INSERT INTO Sem_Schwerpunkte_IT (SchwerpunktID, SemID) VALUES (99, 8)");
    Write(*session, "DELETE FROM Sem_Zielgruppen_IT WHERE SemID = 8");
    EXPECT_EQ(seminar->colSemSchwerpunkte()->Count(), focus_areas);
    EXPECT_EQ(seminar->colSemZielgruppen()->Count(), 3);
    EXPECT_EQ(other->colSemSchwerpunkte()->Count(), focus_areas + 1);
    EXPECT_EQ(other->colSemSchwerpunkte()->Item("0000000099")->WBS(), "Löten");
    EXPECT_EQ(other->colSemZielgruppen()->Count(), 0);
}

TEST(SeminarChildrenForReal, TheDeleteOfASeminarLeavesItsLinks) {
    const auto session = SchemaDatabase();
    Write(*session, "INSERT INTO Sem_Katalog_IT (SemID, MDNr) VALUES (5, 1)");
    Write(*session, "INSERT INTO Sem_Schwerpunkte_IT (SchwerpunktID, SemID) VALUES (2, 5)");
    Write(*session, "INSERT INTO Sem_Zielgruppen_IT (SemID, ZielGruppeID) VALUES (5, 4)");
    colSeminare seminars;
    EXPECT_EQ(seminars.Init(1, session), true);
    EXPECT_EQ(seminars.Item(1)->colSemSchwerpunkte()->Count(), 1);
    EXPECT_EQ(seminars.Item(1)->colSemZielgruppen()->Count(), 1);
    seminars.Remove(1);
    EXPECT_EQ(seminars.Count(), 0);
    EXPECT_EQ(CountOf(*session, "Sem_Katalog_IT"), 0);
    EXPECT_EQ(CountOf(*session, "Sem_Schwerpunkte_IT"), 1);
    EXPECT_EQ(CountOf(*session, "Sem_Zielgruppen_IT"), 1);
}

}  // namespace
}  // namespace LumoSeminar
