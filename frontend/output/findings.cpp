#include "frontend/output/findings.h"

#include <fmt/format.h>

#include <string_view>

#include "frontend/output/screen_text.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

struct Words {
    Int32 number;
    const char* english;
    const char* german;
};

constexpr Words kWords[] = {
    {300000001, "The person is already enrolled in this date", "Die Person ist für diesen Termin schon angemeldet"},
    {300000002, "The person is booked on another date at the same time",
     "Die Person ist zur selben Zeit in einem anderen Termin gebucht"},
    {300000003, "The person is enrolled in an open date of this seminar",
     "Die Person ist in einem offenen Termin dieses Seminars angemeldet"},
    {300000004, "The person has taken this seminar before", "Die Person hat dieses Seminar schon besucht"},
    {300000005, "A prerequisite of the seminar is missing", "Eine Voraussetzung des Seminars fehlt"},
};

Text Sentence(Int32 number, Language language) {
    for (const auto& words : kWords) {
        if (words.number == number) return language == Language::kGerman ? words.german : words.english;
    }
    return fmt::format(fmt::runtime(language == Language::kGerman ? "Befund {}" : "Finding {}"), number);
}

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
    const Text sentence = Sentence(finding.ErrID(), language);
    return name.empty() ? sentence + '.' : fmt::format("{}: {}", sentence, Visible(name));
}

}  // namespace frontend
