#include <fmt/format.h>

#include <memory>
#include <string>

#include "frontend/commands/arguments.h"
#include "frontend/commands/commands.h"
#include "frontend/commands/lists.h"
#include "frontend/commands/look_ups.h"
#include "frontend/commands/persons.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/output/findings.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

struct CheckOptions {
    std::string date;
    std::string person;
    std::string kind;
    bool no_check_seminar = false;
    bool no_check_taken = false;
    bool no_check_prerequisites = false;
    bool german = false;
};

int Check(Context& context, const CheckOptions& options) {
    const Int32 date = ReadInt32("DATE", options.date);
    const auto kind = ReadKind(options.kind);
    const Int32 key = ReadPerson(context, "PERSON", options.person, kind);
    DateOf(context, date);
    const auto person = PersonOf(context, key, kind);
    const auto findings =
        person->TeilnahmePruefen(date, !options.no_check_seminar, !options.no_check_taken, !options.no_check_prerequisites);
    const auto language = options.german ? Language::kGerman : Language::kEnglish;
    Sheet sheet{{"ErrID", "Finding"}, {}};
    for (const auto& finding : findings->NewEnum()) {
        sheet.rows.push_back({finding->ErrID(), FindingText(*finding, language)});
    }
    context.Print(sheet);
    context.Note(Counted(sheet.rows.size(), "finding") + ", looked for without a client");
    return sheet.rows.empty() ? kDone : kRefused;
}

}  // namespace

void AddCheck(Command& program) {
    auto& command = program.Add("check", "Tell what speaks against a person's request for a date");
    const auto options = std::make_shared<CheckOptions>();
    TakeDate(command, &options->date);
    TakePerson(command, &options->person);
    AddKindOption(command, options->kind);
    command.Flag("--no-check-seminar", options->no_check_seminar, "Do not look for open dates of the same seminar");
    command.Flag("--no-check-taken", options->no_check_taken, "Do not look whether the seminar was taken before");
    command.Flag("--no-check-prerequisites", options->no_check_prerequisites, "Do not look at prerequisites");
    command.Flag("--german", options->german, "Tell the findings in German");
    command.Remark(
        "Nothing is written, and approve does not ask for it. The checks are not told the client: of an employee they find\n"
        "only what is entered without one. Of anybody else they are not told the person either, and take each participant\n"
        "of the date for it. participants enrol checks with both, before it writes.");
    command.Does([options](Context& context) { return Check(context, *options); });
}

}  // namespace frontend
