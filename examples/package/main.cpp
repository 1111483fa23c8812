#include <LumoConnection/LumoConnection.h>
#include <LumoSeminar/LumoSeminar.h>

#include <iostream>

using namespace LumoSeminar;

int main() try {
    const auto session = New<LumoConnection::EmbeddedSession>();
    if (!session->Connect("Provider=Embedded;Data Source=seminar.db", "", "", 30)) {
        Raise(ErrorNumber::kStatementRefused, session->LastErrorText());
    }

    const auto seminar = New<clsSeminar>();
    seminar->Init(0, session);  // 0: a new one
    seminar->MDNR(1);
    seminar->SemTitel("Gespräche führen für Ausbilder");
    seminar->Stunden(6.5);
    seminar->WriteToDatabase();  // one lookup for the key, one INSERT
    std::cout << "stored under " << seminar->SemID() << '\n';

    const auto catalogue = New<colSeminare>();
    // One SELECT: those of client 1 and the common ones.
    if (!catalogue->Init(1, session)) Raise(ErrorNumber::kStatementRefused, session->LastErrorText());
    for (const auto& entry : catalogue->NewEnum()) {
        std::cout << entry->Key() << "  " << entry->SemTitel()  // one SELECT an entry
                  << ", " << DefaultText(entry->Stunden()) << " h\n";
    }
} catch (const Error& error) {
    const auto description = ReadDescription(error.Description());
    std::cerr << error.Number() << ": " << description.text << '\n';
    for (const auto& label : description.labels) std::cerr << "  " << label << '\n';
    return 1;
}
