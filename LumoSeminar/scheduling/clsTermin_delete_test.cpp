#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/catalogue/focus_areas.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <test_support/date_lists.h>
#include <test_support/failures.h>
#include <test_support/raises.h>
#include <test_support/serie_statements.h>
#include <test_support/termin_properties.h>
#include <test_support/termin_statements.h>

namespace LumoSeminar {
namespace {

using namespace date_lists;
using namespace termin_properties;
using namespace termin_statements;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;

const std::string kRemoveParticipants = "LumoSeminar.colTeilnehmer.RemoveALL";
const std::string kRemoveFocusAreas = "LumoSeminar.colSemTerminSchwerpunkte.RemoveAll";

void ScriptDeleteOfFocusArea(Script& script, int key) {
    script.OpenSelect(focus_area::SelectOfDate(17, key)).Rows({"WBS"}, {{"Führung"}});
    script.ExecuteSql(focus_area::DeleteOfDate(17, key));
}

/// The row, and that of series 7, which a seminar still uses.
void ScriptDeleteOfRow(Script& script, Int32 seminars = 1) {
    script.ExecuteSql(Delete(17));
    script.OpenSelect(serie_statements::CountSeminars(7)).Rows({""}, {{seminars}});
    script.CloseRows();
    script.OpenSelect(serie_statements::CountDates(7)).Rows({""}, {{0}});
    script.CloseRows();
}

TEST(clsTermin, ADeleteEmptiesTheParticipantsThenTheFocusAreasThenDeletesTheRow) {
    Script script;
    ScriptDate(script);
    ScriptParticipants(script, {{24}, {23, Int16{0}}});
    script.ExecuteSql(participant::Delete(24));
    script.ExecuteSql(participant::Delete(23));
    ScriptFocusAreas(script, {16, 10});
    ScriptDeleteOfFocusArea(script, 16);
    ScriptDeleteOfFocusArea(script, 10);
    ScriptDeleteOfRow(script);
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->DeleteFromDatabase(), true);
    for (const auto& list : kLists) EXPECT_EQ(list.count(*date), 0) << list.name;
    EXPECT_EQ(date->AnzAnmeldungen(), 0);
    EXPECT_EQ(date->AnzFreiePlaetze(), 14);
    EXPECT_EQ(script.Report(), "") << "no statement for days, cost lines and the wait-list";
}

TEST(clsTermin, ADeleteEmptiesTheListsAsTheyWereReadBefore) {
    Script script;
    ScriptDate(script);
    ScriptParticipants(script, {{23}});
    ScriptFocusAreas(script, {16});
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->AnzAnmeldungen(), 1);
    EXPECT_EQ(date->clscolSemTerminSchwerpunkte()->Count(), 1);
    EXPECT_EQ(script.Report(), "");
    script.ExecuteSql(participant::Delete(23));
    ScriptDeleteOfFocusArea(script, 16);
    ScriptDeleteOfRow(script);
    EXPECT_EQ(date->DeleteFromDatabase(), true);
    EXPECT_EQ(script.Report(), "") << "who has been enrolled since keeps the row";
}

TEST(clsTermin, AParticipantWhoseDeleteIsRefusedStaysListedAndTheDeleteGoesOn) {
    Script script;
    ScriptDate(script);
    ScriptParticipants(script, {{23}, {24}, {25}});
    script.ExecuteSql(participant::Delete(23));
    script.ExecuteSql(participant::Delete(24)).Refused("Die Zeile ist in Gebrauch.");
    script.ExecuteSql(participant::Delete(25));
    ScriptFocusAreas(script, {});
    ScriptDeleteOfRow(script);
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->DeleteFromDatabase(), true);
    EXPECT_EQ(KeysOf(date->clscolTeilnehmer()), std::vector<Text>{"0000000024"});
    EXPECT_EQ(date->AnzAnmeldungen(), 1);
    EXPECT_EQ(script.Report(), "");
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
}

TEST(clsTermin, AFocusAreaWhoseLoadOrDeleteIsRefusedStaysListedAndTheDeleteGoesOn) {
    Script script;
    ScriptDate(script);
    ScriptParticipants(script, {});
    ScriptFocusAreas(script, {16, 10, 11});
    script.OpenSelect(focus_area::SelectOfDate(17, 16)).Refused("time-out");
    script.OpenSelect(focus_area::SelectOfDate(17, 10)).Rows({"WBS"}, {{"Löten"}});
    script.ExecuteSql(focus_area::DeleteOfDate(17, 10)).Refused("Die Zeile ist in Gebrauch.");
    ScriptDeleteOfFocusArea(script, 11);
    ScriptDeleteOfRow(script);
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->DeleteFromDatabase(), true);
    EXPECT_EQ(KeysOf(date->clscolSemTerminSchwerpunkte()), (std::vector<Text>{"0000000016", "0000000010"}));
    EXPECT_EQ(script.Report(), "");
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
}

TEST(clsTermin, ListsThatCouldNotBeReadDoNotHoldUpTheDelete) {
    for (const auto& [how, script_no_list] : kNoList) {
        SCOPED_TRACE(how);
        Script script;
        ScriptDate(script);
        for (const auto& list : kLists) script_no_list(script, list.select(17));
        ScriptDeleteOfRow(script);
        const auto date = Bound(script.Session(), 17);
        EXPECT_EQ(date->DeleteFromDatabase(), true);
        for (const auto& list : kLists) EXPECT_EQ(list.count(*date), 0) << list.name;
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, WhereTheRowIsRefusedTheListsAreEmptyAlreadyAndAnotherDeleteSendsTheRowAlone) {
    Script script;
    ScriptDate(script);
    ScriptParticipants(script, {{23}});
    script.ExecuteSql(participant::Delete(23));
    ScriptFocusAreas(script, {16});
    ScriptDeleteOfFocusArea(script, 16);
    script.ExecuteSql(Delete(17)).Refused("Die Zeile ist in Gebrauch.");
    ScriptDeleteOfRow(script);
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->DeleteFromDatabase(), false);
    for (const auto& list : kLists) EXPECT_EQ(list.count(*date), 0) << list.name;
    EXPECT_EQ(date->DeleteFromDatabase(), true);
    EXPECT_EQ(script.Report(), "");
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
}

TEST(clsTermin, ADeleteStopsAtAnEntryThatIsFiledUnderAnotherKeyThanItsOwn) {
    {
        Script script;
        ScriptDate(script);
        ScriptParticipants(script, {{23}});
        script.ExecuteSql(participant::Delete(25));
        const auto date = Bound(script.Session(), 17);
        date->clscolTeilnehmer()->Item(1)->TeilnehmerID(25);
        EXPECT_RAISES_UNDER(5, (Labels{kRemoveParticipants, kLabelOfDelete}), date->DeleteFromDatabase());
        EXPECT_EQ(date->clscolTeilnehmer()->Count(), 1);
        EXPECT_EQ(script.Report(), "");
    }
    Script script;
    ScriptDate(script);
    ScriptFocusAreas(script, {16});
    ScriptParticipants(script, {});
    ScriptDeleteOfFocusArea(script, 11);
    const auto date = Bound(script.Session(), 17);
    date->clscolSemTerminSchwerpunkte()->Item(1)->SchwerpunktID(11);
    EXPECT_RAISES_UNDER(5, (Labels{kRemoveFocusAreas, kLabelOfDelete}), date->DeleteFromDatabase());
    EXPECT_EQ(date->clscolSemTerminSchwerpunkte()->Count(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, ADeleteWithAParticipantAndAFocusAreaFailsAsDocumentedAtEachStep) {
    const auto write_script = [](Script& script) {
        ScriptDate(script);
        ScriptParticipants(script, {{23}});
        script.ExecuteSql(participant::Delete(23));
        ScriptFocusAreas(script, {16});
        ScriptDeleteOfFocusArea(script, 16);
        ScriptDeleteOfRow(script, 0);
        script.ExecuteSql(serie_statements::Delete(7));
    };
    constexpr int kFocusAreaList = 7;
    constexpr int kRow = 12;
    Script whole;
    write_script(whole);
    ASSERT_EQ(whole.StepCount(), 17);
    const auto From = [&](int step) {
        Labels calls;
        for (; step <= whole.StepCount(); ++step) calls.push_back(whole.StepText(step));
        return calls;
    };
    const Labels uses = {"LumoSeminar.clsTermin.CheckSerie", kLabelOfDelete};
    const Labels series = Then({"LumoSeminar.clsSerie.DeleteFromDatabase", "LUmoSeminar.clsSerie.RemoveSerie"}, uses);
    const Labels remove_participant = {kParticipant + "DeleteFromDatabase", kRemoveParticipants, kLabelOfDelete};
    const Labels remove_focus_area = {kFocusArea + "DeleteFromDatabase", kRemoveFocusAreas, kLabelOfDelete};
    ExpectFailures(write_script, [](const Ref<DataSession>& session) { (void)Bound(session, 17)->DeleteFromDatabase(); },
                   {{1, kNotOk},
                    {2, kNotOk, 0, {}, Then({kOpen}, From(kFocusAreaList))},
                    {3, kNotOk, 0, {}, From(kFocusAreaList)},
                    {4, kNotOk, 91, remove_participant, {kOpen}},  // it could not be bound and has no session
                    {5, kNotOk, 0, {}, From(6)},
                    {6, kNotOk, 0, {}, From(kFocusAreaList)},
                    {7, kNotOk, 0, {}, Then({kOpen}, From(kRow))},
                    {8, kNotOk, 0, {}, From(kRow)},
                    {9, kNotOk, 0, {}, Then({kOpen}, From(kRow))},
                    {10, kNotOk, 0, {}, From(kRow)},
                    {11, kNotOk, 0, {}, From(kRow)},
                    {12, kNotOk},
                    {13, kNotOk, 0, {}, From(15)},
                    {15, kNotOk, 0, {}, From(17)},
                    {17, kNotOk, 9999, series},
                    {1, kRaises, 7001, {kLabel + "PropertiesInit", kLabelOfDelete}},
                    {2, kRaises, 7001, Then(LabelsOfParticipants(2), {kLabelOfDelete})},
                    {3, kRaises, 7001, Then(LabelsOfParticipants(3), {kLabelOfDelete})},
                    {4, kRaises, 7001, Then(LabelsOfParticipants(4), {kLabelOfDelete})},
                    {5, kRaises, 7001, Then(LabelsOfParticipants(5), {kLabelOfDelete})},
                    {6, kRaises, 7001, remove_participant},
                    {7, kRaises, 7001, Then(LabelsOfFocusAreas(2), {kLabelOfDelete})},
                    {8, kRaises, 7001, Then(LabelsOfFocusAreas(3), {kLabelOfDelete})},
                    {9, kRaises, 7001, Then(LabelsOfFocusAreas(4), {kLabelOfDelete})},
                    {10, kRaises, 7001, Then({kFocusArea + "PropertiesInit"}, remove_focus_area)},
                    {11, kRaises, 7001, remove_focus_area},
                    {12, kRaises, 7001, {kLabelOfDelete}},
                    {13, kRaises, 7001, uses},
                    {14, kRaises, 7001, uses},
                    {15, kRaises, 7001, uses},
                    {16, kRaises, 7001, uses},
                    {17, kRaises, 7001, series}});
}

}  // namespace
}  // namespace LumoSeminar
