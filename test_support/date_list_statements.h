#pragma once

#include <string>
#include <vector>

/// For tests: the statements of a list of dates as they are sent.
namespace LumoSeminar::date_list_statements {

/// All dates of a client.
inline std::string SelectOfClient(int client, const std::string& filter = {}) {
    return "SELECT SemTerminID, EndeDatum, Titel, Code  FROM Sem_Termin_IT  WHERE (MDNr = " + std::to_string(client) +
           " OR MDNr = -1) " + filter + " ORDER BY ISNULL(Endedatum,GetDate()) DESC,SemTerminID ASC ";
}

/// The dates of a seminar.
inline std::string SelectOfSeminar(int seminar, int client, const std::string& filter = {}) {
    return "SELECT SemTerminID, EndeDatum, Titel, Code  FROM Sem_Termin_IT  WHERE (SemID = " + std::to_string(seminar) +
           ") AND (MDNr = " + std::to_string(client) + " OR MDNr = -1) " + filter +
           " ORDER BY ISNULL(Endedatum,GetDate()) DESC,SemTerminID ASC ";
}

/// The dates of a client, joined over their participants.
inline std::string SelectOfParticipants(int client, const std::string& filter) {
    return "SELECT SemTerminID, EndeDatum, Titel, Code  FROM Sem_Termin_IT  INNER JOIN Sem_Teilnehmer_IT ON "
           "Sem_Termin_IT.SemTerminID = Sem_Teilnehmer_IT.SemTerminID WHERE (MDNr = " +
           std::to_string(client) + " OR MDNr = -1) " + filter + " ORDER BY ISNULL(Endedatum,GetDate()) DESC,SemTerminID ASC ";
}

inline const std::vector<std::string> kListColumns = {"SemTerminID", "EndeDatum", "Titel", "Code"};

}  // namespace LumoSeminar::date_list_statements
