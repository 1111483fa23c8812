#include <LumoConnection/system_user.h>

#include <pwd.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace LumoConnection {

LumoSeminar::Text SystemUser() {
    std::vector<char> texts(16'384);
    passwd entry{};
    passwd* found = nullptr;
    getpwuid_r(geteuid(), &entry, texts.data(), texts.size(), &found);
    return found && found->pw_name ? found->pw_name : std::to_string(geteuid());
}

}  // namespace LumoConnection
