#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/catalogue/clsSeminar.h>
#include <LumoSeminar/scheduling/clsSerie.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/clsTerminTag.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <LumoSeminar/scheduling/organiser_venue.h>
#include <test_support/day_statements.h>
#include <test_support/failures.h>
#include <test_support/raises.h>
#include <test_support/seminar_statements.h>
#include <test_support/serie_statements.h>
#include <test_support/termin_properties.h>
#include <test_support/termin_statements.h>

namespace LumoSeminar {
namespace {

using namespace termin_properties;
using namespace termin_statements;
using day_statements::kDayColumns;
using day_statements::SelectDays;
using LumoConnection::Script;
using test_support::ExpectFailures;
using test_support::kNotOk;
using test_support::kRaises;
using test_support::RaisedBy;

const std::string kLabel = " LumoSeminar062.clsTermin.";
const std::string kSeminar = " LumoSeminar062.clsSeminar.";

void ScriptDays(Script& script, int date, const std::vector<std::vector<Variant>>& days) {
    script.OpenSelect(SelectDays(date)).Rows(kDayColumns, days);
    script.CloseRows();
}

/// What is read about the organiser and the venue, which differ in their statement only.
struct Place {
    const char* member;
    std::string (*select)(int id);
    const std::vector<std::string>& columns;
    Int32 id_in_full_row;
    /// The name of what the date gives; the text "nothing" for an empty reference.
    Text (*name)(clsTermin& date);
    Ref<Object> (*object)(clsTermin& date);
    void (*let)(clsTermin& date, Int32 id);
};

template <class Child>
Text NameOf(const Ref<Child>& child) {
    return child ? child->Name() : "nothing";
}

const Place kPlaces[] = {
    {"Veranstalter", &SelectOrganiser, kOrganiserColumns, 31, [](clsTermin& d) { return NameOf(d.Veranstalter()); },
     [](clsTermin& d) -> Ref<Object> { return d.Veranstalter(); }, [](clsTermin& d, Int32 id) { d.VeranstalterID(id); }},
    {"VeranstaltungsOrt", &SelectVenue, kVenueColumns, 41, [](clsTermin& d) { return NameOf(d.VeranstaltungsOrt()); },
     [](clsTermin& d) -> Ref<Object> { return d.VeranstaltungsOrt(); },
     [](clsTermin& d, Int32 id) { d.VeranstaltungsOrtID(id); }},
};

void ScriptPlace(Script& script, const Place& place, Int32 id, const std::vector<std::vector<Variant>>& rows) {
    script.AdoConnection();
    script.ConnectionExecute(place.select(id)).Rows(place.columns, rows);
    script.CloseRows();
}

// The days.

TEST(clsTermin, EachReadOfTheDaysIsAnotherListAndAnotherSelect) {
    Script script;
    ScriptDays(script, 17, {{DateTime::Of(2010, 3, 3)}, {DateTime::Of(2010, 3, 5)}});
    ScriptDays(script, 17, {{DateTime::Of(2010, 3, 5)}});
    const auto date = Bound(script.Session(), 17);
    const auto first = date->colTerminTage();
    const auto second = date->colTerminTage();
    EXPECT_FALSE(first == second);
    EXPECT_EQ(first->Count(), 2);
    EXPECT_EQ(second->Count(), 1);
    EXPECT_EQ(second->Item(1)->Key(), "000000001720100305");
    EXPECT_EQ(second->SemTerminID(), 17);
    EXPECT_EQ(script.Report(), "") << "the date itself is not loaded";
}

TEST(clsTermin, TheDaysOfANewDateAreThoseUnderKeyZero) {
    Script script;
    ScriptDays(script, 0, {{DateTime::Of(2010, 3, 3)}});
    EXPECT_EQ(Bound(script.Session(), 0)->colTerminTage()->Item(1)->Key(), "000000000020100303");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, WithoutASessionTheListOfDaysIsEmpty) {
    const auto days = Bound(nullptr, 17)->colTerminTage();
    ASSERT_TRUE(days);
    EXPECT_EQ(days->Count(), 0);
}

TEST(clsTermin, ReadingTheDaysFailsUnderALabelThatNamesAnotherLibrary) {
    const Labels labels = {"LumoSeminar.colTerminTage.LoadKeysFromDataBase", "LumoSeminar.colTerminTage.Init",
                           " lumoRessourcen.clsRessource.colRessourcenDetails"};
    ExpectFailures([](Script& script) { ScriptDays(script, 17, {{DateTime::Of(2010, 3, 3)}}); },
                   [](const Ref<DataSession>& session) { Bound(session, 17)->colTerminTage(); },
                   {{1, kNotOk, 9999, labels}, {1, kRaises, 7001, labels}, {2, kRaises, 7001, labels}});
}

// The series.

TEST(clsTermin, TheSeriesIsKeptUntilTheDateHasAnother) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    const auto date = Bound(script.Session(), 17);
    const auto first = date->objSerie();
    EXPECT_EQ(first->SerienID(), 7);
    EXPECT_TRUE(date->objSerie() == first);
    date->SerienID(7);
    EXPECT_TRUE(date->objSerie() == first);
    date->SerienID(8);
    const auto second = date->objSerie();
    EXPECT_FALSE(second == first);
    EXPECT_EQ(second->SerienID(), 8);
    date->SerienID(7);
    EXPECT_FALSE(date->objSerie() == first) << "built anew, not found again";
    EXPECT_EQ(script.Report(), "") << "the load of the date and nothing of the series";
    serie_statements::ScriptLoad(script, 7, {serie_statements::FullRow()});
    EXPECT_EQ(date->objSerie()->Tagefolge(), 2);
    EXPECT_EQ(date->objSerie()->Woche(), 4);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, ASeriesThatTakesAnotherKeyIsBuiltAnew) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    const auto date = Bound(script.Session(), 17);
    const auto series = date->objSerie();
    series->SerienID(8);
    EXPECT_FALSE(date->objSerie() == series);
    EXPECT_EQ(date->objSerie()->SerienID(), 7);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, ADateWithoutASeriesHasSeriesZero) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {NullRow()});
    const auto series = Bound(script.Session(), 17)->objSerie();
    ASSERT_TRUE(series);
    EXPECT_EQ(series->SerienID(), 0);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, WhereTheLoadIsRefusedTheSeriesIsSeriesZero) {
    Script script;
    script.OpenSelect(Select(17)).Refused("time-out");
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    const auto date = Bound(script.Session(), 17);
    const auto zero = date->objSerie();
    ASSERT_TRUE(zero);
    EXPECT_EQ(zero->SerienID(), 0);
    EXPECT_EQ(date->objSerie()->SerienID(), 7);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, ReadingTheSeriesFailsWithTheLabelsOfTheSeriesNumberToo) {
    ExpectFailures(
        [](Script& script) { script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()}); },
        [](const Ref<DataSession>& session) { Bound(session, 17)->objSerie(); },
        {{1, kNotOk},
         {1, kRaises, 7001, {kLabel + "PropertiesInit", kLabel + "SerienID --> GET", "LumoSeminar.clsTermin.objSerie"}}});
}

// The seminar.

TEST(clsTermin, TheSeminarIsEmptyWhileTheNumberIsZeroAndDoesNotLoad) {
    Script script;
    const auto date = Bound(script.Session(), 17);
    EXPECT_FALSE(date->objSeminar()) << "not read yet, so there is no number";
    EXPECT_EQ(script.Report(), "");
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    EXPECT_EQ(date->SemID(), 105);
    EXPECT_EQ(date->objSeminar()->SemID(), 105);
    date->SemID(0);
    EXPECT_FALSE(date->objSeminar());
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, TheSeminarIsKeptUntilTheDateHasAnother) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    const auto date = Bound(script.Session(), 17);
    date->Status();
    const auto first = date->objSeminar();
    EXPECT_TRUE(date->objSeminar() == first);
    date->SemID(0);
    EXPECT_FALSE(date->objSeminar());
    date->SemID(105);
    EXPECT_TRUE(date->objSeminar() == first) << "number 0 does not drop it";
    date->SemID(106);
    const auto second = date->objSeminar();
    EXPECT_FALSE(second == first);
    EXPECT_EQ(second->SemID(), 106);
    EXPECT_EQ(script.Report(), "");
    script.OpenSelect(seminar_statements::Select(106)).Rows(seminar_statements::kColumns, {seminar_statements::FullRow()});
    EXPECT_EQ(date->objSeminar()->SemTitel(), "Brandschutz für Führungskräfte");
    EXPECT_EQ(date->objSeminar()->SemCode(), "BS-01");
    EXPECT_EQ(script.Report(), "");
}

// What a seminar gives to a date.

/// A new date with a value of its own wherever a seminar has one.
Ref<clsTermin> NewDateWithValues(const Ref<DataSession>& session) {
    const auto date = Bound(session, 0);
    for (const auto& property : Columns()) {
        if (property.label != "SemID") property.let(*date, property.full);
    }
    date->Sitzungen(2);
    return date;
}

TEST(clsTermin, ASeminarGivesANewDateElevenValuesAndTheirCodeIsNotAmongThem) {
    Script script;
    script.OpenSelect(Select(0)).Rows(kColumns, {});
    script.OpenSelect(seminar_statements::Select(5)).Rows(seminar_statements::kColumns, {seminar_statements::FullRow()});
    const auto date = NewDateWithValues(script.Session());
    date->SemID(5);
    EXPECT_EQ(date->SemID(), 5);
    EXPECT_EQ(date->MDNR(), 5);
    EXPECT_EQ(date->Titel(), "Brandschutz für Führungskräfte");
    EXPECT_EQ(date->InhaltZielID(), 3);
    EXPECT_EQ(date->Sachbearbeiter(), 12);
    EXPECT_EQ(date->MinTeil(), 4);
    EXPECT_EQ(date->MaxTeil(), 12);
    EXPECT_EQ(date->OptTeil(), 8);
    EXPECT_EQ(date->Stunden(), 6.5);
    EXPECT_EQ(date->Sitzungen(), 3);
    EXPECT_EQ(date->SerienID(), 7);
    EXPECT_EQ(date->KostenProTN(), Money::FromUnits(1'205'000));
    for (const auto& property : Columns()) {
        static const std::vector<std::string> kTaken = {"SemID",          "MDNr",     "Titel",      "InhaltZielID",
                                                        "Sachbearbeiter", "MinTeil",  "MaxTeil",    "OptTeil",
                                                        "Stunden",        "SerienID", "KostenProTN"};
        if (std::ranges::find(kTaken, property.label) == kTaken.end()) {
            EXPECT_EQ(property.get(*date), property.full) << property.label;
        }
    }
    EXPECT_EQ(date->Code(), "BS-17");
    EXPECT_EQ(script.Report(), "") << "no day is touched";
}

TEST(clsTermin, ASeminarWithoutARowEmptiesANewDateAndIsLookedForAtEachValue) {
    for (const bool refused : {false, true}) {
        Script script;
        script.OpenSelect(Select(0)).Rows(kColumns, {});
        for (int value = 0; value < 11; ++value) {
            const auto select = script.OpenSelect(seminar_statements::Select(5));
            if (refused) {
                select.Refused("time-out");
            } else {
                select.Rows(seminar_statements::kColumns, {});
            }
        }
        const auto date = NewDateWithValues(script.Session());
        date->SemID(5);
        EXPECT_EQ(date->SemID(), 5);
        EXPECT_EQ(date->MDNR(), 0);
        EXPECT_EQ(date->Titel(), "");
        EXPECT_EQ(date->InhaltZielID(), 0);
        EXPECT_EQ(date->Sachbearbeiter(), 0);
        EXPECT_EQ(date->MinTeil(), 0);
        EXPECT_EQ(date->MaxTeil(), 0);
        EXPECT_EQ(date->OptTeil(), 0);
        EXPECT_EQ(date->Stunden(), 0);
        EXPECT_EQ(date->Sitzungen(), 0);
        EXPECT_EQ(date->SerienID(), 0);
        EXPECT_EQ(date->KostenProTN(), Money());
        EXPECT_EQ(date->Code(), "BS-17");
        EXPECT_EQ(script.Report(), "");
    }
}

// A seminar without a row is looked for at each value: where one of these statements raises, the values before it are
// taken and those behind it are not.
TEST(clsTermin, TheValuesOfTheSeminarAreTakenInTheirOrder) {
    const std::vector<std::pair<std::string, std::string>> order = {{"MDNr", "MDNr"},
                                                                    {"Titel", "SemTitel"},
                                                                    {"InhaltZielID", "InhaltZielID"},
                                                                    {"Sachbearbeiter", "Sachbearbeiter"},
                                                                    {"MinTeil", "TeilnehmerMIN"},
                                                                    {"MaxTeil", "TeilnehmerMAX"},
                                                                    {"OptTeil", "TeilnehmerOPT"},
                                                                    {"Stunden", "Stunden"},
                                                                    {"Sitzungen", "Sitzungen"},
                                                                    {"SerienID", "SerienID"},
                                                                    {"KostenProTN", "KostenProTN"}};
    for (std::size_t failing = 0; failing < order.size(); ++failing) {
        SCOPED_TRACE(order[failing].first);
        Script script;
        script.OpenSelect(Select(0)).Rows(kColumns, {});
        for (std::size_t i = 0; i < failing; ++i) {
            script.OpenSelect(seminar_statements::Select(5)).Rows(seminar_statements::kColumns, {});
        }
        script.OpenSelect(seminar_statements::Select(5)).Raises(-2147467259, "connection lost", "Server");
        const auto date = NewDateWithValues(script.Session());
        const auto error = RaisedBy([&] {
            date->SemID(5);
            return 0;
        });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), -2147467259);
        EXPECT_EQ(LabelsOf(error), (Labels{kSeminar + "PropertiesInit", kSeminar + order[failing].second + " -> Property GET",
                                           kLabel + "SemID --> LET"}));
        EXPECT_EQ(date->SemID(), 5);
        for (const auto& property : All(0)) {
            const auto at = std::ranges::find(order, property.label, &std::pair<std::string, std::string>::first);
            if (at == order.end()) continue;
            const bool taken = static_cast<std::size_t>(at - order.begin()) < failing;
            EXPECT_EQ(property.get(*date), taken ? property.zero : property.full) << property.label;
        }
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, ASeminarGivesNothingToADateThatHasAKey) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    const auto date = Bound(script.Session(), 17);
    date->SemID(106);
    EXPECT_EQ(date->SemID(), 106);
    date->SemID(105);
    ExpectValues(*date, All(17), &Property::full);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, NoSeminarGivesNothing) {
    Script script;
    script.OpenSelect(Select(0)).Rows(kColumns, {});
    const auto date = NewDateWithValues(script.Session());
    date->SemID(0);
    EXPECT_EQ(date->SemID(), 0);
    EXPECT_EQ(date->Titel(), "Brandschutz für \"Führungskräfte\"");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, TheSameSeminarLetAgainGivesItsValuesAgainWithoutAStatement) {
    Script script;
    script.OpenSelect(Select(0)).Rows(kColumns, {});
    script.OpenSelect(seminar_statements::Select(5)).Rows(seminar_statements::kColumns, {seminar_statements::FullRow()});
    const auto date = Bound(script.Session(), 0);
    date->SemID(5);
    date->MaxTeil(99);
    date->SemID(5);
    EXPECT_EQ(date->MaxTeil(), 12);
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AnotherSeminarLetGivesItsOwnValues) {
    auto other = seminar_statements::FullRow();
    other[2] = "Löschübung";
    Script script;
    script.OpenSelect(Select(0)).Rows(kColumns, {});
    script.OpenSelect(seminar_statements::Select(5)).Rows(seminar_statements::kColumns, {seminar_statements::FullRow()});
    script.OpenSelect(seminar_statements::Select(6)).Rows(seminar_statements::kColumns, {other});
    const auto date = Bound(script.Session(), 0);
    date->SemID(5);
    EXPECT_EQ(date->Titel(), "Brandschutz für Führungskräfte");
    date->SemID(6);
    EXPECT_EQ(date->Titel(), "Löschübung");
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, TheLetOfTheSeminarOfANewDateFailsAsDocumentedAtEachStep) {
    ExpectFailures(
        [](Script& script) {
            script.OpenSelect(Select(0)).Rows(kColumns, {});
            script.OpenSelect(seminar_statements::Select(5)).Rows(seminar_statements::kColumns, {seminar_statements::FullRow()});
        },
        [](const Ref<DataSession>& session) { Bound(session, 0)->SemID(5); },
        {{1, kNotOk},
         {2, kNotOk, 0, {}, std::vector<std::string>(10, "OpenSelect: " + seminar_statements::Select(5))},
         {1, kRaises, 7001, {kLabel + "PropertiesInit", kLabel + "SemID --> LET"}},
         {2, kRaises, 7001, {kSeminar + "PropertiesInit", kSeminar + "MDNr -> Property GET", kLabel + "SemID --> LET"}}});
}

// The organiser and the venue.

TEST(clsTermin, OrganiserAndVenueAreReadOnceBehindTheLoad) {
    for (const auto& place : kPlaces) {
        SCOPED_TRACE(place.member);
        Script script;
        script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
        ScriptPlace(script, place, place.id_in_full_row, {NamedRow("Sprachenhaus \"Übersee\"", place.columns)});
        const auto date = Bound(script.Session(), 17);
        EXPECT_EQ(place.name(*date), "Sprachenhaus \"Übersee\"");
        EXPECT_EQ(place.name(*date), "Sprachenhaus \"Übersee\"");
        EXPECT_TRUE(place.object(*date) == place.object(*date));
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, AnotherNumberKeepsShowingTheOrganiserAndTheVenueReadFirst) {
    for (const auto& place : kPlaces) {
        SCOPED_TRACE(place.member);
        Script script;
        script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
        ScriptPlace(script, place, place.id_in_full_row, {NamedRow("Ölmühle", place.columns)});
        const auto date = Bound(script.Session(), 17);
        EXPECT_EQ(place.name(*date), "Ölmühle");
        place.let(*date, 99);
        EXPECT_EQ(place.name(*date), "Ölmühle");
        place.let(*date, 0);
        EXPECT_EQ(place.name(*date), "Ölmühle");
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, AnotherNumberBeforeTheFirstReadCounts) {
    for (const auto& place : kPlaces) {
        SCOPED_TRACE(place.member);
        Script script;
        script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
        ScriptPlace(script, place, 99, {NamedRow("Ölmühle", place.columns)});
        const auto date = Bound(script.Session(), 17);
        place.let(*date, 99);
        EXPECT_EQ(place.name(*date), "Ölmühle");
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, OrganiserAndVenueAreKeptBehindAnotherInitOnceThatHasLoaded) {
    for (const auto& place : kPlaces) {
        SCOPED_TRACE(place.member);
        Script script;
        script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
        ScriptPlace(script, place, place.id_in_full_row, {NamedRow("Ölmühle", place.columns)});
        script.OpenSelect(Select(18)).Refused("time-out");
        script.OpenSelect(Select(18)).Rows(kColumns, {NullRow()});
        const auto date = Bound(script.Session(), 17);
        EXPECT_EQ(place.name(*date), "Ölmühle");
        EXPECT_EQ(date->Init(18, script.Session()), true);
        EXPECT_EQ(place.name(*date), "nothing");
        EXPECT_EQ(place.name(*date), "Ölmühle");
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, ADateWithoutOrganiserAndVenueAsksForNumberZeroAndShowsEmptyTexts) {
    for (const auto& place : kPlaces) {
        SCOPED_TRACE(place.member);
        Script script;
        script.OpenSelect(Select(0)).Rows(kColumns, {});
        ScriptPlace(script, place, 0, {});
        EXPECT_EQ(place.name(*Bound(script.Session(), 0)), "");
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, WhereTheLoadIsRefusedThereIsNoOrganiserAndNoVenue) {
    for (const auto& place : kPlaces) {
        SCOPED_TRACE(place.member);
        Script script;
        script.OpenSelect(Select(17)).Refused("time-out");
        script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
        ScriptPlace(script, place, place.id_in_full_row, {NamedRow("Ölmühle", place.columns)});
        const auto date = Bound(script.Session(), 17);
        EXPECT_EQ(place.name(*date), "nothing");
        EXPECT_EQ(place.name(*date), "Ölmühle");
        EXPECT_EQ(script.Report(), "");
    }
}

TEST(clsTermin, ReadingOrganiserAndVenueFailsAsDocumentedAtEachStep) {
    for (const auto& place : kPlaces) {
        SCOPED_TRACE(place.member);
        const std::string label = std::string(" LumoSeminar.clsTermin.") + place.member;
        const Labels read = {" LumoSeminar.clsTerminVeranstaltungsOrt.Init", label};
        ExpectFailures(
            [&](Script& script) {
                script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
                ScriptPlace(script, place, place.id_in_full_row, {NamedRow("Ölmühle", place.columns)});
            },
            [&](const Ref<DataSession>& session) { place.name(*Bound(session, 17)); },
            {{1, kNotOk},
             {2, kNotOk, 0, {}, {"Open of the connection"}},
             {3, kNotOk, 7001, read},
             {1, kRaises, 7001, {kLabel + "PropertiesInit", label}},
             {2, kRaises, 7001, read},
             {3, kRaises, 7001, read},
             {4, kRaises, 7001, read}});
    }
}

TEST(clsTermin, LetsGoOfTheSessionTogetherWithItsChildren) {
    Script script;
    script.OpenSelect(Select(17)).Rows(kColumns, {FullRow()});
    for (const auto& place : kPlaces) ScriptPlace(script, place, place.id_in_full_row, {});
    ScriptDays(script, 17, {{DateTime::Of(2010, 3, 3)}});
    {
        const auto date = Bound(script.Session(), 17);
        date->Veranstalter();
        date->VeranstaltungsOrt();
        date->colTerminTage();
        date->objSerie();
        EXPECT_TRUE(date->objSeminar());
        EXPECT_FALSE(script.SessionReleased());
    }
    EXPECT_TRUE(script.SessionReleased());
    EXPECT_EQ(script.Report(), "");
}

TEST(clsTermin, AChildOutlivesItsDate) {
    Script script;
    ScriptDays(script, 17, {{DateTime::Of(2010, 3, 3)}});
    const auto days = Bound(script.Session(), 17)->colTerminTage();
    EXPECT_EQ(days->Count(), 1);
    EXPECT_FALSE(script.SessionReleased());
    EXPECT_EQ(script.Report(), "");
}

}  // namespace
}  // namespace LumoSeminar
