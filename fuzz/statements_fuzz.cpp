// Whole texts against a small database in memory: a text goes well or is refused with a reason, twice the same way, and
// what it did is taken back by ROLLBACK.

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include <LumoConnection/embedded/refusal.h>
#include <LumoConnection/embedded/session.h>

#include "mutate.h"

using namespace LumoConnection;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace {

constexpr const char* kTables = R"(
CREATE TABLE Ort (Nr int NOT NULL CONSTRAINT PK_Ort PRIMARY KEY, Name nvarchar(20) NULL, Preis money NULL DEFAULT 1.5, Klein tinyint NULL, CHECK (Preis < 1000))
CREATE TABLE Termin (Nr int NOT NULL, Ort int NULL CONSTRAINT FK_Ort REFERENCES Ort (Nr), Tag datetime NULL, Art varchar(5) NOT NULL DEFAULT 'a', Wert float NULL, Ja bit NULL, Lang nvarchar(max) NULL, CONSTRAINT PK_Termin PRIMARY KEY (Nr, Art))
CREATE TABLE Leer (a int, s smallint, r real)
CREATE UNIQUE INDEX UX_Name ON Ort (Name)
INSERT INTO Ort VALUES (1, N'Köln', 1.5, 1), (2, N'Bonn', 2, NULL), (3, NULL, NULL, 255)
INSERT INTO Termin VALUES (1, 1, '01.02.2012', 'x', 0.5, 1, N'Straße'), (2, 2, NULL, 'y', NULL, 0, NULL), (3, NULL, '31.12.2012 10:30', 'z', -1e10, NULL, N'a''b'))";

sqlite3* database = nullptr;
bool committed = false;
int steps_left = 0;

// Called for each connection that is opened.
int Watch(sqlite3* opened, const char**, const void*) {
    constexpr int kSteps = 1000;
    constexpr int kMostBytes = 1'000'000;
    database = opened;
    sqlite3_limit(opened, SQLITE_LIMIT_LENGTH, kMostBytes);
    sqlite3_progress_handler(
        opened, kSteps, [](void*) { return --steps_left < 0 ? 1 : 0; }, nullptr);
    sqlite3_commit_hook(
        opened,
        [](void*) {
            committed = true;
            return 0;
        },
        nullptr);
    return SQLITE_OK;
}

void Require(bool holds, const char* what, const std::string& text) {
    if (holds) return;
    std::fprintf(stderr, "%s: %s\n", what, text.c_str());
    std::abort();
}

struct Result {
    bool ok = false;
    Int32 number = 0;
    std::string error;
    Int32 affected = 0;
    bool operator==(const Result&) const = default;
};

Result Run(EmbeddedSession& session, const std::string& text) {
    constexpr int kMostThousands = 300;
    steps_left = kMostThousands;
    Result result;
    result.ok = static_cast<bool>(session.OpenSelect(text));
    steps_left = kMostThousands;
    if (!result.ok) result.error = session.LastErrorText();
    result.number = session.LastErrorNumber();
    result.affected = session.RowsAffected();
    Require(result.ok == result.error.empty(), "The text and the outcome differ", result.error);
    Require(result.ok == (result.number == 0), "The number and the outcome differ", result.error);
    if (const auto place = session.LastErrorPlace())
        Require(place->offset <= text.size(), "No such place", result.error);
    if (const auto rows = session.RowsBeforeRefusal()) {
        for (; !rows->Eof(); rows->MoveNext()) {
            for (Int16 i = 0; i < rows->Fields().Count(); ++i) rows->Fields().Item(i).Value();
        }
    }
    return result;
}

bool IsInterrupted(const Result& result) { return result.error.find("interrupted") != std::string::npos; }

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    using Entry = void (*)();
    return sqlite3_auto_extension(reinterpret_cast<Entry>(Watch)) == SQLITE_OK ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Ref<EmbeddedSession> session;
    static int uses = 0;
    if (!session || committed || ++uses > 300) {
        session = New<EmbeddedSession>();
        uses = 0;
        steps_left = 1'000'000;
        Require(static_cast<bool>(session->Connect("Provider=Embedded;Data Source=:memory:", "meier", "", 1)), "Connect", "");
        Require(static_cast<bool>(session->ExecuteSql(kTables)), "Tables", session->LastErrorText());
        committed = false;
    }
    const std::string text(reinterpret_cast<const char*>(data), size);
    const bool in_transaction = size % 2 == 0;
    std::optional<Result> first;
    for (int round = 0; round < 2; ++round) {
        if (in_transaction)
            Require(static_cast<bool>(session->ExecuteSql("BEGIN TRANSACTION")), "Begin", session->LastErrorText());
        const Result result = Run(*session, text);
        // Whatever the dialect lets through, SQLite has to understand.
        if (result.number == Refused::kStorage && !IsInterrupted(result)) {
            Require(!result.error.starts_with("SQLite reports"), "Not caught", result.error);
        }
        (void)session->ExecuteSql("ROLLBACK");
        Require(sqlite3_get_autocommit(database) != 0, "A transaction is open", text);
        if (committed) {
            // The tables are others now; the session has to do all the same.
            Require(static_cast<bool>(session->OpenSelect("SELECT 1")), "Broken", session->LastErrorText());
            return 0;
        }
        Require(session->LookupValue("COUNT(*)", "Termin", "") == Variant(Int32{3}), "Not taken back",
                session->LastErrorText());
        if (first && !IsInterrupted(*first) && !IsInterrupted(result)) {
            Require(first->number == result.number && first->affected == result.affected, "Another outcome",
                    first->error + " / " + result.error);
        }
        first = result;
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most, unsigned seed) {
    return Fuzz::Mutate(data, size, most, seed, LLVMFuzzerMutate);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* a, std::size_t size_a, const std::uint8_t* b,
                                                 std::size_t size_b, std::uint8_t* out, std::size_t most, unsigned seed) {
    return Fuzz::CrossOver({reinterpret_cast<const char*>(a), size_a}, {reinterpret_cast<const char*>(b), size_b}, out,
                           most, seed);
}
