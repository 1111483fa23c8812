#pragma once

#include <cstdint>
#include <string>

namespace LumoConnection::Embedded {

/// The types of columns, variables and expressions. Decimal exists for number literals with up to four decimals and
/// for what is worked out from them alone; it comes back as a Double.
enum class Kind : std::uint8_t {
    kNull,  // the word NULL before its place gives it a type
    kChar,
    kVarchar,
    kNchar,
    kNvarchar,
    kBit,
    kTinyint,
    kSmallint,
    kInt,
    kMoney,
    kDecimal,
    kReal,
    kFloat,
    kDatetime,
};

struct Type {
    Kind kind = Kind::kNull;
    /// Texts: the most characters, kNoLimit for max and where it is not known. Decimal: the decimals, 0 to 4.
    std::int32_t length = kNoLimit;

    static constexpr std::int32_t kNoLimit = -1;

    friend bool operator==(const Type&, const Type&) = default;
};

constexpr bool IsText(Kind kind) { return kind >= Kind::kChar && kind <= Kind::kNvarchar; }
constexpr bool IsUnicode(Kind kind) { return kind == Kind::kNchar || kind == Kind::kNvarchar; }
constexpr bool IsWhole(Kind kind) { return kind >= Kind::kBit && kind <= Kind::kInt; }
/// Kept as ten-thousandths in 64 bits.
constexpr bool IsFixed(Kind kind) { return kind == Kind::kMoney || kind == Kind::kDecimal; }
constexpr bool IsFloating(Kind kind) { return kind == Kind::kReal || kind == Kind::kFloat; }
constexpr bool IsNumber(Kind kind) { return kind >= Kind::kBit && kind <= Kind::kFloat; }

/// "int", "nvarchar(20)", "varchar(max)", ...
std::string TypeText(Type type);
/// The same without the length, as failures name it.
const char* KindText(Kind kind);

/// The type that two operands meet in: the one of the higher rank. Decimal and money meet in money.
Type CommonType(Type a, Type b);

/// One number for a type, so that SQLite functions can be told it.
std::int64_t Pack(Type type);
Type Unpack(std::int64_t packed);

}  // namespace LumoConnection::Embedded
