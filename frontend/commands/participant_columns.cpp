#include "frontend/commands/participant_columns.h"

#include "frontend/output/value_text.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

using Col = Column<clsTeilnehmer>;
using Int = Col::Of<Int32>;
using Small = Col::Of<Int16>;
using Words = Col::Of<Text>;
using Day = Col::Of<DateTime>;
using Clock = Col::Clock;
using One = clsTeilnehmer;

constexpr Col kColumns[] = {
    {"SemTerminID", "date", "Key of the date", Int{&One::SemTerminID, &One::SemTerminID}},
    {"MDNr", "mdnr", "Client number of the person", Int{&One::MDNR, &One::MDNR}},
    {"ANNr", "employee", "Number of the employee", Int{&One::ANNr, &One::ANNr}},
    {"BWID", "applicant", "Key of the applicant", Int{&One::BWID, &One::BWID}},
    {"LAID", "worker", "Key of the temporary worker", Int{&One::LAID, &One::LAID}},
    {"ErfDatum", "entered-on", "Day of entry", Day{&One::ErfDatum, &One::ErfDatum}},
    {"ErfUser", "entered-by", "User who entered it", Words{&One::ErfUser, &One::ErfUser}},
    {"Teilnahme", "attendance", "Whether the person attends; no: cancelled", Col::Truth{&One::Teilnahme, &One::Teilnahme}},
    {"Herkunft", "origin", "3 by hand or approved, 4 approved from elsewhere, 5 from the wait-list",
     Int{&One::Herkunft, &One::Herkunft}},
    {"BeginnDatum", "begin", "First day of attendance", Day{&One::BeginnDatum, &One::BeginnDatum}},
    {"BegUhrzeit", "from", "Time at which each day starts", Clock{&One::BegUhrzeit, &One::BegUhrzeit}},
    {"EndeDatum", "end", "Last day of attendance", Day{&One::EndeDatum, &One::EndeDatum}},
    {"EndUhrzeit", "to", "Time at which each day ends", Clock{&One::EndUhrzeit, &One::EndUhrzeit}},
    {"storniertam", "cancelled-on", "Day of cancellation", Day{&One::storniertam, &One::storniertam}},
    {"StornoGrund", "cancel-reason", "Code of the reason for cancelling", Int{&One::StornoGrund, &One::StornoGrund}},
    {"StornoKosten", "cancel-cost", "Costs of the cancellation, in whole units", Small{&One::StornoKosten, &One::StornoKosten}},
    {"Ergebnis", "result", "Code of the result", Int{&One::Ergebnis, &One::Ergebnis}},
    {"Bemerkung", "remark", "Remark", Words{&One::Bemerkung, &One::Bemerkung}},
};

constexpr std::size_t kDateAndPerson = 5;

constexpr ColumnTable<clsTeilnehmer> kTable{"participant", "TeilnehmerID", &One::TeilnehmerID, kColumns};
constexpr ColumnTable<clsTeilnehmer> kEnrolmentTable{"participant", "TeilnehmerID", &One::TeilnehmerID,
                                                     std::span(kColumns).subspan(kDateAndPerson)};

}  // namespace

const ColumnTable<clsTeilnehmer>& ParticipantColumns() { return kTable; }
const ColumnTable<clsTeilnehmer>& EnrolmentColumns() { return kEnrolmentTable; }

const char* StateOf(clsTeilnehmer& participant) { return participant.Teilnahme() == 0 ? "cancelled" : "enrolled"; }

Attendance AttendanceOf(clsTeilnehmer& participant) {
    Attendance attendance{participant.BeginnDatum(), participant.EndeDatum()};
    if (!attendance.begin) attendance.begin = participant.clsTermin()->BeginnDatum();
    if (!attendance.end) attendance.end = participant.clsTermin()->EndeDatum();
    return attendance;
}

Variant AmountOf(Single value) {
    // By way of the text: a Single that reads 49.9 is a little more or less than that.
    try {
        return ToMoney(ExactText(value));
    } catch (const Error&) {
        return value;
    }
}

}  // namespace frontend
