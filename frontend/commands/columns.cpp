#include "frontend/commands/columns.h"

#include <fmt/format.h>

#include <algorithm>

#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr Int16 kTrue = -1;

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

Int16 ReadTruth(std::string_view named, const std::string& typed) {
    for (const char* word : {"yes", "true", "ja", "-1", "1"}) {
        if (IsSameName(typed, word)) return kTrue;
    }
    for (const char* word : {"no", "false", "nein", "0"}) {
        if (IsSameName(typed, word)) return 0;
    }
    throw UsageError(fmt::format("{}: {} is neither yes nor no.", named, OneLine(typed)));
}

}  // namespace

const char* TypeName(Form form) {
    switch (form) {
        case Form::kDouble:
        case Form::kMoney:
            return "X";
        case Form::kText:
            return "TEXT";
        case Form::kDay:
            return "DAY";
        case Form::kClock:
            return "TIME";
        case Form::kTruth:
            return "YES|NO";
        default:
            return "N";
    }
}

Variant ReadAs(Form form, std::string_view named, const std::string& typed) {
    switch (form) {
        case Form::kInt32:
            return ReadInt32(named, typed);
        case Form::kInt16:
            return ReadInt16(named, typed);
        case Form::kByte:
            return ReadByte(named, typed);
        case Form::kDouble:
            return ReadDouble(named, typed);
        case Form::kMoney:
            return ReadMoney(named, typed);
        case Form::kDay:
            return typed.empty() ? DateTime() : ReadDay(named, typed);
        case Form::kClock:
            return typed.empty() ? DateTime() : ReadClock(named, typed);
        case Form::kTruth:
            return ReadTruth(named, typed);
        case Form::kText:
            break;
    }
    return typed;
}

Variant ShownAs(Form form, Variant value) {
    if (const auto* flag = value.If<Int16>(); flag != nullptr && form == Form::kTruth) {
        return *flag == kTrue || *flag == 0 ? Variant(*flag == kTrue) : value;
    }
    const auto* moment = value.If<DateTime>();
    if (moment == nullptr) return value;
    if (!*moment) return Variant::Null();
    return form == Form::kClock ? Variant(ClockText(*moment)) : value;
}

bool IsSameName(std::string_view a, std::string_view b) { return std::ranges::equal(a, b, {}, Lower, Lower); }

std::pair<std::string, std::string> SplitPair(const std::string& pair) {
    const auto equals = pair.find('=');
    if (equals == std::string::npos) throw UsageError(OneLine(pair) + " is not of the form column=value.");
    return {pair.substr(0, equals), pair.substr(equals + 1)};
}

}  // namespace frontend
