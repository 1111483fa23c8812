#pragma once

#include <span>
#include <string>

#include "frontend/tour/ground.h"

namespace frontend {

/// A part of the tour that stands alone: it brings what it needs, and leaves the database as it found it.
struct Chapter {
    const char* name;
    /// What it shows, for the help.
    const char* summary;
    /// Who wants what.
    std::string (*who_wants_what)(const TourGround&);
    void (*walk)(TourGround&);
    /// Finds what it needs to be there, and raises 9 where it is not. Null: it needs nothing.
    void (*prepare)(TourGround&);
};

/// In the order of the tour.
std::span<const Chapter> Chapters();

/// Who wants what in all of them together.
std::string Story(const TourGround& ground);

// A file each.
void WalkCatalogue(TourGround& ground);
void WalkScheduling(TourGround& ground);
void WalkEnrolment(TourGround& ground);
void WalkApproval(TourGround& ground);

}  // namespace frontend
