#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>

#include <charconv>
#include <string>

#include <LumoConnection/embedded/session.h>
#include <LumoSeminar/LumoSeminar.h>

#include "ratios.h"

namespace {

using namespace LumoSeminar;

constexpr const char* kTable =
    "CREATE TABLE Sem_Katalog_IT (SemID int NOT NULL PRIMARY KEY, MDNr int NOT NULL, SemCode nvarchar(20) NULL, "
    "SemTitel nvarchar(255) NULL, Sachbearbeiter int NULL, Status int NULL, InhaltZielID int NULL, TeilnehmerMIN int NULL, "
    "TeilnehmerMAX int NULL, TeilnehmerOPT int NULL, Stunden float NULL, Sitzungen int NULL, SerienID int NULL, "
    "KostenProTN money NULL, Anzahlung money NULL, Stornokosten money NULL, Abbruchkosten money NULL, FristStorno int NULL, "
    "FristAbbruch int NULL, FristAnmeldung int NULL, Wiederholung int NULL)";

// The same table for the C interface: money as ten-thousandths.
constexpr const char* kRawTable =
    "CREATE TABLE Sem_Katalog_IT (SemID INTEGER PRIMARY KEY NOT NULL, MDNr INTEGER NOT NULL, SemCode TEXT, SemTitel TEXT, "
    "Sachbearbeiter INTEGER, Status INTEGER, InhaltZielID INTEGER, TeilnehmerMIN INTEGER, TeilnehmerMAX INTEGER, TeilnehmerOPT "
    "INTEGER, Stunden REAL, Sitzungen INTEGER, SerienID INTEGER, KostenProTN INTEGER, Anzahlung INTEGER, Stornokosten INTEGER, "
    "Abbruchkosten INTEGER, FristStorno INTEGER, FristAbbruch INTEGER, FristAnmeldung INTEGER, Wiederholung INTEGER) STRICT";

constexpr const char* kRawKeys = "SELECT SemID FROM Sem_Katalog_IT WHERE (MDNr = 5 or MDNR = -1)";
constexpr const char* kRawSelect =
    "SELECT MDNr, SemCode, SemTitel, Sachbearbeiter, Status, InhaltZielID, TeilnehmerMIN, TeilnehmerMAX, TeilnehmerOPT, Stunden, "
    "Sitzungen, SerienID, KostenProTN, Anzahlung, Stornokosten, Abbruchkosten, FristStorno, FristAbbruch, FristAnmeldung, "
    "Wiederholung FROM Sem_Katalog_IT WHERE SemID = ";

void FillSeminar(clsSeminar& seminar, int key) {
    seminar.SemID(key);
    seminar.MDNR(key % 10 == 0 ? -1 : 5);
    seminar.SemCode("BS-" + std::to_string(key));
    seminar.SemTitel("Brandschutz für Führungskräfte, Teil " + std::to_string(key));
    seminar.Sachbearbeiter(12);
    seminar.Status(1);
    seminar.TeilnehmerMIN(4);
    seminar.TeilnehmerMAX(12);
    seminar.TeilnehmerOPT(8);
    seminar.Stunden(7.5);
    seminar.Sitzungen(2);
    seminar.KostenProTN(Money::FromUnits(1'205'000));
    seminar.StornoKosten(Money(25));
    seminar.FristStorno(14);
    seminar.FristAnmeldung(7);
}

Ref<DataSession> Catalogue(int count) {
    auto session = New<LumoConnection::EmbeddedSession>();
    if (!session->Connect("Provider=Embedded;Data Source=:memory:", "", "", 30) || !session->ExecuteSql(kTable)) {
        Raise(9999, session->LastErrorText());
    }
    for (int key = 1; key <= count; ++key) {
        clsSeminar seminar;
        seminar.Init(0, session);
        FillSeminar(seminar, key);
        seminar.WriteToDatabase();
    }
    return session;
}

// Takes every statement and keeps nothing of it but its length.
class Sink final : public DataSession {
  public:
    Bool Connect(const Text&, const Text&, const Text&, Int32) override { return true; }
    Ref<Connection> AdoConnection() override { return nullptr; }
    Ref<RecordSet> Recordset() override { return nullptr; }
    Bool OpenSelect(const Text&) override { return false; }
    Bool ExecuteSql(const Text& sql) override {
        length += sql.size();
        return true;
    }
    Variant LookupValue(const Text&, const Text&, const Text&) override { return Variant::Null(); }
    Text LastErrorText() override { return {}; }

    std::size_t length = 0;
};

void BuildInsert(benchmark::State& state) {
    auto sink = New<Sink>();
    clsSeminar seminar;
    seminar.Init(0, sink);
    FillSeminar(seminar, 4711);
    for (auto _ : state) benchmark::DoNotOptimize(seminar.WriteToDatabase());
    state.counters["bytes"] = static_cast<double>(sink->length) / static_cast<double>(state.iterations());
}
BENCHMARK(BuildInsert);

// The same text by hand, of the same values in a plain struct.
struct PlainSeminar {
    int key = 4711;
    int client = 5;
    std::string code = "BS-4711";
    std::string title = "Brandschutz für Führungskräfte, Teil 4711";
    int clerk = 12, status = 1, content = 0, least = 4, most = 12, best = 8;
    double hours = 7.5;
    int sessions = 2, series = 0;
    std::int64_t cost = 1'205'000, deposit = 0, cancel = 250'000, abort = 0;
    int cancel_days = 14, abort_days = 0, enrol_days = 7, again = 0;
};

void AppendOptional(std::string& to, int value) {
    if (value == 0) {
        to += "NUll";
    } else {
        to += std::to_string(value);
    }
}

void AppendOptionalMoney(std::string& to, std::int64_t units) {
    if (units == 0) {
        to += "NUll";
        return;
    }
    to += std::to_string(units / 10'000);
    if (const auto rest = units % 10'000; rest != 0) {
        std::string decimals = std::to_string(10'000 + rest).substr(1);
        decimals.erase(decimals.find_last_not_of('0') + 1);
        to += '.';
        to += decimals;
    }
}

std::string InsertByHand(const PlainSeminar& s) {
    std::string sql;
    sql.reserve(600);
    sql +=
        "INSERT INTO Sem_Katalog_IT (SemID, MDNr, SemCode, SemTitel, Sachbearbeiter, Status, InhaltZielID, TeilnehmerMIN, "
        "TeilnehmerMAX, TeilnehmerOPT, Stunden, Sitzungen, SerienID, KostenProTN, Anzahlung, Stornokosten, Abbruchkosten, "
        "FristStorno, FristAbbruch, FristAnmeldung, Wiederholung) VALUES (";
    sql += std::to_string(s.key);
    sql += ',';
    sql += std::to_string(s.client);
    sql += ",'";
    sql += s.code;
    sql += "','";
    sql += s.title.empty() ? "<neues Seminar>" : s.title;
    sql += "',";
    AppendOptional(sql, s.clerk);
    sql += ',';
    sql += std::to_string(s.status == 0 ? 1 : s.status);
    for (const int value : {s.content, s.least, s.most, s.best}) {
        sql += ',';
        AppendOptional(sql, value);
    }
    sql += ',';
    char hours[32];
    sql.append(hours, std::to_chars(hours, hours + sizeof hours, s.hours == 0 ? 8 : s.hours).ptr);
    sql += ',';
    sql += std::to_string(s.sessions == 0 ? 1 : s.sessions);
    sql += ',';
    AppendOptional(sql, s.series);
    for (const std::int64_t value : {s.cost, s.deposit, s.cancel, s.abort}) {
        sql += ',';
        AppendOptionalMoney(sql, value);
    }
    for (const int value : {s.cancel_days, s.abort_days, s.enrol_days, s.again}) {
        sql += ',';
        AppendOptional(sql, value);
    }
    sql += ')';
    return sql;
}

void BuildInsertByHand(benchmark::State& state) {
    PlainSeminar seminar;
    std::size_t length = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(seminar);
        std::string sql = InsertByHand(seminar);
        length += sql.size();
        benchmark::DoNotOptimize(sql);
    }
    state.counters["bytes"] = static_cast<double>(length) / static_cast<double>(state.iterations());
}
BENCHMARK(BuildInsertByHand);

void ListAndRead(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const auto session = Catalogue(count);
    for (auto _ : state) {
        colSeminare list;
        (void)list.Init(5, session);
        std::size_t length = 0;
        for (const auto& seminar : list.NewEnum()) length += seminar->SemTitel().size();
        if (list.Count() != count || length < static_cast<std::size_t>(count)) state.SkipWithError("wrong rows");
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(ListAndRead)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

struct RawDatabase {
    explicit RawDatabase(int count) {
        sqlite3_open(":memory:", &database);
        Run(kRawTable);
        Run("BEGIN");
        for (int key = 1; key <= count; ++key) {
            const std::string number = std::to_string(key);
            std::string sql = "INSERT INTO Sem_Katalog_IT VALUES (";
            sql.append(number).append(key % 10 == 0 ? ",-1" : ",5").append(",'BS-").append(number);
            sql.append("','Brandschutz für Führungskräfte, Teil ").append(number);
            sql.append("',12,1,NULL,4,12,8,7.5,2,NULL,1205000,NULL,250000,NULL,14,NULL,7,NULL)");
            Run(sql.c_str());
        }
        Run("COMMIT");
    }
    ~RawDatabase() { sqlite3_close(database); }
    RawDatabase(const RawDatabase&) = delete;
    RawDatabase& operator=(const RawDatabase&) = delete;

    void Run(const char* sql) { sqlite3_exec(database, sql, nullptr, nullptr, nullptr); }

    sqlite3_stmt* Prepare(const std::string& sql) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database, sql.c_str(), static_cast<int>(sql.size()), &statement, nullptr);
        return statement;
    }

    sqlite3* database = nullptr;
};

struct RawSeminar {
    std::int64_t numbers[17] = {};
    double hours = 0;
    std::string code, title;
};

void ReadColumns(sqlite3_stmt* statement, RawSeminar& seminar) {
    for (int column = 0, number = 0; column < 20; ++column) {
        if (column == 1 || column == 2) {
            const auto* text = static_cast<const char*>(static_cast<const void*>(sqlite3_column_text(statement, column)));
            (column == 1 ? seminar.code : seminar.title).assign(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
        } else if (column == 9) {
            seminar.hours = sqlite3_column_double(statement, column);
        } else {
            seminar.numbers[number++] = sqlite3_column_int64(statement, column);
        }
    }
}

void RawPreparedOnce(benchmark::State& state) {
    RawDatabase raw(static_cast<int>(state.range(0)));
    sqlite3_stmt* keys = raw.Prepare(kRawKeys);
    sqlite3_stmt* select = raw.Prepare(std::string(kRawSelect) + "?");
    RawSeminar seminar;
    for (auto _ : state) {
        std::vector<int> listed;
        while (sqlite3_step(keys) == SQLITE_ROW) listed.push_back(sqlite3_column_int(keys, 0));
        sqlite3_reset(keys);
        std::size_t length = 0;
        for (const int key : listed) {
            sqlite3_bind_int(select, 1, key);
            if (sqlite3_step(select) == SQLITE_ROW) ReadColumns(select, seminar);
            sqlite3_reset(select);
            length += seminar.title.size();
        }
        if (length < listed.size() || static_cast<std::int64_t>(listed.size()) != state.range(0))
            state.SkipWithError("wrong rows");
    }
    sqlite3_finalize(select);
    sqlite3_finalize(keys);
}
BENCHMARK(RawPreparedOnce)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void RawPreparedEachTime(benchmark::State& state) {
    RawDatabase raw(static_cast<int>(state.range(0)));
    RawSeminar seminar;
    for (auto _ : state) {
        std::vector<int> listed;
        sqlite3_stmt* keys = raw.Prepare(kRawKeys);
        while (sqlite3_step(keys) == SQLITE_ROW) listed.push_back(sqlite3_column_int(keys, 0));
        sqlite3_finalize(keys);
        std::size_t length = 0;
        for (const int key : listed) {
            sqlite3_stmt* select = raw.Prepare(kRawSelect + std::to_string(key));
            if (sqlite3_step(select) == SQLITE_ROW) ReadColumns(select, seminar);
            sqlite3_finalize(select);
            length += seminar.title.size();
        }
        if (length < listed.size() || static_cast<std::int64_t>(listed.size()) != state.range(0))
            state.SkipWithError("wrong rows");
    }
}
BENCHMARK(RawPreparedEachTime)->Arg(10'000)->Unit(benchmark::kMillisecond);

// What a listed, not yet loaded seminar takes of the heap, list and block headers included.
bench::Figure MeasureListedSeminar() {
    constexpr int kCount = 10'000;
    const auto session = Catalogue(kCount);
    const auto fill = [&](colSeminare& list) { (void)list.Init(5, session); };
    {
        colSeminare warm_up;
        fill(warm_up);
    }
    const auto before = mallinfo2();
    colSeminare list;
    fill(list);
    (void)session->OpenSelect("SELECT SemID FROM Sem_Katalog_IT WHERE SemID = 0");  // lets go of the list's row set
    const auto after = mallinfo2();
    const double bytes =
        static_cast<double>(after.uordblks + after.hblkhd) - static_cast<double>(before.uordblks + before.hblkhd);
    return {"A listed, not yet loaded seminar, everything counted", bytes / kCount, 600, "bytes"};
}

const bench::Add kMemory(MeasureListedSeminar);
const bench::Add kInsertText(bench::Ratio{"INSERT text of a seminar, against hand-written appends of the same text",
                                          "BuildInsert", "BuildInsertByHand", 1.5});
const bench::Add kListPrepared(bench::Ratio{"10,000 seminars listed, one property of each, against SQLite prepared and bound",
                                            "ListAndRead/10000", "RawPreparedOnce/10000", 2.5});
const bench::Add kListAnew(bench::Ratio{"The same, against SQLite preparing each text anew", "ListAndRead/10000",
                                        "RawPreparedEachTime/10000", 0.4});
const bench::Add kLinear(bench::Ratio{"100,000 seminars, against 10,000 (linear: 10)", "ListAndRead/100000",
                                      "ListAndRead/10000", 15});
const bench::Add kLinearSmall(bench::Ratio{"10,000 seminars, against 1,000 (linear: 10)", "ListAndRead/10000",
                                           "ListAndRead/1000", 15});

}  // namespace
