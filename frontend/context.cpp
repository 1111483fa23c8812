#include "frontend/context.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>

#include "frontend/output/failure.h"
#include "frontend/output/terminal.h"
#include "frontend/server_tables.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr const char* kDefaultConnection = "Provider=Embedded;Data Source=lumoseminar.db";

}  // namespace

Text Context::ConnectionText() const {
    if (options.connect) return *options.connect;
    const char* chosen = std::getenv("LUMOSEMINAR_CONNECT");
    return chosen != nullptr && *chosen != '\0' ? chosen : kDefaultConnection;
}

const Ref<DataSession>& Context::Session(MissingFile missing_file) {
    if (!opened_.session) {
        opened_ = OpenSession({ConnectionText(), options.user, options.password}, missing_file,
                              options.trace ? TraceToStandardError() : nullptr);
    }
    return opened_.session;
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

Ref<RecordSet> Context::RowsBeforeRefusal() const {
    return opened_.embedded ? opened_.embedded->RowsBeforeRefusal() : nullptr;
}

std::vector<LumoConnection::TableInfo> Context::Tables() {
    const auto& session = Session();
    return opened_.embedded ? opened_.embedded->Tables() : ServerTables(session);
}

Int32 Context::Client() {
    if (!options.client) options.client = ActiveClient(Session());
    return *options.client;
}

void Context::Print(const Sheet& sheet, Shape shape) const {
    Text text;
    switch (options.format) {
        case Format::kTable: {
            const auto terminal = TerminalOf(stdout);
            text = TableText(sheet, shape, {terminal.width, terminal.colour});
            break;
        }
        case Format::kJson:
            text = JsonText(sheet, shape);
            break;
        case Format::kCsv:
            text = CsvText(sheet);
            break;
    }
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

void Context::Note(std::string_view text) const {
    if (options.format == Format::kTable) fmt::print(stderr, "{}\n", text);
}

Int32 ActiveClient(const Ref<DataSession>& session) {
    const Variant client = session->LookupValue("MDNR", "OpactMD", "");
    return client.IsNull() ? 1 : To<Int32>(client);
}

void Report(const Error& error) {
    std::fflush(stdout);
    fmt::print(stderr, "lumoseminar: {}", FailureText(error));
}

}  // namespace frontend
