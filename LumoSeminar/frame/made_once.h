#pragma once

#include <utility>

#include <LumoSeminar/frame/reference.h>

namespace LumoSeminar {

/// The object that a child reference holds; made and bound at the first call. What raises while it is bound leaves it
/// in the reference.
template <class T, class Bind>
Ref<T> MadeOnce(Ref<T>& child, Bind&& bind) {
    if (!child) {
        child = New<T>();
        std::forward<Bind>(bind)(*child);
    }
    return child;
}

}  // namespace LumoSeminar
