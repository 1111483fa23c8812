// The costs of a participant that an approval makes, and every failure of an approval.

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <test_support/approval_steps.h>
#include <test_support/cost_statements.h>
#include <test_support/failures.h>
#include <test_support/need_statements.h>
#include <test_support/person_statements.h>
#include <test_support/process_calls.h>
#include <test_support/raises.h>
#include <test_support/termin_statements.h>
#include <test_support/waitlist_statements.h>

namespace LumoSeminar {
namespace {

using namespace approval_steps;
using namespace process_calls;
using need_statements::kLabelOfApproval;
using need_statements::Labels;
using person_statements::PersonOf;
using test_support::ExpectedFailure;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;
namespace costs = cost_statements;
namespace dates = termin_statements;
namespace entries = waitlist_statements;

// The approval of a person for a date that costs something, up to the question for the cost centre.
void ScriptUntilCostCentre(Script& script) {
    ScriptApproved(script);
    ScriptPerson(script);
    ScriptDate(script, {}, dates::FullRow());
    ScriptNewParticipant(script);
}

void ScriptUntilCostType(Script& script) {
    ScriptUntilCostCentre(script);
    ScriptCostCentre(script, {{4110}});
    ScriptNewLine(script);
}

using PersonApprovalCostsTest = ProcessTest;

const Variant kNull = Variant::Null();

// Its costs.

TEST_F(PersonApprovalCostsTest, ADateThatCostsMakesACostLineForTheCostCentreOfThePerson) {
    Script script;
    ScriptUntilCostCentre(script);
    script
        .OpenSelect(
            "Select Kost from ANKOst_LV where MDNR = 5 and ANNR = 45 and (GueltigAB <= '05.03.2010' AND (GueltigBis "
            "is null Or GueltigBis >= '03.03.2010'))")
        .Rows({"Kost"}, {{4110}, {4120}});
    script.CloseRows();
    ScriptNewLine(script);
    script.LookupValue("KostenArten_ID", "sysIData_KostenArten", "KostenArten = 'Teilnehmerkosten'").Gives(3);
    ScriptInsert(script);
    ScriptLine(script, "42,1,3,1120.5,4110");
    EXPECT_EQ(Approve(script), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonApprovalCostsTest, CostsAreWrittenAsASingle) {
    for (const auto& [amount, written] : {std::pair{Money::FromUnits(1), "0.0001"},
                                          {Money::FromUnits(3333), "0.3333"},
                                          {Money::FromUnits(-11'205'000), "-1120.5"},
                                          {Money::FromUnits(167'772'170'000), "1.677722E+07"}}) {
        Script script;
        ScriptWithCosts(script, amount, written, {{4110}}, "4110");
        EXPECT_EQ(Approve(script), true);
        EXPECT_EQ(script.Report(), "") << written;
    }
}

TEST_F(PersonApprovalCostsTest, ACostCentreOfZeroGoesOnAndSoDoesAnEmptyOrRefusedLookup) {
    const struct {
        std::vector<Row> rows;
        bool refused;
    } cases[] = {{{{0}}, false}, {{{kNull}}, false}, {{}, false}, {{}, true}};
    for (const auto& c : cases) {
        Script script;
        ScriptUntilCostCentre(script);
        if (c.refused) {
            script.OpenSelect(entries::SelectCostCentre(5, 45, "03.03.2010", "05.03.2010")).Refused("time-out");
        } else {
            ScriptCostCentre(script, c.rows);
        }
        ScriptNewLine(script);
        ScriptCostType(script).Gives(3);
        ScriptInsert(script);
        ScriptLine(script, "42,1,3,1120.5,0");
        EXPECT_EQ(Approve(script), true);
        EXPECT_EQ(script.LastErrorTextCalls(), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(PersonApprovalCostsTest, ACostCentreOfMinusOneMakesNoCostLine) {
    Script script;
    ScriptUntilCostCentre(script);
    ScriptCostCentre(script, {{-1}});
    ScriptFreeInsert(script);
    EXPECT_EQ(Approve(script), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonApprovalCostsTest, ACostTypeThatIsMissingIsMadeAndLookedUpAgain) {
    for (const Variant& first : {kNull, Variant(0)}) {
        Script script;
        ScriptUntilCostType(script);
        ScriptCostType(script).Gives(first);
        script.ExecuteSql(
            "Insert Into sysIData_KostenArten (KostenArten_ID,KostenArten)  Select isnull(Max(KostenArten_ID),0) +1, "
            "'Teilnehmerkosten'  From sysIData_KostenArten  Having Max(KostenArten_ID) < 100 or Max(KostenArten_ID) is "
            "null");
        ScriptCostType(script).Gives(8);
        ScriptInsert(script);
        ScriptLine(script, "42,1,8,1120.5,4110");
        EXPECT_EQ(Approve(script), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(PersonApprovalCostsTest, WhereTheCostTypesAreUsedUpTheSecondLookupIsNullAndRaisesAndTheParticipantIsNotWritten) {
    Script script;
    ScriptUntilCostType(script);
    ScriptCostType(script);
    script.ExecuteSql(costs::kInsertCostType).Ok();
    ScriptCostType(script);
    EXPECT_RAISES_UNDER(94, Labels{kLabelOfApproval}, Approve(script));
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonApprovalCostsTest, ACostTypeThatIsRefusedRaises9999AndTheParticipantIsNotWritten) {
    Script script;
    ScriptUntilCostType(script);
    ScriptCostType(script);
    script.ExecuteSql(costs::kInsertCostType).Refused("Die Tabelle ist gesperrt.");
    const auto error = RaisedBy([&] { return Approve(script); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(), "in line: 0\r\nDie Tabelle ist gesperrt. in LumoSeminar.TeilnahmeGenehmigen");
    EXPECT_EQ(script.Report(), "");
}

TEST_F(PersonApprovalCostsTest, WhatRaisesWhileTheCostTypeIsMadeHasTheLabelOfTheApprovalAlone) {
    for (const bool insert : {true, false}) {
        Script script;
        ScriptUntilCostType(script);
        ScriptCostType(script);
        const auto made = script.ExecuteSql(costs::kInsertCostType);
        if (insert) {
            made.Raises(-1, "Die Leitung ist tot.", "Treiber");
        } else {
            ScriptCostType(script).Raises(-1, "Die Leitung ist tot.", "Treiber");
        }
        const auto error = RaisedBy([&] { return Approve(script); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), -1);
        EXPECT_EQ(error->Source(), "Treiber");
        EXPECT_EQ(error->Description(), "in line: 0\r\nDie Leitung ist tot. in LumoSeminar.TeilnahmeGenehmigen");
        EXPECT_EQ(script.Report(), "");
    }
}

// Failures.

TEST_F(PersonApprovalCostsTest, EveryFailureIsSilentOrRaisesUnderItsLabels) {
    const auto approval = [](Labels inner) {
        inner.push_back(kLabelOfApproval);
        return inner;
    };
    const std::string participant = " LumoSeminar062.clsTeilnehmer.";
    const std::string list = " LumoSeminar062.ColTeilnehmer.";
    const std::string date = " LumoSeminar062.clsTermin.";
    const std::string of_date = " LumoSeminar062.clsSeminar.Teilnehmer";
    const std::string load = participant + "PropertiesInit";
    const std::string client = participant + "MDNr -> Property LET";
    const std::string init = participant + "Init";
    const std::string add = "LumoSeminar.colTeilnehmer.AddEmptyObject";
    const std::string defaults = date + "InitPropertiesByRecordset";
    const std::string centre = participant + "Kost -> Property LET";
    const std::string write = participant + "WriteToDatabase";
    const std::string line = " in LumoSeminar.WriteToDatabase";

    const auto write_script = [](Script& script) {
        ScriptApproved(script);
        ScriptPerson(script);
        ScriptDate(script, {{7, 5, 44}}, dates::FullRow());
        ScriptNewParticipant(script);
        ScriptCostCentre(script, {{0}});
        ScriptNewLine(script);
        ScriptCostType(script).Gives(3);
        ScriptInsert(script);
        ScriptLine(script, "42,1,3,1120.5,0");
    };
    const std::vector<Labels> labels = {
        // the entry, its process, the person
        {" in LumoSeminar.LoadList"},
        {" in LumoSeminar.LoadList"},
        {},
        {},
        {},
        {},
        {},
        {" in LumoSeminar.IsInitializedPerson"},
        {" in LumoSeminar.IsInitializedPerson"},
        // the date and its participants
        {date + "PropertiesInit", of_date},
        {list + "Init", of_date},
        {list + "LoadKeysFromDatabase", list + "Init", of_date},
        {init, list + "LoadKeysFromDatabase", list + "Init", of_date},
        {load, client, init, list + "LoadKeysFromDatabase", list + "Init", of_date},
        // the new one
        {init, list + "Add", add},
        {load, client, init, list + "Add", add},
        {date + "PropertiesInit", date + "SemTerminID --> GET", defaults, load, client, init, list + "Add", add},
        {defaults, load, client, init, list + "Add", add},
        {defaults, load, client, init, list + "Add", add},
        // its costs
        {" in LumoSeminar.GetKostAN"},
        {" in LumoSeminar.GetKostAN"},
        {" in LumoSeminar.LoadKeysFromDataBase", " in LumoSeminar.Init", " in LumoSeminar.objKosten", centre},
        {" in LumoSeminar.LoadKeysFromDataBase", " in LumoSeminar.Init", " in LumoSeminar.objKosten", centre},
        {" in LumoSeminar.IsInitialized", centre},
        {" in LumoSeminar.IsInitialized", centre},
        {},
        // the writes
        {date + "PropertiesInit", date + "BeginnDatum --> GET", write},
        {write},
        {write},
        {line, write},
        {line, write},
        {line, write},
    };
    const std::string open = "Open of the connection";
    const std::string no_type = "ExecuteSql: " + costs::kInsertCostType;
    const auto go_on = [&](int step) { return StepsBehind(step, write_script); };
    // The new participant has no defaults then, and its insert is one that nobody answers.
    auto without_defaults = go_on(19);
    without_defaults.resize(9);
    auto& insert = without_defaults.back();
    insert = dates::With(insert, "datetime,'02.03.2010'", "datetime,'30.12.1899'");
    insert = dates::With(insert, "'Käthe Löffler', -1,4", "'', 0,4");
    insert = dates::With(insert, "0, 0, 1, ''", "0, 0, 0, ''");
    // The date is asked for each of its properties.
    std::vector<std::string> date_again(3, "OpenSelect: " + dates::Select(kDate));
    for (const auto& step : go_on(27)) date_again.push_back(step);
    std::vector<ExpectedFailure> expected = {
        {1, kNotOk, 9999, approval(labels[0])},
        {8, kNotOk, 9999, approval(labels[7])},
        {10, kNotOk, 91, approval({})},
        {11, kNotOk, 91, approval({init, list + "Add", add}), {open}},
        {12, kNotOk, 0, {}, go_on(14)},
        {13, kNotOk, 91, approval({load, participant + "MDNr -> Property GET"}), {open}},
        {14, kNotOk, 0, {}, go_on(14)},
        {15, kNotOk, 91, approval({load, client}), {open}},
        {16, kNotOk, 0, {}, without_defaults},
        {17, kNotOk, 0, {}, go_on(17)},
        {20, kNotOk, 0, {}, go_on(21)},
        {22, kNotOk, 9999, approval(labels[21])},
        {24, kNotOk, 9999, approval(labels[23])},
        {26, kNotOk, 9999, approval({}), {no_type}},
        {27, kNotOk, 0, {}, date_again},
        {28, kNotOk},
        {29, kNotOk, 94, approval({write})},
        {30, kNotOk, 9999, approval({line, write}), {no_type}},
        {31, kNotOk, 0, {}, go_on(31)},
        {32, kNotOk, 9999, approval({line, write})},
    };
    for (int step = 1; step <= 32; ++step) {
        expected.push_back({step, kRaises, 7001, approval(labels[static_cast<std::size_t>(step - 1)])});
    }
    ExpectFailures(
        write_script,
        [](const Ref<DataSession>& session) {
            Install(session);
            (void)PersonOf(session, kEmployee)->TeilnahmeGenehmigen(kDate, kUserID);
        },
        expected);
}

}  // namespace
}  // namespace LumoSeminar
