#include "frontend/context.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "frontend/output/failure.h"
#include "frontend/output/pager.h"
#include "frontend/output/screen_text.h"
#include "frontend/output/terminal.h"
#include "frontend/server_tables.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr const char* kDefaultFile = "lumoseminar.db";

// As the server numbers a name that stands for nothing.
constexpr Int32 kNoTables = 208;

Text ForFile(const Text& file) {
    Text quoted;
    for (const char c : file) quoted += c == '"' ? Text("\"\"") : Text(1, c);
    const bool is_plain = file.find_first_of(";\"' ={}") == Text::npos;
    return "Provider=Embedded;Data Source=" + (is_plain ? file : '"' + quoted + '"');
}

Text ForFileOrText(const Text& typed) { return typed.find('=') == Text::npos ? ForFile(typed) : typed; }

}  // namespace

Text Context::ConnectionText() const {
    if (options.database) return ForFile(*options.database);
    if (options.connect) return ForFileOrText(*options.connect);
    const char* chosen = std::getenv("LUMOSEMINAR_CONNECT");
    return chosen != nullptr && *chosen != '\0' ? ForFileOrText(chosen) : ForFile(kDefaultFile);
}

OpenedSession Context::OpenBeside(const Text& file) {
    return OpenSession({ForFile(file), options.user, options.password}, MissingFile::kCreate,
                       [this](const LumoConnection::TracedCall& call) { Watch(call); });
}

const Ref<DataSession>& Context::AnyDatabase(MissingFile missing_file) {
    if (!opened_.session) {
        opened_ = OpenSession({ConnectionText(), options.user, options.password}, missing_file,
                              [this](const LumoConnection::TracedCall& call) { Watch(call); });
    }
    return opened_.session;
}

const Ref<DataSession>& Context::Session() {
    AnyDatabase();
    needs_tables_ = true;
    // Of a server that is asked when something has failed: it would cost every command a statement.
    if (opened_.embedded && !has_tables_) {
        has_tables_ = HasTables();
        if (!has_tables_) Raise(kNoTables, NoTablesText());
    }
    return opened_.session;
}

bool Context::HasTables() {
    constexpr std::string_view kCatalogue = "Sem_Katalog_IT";
    if (!opened_.embedded) return !opened_.plain->LookupValue("count(*)", Text(kCatalogue), "").IsNull();
    return std::ranges::any_of(opened_.embedded->Tables(),
                               [&](const auto& table) { return FoldCase(table.name) == FoldCase(kCatalogue); });
}

Text Context::NoTablesText() const {
    return "There are no tables of the seminar administration in this database. The command init makes them: \"lumoseminar "
           "init\", with --sample for a company to try things on.";
}

void Context::Watch(const LumoConnection::TracedCall& call) {
    if (options.trace) {
        if (!trace_) trace_ = TraceToStandardError();
        trace_(call);
    }
    if (!call.ok) refused_ = call;
    if (watcher_) watcher_(call);
}

std::optional<std::size_t> Context::RefusedAt() const {
    if (!opened_.embedded) return std::nullopt;
    const auto place = opened_.embedded->LastErrorPlace();
    return place ? std::optional(place->offset) : std::nullopt;
}

std::optional<Int32> Context::RowsChanged() const {
    if (!opened_.plain || opened_.plain->RowsAffected() < 0) return std::nullopt;
    return opened_.plain->RowsAffected();
}

std::vector<Ref<RecordSet>> Context::RunText(const Text& text) {
    const auto connection = AnyDatabase()->AdoConnection();
    opened_.plain->KeepFurtherRows(true);
    std::vector<Ref<RecordSet>> all;
    if (const auto first = connection->Execute(text); first->Fields().Count() != 0) all.push_back(first);
    const auto& further = opened_.plain->FurtherRows();
    all.insert(all.end(), further.begin(), further.end());
    return all;
}

std::vector<Ref<RecordSet>> Context::RowSetsBeforeRefusal() const {
    std::vector<Ref<RecordSet>> all;
    if (!opened_.embedded) return all;
    if (const auto first = opened_.embedded->RowsBeforeRefusal(); first && first->Fields().Count() != 0)
        all.push_back(first);
    const auto& further = opened_.embedded->FurtherRows();
    all.insert(all.end(), further.begin(), further.end());
    return all;
}

std::vector<LumoConnection::TableInfo> Context::Tables() {
    const auto& session = AnyDatabase();
    return opened_.embedded ? opened_.embedded->Tables() : ServerTables(session);
}

Int32 Context::Client() {
    if (!options.client) options.client = ActiveClient(Session());
    return *options.client;
}

void Context::Put(std::string_view text) const {
    if (is_muted_) return;
    ShowPaged(text, IsForPeople() && !options.no_pager);
}

void Context::Print(const Sheet& sheet, Shape shape) const {
    switch (options.format) {
        case Format::kTable: {
            const auto terminal = TerminalOf(stdout);
            Put(TableText(sheet, shape, {terminal.width, terminal.colour, options.records}));
            break;
        }
        case Format::kJson:
            Put(JsonText(sheet, shape));
            break;
        case Format::kCsv:
            Put(CsvText(sheet));
            break;
    }
}

void Context::Print(const Sheet& row, const Part& part) const {
    if (options.format == Format::kJson) {
        Put(JsonText(row, part));
        return;
    }
    Print(row, Shape::kOneRow);
    Put("\n");
    Print(part.sheet);
}

void Context::PrintAll(const std::vector<Sheet>& sheets) const { Put(JsonText(sheets)); }

void Context::Show(std::string_view text) const {
    if (IsForPeople()) Put(text);
}

void Context::Note(std::string_view text) const {
    if (IsForPeople()) fmt::print(stderr, "{}\n", text);
}

void Context::Report(const Error& error) {
    std::fflush(stdout);
    const bool lacks_tables = needs_tables_ && !opened_.embedded && opened_.plain && !HasTables();
    auto sentence = lacks_tables ? NoTablesText() : FailureSentence(error);
    const bool is_statement = refused_.kind != LumoConnection::TracedKind::kConnect;
    const bool is_refused = is_statement && ReadDescription(error.Description()).text == ReadDescription(refused_.error).text;
    if (is_refused && !lacks_tables) sentence = "The database refused it: " + sentence;
    fmt::print(stderr, "lumoseminar: {}\n", sentence);
    if (!TellsMore()) return;
    fmt::print(stderr, "{}", FailureDetails(error));
    if (is_refused) fmt::print(stderr, "    in the statement {}\n", Visible(refused_.statement));
}

void Context::ReportWithNumber(const Error& error) const {
    std::fflush(stdout);
    fmt::print(stderr, "lumoseminar: error {}: {}\n", error.Number(), FailureSentence(error));
    if (TellsMore()) fmt::print(stderr, "{}", FailureDetails(error));
}

Int32 ActiveClient(const Ref<DataSession>& session) {
    const Variant client = session->LookupValue("MDNR", "OpactMD", "");
    return client.IsNull() ? 1 : To<Int32>(client);
}

}  // namespace frontend
