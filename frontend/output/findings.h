#pragma once

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

enum class Language { kEnglish, kGerman };

/// A finding of the checks before an enrolment in plain words, with the name of the other date where there is one.
LumoSeminar::Text FindingText(LumoSeminar::clsErrorMsg& finding, Language language = Language::kEnglish);

}  // namespace frontend
