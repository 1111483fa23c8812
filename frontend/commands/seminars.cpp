#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

#include "frontend/commands/commands.h"
#include "frontend/commands/seminar_columns.h"
#include "frontend/exit_codes.h"
#include "frontend/output/screen_text.h"
#include "frontend/program.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr const char* kKeyColumn = "SemID";

Ref<colSeminare> Catalogue(Context& context) {
    auto list = New<colSeminare>();
    if (!list->Init(context.Client(), context.Session())) RaiseRefused(context.Session()->LastErrorText());
    return list;
}

Sheet HeadOf(bool all_columns) {
    Sheet sheet{{kKeyColumn}, {}};
    for (const auto& column : SeminarColumns()) {
        if (all_columns || column.in_list) sheet.columns.emplace_back(column.name);
    }
    return sheet;
}

void AddRow(Sheet& sheet, clsSeminar& seminar, bool all_columns) {
    auto& row = sheet.rows.emplace_back();
    row.push_back(seminar.SemID());
    for (const auto& column : SeminarColumns()) {
        if (all_columns || column.in_list) row.push_back(column.Get(seminar));
    }
}

void Show(Context& context, clsSeminar& seminar) {
    Sheet sheet = HeadOf(true);
    AddRow(sheet, seminar, true);
    context.Print(sheet, Shape::kOneRow);
}

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
    const auto list = Catalogue(context);
    const std::string filter = FoldCase(options.filter);
    const auto Matches = [&](clsSeminar& seminar) {
        return filter.empty() || FoldCase(seminar.SemTitel()).find(filter) != std::string::npos ||
               FoldCase(seminar.SemCode()).find(filter) != std::string::npos;
    };
    Sheet sheet = HeadOf(options.all_columns);
    for (const auto& seminar : list->NewEnum()) {
        if (Matches(*seminar)) AddRow(sheet, *seminar, options.all_columns);
    }
    context.Print(sheet);
    const std::size_t shown = sheet.rows.size();
    context.Note(filter.empty() ? fmt::format("{} seminar{}", shown, shown == 1 ? "" : "s")
                                : fmt::format("{} of {} seminars", shown, list->Count()));
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
        Show(program.Work(), *Catalogue(program.Work())->Item(KeyText(number)));
        return kDone;
    });
}

// Values typed behind options, one place a column.
using TypedValues = std::array<std::optional<std::string>, 20>;

std::shared_ptr<TypedValues> AddColumnOptions(CLI::App* command) {
    const auto columns = SeminarColumns();
    auto values = std::make_shared<TypedValues>();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        command
            ->add_option("--" + std::string(columns[i].option), values->at(i),
                         fmt::format("{} ({})", columns[i].help, columns[i].name))
            ->type_name(columns[i].TypeName());
    }
    return values;
}

// A column and what was typed for it.
struct Change {
    const SeminarColumn* column;
    std::string named;
    std::string typed;
};

// All changes are read before any is carried out.
std::vector<Change> ReadChanges(const TypedValues& values, const std::vector<std::string>& pairs) {
    std::vector<Change> changes;
    for (const auto& pair : pairs) {
        const auto equals = pair.find('=');
        if (equals == std::string::npos) throw UsageError(OneLine(pair) + " is not of the form column=value.");
        const auto name = pair.substr(0, equals);
        const auto* column = FindSeminarColumn(name);
        if (column == nullptr) {
            throw UsageError(FoldCase(name) == "semid" ? "SemID is the key and cannot be changed."
                                                       : "A seminar has no column " + OneLine(name) + ".");
        }
        changes.push_back({column, column->name, pair.substr(equals + 1)});
    }
    const auto columns = SeminarColumns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (values[i]) changes.push_back({&columns[i], "--" + std::string(columns[i].option), *values[i]});
    }
    for (const auto& change : changes) change.column->Check(change.named, change.typed);
    return changes;
}

void LetAll(clsSeminar& seminar, const std::vector<Change>& changes) {
    for (const auto& change : changes) change.column->Let(seminar, change.named, change.typed);
}

// add

int Add(Context& context, const std::vector<Change>& changes) {
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
    const auto values = AddColumnOptions(command);
    command->get_option("--title")->required();
    command->footer(
        "The key is the greatest one plus 1. Without --mdnr the seminar belongs to the client.\n"
        "Numbers are typed with a point.");
    program.OnCommand(command, [&program, values] { return Add(program.Work(), ReadChanges(*values, {})); });
}

// set

int Set(Context& context, Int32 key, const std::vector<Change>& changes) {
    if (changes.empty()) throw UsageError("Nothing to set: name a column and its value.");
    const auto seminar = Catalogue(context)->Item(KeyText(key));
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
    const auto values = AddColumnOptions(command);
    program.OnCommand(command, [&program, typed, values] {
        const Int32 key = ReadInt32("KEY", typed->key);
        return Set(program.Work(), key, ReadChanges(*values, typed->pairs));
    });
}

// remove

int Remove(Context& context, const std::vector<Int32>& keys) {
    const auto list = Catalogue(context);
    // Every key is looked up before anything is removed. Reading the title reads the row: only then Remove deletes it.
    std::vector<Text> titles;
    titles.reserve(keys.size());
    for (const Int32 key : keys) titles.push_back(list->Item(KeyText(key))->SemTitel());
    Sheet sheet{{kKeyColumn, "SemTitel", "Outcome"}, {}};
    int code = kDone;
    try {
        for (std::size_t i = 0; i < keys.size(); ++i) {
            const Int32 before = list->Count();
            list->Remove(KeyText(keys[i]));
            const bool removed = list->Count() == before - 1;
            if (!removed) code = kRefused;
            sheet.rows.push_back({keys[i], titles[i], removed ? "removed" : "no longer there"});
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
    const auto typed = std::make_shared<std::vector<std::string>>();
    command->add_option("KEY", *typed, "SemID of each seminar")->required()->type_name("N");
    program.OnCommand(command, [&program, typed] {
        std::vector<Int32> keys;
        for (const auto& key : *typed) {
            const Int32 number = ReadInt32("KEY", key);
            if (std::ranges::find(keys, number) == keys.end()) keys.push_back(number);
        }
        return Remove(program.Work(), keys);
    });
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
