#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <LumoConnection/script/script_session.h>
#include <LumoSeminar/frame/variant.h>
#include <test_support/focus_area_statements.h>

/// For tests: the statements of a date as they are sent, what surrounds it, and rows of it.
namespace LumoSeminar::termin_statements {

/// The text with one part of it, which stands in it once, put otherwise.
inline std::string With(std::string text, const std::string& part, const std::string& instead) {
    const std::size_t at = text.find(part);
    if (at == text.npos || text.find(part, at + 1) != text.npos) {
        ADD_FAILURE() << "not once in the text: " << part;
        return text;
    }
    return text.replace(at, part.size(), instead);
}

inline std::string Select(int key) {
    return "SELECT MDNr, Status, Code, Titel, SemID, InhaltZielID, SelfService, Sachbearbeiter, BeginnDatum, EndeDatum, "
           "BeginnUhrzeit, EndeUhrzeit, MinTeil, MaxTeil, OptTeil, Stunden, Sitzungen, SerienID, KostenProTN, "
           "StornoDatum, StornoKosten, AbbruchDatum, AbbruchKosten, AnmeldefristDatum, BeurteilungID, VeranstalterID, "
           "VeranstaltungsOrtID, Bemerkung FROM Sem_Termin_IT WHERE SemTerminID = " +
           std::to_string(key);
}

inline const std::vector<std::string> kColumns = {"MDNr",          "Status",         "Code",
                                                  "Titel",         "SemID",          "InhaltZielID",
                                                  "SelfService",   "Sachbearbeiter", "BeginnDatum",
                                                  "EndeDatum",     "BeginnUhrzeit",  "EndeUhrzeit",
                                                  "MinTeil",       "MaxTeil",        "OptTeil",
                                                  "Stunden",       "Sitzungen",      "SerienID",
                                                  "KostenProTN",   "StornoDatum",    "StornoKosten",
                                                  "AbbruchDatum",  "AbbruchKosten",  "AnmeldefristDatum",
                                                  "BeurteilungID", "VeranstalterID", "VeranstaltungsOrtID",
                                                  "Bemerkung"};

/// Every column set, no two alike.
inline std::vector<Variant> FullRow() {
    return {5,
            Byte{3},
            "BS-17",
            "Brandschutz für \"Führungskräfte\"",
            105,
            33,
            Int16{-1},
            12,
            DateTime::Of(2010, 3, 3),
            DateTime::Of(2010, 3, 5),
            DateTime::TimeOfDay(8, 30),
            DateTime::TimeOfDay(16, 45),
            4,
            14,
            8,
            6.5,
            2,
            7,
            Money::FromUnits(11'205'000),
            DateTime::Of(2010, 2, 10),
            Money::FromUnits(10'257'500),
            DateTime::Of(2010, 2, 20),
            Money::FromUnits(20'990'001),
            DateTime::Of(2010, 2, 24),
            6,
            31,
            41,
            "Größe des Raums: \"klein\" & hell"};
}

inline std::vector<Variant> NullRow() { return std::vector<Variant>(28, Variant::Null()); }

inline std::string Update(const std::string& assignments, int key) {
    return "UPDATE Sem_Termin_IT SET " + assignments + " WHERE SemTerminID = " + std::to_string(key);
}

/// Those of the full row.
inline const std::string kFullAssignments =
    " MDNr = 5,"
    " Status = 3,"
    " Code = 'BS-17',"
    " Titel = 'Brandschutz für \"Führungskräfte\"',"
    " SemID = 105,"
    " InhaltZielID = 33,"
    " SelfService = -1,"
    " Sachbearbeiter = 12,"
    " BeginnDatum = Convert(Datetime,'03.03.2010',104),"
    " EndeDatum = Convert(Datetime,'05.03.2010',104),"
    " BeginnUhrzeit = Convert(Datetime,'30.12.1899 08:30',104),"
    " EndeUhrzeit =  Convert(Datetime,'30.12.1899 16:45',104),"
    " MinTeil = 4,"
    " MaxTeil = 14,"
    " OptTeil = 8,"
    " Stunden = 6.5,"
    " Sitzungen = 2,"
    " SerienID = 7,"
    " KostenProTN = 1120.5,"
    " StornoDatum = Convert(Datetime,'10.02.2010',104),"
    " StornoKosten = 1025.75,"
    " AbbruchDatum = Convert(Datetime,'20.02.2010',104),"
    " AbbruchKosten = 2099.0001,"
    " AnmeldefristDatum = Convert(Datetime,'24.02.2010',104),"
    " BeurteilungID = 6,"
    " VeranstalterID = 31,"
    " VeranstaltungsOrtID = 41,"
    " Bemerkung = 'Größe des Raums: \"klein\" & hell'";

/// Everything 0 or empty.
inline const std::string kZeroAssignments =
    " MDNr = 0,"
    " Status = 0,"
    " Code = '',"
    " Titel = '',"
    " SemID = NULL,"
    " InhaltZielID = NULL,"
    " SelfService = 0,"
    " Sachbearbeiter = NULL,"
    " BeginnDatum = Null,"
    " EndeDatum = Null,"
    " BeginnUhrzeit = Null,"
    " EndeUhrzeit =  NULL,"
    " MinTeil = NULL,"
    " MaxTeil = Null,"
    " OptTeil = NUll,"
    " Stunden = 0,"
    " Sitzungen = 0,"
    " SerienID = NULL,"
    " KostenProTN = 0,"
    " StornoDatum = NULL,"
    " StornoKosten = 0,"
    " AbbruchDatum = NULL,"
    " AbbruchKosten = 0,"
    " AnmeldefristDatum = NULL,"
    " BeurteilungID = Null,"
    " VeranstalterID = 0,"
    " VeranstaltungsOrtID = NULL,"
    " Bemerkung = NULL";

/// Those of a new date.
inline const std::string kNewAssignments =
    With(With(With(kZeroAssignments, " Status = 0,", " Status = 2,"), " Stunden = 0,", " Stunden = 8,"),
         " Sitzungen = 0,", " Sitzungen = 1,");

/// Inserts, then reads the key back.
inline std::string Insert(const std::string& values) {
    return "INSERT INTO Sem_Termin_IT ( "
           " SemTerminID , MDNr, Status, Code, Titel, SemID, InhaltZielID, "
           " SelfService, Sachbearbeiter, BeginnDatum, EndeDatum, BeginnUhrzeit, "
           " EndeUhrzeit, MinTeil, MaxTeil, OptTeil, Stunden, Sitzungen, "
           " SerienID, KostenProTN, StornoDatum, StornoKosten, AbbruchDatum, "
           " AbbruchKosten, AnmeldefristDatum, BeurteilungID, VeranstalterID, "
           " VeranstaltungsOrtID, Bemerkung)"
           " SELECT ISNULL(MAX(Sem_Termin_IT.SemTerminID),0)+1, " +
           values +
           " FROM Sem_Termin_IT"
           " SELECT MAX(Sem_Termin_IT.SemTerminID) As SemTerminID From Sem_Termin_IT";
}

inline const std::vector<std::string> kInsertedColumns = {"SemTerminID"};

/// Those of the full row.
inline const std::string kFullValues =
    "5, 3, 'BS-17', 'Brandschutz für \"Führungskräfte\"', 105, 33, -1, 12, "
    "Convert(Datetime,'03.03.2010',104), Convert(Datetime,'05.03.2010',104), "
    "Convert(Datetime,'30.12.1899 08:30',104), Convert(Datetime,'30.12.1899 16:45',104), "
    "4, 14, 8, 6.5, 2, 7, 1120.5, Convert(Datetime,'10.02.2010',104), 1025.75, "
    "Convert(Datetime,'20.02.2010',104), 2099.0001, Convert(Datetime,'24.02.2010',104), "
    "6, 31, 41, 'Größe des Raums: \"klein\" & hell'";

/// Those of a new date.
inline const std::string kNewValues =
    "0, 2, '', '', NULL, NULL, 0, NULL, Null, Null, NULL, NULL, NULL, Null, NUll, 8, 1, NULL, 0, NULL, 0, NULL, 0, NULL, "
    "Null, 0, NULL, NULL";

/// Everything 0 or empty.
inline const std::string kZeroValues =
    "0, 0, '', '', NULL, NULL, 0, NULL, Null, Null, NULL, NULL, NULL, Null, NUll, 0, 0, NULL, 0, NULL, 0, NULL, 0, NULL, "
    "Null, 0, NULL, NULL";

inline std::string Delete(int key) { return "DELETE FROM Sem_Termin_IT WHERE SemTerminID = " + std::to_string(key); }

/// The mail address of a clerk.
inline std::string SelectEmail(int clerk) {
    return "select email from arbeitnehmer as an inner join sysIData_SemSachbearbeiter_IT as sa on an.mdnr=sa.mdnr and "
           "an.annr=sa.annr where sachbearbeiterid=" +
           std::to_string(clerk);
}

// The organiser and the venue of a date.

inline std::string SelectOrganiser(int id) {
    return "SELECT Name, PLZ, Ort, Strasse, Anspr_partner, Telefon, Fax, Sachbearbeiter, EMail, URL, Mobiltelefon, "
           "Bemerkungen FROM sysIData_Veranstalter WHERE ID = " +
           std::to_string(id);
}

inline const std::vector<std::string> kOrganiserColumns = {"Name",          "PLZ",     "Ort",          "Strasse",
                                                           "Anspr_partner", "Telefon", "Fax",          "Sachbearbeiter",
                                                           "EMail",         "URL",     "Mobiltelefon", "Bemerkungen"};

inline std::string SelectVenue(int id) {
    return "SELECT Name, PLZ, Ort, Strasse, Anspr_partner, Telefon, Fax, Sachbearbeiter FROM sysIData_VOrte WHERE ID = " +
           std::to_string(id);
}

inline const std::vector<std::string> kVenueColumns = {"Name",          "PLZ",     "Ort", "Strasse",
                                                       "Anspr_partner", "Telefon", "Fax", "Sachbearbeiter"};

/// A row with that name, all else Null.
inline std::vector<Variant> NamedRow(const Text& name, const std::vector<std::string>& columns) {
    std::vector<Variant> row(columns.size(), Variant::Null());
    row[0] = name;
    return row;
}

inline std::string SelectParticipants(int key) {
    return "SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = " + std::to_string(key);
}

/// The lists that a delete empties, both without an entry.
inline void ScriptEmptyLists(LumoConnection::Script& script, int key) {
    script.AdoConnection();
    script.OpenSelect(SelectParticipants(key)).Rows({"TeilnehmerID"}, {});
    script.AdoConnection();
    script.OpenSelect(focus_area_statements::SelectKeysOfDate(key)).Rows({"SchwerpunktID", "SemTerminID"}, {});
}

}  // namespace LumoSeminar::termin_statements
