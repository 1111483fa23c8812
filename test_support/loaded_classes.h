#pragma once

#include <string>
#include <vector>

#include <LumoSeminar/catalogue/clsSeminar.h>
#include <LumoSeminar/catalogue/focus_areas.h>
#include <LumoSeminar/enrolment/budget_years.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <LumoSeminar/scheduling/clsTerminTag.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <test_support/cost_statements.h>
#include <test_support/day_statements.h>
#include <test_support/focus_area_statements.h>
#include <test_support/loaded_class.h>
#include <test_support/need_statements.h>
#include <test_support/participant_statements.h>
#include <test_support/person_statements.h>
#include <test_support/seminar_statements.h>
#include <test_support/serie_statements.h>
#include <test_support/termin_properties.h>
#include <test_support/termin_statements.h>
#include <test_support/waitlist_statements.h>

/// For tests: the table of all classes that read their row when they are first asked.
namespace LumoSeminar::loaded {

inline int ColumnOf(const std::vector<std::string>& columns, const std::string& name) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i] == name) return static_cast<int>(i);
    }
    return -1;
}

inline LoadedClass Seminar() {
    using T = clsSeminar;
    const std::string label = " LumoSeminar062.clsSeminar.";
    LoadedClass loaded;
    loaded.name = "clsSeminar";
    loaded.bind = [](const Ref<DataSession>& session) -> Ref<Object> {
        auto seminar = New<clsSeminar>();
        seminar->Init(5, session);
        return seminar;
    };
    loaded.select = seminar_statements::Select(5);
    loaded.columns = seminar_statements::kColumns;
    loaded.full = seminar_statements::FullRow();
    loaded.closes = false;
    const auto money = Money::FromUnits;
    loaded.properties = {
        PropertyOf<T, Text>("SemTitel", &T::SemTitel, &T::SemTitel, "Brandschutz für Führungskräfte", "Löten", "<neues Seminar>"),
        PropertyOf<T, Int32>("MDNr", &T::MDNR, &T::MDNR, 5, 6),
        PropertyOf<T, Text>("SemCode", &T::SemCode, &T::SemCode, "BS-01", "LÖ-1"),
        PropertyOf<T, Int32>("Sachbearbeiter", &T::Sachbearbeiter, &T::Sachbearbeiter, 12, 13),
        PropertyOf<T, Int32>("Status", &T::Status, &T::Status, 2, 3, 1),
        PropertyOf<T, Int32>("InhaltZielID", &T::InhaltZielID, &T::InhaltZielID, 3, 4),
        PropertyOf<T, Int32>("TeilnehmerMIN", &T::TeilnehmerMIN, &T::TeilnehmerMIN, 4, 5),
        PropertyOf<T, Int32>("TeilnehmerMAX", &T::TeilnehmerMAX, &T::TeilnehmerMAX, 12, 13),
        PropertyOf<T, Int32>("TeilnehmerOPT", &T::TeilnehmerOPT, &T::TeilnehmerOPT, 8, 9),
        PropertyOf<T, Double>("Stunden", &T::Stunden, &T::Stunden, 6.5, 7.25, 8),
        PropertyOf<T, Int32>("Sitzungen", &T::Sitzungen, &T::Sitzungen, 3, 4, 1),
        PropertyOf<T, Int32>("SerienID", &T::SerienID, &T::SerienID, 7, 8),
        PropertyOf<T, Money>("KostenProTN", &T::KostenProTN, &T::KostenProTN, money(1'205'000), Money(1)),
        PropertyOf<T, Money>("Anzahlung", &T::Anzahlung, &T::Anzahlung, Money(20), Money(2)),
        PropertyOf<T, Money>("StornoKosten", &T::StornoKosten, &T::StornoKosten, money(255'000), Money(3)),
        PropertyOf<T, Money>("Abbruchkosten", &T::Abbruchkosten, &T::Abbruchkosten, Money(99), Money(4)),
        PropertyOf<T, Int32>("FristStorno", &T::FristStorno, &T::FristStorno, 14, 1),
        PropertyOf<T, Int32>("FristAbbruch", &T::FristAbbruch, &T::FristAbbruch, 15, 2),
        PropertyOf<T, Int32>("FristAnmeldung", &T::FristAnmeldung, &T::FristAnmeldung, 16, 3),
        PropertyOf<T, Int32>("Wiederholung", &T::Wiederholung, &T::Wiederholung, 24, 4),
    };
    for (auto& property : loaded.properties) {
        property.of_get = label + property.name + " -> Property GET";
        property.let_loads = false;
        property.column = ColumnOf(loaded.columns, property.name == "StornoKosten" ? "Stornokosten" : property.name);
    }
    loaded.missing = MissingRow::kLookedForAgain;
    loaded.refusal = Refusal::kTriedAgain;
    loaded.of_load = {label + "PropertiesInit"};
    loaded.of_row = {label + "InitPropertiesByRecordset"};
    loaded.misfits = {{3, "keine Zahl", 13}};
    return loaded;
}

inline LoadedClass Date() {
    const std::string label = " LumoSeminar062.clsTermin.";
    LoadedClass loaded;
    loaded.name = "clsTermin";
    loaded.bind = [](const Ref<DataSession>& session) -> Ref<Object> { return termin_properties::Bound(session, 17); };
    loaded.select = termin_statements::Select(17);
    loaded.columns = termin_statements::kColumns;
    loaded.full = termin_statements::FullRow();
    loaded.closes = false;
    for (const auto& of_date : termin_properties::All(17)) {
        auto property = Erased<clsTermin>(of_date.label, of_date.get, of_date.let);
        property.full = of_date.full;
        property.other = of_date.full;
        property.at_null = of_date.by_default;
        property.zero = of_date.zero;
        property.of_get = label + of_date.label + " --> GET";
        property.of_let = label + of_date.label + " --> LET";
        property.let_loads = of_date.label != "Sitzungen";
        property.column = ColumnOf(loaded.columns, of_date.label);
        loaded.properties.push_back(property);
    }
    loaded.refusal = Refusal::kTriedAgain;
    loaded.of_load = {label + "PropertiesInit"};
    loaded.of_row = {label + "InitPropertiesByRecordset"};
    const auto at = [&](const char* name) { return static_cast<std::size_t>(ColumnOf(loaded.columns, name)); };
    loaded.misfits = {{at("MDNr"), "keine Zahl", 13},  {at("Status"), 256, 6},
                      {at("Status"), -1, 6},           {at("SelfService"), 32768, 6},
                      {at("BeginnDatum"), 3000000, 6}, {at("VeranstaltungsOrtID"), 2147483648.0, 6}};
    return loaded;
}

inline LoadedClass Participant() {
    namespace statements = participant_statements;
    const std::string label = " LumoSeminar062.clsTeilnehmer.";
    LoadedClass loaded;
    loaded.name = "clsTeilnehmer";
    loaded.bind = [](const Ref<DataSession>& session) -> Ref<Object> { return statements::Bound(session); };
    loaded.select = statements::Select(7);
    loaded.columns = statements::kColumns;
    loaded.full = statements::FullRow();
    loaded.asks_for_connection = true;
    loaded.closes = false;
    for (const auto& of_record : statements::All()) {
        auto property = Erased<clsTeilnehmer>(of_record.label, of_record.get, of_record.let);
        property.full = of_record.full;
        property.other = of_record.full;
        property.at_null = of_record.at_null;
        property.zero = of_record.zero;
        property.of_get = label + of_record.label + " -> Property GET";
        property.of_let = label + of_record.label_of_let + " -> Property LET";
        property.let_loads = of_record.label != "LAID";
        property.column = ColumnOf(loaded.columns, of_record.label);
        loaded.properties.push_back(property);
    }
    auto key = PropertyOf<clsTeilnehmer, Int32>("TeilnehmerID", &clsTeilnehmer::TeilnehmerID, 7);
    key.zero = 7;
    key.of_get = label + "TeilnehmerID -> Property GET";
    loaded.properties.push_back(key);
    loaded.refusal = Refusal::kLeftAlone;
    loaded.of_load = {label + "PropertiesInit"};
    loaded.of_row = {" LumoSeminar062.clsTermin.InitPropertiesByRecordset"};
    loaded.script_missing = [](auto& script) { statements::ScriptDate(script, {}, 0); };
    const auto at = [&](const char* name) { return static_cast<std::size_t>(ColumnOf(loaded.columns, name)); };
    loaded.misfits = {{at("SemTerminID"), "keine Zahl", 13}, {at("Teilnahme"), 32768, 6},
                      {at("StornoKosten"), -32769, 6},       {at("ErfDatum"), 3000000, 6},
                      {at("EndUhrzeit"), "25 Uhr", 13},      {at("Ergebnis"), 2147483648.0, 6}};
    return loaded;
}

/// Its begin, its end and its step load; what is behind them does not.
inline LoadedClass Series() {
    using T = clsSerie;
    const auto time = [](int hours, int minutes) { return DateTime::TimeOfDay(hours, minutes); };
    LoadedClass loaded;
    loaded.name = "clsSerie";
    loaded.bind = [](const Ref<DataSession>& session) -> Ref<Object> { return serie_statements::Bound(session, 5); };
    loaded.select = serie_statements::Select(5);
    loaded.columns = serie_statements::kColumns;
    loaded.full = serie_statements::FullRow();
    loaded.properties = {
        PropertyOf<T, DateTime>("BeginnUhrzeit", &T::BeginnUhrzeit, &T::BeginnUhrzeit, time(16, 30), time(7, 0)),
        PropertyOf<T, DateTime>("EndeUhrzeit", &T::EndeUhrzeit, &T::EndeUhrzeit, time(18, 0), time(12, 0)),
        PropertyOf<T, Byte>("Tagefolge", &T::Tagefolge, &T::Tagefolge, 2, 9, 1),
        PropertyOf<T, Byte>("Taeglich", &T::Taeglich, &T::Taeglich, 3, 9, 1),
        PropertyOf<T, Int32>("Woche", &T::Woche, &T::Woche, 4, 9),
        PropertyOf<T, Int16>("Montag", &T::Montag, &T::Montag, -1, 9),
        PropertyOf<T, Int16>("Dienstag", &T::Dienstag, &T::Dienstag, 0, 9),
        PropertyOf<T, Int16>("Mittwoch", &T::Mittwoch, &T::Mittwoch, 1, 9),
        PropertyOf<T, Int16>("Donnerstag", &T::Donnerstag, &T::Donnerstag, -2, 9),
        PropertyOf<T, Int16>("Freitag", &T::Freitag, &T::Freitag, 2, 9),
        PropertyOf<T, Int16>("Samstag", &T::Samstag, &T::Samstag, 3, 9),
        PropertyOf<T, Int16>("Sonntag", &T::Sonntag, &T::Sonntag, 4, 9),
    };
    for (std::size_t i = 0; i < loaded.properties.size(); ++i) {
        auto& property = loaded.properties[i];
        property.of_get = "LumoSeminar.clsSerie." + property.name;
        property.get_loads = i < 3;
        property.let_loads = false;
        property.column = static_cast<int>(i);
    }
    loaded.missing = MissingRow::kLookedForAgain;
    loaded.refusal = Refusal::kTriedAgain;
    loaded.of_load = {"LUmoSeminar.clsSerie.PropertiesInit"};
    loaded.of_row = {"LUmoSeminar.clsSerie.InitPropertiesByRecordset"};
    loaded.misfits = {{0, "keine Zeit", 13}, {2, 256, 6}, {4, "zwei", 13}, {11, 32768, 6}};
    return loaded;
}

inline LoadedClass Day() {
    using T = clsTerminTag;
    const auto time = [](int hours, int minutes) { return DateTime::TimeOfDay(hours, minutes); };
    LoadedClass loaded;
    loaded.name = "clsTerminTag";
    loaded.bind = [](const Ref<DataSession>& session) -> Ref<Object> { return day_statements::BoundDay(session); };
    loaded.select = day_statements::SelectTimes(17, "02.03.2010");
    loaded.columns = day_statements::kTimeColumns;
    loaded.full = {time(8, 30), time(16, 45)};
    loaded.properties = {
        PropertyOf<T, DateTime>("BegUhr", &T::BegUhr, &T::BegUhr, time(8, 30), time(7, 0)),
        PropertyOf<T, DateTime>("EndUhr", &T::EndUhr, &T::EndUhr, time(16, 45), time(12, 0)),
    };
    for (auto& property : loaded.properties) {
        property.of_get = "LumoSeminar.clsTerminTag." + property.name;
        property.let_loads = false;
        property.column = ColumnOf(loaded.columns, property.name);
    }
    loaded.missing = MissingRow::kLookedForAgain;
    loaded.refusal = Refusal::kTriedAgain;
    loaded.of_load = {"LUmoSeminar.clsTerminTag.PropertiesInit"};
    loaded.of_row = {"LUmoSeminar.clsTerminTag.InitPropertiesByRecordset"};
    loaded.misfits = {{0, "vormittags", 13}, {1, "mittags", 13}};
    return loaded;
}

inline LoadedClass FocusAreaOfSeminar() {
    using T = clsSemSchwerpunkt;
    const std::string label = " LumoSeminar062.clsSemSchwerpunkt.";
    LoadedClass loaded;
    loaded.name = "clsSemSchwerpunkt";
    loaded.bind = [](const Ref<DataSession>& session) -> Ref<Object> {
        LumoConnection::Script other;
        other.AdoConnection();
        other.OpenSelect(focus_area_statements::SelectKeysOfSeminar(1)).Rows({"SchwerpunktID", "SemID"}, {{1, 1}});
        other.AdoConnection();
        colSemSchwerpunkte list;
        EXPECT_TRUE(list.Init(1, other.Session()));
        auto focus_area = list.Item(1);
        EXPECT_TRUE(focus_area->Init(7, 5, session));
        return focus_area;
    };
    loaded.select = focus_area_statements::SelectOfSeminar(5, 7);
    loaded.columns = {"Weiterbildungsschwerpunkt"};
    loaded.full = {"Übung \"Erste Hilfe\""};
    loaded.asks_for_connection = true;
    loaded.closes = false;
    loaded.properties = {
        PropertyOf<T, Text>("WBS", &T::WBS, &T::WBS, "Übung \"Erste Hilfe\"", "Führung"),
        PropertyOf<T, Int32>("SchwerpunktID", &T::SchwerpunktID, 7),
        PropertyOf<T, Int32>("SemID", &T::SemID, 5),
    };
    for (auto& property : loaded.properties) {
        property.of_get = label + property.name + " --> GET";
        property.let_loads = false;
    }
    loaded.missing = MissingRow::kLookedForAgain;
    loaded.refusal = Refusal::kTriedAgain;
    loaded.of_load = {label + "PropertiesInit"};
    return loaded;
}

inline LoadedClass FocusAreaOfDate() {
    using T = clsSemTerminSchwerpunkt;
    const std::string label = " LumoSeminar062.clsSemTerminSchwerpunkt.";
    LoadedClass loaded;
    loaded.name = "clsSemTerminSchwerpunkt";
    loaded.bind = [](const Ref<DataSession>& session) -> Ref<Object> {
        auto focus_area = New<clsSemTerminSchwerpunkt>();
        EXPECT_TRUE(focus_area->Init(7, 17, session));
        return focus_area;
    };
    loaded.select = focus_area_statements::SelectOfDate(17, 7);
    loaded.columns = {"WBS"};
    loaded.full = {"Übung \"Erste Hilfe\""};
    loaded.asks_for_connection = true;
    loaded.closes = false;
    loaded.properties = {
        PropertyOf<T, Text>("WBS", &T::WBS, &T::WBS, "Übung \"Erste Hilfe\"", "Führung"),
        PropertyOf<T, Int32>("SchwerpunktID", &T::SchwerpunktID, 7),
    };
    for (auto& property : loaded.properties) {
        property.of_get = label + property.name + " --> GET";
        property.of_let = label + property.name + " --> LET";
    }
    loaded.refusal = Refusal::kTriedAgain;
    loaded.of_load = {label + "PropertiesInit"};
    return loaded;
}

// Those whose load raises where it is refused; their members have no handler of their own.

inline LoadedClass WaitListEntry() {
    namespace statements = waitlist_statements;
    LoadedClass loaded;
    loaded.name = "clsSemWarteliste";
    loaded.bind = [](const Ref<DataSession>& session) -> Ref<Object> { return statements::Bound(session); };
    loaded.select = statements::SelectEntry(42);
    loaded.columns = statements::kColumns;
    loaded.full = statements::FullRow();
    for (const auto& of_entry : statements::Properties()) {
        auto property = Erased<clsSemWarteliste>(of_entry.name, of_entry.get, of_entry.let);
        property.full = of_entry.alone;
        property.other = of_entry.other;
        property.at_null = of_entry.zero;
        property.zero = of_entry.zero;
        loaded.properties.push_back(property);
    }
    loaded.of_load = {" in LumoSeminar.IsInitialized"};
    loaded.misfits = {{0, 2147483648.0, 6}, {1, 32768, 6},    {2, "fünf", 13}, {3, 2147483648.0, 6},
                      {4, "gestern", 13},   {5, -32769, 6},   {6, 1e9, 6},     {7, "siebzehn", 13},
                      {8, "hundert", 13},   {9, "gültig", 13}};
    return loaded;
}

inline LoadedClass Need() {
    namespace statements = need_statements;
    LoadedClass loaded;
    loaded.name = "clsANWBBedarf";
    loaded.bind = [](const Ref<DataSession>& session) -> Ref<Object> { return statements::Bound(session); };
    loaded.select = statements::Select(7);
    loaded.columns = statements::kColumns;
    loaded.full = statements::FullRow();
    int column = 0;
    for (const auto& of_need : statements::Properties()) {
        auto property = Erased<clsANWBBedarf>(of_need.name, of_need.get, of_need.let);
        property.full = of_need.full;
        property.other = of_need.full;
        property.at_null = of_need.zero;
        property.zero = of_need.zero;
        property.column = ++column;
        loaded.properties.push_back(property);
    }
    loaded.of_load = {" in LumoSeminar.IsInitialized"};
    loaded.misfits = {{0, "sieben", 13},  {1, 2147483648.0, 6}, {2, "hundert", 13}, {3, "x", 13}, {4, "kein Datum", 13},
                      {5, "gestern", 13}, {6, "bald", 13},      {8, 256, 6},        {8, -256, 6}, {8, "offen", 13}};
    return loaded;
}

inline LoadedClass CostLine() {
    using T = clsTeilnehmerKosten;
    LoadedClass loaded;
    loaded.name = "clsTeilnehmerKosten";
    loaded.bind = [](const Ref<DataSession>& session) -> Ref<Object> { return cost_statements::Bound(session); };
    loaded.select = cost_statements::SelectLine(7, 2);
    loaded.columns = cost_statements::kColumns;
    loaded.full = cost_statements::kLine;
    loaded.properties = {
        PropertyOf<T, Int32>("KostenArtID", &T::KostenArtID, &T::KostenArtID, 3, 5),
        PropertyOf<T, Single>("Kostenbetrag", &T::Kostenbetrag, &T::Kostenbetrag, 120.5F, -0.25F),
        PropertyOf<T, Int32>("Kost", &T::Kost, &T::Kost, 4110, -1),
    };
    for (auto& property : loaded.properties) property.column = ColumnOf(loaded.columns, property.name);
    loaded.of_load = {" in LumoSeminar.IsInitialized"};
    loaded.misfits = {{2, "drei", 13}, {3, 1e39, 6}, {4, 1e10, 6}};
    return loaded;
}

inline LoadedClass BudgetYear() {
    using T = clsSemBudgetJahr;
    const DateTime from = DateTime::Of(2009, 4, 1);
    const DateTime to = DateTime::Of(2010, 3, 31);
    const DateTime other = DateTime::Of(2009, 7, 1, 12, 30);
    LoadedClass loaded;
    loaded.name = "clsSemBudgetJahr";
    loaded.bind = [](const Ref<DataSession>& session) -> Ref<Object> {
        auto year = New<clsSemBudgetJahr>();
        year->Init(2, session);
        return year;
    };
    loaded.select = "Select JahrID,Von,Bis from Sem_BudgetJahr_IT where JahrID = 2";
    loaded.columns = {"JahrID", "Von", "Bis"};
    loaded.full = {2, from, to};
    loaded.properties = {PropertyOf<T, DateTime>("Von", &T::Von, &T::Von, from, other),
                         PropertyOf<T, DateTime>("Bis", &T::Bis, &T::Bis, to, other)};
    for (auto& property : loaded.properties) property.column = ColumnOf(loaded.columns, property.name);
    loaded.of_load = {" in LumoSeminar.IsInitialized"};
    loaded.misfits = {{2, "im März", 13}, {1, 1e9, 6}};
    return loaded;
}

/// Of each kind and of numbers that are none.
inline LoadedClass Person(const person_statements::Kind& kind) {
    using T = clsWBPerson;
    LoadedClass loaded;
    loaded.name = "clsWBPerson_" + kind.letters + std::to_string(kind.number);
    loaded.bind = [number = kind.number](const Ref<DataSession>& session) -> Ref<Object> {
        return person_statements::PersonOf(session, number);
    };
    loaded.select = kind.select;
    loaded.columns = {"Name", "Vorname", "Nummer"};
    loaded.full = person_statements::kLoeffler;
    loaded.properties = {PropertyOf<T, Text>("Nachname", &T::Nachname, &T::Nachname, "Löffler", "Ähre"),
                         PropertyOf<T, Text>("Vorname", &T::Vorname, &T::Vorname, "Käthe \"Kät\"", "Jörg's \"Ähre\""),
                         PropertyOf<T, Text>("PersNr", &T::PersNr, &T::PersNr, "B-2010-ä", "7")};
    for (int i = 0; i < 3; ++i) loaded.properties[static_cast<std::size_t>(i)].column = i;
    loaded.is_read_before_close = false;
    loaded.of_load = {" in LumoSeminar.IsInitializedPerson"};
    return loaded;
}

inline std::vector<LoadedClass> AllClasses() {
    std::vector<LoadedClass> classes = {
        Seminar(),         Date(),          Participant(), Series(),   Day(),       FocusAreaOfSeminar(),
        FocusAreaOfDate(), WaitListEntry(), Need(),        CostLine(), BudgetYear()};
    for (const auto& kind : person_statements::Kinds()) classes.push_back(Person(kind));
    return classes;
}

}  // namespace LumoSeminar::loaded
