#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/variant.h>
#include <LumoSeminar/scheduling/clsSerie.h>

/// For tests: the statements of the recurrence series as they are sent, a row of them, and a series that holds it.
namespace LumoSeminar::serie_statements {

inline std::string Select(int key) {
    return "SELECT BeginnUhrzeit, EndeUhrzeit, Tagefolge, taeglich, Woche, Mo, Di, Mi, Do, Fr, Sa, So FROM Sem_Serien_IT  "
           "WHERE SerienID = " +
           std::to_string(key);
}

inline std::string Insert(const std::string& values) {
    return "Insert Into Sem_Serien_IT (  SerienID, BeginnUhrzeit, EndeUhrzeit, Tagefolge, taeglich, Woche, Mo, Di, Mi, Do, Fr, Sa, "
           "So ) Values ( " +
           values + " )";
}

/// Of a series of which nothing was let.
inline std::string InsertZeroes(int key) {
    return Insert(std::to_string(key) +
                  ",Convert(Datetime,'30.12.1899 00:00',104),Convert(Datetime,'30.12.1899 00:00',104), "
                  "0,0,Null,0,0,0,0,0,0,0");
}

inline std::string Delete(int key) {
    return "Delete From Sem_Serien_IT  From Sem_Serien_IT  Where SerienID = " + std::to_string(key);
}

inline std::string CountSeminars(int key) {
    return "Select Count(SerienID) From  Sem_Katalog_IT Where SerienID = " + std::to_string(key);
}

inline std::string CountDates(int key) {
    return "Select Count(SerienID) From  Sem_Termin_IT Where SerienID = " + std::to_string(key);
}

inline const std::string kSelectKeys = "SELECT SerienID  FROM Sem_Serien_IT ";

inline const std::vector<std::string> kColumns = {
    "BeginnUhrzeit", "EndeUhrzeit", "Tagefolge", "taeglich", "Woche", "Mo", "Di", "Mi", "Do", "Fr", "Sa", "So"};

/// Another value on each weekday.
inline std::vector<Variant> FullRow() {
    return {DateTime::TimeOfDay(16, 30),
            DateTime::TimeOfDay(18, 0),
            Byte{2},
            Byte{3},
            4,
            Int16{-1},
            Int16{0},
            Int16{1},
            Int16{-2},
            Int16{2},
            Int16{3},
            Int16{4}};
}

/// The columns behind the key in an INSERT of what FullRow holds.
inline const std::string kFullValues =
    ",Convert(Datetime,'30.12.1899 16:30',104),Convert(Datetime,'30.12.1899 18:00',104), 2,3,4,-1,0,1,-2,2,3,4";

inline std::vector<Variant> NullRow() { return std::vector<Variant>(12, Variant::Null()); }

/// A series that reads its row.
inline void ScriptLoad(LumoConnection::Script& script, int key, const std::vector<std::vector<Variant>>& rows) {
    script.OpenSelect(Select(key)).Rows(kColumns, rows);
    script.CloseRows();
}

inline Ref<clsSerie> Bound(const Ref<DataSession>& session, Int32 key) {
    auto series = New<clsSerie>();
    EXPECT_EQ(series->Init(key, session), true);
    return series;
}

/// Lets everything but the key, as FullRow has it.
inline void LetFull(clsSerie& series) {
    series.BeginnUhrzeit(DateTime::TimeOfDay(16, 30));
    series.EndeUhrzeit(DateTime::TimeOfDay(18, 0));
    series.Tagefolge(2);
    series.Taeglich(3);
    series.Woche(4);
    series.Montag(-1);
    series.Dienstag(0);
    series.Mittwoch(1);
    series.Donnerstag(-2);
    series.Freitag(2);
    series.Samstag(3);
    series.Sonntag(4);
}

/// What a series holds behind its key, in the order of the columns.
inline std::vector<Variant> ValuesOf(clsSerie& series) {
    return {series.BeginnUhrzeit(), series.EndeUhrzeit(), series.Tagefolge(), series.Taeglich(),
            series.Woche(),         series.Montag(),      series.Dienstag(),  series.Mittwoch(),
            series.Donnerstag(),    series.Freitag(),     series.Samstag(),   series.Sonntag()};
}

}  // namespace LumoSeminar::serie_statements
