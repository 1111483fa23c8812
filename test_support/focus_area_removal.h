#pragma once

#include <LumoSeminar/catalogue/focus_areas.h>

namespace LumoSeminar {

/// For tests: empties the list of a date as the delete of that date does.
Bool RemoveAllOf(colSemTerminSchwerpunkte& list);

template <Bool (colSemTerminSchwerpunkte::*kRemoveAll)()>
struct WayToRemoveAll {
    friend Bool RemoveAllOf(colSemTerminSchwerpunkte& list) { return (list.*kRemoveAll)(); }
};
// Access is not checked for what is named here.
template struct WayToRemoveAll<&colSemTerminSchwerpunkte::RemoveAll>;

}  // namespace LumoSeminar
