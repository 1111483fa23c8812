#include <fmt/format.h>

#include <memory>

#include "frontend/commands/commands.h"
#include "frontend/commands/lists.h"
#include "frontend/commands/seminar_columns.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/program.h"
#include "frontend/read_value.h"
#include "frontend/text_filter.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

void Show(Context& context, clsSeminar& seminar) {
    Sheet sheet = SeminarColumns().Head(Extent::kAll);
    SeminarColumns().AddRow(sheet, seminar, Extent::kAll);
    context.Print(sheet, Shape::kOneRow);
}

using SeminarChanges = std::vector<Change<clsSeminar>>;

// Reads the row anew: what is stored can differ from what was let.
void ShowStored(Context& context, Int32 key) {
    const auto seminar = New<clsSeminar>();
    seminar->Init(key, context.Session());
    Show(context, *seminar);
}

// list

struct ListOptions {
    bool all_columns = false;
    std::string filter;
};

int List(Context& context, const ListOptions& options) {
    const auto list = SeminarsOf(context);
    const TextFilter filter(options.filter);
    const Extent extent = options.all_columns ? Extent::kAll : Extent::kShort;
    Sheet sheet = SeminarColumns().Head(extent);
    for (const auto& seminar : list->NewEnum()) {
        if (!filter.FindsIn(seminar->SemTitel()) && !filter.FindsIn(seminar->SemCode())) continue;
        SeminarColumns().AddRow(sheet, *seminar, extent);
    }
    context.Print(sheet);
    const std::size_t shown = sheet.rows.size();
    context.Note(filter.IsEmpty() ? Counted(shown, "seminar") : fmt::format("{} of {} seminars", shown, list->Count()));
    return kDone;
}

void AddList(Program& program, CLI::App* seminars) {
    auto* command = seminars->add_subcommand("list", "List the seminars of the client and those common to all");
    const auto options = std::make_shared<ListOptions>();
    command->add_flag("--all-columns", options->all_columns, "All columns in place of the most wanted");
    command->add_option("--filter", options->filter, "Only seminars with this text in title or code, in any capitals")->type_name("TEXT");
    program.OnCommand(command, [&program, options] { return List(program.Work(), *options); });
}

// show

void AddShow(Program& program, CLI::App* seminars) {
    auto* command = seminars->add_subcommand("show", "Show all columns of one seminar");
    const auto key = std::make_shared<std::string>();
    command->add_option("KEY", *key, "SemID of the seminar")->required()->type_name("N");
    program.OnCommand(command, [&program, key] {
        const Int32 number = ReadInt32("KEY", *key);
        Show(program.Work(), *SeminarsOf(program.Work())->Item(KeyText(number)));
        return kDone;
    });
}

// add

int Add(Context& context, const SeminarChanges& changes) {
    const auto seminar = New<clsSeminar>();
    seminar->Init(0, context.Session());
    seminar->MDNR(context.Client());
    LetAll(*seminar, changes);
    seminar->WriteToDatabase();
    ShowStored(context, seminar->SemID());
    return kDone;
}

void AddAdd(Program& program, CLI::App* seminars) {
    auto* command = seminars->add_subcommand("add", "Add a seminar and show it as it is stored");
    const auto values = SeminarColumns().AddOptions(command);
    command->get_option("--title")->required();
    command->footer(
        "The key is the greatest one plus 1. Without --mdnr the seminar belongs to the client.\n"
        "Numbers are typed with a point.");
    program.OnCommand(command,
                      [&program, values] { return Add(program.Work(), SeminarColumns().ReadChanges(*values, {})); });
}

// set

int Set(Context& context, Int32 key, const SeminarChanges& changes) {
    if (changes.empty()) throw UsageError("Nothing to set: name a column and its value.");
    const auto seminar = SeminarsOf(context)->Item(KeyText(key));
    // The row is read before anything is let, so that the load does not take the changes away again.
    seminar->SemTitel();
    LetAll(*seminar, changes);
    if (!seminar->UpdateDatabase()) {
        fmt::print(stderr, "lumoseminar: seminar {} is no longer there; nothing was changed.\n", key);
        return kRefused;
    }
    ShowStored(context, key);
    return kDone;
}

void AddSet(Program& program, CLI::App* seminars) {
    struct Typed {
        std::string key;
        std::vector<std::string> pairs;
    };
    auto* command = seminars->add_subcommand("set", "Change columns of a seminar and show it as it is stored");
    const auto typed = std::make_shared<Typed>();
    command->add_option("KEY", typed->key, "SemID of the seminar")->required()->type_name("N");
    command->add_option("CHANGES", typed->pairs, "column=value, as in SemTitel=\"Erste Hilfe\" KostenProTN=49.90")->type_name("column=value");
    const auto values = SeminarColumns().AddOptions(command);
    program.OnCommand(command, [&program, typed, values] {
        const Int32 key = ReadInt32("KEY", typed->key);
        return Set(program.Work(), key, SeminarColumns().ReadChanges(*values, typed->pairs));
    });
}

// remove

// Asks only the list of dates that the removal has read. It is empty where the row could not be read.
const char* WhyKept(clsSeminar& seminar) {
    const auto dates = seminar.colTermine();
    return dates && dates->Count() != 0 ? "has dates" : "no longer there";
}

int Remove(Context& context, const std::vector<Int32>& keys) {
    const auto list = SeminarsOf(context);
    // Every key is looked up before anything is removed. Reading the title reads the row: only then Remove deletes it.
    std::vector<Text> titles;
    titles.reserve(keys.size());
    for (const Int32 key : keys) titles.push_back(list->Item(KeyText(key))->SemTitel());
    Sheet sheet{{SeminarColumns().key_name, "SemTitel", "Outcome"}, {}};
    int code = kDone;
    try {
        for (std::size_t i = 0; i < keys.size(); ++i) {
            const Int32 before = list->Count();
            list->Remove(KeyText(keys[i]));
            const bool removed = list->Count() == before - 1;
            if (!removed) code = kRefused;
            sheet.rows.push_back({keys[i], titles[i], removed ? "removed" : WhyKept(*list->Item(KeyText(keys[i])))});
        }
    } catch (...) {
        context.Print(sheet);
        throw;
    }
    context.Print(sheet);
    return code;
}

void AddRemove(Program& program, CLI::App* seminars) {
    auto* command = seminars->add_subcommand("remove", "Remove seminars; none where one of the keys is unknown");
    command->footer("A seminar that has dates stays.");
    const auto typed = std::make_shared<std::vector<std::string>>();
    command->add_option("KEY", *typed, "SemID of each seminar")->required()->type_name("N");
    program.OnCommand(command, [&program, typed] { return Remove(program.Work(), ReadKeys("KEY", *typed)); });
}

}  // namespace

void AddSeminars(Program& program) {
    auto* seminars = program.AddCommand("seminars", "The seminar catalogue: list, show, add, set, remove");
    seminars->require_subcommand(1);
    AddList(program, seminars);
    AddShow(program, seminars);
    AddAdd(program, seminars);
    AddSet(program, seminars);
    AddRemove(program, seminars);
}

}  // namespace frontend
