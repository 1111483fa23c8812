#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/scheduling/clsSerie.h>
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
using test_support::RaisedBy;

using Labels = std::vector<std::string>;

const std::string kOddLabel = "LUmoSeminar.clsSerie.";
const std::string kLabel = "LumoSeminar.clsSerie.";
const std::string kLabelOfDeleteOld = "LumoSeminar.clsTermin.CheckSerie";

void ScriptCount(Script& script, const std::string& statement, Int32 count) {
    script.OpenSelect(statement).Rows({""}, {{count}});
    script.CloseRows();
}

TEST(clsSerie, ANewSeriesGetsTheNextKeyAndIsReadAnewAfterTheWrite) {
    Script script;
    script.LookupValue("max(SerienID)", "Sem_Serien_IT", "").Gives(41);
    script.ExecuteSql(Insert("42" + kFullValues));
    ScriptLoad(script, 42, {NullRow()});
    const auto series = Bound(script.Session(), 0);
    LetFull(*series);
    EXPECT_EQ(series->WriteToDatabase(), true);
    EXPECT_EQ(series->SerienID(), 42);
    EXPECT_EQ(series->Key(), "0000000042");
    EXPECT_EQ(series->Tagefolge(), 1) << "what the database holds now";
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, ASeriesWithAKeyIsWrittenUnderItWithoutALookup) {
    Script script;
    script.ExecuteSql(Insert("7" + kFullValues));
    const auto series = Bound(script.Session(), 7);
    LetFull(*series);
    EXPECT_EQ(series->WriteToDatabase(), true);
    EXPECT_EQ(series->SerienID(), 7);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, ZeroTimesAreWrittenAsMidnightAZeroWeekAsNullAndZeroRhythmsAsZero) {
    Script script;
    script.ExecuteSql(
        "Insert Into Sem_Serien_IT (  SerienID, BeginnUhrzeit, EndeUhrzeit, Tagefolge, taeglich, Woche, Mo, Di, Mi, Do, Fr, Sa, So ) "
        "Values ( 7,Convert(Datetime,'30.12.1899 00:00',104),Convert(Datetime,'30.12.1899 00:00',104), "
        "0,0,Null,0,0,0,0,0,0,0 )");
    EXPECT_EQ(Bound(script.Session(), 7)->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, TimesAreWrittenAsHoursAndMinutesOfTheDay) {
    const struct {
        DateTime time;
        const char* written;
    } cases[] = {
        {DateTime::TimeOfDay(0, 0), "00:00"},        {DateTime::TimeOfDay(0, 5), "00:05"},
        {DateTime::TimeOfDay(7, 4), "07:04"},        {DateTime::TimeOfDay(12, 0), "12:00"},
        {DateTime::TimeOfDay(13, 59), "13:59"},      {DateTime::TimeOfDay(23, 59, 59), "23:59"},
        {DateTime::Of(2010, 9, 6), "00:00"},         {DateTime::Of(2010, 9, 6, 16, 45), "16:45"},
        {DateTime::Of(1899, 12, 29, 6, 0), "06:00"},
    };
    const std::string noon = "Convert(Datetime,'30.12.1899 12:00',104)";
    for (const auto& c : cases) {
        SCOPED_TRACE(c.written);
        const std::string time = std::string("Convert(Datetime,'30.12.1899 ") + c.written + "',104)";
        Script script;
        script.ExecuteSql(Insert("7," + time + "," + noon + ", 0,0,Null,0,0,0,0,0,0,0"));
        script.ExecuteSql(Insert("7," + noon + "," + time + ", 0,0,Null,0,0,0,0,0,0,0"));
        const auto series = Bound(script.Session(), 7);
        series->BeginnUhrzeit(c.time);
        series->EndeUhrzeit(DateTime::TimeOfDay(12, 0));
        EXPECT_EQ(series->WriteToDatabase(), true);
        series->BeginnUhrzeit(DateTime::TimeOfDay(12, 0));
        series->EndeUhrzeit(c.time);
        EXPECT_EQ(series->WriteToDatabase(), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSerie, NumbersAtTheEdgesOfTheirTypesAreWrittenInFull) {
    Script script;
    script.ExecuteSql(
        Insert("-2147483648,Convert(Datetime,'30.12.1899 00:00',104),Convert(Datetime,'30.12.1899 00:00',104), "
               "255,255,-2147483648,32767,-32768,-1,0,0,0,-1"));
    script.ExecuteSql(
        Insert("2147483647,Convert(Datetime,'30.12.1899 00:00',104),Convert(Datetime,'30.12.1899 00:00',104), "
               "255,255,2147483647,32767,-32768,-1,0,0,0,-1"));
    const auto series = Bound(script.Session(), -2147483647 - 1);
    series->Tagefolge(255);
    series->Taeglich(255);
    series->Woche(-2147483647 - 1);
    series->Montag(32767);
    series->Dienstag(-32768);
    series->Mittwoch(-1);
    series->Sonntag(-1);
    EXPECT_EQ(series->WriteToDatabase(), true);
    series->SerienID(2147483647);
    series->Woche(2147483647);
    EXPECT_EQ(series->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, TheFirstKeyOfAnEmptyTableIsOne) {
    Script script;
    script.LookupValue("max(SerienID)", "Sem_Serien_IT", "").Gives(Variant::Null());
    script.ExecuteSql(InsertZeroes(1));
    const auto series = Bound(script.Session(), 0);
    EXPECT_EQ(series->WriteToDatabase(), true);
    EXPECT_EQ(series->SerienID(), 1);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, BehindTheLargestKeyThereIsNone) {
    Script script;
    script.LookupValue("max(SerienID)", "Sem_Serien_IT", "").Gives(2147483647);
    const auto series = Bound(script.Session(), 0);
    EXPECT_RAISES_UNDER(6, Labels{kOddLabel + "WriteToDatabase"}, series->WriteToDatabase());
    EXPECT_EQ(series->SerienID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, ARefusedInsertRaises9999AndTheKeyGivenStays) {
    Script script;
    script.LookupValue("max(SerienID)", "Sem_Serien_IT", "").Gives(4);
    script.ExecuteSql(InsertZeroes(5)).Refused("Verletzung der \"PRIMARY KEY\"-Einschränkung.");
    script.ExecuteSql(InsertZeroes(5));
    const auto series = Bound(script.Session(), 0);
    const auto error = RaisedBy([&] { return series->WriteToDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(), "Verletzung der \"PRIMARY KEY\"-Einschränkung.\r\nLUmoSeminar.clsSerie.WriteToDatabase");
    EXPECT_EQ(series->SerienID(), 5);
    EXPECT_EQ(series->WriteToDatabase(), true) << "under the key it has";
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, WriteAlwaysInsertsAlsoAfterALoad) {
    Script script;
    ScriptLoad(script, 5, {FullRow()});
    script.ExecuteSql(Insert("5" + kFullValues)).Refused("Violation of PRIMARY KEY constraint");
    const auto series = Bound(script.Session(), 5);
    EXPECT_EQ(series->Tagefolge(), 2);
    EXPECT_RAISES(9999, series->WriteToDatabase());
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, AWriteFailsAsDocumentedAtEachStep) {
    const Labels labels = {kOddLabel + "WriteToDatabase"};
    ExpectFailures(
        [](Script& script) {
            script.LookupValue("max(SerienID)", "Sem_Serien_IT").Gives(41);
            script.ExecuteSql(InsertZeroes(42));
        },
        [](const Ref<DataSession>& session) { Bound(session, 0)->WriteToDatabase(); },
        {{1, kNotOk, 9999, labels, {"ExecuteSql: " + InsertZeroes(1)}},
         {2, kNotOk, 9999, labels},
         {1, kRaises, 7001, labels},
         {2, kRaises, 7001, labels}});
}

TEST(clsSerie, RemoveDeletesTheRowUnreadAndWhateverUsesIt) {
    Script script;
    script.ExecuteSql(Delete(5));
    script.ExecuteSql(Delete(0));
    const auto series = Bound(script.Session(), 5);
    EXPECT_EQ(series->RemoveSerie(), true);
    EXPECT_EQ(Bound(script.Session(), 0)->RemoveSerie(), true);
    EXPECT_EQ(series->SerienID(), 5);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, ARefusedRemoveRaises9999WithBothLabels) {
    Script script;
    script.ExecuteSql(Delete(5)).Refused("Die Zeile ist gesperrt.");
    const auto series = Bound(script.Session(), 5);
    const auto error = RaisedBy([&] { return series->RemoveSerie(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(),
              "Die Zeile ist gesperrt.\r\nLumoSeminar.clsSerie.DeleteFromDatabase\r\nLUmoSeminar.clsSerie.RemoveSerie");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, ARemoveFailsAsDocumentedAtItsStep) {
    const Labels labels = {kLabel + "DeleteFromDatabase", kOddLabel + "RemoveSerie"};
    ExpectFailures([](Script& script) { script.ExecuteSql(Delete(5)); },
                   [](const Ref<DataSession>& session) { Bound(session, 5)->RemoveSerie(); },
                   {{1, kNotOk, 9999, labels}, {1, kRaises, 7001, labels}});
}

TEST(clsSerie, DeleteOldSerieDeletesWhatNothingUses) {
    Script script;
    ScriptCount(script, CountSeminars(5), 0);
    ScriptCount(script, CountDates(5), 0);
    script.ExecuteSql(Delete(5));
    Bound(script.Session(), 5)->DeleteOldSerie(5);
    EXPECT_EQ(script.Report(), "");
    EXPECT_EQ(script.RecordsetCalls(), 2);
}

TEST(clsSerie, DeleteOldSerieDeletesNothingThatIsUsed) {
    const struct {
        Int32 seminars;
        Int32 dates;
    } cases[] = {{1, 0}, {0, 1}, {1, 1}, {7, 2}};
    for (const auto& c : cases) {
        Script script;
        ScriptCount(script, CountSeminars(5), c.seminars);
        ScriptCount(script, CountDates(5), c.dates);
        Bound(script.Session(), 5)->DeleteOldSerie(5);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSerie, DeleteOldSerieCountsTheUsesOfItsArgumentButDeletesTheRowOfItsOwnKey) {
    Script script;
    ScriptCount(script, CountSeminars(8), 0);
    ScriptCount(script, CountDates(8), 0);
    script.ExecuteSql(Delete(5));
    ScriptCount(script, CountSeminars(9), 0);
    ScriptCount(script, CountDates(9), 1);
    const auto series = Bound(script.Session(), 5);
    series->DeleteOldSerie(8);
    series->DeleteOldSerie(9);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, ACountThatIsRefusedCountsAsZero) {
    const struct {
        bool seminars_refused;
        bool dates_refused;
        Int32 other_count;
    } cases[] = {{true, false, 0}, {true, false, 1}, {false, true, 0}, {false, true, 1}, {true, true, 0}};
    for (const auto& c : cases) {
        Script script;
        if (c.seminars_refused) {
            script.OpenSelect(CountSeminars(5)).Refused("time-out");
        } else {
            ScriptCount(script, CountSeminars(5), c.other_count);
        }
        if (c.dates_refused) {
            script.OpenSelect(CountDates(5)).Refused("time-out");
        } else {
            ScriptCount(script, CountDates(5), c.other_count);
        }
        if (c.other_count == 0) script.ExecuteSql(Delete(5));
        Bound(script.Session(), 5)->DeleteOldSerie(5);
        EXPECT_EQ(script.LastErrorTextCalls(), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsSerie, UsesThatCannotBeCountedTogetherRaiseAndDeleteNothing) {
    Script script;
    ScriptCount(script, CountSeminars(5), 2147483647);
    ScriptCount(script, CountDates(5), 1);
    EXPECT_RAISES_UNDER(6, Labels{kLabelOfDeleteOld}, Bound(script.Session(), 5)->DeleteOldSerie(5));
    EXPECT_EQ(script.Report(), "");
}

TEST(clsSerie, DeleteOldSerieFailsAsDocumentedAtEachStep) {
    const Labels labels = {kLabelOfDeleteOld};
    const Labels all_labels = {kLabel + "DeleteFromDatabase", kOddLabel + "RemoveSerie", kLabelOfDeleteOld};
    ExpectFailures(
        [](Script& script) {
            ScriptCount(script, CountSeminars(5), 0);
            ScriptCount(script, CountDates(5), 0);
            script.ExecuteSql(Delete(5));
        },
        [](const Ref<DataSession>& session) { Bound(session, 5)->DeleteOldSerie(5); },
        {{1, kNotOk, 0, {}, {"OpenSelect: " + CountDates(5), "Close of the rows of step 3", "ExecuteSql: " + Delete(5)}},
         {3, kNotOk, 0, {}, {"ExecuteSql: " + Delete(5)}},
         {5, kNotOk, 9999, all_labels},
         {1, kRaises, 7001, labels},
         {2, kRaises, 7001, labels},
         {3, kRaises, 7001, labels},
         {4, kRaises, 7001, labels},
         {5, kRaises, 7001, all_labels}});
}

}  // namespace
}  // namespace LumoSeminar
