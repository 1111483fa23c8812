#pragma once

#include <string>
#include <vector>

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

}  // namespace LumoSeminar::day_statements
