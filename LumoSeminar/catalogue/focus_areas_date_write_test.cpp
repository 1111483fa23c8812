#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoConnection/stored_rows.h>
#include <LumoSeminar/catalogue/focus_areas.h>
#include <test_support/failures.h>
#include <test_support/focus_area_statements.h>
#include <test_support/raises.h>

// The write of a focus area of a date: looking for its name, making it, tying the date to it.
namespace LumoSeminar {
namespace {

using namespace focus_area_statements;
using LumoConnection::RowsStep;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;
using Rows = std::vector<std::vector<Variant>>;

const Text kName = "Führung";
const std::string kLabel = " LumoSeminar062.clsSemTerminSchwerpunkt.";
const std::string kLabelOfWrite = kLabel + "WriteToDatabase";

void ScriptOption(Script& script, const Variant& value) { script.OpenSelect(kSelectOption).Rows({"Wert"}, {{value}}); }

void ScriptClient(Script& script, Int32 client) { script.OpenSelect(kSelectClient).Rows({"MDNR"}, {{client}}); }

RowsStep ScriptSearch(Script& script, const Text& name, const Rows& found) {
    return script.OpenSelect(SelectByName(name)).Rows({"WBS_ID"}, found);
}

RowsStep ScriptSearch(Script& script, const Text& name, Int32 client, const Rows& found) {
    return script.OpenSelect(SelectByName(name, client)).Rows({"WBS_ID"}, found);
}

void ScriptNextKey(Script& script, const Variant& key) {
    script.LookupValue("ISNULL(max(WBS_ID),0)+1", "sysIData_WBS", "").Gives(key);
}

RowsStep ScriptLink(Script& script, Int32 focus_area, const Rows& found) {
    return script.OpenSelect(SelectLink(17, focus_area)).Rows({"SemTerminID"}, found);
}

/// A link of the date 17 that is not there yet, read and named. Starts the script.
class DateFocusAreaWrite : public testing::Test {
  protected:
    Ref<clsSemTerminSchwerpunkt> Named(const Text& name, Int32 focus_area = 0) {
        auto link = New<clsSemTerminSchwerpunkt>();
        EXPECT_EQ(link->Init(focus_area, 17, script.Session()), true);
        link->WBS(name);
        return link;
    }

    void ScriptRead(Int32 focus_area = 0) {
        script.AdoConnection();
        script.OpenSelect(SelectOfDate(17, focus_area)).Rows({"WBS"});
    }

    Script script;
};

TEST_F(DateFocusAreaWrite, TiesTheDateToAFocusAreaThatAllClientsShare) {
    ScriptRead();
    ScriptOption(script, "0");
    ScriptSearch(script, kName, {{11}, {12}});
    ScriptLink(script, 11, {});
    script.ExecuteSql(InsertLink(17, 11));
    script.CloseRows();
    const auto link = Named(kName);
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
    EXPECT_EQ(link->SchwerpunktID(), 11);
    EXPECT_EQ(link->Key(), "0000000011");
    EXPECT_EQ(link->WBS(), kName);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, TiesTheDateToAFocusAreaOfTheActiveClient) {
    ScriptRead();
    ScriptOption(script, "-1");
    ScriptClient(script, 2);
    ScriptSearch(script, kName, 2, {{11}});
    ScriptLink(script, 11, {});
    script.ExecuteSql(InsertLink(17, 11));
    script.CloseRows();
    const auto link = Named(kName);
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 11);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, MakesAFocusAreaForAllClients) {
    ScriptRead();
    ScriptOption(script, "0");
    ScriptSearch(script, kName, {});
    ScriptNextKey(script, 42);
    script.ExecuteSql("INSERT INTO sysIData_WBS (WBS_ID, Weiterbildungsschwerpunkt)  SELECT 42, 'Führung'");
    ScriptOption(script, "0");
    const RowsStep link_rows = ScriptLink(script, 42, {});
    script.ExecuteSql(InsertLink(17, 42));
    script.CloseRows(link_rows);
    const auto link = Named(kName);
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 42);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, MakesAFocusAreaOfTheActiveClient) {
    ScriptRead();
    ScriptOption(script, "-1");
    ScriptClient(script, 2);
    ScriptSearch(script, kName, 2, {});
    ScriptNextKey(script, 42);
    script.ExecuteSql(InsertFocusArea(42, kName));
    ScriptOption(script, "-1");
    ScriptClient(script, 2);
    script.ExecuteSql("INSERT INTO sysIData_WBS_Mandant_IT (WBS_ID, MDNr) VALUES (42,2)");
    const RowsStep link_rows = ScriptLink(script, 42, {});
    script.ExecuteSql(InsertLink(17, 42));
    script.CloseRows(link_rows);
    const auto link = Named(kName);
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 42);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, AsksForOptionAndClientAnewAtEachPlace) {
    ScriptRead();
    ScriptOption(script, "-1");
    ScriptClient(script, 2);
    ScriptSearch(script, kName, 2, {});
    ScriptNextKey(script, 42);
    script.ExecuteSql(InsertFocusArea(42, kName));
    ScriptOption(script, "-1");
    ScriptClient(script, 3);
    script.ExecuteSql(InsertClient(42, 3));
    ScriptLink(script, 42, {});
    script.ExecuteSql(InsertLink(17, 42));
    script.CloseRows();
    EXPECT_EQ(Named(kName)->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, AnOptionThatChangesMeanwhileCountsFromTheNextPlaceOn) {
    for (const bool per_client_first : {false, true}) {
        script = Script();
        ScriptRead();
        ScriptOption(script, per_client_first);
        if (per_client_first) {
            ScriptClient(script, 2);
            ScriptSearch(script, kName, 2, {});
        } else {
            ScriptSearch(script, kName, {});
        }
        ScriptNextKey(script, 42);
        script.ExecuteSql(InsertFocusArea(42, kName));
        ScriptOption(script, !per_client_first);
        if (!per_client_first) {
            ScriptClient(script, 2);
            script.ExecuteSql(InsertClient(42, 2));
        }
        ScriptLink(script, 42, {});
        script.ExecuteSql(InsertLink(17, 42));
        script.CloseRows();
        EXPECT_EQ(Named(kName)->WriteToDatabase(), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(DateFocusAreaWrite, ARefusedOptionCountsAsSharedAndARefusedClientAs0) {
    ScriptRead();
    script.OpenSelect(kSelectOption).Refused("time-out");
    ScriptSearch(script, kName, {});
    ScriptNextKey(script, 42);
    script.ExecuteSql(InsertFocusArea(42, kName));
    ScriptOption(script, "-1");
    script.OpenSelect(kSelectClient).Refused("time-out");
    script.ExecuteSql(InsertClient(42, 0));
    ScriptLink(script, 42, {});
    script.ExecuteSql(InsertLink(17, 42));
    script.CloseRows();
    EXPECT_EQ(Named(kName)->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, OfALinkThatIsThereIsTrueAndLeavesSchwerpunktID) {
    ScriptRead();
    ScriptOption(script, "0");
    ScriptSearch(script, kName, {{11}});
    ScriptLink(script, 11, {{17}});
    script.CloseRows();
    const auto link = Named(kName);
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, OfAnotherNameTiesASecondFocusAreaAndKeepsTheFirstLink) {
    script.AdoConnection();
    script.OpenSelect(SelectOfDate(17, 7)).Rows({"WBS"}, {{"Kundendienst"}});
    ScriptOption(script, "0");
    ScriptSearch(script, kName, {{11}});
    ScriptLink(script, 11, {});
    script.ExecuteSql(InsertLink(17, 11));
    script.CloseRows();
    const auto link = Named(kName, 7);
    EXPECT_EQ(link->SchwerpunktID(), 7);
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 11);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, OfAnUnreadOneLoadsFirst) {
    script.AdoConnection();
    script.OpenSelect(SelectOfDate(17, 7)).Rows({"WBS"}, {{"Kundendienst"}});
    ScriptOption(script, "0");
    ScriptSearch(script, "Kundendienst", {{7}});
    ScriptLink(script, 7, {{17}});
    script.CloseRows();
    clsSemTerminSchwerpunkt link;
    (void)link.Init(7, 17, script.Session());
    EXPECT_EQ(link.WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, IsFalseWithoutAnythingMoreWhereTheLoadIsRefused) {
    script.AdoConnection();
    script.OpenSelect(SelectOfDate(17, 7)).Refused("time-out");
    clsSemTerminSchwerpunkt link;
    (void)link.Init(7, 17, script.Session());
    EXPECT_EQ(link.WriteToDatabase(), false);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, WritesTheLinkEvenWhereTheNewFocusAreaIsRefused) {
    ScriptRead();
    ScriptOption(script, "-1");
    ScriptClient(script, 2);
    ScriptSearch(script, kName, 2, {});
    ScriptNextKey(script, 42);
    script.ExecuteSql(InsertFocusArea(42, kName)).Refused("Violation of PRIMARY KEY constraint");
    ScriptLink(script, 42, {});
    script.ExecuteSql(InsertLink(17, 42));
    script.CloseRows();
    const auto link = Named(kName);
    EXPECT_EQ(link->WriteToDatabase(), true);
    EXPECT_EQ(link->SchwerpunktID(), 42);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, DoesNotMindThatTheClientOfTheNewFocusAreaIsRefused) {
    ScriptRead();
    ScriptOption(script, "-1");
    ScriptClient(script, 2);
    ScriptSearch(script, kName, 2, {});
    ScriptNextKey(script, 42);
    script.ExecuteSql(InsertFocusArea(42, kName));
    ScriptOption(script, "-1");
    ScriptClient(script, 2);
    script.ExecuteSql(InsertClient(42, 2)).Refused("Violation of PRIMARY KEY constraint");
    ScriptLink(script, 42, {});
    script.ExecuteSql(InsertLink(17, 42));
    script.CloseRows();
    EXPECT_EQ(Named(kName)->WriteToDatabase(), true);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, IsFalseWithoutAnErrorWhereTheLinkIsRefused) {
    ScriptRead();
    ScriptOption(script, "0");
    ScriptSearch(script, kName, {{11}});
    ScriptLink(script, 11, {});
    script.ExecuteSql(InsertLink(17, 11)).Refused("Violation of PRIMARY KEY constraint");
    script.CloseRows();
    const auto link = Named(kName);
    EXPECT_EQ(link->WriteToDatabase(), false);
    EXPECT_EQ(link->SchwerpunktID(), 0);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, LooksForNoLinkToAFocusAreaWithTheKey0AndClosesTheRowsOfTheSearch) {
    ScriptRead();
    ScriptOption(script, "0");
    const RowsStep found = ScriptSearch(script, kName, {{0}});
    script.CloseRows(found);
    EXPECT_EQ(Named(kName)->WriteToDatabase(), false);
    EXPECT_EQ(script.Report(), "");

    script = Script();
    ScriptRead();
    ScriptOption(script, "0");
    const RowsStep nothing = ScriptSearch(script, kName, {});
    ScriptNextKey(script, 0);
    script.ExecuteSql(InsertFocusArea(0, kName));
    ScriptOption(script, "0");
    script.CloseRows(nothing);
    EXPECT_EQ(Named(kName)->WriteToDatabase(), false);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, OfANameWithAQuoteRaises91WithTheLastErrorTextAndWritesNothing) {
    ScriptRead();
    ScriptOption(script, "0");
    script.OpenSelect("SELECT WBS_ID FROM sysIData_WBS WHERE Weiterbildungsschwerpunkt= 'Rock'n Roll'").Refused("Syntax bei 'n'.");
    const auto link = Named("Rock'n Roll");
    const auto error = RaisedBy([&] { return link->WriteToDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 91);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(),
              "An empty reference was used as an object.\r\n LumoSeminar062.clsSemTerminSchwerpunkt.WriteToDatabase\r\n"
              "ADO-Fehlermeldung: Syntax bei 'n'.");
    EXPECT_EQ(link->SchwerpunktID(), 0);
    EXPECT_EQ(script.LastErrorTextCalls(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, Raises91WhereTheSearchForTheLinkIsRefusedAndTheNewFocusAreaStays) {
    ScriptRead();
    ScriptOption(script, "0");
    ScriptSearch(script, kName, {});
    ScriptNextKey(script, 42);
    script.ExecuteSql(InsertFocusArea(42, kName));
    ScriptOption(script, "0");
    script.OpenSelect(SelectLink(17, 42)).Refused("time-out");
    const auto link = Named(kName);
    EXPECT_RAISES_UNDER(91, (Labels{kLabelOfWrite, "ADO-Fehlermeldung: time-out"}), link->WriteToDatabase());
    EXPECT_EQ(link->SchwerpunktID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, RaisesWhereTheNextKeyCannotBeLookedUpOrDoesNotFit) {
    const struct {
        Variant key;
        Int32 number;
    } cases[] = {{Variant::Null(), 94}, {2147483648.0, 6}, {"keiner", 13}};
    for (const auto& c : cases) {
        script = Script();
        ScriptRead();
        ScriptOption(script, "0");
        ScriptSearch(script, kName, {});
        ScriptNextKey(script, c.key);
        const auto link = Named(kName);
        EXPECT_RAISES_UNDER(c.number, (Labels{kLabelOfWrite, "ADO-Fehlermeldung: "}), link->WriteToDatabase()) << c.number;
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(DateFocusAreaWrite, RaisesForAKeyThatIsNull) {
    ScriptRead();
    ScriptOption(script, "0");
    ScriptSearch(script, kName, {{Variant::Null()}});
    const auto link = Named(kName);
    EXPECT_RAISES_UNDER(94, (Labels{kLabelOfWrite, "ADO-Fehlermeldung: "}), link->WriteToDatabase());
    EXPECT_EQ(script.Report(), "");
}

TEST_F(DateFocusAreaWrite, RaisesThroughBothHandlersWhereOptionOrClientHaveNoRow) {
    for (const bool option : {true, false}) {
        script = Script();
        ScriptRead();
        if (option) {
            script.OpenSelect(kSelectOption).Rows({"Wert"});
        } else {
            ScriptOption(script, "-1");
            script.OpenSelect(kSelectClient).Rows({"MDNR"});
        }
        const auto link = Named(kName);
        EXPECT_RAISES_UNDER(LumoConnection::RowSetError::kNoCurrentRow,
                            (Labels{option ? "LumoSeminar.common.IsMDabhKonst" : "LumoSeminar.common.GetActMD",
                                    kLabelOfWrite, "ADO-Fehlermeldung: "}),
                            link->WriteToDatabase());
        EXPECT_EQ(script.Report(), "");
    }
}

TEST_F(DateFocusAreaWrite, NamesGoIntoTheStatementsAsTheyStand) {
    for (const Text& name : {Text(), Text(" mit Blanken "), Text("a\\b"), Text("a\0b", 3), Text("\xFF\xFE"),
                             Text("{WBS} {WBS_ID}"), Text("\"Öl\""), Text(100'000, 'x')}) {
        script = Script();
        ScriptRead();
        ScriptOption(script, "0");
        ScriptSearch(script, name, {});
        ScriptNextKey(script, 42);
        script.ExecuteSql(InsertFocusArea(42, name));
        ScriptOption(script, "0");
        ScriptLink(script, 42, {});
        script.ExecuteSql(InsertLink(17, 42));
        script.CloseRows();
        EXPECT_EQ(Named(name)->WriteToDatabase(), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSemTerminSchwerpunkt, AWriteFailsAsDocumentedAtEachStep) {
    const std::string select_link = "OpenSelect: " + SelectLink(17, 42);
    const std::string insert_link = "ExecuteSql: " + InsertLink(17, 42);
    const std::string close = "Close of the rows of step 11";
    const Labels silent;
    const auto raised = [](Labels labels, const std::string& last_error) {
        labels.push_back(kLabelOfWrite);
        labels.push_back("ADO-Fehlermeldung: " + last_error);
        return labels;
    };
    ExpectFailures(
        [](Script& script) {
            script.AdoConnection();
            script.OpenSelect(SelectOfDate(17, 7)).Rows({"WBS"}, {{kName}});
            ScriptOption(script, "-1");
            ScriptClient(script, 2);
            ScriptSearch(script, kName, 2, {});
            ScriptNextKey(script, 42);
            script.ExecuteSql(InsertFocusArea(42, kName));
            ScriptOption(script, "-1");
            ScriptClient(script, 2);
            script.ExecuteSql(InsertClient(42, 2));
            ScriptLink(script, 42, {});
            script.ExecuteSql(InsertLink(17, 42));
            script.CloseRows();
        },
        [](const Ref<DataSession>& session) {
            clsSemTerminSchwerpunkt link;
            if (link.Init(7, 17, session)) (void)link.WriteToDatabase();
        },
        {{1, kNotOk, 0, silent, {"Open of the connection"}},
         {2, kNotOk},
         {3, kNotOk, 91, raised({}, "after the failure"), {"OpenSelect: " + SelectByName(kName)}},
         {4, kNotOk, 91, raised({}, "after the failure"), {"OpenSelect: " + SelectByName(kName, 0)}},
         {5, kNotOk, 91, raised({}, "refused at step 5")},
         {6, kNotOk, 94, raised({}, "refused at step 6")},
         {7, kNotOk, 0, silent, {select_link, insert_link, close}},
         {8, kNotOk, 0, silent, {select_link, insert_link, close}},
         {9, kNotOk, 0, silent, {"ExecuteSql: " + InsertClient(42, 0), select_link, insert_link, close}},
         {10, kNotOk, 0, silent, {select_link, insert_link, close}},
         {11, kNotOk, 91, raised({}, "refused at step 11")},
         {12, kNotOk, 0, silent, {close}},
         {1, kRaises, 7001, {kLabel + "Init"}},
         {2, kRaises, 7001, raised({kLabel + "PropertiesInit"}, "")},
         {3, kRaises, 7001, raised({"LumoSeminar.common.IsMDabhKonst"}, "")},
         {4, kRaises, 7001, raised({"LumoSeminar.common.GetActMD"}, "")},
         {5, kRaises, 7001, raised({}, "")},
         {6, kRaises, 7001, raised({}, "")},
         {7, kRaises, 7001, raised({}, "")},
         {8, kRaises, 7001, raised({"LumoSeminar.common.IsMDabhKonst"}, "")},
         {9, kRaises, 7001, raised({"LumoSeminar.common.GetActMD"}, "")},
         {10, kRaises, 7001, raised({}, "")},
         {11, kRaises, 7001, raised({}, "")},
         {12, kRaises, 7001, raised({}, "")},
         {13, kRaises, 7001, raised({}, "")}});
}

}  // namespace
}  // namespace LumoSeminar
