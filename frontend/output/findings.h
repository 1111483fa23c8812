#pragma once

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

/// What the library says about a finding, with the name of the other date where there is one.
LumoSeminar::Text FindingText(LumoSeminar::clsErrorMsg& finding,
                              LumoSeminar::Language language = LumoSeminar::Language::kEnglish);

}  // namespace frontend
