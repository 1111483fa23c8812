#pragma once

#include <string>
#include <string_view>

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

/// "error 9999: text", then a label a line, indented by four blanks.
std::string FailureText(const LumoSeminar::Error& error);

/// The line of a text with a caret under the byte at that offset, both indented, headed by the number of the line.
/// @param first_line number of the first line of the text
std::string PlaceText(std::string_view text, std::size_t offset, int first_line = 1);

}  // namespace frontend
