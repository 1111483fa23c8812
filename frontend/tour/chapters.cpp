#include "frontend/tour/chapters.h"

#include <fmt/format.h>

namespace frontend {

namespace {

void NeedSeminar(TourGround& ground) { ground.NeedSeminar(); }
void FindPeople(TourGround& ground) { ground.FindPeople(); }

constexpr Chapter kChapters[] = {
    {"catalogue", "list, read, add, change and remove a seminar",
     [](const TourGround&) -> std::string {
         return "The training department wants a new seminar in the catalogue: it goes in, is corrected, and goes out again.";
     },
     WalkCatalogue, NeedSeminar},
    {"scheduling", "plan a date by a weekly rule, move its end, remove it",
     [](const TourGround&) -> std::string {
         return "The training department wants a date for a seminar: it is planned by a weekly rule, moved, and removed.";
     },
     WalkScheduling, nullptr},
    {"enrolment", "enrol, check, overbook, cancel",
     [](const TourGround& ground) {
         return fmt::format(
             "{} wants a place, and then a second one on the same day. {} comes along on the first date; {} "
             "cancels and keeps the wish.",
             ground.Asking().called, ground.Needing().called, ground.Asking().called);
     },
     WalkEnrolment, FindPeople},
    {"approval", "a need and a wish, the wait-list, and who decides",
     [](const TourGround& ground) {
         return fmt::format(
             "{} wants a place, {} needs training. {} has the first of three places, those who decide give the "
             "other two.",
             ground.Asking().called, ground.Needing().called, ground.Enrolled().called);
     },
     WalkApproval, FindPeople},
};

}  // namespace

std::span<const Chapter> Chapters() { return kChapters; }

std::string Story(const TourGround& ground) {
    return fmt::format(
        "{0} wants a place in a seminar that the catalogue does not have yet. The training department puts it there and plans "
        "a date. {0} gets the place, has to cancel, and asks again, while {1} needs the same seminar. {2} is on the date "
        "already; superiors and training department decide on the rest.",
        ground.Asking().called, ground.Needing().called, ground.Enrolled().called);
}

}  // namespace frontend
