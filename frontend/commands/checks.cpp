#include "frontend/commands/checks.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "frontend/commands/lists.h"
#include "frontend/commands/look_ups.h"
#include "frontend/exit_codes.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr Referred kReferred[] = {
    {"SerienID", "series", "Sem_Serien_IT", "SerienID", "series list"},
    {"InhaltZielID", "goal and content text", "Sem_ZielInhalt_IT", "ZielInhaltID", nullptr},
    {"Sachbearbeiter", "clerk", "sysIData_SemSachbearbeiter_IT", "sachbearbeiterid", "clerks list"},
    {"VeranstalterID", "organiser", "sysIData_Veranstalter", "ID", "organisers list"},
    {"VeranstaltungsOrtID", "venue", "sysIData_VOrte", "ID", "venues list"},
    {"KostenArtID", "cost type", "sysIData_KostenArten", "KostenArten_ID", "costtypes list"},
    {"BWID", "applicant", "BW", "BWID", "persons list --kind applicant"},
    {"LAID", "worker", "LA", "LID", "persons list --kind worker"},
};

[[noreturn]] void RefuseOrder(std::string_view less, const Text& value, const char* must_not, std::string_view than,
                              const Text& limit) {
    throw UsageError(fmt::format("{} ({}) must not {} {} ({}).", less, value, must_not, than, limit));
}

constexpr const char* kLieBefore = "lie before";

}  // namespace

void RefuseEndBeforeBegin(Named<DateTime> begin, Named<DateTime> end) {
    if (!begin.value || !end.value || end.value >= begin.value) return;
    RefuseOrder(end.name, DateText(end.value), kLieBefore, begin.name, DateText(begin.value));
}

void RefuseClockBefore(Named<DateTime> begin, Named<DateTime> end) {
    if (end.value >= begin.value) return;
    RefuseOrder(end.name, ClockText(end.value), kLieBefore, begin.name, ClockText(begin.value));
}

void RefuseAbove(Named<Int32> less, Named<Int32> limit) {
    if (limit.value == 0 || less.value <= limit.value) return;
    RefuseOrder(less.name, fmt::to_string(less.value), "be greater than", limit.name, fmt::to_string(limit.value));
}

void RequireRow(Context& context, const Referred& referred, Int32 key) {
    const auto found = Select(context, fmt::format("SELECT {0} FROM {1} WHERE {0} = {2}", referred.key, referred.table, key));
    if (!found.rows.empty()) return;
    Text told = fmt::format("There is no {} {}.", referred.thing, key);
    if (referred.list != nullptr) told += fmt::format(" \"lumoseminar {}\" tells which there are.", referred.list);
    Raise(ErrorNumber::kKeyNotFound, told);
}

void RequireRow(Context& context, std::string_view column, Int32 key) {
    const auto* const referred = std::ranges::find(kReferred, column, &Referred::column);
    if (referred != std::end(kReferred)) RequireRow(context, *referred, key);
    if (column == "SemID") SeminarOf(context, key);
    if (column == "SemTerminID" && !HasDate(context, key)) RaiseNoSuch(context, "date", key);
}

}  // namespace frontend
