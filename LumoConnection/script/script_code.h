#pragma once

#include <deque>
#include <string>
#include <string_view>

namespace LumoConnection::detail {

struct ScriptStepData;

/// @see Script::CppText
std::string CppText(const std::deque<ScriptStepData>& steps, std::string_view name);

}  // namespace LumoConnection::detail
