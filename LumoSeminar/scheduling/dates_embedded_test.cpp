#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <set>

#include <LumoSeminar/LumoSeminar.h>
#include <LumoSeminar/frame/clock.h>
#include <test_support/embedded.h>
#include <test_support/raises.h>

namespace LumoSeminar {
namespace {

using test_support::EmptyDatabase;
using test_support::RaisedBy;
using test_support::SampleDatabase;
using test_support::SchemaDatabase;

using Rows = std::vector<std::vector<Variant>>;

const Variant kNull = Variant::Null();
/// The day on which the sample company was taken down.
const DateTime kSampleDay = DateTime::Of(2010, 9, 6, 11, 20);

Rows RowsOf(const Ref<RecordSet>& rows) {
    Rows all;
    for (; !rows->Eof(); rows->MoveNext()) {
        auto& row = all.emplace_back();
        for (Int16 i = 0; i < rows->Fields().Count(); ++i) row.push_back(rows->Fields().Item(i).Value());
    }
    rows->Close();
    return all;
}

Rows Select(DataSession& session, const Text& sql) {
    if (!session.OpenSelect(sql)) {
        ADD_FAILURE() << sql << ": " << session.LastErrorText();
        return {};
    }
    return RowsOf(session.Recordset());
}

Variant Value(DataSession& session, const Text& sql) {
    const Rows rows = Select(session, sql);
    return rows.empty() ? Variant() : rows[0][0];
}

void Write(DataSession& session, const Text& sql) {
    EXPECT_TRUE(session.ExecuteSql(sql)) << sql << ": " << session.LastErrorText();
}

// Dates

/// A date of client 5 with an end "dd.mm.yyyy", or open.
void AddDate(DataSession& session, int key, const Text& end, const Text& title = "Löten", int client = 5) {
    Write(session, "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, Titel, EndeDatum) VALUES (" + std::to_string(key) +
                       ", " + std::to_string(client) + ", N'" + title + "', " +
                       (end.empty() ? "NULL" : "Convert(datetime,'" + end + "',104)") + ")");
}

/// All dates of a client.
Ref<colTermine> DatesOf(const Ref<DataSession>& session, Int32 client, const Text& filter = {}) {
    auto list = New<colTermine>();
    EXPECT_EQ(list->Init(-1, client, session, filter), true) << session->LastErrorText();
    return list;
}

std::vector<Text> TitlesOf(const Ref<colTermine>& list) {
    std::vector<Text> titles;
    for (const auto& date : list->NewEnum()) titles.push_back(date->Titel(false));
    return titles;
}

/// A row of the table of dates as the list is to show it.
struct ShownDate {
    Int32 key;
    DateTime end;
    Text title;
    Text code;
    friend bool operator==(const ShownDate&, const ShownDate&) = default;
};

/// What the list is to show of the rows that the test has chosen: sorted here, not by the database.
std::vector<ShownDate> ToBeShown(DataSession& session, const std::function<bool(const std::vector<Variant>&)>& chosen) {
    std::vector<ShownDate> dates;
    for (const auto& row : Select(session, "SELECT SemTerminID, EndeDatum, Titel, Code, MDNr, SemID FROM Sem_Termin_IT")) {
        if (!chosen(row)) continue;
        dates.push_back(
            {To<Int32>(row[0]), row[1].IsNull() ? Today() : To<DateTime>(row[1]), To<Text>(row[2]), To<Text>(row[3])});
    }
    std::ranges::sort(
        dates, [](const ShownDate& a, const ShownDate& b) { return a.end != b.end ? a.end > b.end : a.key < b.key; });
    return dates;
}

std::vector<ShownDate> Shown(const Ref<colTermine>& list) {
    std::vector<ShownDate> dates;
    for (const auto& date : list->NewEnum()) {
        dates.push_back({To<Int32>(Variant(date->Key())), date->EndeDatum(false), date->Titel(false), date->Code(false)});
    }
    return dates;
}

TEST(DatesForReal, AClientSeesItsOwnDatesAndTheCommonOnesTheLatestEndFirst) {
    NOT_ON_A_SERVER("its clock cannot be pinned");
    const PinnedNow now(kSampleDay);
    const auto session = SampleDatabase();
    const struct {
        Int32 client;
        std::size_t count;
    } cases[] = {{1, 69}, {2, 43}, {9, 31}, {-1, 31}};
    for (const auto& c : cases) {
        const auto wanted =
            ToBeShown(*session, [&](const auto& row) { return row[4] == Variant(c.client) || row[4] == Variant(-1); });
        EXPECT_EQ(wanted.size(), c.count) << c.client;
        EXPECT_TRUE(Shown(DatesOf(session, c.client)) == wanted) << c.client;
    }
}

TEST(DatesForReal, ASeminarSeesItsDates) {
    const PinnedNow now(kSampleDay);
    const auto session = SampleDatabase();
    colTermine list;
    EXPECT_EQ(list.Init(1, 1, session), true);
    EXPECT_EQ(list.Count(), 6);
    const auto seminar = New<clsSeminar>();
    seminar->Init(1, session);
    const auto wanted = ToBeShown(*session, [](const auto& row) { return row[5] == Variant(1); });
    EXPECT_TRUE(Shown(seminar->colTermine()) == wanted);
    EXPECT_EQ(list.Init(1, 2, session), true);
    EXPECT_EQ(list.Count(), 6) << "a common seminar's dates are common";
    EXPECT_EQ(list.Init(13, 2, session), true);
    EXPECT_EQ(list.Count(), 0) << "a seminar of another client";
}

TEST(DatesForReal, AnOpenDateSortsAsOfTodayAndEqualEndsSortByKey) {
    NOT_ON_A_SERVER("its clock cannot be pinned");
    const PinnedNow now(DateTime::Of(2010, 6, 15, 23, 59, 59));
    const auto session = SchemaDatabase();
    AddDate(*session, 5, "14.06.2010", "gestern");
    AddDate(*session, 4, "", "offen 4");
    AddDate(*session, 3, "16.06.2010", "morgen 3");
    AddDate(*session, 2, "16.06.2010", "morgen 2");
    AddDate(*session, 1, "", "offen 1");
    AddDate(*session, 6, "31.12.2011", "spät", -1);
    AddDate(*session, 7, "31.12.2011", "fremd", 6);
    EXPECT_EQ(TitlesOf(DatesOf(session, 5)),
              (std::vector<Text>{"spät", "morgen 2", "morgen 3", "offen 1", "offen 4", "gestern"}));
}

TEST(DatesForReal, TheEndOfAnOpenDateIsTodayInTheListAnd0AfterTheLoad) {
    const PinnedNow now(DateTime::Of(2010, 6, 15, 8, 0));
    const auto session = SchemaDatabase();
    AddDate(*session, 1, "");
    const auto date = DatesOf(session, 5)->Item("0000000001");
    EXPECT_EQ(date->EndeDatum(false), DateTime::Of(2010, 6, 15));
    EXPECT_EQ(date->EndeDatum(), DateTime());
    EXPECT_EQ(date->EndeDatum(false), DateTime());
    EXPECT_EQ(Value(*session, "SELECT EndeDatum FROM Sem_Termin_IT"), kNull);
}

TEST(DatesForReal, ListingWritesNothing) {
    const auto session = SampleDatabase();
    const char* const dates = "SELECT * FROM Sem_Termin_IT";
    const char* const days = "SELECT * FROM Sem_Termin_Termine_IT";
    const Rows dates_before = Select(*session, dates);
    const Rows days_before = Select(*session, days);
    DatesOf(session, 1);
    EXPECT_TRUE(Select(*session, dates) == dates_before);
    EXPECT_TRUE(Select(*session, days) == days_before);
}

TEST(DatesForReal, TitlesOfAllKindsComeBack) {
    const auto session = SchemaDatabase();
    AddDate(*session, 1, "31.12.2010", "Rock''n Roll: \"Größe\" für 50 % & mehr");
    AddDate(*session, 2, "30.12.2010", "{SemID} -- kein Kommentar");
    AddDate(*session, 3, "29.12.2010", "''");
    Write(*session, "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, EndeDatum) VALUES (4, 5, '28.12.2010')");
    const auto list = DatesOf(session, 5);
    EXPECT_EQ(TitlesOf(list),
              (std::vector<Text>{"Rock'n Roll: \"Größe\" für 50 % & mehr", "{SemID} -- kein Kommentar", "'", ""}));
    for (const auto& date : list->NewEnum()) {
        const Text title = date->Titel(false);
        EXPECT_EQ(date->Titel(), title) << "also behind the load";
    }
}

TEST(DatesForReal, AFilterNarrowsTheListAndABrokenOneGivesNone) {
    const auto session = SchemaDatabase();
    AddDate(*session, 1, "31.12.2010", "Rock''n Roll");
    AddDate(*session, 2, "30.12.2010", "Prüfung");
    EXPECT_EQ(TitlesOf(DatesOf(session, 5, " AND Titel LIKE '%rüf%'")), std::vector<Text>{"Prüfung"});
    EXPECT_EQ(TitlesOf(DatesOf(session, 5, " AND Titel = 'Rock''n Roll'")), std::vector<Text>{"Rock'n Roll"});
    EXPECT_EQ(TitlesOf(DatesOf(session, 5, " OR 1 = 1")), (std::vector<Text>{"Rock'n Roll", "Prüfung"}));
    for (const char* filter :
         {"Status = 2", " AND Titel = 'Rock'n Roll'", " AND Ort = 'Köln'", " AND ANNR = 100", "x", " -- "}) {
        const auto list = DatesOf(session, 5);
        const Bool listed = list->Init(-1, 5, session, filter);
        EXPECT_EQ(listed, filter == std::string_view(" -- ")) << filter;
        EXPECT_EQ(list->Count(), listed ? 2 : 0) << filter;
        EXPECT_EQ(session->LastErrorNumber() == 0, static_cast<bool>(listed)) << filter;
    }
}

TEST(DatesForReal, TheListOverParticipantsIsRefusedForItsUnqualifiedColumns) {
    const auto session = SampleDatabase();
    ASSERT_NE(Value(*session, "SELECT COUNT(*) FROM Sem_Teilnehmer_IT WHERE MDNr = 1 AND ANNr = 310"), Variant(0));
    constexpr Int32 kAmbiguousColumn = 209;
    for (const char* filter : {" AND ANNR = 310", " AND BWID = 1", " AND LAID = 1", ""}) {
        for (const Int32 seminar : {-1, 1}) {
            colTermine list;
            EXPECT_EQ(list.Init(seminar, 1, session, filter, true), false) << filter;
            EXPECT_EQ(session->LastErrorNumber(), kAmbiguousColumn) << session->LastErrorText();
            EXPECT_EQ(list.Count(), 0);
        }
    }
}

TEST(DatesForReal, ADateThatStandsInTheTableTwiceRaises457) {
    const auto session = EmptyDatabase();
    Write(*session,
          "CREATE TABLE Sem_Termin_IT (SemTerminID int, MDNr int, EndeDatum datetime, Titel nvarchar(255), Code nvarchar(20))");
    for (const int key : {1, 2, 1}) {
        Write(*session, "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr) VALUES (" + std::to_string(key) + ", 5)");
    }
    colTermine list;
    const auto error = RaisedBy([&] { return list.Init(-1, 5, session); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 457);
    EXPECT_EQ(ReadDescription(error->Description()).labels,
              (std::vector<std::string>{" LumoSeminar062.clsColTermine.LoadKeysFromDatabase",
                                        " LumoSeminar062.clsColTermine.Init"}));
    EXPECT_EQ(list.Count(), 1);
}

TEST(DatesForReal, ANewDateIsAddedWrittenAndGivenItsKey) {
    const PinnedNow now(kSampleDay);
    const auto session = SampleDatabase();
    const auto list = DatesOf(session, 1);
    const Int32 count = list->Count();
    auto date = New<clsTermin>();
    date->Init(0, session);
    date->MDNR(1);
    date->Titel("Müller & Söhne: \"Größe\"");
    EXPECT_EQ(list->Add(date), false);
    EXPECT_EQ(date->WriteToDatabase(), true);
    list->ChangeKey("0000000000", date->Key());
    EXPECT_EQ(date->Key(), "0000000082");
    EXPECT_EQ(list->Item("0000000082"), date);
    const auto again = DatesOf(session, 1);
    EXPECT_EQ(again->Count(), count + 1);
    EXPECT_EQ(again->Item("0000000082")->Titel(false), "Müller & Söhne: \"Größe\"");
    EXPECT_EQ(again->Item("0000000082")->EndeDatum(false), DateTime::Of(2010, 9, 6));
}

TEST(DatesForReal, RemoveDeletesTheDateAndItsSeriesWithTheLastUse) {
    const auto session = SchemaDatabase();
    Write(*session, "INSERT INTO Sem_Serien_IT (SerienID) VALUES (8)");
    Write(*session, "INSERT INTO Sem_Serien_IT (SerienID) VALUES (9)");
    for (const int key : {1, 2, 3}) AddDate(*session, key, "31.12.2010");
    Write(*session, "UPDATE Sem_Termin_IT SET SerienID = 9 WHERE SemTerminID < 3");
    Write(*session, "INSERT INTO Sem_Termin_Termine_IT (SemTerminID, Termin) VALUES (2, '31.12.2010')");
    const auto list = DatesOf(session, 5);
    const char* const keys_of_series = "SELECT SerienID FROM Sem_Serien_IT ORDER BY SerienID";
    EXPECT_EQ(list->Remove("0000000001"), true);
    EXPECT_EQ(Select(*session, keys_of_series), (Rows{{8}, {9}}));
    EXPECT_EQ(list->Remove(1), true);
    EXPECT_EQ(Select(*session, keys_of_series), (Rows{{8}}));
    EXPECT_EQ(list->Remove(1), true) << "a date without a series";
    EXPECT_EQ(Select(*session, keys_of_series), (Rows{{8}}));
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(Value(*session, "SELECT COUNT(*) FROM Sem_Termin_IT"), Variant(0));
    EXPECT_EQ(Value(*session, "SELECT COUNT(*) FROM Sem_Termin_Termine_IT"), Variant(1)) << "the days of a date stay";
}

TEST(DatesForReal, ADateThatTheDatabaseDoesNotLetGoStaysListed) {
    const auto session = SchemaDatabase();
    AddDate(*session, 1, "31.12.2010");
    Write(*session,
          "CREATE TABLE Urkunden (SemTerminID int NOT NULL, CONSTRAINT FK_Urkunden FOREIGN KEY (SemTerminID) REFERENCES "
          "Sem_Termin_IT (SemTerminID))");
    Write(*session, "INSERT INTO Urkunden (SemTerminID) VALUES (1)");
    const auto list = DatesOf(session, 5);
    EXPECT_EQ(list->Remove(1), false);
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(Value(*session, "SELECT COUNT(*) FROM Sem_Termin_IT"), Variant(1));
}

// Groups

Rows Groups(const Ref<colTermine>& list, Int32 kind) {
    const auto rows = list->Gruppen(kind);
    if (rows) return RowsOf(rows);
    ADD_FAILURE() << "refused";
    return {};
}

TEST(DateGroupsForReal, YearsAndMonthsCountAnOpenDateUnderTodayAndBudgetPeriodsLeaveItOut) {
    NOT_ON_A_SERVER("its clock cannot be pinned");
    const PinnedNow now(DateTime::Of(2012, 2, 29, 13, 0));
    const auto session = SchemaDatabase();
    AddDate(*session, 1, "01.12.2009");
    AddDate(*session, 2, "31.12.2009");
    AddDate(*session, 3, "01.01.2010", "Löten", -1);
    AddDate(*session, 4, "05.09.2010");
    AddDate(*session, 5, "31.10.2010");
    AddDate(*session, 6, "");
    AddDate(*session, 7, "01.07.2005", "Löten", 6);
    Write(*session,
          "INSERT INTO Sem_BudgetJahr_IT (JahrID, Von, Bis) VALUES (1, '01.01.2010', '31.12.2010'), (2, '01.01.2012', '31.12.2012')");
    const auto list = DatesOf(session, 5);
    EXPECT_EQ(Groups(list, 1), (Rows{{2012}, {2010}, {2009}}));
    EXPECT_EQ(Groups(list, 2), (Rows{{DateTime::Of(2012, 2, 1)},
                                     {DateTime::Of(2010, 10, 1)},
                                     {DateTime::Of(2010, 9, 1)},
                                     {DateTime::Of(2010, 1, 1)},
                                     {DateTime::Of(2009, 12, 1)}}));
    EXPECT_EQ(Groups(list, 3), (Rows{{"1/2010 - 12/2010", DateTime::Of(2010, 1, 1), DateTime::Of(2010, 12, 31)}}));
}

TEST(DateGroupsForReal, ColumnsHaveTheirNames) {
    const auto session = SchemaDatabase();
    AddDate(*session, 1, "15.06.2010");
    Write(*session, "INSERT INTO Sem_BudgetJahr_IT (JahrID, Von, Bis) VALUES (1, '01.01.2010', '31.12.2010')");
    const auto list = DatesOf(session, 5);
    EXPECT_EQ(list->Gruppen(1)->Fields().Item("Jahr").Value(), Variant(2010));
    EXPECT_EQ(list->Gruppen(2)->Fields().Item("JahrMonat").Value(), Variant(DateTime::Of(2010, 6, 1)));
    const auto periods = list->Gruppen(3);
    EXPECT_EQ(periods->Fields().Count(), 3);
    EXPECT_EQ(periods->Fields().Item("JahrMonat").Value(), Variant("1/2010 - 12/2010"));
    EXPECT_EQ(periods->Fields().Item("von").Value(), Variant(DateTime::Of(2010, 1, 1)));
    EXPECT_EQ(periods->Fields().Item("bis").Value(), Variant(DateTime::Of(2010, 12, 31)));
}

TEST(DateGroupsForReal, ADateThatEndsOnTheFirstOrLastDayOfAPeriodFallsOut) {
    const struct {
        const char* end;
        std::size_t periods;
    } cases[] = {
        {"31.03.2010", 0}, {"01.04.2010", 0}, {"02.04.2010", 1}, {"30.03.2011", 1}, {"31.03.2011", 0}, {"01.04.2011", 0}, {"", 0}};
    const PinnedNow now(DateTime::Of(2010, 6, 15));
    for (const auto& c : cases) {
        const auto session = SchemaDatabase();
        AddDate(*session, 1, c.end);
        Write(*session, "INSERT INTO Sem_BudgetJahr_IT (JahrID, Von, Bis) VALUES (1, '01.04.2010', '31.03.2011')");
        const auto list = DatesOf(session, 5);
        EXPECT_EQ(Groups(list, 3).size(), c.periods) << c.end;
        EXPECT_EQ(Groups(list, 1).size(), 1U) << c.end;
        EXPECT_EQ(Groups(list, 2).size(), 1U) << c.end;
    }
}

TEST(DateGroupsForReal, BudgetPeriodsAreSortedAsTextsAndMayOverlap) {
    const auto session = SchemaDatabase();
    for (const int key : {1, 2}) AddDate(*session, key, "15.06.2010");
    AddDate(*session, 3, "15.02.2011");
    Write(*session,
          "INSERT INTO Sem_BudgetJahr_IT (JahrID, Von, Bis) VALUES (1, '01.10.2009', '30.09.2010'), (2, '01.09.2009', '31.08.2010'), "
          "(3, '01.01.2011', '31.12.2011'), (4, '01.01.2012', '31.12.2012'), (5, NULL, '31.12.2012'), (6, '01.01.2009', NULL)");
    EXPECT_EQ(Groups(DatesOf(session, 5), 3),
              (Rows{{"9/2009 - 8/2010", DateTime::Of(2009, 9, 1), DateTime::Of(2010, 8, 31)},
                    {"10/2009 - 9/2010", DateTime::Of(2009, 10, 1), DateTime::Of(2010, 9, 30)},
                    {"1/2011 - 12/2011", DateTime::Of(2011, 1, 1), DateTime::Of(2011, 12, 31)}}));
}

TEST(DateGroupsForReal, GroupsTakeTheSeminarAndTheFilterOfTheList) {
    const auto session = SchemaDatabase();
    AddDate(*session, 1, "15.06.2010", "Löten");
    AddDate(*session, 2, "15.06.2011", "Prüfen");
    AddDate(*session, 3, "15.06.2012", "Prüfen");
    Write(*session, "UPDATE Sem_Termin_IT SET SemID = 3 WHERE SemTerminID < 3");
    Write(*session, "INSERT INTO Sem_BudgetJahr_IT (JahrID, Von, Bis) VALUES (1, '01.01.2009', '31.12.2019')");
    colTermine list;
    EXPECT_EQ(list.Init(3, 5, session), true);
    EXPECT_EQ(RowsOf(list.Gruppen(1)), (Rows{{2011}, {2010}}));
    EXPECT_EQ(list.Init(3, 5, session, " AND Titel = 'Löten'"), true);
    EXPECT_EQ(RowsOf(list.Gruppen(2)), (Rows{{DateTime::Of(2010, 6, 1)}}));
    EXPECT_EQ(RowsOf(list.Gruppen(3)).size(), 1U);
    EXPECT_EQ(list.Init(3, 5, session, " AND Titel = 'Fräsen'"), true);
    for (const Int32 kind : {1, 2, 3}) EXPECT_EQ(RowsOf(list.Gruppen(kind)), Rows{}) << kind;
}

TEST(DateGroupsForReal, AFilterOnParticipantsIsRefusedAndTheReferenceEmpty) {
    const auto session = SampleDatabase();
    colTermine list;
    EXPECT_EQ(list.Init(-1, 1, session, " AND ANNR = 310", true), false);
    for (const Int32 kind : {1, 2, 3}) {
        EXPECT_FALSE(list.Gruppen(kind)) << kind;
        EXPECT_TRUE(session->LastErrorText().ends_with("Invalid column name 'ANNR'.")) << session->LastErrorText();
    }
}

TEST(DateGroupsForReal, AnUnknownKindGivesRowsWithoutColumns) {
    const auto session = SampleDatabase();
    const auto list = DatesOf(session, 1);
    for (const Int32 kind : {0, 4}) {
        const auto rows = list->Gruppen(kind);
        ASSERT_TRUE(rows) << kind;
        EXPECT_EQ(rows->Eof(), true);
        EXPECT_EQ(rows->Fields().Count(), 0);
    }
}

TEST(DateGroupsForReal, TheSampleCompanyIsGroupedAsItsDatesSay) {
    NOT_ON_A_SERVER("its clock cannot be pinned");
    const PinnedNow now(kSampleDay);
    const auto session = SampleDatabase();
    std::set<DateTime, std::greater<>> months;
    std::set<Text, std::greater<>> periods;
    const Rows budget = Select(*session, "SELECT Von, Bis FROM Sem_BudgetJahr_IT");
    const auto month_and_year = [](const Variant& day) {
        const std::chrono::year_month_day date(To<DateTime>(day).Date());
        return std::to_string(static_cast<unsigned>(date.month())) + "/" + std::to_string(static_cast<int>(date.year()));
    };
    for (const auto& row : Select(*session, "SELECT EndeDatum FROM Sem_Termin_IT WHERE MDNr = 1 OR MDNr = -1")) {
        const DateTime end = row[0].IsNull() ? kSampleDay : To<DateTime>(row[0]);
        const std::chrono::year_month_day date(end.Date());
        months.insert(DateTime::Of(static_cast<int>(date.year()), static_cast<unsigned>(date.month()), 1));
        for (const auto& period : budget) {
            if (!row[0].IsNull() && end > To<DateTime>(period[0]) && end < To<DateTime>(period[1]))
                periods.insert(month_and_year(period[0]) + " - " + month_and_year(period[1]));
        }
    }
    ASSERT_FALSE(months.empty());
    const auto list = DatesOf(session, 1);
    EXPECT_EQ(Groups(list, 1), (Rows{{2010}, {2009}}));
    Rows month_rows;
    for (const DateTime month : months) month_rows.push_back({month});
    EXPECT_EQ(Groups(list, 2), month_rows);
    std::vector<Text> texts;
    for (const auto& row : Groups(list, 3)) texts.push_back(To<Text>(row[0]));
    EXPECT_EQ(texts, std::vector<Text>(periods.begin(), periods.end()));
    EXPECT_EQ(texts, (std::vector<Text>{"4/2010 - 3/2011", "4/2009 - 3/2010", "4/2008 - 3/2009"}));
}

// Days

Ref<colTerminTage> DaysOf(const Ref<DataSession>& session, Int32 date) {
    auto list = New<colTerminTage>();
    EXPECT_EQ(list->Init(date, session), true);
    return list;
}

Rows DayRows(DataSession& session) {
    return Select(session, "SELECT SemTerminID, Termin, BegUhr, EndUhr FROM Sem_Termin_Termine_IT ORDER BY SemTerminID, Termin");
}

const DateTime kTuesday = DateTime::Of(2010, 3, 2);
const DateTime kWednesday = DateTime::Of(2010, 3, 3);
const DateTime kEight = DateTime::TimeOfDay(8, 0);
const DateTime kFour = DateTime::TimeOfDay(16, 0);

TEST(DaysForReal, ADayIsWrittenReadUpdatedAndRemoved) {
    const auto session = SchemaDatabase();
    const auto list = DaysOf(session, 17);
    list->NewTerminTag(kWednesday, kEight, kFour);
    list->NewTerminTag(kTuesday, DateTime::TimeOfDay(13, 30, 59), DateTime::TimeOfDay(23, 59));
    const Variant half_past_one = DateTime::TimeOfDay(13, 30);
    EXPECT_EQ(DayRows(*session),
              (Rows{{17, kTuesday, half_past_one, DateTime::TimeOfDay(23, 59)}, {17, kWednesday, kEight, kFour}}));

    const auto again = DaysOf(session, 17);
    ASSERT_EQ(again->Count(), 2);
    EXPECT_EQ(again->Item(1)->Termin(), kTuesday) << "in calendar order";
    EXPECT_EQ(again->Item(1)->BegUhr(), DateTime::TimeOfDay(13, 30));
    EXPECT_EQ(again->Item(1)->EndUhr(), DateTime::TimeOfDay(23, 59));
    again->Item(1)->EndUhr(kFour);
    EXPECT_EQ(again->Item(1)->UpdateDatabase(), true);
    EXPECT_EQ(DayRows(*session), (Rows{{17, kTuesday, half_past_one, kFour}, {17, kWednesday, kEight, kFour}}));

    again->Remove("000000001720100303");
    EXPECT_EQ(again->Count(), 1);
    EXPECT_EQ(DayRows(*session), (Rows{{17, kTuesday, half_past_one, kFour}}));
    EXPECT_EQ(list->Count(), 2) << "the other list knows nothing of it";
    list->Remove("000000001720100303");
    EXPECT_EQ(list->Count(), 1) << "no row to delete is no refusal";
}

TEST(DaysForReal, TimesOf0AreStoredAs0000AndNotAsNull) {
    const auto session = SchemaDatabase();
    const auto list = DaysOf(session, 17);
    list->NewTerminTag(kTuesday, DateTime(), DateTime());
    EXPECT_EQ(DayRows(*session), (Rows{{17, kTuesday, DateTime(), DateTime()}}));
    EXPECT_EQ(list->Item(1)->UpdateDatabase(), true);
    EXPECT_EQ(DayRows(*session), (Rows{{17, kTuesday, DateTime(), DateTime()}}));
}

TEST(DaysForReal, ADayThatIsThereIsRefusedWith9999AndTheListStaysAsItWas) {
    const auto session = SchemaDatabase();
    const auto list = DaysOf(session, 17);
    list->NewTerminTag(kTuesday, kEight, kFour);
    const auto error = RaisedBy([&] { list->NewTerminTag(kTuesday, DateTime(), DateTime()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_NE(error->Description().find("PK_Sem_Termin_Termine_IT"), Text::npos) << error->Description();
    EXPECT_EQ(
        ReadDescription(error->Description()).labels,
        (std::vector<std::string>{"LUmoSeminar.clsTerminTag.WriteToDatabase", "LumoSeminar.colTerminTage.objNewTerminTag"}));
    EXPECT_EQ(list->Count(), 1);
    EXPECT_RAISES(9999, list->Item(1)->WriteToDatabase());
    EXPECT_EQ(DayRows(*session), (Rows{{17, kTuesday, kEight, kFour}}));
    DaysOf(session, 18)->NewTerminTag(kTuesday, kEight, kFour);
    EXPECT_EQ(DayRows(*session).size(), 2U) << "another date may have that day";
}

TEST(DaysForReal, AnUpdateOfADayWithoutARowSucceedsAndChangesNothing) {
    const auto session = SchemaDatabase();
    const auto list = DaysOf(session, 17);
    list->NewTerminTag(kTuesday, kEight, kFour);
    const auto day = list->Item(1);
    day->Termin(kWednesday);
    EXPECT_EQ(day->BegUhr(), DateTime());
    day->BegUhr(DateTime::TimeOfDay(10, 0));
    EXPECT_EQ(day->UpdateDatabase(), true);
    EXPECT_EQ(session->RowsAffected(), 0);
    EXPECT_EQ(DayRows(*session), (Rows{{17, kTuesday, kEight, kFour}}));
}

TEST(DaysForReal, ADayRemovedDirectlyStaysInTheListAndReads0) {
    const auto session = SchemaDatabase();
    const auto list = DaysOf(session, 17);
    list->NewTerminTag(kTuesday, kEight, kFour);
    EXPECT_EQ(list->Item(1)->RemoveTerminTag(), true);
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(list->Item(1)->BegUhr(), DateTime());
    EXPECT_EQ(DayRows(*session), Rows{});
}

TEST(DaysForReal, DaysOfADateWithoutAKeyAreRowsOfTheKey0AndMeetThereThoseOfOtherNewDates) {
    const auto session = SchemaDatabase();
    DaysOf(session, 0)->NewTerminTag(kTuesday, kEight, kFour);
    EXPECT_EQ(DayRows(*session), (Rows{{0, kTuesday, kEight, kFour}}));
    const auto other = DaysOf(session, 0);
    EXPECT_EQ(other->Count(), 1);
    EXPECT_EQ(other->Item(1)->Key(), "000000000020100302");
    EXPECT_RAISES(9999, other->NewTerminTag(kTuesday, kEight, kFour));
}

TEST(DaysForReal, DaysAtTheEdgesOfTheCalendarEitherComeBackOrAreRefused) {
    const struct {
        DateTime day;
        bool accepted;
    } cases[] = {
        {DateTime::Of(1753, 1, 1), true},  {DateTime::Of(9999, 12, 31), true},  {DateTime(), true},
        {DateTime::Of(2008, 2, 29), true}, {DateTime::Of(1752, 12, 31), false}, {DateTime::Of(100, 1, 1), false},
    };
    for (const auto& c : cases) {
        const auto session = SchemaDatabase();
        const auto list = DaysOf(session, 17);
        const auto error = RaisedBy([&] { list->NewTerminTag(c.day, kEight, kFour); });
        EXPECT_EQ(!error, c.accepted) << c.day.Days();
        EXPECT_EQ(list->Count(), c.accepted ? 1 : 0);
        EXPECT_EQ(DayRows(*session), (c.accepted ? Rows{{17, c.day, kEight, kFour}} : Rows{}));
        if (error) {
            EXPECT_EQ(error->Number(), 9999);
            continue;
        }
        EXPECT_EQ(DaysOf(session, 17)->Item(1)->Key(), list->Item(1)->Key());
        EXPECT_EQ(DaysOf(session, 17)->Item(1)->EndUhr(), kFour);
        list->Remove(1);
        EXPECT_EQ(DayRows(*session), Rows{});
    }
}

TEST(DaysForReal, TheDaysOfADateOfTheSampleCompanyStandInCalendarOrder) {
    const auto session = SampleDatabase();
    const auto dates = DatesOf(session, 1);
    std::size_t days_met = 0;
    for (const auto& date : dates->NewEnum()) {
        Rows days = Select(*session, "SELECT Termin, BegUhr, EndUhr FROM Sem_Termin_Termine_IT WHERE SemTerminID = " +
                                         std::to_string(date->SemTerminID()));
        std::ranges::sort(days, [](const auto& a, const auto& b) { return To<DateTime>(a[0]) < To<DateTime>(b[0]); });
        Rows listed;
        for (const auto& day : date->colTerminTage()->NewEnum())
            listed.push_back({day->Termin(), day->BegUhr(), day->EndUhr()});
        EXPECT_TRUE(listed == days) << date->Key();
        days_met += days.size();
    }
    EXPECT_GT(days_met, 100U);
}

}  // namespace
}  // namespace LumoSeminar
