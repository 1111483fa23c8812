// A front end with a data session and process objects of its own. It walks one request: a person consents to a date,
// two approvals are given, the person is a participant. It shows what the library asks of the session meanwhile.

#include <LumoSeminar/LumoSeminar.h>

#include <iostream>

#include "own_processes.h"
#include "own_session.h"

using namespace front_end;

namespace {

constexpr Int32 kClient = 1;
constexpr Int32 kPerson = 4711;
constexpr Byte kEmployee = 2;  // kind of person: 2 employee, 3 applicant, 4 temporary worker
constexpr Int32 kDate = 12;
constexpr Int32 kClerk = 17;

void WalkOneRequest(OwnDatabase& database, Ref<DataSession> session) {
    database.Answer("from Arbeitnehmer", {{"Name", "Vorname", "ANNR"}, {{"Grün", "Ida", "4711"}}});
    database.Answer("opactMD", {{"System_User"}, {{"portal"}}});

    const auto person = New<clsWBPerson>();
    person->Init(kClient, kPerson, kEmployee, session);  // a variable: without a session Init would put a new one there
    const Text name = person->Vorname() + ' ' + person->Nachname();
    std::cout << "The person is " << name << ".\n";

    person->TeilnahmeZustimmen(kDate, kClerk);
    std::cout << "Consent is given: an entry is on the wait-list.\n";
    database.Answer("FROM Sem_Warteliste_IT",
                    {{"SemWarteListeID", "ModID", "MDNr", "TNID", "ErfDat", "Herkunft", "Wunschtermin", "SemTerminID",
                      "SemID", "Status", "GeaendertAm", "GeaendertVon"},
                     {{1, kEmployee, kClient, kPerson, Now(), 4, Variant::Null(), kDate, Variant::Null(), -1, Now(), ""}}});

    person->TeilnahmeGenehmigen(kDate, kClerk);
    std::cout << "The first approval is given: another one is pending.\n";

    database.Answer("SELECT max(TeilnehmerID)", {{""}, {{1}}});
    const Bool enrolled = person->TeilnahmeGenehmigen(kDate, kClerk);
    std::cout << "The second approval is given: " << name << (enrolled ? " is" : " is not") << " a participant.\n";
}

}  // namespace

int main() try {
    const auto processes = New<OwnProcesses>();
    const auto database = New<OwnDatabase>();
    // The makers are those of the calling thread: each thread of a server sets its own.
    SetComponents({
        .data_session = [database] { return New<OwnSession>(database); },  // where Init is given no session
        .info_dispatcher = [processes] { return New<OwnDispatcher>(processes); },
        .info_starter = [processes] { return New<OwnStarter>(processes); },
        .session_defaults = [] { return New<OwnDefaults>(); },
    });
    const PinnedNow now(DateTime(45000));  // only so that it prints the same every day
    WalkOneRequest(*database, New<OwnSession>(database));
} catch (const Error& error) {
    const auto description = ReadDescription(error.Description());
    std::cerr << error.Number() << ": " << description.text << '\n';
    for (const auto& label : description.labels) std::cerr << "  " << label << '\n';
    return 1;
}
