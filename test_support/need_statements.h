#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/errors.h>
#include <LumoSeminar/frame/variant.h>
#include <LumoSeminar/needs/clsANWBBedarf.h>
#include <test_support/raises.h>

/// For tests: the statements of a training need as they are sent, rows of it, and its properties.
namespace LumoSeminar::need_statements {

using test_support::Labels;
using test_support::LabelsOf;

inline const std::string kLabelOfLoad = " in LumoSeminar.IsInitialized";
inline const std::string kLabelOfWrite = " in LumoSeminar.WriteToDatabase";
inline const std::string kLabelOfDelete = " in LumoSeminar.DeleteFromDatabase";
inline const std::string kLabelOfList = " in LumoSeminar.LoadListe";
inline const std::string kLabelOfConsent = " in LumoSeminar.BedarfZustimmen";
inline const std::string kLabelOfApproval = " in LumoSeminar.TeilnahmeGenehmigen";

// The statements.

inline std::string Select(int key) {
    return "Select WBID,MDNr,ANNr,WBS,erfDat,  erford,Erfuellt,erfUser,BedarfErfuellt,Bemerkungen  from AN_WBBedarf_IT "
           "WHERE WBID = " +
           std::to_string(key);
}

inline std::string SelectList(int client, int employee) {
    return "Select WBID,MDNr,ANNr,WBS,erfDat,erford,Erfuellt,erfUser,BedarfErfuellt,Bemerkungen from AN_WBBedarf_IT "
           "WHERE MDNR = " +
           std::to_string(client) + " AND ANNr = " + std::to_string(employee);
}

/// @param assignments  all
inline std::string Update(const std::string& assignments, int key = 7) {
    return "Update AN_WBBedarf_IT Set " + assignments + " WHERE WBID = " + std::to_string(key);
}

inline std::string Insert(const std::string& values) {
    return "Insert Into AN_WBBedarf_IT "
           "(WBID,MDNr,ANNr,WBS,erfDat,erford,Erfuellt,erfUser,BedarfErfuellt,Bemerkungen) values (" +
           values + ")";
}

inline std::string Delete(int key = 7) { return "Delete AN_WBBedarf_IT  WHERE WBID = " + std::to_string(key); }

inline const std::vector<std::string> kColumns = {
    "WBID", "MDNr", "ANNr", "WBS", "erfDat", "erford", "Erfuellt", "erfUser", "BedarfErfuellt", "Bemerkungen"};

/// Every column set, no two alike.
inline std::vector<Variant> FullRow(int key = 7) {
    return {key,
            5,
            123,
            4,
            DateTime::Of(2010, 2, 14),
            DateTime::Of(2010, 6, 1),
            DateTime::Of(2010, 5, 20),
            "Jörg \"Jo\" Ähre",
            Int16{-1},
            "für die \"große\" Halle & später"};
}

inline std::vector<Variant> NullRow() { return std::vector<Variant>(10, Variant::Null()); }

/// Those of the full row.
inline const std::string kFullAssignments =
    "Erford = '01.06.2010', Erfuellt = '20.05.2010', BedarfErfuellt = -1, "
    "Bemerkungen = 'für die \"große\" Halle & später', WBS = 4";

/// Everything 0 or empty.
inline const std::string kZeroAssignments = "Erford = Null, Erfuellt = Null, BedarfErfuellt = 0, Bemerkungen = Null, WBS = 0";

inline void ScriptLoad(LumoConnection::Script& script, const std::vector<std::vector<Variant>>& rows = {FullRow()},
                       int key = 7) {
    script.OpenSelect(Select(key)).Rows(kColumns, rows);
    script.CloseRows();
}

/// The two lookups of an insert.
inline void ScriptLookups(LumoConnection::Script& script, const Variant& largest, const Variant& login) {
    script.LookupValue("max(WBID)", "AN_WBBedarf_IT").Gives(largest);
    script.LookupValue("System_User", "opactMD").Gives(login);
}

inline Ref<clsANWBBedarf> Bound(const Ref<DataSession>& session, Int32 key = 7) {
    auto need = New<clsANWBBedarf>();
    EXPECT_EQ(need->Init(key, session), false);
    return need;
}

// The properties that load.

struct Property {
    std::string name;
    std::function<Variant(clsANWBBedarf&)> get;
    std::function<void(clsANWBBedarf&, const Variant&)> let;
    /// What it has in the full row.
    Variant full;
    /// What it has without a row.
    Variant zero;
};

template <class T>
Property PropertyOf(const char* name, T (clsANWBBedarf::*get)(), void (clsANWBBedarf::*let)(T), T full) {
    return {name, [get](clsANWBBedarf& need) { return Variant((need.*get)()); },
            [let](clsANWBBedarf& need, const Variant& value) { (need.*let)(*value.If<T>()); }, full, T{}};
}

inline std::vector<Property> Properties() {
    using T = clsANWBBedarf;
    return {
        PropertyOf<Int32>("MDNR", &T::MDNR, &T::MDNR, 5),
        PropertyOf<Int32>("ANNr", &T::ANNr, &T::ANNr, 123),
        PropertyOf<Int32>("WBS", &T::WBS, &T::WBS, 4),
        PropertyOf<DateTime>("ErfDat", &T::ErfDat, &T::ErfDat, DateTime::Of(2010, 2, 14)),
        PropertyOf<DateTime>("Erford", &T::Erford, &T::Erford, DateTime::Of(2010, 6, 1)),
        PropertyOf<DateTime>("Erfuellt", &T::Erfuellt, &T::Erfuellt, DateTime::Of(2010, 5, 20)),
        PropertyOf<Text>("ErfUser", &T::ErfUser, &T::ErfUser, "Jörg \"Jo\" Ähre"),
        PropertyOf<Byte>("BedarfErfuellt", &T::BedarfErfuellt, &T::BedarfErfuellt, 1),
        PropertyOf<Text>("Bemerkungen", &T::Bemerkungen, &T::Bemerkungen, "für die \"große\" Halle & später"),
    };
}

inline void ExpectValues(clsANWBBedarf& need, Variant Property::*value) {
    for (const Property& property : Properties()) EXPECT_EQ(property.get(need), property.*value) << property.name;
}

inline void LetAll(clsANWBBedarf& need, Variant Property::*value) {
    for (const Property& property : Properties()) property.let(need, property.*value);
}

}  // namespace LumoSeminar::need_statements
