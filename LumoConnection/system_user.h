#pragma once

#include <LumoSeminar/frame/types.h>

namespace LumoConnection {

/// Name of the operating system's user that the program runs for; the number where it has no name.
LumoSeminar::Text SystemUser();

}  // namespace LumoConnection
