#pragma once

#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <LumoSeminar/catalogue/clsSeminar.h>
#include <LumoSeminar/catalogue/colSeminare.h>
#include <LumoSeminar/catalogue/focus_areas.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <LumoSeminar/needs/colANWBBedarf.h>
#include <LumoSeminar/scheduling/clsSerie.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/clsTerminTag.h>
#include <LumoSeminar/scheduling/colTerminTage.h>
#include <LumoSeminar/scheduling/colTermine.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>
#include <LumoSeminar/waitlist/colSemWarteliste.h>
#include <test_support/any_list.h>
#include <test_support/date_list_statements.h>
#include <test_support/day_statements.h>
#include <test_support/focus_area_statements.h>
#include <test_support/need_statements.h>
#include <test_support/participant_statements.h>
#include <test_support/seminar_statements.h>
#include <test_support/serie_list.h>
#include <test_support/serie_statements.h>
#include <test_support/waitlist_statements.h>

/// For tests: the table of all lists, each for the owner that Init is told.
namespace LumoSeminar::lists {

using test_support::kNotOk;
using test_support::kRaises;

/// A list that is made and read like this.
template <class List>
std::function<std::unique_ptr<AnyList>()> Reads(typename ListOf<List>::InitOf init) {
    return [init] { return std::make_unique<ListOf<List>>(init); };
}

inline const std::string kOpen = "Open of the connection";
inline const Variant kNull = Variant::Null();

inline ListKind Seminars() {
    const std::string label = " LumoSeminar062.clsColSeminar.";
    ListKind kind;
    kind.name = "colSeminare";
    kind.make = Reads<colSeminare>([](auto& l, Int32 o, const auto& s) { return Variant(l.Init(o, s)); });
    kind.select = seminar_statements::SelectKeys;
    kind.columns = {"SemID"};
    kind.row = [](Int32, Int32 number) { return Row{number}; };
    kind.key = TenDigits;
    kind.of_load = {label + "LoadKeysFromDatabase", label + "Init"};
    kind.without_a_session = {label + "Init"};
    kind.of_item = {label + "Item"};
    kind.of_remove = {label + "Item", " LumoSeminar062.clsColSeminare.Add"};
    kind.removes_through_item = true;
    kind.misfits = {{{kNull}, 94}};
    return kind;
}

/// The dates of a client.
inline ListKind Dates() {
    const DateTime march = DateTime::Of(2010, 3, 5);
    const std::string label = " LumoSeminar062.clsColTermine.";
    ListKind kind;
    kind.name = "colTermine";
    kind.make = Reads<colTermine>([](auto& l, Int32 o, const auto& s) { return Variant(l.Init(-1, o, s)); });
    kind.select = [](Int32 client) { return date_list_statements::SelectOfClient(client); };
    kind.columns = date_list_statements::kListColumns;
    kind.row = [march](Int32, Int32 number) { return Row{number, march, "Löten", "LÖ-1"}; };
    kind.key = TenDigits;
    kind.of_load = {label + "LoadKeysFromDatabase", label + "Init"};
    kind.without_a_session = {label + "Init"};
    kind.of_item = {" LumoSeminar.colTermine.Item"};
    kind.of_remove = {" LumoSeminar.colTermine.Item", " LumoSeminar062.colTermine.Remove"};
    kind.gives_nothing = true;
    kind.removes_through_item = true;
    kind.starts_anew = true;
    kind.misfits = {{{kNull, march, "Löten", "LÖ-1"}, 94},
                    {{"siebzehn", march, "Löten", "LÖ-1"}, 13},
                    {{2147483648.0, march, "Löten", "LÖ-1"}, 6},
                    {{17, "im März", "Löten", "LÖ-1"}, 13}};
    return kind;
}

/// Of a date, each of which loads.
inline ListKind Participants() {
    const std::string label = " LumoSeminar062.ColTeilnehmer.";
    const std::string entry = " LumoSeminar062.clsTeilnehmer.";
    ListKind kind;
    kind.name = "colTeilnehmer";
    kind.make = Reads<colTeilnehmer>([](auto& l, Int32 o, const auto& s) { return Variant(l.Init(o, s)); });
    kind.select = [](Int32 date) { return participant_statements::SelectKeys(date); };
    kind.columns = {"TeilnehmerID"};
    kind.row = [](Int32, Int32 number) { return Row{number}; };
    kind.key = TenDigits;
    kind.script_entry = [](auto& script, Int32 number) {
        participant_statements::ScriptRecord(script, {participant_statements::FullRow()}, number);
    };
    kind.row_sets_of_an_entry = 1;
    kind.of_load = {label + "LoadKeysFromDatabase", label + "Init"};
    kind.without_a_session = {label + "Init"};
    kind.of_item = {label + "Item"};
    kind.of_remove = {label + "Item", label + "Remove"};
    kind.gives_nothing = true;
    kind.removes_through_item = true;
    kind.misfits = {{{kNull}, 94}, {{"sieben"}, 13}, {{2147483648.0}, 6}};
    const Labels bound = {entry + "Init", kind.of_load[0], kind.of_load[1]};
    const Labels loaded = {entry + "PropertiesInit", entry + "MDNr -> Property LET", bound[0], bound[1], bound[2]};
    const std::string second = "OpenSelect: " + participant_statements::Select(2);
    kind.failures_of_entries = {
        {3, kNotOk, 0, {}, {kOpen, "AdoConnection", second}},
        {3, kRaises, 7001, bound},
        {4, kNotOk, 0, {}, {"AdoConnection", second}},
        {4, kRaises, 7001, loaded},
        {5, kNotOk, 0, {}, {kOpen}},
        {5, kRaises, 7001, bound},
        {6, kNotOk},
        {6, kRaises, 7001, loaded},
    };
    return kind;
}

/// What the focus areas of a seminar and those of a date have in common.
inline ListKind FocusAreas(const std::string& list, const std::string& entry, const Labels& of_load) {
    ListKind kind;
    kind.name = list;
    kind.row = [](Int32 owner, Int32 number) { return Row{number, owner}; };
    kind.key = TenDigits;
    kind.script_entry = [](auto& script, Int32) { script.AdoConnection(); };
    const Labels bound = {" LumoSeminar062." + entry + ".Init", of_load[0], of_load[1]};
    kind.failures_of_entries = {
        {3, kNotOk, 0, {}, {kOpen}}, {3, kRaises, 7001, bound}, {4, kNotOk, 0, {}, {kOpen}}, {4, kRaises, 7001, bound}};
    kind.of_load = of_load;
    kind.without_a_session = {of_load[1]};
    kind.of_item = {" LumoSeminar062." + list + ".Item"};
    kind.of_remove = {kind.of_item[0], " LumoSeminar062." + list + ".Remove"};
    kind.removes_through_item = true;
    kind.misfits = {{{2, kNull}, 94}};
    return kind;
}

inline ListKind FocusAreasOfSeminar() {
    auto kind =
        FocusAreas("colSemSchwerpunkte", "clsSemSchwerpunkt",
                   {" LumoSeminar062.clsColTermine.LoadKeysFromDatabase", " LumoSeminar062.clsColSemSchwerpunkte.Init"});
    kind.make = Reads<colSemSchwerpunkte>([](auto& l, Int32 o, const auto& s) { return Variant(l.Init(o, s)); });
    kind.select = focus_area_statements::SelectKeysOfSeminar;
    kind.columns = {"SchwerpunktID", "SemID"};
    kind.misfits.push_back({{kNull, 17}, 94});
    return kind;
}

inline ListKind FocusAreasOfDate() {
    auto kind = FocusAreas("colSemTerminSchwerpunkte", "clsSemTerminSchwerpunkt",
                           {" LumoSeminar062.clsColSemTerminSchwerpunkte.LoadKeysFromDatabase",
                            " LumoSeminar062.clsColSemTerminSchwerpunkte.Init"});
    kind.make = Reads<colSemTerminSchwerpunkte>([](auto& l, Int32 o, const auto& s) { return Variant(l.Init(o, s)); });
    kind.select = focus_area_statements::SelectKeysOfDate;
    kind.columns = {"SchwerpunktID", "SemTerminID"};
    return kind;
}

/// All series, read by a list that has a session already.
inline ListKind Series() {
    const std::string label = "LumoSeminar.colSerien.";
    ListKind kind;
    kind.name = "colSerie";
    kind.make = Reads<colSerie>([](auto& l, Int32, const auto& s) {
        SessionOf(l) = s;
        return Variant(l.Init(s));
    });
    kind.select = [](Int32) { return serie_statements::kSelectKeys; };
    kind.columns = {"SerienID"};
    kind.row = [](Int32, Int32 number) { return Row{number}; };
    kind.key = TenDigits;
    kind.asks_for_connection = false;
    kind.of_load = {label + "LoadKeysFromDataBase", label + "Init"};
    kind.of_item = {label + "Item"};
    kind.of_remove = {label + "Remove"};
    kind.removes_from_list_only = true;
    kind.misfits = {{{"drei"}, 13}, {{2147483648.0}, 6}};
    kind.key_of_null = "0000000000";
    return kind;
}

/// Of a date. Their numbers are days of March.
inline ListKind Days() {
    const std::string label = "LumoSeminar.colTerminTage.";
    ListKind kind;
    kind.name = "colTerminTage";
    kind.make = Reads<colTerminTage>([](auto& l, Int32 o, const auto& s) { return Variant(l.Init(o, s)); });
    kind.select = day_statements::SelectDays;
    kind.columns = day_statements::kDayColumns;
    kind.row = [](Int32, Int32 number) { return Row{DateTime::Of(2010, 3, static_cast<unsigned>(number))}; };
    kind.key = [](Int32 owner, Int32 number) { return TenDigits(0, owner) + Decimal(0, 20100300 + number); };
    kind.numbers = {3, 1, 2, 31};
    kind.asks_for_connection = false;
    kind.of_load = {label + "LoadKeysFromDataBase", label + "Init"};
    kind.of_item = {label + "Item"};
    kind.of_remove = {label + "Remove"};
    kind.gives_nothing = true;
    kind.misfits = {{{"am Dienstag"}, 13}};
    kind.key_of_null = "000000001718991230";
    return kind;
}

/// What the lists have in common whose entries are filed under the plain number and were read with the list.
inline ListKind Filled() {
    ListKind kind;
    kind.key = Decimal;
    kind.asks_for_connection = false;
    kind.removes_from_list_only = true;
    kind.key_of_null = "0";
    return kind;
}

inline ListKind BudgetYears() {
    const DateTime from = DateTime::Of(2009, 4, 1);
    const DateTime to = DateTime::Of(2010, 3, 31);
    ListKind kind = Filled();
    kind.name = "colSemBudgetJahre";
    kind.make = Reads<colSemBudgetJahre>([](auto& l, Int32, const auto& s) { return l.Init(s); });
    kind.read = false;
    kind.select = [](Int32) { return "Select JahrID,von,bis from Sem_BudgetJahr_IT Order by Von"; };
    kind.columns = {"JahrID", "Von", "Bis"};
    kind.row = [from, to](Int32, Int32 number) { return Row{number, from, to}; };
    kind.of_load = {" in LumoSeminar.LoadKeysFromDataBase", " in LumoSeminar.Init"};
    kind.without_a_session = kind.of_load;
    kind.of_item = {" in LumoSeminar.Item"};
    kind.gives_nothing = true;
    kind.misfits = {{{3, "im April", to}, 13}};
    return kind;
}

/// Of a participant.
inline ListKind CostLines() {
    ListKind kind = BudgetYears();
    kind.name = "colTeilnehmerKosten";
    kind.make = Reads<colTeilnehmerKosten>([](auto& l, Int32 o, const auto& s) { return l.Init(o, s); });
    kind.read = true;
    kind.select = [](Int32 participant) {
        return "Select TeilnehmerID,KostenID,KostenArtID,Kostenbetrag,Kost from Sem_Teilnehmer_Kosten_IT Where "
               "TeilnehmerID = " +
               std::to_string(participant);
    };
    kind.columns = {"TeilnehmerID", "KostenID", "KostenArtID", "Kostenbetrag", "Kost"};
    kind.row = [](Int32 owner, Int32 number) { return Row{owner, number, 1, Single{1}, 1}; };
    kind.misfits = {{{17, 3, 1, "viel", 1}, 13}};
    return kind;
}

inline Row RowWith(Row row, std::size_t column, const Variant& value) {
    row[column] = value;
    return row;
}

inline ListKind WaitList(const char* loader, std::string (*where)(Int32 owner), ListOf<colSemWarteliste>::InitOf load) {
    using waitlist_statements::FullRow;
    ListKind kind = Filled();
    kind.name = std::string("colSemWarteliste_") + loader;
    kind.make = Reads<colSemWarteliste>(load);
    kind.read = Variant();
    kind.select = [where](Int32 owner) { return waitlist_statements::SelectList(where(owner)); };
    kind.columns = waitlist_statements::kColumns;
    kind.row = [](Int32, Int32 number) { return FullRow(number); };
    kind.of_load = {" in LumoSeminar.LoadList"};
    kind.without_a_session = kind.of_load;
    for (const auto& [column, value, number] : {std::tuple<std::size_t, Variant, Int32>{0, 2147483648.0, 6},
                                                {1, 32768, 6},
                                                {2, "fünf", 13},
                                                {4, "gestern", 13},
                                                {5, -32769, 6},
                                                {9, 256, 6},
                                                {9, -256, 6},
                                                {10, 1e9, 6}}) {
        kind.misfits.push_back({RowWith(FullRow(43), column, value), number});
    }
    return kind;
}

inline ListKind Needs() {
    using need_statements::FullRow;
    ListKind kind = Filled();
    kind.name = "colANWBBedarf";
    kind.make = Reads<colANWBBedarf>([](auto& l, Int32 o, const auto& s) { return l.LoadBedarfArbeitnehmer(s, 5, o); });
    kind.read = Variant();
    kind.select = [](Int32 employee) { return need_statements::SelectList(5, employee); };
    kind.columns = need_statements::kColumns;
    kind.row = [](Int32, Int32 number) { return FullRow(number); };
    kind.of_load = {" in LumoSeminar.LoadListe"};
    kind.without_a_session = kind.of_load;
    for (const auto& [column, value, number] : {std::tuple<std::size_t, Variant, Int32>{0, "sieben", 13},
                                                {1, 2147483648.0, 6},
                                                {3, "x", 13},
                                                {4, "kein Datum", 13},
                                                {8, 256, 6}}) {
        kind.misfits.push_back({RowWith(FullRow(8), column, value), number});
    }
    return kind;
}

inline std::vector<ListKind> AllLists() {
    using waitlist_statements::WhereDate;
    using waitlist_statements::WhereSeminar;
    return {
        Seminars(),
        Dates(),
        Participants(),
        FocusAreasOfSeminar(),
        FocusAreasOfDate(),
        Series(),
        Days(),
        BudgetYears(),
        CostLines(),
        Needs(),
        WaitList(
            "LoadListComplete", [](Int32) { return std::string(); },
            [](auto& l, Int32, const auto& s) { return l.LoadListComplete(s); }),
        WaitList(
            "LoadListCompleteMA", [](Int32 o) { return waitlist_statements::WhereEmployee(5, o); },
            [](auto& l, Int32 o, const auto& s) { return l.LoadListCompleteMA(s, 5, o); }),
        WaitList(
            "LoadWartelisteMA", [](Int32 o) { return waitlist_statements::WhereEmployeeWaits(5, o); },
            [](auto& l, Int32 o, const auto& s) { return l.LoadWartelisteMA(s, 5, o); }),
        WaitList(
            "LoadInteressentenlisteMA", [](Int32 o) { return waitlist_statements::WhereEmployeeIsInterested(5, o); },
            [](auto& l, Int32 o, const auto& s) { return l.LoadInteressentenlisteMA(s, 5, o); }),
        WaitList("LoadListSeminar", WhereSeminar, [](auto& l, Int32 o, const auto& s) { return l.LoadListSeminar(s, o); }),
        WaitList("LoadListSeminartermin", WhereDate,
                 [](auto& l, Int32 o, const auto& s) { return l.LoadListSeminartermin(s, o); }),
    };
}

}  // namespace LumoSeminar::lists
