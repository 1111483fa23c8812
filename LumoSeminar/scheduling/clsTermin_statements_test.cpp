#include <gtest/gtest.h>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/scheduling/clsSerie.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/clsTerminTag.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <test_support/comma_locale.h>
#include <test_support/day_statements.h>
#include <test_support/failures.h>
#include <test_support/raises.h>
#include <test_support/seminar_statements.h>
#include <test_support/serie_statements.h>
#include <test_support/termin_properties.h>
#include <test_support/termin_statements.h>

namespace LumoSeminar {
namespace {

using namespace day_statements;
using namespace termin_properties;
using namespace termin_statements;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;

const std::string kLabel = " LumoSeminar062.clsTermin.";
const Labels kLabelsOfDayList = {"LumoSeminar.colTerminTage.LoadKeysFromDataBase", "LumoSeminar.colTerminTage.Init",
                                 " lumoRessourcen.clsRessource.colRessourcenDetails"};

Labels Join(Labels labels, const Labels& more) {
    labels.insert(labels.end(), more.begin(), more.end());
    return labels;
}

void ScriptDays(Script& script, int date, const std::vector<std::vector<Variant>>& days) {
    script.OpenSelect(SelectDays(date)).Rows(kDayColumns, days);
    script.CloseRows();
}

/// A load, an update of it, and no days.
void ScriptUpdate(Script& script, const std::vector<Variant>& row, const std::string& assignments) {
    script.OpenSelect(Select(17)).Rows(kColumns, {row});
    script.ExecuteSql(Update(assignments, 17));
    ScriptDays(script, 17, {});
}

/// The load of a date without a row, its insert, and the key that is read back.
void ScriptInsert(Script& script, const std::string& values, const Variant& key) {
    script.OpenSelect(Select(0)).Rows(kColumns, {});
    script.OpenSelect(Insert(values)).Rows(kInsertedColumns, {{key}});
}

// The update.

TEST(clsTermin, AnUpdateWritesEveryColumn) {
    Script script;
    ScriptUpdate(script, FullRow(), kFullAssignments);
    EXPECT_EQ(Bound(script.Session(), 17)->WriteToDatabase(), true);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnUpdateWritesWhatWasLet) {
    Script script;
    ScriptUpdate(script, NullRow(), kFullAssignments);
    const auto date = Bound(script.Session(), 17);
    LetAllColumns(*date, &Property::full);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnUpdateWritesEachWordForNothingInItsOwnCapitals) {
    Script script;
    ScriptUpdate(script, FullRow(), kZeroAssignments);
    const auto date = Bound(script.Session(), 17);
    date->Status();
    LetAllColumns(*date, &Property::zero);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnUpdateWritesTheDefaultsOfNullsBack) {
    Script script;
    ScriptUpdate(script, NullRow(), kNewAssignments);
    EXPECT_EQ(Bound(script.Session(), 17)->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, ADateWhoseRowIsMissingIsUpdatedAllTheSame) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {});
    script.ExecuteSql(Update(kNewAssignments, 17));
    ScriptDays(script, 17, {});
    EXPECT_EQ(Bound(script.Session(), 17)->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, UnderADecimalCommaAnUpdateWritesPointsButLeavesTwoOfTheCostsTheirComma) {
    const test_support::CommaLocale comma;
    Script script;
    ScriptUpdate(script, FullRow(),
                 With(With(kFullAssignments, " StornoKosten = 1025.75,", " StornoKosten = 1025,75,"),
                      " AbbruchKosten = 2099.0001,", " AbbruchKosten = 2099,0001,"));
    EXPECT_EQ(Bound(script.Session(), 17)->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnUpdateWritesDaysWithoutTheirTimeAndTimesWithoutTheirDay) {
    auto row = FullRow();
    row[8] = DateTime::Of(2010, 3, 3, 23, 59, 59);
    row[9] = DateTime::Of(100, 1, 1, 12, 0);
    row[10] = DateTime::Of(2010, 3, 3, 7, 5, 59);
    row[11] = DateTime::Of(2010, 3, 3);
    row[19] = DateTime::TimeOfDay(12, 0);
    row[21] = DateTime::Of(9999, 12, 31, 23, 59, 59);
    Script script;
    ScriptUpdate(script, row,
                 " MDNr = 5,"
                 " Status = 3,"
                 " Code = 'BS-17',"
                 " Titel = 'Brandschutz für \"Führungskräfte\"',"
                 " SemID = 105,"
                 " InhaltZielID = 33,"
                 " SelfService = -1,"
                 " Sachbearbeiter = 12,"
                 " BeginnDatum = Convert(Datetime,'03.03.2010',104),"
                 " EndeDatum = Convert(Datetime,'01.01.0100',104),"
                 " BeginnUhrzeit = Convert(Datetime,'30.12.1899 07:05',104),"
                 " EndeUhrzeit =  Convert(Datetime,'30.12.1899 00:00',104),"
                 " MinTeil = 4,"
                 " MaxTeil = 14,"
                 " OptTeil = 8,"
                 " Stunden = 6.5,"
                 " Sitzungen = 2,"
                 " SerienID = 7,"
                 " KostenProTN = 1120.5,"
                 " StornoDatum = Convert(Datetime,'30.12.1899',104),"
                 " StornoKosten = 1025.75,"
                 " AbbruchDatum = Convert(Datetime,'31.12.9999',104),"
                 " AbbruchKosten = 2099.0001,"
                 " AnmeldefristDatum = Convert(Datetime,'24.02.2010',104),"
                 " BeurteilungID = 6,"
                 " VeranstalterID = 31,"
                 " VeranstaltungsOrtID = 41,"
                 " Bemerkung = 'Größe des Raums: \"klein\" & hell'");
    EXPECT_EQ(Bound(script.Session(), 17)->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, TextsGoIntoTheStatementsAsTheyStand) {
    for (const Text& text : {Text("Rock'n Roll"), Text("a\\b"), Text("a\0b", 3), Text("\xFF\xFE"),
                             Text("{SemTerminID} {Status or 1}"), Text("Zeile\r\nZeile"), Text(100'000, 'x')}) {
        Script script;
        ScriptUpdate(script, FullRow(),
                     With(With(With(kFullAssignments, "'BS-17'", "'" + text + "'"),
                               "'Brandschutz für \"Führungskräfte\"'", "'" + text + "'"),
                          "'Größe des Raums: \"klein\" & hell'", "'" + text + "'"));
        const auto date = Bound(script.Session(), 17);
        date->Code(text);
        date->Titel(text);
        date->Bemerkung(text);
        EXPECT_EQ(date->WriteToDatabase(), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, AnUpdateWritesItsTimesToAllDaysAlsoToThoseEditedOneByOne) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    ScriptDays(script, 17, {{DateTime::Of(2010, 3, 3)}, {DateTime::Of(2010, 3, 5)}});
    script.ExecuteSql(UpdateDay(17, "05.03.2010", "10:00", "11:00"));
    script.ExecuteSql(Update(kFullAssignments, 17));
    ScriptDays(script, 17, {{DateTime::Of(2010, 3, 3)}, {DateTime::Of(2010, 3, 5)}});
    script.ExecuteSql(UpdateDay(17, "03.03.2010", "08:30", "16:45"));
    script.ExecuteSql(UpdateDay(17, "05.03.2010", "08:30", "16:45"));
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->Status(), 3);
    const auto day = date->colTerminTage()->Item(2);
    day->BegUhr(DateTime::TimeOfDay(10, 0));
    day->EndUhr(DateTime::TimeOfDay(11, 0));
    EXPECT_EQ(day->UpdateDatabase(), true);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, ADateWithoutTimesSetsItsDaysToMidnight) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    script.ExecuteSql(Update(
        With(With(kFullAssignments, " BeginnUhrzeit = Convert(Datetime,'30.12.1899 08:30',104),", " BeginnUhrzeit = Null,"),
             " EndeUhrzeit =  Convert(Datetime,'30.12.1899 16:45',104),", " EndeUhrzeit =  NULL,"),
        17));
    ScriptDays(script, 17, {{DateTime::Of(2010, 3, 3)}});
    script.ExecuteSql(UpdateDay(17, "03.03.2010", "00:00", "00:00"));
    const auto date = Bound(script.Session(), 17);
    date->BeginnUhrzeit(DateTime());
    date->EndeUhrzeit(DateTime());
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnotherSeriesAndASaveLeaveTheFormerSeriesInPlace) {
    Script script;
    ScriptUpdate(script, FullRow(), With(kFullAssignments, " SerienID = 7,", " SerienID = 8,"));
    script.ExecuteSql(Update(With(kFullAssignments, " SerienID = 7,", " SerienID = NULL,"), 17));
    ScriptDays(script, 17, {});
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->objSerie()->SerienID(), 7);
    date->SerienID(8);
    EXPECT_EQ(date->WriteToDatabase(), true);
    date->SerienID(0);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnotherKeyIsUpdatedWithTheRowThatWasRead) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    script.ExecuteSql(Update(kFullAssignments, 18));
    ScriptDays(script, 18, {});
    const auto date = Bound(script.Session(), 17);
    date->SemTerminID(18);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, ARefusedUpdateRaises9999AndKeepsTheFields) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    script.ExecuteSql(Update(With(kFullAssignments, "'BS-17'", "'Rock'n Roll'"), 17)).Refused("Falsche Syntax in der Nähe von 'n'.");
    const auto date = Bound(script.Session(), 17);
    date->Code("Rock'n Roll");
    const auto error = RaisedBy([&] { return date->WriteToDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(), "Falsche Syntax in der Nähe von 'n'.\r\n LumoSeminar062.clsTermin.WriteToDatabase");
    EXPECT_EQ(date->Code(), "Rock'n Roll");
    EXPECT_EQ(date->SemTerminID(), 17);
    EXPECT_EQ(script.Report(), "") << "the days are left alone";
}

TEST(clsTermin, WhereTheLoadIsRefusedNothingIsWritten) {
    for (const Int32 key : {0, 17}) {
        Script script;
        script.OpenSelect(Select(key)).Refused("time-out");
        EXPECT_EQ(Bound(script.Session(), key)->WriteToDatabase(), false);
        EXPECT_EQ(script.LastErrorTextCalls(), 0);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, AnUpdateFailsAsDocumentedAtEachStep) {
    const std::string write = kLabel + "WriteToDatabase";
    const std::string days = "LumoSeminar.clsTermin.TerminTageUpdate";
    const std::string day = "LumoSeminar.clsTerminTag.UpdateDatabase";
    ExpectFailures(
        [](Script& script) {
            script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
            script.ExecuteSql(Update(kFullAssignments, 17));
            ScriptDays(script, 17, {{DateTime::Of(2010, 3, 3)}, {DateTime::Of(2010, 3, 5)}});
            script.ExecuteSql(UpdateDay(17, "03.03.2010", "08:30", "16:45"));
            script.ExecuteSql(UpdateDay(17, "05.03.2010", "08:30", "16:45"));
        },
        [](const Ref<DataSession>& session) { (void)Bound(session, 17)->WriteToDatabase(); },
        {{1, kNotOk},
         {2, kNotOk, 9999, {write}},
         {3, kNotOk, 9999, Join(kLabelsOfDayList, {days, write})},
         {5, kNotOk, 9999, {day, days, write}},
         {6, kNotOk, 9999, {day, days, write}},
         {1, kRaises, 7001, {kLabel + "PropertiesInit", write}},
         {2, kRaises, 7001, {write}},
         {3, kRaises, 7001, Join(kLabelsOfDayList, {days, write})},
         {4, kRaises, 7001, Join(kLabelsOfDayList, {days, write})},
         {5, kRaises, 7001, {day, days, write}},
         {6, kRaises, 7001, {day, days, write}}});
}

// The insert.

TEST(clsTermin, ANewDateIsInsertedWithItsDefaultsAndTakesTheKeyFromTheSameStatement) {
    Script script;
    ScriptInsert(script, kNewValues, 82);
    const auto date = Bound(script.Session(), 0);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(date->Key(), "0000000082");
    EXPECT_EQ(date->SemTerminID(), 82);
    EXPECT_EQ(script.RecordsetCalls(), 2);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnInsertWritesEveryColumn) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    script.OpenSelect(Insert(kFullValues)).Rows(kInsertedColumns, {{82}});
    const auto date = Bound(script.Session(), 17);
    date->SemTerminID(0);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(date->SemTerminID(), 82);
    ExpectValues(*date, Columns(), &Property::full);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnInsertWritesWhatWasLet) {
    Script script;
    script.OpenSelect(Select(0)).Rows(kColumns, {});
    script.OpenSelect(seminar_statements::Select(105)).Rows(seminar_statements::kColumns, {seminar_statements::FullRow()});
    script.OpenSelect(Insert(kFullValues)).Rows(kInsertedColumns, {{82}});
    const auto date = Bound(script.Session(), 0);
    LetAllColumns(*date, &Property::full);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnInsertWritesEachWordForNothingInItsOwnCapitals) {
    Script script;
    ScriptInsert(script, kZeroValues, 82);
    const auto date = Bound(script.Session(), 0);
    date->Status();
    LetAllColumns(*date, &Property::zero);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, SitzungenLetBeforeTheLoadOfANewDateIsInsertedAsOne) {
    Script script;
    ScriptInsert(script, kNewValues, 82);
    const auto date = Bound(script.Session(), 0);
    date->Sitzungen(9);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, UnderADecimalCommaAnInsertWritesPointsButLeavesTwoOfTheCostsTheirComma) {
    const test_support::CommaLocale comma;
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    script.OpenSelect(Insert(With(With(kFullValues, " 1025.75,", " 1025,75,"), " 2099.0001,", " 2099,0001,")))
        .Refused("The select list for the INSERT statement contains more items than the insert list.");
    const auto date = Bound(script.Session(), 17);
    date->SemTerminID(0);
    EXPECT_RAISES(9999, date->WriteToDatabase());
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, TextsGoIntoTheInsertAsTheyStand) {
    Script script;
    ScriptInsert(script,
                 With(With(With(kNewValues, "2, '', ''", "2, 'Ü'1', ''"), "'Ü'1', ''", "'Ü'1', 'O''Hara \"ß\"'"),
                      "Null, 0, NULL, NULL", "Null, 0, NULL, '{Code} 100 %'"),
                 82);
    const auto date = Bound(script.Session(), 0);
    date->Code("Ü'1");
    date->Titel("O''Hara \"ß\"");
    date->Bemerkung("{Code} 100 %");
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, TheKeyIsWhateverIsReadBackAlsoThatOfAnotherConnectionsDate) {
    Script script;
    ScriptInsert(script, kNewValues, 4711.0);
    const auto date = Bound(script.Session(), 0);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(date->SemTerminID(), 4711);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AKeyReadBackAsNullIsZeroAndTheNextWriteInsertsAgain) {
    Script script;
    ScriptInsert(script, kNewValues, Variant::Null());
    script.OpenSelect(Insert(kNewValues)).Rows(kInsertedColumns, {{82}});
    const auto date = Bound(script.Session(), 0);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(date->SemTerminID(), 0);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(date->SemTerminID(), 82);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, BehindItsInsertTheSameObjectIsUpdatedWithoutALoad) {
    Script script;
    ScriptInsert(script, kNewValues, 82);
    script.ExecuteSql(Update(
        With(With(kNewAssignments, " Status = 2,", " Status = 4,"), " Titel = '',", " Titel = 'Löschübung',"), 82));
    ScriptDays(script, 82, {});
    const auto date = Bound(script.Session(), 0);
    EXPECT_EQ(date->WriteToDatabase(), true);
    date->Titel("Löschübung");
    date->Status(4);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, ARefusedInsertRaises9999AndLeavesTheKeyAtZero) {
    Script script;
    script.OpenSelect(Select(0)).Rows(kColumns, {});
    const std::string values = With(kNewValues, "2, '', ''", "2, '', 'Rock'n Roll'");
    script.OpenSelect(Insert(values)).Refused("Falsche Syntax in der Nähe von 'n'.");
    script.OpenSelect(Insert(kNewValues)).Rows(kInsertedColumns, {{82}});
    const auto date = Bound(script.Session(), 0);
    date->Titel("Rock'n Roll");
    const auto error = RaisedBy([&] { return date->WriteToDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(), "Falsche Syntax in der Nähe von 'n'.\r\n LumoSeminar062.clsTermin.WriteToDatabase");
    EXPECT_EQ(date->SemTerminID(), 0);
    EXPECT_EQ(date->Titel(), "Rock'n Roll");
    date->Titel("");
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(date->SemTerminID(), 82);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnInsertFailsAsDocumentedAtEachStep) {
    const std::string write = kLabel + "WriteToDatabase";
    ExpectFailures([](Script& script) { ScriptInsert(script, kNewValues, 82); },
                   [](const Ref<DataSession>& session) { (void)Bound(session, 0)->WriteToDatabase(); },
                   {{1, kNotOk},
                    {2, kNotOk, 9999, {write}},
                    {1, kRaises, 7001, {kLabel + "PropertiesInit", write}},
                    {2, kRaises, 7001, {write}}});
}

// The delete.

/// The load, the DELETE, and the uses of the series.
void ScriptDelete(Script& script, int series, Int32 seminars, Int32 dates) {
    auto row = FullRow();
    row[17] = series;
    script.OpenSelect(Select(17)).Rows(kColumns, {row});
    ScriptEmptyLists(script, 17);
    script.ExecuteSql(Delete(17));
    script.OpenSelect(serie_statements::CountSeminars(series)).Rows({""}, {{seminars}});
    script.CloseRows();
    script.OpenSelect(serie_statements::CountDates(series)).Rows({""}, {{dates}});
    script.CloseRows();
}

TEST(clsTermin, ADeleteTakesAnUnusedSeriesWithItAndLeavesTheDays) {
    Script script;
    ScriptDelete(script, 7, 0, 0);
    script.ExecuteSql(serie_statements::Delete(7));
    EXPECT_EQ(Bound(script.Session(), 17)->DeleteFromDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, ADeleteLeavesASeriesThatASeminarOrADateStillUses) {
    for (const auto& [seminars, dates] : {std::pair<Int32, Int32>{1, 0}, {0, 1}, {2, 30}}) {
        Script script;
        ScriptDelete(script, 7, seminars, dates);
        EXPECT_EQ(Bound(script.Session(), 17)->DeleteFromDatabase(), true);
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, ADeleteOfADateWithoutASeriesCountsAndDeletesSeriesZero) {
    Script script;
    ScriptDelete(script, 0, 0, 0);
    script.ExecuteSql(serie_statements::Delete(0));
    EXPECT_EQ(Bound(script.Session(), 17)->DeleteFromDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, ADeleteLooksAtTheSeriesThatWasLetLastNotAtTheOneInTheRow) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    ScriptEmptyLists(script, 17);
    script.ExecuteSql(Delete(17));
    script.OpenSelect(serie_statements::CountSeminars(8)).Rows({""}, {{0}});
    script.CloseRows();
    script.OpenSelect(serie_statements::CountDates(8)).Rows({""}, {{0}});
    script.CloseRows();
    script.ExecuteSql(serie_statements::Delete(8));
    const auto date = Bound(script.Session(), 17);
    EXPECT_EQ(date->objSerie()->SerienID(), 7);
    date->SerienID(8);
    EXPECT_EQ(date->DeleteFromDatabase(), true);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, ARefusedDeleteIsFalseWithoutAnErrorAndLeavesTheSeries) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    ScriptEmptyLists(script, 17);
    script.ExecuteSql(Delete(17)).Refused("The DELETE statement conflicted with the REFERENCE constraint.");
    EXPECT_EQ(Bound(script.Session(), 17)->DeleteFromDatabase(), false);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, WhereTheLoadIsRefusedNothingIsDeleted) {
    Script script;
    script.OpenSelect(Select(17)).Refused("time-out");
    EXPECT_EQ(Bound(script.Session(), 17)->DeleteFromDatabase(), false);
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, ADeleteFailsAsDocumentedAtEachStep) {
    const std::string operation = kLabel + "DeleteFromDatabase";
    const std::string uses = "LumoSeminar.clsTermin.CheckSerie";
    const Labels series = {"LumoSeminar.clsSerie.DeleteFromDatabase", "LUmoSeminar.clsSerie.RemoveSerie", uses, operation};
    const std::string lists = " LumoSeminar062.clsSeminar.Teilnehmer";
    const std::string participants = " LumoSeminar062.ColTeilnehmer.";
    const std::string focus_areas = " LumoSeminar062.clsColSemTerminSchwerpunkte.";
    const std::string open = "Open of the connection";
    const std::string count_dates = "OpenSelect: " + serie_statements::CountDates(7);
    const std::string delete_series = "ExecuteSql: " + serie_statements::Delete(7);
    const Labels deletes = {"ExecuteSql: " + Delete(17),   "OpenSelect: " + serie_statements::CountSeminars(7),
                            "Close of the rows of step 7", count_dates,
                            "Close of the rows of step 9", delete_series};
    const auto Then = [](Labels first, const Labels& more) {
        first.insert(first.end(), more.begin(), more.end());
        return first;
    };
    const Labels focus_areas_and_deletes =
        Then({"AdoConnection", "OpenSelect: " + focus_area_statements::SelectKeysOfDate(17)}, deletes);
    ExpectFailures(
        [](Script& script) {
            ScriptDelete(script, 7, 0, 0);
            script.ExecuteSql(serie_statements::Delete(7));
        },
        [](const Ref<DataSession>& session) { (void)Bound(session, 17)->DeleteFromDatabase(); },
        {{1, kNotOk},
         {2, kNotOk, 0, {}, Then({open}, focus_areas_and_deletes)},
         {3, kNotOk, 0, {}, focus_areas_and_deletes},
         {4, kNotOk, 0, {}, Then({open}, deletes)},
         {5, kNotOk, 0, {}, deletes},
         {6, kNotOk},
         {7, kNotOk, 0, {}, {count_dates, "Close of the rows of step 9", delete_series}},
         {9, kNotOk, 0, {}, {delete_series}},
         {11, kNotOk, 9999, series},
         {1, kRaises, 7001, {kLabel + "PropertiesInit", operation}},
         {2, kRaises, 7001, {participants + "Init", lists, operation}},
         {3, kRaises, 7001, {participants + "LoadKeysFromDatabase", participants + "Init", lists, operation}},
         {4, kRaises, 7001, {focus_areas + "Init", lists, operation}},
         {5, kRaises, 7001, {focus_areas + "LoadKeysFromDatabase", focus_areas + "Init", lists, operation}},
         {6, kRaises, 7001, {operation}},
         {7, kRaises, 7001, {uses, operation}},
         {8, kRaises, 7001, {uses, operation}},
         {9, kRaises, 7001, {uses, operation}},
         {10, kRaises, 7001, {uses, operation}},
         {11, kRaises, 7001, series}});
}

}  // namespace
}  // namespace LumoSeminar
