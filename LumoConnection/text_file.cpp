#include <LumoConnection/text_file.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include <LumoSeminar/frame/errors.h>

namespace LumoConnection {

using namespace LumoSeminar;

std::string ReadTextFile(const std::filesystem::path& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
    std::string text;
    if (file) {
        char buffer[65536];
        std::size_t count = 0;
        while ((count = std::fread(buffer, 1, sizeof buffer, file.get())) > 0) text.append(buffer, count);
        if (std::ferror(file.get()) == 0) return text;
    }
    const std::string why = std::generic_category().message(errno);
    Raise(kFileNotRead, "The file " + OneLine(path.string()) + " cannot be read: " + why + ".");
}

}  // namespace LumoConnection
