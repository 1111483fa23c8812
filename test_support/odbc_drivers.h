#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include <test_support/processes.h>

namespace test_support {

/// The path of a driver of the system's packages; empty where it is not installed.
inline std::string OdbcDriverFile(const std::string& name) {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator("/usr/lib", ignored)) {
        const auto file = entry.path() / "odbc" / name;
        if (std::filesystem::exists(file, ignored)) return file.string();
    }
    return {};
}

/// A connection text for a new SQLite file through the driver of the package libsqliteodbc; empty where that one is not
/// installed.
inline std::string SqliteOdbcText(const Folder& folder) {
    const std::string driver = OdbcDriverFile("libsqlite3odbc.so");
    return driver.empty() ? "" : "Driver=" + driver + ";Database=" + folder.File("odbc.db");
}

}  // namespace test_support
