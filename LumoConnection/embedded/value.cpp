#include <LumoConnection/embedded/value.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include <LumoConnection/embedded/lexer.h>
#include <LumoConnection/embedded/moment.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {
namespace {

constexpr std::int64_t kScale = 10'000;

struct Range {
    std::int64_t least;
    std::int64_t most;
};

Range RangeOf(Kind kind) {
    switch (kind) {
        case Kind::kBit:
            return {0, 1};
        case Kind::kTinyint:
            return {0, 255};
        case Kind::kSmallint:
            return {std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()};
        case Kind::kInt:
            return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
        default:
            return {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()};
    }
}

[[noreturn]] void RefuseOverflow(Kind to) {
    Refuse(Refused::kOverflow,
           std::string("Arithmetic overflow error converting expression to data type ") + KindText(to) + ".");
}

[[noreturn]] void RefuseConversion(std::string_view text, Kind from, Kind to) {
    Refuse(Refused::kNoNumber, std::string("Conversion failed when converting the ") + KindText(from) + " value '" +
                                   std::string(text) + "' to data type " + KindText(to) + ".");
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    return WithoutTrailingBlanks(text);
}

std::int64_t CutFixed(std::int64_t value) { return value / kScale; }

std::int64_t RoundFixed(std::int64_t value, std::int64_t unit) {
    const std::int64_t rest = value % unit;
    const std::int64_t whole = value / unit;
    if (std::abs(rest) * 2 < unit) return whole;
    return value < 0 ? whole - 1 : whole + 1;
}

// Half away from zero, in more digits than a double holds.
std::int64_t FixedOfReal(double value, Kind to) {
    const long double scaled = std::round(static_cast<long double>(value) * kScale);
    constexpr long double kLimit = 9223372036854775808.0L;
    if (!(scaled >= -kLimit && scaled < kLimit)) RefuseOverflow(to);
    return static_cast<std::int64_t>(scaled);
}

// Digits with at most one point, no sign, into ten-thousandths, half away from zero. False where they do not fit.
bool FixedOfDigits(std::string_view digits, bool negative, std::int64_t& result) {
    std::uint64_t value = 0;
    int decimals = -1;
    bool up = false;
    constexpr std::uint64_t kMost = std::uint64_t{1} << 63;
    for (const char c : digits) {
        if (c == '.') {
            decimals = 0;
            continue;
        }
        if (decimals == 4) {
            up = c >= '5';
            break;
        }
        if (value > (kMost - static_cast<std::uint64_t>(c - '0')) / 10) return false;
        value = value * 10 + static_cast<std::uint64_t>(c - '0');
        if (decimals >= 0) ++decimals;
    }
    for (int i = decimals < 0 ? 0 : decimals; i < 4; ++i) {
        if (value > kMost / 10) return false;
        value *= 10;
    }
    if (up) ++value;
    if (value > (negative ? kMost : kMost - 1)) return false;
    result = negative ? static_cast<std::int64_t>(0 - value) : static_cast<std::int64_t>(value);
    return true;
}

std::int64_t WholeOfText(std::string_view whole_text, Kind from, Kind to) {
    std::string_view text = Trimmed(whole_text);
    if (text.empty()) return 0;
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') text.remove_prefix(1);
    text = Trimmed(text);
    if (text.empty()) RefuseConversion(whole_text, from, to);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size() || text.front() == '-') RefuseConversion(whole_text, from, to);
    const Range range = RangeOf(to);
    if (negative) value = -value;
    if (error == std::errc() && value >= range.least && value <= range.most) return value;
    const std::string start =
        std::string("The conversion of the ") + KindText(from) + " value '" + std::string(whole_text) + "' overflowed an ";
    if (to == Kind::kInt) Refuse(Refused::kTextOverflowsInt, start + "int column.");
    Refuse(Refused::kTextOverflowsSmall,
           start + (to == Kind::kTinyint ? "INT1" : "INT2") + " column. Use a larger integer column.");
}

double RealOfText(std::string_view whole_text, Kind from, Kind to) {
    std::string_view text = Trimmed(whole_text);
    if (text.empty()) return 0;
    if (text.front() == '+') text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const char first = text.empty() ? '\0' : text[text.front() == '-' ? 1 : 0];
    const bool is_number = (first >= '0' && first <= '9') || first == '.';
    if (!is_number || end != text.data() + text.size() || error == std::errc::invalid_argument) {
        Refuse(Refused::kNoFloat, std::string("Error converting data type ") + KindText(from) + " to " + KindText(to) + ".");
    }
    if (error != std::errc()) RefuseOverflow(to);
    return value;
}

std::int64_t MoneyOfText(std::string_view whole_text) {
    const auto refuse = [] {
        Refuse(Refused::kNoMoney, "Cannot convert a char value to money. The char value has incorrect syntax.");
    };
    std::string_view text = Trimmed(whole_text);
    bool negative = false;
    bool sign = false;
    bool symbol = false;
    constexpr std::string_view kEuro = "€";
    while (!text.empty()) {
        if (!sign && (text.front() == '-' || text.front() == '+')) {
            sign = true;
            negative = text.front() == '-';
            text.remove_prefix(1);
        } else if (!symbol && text.front() == '$') {
            symbol = true;
            text.remove_prefix(1);
        } else if (!symbol && text.starts_with(kEuro)) {
            symbol = true;
            text.remove_prefix(kEuro.size());
        } else if (text.front() == ' ') {
            text.remove_prefix(1);
        } else {
            break;
        }
    }
    std::string digits;
    bool point = false;
    for (const char c : text) {
        if (c == ',') continue;
        if (c == '.' ? point : c < '0' || c > '9') refuse();
        point = point || c == '.';
        digits.push_back(c);
    }
    std::int64_t value = 0;
    if (!FixedOfDigits(digits, negative, value)) RefuseOverflow(Kind::kMoney);
    return value;
}

std::int64_t ToWhole(const Value& value, Type from, Kind to) {
    std::int64_t whole = 0;
    if (IsText(from.kind)) {
        if (to == Kind::kBit) {
            const auto text = Trimmed(value.text);
            if (text.size() == 4 && (text == "true" || text == "True" || text == "TRUE")) return 1;
            if (text.size() == 5 && (text == "false" || text == "False" || text == "FALSE")) return 0;
            return WholeOfText(value.text, from.kind, Kind::kInt) != 0 ? 1 : 0;
        }
        return WholeOfText(value.text, from.kind, to);
    }
    if (IsFloating(from.kind)) {
        if (to == Kind::kBit) return value.real != 0 ? 1 : 0;
        const double cut = std::trunc(value.real);
        const Range range = RangeOf(to);
        if (!(cut >= static_cast<double>(range.least) && cut <= static_cast<double>(range.most))) {
            std::array<char, 400> shown{};
            std::snprintf(shown.data(), shown.size(), "%f", value.real);
            Refuse(Refused::kFloatOverflow,
                   std::string("Arithmetic overflow error for type ") + KindText(to) + ", value = " + shown.data() + ".");
        }
        return static_cast<std::int64_t>(cut);
    }
    switch (from.kind) {
        case Kind::kMoney:
            whole = to == Kind::kBit ? value.integer : RoundFixed(value.integer, kScale);
            break;
        case Kind::kDecimal:
            whole = to == Kind::kBit ? value.integer : CutFixed(value.integer);
            break;
        case Kind::kDatetime:
            whole = static_cast<std::int64_t>(std::floor(DaysOf(value.integer) + 0.5));
            break;
        default:
            whole = value.integer;
            break;
    }
    if (to == Kind::kBit) return whole != 0 ? 1 : 0;
    const Range range = RangeOf(to);
    if (whole < range.least || whole > range.most) {
        if (to == Kind::kInt || from.kind == Kind::kDecimal || from.kind == Kind::kMoney) RefuseOverflow(to);
        Refuse(Refused::kSmallOverflow, std::string("Arithmetic overflow error for data type ") + KindText(to) +
                                            ", value = " + std::to_string(whole) + ".");
    }
    return whole;
}

std::int64_t ToFixed(const Value& value, Type from, Kind to) {
    if (IsText(from.kind)) return MoneyOfText(value.text);
    if (IsFloating(from.kind)) return FixedOfReal(value.real, to);
    if (IsFixed(from.kind)) return value.integer;
    if (from.kind == Kind::kDatetime) return FixedOfReal(DaysOf(value.integer), to);
    return value.integer * kScale;
}

double ToReal(const Value& value, Type from, Kind to) {
    double real = 0;
    if (IsText(from.kind)) {
        real = RealOfText(value.text, from.kind, to);
    } else if (IsFloating(from.kind)) {
        real = value.real;
    } else if (IsFixed(from.kind)) {
        real = static_cast<double>(static_cast<long double>(value.integer) / kScale);
    } else {
        real = from.kind == Kind::kDatetime ? DaysOf(value.integer) : static_cast<double>(value.integer);
    }
    if (to == Kind::kReal) {
        if (std::fabs(real) > static_cast<double>(std::numeric_limits<float>::max())) RefuseOverflow(to);
        real = static_cast<double>(static_cast<float>(real));
    }
    return real;
}

std::int64_t ToMoment(const Value& value, Type from, int style) {
    if (IsText(from.kind)) return ReadMoment(value.text, style, KindText(from.kind));
    if (from.kind == Kind::kDatetime) return value.integer;
    if (IsFloating(from.kind)) return TicksOfDays(value.real);
    if (IsFixed(from.kind)) return TicksOfDays(static_cast<double>(value.integer) / kScale);
    return TicksOfDays(static_cast<double>(value.integer));
}

// A float as the server writes it: up to six digits, the exponent with three.
std::string RealText(double value, int digits) {
    std::array<char, 40> text{};
    const int length = std::snprintf(text.data(), text.size(), "%.*g", digits, value);
    std::string result(text.data(), static_cast<std::size_t>(length));
    const auto exponent = result.find('e');
    if (exponent != std::string::npos && result.size() - exponent == 4) result.insert(exponent + 2, 1, '0');
    return result;
}

std::string_view NumberText(const Value& value, Type from, int style, std::string& buffer) {
    if (from.kind == Kind::kMoney) {
        constexpr int kFourDecimals = 2;
        buffer = FixedText(value.integer, style == kFourDecimals ? 4 : 2);
        if (style == 1) {
            const std::size_t first = buffer.front() == '-' ? 1 : 0;
            for (std::size_t at = buffer.find('.'); at > first + 3; at -= 3) buffer.insert(at - 3, 1, ',');
        }
    } else if (from.kind == Kind::kDecimal) {
        buffer = FixedText(value.integer, from.length < 0 ? 4 : from.length);
    } else if (IsFloating(from.kind)) {
        buffer = RealText(value.real, style == 1 ? 8 : style == 2 ? 16 : 6);
    } else if (from.kind == Kind::kDatetime) {
        buffer = WriteMoment(value.integer, style);
    } else {
        buffer = std::to_string(value.integer);
    }
    return buffer;
}

[[noreturn]] void RefuseTruncated() { Refuse(Refused::kTruncated, "String or binary data would be truncated."); }

Value ToText(const Value& value, Type from, Type to, Purpose purpose, int style, std::string& buffer) {
    const bool from_text = IsText(from.kind);
    std::string_view text = from_text ? value.text : NumberText(value, from, style, buffer);
    if (to.length == Type::kNoLimit) return Value::Text(text);
    const auto limit = static_cast<std::size_t>(to.length);
    // No text has more characters than bytes.
    if (text.size() > limit) {
        const std::size_t most = BytesOf(text, to.length);
        if (most < text.size()) {
            if (!from_text && from.kind != Kind::kDatetime) {
                if (purpose == Purpose::kCast && IsWhole(from.kind) && !IsUnicode(to.kind)) return Value::Text("*");
                RefuseOverflow(to.kind);
            }
            if (purpose == Purpose::kAssign && !WithoutTrailingBlanks(text.substr(most)).empty()) RefuseTruncated();
            text = text.substr(0, most);
        }
    }
    if (to.kind == Kind::kChar || to.kind == Kind::kNchar) {
        const std::int64_t length = TextLength(text);
        if (length < to.length) {
            std::string padded(text);
            padded.append(static_cast<std::size_t>(to.length - length), ' ');
            buffer = std::move(padded);
            text = buffer;
        }
    }
    return Value::Text(text);
}

}  // namespace

Value ConvertValue(const Value& value, Type from, Type to, Purpose purpose, int style, std::string& buffer) {
    if (value.form == Value::Form::kNull) return value;
    if (IsText(to.kind)) return ToText(value, from, to, purpose, style, buffer);
    if (IsWhole(to.kind)) return Value::Integer(ToWhole(value, from, to.kind));
    if (IsFixed(to.kind)) return Value::Integer(ToFixed(value, from, to.kind));
    if (IsFloating(to.kind)) return Value::Real(ToReal(value, from, to.kind));
    if (to.kind == Kind::kDatetime) return Value::Integer(ToMoment(value, from, style));
    return value;
}

Type NaturalType(LiteralClass kind) {
    switch (kind) {
        case LiteralClass::kInt:
            return {Kind::kInt};
        case LiteralClass::kText:
            return {Kind::kVarchar};
        case LiteralClass::kUnicode:
            return {Kind::kNvarchar};
        case LiteralClass::kDecimal0:
            return {Kind::kDecimal, 0};
        case LiteralClass::kDecimal1:
            return {Kind::kDecimal, 1};
        case LiteralClass::kDecimal2:
            return {Kind::kDecimal, 2};
        case LiteralClass::kDecimal3:
            return {Kind::kDecimal, 3};
        case LiteralClass::kDecimal4:
            return {Kind::kDecimal, 4};
        case LiteralClass::kLong:
        case LiteralClass::kFloat:
            return {Kind::kFloat};
    }
    return {};
}

Value ReadLiteral(const Literal& literal, bool negative, Type to, Purpose purpose, int style, std::string& buffer) {
    const Type natural = NaturalType(literal.kind);
    if (IsText(natural.kind)) {
        if (!literal.doubled) return ConvertValue(Value::Text(literal.text), natural, to, purpose, style, buffer);
        const std::string whole = Undouble(literal.text, '\'');
        const Value value = ConvertValue(Value::Text(whole), natural, to, purpose, style, buffer);
        if (value.form != Value::Form::kText || value.text.data() == buffer.data()) return value;
        buffer.assign(value.text);
        return Value::Text(buffer);
    }
    if (literal.kind == LiteralClass::kInt) {
        std::int64_t number = 0;
        std::from_chars(literal.text.data(), literal.text.data() + literal.text.size(), number);
        return ConvertValue(Value::Integer(negative ? -number : number), natural, to, purpose, style, buffer);
    }
    const bool exact = literal.kind != LiteralClass::kFloat;
    if (exact && IsFixed(to.kind)) {
        std::int64_t fixed = 0;
        if (!FixedOfDigits(literal.text, negative, fixed)) RefuseOverflow(to.kind);
        return Value::Integer(fixed);
    }
    if (exact && IsText(to.kind)) {
        std::string digits(negative ? "-" : "");
        if (literal.text.front() == '.') digits += '0';
        digits += literal.text;
        if (digits.back() == '.') digits.pop_back();
        const Value value = ConvertValue(Value::Text(digits), {Kind::kVarchar}, to, purpose, style, buffer);
        if (value.text.data() != buffer.data()) buffer.assign(value.text);
        return Value::Text(buffer);
    }
    if (exact && natural.kind == Kind::kDecimal && !IsFloating(to.kind)) {
        std::int64_t fixed = 0;
        FixedOfDigits(literal.text, negative, fixed);
        return ConvertValue(Value::Integer(fixed), natural, to, purpose, style, buffer);
    }
    double real = 0;
    const auto [end, error] = std::from_chars(literal.text.data(), literal.text.data() + literal.text.size(), real);
    if (error == std::errc::result_out_of_range) RefuseOverflow(Kind::kFloat);
    if (exact && IsWhole(to.kind) && to.kind != Kind::kBit &&
        !(std::fabs(real) <= static_cast<double>(std::numeric_limits<std::int32_t>::max()) + 1)) {
        RefuseOverflow(to.kind);
    }
    return ConvertValue(Value::Real(negative ? -real : real), {Kind::kFloat}, to, purpose, style, buffer);
}

void CheckRange(std::int64_t value, Kind kind) {
    const Range range = RangeOf(kind);
    const bool fits = kind == Kind::kDatetime ? IsMoment(value) : value >= range.least && value <= range.most;
    if (!fits) RefuseOverflow(kind);
}

std::int64_t TextLength(std::string_view text) {
    std::int64_t units = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0) != 0x80) units += byte >= 0xF0 ? 2 : 1;
    }
    return units;
}

std::size_t BytesOf(std::string_view text, std::int64_t units) {
    std::size_t at = 0;
    while (at < text.size()) {
        const auto byte = static_cast<unsigned char>(text[at]);
        units -= byte >= 0xF0 ? 2 : 1;
        if (units < 0) break;
        ++at;
        while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80) ++at;
    }
    return at;
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

std::string FixedText(std::int64_t value, int decimals) {
    std::int64_t unit = 1;
    for (int i = decimals; i < 4; ++i) unit *= 10;
    const std::int64_t rounded = RoundFixed(value, unit);
    std::uint64_t magnitude = rounded < 0 ? 0 - static_cast<std::uint64_t>(rounded) : static_cast<std::uint64_t>(rounded);
    std::string digits = std::to_string(magnitude);
    const auto least = static_cast<std::size_t>(decimals) + 1;
    if (digits.size() < least) digits.insert(0, least - digits.size(), '0');
    if (decimals > 0) digits.insert(digits.size() - static_cast<std::size_t>(decimals), 1, '.');
    if (rounded < 0) digits.insert(0, 1, '-');
    return digits;
}

}  // namespace LumoConnection::Embedded
