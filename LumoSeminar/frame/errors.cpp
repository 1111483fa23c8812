#include <LumoSeminar/frame/errors.h>

#include <algorithm>
#include <new>
#include <utility>

namespace LumoSeminar {
namespace {

constexpr std::string_view kLibrary = "LumoSeminar";
constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kLineMark = "in line: 0\r\n";
constexpr std::string_view kInLineLabel = " in LumoSeminar.";

Error CurrentError() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return {ErrorNumber::kOutOfMemory, "Out of memory."};
    } catch (const std::exception& foreign) {
        return {ErrorNumber::kForeignException, foreign.what()};
    } catch (...) {
        return {ErrorNumber::kForeignException, "An exception of an unknown type was thrown."};
    }
}

bool IsNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

// Start of an in-line label at the very end of the text, or npos.
std::size_t TrailingInLineLabel(std::string_view text) {
    const auto start = text.rfind(kInLineLabel);
    if (start == std::string_view::npos) return start;
    const auto member = text.substr(start + kInLineLabel.size());
    return !member.empty() && std::ranges::all_of(member, IsNameCharacter) ? start : std::string_view::npos;
}

}  // namespace

Error::Error(std::int32_t number, std::string description, std::string source)
    : number_(number),
      source_(source.empty() ? std::string(kLibrary) : std::move(source)),
      description_(std::move(description)) {}

ErrorDescription ReadDescription(std::string_view description) {
    std::size_t in_line_labels = 0;
    while (description.starts_with(kLineMark)) {
        description.remove_prefix(kLineMark.size());
        ++in_line_labels;
    }
    ErrorDescription parts;
    while (true) {
        const auto line_break = description.rfind(kLineBreak);
        auto last = line_break == std::string_view::npos ? description : description.substr(line_break + 2);
        while (in_line_labels > 0) {
            const auto start = TrailingInLineLabel(last);
            if (start == std::string_view::npos) break;
            parts.labels.emplace_back(last.substr(start));
            last = last.substr(0, start);
            --in_line_labels;
        }
        if (line_break == std::string_view::npos) {
            parts.text = last;
            break;
        }
        parts.labels.emplace_back(last);
        description = description.substr(0, line_break);
    }
    std::ranges::reverse(parts.labels);
    return parts;
}

std::string OneLine(std::string_view name) {
    constexpr std::size_t kMost = 60;
    const bool cut = name.size() > kMost;
    std::size_t length = std::min(name.size(), kMost);
    while (cut && length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80) --length;
    std::string shown = "\"";
    for (const char c : name.substr(0, length)) shown += static_cast<unsigned char>(c) < ' ' || c == 0x7F ? '?' : c;
    return shown += cut ? "...\"" : "\"";
}

void Raise(std::int32_t number, std::string description) { throw Error(number, std::move(description)); }

void RaiseOverflow() { Raise(ErrorNumber::kOverflow, "Overflow: the value does not fit the type."); }

void RaiseEmptyReference() { Raise(ErrorNumber::kEmptyReference, "An empty reference was used as an object."); }

void RaiseTypeMismatch(std::string_view from, std::string_view to) {
    std::string description = "Type mismatch: ";
    description.append(from).append(" is not a value of type ").append(to).append(".");
    Raise(ErrorNumber::kTypeMismatch, std::move(description));
}

void RaiseInvalidUseOfNull() { Raise(ErrorNumber::kInvalidUseOfNull, "Invalid use of Null."); }

void RaiseRefused(std::string last_error_text) { Raise(ErrorNumber::kStatementRefused, std::move(last_error_text)); }

void RaiseLabelled(std::string_view label, std::string_view addition) {
    const Error error = CurrentError();
    std::string description = error.Description();
    description.append(kLineBreak).append(label).append(addition);
    throw Error(error.Number(), std::move(description), error.Source());
}

void RaiseInLine(std::string_view label) {
    const Error error = CurrentError();
    std::string description(kLineMark);
    description.append(error.Description()).append(label);
    throw Error(error.Number(), std::move(description), error.Source());
}

}  // namespace LumoSeminar
