#pragma once

#include <LumoSeminar/LumoSeminar.h>

namespace bench {

/// A new embedded database in memory with all tables and indexes of the suite, without a row.
LumoSeminar::Ref<LumoSeminar::DataSession> SchemaDatabase();

/// Runs a statement; ends the program where it is refused.
void Execute(LumoSeminar::DataSession& session, const LumoSeminar::Text& sql);

}  // namespace bench
