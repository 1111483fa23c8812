#include <LumoConnection/script/text_difference.h>

#include <algorithm>
#include <utility>

namespace LumoConnection::detail {
namespace {

constexpr std::size_t kCharactersAround = 30;

unsigned ByteAt(std::string_view text, std::size_t at) { return static_cast<unsigned char>(text[at]); }

// Bytes of the character that begins there; 0 where the bytes are no UTF-8.
std::size_t CharacterLength(std::string_view text, std::size_t at) {
    const unsigned first = ByteAt(text, at);
    if (first < 0x80) return 1;
    const std::size_t length = first >= 0xF0 && first <= 0xF4   ? 4
                               : first >= 0xE0 && first <= 0xEF ? 3
                               : first >= 0xC2 && first <= 0xDF ? 2
                                                                : 0;
    if (length == 0 || length > text.size() - at) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((ByteAt(text, at + i) & 0xC0U) != 0x80U) return 0;
    }
    const unsigned second = ByteAt(text, at + 1);
    const bool out_of_range = (first == 0xE0 && second < 0xA0) || (first == 0xED && second >= 0xA0) ||
                              (first == 0xF0 && second < 0x90) || (first == 0xF4 && second >= 0x90);
    return out_of_range ? 0 : length;
}

std::size_t Next(std::string_view text, std::size_t at) {
    return at + std::max<std::size_t>(CharacterLength(text, at), 1);
}

// Start of the character that holds the byte at the offset; the offset itself at the end of the text.
std::size_t CharacterStart(std::string_view text, std::size_t offset) {
    std::size_t at = 0;
    while (at < text.size() && Next(text, at) <= offset) at = Next(text, at);
    return std::min(at, offset);
}

void AppendByte(std::string& to, unsigned byte) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    to.append("\\x").append(1, kDigits[byte >> 4U]).append(1, kDigits[byte & 0xFU]);
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at = Next(text, at)) ++count;
    return count;
}

// The cut that Surroundings shows, in front of the place and behind it.
std::pair<std::string, std::string> CutAround(std::string_view text, const TextPlace& place) {
    const std::string_view before = text.substr(0, place.offset);
    std::size_t from = 0;
    for (std::size_t skip = place.character - 1; skip > kCharactersAround; --skip) from = Next(before, from);
    std::size_t to = place.offset;
    for (std::size_t shown = 0; shown < kCharactersAround && to < text.size(); ++shown) to = Next(text, to);
    return {(from > 0 ? "..." : "") + OnOneLine(before.substr(from)),
            OnOneLine(text.substr(place.offset, to - place.offset)) + (to < text.size() ? "..." : "")};
}

}  // namespace

std::string OnOneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = CharacterLength(text, at);
        if (length > 1) {
            line.append(text.substr(at, length));
            at += length;
            continue;
        }
        const char c = text[at];
        switch (c) {
            case '\r':
                line += "\\r";
                break;
            case '\n':
                line += "\\n";
                break;
            case '\t':
                line += "\\t";
                break;
            case '\\':
                line += "\\\\";
                break;
            default:
                if (length == 0 || ByteAt(text, at) < 0x20 || c == 0x7F) {
                    AppendByte(line, ByteAt(text, at));
                } else {
                    line += c;
                }
        }
        ++at;
    }
    return line;
}

TextPlace FirstDifference(std::string_view expected, std::string_view actual) {
    const auto [differs, ignored] = std::ranges::mismatch(expected, actual);
    const auto offset = static_cast<std::size_t>(differs - expected.begin());
    TextPlace place;
    place.offset = std::min(CharacterStart(expected, offset), CharacterStart(actual, offset));
    const std::string_view before = expected.substr(0, place.offset);
    place.character = CharacterCount(before) + 1;
    place.line = static_cast<std::size_t>(std::ranges::count(before, '\n')) + 1;
    const std::size_t line_start = before.rfind('\n');
    place.column = (line_start == before.npos ? place.character - 1 : CharacterCount(before.substr(line_start + 1))) + 1;
    return place;
}

std::string PlaceText(std::string_view expected, std::string_view actual) {
    const TextPlace place = FirstDifference(expected, actual);
    std::string text = "at character " + std::to_string(place.character);
    if (expected.find('\n') != expected.npos || actual.find('\n') != actual.npos) {
        text += " (line " + std::to_string(place.line) + ", column " + std::to_string(place.column) + ")";
    }
    return text;
}

std::string Surroundings(std::string_view text, const TextPlace& place) {
    const auto [before, behind] = CutAround(text, place);
    return before + behind;
}

std::string DifferenceLines(std::string_view expected, std::string_view actual) {
    const TextPlace place = FirstDifference(expected, actual);
    const std::string mark(CharacterCount(CutAround(expected, place).first), ' ');
    return "  expected  " + Surroundings(expected, place) + "\n  actual    " + Surroundings(actual, place) +
           "\n            " + mark + "^\n";
}

}  // namespace LumoConnection::detail
