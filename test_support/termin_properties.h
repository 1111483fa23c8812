#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <LumoSeminar/frame/errors.h>
#include <LumoSeminar/frame/variant.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <test_support/raises.h>

/// For tests: the properties of a date that load, for tables over all of them.
namespace LumoSeminar::termin_properties {

struct Property {
    /// As it stands in the error labels.
    std::string label;
    std::function<Variant(clsTermin&)> get;
    std::function<void(clsTermin&, const Variant&)> let;
    /// What it has in the full row of termin_statements.h.
    Variant full;
    /// Where the column is Null and where there is no row.
    Variant by_default;
    /// Where the row could not be read.
    Variant zero;
};

template <class T>
Property PropertyOf(const char* label, T (clsTermin::*get)(), void (clsTermin::*let)(T), T full, T by_default = {}) {
    return {label,
            [get](clsTermin& date) { return Variant((date.*get)()); },
            [let](clsTermin& date, const Variant& value) { (date.*let)(*value.If<T>()); },
            full,
            by_default,
            T{}};
}

template <class T>
Property PropertyOf(const char* label, T (clsTermin::*get)(Bool), void (clsTermin::*let)(T, Bool), T full) {
    return {label,
            [get](clsTermin& date) { return Variant((date.*get)(true)); },
            [let](clsTermin& date, const Variant& value) { (date.*let)(*value.If<T>(), true); },
            full,
            T{},
            T{}};
}

/// The property with a let that leaves the days of the date alone.
inline Property WithoutDays(Property property) {
    property.let = [let = std::move(property.let)](clsTermin& date, const Variant& value) {
        const Bool before = date.NewDelOnlyTag();
        date.NewDelOnlyTag(true);
        let(date, value);
        date.NewDelOnlyTag(before);
    };
    return property;
}

/// All that are columns, the key and Sitzungen left out.
inline std::vector<Property> Columns() {
    using T = clsTermin;
    return {
        PropertyOf<Int32>("MDNr", &T::MDNR, &T::MDNR, 5),
        PropertyOf<Byte>("Status", &T::Status, &T::Status, 3, 2),
        PropertyOf<Text>("Code", &T::Code, &T::Code, "BS-17"),
        PropertyOf<Text>("Titel", &T::Titel, &T::Titel, "Brandschutz für \"Führungskräfte\""),
        PropertyOf<Int32>("SemID", &T::SemID, &T::SemID, 105),
        PropertyOf<Int32>("InhaltZielID", &T::InhaltZielID, &T::InhaltZielID, 33),
        PropertyOf<Int16>("SelfService", &T::SelfService, &T::SelfService, -1),
        PropertyOf<Int32>("Sachbearbeiter", &T::Sachbearbeiter, &T::Sachbearbeiter, 12),
        WithoutDays(PropertyOf<DateTime>("BeginnDatum", &T::BeginnDatum, &T::BeginnDatum, DateTime::Of(2010, 3, 3))),
        WithoutDays(PropertyOf<DateTime>("EndeDatum", &T::EndeDatum, &T::EndeDatum, DateTime::Of(2010, 3, 5))),
        PropertyOf<DateTime>("BeginnUhrzeit", &T::BeginnUhrzeit, &T::BeginnUhrzeit, DateTime::TimeOfDay(8, 30)),
        PropertyOf<DateTime>("EndeUhrzeit", &T::EndeUhrzeit, &T::EndeUhrzeit, DateTime::TimeOfDay(16, 45)),
        PropertyOf<Int32>("MinTeil", &T::MinTeil, &T::MinTeil, 4),
        PropertyOf<Int32>("MaxTeil", &T::MaxTeil, &T::MaxTeil, 14),
        PropertyOf<Int32>("OptTeil", &T::OptTeil, &T::OptTeil, 8),
        PropertyOf<Double>("Stunden", &T::Stunden, &T::Stunden, 6.5, 8),
        PropertyOf<Int32>("SerienID", &T::SerienID, &T::SerienID, 7),
        PropertyOf<Money>("KostenProTN", &T::KostenProTN, &T::KostenProTN, Money::FromUnits(11'205'000)),
        PropertyOf<DateTime>("StornoDatum", &T::StornoDatum, &T::StornoDatum, DateTime::Of(2010, 2, 10)),
        PropertyOf<Money>("StornoKosten", &T::StornoKosten, &T::StornoKosten, Money::FromUnits(10'257'500)),
        PropertyOf<DateTime>("AbbruchDatum", &T::AbbruchDatum, &T::AbbruchDatum, DateTime::Of(2010, 2, 20)),
        PropertyOf<Money>("Abbruchkosten", &T::Abbruchkosten, &T::Abbruchkosten, Money::FromUnits(20'990'001)),
        PropertyOf<DateTime>("AnmeldefristDatum", &T::AnmeldefristDatum, &T::AnmeldefristDatum, DateTime::Of(2010, 2, 24)),
        PropertyOf<Int32>("BeurteilungID", &T::BeurteilungID, &T::BeurteilungID, 6),
        PropertyOf<Int32>("VeranstalterID", &T::VeranstalterID, &T::VeranstalterID, 31),
        PropertyOf<Int32>("VeranstaltungsOrtID", &T::VeranstaltungsOrtID, &T::VeranstaltungsOrtID, 41),
        PropertyOf<Text>("Bemerkung", &T::Bemerkung, &T::Bemerkung, "Größe des Raums: \"klein\" & hell"),
    };
}

/// Sitzungen, whose let does not load.
inline Property Sitzungen() {
    return PropertyOf<Int32>("Sitzungen", &clsTermin::Sitzungen, &clsTermin::Sitzungen, 2, 1);
}

/// The key, of a date bound to it.
inline Property SemTerminID(Int32 bound_to) {
    return PropertyOf<Int32>("SemTerminID", &clsTermin::SemTerminID, &clsTermin::SemTerminID, bound_to, bound_to);
}

/// The key, the columns and Sitzungen.
inline std::vector<Property> All(Int32 bound_to) {
    auto all = Columns();
    all.push_back(Sitzungen());
    all.push_back(SemTerminID(bound_to));
    return all;
}

inline void ExpectValues(clsTermin& date, const std::vector<Property>& properties, Variant Property::*value) {
    for (const Property& property : properties) EXPECT_EQ(property.get(date), property.*value) << property.label;
}

/// The seminar comes first, as it brings values of its own to a new date.
inline void LetAllColumns(clsTermin& date, Variant Property::*value) {
    for (const bool seminar : {true, false}) {
        for (const Property& property : Columns()) {
            if ((property.label == "SemID") == seminar) property.let(date, property.*value);
        }
    }
    Sitzungen().let(date, Sitzungen().*value);
}

using test_support::Labels;
using test_support::LabelsOf;

inline Ref<clsTermin> Bound(const Ref<DataSession>& session, Int32 key) {
    auto date = New<clsTermin>();
    EXPECT_EQ(date->Init(key, session), true);
    return date;
}

}  // namespace LumoSeminar::termin_properties
