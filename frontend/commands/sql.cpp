#include <LumoConnection/batches.h>
#include <LumoConnection/text_file.h>
#include <fmt/format.h>

#include <iostream>
#include <iterator>
#include <memory>
#include <utility>

#include "frontend/commands/commands.h"
#include "frontend/context.h"
#include "frontend/dry_run.h"
#include "frontend/exit_codes.h"
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
    if (!options.file.empty()) return LumoConnection::ReadTextFile(options.file);
    if (options.text.empty()) throw UsageError("Give a text, --file FILE, or - for standard input.");
    if (options.text != "-") return options.text;
    return {std::istreambuf_iterator<char>(std::cin), {}};
}

Text CountText(Int32 count, const char* what) {
    return fmt::format("({} row{}{})", count, count == 1 ? "" : "s", what);
}

// Prints the row sets of a run: as they come, parted by blank lines; in JSON at its end, as one document.
class RowPrinter {
  public:
    RowPrinter(const Context& context, std::size_t batches) : context_(context), batches_(batches) {}

    void Finish() const {
        if (context_.options.format != Format::kJson) return;
        if (batches_ > 1 || sheets_.size() > 1) {
            context_.PrintAll(sheets_);
        } else {
            context_.Print(sheets_.empty() ? Sheet() : sheets_.front());
        }
    }

    void Print(const Ref<RecordSet>& rows) {
        Sheet sheet = ReadRows(rows);
        if (context_.options.format == Format::kJson) {
            sheets_.push_back(std::move(sheet));
            return;
        }
        if (printed_) std::fputc('\n', stdout);
        context_.Print(sheet);
        context_.Note(CountText(static_cast<Int32>(sheet.rows.size()), ""));
        printed_ = true;
    }

  private:
    const Context& context_;
    std::size_t batches_;
    std::vector<Sheet> sheets_;
    bool printed_ = false;
};

int ShowBatches(const Context& context, const std::vector<LumoConnection::Batch>& batches) {
    std::vector<Text> texts;
    for (const auto& batch : batches) texts.push_back(batch.text);
    PrintStatements(context, texts);
    context.Note(fmt::format("{} batch{}, none of them sent", texts.size(), texts.size() == 1 ? "" : "es"));
    return kDone;
}

int RunBatches(Context& context, const std::vector<LumoConnection::Batch>& batches, RowPrinter& printer) {
    for (const auto& batch : batches) {
        try {
            const auto all = context.RunText(batch.text);
            for (const auto& rows : all) printer.Print(rows);
            if (!all.empty()) continue;
            if (const auto changed = context.RowsChanged()) {
                context.Note(CountText(*changed, " changed"));
            }
        } catch (const Error& error) {
            for (const auto& rows : context.RowSetsBeforeRefusal()) printer.Print(rows);
            context.ReportWithNumber(error);
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

int Sql(Context& context, const SqlOptions& options) {
    const auto batches = LumoConnection::SplitBatches(ReadText(options));
    if (batches.empty()) throw UsageError("There is no statement in the text.");
    if (context.options.dry_run) return ShowBatches(context, batches);
    // What fails here is no refusal of a batch.
    context.AnyDatabase();
    RowPrinter printer(context, batches.size());
    const int code = RunBatches(context, batches, printer);
    printer.Finish();
    return code;
}

}  // namespace

void AddSql(Command& program) {
    auto& command = program.Add("sql", "Run a text of T-SQL and print the rows");
    const auto options = std::make_shared<SqlOptions>();
    command.Argument("TEXT", &options->text, "The text, or - for standard input");
    command.Option("--file", &options->file, "FILE", "A file with the text").ExistingFile();
    command.Remark(
        "Batches are parted by lines GO. Of each batch all row sets are printed, on the\n"
        "embedded database also where a statement behind them is refused; the first\n"
        "batch that is refused ends the run. In JSON a text of one batch with one row set\n"
        "gives the array of its rows, any other an array of such arrays; in CSV a blank\n"
        "line stands between. --dry-run prints the batches.");
    command.Writes(DryRun::kOwn);
    command.Does([options](Context& context) { return Sql(context, *options); });
}

}  // namespace frontend
