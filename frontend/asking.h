#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "frontend/context.h"

namespace frontend {

/// A question that is answered by yes or no.
struct Question {
    /// What there is to know before, in lines; may be empty.
    std::string facts;
    /// "Remove it?"
    std::string text;
    /// What is told where it is not done: "Nothing was removed."
    std::string refusal;
    /// What answers it beforehand.
    std::string option = "--yes";
};

/// Whether it is to be done. Tells the facts, asks and reads a line, where standard input and standard error are a
/// terminal; yes is "y", "yes", "j" or "ja". Otherwise nobody can be asked, and the answer is no. A no is told. With
/// --dry-run it is yes, as nothing stays.
bool IsAgreed(const Context& context, const Question& question);

/// The same, asked by a command that has --yes. The question is not even made where that was given.
bool IsAgreedOrYes(const Context& context, const std::function<Question()>& question);

/// How many there are of a thing.
struct Several {
    std::size_t count = 0;
    const char* thing = "";
};

/// " 17 participants and 1 focus area go with it."; empty where there is none of anything.
std::string SentenceOn(const std::vector<Several>& things, const char* one_does, const char* more_do);

}  // namespace frontend
