#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/enrolment/clsTeilnehmer.h>
#include <LumoSeminar/frame/error_list.h>
#include <LumoSeminar/frame/variant.h>
#include <test_support/participant_statements.h>
#include <test_support/termin_statements.h>

/// For tests: the statements of the enrolment checks and of the transfer to the wait-list as they are sent, and a
/// participant to run them on.
namespace LumoSeminar::check_statements {

// The conditions for a person, by its kind.

inline std::string OfEmployee(int number, int client) {
    return " AND Sem_Teilnehmer_IT.ANNr = " + std::to_string(number) +
           " And Sem_Teilnehmer_IT.MDNr = " + std::to_string(client);
}

inline std::string OfApplicant(int key) { return " AND Sem_Teilnehmer_IT.BWID = " + std::to_string(key); }

// Open dates of the seminar.

inline std::string OpenDates(int seminar, const std::string& person = {}) {
    return "Select DISTINCT Code,Titel from Sem_Teilnehmer_IT  INNER JOIN Sem_Termin_IT ON Sem_Teilnehmer_IT.SemTerminID = "
           "Sem_Termin_IT.SemTerminID  WHERE Sem_Termin_IT.SemID = " +
           std::to_string(seminar) + " AND Sem_Termin_IT.Status <= 2 AND Teilnahme = -1" + person + " ORDER BY Code,Titel ";
}

// Enrolled in the date.

inline std::string EnrolledEmployee(int client, int number) {
    return " AND Teilnahme <> 0 AND MDNR = " + std::to_string(client) + " AND ANNR = " + std::to_string(number);
}

inline std::string EnrolledApplicant(int client, int key) {
    return " AND Teilnahme <> 0  AND MDNR = " + std::to_string(client) + " AND BWID = " + std::to_string(key);
}

inline std::string Enrolled(int date, const std::string& person = {}) {
    return "Select TeilnehmerID From Sem_Teilnehmer_IT  Where SemTerminID = " + std::to_string(date) + person;
}

// Busy at the same time.

inline std::string Overlaps(int date, const std::string& person = {}) {
    const std::string key = std::to_string(date);
    return "Select DISTINCT Code,Titel  From Sem_Termin_Termine_IT  INNER JOIN Sem_Termin_IT ON "
           "Sem_Termin_Termine_IT.SemTerminID = Sem_Termin_IT.SemTerminID  INNER JOIN Sem_Teilnehmer_IT ON "
           "Sem_Teilnehmer_IT.SemTerminID = Sem_Termin_Termine_IT.SemTerminID  WHERE Sem_Termin_Termine_IT.SemTerminID <> " +
           key +
           " AND ((SELECT BegUhr FROM Sem_Termin_Termine_IT SemTerminBeginn WHERE SemTerminBeginn.Termin = "
           "Sem_Termin_Termine_IT.Termin AND SemTerminID = " +
           key +
           ") BETWEEN BegUhr AND EndUhr  OR (SELECT EndUhr FROM Sem_Termin_Termine_IT SemTerminEnde WHERE "
           "SemTerminEnde.Termin = Sem_Termin_Termine_IT.Termin AND SemTerminID = " +
           key + ") BETWEEN BegUhr AND EndUhr)" + person;
}

// The seminar taken before.

inline std::string TakenBefore(int seminar, const std::string& person = {}) {
    return "Select DISTINCT Code,Titel From Sem_Teilnehmer_IT  INNER JOIN Sem_Termin_IT ON Sem_Teilnehmer_IT.SemTerminID = "
           "Sem_Termin_IT.SemTerminID  WHERE Sem_Termin_IT.SemID = " +
           std::to_string(seminar) + " AND Sem_Termin_IT.Status = 4 AND Teilnahme = -1" + person;
}

// Prerequisites.

inline std::string CountRequiredSeminars(int seminar) {
    return "SELECT count(gef_SemID) FROM Sem_Anford_Seminare WHERE SemID = " + std::to_string(seminar);
}

inline std::string RequiredOfEmployee(int number) { return " AND Sem_Teilnehmer_IT.ANNr = " + std::to_string(number); }
inline std::string RequiredOfApplicant(int key) { return " AND Sem_Teilnehmer_IT.BWID =" + std::to_string(key); }

inline std::string RequiredTaken(int seminar, int client, const std::string& person = {}) {
    return "SELECT Sem_Teilnehmer_IT.MDNR,Sem_Teilnehmer_IT.ANNR  From Sem_Teilnehmer_IT INNER JOIN Sem_Termin_IT ON "
           "Sem_Teilnehmer_IT.SemTerminID = Sem_Termin_IT.SemTerminID  INNER JOIN Sem_Anford_Seminare ON "
           "Sem_Termin_IT.SemID = Sem_Anford_Seminare.SemID  Where not Sem_Teilnehmer_IT.Teilnahme = 0 AND "
           "Sem_Anford_Seminare.SemID = " +
           std::to_string(seminar) + " AND Sem_Teilnehmer_IT.MDNr = " + std::to_string(client) + person;
}

inline std::string CountRequiredSkills(int seminar) {
    return "SELECT count(Prof_ID) FROM Sem_Anford_Faehigkeiten WHERE SemID = " + std::to_string(seminar);
}

inline std::string CountHeldSkills(int client, int number) {
    return "SELECT Count(Prof_ID) FROM  AN_Faehigkeiten INNER JOIN Sem_Anford_Faehigkeiten ON "
           "Sem_Anford_Faehigkeiten.Prof_ID = AN_Faehigkeiten.Prof_ID  WHERE Sem_Anford_Faehigkeiten.SemID = @intSemID AND "
           "AN_Faehigkeiten.MDNr = " +
           std::to_string(client) + " AND AN_Faehigkeiten.ANNr = " + std::to_string(number);
}

// The transfer to the wait-list.

inline std::string TransferToDate(int date, int person, int client, int kind) {
    const std::string key = std::to_string(date);
    const std::string tn = std::to_string(person);
    const std::string md = std::to_string(client);
    const std::string mod = std::to_string(kind);
    return "Declare @SemWartelisteID int\r\n"
           "set @SemWartelisteID = isnull((Select Max(SemWarteListeID) From Sem_Warteliste_IT),0)+1\r\n"
           "if not exists (Select Sem_Warteliste_IT.SemWarteListeID From Sem_Warteliste_IT INNER JOIN "
           "Sem_WartelisteTermin_IT ON Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteTermin_IT.SemWarteListeID  Where "
           "SemTerminID = " +
           key + " AND TNID = " + tn + " AND MDNr = " + md + " AND ModID = " + mod +
           ")\r\n"
           "Begin\r\n"
           "Insert Into Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID, ErfDat, Herkunft) Values( @SemWartelisteID," +
           mod + "," + md + "," + tn +
           ",getdate(),2)\r\n"
           "Insert Into Sem_WartelisteTermin_IT (SemWarteListeID, SemTerminID) Values (@SemWartelisteID, " +
           key +
           ")\r\n"
           "End";
}

inline std::string TransferToSeminar(int seminar, int person, int client, int kind) {
    const std::string key = std::to_string(seminar);
    const std::string tn = std::to_string(person);
    const std::string md = std::to_string(client);
    const std::string mod = std::to_string(kind);
    return "Declare @SemWartelisteID int\r\n"
           "set @SemWartelisteID = isnull((Select Max(SemWarteListeID) From Sem_Warteliste_IT),0)+1\r\n"
           "if not exists (Select Sem_Warteliste_IT.SemWarteListeID From Sem_Warteliste_IT INNER JOIN "
           "Sem_WartelisteSem_IT ON Sem_Warteliste_IT.SemWarteListeID = Sem_WartelisteSem_IT.SemWarteListeID  Where "
           "SemID = " +
           key + " AND TNID = " + tn + " AND MDNr = " + md + " AND ModID = " + mod +
           ")\r\n"
           "Begin\r\n"
           "Insert Into Sem_Warteliste_IT (SemWarteListeID, ModID, MDNr, TNID, ErfDat, Herkunft) Values( @SemWartelisteID," +
           mod + "," + md + "," + tn +
           ",getdate(),2)\r\n"
           "Insert Into Sem_WartelisteSem_IT (SemWarteListeID, SemID) Values (@SemWartelisteID, " +
           key +
           ")\r\n"
           "End";
}

// A participant.

/// The fields of a record that say who it is.
struct PersonKeys {
    Int32 ANNr = 0;
    Int32 BWID = 0;
    Int32 LAID = 0;
};

inline constexpr PersonKeys kEmployee = {.ANNr = 100};
inline constexpr PersonKeys kApplicant = {.BWID = 77};
inline constexpr PersonKeys kWorker = {.LAID = 9};
inline constexpr PersonKeys kNobody = {};

/// The scripted record: participant 42 of client 5 in date 17, which is a date of seminar 105.
inline constexpr Int32 kRecord = 42;
inline constexpr Int32 kDate = 17;
inline constexpr Int32 kSeminar = 105;

using RowValues = std::vector<std::vector<Variant>>;

/// What Record sends.
inline void ScriptRecord(LumoConnection::Script& script, const PersonKeys& keys) {
    auto row = participant_statements::NullRow();
    row[0] = kDate;
    row[1] = 5;
    row[2] = keys.ANNr;
    row[3] = keys.BWID;
    row[4] = keys.LAID;
    script.AdoConnection();
    script.OpenSelect(participant_statements::Select(kRecord)).Rows(participant_statements::kColumns, {row});
}

/// The load of the date.
inline void ScriptDate(LumoConnection::Script& script, const Variant& seminar = kSeminar, int date = kDate) {
    auto row = termin_statements::NullRow();
    row[4] = seminar;
    script.OpenSelect(termin_statements::Select(date)).Rows(termin_statements::kColumns, {row});
}

/// A record of a date, loaded; an empty reference where it cannot be bound.
inline Ref<clsTeilnehmer> Record(const Ref<DataSession>& session, Int32 date = kDate, Int32 key = kRecord) {
    auto record = participant_statements::Made();
    return record->Init(key, session, date) ? record : nullptr;
}

// The statements with their answers. The row sets of open dates and of the seminar taken before are closed only where
// they have rows.

inline void ScriptOpenDates(LumoConnection::Script& script, const std::string& person, const RowValues& rows = {},
                            int seminar = kSeminar) {
    script.OpenSelect(OpenDates(seminar, person)).Rows({"Code", "Titel"}, rows);
    if (!rows.empty()) script.CloseRows();
}

inline void ScriptEnrolled(LumoConnection::Script& script, const std::string& person, const RowValues& rows = {},
                           int date = kDate) {
    script.OpenSelect(Enrolled(date, person)).Rows({"TeilnehmerID"}, rows);
    script.CloseRows();
}

inline void ScriptOverlaps(LumoConnection::Script& script, const std::string& person, const RowValues& rows = {},
                           int date = kDate) {
    script.OpenSelect(Overlaps(date, person)).Rows({"Code", "Titel"}, rows);
    script.CloseRows();
}

inline void ScriptTakenBefore(LumoConnection::Script& script, const std::string& person, const RowValues& rows = {},
                              int seminar = kSeminar) {
    script.OpenSelect(TakenBefore(seminar, person)).Rows({"Code", "Titel"}, rows);
    if (!rows.empty()) script.CloseRows();
}

inline void ScriptRequiredTaken(LumoConnection::Script& script, const std::string& person, const RowValues& rows = {},
                                int seminar = kSeminar) {
    script.OpenSelect(RequiredTaken(seminar, 5, person)).Rows({"MDNR", "ANNR"}, rows);
    script.CloseRows();
}

/// A count, whose row set is not closed.
inline void ScriptCount(LumoConnection::Script& script, const std::string& sql, const Variant& count) {
    script.OpenSelect(sql).Rows({""}, {{count}});
}

/// The two checks that have no option, for the employee, without a finding.
inline void ScriptAlways(LumoConnection::Script& script) {
    ScriptEnrolled(script, EnrolledEmployee(5, 100));
    ScriptOverlaps(script, OfEmployee(100, 5));
}

/// Up to the skills: there are required seminars, and no enrolment in the seminar.
inline void ScriptUpToTheSkills(LumoConnection::Script& script) {
    ScriptAlways(script);
    ScriptDate(script);
    ScriptCount(script, CountRequiredSeminars(kSeminar), 1);
    ScriptRequiredTaken(script, RequiredOfEmployee(100));
}

/// Number and ParamName, in the order of the list.
using Findings = std::vector<std::pair<Int32, Text>>;

inline Findings FindingsOf(colErrorMsg& list) {
    Findings all;
    for (const auto& finding : list.NewEnum()) {
        all.emplace_back(finding->ErrID(), finding->ParamName());
        EXPECT_EQ(finding->ParamDate(), DateTime());
        EXPECT_EQ(finding->errZusatzInfo(), "");
    }
    return all;
}

inline Findings FindingsOf(clsTeilnehmer& record) { return FindingsOf(*record.colErrorsAnmeldung()); }

/// Expects that the script was met, that nobody asked why something was refused, and that nothing is held any more once
/// the record is gone.
inline void ExpectMet(const LumoConnection::Script& script, Ref<clsTeilnehmer>& record) {
    EXPECT_EQ(script.Report(), "");
    EXPECT_EQ(script.LastErrorTextCalls(), 0);
    record.Reset();
    EXPECT_TRUE(script.SessionReleased());
}

}  // namespace LumoSeminar::check_statements
