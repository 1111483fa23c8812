#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include <LumoSeminar/LumoSeminar.h>

#include "ratios.h"
#include "raw.h"
#include "schema.h"

// The wait-list of one date, in one statement, against the C interface stepping the same rows into plain structs.

namespace {

using namespace LumoSeminar;
using bench::Copy;
using bench::Raw;

constexpr int kEntries = 10'000;
constexpr int kDate = 3;

Ref<DataSession> WaitList() {
    auto session = bench::SchemaDatabase();
    for (int key = 1; key <= kEntries; ++key) {
        const std::string number = std::to_string(key);
        bench::Execute(*session, "INSERT INTO Sem_Warteliste_IT VALUES (" + number + ",2,5," + number +
                                     ",'20270110 09:30',3,'20270301',-1,'20270111 10:45','Jürgen')");
        bench::Execute(*session, "INSERT INTO Sem_WartelisteTermin_IT VALUES (" + number + "," + std::to_string(kDate) + ")");
    }
    return session;
}

void ReadWaitList(benchmark::State& state) {
    const auto session = WaitList();
    for (auto _ : state) {
        colSemWarteliste list;
        list.LoadListSeminartermin(session, kDate);
        std::int64_t sum = 0;
        double days = 0;
        for (const auto& entry : list.NewEnum()) {
            sum += entry->SemWartelisteID() + entry->ModId() + entry->MDNR() + entry->TNID() + entry->Herkunft() +
                   entry->SemTerminID() + entry->SemID() + entry->Status();
            days += entry->ErfDat().Days() + entry->Wunschtermin().Days() + entry->GeaendertAm().Days();
            sum += static_cast<std::int64_t>(entry->GeaendertVon().size());
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(days);
        if (list.Count() != kEntries) state.SkipWithError("wrong rows");
    }
    state.SetItemsProcessed(state.iterations() * kEntries);
}
BENCHMARK(ReadWaitList)->Unit(benchmark::kMillisecond);

struct RawEntry {
    std::int64_t numbers[11] = {};
    std::string changed_by;
};

void RawReadWaitList(benchmark::State& state) {
    Raw raw{
        "CREATE TABLE Sem_Warteliste_IT (SemWarteListeID INTEGER PRIMARY KEY NOT NULL, ModID INTEGER, MDNr INTEGER, TNID "
        "INTEGER, ErfDat INTEGER, Herkunft INTEGER, Wunschtermin INTEGER, Status INTEGER, GeaendertAm INTEGER, GeaendertVon "
        "TEXT)",
        "CREATE INDEX IX_W ON Sem_Warteliste_IT (MDNr, TNID)",
        "CREATE TABLE Sem_WartelisteTermin_IT (SemWarteListeID INTEGER NOT NULL, SemTerminID INTEGER NOT NULL, PRIMARY KEY "
        "(SemWarteListeID, SemTerminID))",
        "CREATE INDEX IX_T ON Sem_WartelisteTermin_IT (SemTerminID)",
        "CREATE TABLE Sem_WartelisteSem_IT (SemWarteListeID INTEGER NOT NULL, SemID INTEGER NOT NULL, PRIMARY KEY "
        "(SemWarteListeID, SemID))",
        "CREATE INDEX IX_S ON Sem_WartelisteSem_IT (SemID)"};
    raw.Run("BEGIN");
    for (int key = 1; key <= kEntries; ++key) {
        const std::string number = std::to_string(key);
        raw.Run("INSERT INTO Sem_Warteliste_IT VALUES (" + number + ",2,5," + number + ",1200000,3,1200001,-1,1200002,'Jürgen')");
        raw.Run("INSERT INTO Sem_WartelisteTermin_IT VALUES (" + number + "," + std::to_string(kDate) + ")");
    }
    raw.Run("COMMIT");
    sqlite3_stmt* select = raw.Prepare(
        "SELECT w.SemWarteListeID, w.ModID, w.MDNr, w.TNID, w.ErfDat, w.Herkunft, w.Wunschtermin, t.SemTerminID, s.SemID, "
        "w.Status, w.GeaendertAm, w.GeaendertVon FROM Sem_Warteliste_IT w LEFT OUTER JOIN Sem_WartelisteTermin_IT t ON "
        "w.SemWarteListeID = t.SemWarteListeID LEFT OUTER JOIN Sem_WartelisteSem_IT s ON w.SemWarteListeID = "
        "s.SemWarteListeID WHERE t.SemTerminID = ? ORDER BY w.ErfDat");
    for (auto _ : state) {
        std::vector<RawEntry> entries;
        sqlite3_bind_int(select, 1, kDate);
        while (sqlite3_step(select) == SQLITE_ROW) {
            RawEntry& entry = entries.emplace_back();
            for (int column = 0; column < 11; ++column) entry.numbers[column] = sqlite3_column_int64(select, column);
            Copy(select, 11, entry.changed_by);
        }
        sqlite3_reset(select);
        std::int64_t sum = 0;
        for (const auto& entry : entries) {
            for (const std::int64_t number : entry.numbers) sum += number;
            sum += static_cast<std::int64_t>(entry.changed_by.size());
        }
        benchmark::DoNotOptimize(sum);
        if (entries.size() != kEntries) state.SkipWithError("wrong rows");
    }
    sqlite3_finalize(select);
    state.SetItemsProcessed(state.iterations() * kEntries);
}
BENCHMARK(RawReadWaitList)->Unit(benchmark::kMillisecond);

const bench::Add kRead(bench::Ratio{"A wait-list of 10,000 entries and all their properties, against SQLite into plain structs",
                                    "ReadWaitList", "RawReadWaitList", 2.5});

}  // namespace
