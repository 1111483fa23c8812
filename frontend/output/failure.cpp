#include "frontend/output/failure.h"

#include <fmt/format.h>

#include <algorithm>

#include "frontend/output/screen_text.h"

namespace frontend {

std::string FailureSentence(const LumoSeminar::Error& error) {
    auto text = Visible(LumoSeminar::ReadDescription(error.Description()).text);
    const auto last = text.find_last_not_of(' ');
    if (last == std::string::npos) return fmt::format("There was error {}, which has no text.", error.Number());
    text.resize(last + 1);
    constexpr std::string_view kEnds = ".!?";
    return kEnds.find(text.back()) == std::string_view::npos ? text + '.' : text;
}

std::string FailureDetails(const LumoSeminar::Error& error) {
    std::string shown = fmt::format("    error {}, {}\n", error.Number(), Visible(error.Source()));
    for (const auto& label : LumoSeminar::ReadDescription(error.Description()).labels) {
        const auto first = label.find_first_not_of(' ');
        if (first != std::string::npos)
            shown += fmt::format("    {}\n", Visible(std::string_view(label).substr(first)));
    }
    return shown;
}

std::string PlaceText(std::string_view text, std::size_t offset, int first_line) {
    // A long line is shown in part, the place in its middle.
    constexpr std::size_t kBefore = 50;
    constexpr std::size_t kBehind = 20;
    offset = std::min(offset, text.size());
    const auto line_break = offset == 0 ? std::string_view::npos : text.rfind('\n', offset - 1);
    const std::size_t start = line_break == std::string_view::npos ? 0 : line_break + 1;
    std::size_t end = std::min(text.find('\n', offset), text.size());
    if (end > start && text[end - 1] == '\r') --end;
    const auto number =
        first_line + static_cast<int>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(start), '\n'));
    const auto IsInside = [&](std::size_t at) { return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80; };
    const bool is_long = end > start + kBefore + kBehind;
    std::size_t from = is_long && offset - start > kBefore ? offset - kBefore : start;
    while (from > start && IsInside(from)) --from;
    std::size_t to = is_long && end > offset + kBehind ? offset + kBehind : std::max(end, offset);
    while (to < end && IsInside(to)) ++to;
    const std::string before = (from > start ? "…" : "") + Visible(text.substr(from, offset - from));
    const std::string behind = Visible(text.substr(offset, to - offset)) + (to < end ? "…" : "");
    const std::string head = fmt::format("    line {}: ", number);
    return fmt::format("{}{}{}\n{}^\n", head, before, behind,
                       std::string(head.size() + static_cast<std::size_t>(ScreenWidth(before)), ' '));
}

}  // namespace frontend
