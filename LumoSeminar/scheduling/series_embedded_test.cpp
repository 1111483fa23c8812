#include <gtest/gtest.h>

#include <memory>

#include <LumoSeminar/LumoSeminar.h>
#include <test_support/embedded.h>
#include <test_support/processes.h>
#include <test_support/raises.h>
#include <test_support/serie_statements.h>

namespace LumoSeminar {
namespace {

using LumoConnection::EmbeddedSession;
using serie_statements::Bound;
using serie_statements::FullRow;
using serie_statements::LetFull;
using serie_statements::ValuesOf;
using test_support::RaisedBy;
using test_support::SampleDatabase;
using test_support::SchemaDatabase;

Ref<RecordSet> Rows(DataSession& session, const Text& sql) {
    EXPECT_TRUE(session.OpenSelect(sql)) << session.LastErrorText();
    return session.Recordset();
}

Variant Value(DataSession& session, const Text& sql) { return Rows(session, sql)->Fields().Item(0).Value(); }

void Write(DataSession& session, const Text& sql) {
    EXPECT_TRUE(session.ExecuteSql(sql)) << sql << ": " << session.LastErrorText();
}

Int32 CountOfSeries(DataSession& session) { return To<Int32>(Value(session, "SELECT COUNT(*) FROM Sem_Serien_IT")); }

bool IsThere(DataSession& session, Int32 key) {
    return Value(session, "SELECT COUNT(*) FROM Sem_Serien_IT WHERE SerienID = " + std::to_string(key)) == Variant(1);
}

TEST(SeriesForReal, ANewSeriesIsWrittenAndReadBack) {
    const auto session = SchemaDatabase();
    const auto series = Bound(session, 0);
    LetFull(*series);
    EXPECT_EQ(series->WriteToDatabase(), true);
    EXPECT_EQ(series->SerienID(), 1);
    EXPECT_EQ(ValuesOf(*Bound(session, 1)), FullRow());
    EXPECT_EQ(ValuesOf(*series), FullRow());

    const auto next = Bound(session, 0);
    EXPECT_EQ(next->WriteToDatabase(), true);
    EXPECT_EQ(next->SerienID(), 2);
}

TEST(SeriesForReal, EachWeekdayHasItsOwnColumn) {
    const auto session = SchemaDatabase();
    const struct {
        const char* column;
        Int16 (clsSerie::*get)();
        void (clsSerie::*let)(Int16);
    } weekdays[] = {
        {"Mo", &clsSerie::Montag, &clsSerie::Montag},     {"Di", &clsSerie::Dienstag, &clsSerie::Dienstag},
        {"Mi", &clsSerie::Mittwoch, &clsSerie::Mittwoch}, {"Do", &clsSerie::Donnerstag, &clsSerie::Donnerstag},
        {"Fr", &clsSerie::Freitag, &clsSerie::Freitag},   {"Sa", &clsSerie::Samstag, &clsSerie::Samstag},
        {"So", &clsSerie::Sonntag, &clsSerie::Sonntag},
    };
    for (const auto& weekday : weekdays) {
        SCOPED_TRACE(weekday.column);
        const auto series = Bound(session, 0);
        ((*series).*weekday.let)(-1);
        EXPECT_EQ(series->WriteToDatabase(), true);
        EXPECT_EQ(Value(*session, std::string("SELECT SerienID FROM Sem_Serien_IT WHERE ") + weekday.column + " = -1"),
                  Variant(series->SerienID()));
        const auto read = Bound(session, series->SerienID());
        read->Tagefolge();
        for (const auto& other : weekdays) {
            EXPECT_EQ(((*read).*other.get)(), other.column == weekday.column ? -1 : 0) << other.column;
        }
    }
}

TEST(SeriesForReal, AZeroWeekIsStoredAsNullAndReadBackAsZeroAndZeroTimesAreStoredAsMidnight) {
    const auto session = SchemaDatabase();
    EXPECT_EQ(Bound(session, 3)->WriteToDatabase(), true);
    EXPECT_EQ(Value(*session,
                    "SELECT COUNT(*) FROM Sem_Serien_IT WHERE SerienID = 3 AND Woche IS NULL AND Tagefolge = 0 AND taeglich = 0 "
                    "AND Mo = 0 AND So = 0"),
              Variant(1));
    EXPECT_EQ(Value(*session, "SELECT BeginnUhrzeit FROM Sem_Serien_IT"), Variant(DateTime()));
    EXPECT_EQ(Value(*session, "SELECT EndeUhrzeit FROM Sem_Serien_IT"), Variant(DateTime()));
    const auto read = Bound(session, 3);
    EXPECT_EQ(read->Tagefolge(), 0) << "a stored 0 is no Null";
    EXPECT_EQ(read->Taeglich(), 0);
    EXPECT_EQ(read->Woche(), 0);
}

TEST(SeriesForReal, NullsAreReadAsTheDefaults) {
    const auto session = SchemaDatabase();
    Write(*session, "INSERT INTO Sem_Serien_IT (SerienID) VALUES (4)");
    const std::vector<Variant> defaults = {DateTime(), DateTime(), Byte{1},  Byte{1},  0,        Int16{0},
                                           Int16{0},   Int16{0},   Int16{0}, Int16{0}, Int16{0}, Int16{0}};
    EXPECT_EQ(ValuesOf(*Bound(session, 4)), defaults);
}

TEST(SeriesForReal, TimesOfTheWholeDayComeBackWithoutTheirSecondsAndDays) {
    const auto session = SchemaDatabase();
    for (int hour = 0; hour < 24; ++hour) {
        for (const int minute : {0, 1, 29, 30, 59}) {
            const auto series = Bound(session, 0);
            series->BeginnUhrzeit(DateTime::TimeOfDay(hour, minute, 59));
            series->EndeUhrzeit(DateTime::Of(2010, 9, 6, hour, minute));
            EXPECT_EQ(series->WriteToDatabase(), true);
            const auto read = Bound(session, series->SerienID());
            EXPECT_EQ(read->BeginnUhrzeit(), DateTime::TimeOfDay(hour, minute));
            EXPECT_EQ(read->EndeUhrzeit(), DateTime::TimeOfDay(hour, minute));
        }
    }
}

TEST(SeriesForReal, KeysAndNumbersAtTheEdgesOfTheRange) {
    const auto session = SchemaDatabase();
    for (const Int32 number : {-1, 2147483647, -2147483647 - 1}) {
        const auto series = Bound(session, number);
        series->Tagefolge(255);
        series->Taeglich(255);
        series->Woche(number);
        series->Montag(32767);
        series->Sonntag(-32768);
        EXPECT_EQ(series->WriteToDatabase(), true);
        const auto read = Bound(session, number);
        EXPECT_EQ(read->Tagefolge(), 255);
        EXPECT_EQ(read->Taeglich(), 255);
        EXPECT_EQ(read->Woche(), number);
        EXPECT_EQ(read->Montag(), 32767);
        EXPECT_EQ(read->Sonntag(), -32768);
    }
    EXPECT_RAISES(6, Bound(session, 0)->WriteToDatabase());
    EXPECT_EQ(CountOfSeries(*session), 3);
}

TEST(SeriesForReal, AKeyThatIsThereIsRefusedWithTheTextOfTheDatabase) {
    const auto session = SampleDatabase();
    const auto series = Bound(session, 2);
    EXPECT_EQ(series->Tagefolge(), 2);
    series->Tagefolge(1);
    const auto error = RaisedBy([&] { return series->WriteToDatabase(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 9999);
    EXPECT_EQ(error->Source(), "LumoSeminar");
    EXPECT_EQ(error->Description(), session->LastErrorText() + "\r\nLUmoSeminar.clsSerie.WriteToDatabase");
    EXPECT_NE(error->Description().find("PK_Sem_Serien_IT"), Text::npos) << error->Description();
    EXPECT_EQ(Bound(session, 2)->Tagefolge(), 2);
    EXPECT_EQ(CountOfSeries(*session), 7);
}

TEST(SeriesForReal, TheSeriesOfTheSampleAreReadAsTheyStand) {
    const auto session = SampleDatabase();
    const auto rows = Rows(*session, "SELECT * FROM Sem_Serien_IT ORDER BY SerienID");
    int read = 0;
    for (; !rows->Eof(); rows->MoveNext(), ++read) {
        const auto field = [&](const char* name) { return rows->Fields().Item(name).Value(); };
        const auto series = Bound(session, To<Int32>(field("SerienID")));
        SCOPED_TRACE(series->Key());
        const Variant week = field("Woche");
        EXPECT_EQ(ValuesOf(*series),
                  (std::vector<Variant>{field("BeginnUhrzeit"), field("EndeUhrzeit"), field("Tagefolge"),
                                        field("taeglich"), week.IsNull() ? Variant(0) : week, field("Mo"), field("Di"),
                                        field("Mi"), field("Do"), field("Fr"), field("Sa"), field("So")}));
    }
    EXPECT_EQ(read, 7);
}

TEST(SeriesForReal, ACopyOfASeriesIsWrittenUnderAKeyOfItsOwn) {
    const auto session = SampleDatabase();
    const auto copy = Bound(session, 0);
    copy->UpdateProperty(Bound(session, 2));
    EXPECT_EQ(copy->SerienID(), 0);
    EXPECT_EQ(copy->WriteToDatabase(), true);
    EXPECT_EQ(copy->SerienID(), 8);
    EXPECT_EQ(ValuesOf(*Bound(session, 8)), ValuesOf(*Bound(session, 2)));
}

TEST(SeriesForReal, ASeriesIsRemovedInUseOrNotAndTwice) {
    const auto session = SampleDatabase();
    const auto series = Bound(session, 1);
    EXPECT_EQ(series->Tagefolge(), 1);
    EXPECT_EQ(series->RemoveSerie(), true);
    EXPECT_FALSE(IsThere(*session, 1));
    EXPECT_EQ(CountOfSeries(*session), 6);
    EXPECT_EQ(series->RemoveSerie(), true) << "no row is no refusal";
    EXPECT_EQ(series->WriteToDatabase(), true) << "it still holds what it read";
    EXPECT_EQ(Bound(session, 1)->EndeUhrzeit(), DateTime::TimeOfDay(16, 0));
}

TEST(SeriesForReal, ASeriesGoesWithTheLastSeminarOrDateThatUsesIt) {
    const auto session = SampleDatabase();
    const auto series = Bound(session, 7);
    auto seminar = New<clsSeminar>();
    seminar->Init(13, session);
    seminar->Status();
    seminar->SerienID(7);
    EXPECT_EQ(seminar->UpdateDatabase(), true);

    series->DeleteOldSerie(7);
    EXPECT_TRUE(IsThere(*session, 7)) << "a seminar and a date";
    Write(*session, "UPDATE Sem_Termin_IT SET SerienID = NULL WHERE SerienID = 7");
    series->DeleteOldSerie(7);
    EXPECT_TRUE(IsThere(*session, 7)) << "a seminar";
    seminar->SerienID(0);
    EXPECT_EQ(seminar->UpdateDatabase(), true);
    Write(*session, "UPDATE Sem_Termin_IT SET SerienID = 7 WHERE SemTerminID = 1");
    series->DeleteOldSerie(7);
    EXPECT_TRUE(IsThere(*session, 7)) << "a date";
    Write(*session, "UPDATE Sem_Termin_IT SET SerienID = 1 WHERE SemTerminID = 1");
    series->DeleteOldSerie(7);
    EXPECT_FALSE(IsThere(*session, 7));
    EXPECT_EQ(CountOfSeries(*session), 6);
}

TEST(SeriesForReal, DeleteOldSerieCountsTheUsesOfItsArgumentButDeletesTheRowOfItsOwnKey) {
    const auto session = SampleDatabase();
    const auto series = Bound(session, 1);
    series->DeleteOldSerie(2);
    EXPECT_TRUE(IsThere(*session, 1)) << "dates use 2";
    series->DeleteOldSerie(99);
    EXPECT_FALSE(IsThere(*session, 1)) << "nothing uses 99, and 1 goes, which dates use";
    EXPECT_TRUE(IsThere(*session, 2));
}

TEST(SeriesForReal, UsesThatCannotBeCountedCountAsNone) {
    const auto session = SampleDatabase();
    Write(*session, "DROP TABLE Sem_Katalog_IT");
    const auto series = Bound(session, 1);
    series->DeleteOldSerie(1);
    EXPECT_TRUE(IsThere(*session, 1)) << "the dates are still counted";
    Write(*session, "DROP TABLE Sem_Termin_IT");
    series->DeleteOldSerie(1);
    EXPECT_FALSE(IsThere(*session, 1));
}

TEST(SeriesForReal, WithoutTheTableReadsAreSilentAndWritesRaise9999) {
    const auto session = SchemaDatabase();
    Write(*session, "DROP TABLE Sem_Serien_IT");
    const auto series = Bound(session, 5);
    EXPECT_EQ(series->Tagefolge(), 0);
    EXPECT_RAISES(9999, series->WriteToDatabase());
    EXPECT_RAISES(9999, series->RemoveSerie());
    EXPECT_RAISES(9999, series->DeleteOldSerie(5));
}

TEST(SeriesForReal, AListStaysEmpty) {
    const auto session = SampleDatabase();
    colSerie list;
    EXPECT_EQ(list.Init(session), false);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Add(Bound(session, 2))->Tagefolge(), 2);
    EXPECT_EQ(list.Init(session), false);
    EXPECT_EQ(list.Count(), 1);
    list.Remove(1);
    EXPECT_TRUE(IsThere(*session, 2));
}

using Texts = std::vector<Text>;

Texts TextsOf(clsTerminVeranstaltungsOrt& v) {
    return {v.Name(), v.PLZ(), v.Ort(), v.Strasse(), v.Ansprechpartner(), v.Telefon(), v.Fax(), v.Sachbearbeiter()};
}

Texts TextsOf(clsTerminVeranstalter& o) {
    return {o.Name(),           o.PLZ(),   o.Ort(), o.Strasse(),      o.Ansprechpartner(), o.Telefon(), o.Fax(),
            o.Sachbearbeiter(), o.Email(), o.URL(), o.Mobiltelefon(), o.Bemerkungen()};
}

/// The columns of the current row by their names, an empty text for a Null.
Texts TextsOf(RecordSet& rows, const std::vector<std::string>& columns) {
    Texts texts;
    for (const auto& column : columns) {
        const Variant value = rows.Fields().Item(column).Value();
        texts.push_back(value.IsNull() ? Text() : To<Text>(value));
    }
    return texts;
}

const std::vector<std::string> kVenueColumns = {"Name",          "PLZ",     "Ort", "Strasse",
                                                "Anspr_partner", "Telefon", "Fax", "Sachbearbeiter"};
const std::vector<std::string> kOrganiserColumns = {"Name",          "PLZ",     "Ort",          "Strasse",
                                                    "Anspr_partner", "Telefon", "Fax",          "Sachbearbeiter",
                                                    "EMail",         "URL",     "Mobiltelefon", "Bemerkungen"};

/// Reads each row of a table as an object, and compares. Gives the number of rows.
template <class Class>
int CompareAll(const Ref<DataSession>& session, const Text& table, const std::vector<std::string>& columns) {
    const auto rows = Rows(*session, "SELECT * FROM " + table);
    int count = 0;
    for (; !rows->Eof(); rows->MoveNext(), ++count) {
        const auto key = To<Int32>(rows->Fields().Item("ID").Value());
        Class object;
        EXPECT_EQ(object.Init(key, session), true);
        EXPECT_EQ(TextsOf(object), TextsOf(*rows, columns)) << table << " " << key;
        EXPECT_NE(object.Name(), "") << table << " " << key;
    }
    return count;
}

TEST(OrganisersForReal, TheSampleIsReadAsItStands) {
    const auto session = SampleDatabase();
    EXPECT_EQ(CompareAll<clsTerminVeranstalter>(session, "sysIData_Veranstalter", kOrganiserColumns), 11);
    EXPECT_EQ(CompareAll<clsTerminVeranstaltungsOrt>(session, "sysIData_VOrte", kVenueColumns), 9);
    clsTerminVeranstalter organiser;
    organiser.Init(2, session);
    EXPECT_EQ(TextsOf(organiser), (Texts{"Gesundheitswerkstatt am Rhein", "50679", "Köln", "Siegburger Straße 40",
                                         "Dörte Hülsmann", "0221 4710 230", "", "mkoehler", "info@gesundheitswerkstatt.example",
                                         "http://www.gesundheitswerkstatt.example", "0172 9925904", ""}));
}

TEST(OrganisersForReal, AKeyWithoutARowGivesEmptyTextsAndARowOfKeyZeroIsRead) {
    const auto session = SampleDatabase();
    for (const Int32 key : {0, 99, -1}) {
        clsTerminVeranstalter organiser;
        EXPECT_EQ(organiser.Init(key, session), true);
        EXPECT_EQ(TextsOf(organiser), Texts(12));
        clsTerminVeranstaltungsOrt venue;
        EXPECT_EQ(venue.Init(key, session), true);
        EXPECT_EQ(TextsOf(venue), Texts(8));
    }
    Write(*session, "INSERT INTO sysIData_VOrte (ID, Name) VALUES (0, N'Überall')");
    clsTerminVeranstaltungsOrt venue;
    EXPECT_EQ(venue.Init(0, session), true);
    EXPECT_EQ(TextsOf(venue), (Texts{"Überall", "", "", "", "", "", "", ""}));
}

TEST(OrganisersForReal, AnOrganiserStaysAsItWasRead) {
    const auto session = SampleDatabase();
    clsTerminVeranstalter organiser;
    organiser.Init(6, session);
    Write(*session, "UPDATE sysIData_Veranstalter SET Ort = N'Nürnberg' WHERE ID = 6");
    EXPECT_EQ(organiser.Ort(), "München");
    organiser.Init(6, session);
    EXPECT_EQ(organiser.Ort(), "Nürnberg");
}

TEST(OrganisersForReal, WhatTheDatabaseRefusesKeepsItsNumberUnderTheLabelOfTheVenue) {
    const auto session = SchemaDatabase();
    Write(*session, "DROP TABLE sysIData_Veranstalter");
    clsTerminVeranstalter organiser;
    const auto error = RaisedBy([&] { return organiser.Init(1, session); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 208);
    EXPECT_NE(error->Description().find("sysIData_Veranstalter"), Text::npos) << error->Description();
    EXPECT_EQ(ReadDescription(error->Description()).labels,
              (std::vector<std::string>{" LumoSeminar.clsTerminVeranstaltungsOrt.Init"}));
}

TEST(OrganisersForReal, AClosedDatabaseIsOpenedAgainAndOneThatIsGoneRaises) {
    auto folder = std::make_unique<test_support::Folder>();
    const auto session = New<EmbeddedSession>();
    ASSERT_TRUE(session->Connect("Provider=Embedded;Data Source=" + folder->File("lumo.db") + ";Sync=Normal", "sa", "", 30));
    test_support::RunSchemaFile(*session, "schema.sql");
    Write(*session, "INSERT INTO sysIData_Veranstalter (ID, Name) VALUES (1, N'Prüf- und Schulungsdienst')");
    session->Close();
    clsTerminVeranstalter organiser;
    EXPECT_EQ(organiser.Init(1, session), true);
    EXPECT_TRUE(session->IsOpen());
    EXPECT_EQ(organiser.Name(), "Prüf- und Schulungsdienst");

    session->Close();
    folder.reset();
    clsTerminVeranstalter unread;
    const auto error = RaisedBy([&] { return unread.Init(1, session); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), session->LastErrorNumber());
    EXPECT_NE(error->Number(), 0);
    EXPECT_EQ(
        ReadDescription(error->Description()).labels,
        (std::vector<std::string>{"LumoSeminar.common.OpenADOConnection", " LumoSeminar.clsTerminVeranstaltungsOrt.Init"}));
    EXPECT_EQ(TextsOf(unread), Texts(12));
}

}  // namespace
}  // namespace LumoSeminar
