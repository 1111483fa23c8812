#include <LumoSeminar/frame/collection.h>

#include <cstdlib>
#include <utility>

namespace LumoSeminar::detail {

CollectionBase::Place::Place(CollectionBase& of) : of_(of), at_(of.entries_.begin()), next_(of.places_) {
    of.places_ = this;
    Take();
}

CollectionBase::Place::~Place() {
    Place** link = &of_.places_;
    while (*link != this) link = &(*link)->next_;
    *link = next_;
}

void CollectionBase::Place::Next() {
    if (!std::exchange(moved_on_, false)) ++at_;
    Take();
}

void CollectionBase::Place::Take() { item_ = AtEnd() ? nullptr : at_->item; }

void CollectionBase::Append(std::shared_ptr<void> item, const Text* key) {
    entries_.push_back({std::move(item), key});
    const auto added = std::prev(entries_.end());
    for (Place* place = places_; place; place = place->next_) {
        // A walk whose last entry was removed goes on with the one that comes behind it.
        if (place->moved_on_ && place->at_ == entries_.end()) place->at_ = added;
    }
}

void CollectionBase::AddEntry(std::shared_ptr<void> item) { Append(std::move(item), nullptr); }

void CollectionBase::AddEntry(std::shared_ptr<void> item, Text key) {
    const auto [under, is_new] = keys_.try_emplace(std::move(key), entries_.end());
    if (!is_new) {
        Raise(ErrorNumber::kKeyAlreadyThere, "The key " + OneLine(under->first) + " is already in the collection.");
    }
    try {
        Append(std::move(item), &under->first);
    } catch (...) {
        keys_.erase(under);
        throw;
    }
    under->second = std::prev(entries_.end());
}

const std::shared_ptr<void>& CollectionBase::Find(const Variant& index_or_key) { return At(index_or_key)->item; }

void CollectionBase::Remove(const Variant& index_or_key) {
    const auto entry = At(index_or_key);
    const auto after = std::next(entry);
    for (Place* place = places_; place; place = place->next_) {
        if (place->at_ != entry) continue;
        place->at_ = after;
        place->moved_on_ = true;
    }
    near_ = entries_.end();
    if (entry->key) keys_.erase(keys_.find(*entry->key));
    // The last reference may go with the entry, and what its object does then must find the list in order.
    const auto item = std::move(entry->item);
    entries_.erase(entry);
}

CollectionBase::Entries::iterator CollectionBase::At(const Variant& index_or_key) {
    if (const Text* key = index_or_key.If<Text>()) {
        const auto found = keys_.find(*key);
        if (found == keys_.end()) {
            Raise(ErrorNumber::kKeyNotFound, "There is no entry under the key " + OneLine(*key) + " in the collection.");
        }
        return found->second;
    }
    return AtPosition(To<Int32>(index_or_key));
}

CollectionBase::Entries::iterator CollectionBase::AtPosition(Int32 position) {
    if (position < 1 || position > Count()) {
        Raise(ErrorNumber::kPositionOutOfRange,
              "There is no entry at position " + std::to_string(position) + " of the collection.");
    }
    if (near_ == entries_.end() || position < std::abs(near_position_ - position)) {
        near_ = entries_.begin();
        near_position_ = 1;
    }
    if (Count() - position < std::abs(near_position_ - position)) {
        near_ = std::prev(entries_.end());
        near_position_ = Count();
    }
    std::advance(near_, position - near_position_);
    near_position_ = position;
    return near_;
}

}  // namespace LumoSeminar::detail
