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
    try {
        by_shape_[shape].push_back(plans_.begin());
    } catch (...) {
        // Each plan of the list has its place in the table.
        if (const auto found = by_shape_.find(shape); found != by_shape_.end() && found->second.empty()) {
            by_shape_.erase(found);
        }
        plans_.pop_front();
        throw;
    }
}

void PlanStore::Remove(Plans::iterator plan) {
    auto entry = by_shape_.extract((*plan)->shape);
    std::erase(entry.mapped(), plan);
    if (!entry.mapped().empty()) {
        entry.key() = (*entry.mapped().front())->shape;
        by_shape_.insert(std::move(entry));
    }
    plans_.erase(plan);
}

void PlanStore::Clear() {
    by_shape_.clear();
    plans_.clear();
}

}  // namespace LumoConnection::Embedded
