#include <LumoSeminar/frame/collection.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace LumoSeminar::detail {
namespace {

// Lets go of an entry and of the object that owns its list, together.
struct Held {
    void operator()(void*) {
        item.reset();
        owner.reset();
    }

    std::shared_ptr<void> owner;
    std::shared_ptr<void> item;
};

}  // namespace

CollectionBase::Place::Place(CollectionBase& of) : of_(of), at_(of.first_), next_(of.places_) {
    of.places_ = this;
    Take();
}

CollectionBase::Place::~Place() {
    Place** link = &of_.places_;
    while (*link != this) link = &(*link)->next_;
    *link = next_;
}

void CollectionBase::Place::Next() {
    if (!std::exchange(moved_on_, false)) at_ = at_->after;
    Take();
}

void CollectionBase::Place::Take() { item_ = at_ ? at_->item : nullptr; }

void CollectionBase::KeyText::Set(std::string_view text) {
    if (text.size() > here_.size()) {
        far_ = std::make_unique<const Text>(text);
        return;
    }
    far_.reset();
    text.copy(here_.data(), text.size());
    size_ = static_cast<std::uint8_t>(text.size());
}

CollectionBase::Entry* CollectionBase::NewEntry() {
    if (!unused_) {
        constexpr std::size_t kFirst = 4;
        constexpr std::size_t kMost = 64;
        const std::size_t size = std::min(kFirst << std::min<std::size_t>(blocks_.size(), 4), kMost);
        const auto& block = blocks_.emplace_back(std::make_unique<Entry[]>(size));
        for (std::size_t i = size; i-- > 0;) unused_ = &(block[i].after = unused_, block[i]);
    }
    return std::exchange(unused_, unused_->after);
}

void CollectionBase::Append(Entry* entry) {
    entry->before = last_;
    entry->after = nullptr;
    (last_ ? last_->after : first_) = entry;
    last_ = entry;
    ++count_;
    for (Place* place = places_; place; place = place->next_) {
        // A walk whose last entry was removed goes on with the one that comes behind it.
        if (place->moved_on_ && !place->at_) place->at_ = entry;
    }
}

void CollectionBase::AddEntry(std::shared_ptr<void> item) {
    BuildIndex();
    Entry* const entry = NewEntry();
    entry->item = TakeIn(std::move(item));
    entry->has_key = false;
    Append(entry);
}

void CollectionBase::AddEntry(std::shared_ptr<void> item, std::string_view key) {
    if (!indexed_ && last_ && key <= last_->key.View()) BuildIndex();
    if (indexed_ && index_.contains(key)) {
        Raise(ErrorNumber::kKeyAlreadyThere, "The key " + OneLine(key) + " is already in the collection.");
    }
    Entry* const entry = NewEntry();
    try {
        entry->key.Set(key);
        if (indexed_) index_.emplace(entry->key.View(), entry);
    } catch (...) {
        entry->after = std::exchange(unused_, entry);
        throw;
    }
    entry->item = TakeIn(std::move(item));
    entry->has_key = true;
    Append(entry);
}

void CollectionBase::BuildIndex() {
    if (indexed_) return;
    index_.clear();
    index_.reserve(static_cast<std::size_t>(count_));
    for (Entry* entry = first_; entry; entry = entry->after) index_.emplace(entry->key.View(), entry);
    indexed_ = true;
}

std::shared_ptr<void> CollectionBase::Find(const Variant& index_or_key) { return HandOut(At(index_or_key)->item); }

std::shared_ptr<void> CollectionBase::HandOut(const std::shared_ptr<void>& item) const {
    auto owner = holds_also_.lock();
    if (!owner || !item) return item;
    return {item.get(), Held{std::move(owner), item}};
}

std::shared_ptr<void> CollectionBase::TakeIn(std::shared_ptr<void> item) const {
    const Held* held = std::get_deleter<Held>(item);
    return held && held->owner == holds_also_.lock() ? held->item : item;
}

bool CollectionBase::HasNoSuchKey(const Variant& index_or_key) {
    const Text* key = index_or_key.If<Text>();
    return key && !UnderKey(*key);
}

void CollectionBase::Remove(const Variant& index_or_key) {
    Entry* const entry = At(index_or_key);
    for (Place* place = places_; place; place = place->next_) {
        if (place->at_ != entry) continue;
        place->at_ = entry->after;
        place->moved_on_ = true;
    }
    near_ = nullptr;
    if (indexed_ && entry->has_key) index_.erase(entry->key.View());
    (entry->before ? entry->before->after : first_) = entry->after;
    (entry->after ? entry->after->before : last_) = entry->before;
    --count_;
    // The last reference may go with the entry, and what its object does then must find the list in order.
    const auto item = std::move(entry->item);
    entry->after = std::exchange(unused_, entry);
}

CollectionBase::Entry* CollectionBase::At(const Variant& index_or_key) {
    const Text* key = index_or_key.If<Text>();
    if (!key) return AtPosition(To<Int32>(index_or_key));
    if (Entry* const entry = UnderKey(*key)) return entry;
    Raise(ErrorNumber::kKeyNotFound, "There is no entry under the key " + OneLine(*key) + " in the collection.");
}

CollectionBase::Entry* CollectionBase::UnderKey(std::string_view key) {
    if (steps_ > count_) BuildIndex();
    if (indexed_) {
        const auto found = index_.find(key);
        return found == index_.end() ? nullptr : found->second;
    }
    Entry* entry = first_;
    for (; entry && entry->key.View() < key; entry = entry->after) ++steps_;
    return entry && entry->key.View() == key ? entry : nullptr;
}

CollectionBase::Entry* CollectionBase::AtPosition(Int32 position) {
    if (position < 1 || position > count_) {
        Raise(ErrorNumber::kPositionOutOfRange,
              "There is no entry at position " + std::to_string(position) + " of the collection.");
    }
    if (!near_ || position < std::abs(near_position_ - position)) {
        near_ = first_;
        near_position_ = 1;
    }
    if (count_ - position < std::abs(near_position_ - position)) {
        near_ = last_;
        near_position_ = count_;
    }
    for (; near_position_ < position; ++near_position_) near_ = near_->after;
    for (; near_position_ > position; --near_position_) near_ = near_->before;
    return near_;
}

}  // namespace LumoSeminar::detail
