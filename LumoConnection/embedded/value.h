#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <LumoConnection/embedded/sql_type.h>
#include <LumoConnection/embedded/token.h>

namespace LumoConnection::Embedded {

/// A value as SQLite keeps it: whole numbers, money and decimals (ten-thousandths) and moments (ticks) as integers.
struct Value {
    enum class Form : std::uint8_t { kNull, kInteger, kReal, kText };

    Form form = Form::kNull;
    std::int64_t integer = 0;
    double real = 0;
    /// Not owned.
    std::string_view text;

    static Value Integer(std::int64_t value) { return {Form::kInteger, value, 0, {}}; }
    static Value Real(double value) { return {Form::kReal, 0, value, {}}; }
    static Value Text(std::string_view value) { return {Form::kText, 0, 0, value}; }
};

/// Why a value is converted. An assignment refuses a text that is too long, a cast cuts it.
enum class Purpose : std::uint8_t { kCast, kAssign };

/// Converts a value of one type into another by the server's rules. A text that has to be made is put into `buffer`,
/// which has to live as long as the result. Refuses what cannot be converted.
Value ConvertValue(const Value& value, Type from, Type to, Purpose purpose, int style, std::string& buffer);

/// The type of a literal where its place asks for none.
Type NaturalType(LiteralClass kind);

/// A literal as a value of a type. `buffer` as above; the result may point into the literal.
Value ReadLiteral(const Literal& literal, bool negative, Type to, Purpose purpose, int style, std::string& buffer);

/// Refuses a number that the type cannot hold, in the words of arithmetic.
void CheckRange(std::int64_t value, Kind kind);

/// Characters as the server counts them: UTF-16 units.
std::int64_t TextLength(std::string_view text);
/// Bytes of the first `units` characters.
std::size_t BytesOf(std::string_view text, std::int64_t units);
std::string_view WithoutTrailingBlanks(std::string_view text);

/// Ten-thousandths as text with so many decimals (0 to 4), rounded.
std::string FixedText(std::int64_t value, int decimals);

}  // namespace LumoConnection::Embedded
