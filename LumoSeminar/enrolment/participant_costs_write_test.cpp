#include <LumoSeminar/enrolment/participant_costs.h>

#include <gtest/gtest.h>

#include <limits>

#include <LumoConnection/script/script_session.h>
#include <test_support/comma_locale.h>
#include <test_support/cost_statements.h>
#include <test_support/failures.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using namespace cost_statements;
using LumoConnection::Script;
using test_support::CommaLocale;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;

const Variant kNull = Variant::Null();
const std::string kLabelOfALoad = " in LumoSeminar.IsInitialized";
const std::string kLabelOfAWrite = " in LumoSeminar.WriteToDatabase";
const std::string kLabelOfADelete = " in LumoSeminar.DeleteFromDatabase";

void ScriptCostType(Script& script, const Variant& key) {
    script.LookupValue("KostenArten_ID", "sysIData_KostenArten", "KostenArten = 'Teilnehmerkosten'").Gives(key);
}

void ScriptLastLine(Script& script, const Variant& key, int participant = 7) {
    script.LookupValue("max(KostenID)", "Sem_Teilnehmer_Kosten_IT", "TeilnehmerID =" + std::to_string(participant)).Gives(key);
}

TEST(clsTeilnehmerKosten, AnUpdateWritesAllColumns) {
    Script script;
    ScriptLoad(script);
    script.ExecuteSql(
        " UPDATE Sem_Teilnehmer_Kosten_IT  SET Kost  = 4220, KostenArtID = 4, Kostenbetrag = 99.95 WHERE TeilnehmerID = 7 "
        "AND KostenID = 2");
    const auto line = Bound(script.Session());
    line->KostenArtID(4);
    line->Kostenbetrag(99.95f);
    line->Kost(4220);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(ValuesOf(*line), (Values{7, 2, 4, Single{99.95f}, 4220}));
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, AnUpdateWritesNULLForATypeAndAnAmountOf0ButNotForACostCentre) {
    Script script;
    ScriptLoad(script);
    script.ExecuteSql(
        " UPDATE Sem_Teilnehmer_Kosten_IT  SET Kost  = 0, KostenArtID = NULL, Kostenbetrag = NULL WHERE TeilnehmerID = 7 "
        "AND KostenID = 2");
    const auto line = Bound(script.Session());
    line->KostenArtID(0);
    line->Kostenbetrag(0);
    line->Kost(0);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, AnUpdateOfALineThatWasNotReadLoadsItFirst) {
    Script script;
    ScriptLoad(script);
    script.ExecuteSql(UpdateLine(7, 2, 4110, "3", "120.5"));
    script.ExecuteSql(UpdateLine(7, 2, 4110, "3", "120.5"));
    const auto line = Bound(script.Session());
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, AnUpdateOfALineWithoutARowIsSentAllTheSame) {
    Script script;
    ScriptLoad(script, {}, 7, -2);
    script.ExecuteSql(UpdateLine(7, -2, 0, "NULL", "NULL"));
    EXPECT_EQ(Bound(script.Session(), 7, -2)->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, ARefusedUpdateRaises9999AndKeepsTheFields) {
    Script script;
    ScriptLoad(script);
    script.ExecuteSql(UpdateLine(7, 2, 4110, "3", "99")).Refused("Die Tabelle ist gesperrt: \"Kosten\".");
    const auto line = Bound(script.Session());
    line->Kostenbetrag(99);
    const auto error = RaisedBy([&] { return line->WriteToDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(), "in line: 0\r\nDie Tabelle ist gesperrt: \"Kosten\". in LumoSeminar.WriteToDatabase");
    EXPECT_EQ(ValuesOf(*line), (Values{7, 2, 3, Single{99}, 4110}));
    EXPECT_EQ(script.LastErrorTextCalls(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, ANewLineGetsTheNextKostenIDAndTheDefaultCostType) {
    Script script;
    ScriptLoad(script, {}, 7, 0);
    script.LookupValue("KostenArten_ID", "sysIData_KostenArten", "KostenArten = 'Teilnehmerkosten'").Gives(5);
    script.LookupValue("max(KostenID)", "Sem_Teilnehmer_Kosten_IT", "TeilnehmerID =7").Gives(2);
    script.ExecuteSql(
        " INSERT INTO Sem_Teilnehmer_kosten_IT (TeilnehmerID, KostenID,KostenArtID,Kostenbetrag, Kost)   Values "
        "(7,3,5,12.5,4110)");
    const auto line = Bound(script.Session(), 7, 0);
    line->Kostenbetrag(12.5f);
    line->Kost(4110);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(ValuesOf(*line), (Values{7, 3, 0, Single{12.5}, 4110})) << "the default cost type is in the row alone";
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, TheDefaultCostTypeIsLookedForAlsoWhereALineHasOneOfItsOwn) {
    Script script;
    ScriptLoad(script, {}, 7, 0);
    ScriptCostType(script, 5);
    ScriptLastLine(script, kNull);
    script.ExecuteSql(InsertLine("7,1,2,NULL,0"));
    const auto line = Bound(script.Session(), 7, 0);
    line->KostenArtID(2);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(ValuesOf(*line), (Values{7, 1, 2, Single{0}, 0}));
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, AnInsertLoadsNothingAndWritesTheFieldsAsTheyStand) {
    Script script;
    ScriptCostType(script, 5);
    ScriptLastLine(script, 4, 8);
    script.ExecuteSql(InsertLine("8,5,5,NULL,0"));
    ScriptLoad(script, {{8, 5, 5, kNull, 0}}, 8, 5);
    script.ExecuteSql(UpdateLine(8, 5, 0, "5", "NULL"));
    const auto line = Bound(script.Session(), 7, 0);
    line->TeilnehmerID(8);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(line->KostenID(), 5);
    EXPECT_EQ(line->WriteToDatabase(), true) << "the second write is an update, and the first load";
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, TheSecondWriteOfALineThatWasLetTakesTheDefaultCostTypeAwayAgain) {
    Script script;
    ScriptLoad(script, {}, 7, 0);
    ScriptCostType(script, 5);
    ScriptLastLine(script, 2);
    script.ExecuteSql(InsertLine("7,3,5,12.5,0"));
    script.ExecuteSql(UpdateLine(7, 3, 0, "NULL", "12.5"));
    const auto line = Bound(script.Session(), 7, 0);
    line->Kostenbetrag(12.5f);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(line->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, AMissingDefaultCostTypeIsMadeWhateverTheCostTypeOfTheLine) {
    for (const Variant& missing : {kNull, Variant(0), Variant()}) {
        for (const Int32 own : {0, 2}) {
            Script script;
            ScriptLoad(script, {}, 7, 0);
            ScriptCostType(script, missing);
            script.ExecuteSql(kInsertCostType);
            ScriptCostType(script, 1);
            ScriptLastLine(script, 1);
            script.ExecuteSql(InsertLine(own == 0 ? "7,2,1,NULL,0" : "7,2,2,NULL,0"));
            const auto line = Bound(script.Session(), 7, 0);
            line->KostenArtID(own);
            EXPECT_EQ(line->WriteToDatabase(), true);
            EXPECT_EQ(line->KostenID(), 2);
            EXPECT_EQ(script.Report(), "");
        }
    }
}

TEST(clsTeilnehmerKosten, ADefaultCostTypeThatCannotBeMadeRaises94AndNoLineIsWritten) {
    Script script;
    ScriptCostType(script, kNull);
    script.ExecuteSql(kInsertCostType);
    ScriptCostType(script, kNull);
    const auto line = Bound(script.Session(), 7, 0);
    const auto error = RaisedBy([&] { return line->WriteToDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 94);
    EXPECT_EQ(error->Description(), "in line: 0\r\nInvalid use of Null. in LumoSeminar.WriteToDatabase");
    EXPECT_EQ(line->KostenID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, ADefaultCostTypeOfKey0IsMadeAgainAndWrittenAs0) {
    Script script;
    ScriptCostType(script, 0);
    script.ExecuteSql(kInsertCostType);
    ScriptCostType(script, 0);
    ScriptLastLine(script, 1);
    script.ExecuteSql(InsertLine("7,2,0,NULL,0"));
    EXPECT_EQ(Bound(script.Session(), 7, 0)->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, ARefusedInsertRaises9999AndTheLineStaysNew) {
    Script script;
    for (int i = 0; i < 2; ++i) {
        ScriptCostType(script, 5);
        ScriptLastLine(script, 2 + i);
        script.ExecuteSql(InsertLine("7," + std::to_string(3 + i) + ",5,NULL,0")).Refused("Doppelter Schlüssel.");
    }
    const auto line = Bound(script.Session(), 7, 0);
    for (int i = 0; i < 2; ++i) {
        const auto error = RaisedBy([&] { return line->WriteToDatabase(); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), 9999);
        EXPECT_EQ(error->Description(), "in line: 0\r\nDoppelter Schlüssel. in LumoSeminar.WriteToDatabase");
        EXPECT_EQ(line->KostenID(), 0);
    }
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, KeysThatAreNoNumbersOrLeaveNoRoomRaise) {
    const struct {
        Variant cost_type;
        Variant last_line;
        Int32 number;
    } cases[] = {{"fünf", 1, 13}, {1e10, 1, 6}, {5, "zwei", 13}, {5, 2147483647, 6}};
    for (const auto& c : cases) {
        Script script;
        ScriptCostType(script, c.cost_type);
        if (c.cost_type == Variant(5)) ScriptLastLine(script, c.last_line);
        const auto line = Bound(script.Session(), 7, 0);
        EXPECT_RAISES_UNDER(c.number, Labels{kLabelOfAWrite}, line->WriteToDatabase());
        EXPECT_EQ(line->KostenID(), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

void ExpectAmountsWithAPoint() {
    const struct {
        Single amount;
        const char* text;
    } cases[] = {
        {0.0f, "NULL"},         {-0.0f, "NULL"},       {0.1f, "0.1"},        {12.5f, "12.5"}, {-99.99f, "-99.99"},
        {240, "240"},           {1234.56f, "1234.56"}, {9999999, "9999999"}, {1e7f, "1E+07"}, {1.0f / 3, "0.3333333"},
        {1.25e-8f, "1.25E-08"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        Script script;
        ScriptLoad(script, {}, 7, 0);
        ScriptCostType(script, 5);
        ScriptLastLine(script, kNull);
        script.ExecuteSql(InsertLine(std::string("7,1,5,") + c.text + ",0"));
        script.ExecuteSql(UpdateLine(7, 1, 0, "NULL", c.text));
        const auto line = Bound(script.Session(), 7, 0);
        line->Kostenbetrag(c.amount);
        EXPECT_EQ(line->WriteToDatabase(), true);
        EXPECT_EQ(line->WriteToDatabase(), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTeilnehmerKosten, AnAmountIsWrittenInItsDefaultTextWithAPoint) { ExpectAmountsWithAPoint(); }

TEST(clsTeilnehmerKosten, AnAmountIsWrittenWithAPointUnderADecimalCommaToo) {
    const CommaLocale comma;
    ExpectAmountsWithAPoint();
}

TEST(clsTeilnehmerKosten, AnAmountThatIsNoNumberRaisesOverflowAndIsNotSent) {
    for (const Single amount : {std::numeric_limits<Single>::quiet_NaN(), std::numeric_limits<Single>::infinity()}) {
        Script script;
        ScriptLoad(script);
        const auto line = Bound(script.Session());
        line->Kostenbetrag(amount);
        EXPECT_RAISES_UNDER(6, Labels{kLabelOfAWrite}, line->WriteToDatabase());
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTeilnehmerKosten, DeleteFromDatabaseLoadsNothingAndMayBeCalledTwice) {
    Script script;
    script.ExecuteSql("Delete Sem_Teilnehmer_kosten_IT WHERE TeilnehmerID = 7 AND KostenID = 2");
    script.ExecuteSql("Delete Sem_Teilnehmer_kosten_IT WHERE TeilnehmerID = 7 AND KostenID = 0");
    const auto line = Bound(script.Session());
    EXPECT_EQ(line->DeleteFromDatabase(), true);
    line->KostenID(0);
    EXPECT_EQ(line->DeleteFromDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, ARefusedDeleteRaises9999) {
    Script script;
    script.ExecuteSql(DeleteLine(7, 2)).Refused("Die Tabelle ist gesperrt.");
    const auto error = RaisedBy([&] { return Bound(script.Session())->DeleteFromDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(), "in line: 0\r\nDie Tabelle ist gesperrt. in LumoSeminar.DeleteFromDatabase");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTeilnehmerKosten, AnUpdateFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            ScriptLoad(script);
            script.ExecuteSql(UpdateLine(7, 2, 4110, "3", "120.5"));
        },
        [](const Ref<DataSession>& session) { EXPECT_EQ(Bound(session)->WriteToDatabase(), true); },
        {{1, kNotOk, 9999, {kLabelOfALoad, kLabelOfAWrite}},
         {3, kNotOk, 9999, {kLabelOfAWrite}},
         {1, kRaises, 7001, {kLabelOfALoad, kLabelOfAWrite}},
         {2, kRaises, 7001, {kLabelOfALoad, kLabelOfAWrite}},
         {3, kRaises, 7001, {kLabelOfAWrite}}});
}

/// A line that could not be inserted has no key.
void InsertNew(const Ref<DataSession>& session) {
    const auto line = Bound(session, 7, 0);
    try {
        EXPECT_EQ(line->WriteToDatabase(), true);
        EXPECT_NE(line->KostenID(), 0);
    } catch (const Error&) {
        EXPECT_EQ(line->KostenID(), 0);
        throw;
    }
}

TEST(clsTeilnehmerKosten, AnInsertFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            ScriptCostType(script, 5);
            ScriptLastLine(script, kNull);
            script.ExecuteSql(InsertLine("7,1,5,NULL,0"));
        },
        InsertNew,
        {// A lookup that is refused gives nothing, and nothing means that there is no such type.
         {1, kNotOk, 9999, {kLabelOfAWrite}, {"ExecuteSql: " + kInsertCostType}},
         {2, kNotOk, 0, {}, {"ExecuteSql: " + InsertLine("7,1,5,NULL,0")}},
         {3, kNotOk, 9999, {kLabelOfAWrite}},
         {1, kRaises, 7001, {kLabelOfAWrite}},
         {2, kRaises, 7001, {kLabelOfAWrite}},
         {3, kRaises, 7001, {kLabelOfAWrite}}});
}

TEST(clsTeilnehmerKosten, AnInsertWithANewCostTypeFailsAsDocumentedAtEachStep) {
    const std::string insert = InsertLine("7,1,1,NULL,0");
    ExpectFailures(
        [&](Script& script) {
            ScriptCostType(script, kNull);
            script.ExecuteSql(kInsertCostType);
            ScriptCostType(script, 1);
            ScriptLastLine(script, kNull);
            script.ExecuteSql(insert);
        },
        InsertNew,
        {{1,
          kNotOk,
          0,
          {},
          {"ExecuteSql: " + kInsertCostType, "LookupValue: KostenArten_ID from sysIData_KostenArten where KostenArten = 'Teilnehmerkosten'",
           "LookupValue: max(KostenID) from Sem_Teilnehmer_Kosten_IT where TeilnehmerID =7", "ExecuteSql: " + insert}},
         {2, kNotOk, 9999, {kLabelOfAWrite}},
         {3, kNotOk, 94, {kLabelOfAWrite}},
         {4, kNotOk, 0, {}, {"ExecuteSql: " + insert}},
         {5, kNotOk, 9999, {kLabelOfAWrite}},
         {1, kRaises, 7001, {kLabelOfAWrite}},
         {2, kRaises, 7001, {kLabelOfAWrite}},
         {3, kRaises, 7001, {kLabelOfAWrite}},
         {4, kRaises, 7001, {kLabelOfAWrite}},
         {5, kRaises, 7001, {kLabelOfAWrite}}});
}

TEST(clsTeilnehmerKosten, ADeleteFailsAsDocumentedAtEachStep) {
    ExpectFailures([](Script& script) { script.ExecuteSql(DeleteLine(7, 2)); },
                   [](const Ref<DataSession>& session) { Bound(session)->DeleteFromDatabase(); },
                   {{1, kNotOk, 9999, {kLabelOfADelete}}, {1, kRaises, 7001, {kLabelOfADelete}}});
}

}  // namespace
}  // namespace LumoSeminar
