#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/scheduling/clsTerminTag.h>
#include <LumoSeminar/scheduling/colTerminTage.h>

/// For tests: the statements of the single days of a date as they are sent. Days are given as "dd.mm.yyyy", times as
/// "hh:mm".
namespace LumoSeminar::day_statements {

inline std::string SelectDays(int date) {
    return "SELECT Termin  FROM Sem_Termin_Termine_IT  WHERE SemTerminID = " + std::to_string(date) + " Order By Termin";
}

inline std::string SelectTimes(int date, const std::string& day) {
    return "SELECT  BegUhr, EndUhr  FROM Sem_Termin_Termine_IT  WHERE Termin = convert(datetime,'" + day +
           "',104)  AND SemTerminID = " + std::to_string(date);
}

inline std::string InsertDay(int date, const std::string& day, const std::string& begin, const std::string& end) {
    return "Insert Into Sem_Termin_Termine_IT (  SemTerminID, Termin, BegUhr, EndUhr ) Values ( " +
           std::to_string(date) + ",convert(datetime,'" + day + "',104),Convert(Datetime,'30.12.1899 " + begin +
           "',104), Convert(Datetime,'30.12.1899 " + end + "',104) )";
}

inline std::string UpdateDay(int date, const std::string& day, const std::string& begin, const std::string& end) {
    return "Update Sem_Termin_Termine_IT   Set BegUhr = Convert(Datetime,'30.12.1899 " + begin +
           "',104)  , EndUhr = Convert(Datetime,'30.12.1899 " + end +
           "',104) From Sem_Termin_Termine_IT  Where SemTerminID = " + std::to_string(date) +
           " AND Termin = Convert(datetime,'" + day + "',104) ";
}

inline std::string DeleteDay(int date, const std::string& day) {
    return "Delete From Sem_Termin_Termine_IT  WHERE SemTerminID = " + std::to_string(date) +
           " AND Termin = convert(datetime,'" + day + "',104)";
}

inline const std::vector<std::string> kDayColumns = {"Termin"};
inline const std::vector<std::string> kTimeColumns = {"BegUhr", "EndUhr"};

/// A day bound to the session without a statement on it: a list on another session has made it.
inline Ref<clsTerminTag> BoundDay(const Ref<DataSession>& session, DateTime day = DateTime::Of(2010, 3, 2), Int32 date = 17) {
    LumoConnection::Script other;
    other.OpenSelect(SelectDays(1)).Rows(kDayColumns, {{DateTime::Of(1999, 12, 31)}});
    other.CloseRows();
    colTerminTage list;
    EXPECT_EQ(list.Init(1, other.Session()), true);
    const auto made = list.Item(1);
    EXPECT_EQ(made->Init(day, date, session), true);
    return made;
}

}  // namespace LumoSeminar::day_statements
