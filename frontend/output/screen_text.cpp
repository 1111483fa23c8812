#include "frontend/output/screen_text.h"

#include <fmt/format.h>
#include <utf8proc.h>

#include <cstdlib>
#include <memory>

namespace frontend {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

struct CodePoint {
    utf8proc_int32_t value;  // below 0 for a byte that is no UTF-8
    std::size_t length;
};

CodePoint Next(std::string_view text) {
    utf8proc_int32_t value = -1;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                         static_cast<utf8proc_ssize_t>(text.size()), &value);
    if (length <= 0) return {-1, 1};
    return {value, static_cast<std::size_t>(length)};
}

// Controls, line separators, and the marks that turn the direction of writing.
bool IsHidden(utf8proc_int32_t value) {
    const auto category = utf8proc_category(value);
    return category == UTF8PROC_CATEGORY_CC || category == UTF8PROC_CATEGORY_ZL || category == UTF8PROC_CATEGORY_ZP ||
           (value >= 0x202A && value <= 0x202E) || (value >= 0x2066 && value <= 0x2069);
}

std::string Escape(utf8proc_int32_t value) {
    switch (value) {
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        default:
            return value < 0x100 ? fmt::format("\\x{:02x}", value) : fmt::format("\\u{:04x}", value);
    }
}

}  // namespace

std::string Visible(std::string_view text) {
    std::string shown;
    shown.reserve(text.size());
    while (!text.empty()) {
        const auto [value, length] = Next(text);
        if (value < 0) {
            shown += kReplacement;
        } else if (IsHidden(value)) {
            shown += Escape(value);
        } else {
            shown += text.substr(0, length);
        }
        text.remove_prefix(length);
    }
    return shown;
}

int ScreenWidth(std::string_view text) {
    int width = 0;
    while (!text.empty()) {
        const auto [value, length] = Next(text);
        width += value < 0 ? 1 : utf8proc_charwidth(value);
        text.remove_prefix(length);
    }
    return width;
}

std::string Shorten(std::string_view text, int width) {
    if (ScreenWidth(text) <= width) return std::string(text);
    std::string_view rest = text;
    for (int left = width - 1; !rest.empty();) {
        const auto [value, length] = Next(rest);
        left -= value < 0 ? 1 : utf8proc_charwidth(value);
        if (left < 0) break;
        rest.remove_prefix(length);
    }
    return std::string(text.substr(0, text.size() - rest.size())) + "…";
}

std::vector<std::string> Wrap(std::string_view text, int width) {
    std::vector<std::string> lines;
    while (true) {
        std::size_t at = 0;
        std::size_t blank = std::string_view::npos;
        std::size_t comma = std::string_view::npos;
        for (int used = 0; at < text.size();) {
            const auto [value, length] = Next(text.substr(at));
            if (value == ' ') blank = at;
            used += value < 0 ? 1 : utf8proc_charwidth(value);
            if (used > width && (blank != std::string_view::npos || comma != std::string_view::npos)) break;
            at += length;
            if (value == ',') comma = at;
        }
        if (at == text.size()) {
            lines.emplace_back(text);
            return lines;
        }
        const bool at_blank = blank != std::string_view::npos;
        const std::size_t end = at_blank ? blank : comma;
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(at_blank ? end + 1 : end);
    }
}

std::string FoldCase(std::string_view text) {
    utf8proc_uint8_t* folded = nullptr;
    const auto length =
        utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()), static_cast<utf8proc_ssize_t>(text.size()),
                     &folded, static_cast<utf8proc_option_t>(UTF8PROC_CASEFOLD | UTF8PROC_COMPOSE));
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(folded, &std::free);
    if (length < 0) return std::string(text);
    return {reinterpret_cast<const char*>(folded), static_cast<std::size_t>(length)};
}

}  // namespace frontend
