#include "frontend/asking.h"

#include <fmt/format.h>

#include <cstdio>
#include <iostream>
#include <string_view>

#include "frontend/output/counted.h"
#include "frontend/output/screen_text.h"
#include "frontend/output/terminal.h"

namespace frontend {

namespace {

bool IsYes(std::string answer) {
    std::erase_if(answer, [](char c) { return c == ' ' || c == '\t' || c == '\r'; });
    const auto folded = FoldCase(answer);
    return folded == "y" || folded == "yes" || folded == "j" || folded == "ja";
}

std::string WithLineEnd(const std::string& text) { return text.empty() || text.back() == '\n' ? text : text + '\n'; }

}  // namespace

bool IsAgreed(const Context& context, const Question& question) {
    std::fflush(stdout);
    fmt::print(stderr, "{}", WithLineEnd(question.facts));
    if (context.options.dry_run) return true;
    if (!TerminalOf(stdin).is_terminal || !TerminalOf(stderr).is_terminal) {
        fmt::print(stderr, "lumoseminar: {}: nobody can be asked here, and {} was not given.\n",
                   std::string_view(question.refusal).substr(0, question.refusal.size() - 1), question.option);
        return false;
    }
    fmt::print(stderr, "{} [y/N] ", question.text);
    std::string answer;
    if (!std::getline(std::cin, answer)) {
        // The cursor stands behind the question still, and a later question is to find its input open.
        fmt::print(stderr, "\n");
        std::cin.clear();
    }
    if (IsYes(answer)) return true;
    fmt::print(stderr, "lumoseminar: {}\n", question.refusal);
    return false;
}

bool IsAgreedOrYes(const Context& context, const std::function<Question()>& question) {
    return context.options.yes || IsAgreed(context, question());
}

std::string SentenceOn(const std::vector<Several>& things, const char* one_does, const char* more_do) {
    std::vector<std::string> counted;
    std::size_t all = 0;
    for (const auto& [count, thing] : things) {
        if (count != 0) counted.push_back(Counted(count, thing));
        all += count;
    }
    if (counted.empty()) return "";
    std::string text = " " + counted.front();
    for (std::size_t i = 1; i < counted.size(); ++i) text += (i + 1 == counted.size() ? " and " : ", ") + counted[i];
    return text + ' ' + (all == 1 ? one_does : more_do) + '.';
}

}  // namespace frontend
