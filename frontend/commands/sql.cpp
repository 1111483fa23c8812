#include <LumoConnection/batches.h>
#include <fmt/format.h>

#include <iostream>
#include <iterator>
#include <memory>

#include "frontend/commands/commands.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/files.h"
#include "frontend/output/failure.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

struct SqlOptions {
    std::string text;
    std::string file;
};

std::string ReadText(const SqlOptions& options) {
    if (!options.file.empty() && !options.text.empty()) throw UsageError("Give a text or a file, not both.");
    if (!options.file.empty()) return ReadFile(options.file);
    if (options.text.empty()) throw UsageError("Give a text, --file FILE, or - for standard input.");
    if (options.text != "-") return options.text;
    return {std::istreambuf_iterator<char>(std::cin), {}};
}

Text CountText(Int32 count, const char* what) {
    return fmt::format("({} row{}{})", count, count == 1 ? "" : "s", what);
}

// Prints the row sets of a run, parted by blank lines.
class RowPrinter {
  public:
    explicit RowPrinter(const Context& context) : context_(context) {}

    void Print(const Ref<RecordSet>& rows) {
        const Sheet sheet = ReadRows(rows);
        if (printed_ && context_.options.format != Format::kJson) std::fputc('\n', stdout);
        context_.Print(sheet);
        context_.Note(CountText(static_cast<Int32>(sheet.rows.size()), ""));
        printed_ = true;
    }

  private:
    const Context& context_;
    bool printed_ = false;
};

int Sql(Context& context, const SqlOptions& options) {
    const auto batches = LumoConnection::SplitBatches(ReadText(options));
    if (batches.empty()) throw UsageError("There is no statement in the text.");
    const auto connection = context.Session()->AdoConnection();
    RowPrinter printer(context);
    for (const auto& batch : batches) {
        try {
            const auto rows = connection->Execute(batch.text);
            if (rows->Fields().Count() != 0) {
                printer.Print(rows);
            } else if (const auto changed = context.RowsChanged()) {
                context.Note(CountText(*changed, " changed"));
            }
        } catch (const Error& error) {
            const auto rows = context.RowsBeforeRefusal();
            if (rows && rows->Fields().Count() != 0) printer.Print(rows);
            Report(error);
            if (const auto place = context.RefusedAt()) {
                fmt::print(stderr, "{}", PlaceText(batch.text, *place, batch.line));
            }
            if (batches.size() > 1) {
                fmt::print(stderr, "    in the batch from line {}; the batches behind it were not run\n", batch.line);
            }
            return kRefused;
        }
    }
    return kDone;
}

}  // namespace

void AddSql(Command& program) {
    auto& command = program.Add("sql", "Run a text of T-SQL and print the rows");
    const auto options = std::make_shared<SqlOptions>();
    command.Argument("TEXT", &options->text, "The text, or - for standard input");
    command.Option("--file", &options->file, "FILE", "A file with the text").ExistingFile();
    command.Remark(
        "Batches are parted by lines GO. Of each batch the rows of the first statement\n"
        "that yields any are printed, also where a statement behind it is refused; the\n"
        "first batch that is refused ends the run. In JSON each row set is an array of\n"
        "its own, in CSV a blank line stands between.");
    command.Does([options](Context& context) { return Sql(context, *options); });
}

}  // namespace frontend
