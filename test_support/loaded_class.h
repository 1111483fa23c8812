#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/variant.h>
#include <test_support/raises.h>

/// For tests: what there is to know about a class that reads its row when it is first asked, its type left out.
namespace LumoSeminar::loaded {

using test_support::Labels;
using Row = std::vector<Variant>;

struct Property {
    std::string name;
    std::function<Variant(Object&)> get;
    /// None where a let would bind the object to another row.
    std::function<void(Object&, const Variant&)> let = nullptr;
    /// What it has in the full row, and another value.
    Variant full;
    Variant other;
    /// Where its column is Null.
    Variant at_null;
    /// Where nothing was read.
    Variant zero;
    /// The label of the get and of the let; none: a member without a handler.
    std::string of_get = {};
    std::string of_let = {};
    bool get_loads = true;
    bool let_loads = true;
    /// The place of the column that this property alone is read from.
    int column = -1;
};

/// One that is part of the key, which a row does not tell.
template <class Class, class T>
Property PropertyOf(const char* name, T (Class::*get)(), T value) {
    Property property;
    property.name = name;
    property.get = [get](Object& object) { return Variant((static_cast<Class&>(object).*get)()); };
    property.full = value;
    property.at_null = value;
    property.zero = T{};
    return property;
}

template <class Class, class T>
Property PropertyOf(const char* name, T (Class::*get)(), void (Class::*let)(T), T full, T other, T at_null = {}) {
    Property property = PropertyOf<Class, T>(name, get, full);
    property.let = [let](Object& object, const Variant& value) { (static_cast<Class&>(object).*let)(*value.If<T>()); };
    property.other = other;
    property.at_null = at_null;
    return property;
}

/// A property of a table that knows the type.
template <class Class>
Property Erased(std::string name, std::function<Variant(Class&)> get, std::function<void(Class&, const Variant&)> let) {
    Property property;
    property.name = std::move(name);
    property.get = [get](Object& object) { return get(static_cast<Class&>(object)); };
    property.let = [let](Object& object, const Variant& value) { let(static_cast<Class&>(object), value); };
    return property;
}

enum class MissingRow {
    /// Each get looks again and gives zero.
    kLookedForAgain,
    /// The object counts as read, as if all columns were Null.
    kReadAsNull,
};

enum class Refusal {
    /// Gets give zero, lets that load store nothing; the next member tries again.
    kTriedAgain,
    /// Gets give zero, and the object counts as read.
    kLeftAlone,
    /// 9999, and the next member tries again.
    kRaises,
};

/// How an object is read.
struct LoadedClass {
    std::string name;
    /// Bound, so that its load is this select.
    std::function<Ref<Object>(const Ref<DataSession>&)> bind;
    std::string select;
    std::vector<std::string> columns;
    Row full;
    /// The binding asks for the connection.
    bool asks_for_connection = false;
    bool closes = true;
    /// It counts as read where the rows cannot be closed.
    bool is_read_before_close = true;
    std::vector<Property> properties;
    MissingRow missing = MissingRow::kReadAsNull;
    Refusal refusal = Refusal::kRaises;
    /// The labels of a load that raises; before them those of the reading of a row.
    Labels of_load;
    Labels of_row = {};
    /// What the load sends behind a row that is missing.
    std::function<void(LumoConnection::Script&)> script_missing = [](auto&) {};
    /// Values that a column cannot have, and what the load then raises.
    struct Misfit {
        std::size_t column;
        Variant value;
        Int32 number;
    };
    std::vector<Misfit> misfits = {};

    friend void PrintTo(const LoadedClass& loaded, std::ostream* stream) { *stream << loaded.name; }
};

}  // namespace LumoSeminar::loaded
