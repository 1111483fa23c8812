#pragma once

#include <concepts>
#include <string>

#include <LumoSeminar/frame/types.h>

namespace LumoConnection::detail {

using LumoSeminar::Text;

/// The objects that a script knows, as their calls name them.
inline constexpr const char* kDispatcherName = "InfoDispatcher";
inline constexpr const char* kStarterName = "InfoStarter";
inline constexpr const char* kDefaultsName = "SessionDefaults";

inline Text ArgumentText(std::integral auto number) { return std::to_string(number); }
inline Text ArgumentText(const Text& text) { return "'" + text + "'"; }

inline Text NewCall(const char* object) {
    // In one expression g++ 12 is afraid of the end of the short text's own buffer.
    Text call;
    call.reserve(32);
    return call.append("New ").append(object);
}

/// "InfoStarter.Starten 8, 42, 17"
template <class... Arguments>
Text ProcessCall(const char* object, const char* operation, const Arguments&... arguments) {
    Text call = Text(object) + "." + operation;
    [[maybe_unused]] const char* separator = " ";
    ((call += separator + ArgumentText(arguments), separator = ", "), ...);
    return call;
}

}  // namespace LumoConnection::detail
