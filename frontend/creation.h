#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <LumoConnection/batches.h>
#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

struct TableSize {
    LumoSeminar::Text name;
    LumoSeminar::Int32 rows = 0;
};

/// A file of batches that creates tables or fills them.
struct Script {
    std::filesystem::path path;
    std::vector<LumoConnection::Batch> batches;
};

Script ReadScript(const std::filesystem::path& path);

/// The files of the schema folder that create the tables: those of the library, then those of the process objects.
std::vector<Script> SchemaScripts();

/// Those that fill them with the sample.
std::vector<Script> SampleScripts();

/// The names behind the lines that begin with CREATE TABLE, in order.
std::vector<LumoSeminar::Text> CreatedTables(const Script& script);

/// Those of the tables that the database has.
std::vector<TableSize> ExistingTables(const LumoSeminar::Ref<LumoSeminar::DataSession>& session,
                                      const std::vector<LumoSeminar::Text>& names);

/// Runs batch after batch. Raises 9999 at the first that is refused; the text names file and line of the batch.
/// @param after_each called after each batch
/// @param passes_over asked at each refusal whether to go on all the same
void RunScript(const LumoSeminar::Ref<LumoSeminar::DataSession>& session, const Script& script,
               const std::function<void()>& after_each,
               const std::function<bool(const LumoSeminar::Text& refusal)>& passes_over = {});

}  // namespace frontend
