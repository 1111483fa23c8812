#include <LumoConnection/odbc/wide_text.h>

namespace LumoConnection::Odbc {
namespace {

constexpr std::uint32_t kFirstHigh = 0xD800;
constexpr std::uint32_t kFirstLow = 0xDC00;
constexpr std::uint32_t kBehindSurrogates = 0xE000;
constexpr std::uint32_t kFirstOfPairs = 0x10000;
constexpr std::uint32_t kReplacement = 0xFFFD;

constexpr bool IsHigh(std::uint32_t unit) { return unit >= kFirstHigh && unit < kFirstLow; }
constexpr bool IsLow(std::uint32_t unit) { return unit >= kFirstLow && unit < kBehindSurrogates; }

void AppendUtf8(LumoSeminar::Text& text, std::uint32_t character) {
    const auto tail = [&](unsigned shift) { text += static_cast<char>(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        tail(0);
    } else if (character < kFirstOfPairs) {
        text += static_cast<char>(0xE0 | character >> 12);
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0 | character >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

}  // namespace

WideText ToWide(std::string_view text) {
    WideText wide;
    wide.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::uint32_t first = static_cast<unsigned char>(text[at++]);
        if (first < 0x80) {
            wide.push_back(static_cast<std::uint16_t>(first));
            continue;
        }
        int tails = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
        std::uint32_t character = first & (0x3Fu >> tails);
        for (; tails > 0 && at < text.size(); --tails)
            character = character << 6 | (static_cast<unsigned char>(text[at++]) & 0x3Fu);
        if (character < kFirstOfPairs) {
            wide.push_back(static_cast<std::uint16_t>(character));
        } else {
            const std::uint32_t beyond = character - kFirstOfPairs;
            wide.push_back(static_cast<std::uint16_t>(kFirstHigh + (beyond >> 10)));
            wide.push_back(static_cast<std::uint16_t>(kFirstLow + (beyond & 0x3FF)));
        }
    }
    return wide;
}

LumoSeminar::Text ToText(const WideText& wide) {
    LumoSeminar::Text text;
    text.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size(); ++i) {
        std::uint32_t character = wide[i];
        if (IsHigh(character) && i + 1 < wide.size() && IsLow(wide[i + 1])) {
            character = kFirstOfPairs + ((character - kFirstHigh) << 10) + (wide[++i] - kFirstLow);
        } else if (IsHigh(character) || IsLow(character)) {
            character = kReplacement;
        }
        AppendUtf8(text, character);
    }
    return text;
}

}  // namespace LumoConnection::Odbc
