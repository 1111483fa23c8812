#include "frontend/tour/ground.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr std::size_t kPeople = 3;

TourPerson Employee(const TourGround& ground, Int32 number) {
    const auto person = New<clsWBPerson>();
    auto session = ground.session;
    person->Init(ground.client, number, 2, session);
    const Text first = person->Vorname();
    const Text last = person->Nachname();
    if (first.empty() && last.empty())
        return {number, fmt::format("Employee {}", number), fmt::format("Employee {}", number)};
    if (first.empty() || last.empty()) return {number, first + last, first + last};
    return {number, first, first + " " + last};
}

}  // namespace

void TourGround::NeedSeminar() const {
    if (CountRows("Sem_Katalog_IT", fmt::format("MDNr = {} or MDNr = -1", client)) != 0) return;
    Raise(ErrorNumber::kPositionOutOfRange,
          fmt::format("Client {} has no seminar in this database: the tour has nothing to show.", client));
}

void TourGround::FindPeople() {
    people.clear();
    for (Int32 number = 0; people.size() < kPeople; people.push_back(Employee(*this, number))) {
        const auto next =
            session->LookupValue("min(ANNR)", "Arbeitnehmer", fmt::format("MDNR = {} AND ANNR > {}", client, number));
        if (next.IsNull()) {
            Raise(ErrorNumber::kPositionOutOfRange,
                  fmt::format("Client {} has fewer than three employees in this database: the tour has nobody to tell of.",
                              client));
        }
        number = To<Int32>(next);
    }
}

}  // namespace frontend
