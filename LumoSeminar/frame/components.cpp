#include <LumoSeminar/frame/components.h>

#include <string>
#include <utility>

namespace LumoSeminar {
namespace {

thread_local Components components_of_thread;

[[noreturn]] void RaiseNotCreated(const char* name, const char* why) {
    Raise(ErrorNumber::kComponentNotCreated, std::string("The component ") + name + " cannot be created: " + why);
}

template <class T>
Ref<T> Make(const std::function<Ref<T>()>& maker, const char* name) {
    if (!maker) {
        RaiseNotCreated(name, "this thread has no maker for it. Call LumoConnection::Install or SetComponents in it first.");
    }
    Ref<T> object = maker();
    if (!object) RaiseNotCreated(name, "the maker that SetComponents was given has made nothing.");
    return object;
}

}  // namespace

void SetComponents(Components components) { components_of_thread = std::move(components); }

Ref<DataSession> MakeDataSession() { return Make(components_of_thread.data_session, "DataSession"); }
Ref<InfoDispatcher> MakeInfoDispatcher() { return Make(components_of_thread.info_dispatcher, "InfoDispatcher"); }
Ref<InfoStarter> MakeInfoStarter() { return Make(components_of_thread.info_starter, "InfoStarter"); }
Ref<SessionDefaults> MakeSessionDefaults() { return Make(components_of_thread.session_defaults, "SessionDefaults"); }

}  // namespace LumoSeminar
