// How the begin, the end, the sessions and the series of a date become its days. Every day made or deleted is a
// statement at once.

#include <LumoSeminar/frame/text_form.h>
#include <LumoSeminar/scheduling/clsSerie.h>
#include <LumoSeminar/scheduling/clsTermin.h>
#include <LumoSeminar/scheduling/clsTerminTag.h>
#include <LumoSeminar/scheduling/colTerminTage.h>

#include <chrono>
#include <cmath>

namespace LumoSeminar {
namespace {

constexpr Byte kEveryDay = 1;
constexpr Byte kDailyRhythm = 1;
constexpr Int16 kFlagged = -1;

std::chrono::weekday WeekdayOf(DateTime day) { return std::chrono::weekday(day.Date()); }

bool IsWorkingDay(DateTime day) {
    const std::chrono::weekday weekday = WeekdayOf(day);
    return weekday != std::chrono::Saturday && weekday != std::chrono::Sunday;
}

bool IsFlagged(const Ref<clsSerie>& series, DateTime day) {
    switch (WeekdayOf(day).c_encoding()) {
        case 0:
            return series->Sonntag() == kFlagged;
        case 1:
            return series->Montag() == kFlagged;
        case 2:
            return series->Dienstag() == kFlagged;
        case 3:
            return series->Mittwoch() == kFlagged;
        case 4:
            return series->Donnerstag() == kFlagged;
        case 5:
            return series->Freitag() == kFlagged;
        default:
            return series->Samstag() == kFlagged;
    }
}

[[noreturn]] void RaiseNoDay(const Ref<clsSerie>& series) {
    Raise(ErrorNumber::kOverflow,
          "Overflow: the series with the SerienID " + DefaultText(series->SerienID()) +
              " leads to no further day. It has no row, no weekday that is set to -1, or too large a step of weeks.");
}

// A step by the rule of a series. The calendar ends where the rule has found no day before.
DateTime Moved(const Ref<clsSerie>& series, DateTime day, std::int64_t days) try {
    return day.AddDays(To<Int32>(days));
} catch (const Error&) {
    RaiseNoDay(series);
}

DateTime MovedByItsWeeks(const Ref<clsSerie>& series, DateTime day) {
    const std::int64_t weeks = series->Woche();
    return Moved(series, day, weeks * 7);
}

// A turn that has neither made a day nor moved on would be followed by its like for ever.
void RaiseIfStuck(const Ref<clsSerie>& series, bool made_a_day, DateTime before, DateTime after) {
    if (!made_a_day && before == after) RaiseNoDay(series);
}

DateTime NineOClock() { return DateTime::TimeOfDay(9, 0); }

}  // namespace

Bool clsTermin::ErzeugeTerminTage() try {
    if (NewDelOnlyTag_ || !row_.BeginnDatum) return false;
    if (p_dtmOldBeginnDatum_ != row_.BeginnDatum) RebuildDays();
    if (p_dtmOldEndeDatum_ == row_.EndeDatum) return false;
    // The get may load, and a load moves the old end: it comes first.
    const DateTime end = EndeDatum();
    if (end > p_dtmOldEndeDatum_) {
        ExtendDays();
    } else {
        ShrinkDays();
    }
    CorrectEnd();
    return false;
} catch (...) {
    RaiseLabelled("LumoSeminar.clsTermin.ErzeugeTerminTage");
}

void clsTermin::RebuildDays() {
    for (const auto& day : colTerminTage()->NewEnum()) colTerminTage()->Remove(day->Key());
    p_dtmOldBeginnDatum_ = row_.BeginnDatum;
    if (row_.Stunden == 0) row_.Stunden = 8;
    if (row_.Sitzungen == 0) row_.Sitzungen = 1;
    if (row_.SerienID == 0) {
        BuildDaysWithoutSeries();
    } else {
        BuildDaysBySeries();
    }
    p_dtmOldEndeDatum_ = row_.EndeDatum;
}

void clsTermin::BuildDaysWithoutSeries() {
    if (!row_.BeginnUhrzeit) row_.BeginnUhrzeit = NineOClock();
    if (!row_.EndeUhrzeit) row_.EndeUhrzeit = EndOfSession();
    DateTime last_day;
    colTerminTage_->AddTermineEvery(row_.BeginnDatum, kEveryDay, row_.BeginnUhrzeit, row_.EndeUhrzeit, row_.Sitzungen, last_day);
    row_.EndeDatum = last_day;
}

void clsTermin::BuildDaysBySeries() {
    if (!row_.BeginnUhrzeit && row_.SemID != 0) row_.BeginnUhrzeit = objSerie()->BeginnUhrzeit();
    if (!row_.BeginnUhrzeit) row_.BeginnUhrzeit = NineOClock();
    if (!row_.EndeUhrzeit && row_.SemID != 0) row_.EndeUhrzeit = objSerie()->EndeUhrzeit();
    if (!row_.EndeUhrzeit) row_.EndeUhrzeit = EndOfSession();
    DateTime last_day;
    const bool is_daily = objSerie()->Tagefolge() == kDailyRhythm;
    const auto days = colTerminTage();
    const auto series = objSerie();
    if (is_daily) {
        const Byte every_day = series->Taeglich();
        days->AddTermineEvery(row_.BeginnDatum, every_day, row_.BeginnUhrzeit, row_.EndeUhrzeit, row_.Sitzungen, last_day);
    } else {
        days->AddTermineWeekly(row_.BeginnDatum, row_.BeginnUhrzeit, row_.EndeUhrzeit, row_.Sitzungen, series, last_day);
    }
    row_.EndeDatum = last_day;
    // The days keep the times that they were made with.
    row_.BeginnUhrzeit = objSerie()->BeginnUhrzeit();
    row_.EndeUhrzeit = objSerie()->EndeUhrzeit();
}

// The hours spread evenly over the sessions, to four decimals of an hour, then to the minute. In ten-thousandths of an
// hour half a minute is exact and rounds to even.
DateTime clsTermin::EndOfSession() const {
    const Double ten_thousandths = std::nearbyint(row_.Stunden / row_.Sitzungen * 10000);
    return row_.BeginnUhrzeit.AddMinutes(To<Int32>(ten_thousandths * 60 / 10000));
}

void clsTermin::ExtendDays() {
    const auto days = colTerminTage();
    const auto last = days->Item(colTerminTage()->Count());
    const DateTime start = last->Termin().AddDays(1);
    const DateTime from = last->BegUhr();
    const DateTime to = last->EndUhr();
    if (row_.SerienID == 0) {
        colTerminTage_->AddTermineEndeEvery(start, kEveryDay, from, to, row_.EndeDatum);
        return;
    }
    const auto series = objSerie();
    if (series->Tagefolge() == kDailyRhythm) {
        const Byte every_day = series->Taeglich();
        colTerminTage_->AddTermineEndeEvery(start, every_day, from, to, row_.EndeDatum);
    } else {
        colTerminTage_->AddEndeTermineWeekly(start, from, to, series, row_.EndeDatum);
    }
}

// The days go from the table; the list that was walked keeps them.
void clsTermin::ShrinkDays() {
    for (const auto& day : colTerminTage()->NewEnum()) {
        const DateTime end = EndeDatum();
        if (day->Termin() > end) day->RemoveTerminTag();
    }
}

// The end goes to the last day there is, which runs the generation once more with nothing to do. A date without days
// gets one on its first day.
void clsTermin::CorrectEnd() {
    if (colTerminTage_->Count() == 0) {
        colTerminTage_->AddTermineEndeEvery(row_.BeginnDatum.AddDays(1), kEveryDay, row_.BeginnUhrzeit,
                                            row_.EndeUhrzeit, row_.BeginnDatum);
    }
    const auto days = colTerminTage();
    EndeDatum(days->Item(colTerminTage()->Count())->Termin());
}

void clsTermin::TerminTageUpdate() try {
    for (const auto& day : colTerminTage()->NewEnum()) {
        day->BegUhr(row_.BeginnUhrzeit);
        day->EndUhr(row_.EndeUhrzeit);
        day->UpdateDatabase();
    }
} catch (...) {
    RaiseLabelled("LumoSeminar.clsTermin.TerminTageUpdate");
}

void colTerminTage::AddTermineEvery(DateTime p_dtmStart, Byte p_bytTaeglich, DateTime p_dtmBegUhr, DateTime p_dtmEndUhr,
                                    Int32 p_lngSitzungen, DateTime& p_dtmLetzterTag) try {
    DateTime day = p_dtmStart;
    for (Int32 session = 1; session <= p_lngSitzungen; day = day.AddDays(1)) {
        if (p_bytTaeglich != kEveryDay && !IsWorkingDay(day)) continue;
        NewTerminTag(day, p_dtmBegUhr, p_dtmEndUhr);
        p_dtmLetzterTag = day;
        session = LumoSeminar::Add(session, 1);
    }
} catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.AddTermineEvery");
}

void colTerminTage::AddTermineEndeEvery(DateTime p_dtmStart, Byte p_bytTaeglich, DateTime p_dtmBegUhr,
                                        DateTime p_dtmEndUhr, DateTime p_dtmEnde) try {
    bool end_made = false;
    DateTime day = p_dtmStart;
    for (; day <= p_dtmEnde; day = day.AddDays(1)) {
        if (p_bytTaeglich != kEveryDay && !IsWorkingDay(day)) continue;
        NewTerminTag(day, p_dtmBegUhr, p_dtmEndUhr);
        if (day == p_dtmEnde) end_made = true;
    }
    if (day != p_dtmEnde && !end_made) NewTerminTag(p_dtmEnde, p_dtmBegUhr, p_dtmEndUhr);
} catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.AddTermineEndeEvery");
}

void colTerminTage::AddTermineWeekly(DateTime p_dtmStart, DateTime p_dtmBegUhr, DateTime p_dtmEndUhr, Int32 p_lngSitzungen,
                                     const Ref<clsSerie>& p_objSerie, DateTime& p_dtmLetzterTag) try {
    DateTime day = p_dtmStart;
    for (Int32 session = 1; session <= p_lngSitzungen;) {
        const DateTime anchor = day;
        bool made_a_day = false;
        for (int i = 0; i < 7; ++i, day = Moved(p_objSerie, day, 1)) {
            if (!IsFlagged(p_objSerie, day) || session > p_lngSitzungen) continue;
            NewTerminTag(day, p_dtmBegUhr, p_dtmEndUhr);
            p_dtmLetzterTag = day;
            session = LumoSeminar::Add(session, 1);
            made_a_day = true;
        }
        day = MovedByItsWeeks(p_objSerie, anchor);
        RaiseIfStuck(p_objSerie, made_a_day, anchor, day);
    }
} catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.AddTermineWeekly");
}

// Unlike in AddTermineWeekly, the day moves on only where one was made: the first weekday without a flag ends the week.
void colTerminTage::AddEndeTermineWeekly(DateTime p_dtmStart, DateTime p_dtmBegUhr, DateTime p_dtmEndUhr,
                                         const Ref<clsSerie>& p_objSerie, DateTime p_dtmEnde) try {
    bool end_made = false;
    DateTime day = p_dtmStart;
    while (day <= p_dtmEnde) {
        const DateTime anchor = day;
        bool made_a_day = false;
        for (int i = 0; i < 7; ++i) {
            if (!IsFlagged(p_objSerie, day) || day > p_dtmEnde) continue;
            NewTerminTag(day, p_dtmBegUhr, p_dtmEndUhr);
            if (day == p_dtmEnde) end_made = true;
            day = Moved(p_objSerie, day, 1);
            made_a_day = true;
        }
        day = MovedByItsWeeks(p_objSerie, anchor);
        RaiseIfStuck(p_objSerie, made_a_day, anchor, day);
    }
    if (day != p_dtmEnde && !end_made) NewTerminTag(p_dtmEnde, p_dtmBegUhr, p_dtmEndUhr);
} catch (...) {
    RaiseLabelled("LumoSeminar.colTerminTage.AddEndeTermineWeekly");
}

}  // namespace LumoSeminar
