#include "frontend/output/tree.h"

#include <algorithm>
#include <string_view>

#include "frontend/output/screen_text.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr std::string_view kIndent = "  ";

// Takes the first line of a text away and gives it, its line break included.
std::string_view TakeLine(std::string_view& text) {
    const auto line = text.substr(0, text.find('\n') + 1);
    text.remove_prefix(line.size());
    return line;
}

}  // namespace

Text TreeText(const Sheet& sheet, const std::vector<Branch>& branches, const TableStyle& style) {
    TableStyle inner = style;
    if (style.width != 0) inner.width = std::max(1, style.width - static_cast<int>(kIndent.size()));
    const Text table = TableText(sheet, Shape::kRows, inner);
    std::string_view left = table;
    Text tree;
    const auto AddLines = [&](std::size_t count) {
        for (; count > 0; --count) tree.append(kIndent).append(TakeLine(left));
    };
    AddLines(2);
    for (const auto& branch : branches) {
        const auto heading = Visible(branch.heading);
        tree += style.colour ? "\x1b[1m" + heading + "\x1b[0m\n" : heading + '\n';
        AddLines(branch.rows);
    }
    return tree;
}

}  // namespace frontend
