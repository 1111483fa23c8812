#include "frontend/dry_run.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <string>
#include <utility>

#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/output/screen_text.h"

namespace frontend {

using namespace LumoSeminar;
using LumoConnection::TracedCall;
using LumoConnection::TracedKind;

namespace {

// Behind what stands between two marks of their own, or in a comment, that begins there; the place itself otherwise.
std::size_t BehindQuoted(std::string_view text, std::size_t at) {
    const auto Behind = [&](std::string_view end) {
        const auto found = text.find(end, at + end.size());
        return found == std::string_view::npos ? text.size() : found + end.size();
    };
    if (text[at] == '\'') return Behind("'");
    if (text[at] == '"') return Behind("\"");
    if (text[at] == '[') return Behind("]");
    if (text.substr(at, 2) == "/*") return Behind("*/");
    if (text.substr(at, 2) == "--") return std::min(text.find('\n', at), text.size());
    return at;
}

bool IsOfWord(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '@' || c == '#' || c == '$' ||
           static_cast<unsigned char>(c) >= 0x80;
}

// Collects the statements that change something, while whatever is done is taken back at the end.
class Rehearsal {
  public:
    explicit Rehearsal(Context& context) : context_(context) {
        if (!context.Session()->ExecuteSql(kBegin)) RaiseRefused(context.Session()->LastErrorText());
        context.Mute(true);
        context.WatchWith([this](const TracedCall& call) { Watch(call); });
    }
    Rehearsal(const Rehearsal&) = delete;
    Rehearsal& operator=(const Rehearsal&) = delete;
    ~Rehearsal() {
        context_.WatchWith({});
        context_.Mute(false);
        try {
            TakeBack();
        } catch (...) {
            fmt::print(stderr, "lumoseminar: The dry run could not be taken back; it goes with the session.\n");
        }
    }

    const std::vector<Text>& Statements() const { return statements_; }
    const std::optional<Error>& Refusal() const { return refusal_; }

  private:
    static constexpr const char* kBegin = "BEGIN TRANSACTION";

    void Watch(const TracedCall& call) {
        const bool is_text = call.kind == TracedKind::kExecuteSql || call.kind == TracedKind::kConnectionExecute ||
                             call.kind == TracedKind::kOpenSelect;
        if (is_text && Changes(call.statement)) statements_.push_back(call.statement);
        // A lookup that is refused gives Null, and may all the same have ended the transaction.
        const auto& session = context_.Unwatched();
        const auto number = session->LastErrorNumber();
        if (call.ok && number == 0) return;
        const Text text = call.error.empty() ? session->LastErrorText() : call.error;
        // Whatever comes now has to be in a transaction, too.
        TakeBack();
        if (!refusal_) refusal_ = Error(ErrorNumber::kStatementRefused, ReadDescription(text).text);
        // Where that is refused the connection is gone, and nothing can be written any more.
        static_cast<void>(session->ExecuteSql(kBegin));
        throw Error(*refusal_);
    }

    void TakeBack() const { static_cast<void>(context_.Unwatched()->ExecuteSql("ROLLBACK TRANSACTION")); }

    Context& context_;
    std::vector<Text> statements_;
    std::optional<Error> refusal_;
};

// On as many lines as it has. Behind more than one a line GO tells where it ends.
Text LinesOf(std::string_view statement) {
    Text lines;
    std::size_t count = 0;
    while (!statement.empty()) {
        auto line = statement.substr(0, statement.find('\n'));
        statement.remove_prefix(std::min(line.size() + 1, statement.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines += Visible(line) + '\n';
        ++count;
    }
    return count > 1 ? lines + "GO\n" : lines;
}

}  // namespace

bool Changes(std::string_view statement) {
    constexpr std::string_view kWords[] = {"alter", "create", "delete", "drop",  "exec",     "execute",
                                           "grant", "insert", "into",   "merge", "truncate", "update"};
    for (std::size_t at = 0; at < statement.size();) {
        if (const auto behind = BehindQuoted(statement, at); behind != at) {
            at = behind;
            continue;
        }
        if (!IsOfWord(statement[at])) {
            ++at;
            continue;
        }
        const auto end = std::find_if_not(statement.begin() + static_cast<std::ptrdiff_t>(at), statement.end(), IsOfWord);
        const auto length = static_cast<std::size_t>(end - statement.begin()) - at;
        const auto word = FoldCase(statement.substr(at, length));
        if (std::ranges::find(kWords, std::string_view(word)) != std::end(kWords)) return true;
        at += length;
    }
    return false;
}

void PrintStatements(const Context& context, const std::vector<Text>& statements) {
    if (context.IsForPeople()) {
        for (const auto& statement : statements) context.Show(LinesOf(statement));
        return;
    }
    Sheet sheet{{"Statement"}, {}};
    for (const auto& statement : statements) sheet.rows.push_back({statement});
    context.Print(sheet);
}

int RunDry(Context& context, const Action& action) {
    int code = kRefused;
    std::vector<Text> statements;
    std::optional<Error> refusal;
    {
        Rehearsal rehearsal(context);
        try {
            code = action(context);
        } catch (const Error& error) {
            refusal = error;
        }
        if (rehearsal.Refusal()) refusal = rehearsal.Refusal();
        statements = rehearsal.Statements();
    }
    PrintStatements(context, statements);
    context.Note(Counted(statements.size(), "statement") + "; nothing of it stays in the database");
    if (refusal) throw Error(*refusal);
    if (code != kDone) fmt::print(stderr, "lumoseminar: The command would end with the exit code {}.\n", code);
    return code;
}

}  // namespace frontend
