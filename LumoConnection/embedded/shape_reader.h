#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <LumoConnection/embedded/lexer.h>

namespace LumoConnection::Embedded {

/// Reads shapes as ReadShape does. A text that differs from one read before in the values of its literals alone, which
/// is what a program sends mostly, is compared with that one between the literals and not cut into tokens.
class ShapeReader {
  public:
    /// As ReadShape.
    bool Read(std::string_view text, std::string& shape, std::vector<Literal>& literals);

  private:
    static constexpr std::size_t kPlaces = 64;
    static constexpr std::size_t kLongestKept = 32 * 1024;

    struct Known {
        bool valid = false;
        std::string text;
        std::string shape;
        std::vector<LiteralPlace> literals;
    };

    static std::size_t PlaceFor(std::string_view text);
    static bool ReadLike(const Known& known, std::string_view text, std::vector<Literal>& literals);

    std::array<Known, kPlaces> known_;
    std::vector<LiteralPlace> places_;
};

}  // namespace LumoConnection::Embedded
