#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/variant.h>
#include <LumoSeminar/needs/clsWBPerson.h>
#include <test_support/participant_statements.h>

/// For tests: the statements of a person as they are sent, by its kind, and ways to get a person and its history.
namespace LumoSeminar::person_statements {

inline std::string SelectEmployee(int client, int key) {
    return "Select Name,Vorname,ANNR from Arbeitnehmer where MDNR = " + std::to_string(client) +
           " AND ANNR = " + std::to_string(key);
}

inline std::string SelectApplicant(int key) {
    return "Select Nachname,Vornamem,BWNr from BW where BWID = " + std::to_string(key);
}

inline std::string SelectWorker(int key) {
    return "Select Name,Vorname,LID from LA where LID = " + std::to_string(key);
}

inline std::string SelectHistory(const std::string& condition) {
    return "Select TeilnehmerID,SemTerminID from Sem_Teilnehmer_IT WHERE " + condition +
           " Order by BeginnDatum, BegUhrzeit,EndeDatum,EndUhrzeit ";
}

inline std::string HistoryOfEmployee(int client, int key) {
    return SelectHistory("MDNR = " + std::to_string(client) + " AND ANNR =" + std::to_string(key));
}

inline std::string HistoryOfApplicant(int key) { return SelectHistory("BWID = " + std::to_string(key)); }

inline std::string HistoryOfWorker(int key) { return SelectHistory("LAID = " + std::to_string(key)); }

/// What a number for the kind of person makes of person 45 of client 5.
struct Kind {
    Byte number;
    Text letters;
    std::string select;
    std::string history;
};

/// The three kinds, and numbers that are none.
inline std::vector<Kind> Kinds() {
    return {
        {2, "AN", SelectEmployee(5, 45), HistoryOfEmployee(5, 45)},
        {3, "BW", SelectApplicant(45), HistoryOfApplicant(45)},
        {4, "LA", SelectWorker(45), HistoryOfWorker(45)},
        {0, "LA", SelectWorker(45), HistoryOfWorker(45)},
        {9, "LA", SelectWorker(45), HistoryOfWorker(45)},
        {255, "LA", SelectWorker(45), HistoryOfWorker(45)},
    };
}

inline Ref<clsWBPerson> PersonOf(Ref<DataSession> session, Byte kind, Int32 key = 45, Int32 client = 5) {
    auto person = New<clsWBPerson>();
    EXPECT_EQ(person->Init(client, key, kind, session), false);
    return person;
}

inline const std::vector<Variant> kLoeffler = {"Löffler", "Käthe \"Kät\"", "B-2010-ä"};

/// The load of the names and the number.
inline void ScriptLoad(LumoConnection::Script& script, const std::string& sql,
                       const std::vector<std::vector<Variant>>& rows = {kLoeffler}) {
    script.OpenSelect(sql).Rows({"Name", "Vorname", "Nummer"}, rows);
    script.CloseRows();
}

inline const std::vector<std::string> kHistoryColumns = {"TeilnehmerID", "SemTerminID"};

/// The load of the training history with enrolments of these keys in date 17, each read with the full row.
inline void ScriptHistory(LumoConnection::Script& script, const std::string& sql, const std::vector<Int32>& keys) {
    std::vector<std::vector<Variant>> rows;
    for (const Int32 key : keys) rows.push_back({key, 17});
    const auto select = script.OpenSelect(sql).Rows(kHistoryColumns, rows);
    for (const Int32 key : keys) participant_statements::ScriptRecord(script, {participant_statements::FullRow()}, key);
    script.CloseRows(select);
}

}  // namespace LumoSeminar::person_statements
