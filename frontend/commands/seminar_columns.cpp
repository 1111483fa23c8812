#include "frontend/commands/seminar_columns.h"

#include <algorithm>

#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

using Int = Property<Int32>;
using Amount = Property<Money>;

constexpr SeminarColumn kColumns[] = {
    {"MDNr", "mdnr", "Client number, -1 for a seminar common to all", Int{&clsSeminar::MDNR, &clsSeminar::MDNR}, true},
    {"SemCode", "code", "Code", Property<Text>{&clsSeminar::SemCode, &clsSeminar::SemCode}, true},
    {"SemTitel", "title", "Title", Property<Text>{&clsSeminar::SemTitel, &clsSeminar::SemTitel}, true},
    {"Sachbearbeiter", "clerk", "Key of the clerk in charge", Int{&clsSeminar::Sachbearbeiter, &clsSeminar::Sachbearbeiter}},
    {"Status", "status", "Status; 0 is stored as 1", Int{&clsSeminar::Status, &clsSeminar::Status}},
    {"InhaltZielID", "content", "Key of the goal and content text", Int{&clsSeminar::InhaltZielID, &clsSeminar::InhaltZielID}},
    {"TeilnehmerMIN", "min", "Participants at least", Int{&clsSeminar::TeilnehmerMIN, &clsSeminar::TeilnehmerMIN}},
    {"TeilnehmerMAX", "max", "Participants at most", Int{&clsSeminar::TeilnehmerMAX, &clsSeminar::TeilnehmerMAX}},
    {"TeilnehmerOPT", "opt", "Participants at best", Int{&clsSeminar::TeilnehmerOPT, &clsSeminar::TeilnehmerOPT}},
    {"Stunden", "hours", "Hours in total; 0 is stored as 8", Property<Double>{&clsSeminar::Stunden, &clsSeminar::Stunden}, true},
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

Int32 Read(const Property<Int32>&, std::string_view named, const std::string& typed) { return ReadInt32(named, typed); }
Double Read(const Property<Double>&, std::string_view named, const std::string& typed) {
    return ReadDouble(named, typed);
}
Money Read(const Property<Money>&, std::string_view named, const std::string& typed) { return ReadMoney(named, typed); }
Text Read(const Property<Text>&, std::string_view, const std::string& typed) { return typed; }

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

const char* SeminarColumn::TypeName() const {
    constexpr const char* kNames[] = {"N", "X", "X", "TEXT"};
    return kNames[property.index()];
}

Variant SeminarColumn::Get(clsSeminar& seminar) const {
    return std::visit([&](const auto& half) { return Variant((seminar.*half.get)()); }, property);
}

void SeminarColumn::Let(clsSeminar& seminar, std::string_view named, const std::string& typed) const {
    std::visit([&](const auto& half) { (seminar.*half.let)(Read(half, named, typed)); }, property);
}

void SeminarColumn::Check(std::string_view named, const std::string& typed) const {
    std::visit([&](const auto& half) { Read(half, named, typed); }, property);
}

std::span<const SeminarColumn> SeminarColumns() { return kColumns; }

const SeminarColumn* FindSeminarColumn(std::string_view name) {
    const auto* found = std::ranges::find_if(kColumns, [&](const SeminarColumn& column) {
        return std::ranges::equal(std::string_view(column.name), name, {}, Lower, Lower);
    });
    return found == std::end(kColumns) ? nullptr : found;
}

}  // namespace frontend
