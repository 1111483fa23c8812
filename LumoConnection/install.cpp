#include <LumoConnection/install.h>

#include <utility>

#include <LumoConnection/any_session.h>
#include <LumoConnection/system_user.h>

namespace LumoConnection {

using namespace LumoSeminar;

LoginDefaults::LoginDefaults(Text user, Text password)
    : user_(user.empty() ? SystemUser() : std::move(user)), password_(std::move(password)) {}

Text LoginDefaults::FirstText(Int32) { return user_; }
Text LoginDefaults::SecondText(Int32) { return password_; }

void Install(const Login& login) {
    Components components;
    // Whoever makes a session of its own comes here: the library, and the process objects.
    components.data_session = [] { return MakeAnySession(); };
    components.session_defaults = [user = login.user, password = login.password] {
        return New<LoginDefaults>(user, password);
    };
    components.info_starter = [login] { return MakeProcessStarter(login); };
    components.info_dispatcher = [login] { return MakeProcessDispatcher(login); };
    SetComponents(std::move(components));
}

void Install(const Text& user, const Text& password) { Install(Login{.user = user, .password = password}); }

}  // namespace LumoConnection
