#pragma once

#include <functional>

#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/error_list.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>

/// The process objects of a request, and what else the steps of its approval share, on whichever class they are. Not
/// for front ends.
namespace LumoSeminar {

class clsSemWarteliste;
class clsTeilnehmer;
class clsTermin;

/// The subjects of a process.
namespace ProcessModule {
inline constexpr Int32 kTrainingNeed = 7;
inline constexpr Int32 kWaitList = 8;
}  // namespace ProcessModule

/// Opens the process of a subject on behalf of a user.
void StartProcess(Int32 module_number, Int32 key, Int32 user);

/// Login name that the database knows its user by; empty where it tells none. One lookup.
Text DatabaseLogin(const Ref<DataSession>& session);

/// Cost centre of an employee in a span of days, the first that the server delivers. One statement; 0 where it finds
/// none or is refused.
Int32 CostCentre(const Ref<DataSession>& session, Int32 client, Int32 employee, DateTime begin, DateTime end);

/// The number in a field without its sign; 0 for Null.
Byte AbsoluteByte(const Field& field);

/// The oldest entry of an employee on the wait-list of a date; empty without one. One statement.
Ref<clsSemWarteliste> EntryForDate(const Ref<DataSession>& session, Int32 client, Int32 employee, Int32 date);

/// Gives a new entry of the wait-list of a date its person. It is one of an employee, whatever kind the person is.
void FillEntry(const Ref<clsSemWarteliste>& entry, Int32 client, Int32 employee, Int16 origin, Int32 date);

/// The new participant that waits in the list of the date.
Ref<clsTeilnehmer> EmptyParticipant(const Ref<clsTermin>& date);

/// Checks the participant: a list of what speaks against it, or a new empty one.
Ref<colErrorMsg> FindingsOf(const Ref<clsTeilnehmer>& participant, Bool seminar, Bool taken_before, Bool prerequisites);

struct ApprovedRequest {
    Int32 client;
    Int32 employee;
    Int32 date;
    Int32 origin;
};

/// Gives a new participant its person, the days and times of the date and, where the date costs anything, a cost line.
/// @param cost_centre  asked only then; -1: no cost line
void FillParticipant(const Ref<clsTeilnehmer>& participant, const Ref<clsTermin>& date, const Ref<DataSession>& session,
                     const ApprovedRequest& request, const std::function<Int32()>& cost_centre);

}  // namespace LumoSeminar
