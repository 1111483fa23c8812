#include "frontend/schema_folder.h"

#include <cstdlib>
#include <system_error>

namespace frontend {

std::filesystem::path SchemaFolder() {
    const char* chosen = std::getenv("LUMOSEMINAR_SCHEMA");
    if (chosen != nullptr && *chosen != '\0') return chosen;
    std::error_code failed;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
    if (!failed) {
        const auto installed = program.parent_path() / LUMOSEMINAR_SHARE_FROM_BIN;
        if (std::filesystem::exists(installed / "schema.sql", failed)) return installed.lexically_normal();
    }
    return LUMOSEMINAR_SCHEMA_SOURCE;
}

}  // namespace frontend
