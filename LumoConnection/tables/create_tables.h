#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <LumoConnection/tables/schema_folder.h>
#include <LumoConnection/tables/sql_file.h>
#include <LumoSeminar/frame/data_session.h>

/// Makes the tables of schema/ in any session.
///
///     LumoConnection::CreateTables(session, LumoConnection::kWithSample);
namespace LumoConnection {

using namespace LumoSeminar;

enum class Contents {
    /// The tables of the library and of the process objects, without a row.
    kEmpty,
    /// The same with the sample company in them.
    kWithSample,
};
using enum Contents;

/// How far it has come. Counts are from 1.
struct CreationStep {
    /// The file of the batch that has just been run, and its first line in there.
    std::string file;
    int line = 1;
    /// Of this file.
    std::size_t batch = 0;
    std::size_t batches = 0;
    /// Of all files.
    std::size_t batch_of_all = 0;
    std::size_t all_batches = 0;
};

/// Called behind each batch. False stops.
using CreationProgress = std::function<bool(const CreationStep&)>;

struct CreationOptions {
    /// Empty: that of SchemaFolder().
    std::filesystem::path schema = {};

    /// The first of the two years that the sample tells of; it moves there by whole weeks. 2009: as it stands in the
    /// files, the same every day. Without a year it is the last one, so that the present lies in the second year.
    std::optional<int> sample_year = {};

    /// Puts everything into one transaction, taken back where it does not come to its end: all or nothing. Raises 9999
    /// where the session refuses it.
    bool one_transaction = false;

    /// Asked at each refusal whether to go on all the same. It is told what would be raised.
    std::function<bool(const Text& refusal)> passes_over = {};
};

/// Runs the files one after the other. Raises 9999 at the first batch that is refused; the text names file and line
/// of the batch: "schema.sql, batch from line 12: ...". What ran before stands, unless a transaction is asked for.
/// @return false where `progress` stopped it
bool RunFiles(const Ref<DataSession>& session, const std::vector<SqlFile>& files, const CreationProgress& progress = {},
              const CreationOptions& options = {});

/// The files that CreateTables runs, the sample moved to its year. Raises kFileNotRead (53).
/// @param package see SchemaFolder()
std::vector<SqlFile> TableFiles(Contents contents, const CreationOptions& options = {},
                                const std::filesystem::path& package = LUMOSEMINAR_PACKAGE_SCHEMA);

/// Makes the tables in a database that has none of them. Raises as TableFiles() and RunFiles() do.
/// @param package see SchemaFolder()
/// @return false where `progress` stopped it
bool CreateTables(const Ref<DataSession>& session, Contents contents = kEmpty, const CreationProgress& progress = {},
                  const CreationOptions& options = {}, const std::filesystem::path& package = LUMOSEMINAR_PACKAGE_SCHEMA);

struct TableSize {
    Text name;
    Int32 rows = 0;
};

/// Those of the tables that the database has. One lookup each.
std::vector<TableSize> ExistingTables(const Ref<DataSession>& session, const std::vector<Text>& names);

}  // namespace LumoConnection
