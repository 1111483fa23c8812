#include <LumoConnection/embedded/sql_type.h>

#include <algorithm>

namespace LumoConnection::Embedded {

const char* KindText(Kind kind) {
    switch (kind) {
        case Kind::kNull:
            return "NULL";
        case Kind::kChar:
            return "char";
        case Kind::kVarchar:
            return "varchar";
        case Kind::kNchar:
            return "nchar";
        case Kind::kNvarchar:
            return "nvarchar";
        case Kind::kBit:
            return "bit";
        case Kind::kTinyint:
            return "tinyint";
        case Kind::kSmallint:
            return "smallint";
        case Kind::kInt:
            return "int";
        case Kind::kMoney:
            return "money";
        case Kind::kDecimal:
            return "numeric";
        case Kind::kReal:
            return "real";
        case Kind::kFloat:
            return "float";
        case Kind::kDatetime:
            return "datetime";
    }
    return "";
}

std::string TypeText(Type type) {
    std::string text = KindText(type.kind);
    if (!IsText(type.kind)) return text;
    text += '(';
    text += type.length == Type::kNoLimit ? "max" : std::to_string(type.length);
    text += ')';
    return text;
}

Type CommonType(Type a, Type b) {
    if (a.kind == Kind::kNull) return b;
    if (b.kind == Kind::kNull) return a;
    if (IsText(a.kind) && IsText(b.kind)) {
        const Type& higher = a.kind >= b.kind ? a : b;
        const bool open = a.length == Type::kNoLimit || b.length == Type::kNoLimit;
        const bool padded = a.kind == b.kind && a.length == b.length && !open;
        Kind kind = higher.kind;
        if (!padded && kind == Kind::kChar) kind = Kind::kVarchar;
        if (!padded && kind == Kind::kNchar) kind = Kind::kNvarchar;
        if (IsUnicode(a.kind) || IsUnicode(b.kind)) kind = padded ? kind : Kind::kNvarchar;
        return {kind, open ? Type::kNoLimit : std::max(a.length, b.length)};
    }
    if (a.kind == b.kind) return {a.kind, std::max(a.length, b.length)};
    if (IsFixed(a.kind) && IsFixed(b.kind)) return {Kind::kMoney};
    return a.kind > b.kind ? a : b;
}

std::int64_t Pack(Type type) {
    return static_cast<std::int64_t>(type.kind) | (static_cast<std::int64_t>(type.length) + 1) << 8;
}

Type Unpack(std::int64_t packed) {
    return {static_cast<Kind>(packed & 0xFF), static_cast<std::int32_t>((packed >> 8) - 1)};
}

}  // namespace LumoConnection::Embedded
