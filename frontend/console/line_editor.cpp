#include "frontend/console/line_editor.h"

#include <fmt/format.h>
#include <histedit.h>
#include <langinfo.h>
#include <sys/stat.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cwchar>
#include <system_error>

#include "frontend/output/screen_text.h"
#include "frontend/output/terminal.h"

namespace frontend {

namespace {

constexpr int kRemembered = 1000;
constexpr std::size_t kShown = 60;
// What stands between two of these does not move the cursor.
constexpr char kHidden = '\1';

// What is typed is UTF-8, whatever the language.
void ReadUtf8() {
    std::setlocale(LC_CTYPE, "");
    if (std::string_view(nl_langinfo(CODESET)) != "UTF-8") std::setlocale(LC_CTYPE, "C.UTF-8");
}

std::size_t Characters(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// What all candidates begin with, in any capitals.
std::string CommonFront(const std::vector<Candidate>& candidates) {
    std::string front = candidates.front().text;
    for (const auto& one : candidates) {
        while (!FoldCase(one.text).starts_with(FoldCase(front))) {
            do {
                front.pop_back();
            } while (!front.empty() && (static_cast<unsigned char>(front.back()) & 0xC0) == 0x80);
            if (!front.empty() && static_cast<unsigned char>(front.back()) >= 0xC0) front.pop_back();
        }
    }
    return front;
}

std::string ListOf(const std::vector<Candidate>& candidates, int width) {
    const auto shown = std::min(candidates.size(), kShown);
    int widest = 0;
    bool explained = false;
    for (std::size_t i = 0; i < shown; ++i) {
        widest = std::max(widest, ScreenWidth(candidates[i].text));
        explained = explained || !candidates[i].what.empty();
    }
    const int column = widest + 2;
    const int columns = explained ? 1 : std::max(1, width / column);
    std::string list;
    for (std::size_t i = 0; i < shown; ++i) {
        const auto& [text, what] = candidates[i];
        const auto fill = static_cast<std::size_t>(column - ScreenWidth(text));
        list += text;
        if (!what.empty()) list += std::string(fill, ' ') + Shorten(what, std::max(10, width - column - 1));
        const bool ends_line = (i + 1) % static_cast<std::size_t>(columns) == 0 || i + 1 == shown;
        list += ends_line ? "\n" : std::string(fill, ' ');
    }
    if (shown < candidates.size()) list += fmt::format("… and {} more\n", candidates.size() - shown);
    return list;
}

}  // namespace

class LineEditor::State {
  public:
    State(std::filesystem::path file, Completer completer) : file_(std::move(file)), completer_(std::move(completer)) {
        ReadUtf8();
        editor_ = el_init("lumoseminar", stdin, stdout, stderr);
        history_ = history_init();
        if (editor_ == nullptr || history_ == nullptr) throw std::bad_alloc();
        HistEvent event;
        history(history_, &event, H_SETSIZE, kRemembered);
        history(history_, &event, H_SETUNIQUE, 1);
        std::error_code failed;
        if (std::filesystem::exists(file_, failed)) history(history_, &event, H_LOAD, file_.c_str());
        el_set(editor_, EL_CLIENTDATA, this);
        el_set(editor_, EL_EDITOR, "emacs");
        el_set(editor_, EL_SIGNAL, 1);
        el_set(editor_, EL_HIST, &history, history_);
        el_set(editor_, EL_PROMPT_ESC, &Prompt, kHidden);
        // The form for narrow characters makes copies that nobody frees.
        el_wset(editor_, EL_ADDFN, L"lumo-complete", L"Complete what is typed", &Complete);
        el_wset(editor_, EL_ADDFN, L"lumo-drop", L"Drop the line", &Drop);
        el_wset(editor_, EL_ADDFN, L"lumo-end", L"Delete a character, or end", &End);
        el_source(editor_, nullptr);
        // Ctrl-C is a key like others while a line is typed.
        el_set(editor_, EL_SETTY, "-d", "-isig", nullptr);
        el_set(editor_, EL_BIND, "^I", "lumo-complete", nullptr);
        el_set(editor_, EL_BIND, "^C", "lumo-drop", nullptr);
        el_set(editor_, EL_BIND, "^D", "lumo-end", nullptr);
        el_set(editor_, EL_BIND, "^R", "em-inc-search-prev", nullptr);
    }
    ~State() {
        if (editor_ != nullptr) el_end(editor_);
        if (history_ != nullptr) history_end(history_);
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    Outcome Read(const std::string& prompt, std::string& line) {
        prompt_ = prompt;
        dropped_ = false;
        // Keys that come once the prompt is there are keys for the line.
        el_set(editor_, EL_PREP_TERM, 1);
        int count = 0;
        const char* read = el_gets(editor_, &count);
        if (dropped_) return Outcome::kDropped;
        if (read == nullptr || count <= 0) return Outcome::kEnd;
        line.assign(read, static_cast<std::size_t>(count));
        while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
        return Outcome::kLine;
    }

    void Remember(const std::string& line) {
        HistEvent event;
        history(history_, &event, H_ENTER, line.c_str());
        if (file_.empty()) return;
        const auto mask = umask(S_IRWXG | S_IRWXO);
        std::error_code failed;
        std::filesystem::create_directories(file_.parent_path(), failed);
        history(history_, &event, H_SAVE, file_.c_str());
        umask(mask);
    }

  private:
    static State& Of(EditLine* editor) {
        void* state = nullptr;
        el_get(editor, EL_CLIENTDATA, &state);
        return *static_cast<State*>(state);
    }

    static char* Prompt(EditLine* editor) { return Of(editor).prompt_.data(); }

    static unsigned char Complete(EditLine* editor, wint_t) {
        try {
            return Of(editor).CompleteLine();
        } catch (const std::exception&) {
            return CC_ERROR;
        }
    }

    static unsigned char Drop(EditLine* editor, wint_t) {
        Of(editor).dropped_ = true;
        std::fputs("^C\n", stdout);
        std::fflush(stdout);
        return CC_NEWLINE;
    }

    static unsigned char End(EditLine* editor, wint_t) {
        const auto* line = el_line(editor);
        if (line->lastchar == line->buffer) {
            std::fputs("\n", stdout);
            return CC_EOF;
        }
        if (line->cursor == line->lastchar) return CC_ERROR;
        el_cursor(editor, 1);
        el_deletestr(editor, 1);
        return CC_REFRESH;
    }

    unsigned char CompleteLine() {
        const auto* typed = el_line(editor_);
        const std::string line(typed->buffer, typed->cursor);
        const auto found = completer_(line);
        if (found.candidates.empty()) return CC_ERROR;
        const auto begun = line.substr(found.from);
        auto front = CommonFront(found.candidates);
        const bool is_only = found.candidates.size() == 1;
        if (is_only && !front.ends_with('=') && !front.ends_with('/')) front += found.behind;
        // Several that only stand for what was typed do not take its place.
        const bool goes_on = is_only || (front.size() > begun.size() && FoldCase(front).starts_with(FoldCase(begun)));
        if (goes_on && front != begun) {
            el_deletestr(editor_, static_cast<int>(Characters(begun)));
            return el_insertstr(editor_, front.c_str()) == 0 ? CC_REFRESH : CC_ERROR;
        }
        if (is_only) return CC_ERROR;
        fmt::print("\n{}", ListOf(found.candidates, TerminalOf(stdout).width));
        std::fflush(stdout);
        return CC_REDISPLAY;
    }

    std::filesystem::path file_;
    Completer completer_;
    EditLine* editor_ = nullptr;
    History* history_ = nullptr;
    std::string prompt_;
    bool dropped_ = false;
};

LineEditor::LineEditor(std::filesystem::path history, Completer completer)
    : state_(std::make_unique<State>(std::move(history), std::move(completer))) {}

LineEditor::~LineEditor() = default;

LineEditor::Outcome LineEditor::Read(const std::string& prompt, std::string& line) {
    return state_->Read(prompt, line);
}

void LineEditor::Remember(const std::string& line) { state_->Remember(line); }

}  // namespace frontend
