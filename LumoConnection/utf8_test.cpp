#include <LumoConnection/utf8.h>

#include <gtest/gtest.h>

#include <string>

namespace LumoConnection {
namespace {

TEST(Utf8, AllIsWellInProperText) {
    for (const std::string text : {"", "a", "0123456789abcdef", "Übung für Größe", "1234567ä", "€ und 𝄞", "\x7F"}) {
        EXPECT_EQ(FirstBadByte(text), std::string::npos) << text;
    }
    EXPECT_EQ(FirstBadByte(std::string("a\0b", 3)), std::string::npos);
}

TEST(Utf8, TheFirstBadByteIsFound) {
    const struct {
        std::string text;
        std::size_t place;
    } cases[] = {
        {"\xFF", 0},
        {"abc\xFE", 3},
        {"12345678\xE4", 8},
        {"1234567\xC3", 7},
        {"\xC3\x28", 0},
        {"\xC0\x80", 0},
        {"\xED\xA0\x80", 0},
        {"ä\x80", 2},
        {"\xF4\x90\x80\x80", 0},
        {"12345678901234\xE2\x82", 14},
    };
    for (const auto& c : cases) EXPECT_EQ(FirstBadByte(c.text), c.place) << c.text;
}

}  // namespace
}  // namespace LumoConnection
