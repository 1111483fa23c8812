#pragma once

#include <cstddef>
#include <functional>
#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

namespace detail {

/// What all collections share, whatever they hold.
class CollectionBase : public Object {
  public:
    Int32 Count() const { return static_cast<Int32>(entries_.size()); }

    /// Takes out the entry at a position or under a key. Raises as Item does.
    void Remove(const Variant& index_or_key);

    CollectionBase() = default;
    ~CollectionBase() override = default;

  protected:
    struct Entry {
        std::shared_ptr<void> item;
        const Text* key;  // null without a key
    };
    using Entries = std::list<Entry>;

    /// A place in a walk that stays good when entries are removed.
    class Place {
      public:
        explicit Place(CollectionBase& of);
        Place(const Place&) = delete;
        Place& operator=(const Place&) = delete;
        ~Place();

        bool AtEnd() const { return at_ == of_.entries_.end(); }
        const std::shared_ptr<void>& Item() const { return item_; }
        void Next();

      private:
        friend class CollectionBase;
        void Take();

        CollectionBase& of_;
        Entries::iterator at_;
        std::shared_ptr<void> item_;
        bool moved_on_ = false;
        Place* next_;
    };

    void AddEntry(std::shared_ptr<void> item);
    void AddEntry(std::shared_ptr<void> item, Text key);
    const std::shared_ptr<void>& Find(const Variant& index_or_key);

  private:
    struct KeyHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>{}(key); }
    };

    void Append(std::shared_ptr<void> item, const Text* key);
    Entries::iterator At(const Variant& index_or_key);
    Entries::iterator AtPosition(Int32 position);

    Entries entries_;
    std::unordered_map<Text, Entries::iterator, KeyHash, std::equal_to<>> keys_;
    // The position asked for last: a walk by positions costs one step an entry.
    Entries::iterator near_ = entries_.end();
    Int32 near_position_ = 0;
    Place* places_ = nullptr;
};

}  // namespace detail

/// An ordered list of references with optional text keys, told apart by capitals. Positions start at 1.
template <class T>
class Collection final : public detail::CollectionBase {
  public:
    /// Puts the entry at the end.
    void Add(const Ref<T>& item) { AddEntry(item.Shared()); }

    /// Raises 457 where the key is there already.
    void Add(const Ref<T>& item, Text key) { AddEntry(item.Shared(), std::move(key)); }

    /// The entry under a key (a Text) or at a position (any number). Raises key not found (5), position out of
    /// range (9).
    Ref<T> Item(const Variant& index_or_key) { return std::static_pointer_cast<T>(Find(index_or_key)); }

    class Iterator : Place {
      public:
        explicit Iterator(Collection& of) : Place(of) {}
        Ref<T> operator*() const { return std::static_pointer_cast<T>(this->Item()); }
        Iterator& operator++() {
            this->Next();
            return *this;
        }
        bool operator==(std::default_sentinel_t) const { return this->AtEnd(); }
    };

    /// A walk in order. Entries may be removed and added meanwhile: each entry that is there when its turn comes is
    /// met once.
    Iterator begin() { return Iterator(*this); }
    std::default_sentinel_t end() { return {}; }
};

/// A walk over a collection, which it keeps alive: for (const auto& entry : list->NewEnum()) ...
template <class T>
class Enumerator {
  public:
    explicit Enumerator(Ref<Collection<T>> of) : of_(std::move(of)) {}
    auto begin() const { return of_->begin(); }
    auto end() const { return of_->end(); }

  private:
    Ref<Collection<T>> of_;
};

}  // namespace LumoSeminar
