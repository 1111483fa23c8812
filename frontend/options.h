#pragma once

#include <optional>
#include <string>

namespace frontend {

enum class Format { kTable, kJson, kCsv };

/// What every command takes, before or behind its name.
struct GeneralOptions {
    /// As typed; see Context::ConnectionText for what counts without it.
    std::optional<std::string> connect;
    std::string user;
    std::string password;
    std::optional<int> client;
    bool trace = false;
    Format format = Format::kTable;
};

}  // namespace frontend
