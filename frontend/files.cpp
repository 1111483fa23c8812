#include "frontend/files.h"

#include <LumoSeminar/LumoSeminar.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace frontend {

std::string ReadFile(const std::filesystem::path& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
    std::string text;
    if (file) {
        char buffer[65536];
        std::size_t count = 0;
        while ((count = std::fread(buffer, 1, sizeof buffer, file.get())) > 0) text.append(buffer, count);
        if (std::ferror(file.get()) == 0) return text;
    }
    LumoSeminar::Raise(kFileNotRead, "The file " + LumoSeminar::OneLine(path.string()) +
                                         " cannot be read: " + std::generic_category().message(errno) + ".");
}

}  // namespace frontend
