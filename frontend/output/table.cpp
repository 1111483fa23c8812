#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <utility>

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
// No column of texts is made narrower than this to fit the screen, ...
constexpr int kLeastWidth = 16;
// ... and no value of a record.
constexpr int kLeastValue = 20;
constexpr std::size_t kRule = 40;

struct Cell {
    Text text;
    int width = 0;
    bool right = false;
    bool nothing = false;
    /// May be shortened: a text, or nothing.
    bool soft = true;
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
    Cell cell{value.Visit(CellText{}), 0, IsNumber(value), IsNothing(value), IsNothing(value) || value.Is<Text>()};
    cell.width = ScreenWidth(cell.text);
    return cell;
}

void Paint(Text& to, std::string_view text, std::string_view colour, const TableStyle& style) {
    if (style.colour && !colour.empty()) {
        to.append(colour).append(text).append(kPlain);
    } else {
        to += text;
    }
}

// One table being laid out.
class Layout {
  public:
    explicit Layout(const TableStyle& style) : style_(style) {}

    void Column(const Text& name, bool right) {
        Cell cell{Visible(name), 0, right, false, true};
        cell.width = ScreenWidth(cell.text);
        widths_.push_back(cell.width);
        header_.push_back(std::move(cell));
    }

    void Row(std::vector<Cell> cells) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            widths_[i] = std::max(widths_[i], cells[i].width);
            if (!cells[i].soft) header_[i].soft = false;
        }
        rows_.push_back(std::move(cells));
    }

    TablePieces Print() {
        const bool fits = !style_.records && Fit();
        TablePieces pieces;
        if (fits) {
            Line(pieces.head, header_, kBold);
            for (std::size_t i = 0; i < widths_.size(); ++i) {
                if (i > 0) pieces.head.append(kGap, ' ');
                pieces.head.append(static_cast<std::size_t>(widths_[i]), '-');
            }
            pieces.head += '\n';
            for (const auto& row : rows_) Line(pieces.rows.emplace_back(), row, {});
        } else {
            for (std::size_t i = 0; i < rows_.size(); ++i) {
                Text& piece = pieces.rows.emplace_back();
                Heading(piece, i + 1);
                Record(piece, rows_[i]);
            }
        }
        return pieces;
    }

    // The rows as records without a heading.
    Text PrintRecords() const {
        Text to;
        for (const auto& row : rows_) Record(to, row);
        return to;
    }

  private:
    // Takes from the widest column of texts until the table fits. False where it does not.
    bool Fit() {
        if (style_.width == 0) return true;
        int total = std::accumulate(widths_.begin(), widths_.end(), kGap * (static_cast<int>(widths_.size()) - 1));
        while (total > style_.width) {
            const auto Spare = [&](std::size_t i) {
                return header_[i].soft && widths_[i] > std::max(kLeastWidth, header_[i].width) ? widths_[i] : 0;
            };
            std::size_t widest = 0;
            for (std::size_t i = 1; i < widths_.size(); ++i) {
                if (Spare(i) > Spare(widest)) widest = i;
            }
            if (Spare(widest) == 0) return false;
            --widths_[widest];
            --total;
        }
        return true;
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
            Paint(to, text, cell.nothing ? kDim : colour, style_);
            pending = (right ? 0 : fill) + kGap;
        }
        to.erase(to.find_last_not_of(' ') + 1);
        to += '\n';
    }

    void Heading(Text& to, std::size_t number) const {
        Text heading = fmt::format("-- {} ", number);
        const auto width = style_.width == 0 ? kRule : std::min(kRule, static_cast<std::size_t>(style_.width));
        if (heading.size() < width) heading.append(width - heading.size(), '-');
        Paint(to, heading, kDim, style_);
        to += '\n';
    }

    void Record(Text& to, const std::vector<Cell>& cells) const {
        int names = 0;
        for (const auto& cell : header_) names = std::max(names, cell.width);
        const int indent = names + kGap;
        const int room = style_.width == 0 ? 0 : std::max(kLeastValue, style_.width - indent);
        for (std::size_t i = 0; i < cells.size(); ++i) {
            Paint(to, header_[i].text, kBold, style_);
            if (cells[i].text.empty()) {
                to += '\n';
                continue;
            }
            int fill = indent - header_[i].width;
            const bool is_long = room != 0 && cells[i].soft && cells[i].width > room;
            for (const auto& line : is_long ? Wrap(cells[i].text, room) : std::vector{cells[i].text}) {
                to.append(static_cast<std::size_t>(fill), ' ');
                Paint(to, line, cells[i].nothing ? kDim : std::string_view{}, style_);
                to += '\n';
                fill = indent;
            }
        }
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

Layout LayOut(const Sheet& sheet, const TableStyle& style) {
    Layout layout(style);
    for (std::size_t i = 0; i < sheet.columns.size(); ++i) layout.Column(sheet.columns[i], GoesRight(sheet, i));
    for (const auto& row : sheet.rows) {
        std::vector<Cell> cells;
        cells.reserve(row.size());
        for (const auto& value : row) cells.push_back(MakeCell(value));
        layout.Row(std::move(cells));
    }
    return layout;
}

}  // namespace

TablePieces PiecesOfTable(const Sheet& sheet, const TableStyle& style) { return LayOut(sheet, style).Print(); }

Text TableText(const Sheet& sheet, Shape shape, const TableStyle& style) {
    if (shape == Shape::kOneRow) return LayOut(sheet, style).PrintRecords();
    auto pieces = PiecesOfTable(sheet, style);
    Text text = std::move(pieces.head);
    for (const auto& row : pieces.rows) text += row;
    return text;
}

}  // namespace frontend
