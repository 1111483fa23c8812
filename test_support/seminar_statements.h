#pragma once

#include <string>
#include <vector>

#include <LumoSeminar/frame/variant.h>

/// For tests: the statements of the catalogue as they are sent, and a row of it.
namespace LumoSeminar::seminar_statements {

inline std::string Select(int key) {
    return "SELECT MDNr, SemCode, SemTitel, Sachbearbeiter, Status, InhaltZielID, TeilnehmerMIN, TeilnehmerMAX, TeilnehmerOPT, "
           "Stunden, Sitzungen, SerienID, KostenProTN, Anzahlung, Stornokosten, Abbruchkosten, FristStorno, FristAbbruch, "
           "FristAnmeldung, Wiederholung FROM Sem_Katalog_IT WHERE SemID = " +
           std::to_string(key);
}

inline std::string Insert(const std::string& values) {
    return "INSERT INTO Sem_Katalog_IT (SemID, MDNr, SemCode, SemTitel, Sachbearbeiter, Status, InhaltZielID, TeilnehmerMIN, "
           "TeilnehmerMAX, TeilnehmerOPT, Stunden, Sitzungen, SerienID, KostenProTN, Anzahlung, Stornokosten, Abbruchkosten, "
           "FristStorno, FristAbbruch, FristAnmeldung, Wiederholung) VALUES (" +
           values + ")";
}

inline std::string Delete(int key) { return "DELETE FROM Sem_Katalog_IT WHERE SemID = " + std::to_string(key); }

inline std::string SelectKeys(int client) {
    return "SELECT SemID FROM Sem_Katalog_IT WHERE (MDNr = " + std::to_string(client) + " or MDNR = -1)";
}

/// The dates of a seminar.
inline std::string SelectDates(int seminar, int client) {
    return "SELECT SemTerminID, EndeDatum, Titel, Code  FROM Sem_Termin_IT  WHERE (SemID = " + std::to_string(seminar) +
           ") AND (MDNr = " + std::to_string(client) +
           " OR MDNr = -1)  ORDER BY ISNULL(Endedatum,GetDate()) DESC,SemTerminID ASC ";
}

inline const std::vector<std::string> kDateColumns = {"SemTerminID", "EndeDatum", "Titel", "Code"};

inline const std::vector<std::string> kColumns = {"MDNr",          "SemCode",      "SemTitel",       "Sachbearbeiter",
                                                  "Status",        "InhaltZielID", "TeilnehmerMIN",  "TeilnehmerMAX",
                                                  "TeilnehmerOPT", "Stunden",      "Sitzungen",      "SerienID",
                                                  "KostenProTN",   "Anzahlung",    "Stornokosten",   "Abbruchkosten",
                                                  "FristStorno",   "FristAbbruch", "FristAnmeldung", "Wiederholung"};

inline std::vector<Variant> FullRow() {
    return {5,
            "BS-01",
            "Brandschutz für Führungskräfte",
            12,
            2,
            3,
            4,
            12,
            8,
            6.5,
            3,
            7,
            Money::FromUnits(1'205'000),
            Money(20),
            Money::FromUnits(255'000),
            Money(99),
            14,
            15,
            16,
            24};
}

inline std::vector<Variant> NullRow() { return std::vector<Variant>(20, Variant::Null()); }

}  // namespace LumoSeminar::seminar_statements
