#pragma once

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/commands/columns.h"
#include "frontend/context.h"

namespace frontend {

/// The participants of a date. Raises 9999 where the database refuses the list.
/// @param filter  a further condition, " AND ..."
LumoSeminar::Ref<LumoSeminar::colTeilnehmer> ParticipantsOf(Context& context, LumoSeminar::Int32 date,
                                                            const LumoSeminar::Text& filter = {});

/// One participant, and the list that holds nobody else.
struct FoundParticipant {
    LumoSeminar::Ref<LumoSeminar::colTeilnehmer> list;
    LumoSeminar::Ref<LumoSeminar::clsTeilnehmer> participant;
};

/// A participant of any date of the client or common to all. Raises key not found (5).
FoundParticipant ParticipantOf(Context& context, LumoSeminar::Int32 key);

/// Raises UsageError where the changes that are in it by now leave the attendance with its end before its begin. What
/// is not set is that of the date.
void CheckAttendance(LumoSeminar::clsTeilnehmer& participant, const std::vector<Change<LumoSeminar::clsTeilnehmer>>& changes);

/// Raises 9999 where the database refuses it.
void WriteParticipant(Context& context, LumoSeminar::clsTeilnehmer& participant);

/// Prints all columns, the person and the costs, all read anew: what is stored can differ from what was let.
void ShowParticipant(Context& context, LumoSeminar::Int32 key);

/// "2 of 12 places free", "overbooked by 1", "no limit of places" for a limit of 0.
LumoSeminar::Text PlacesText(LumoSeminar::Int32 limit, LumoSeminar::Int32 enrolled);

}  // namespace frontend
