#pragma once

#include <optional>
#include <string>

namespace frontend {

enum class Format { kTable, kJson, kCsv };

/// What every command takes, before or behind its name.
struct GeneralOptions {
    /// As typed; see Context::ConnectionText for what counts without it.
    std::optional<std::string> connect;
    /// A file of the embedded database.
    std::optional<std::string> database;
    std::string user;
    std::string password;
    std::optional<std::string> client_typed;
    std::optional<int> client;
    bool trace = false;
    bool verbose = false;
    /// Of the command: see Command::Writes, Command::Asks.
    bool dry_run = false;
    bool yes = false;
    bool no_pager = false;
    /// Rows as records in a table.
    bool records = false;
    std::string format_typed;
    Format format = Format::kTable;
    bool help = false;
    bool version = false;
};

}  // namespace frontend
