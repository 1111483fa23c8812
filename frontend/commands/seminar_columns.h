#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

/// The two halves of a property.
template <class T>
struct Property {
    T (LumoSeminar::clsSeminar::*get)();
    void (LumoSeminar::clsSeminar::*let)(T);
};

/// A property of a seminar as the front end names, reads and prints it.
struct SeminarColumn {
    const char* name;
    /// Without the two dashes.
    const char* option;
    const char* help;
    std::variant<Property<LumoSeminar::Int32>, Property<LumoSeminar::Double>, Property<LumoSeminar::Money>, Property<LumoSeminar::Text>> property;
    /// Whether the short list shows it.
    bool in_list = false;

    /// What is typed for a value of this column: "N", "X" or "TEXT".
    const char* TypeName() const;

    LumoSeminar::Variant Get(LumoSeminar::clsSeminar& seminar) const;

    /// Reads a value as typed and lets it. Raises UsageError with `named` in front where it is none.
    void Let(LumoSeminar::clsSeminar& seminar, std::string_view named, const std::string& typed) const;

    /// Whether Let would take it; raises UsageError if not.
    void Check(std::string_view named, const std::string& typed) const;
};

/// All columns but the key, in the order of the table.
std::span<const SeminarColumn> SeminarColumns();

/// By name, capitals not being told apart; null for a name that is not there.
const SeminarColumn* FindSeminarColumn(std::string_view name);

}  // namespace frontend
