#include <LumoSeminar/scheduling/organiser_venue.h>

#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/statement.h>

namespace LumoSeminar {
namespace {

using Organiser = VeranstalterRow;
using Venue = VeranstaltungsOrtRow;

constexpr Column<Organiser> kOrganiserColumns[] = {
    {"Name", &Organiser::Name},
    {"PLZ", &Organiser::PLZ},
    {"Ort", &Organiser::Ort},
    {"Strasse", &Organiser::Strasse},
    {"Anspr_partner", &Organiser::Anspr_partner},
    {"Telefon", &Organiser::Telefon},
    {"Fax", &Organiser::Fax},
    {"Sachbearbeiter", &Organiser::Sachbearbeiter},
    {"EMail", &Organiser::EMail},
    {"URL", &Organiser::URL},
    {"Mobiltelefon", &Organiser::Mobiltelefon},
    {"Bemerkungen", &Organiser::Bemerkungen},
};

constexpr Sql<Int32> kSelectOrganiser =
    "SELECT Name, PLZ, Ort, Strasse, Anspr_partner, Telefon, Fax, Sachbearbeiter, EMail, URL, Mobiltelefon, Bemerkungen "
    "FROM sysIData_Veranstalter WHERE ID = {ID}";

constexpr Column<Venue> kVenueColumns[] = {
    {"Name", &Venue::Name},
    {"PLZ", &Venue::PLZ},
    {"Ort", &Venue::Ort},
    {"Strasse", &Venue::Strasse},
    {"Anspr_partner", &Venue::Anspr_partner},
    {"Telefon", &Venue::Telefon},
    {"Fax", &Venue::Fax},
    {"Sachbearbeiter", &Venue::Sachbearbeiter},
};

constexpr Sql<Int32> kSelectVenue =
    "SELECT Name, PLZ, Ort, Strasse, Anspr_partner, Telefon, Fax, Sachbearbeiter FROM sysIData_VOrte WHERE ID = {ID}";

// Both classes carry the label of the venue.
template <class Row>
Bool ReadRow(Row& row, const Ref<DataSession>& session, const Sql<Int32>& select, Int32 id,
             std::span<const Column<Row>> columns) try {
    const Ref<Connection> connection = session->AdoConnection();
    if (!common::OpenADOConnection(connection)) return true;
    const Ref<RecordSet> rows = connection->Execute(select(id));
    if (!rows->Bof() && !rows->Eof()) LoadRow(row, rows, columns);
    rows->Close();
    return true;
} catch (...) {
    RaiseLabelled(" LumoSeminar.clsTerminVeranstaltungsOrt.Init");
}

}  // namespace

Bool clsTerminVeranstalter::Init(Int32 p_lngID, Ref<DataSession> p_objAdoDirect) {
    return ReadRow<Organiser>(row_, p_objAdoDirect, kSelectOrganiser, p_lngID, kOrganiserColumns);
}

Text clsTerminVeranstalter::Name() { return row_.Name; }
Text clsTerminVeranstalter::PLZ() { return row_.PLZ; }
Text clsTerminVeranstalter::Ort() { return row_.Ort; }
Text clsTerminVeranstalter::Strasse() { return row_.Strasse; }
Text clsTerminVeranstalter::Ansprechpartner() { return row_.Anspr_partner; }
Text clsTerminVeranstalter::Telefon() { return row_.Telefon; }
Text clsTerminVeranstalter::Fax() { return row_.Fax; }
Text clsTerminVeranstalter::Sachbearbeiter() { return row_.Sachbearbeiter; }
Text clsTerminVeranstalter::Email() { return row_.EMail; }
Text clsTerminVeranstalter::URL() { return row_.URL; }
Text clsTerminVeranstalter::Mobiltelefon() { return row_.Mobiltelefon; }
Text clsTerminVeranstalter::Bemerkungen() { return row_.Bemerkungen; }

Bool clsTerminVeranstaltungsOrt::Init(Int32 p_lngID, Ref<DataSession> p_objAdoDirect) {
    return ReadRow<Venue>(row_, p_objAdoDirect, kSelectVenue, p_lngID, kVenueColumns);
}

Text clsTerminVeranstaltungsOrt::Name() { return row_.Name; }
Text clsTerminVeranstaltungsOrt::PLZ() { return row_.PLZ; }
Text clsTerminVeranstaltungsOrt::Ort() { return row_.Ort; }
Text clsTerminVeranstaltungsOrt::Strasse() { return row_.Strasse; }
Text clsTerminVeranstaltungsOrt::Ansprechpartner() { return row_.Anspr_partner; }
Text clsTerminVeranstaltungsOrt::Telefon() { return row_.Telefon; }
Text clsTerminVeranstaltungsOrt::Fax() { return row_.Fax; }
Text clsTerminVeranstaltungsOrt::Sachbearbeiter() { return row_.Sachbearbeiter; }

}  // namespace LumoSeminar
