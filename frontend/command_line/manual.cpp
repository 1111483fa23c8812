#include "frontend/command_line/manual.h"

#include <fmt/format.h>
#include <utf8proc.h>

#include <algorithm>
#include <string_view>

#include "frontend/command_line/help.h"

namespace frontend {

namespace {

// A text as it is read from a page: nothing in it is a request, and a - is what can be copied to a shell.
std::string Escaped(std::string_view text) {
    std::string escaped;
    bool at_front = true;
    while (!text.empty()) {
        utf8proc_int32_t value = 0;
        const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                             static_cast<utf8proc_ssize_t>(text.size()), &value);
        if (at_front && (value == '.' || value == '\'')) escaped += "\\&";
        at_front = value == '\n';
        if (value == '\\') {
            escaped += "\\e";
        } else if (value == '-') {
            escaped += "\\-";
        } else if (value == '"') {
            escaped += "\\(dq";
        } else if (value >= 0x80) {
            escaped += fmt::format("\\[u{:04X}]", value);
        } else {
            escaped += text.front();
        }
        text.remove_prefix(static_cast<std::size_t>(std::max<utf8proc_ssize_t>(length, 1)));
    }
    return escaped;
}

std::string Bold(std::string_view text) { return "\\fB" + Escaped(text) + "\\fR"; }
std::string Italic(std::string_view text) { return "\\fI" + Escaped(text) + "\\fR"; }

std::string InCapitals(std::string_view text) {
    std::string capitals(text);
    for (char& c : capitals) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return capitals;
}

std::string AsPages(std::string_view name) {
    std::string page(name);
    std::ranges::replace(page, ' ', '-');
    return page;
}

// One page being written.
class Page {
  public:
    void Line(const std::string& line) { text_ += line + '\n'; }
    void Section(std::string_view name) { Line(".SH " + InCapitals(name)); }
    void Paragraph(std::string_view text) { Line(".PP\n" + Escaped(text)); }

    // Parted by empty lines. Those that begin with a blank stand as they are.
    void Paragraphs(std::string_view text) {
        while (!text.empty()) {
            const auto end = std::min(text.find("\n\n"), text.size());
            const auto one = text.substr(0, end);
            if (one.starts_with(' ')) {
                Line(".PP\n.nf\n" + Escaped(one) + "\n.fi");
            } else {
                Paragraph(one);
            }
            text.remove_prefix(std::min(end + 2, text.size()));
        }
    }

    void Entry(const std::string& name, std::string_view what) { Line(".TP\n" + name + '\n' + Escaped(what)); }

    std::string Text() && { return std::move(text_); }

  private:
    std::string text_;
};

std::string NameOf(const Parameter& parameter) {
    std::string name = parameter.IsOption() ? Bold(parameter.Name()) : Italic(parameter.Name());
    if (!parameter.Value().empty()) name += ' ' + Italic(parameter.Value());
    if (parameter.IsRepeated()) name += " ...";
    return name;
}

void Parameters(Page& page, const Command& command) {
    for (const auto& argument : command.Arguments()) page.Entry(NameOf(argument), argument.Help() + '.');
    for (const auto& option : command.Options()) {
        page.Entry(NameOf(option), option.Help() + (option.IsRequired() ? " (required)." : "."));
    }
}

// A command with all that is below it, a heading each.
void Chapters(Page& page, const CommandPath& path) {
    const auto& command = *path.back();
    if (path.size() > 2) {
        page.Line(".SS " + Escaped(NameOf(path)));
        page.Line(Bold(UsageLine(path)));
        page.Paragraph(command.Summary() + '.');
    }
    Parameters(page, command);
    page.Paragraphs(command.Remark());
    for (const auto& one : command.Commands()) {
        auto below = path;
        below.push_back(&one);
        Chapters(page, below);
    }
}

void Program(Page& page, const Command& program) {
    page.Section("commands");
    for (const auto& command : program.Commands()) {
        if (command.IsHidden()) continue;
        page.Entry(Bold(command.Name()), command.Summary() + ". See " + NameOfPage({&program, &command}) + "(1).");
    }
    page.Section("options");
    Parameters(page, program);
    page.Section("notes");
    page.Paragraphs(program.Remark());
}

void SeeAlso(Page& page, const CommandPath& path) {
    page.Section("see also");
    if (path.size() > 1) {
        page.Line(Bold(NameOfPage({path.front()})) + "(1): general options, formats, exit codes");
        return;
    }
    std::string line;
    for (const auto& command : path.front()->Commands()) {
        if (!command.IsHidden())
            line += (line.empty() ? "" : ",\n") + Bold(NameOfPage({path.front(), &command})) + "(1)";
    }
    page.Line(line);
}

}  // namespace

std::string NameOfPage(const CommandPath& path) { return AsPages(NameOf(path)); }

std::string ManualPage(const CommandPath& path, const std::string& version) {
    const auto& command = *path.back();
    const auto name = NameOfPage(path);
    Page page;
    page.Line(fmt::format(".TH \"{}\" 1 \"\" \"{} {}\"", Escaped(InCapitals(name)), path.front()->Name(), Escaped(version)));
    page.Section("name");
    page.Line(Escaped(name) + " \\- " + Escaped(command.Summary()));
    page.Section("synopsis");
    page.Line(Bold(UsageLine(path)));
    if (path.size() == 1) {
        Program(page, command);
    } else {
        page.Section("description");
        page.Line(Escaped(command.Summary() + '.'));
        Chapters(page, path);
    }
    SeeAlso(page, path);
    return std::move(page).Text();
}

}  // namespace frontend
