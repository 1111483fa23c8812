#include "frontend/commands/date_columns.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

using Col = Column<clsTermin>;
using Int = Col::Of<Int32>;
using Amount = Col::Of<Money>;
using Words = LoadingProperty<clsTermin, Text>;
using Day = Col::Of<DateTime>;

constexpr Col kColumns[] = {
    {"MDNr", "mdnr", "Client number, -1 for a date common to all", Int{&clsTermin::MDNR, &clsTermin::MDNR}},
    {"Status", "status", "1 Aktiv, 2 Anmeldung, 3 Storniert, 4 Abgeschlossen",
     Col::Of<Byte>{&clsTermin::Status, &clsTermin::Status}},
    {"Code", "code", "Code", Words{&clsTermin::Code, &clsTermin::Code}},
    {"Titel", "title", "Title", Words{&clsTermin::Titel, &clsTermin::Titel}},
    {"SemID", "seminar", "Key of the seminar", Int{&clsTermin::SemID, &clsTermin::SemID}},
    {"InhaltZielID", "content", "Key of the goal and content text", Int{&clsTermin::InhaltZielID, &clsTermin::InhaltZielID}},
    {"SelfService", "self-service", "Whether employees may put themselves down",
     Col::Truth{&clsTermin::SelfService, &clsTermin::SelfService}},
    {"Sachbearbeiter", "clerk", "Key of the clerk in charge", Int{&clsTermin::Sachbearbeiter, &clsTermin::Sachbearbeiter}},
    {"BeginnDatum", "begin", "First day; another one makes all days anew", Day{&clsTermin::BeginnDatum, &clsTermin::BeginnDatum}},
    {"EndeDatum", "end", "Last day; days are added or go up to it",
     LoadingProperty<clsTermin, DateTime>{&clsTermin::EndeDatum, &clsTermin::EndeDatum}},
    {"BeginnUhrzeit", "from", "Time at which each day starts", Col::Clock{&clsTermin::BeginnUhrzeit, &clsTermin::BeginnUhrzeit}},
    {"EndeUhrzeit", "to", "Time at which each day ends", Col::Clock{&clsTermin::EndeUhrzeit, &clsTermin::EndeUhrzeit}},
    {"MinTeil", "min", "Participants at least", Int{&clsTermin::MinTeil, &clsTermin::MinTeil}},
    {"MaxTeil", "max", "Participants at most", Int{&clsTermin::MaxTeil, &clsTermin::MaxTeil}},
    {"OptTeil", "opt", "Participants at best", Int{&clsTermin::OptTeil, &clsTermin::OptTeil}},
    {"Stunden", "hours", "Hours in total", Col::Of<Double>{&clsTermin::Stunden, &clsTermin::Stunden}},
    {"Sitzungen", "sessions", "Number of sessions", Int{&clsTermin::Sitzungen, &clsTermin::Sitzungen}},
    {"SerienID", "series", "Key of the recurrence series", Int{&clsTermin::SerienID, &clsTermin::SerienID}},
    {"KostenProTN", "cost", "Costs per participant", Amount{&clsTermin::KostenProTN, &clsTermin::KostenProTN}},
    {"StornoDatum", "cancel-until", "Last day on which participants may withdraw freely",
     Day{&clsTermin::StornoDatum, &clsTermin::StornoDatum}},
    {"StornoKosten", "cancel-cost", "Costs of a cancellation behind that day",
     Amount{&clsTermin::StornoKosten, &clsTermin::StornoKosten}},
    {"AbbruchDatum", "abort-until", "Last day on which it may be called off freely",
     Day{&clsTermin::AbbruchDatum, &clsTermin::AbbruchDatum}},
    {"AbbruchKosten", "abort-cost", "Costs of calling it off behind that day",
     Amount{&clsTermin::Abbruchkosten, &clsTermin::Abbruchkosten}},
    {"AnmeldefristDatum", "enrol-until", "Last day of enrolment",
     Day{&clsTermin::AnmeldefristDatum, &clsTermin::AnmeldefristDatum}},
    {"BeurteilungID", "rating", "Key of the rating", Int{&clsTermin::BeurteilungID, &clsTermin::BeurteilungID}},
    {"VeranstalterID", "organiser", "Key of the organiser", Int{&clsTermin::VeranstalterID, &clsTermin::VeranstalterID}},
    {"VeranstaltungsOrtID", "venue", "Key of the venue", Int{&clsTermin::VeranstaltungsOrtID, &clsTermin::VeranstaltungsOrtID}},
    {"Bemerkung", "remark", "Remark", Col::Of<Text>{&clsTermin::Bemerkung, &clsTermin::Bemerkung}},
};

constexpr ColumnTable<clsTermin> kTable{"date", "SemTerminID", &clsTermin::SemTerminID, kColumns};

}  // namespace

const ColumnTable<clsTermin>& DateColumns() { return kTable; }

}  // namespace frontend
