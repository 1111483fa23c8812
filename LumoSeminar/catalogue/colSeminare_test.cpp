#include <LumoSeminar/catalogue/colSeminare.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/catalogue/clsSeminar.h>
#include <test_support/failures.h>
#include <test_support/raises.h>
#include <test_support/seminar_statements.h>

namespace LumoSeminar {
namespace {

using namespace seminar_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;

const std::string kLabel = " LumoSeminar062.clsColSeminar.";
const std::string kLabelOfAdd = " LumoSeminar062.clsColSeminare.Add";
const std::string kSeminar = " LumoSeminar062.clsSeminar.";
const std::string kDates = " LumoSeminar062.clsColTermine.";

void ScriptList(Script& script, Int32 client, const std::vector<std::vector<Variant>>& keys) {
    script.AdoConnection();
    script.OpenSelect(SelectKeys(client)).Rows({"SemID"}, keys);
}

Ref<colSeminare> Listed(const Ref<DataSession>& session, Int32 client) {
    auto list = New<colSeminare>();
    (void)list->Init(client, session);
    return list;
}

void ScriptDates(Script& script, Int32 seminar, const std::vector<std::vector<Variant>>& dates) {
    script.AdoConnection();
    script.OpenSelect(SelectDates(seminar, 5)).Rows(kDateColumns, dates);
}

TEST(colSeminare, AWalkOverAPropertyCostsOneStatementAnEntry) {
    Script script;
    ScriptList(script, 5, {{1}, {2}});
    script.OpenSelect(Select(1)).Rows(kColumns, {FullRow()});
    script.OpenSelect(Select(2)).Rows(kColumns, {NullRow()});
    const auto list = Listed(script.Session(), 5);
    std::vector<Text> titles;
    for (const auto& seminar : list->NewEnum()) titles.push_back(seminar->SemTitel());
    for (const auto& seminar : list->NewEnum()) titles.push_back(seminar->SemCode());
    EXPECT_EQ(titles, (std::vector<Text>{"Brandschutz für Führungskräfte", "<neues Seminar>", "BS-01", ""}));
    EXPECT_EQ(script.Report(), "");
}

TEST(colSeminare, AddFilesUnderThePresentKeyAndWritesNothing) {
    Script script;
    ScriptList(script, 5, {{1}});
    const auto list = Listed(script.Session(), 5);
    auto seminar = New<clsSeminar>();
    seminar->Init(8, script.Session());
    EXPECT_EQ(list->Add(seminar), seminar);
    EXPECT_EQ(list->Item("0000000008"), seminar);
    EXPECT_EQ(list->Item(2), seminar);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSeminare, TwoNewSeminarsCollideOnTheKey) {
    Script script;
    colSeminare list;
    for (const bool second : {false, true}) {
        auto seminar = New<clsSeminar>();
        seminar->Init(0, script.Session());
        const auto error = RaisedBy([&] { return list.Add(seminar); });
        ASSERT_EQ(error.has_value(), second);
        if (!second) continue;
        EXPECT_EQ(error->Number(), 457);
        EXPECT_EQ(LabelsOf(error), Labels{kLabelOfAdd});
    }
    EXPECT_EQ(list.Count(), 1);
}

TEST(colSeminare, AddOfAnEmptyReferenceRaises91) {
    colSeminare list;
    EXPECT_RAISES_UNDER(91, Labels{kLabelOfAdd}, list.Add(nullptr));
}

TEST(colSeminare, RemoveOfAReadSeminarDeletesAndIsFalse) {
    Script script;
    ScriptList(script, 5, {{1}, {2}});
    script.OpenSelect(Select(2)).Rows(kColumns, {FullRow()});
    ScriptDates(script, 2, {});
    script.ExecuteSql(Delete(2));
    const auto list = Listed(script.Session(), 5);
    EXPECT_EQ(list->Item(2)->Status(), 2);
    EXPECT_EQ(list->Remove("0000000002"), false);
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(list->Item(1)->SemID(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSeminare, RemoveOfASeminarWithADateLeavesEverythingInPlace) {
    Script script;
    ScriptList(script, 5, {{2}});
    script.OpenSelect(Select(2)).Rows(kColumns, {FullRow()});
    ScriptDates(script, 2, {{17, Variant::Null(), "Brandschutz", "BS-17"}});
    const auto list = Listed(script.Session(), 5);
    list->Item(1)->Status();
    EXPECT_EQ(list->Remove(1), false);
    EXPECT_EQ(list->Remove(1), false) << "the dates are listed once";
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSeminare, RemoveDeletesWhereTheDatesCannotBeListed) {
    Script script;
    ScriptList(script, 5, {{2}});
    script.OpenSelect(Select(2)).Rows(kColumns, {FullRow()});
    script.AdoConnection();
    script.OpenSelect(SelectDates(2, 5)).Refused("Invalid object name 'Sem_Termin_IT'.");
    script.ExecuteSql(Delete(2));
    const auto list = Listed(script.Session(), 5);
    list->Item(1)->Status();
    list->Remove(1);
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSeminare, RemoveOfAnUnreadSeminarDeletesNothing) {
    Script script;
    ScriptList(script, 5, {{1}});
    const auto list = Listed(script.Session(), 5);
    EXPECT_EQ(list->Remove(1), false);
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(colSeminare, ARemoveFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            ScriptList(script, 5, {{1}});
            script.OpenSelect(Select(1)).Rows(kColumns, {FullRow()});
            ScriptDates(script, 1, {});
            script.ExecuteSql(Delete(1));
        },
        [](const Ref<DataSession>& session) {
            const auto list = Listed(session, 5);
            if (list->Count() == 0) return;
            list->Item(1)->Status();
            try {
                list->Remove(1);
            } catch (const Error&) {
                EXPECT_EQ(list->Count(), 1) << "a row that could not be deleted stays listed";
                throw;
            }
        },
        {{1, kNotOk, 0, {}, {"Open of the connection"}},
         {2, kNotOk},
         {3, kNotOk},
         {4, kNotOk, 0, {}, {"Open of the connection", "ExecuteSql: " + Delete(1)}},
         {5, kNotOk, 0, {}, {"ExecuteSql: " + Delete(1)}},
         {6, kNotOk, 9999, {kSeminar + "DeleteFromDatabase", kLabelOfAdd}},
         {1, kRaises, 7001, {kLabel + "Init"}},
         {2, kRaises, 7001, {kLabel + "LoadKeysFromDatabase", kLabel + "Init"}},
         {3, kRaises, 7001, {kSeminar + "PropertiesInit", kSeminar + "Status -> Property GET"}},
         {4, kRaises, 7001, {kDates + "Init", kSeminar + "Termine", kSeminar + "DeleteFromDatabase", kLabelOfAdd}},
         {5, kRaises, 7001, {kDates + "LoadKeysFromDatabase", kDates + "Init", kSeminar + "Termine", kSeminar + "DeleteFromDatabase", kLabelOfAdd}},
         {6, kRaises, 7001, {kSeminar + "DeleteFromDatabase", kLabelOfAdd}}});
}

TEST(colSeminare, AnEntryOutlivesItsList) {
    Script script;
    ScriptList(script, 5, {{1}});
    script.OpenSelect(Select(1)).Rows(kColumns, {FullRow()});
    auto list = Listed(script.Session(), 5);
    auto seminar = list->Item(1);
    list.Reset();
    EXPECT_EQ(seminar->Status(), 2);
    EXPECT_EQ(script.Report(), "");
    seminar.Reset();
    EXPECT_TRUE(script.SessionReleased());
}

}  // namespace
}  // namespace LumoSeminar
