#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <LumoConnection/batches.h>
#include <LumoSeminar/frame/types.h>

namespace LumoConnection {

/// A file of batches that creates tables or fills them.
struct SqlFile {
    /// Without the folder, for messages.
    std::string name;
    std::vector<Batch> batches;
};

/// Raises kFileNotRead (53) where it cannot be read.
SqlFile ReadSqlFile(const std::filesystem::path& path);

/// The names behind the lines that begin with CREATE TABLE, in order.
std::vector<LumoSeminar::Text> CreatedTables(const SqlFile& file);

}  // namespace LumoConnection
