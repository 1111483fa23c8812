#pragma once

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/commands/columns.h"

namespace frontend {

const ColumnTable<LumoSeminar::clsTeilnehmer>& ParticipantColumns();

/// Those that stand open when the date and the person of an enrolment are settled.
const ColumnTable<LumoSeminar::clsTeilnehmer>& EnrolmentColumns();

/// "enrolled" or "cancelled".
const char* StateOf(LumoSeminar::clsTeilnehmer& participant);

/// First and last day.
struct Attendance {
    LumoSeminar::DateTime begin;
    LumoSeminar::DateTime end;
};

/// What the participant has none of is that of the date.
Attendance AttendanceOf(LumoSeminar::clsTeilnehmer& participant);

/// Money where the amount is one, otherwise the number as it stands.
LumoSeminar::Variant AmountOf(LumoSeminar::Single value);

}  // namespace frontend
