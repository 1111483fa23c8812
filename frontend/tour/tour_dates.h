#pragma once

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

/// Writes a date of the tour: 05.04.2027 from 9:00 to 17:00, at 120.00 for each participant.
void PlanTourDate(LumoSeminar::clsTermin& date, const LumoSeminar::Ref<LumoSeminar::DataSession>& session,
                  LumoSeminar::Int32 client, LumoSeminar::Int32 seminar, const LumoSeminar::Text& code,
                  LumoSeminar::Int32 places);

/// Another object for the date, which has read nothing yet.
LumoSeminar::Ref<LumoSeminar::clsTermin> Fresh(LumoSeminar::clsTermin& date,
                                               const LumoSeminar::Ref<LumoSeminar::DataSession>& session);

/// Removes the date with its days, its participants and their costs; nothing where it was never written.
void RemoveTourDate(LumoSeminar::clsTermin& date, const LumoSeminar::Ref<LumoSeminar::DataSession>& session);

}  // namespace frontend
