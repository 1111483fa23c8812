#pragma once

#include <concepts>
#include <iosfwd>
#include <string_view>
#include <variant>

#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/money.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

/// A value whose type is known only while running: Empty, Null, a number, a truth value, money, a moment, a text or
/// a reference to an object. A fresh one is Empty.
class Variant {
  public:
    struct NullValue {
        friend constexpr bool operator==(NullValue, NullValue) = default;
    };

    Variant() = default;
    Variant(Int32 value) : value_(value) {}
    Variant(Int16 value) : value_(value) {}
    Variant(Byte value) : value_(value) {}
    Variant(Double value) : value_(value) {}
    Variant(Single value) : value_(value) {}
    Variant(Money value) : value_(value) {}
    Variant(DateTime value) : value_(value) {}
    Variant(Bool value) : value_(value) {}
    template <std::same_as<bool> T>
    Variant(T value) : value_(Bool(value)) {}
    Variant(Text value) : value_(std::move(value)) {}
    Variant(const char* value) : value_(Text(value)) {}
    Variant(std::string_view value) : value_(Text(value)) {}
    template <std::derived_from<Object> T>
    Variant(Ref<T> value) : value_(Ref<Object>(std::move(value))) {}

    static Variant Null() {
        Variant result;
        result.value_ = NullValue{};
        return result;
    }

    bool IsEmpty() const { return std::holds_alternative<std::monostate>(value_); }
    bool IsNull() const { return std::holds_alternative<NullValue>(value_); }
    template <class T>
    bool Is() const {
        return std::holds_alternative<T>(value_);
    }

    /// The value where it is of exactly this type, otherwise null.
    template <class T>
    const T* If() const {
        return std::get_if<T>(&value_);
    }
    template <class T>
    T* If() {
        return std::get_if<T>(&value_);
    }

    /// Name of the type held: "Empty", "Null", "Int32", ...
    std::string_view TypeName() const;

    /// Calls the function with the value in its own type.
    template <class Function>
    decltype(auto) Visit(Function&& function) const {
        return std::visit(std::forward<Function>(function), value_);
    }

    friend bool operator==(const Variant&, const Variant&) = default;

    /// The default text form of the value, nothing for Empty; "Null" and "Object" stand for what has none.
    friend std::ostream& operator<<(std::ostream& to, const Variant& value);

  private:
    std::variant<std::monostate, NullValue, Bool, Byte, Int16, Int32, Single, Double, Money, DateTime, Text, Ref<Object>> value_;
};

/// Conversion of a dynamic value. Empty is 0, false or the empty text; Bool counts as -1 and 0; a moment as its days;
/// halves round to even. Raises invalid use of Null (94), type mismatch (13) for an object and for a text that is no
/// such value, overflow (6).
template <class T>
T To(const Variant& value);

template <>
Bool To<Bool>(const Variant& value);
template <>
Byte To<Byte>(const Variant& value);
template <>
Int16 To<Int16>(const Variant& value);
template <>
Int32 To<Int32>(const Variant& value);
template <>
Single To<Single>(const Variant& value);
template <>
Double To<Double>(const Variant& value);
template <>
Money To<Money>(const Variant& value);
template <>
DateTime To<DateTime>(const Variant& value);
template <>
Text To<Text>(const Variant& value);

}  // namespace LumoSeminar
