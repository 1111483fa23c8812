#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include <LumoConnection/embedded/catalog.h>
#include <LumoConnection/embedded/check.h>
#include <LumoConnection/embedded/lexer.h>
#include <LumoConnection/embedded/parser.h>
#include <LumoConnection/embedded/plan.h>
#include <LumoConnection/embedded/print.h>
#include <LumoConnection/embedded/session.h>
#include <LumoConnection/embedded/sqlite.h>

#include "ratios.h"
#include "raw.h"

// The embedded database against the SQLite underneath it. Both sides keep the same values in the same columns of a
// database in memory, opened with the same options; moments are whole numbers and money ten-thousandths for the C
// interface too.

namespace {

using namespace LumoConnection;
using bench::Copy;
using bench::Raw;
using bench::Stop;

constexpr const char* kSeminars =
    "CREATE TABLE Sem_Katalog_IT (SemID int NOT NULL PRIMARY KEY, MDNr int NOT NULL, SemCode nvarchar(20) NULL, "
    "SemTitel nvarchar(255) NULL, Sachbearbeiter int NULL, Status int NULL, InhaltZielID int NULL, TeilnehmerMIN int NULL, "
    "TeilnehmerMAX int NULL, TeilnehmerOPT int NULL, Stunden float NULL, Sitzungen int NULL, SerienID int NULL, "
    "KostenProTN money NULL, Anzahlung money NULL, Stornokosten money NULL, Abbruchkosten money NULL, FristStorno int NULL, "
    "FristAbbruch int NULL, FristAnmeldung int NULL, Wiederholung int NULL)";

constexpr const char* kParticipants =
    "CREATE TABLE Sem_Teilnehmer_IT (TeilnehmerID int NOT NULL PRIMARY KEY, SemTerminID int NOT NULL, MDNr int NULL, "
    "ANNr int NULL, BWID int NULL, LAID int NULL, ErfDatum datetime NULL, ErfUser nvarchar(50) NULL, Teilnahme smallint NULL, "
    "Herkunft int NULL, BeginnDatum datetime NULL, BegUhrzeit datetime NULL, EndeDatum datetime NULL, EndUhrzeit datetime NULL, "
    "storniertam datetime NULL, StornoGrund int NULL, StornoKosten smallint NULL, Ergebnis int NULL, Bemerkung nvarchar(255) NULL)";

constexpr const char* kRawSeminars =
    "CREATE TABLE Sem_Katalog_IT (SemID INTEGER PRIMARY KEY NOT NULL, MDNr INTEGER NOT NULL, SemCode TEXT, SemTitel TEXT, "
    "Sachbearbeiter INTEGER, Status INTEGER, InhaltZielID INTEGER, TeilnehmerMIN INTEGER, TeilnehmerMAX INTEGER, TeilnehmerOPT "
    "INTEGER, Stunden REAL, Sitzungen INTEGER, SerienID INTEGER, KostenProTN INTEGER, Anzahlung INTEGER, Stornokosten INTEGER, "
    "Abbruchkosten INTEGER, FristStorno INTEGER, FristAbbruch INTEGER, FristAnmeldung INTEGER, Wiederholung INTEGER)";

constexpr const char* kRawParticipants =
    "CREATE TABLE Sem_Teilnehmer_IT (TeilnehmerID INTEGER PRIMARY KEY NOT NULL, SemTerminID INTEGER NOT NULL, MDNr INTEGER, "
    "ANNr INTEGER, BWID INTEGER, LAID INTEGER, ErfDatum INTEGER, ErfUser TEXT, Teilnahme INTEGER, Herkunft INTEGER, "
    "BeginnDatum INTEGER, BegUhrzeit INTEGER, EndeDatum INTEGER, EndUhrzeit INTEGER, storniertam INTEGER, StornoGrund INTEGER, "
    "StornoKosten INTEGER, Ergebnis INTEGER, Bemerkung TEXT)";

void Execute(EmbeddedSession& session, const std::string& sql) {
    if (!session.ExecuteSql(sql)) Stop(session.LastErrorText() + " in " + sql);
}

void Open(EmbeddedSession& session) {
    if (!session.Connect("Provider=Embedded;Data Source=:memory:", "", "", 30)) Stop(session.LastErrorText());
    Execute(session, kSeminars);
    Execute(session, kParticipants);
}

// One row by its key.

constexpr int kSeminarCount = 10'000;
constexpr const char* kSelectSeminar =
    "SELECT MDNr, SemCode, SemTitel, Sachbearbeiter, Status, InhaltZielID, TeilnehmerMIN, TeilnehmerMAX, TeilnehmerOPT, Stunden, "
    "Sitzungen, SerienID, KostenProTN, Anzahlung, Stornokosten, Abbruchkosten, FristStorno, FristAbbruch, FristAnmeldung, "
    "Wiederholung FROM Sem_Katalog_IT WHERE SemID = ";
constexpr int kSeminarColumns = 20;
constexpr int kCode = 1;
constexpr int kTitle = 2;
constexpr int kHours = 9;
constexpr int kFirstCost = 12;
constexpr int kLastCost = 15;

struct Seminar {
    std::int64_t numbers[kSeminarColumns] = {};
    double hours = 0;
    std::string code, title;
};

std::string InsertSeminar(int key, bool raw) {
    const std::string number = std::to_string(key);
    const std::string cost = raw ? "1205000" : "120.50";
    return "INSERT INTO Sem_Katalog_IT VALUES (" + number + ",5,'BS-" + number + "','Brandschutz für Führungskräfte, Teil " +
           number + "',12,1,NULL,4,12,8,7.5,2,NULL," + cost + ",NULL," + cost + ",NULL,14,NULL,7,NULL)";
}

EmbeddedSession& SeminarSession() {
    static EmbeddedSession& session = *[] {
        auto* made = new EmbeddedSession();
        Open(*made);
        for (int key = 1; key <= kSeminarCount; ++key) Execute(*made, InsertSeminar(key, false));
        return made;
    }();
    return session;
}

Raw& RawSeminars() {
    static Raw& raw = *[] {
        auto* made = new Raw{kRawSeminars, kRawParticipants};
        made->Run("BEGIN");
        for (int key = 1; key <= kSeminarCount; ++key) made->Run(InsertSeminar(key, true));
        made->Run("COMMIT");
        return made;
    }();
    return raw;
}

int NextKey(int key) { return key * 7919 % kSeminarCount + 1; }

void Read(RecordSet& rows, Seminar& seminar) {
    const Fields fields = rows.Fields();
    for (Int16 column = 0; column < kSeminarColumns; ++column) {
        const Variant value = fields.Item(column).Value();
        if (const auto* number = value.If<Int32>()) {
            seminar.numbers[column] = *number;
        } else if (const auto* text = value.If<Text>()) {
            (column == kCode ? seminar.code : seminar.title) = *text;
        } else if (const auto* real = value.If<Double>()) {
            seminar.hours = *real;
        } else if (const auto* money = value.If<Money>()) {
            seminar.numbers[column] = money->Units();
        } else {
            seminar.numbers[column] = 0;
        }
    }
}

void Read(sqlite3_stmt* statement, Seminar& seminar) {
    for (int column = 0; column < kSeminarColumns; ++column) {
        if (column == kCode) {
            Copy(statement, column, seminar.code);
        } else if (column == kTitle) {
            Copy(statement, column, seminar.title);
        } else if (column == kHours) {
            seminar.hours = sqlite3_column_double(statement, column);
        } else {
            seminar.numbers[column] = sqlite3_column_int64(statement, column);
        }
    }
}

// Both sides have to have read the same.
bool AreAlike(const Seminar& seminar, int key) {
    std::int64_t cost = 0;
    for (int column = kFirstCost; column <= kLastCost; ++column) cost += seminar.numbers[column];
    return seminar.code == "BS-" + std::to_string(key) && seminar.title.size() > 20 && seminar.hours == 7.5 && cost == 2'410'000;
}

void SelectByKey(benchmark::State& state) {
    EmbeddedSession& session = SeminarSession();
    Seminar seminar;
    int key = 1;
    for (auto _ : state) {
        key = NextKey(key);
        std::string sql = kSelectSeminar;
        sql += std::to_string(key);
        if (!session.OpenSelect(sql)) Stop(session.LastErrorText());
        Read(*session.Recordset(), seminar);
        benchmark::DoNotOptimize(seminar);
    }
    if (!AreAlike(seminar, key)) state.SkipWithError("wrong row");
}
BENCHMARK(SelectByKey);

void RawSelectByKey(benchmark::State& state) {
    sqlite3_stmt* select = RawSeminars().Prepare(std::string(kSelectSeminar) + "?");
    Seminar seminar;
    int key = 1;
    for (auto _ : state) {
        key = NextKey(key);
        sqlite3_bind_int(select, 1, key);
        if (sqlite3_step(select) == SQLITE_ROW) Read(select, seminar);
        sqlite3_reset(select);
        benchmark::DoNotOptimize(seminar);
    }
    if (!AreAlike(seminar, key)) state.SkipWithError("wrong row");
    sqlite3_finalize(select);
}
BENCHMARK(RawSelectByKey);

void RawSelectByKeyAnew(benchmark::State& state) {
    Raw& raw = RawSeminars();
    Seminar seminar;
    int key = 1;
    for (auto _ : state) {
        key = NextKey(key);
        std::string sql = kSelectSeminar;
        sql += std::to_string(key);
        sqlite3_stmt* select = raw.Prepare(sql);
        if (sqlite3_step(select) == SQLITE_ROW) Read(select, seminar);
        sqlite3_finalize(select);
        benchmark::DoNotOptimize(seminar);
    }
    if (!AreAlike(seminar, key)) state.SkipWithError("wrong row");
}
BENCHMARK(RawSelectByKeyAnew);

// Participants, each with the next key worked out inside the statement.

constexpr int kEnrolled = 10'000;

struct Participant {
    int date = 0, client = 5, employee = 0, origin = 3, reason = 0, result = 1;
    std::int16_t takes_part = -1, costs = 0;
    std::int64_t noted = 0, begins = 0, ends = 0, from = 0, until = 0;
    std::string user, remark;
};

constexpr std::int64_t kTicksPerDay = std::int64_t{24} * 60 * 60 * 300;
constexpr std::int64_t kTicksPerHour = kTicksPerDay / 24;
// Days since 01.01.1900.
constexpr std::int64_t kMarch2010 = 40'236;
constexpr std::int64_t kDayZero = -2;

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

Participant MakeParticipant(int at) {
    Participant participant;
    participant.date = at % 300 + 1;
    participant.employee = at;
    participant.noted = (kMarch2010 + at % 28) * kTicksPerDay;
    participant.begins = (kMarch2010 + at % 20) * kTicksPerDay;
    participant.ends = (kMarch2010 + at % 20 + 2) * kTicksPerDay;
    participant.from = kDayZero * kTicksPerDay + (8 + at % 2) * kTicksPerHour;
    participant.until = kDayZero * kTicksPerDay + (13 + at % 5) * kTicksPerHour;
    participant.user = at % 3 == 0 ? "meier" : "huber";
    participant.remark = at % 4 == 0 ? "Anmeldung telefonisch, Nr. " + std::to_string(at) : "";
    return participant;
}

std::string InsertParticipant(int at) {
    const Participant participant = MakeParticipant(at);
    const auto date = [](int day) { return "convert(datetime,'" + TwoDigits(day) + ".03.2010',104)"; };
    const auto time = [](int hour) { return "'30.12.1899 " + TwoDigits(hour) + ":00'"; };
    return "INSERT INTO Sem_Teilnehmer_IT (  TeilnehmerID, SemTerminID, MDNr, ANNr, ErfDatum, ErfUser, Teilnahme,  Herkunft, "
           "BeginnDatum, EndeDatum, BegUhrzeit, EndUhrzeit, storniertam, StornoGrund,  StornoKosten, Ergebnis, Bemerkung, BWID, "
           "LAID )  SELECT ISNULL(max(TeilnehmerID),0)+1, " +
           std::to_string(participant.date) + ",5, " + std::to_string(participant.employee) + ", " + date(at % 28 + 1) +
           ", '" + participant.user + "', -1,3, " + date(at % 20 + 1) + ",  " + date(at % 20 + 3) + ", " + time(8 + at % 2) +
           ", " + time(13 + at % 5) + ",  NULL, 0, 0, 1, '" + participant.remark + "', NULL, NULL FROM Sem_Teilnehmer_IT";
}

constexpr const char* kRawInsertParticipant =
    "INSERT INTO Sem_Teilnehmer_IT (TeilnehmerID, SemTerminID, MDNr, ANNr, ErfDatum, ErfUser, Teilnahme, Herkunft, "
    "BeginnDatum, EndeDatum, BegUhrzeit, EndUhrzeit, storniertam, StornoGrund, StornoKosten, Ergebnis, Bemerkung, BWID, "
    "LAID) SELECT ifnull(max(TeilnehmerID), 0) + 1, ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, NULL, ?12, ?13, ?14, "
    "?15, NULL, NULL FROM Sem_Teilnehmer_IT";

void Insert(sqlite3_stmt* insert, const Participant& participant) {
    const auto bind_text = [&](int at, const std::string& text) {
        sqlite3_bind_text(insert, at, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    };
    sqlite3_bind_int(insert, 1, participant.date);
    sqlite3_bind_int(insert, 2, participant.client);
    sqlite3_bind_int(insert, 3, participant.employee);
    sqlite3_bind_int64(insert, 4, participant.noted);
    bind_text(5, participant.user);
    sqlite3_bind_int(insert, 6, participant.takes_part);
    sqlite3_bind_int(insert, 7, participant.origin);
    sqlite3_bind_int64(insert, 8, participant.begins);
    sqlite3_bind_int64(insert, 9, participant.ends);
    sqlite3_bind_int64(insert, 10, participant.from);
    sqlite3_bind_int64(insert, 11, participant.until);
    sqlite3_bind_int(insert, 12, participant.reason);
    sqlite3_bind_int(insert, 13, participant.costs);
    sqlite3_bind_int(insert, 14, participant.result);
    bind_text(15, participant.remark);
    if (sqlite3_step(insert) != SQLITE_DONE) Stop("not inserted");
    sqlite3_reset(insert);
}

void InsertParticipants(benchmark::State& state) {
    EmbeddedSession session;
    Open(session);
    std::vector<std::string> texts;
    for (int at = 0; at < kEnrolled; ++at) texts.push_back(InsertParticipant(at));
    for (auto _ : state) {
        for (const std::string& text : texts) {
            if (!session.ExecuteSql(text)) Stop(session.LastErrorText());
        }
        state.PauseTiming();
        if (To<Int32>(session.LookupValue("max(TeilnehmerID)", "Sem_Teilnehmer_IT", "")) != kEnrolled)
            state.SkipWithError("wrong rows");
        Execute(session, "DELETE FROM Sem_Teilnehmer_IT");
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kEnrolled);
}
BENCHMARK(InsertParticipants)->Unit(benchmark::kMillisecond);

void RawInsertParticipants(benchmark::State& state) {
    Raw raw{kRawSeminars, kRawParticipants};
    std::vector<Participant> participants;
    for (int at = 0; at < kEnrolled; ++at) participants.push_back(MakeParticipant(at));
    sqlite3_stmt* insert = raw.Prepare(kRawInsertParticipant);
    for (auto _ : state) {
        for (const Participant& participant : participants) Insert(insert, participant);
        state.PauseTiming();
        raw.Run("DELETE FROM Sem_Teilnehmer_IT");
        state.ResumeTiming();
    }
    sqlite3_finalize(insert);
    state.SetItemsProcessed(state.iterations() * kEnrolled);
}
BENCHMARK(RawInsertParticipants)->Unit(benchmark::kMillisecond);

// Many rows.

constexpr int kManyRows = 100'000;
constexpr const char* kSelectMany =
    "SELECT TeilnehmerID, SemTerminID, MDNr, ANNr, ErfDatum, ErfUser, Teilnahme, Herkunft, BeginnDatum, Ergebnis, "
    "StornoKosten, Bemerkung FROM Sem_Teilnehmer_IT";
constexpr int kManyColumns = 12;
constexpr int kUserColumn = 5;
constexpr int kRemarkColumn = 11;

struct PlainRow {
    std::int64_t numbers[kManyColumns] = {};
    std::string user, remark;
};

void ReadMany(benchmark::State& state) {
    static EmbeddedSession& session = *[] {
        auto* made = new EmbeddedSession();
        Open(*made);
        for (int at = 0; at < kManyRows; ++at) Execute(*made, InsertParticipant(at));
        return made;
    }();
    for (auto _ : state) {
        if (!session.OpenSelect(kSelectMany)) Stop(session.LastErrorText());
        const auto rows = session.Recordset();
        int count = 0;
        std::int64_t sum = 0;
        double days = 0;
        std::size_t length = 0;
        for (; !rows->Eof(); rows->MoveNext(), ++count) {
            const Fields fields = rows->Fields();
            for (Int16 column = 0; column < kManyColumns; ++column) {
                const Variant value = fields.Item(column).Value();
                if (const auto* number = value.If<Int32>()) {
                    sum += *number;
                } else if (const auto* small = value.If<Int16>()) {
                    sum += *small;
                } else if (const auto* moment = value.If<DateTime>()) {
                    days += moment->Days();
                } else if (const auto* text = value.If<Text>()) {
                    length += text->size();
                }
            }
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(days);
        benchmark::DoNotOptimize(length);
        if (count != kManyRows || length < std::size_t{5} * kManyRows) state.SkipWithError("wrong rows");
    }
    state.SetItemsProcessed(state.iterations() * kManyRows);
}
BENCHMARK(ReadMany)->Unit(benchmark::kMillisecond);

void RawReadMany(benchmark::State& state) {
    static Raw& raw = *[] {
        auto* made = new Raw{kRawSeminars, kRawParticipants};
        sqlite3_stmt* insert = made->Prepare(kRawInsertParticipant);
        for (int at = 0; at < kManyRows; ++at) Insert(insert, MakeParticipant(at));
        sqlite3_finalize(insert);
        return made;
    }();
    sqlite3_stmt* select = raw.Prepare(kSelectMany);
    for (auto _ : state) {
        std::vector<PlainRow> rows;
        while (sqlite3_step(select) == SQLITE_ROW) {
            PlainRow& row = rows.emplace_back();
            for (int column = 0; column < kManyColumns; ++column) {
                if (column == kUserColumn) {
                    Copy(select, column, row.user);
                } else if (column == kRemarkColumn) {
                    Copy(select, column, row.remark);
                } else {
                    row.numbers[column] = sqlite3_column_int64(select, column);
                }
            }
        }
        sqlite3_reset(select);
        std::int64_t sum = 0;
        std::size_t length = 0;
        for (const PlainRow& row : rows) {
            for (const std::int64_t number : row.numbers) sum += number;
            length += row.user.size() + row.remark.size();
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(length);
        if (rows.size() != kManyRows || length < std::size_t{5} * kManyRows) state.SkipWithError("wrong rows");
    }
    sqlite3_finalize(select);
    state.SetItemsProcessed(state.iterations() * kManyRows);
}
BENCHMARK(RawReadMany)->Unit(benchmark::kMillisecond);

// Shapes that the plan store has not seen. There are more of them than it keeps, so that going round finds none.

constexpr int kShapes = 1'500;
static_assert(kShapes > 2 * static_cast<int>(Embedded::PlanStore::kMostPlans));

// The columns behind the first in an order of their own for each number.
std::vector<std::string> ShuffledColumns(unsigned number) {
    std::vector<std::string> columns = {"MDNr",          "SemCode",      "SemTitel",       "Sachbearbeiter",
                                        "Status",        "InhaltZielID", "TeilnehmerMIN",  "TeilnehmerMAX",
                                        "TeilnehmerOPT", "Stunden",      "Sitzungen",      "SerienID",
                                        "KostenProTN",   "Anzahlung",    "Stornokosten",   "Abbruchkosten",
                                        "FristStorno",   "FristAbbruch", "FristAnmeldung", "Wiederholung"};
    std::mt19937 random(number);
    std::shuffle(columns.begin(), columns.end(), random);
    return columns;
}

std::string LoadShape(unsigned number) {
    std::string sql = "SELECT ";
    const auto columns = ShuffledColumns(number);
    for (std::size_t i = 0; i < columns.size(); ++i) sql += (i == 0 ? "" : ", ") + columns[i];
    return sql + " FROM Sem_Katalog_IT WHERE SemID = 0";
}

std::string ListShape(unsigned number) {
    const auto columns = ShuffledColumns(number);
    return "SELECT DISTINCT k." + columns[0] + ", k." + columns[1] + ", t.Bemerkung AS " + columns[2] +
           std::to_string(number) +
           " FROM Sem_Teilnehmer_IT t INNER JOIN Sem_Katalog_IT k ON t.SemTerminID = k.SemID "
           "WHERE k.SemID = 0 AND k." +
           columns[3] + " IS NOT NULL AND t.Teilnahme = -1 AND (t.ANNr = 100 OR t.MDNr = 5) ORDER BY k." + columns[0] +
           ", k." + columns[1];
}

std::string UpdateShape(unsigned number) {
    std::string sql = "UPDATE Sem_Katalog_IT SET ";
    const auto columns = ShuffledColumns(number);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const bool text = columns[i].starts_with("SemC") || columns[i].starts_with("SemT");
        sql += (i == 0 ? "" : ", ") + columns[i] + (text ? " = 'abc'" : " = 12");
    }
    return sql + " WHERE SemID = 0";
}

using MakeShape = std::string (*)(unsigned);

// As the engine prints it.
std::string PrintedAs(const Embedded::Catalog& catalog, const std::string& text) {
    using namespace Embedded;
    const Tokens tokens = Tokenise(text);
    Batch batch = ParseBatch(text, tokens);
    Variables variables;
    std::vector<std::uint32_t> fixed;
    Checker checker(catalog, variables, tokens.literals, fixed);
    Embedded::Statement& statement = *batch.statements.front();
    if (auto* select = statement.If<SelectStatement>()) {
        checker.Check(*select);
        return PrintSelect(*select->select).sql;
    }
    auto* update = statement.If<UpdateStatement>();
    checker.Check(*update);
    return PrintUpdate(*update).sql;
}

// Tables in SQLite's words on a connection that knows the functions and the collation.
void Define(Embedded::Catalog& catalog, Embedded::SqliteConnection& connection, const std::string& text) {
    using namespace Embedded;
    const Tokens tokens = Tokenise(text);
    Batch batch = ParseBatch(text, tokens);
    const auto* create = batch.statements.front()->If<CreateTableStatement>();
    auto table = catalog.Define(*create);
    for (const std::string& sql : PrintCreateTable(*table, *create)) connection.Run(sql);
    catalog.Put(std::move(table));
}

void FirstSeen(benchmark::State& state, MakeShape make) {
    EmbeddedSession session;
    Open(session);
    std::vector<std::string> texts;
    for (unsigned number = 0; number < kShapes; ++number) texts.push_back(make(number));
    for (const std::string& text : texts) Execute(session, text);
    const auto hits = session.PlanHits();
    std::size_t at = 0;
    for (auto _ : state) {
        if (!session.ExecuteSql(texts[at])) Stop(session.LastErrorText() + " in " + texts[at]);
        at = (at + 1) % kShapes;
    }
    if (session.PlanHits() != hits) state.SkipWithError("a shape was known");
}

// Prepared, bound, run and let go; none of the statements finds a row.
void RawFirstSeen(benchmark::State& state, MakeShape make) {
    Embedded::SqliteConnection connection(":memory:", true, 30);
    Embedded::Catalog catalog;
    Define(catalog, connection, kSeminars);
    Define(catalog, connection, kParticipants);
    std::vector<std::string> texts;
    for (unsigned number = 0; number < kShapes; ++number) texts.push_back(PrintedAs(catalog, make(number)));
    std::size_t at = 0;
    for (auto _ : state) {
        const std::string& sql = texts[at];
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(connection.Get(), sql.c_str(), static_cast<int>(sql.size()), &statement, nullptr) != SQLITE_OK)
            Stop(sqlite3_errmsg(connection.Get()) + (" in " + sql));
        const int parameters = sqlite3_bind_parameter_count(statement);
        for (int i = 1; i <= parameters; ++i) sqlite3_bind_int(statement, i, 0);
        if (sqlite3_step(statement) != SQLITE_DONE) Stop("found a row: " + sql);
        sqlite3_finalize(statement);
        at = (at + 1) % kShapes;
    }
}

void FirstSeenLoad(benchmark::State& state) { FirstSeen(state, LoadShape); }
void RawFirstSeenLoad(benchmark::State& state) { RawFirstSeen(state, LoadShape); }
void FirstSeenList(benchmark::State& state) { FirstSeen(state, ListShape); }
void RawFirstSeenList(benchmark::State& state) { RawFirstSeen(state, ListShape); }
void FirstSeenUpdate(benchmark::State& state) { FirstSeen(state, UpdateShape); }
void RawFirstSeenUpdate(benchmark::State& state) { RawFirstSeen(state, UpdateShape); }
BENCHMARK(FirstSeenLoad);
BENCHMARK(RawFirstSeenLoad);
BENCHMARK(FirstSeenList);
BENCHMARK(RawFirstSeenList);
BENCHMARK(FirstSeenUpdate);
BENCHMARK(RawFirstSeenUpdate);

const bench::Add kSelectPrepared(bench::Ratio{"A row by its key through the session, against SQLite prepared and bound",
                                              "SelectByKey", "RawSelectByKey", 2.5});
const bench::Add kSelectAnew(bench::Ratio{"The same, against SQLite preparing each text anew", "SelectByKey",
                                          "RawSelectByKeyAnew", 0.3});
const bench::Add kInsert(bench::Ratio{"10,000 participants inserted, keys from max + 1, against SQLite prepared and bound",
                                      "InsertParticipants", "RawInsertParticipants", 2.5});
const bench::Add kFirstLoad(bench::Ratio{"A new shape, SELECT of 20 columns by key, against SQLite preparing its text",
                                         "FirstSeenLoad", "RawFirstSeenLoad", 3});
const bench::Add kFirstList(bench::Ratio{"A new shape, SELECT DISTINCT of a join, against SQLite preparing its text",
                                         "FirstSeenList", "RawFirstSeenList", 3});
const bench::Add kFirstUpdate(bench::Ratio{"A new shape, UPDATE of 20 columns, against SQLite preparing its text",
                                           "FirstSeenUpdate", "RawFirstSeenUpdate", 3});
const bench::Add kMany(bench::Ratio{"100,000 rows of 12 columns read and walked, against SQLite stepped into plain structs",
                                    "ReadMany", "RawReadMany", 2.5});

}  // namespace
