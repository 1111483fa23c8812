#include <LumoConnection/script/script_code.h>

#include <limits>
#include <set>
#include <type_traits>
#include <vector>

#include <LumoConnection/script/script_state.h>
#include <LumoConnection/script/text_difference.h>
#include <LumoConnection/script/value_text.h>

namespace LumoConnection::detail {
namespace {

const std::string kNoOptions = std::to_string(Connection::kNoOptions);

std::string Literal(std::string_view text) {
    const std::string line = OnOneLine(text);
    std::string literal = "\"";
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == '"') {
            literal += "\\\"";
        } else if (line.compare(at, 2, "\\x") == 0) {
            // Three octal digits end by themselves, hexadecimal ones would take in what follows.
            const int byte = std::stoi(line.substr(at + 2, 2), nullptr, 16);
            literal += '\\';
            for (const int shift : {6, 3, 0}) literal += static_cast<char>('0' + ((byte >> shift) & 7));
            at += 3;
        } else {
            literal += line[at];
            if (line[at] == '\\') literal += line[++at];
        }
    }
    literal += '"';
    if (text.find('\0') == std::string_view::npos) return literal;
    return "Text(" + literal + ", " + std::to_string(text.size()) + ")";
}

template <std::integral T>
std::string Integer(T number) {
    // The lowest number has no literal of its own.
    if (number == std::numeric_limits<T>::min() && number < 0) return Integer(static_cast<T>(number + 1)) + " - 1";
    return std::to_string(number);
}

template <std::floating_point T>
std::string Real(T number) {
    const std::string type = std::same_as<T, double> ? "Double" : "Single";
    if (number != number) return "std::numeric_limits<" + type + ">::quiet_NaN()";
    if (number - number != 0)
        return std::string(number < 0 ? "-" : "") + "std::numeric_limits<" + type + ">::infinity()";
    std::string text = NumberText(number);
    if (text.find_first_of(".e") == std::string::npos) text += ".0";
    return std::same_as<T, double> ? text : text + "F";
}

std::string Moment(DateTime moment) {
    const auto parts = PartsOf(moment);
    if (!parts || parts->time.subseconds().count() != 0) {
        std::string days = NumberText(moment.Days());
        return "DateTime(" + days + (days.find_first_of(".e") == std::string::npos ? ".0)" : ")");
    }
    std::string text = "DateTime::Of(" + std::to_string(static_cast<int>(parts->day.year())) + ", " +
                       std::to_string(static_cast<unsigned>(parts->day.month())) + ", " +
                       std::to_string(static_cast<unsigned>(parts->day.day()));
    const auto& time = parts->time;
    if (time.to_duration().count() != 0)
        text += ", " + std::to_string(time.hours().count()) + ", " + std::to_string(time.minutes().count());
    if (time.seconds().count() != 0) text += ", " + std::to_string(time.seconds().count());
    return text + ")";
}

std::string Code(const Variant& value) {
    return value.Visit([]<class T>(const T& held) -> std::string {
        if constexpr (std::is_same_v<T, Bool>)
            return held ? "true" : "false";
        else if constexpr (std::is_same_v<T, Byte>)
            return "Byte{" + std::to_string(held) + "}";
        else if constexpr (std::is_same_v<T, Int16>)
            return "Int16{" + Integer(held) + "}";
        else if constexpr (std::is_same_v<T, Int32>)
            return Integer(held);
        else if constexpr (std::is_floating_point_v<T>)
            return Real(held);
        else if constexpr (std::is_same_v<T, Money>)
            return "Money::FromUnits(" + Integer(held.Units()) + ")";
        else if constexpr (std::is_same_v<T, DateTime>)
            return Moment(held);
        else if constexpr (std::is_same_v<T, Text>)
            return Literal(held);
        else if constexpr (std::is_same_v<T, Variant::NullValue>)
            return "Variant::Null()";
        else
            return "Variant()";
    });
}

std::string Listed(const std::vector<std::string>& codes) {
    std::string list = "{";
    for (const std::string& code : codes) list += (list.size() > 1 ? ", " : "") + code;
    return list + "}";
}

std::string RowsCode(const ScriptStepData& step) {
    std::vector<std::string> codes;
    for (const std::string& name : step.columns) codes.push_back(Literal(name));
    std::string text = ".Rows(" + Listed(codes);
    if (step.rows.empty()) return text + ")";
    text += ", {";
    for (std::size_t i = 0; i < step.rows.size(); ++i) {
        codes.clear();
        for (const Variant& value : step.rows[i]) codes.push_back(Code(value));
        if (i > 0) text += ",";
        if (step.rows.size() > 1) text += "\n    ";
        text += Listed(codes);
    }
    return text + "})";
}

std::string AnswerCode(const ScriptStepData& step) {
    if (step.outcome == Outcome::kRefused) return ".Refused(" + Literal(step.failure) + ")";
    if (step.outcome == Outcome::kRaises) {
        const Error error(step.error_number, step.failure, step.error_source);
        const bool by_library = error.Source() == Error(0, "").Source();
        return ".Raises(" + Integer(step.error_number) + ", " + Literal(step.failure) +
               (by_library ? "" : ", " + Literal(error.Source())) + ")";
    }
    switch (step.call.kind) {
        case CallKind::kOpenSelect:
        case CallKind::kConnectionExecute:
            return step.columns.empty() ? "" : RowsCode(step);
        case CallKind::kLookupValue:
            return step.value.IsNull() ? "" : ".Gives(" + Code(step.value) + ")";
        case CallKind::kProcess:
            return step.value.IsEmpty() ? "" : ".Gives(" + Code(step.value) + ")";
        case CallKind::kAdoConnection:
            return step.state == Connection::kOpen ? "" : step.state < 0 ? ".Empty()" : ".Closed()";
        case CallKind::kConnectionState:
            return ".Gives(" + Integer(step.state) + ")";
        case CallKind::kConnectionOpen:
            return step.state == Connection::kOpen ? "" : ".StaysClosed()";
        default:
            return "";
    }
}

std::string CallCode(const ScriptCall& call) {
    const auto& arguments = call.arguments;
    const auto literals = [&](std::size_t count) {
        std::string list;
        for (std::size_t i = 0; i < count; ++i) list += (i > 0 ? ", " : "") + Literal(arguments[i]);
        return list;
    };
    switch (call.kind) {
        case CallKind::kConnect:
            return "Connect(" + literals(3) + ", " + arguments[3] + ")";
        case CallKind::kOpenSelect:
            return "OpenSelect(" + literals(1) + ")";
        case CallKind::kExecuteSql:
            return "ExecuteSql(" + literals(1) + ")";
        case CallKind::kLookupValue:
            return "LookupValue(" + literals(arguments[2].empty() ? 2 : 3) + ")";
        case CallKind::kAdoConnection:
            return "AdoConnection()";
        case CallKind::kConnectionState:
            return "ConnectionState()";
        case CallKind::kConnectionOpen:
            if (call == ScriptCall{call.kind, {"", "", "", kNoOptions}}) return "ConnectionOpen()";
            return "ConnectionOpen(" + literals(3) + ", " + arguments[3] + ")";
        case CallKind::kConnectionExecute:
            return "ConnectionExecute(" + literals(1) + (arguments[1] == kNoOptions ? "" : ", " + arguments[1]) + ")";
        case CallKind::kProcess:
            return "Process(" + literals(1) + ")";
        case CallKind::kCloseRows:
            break;
    }
    return "";
}

std::string RowsName(const std::string& step) { return "rows_of_step_" + step; }

// The steps whose rows are closed by name, as others that are still open came behind them.
std::set<std::string> NamedRows(const std::deque<ScriptStepData>& steps) {
    std::vector<std::string> open;
    std::set<std::string> named;
    for (const ScriptStepData& step : steps) {
        if (GivesRows(step)) open.push_back(std::to_string(step.number));
        if (step.call.kind != CallKind::kCloseRows) continue;
        const std::string& closed = step.call.arguments[0];
        if (open.empty() || open.back() != closed) named.insert(closed);
        std::erase(open, closed);
    }
    return named;
}

}  // namespace

std::string CppText(const std::deque<ScriptStepData>& steps, std::string_view name) {
    const std::set<std::string> named = NamedRows(steps);
    std::string text;
    for (const ScriptStepData& step : steps) {
        const std::string number = std::to_string(step.number);
        if (GivesRows(step) && named.contains(number)) text += "const auto " + RowsName(number) + " = ";
        text.append(name).append(".");
        if (step.call.kind == CallKind::kCloseRows) {
            const std::string& closed = step.call.arguments[0];
            text += "CloseRows(" + (named.contains(closed) ? RowsName(closed) : "") + ")";
        } else {
            text += CallCode(step.call);
        }
        text += AnswerCode(step) + ";\n";
    }
    return text;
}

}  // namespace LumoConnection::detail
