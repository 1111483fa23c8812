#include "frontend/read_value.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>

#include "frontend/exit_codes.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

[[noreturn]] void Refuse(std::string_view name, std::string_view text, std::string_view why) {
    throw UsageError(fmt::format("{}: {} {}", name, OneLine(text), why));
}

bool IsPlainNumber(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    const auto point = text.find('.');
    const auto whole = text.substr(0, point);
    const auto decimals = point == std::string_view::npos ? "0" : text.substr(point + 1);
    const auto AreDigits = [](std::string_view part) {
        return !part.empty() && part.find_first_not_of("0123456789") == std::string_view::npos;
    };
    return AreDigits(whole) && AreDigits(decimals);
}

}  // namespace

Int32 ReadInt32(std::string_view name, std::string_view text) {
    Int32 value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size() || error == std::errc::invalid_argument) {
        Refuse(name, text, "is not a whole number.");
    }
    if (error != std::errc{}) Refuse(name, text, "does not fit: -2147483648 to 2147483647.");
    return value;
}

Double ReadDouble(std::string_view name, std::string_view text) {
    if (!IsPlainNumber(text)) Refuse(name, text, "is not a number; write it with a point, as in 7.5.");
    Double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{}) Refuse(name, text, "does not fit.");
    return value;
}

Money ReadMoney(std::string_view name, std::string_view text) {
    if (!IsPlainNumber(text)) Refuse(name, text, "is not an amount; write it with a point, as in 149.50.");
    const auto point = text.find('.');
    if (point != std::string_view::npos && text.size() - point - 1 > 4) {
        Refuse(name, text, "has more than four decimals.");
    }
    try {
        return ToMoney(text);
    } catch (const Error&) {
        Refuse(name, text, "does not fit: -922337203685477.5808 to 922337203685477.5807.");
    }
}

}  // namespace frontend
