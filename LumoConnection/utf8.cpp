#include <LumoConnection/utf8.h>

#include <utf8proc.h>

#include <cstdint>
#include <cstring>

namespace LumoConnection {

std::size_t FirstBadByte(std::string_view text) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::size_t at = 0;
    while (at < text.size()) {
        std::uint64_t eight = kHighBits;
        if (text.size() - at >= sizeof eight) std::memcpy(&eight, text.data() + at, sizeof eight);
        if ((eight & kHighBits) == 0) {
            at += sizeof eight;
            continue;
        }
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte < 0x80) {
            ++at;
            continue;
        }
        utf8proc_int32_t character = 0;
        const auto* rest = static_cast<const utf8proc_uint8_t*>(static_cast<const void*>(text.data() + at));
        const auto length = utf8proc_iterate(rest, static_cast<utf8proc_ssize_t>(text.size() - at), &character);
        if (length <= 0) return at;
        at += static_cast<std::size_t>(length);
    }
    return std::string_view::npos;
}

}  // namespace LumoConnection
