#pragma once

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/command_line/command.h"
#include "frontend/exit_codes.h"
#include "frontend/output/sheet.h"

namespace frontend {

/// How a value is typed and shown. A day or a time of day that is 0 is not set: it is typed as nothing at all and shown
/// as NULL. A time of day is shown as the text "hh:mm". A truth value is typed as yes or no, true or false, -1 or 0; a
/// number that is neither -1 nor 0 is shown as it stands.
enum class Form { kInt32, kInt16, kByte, kDouble, kMoney, kText, kDay, kClock, kTruth };

/// What the help says in place of a value.
const char* TypeName(Form form);

/// Raises UsageError with `named` in front where the text is no such value.
LumoSeminar::Variant ReadAs(Form form, std::string_view named, const std::string& typed);

LumoSeminar::Variant ShownAs(Form form, LumoSeminar::Variant value);

/// Whether two names of columns are the same; capitals are not told apart.
bool IsSameName(std::string_view a, std::string_view b);

/// "column=value" taken apart. Raises UsageError.
std::pair<std::string, std::string> SplitPair(const std::string& pair);

/// Values typed behind options, one place a column.
using TypedValues = std::vector<std::optional<std::string>>;

template <class T>
constexpr Form FormOf() {
    if constexpr (std::same_as<T, LumoSeminar::Int32>) return Form::kInt32;
    if constexpr (std::same_as<T, LumoSeminar::Int16>) return Form::kInt16;
    if constexpr (std::same_as<T, LumoSeminar::Byte>) return Form::kByte;
    if constexpr (std::same_as<T, LumoSeminar::Double>) return Form::kDouble;
    if constexpr (std::same_as<T, LumoSeminar::Money>) return Form::kMoney;
    if constexpr (std::same_as<T, LumoSeminar::Text>) return Form::kText;
    if constexpr (std::same_as<T, LumoSeminar::DateTime>) return Form::kDay;
}

/// The value as a property takes it. A text goes into the next statement as it was let, and is let as that wants it.
template <class T>
T ToLet(const LumoSeminar::Variant& value) {
    if constexpr (std::same_as<T, LumoSeminar::Text>) return LumoSeminar::Quoted(LumoSeminar::To<T>(value));
    return LumoSeminar::To<T>(value);
}

/// The two halves of a property. A text is what people see: its quotes are doubled on the way in. A get gives them
/// doubled until the object is loaded anew.
template <class Thing, class T, Form kFormOfValue = FormOf<T>()>
struct Property {
    static constexpr Form kForm = kFormOfValue;
    T (Thing::*get)();
    void (Thing::*let)(T);

    T Get(Thing& thing) const { return (thing.*get)(); }
    void Let(Thing& thing, const LumoSeminar::Variant& value) const { (thing.*let)(ToLet<T>(value)); }
};

/// The two halves of a property that are told whether to load. Here they always do.
template <class Thing, class T>
struct LoadingProperty {
    static constexpr Form kForm = FormOf<T>();
    T (Thing::*get)(LumoSeminar::Bool);
    void (Thing::*let)(T, LumoSeminar::Bool);

    T Get(Thing& thing) const { return (thing.*get)(true); }
    void Let(Thing& thing, const LumoSeminar::Variant& value) const { (thing.*let)(ToLet<T>(value), true); }
};

/// A property of a class as the front end names, reads and prints it.
template <class Thing>
struct Column {
    template <class T>
    using Of = Property<Thing, T>;
    using Clock = Property<Thing, LumoSeminar::DateTime, Form::kClock>;
    using Truth = Property<Thing, LumoSeminar::Int16, Form::kTruth>;

    const char* name;
    /// Without the two dashes.
    const char* option;
    const char* help;
    std::variant<Of<LumoSeminar::Int32>, Of<LumoSeminar::Int16>, Of<LumoSeminar::Byte>, Of<LumoSeminar::Double>,
                 Of<LumoSeminar::Money>, Of<LumoSeminar::Text>, Of<LumoSeminar::DateTime>, Clock, Truth,
                 LoadingProperty<Thing, LumoSeminar::Text>, LoadingProperty<Thing, LumoSeminar::DateTime>>
        property;
    /// Whether the short list shows it.
    bool in_list = false;

    Form ValueForm() const {
        return std::visit([](const auto& half) { return half.kForm; }, property);
    }

    LumoSeminar::Variant Get(Thing& thing) const {
        return std::visit([&](const auto& half) { return ShownAs(half.kForm, half.Get(thing)); }, property);
    }
};

/// A column and the value that was typed for it.
template <class Thing>
struct Change {
    const Column<Thing>* column;
    LumoSeminar::Variant value;

    void LetInto(Thing& thing) const {
        std::visit([&](const auto& half) { half.Let(thing, value); }, column->property);
    }
};

enum class Extent { kShort, kAll };

/// The columns of a class, in the order of its table.
template <class Thing>
struct ColumnTable {
    /// As in "A seminar has no column ...".
    const char* thing;
    const char* key_name;
    LumoSeminar::Int32 (Thing::*key)();
    /// All but the key.
    std::span<const Column<Thing>> columns;

    Sheet Head(Extent extent) const {
        Sheet sheet{{key_name}, {}};
        for (const auto& column : columns) {
            if (Shows(column, extent)) sheet.columns.emplace_back(column.name);
        }
        return sheet;
    }

    void AddRow(Sheet& sheet, Thing& one, Extent extent) const {
        auto& row = sheet.rows.emplace_back();
        row.push_back((one.*key)());
        for (const auto& column : columns) {
            if (Shows(column, extent)) row.push_back(column.Get(one));
        }
    }

    /// Null for a name that is not there.
    const Column<Thing>* Find(std::string_view name) const {
        for (const auto& column : columns) {
            if (IsSameName(column.name, name)) return &column;
        }
        return nullptr;
    }

    /// Lets each text as it was read, for an object that is going to be written: what was read has its quotes as people
    /// see them, and a statement wants them doubled. To be called once, between the load and the lets.
    void LetTextsAgain(Thing& one) const {
        for (const auto& column : columns) {
            if (column.ValueForm() == Form::kText) Change<Thing>{&column, column.Get(one)}.LetInto(one);
        }
    }

    /// An option for each column.
    std::shared_ptr<TypedValues> AddOptions(Command& command) const {
        auto values = std::make_shared<TypedValues>(columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i) {
            command.Option("--" + std::string(columns[i].option), &values->at(i), TypeName(columns[i].ValueForm()),
                           fmt::format("{} ({})", columns[i].help, columns[i].name));
        }
        return values;
    }

    /// What was typed as column=value, then what was typed behind options. Raises UsageError at the first that is wrong.
    std::vector<Change<Thing>> ReadChanges(const TypedValues& values, const std::vector<std::string>& pairs) const {
        std::vector<Change<Thing>> changes;
        for (const auto& pair : pairs) {
            const auto [name, typed] = SplitPair(pair);
            const auto* column = Find(name);
            if (column == nullptr) {
                throw UsageError(IsSameName(name, key_name)
                                     ? fmt::format("{} is the key and cannot be changed.", key_name)
                                     : fmt::format("A {} has no column {}.", thing, LumoSeminar::OneLine(name)));
            }
            changes.push_back({column, ReadAs(column->ValueForm(), column->name, typed)});
        }
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (!values[i]) continue;
            changes.push_back({&columns[i], ReadAs(columns[i].ValueForm(), "--" + std::string(columns[i].option), *values[i])});
        }
        return changes;
    }

  private:
    static bool Shows(const Column<Thing>& column, Extent extent) { return extent == Extent::kAll || column.in_list; }
};

template <class Thing>
void LetAll(Thing& thing, const std::vector<Change<Thing>>& changes) {
    for (const auto& change : changes) change.LetInto(thing);
}

/// Whether one of the columns is changed.
template <class Thing>
bool ChangesAny(const std::vector<Change<Thing>>& changes, std::initializer_list<std::string_view> names) {
    return std::ranges::any_of(changes, [&](const auto& change) {
        return std::ranges::find(names, std::string_view(change.column->name)) != names.end();
    });
}

/// The last value that was typed for a column.
template <class Thing>
std::optional<LumoSeminar::Variant> TypedFor(const std::vector<Change<Thing>>& changes, std::string_view name) {
    std::optional<LumoSeminar::Variant> value;
    for (const auto& change : changes) {
        if (name == change.column->name) value = change.value;
    }
    return value;
}

}  // namespace frontend
