#pragma once

#include <LumoSeminar/frame/types.h>

namespace LumoConnection {

/// The statement of a LookupValue. `where` stands without that word; empty: all rows.
inline LumoSeminar::Text LookupText(const LumoSeminar::Text& expression, const LumoSeminar::Text& table,
                                    const LumoSeminar::Text& where) {
    const LumoSeminar::Text select = "SELECT " + expression + " FROM " + table;
    return where.empty() ? select : select + " WHERE " + where;
}

}  // namespace LumoConnection
