#pragma once

#include <string_view>

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/commands/columns.h"
#include "frontend/context.h"

namespace frontend {

// What is looked at before something is written. The database would take all of it.

/// A column and the value that it is going to have.
template <class T>
struct Named {
    std::string_view name;
    T value;
};

/// Raises UsageError where the end lies before the begin; a day that is not set is before and behind nothing.
void RefuseEndBeforeBegin(Named<LumoSeminar::DateTime> begin, Named<LumoSeminar::DateTime> end);

/// The same for times of day, where midnight is one.
void RefuseClockBefore(Named<LumoSeminar::DateTime> begin, Named<LumoSeminar::DateTime> end);

/// Raises UsageError where the one is greater than the other; a limit of 0 is none.
void RefuseAbove(Named<LumoSeminar::Int32> less, Named<LumoSeminar::Int32> limit);

/// A table that a column refers to by a key.
struct Referred {
    std::string_view column;
    /// As in "There is no series 99".
    const char* thing;
    const char* table;
    const char* key;
    /// The command that lists them; null where there is none.
    const char* list;
};

/// Raises key not found (5) where there is no such row.
void RequireRow(Context& context, const Referred& referred, LumoSeminar::Int32 key);

/// Those of the columns of seminars and dates that refer to other tables.
void RequireRow(Context& context, std::string_view column, LumoSeminar::Int32 key);

/// Each row that a typed key refers to is there; 0 refers to none.
template <class Thing>
void RequireRows(Context& context, const std::vector<Change<Thing>>& changes) {
    for (const auto& change : changes) {
        if (const auto* key = change.value.template If<LumoSeminar::Int32>(); key != nullptr && *key != 0) {
            RequireRow(context, change.column->name, *key);
        }
    }
}

}  // namespace frontend
