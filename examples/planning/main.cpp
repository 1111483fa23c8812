// Plans a date of the sample company: a weekly series, its days, a participant, what speaks against another one, and a
// cancellation. Everything happens in memory.

#include <LumoConnection/LumoConnection.h>
#include <LumoSeminar/LumoSeminar.h>

#include <iostream>

using namespace LumoSeminar;

namespace {

constexpr Int32 kClient = 1;
constexpr Int32 kSeminar = 21;  // "Messmittel richtig anwenden"

Ref<clsTermin> PlanDate(const Ref<DataSession>& session) {
    const auto series = New<clsSerie>();  // every week on Monday and Thursday, 9:00 to 12:00
    series->Init(0, session);
    series->BeginnUhrzeit(DateTime::TimeOfDay(9, 0));
    series->EndeUhrzeit(DateTime::TimeOfDay(12, 0));
    series->Tagefolge(2);
    series->Woche(1);
    series->Montag(-1);
    series->Donnerstag(-1);
    series->WriteToDatabase();

    const auto date = New<clsTermin>();
    date->Init(0, session);
    date->SemID(kSeminar);    // takes over title, limits, hours and costs
    date->WriteToDatabase();  // from here on it has a key, which its days need
    date->SerienID(series->SerienID());
    date->Sitzungen(4);
    date->BeginnDatum(DateTime::Of(2010, 11, 8));  // four days in the database at once
    date->WriteToDatabase();
    return date;
}

void ShowDays(const Ref<clsTermin>& date) {
    std::cout << date->Titel() << ", " << DefaultText(date->BeginnDatum()) << " to " << DefaultText(date->EndeDatum()) << '\n';
    for (const auto& day : date->colTerminTage()->NewEnum()) {
        std::cout << "  " << DateText(day->Termin()) << ' ' << ClockText(day->BegUhr()) << " to "
                  << ClockText(day->EndUhr()) << '\n';
    }
}

// Enrols an employee; false, with the findings, where something speaks against it.
bool Enrol(const Ref<clsTermin>& date, Int32 employee) {
    const auto participants = date->clscolTeilnehmer();
    const auto record = participants->AddEmptyObject().As<clsTeilnehmer>();
    record->MDNR(kClient);
    record->ANNr(employee);
    if (!record->CheckTeilnehmerAnmeldung()) {
        std::cout << "employee " << employee << " is not enrolled:\n";
        for (const auto& finding : record->colErrorsAnmeldung()->NewEnum())
            std::cout << "  " << finding->ErrID() << finding->ParamName() << '\n';
        return false;
    }
    record->TeilnehmerKosten(120);  // a cost line, written with the record
    const Bool written = record->WriteToDatabase(0);
    std::cout << "employee " << employee << (written ? " is enrolled\n" : " could not be written\n");
    return static_cast<bool>(written);
}

void Cancel(const Ref<DataSession>& session, Int32 date_key, Int32 employee) {
    const auto date = New<clsTermin>();  // a new object counts anew
    date->Init(date_key, session);
    for (const auto& record : date->clscolTeilnehmer()->NewEnum()) {
        if (record->ANNr() != employee) continue;
        record->Teilnahme(0);
        record->storniertam(Today());
        record->StornoKosten(40);
        record->WriteToDatabase(0);
        std::cout << "employee " << employee << " has cancelled on " << DateText(record->storniertam()) << '\n';
    }
}

}  // namespace

int main() try {
    const PinnedNow now(DateTime::Of(2010, 9, 6, 10, 0));  // only so that it prints the same every day
    const auto session = New<LumoConnection::AnySession>();
    if (!session->Connect("Provider=Embedded;Data Source=:memory:", "lena", "", 30))
        Raise(ErrorNumber::kStatementRefused, session->LastErrorText());
    LumoConnection::Install({.user = "lena", .session = session});
    LumoConnection::CreateTables(session, LumoConnection::kWithSample);

    const auto date = PlanDate(session);
    ShowDays(date);
    Enrol(date, 310);
    Enrol(date, 310);  // twice is too much
    Cancel(session, date->SemTerminID(), 310);
} catch (const Error& error) {
    const auto description = ReadDescription(error.Description());
    std::cerr << error.Number() << ": " << description.text << '\n';
    for (const auto& label : description.labels) std::cerr << "  " << label << '\n';
    return 1;
}
