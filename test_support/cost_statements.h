#pragma once

#include <string>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/participant_costs.h>
#include <LumoSeminar/frame/variant.h>

/// For tests: the statements of the cost lines as they are sent, and a line.
namespace LumoSeminar::cost_statements {

inline const std::vector<std::string> kColumns = {"TeilnehmerID", "KostenID", "KostenArtID", "Kostenbetrag", "Kost"};

inline std::string SelectLine(int participant, int line) {
    return "Select TeilnehmerID,KostenID,KostenArtID,Kostenbetrag,Kost from Sem_Teilnehmer_Kosten_IT where TeilnehmerID = " +
           std::to_string(participant) + " AND KostenID = " + std::to_string(line);
}

inline std::string SelectLines(int participant) {
    return "Select TeilnehmerID,KostenID,KostenArtID,Kostenbetrag,Kost from Sem_Teilnehmer_Kosten_IT Where TeilnehmerID = " +
           std::to_string(participant);
}

inline std::string UpdateLine(int participant, int line, int centre, const std::string& type, const std::string& amount) {
    return " UPDATE Sem_Teilnehmer_Kosten_IT  SET Kost  = " + std::to_string(centre) + ", KostenArtID = " + type +
           ", Kostenbetrag = " + amount + " WHERE TeilnehmerID = " + std::to_string(participant) +
           " AND KostenID = " + std::to_string(line);
}

inline std::string InsertLine(const std::string& values) {
    return " INSERT INTO Sem_Teilnehmer_kosten_IT (TeilnehmerID, KostenID,KostenArtID,Kostenbetrag, Kost)   Values (" +
           values + ")";
}

inline std::string DeleteLine(int participant, int line) {
    return "Delete Sem_Teilnehmer_kosten_IT WHERE TeilnehmerID = " + std::to_string(participant) +
           " AND KostenID = " + std::to_string(line);
}

inline const std::string kInsertCostType =
    "Insert Into sysIData_KostenArten (KostenArten_ID,KostenArten)  Select isnull(Max(KostenArten_ID),0) +1, "
    "'Teilnehmerkosten'  From sysIData_KostenArten  Having Max(KostenArten_ID) < 100 or Max(KostenArten_ID) is null";

using Values = std::vector<Variant>;

/// Line 2 of participant 7: 120.5 for cost type 3, paid by cost centre 4110.
inline const Values kLine = {7, 2, 3, Single{120.5}, 4110};

inline Values ValuesOf(clsTeilnehmerKosten& line) {
    return {line.TeilnehmerID(), line.KostenID(), line.KostenArtID(), line.Kostenbetrag(), line.Kost()};
}

inline Ref<clsTeilnehmerKosten> Bound(const Ref<DataSession>& session, Int32 participant = 7, Int32 line = 2) {
    auto object = New<clsTeilnehmerKosten>();
    object->Init(participant, line, session);
    return object;
}

inline void ScriptLoad(LumoConnection::Script& script, const std::vector<Values>& rows = {kLine}, int participant = 7,
                       int line = 2) {
    script.OpenSelect(SelectLine(participant, line)).Rows(kColumns, rows);
    script.CloseRows();
}

}  // namespace LumoSeminar::cost_statements
