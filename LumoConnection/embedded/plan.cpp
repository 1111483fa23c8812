#include <LumoConnection/embedded/plan.h>

#include <algorithm>

namespace LumoConnection::Embedded {

bool Plan::Fits(const std::vector<Literal>& literals) const {
    return std::ranges::all_of(fixed, [&](const Fixed& own) { return literals[own.literal].text == own.text; });
}

std::shared_ptr<Plan> PlanStore::Find(std::string_view shape, const std::vector<Literal>& literals) {
    const auto found = by_shape_.find(shape);
    if (found == by_shape_.end()) return nullptr;
    for (const auto at : found->second) {
        if (!(*at)->Fits(literals)) continue;
        ++hits_;
        if (at != plans_.begin()) plans_.splice(plans_.begin(), plans_, at);
        return *at;
    }
    return nullptr;
}

void PlanStore::Keep(std::shared_ptr<Plan> plan) {
    if (plan->shape.size() > kMostShape) return;
    if (plans_.size() >= kMostPlans) Remove(std::prev(plans_.end()));
    plans_.push_front(std::move(plan));
    // The key is the text of a plan of that shape; any of them will do, as long as it lives.
    const std::string_view shape = plans_.front()->shape;
    const auto found = by_shape_.find(shape);
    if (found == by_shape_.end()) {
        by_shape_.emplace(shape, Variants{plans_.begin()});
    } else {
        found->second.push_back(plans_.begin());
    }
}

void PlanStore::Remove(Plans::iterator plan) {
    const auto found = by_shape_.find((*plan)->shape);
    Variants rest = std::move(found->second);
    by_shape_.erase(found);
    std::erase(rest, plan);
    if (!rest.empty()) {
        const std::string_view shape = (*rest.front())->shape;
        by_shape_.emplace(shape, std::move(rest));
    }
    plans_.erase(plan);
}

void PlanStore::Clear() {
    by_shape_.clear();
    plans_.clear();
}

}  // namespace LumoConnection::Embedded
