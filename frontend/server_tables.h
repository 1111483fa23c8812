#pragma once

#include <vector>

#include <LumoConnection/embedded/session.h>

namespace frontend {

/// The tables of the database behind a session as its INFORMATION_SCHEMA tells them, by name. Two statements. Raises
/// 9999 where the database has none or refuses it.
std::vector<LumoConnection::TableInfo> ServerTables(const LumoSeminar::Ref<LumoSeminar::DataSession>& session);

}  // namespace frontend
