#include <LumoConnection/embedded/shape_reader.h>

#include <gtest/gtest.h>

#include <random>

namespace LumoConnection::Embedded {
namespace {

struct Reading {
    bool ok = false;
    std::string shape;
    std::vector<std::string> literals;

    friend bool operator==(const Reading&, const Reading&) = default;
};

std::vector<std::string> Told(const std::vector<Literal>& literals) {
    std::vector<std::string> told;
    for (const auto& literal : literals) {
        told.push_back(std::string(literal.text) + '|' + static_cast<char>(literal.kind) + (literal.doubled ? "d" : ""));
    }
    return told;
}

Reading Anew(std::string_view text) {
    Reading reading;
    std::vector<Literal> literals;
    reading.ok = ReadShape(text, reading.shape, literals);
    if (reading.ok) reading.literals = Told(literals);
    return reading;
}

Reading With(ShapeReader& reader, std::string_view text) {
    Reading reading;
    std::vector<Literal> literals;
    reading.ok = reader.Read(text, reading.shape, literals);
    if (reading.ok) reading.literals = Told(literals);
    return reading;
}

// The beginning is the same, so that all of them meet in one place of the reader.
constexpr std::string_view kBeginning = "SELECT a, b, c, d, e, f, g, h, i FROM t WHERE ";

TEST(ShapeReader, ReadsAsReadShapeDoesWhateverCameBefore) {
    const std::vector<std::string> ends = {"a = 1",
                                           "a = 22",
                                           "a = 1.5",
                                           "a = .5",
                                           "a = 1e5",
                                           "a = 1.e5",
                                           "a = 'x'",
                                           "a = 'x''y'",
                                           "a = N'x'",
                                           "a = n'x'",
                                           "a = ''",
                                           "a = 'offen",
                                           "a = 1 -- 2",
                                           "a = 1 /* 2 */",
                                           "a = 1 /* offen",
                                           "a1 = 1",
                                           "a.5",
                                           "a5.5",
                                           "aN'x'",
                                           "a'x'",
                                           "a = 1 OR b = 2",
                                           "a = 1 OR b = 'x'",
                                           "a = 'x' OR b = 2",
                                           "a = [1]",
                                           "a = \"1\"",
                                           "a = 0x1F",
                                           "a = -1",
                                           "a = --1",
                                           "a = 1 ",
                                           "a = 1;",
                                           "a = 1'x'",
                                           "a = 12'x'",
                                           "a = 'x'1",
                                           "a = 'x''1'",
                                           "a = @x1",
                                           "a = @x",
                                           "a = 2147483647",
                                           "a = 2147483648",
                                           "a = 99999999999999999999",
                                           "a = 'ß'",
                                           "a = 'ä' AND b = 'ö'",
                                           "",
                                           "a = $1"};
    for (const auto& first : ends) {
        for (const auto& second : ends) {
            ShapeReader reader;
            for (const auto& end : {first, second, first}) {
                const std::string text = std::string(kBeginning) + end;
                EXPECT_EQ(With(reader, text), Anew(text)) << first << " -> " << end;
            }
        }
    }
}

TEST(ShapeReader, ReadsAsReadShapeDoesOverRandomTexts) {
    const std::vector<std::string> pieces = {"a",    "N", "'", "''", "1",  "23",  ".",    ".5",   "e5",  " ",
                                             "=",    "<", "-", "--", "\n", "/*",  "*/",   "[",    "]",   "\"",
                                             "@",    "x", "(", ")",  ",",  "'ü'", "N'z'", "or",   "0x1", "''''",
                                             "\r\n", "7", "$", "#",  "ä",  "!=",  "1.5",  "1e-3", "_"};
    std::mt19937 random(4711);
    ShapeReader reader;
    for (int round = 0; round < 20'000; ++round) {
        std::vector<std::string> text(1 + random() % 8);
        for (auto& piece : text) piece = pieces[random() % pieces.size()];
        for (int variant = 0; variant < 4; ++variant) {
            std::string whole(kBeginning);
            for (const auto& piece : text) whole += piece;
            ASSERT_EQ(With(reader, whole), Anew(whole)) << whole;
            text[random() % text.size()] = pieces[random() % pieces.size()];
        }
    }
}

}  // namespace
}  // namespace LumoConnection::Embedded
