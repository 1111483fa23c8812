#include "frontend/commands/requests.h"

#include <LumoConnection/process/process_objects.h>

#include <fmt/format.h>

#include <cstdio>

#include "frontend/commands/lists.h"
#include "frontend/exit_codes.h"
#include "frontend/output/screen_text.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr Int32 kTrainingNeed = 7;
constexpr Int32 kWaitListEntry = 8;

// Its own and not the one that the library keeps: each works on the session of the program.
Ref<InfoDispatcher> Process(Int32 module, Int32 key, Int32 client, Int32 person) {
    auto process = MakeInfoDispatcher();
    process->Initialisieren(module, key, client, person);
    return process;
}

void TellState(InfoDispatcher& process) {
    try {
        fmt::print(stderr, "lumoseminar: The process is in the state \"{}\".\n", Visible(process.ProzessStatusText()));
    } catch (const Error&) {
        // Then the failure that was there before says it all.
    }
}

}  // namespace

Ref<clsSemWarteliste> EntryOf(Context& context, Int32 person, Int32 date) {
    const auto list = New<colSemWarteliste>();
    list->LoadWartelisteMA(context.Session(), context.Client(), person);
    for (const auto& entry : list->NewEnum()) {
        if (entry->SemTerminID() == date) return entry;
    }
    return {};
}

Ref<clsANWBBedarf> NeedOf(Context& context, Int32 key) {
    auto need = New<clsANWBBedarf>();
    need->Init(key, context.Session());
    if (need->ANNr() == 0 || need->MDNR() != context.Client()) {
        RaiseNoSuch(context, "training need", key);
    }
    return need;
}

Ref<InfoDispatcher> ProcessOf(clsSemWarteliste& entry) {
    return Process(kWaitListEntry, entry.SemWartelisteID(), entry.MDNR(), entry.TNID());
}

Ref<InfoDispatcher> ProcessOf(clsANWBBedarf& need) {
    return Process(kTrainingNeed, need.WBID(), need.MDNR(), need.ANNr());
}

Text NameVorname(clsWBPerson& person) {
    const Text name = person.Nachname() + ", " + person.Vorname();
    return name == ", " ? Text() : name;
}

bool ConsentOf(clsSemWarteliste& entry) { return entry.Status() == 1; }

Parameter& AddUserOption(Command& command, std::string& typed, const char* help) {
    return command.Option("--user-id", &typed, "N", help);
}

Int32 ReadUser(const std::string& typed) { return ReadInt32("--user-id", typed); }

int TakeStep(const Ref<InfoDispatcher>& process, const std::function<int()>& step) {
    try {
        return step();
    } catch (const Error& error) {
        if (error.Number() != LumoConnection::ProcessError::kDecisionRefused) {
            TellState(*process);
            throw;
        }
        fmt::print(stderr, "lumoseminar: {} Nothing was changed.\n", Visible(ReadDescription(error.Description()).text));
        return kRefused;
    }
}

}  // namespace frontend
