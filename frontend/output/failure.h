#pragma once

#include <string>
#include <string_view>

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

/// The text of an error as a sentence of its own, on one line.
std::string FailureSentence(const LumoSeminar::Error& error);

/// Number and source of an error, then its labels, a line each, indented by four blanks.
std::string FailureDetails(const LumoSeminar::Error& error);

/// The line of a text with a caret under the byte at that offset, both indented, headed by the number of the line.
/// @param first_line number of the first line of the text
std::string PlaceText(std::string_view text, std::size_t offset, int first_line = 1);

}  // namespace frontend
