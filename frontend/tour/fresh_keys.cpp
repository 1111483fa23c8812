#include "frontend/tour/fresh_keys.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>

namespace frontend {

using namespace LumoSeminar;

namespace {

struct Use {
    const char* table;
    const char* column;
    const char* where = "";
};

struct Keys {
    const char* table;
    const char* column;
    // the other columns that must have a value, and those values
    const char* others;
    const char* values;
    std::vector<Use> used_in;
};

const std::vector<Keys>& AllKeys() {
    static const std::vector<Keys> keys = {
        {"Sem_Katalog_IT",
         "SemID",
         ", MDNr",
         ", 0",
         {{"Sem_Termin_IT", "SemID"},
          {"Sem_WartelisteSem_IT", "SemID"},
          {"Sem_Schwerpunkte_IT", "SemID"},
          {"Sem_Zielgruppen_IT", "SemID"},
          {"Sem_Anford_Seminare", "SemID"},
          {"Sem_Anford_Seminare", "gef_SemID"},
          {"Sem_Anford_Faehigkeiten", "SemID"}}},
        {"Sem_Termin_IT",
         "SemTerminID",
         ", MDNr",
         ", 0",
         {{"Sem_Termin_Termine_IT", "SemTerminID"},
          {"Sem_Termin_Schwerpunkte_IT", "SemTerminID"},
          {"Sem_Teilnehmer_IT", "SemTerminID"},
          {"Sem_WartelisteTermin_IT", "SemTerminID"}}},
        {"Sem_Serien_IT", "SerienID", "", "", {{"Sem_Katalog_IT", "SerienID"}, {"Sem_Termin_IT", "SerienID"}}},
        {"Sem_Teilnehmer_IT", "TeilnehmerID", ", SemTerminID", ", -1", {{"Sem_Teilnehmer_Kosten_IT", "TeilnehmerID"}}},
        {"Sem_Warteliste_IT",
         "SemWarteListeID",
         "",
         "",
         {{"Sem_WartelisteTermin_IT", "SemWarteListeID"},
          {"Sem_WartelisteSem_IT", "SemWarteListeID"},
          {"Sem_ProzessSchritt_IT", "SchluesselID", "ModulNr = 8"}}},
        {"AN_WBBedarf_IT", "WBID", "", "", {{"Sem_ProzessSchritt_IT", "SchluesselID", "ModulNr = 7"}}},
    };
    return keys;
}

Int32 Largest(DataSession& session, const Use& use) {
    const auto largest = session.LookupValue(fmt::format("max({})", use.column), use.table, use.where);
    return largest.IsNull() ? 0 : To<Int32>(largest);
}

}  // namespace

FreshKeys::FreshKeys(const Ref<DataSession>& session) : session_(session) {
    for (const auto& keys : AllKeys()) {
        Int32 in_use = 0;
        for (const auto& use : keys.used_in) in_use = std::max(in_use, Largest(*session, use));
        if (in_use <= Largest(*session, {keys.table, keys.column})) continue;
        if (!session->ExecuteSql(fmt::format("INSERT INTO {} ({}{}) VALUES ({}{})", keys.table, keys.column,
                                             keys.others, in_use, keys.values))) {
            const Text refusal = session->LastErrorText();
            TakeBack();
            RaiseRefused(refusal);
        }
        take_back_.push_back(fmt::format("DELETE FROM {} WHERE {} = {}", keys.table, keys.column, in_use));
    }
}

FreshKeys::~FreshKeys() { TakeBack(); }

void FreshKeys::TakeBack() noexcept {
    for (const auto& statement : take_back_) {
        bool removed = false;
        try {
            removed = bool(session_->ExecuteSql(statement));
        } catch (...) {
        }
        if (!removed)
            std::fprintf(stderr, "lumoseminar: A row of the tour could not be removed: %s.\n", statement.c_str());
    }
    take_back_.clear();
}

}  // namespace frontend
