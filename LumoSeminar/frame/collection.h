#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

namespace detail {

/// What all collections share, whatever they hold.
class CollectionBase : public Object {
  public:
    Int32 Count() const { return count_; }

    /// Takes out the entry at a position or under a key. Raises as Item does.
    void Remove(const Variant& index_or_key);

    CollectionBase() = default;
    ~CollectionBase() override = default;

  protected:
    /// A short text in place, a longer one on the heap.
    class KeyText {
      public:
        void Set(std::string_view text);
        std::string_view View() const { return far_ ? std::string_view(*far_) : std::string_view(here_.data(), size_); }

      private:
        std::array<char, 23> here_;
        std::uint8_t size_ = 0;
        std::unique_ptr<const Text> far_;
    };

    struct Entry {
        std::shared_ptr<void> item;
        KeyText key;
        bool has_key = false;
        Entry* before = nullptr;
        Entry* after = nullptr;
    };

    /// A place in a walk that stays good when entries are removed.
    class Place {
      public:
        explicit Place(CollectionBase& of);
        Place(const Place&) = delete;
        Place& operator=(const Place&) = delete;
        ~Place();

        bool AtEnd() const { return at_ == nullptr; }
        std::shared_ptr<void> Item() const { return of_.HandOut(item_); }
        void Next();

      private:
        friend class CollectionBase;
        void Take();

        CollectionBase& of_;
        Entry* at_;
        std::shared_ptr<void> item_;
        bool moved_on_ = false;
        Place* next_;
    };

    void AddEntry(std::shared_ptr<void> item);
    void AddEntry(std::shared_ptr<void> item, std::string_view key);
    std::shared_ptr<void> Find(const Variant& index_or_key);
    bool HasNoSuchKey(const Variant& index_or_key);

    void HoldsAlsoObject(std::weak_ptr<void> object) { holds_also_ = std::move(object); }

  private:
    std::shared_ptr<void> HandOut(const std::shared_ptr<void>& item) const;
    /// What HandOut was given, where the reference is one of its own: the list does not hold its owner.
    std::shared_ptr<void> TakeIn(std::shared_ptr<void> item) const;
    Entry* NewEntry();
    void Append(Entry* entry);
    Entry* At(const Variant& index_or_key);
    Entry* AtPosition(Int32 position);
    /// Null where there is no such key.
    Entry* UnderKey(std::string_view key);
    void BuildIndex();

    // Entries are made in blocks and used again when they were removed.
    std::vector<std::unique_ptr<Entry[]>> blocks_;
    Entry* unused_ = nullptr;
    Entry* first_ = nullptr;
    Entry* last_ = nullptr;
    Int32 count_ = 0;

    // Lists mostly come in the order of their keys, and are asked for few of them or none. So as long as every entry
    // has a key and the keys rise, there is no index; it is built where one does not rise, or once looking for keys has
    // cost a step for each entry.
    std::unordered_map<std::string_view, Entry*> index_;
    bool indexed_ = false;
    Int32 steps_ = 0;

    // The position asked for last: a walk by positions costs one step an entry.
    Entry* near_ = nullptr;
    Int32 near_position_ = 0;
    Place* places_ = nullptr;
    std::weak_ptr<void> holds_also_;
};

}  // namespace detail

/// An ordered list of references with optional text keys, told apart by capitals. Positions start at 1.
template <class T>
class Collection final : public detail::CollectionBase {
  public:
    /// Puts the entry at the end.
    void Add(const Ref<T>& item) { AddEntry(item.Shared()); }

    /// Raises 457 where the key is there already.
    void Add(const Ref<T>& item, std::string_view key) { AddEntry(item.Shared(), key); }

    /// The entry under a key (a Text) or at a position (any number). Raises key not found (5), position out of
    /// range (9).
    Ref<T> Item(const Variant& index_or_key) { return std::static_pointer_cast<T>(Find(index_or_key)); }

    /// As Item, but an empty reference for a key that is not there.
    Ref<T> ItemOrNothing(const Variant& index_or_key) {
        return HasNoSuchKey(index_or_key) ? nullptr : Item(index_or_key);
    }

    /// From now on each reference to an entry that the list gives out holds that object, too. For a list whose entries
    /// reach the object that owns it: owner and entries then live as long as any of them is held from outside.
    void HoldsAlso(std::weak_ptr<void> object) { HoldsAlsoObject(std::move(object)); }

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
