#include "frontend/creation.h"

#include <fmt/format.h>

#include <algorithm>

#include "frontend/files.h"
#include "frontend/output/screen_text.h"
#include "frontend/schema_folder.h"

namespace frontend {

using namespace LumoSeminar;

Script ReadScript(const std::filesystem::path& path) { return {path, LumoConnection::SplitBatches(ReadFile(path))}; }

std::vector<Script> SchemaScripts() {
    return {ReadScript(SchemaFolder() / "schema.sql"), ReadScript(SchemaFolder() / "process.sql")};
}

std::vector<Script> SampleScripts() {
    return {ReadScript(SchemaFolder() / "sample.sql"), ReadScript(SchemaFolder() / "process_sample.sql")};
}

std::vector<Text> CreatedTables(const Script& script) {
    constexpr std::string_view kHead = "create table ";
    constexpr std::string_view kBlanks = " \t";
    std::vector<Text> names;
    for (const auto& batch : script.batches) {
        std::string_view rest = batch.text;
        while (!rest.empty()) {
            const auto line = rest.substr(0, rest.find('\n'));
            rest.remove_prefix(std::min(line.size() + 1, rest.size()));
            const auto first = line.find_first_not_of(kBlanks);
            if (first == std::string_view::npos || FoldCase(line.substr(first, kHead.size())) != kHead) continue;
            const auto name = line.substr(first + kHead.size());
            names.emplace_back(name.substr(0, name.find_first_of(" \t\r(")));
        }
    }
    return names;
}

std::vector<TableSize> ExistingTables(const Ref<DataSession>& session, const std::vector<Text>& names) {
    std::vector<TableSize> tables;
    for (const auto& name : names) {
        const Variant rows = session->LookupValue("count(*)", name, "");
        if (!rows.IsNull()) tables.push_back({name, To<Int32>(rows)});
    }
    return tables;
}

void RunScript(const Ref<DataSession>& session, const Script& script, const std::function<void()>& after_each,
               const std::function<bool(const Text&)>& passes_over) {
    for (const auto& batch : script.batches) {
        if (!session->ExecuteSql(batch.text)) {
            const Text refusal = fmt::format("{}, batch from line {}: {}", script.path.filename().string(), batch.line,
                                             session->LastErrorText());
            if (!passes_over || !passes_over(refusal)) RaiseRefused(refusal);
        }
        after_each();
    }
}

}  // namespace frontend
