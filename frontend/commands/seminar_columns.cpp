#include "frontend/commands/seminar_columns.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

using Col = Column<clsSeminar>;
using Int = Col::Of<Int32>;
using Amount = Col::Of<Money>;
using Words = Col::Of<Text>;
using Decimal = Col::Of<Double>;

constexpr Col kColumns[] = {
    {"MDNr", "mdnr", "Client number, -1 for a seminar common to all", Int{&clsSeminar::MDNR, &clsSeminar::MDNR}, true},
    {"SemCode", "code", "Code", Words{&clsSeminar::SemCode, &clsSeminar::SemCode}, true},
    {"SemTitel", "title", "Title", Words{&clsSeminar::SemTitel, &clsSeminar::SemTitel}, true},
    {"Sachbearbeiter", "clerk", "Key of the clerk in charge", Int{&clsSeminar::Sachbearbeiter, &clsSeminar::Sachbearbeiter}},
    {"Status", "status", "Status; 0 is stored as 1", Int{&clsSeminar::Status, &clsSeminar::Status}},
    {"InhaltZielID", "content", "Key of the goal and content text", Int{&clsSeminar::InhaltZielID, &clsSeminar::InhaltZielID}},
    {"TeilnehmerMIN", "min", "Participants at least", Int{&clsSeminar::TeilnehmerMIN, &clsSeminar::TeilnehmerMIN}},
    {"TeilnehmerMAX", "max", "Participants at most", Int{&clsSeminar::TeilnehmerMAX, &clsSeminar::TeilnehmerMAX}},
    {"TeilnehmerOPT", "opt", "Participants at best", Int{&clsSeminar::TeilnehmerOPT, &clsSeminar::TeilnehmerOPT}},
    {"Stunden", "hours", "Hours in total; 0 is stored as 8", Decimal{&clsSeminar::Stunden, &clsSeminar::Stunden}, true},
    {"Sitzungen", "sessions", "Number of sessions; 0 is stored as 1", Int{&clsSeminar::Sitzungen, &clsSeminar::Sitzungen}},
    {"SerienID", "series", "Key of the recurrence series", Int{&clsSeminar::SerienID, &clsSeminar::SerienID}},
    {"KostenProTN", "cost", "Costs per participant", Amount{&clsSeminar::KostenProTN, &clsSeminar::KostenProTN}, true},
    {"Anzahlung", "deposit", "Deposit", Amount{&clsSeminar::Anzahlung, &clsSeminar::Anzahlung}},
    {"StornoKosten", "cancel-cost", "Costs of a cancellation", Amount{&clsSeminar::StornoKosten, &clsSeminar::StornoKosten}},
    {"Abbruchkosten", "abort-cost", "Costs of breaking off", Amount{&clsSeminar::Abbruchkosten, &clsSeminar::Abbruchkosten}},
    {"FristStorno", "cancel-days", "Deadline of a cancellation in days", Int{&clsSeminar::FristStorno, &clsSeminar::FristStorno}},
    {"FristAbbruch", "abort-days", "Deadline of breaking off in days", Int{&clsSeminar::FristAbbruch, &clsSeminar::FristAbbruch}},
    {"FristAnmeldung", "enrol-days", "Deadline of enrolment in days",
     Int{&clsSeminar::FristAnmeldung, &clsSeminar::FristAnmeldung}},
    {"Wiederholung", "repeat", "Months after which it is due again", Int{&clsSeminar::Wiederholung, &clsSeminar::Wiederholung}},
};

constexpr ColumnTable<clsSeminar> kTable{"seminar", "SemID", &clsSeminar::SemID, kColumns};

}  // namespace

const ColumnTable<clsSeminar>& SeminarColumns() { return kTable; }

}  // namespace frontend
