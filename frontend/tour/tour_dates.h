#pragma once

#include <optional>

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/tour/fresh_keys.h"
#include "frontend/tour/ground.h"

namespace frontend {

/// The day that many days behind a Monday of next year. The 26 days from the Monday on are of one month.
LumoSeminar::DateTime TourDay(int offset);

/// "DateTime::Of(2027, 3, 1)"
std::string CodeText(LumoSeminar::DateTime day);

/// A seminar of the tour's own in the catalogue, so that nothing depends on those that are there. It goes when the
/// chapter breaks off, and by Remove; with it goes the cost type that the first participant makes where there is none.
class TourSeminar {
  public:
    explicit TourSeminar(const TourGround& ground);

    LumoSeminar::Int32 Key() const { return key_; }
    void Remove();

  private:
    const TourGround& ground_;
    std::optional<FreshKeys> fresh_keys_;
    LumoSeminar::Int32 cost_type_before_ = 0;
    LumoSeminar::Int32 key_ = 0;
    std::optional<TakeBack> row_;
};

/// Writes a date of the tour: a day from 9:00 to 17:00, at 120.00 for each participant.
void PlanTourDate(LumoSeminar::clsTermin& date, const LumoSeminar::Ref<LumoSeminar::DataSession>& session,
                  LumoSeminar::Int32 client, LumoSeminar::Int32 seminar, const LumoSeminar::Text& code,
                  LumoSeminar::Int32 places);

/// The day of such a date.
LumoSeminar::DateTime DayOfTourDate();

/// Another object for the date, which has read nothing yet.
LumoSeminar::Ref<LumoSeminar::clsTermin> Fresh(LumoSeminar::clsTermin& date,
                                               const LumoSeminar::Ref<LumoSeminar::DataSession>& session);

/// Removes the date with its days, its participants and their costs; nothing where it was never written.
void RemoveTourDate(LumoSeminar::clsTermin& date, const LumoSeminar::Ref<LumoSeminar::DataSession>& session);

}  // namespace frontend
