#include "frontend/output/findings.h"

#include <fmt/format.h>

#include <string_view>

#include "frontend/output/screen_text.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

// Code and title stand with " - " between them, also where one of them is empty.
std::string_view DateName(std::string_view code_and_title) {
    constexpr std::string_view kBetween = " - ";
    if (code_and_title.starts_with(kBetween)) code_and_title.remove_prefix(kBetween.size());
    if (code_and_title.ends_with(kBetween)) code_and_title.remove_suffix(kBetween.size());
    return code_and_title;
}

}  // namespace

Text FindingText(clsErrorMsg& finding, Language language) {
    const Text name_of_date = finding.ParamName();
    const auto name = DateName(name_of_date);
    const Text sentence = LumoSeminar::FindingText(finding.ErrID(), language);
    return name.empty() ? sentence + '.' : fmt::format("{}: {}", sentence, Visible(name));
}

}  // namespace frontend
