#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

#include <LumoSeminar/frame/errors.h>

namespace LumoSeminar {

/// Base of everything that a reference can hold. Objects are shared, never copied.
class Object {
  public:
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

  protected:
    Object() = default;
};

/// Counted reference. An empty one used as an object raises 91.
template <class T>
class Ref {
  public:
    constexpr Ref() = default;
    constexpr Ref(std::nullptr_t) {}
    template <class U>
    requires std::convertible_to<U*, T*> Ref(std::shared_ptr<U> object) : object_(std::move(object)) {}
    template <class U>
    requires std::convertible_to<U*, T*> Ref(Ref<U> other) : object_(std::move(other).Shared()) {}

    T& operator*() const {
        if (!object_) RaiseEmptyReference();
        return *object_;
    }
    T* operator->() const { return std::addressof(**this); }
    explicit operator bool() const { return object_ != nullptr; }

    /// Null for an empty reference.
    T* Get() const { return object_.get(); }
    void Reset() { object_.reset(); }
    long UseCount() const { return object_.use_count(); }

    const std::shared_ptr<T>& Shared() const& { return object_; }
    std::shared_ptr<T> Shared() && { return std::move(object_); }

    /// The same object seen as a U; empty if it is none.
    template <class U>
    Ref<U> As() const {
        return std::dynamic_pointer_cast<U>(object_);
    }

    template <class U>
    bool operator==(const Ref<U>& other) const {
        return object_ == other.Shared();
    }
    bool operator==(std::nullptr_t) const { return object_ == nullptr; }

  private:
    std::shared_ptr<T> object_;
};

/// What the constructor of a class asks for that only its owner makes.
template <class Owner>
class MadeBy {
    friend Owner;
    explicit MadeBy() = default;
};

/// Creates an object and the first reference to it.
template <class T, class... Args>
Ref<T> New(Args&&... args) {
    static_assert(std::is_constructible_v<T, Args...>,
                  "New cannot make this class from these arguments. Where its constructor asks for a MadeBy, only the "
                  "list named in it can: ask that list for an entry (Add, AddEmptyObject, NewTerminTag).");
    return std::make_shared<T>(std::forward<Args>(args)...);
}

}  // namespace LumoSeminar
