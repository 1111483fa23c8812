#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace LumoSeminar {

/// Numbers of the errors that the library raises. What a session or a process object raises keeps its own number.
namespace ErrorNumber {
inline constexpr std::int32_t kKeyNotFound = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kPositionOutOfRange = 9;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kEmptyReference = 91;
inline constexpr std::int32_t kInvalidUseOfNull = 94;
inline constexpr std::int32_t kComponentNotCreated = 429;
inline constexpr std::int32_t kForeignException = 440;
inline constexpr std::int32_t kKeyAlreadyThere = 457;
/// A statement was refused; the description is the session's LastErrorText.
inline constexpr std::int32_t kStatementRefused = 9999;
}  // namespace ErrorNumber

/// The one exception type that leaves the library.
///
/// The description is the text of the failure, followed by a label of each operation that the error passed,
/// from the inside out. ReadDescription() takes the two apart again.
class Error : public std::exception {
  public:
    /// An empty source becomes "LumoSeminar".
    Error(std::int32_t number, std::string description, std::string source = {});

    std::int32_t Number() const { return number_; }
    const std::string& Source() const { return source_; }
    const std::string& Description() const { return description_; }

    /// The description.
    const char* what() const noexcept override { return description_.c_str(); }

  private:
    std::int32_t number_;
    std::string source_;
    std::string description_;
};

/// A description taken apart for display.
struct ErrorDescription {
    std::string text;
    /// As they stand, leading blanks included; the innermost operation first.
    std::vector<std::string> labels;
};

/// Takes a description as the library raises it apart into text and labels.
ErrorDescription ReadDescription(std::string_view description);

/// A name or key for a description: in double quotes, each control character as a question mark, cut after 60 bytes of
/// UTF-8 or before the character that stands across them.
std::string OneLine(std::string_view name);

[[noreturn]] void Raise(std::int32_t number, std::string description);
[[noreturn]] void RaiseOverflow();
[[noreturn]] void RaiseEmptyReference();
[[noreturn]] void RaiseTypeMismatch(std::string_view from, std::string_view to);
[[noreturn]] void RaiseInvalidUseOfNull();

/// Raises 9999 with the session's LastErrorText as description.
[[noreturn]] void RaiseRefused(std::string last_error_text);

/// To be called in a catch block: raises the current exception again as an Error, number and source kept.
/// The description grows by a line break and the label, then by the addition as it stands.
[[noreturn]] void RaiseLabelled(std::string_view label, std::string_view addition = {});

/// To be called in a catch block, the form of the later classes: "in line: 0" and a line break come before
/// the description, the label directly behind it.
[[noreturn]] void RaiseInLine(std::string_view label);

}  // namespace LumoSeminar
