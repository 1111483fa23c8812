#include <LumoSeminar/scheduling/clsSerie.h>

#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <test_support/failures.h>
#include <test_support/raises.h>
#include <test_support/serie_statements.h>

namespace LumoSeminar {
namespace {

using namespace serie_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::LabelsOf;
using test_support::RaisedBy;

using Labels = std::vector<std::string>;

const std::string kOddLabel = "LUmoSeminar.clsSerie.";
const std::string kLabel = "LumoSeminar.clsSerie.";
const std::string kLabelOfDeleteOld = "LumoSeminar.clsTermin.CheckSerie";

/// What a series holds of what is read without a load, in the order of the columns.
std::vector<Variant> PlainValuesOf(clsSerie& s) {
    return {s.Taeglich(),   s.Woche(),   s.Montag(),  s.Dienstag(), s.Mittwoch(),
            s.Donnerstag(), s.Freitag(), s.Samstag(), s.Sonntag()};
}

std::vector<Variant> PlainPartOf(const std::vector<Variant>& row) { return {row.begin() + 3, row.end()}; }

TEST(clsSerie, InitBindsWithoutAStatement) {
    Script script;
    const auto series = Bound(script.Session(), 5);
    EXPECT_EQ(series->SerienID(), 5);
    EXPECT_EQ(series->Key(), "0000000005");
    EXPECT_EQ(script.Report(), "");
    EXPECT_FALSE(script.SessionReleased());
}

TEST(clsSerie, InitWithAnEmptySessionIsFalseAndKeepsNothing) {
    clsSerie fresh;
    EXPECT_EQ(fresh.Init(5, nullptr), false);
    EXPECT_EQ(fresh.SerienID(), 0);

    Script script;
    ScriptLoad(script, 5, {FullRow()});
    const auto loaded = Bound(script.Session(), 5);
    EXPECT_EQ(loaded->Tagefolge(), 2);
    EXPECT_EQ(loaded->Init(6, nullptr), false);
    EXPECT_EQ(loaded->SerienID(), 5);
    EXPECT_EQ(loaded->Tagefolge(), 2) << "still loaded";
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, ASecondInitLoadsAnew) {
    Script script;
    ScriptLoad(script, 5, {FullRow()});
    ScriptLoad(script, 6, {NullRow()});
    const auto series = Bound(script.Session(), 5);
    EXPECT_EQ(series->Tagefolge(), 2);
    EXPECT_EQ(series->Init(6, script.Session()), true);
    EXPECT_EQ(series->Woche(), 4) << "the fields stay until the load";
    EXPECT_EQ(series->Tagefolge(), 1);
    EXPECT_EQ(series->Woche(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, KeyHasTenDigits) {
    Script script;
    EXPECT_EQ(Bound(script.Session(), 0)->Key(), "0000000000");
    EXPECT_EQ(Bound(script.Session(), 2147483647)->Key(), "2147483647");
    EXPECT_EQ(Bound(script.Session(), -1)->Key(), "-0000000001");
}

TEST(clsSerie, TheKeyRhythmAndWeekdaysAreLetAndReadBackWithoutASession) {
    clsSerie series;
    LetFull(series);
    EXPECT_EQ(PlainValuesOf(series), PlainPartOf(FullRow()));
    series.SerienID(7);
    EXPECT_EQ(series.SerienID(), 7);
    EXPECT_EQ(series.Key(), "0000000007");
}

TEST(clsSerie, LooksForAMissingRowAgainAtEachLoadingGetAndGivesZeroInPlaceOfTheDefaults) {
    Script script;
    for (int i = 0; i < 6; ++i) ScriptLoad(script, 5, {});
    const auto series = Bound(script.Session(), 5);
    LetFull(*series);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(series->BeginnUhrzeit(), DateTime());
        EXPECT_EQ(series->EndeUhrzeit(), DateTime());
        EXPECT_EQ(series->Tagefolge(), 0);
        EXPECT_EQ(PlainValuesOf(*series), PlainPartOf(FullRow())) << "what was let stays";
    }
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, AnotherKeyOnALoadedSeriesDoesNotLoadAgain) {
    Script script;
    ScriptLoad(script, 5, {FullRow()});
    script.ExecuteSql(Insert("6" + kFullValues));
    const auto series = Bound(script.Session(), 5);
    EXPECT_EQ(series->Tagefolge(), 2);
    series->SerienID(6);
    EXPECT_EQ(series->Tagefolge(), 2);
    EXPECT_EQ(series->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, AFieldThatDoesNotFitRaisesWithAllLabelsAndTheFieldsBeforeItAreTaken) {
    const struct {
        std::size_t position;
        Variant value;
        Int32 number;
    } cases[] = {{0, "keine Zeit", 13}, {2, 256, 6}, {4, "zwei", 13}, {11, 32768, 6}};
    for (const auto& c : cases) {
        SCOPED_TRACE(kColumns[c.position]);
        auto row = FullRow();
        row[c.position] = c.value;
        Script script;
        script.OpenSelect(Select(5)).Rows(kColumns, {row});
        const auto series = Bound(script.Session(), 5);
        EXPECT_RAISES_UNDER(
            c.number, (Labels{kOddLabel + "InitPropertiesByRecordset", kOddLabel + "PropertiesInit", kLabel + "EndeUhrzeit"}),
            series->EndeUhrzeit());
        EXPECT_EQ(series->Taeglich(), c.position > 3 ? 3 : 0);
        EXPECT_EQ(series->Samstag(), c.position > 10 ? 3 : 0);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSerie, UpdatePropertyLoadsTheOtherSeriesOnceAndKeepsTheKey) {
    Script script;
    ScriptLoad(script, 5, {FullRow()});
    script.ExecuteSql(Insert("9" + kFullValues));
    const auto series = Bound(script.Session(), 9);
    const auto other = Bound(script.Session(), 5);
    series->UpdateProperty(other);
    EXPECT_EQ(series->SerienID(), 9);
    EXPECT_EQ(other->SerienID(), 5);
    EXPECT_EQ(series->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, UpdatePropertyTakesAllValuesOfTheOtherSeries) {
    Script script;
    ScriptLoad(script, 9, {NullRow()});
    ScriptLoad(script, 5, {FullRow()});
    const auto series = Bound(script.Session(), 9);
    EXPECT_EQ(series->Tagefolge(), 1);
    const auto other = Bound(script.Session(), 5);
    series->UpdateProperty(other);
    EXPECT_EQ(ValuesOf(*series), FullRow());
    EXPECT_EQ(ValuesOf(*other), FullRow());
    EXPECT_EQ(series->SerienID(), 9);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, WhatUpdatePropertyTookIsLostToTheFirstLoadOfAnExistingRow) {
    Script script;
    ScriptLoad(script, 5, {FullRow()});
    ScriptLoad(script, 9, {NullRow()});
    const auto series = Bound(script.Session(), 9);
    series->UpdateProperty(Bound(script.Session(), 5));
    EXPECT_EQ(PlainValuesOf(*series), PlainPartOf(FullRow()));
    EXPECT_EQ(series->Tagefolge(), 1);
    EXPECT_EQ(series->Woche(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, UpdatePropertyFromASeriesWithoutARowTakesZeroForWhatLoadsAndTheLetsOfTheRest) {
    Script script;
    for (int i = 0; i < 3; ++i) ScriptLoad(script, 0, {});
    script.ExecuteSql(Insert(
        "9,Convert(Datetime,'30.12.1899 00:00',104),Convert(Datetime,'30.12.1899 00:00',104), 0,3,4,-1,0,1,-2,2,3,4"));
    const auto other = Bound(script.Session(), 0);
    LetFull(*other);
    const auto series = Bound(script.Session(), 9);
    series->BeginnUhrzeit(DateTime::TimeOfDay(8, 0));
    series->Tagefolge(1);
    series->UpdateProperty(other);
    EXPECT_EQ(series->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, UpdatePropertyTakesTheValuesOneByOneInTheirOrder) {
    Script script;
    ScriptLoad(script, 9, {FullRow()});
    ScriptLoad(script, 5, {});
    script.OpenSelect(Select(5)).Raises(-2147467259, "Verbindung abgerissen");
    const auto series = Bound(script.Session(), 9);
    EXPECT_EQ(series->Tagefolge(), 2);
    const auto error = RaisedBy([&] { series->UpdateProperty(Bound(script.Session(), 5)); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), -2147467259);
    EXPECT_EQ(LabelsOf(error), (Labels{kOddLabel + "PropertiesInit", kLabel + "EndeUhrzeit", kOddLabel + "UpdateProperty"}));
    auto expected = FullRow();
    expected[0] = DateTime();
    EXPECT_EQ(ValuesOf(*series), expected);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, UpdatePropertyFailsAsDocumentedAtEachStep) {
    const auto labels = [](const std::string& property) {
        return Labels{kOddLabel + "PropertiesInit", kLabel + property, kOddLabel + "UpdateProperty"};
    };
    const std::string select = "OpenSelect: " + Select(5);
    const std::string close_second = "Close of the rows of step 3";
    const std::string close_third = "Close of the rows of step 5";
    ExpectFailures(
        [](Script& script) {
            for (int i = 0; i < 3; ++i) ScriptLoad(script, 5, {});
        },
        [](const Ref<DataSession>& session) { Bound(session, 9)->UpdateProperty(Bound(session, 5)); },
        {{1, kNotOk, 0, {}, {select, close_second, select, close_third}},
         {3, kNotOk, 0, {}, {select, close_third}},
         {5, kNotOk},
         {1, kRaises, 7001, labels("BeginnUhrzeit")},
         {2, kRaises, 7001, labels("BeginnUhrzeit")},
         {3, kRaises, 7001, labels("EndeUhrzeit")},
         {4, kRaises, 7001, labels("EndeUhrzeit")},
         {5, kRaises, 7001, labels("Tagefolge")},
         {6, kRaises, 7001, labels("Tagefolge")}});
}

TEST(clsSerie, UpdatePropertyFromAnEmptyReferenceRaises91) {
    clsSerie series;
    EXPECT_RAISES_UNDER(91, Labels{kOddLabel + "UpdateProperty"}, series.UpdateProperty(nullptr));
}

TEST(clsSerie, WhatNeedsASessionRaises91WithItsLabelsOnAnUnboundSeries) {
    const struct {
        void (*call)(clsSerie&);
        Labels labels;
    } cases[] = {
        {[](clsSerie& s) { s.BeginnUhrzeit(); }, {kOddLabel + "PropertiesInit", kLabel + "BeginnUhrzeit"}},
        {[](clsSerie& s) { s.EndeUhrzeit(); }, {kOddLabel + "PropertiesInit", kLabel + "EndeUhrzeit"}},
        {[](clsSerie& s) { s.Tagefolge(); }, {kOddLabel + "PropertiesInit", kLabel + "Tagefolge"}},
        {[](clsSerie& s) { s.WriteToDatabase(); }, {kOddLabel + "WriteToDatabase"}},
        {[](clsSerie& s) { s.RemoveSerie(); }, {kLabel + "DeleteFromDatabase", kOddLabel + "RemoveSerie"}},
        {[](clsSerie& s) { s.DeleteOldSerie(5); }, {kLabelOfDeleteOld}},
    };
    for (const auto& c : cases) {
        clsSerie series;
        EXPECT_RAISES_UNDER(91, c.labels, c.call(series)) << c.labels.back();
    }
}

}  // namespace
}  // namespace LumoSeminar
