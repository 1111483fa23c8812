#pragma once

#include <string>
#include <vector>

/// For tests: the statements of the focus areas as they are sent.
namespace LumoSeminar::focus_area_statements {

// Of a seminar.

inline std::string SelectOfSeminar(int seminar, int focus_area) {
    return "SELECT Weiterbildungsschwerpunkt FROM Sem_Schwerpunkte_IT INNER JOIN sysIData_WBS ON "
           "Sem_Schwerpunkte_IT.SchwerpunktID = sysIData_WBS.WBS_ID WHERE Sem_Schwerpunkte_IT.SemID = " +
           std::to_string(seminar) + " AND Sem_Schwerpunkte_IT.SchwerpunktID = " + std::to_string(focus_area);
}

inline std::string InsertOfSeminar(int seminar, int focus_area) {
    return "INSERT INTO Sem_Schwerpunkte_IT (SchwerpunktID, SemID) VALUES (" + std::to_string(focus_area) + ", " +
           std::to_string(seminar) + ")";
}

inline std::string InsertNamed(int focus_area, const std::string& name) {
    return "INSERT INTO sysIData_WBS (WBS_ID, Weiterbildungsschwerpunkt) VALUES (" + std::to_string(focus_area) +
           ", '" + name + "')";
}

inline std::string DeleteOfSeminar(int seminar, int focus_area) {
    return "DELETE FROM Sem_Schwerpunkte_IT WHERE (SemID = " + std::to_string(seminar) +
           " AND SchwerpunktID = " + std::to_string(focus_area) + ")";
}

inline std::string SelectKeysOfSeminar(int seminar) {
    return "SELECT SchwerpunktID, SemID FROM Sem_Schwerpunkte_IT WHERE SemID = " + std::to_string(seminar);
}

// Of a date.

inline std::string SelectOfDate(int date, int focus_area) {
    return "SELECT Isnull(Weiterbildungsschwerpunkt,'') AS WBS FROM Sem_Termin_Schwerpunkte_IT INNER JOIN sysIData_WBS ON "
           "(Sem_Termin_Schwerpunkte_IT.SchwerpunktID = sysIData_WBS.WBS_ID)WHERE (Sem_Termin_Schwerpunkte_IT.SemTerminID = " +
           std::to_string(date) + " AND Sem_Termin_Schwerpunkte_IT.SchwerpunktID = " + std::to_string(focus_area) + ")";
}

inline std::string DeleteOfDate(int date, int focus_area) {
    return "DELETE FROM Sem_Termin_Schwerpunkte_IT  WHERE  (SemTerminID = " + std::to_string(date) +
           " AND SchwerpunktID = " + std::to_string(focus_area) + ")";
}

inline std::string SelectKeysOfDate(int date) {
    return "SELECT SchwerpunktID, SemTerminID FROM Sem_Termin_Schwerpunkte_IT WHERE SemTerminID = " + std::to_string(date);
}

inline const std::string kSelectOption = "select Wert from optionen_database_dt where OptionID=30";
inline const std::string kSelectClient = "Select * From OpactMD";

inline std::string SelectByName(const std::string& name) {
    return "SELECT WBS_ID FROM sysIData_WBS WHERE Weiterbildungsschwerpunkt= '" + name + "'";
}

inline std::string SelectByName(const std::string& name, int client) {
    return "SELECT sysIData_WBS.WBS_ID FROM sysIData_WBS INNER JOIN sysIData_WBS_Mandant_IT on sysIData_WBS.WBS_ID = "
           "sysIData_WBS_Mandant_IT.wbs_ID WHERE Weiterbildungsschwerpunkt= '" +
           name + "' AND MDNR=" + std::to_string(client);
}

inline const std::string kNextFocusArea = "ISNULL(max(WBS_ID),0)+1";

inline std::string InsertFocusArea(int focus_area, const std::string& name) {
    return "INSERT INTO sysIData_WBS (WBS_ID, Weiterbildungsschwerpunkt)  SELECT " + std::to_string(focus_area) +
           ", '" + name + "'";
}

inline std::string InsertClient(int focus_area, int client) {
    return "INSERT INTO sysIData_WBS_Mandant_IT (WBS_ID, MDNr) VALUES (" + std::to_string(focus_area) + "," +
           std::to_string(client) + ")";
}

inline std::string SelectLink(int date, int focus_area) {
    return "SELECT SemTerminID FROM Sem_Termin_Schwerpunkte_IT WHERE SemTerminID=" + std::to_string(date) +
           " AND SchwerpunktID=" + std::to_string(focus_area);
}

inline std::string InsertLink(int date, int focus_area) {
    return "INSERT INTO Sem_Termin_Schwerpunkte_IT (SchwerpunktID, SemTerminID) VALUES (" + std::to_string(focus_area) +
           ", " + std::to_string(date) + ")";
}

}  // namespace LumoSeminar::focus_area_statements
