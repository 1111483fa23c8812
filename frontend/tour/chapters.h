#pragma once

namespace frontend {

struct TourGround;

// A chapter a file. Each leaves the database as it found it.
void WalkCatalogue(TourGround& ground);
void WalkScheduling(TourGround& ground);
void WalkEnrolment(TourGround& ground);
void WalkApproval(TourGround& ground);

}  // namespace frontend
