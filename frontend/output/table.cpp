#include <algorithm>
#include <numeric>

#include "frontend/output/screen_text.h"
#include "frontend/output/sheet.h"
#include "frontend/output/value_text.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr std::string_view kDim = "\x1b[2m";
constexpr std::string_view kBold = "\x1b[1m";
constexpr std::string_view kPlain = "\x1b[0m";
constexpr int kGap = 2;
// No column is made narrower than this to fit the screen.
constexpr int kLeastWidth = 16;

struct Cell {
    Text text;
    int width = 0;
    bool right = false;
    bool nothing = false;
};

struct CellText {
    Text operator()(std::monostate) const { return "NULL"; }
    Text operator()(Variant::NullValue) const { return "NULL"; }
    Text operator()(Bool value) const { return value ? "yes" : "no"; }
    Text operator()(Byte value) const { return DefaultText(Int32{value}); }
    Text operator()(Int16 value) const { return DefaultText(Int32{value}); }
    Text operator()(Int32 value) const { return DefaultText(value); }
    Text operator()(Single value) const { return DefaultText(value); }
    Text operator()(Double value) const { return DefaultText(value); }
    Text operator()(Money value) const { return MoneyText(value); }
    Text operator()(DateTime value) const { return ScreenText(value); }
    Text operator()(const Text& value) const { return value == "NULL" ? "'NULL'" : Visible(value); }
    Text operator()(const Ref<Object>&) const { return "(object)"; }
};

Cell MakeCell(const Variant& value) {
    Cell cell{value.Visit(CellText{}), 0, IsNumber(value), IsNothing(value)};
    cell.width = ScreenWidth(cell.text);
    return cell;
}

// One table being laid out.
class Layout {
  public:
    explicit Layout(const TableStyle& style) : style_(style) {}

    void Column(const Text& name, bool right) {
        Cell cell{Visible(name), 0, right, false};
        cell.width = ScreenWidth(cell.text);
        widths_.push_back(cell.width);
        header_.push_back(std::move(cell));
    }

    void Row(std::vector<Cell> cells) {
        for (std::size_t i = 0; i < cells.size(); ++i) widths_[i] = std::max(widths_[i], cells[i].width);
        rows_.push_back(std::move(cells));
    }

    Text Print(bool with_header) {
        Fit();
        Text to;
        if (with_header) {
            Line(to, header_, kBold);
            for (std::size_t i = 0; i < widths_.size(); ++i) {
                if (i > 0) to.append(kGap, ' ');
                to.append(static_cast<std::size_t>(widths_[i]), '-');
            }
            to += '\n';
        }
        for (const auto& row : rows_) Line(to, row, {});
        return to;
    }

  private:
    // Takes from the widest column of texts until the table fits, or nothing more can be taken.
    void Fit() {
        if (style_.width == 0) return;
        int total = std::accumulate(widths_.begin(), widths_.end(), kGap * (static_cast<int>(widths_.size()) - 1));
        while (total > style_.width) {
            const auto Width = [&](std::size_t i) { return header_[i].right ? 0 : widths_[i]; };
            std::size_t widest = 0;
            for (std::size_t i = 1; i < widths_.size(); ++i) {
                if (Width(i) > Width(widest)) widest = i;
            }
            if (Width(widest) <= std::max(kLeastWidth, header_[widest].width)) return;
            --widths_[widest];
            --total;
        }
    }

    void Line(Text& to, const std::vector<Cell>& cells, std::string_view colour) const {
        std::size_t pending = 0;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const Cell& cell = cells[i];
            const bool fits = cell.width <= widths_[i];
            const Text text = fits ? cell.text : Shorten(cell.text, widths_[i]);
            const auto fill = static_cast<std::size_t>(widths_[i] - (fits ? cell.width : ScreenWidth(text)));
            const bool right = header_[i].right;
            if (right) pending += fill;
            to.append(pending, ' ');
            const std::string_view paint = cell.nothing ? kDim : colour;
            if (style_.colour && !paint.empty()) {
                to.append(paint).append(text).append(kPlain);
            } else {
                to += text;
            }
            pending = (right ? 0 : fill) + kGap;
        }
        to.erase(to.find_last_not_of(' ') + 1);
        to += '\n';
    }

    TableStyle style_;
    std::vector<Cell> header_;
    std::vector<std::vector<Cell>> rows_;
    std::vector<int> widths_;
};

// A column goes to the right where all its values are numbers, NULLs not counted.
bool GoesRight(const Sheet& sheet, std::size_t column) {
    bool any = false;
    for (const auto& row : sheet.rows) {
        if (IsNothing(row[column])) continue;
        if (!IsNumber(row[column])) return false;
        any = true;
    }
    return any;
}

Text OneRowText(const Sheet& sheet, const TableStyle& style) {
    Layout layout(style);
    layout.Column({}, false);
    layout.Column({}, false);
    for (const auto& row : sheet.rows) {
        for (std::size_t i = 0; i < sheet.columns.size(); ++i) {
            layout.Row({MakeCell(sheet.columns[i]), MakeCell(row[i])});
        }
    }
    return layout.Print(false);
}

}  // namespace

Text TableText(const Sheet& sheet, Shape shape, const TableStyle& style) {
    if (shape == Shape::kOneRow) return OneRowText(sheet, style);
    Layout layout(style);
    for (std::size_t i = 0; i < sheet.columns.size(); ++i) layout.Column(sheet.columns[i], GoesRight(sheet, i));
    for (const auto& row : sheet.rows) {
        std::vector<Cell> cells;
        cells.reserve(row.size());
        for (const auto& value : row) cells.push_back(MakeCell(value));
        layout.Row(std::move(cells));
    }
    return layout.Print(true);
}

}  // namespace frontend
