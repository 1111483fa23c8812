#include <LumoConnection/tables/sql_file.h>

#include <algorithm>
#include <string_view>

#include <LumoConnection/ascii.h>
#include <LumoConnection/text_file.h>

namespace LumoConnection {

using namespace LumoSeminar;

SqlFile ReadSqlFile(const std::filesystem::path& path) {
    return {path.filename().string(), SplitBatches(ReadTextFile(path))};
}

std::vector<Text> CreatedTables(const SqlFile& file) {
    constexpr std::string_view kHead = "create table ";
    std::vector<Text> names;
    for (const Batch& batch : file.batches) {
        std::string_view rest = batch.text;
        while (!rest.empty()) {
            std::string_view line = rest.substr(0, rest.find('\n'));
            rest.remove_prefix(std::min(line.size() + 1, rest.size()));
            line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
            if (!SameWithoutCase(line.substr(0, kHead.size()), kHead)) continue;
            line.remove_prefix(kHead.size());
            names.emplace_back(line.substr(0, line.find_first_of(" \t\r(")));
        }
    }
    return names;
}

}  // namespace LumoConnection
