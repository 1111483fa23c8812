#include <LumoConnection/embedded/functions.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <exception>

#include <LumoConnection/embedded/collation.h>
#include <LumoConnection/embedded/like.h>
#include <LumoConnection/embedded/moment.h>
#include <LumoConnection/embedded/refusal.h>
#include <LumoConnection/embedded/sqlite.h>

namespace LumoConnection::Embedded {
namespace {

constexpr std::int64_t kScale = 10'000;

__extension__ typedef __int128 Wide;

// The arguments of a call and its result. A function runs only where none of its values is Null, unless it says so.
class Call {
  public:
    Call(sqlite3_context* context, int count, sqlite3_value** arguments)
        : context_(context), count_(count), arguments_(arguments) {}

    int Count() const { return count_; }
    std::int64_t Integer(int at) const { return sqlite3_value_int64(arguments_[at]); }
    double Real(int at) const { return sqlite3_value_double(arguments_[at]); }
    bool IsReal(int at) const { return sqlite3_value_type(arguments_[at]) == SQLITE_FLOAT; }
    bool IsNull(int at) const { return sqlite3_value_type(arguments_[at]) == SQLITE_NULL; }
    std::string_view Text(int at) const {
        const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(arguments_[at]));
        if (!text) throw std::bad_alloc();
        return {text, static_cast<std::size_t>(sqlite3_value_bytes(arguments_[at]))};
    }
    Type TypeAt(int at) const { return Unpack(Integer(at)); }
    Value ValueAt(int at) const {
        switch (sqlite3_value_type(arguments_[at])) {
            case SQLITE_INTEGER:
                return Value::Integer(Integer(at));
            case SQLITE_FLOAT:
                return Value::Real(Real(at));
            case SQLITE_TEXT:
                return Value::Text(Text(at));
            default:
                return {};
        }
    }

    void Return(std::int64_t value) { sqlite3_result_int64(context_, value); }
    void Return(double value) { sqlite3_result_double(context_, value); }
    void Return(std::string_view value) {
        sqlite3_result_text64(context_, value.empty() ? "" : value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    void Return(const Value& value) {
        switch (value.form) {
            case Value::Form::kNull:
                sqlite3_result_null(context_);
                break;
            case Value::Form::kInteger:
                Return(value.integer);
                break;
            case Value::Form::kReal:
                Return(value.real);
                break;
            case Value::Form::kText:
                Return(value.text);
                break;
        }
    }
    void ReturnArgument(int at) { sqlite3_result_value(context_, arguments_[at]); }
    sqlite3_context* Context() const { return context_; }

  private:
    sqlite3_context* context_;
    int count_;
    sqlite3_value** arguments_;
};

void ReportFailure(sqlite3_context* context) {
    auto* connection = static_cast<SqliteConnection*>(sqlite3_user_data(context));
    try {
        throw;
    } catch (const Refusal& refusal) {
        connection->Pending() = refusal;
        sqlite3_result_error(context, "refused", -1);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception& failure) {
        sqlite3_result_error(context, failure.what(), -1);
    }
}

template <void (*function)(Call&)>
void Scalar(sqlite3_context* context, int count, sqlite3_value** arguments) {
    for (int i = 0; i < count; ++i) {
        if (sqlite3_value_type(arguments[i]) == SQLITE_NULL) return;
    }
    try {
        Call call(context, count, arguments);
        function(call);
    } catch (...) {
        ReportFailure(context);
    }
}

[[noreturn]] void RefuseOverflow(Kind kind) {
    Refuse(Refused::kOverflow,
           std::string("Arithmetic overflow error converting expression to data type ") + KindText(kind) + ".");
}

[[noreturn]] void RefuseDivision() { Refuse(Refused::kDivisionByZero, "Divide by zero error encountered."); }

// (value, type): refuses what the type cannot hold; a real becomes single.
void Fit(Call& call) {
    const Kind kind = call.TypeAt(1).kind;
    if (IsFloating(kind)) {
        double value = call.Real(0);
        if (kind == Kind::kReal) value = static_cast<double>(static_cast<float>(value));
        if (!std::isfinite(value)) RefuseOverflow(kind);
        return call.Return(value);
    }
    // 64 bits that did not suffice became a real.
    if (call.IsReal(0)) RefuseOverflow(kind);
    const std::int64_t value = call.Integer(0);
    CheckRange(value, kind);
    call.Return(value);
}

std::int64_t Narrow(Wide value, Kind kind) {
    constexpr Wide most = std::numeric_limits<std::int64_t>::max();
    if (value > most || value < -most - 1) RefuseOverflow(kind);
    return static_cast<std::int64_t>(value);
}

// (fixed, fixed, type): the product, rounded half away from zero.
void Times(Call& call) {
    const Wide product = static_cast<Wide>(call.Integer(0)) * call.Integer(1);
    const Wide half = product < 0 ? -kScale / 2 : kScale / 2;
    call.Return(Narrow((product + half) / kScale, call.TypeAt(2).kind));
}

void Divide(Call& call) {
    const Kind kind = call.TypeAt(2).kind;
    if (IsFloating(kind)) {
        if (call.Real(1) == 0) RefuseDivision();
        double value = call.Real(0) / call.Real(1);
        if (kind == Kind::kReal) value = static_cast<double>(static_cast<float>(value));
        if (!std::isfinite(value)) RefuseOverflow(kind);
        return call.Return(value);
    }
    const std::int64_t divisor = call.Integer(1);
    if (divisor == 0) RefuseDivision();
    if (IsFixed(kind)) return call.Return(Narrow(static_cast<Wide>(call.Integer(0)) * kScale / divisor, kind));
    const std::int64_t value = call.Integer(0) / divisor;
    CheckRange(value, kind);
    call.Return(value);
}

void Modulo(Call& call) {
    const std::int64_t divisor = call.Integer(1);
    if (divisor == 0) RefuseDivision();
    call.Return(divisor == -1 ? 0 : call.Integer(0) % divisor);
}

// (value, from, to, purpose, style)
void Convert(Call& call) {
    std::string buffer;
    call.Return(ConvertValue(call.ValueAt(0), call.TypeAt(1), call.TypeAt(2), static_cast<Purpose>(call.Integer(3)),
                             static_cast<int>(call.Integer(4)), buffer));
}

DatePart PartAt(const Call& call, int at) { return static_cast<DatePart>(call.Integer(at)); }

void DatePartOf(Call& call) { call.Return(PartOf(call.Integer(0), PartAt(call, 1))); }
void DateAdd(Call& call) { call.Return(AddParts(call.Integer(1), PartAt(call, 2), call.Integer(0))); }

void DateDiff(Call& call) {
    const std::int64_t count = PartsBetween(call.Integer(0), call.Integer(1), PartAt(call, 2));
    if (count < std::numeric_limits<std::int32_t>::min() || count > std::numeric_limits<std::int32_t>::max()) {
        Refuse(535, "The datediff function resulted in an overflow. The number of dateparts separating two date/time instances is too large. Try to use datediff with a less precise datepart.");
    }
    call.Return(count);
}

double RoundAway(double value, std::int64_t digits) {
    const long double factor = std::pow(10.0L, static_cast<long double>(digits));
    const long double scaled = static_cast<long double>(value) * factor;
    // The nearest double of a half lies just beside it.
    const long double nudged = scaled + (scaled < 0 ? -1 : 1) * std::fabs(scaled) * 1e-16L;
    const double result = static_cast<double>(std::round(nudged) / factor);
    return std::isfinite(result) ? result : value;
}

// (number, length, decimals)
void Str(Call& call) {
    constexpr std::int64_t kMost = 8000;
    const std::int64_t length = call.Count() > 1 ? call.Integer(1) : 10;
    const std::int64_t decimals = std::clamp<std::int64_t>(call.Count() > 2 ? call.Integer(2) : 0, 0, 16);
    if (length < 1 || length > kMost) return;
    std::array<char, 400> text{};
    // Without decimals asked for, the number is cut.
    const double value = call.Count() > 2 ? RoundAway(call.Real(0), decimals) : std::trunc(call.Real(0));
    const int written = std::snprintf(text.data(), text.size(), "%.*f", static_cast<int>(decimals), value);
    std::string result(text.data(), static_cast<std::size_t>(written));
    if (result == "-0") result = "0";
    const auto width = static_cast<std::size_t>(length);
    if (result.size() > width) {
        const auto point = result.find('.');
        const std::size_t whole = point == std::string::npos ? result.size() : point;
        if (whole > width) {
            result.assign(width, '*');
        } else {
            result.resize(width);
            if (result.back() == '.') result.pop_back();
        }
    }
    if (result.size() < width) result.insert(0, width - result.size(), ' ');
    call.Return(result);
}

void LTrim(Call& call) {
    const std::string_view text = call.Text(0);
    const auto first = text.find_first_not_of(' ');
    call.Return(first == std::string_view::npos ? std::string_view() : text.substr(first));
}

void RTrim(Call& call) { call.Return(WithoutTrailingBlanks(call.Text(0))); }

[[noreturn]] void RefuseLength(const char* function) {
    Refuse(537, std::string("Invalid length parameter passed to the ") + function + " function.");
}

void Left(Call& call) {
    const std::int64_t count = call.Integer(1);
    if (count < 0) RefuseLength("LEFT");
    call.Return(call.Text(0).substr(0, BytesOf(call.Text(0), count)));
}

void Right(Call& call) {
    const std::int64_t count = call.Integer(1);
    if (count < 0) RefuseLength("RIGHT");
    const std::string_view text = call.Text(0);
    const std::int64_t length = TextLength(text);
    call.Return(count >= length ? text : text.substr(BytesOf(text, length - count)));
}

void Len(Call& call) { call.Return(TextLength(WithoutTrailingBlanks(call.Text(0)))); }

void Substring(Call& call) {
    if (call.Integer(2) < 0) RefuseLength("SUBSTRING");
    const std::int64_t start = call.Integer(1) - 1;
    const std::int64_t end = start + call.Integer(2);
    std::string_view text = call.Text(0);
    if (end <= 0) return call.Return(std::string_view());
    const std::size_t first = start > 0 ? BytesOf(text, start) : 0;
    const std::size_t last = BytesOf(text, end);
    call.Return(text.substr(first, last > first ? last - first : 0));
}

void Upper(Call& call) { call.Return(UpperText(call.Text(0))); }
void Lower(Call& call) { call.Return(LowerText(call.Text(0))); }

// The byte at which a text is found from a byte on, by the collation; npos where it is not. `length` becomes its bytes.
std::size_t FindText(std::string_view text, std::string_view wanted, std::size_t from, std::size_t& length) {
    for (std::size_t start = from; start < text.size();) {
        std::size_t at = start;
        std::size_t in_wanted = 0;
        while (in_wanted < wanted.size() && at < text.size()) {
            std::size_t next_at = at;
            std::size_t next_in = in_wanted;
            if (!SameCharacter(NextCharacter(text, next_at), NextCharacter(wanted, next_in))) break;
            at = next_at;
            in_wanted = next_in;
        }
        if (in_wanted == wanted.size()) {
            length = at - start;
            return start;
        }
        NextCharacter(text, start);
    }
    return std::string_view::npos;
}

// (wanted, text, start)
void CharIndex(Call& call) {
    const std::string_view text = call.Text(1);
    const std::int64_t start = call.Count() > 2 ? std::max<std::int64_t>(call.Integer(2) - 1, 0) : 0;
    std::size_t length = 0;
    if (call.Text(0).empty()) return call.Return(std::int64_t{0});
    const std::size_t found = FindText(text, call.Text(0), BytesOf(text, start), length);
    call.Return(found == std::string_view::npos ? std::int64_t{0} : TextLength(text.substr(0, found)) + 1);
}

void Replace(Call& call) {
    const std::string_view text = call.Text(0);
    const std::string_view wanted = call.Text(1);
    if (wanted.empty()) return call.Return(text);
    const auto most =
        static_cast<std::size_t>(sqlite3_limit(sqlite3_context_db_handle(call.Context()), SQLITE_LIMIT_LENGTH, -1));
    std::string result;
    std::size_t at = 0;
    while (true) {
        std::size_t length = 0;
        const std::size_t found = FindText(text, wanted, at, length);
        if (found == std::string_view::npos) break;
        result.append(text, at, found - at).append(call.Text(2));
        if (result.size() > most) Refuse(Refused::kTooBig, "A value or a text is longer than the database can hold.");
        at = found + length;
    }
    call.Return(result.append(text, at));
}

void Space(Call& call) {
    constexpr std::int64_t kMost = 8000;
    if (call.Integer(0) < 0) return;
    call.Return(std::string(static_cast<std::size_t>(std::min(call.Integer(0), kMost)), ' '));
}

// The functions on one number: (type, value, ...).
void Abs(Call& call) {
    const Kind kind = call.TypeAt(0).kind;
    if (IsFloating(kind)) return call.Return(std::fabs(call.Real(1)));
    const std::int64_t value = call.Integer(1);
    if (value == std::numeric_limits<std::int64_t>::min()) RefuseOverflow(kind);
    CheckRange(value < 0 ? -value : value, kind);
    call.Return(value < 0 ? -value : value);
}

void Sign(Call& call) {
    const Kind kind = call.TypeAt(0).kind;
    if (IsFloating(kind)) return call.Return(call.Real(1) > 0 ? 1.0 : call.Real(1) < 0 ? -1.0 : 0.0);
    const std::int64_t one = IsFixed(kind) ? kScale : 1;
    const std::int64_t value = call.Integer(1);
    call.Return(value > 0 ? one : value < 0 ? -one : 0);
}

std::int64_t FloorTo(std::int64_t value, std::int64_t unit) {
    const std::int64_t rest = value % unit;
    return rest < 0 ? value - rest - unit : value - rest;
}

void Floor(Call& call) {
    const Kind kind = call.TypeAt(0).kind;
    if (IsFloating(kind)) return call.Return(std::floor(call.Real(1)));
    call.Return(IsFixed(kind) ? FloorTo(call.Integer(1), kScale) : call.Integer(1));
}

void Ceiling(Call& call) {
    const Kind kind = call.TypeAt(0).kind;
    if (IsFloating(kind)) return call.Return(std::ceil(call.Real(1)));
    call.Return(IsFixed(kind) ? -FloorTo(-call.Integer(1), kScale) : call.Integer(1));
}

// (type, value, digits, cut)
void Round(Call& call) {
    const Kind kind = call.TypeAt(0).kind;
    const std::int64_t digits = std::clamp<std::int64_t>(call.Integer(2), -30, 30);
    const bool cut = call.Count() > 3 && call.Integer(3) != 0;
    if (IsFloating(kind)) {
        if (!cut) return call.Return(RoundAway(call.Real(1), digits));
        const double factor = std::pow(10.0, static_cast<double>(digits));
        return call.Return(std::trunc(call.Real(1) * factor) / factor);
    }
    const std::int64_t kept = digits + (IsFixed(kind) ? 4 : 0);
    if (kept >= 0) return call.Return(call.Integer(1));
    if (kept < -18) return call.Return(std::int64_t{0});
    std::int64_t unit = 1;
    for (std::int64_t i = kept; i < 0; ++i) unit *= 10;
    const std::int64_t value = call.Integer(1);
    const std::int64_t rest = value % unit;
    std::int64_t rounded = value - rest;
    if (!cut && std::abs(rest) >= unit - std::abs(rest)) {
        rounded = Narrow(static_cast<Wide>(rounded) + (value < 0 ? -unit : unit), kind);
    }
    CheckRange(rounded, kind);
    call.Return(rounded);
}

// (text, pattern, unicode, escape)
void Like(Call& call) {
    const bool matches = MatchesPattern(call.Text(0), call.Text(1), call.Integer(2) != 0,
                                        call.Count() > 3 ? call.Text(3) : std::string_view());
    call.Return(static_cast<std::int64_t>(matches));
}

// Also of Null, which is no number of rows.
void Top(sqlite3_context* context, int count, sqlite3_value** arguments) {
    try {
        Call call(context, count, arguments);
        if (call.IsNull(0)) Refuse(1060, "The number of rows provided for a TOP clause must be an integer.");
        if (call.Integer(0) < 0) Refuse(1060, "The number of rows provided for a TOP clause must not be negative.");
        call.Return(call.Integer(0));
    } catch (...) {
        ReportFailure(context);
    }
}

// (table, column)
void NoNull(Call& call) {
    Refuse(Refused::kNull, "Cannot insert the value NULL into column '" + std::string(call.Text(1)) + "', table 'dbo." +
                               std::string(call.Text(0)) + "'; column does not allow nulls.");
}

// The one value of a scalar sub-select.
struct OnlyState {
    sqlite3_value* value;
    std::int64_t count;
};

void OnlyStep(sqlite3_context* context, int, sqlite3_value** arguments) {
    auto* state = static_cast<OnlyState*>(sqlite3_aggregate_context(context, sizeof(OnlyState)));
    if (!state) return sqlite3_result_error_nomem(context);
    if (++state->count > 1) {
        static_cast<SqliteConnection*>(sqlite3_user_data(context))->Pending() = Refusal(
            Refused::kManyRows,
            "Subquery returned more than 1 value. This is not permitted when the subquery follows =, !=, <, <= , >, >= or when the subquery is used as an expression.");
        return sqlite3_result_error(context, "refused", -1);
    }
    state->value = sqlite3_value_dup(arguments[0]);
    if (!state->value) sqlite3_result_error_nomem(context);
}

void OnlyFinal(sqlite3_context* context) {
    auto* state = static_cast<OnlyState*>(sqlite3_aggregate_context(context, 0));
    if (!state || !state->value) return;
    sqlite3_result_value(context, state->value);
    sqlite3_value_free(state->value);
    state->value = nullptr;
}

}  // namespace

void AddFunctions(SqliteConnection& connection) {
    using Function = void (*)(sqlite3_context*, int, sqlite3_value**);
    struct Entry {
        const char* name;
        Function function;
    };
    static constexpr Entry kFunctions[] = {
        {"lumo_fit", Scalar<Fit>},         {"lumo_times", Scalar<Times>},       {"lumo_divide", Scalar<Divide>},
        {"lumo_modulo", Scalar<Modulo>},   {"lumo_convert", Scalar<Convert>},   {"lumo_datepart", Scalar<DatePartOf>},
        {"lumo_dateadd", Scalar<DateAdd>}, {"lumo_datediff", Scalar<DateDiff>}, {"lumo_str", Scalar<Str>},
        {"lumo_ltrim", Scalar<LTrim>},     {"lumo_rtrim", Scalar<RTrim>},       {"lumo_left", Scalar<Left>},
        {"lumo_right", Scalar<Right>},     {"lumo_len", Scalar<Len>},           {"lumo_substring", Scalar<Substring>},
        {"lumo_upper", Scalar<Upper>},     {"lumo_lower", Scalar<Lower>},       {"lumo_charindex", Scalar<CharIndex>},
        {"lumo_replace", Scalar<Replace>}, {"lumo_space", Scalar<Space>},       {"lumo_abs", Scalar<Abs>},
        {"lumo_sign", Scalar<Sign>},       {"lumo_floor", Scalar<Floor>},       {"lumo_ceiling", Scalar<Ceiling>},
        {"lumo_round", Scalar<Round>},     {"lumo_like", Scalar<Like>},         {"lumo_top", Top},
        {"lumo_no_null", Scalar<NoNull>},
    };
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    for (const Entry& entry : kFunctions) {
        const int code = sqlite3_create_function_v2(connection.Get(), entry.name, -1, kFlags, &connection,
                                                    entry.function, nullptr, nullptr, nullptr);
        if (code != SQLITE_OK) connection.RefuseFailure(code);
    }
    const int code = sqlite3_create_function_v2(connection.Get(), "lumo_only", 1, kFlags, &connection, nullptr,
                                                OnlyStep, OnlyFinal, nullptr);
    if (code != SQLITE_OK) connection.RefuseFailure(code);
}

}  // namespace LumoConnection::Embedded
