#include <LumoSeminar/frame/variant.h>

#include <ostream>

#include <LumoSeminar/frame/text_form.h>

namespace LumoSeminar {
namespace {

using NullValue = Variant::NullValue;

template <class T>
constexpr std::string_view kName;
template <>
constexpr std::string_view kName<std::monostate> = "Empty";
template <>
constexpr std::string_view kName<NullValue> = "Null";
template <>
constexpr std::string_view kName<Bool> = "Bool";
template <>
constexpr std::string_view kName<Byte> = "Byte";
template <>
constexpr std::string_view kName<Int16> = "Int16";
template <>
constexpr std::string_view kName<Int32> = "Int32";
template <>
constexpr std::string_view kName<Single> = "Single";
template <>
constexpr std::string_view kName<Double> = "Double";
template <>
constexpr std::string_view kName<Money> = "Money";
template <>
constexpr std::string_view kName<DateTime> = "DateTime";
template <>
constexpr std::string_view kName<Text> = "Text";
template <>
constexpr std::string_view kName<Ref<Object>> = "Object";

Money Nearest(Double value) { return Money::FromDouble(value); }
Money Nearest(Single value) { return Money::FromSingle(value); }

// One conversion: from each type that a Variant can hold.
template <class T>
struct Convert {
    T operator()(std::monostate) const { return T{}; }
    T operator()(NullValue) const { RaiseInvalidUseOfNull(); }
    T operator()(const Ref<Object>&) const { RaiseTypeMismatch("an object", kName<T>); }

    T operator()(Bool value) const {
        if constexpr (std::same_as<T, Bool>) {
            return value;
        } else if constexpr (std::same_as<T, Text>) {
            return DefaultText(value);
        } else {
            return (*this)(value.Number());
        }
    }

    template <Number N>
    T operator()(N value) const {
        if constexpr (std::same_as<T, Bool>) {
            return value != N{};
        } else if constexpr (std::same_as<T, Money>) {
            if constexpr (std::integral<N>) {
                return Money(value);
            } else {
                return Nearest(value);
            }
        } else if constexpr (std::same_as<T, DateTime>) {
            return DateTime(static_cast<Double>(value));
        } else if constexpr (std::same_as<T, Text>) {
            return DefaultText(value);
        } else {
            return To<T>(value);
        }
    }

    T operator()(Money value) const {
        if constexpr (std::same_as<T, Money>) {
            return value;
        } else if constexpr (std::same_as<T, Bool>) {
            return value.Units() != 0;
        } else if constexpr (std::same_as<T, Text>) {
            return DefaultText(value);
        } else if constexpr (std::integral<T>) {
            return To<T>(value.Rounded());
        } else {
            return (*this)(value.ToDouble());
        }
    }

    T operator()(DateTime value) const {
        if constexpr (std::same_as<T, DateTime>) {
            return value;
        } else if constexpr (std::same_as<T, Text>) {
            return DefaultText(value);
        } else {
            return (*this)(value.Days());
        }
    }

    T operator()(const Text& value) const {
        if constexpr (std::same_as<T, Text>) {
            return value;
        } else if constexpr (std::same_as<T, Bool>) {
            return ToBool(value);
        } else if constexpr (std::same_as<T, Money>) {
            return ToMoney(value);
        } else if constexpr (std::same_as<T, DateTime>) {
            return ToDateTime(value);
        } else {
            return To<T>(ToDouble(value));
        }
    }
};

}  // namespace

std::ostream& operator<<(std::ostream& to, const Variant& value) {
    if (value.IsNull() || value.Is<Ref<Object>>()) return to << value.TypeName();
    return to << To<Text>(value);
}

std::string_view Variant::TypeName() const {
    return Visit([]<class T>(const T&) { return kName<T>; });
}

template <>
Bool To<Bool>(const Variant& value) {
    return value.Visit(Convert<Bool>{});
}

template <>
Byte To<Byte>(const Variant& value) {
    return value.Visit(Convert<Byte>{});
}

template <>
Int16 To<Int16>(const Variant& value) {
    return value.Visit(Convert<Int16>{});
}

template <>
Int32 To<Int32>(const Variant& value) {
    return value.Visit(Convert<Int32>{});
}

template <>
Single To<Single>(const Variant& value) {
    return value.Visit(Convert<Single>{});
}

template <>
Double To<Double>(const Variant& value) {
    return value.Visit(Convert<Double>{});
}

template <>
Money To<Money>(const Variant& value) {
    return value.Visit(Convert<Money>{});
}

template <>
DateTime To<DateTime>(const Variant& value) {
    return value.Visit(Convert<DateTime>{});
}

template <>
Text To<Text>(const Variant& value) {
    return value.Visit(Convert<Text>{});
}

}  // namespace LumoSeminar
