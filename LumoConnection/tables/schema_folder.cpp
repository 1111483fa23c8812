#include <LumoConnection/tables/schema_folder.h>

#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <system_error>
#include <vector>

#include <LumoSeminar/frame/errors.h>

#include <LumoConnection/text_file.h>

namespace LumoConnection {

using namespace LumoSeminar;
namespace fs = std::filesystem;

namespace {

// A build folder lies that deep in the tree of the sources, a library that deep below the prefix.
constexpr int kFoldersAbove = 4;

bool HoldsAllFiles(const fs::path& folder) {
    const auto holds = [&](const char* name) {
        std::error_code failed;
        return fs::is_regular_file(folder / name, failed);
    };
    return holds("schema.sql") && holds("process.sql") && holds("sample.sql") && holds("process_sample.sql");
}

// Of the library where it is a shared one, otherwise of the program.
fs::path OwnFile() {
    static constexpr char kHere = 0;
    Dl_info info{};
    std::error_code failed;
    if (dladdr(&kHere, &info) == 0 || !info.dli_fname) return {};
    return fs::canonical(info.dli_fname, failed);
}

fs::path ProgramFile() {
    std::error_code failed;
    return fs::read_symlink("/proc/self/exe", failed);
}

std::vector<fs::path> Candidates(const fs::path& package) {
    std::vector<fs::path> candidates;
    const auto add = [&](const fs::path& folder) {
        if (std::ranges::find(candidates, folder) == candidates.end()) candidates.push_back(folder);
    };
    for (const fs::path& file : {OwnFile(), ProgramFile()}) {
        fs::path folder = file.parent_path();
        for (int i = 0; i <= kFoldersAbove && !folder.empty(); ++i, folder = folder.parent_path()) {
            add(folder / "share" / "lumoseminar");
            add(folder / "schema");
            if (folder == folder.root_path()) break;
        }
    }
    if (!package.empty()) add(package);
    return candidates;
}

}  // namespace

fs::path SchemaFolder(const fs::path& chosen, const fs::path& package) {
    if (!chosen.empty()) return chosen;
    if (const char* named = std::getenv("LUMOSEMINAR_SCHEMA"); named && *named) return named;
    const std::vector<fs::path> candidates = Candidates(package);
    const auto found = std::ranges::find_if(candidates, HoldsAllFiles);
    if (found != candidates.end()) return *found;
    std::string looked;
    for (const fs::path& candidate : candidates) looked += (looked.empty() ? "" : ", ") + candidate.string();
    Raise(kFileNotRead,
          "The folder of schema.sql was not found; LUMOSEMINAR_SCHEMA can name it. Looked for in: " + looked + ".");
}

}  // namespace LumoConnection
