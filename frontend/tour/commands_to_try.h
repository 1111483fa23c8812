#pragma once

#include <string>
#include <vector>

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

/// Five command lines, the first of which makes the sample that the others work with.
std::vector<std::string> CommandsOnOwnSample();

/// Five that change nothing in the database. In front of them stands what makes them find it, where that is not the
/// file that the program looks for anyway.
std::vector<std::string> CommandsOn(const LumoSeminar::Ref<LumoSeminar::DataSession>& session,
                                    const LumoSeminar::Text& connection_text, LumoSeminar::Int32 client);

}  // namespace frontend
