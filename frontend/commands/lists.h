#pragma once

#include <string_view>
#include <vector>

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/context.h"

namespace frontend {

// The lists of the client, and what several commands look up in them. Where the database refuses a list they raise 9999.

/// Raises key not found (5): "There is no date 9999 of client 1."
[[noreturn]] void RaiseNoSuch(Context& context, std::string_view thing, LumoSeminar::Int32 key);

LumoSeminar::Ref<LumoSeminar::colSeminare> SeminarsOf(Context& context);

/// A seminar of the client or common to all. Raises key not found (5).
LumoSeminar::Ref<LumoSeminar::clsSeminar> SeminarOf(Context& context, LumoSeminar::Int32 key);

/// The same where the list is there already.
LumoSeminar::Ref<LumoSeminar::clsSeminar> SeminarIn(Context& context, LumoSeminar::colSeminare& list, LumoSeminar::Int32 key);

inline constexpr LumoSeminar::Int32 kAllSeminars = -1;

/// @param filter  a further condition, " AND ..."
LumoSeminar::Ref<LumoSeminar::colTermine> DatesOf(Context& context, LumoSeminar::Int32 seminar = kAllSeminars,
                                                  const LumoSeminar::Text& filter = {});

/// A date of the client or common to all. Raises key not found (5).
LumoSeminar::Ref<LumoSeminar::clsTermin> DateOf(Context& context, LumoSeminar::Int32 key);

/// Whether there is such a date.
bool HasDate(Context& context, LumoSeminar::Int32 key);

/// The days on which a date takes place.
std::vector<LumoSeminar::DateTime> DaysOf(LumoSeminar::clsTermin& date);

}  // namespace frontend
