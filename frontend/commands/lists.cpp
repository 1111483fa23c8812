#include "frontend/commands/lists.h"

#include <fmt/format.h>

namespace frontend {

using namespace LumoSeminar;

void RaiseNoSuch(Context& context, std::string_view thing, Int32 key) {
    Raise(ErrorNumber::kKeyNotFound, fmt::format("There is no {} {} of client {}.", thing, key, context.Client()));
}

Ref<colSeminare> SeminarsOf(Context& context) {
    auto list = New<colSeminare>();
    if (!list->Init(context.Client(), context.Session())) RaiseRefused(context.Session()->LastErrorText());
    return list;
}

Ref<clsSeminar> SeminarIn(Context& context, colSeminare& list, Int32 key) try {
    return list.Item(KeyText(key));
} catch (const Error& error) {
    if (error.Number() != ErrorNumber::kKeyNotFound) throw;
    RaiseNoSuch(context, "seminar", key);
}

Ref<clsSeminar> SeminarOf(Context& context, Int32 key) { return SeminarIn(context, *SeminarsOf(context), key); }

Ref<colTermine> DatesOf(Context& context, Int32 seminar, const Text& filter) {
    auto list = New<colTermine>();
    if (!list->Init(seminar, context.Client(), context.Session(), filter)) {
        RaiseRefused(context.Session()->LastErrorText());
    }
    return list;
}

namespace {

// A list of that date alone.
Ref<colTermine> OnlyDate(Context& context, Int32 key) {
    return DatesOf(context, kAllSeminars, fmt::format(" AND SemTerminID = {}", key));
}

}  // namespace

bool HasDate(Context& context, Int32 key) { return OnlyDate(context, key)->Count() != 0; }

Ref<clsTermin> DateOf(Context& context, Int32 key) {
    const auto list = OnlyDate(context, key);
    if (list->Count() == 0) RaiseNoSuch(context, "date", key);
    return list->Item(1);
}

std::vector<DateTime> DaysOf(clsTermin& date) {
    std::vector<DateTime> days;
    for (const auto& day : date.colTerminTage()->NewEnum()) days.push_back(day->Termin());
    return days;
}

}  // namespace frontend
