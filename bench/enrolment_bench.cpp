#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include <LumoConnection/install.h>
#include <LumoSeminar/LumoSeminar.h>

#include "ratios.h"
#include "raw.h"
#include "schema.h"

// Participants and their enrolment, against the C interface sending the same statements prepared and bound.

namespace {

using namespace LumoSeminar;
using bench::Copy;
using bench::Raw;

constexpr int kListed = 2'000;
constexpr int kEnrolled = 500;

// Moments are whole numbers for the C interface.
constexpr const char* kRawTables[] = {
    "CREATE TABLE Sem_Teilnehmer_IT (TeilnehmerID INTEGER PRIMARY KEY NOT NULL, SemTerminID INTEGER NOT NULL, MDNr INTEGER, "
    "ANNr INTEGER, BWID INTEGER, LAID INTEGER, ErfDatum INTEGER, ErfUser TEXT, Teilnahme INTEGER, Herkunft INTEGER, "
    "BeginnDatum INTEGER, BegUhrzeit INTEGER, EndeDatum INTEGER, EndUhrzeit INTEGER, storniertam INTEGER, StornoGrund INTEGER, "
    "StornoKosten INTEGER, Ergebnis INTEGER, Bemerkung TEXT)",
    "CREATE INDEX IX_T1 ON Sem_Teilnehmer_IT (SemTerminID)",
    "CREATE INDEX IX_T2 ON Sem_Teilnehmer_IT (MDNr, ANNr)",
    "CREATE INDEX IX_T3 ON Sem_Teilnehmer_IT (BWID)",
    "CREATE INDEX IX_T4 ON Sem_Teilnehmer_IT (LAID)",
    "CREATE TABLE Sem_Termin_IT (SemTerminID INTEGER PRIMARY KEY NOT NULL, MDNr INTEGER NOT NULL, Status INTEGER, Code TEXT, "
    "Titel TEXT, SemID INTEGER, InhaltZielID INTEGER, SelfService INTEGER, Sachbearbeiter INTEGER, BeginnDatum INTEGER, "
    "EndeDatum INTEGER, BeginnUhrzeit INTEGER, EndeUhrzeit INTEGER, MinTeil INTEGER, MaxTeil INTEGER, OptTeil INTEGER, "
    "Stunden REAL, Sitzungen INTEGER, SerienID INTEGER, KostenProTN INTEGER, StornoDatum INTEGER, StornoKosten INTEGER, "
    "AbbruchDatum INTEGER, AbbruchKosten INTEGER, AnmeldefristDatum INTEGER, BeurteilungID INTEGER, VeranstalterID INTEGER, "
    "VeranstaltungsOrtID INTEGER, Bemerkung TEXT)",
    "CREATE INDEX IX_D1 ON Sem_Termin_IT (SemID)",
    "CREATE TABLE Sem_Termin_Termine_IT (SemTerminID INTEGER NOT NULL, Termin INTEGER NOT NULL, BegUhr INTEGER, EndUhr INTEGER, "
    "PRIMARY KEY (SemTerminID, Termin))",
    "CREATE TABLE Sem_Teilnehmer_Kosten_IT (TeilnehmerID INTEGER NOT NULL, KostenID INTEGER NOT NULL, KostenArtID INTEGER, "
    "Kostenbetrag REAL, Kost INTEGER, PRIMARY KEY (TeilnehmerID, KostenID))",
    "CREATE TABLE sysIData_KostenArten (KostenArten_ID INTEGER PRIMARY KEY NOT NULL, KostenArten TEXT)",
    "CREATE TABLE Sem_Anford_Seminare (SemID INTEGER NOT NULL, gef_SemID INTEGER NOT NULL, PRIMARY KEY (SemID, gef_SemID))",
};

constexpr const char* kRemark = "möchte vegetarisch essen";

// A date of seminar 7 with two days, and participants of it.
Ref<DataSession> Company(int participants) {
    auto session = bench::SchemaDatabase();
    bench::Execute(*session,
                   "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, Status, Code, Titel, SemID, BeginnDatum, EndeDatum, BeginnUhrzeit, "
                   "EndeUhrzeit, KostenProTN) VALUES (1, 5, 1, 'BS-1', 'Brandschutz', 7, '20270301', '20270302', "
                   "'18991230 09:00', '18991230 16:30', 120.50)");
    bench::Execute(*session, "INSERT INTO Sem_Termin_Termine_IT VALUES (1, '20270301', '18991230 09:00', '18991230 16:30')");
    bench::Execute(*session, "INSERT INTO Sem_Termin_Termine_IT VALUES (1, '20270302', '18991230 09:00', '18991230 16:30')");
    bench::Execute(*session, "INSERT INTO sysIData_KostenArten VALUES (1, 'Teilnehmerkosten')");
    for (int key = 1; key <= participants; ++key) {
        const std::string number = std::to_string(key);
        std::string sql = "INSERT INTO Sem_Teilnehmer_IT VALUES (" + number + ",1,5," + number;
        sql.append(",NULL,NULL,'20270110','lena',-1,3,'20270301','18991230 09:00','20270302','18991230 16:30',NULL,0,0,1,'");
        sql.append(kRemark).append("')");
        bench::Execute(*session, sql);
    }
    return session;
}

void FillRaw(Raw& raw, int participants) {
    for (const char* table : kRawTables) raw.Run(table);
    raw.Run(
        "INSERT INTO Sem_Termin_IT (SemTerminID, MDNr, Status, Code, Titel, SemID, BeginnDatum, EndeDatum, BeginnUhrzeit, "
        "EndeUhrzeit, KostenProTN) VALUES (1, 5, 1, 'BS-1', 'Brandschutz', 7, 1200000, 1200001, 5000, 6000, 1205000)");
    raw.Run("INSERT INTO Sem_Termin_Termine_IT VALUES (1, 1200000, 5000, 6000), (1, 1200001, 5000, 6000)");
    raw.Run("INSERT INTO sysIData_KostenArten VALUES (1, 'Teilnehmerkosten')");
    raw.Run("BEGIN");
    for (int key = 1; key <= participants; ++key) {
        const std::string number = std::to_string(key);
        raw.Run("INSERT INTO Sem_Teilnehmer_IT VALUES (" + number + ",1,5," + number +
                ",NULL,NULL,1100000,'lena',-1,3,1200000,5000,1200001,6000,NULL,0,0,1,'" + kRemark + "')");
    }
    raw.Run("COMMIT");
}

constexpr const char* kRawSelect =
    "SELECT SemTerminID, MDNr, ANNR, BWID, LAID, ErfDatum, ErfUser, Teilnahme, Herkunft, BeginnDatum, BegUhrzeit, EndeDatum, "
    "EndUhrzeit, storniertam, StornoGrund, StornoKosten, Ergebnis, Bemerkung FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = ?";

struct RawParticipant {
    std::int64_t numbers[18] = {};
    std::string user, remark;
};

bool ReadRaw(sqlite3_stmt* select, std::int64_t key, RawParticipant& participant) {
    sqlite3_bind_int64(select, 1, key);
    const bool found = sqlite3_step(select) == SQLITE_ROW;
    if (found) {
        for (int column = 0; column < 18; ++column) {
            if (column == 6) {
                Copy(select, column, participant.user);
            } else if (column == 17) {
                Copy(select, column, participant.remark);
            } else {
                participant.numbers[column] = sqlite3_column_int64(select, column);
            }
        }
    }
    sqlite3_reset(select);
    return found;
}

void ListParticipants(benchmark::State& state) {
    LumoConnection::Install("lena");
    const auto session = Company(kListed);
    for (auto _ : state) {
        colTeilnehmer list;
        (void)list.Init(1, session);
        std::size_t length = 0;
        for (const auto& participant : list.NewEnum()) length += participant->Bemerkung().size();
        if (list.Count() != kListed || length < kListed) state.SkipWithError("wrong rows");
    }
    state.SetItemsProcessed(state.iterations() * kListed);
}
BENCHMARK(ListParticipants)->Unit(benchmark::kMillisecond);

void RawListParticipants(benchmark::State& state) {
    Raw raw{};
    FillRaw(raw, kListed);
    sqlite3_stmt* keys = raw.Prepare("SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = ?");
    sqlite3_stmt* select = raw.Prepare(kRawSelect);
    for (auto _ : state) {
        std::vector<std::int64_t> listed;
        sqlite3_bind_int(keys, 1, 1);
        while (sqlite3_step(keys) == SQLITE_ROW) listed.push_back(sqlite3_column_int64(keys, 0));
        sqlite3_reset(keys);
        std::vector<RawParticipant> participants(listed.size());
        std::size_t length = 0;
        for (std::size_t i = 0; i < listed.size(); ++i) ReadRaw(select, listed[i], participants[i]);
        for (const auto& participant : participants) length += participant.remark.size();
        if (listed.size() != kListed || length < kListed) state.SkipWithError("wrong rows");
    }
    for (auto* statement : {keys, select}) sqlite3_finalize(statement);
}
BENCHMARK(RawListParticipants)->Unit(benchmark::kMillisecond);

// Each person: a new record, all checks, a cost line, the write.
void EnrolPersons(benchmark::State& state) {
    LumoConnection::Install("lena");
    for (auto _ : state) {
        state.PauseTiming();
        const auto session = Company(0);
        const auto date = New<clsTermin>();
        date->Init(1, session);
        const auto list = date->clscolTeilnehmer();
        state.ResumeTiming();
        for (int person = 1; person <= kEnrolled; ++person) {
            const auto participant = list->AddEmptyObject().As<clsTeilnehmer>();
            participant->MDNR(5);
            participant->ANNr(person);
            if (!participant->CheckTeilnehmerAnmeldung()) state.SkipWithError("findings");
            participant->TeilnehmerKosten(120.5F);
            if (!participant->WriteToDatabase(1)) state.SkipWithError("not written");
            list->ChangeKey("0000000000", participant->Key());
        }
        if (list->Count() != kEnrolled) state.SkipWithError("wrong rows");
    }
    state.SetItemsProcessed(state.iterations() * kEnrolled);
}
BENCHMARK(EnrolPersons)->Unit(benchmark::kMillisecond);

// The statements of an enrolment in their order.
class RawEnrolment {
  public:
    explicit RawEnrolment(Raw& raw) {
        const auto Add = [&](const char* sql) { statements_.push_back(raw.Prepare(sql)); };
        Add(kRawSelect);
        Add("SELECT MDNr, Status, Code, Titel, SemID, InhaltZielID, SelfService, Sachbearbeiter, BeginnDatum, EndeDatum, "
            "BeginnUhrzeit, EndeUhrzeit, MinTeil, MaxTeil, OptTeil, Stunden, Sitzungen, SerienID, KostenProTN, StornoDatum, "
            "StornoKosten, AbbruchDatum, AbbruchKosten, AnmeldefristDatum, BeurteilungID, VeranstalterID, VeranstaltungsOrtID, "
            "Bemerkung FROM Sem_Termin_IT WHERE SemTerminID = ?");
        Add("SELECT DISTINCT Code, Titel FROM Sem_Teilnehmer_IT INNER JOIN Sem_Termin_IT ON Sem_Teilnehmer_IT.SemTerminID = "
            "Sem_Termin_IT.SemTerminID WHERE Sem_Termin_IT.SemID = ? AND Sem_Termin_IT.Status <= 2 AND Teilnahme = -1 AND "
            "Sem_Teilnehmer_IT.ANNr = ? AND Sem_Teilnehmer_IT.MDNr = ? ORDER BY Code, Titel");
        Add("SELECT TeilnehmerID FROM Sem_Teilnehmer_IT WHERE SemTerminID = ? AND Teilnahme <> 0 AND MDNr = ? AND ANNr = ?");
        Add("SELECT DISTINCT Code, Titel FROM Sem_Termin_Termine_IT INNER JOIN Sem_Termin_IT ON "
            "Sem_Termin_Termine_IT.SemTerminID = Sem_Termin_IT.SemTerminID INNER JOIN Sem_Teilnehmer_IT ON "
            "Sem_Teilnehmer_IT.SemTerminID = Sem_Termin_Termine_IT.SemTerminID WHERE Sem_Termin_Termine_IT.SemTerminID <> ?1 AND "
            "((SELECT BegUhr FROM Sem_Termin_Termine_IT b WHERE b.Termin = Sem_Termin_Termine_IT.Termin AND SemTerminID = ?1) "
            "BETWEEN BegUhr AND EndUhr OR (SELECT EndUhr FROM Sem_Termin_Termine_IT e WHERE e.Termin = "
            "Sem_Termin_Termine_IT.Termin AND SemTerminID = ?1) BETWEEN BegUhr AND EndUhr) AND Sem_Teilnehmer_IT.ANNr = ?2 AND "
            "Sem_Teilnehmer_IT.MDNr = ?3");
        Add("SELECT DISTINCT Code, Titel FROM Sem_Teilnehmer_IT INNER JOIN Sem_Termin_IT ON Sem_Teilnehmer_IT.SemTerminID = "
            "Sem_Termin_IT.SemTerminID WHERE Sem_Termin_IT.SemID = ? AND Sem_Termin_IT.Status = 4 AND Teilnahme = -1 AND "
            "Sem_Teilnehmer_IT.ANNr = ? AND Sem_Teilnehmer_IT.MDNr = ?");
        Add("SELECT count(gef_SemID) FROM Sem_Anford_Seminare WHERE SemID = ?");
        Add("SELECT TeilnehmerID, KostenID, KostenArtID, Kostenbetrag, Kost FROM Sem_Teilnehmer_Kosten_IT WHERE TeilnehmerID = ?");
        Add("SELECT TeilnehmerID, KostenID, KostenArtID, Kostenbetrag, Kost FROM Sem_Teilnehmer_Kosten_IT WHERE TeilnehmerID = ? "
            "AND KostenID = ?");
        Add("INSERT INTO Sem_Teilnehmer_IT SELECT ifnull(max(TeilnehmerID), 0) + 1, 1, 5, ?, NULL, NULL, 1100000, 'lena', -1, 3, "
            "1200000, 5000, 1200001, 6000, NULL, 0, 0, 1, '' FROM Sem_Teilnehmer_IT");
        Add("SELECT max(TeilnehmerID) FROM Sem_Teilnehmer_IT");
        Add("SELECT KostenArten_ID FROM sysIData_KostenArten WHERE KostenArten = 'Teilnehmerkosten'");
        Add("SELECT max(KostenID) FROM Sem_Teilnehmer_Kosten_IT WHERE TeilnehmerID = ?");
        Add("INSERT INTO Sem_Teilnehmer_Kosten_IT VALUES (?, 1, 1, 120.5, 0)");
    }
    ~RawEnrolment() {
        for (auto* statement : statements_) sqlite3_finalize(statement);
    }
    RawEnrolment(const RawEnrolment&) = delete;
    RawEnrolment& operator=(const RawEnrolment&) = delete;

    void Enrol(int person) {
        Run(0, {0});
        Run(1, {0});
        Run(1, {1});
        Run(2, {7, person, 5});
        Run(3, {1, 5, person});
        Run(4, {1, person, 5});
        Run(5, {7, person, 5});
        Run(6, {7});
        Run(7, {0});
        Run(8, {0, 0});
        Run(9, {person});
        const std::int64_t key = Run(10, {});
        Run(11, {});
        Run(12, {key});
        Run(13, {key});
    }

  private:
    // The first number of the first row, 0 without one.
    std::int64_t Run(std::size_t index, std::initializer_list<std::int64_t> values) {
        sqlite3_stmt* statement = statements_[index];
        int position = 0;
        for (const std::int64_t value : values) sqlite3_bind_int64(statement, ++position, value);
        std::int64_t first = 0;
        while (sqlite3_step(statement) == SQLITE_ROW) first = sqlite3_column_int64(statement, 0);
        sqlite3_reset(statement);
        return first;
    }

    std::vector<sqlite3_stmt*> statements_;
};

void RawEnrolPersons(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        Raw raw{};
        FillRaw(raw, 0);
        RawEnrolment enrolment(raw);
        state.ResumeTiming();
        for (int person = 1; person <= kEnrolled; ++person) enrolment.Enrol(person);
    }
    state.SetItemsProcessed(state.iterations() * kEnrolled);
}
BENCHMARK(RawEnrolPersons)->Unit(benchmark::kMillisecond);

const bench::Add kList(bench::Ratio{"2,000 participants of a date listed, against SQLite prepared and bound",
                                    "ListParticipants", "RawListParticipants", 2.5});
const bench::Add kEnrol(bench::Ratio{"500 persons enrolled with checks and costs, against SQLite prepared and bound",
                                     "EnrolPersons", "RawEnrolPersons", 2.5});

}  // namespace
