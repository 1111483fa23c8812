#include "frontend/readme_blocks_test.h"

#include <array>
#include <optional>

namespace frontend {

namespace {

constexpr std::string_view kPrompt = "$ ";
constexpr std::string_view kAny = "...";

bool IsOfThisProgram(std::string_view line) {
    return line.starts_with("lumoseminar ") || line.starts_with("./run ") || line == "lumoseminar";
}

// Without the remark.
std::string_view Front(std::string_view line) { return line.substr(0, line.find("  ")); }

// Whether the text is what the pattern says, kAny standing for any text.
bool IsLike(std::string_view pattern, std::string_view text) {
    const auto any = pattern.find(kAny);
    if (any == std::string_view::npos) return pattern == text;
    if (!text.starts_with(pattern.substr(0, any))) return false;
    const auto rest = pattern.substr(any + kAny.size());
    for (std::size_t from = any; from <= text.size(); ++from) {
        if (IsLike(rest, text.substr(from))) return true;
    }
    return false;
}

bool IsAsShownFrom(const std::vector<std::string>& shows, std::size_t at, const std::vector<std::string>& screen,
                   std::size_t line) {
    if (at == shows.size()) return line == screen.size();
    if (shows[at].substr(std::min(shows[at].find_first_not_of(' '), shows[at].size())) == kAny) {
        for (std::size_t next = line; next <= screen.size(); ++next) {
            if (IsAsShownFrom(shows, at + 1, screen, next)) return true;
        }
        return false;
    }
    return line < screen.size() && IsLike(shows[at], screen[line]) && IsAsShownFrom(shows, at + 1, screen, line + 1);
}

class Reader {
  public:
    std::vector<DocumentedCommand> Read(std::string_view text) {
        for (std::size_t at = 0; at < text.size();) {
            const auto end = std::min(text.find('\n', at), text.size());
            ++line_;
            Take(text.substr(at, end - at));
            at = end + 1;
        }
        EndBlock();
        return std::move(commands_);
    }

  private:
    void Take(std::string_view line) {
        if (line.starts_with("```")) {
            EndBlock();
            if (fence_) {
                fence_.reset();
            } else {
                fence_ = std::string(line.substr(3));
            }
            return;
        }
        if (fence_) {
            for (const char* language : {"", "sh", "console", "text"}) {
                if (*fence_ == language) TakeOfBlock(line);
            }
            return;
        }
        if (line.starts_with("    ")) return TakeOfBlock(line.substr(4));
        if (line.empty()) return TakeOfBlock("");
        EndBlock();
        if (line.starts_with('#')) ++section_;
        TakeProse(line);
    }

    void TakeOfBlock(std::string_view line) {
        if (line.starts_with(kPrompt)) {
            EndBlock();
            Add(line.substr(kPrompt.size())).is_transcript = true;
            in_transcript_ = true;
        } else if (in_transcript_) {
            commands_.back().shows.emplace_back(line.substr(0, line.find_last_not_of(' ') + 1));
        } else if (IsOfThisProgram(line) && Front(line) != "./run") {
            Add(Front(line));
        }
    }

    void TakeProse(std::string_view line) {
        for (std::size_t at = line.find('`'); at != std::string_view::npos; at = line.find('`', at)) {
            const auto end = line.find('`', at + 1);
            if (end == std::string_view::npos) return;
            const auto code = line.substr(at + 1, end - at - 1);
            if (IsOfThisProgram(code) || code.starts_with("--")) Add(code).is_inline = true;
            at = end + 1;
        }
    }

    DocumentedCommand& Add(std::string_view text) {
        commands_.push_back({line_, std::string(text), {}, false, section_, false});
        return commands_.back();
    }

    void EndBlock() {
        if (!in_transcript_) return;
        auto& shows = commands_.back().shows;
        while (!shows.empty() && shows.back().empty()) shows.pop_back();
        in_transcript_ = false;
    }

    std::vector<DocumentedCommand> commands_;
    std::optional<std::string> fence_;
    std::size_t line_ = 0;
    std::size_t section_ = 0;
    bool in_transcript_ = false;
};

}  // namespace

std::vector<DocumentedCommand> CommandsOfDocument(std::string_view text) { return Reader().Read(text); }

bool IsAsShown(const std::vector<std::string>& shows, const std::vector<std::string>& screen) {
    return IsAsShownFrom(shows, 0, screen, 0);
}

std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = std::min(text.find('\n', at), text.size());
        const auto line = text.substr(at, end - at);
        lines.emplace_back(line.substr(0, line.find_last_not_of(' ') + 1));
        at = end + 1;
    }
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

std::vector<std::string> WordsOf(std::string_view line) {
    std::vector<std::string> words;
    std::string word;
    char quote = 0;
    for (const char c : line) {
        if (quote == 0 && c == ' ') {
            if (!word.empty()) words.push_back(std::move(word));
            word.clear();
            continue;
        }
        if (quote == 0 && (c == '"' || c == '\'')) {
            quote = c;
        } else if (c == quote) {
            quote = 0;
        }
        word += c;
    }
    if (!word.empty()) words.push_back(std::move(word));
    return words;
}

std::vector<std::string> AlternativesOf(std::string_view line) {
    constexpr std::string_view kOr = " | ";
    std::vector<std::string> parts;
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = line.find(kOr);
        parts.emplace_back(line.substr(0, end));
        if (end != std::string_view::npos) line.remove_prefix(end + kOr.size());
    }
    return parts;
}

}  // namespace frontend
