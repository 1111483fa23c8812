#pragma once

#include <LumoConnection/process/process_objects.h>

namespace LumoConnection {

using namespace LumoSeminar;

/// Where a process object has its session from.
class ProcessSession {
  public:
    explicit ProcessSession(Login login) : login_(std::move(login)) {}

    void ConnectTo(const Text& connection_text);
    void LogIn(const Text& user, const Text& password);

    /// Opens the session at the first call. Raises 429 where nothing says which database; 9999 where it is refused.
    Ref<DataSession> Get();

  private:
    Login login_;
    Ref<DataSession> own_;
};

}  // namespace LumoConnection
