#pragma once

#include <string>
#include <utility>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/catalogue/focus_areas.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/enrolment/colTeilnehmer.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <test_support/focus_area_statements.h>
#include <test_support/participant_statements.h>
#include <test_support/termin_properties.h>
#include <test_support/termin_statements.h>

/// For tests: date 17 with its list of participants and its list of focus areas, as they are read and as they fail.
namespace LumoSeminar::date_lists {

namespace participant = participant_statements;
namespace focus_area = focus_area_statements;
using LumoConnection::Script;
using termin_properties::Labels;

inline const std::string kLabel = " LumoSeminar062.clsTermin.";
inline const std::string kLabelOfLists = " LumoSeminar062.clsSeminar.Teilnehmer";
inline const std::string kLabelOfDelete = kLabel + "DeleteFromDatabase";
inline const std::string kParticipant = " LumoSeminar062.clsTeilnehmer.";
inline const std::string kParticipants = " LumoSeminar062.ColTeilnehmer.";
inline const std::string kFocusArea = " LumoSeminar062.clsSemTerminSchwerpunkt.";
inline const std::string kFocusAreas = " LumoSeminar062.clsColSemTerminSchwerpunkte.";
inline const std::string kOpen = "Open of the connection";

inline Labels Then(Labels first, const Labels& more) {
    first.insert(first.end(), more.begin(), more.end());
    return first;
}

inline std::vector<Variant> RowWithLimit(const Variant& limit) {
    auto row = termin_statements::FullRow();
    row[13] = limit;
    return row;
}

/// Series 7, and that many places at most.
inline void ScriptDate(Script& script, const Variant& limit = 14) {
    script.OpenSelect(termin_statements::Select(17)).Rows(termin_statements::kColumns, {RowWithLimit(limit)});
}

struct Enrolment {
    Int32 key;
    Variant participation = Int16{-1};
};

inline std::vector<Variant> RowOf(const Enrolment& enrolment) {
    auto row = participant::FullRow();
    row[7] = enrolment.participation;
    return row;
}

/// A participant of date 0 is not read by its list.
inline void ScriptParticipants(Script& script, const std::vector<Enrolment>& enrolments, int date = 17) {
    std::vector<std::vector<Variant>> keys;
    for (const auto& enrolment : enrolments) keys.push_back({enrolment.key});
    script.AdoConnection();
    script.OpenSelect(termin_statements::SelectParticipants(date)).Rows({"TeilnehmerID"}, keys);
    for (const auto& enrolment : enrolments) {
        if (date == 0) {
            script.AdoConnection();
        } else {
            participant::ScriptRecord(script, {RowOf(enrolment)}, enrolment.key);
        }
    }
}

inline void ScriptFocusAreas(Script& script, const std::vector<int>& keys, int date = 17) {
    std::vector<std::vector<Variant>> rows;
    for (const int key : keys) rows.push_back({key, date});
    script.AdoConnection();
    script.OpenSelect(focus_area::SelectKeysOfDate(date)).Rows({"SchwerpunktID", "SemTerminID"}, rows);
    for (std::size_t i = 0; i < keys.size(); ++i) script.AdoConnection();
}

/// The two lists, each with two entries.
struct List {
    const char* name;
    std::string (*select)(int date);
    void (*script)(Script& script, int date);
    Ref<Object> (*object)(clsTermin& date);
    Int32 (*count)(clsTermin& date);
};

inline const List kLists[] = {
    {"clscolTeilnehmer", &termin_statements::SelectParticipants,
     [](Script& script, int date) {
         ScriptParticipants(script, {{23}, {24}}, date);
     },
     [](clsTermin& date) -> Ref<Object> { return date.clscolTeilnehmer(); },
     [](clsTermin& date) { return date.clscolTeilnehmer()->Count(); }},
    {"clscolSemTerminSchwerpunkte", &focus_area::SelectKeysOfDate,
     [](Script& script, int date) {
         ScriptFocusAreas(script, {16, 10}, date);
     },
     [](clsTermin& date) -> Ref<Object> { return date.clscolSemTerminSchwerpunkte(); },
     [](clsTermin& date) { return date.clscolSemTerminSchwerpunkte()->Count(); }},
};

/// The ways in which a list cannot be read.
inline const std::pair<const char*, void (*)(Script& script, const std::string& select)> kNoList[] = {
    {"refused",
     [](Script& script, const std::string& select) {
         script.AdoConnection();
         script.OpenSelect(select).Refused("time-out");
     }},
    {"no connection", [](Script& script, const std::string&) { script.AdoConnection().Empty(); }},
    {"closed",
     [](Script& script, const std::string&) {
         script.AdoConnection().Closed();
         script.ConnectionOpen().StaysClosed();
     }},
};

inline std::vector<Text> KeysOf(const Ref<colTeilnehmer>& list) {
    std::vector<Text> keys;
    for (const auto& record : list->NewEnum()) keys.push_back(record->Key());
    return keys;
}

inline std::vector<Text> KeysOf(const Ref<colSemTerminSchwerpunkte>& list) {
    std::vector<Text> keys;
    for (const auto& entry : list->NewEnum()) keys.push_back(entry->Key());
    return keys;
}

/// The labels of a list of participants that fails at a step: 1 the load of the date, 5 that of the participant.
inline Labels LabelsOfParticipants(int step) {
    const Labels list = {kParticipants + "Init", kLabelOfLists};
    const Labels load = Then({kParticipants + "LoadKeysFromDatabase"}, list);
    const Labels bind = Then({kParticipant + "Init"}, load);
    if (step == 1) return {kLabel + "PropertiesInit", kLabelOfLists};
    if (step == 2) return list;
    if (step == 3) return load;
    if (step == 4) return bind;
    return Then({kParticipant + "PropertiesInit", kParticipant + "MDNr -> Property LET"}, bind);
}

inline Labels LabelsOfFocusAreas(int step) {
    const Labels list = {kFocusAreas + "Init", kLabelOfLists};
    const Labels load = Then({kFocusAreas + "LoadKeysFromDatabase"}, list);
    if (step == 1) return {kLabel + "PropertiesInit", kLabelOfLists};
    if (step == 2) return list;
    if (step == 3) return load;
    return Then({kFocusArea + "Init"}, load);
}

}  // namespace LumoSeminar::date_lists
