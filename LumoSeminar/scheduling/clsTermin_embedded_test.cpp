#include <gtest/gtest.h>

#include <limits>

#include <LumoSeminar/LumoSeminar.h>
#include <test_support/comma_locale.h>
#include <test_support/embedded.h>
#include <test_support/raises.h>
#include <test_support/termin_properties.h>

namespace LumoSeminar {
namespace {

using namespace termin_properties;
using test_support::RaisedBy;
using test_support::SampleDatabase;
using test_support::SchemaDatabase;

Variant Value(DataSession& session, const Text& sql) {
    EXPECT_TRUE(session.OpenSelect(sql)) << session.LastErrorText();
    return session.Recordset()->Fields().Item(0).Value();
}

Variant CountOf(DataSession& session, const Text& rows) { return Value(session, "SELECT COUNT(*) FROM " + rows); }

/// The days with their times, as "dd.mm.yyyy hh:mm-hh:mm".
std::vector<Text> DaysOf(clsTermin& date) {
    std::vector<Text> days;
    for (const auto& day : date.colTerminTage()->NewEnum()) {
        days.push_back(DateText(day->Termin()) + " " + ClockText(day->BegUhr()) + "-" + ClockText(day->EndUhr()));
    }
    return days;
}

TEST(clsTerminForReal, ANewDateIsInsertedAndReadBackColumnByColumn) {
    const auto session = SchemaDatabase();
    const auto date = Bound(session, 0);
    LetAllColumns(*date, &Property::full);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(date->SemTerminID(), 1);
    ExpectValues(*Bound(session, 1), All(1), &Property::full);
    EXPECT_EQ(CountOf(*session, "Sem_Termin_IT"), Variant(1));
}

TEST(clsTerminForReal, TheKeyIsTheLargestAndOne) {
    const auto session = SampleDatabase();
    const auto date = Bound(session, 0);
    date->MDNR(1);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(date->Key(), "0000000082");
    EXPECT_EQ(date->DeleteFromDatabase(), true);
    const auto next = Bound(session, 0);
    EXPECT_EQ(next->WriteToDatabase(), true);
    EXPECT_EQ(next->SemTerminID(), 82) << "the key of a deleted last date is given again";
}

TEST(clsTerminForReal, BehindTheLargestKeyAnInsertIsRefused) {
    const auto session = SchemaDatabase();
    ASSERT_TRUE(session->ExecuteSql("INSERT INTO Sem_Termin_IT (SemTerminID, MDNr) VALUES (2147483647, 0)"));
    const auto date = Bound(session, 0);
    EXPECT_RAISES(9999, date->WriteToDatabase());
    EXPECT_EQ(date->SemTerminID(), 0);
    EXPECT_EQ(CountOf(*session, "Sem_Termin_IT"), Variant(1));
}

TEST(clsTerminForReal, ZeroesAreStoredAsNullOrAsZeroByColumn) {
    const auto session = SchemaDatabase();
    const auto date = Bound(session, 0);
    date->Status();
    LetAllColumns(*date, &Property::zero);
    EXPECT_EQ(date->WriteToDatabase(), true);
    const Text stored =
        "Sem_Termin_IT WHERE MDNr = 0 AND Status = 0 AND Code = '' AND Titel = '' AND SemID IS NULL AND InhaltZielID IS NULL AND "
        "SelfService = 0 AND Sachbearbeiter IS NULL AND BeginnDatum IS NULL AND EndeDatum IS NULL AND BeginnUhrzeit IS NULL AND "
        "EndeUhrzeit IS NULL AND MinTeil IS NULL AND MaxTeil IS NULL AND OptTeil IS NULL AND Stunden = 0 AND Sitzungen = 0 AND "
        "SerienID IS NULL AND KostenProTN = 0 AND StornoDatum IS NULL AND StornoKosten = 0 AND AbbruchDatum IS NULL AND "
        "AbbruchKosten = 0 AND AnmeldefristDatum IS NULL AND BeurteilungID IS NULL AND VeranstalterID = 0 AND "
        "VeranstaltungsOrtID IS NULL AND Bemerkung IS NULL";
    EXPECT_EQ(CountOf(*session, stored), Variant(1));
    ASSERT_TRUE(session->ExecuteSql("UPDATE Sem_Termin_IT SET Code = 'alt', VeranstalterID = NULL, SemID = 5"));
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(CountOf(*session, stored), Variant(1)) << "by the update, too";
    ExpectValues(*Bound(session, 1), Columns(), &Property::zero);
}

TEST(clsTerminForReal, NullsInEveryColumnReadAsTheDefaults) {
    const auto session = SchemaDatabase();
    ASSERT_TRUE(session->ExecuteSql("INSERT INTO Sem_Termin_IT (SemTerminID, MDNr) VALUES (17, 0)"));
    ExpectValues(*Bound(session, 17), All(17), &Property::by_default);
}

TEST(clsTerminForReal, AnUpdateChangesItsRowOnly) {
    const auto session = SampleDatabase();
    const auto date = Bound(session, 79);
    LetAllColumns(*date, &Property::full);
    EXPECT_EQ(date->WriteToDatabase(), true);
    ExpectValues(*Bound(session, 79), All(79), &Property::full);
    EXPECT_EQ(CountOf(*session, "Sem_Termin_IT"), Variant(81));
    EXPECT_EQ(CountOf(*session, "Sem_Termin_IT WHERE Code = 'BS-17'"), Variant(1));
}

TEST(clsTerminForReal, AnUpdateWritesItsTimesToAllDaysAlsoToThoseEditedOneByOne) {
    const auto session = SampleDatabase();
    const auto date = Bound(session, 77);
    EXPECT_EQ(DaysOf(*date), (std::vector<Text>{"23.11.2010 08:30-15:30", "24.11.2010 08:30-15:30"}));
    const auto day = date->colTerminTage()->Item(2);
    day->BegUhr(DateTime::TimeOfDay(10, 0));
    day->EndUhr(DateTime::TimeOfDay(11, 15));
    EXPECT_EQ(day->UpdateDatabase(), true);
    EXPECT_EQ(DaysOf(*date), (std::vector<Text>{"23.11.2010 08:30-15:30", "24.11.2010 10:00-11:15"}));
    date->EndeUhrzeit(DateTime::TimeOfDay(17, 5));
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(DaysOf(*date), (std::vector<Text>{"23.11.2010 08:30-17:05", "24.11.2010 08:30-17:05"}));
    EXPECT_EQ(DaysOf(*Bound(session, 78)), (std::vector<Text>{"24.11.2010 09:00-16:30"})) << "another date";
}

TEST(clsTerminForReal, DaysMadeBeforeTheInsertKeepTheKeyZero) {
    const auto session = SchemaDatabase();
    const auto date = Bound(session, 0);
    date->BeginnDatum(DateTime::Of(2010, 3, 3));
    EXPECT_EQ(DaysOf(*date), (std::vector<Text>{"03.03.2010 09:00-17:00"}));
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(DaysOf(*date), std::vector<Text>());
    EXPECT_EQ(CountOf(*session, "Sem_Termin_Termine_IT WHERE SemTerminID = 0"), Variant(1));
    EXPECT_EQ(Bound(session, 1)->BeginnDatum(), DateTime::Of(2010, 3, 3));
}

TEST(clsTerminForReal, TextsComeBackOrAreRefusedByInsertAndUpdateWithoutATrace) {
    const struct {
        Text text;
        bool accepted;
    } cases[] = {
        {"Müller & Söhne: \"Größe\" {SemID}", true},
        {"100 % [x] --kein Kommentar /* auch nicht */ a\\b", true},
        {"Zeile\r\nZeile", true},
        {Text(255, 'x'), true},
        {Text(256, 'x'), false},
        {"Rock'n Roll", false},
        {"'", false},
        {"', 'x", false},
        {"\xFF\xFE", false},
    };
    const auto session = SampleDatabase();
    Int32 dates = 81;
    for (const auto& c : cases) {
        SCOPED_TRACE(OneLine(c.text));
        for (const Int32 key : {0, 1}) {
            for (const bool title : {true, false}) {
                const auto date = Bound(session, key);
                const Text before = title ? date->Titel() : date->Bemerkung();
                title ? date->Titel(c.text) : date->Bemerkung(c.text);
                const auto error = RaisedBy([&] { return date->WriteToDatabase(); });
                EXPECT_EQ(!error.has_value(), c.accepted);
                EXPECT_EQ(date->SemTerminID() == 0, key == 0 && !c.accepted);
                if (error) {
                    EXPECT_EQ(error->Number(), 9999);
                    EXPECT_EQ(ReadDescription(error->Description()).text, session->LastErrorText());
                    EXPECT_EQ(LabelsOf(error), Labels{" LumoSeminar062.clsTermin.WriteToDatabase"});
                }
                const auto read = Bound(session, date->SemTerminID());
                EXPECT_EQ(title ? read->Titel() : read->Bemerkung(), c.accepted ? c.text : before);
            }
        }
        if (c.accepted) dates += 2;
        EXPECT_EQ(CountOf(*session, "Sem_Termin_IT"), Variant(dates));
    }
}

TEST(clsTerminForReal, UnderADecimalCommaCostsWithDecimalsAreRefusedWhereTheyKeepTheirComma) {
    const struct {
        const char* which;
        void (*let)(clsTermin&);
        bool accepted;
    } cases[] = {
        {"costs, hours", [](clsTermin& d) { d.KostenProTN(Money::FromUnits(11'205'000)), d.Stunden(6.5); }, true},
        {"whole costs", [](clsTermin& d) { d.StornoKosten(Money(1025)), d.Abbruchkosten(Money(2099)); }, true},
        {"withdrawal", [](clsTermin& d) { d.StornoKosten(Money::FromUnits(10'257'500)); }, false},
        {"calling off", [](clsTermin& d) { d.Abbruchkosten(Money::FromUnits(10'257'500)); }, false},
    };
    const auto session = SampleDatabase();
    const test_support::CommaLocale comma;
    for (const auto& c : cases) {
        for (const Int32 key : {0, 4}) {
            SCOPED_TRACE(c.which);
            const auto date = Bound(session, key);
            c.let(*date);
            const auto error = RaisedBy([&] { return date->WriteToDatabase(); });
            EXPECT_EQ(!error.has_value(), c.accepted);
            if (error) {
                EXPECT_EQ(error->Number(), 9999);
                continue;
            }
            const auto read = Bound(session, date->SemTerminID());
            EXPECT_EQ(read->Stunden(), date->Stunden());
            EXPECT_EQ(read->KostenProTN(), date->KostenProTN());
            EXPECT_EQ(read->StornoKosten(), date->StornoKosten());
            EXPECT_EQ(read->Abbruchkosten(), date->Abbruchkosten());
        }
    }
    EXPECT_EQ(CountOf(*session, "Sem_Termin_IT"), Variant(83));
}

TEST(clsTerminForReal, DaysLoseTheirTimeAndTimesTheirDayAndSeconds) {
    const auto session = SchemaDatabase();
    const auto date = Bound(session, 0);
    date->NewDelOnlyTag(true);
    for (const Int32 key : {0, 1}) {
        EXPECT_EQ(date->SemTerminID(), key);
        date->BeginnDatum(DateTime::Of(2010, 3, 3, 23, 59, 59));
        date->EndeDatum(DateTime::Of(2010, 3, 5, 0, 0, 1));
        date->BeginnUhrzeit(DateTime::Of(2010, 3, 3, 7, 5, 59));
        date->EndeUhrzeit(DateTime::Of(2010, 3, 3));
        date->StornoDatum(DateTime::Of(2010, 2, 10, 12, 0));
        date->AbbruchDatum(DateTime::TimeOfDay(12, 0));
        date->AnmeldefristDatum(DateTime::Of(9999, 12, 31, 23, 59, 59));
        EXPECT_EQ(date->WriteToDatabase(), true);
        EXPECT_EQ(date->BeginnDatum(), DateTime::Of(2010, 3, 3, 23, 59, 59)) << "the object keeps what was let";
        const auto read = Bound(session, 1);
        EXPECT_EQ(read->BeginnDatum(), DateTime::Of(2010, 3, 3));
        EXPECT_EQ(read->EndeDatum(), DateTime::Of(2010, 3, 5));
        EXPECT_EQ(read->BeginnUhrzeit(), DateTime::TimeOfDay(7, 5));
        EXPECT_EQ(read->EndeUhrzeit(), DateTime());
        EXPECT_EQ(read->StornoDatum(), DateTime::Of(2010, 2, 10));
        EXPECT_EQ(read->AbbruchDatum(), DateTime());
        EXPECT_EQ(read->AnmeldefristDatum(), DateTime::Of(9999, 12, 31));
        EXPECT_EQ(CountOf(*session,
                          "Sem_Termin_IT WHERE EndeUhrzeit = Convert(Datetime,'30.12.1899',104) AND "
                          "AbbruchDatum = Convert(Datetime,'30.12.1899',104)"),
                  Variant(1))
            << "midnight of a day and noon of no day are moments, not nothing";
        ASSERT_TRUE(session->ExecuteSql("UPDATE Sem_Termin_IT SET BeginnDatum = NULL, BeginnUhrzeit = NULL"));
    }
}

TEST(clsTerminForReal, ADayBeforeTheCalendarOfTheServerIsRefused) {
    const auto session = SampleDatabase();
    const auto date = Bound(session, 1);
    date->StornoDatum(DateTime::Of(1752, 12, 31));
    EXPECT_RAISES(9999, date->WriteToDatabase());
    date->StornoDatum(DateTime::Of(1753, 1, 1));
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(Bound(session, 1)->StornoDatum(), DateTime::Of(1753, 1, 1));
}

// The column and the let hold the same values, so the server never sees one that it would refuse.
TEST(clsTerminForReal, AStatusOverTheRangeEndsAtTheTypeOfTheLet) {
    const auto session = SampleDatabase();
    const auto date = Bound(session, 1);
    date->Status(To<Byte>(255));
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(Bound(session, 1)->Status(), 255);
    EXPECT_RAISES(6, date->Status(To<Byte>(256)));
    EXPECT_RAISES(6, date->Status(To<Byte>(-1)));
    EXPECT_EQ(date->Status(), 255);
    EXPECT_FALSE(session->ExecuteSql("UPDATE Sem_Termin_IT SET Status = 256 WHERE SemTerminID = 1"));
}

TEST(clsTerminForReal, NumbersAtTheEdgesComeBack) {
    const auto session = SchemaDatabase();
    const auto date = Bound(session, 0);
    date->MDNR(-2147483647 - 1);
    date->VeranstalterID(2147483647);
    date->SelfService(-32768);
    date->Stunden(1e-7);
    date->KostenProTN(Money::FromUnits(std::numeric_limits<std::int64_t>::max()));
    date->StornoKosten(Money::FromUnits(std::numeric_limits<std::int64_t>::min()));
    date->Abbruchkosten(Money::FromUnits(-1));
    EXPECT_EQ(date->WriteToDatabase(), true);
    const auto read = Bound(session, 1);
    EXPECT_EQ(read->MDNR(), -2147483647 - 1);
    EXPECT_EQ(read->VeranstalterID(), 2147483647);
    EXPECT_EQ(read->SelfService(), -32768);
    EXPECT_EQ(read->Stunden(), 1e-7);
    EXPECT_EQ(read->KostenProTN(), Money::FromUnits(std::numeric_limits<std::int64_t>::max()));
    EXPECT_EQ(read->StornoKosten(), Money::FromUnits(std::numeric_limits<std::int64_t>::min()));
    EXPECT_EQ(read->Abbruchkosten(), Money::FromUnits(-1));
}

TEST(clsTerminForReal, ASeminarGivesANewDateItsValues) {
    const auto session = SampleDatabase();
    const auto date = Bound(session, 0);
    date->SemID(13);
    EXPECT_EQ(date->MDNR(), 1);
    EXPECT_EQ(date->Code(), "");
    EXPECT_EQ(date->Titel(), "Zeichnungen lesen: Maße, Passungen, Oberflächen");
    EXPECT_EQ(date->InhaltZielID(), 7);
    EXPECT_EQ(date->Sachbearbeiter(), 13);
    EXPECT_EQ(date->MinTeil(), 5);
    EXPECT_EQ(date->MaxTeil(), 12);
    EXPECT_EQ(date->OptTeil(), 10);
    EXPECT_EQ(date->Stunden(), 16);
    EXPECT_EQ(date->Sitzungen(), 2);
    EXPECT_EQ(date->SerienID(), 0);
    EXPECT_EQ(date->KostenProTN(), Money(240));
    EXPECT_EQ(date->StornoKosten(), Money()) << "the seminar has 80";
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(Bound(session, 82)->objSeminar(), nullptr) << "not read yet";
    const auto read = Bound(session, 82);
    EXPECT_EQ(read->SemID(), 13);
    EXPECT_EQ(read->Titel(), "Zeichnungen lesen: Maße, Passungen, Oberflächen");
    EXPECT_EQ(read->objSeminar()->SemCode(), "FT-101");
}

TEST(clsTerminForReal, ASeminarOfWhichOnlyTheTitleIsKnownGivesTheDefaultsOfItsNulls) {
    const auto session = SampleDatabase();
    const auto date = Bound(session, 0);
    date->SemID(42);
    EXPECT_EQ(date->MDNR(), 2);
    EXPECT_EQ(date->Titel(), "Büroorganisation für kleine Teams");
    EXPECT_EQ(date->Stunden(), 8);
    EXPECT_EQ(date->Sitzungen(), 1);
    EXPECT_EQ(date->MaxTeil(), 0);
    EXPECT_EQ(date->KostenProTN(), Money());
}

TEST(clsTerminForReal, ASeminarGivesNothingToADateThatHasAKey) {
    const auto session = SampleDatabase();
    const auto date = Bound(session, 7);
    date->SemID(13);
    EXPECT_EQ(date->WriteToDatabase(), true);
    const auto read = Bound(session, 7);
    EXPECT_EQ(read->SemID(), 13);
    EXPECT_EQ(read->Titel(), "CNC-Drehen: Programmieren und Einrichten");
    EXPECT_EQ(read->MaxTeil(), 6);
}

TEST(clsTerminForReal, TheMailAddressIsThatOfTheClerkOnceTheDateIsRead) {
    const auto session = SampleDatabase();
    const auto date = Bound(session, 3);
    EXPECT_EQ(date->SachbearbeiterEmail(), "");
    EXPECT_EQ(date->Sachbearbeiter(), 16);
    const Variant expected = Value(*session, "SELECT email FROM arbeitnehmer WHERE MDNR = 1 AND ANNR = 131");
    EXPECT_EQ(Variant(date->SachbearbeiterEmail()), expected);
    EXPECT_NE(date->SachbearbeiterEmail(), "");
    date->Sachbearbeiter(12);
    EXPECT_EQ(date->SachbearbeiterEmail(), "melanie.koehler@oelschlaeger.example");
    ASSERT_TRUE(session->ExecuteSql("UPDATE arbeitnehmer SET email = NULL WHERE MDNR = 1 AND ANNR = 112"));
    EXPECT_EQ(date->SachbearbeiterEmail(), "");
    date->Sachbearbeiter(4711);
    EXPECT_EQ(date->SachbearbeiterEmail(), "");
    ASSERT_TRUE(session->ExecuteSql("DROP TABLE arbeitnehmer"));
    EXPECT_EQ(date->SachbearbeiterEmail(), "");
}

TEST(clsTerminForReal, OrganiserVenueAndSeriesOfARealDate) {
    const auto session = SampleDatabase();
    const auto date = Bound(session, 1);
    EXPECT_EQ(date->Veranstalter()->Name(), "Sprachenhaus Lingua viva");
    EXPECT_EQ(date->Veranstalter()->URL(), "http://www.lingua-viva.example");
    EXPECT_EQ(date->VeranstaltungsOrt()->Strasse(), "Aachener Straße 22");
    EXPECT_EQ(date->objSerie()->BeginnUhrzeit(), DateTime::TimeOfDay(14, 30));
    EXPECT_EQ(date->objSerie()->Donnerstag(), -1);
    EXPECT_EQ(date->colTerminTage()->Count(), 30);
    date->VeranstalterID(1);
    EXPECT_EQ(date->Veranstalter()->Name(), "Sprachenhaus Lingua viva") << "kept as first read";
    EXPECT_EQ(Bound(session, 81)->Veranstalter()->Name(), "") << "organiser 0";
}

TEST(clsTerminForReal, ADeleteLeavesTheDaysAndTakesTheSeriesWithItsLastUse) {
    const auto session = SchemaDatabase();
    const auto series = New<clsSerie>();
    series->Init(0, session);
    EXPECT_EQ(series->WriteToDatabase(), true);
    for (int i = 0; i < 2; ++i) {
        const auto date = Bound(session, 0);
        date->SerienID(1);
        EXPECT_EQ(date->WriteToDatabase(), true);
    }
    Bound(session, 1)->colTerminTage()->NewTerminTag(DateTime::Of(2010, 3, 3), DateTime(), DateTime());

    EXPECT_EQ(Bound(session, 1)->DeleteFromDatabase(), true);
    EXPECT_EQ(CountOf(*session, "Sem_Termin_IT"), Variant(1));
    EXPECT_EQ(CountOf(*session, "Sem_Termin_Termine_IT WHERE SemTerminID = 1"), Variant(1));
    EXPECT_EQ(CountOf(*session, "Sem_Serien_IT"), Variant(1)) << "the other date uses it";

    EXPECT_EQ(Bound(session, 2)->DeleteFromDatabase(), true);
    EXPECT_EQ(CountOf(*session, "Sem_Termin_IT"), Variant(0));
    EXPECT_EQ(CountOf(*session, "Sem_Serien_IT"), Variant(0));
    EXPECT_EQ(Bound(session, 2)->DeleteFromDatabase(), true) << "nothing is left to delete, and that is no failure";
}

TEST(clsTerminForReal, ADeleteIsFalseWithoutAnErrorWhereTheDatabaseRefuses) {
    const auto session = SampleDatabase();
    const auto date = Bound(session, 1);
    EXPECT_EQ(date->Status(), 4);
    ASSERT_TRUE(session->ExecuteSql("DROP TABLE Sem_Termin_IT"));
    EXPECT_EQ(date->DeleteFromDatabase(), false);
    EXPECT_EQ(Bound(session, 2)->DeleteFromDatabase(), false);
    EXPECT_RAISES(9999, date->WriteToDatabase());
    EXPECT_EQ(Bound(session, 2)->WriteToDatabase(), false);
    EXPECT_EQ(CountOf(*session, "Sem_Serien_IT"), Variant(7));
}

TEST(clsTerminForReal, AnotherSeriesAndASaveLeaveTheFormerSeriesInPlace) {
    const auto session = SampleDatabase();
    ASSERT_TRUE(session->ExecuteSql("UPDATE Sem_Termin_IT SET SerienID = NULL"));
    const auto date = Bound(session, 1);
    date->SerienID(4);
    EXPECT_EQ(date->WriteToDatabase(), true);
    date->SerienID(5);
    EXPECT_EQ(date->WriteToDatabase(), true);
    EXPECT_EQ(CountOf(*session, "Sem_Serien_IT"), Variant(7));
    EXPECT_EQ(Bound(session, 1)->SerienID(), 5);
}

}  // namespace
}  // namespace LumoSeminar
