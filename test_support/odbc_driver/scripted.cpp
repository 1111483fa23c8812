#include <test_support/odbc_driver/server.h>

#include <utility>

namespace odbc_driver {
namespace {

class ScriptedServer final : public Server {
  public:
    std::vector<Result> Run(const std::u16string& text) override {
        Script& script = *LumoOdbcDriverScript();
        script.texts.push_back(text);
        if (script.answers.empty()) return {Result{}};
        std::vector<Result> results = std::move(script.answers.front());
        script.answers.pop_front();
        return results;
    }
};

}  // namespace

std::unique_ptr<Server> LogIn(const std::u16string& connection_text, std::vector<Message>& messages) {
    Script& script = *LumoOdbcDriverScript();
    script.logins.push_back(connection_text);
    messages = script.login_refusal.empty() ? script.login_messages : script.login_refusal;
    if (!script.login_refusal.empty()) return nullptr;
    return std::make_unique<ScriptedServer>();
}

std::u16string ServerName() { return LumoOdbcDriverScript()->server_name; }

}  // namespace odbc_driver
