#include "frontend/output/tree.h"

#include <algorithm>
#include <string_view>

#include "frontend/output/screen_text.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr std::string_view kIndent = "  ";

void AddIndented(Text& to, std::string_view lines) {
    while (!lines.empty()) {
        const auto line = lines.substr(0, lines.find('\n') + 1);
        lines.remove_prefix(line.size());
        to.append(kIndent).append(line);
    }
}

}  // namespace

Text TreeText(const Sheet& sheet, const std::vector<Branch>& branches, const TableStyle& style) {
    TableStyle inner = style;
    if (style.width != 0) inner.width = std::max(1, style.width - static_cast<int>(kIndent.size()));
    const auto pieces = PiecesOfTable(sheet, inner);
    Text tree;
    AddIndented(tree, pieces.head);
    auto row = pieces.rows.begin();
    for (const auto& branch : branches) {
        const auto heading = Visible(branch.heading);
        tree += style.colour ? "\x1b[1m" + heading + "\x1b[0m\n" : heading + '\n';
        for (std::size_t i = 0; i < branch.rows; ++i) AddIndented(tree, *row++);
    }
    return tree;
}

}  // namespace frontend
