#pragma once

#include <LumoSeminar/frame/components.h>

namespace LumoConnection {

/// Makers of process objects and session defaults each of whose calls is a step of the script that the session belongs
/// to, told and answered by Script::Process, in one order with the statements. No data session is made. The objects
/// hold the script's steps, not its session. Raises kBadScript for a session of another kind.
LumoSeminar::Components ScriptComponents(const LumoSeminar::Ref<LumoSeminar::DataSession>& session);

}  // namespace LumoConnection
