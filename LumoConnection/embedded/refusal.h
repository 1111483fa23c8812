#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include <LumoConnection/error_numbers.h>

namespace LumoConnection::Embedded {

/// Offset of a failure that belongs to no place of the text.
inline constexpr std::size_t kNoPlace = static_cast<std::size_t>(-1);

/// What the database refuses, with the server's number and words. The place is an offset in the text.
class Refusal : public std::exception {
  public:
    Refusal(int number, std::string text, std::size_t place = kNoPlace)
        : number_(number), text_(std::move(text)), place_(place) {}

    int Number() const { return number_; }
    const std::string& Text() const { return text_; }
    std::size_t Place() const { return place_; }
    void SetPlace(std::size_t place) { place_ = place; }

    const char* what() const noexcept override { return text_.c_str(); }

  private:
    int number_;
    std::string text_;
    std::size_t place_;
};

[[noreturn]] inline void Refuse(int number, std::string text, std::size_t place = kNoPlace) {
    throw Refusal(number, std::move(text), place);
}

/// A thing of the language that the embedded database does not do.
[[noreturn]] inline void RefuseNotCovered(std::string_view what, std::size_t place = kNoPlace) {
    throw Refusal(Refused::kNotCovered, std::string(what) + " is not covered by the embedded database.", place);
}

/// True where the server ends the whole text after this failure, false where it goes on with the next statement.
bool StopsText(int number);

/// True where the server also takes back the open transaction.
bool EndsTransaction(int number);

}  // namespace LumoConnection::Embedded
