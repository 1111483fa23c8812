#pragma once

#include <string>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <test_support/cost_statements.h>
#include <test_support/participant_statements.h>
#include <test_support/person_statements.h>
#include <test_support/process_calls.h>
#include <test_support/termin_statements.h>
#include <test_support/waitlist_statements.h>

/// For tests: the steps by which an approval makes person 45 of client 5 a participant of date 17, in their order.
namespace LumoSeminar::approval_steps {

inline constexpr Int32 kUserID = 11;
inline constexpr Int32 kDate = 17;
inline constexpr Byte kEmployee = 2;
inline constexpr Byte kApplicant = 3;
inline constexpr Byte kWorker = 4;

/// The wait-list of the person.
inline const std::string kWaits = waitlist_statements::WhereEmployeeWaits(5, 45);

using Row = std::vector<Variant>;
using LumoConnection::Script;

/// The entry is found, and the process has that state behind the approval.
inline void ScriptApproved(Script& script, int status = 0) {
    waitlist_statements::ScriptList(script, kWaits, {waitlist_statements::RowOfDate(42, kDate)});
    process_calls::ScriptNewDispatcher(script, process_calls::kWaitList, 42, 5, 45);
    process_calls::ScriptConsent(script, kUserID, status);
}

inline void ScriptPerson(Script& script, const Variant& number = 45) {
    person_statements::ScriptLoad(script, person_statements::SelectEmployee(5, 45), {{"Löffler", "Käthe", number}});
}

inline Row DateThatCosts(Money amount) {
    Row row = termin_statements::FullRow();
    row[18] = amount;
    return row;
}

inline const Row kFreeDate = DateThatCosts(Money());

/// A participant of the date: whose it is.
struct Enrolled {
    Int32 key;
    Variant client;
    Variant employee;
};

inline void ScriptDate(Script& script, const std::vector<Enrolled>& enrolled = {}, const Row& row = kFreeDate) {
    participant_statements::ScriptDate(script, {row});
    script.AdoConnection();
    std::vector<Row> keys;
    for (const Enrolled& e : enrolled) keys.push_back({e.key});
    script.OpenSelect(participant_statements::SelectKeys(kDate)).Rows({"TeilnehmerID"}, keys);
    for (const Enrolled& e : enrolled) {
        Row record = participant_statements::FullRow();
        record[1] = e.client;
        record[2] = e.employee;
        participant_statements::ScriptRecord(script, {record}, e.key);
    }
}

inline void ScriptNewParticipant(Script& script) {
    participant_statements::ScriptNew(script);
    script.Process("New SessionDefaults");
    script.Process("SessionDefaults.FirstText 2").Gives(process_calls::kUser);
}

inline std::string InsertOf(int employee, int origin = 4) {
    return participant_statements::Insert("17,5, " + std::to_string(employee) +
                                          ", convert(datetime,'02.03.2010',104), 'Käthe Löffler', -1," + std::to_string(origin) +
                                          ", convert(datetime,'03.03.2010',104),  convert(datetime,'05.03.2010',104), "
                                          "'30.12.1899 08:30', '30.12.1899 16:45',  NULL, 0, 0, 1, '', NULL, NULL");
}

/// The write of the new participant, up to its key.
inline void ScriptInsert(Script& script, int employee = 45, int origin = 4) {
    participant_statements::ScriptDate(script);
    script.OpenSelect(InsertOf(employee, origin));
    script.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT").Gives(42);
}

/// The same without costs.
inline void ScriptFreeInsert(Script& script, int employee = 45, int origin = 4) {
    ScriptInsert(script, employee, origin);
    participant_statements::ScriptCosts(script, 42);
}

inline void ScriptCostCentre(Script& script, const std::vector<Row>& rows) {
    waitlist_statements::ScriptCostCentre(script, 5, 45, "03.03.2010", "05.03.2010", rows);
}

/// The cost line that the cost centre makes.
inline void ScriptNewLine(Script& script) {
    participant_statements::ScriptCosts(script, 0);
    cost_statements::ScriptLoad(script, {}, 0, 0);
}

inline LumoConnection::LookupStep ScriptCostType(Script& script) {
    return script.LookupValue("KostenArten_ID", "sysIData_KostenArten", "KostenArten = 'Teilnehmerkosten'");
}

/// The write of the cost line.
inline void ScriptLine(Script& script, const std::string& values) {
    ScriptCostType(script).Gives(3);
    script.LookupValue("max(KostenID)", "Sem_Teilnehmer_Kosten_IT", "TeilnehmerID =42");
    script.ExecuteSql(cost_statements::InsertLine(values));
}

/// All of an approval that ends with a participant and a cost line.
inline void ScriptWithCosts(Script& script, Money amount, const std::string& written,
                            const std::vector<Row>& cost_centres, const std::string& cost_centre) {
    ScriptApproved(script);
    ScriptPerson(script);
    ScriptDate(script, {}, DateThatCosts(amount));
    ScriptNewParticipant(script);
    ScriptCostCentre(script, cost_centres);
    ScriptNewLine(script);
    ScriptCostType(script).Gives(3);
    ScriptInsert(script);
    ScriptLine(script, "42,1,3," + written + "," + cost_centre);
}

/// Approves on that script, which is the thread's.
inline Bool Approve(Script& script, Byte kind = kEmployee, bool used = true) {
    process_calls::Install(script.Session());
    return person_statements::PersonOf(script.Session(), kind)->TeilnahmeGenehmigen(kDate, kUserID, used);
}

}  // namespace LumoSeminar::approval_steps
