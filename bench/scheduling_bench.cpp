#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include <LumoSeminar/LumoSeminar.h>

#include "ratios.h"
#include "raw.h"
#include "schema.h"

// Dates and their days, against the C interface sending the same statements prepared and bound.

namespace {

using namespace LumoSeminar;
using bench::Copy;
using bench::Raw;

// Moments are whole numbers for the C interface.
constexpr const char* kRawDates =
    "CREATE TABLE Sem_Termin_IT (SemTerminID INTEGER PRIMARY KEY NOT NULL, MDNr INTEGER NOT NULL, Code TEXT, Titel TEXT, "
    "SemID INTEGER, BeginnDatum INTEGER, EndeDatum INTEGER, Bemerkung TEXT)";
constexpr const char* kRawDatesBySeminar = "CREATE INDEX IX_SemID ON Sem_Termin_IT (SemID)";
constexpr const char* kRawDatesByClient = "CREATE INDEX IX_MDNr_EndeDatum ON Sem_Termin_IT (MDNr, EndeDatum)";
constexpr const char* kRawDays =
    "CREATE TABLE Sem_Termin_Termine_IT (SemTerminID INTEGER NOT NULL, Termin INTEGER NOT NULL, BegUhr INTEGER, "
    "EndUhr INTEGER, PRIMARY KEY (SemTerminID, Termin))";

constexpr int kDayCount = 250;
constexpr int kDateCount = 10'000;
constexpr std::int64_t kTicksADay = 25'920'000;

// A begin that moves to and fro: 250 days go one by one, the list of the days being read again for each, and 250 come.
void RebuildDays(benchmark::State& state) {
    const auto session = bench::SchemaDatabase();
    clsTermin date;
    date.Init(1, session);
    date.Sitzungen();
    date.Sitzungen(kDayCount);
    date.BeginnDatum(DateTime::Of(2027, 1, 4));
    bool later = false;
    for (auto _ : state) {
        later = !later;
        date.BeginnDatum(later ? DateTime::Of(2028, 1, 3) : DateTime::Of(2027, 1, 4));
    }
    if (date.colTerminTage()->Count() != kDayCount) state.SkipWithError("wrong days");
}
BENCHMARK(RebuildDays)->Unit(benchmark::kMillisecond);

void RawRebuildDays(benchmark::State& state) {
    Raw raw{kRawDays};
    sqlite3_stmt* list = raw.Prepare("SELECT Termin FROM Sem_Termin_Termine_IT WHERE SemTerminID = ? ORDER BY Termin");
    sqlite3_stmt* remove = raw.Prepare("DELETE FROM Sem_Termin_Termine_IT WHERE SemTerminID = ? AND Termin = ?");
    sqlite3_stmt* insert = raw.Prepare("INSERT INTO Sem_Termin_Termine_IT VALUES (?, ?, ?, ?)");
    std::vector<std::int64_t> days;
    const auto List = [&] {
        days.clear();
        sqlite3_bind_int(list, 1, 1);
        while (sqlite3_step(list) == SQLITE_ROW) days.push_back(sqlite3_column_int64(list, 0));
        sqlite3_reset(list);
    };
    const auto Fill = [&](std::int64_t first) {
        for (int i = 0; i < kDayCount; ++i) {
            sqlite3_bind_int(insert, 1, 1);
            sqlite3_bind_int64(insert, 2, (first + i) * kTicksADay);
            sqlite3_bind_int64(insert, 3, 9 * kTicksADay / 24);
            sqlite3_bind_int64(insert, 4, 17 * kTicksADay / 24);
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
    };
    Fill(40'000);
    bool later = false;
    for (auto _ : state) {
        later = !later;
        List();
        const std::vector<std::int64_t> old = days;
        for (const std::int64_t day : old) {
            List();
            sqlite3_bind_int(remove, 1, 1);
            sqlite3_bind_int64(remove, 2, day);
            sqlite3_step(remove);
            sqlite3_reset(remove);
        }
        Fill(later ? 40'400 : 40'000);
    }
    List();
    if (days.size() != kDayCount) state.SkipWithError("wrong days");
    for (auto* statement : {list, remove, insert}) sqlite3_finalize(statement);
}
BENCHMARK(RawRebuildDays)->Unit(benchmark::kMillisecond);

constexpr const char* kTitle = "Brandschutz für Führungskräfte, Teil ";

void ListDates(benchmark::State& state) {
    const auto session = bench::SchemaDatabase();
    for (int key = 1; key <= kDateCount; ++key) {
        const std::string number = std::to_string(key);
        std::string sql = "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, Code, Titel, SemID, EndeDatum) VALUES (";
        sql.append(number).append(",5,'T-").append(number).append("','").append(kTitle).append(number).append("',7,");
        sql.append(key % 20 == 0 ? "NULL)" : "'" + CompactDateText(DateTime(40'000.0 + key * 7 % 3000)) + "')");
        bench::Execute(*session, sql);
    }
    for (auto _ : state) {
        colTermine list;
        (void)list.Init(7, 5, session);
        std::size_t length = 0;
        double days = 0;
        for (const auto& date : list.NewEnum()) {
            days += date->EndeDatum(false).Days();
            length += date->Titel(false).size() + date->Code(false).size();
        }
        if (list.Count() != kDateCount || length < kDateCount || days < kDateCount) state.SkipWithError("wrong rows");
    }
    state.SetItemsProcessed(state.iterations() * kDateCount);
}
BENCHMARK(ListDates)->Unit(benchmark::kMillisecond);

struct RawDate {
    std::int64_t key, end;
    std::string title, code;
};

void RawListDates(benchmark::State& state) {
    Raw raw{kRawDates, kRawDatesBySeminar, kRawDatesByClient};
    raw.Run("BEGIN");
    for (int key = 1; key <= kDateCount; ++key) {
        const std::string number = std::to_string(key);
        std::string sql = "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, Code, Titel, SemID, EndeDatum) VALUES (";
        sql.append(number).append(",5,'T-").append(number).append("','").append(kTitle).append(number).append("',7,");
        sql.append(key % 20 == 0 ? "NULL)" : std::to_string((40'000 + key * 7 % 3000) * kTicksADay) + ")");
        raw.Run(sql);
    }
    raw.Run("COMMIT");
    sqlite3_stmt* list = raw.Prepare(
        "SELECT SemTerminID, EndeDatum, Titel, Code FROM Sem_Termin_IT WHERE (SemID = ?) AND (MDNr = ? OR MDNr = -1) "
        "ORDER BY ifnull(EndeDatum, ?) DESC, SemTerminID ASC");
    const std::int64_t today = 46'000 * kTicksADay;
    for (auto _ : state) {
        std::vector<RawDate> dates;
        sqlite3_bind_int(list, 1, 7);
        sqlite3_bind_int(list, 2, 5);
        sqlite3_bind_int64(list, 3, today);
        while (sqlite3_step(list) == SQLITE_ROW) {
            RawDate& date = dates.emplace_back();
            date.key = sqlite3_column_int64(list, 0);
            date.end = sqlite3_column_type(list, 1) == SQLITE_NULL ? today : sqlite3_column_int64(list, 1);
            Copy(list, 2, date.title);
            Copy(list, 3, date.code);
        }
        sqlite3_reset(list);
        std::size_t length = 0;
        std::int64_t days = 0;
        for (const RawDate& date : dates) {
            days += date.end / kTicksADay;
            length += date.title.size() + date.code.size();
        }
        if (dates.size() != kDateCount || length < kDateCount || days < kDateCount) state.SkipWithError("wrong rows");
    }
    sqlite3_finalize(list);
}
BENCHMARK(RawListDates)->Unit(benchmark::kMillisecond);

const bench::Add kRebuild(bench::Ratio{"A date with 250 days gets another begin, against SQLite prepared and bound",
                                       "RebuildDays", "RawRebuildDays", 2.5});
const bench::Add kList(bench::Ratio{"10,000 dates listed with end, title and code, against SQLite prepared and bound",
                                    "ListDates", "RawListDates", 2.5});

}  // namespace
