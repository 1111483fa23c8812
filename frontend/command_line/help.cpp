#include "frontend/command_line/help.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "frontend/output/screen_text.h"

namespace frontend {

namespace {

constexpr int kIndent = 2;
constexpr int kNames = 28;

// One page being written.
class Page {
  public:
    explicit Page(int width) : width_(std::max(width, kIndent + kNames + 20)) {}

    void Paragraph(std::string_view text) {
        for (const auto& line : Wrap(text, width_)) text_ += line + '\n';
    }

    // Paragraphs parted by empty lines. Lines that begin with a blank stand as they are.
    void Paragraphs(std::string_view text) {
        while (!text.empty()) {
            const auto end = std::min(text.find("\n\n"), text.size());
            text_ += '\n';
            if (text.front() == ' ') {
                text_.append(text.substr(0, end)) += '\n';
            } else {
                std::string line(text.substr(0, end));
                std::ranges::replace(line, '\n', ' ');
                Paragraph(line);
            }
            text.remove_prefix(std::min(end + 2, text.size()));
        }
    }

    void Heading(std::string_view text) { text_.append("\n").append(text).append(":\n"); }

    void Entry(const std::string& name, const std::string& what) {
        const bool fits = ScreenWidth(name) < kNames;
        text_ += fmt::format("{:{}}{}", "", kIndent, name);
        if (!fits) text_ += '\n';
        int used = fits ? ScreenWidth(name) : -kIndent;
        for (const auto& line : Wrap(what, width_ - kIndent - kNames)) {
            text_ += fmt::format("{:{}}{}\n", "", kNames - used, line);
            used = -kIndent;
        }
    }

    std::string Text() && { return std::move(text_); }

  private:
    int width_;
    std::string text_;
};

std::string NameOf(const Parameter& parameter) {
    std::string name = parameter.Name();
    if (!parameter.Value().empty()) name += ' ' + parameter.Value();
    if (parameter.IsRepeated()) name += " ...";
    return name;
}

std::string WhatIs(const Parameter& parameter) {
    return parameter.Help() + (parameter.IsRequired() && parameter.IsOption() ? " (required)" : "");
}

void Options(Page& page, std::string_view heading, const Command& command) {
    if (command.Options().empty()) return;
    page.Heading(heading);
    for (const auto& option : command.Options()) page.Entry(NameOf(option), WhatIs(option));
}

}  // namespace

std::string UsageLine(const CommandPath& path) {
    const auto& command = *path.back();
    std::string line = NameOf(path);
    if (!command.Options().empty()) line += " [OPTIONS]";
    for (const auto& argument : command.Arguments()) {
        line += ' ' + (argument.IsRequired() ? NameOf(argument) : '[' + NameOf(argument) + ']');
    }
    if (!command.Commands().empty()) line += command.Act() ? " [COMMAND]" : " COMMAND";
    return line;
}

std::string HelpText(const CommandPath& path, int width) {
    const auto& command = *path.back();
    Page page(width);
    page.Paragraph("Usage: " + UsageLine(path));
    page.Paragraphs(command.Summary() + '.');
    if (!command.Commands().empty()) {
        page.Heading("Commands");
        for (const auto& one : command.Commands()) {
            if (!one.IsHidden()) page.Entry(one.Name(), one.Summary());
        }
    }
    if (!command.Arguments().empty()) {
        page.Heading("Arguments");
        for (const auto& argument : command.Arguments()) page.Entry(NameOf(argument), argument.Help());
    }
    Options(page, path.size() == 1 ? "General options" : "Options", command);
    page.Paragraphs(command.Remark());
    if (path.size() > 1)
        page.Paragraphs("General options, formats and exit codes: " + path.front()->Name() + " --help");
    return std::move(page).Text();
}

}  // namespace frontend
