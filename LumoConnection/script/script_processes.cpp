#include <LumoConnection/script/script_processes.h>

#include <LumoConnection/script/process_call.h>
#include <LumoConnection/script/script_state.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoConnection {
namespace {

using SharedState = std::shared_ptr<detail::ScriptState>;

// The calls of one object.
class Recorder {
  public:
    Recorder(SharedState state, const char* object) : state_(std::move(state)), object_(object) {
        Call(detail::NewCall(object_));
    }

    template <class... Arguments>
    Variant Record(const char* operation, const Arguments&... arguments) {
        return Call(detail::ProcessCall(object_, operation, arguments...));
    }

  private:
    Variant Call(Text call) { return state_->Answer({detail::CallKind::kProcess, {std::move(call)}}).value; }

    SharedState state_;
    const char* object_;
};

template <class Value>
Value ValueOr(const Variant& answer, Value otherwise) {
    return answer.IsEmpty() ? otherwise : To<Value>(answer);
}

class ScriptDispatcher final : public InfoDispatcher {
  public:
    explicit ScriptDispatcher(SharedState state) : calls_(std::move(state), detail::kDispatcherName) {}

    void ConnectionString(const Text& value) override { calls_.Record("ConnectionString", value); }
    Variant Verbinden(Int32 kind, const Text& first, const Text& second) override {
        return calls_.Record("Verbinden", kind, first, second);
    }
    void Initialisieren(Int32 module_number, Int32 key, Int32 client, Int32 person) override {
        calls_.Record("Initialisieren", module_number, key, client, person);
        module_number_ = module_number;
        key_ = key;
    }
    void Zustimmen(Int32 p_lngUserID, const Text& remark) override { calls_.Record("Zustimmen", p_lngUserID, remark); }
    void Ablehnen(Int32 p_lngUserID, const Text& remark) override { calls_.Record("Ablehnen", p_lngUserID, remark); }
    void Loeschen() override { calls_.Record("Loeschen"); }
    Bool BenutzerHatRechte(Int32 p_lngUserID) override {
        return ValueOr(calls_.Record("BenutzerHatRechte", p_lngUserID), Bool(false));
    }
    Text ProzessStatusText() override { return ValueOr(calls_.Record("ProzessStatusText"), Text()); }
    Int32 ProzessStatus() override { return ValueOr(calls_.Record("ProzessStatus"), Int32{0}); }
    Int32 ModulNr() override { return ValueOr(calls_.Record("ModulNr"), module_number_); }
    Int32 SchluesselID() override { return ValueOr(calls_.Record("SchluesselID"), key_); }

  private:
    Recorder calls_;
    Int32 module_number_ = 0;
    Int32 key_ = 0;
};

class ScriptStarter final : public InfoStarter {
  public:
    explicit ScriptStarter(SharedState state) : calls_(std::move(state), detail::kStarterName) {}

    void ConnectionString(const Text& value) override { calls_.Record("ConnectionString", value); }
    Variant Verbinden(Int32 kind, const Text& first, const Text& second) override {
        return calls_.Record("Verbinden", kind, first, second);
    }
    Variant Starten(Int32 module_number, Int32 key, Int32 p_lngUserID) override {
        return calls_.Record("Starten", module_number, key, p_lngUserID);
    }

  private:
    Recorder calls_;
};

class ScriptDefaults final : public SessionDefaults {
  public:
    explicit ScriptDefaults(SharedState state) : calls_(std::move(state), detail::kDefaultsName) {}

    Text FirstText(Int32 index) override { return ValueOr(calls_.Record("FirstText", index), Text()); }
    Text SecondText(Int32 index) override { return ValueOr(calls_.Record("SecondText", index), Text()); }

  private:
    Recorder calls_;
};

}  // namespace

Components ScriptComponents(const Ref<DataSession>& session) {
    const SharedState state = detail::StateOf(session);
    if (!state) Raise(ScriptError::kBadScript, "Process objects of a script need its session.");
    return {
        .data_session = {},
        .info_dispatcher = [state]() -> Ref<InfoDispatcher> { return New<ScriptDispatcher>(state); },
        .info_starter = [state]() -> Ref<InfoStarter> { return New<ScriptStarter>(state); },
        .session_defaults = [state]() -> Ref<SessionDefaults> { return New<ScriptDefaults>(state); },
    };
}

}  // namespace LumoConnection
