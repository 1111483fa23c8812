#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>

namespace LumoConnection::detail {

class ScriptState;
struct ScriptStepData;

/// @see Script::FileText
std::string FileText(const std::deque<ScriptStepData>& steps);

/// @see Script::Read
std::shared_ptr<ScriptState> ReadFileText(std::string_view text);

}  // namespace LumoConnection::detail
