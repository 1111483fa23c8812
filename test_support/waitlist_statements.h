#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/variant.h>
#include <LumoSeminar/waitlist/clsSemWarteliste.h>

/// For tests: the statements of the wait-list as they are sent, rows of it, the steps that its operations send, and the
/// properties of an entry.
namespace LumoSeminar::waitlist_statements {

// The statements.

/// What a single entry and a list have in common; the condition follows.
inline const std::string kSelect =
    "SELECT Sem_Warteliste_IT.SemWarteListeID, "
    " Sem_Warteliste_IT.ModID, "
    " Sem_Warteliste_IT.MDNr, "
    " Sem_Warteliste_IT.TNID,"
    " Sem_Warteliste_IT.ErfDat, "
    " Sem_Warteliste_IT.Herkunft, "
    " Sem_Warteliste_IT.Wunschtermin, "
    " Sem_WartelisteTermin_IT.SemTerminID, "
    " Sem_WartelisteSem_IT.SemID, "
    " Sem_Warteliste_IT.Status, "
    " Sem_Warteliste_IT.GeaendertAm, "
    " Sem_Warteliste_IT.GeaendertVon "
    " FROM Sem_Warteliste_IT LEFT OUTER JOIN "
    " Sem_WartelisteTermin_IT ON Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteTermin_IT.SemWarteListeID LEFT OUTER "
    "JOIN "
    " Sem_WartelisteSem_IT ON Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteSem_IT.SemWarteListeID ";

inline std::string SelectEntry(int key) {
    return kSelect + " WHERE Sem_Warteliste_IT.SemWartelisteID = " + std::to_string(key);
}

/// @param where  one of the conditions below, empty for all entries
inline std::string SelectList(const std::string& where = {}) {
    return kSelect + where + " Order by Sem_Warteliste_IT.ErfDat";
}

inline std::string WhereEmployee(int client, int employee) {
    return " Where Sem_Warteliste_IT.ModId = 2 AND Sem_Warteliste_IT.MdNr = " + std::to_string(client) +
           " AND Sem_Warteliste_IT.TnId = " + std::to_string(employee);
}

inline std::string WhereEmployeeWaits(int client, int employee) {
    return WhereEmployee(client, employee) + " AND Not Sem_WartelisteTermin_IT.SemTerminID Is Null";
}

inline std::string WhereEmployeeIsInterested(int client, int employee) {
    return WhereEmployee(client, employee) + " AND Not Sem_WartelisteSem_IT.SemID Is Null";
}

inline std::string WhereSeminar(int seminar) {
    return " Where Sem_WartelisteSem_IT.SemID = " + std::to_string(seminar);
}

inline std::string WhereDate(int date) {
    return " Where Sem_WartelisteTermin_IT.SemTerminID  = " + std::to_string(date);
}

/// @param wish  Null or a day in single quotes
inline std::string Update(int key, const std::string& wish, int status, const std::string& changed, const std::string& by) {
    return " UPDATE Sem_Warteliste_IT Set Wunschtermin = " + wish + ", Status = " + std::to_string(status) +
           ", GeaendertAm = '" + changed + "', GeaendertVon = '" + by + "' WHERE SemWarteListeID = " + std::to_string(key);
}

/// @param values  all, without the parentheses
inline std::string Insert(const std::string& values) {
    return "INSERT INTO Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID,ErfDat, Herkunft,Wunschtermin,Status,"
           "GeaendertAm,GeaendertVon)  Values (" +
           values + ")";
}

inline std::string BindToDate(int key, int date) {
    return "Insert Into Sem_WartelisteTermin_IT (SemWarteListeID, SemTerminID) values (" + std::to_string(key) + "," +
           std::to_string(date) + ")";
}

inline std::string BindToSeminar(int key, int seminar) {
    return "Insert Into Sem_WartelisteSem_IT (SemWarteListeID,SemID) values (" + std::to_string(key) + "," +
           std::to_string(seminar) + ")";
}

inline std::string Delete(int key) {
    const std::string written = std::to_string(key);
    return " Delete Sem_WartelisteTermin_IT WHERE SemWarteListeID = " + written +
           "\r\n Delete Sem_WartelisteSem_IT WHERE SemWarteListeID = " + written +
           "\r\nDELETE Sem_Warteliste_IT WHERE SemWarteListeID = " + written;
}

/// @param begin,end  days as dd.mm.yyyy
inline std::string SelectCostCentre(int client, int employee, const std::string& begin, const std::string& end) {
    return "Select Kost from ANKOst_LV where MDNR = " + std::to_string(client) + " and ANNR = " + std::to_string(employee) +
           " and (GueltigAB <= '" + end + "' AND (GueltigBis is null Or GueltigBis >= '" + begin + "'))";
}

// Rows.

using Rows = std::vector<std::vector<Variant>>;

inline const std::vector<std::string> kColumns = {"SemWarteListeID", "ModID",    "MDNr",         "TNID",
                                                  "ErfDat",          "Herkunft", "Wunschtermin", "SemTerminID",
                                                  "SemID",           "Status",   "GeaendertAm",  "GeaendertVon"};

inline const Text kLogin = "Jörg \"Jo\" Ähre";

/// Entry 42 of employee 45 of client 5, no two columns alike. It has a date and a seminar.
inline std::vector<Variant> FullRow(Int32 key = 42) {
    return {key,
            Int16{2},
            5,
            45,
            DateTime::Of(2010, 2, 14, 8, 30, 5),
            Int16{3},
            DateTime::Of(2010, 4, 1),
            17,
            105,
            Int16{-1},
            DateTime::Of(2010, 2, 20, 23, 59, 58),
            kLogin};
}

/// An entry of employee 45 of client 5 for a date, as a consent has stored it.
inline std::vector<Variant> RowOfDate(Int32 key, Int32 date) {
    auto row = FullRow(key);
    row[6] = Variant::Null();
    row[7] = date;
    row[8] = Variant::Null();
    return row;
}

/// Nothing but a key.
inline std::vector<Variant> NullRow(const Variant& key = Variant::Null()) {
    std::vector<Variant> row(12, Variant::Null());
    row[0] = key;
    return row;
}

// The steps.

/// The load of an entry that was only bound.
inline void ScriptEntry(LumoConnection::Script& script, int key, const Rows& rows) {
    script.OpenSelect(SelectEntry(key)).Rows(kColumns, rows);
    script.CloseRows();
}

/// The load of a list.
inline void ScriptList(LumoConnection::Script& script, const std::string& where, const Rows& rows = {}) {
    script.OpenSelect(SelectList(where)).Rows(kColumns, rows);
    script.CloseRows();
}

/// Each write asks first who writes.
inline void ScriptLogin(LumoConnection::Script& script, const Variant& login = kLogin) {
    script.LookupValue("System_User", "opactMD").Gives(login);
}

inline void ScriptLargestKey(LumoConnection::Script& script, const Variant& largest = 41) {
    script.LookupValue("max(SemWartelisteID)", "Sem_Warteliste_IT").Gives(largest);
}

/// The insert of a new entry for a date, from the login on.
/// @param key      the one it gets
/// @param present  the moment as dd.mm.yyyy hh:nn:ss
inline void ScriptInsertForDate(LumoConnection::Script& script, int key, int client, int employee, int origin, int date,
                                const std::string& present) {
    ScriptLogin(script);
    ScriptLargestKey(script, Int32{key - 1});
    script.ExecuteSql(Insert(std::to_string(key) + ",2," + std::to_string(client) + "," + std::to_string(employee) + ",'" +
                             present + "'," + std::to_string(origin) + ",Null,-1,'" + present + "','" + kLogin + "'"));
    script.ExecuteSql(BindToDate(key, date));
}

inline void ScriptCostCentre(LumoConnection::Script& script, int client, int employee, const std::string& begin,
                             const std::string& end, const Rows& rows) {
    script.OpenSelect(SelectCostCentre(client, employee, begin, end)).Rows({"Kost"}, rows);
    script.CloseRows();
}

// The properties that load.

struct Property {
    std::string name;
    std::function<Variant(clsSemWarteliste&)> get;
    std::function<void(clsSemWarteliste&, const Variant&)> let;
    /// What it has in the full row where a list has read it.
    Variant in_list;
    /// Where the entry was only bound and has read the full row itself.
    Variant alone;
    /// Neither of them.
    Variant other;
    /// Where there is no row or the column is Null.
    Variant zero;
};

template <class T, class Taken>
Property PropertyOf(const char* name, T (clsSemWarteliste::*get)(), void (clsSemWarteliste::*let)(Taken), T in_list,
                    T alone, T other) {
    return {name,
            [get](clsSemWarteliste& entry) { return Variant((entry.*get)()); },
            [let](clsSemWarteliste& entry, const Variant& value) { (entry.*let)(*value.If<T>()); },
            in_list,
            alone,
            other,
            T{}};
}

template <class T>
Property PropertyOf(const char* name, T (clsSemWarteliste::*get)(), void (clsSemWarteliste::*let)(T), T full, T other) {
    return PropertyOf<T, T>(name, get, let, full, full, other);
}

inline std::vector<Property> Properties() {
    using T = clsSemWarteliste;
    return {
        PropertyOf<Int16>("ModId", &T::ModId, &T::ModId, 2, 3),
        PropertyOf<Int32>("MDNR", &T::MDNR, &T::MDNR, 5, 6),
        PropertyOf<Int32>("TNID", &T::TNID, &T::TNID, 45, 46),
        PropertyOf<DateTime>("ErfDat", &T::ErfDat, &T::ErfDat, DateTime::Of(2010, 2, 14, 8, 30, 5), DateTime::Of(2009, 12, 31)),
        PropertyOf<Int16>("Herkunft", &T::Herkunft, &T::Herkunft, 3, 4),
        PropertyOf<DateTime>("Wunschtermin", &T::Wunschtermin, &T::Wunschtermin, DateTime::Of(2010, 4, 1),
                             DateTime::Of(2010, 5, 3, 12, 0)),
        PropertyOf<Int32>("SemID", &T::SemID, &T::SemID, 105, 106),
        PropertyOf<Int32>("SemTerminID", &T::SemTerminID, &T::SemTerminID, 17, 18),
        PropertyOf<Byte, Byte>("Status", &T::Status, &T::Status, 1, 105, 255),
        PropertyOf<DateTime, DateTime>("GeaendertAm", &T::GeaendertAm, &T::GeaendertAm, DateTime::Of(2010, 2, 20, 23, 59, 58),
                                       DateTime::Of(1899, 12, 29), DateTime::Of(2010, 3, 1, 1, 2, 3)),
        PropertyOf<Text, const Text&>("GeaendertVon", &T::GeaendertVon, &T::GeaendertVon, kLogin, "20.02.2010 23:59:58",
                                      "Özgür 'Ö'"),
    };
}

inline void ExpectValues(clsSemWarteliste& entry, Variant Property::*value) {
    for (const Property& property : Properties()) EXPECT_EQ(property.get(entry), property.*value) << property.name;
}

/// A bound entry. No statement.
inline Ref<clsSemWarteliste> Bound(const Ref<DataSession>& session, Int32 key = 42) {
    auto entry = New<clsSemWarteliste>();
    EXPECT_EQ(entry->Init(key, session), false);
    return entry;
}

}  // namespace LumoSeminar::waitlist_statements
