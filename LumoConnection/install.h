#pragma once

#include <LumoSeminar/frame/components.h>

#include <LumoConnection/process/process_objects.h>

namespace LumoConnection {

/// The session defaults of a login. For every index the first text is the user, the second the password.
class LoginDefaults final : public LumoSeminar::SessionDefaults {
  public:
    /// An empty user stands for that of the operating system.
    explicit LoginDefaults(LumoSeminar::Text user = {}, LumoSeminar::Text password = {});

    LumoSeminar::Text FirstText(LumoSeminar::Int32 index) override;
    LumoSeminar::Text SecondText(LumoSeminar::Int32 index) override;

  private:
    LumoSeminar::Text user_;
    LumoSeminar::Text password_;
};

/// Gives the library of the calling thread the components of this one: an AnySession where it makes one of its own, the
/// process objects on the database of the login, and its session defaults, whose user is entered with each new
/// enrolment. Call it in each thread, before anything else of the library; defaults and a dispatcher that the thread has
/// made already stay. A session in the login is kept as long as the thread keeps these components or its dispatcher.
void Install(const Login& login);

/// The same without a database for the process objects: only a ConnectionString tells them one.
void Install(const LumoSeminar::Text& user = {}, const LumoSeminar::Text& password = {});

}  // namespace LumoConnection
