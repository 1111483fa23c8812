#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include <LumoConnection/script/script_processes.h>
#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/clock.h>
#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/components.h>

/// For tests: the calls on process objects as they stand in a script, by the occasions on which the library makes them.
namespace LumoSeminar::process_calls {

inline constexpr int kTrainingNeed = 7;
inline constexpr int kWaitList = 8;

/// How a process object gets its database.
enum class Connected {
    kByText,
    kByDefaults,
    /// By session defaults that were made before.
    kByKeptDefaults,
};

inline const Text kConnectionText = "Provider=Embedded;Data Source=Größe \"1\".db";
inline const Text kUser = "Käthe Löffler";

inline void ScriptConnection(LumoConnection::Script& script, const std::string& object, Connected connected) {
    if (connected == Connected::kByText) {
        script.Process(object + ".ConnectionString '" + kConnectionText + "'");
        return;
    }
    if (connected == Connected::kByDefaults) script.Process("New SessionDefaults");
    script.Process("SessionDefaults.FirstText 2").Gives(kUser);
    script.Process("SessionDefaults.SecondText 2").Gives("zwei's");
    script.Process(object + ".Verbinden 2, '" + kUser + "', 'zwei's'");
}

/// A process is opened.
inline void ScriptStart(LumoConnection::Script& script, int module_number, int key, int user,
                        Connected connected = Connected::kByText) {
    script.Process("New InfoStarter");
    ScriptConnection(script, "InfoStarter", connected);
    script.Process("InfoStarter.Starten " + std::to_string(module_number) + ", " + std::to_string(key) + ", " +
                   std::to_string(user));
}

/// The dispatcher where none was made yet.
inline void ScriptNewDispatcher(LumoConnection::Script& script, int module_number, int key, int client, int person,
                                Connected connected = Connected::kByText) {
    script.Process("New InfoDispatcher");
    ScriptConnection(script, "InfoDispatcher", connected);
    script.Process("InfoDispatcher.Initialisieren " + std::to_string(module_number) + ", " + std::to_string(key) +
                   ", " + std::to_string(client) + ", " + std::to_string(person));
}

/// The dispatcher is there and is asked what it is bound to. It tells what it was bound to.
inline void ScriptCachedDispatcher(LumoConnection::Script& script) {
    script.Process("InfoDispatcher.ModulNr");
    script.Process("InfoDispatcher.SchluesselID");
}

/// The dispatcher is there, bound to something else.
inline void ScriptReboundDispatcher(LumoConnection::Script& script, int module_number, int key, int client, int person,
                                    Connected connected = Connected::kByText) {
    ScriptCachedDispatcher(script);
    ScriptNewDispatcher(script, module_number, key, client, person, connected);
}

/// A consent and what state the process has behind it.
inline void ScriptConsent(LumoConnection::Script& script, int user, int status) {
    script.Process("InfoDispatcher.Zustimmen " + std::to_string(user) + ", ''");
    script.Process("InfoDispatcher.ProzessStatus").Gives(status);
}

/// A rejection, likewise.
inline void ScriptRejection(LumoConnection::Script& script, int user, int status) {
    script.Process("InfoDispatcher.Ablehnen " + std::to_string(user) + ", ''");
    script.Process("InfoDispatcher.ProzessStatus").Gives(status);
}

/// Gives the thread process objects of the script that the session belongs to, and the connection text.
inline void Install(const Ref<DataSession>& session, const Text& connection_text = kConnectionText) {
    common::State() = {};
    common::State().g_strConnectionString = connection_text;
    SetComponents(LumoConnection::ScriptComponents(session));
}

/// The steps of a script behind one of them, as a run calls them that goes on after its failure.
inline std::vector<std::string> StepsBehind(int step, const std::function<void(LumoConnection::Script&)>& write_script) {
    LumoConnection::Script script;
    write_script(script);
    std::vector<std::string> steps;
    while (step < script.StepCount()) steps.push_back(script.StepText(++step));
    return steps;
}

/// The pinned moment.
inline const DateTime kNow = DateTime::Of(2010, 3, 2, 17, 45, 9);

/// Pins the moment and leaves nothing in the thread.
class ProcessTest : public testing::Test {
  protected:
    ProcessTest() { Clear(); }
    ~ProcessTest() override { Clear(); }

  private:
    static void Clear() {
        common::State() = {};
        SetComponents({});
    }

    PinnedNow now_{kNow};
};

}  // namespace LumoSeminar::process_calls
