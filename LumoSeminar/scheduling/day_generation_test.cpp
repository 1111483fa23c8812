// Which statements a change of the two dates of a date costs, and in which order.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/text_form.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <test_support/day_generation_fixture.h>
#include <test_support/day_statements.h>
#include <test_support/failures.h>
#include <test_support/raises.h>
#include <test_support/serie_statements.h>
#include <test_support/termin_statements.h>

namespace LumoSeminar {
namespace {

using namespace day_statements;
using LumoConnection::Script;
using termin_statements::With;
using test_support::Dates;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::March;
using test_support::RaisedBy;
using test_support::Times;

using Labels = std::vector<std::string>;
/// Days of March 2010.
using Days = std::vector<unsigned>;

constexpr int kKey = 17;
constexpr int kSeries = 4;

const std::string kLetBegin = " LumoSeminar062.clsTermin.BeginnDatum --> LET";
const std::string kLetEnd = " LumoSeminar062.clsTermin.EndeDatum --> LET";
const std::string kGenerate = "LumoSeminar.clsTermin.ErzeugeTerminTage";
const std::string kList = "LumoSeminar.colTerminTage.";
const std::string kListRead = " lumoRessourcen.clsRessource.colRessourcenDetails";

/// What stands in the row of the date; all else is Null.
struct Given {
    unsigned begin = 0;
    unsigned end = 0;
    Int32 sessions = 2;
    Double hours = 8;
    DateTime from = {};
    DateTime to = {};
    Int32 series = 0;
    Int32 seminar = 0;
};

/// A row of the series with flags from Monday on.
std::vector<Variant> SeriesRow(Byte tagefolge, Byte taeglich, Int32 woche, const std::vector<Int16>& flags,
                               DateTime from = DateTime::TimeOfDay(14, 0), DateTime to = DateTime::TimeOfDay(15, 30)) {
    std::vector<Variant> row = {from, to, tagefolge, taeglich, woche};
    row.insert(row.end(), flags.begin(), flags.end());
    return row;
}

std::vector<Variant> WorkingDays() { return SeriesRow(1, 0, 0, {0, 0, 0, 0, 0, 0, 0}); }
std::vector<Variant> MondaysAndTuesdays() { return SeriesRow(2, 0, 1, {-1, -1, 0, 0, 0, 0, 0}); }

void ScriptLoad(Script& script, const Given& given, int key = kKey) {
    std::vector<Variant> row = termin_statements::NullRow();
    row[4] = given.seminar;
    if (given.begin != 0) row[8] = March(given.begin);
    if (given.end != 0) row[9] = March(given.end);
    row[10] = given.from;
    row[11] = given.to;
    row[15] = given.hours;
    row[16] = given.sessions;
    row[17] = given.series;
    script.OpenSelect(termin_statements::Select(key)).Rows(termin_statements::kColumns, {row});
}

void ScriptSeries(Script& script, const std::vector<std::vector<Variant>>& rows) {
    serie_statements::ScriptLoad(script, kSeries, rows);
}

void ScriptList(Script& script, const Days& days, int key = kKey) {
    std::vector<std::vector<Variant>> rows;
    for (const unsigned day : days) rows.push_back({March(day)});
    script.OpenSelect(SelectDays(key)).Rows(kDayColumns, rows);
    script.CloseRows();
}

std::string Written(unsigned day) { return DateText(March(day)); }

/// All days go, each behind a new list.
void ScriptDeleteAll(Script& script, Days days, int key = kKey) {
    ScriptList(script, days, key);
    while (!days.empty()) {
        ScriptList(script, days, key);
        script.ExecuteSql(DeleteDay(key, Written(days.front())));
        days.erase(days.begin());
    }
}

void ScriptInsert(Script& script, const Days& days, const std::string& from, const std::string& to, int key = kKey) {
    for (const unsigned day : days) script.ExecuteSql(InsertDay(key, Written(day), from, to));
}

/// The last day is looked for, and its times.
void ScriptLastDay(Script& script, const Days& days, DateTime from, DateTime to) {
    ScriptList(script, days);
    ScriptList(script, days);
    script.OpenSelect(SelectTimes(kKey, Written(days.back()))).Rows(kTimeColumns, {{from, to}});
    script.CloseRows();
}

/// The end is set to the last day there is.
void ScriptCorrection(Script& script, const Days& days) {
    ScriptList(script, days);
    ScriptList(script, days);
}

Ref<clsTermin> Bound(const Ref<DataSession>& session, Int32 key = kKey) {
    auto date = New<clsTermin>();
    date->Init(key, session);
    return date;
}

TEST(DayGeneration, ARebuildDeletesEachOldDayBehindANewListAndInsertsTheNewOnes) {
    Script script;
    ScriptLoad(script, {.begin = 3, .end = 5, .sessions = 3, .hours = 7});
    ScriptList(script, {3, 4, 5});
    ScriptList(script, {3, 4, 5});
    script.ExecuteSql(DeleteDay(kKey, "03.03.2010"));
    ScriptList(script, {4, 5});
    script.ExecuteSql(DeleteDay(kKey, "04.03.2010"));
    ScriptList(script, {5});
    script.ExecuteSql(DeleteDay(kKey, "05.03.2010"));
    script.ExecuteSql(
        "Insert Into Sem_Termin_Termine_IT (  SemTerminID, Termin, BegUhr, EndUhr ) Values ( 17,convert(datetime,'10.03.2010',104),"
        "Convert(Datetime,'30.12.1899 09:00',104), Convert(Datetime,'30.12.1899 11:20',104) )");
    script.ExecuteSql(InsertDay(kKey, "11.03.2010", "09:00", "11:20"));
    script.ExecuteSql(InsertDay(kKey, "12.03.2010", "09:00", "11:20"));
    const auto date = Bound(script.Session());
    date->BeginnDatum(March(10));
    EXPECT_EQ(Dates(date), "10.03.2010 to 12.03.2010");
    EXPECT_EQ(Times(date), "09:00:00 to 11:20:00");
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, ARebuildDeletesTheDaysThatAreThereAtItsStart) {
    Script script;
    ScriptLoad(script, {.begin = 3, .end = 5, .sessions = 1, .hours = 1});
    ScriptList(script, {4});
    ScriptList(script, {3, 4});  // one came in meanwhile
    script.ExecuteSql(DeleteDay(kKey, "04.03.2010"));
    ScriptInsert(script, {10}, "09:00", "10:00");
    Bound(script.Session())->BeginnDatum(March(10));
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, ANewDateWorksOnTheDaysOfKeyZero) {
    Script script;
    script.OpenSelect(termin_statements::Select(0)).Rows(termin_statements::kColumns);
    ScriptDeleteAll(script, {1}, 0);
    ScriptInsert(script, {10}, "09:00", "17:00", 0);
    Bound(script.Session(), 0)->BeginnDatum(March(10));
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, ARebuildByADailySeriesReadsTheSeriesThenAnotherList) {
    Script script;
    ScriptLoad(script, {.sessions = 3, .series = kSeries});
    ScriptDeleteAll(script, {3});
    ScriptSeries(script, {WorkingDays()});
    ScriptList(script, {});
    ScriptInsert(script, {5, 8, 9}, "09:00", "11:40");
    const auto date = Bound(script.Session());
    date->BeginnDatum(March(5));
    EXPECT_EQ(Dates(date), "05.03.2010 to 09.03.2010");
    EXPECT_EQ(Times(date), "14:00:00 to 15:30:00");
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, ARebuildByAWeeklySeriesTakesItsTimesOnADateWithASeminar) {
    Script script;
    ScriptLoad(script, {.sessions = 3, .series = kSeries, .seminar = 5});
    ScriptDeleteAll(script, {3});
    ScriptSeries(script, {MondaysAndTuesdays()});
    ScriptList(script, {});
    ScriptInsert(script, {8, 9, 15}, "14:00", "15:30");
    const auto date = Bound(script.Session());
    date->BeginnDatum(March(3));
    EXPECT_EQ(Dates(date), "03.03.2010 to 15.03.2010");
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, ASeriesIsReadOnceForAllRebuildsOfADate) {
    Script script;
    ScriptLoad(script, {.sessions = 1, .hours = 4, .series = kSeries});
    ScriptDeleteAll(script, {});
    ScriptSeries(script, {SeriesRow(1, 1, 0, {0, 0, 0, 0, 0, 0, 0}, {}, {})});
    ScriptList(script, {});
    ScriptInsert(script, {3}, "09:00", "13:00");
    ScriptDeleteAll(script, {3});
    ScriptList(script, {});
    ScriptInsert(script, {4}, "09:00", "13:00");
    const auto date = Bound(script.Session());
    date->BeginnDatum(March(3));
    EXPECT_EQ(Times(date), "none to none");
    date->BeginnDatum(March(4));
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, ASeriesWithoutARowIsLookedForAtEachOfItsTimesAndItsRhythm) {
    Script script;
    ScriptLoad(script, {.series = kSeries, .seminar = 5});
    ScriptDeleteAll(script, {});
    ScriptSeries(script, {});
    ScriptSeries(script, {});
    ScriptSeries(script, {});
    ScriptList(script, {});
    EXPECT_RAISES(6, Bound(script.Session())->BeginnDatum(March(3)));
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, AnExtensionReadsTheLastDayWithItsTimesInsertsAndReadsTheLastDayAgain) {
    Script script;
    ScriptLoad(script, {.begin = 3, .end = 4});
    ScriptList(script, {3, 4});
    ScriptList(script, {3, 4});
    script.OpenSelect(SelectTimes(kKey, "04.03.2010"))
        .Rows(kTimeColumns, {{DateTime::TimeOfDay(18, 0), DateTime::TimeOfDay(20, 15)}});
    script.CloseRows();
    ScriptInsert(script, {5, 6}, "18:00", "20:15");
    ScriptList(script, {3, 4, 5, 6});
    ScriptList(script, {3, 4, 5, 6});
    const auto date = Bound(script.Session());
    date->EndeDatum(March(6));
    EXPECT_EQ(Dates(date), "03.03.2010 to 06.03.2010");
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, AnExtensionReadsTheSeriesBehindTheTimesOfTheLastDay) {
    const struct {
        const char* name;
        std::vector<Variant> series;
        Days made;
    } kCases[] = {
        {"every day", SeriesRow(1, 1, 0, {0, 0, 0, 0, 0, 0, 0}), {5, 6, 7, 8, 9, 10}},
        {"working days", WorkingDays(), {5, 8, 9, 10}},
        {"weekly, from a day that is not flagged", MondaysAndTuesdays(), {10}},
        {"weekly", SeriesRow(0, 0, 1, {0, 0, 0, 0, -1, -1, 0}), {5, 6, 10}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        Script script;
        ScriptLoad(script, {.begin = 3, .end = 4, .series = kSeries, .seminar = 5});
        ScriptLastDay(script, {3, 4}, DateTime::TimeOfDay(9, 0), DateTime::TimeOfDay(13, 0));
        ScriptSeries(script, {c.series});
        ScriptInsert(script, c.made, "09:00", "13:00");
        ScriptCorrection(script, {3, 4, 10});
        const auto date = Bound(script.Session());
        date->EndeDatum(March(10));
        EXPECT_EQ(Dates(date), "03.03.2010 to 10.03.2010");
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(DayGeneration, AShrinkDeletesTheDaysBehindTheEndAndReadsTheLastDay) {
    Script script;
    ScriptLoad(script, {.begin = 3, .end = 6, .series = kSeries});
    ScriptList(script, {3, 4, 5, 6});
    script.ExecuteSql(DeleteDay(kKey, "05.03.2010"));
    script.ExecuteSql(DeleteDay(kKey, "06.03.2010"));
    ScriptCorrection(script, {3, 4});
    const auto date = Bound(script.Session());
    date->EndeDatum(March(4));
    EXPECT_EQ(Dates(date), "03.03.2010 to 04.03.2010");
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, AnEndThatIsCorrectedCostsThreeListsMore) {
    Script script;
    ScriptLoad(script, {.begin = 3, .end = 8});
    ScriptList(script, {3, 8});
    script.ExecuteSql(DeleteDay(kKey, "08.03.2010"));
    ScriptCorrection(script, {3});
    ScriptList(script, {3});
    ScriptCorrection(script, {3});
    const auto date = Bound(script.Session());
    date->EndeDatum(March(6));
    EXPECT_EQ(Dates(date), "03.03.2010 to 03.03.2010");
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, AnEarlierEndOfADateWithoutDaysInsertsOneOnItsBegin) {
    Script script;
    ScriptLoad(script, {.begin = 3, .end = 8, .from = DateTime::TimeOfDay(10, 0), .to = DateTime::TimeOfDay(11, 0)});
    ScriptList(script, {});
    ScriptInsert(script, {3}, "10:00", "11:00");
    ScriptCorrection(script, {3});
    const auto date = Bound(script.Session());
    date->EndeDatum(March(3));
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, ASaveWritesTheDateThenTheTimesOfEachDay) {
    Script script;
    ScriptLoad(script, {.begin = 3, .end = 5, .from = DateTime::TimeOfDay(8, 30), .series = kSeries});
    std::string assignments = termin_statements::kZeroAssignments;
    for (const auto& [zero, value] : {
             std::pair{" Status = 0,", " Status = 2,"},
             {" BeginnDatum = Null,", " BeginnDatum = Convert(Datetime,'03.03.2010',104),"},
             {" EndeDatum = Null,", " EndeDatum = Convert(Datetime,'05.03.2010',104),"},
             {" BeginnUhrzeit = Null,", " BeginnUhrzeit = Convert(Datetime,'30.12.1899 08:30',104),"},
             {" Stunden = 0,", " Stunden = 8,"},
             {" Sitzungen = 0,", " Sitzungen = 2,"},
             {" SerienID = NULL,", " SerienID = 4,"},
         })
        assignments = With(assignments, zero, value);
    script.ExecuteSql(termin_statements::Update(assignments, kKey));
    ScriptList(script, {3, 5});
    script.ExecuteSql(UpdateDay(kKey, "03.03.2010", "08:30", "00:00"));
    script.ExecuteSql(UpdateDay(kKey, "05.03.2010", "08:30", "00:00"));
    EXPECT_EQ(Bound(script.Session())->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, NothingIsSentWhereTheDatesStayAsTheyAre) {
    Script script;
    ScriptLoad(script, {.begin = 3, .end = 5});
    const auto date = Bound(script.Session());
    date->BeginnDatum(March(3));
    date->EndeDatum(March(5));
    date->EndeDatum(March(5), false);
    date->Sitzungen(9);
    date->Stunden(40);
    date->SerienID(kSeries);
    date->BeginnUhrzeit(DateTime::TimeOfDay(7, 0));
    date->EndeUhrzeit(DateTime::TimeOfDay(8, 0));
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, NothingIsSentForABeginOfZero) {
    Script script;
    ScriptLoad(script, {.begin = 3, .end = 5});
    const auto date = Bound(script.Session());
    date->BeginnDatum(DateTime());
    date->EndeDatum(March(9));
    EXPECT_EQ(Dates(date), "none to 09.03.2010");
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, NothingIsSentWithNewDelOnlyTag) {
    Script script;
    ScriptLoad(script, {.begin = 3, .end = 5});
    const auto date = Bound(script.Session());
    date->NewDelOnlyTag(true);
    date->BeginnDatum(March(10));
    date->EndeDatum(March(12));
    EXPECT_EQ(Dates(date), "10.03.2010 to 12.03.2010");
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, AnEndThatIsLetWithoutALoadSendsNothing) {
    Script script;
    const auto date = Bound(script.Session());
    date->EndeDatum(March(5), false);
    EXPECT_EQ(date->EndeDatum(false), March(5));
    EXPECT_EQ(script.Report(), "");
}

TEST(DayGeneration, ARefusedDayEndsTheRebuildAndTheDateKeepsItsFormerEnd) {
    Script script;
    ScriptLoad(script, {.begin = 3, .end = 5, .sessions = 3});
    ScriptDeleteAll(script, {3, 4, 5});
    ScriptInsert(script, {10}, "09:00", "11:40");
    script.ExecuteSql(InsertDay(kKey, "11.03.2010", "09:00", "11:40")).Refused("Cannot insert \"Gründonnerstag\".");
    const auto date = Bound(script.Session());
    const auto error = RaisedBy([&] {
        date->BeginnDatum(March(10));
        return 0;
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Description(),
              "Cannot insert \"Gründonnerstag\".\r\nLUmoSeminar.clsTerminTag.WriteToDatabase\r\n"
              "LumoSeminar.colTerminTage.objNewTerminTag\r\nLumoSeminar.colTerminTage.AddTermineEvery\r\n"
              "LumoSeminar.clsTermin.ErzeugeTerminTage\r\n LumoSeminar062.clsTermin.BeginnDatum --> LET");
    EXPECT_EQ(Dates(date), "10.03.2010 to 05.03.2010");
    date->BeginnDatum(March(10));
    EXPECT_EQ(script.Report(), "");
}

const Labels kListInLetBegin = {kList + "LoadKeysFromDataBase", kList + "Init", kListRead, kGenerate, kLetBegin};
const Labels kListInLetEnd = {kList + "LoadKeysFromDataBase", kList + "Init", kListRead, kGenerate, kLetEnd};

Labels InsertIn(const std::string& generator, const std::string& let) {
    return {"LUmoSeminar.clsTerminTag.WriteToDatabase", kList + "objNewTerminTag", kList + generator, kGenerate, let};
}

TEST(DayGeneration, ARebuildFailsAsDocumentedAtEachStep) {
    const Labels kLoad = {" LumoSeminar062.clsTermin.PropertiesInit", kLetBegin};
    const Labels kDelete = {"LumoSeminar.clsTerminTag.DeleteFromDatabase", "LUmoSeminar.clsTerminTag.RemoveTerminTag",
                            kList + "Remove", kGenerate, kLetBegin};
    const Labels kInsert = InsertIn("AddTermineEvery", kLetBegin);
    ExpectFailures(
        [](Script& script) {
            ScriptLoad(script, {.begin = 3, .end = 3});
            ScriptDeleteAll(script, {3});
            ScriptInsert(script, {10, 11}, "09:00", "13:00");
        },
        [](const Ref<DataSession>& session) { Bound(session)->BeginnDatum(March(10)); },
        {{1, kNotOk},
         {2, kNotOk, 9999, kListInLetBegin},
         {4, kNotOk, 9999, kListInLetBegin},
         {6, kNotOk, 9999, kDelete},
         {7, kNotOk, 9999, kInsert},
         {8, kNotOk, 9999, kInsert},
         {1, kRaises, 7001, kLoad},
         {2, kRaises, 7001, kListInLetBegin},
         {3, kRaises, 7001, kListInLetBegin},
         {4, kRaises, 7001, kListInLetBegin},
         {5, kRaises, 7001, kListInLetBegin},
         {6, kRaises, 7001, kDelete},
         {7, kRaises, 7001, kInsert},
         {8, kRaises, 7001, kInsert}});
}

TEST(DayGeneration, ARebuildByASeriesFailsAsDocumentedAtEachStep) {
    const Labels kLoad = {" LumoSeminar062.clsTermin.PropertiesInit", kLetBegin};
    const Labels kSeriesLoad = {"LUmoSeminar.clsSerie.PropertiesInit", "LumoSeminar.clsSerie.BeginnUhrzeit", kGenerate,
                                kLetBegin};
    const Labels kInsert = InsertIn("AddTermineWeekly", kLetBegin);
    const std::string kSelectSeries = "OpenSelect: " + serie_statements::Select(kSeries);
    ExpectFailures(
        [](Script& script) {
            ScriptLoad(script, {.sessions = 1, .series = kSeries, .seminar = 5});
            ScriptDeleteAll(script, {});
            ScriptSeries(script, {MondaysAndTuesdays()});
            ScriptList(script, {});
            ScriptInsert(script, {8}, "14:00", "15:30");
        },
        [](const Ref<DataSession>& session) { Bound(session)->BeginnDatum(March(3)); },
        {{1, kNotOk},
         {2, kNotOk, 9999, kListInLetBegin},
         // A series that cannot be read is one without a rhythm and without a weekday.
         {4,
          kNotOk,
          6,
          {kList + "AddTermineWeekly", kGenerate, kLetBegin},
          {kSelectSeries, kSelectSeries, "OpenSelect: " + SelectDays(kKey), "Close of the rows of step 6"}},
         {6, kNotOk, 9999, kListInLetBegin},
         {8, kNotOk, 9999, kInsert},
         {1, kRaises, 7001, kLoad},
         {2, kRaises, 7001, kListInLetBegin},
         {3, kRaises, 7001, kListInLetBegin},
         {4, kRaises, 7001, kSeriesLoad},
         {5, kRaises, 7001, kSeriesLoad},
         {6, kRaises, 7001, kListInLetBegin},
         {7, kRaises, 7001, kListInLetBegin},
         {8, kRaises, 7001, kInsert}});
}

TEST(DayGeneration, AnExtensionFailsAsDocumentedAtEachStep) {
    const Labels kLoad = {" LumoSeminar062.clsTermin.PropertiesInit", kLetEnd};
    const Labels kTimesLoad = {"LUmoSeminar.clsTerminTag.PropertiesInit", "LumoSeminar.clsTerminTag.BegUhr", kGenerate, kLetEnd};
    const Labels kSeriesLoad = {"LUmoSeminar.clsSerie.PropertiesInit", "LumoSeminar.clsSerie.Tagefolge", kGenerate, kLetEnd};
    const Labels kInsert = InsertIn("AddEndeTermineWeekly", kLetEnd);
    ExpectFailures(
        [](Script& script) {
            ScriptLoad(script, {.begin = 3, .end = 7, .series = kSeries});
            ScriptLastDay(script, {3, 7}, DateTime::TimeOfDay(9, 0), DateTime::TimeOfDay(13, 0));
            ScriptSeries(script, {MondaysAndTuesdays()});
            ScriptInsert(script, {8}, "09:00", "13:00");
            ScriptCorrection(script, {3, 7, 8});
        },
        [](const Ref<DataSession>& session) { Bound(session)->EndeDatum(March(8)); },
        {{1, kNotOk},
         {2, kNotOk, 9999, kListInLetEnd},
         {4, kNotOk, 9999, kListInLetEnd},
         // A day whose times cannot be read is one at midnight, and that is not in the script.
         {6,
          kNotOk,
          9999,
          kInsert,
          {"OpenSelect: " + SelectTimes(kKey, "07.03.2010"), "OpenSelect: " + serie_statements::Select(kSeries),
           "Close of the rows of step 8", "ExecuteSql: " + InsertDay(kKey, "08.03.2010", "00:00", "00:00")}},
         {8, kNotOk, 6, {kList + "AddEndeTermineWeekly", kGenerate, kLetEnd}},
         {10, kNotOk, 9999, kInsert},
         {11, kNotOk, 9999, kListInLetEnd},
         {13, kNotOk, 9999, kListInLetEnd},
         {1, kRaises, 7001, kLoad},
         {2, kRaises, 7001, kListInLetEnd},
         {3, kRaises, 7001, kListInLetEnd},
         {4, kRaises, 7001, kListInLetEnd},
         {5, kRaises, 7001, kListInLetEnd},
         {6, kRaises, 7001, kTimesLoad},
         {7, kRaises, 7001, kTimesLoad},
         {8, kRaises, 7001, kSeriesLoad},
         {9, kRaises, 7001, kSeriesLoad},
         {10, kRaises, 7001, kInsert},
         {11, kRaises, 7001, kListInLetEnd},
         {12, kRaises, 7001, kListInLetEnd},
         {13, kRaises, 7001, kListInLetEnd},
         {14, kRaises, 7001, kListInLetEnd}});
}

TEST(DayGeneration, AShrinkWithACorrectionFailsAsDocumentedAtEachStep) {
    const Labels kLoad = {" LumoSeminar062.clsTermin.PropertiesInit", kLetEnd};
    const Labels kDelete = {"LumoSeminar.clsTerminTag.DeleteFromDatabase", "LUmoSeminar.clsTerminTag.RemoveTerminTag",
                            kGenerate, kLetEnd};
    Labels kListInside = kListInLetEnd;
    kListInside.insert(kListInside.end(), {kGenerate, kLetEnd});
    ExpectFailures(
        [](Script& script) {
            ScriptLoad(script, {.begin = 3, .end = 8});
            ScriptList(script, {3, 8});
            script.ExecuteSql(DeleteDay(kKey, "08.03.2010"));
            ScriptCorrection(script, {3});
            ScriptList(script, {3});
            ScriptCorrection(script, {3});
        },
        [](const Ref<DataSession>& session) { Bound(session)->EndeDatum(March(6)); },
        {{1, kNotOk},
         {2, kNotOk, 9999, kListInLetEnd},
         {4, kNotOk, 9999, kDelete},
         {5, kNotOk, 9999, kListInLetEnd},
         {7, kNotOk, 9999, kListInLetEnd},
         {9, kNotOk, 9999, kListInside},
         {11, kNotOk, 9999, kListInside},
         {13, kNotOk, 9999, kListInside},
         {1, kRaises, 7001, kLoad},
         {2, kRaises, 7001, kListInLetEnd},
         {3, kRaises, 7001, kListInLetEnd},
         {4, kRaises, 7001, kDelete},
         {5, kRaises, 7001, kListInLetEnd},
         {6, kRaises, 7001, kListInLetEnd},
         {7, kRaises, 7001, kListInLetEnd},
         {8, kRaises, 7001, kListInLetEnd},
         {9, kRaises, 7001, kListInside},
         {10, kRaises, 7001, kListInside},
         {11, kRaises, 7001, kListInside},
         {12, kRaises, 7001, kListInside},
         {13, kRaises, 7001, kListInside},
         {14, kRaises, 7001, kListInside}});
}

TEST(DayGeneration, ASaveFailsAsDocumentedAtEachStep) {
    const std::string kWrite = " LumoSeminar062.clsTermin.WriteToDatabase";
    const std::string kUpdateTimes = "LumoSeminar.clsTermin.TerminTageUpdate";
    const Labels kLists = {kList + "LoadKeysFromDataBase", kList + "Init", kListRead, kUpdateTimes, kWrite};
    const Labels kUpdate = {"LumoSeminar.clsTerminTag.UpdateDatabase", kUpdateTimes, kWrite};
    ExpectFailures(
        [](Script& script) {
            script.OpenSelect(termin_statements::Select(kKey)).Rows(termin_statements::kColumns, {termin_statements::FullRow()});
            script.ExecuteSql(termin_statements::Update(termin_statements::kFullAssignments, kKey));
            ScriptList(script, {3, 5});
            script.ExecuteSql(UpdateDay(kKey, "03.03.2010", "08:30", "16:45"));
            script.ExecuteSql(UpdateDay(kKey, "05.03.2010", "08:30", "16:45"));
        },
        [](const Ref<DataSession>& session) { (void)Bound(session)->WriteToDatabase(); },
        {{1, kNotOk},
         {2, kNotOk, 9999, {kWrite}},
         {3, kNotOk, 9999, kLists},
         {5, kNotOk, 9999, kUpdate},
         {6, kNotOk, 9999, kUpdate},
         {1, kRaises, 7001, {" LumoSeminar062.clsTermin.PropertiesInit", kWrite}},
         {2, kRaises, 7001, {kWrite}},
         {3, kRaises, 7001, kLists},
         {4, kRaises, 7001, kLists},
         {5, kRaises, 7001, kUpdate},
         {6, kRaises, 7001, kUpdate}});
}

}  // namespace
}  // namespace LumoSeminar
