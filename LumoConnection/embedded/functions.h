#pragma once

namespace LumoConnection::Embedded {

class SqliteConnection;

/// Adds the functions that printed statements call. What they refuse is left in the connection's Pending().
void AddFunctions(SqliteConnection& connection);

}  // namespace LumoConnection::Embedded
