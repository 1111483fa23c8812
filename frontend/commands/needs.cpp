#include <fmt/format.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "frontend/commands/commands.h"
#include "frontend/commands/need_record.h"
#include "frontend/commands/persons.h"
#include "frontend/commands/requests.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/program.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

struct PersonAndUser {
    std::string person;
    std::string area;
    std::string user;
};

void AddPerson(CLI::App* command, std::string& person) {
    command->add_option("PERSON", person, "Number of the employee")->required()->type_name("N");
}

// list

struct ListOptions {
    std::string person;
    std::optional<std::string> user;
};

int List(Context& context, const ListOptions& options) {
    const Int32 key = ReadInt32("PERSON", options.person);
    const bool asks_for_user = options.user.has_value();
    const Int32 user = asks_for_user ? ReadUser(*options.user) : 0;
    const auto person = PersonOf(context, key, KindOfPerson::kEmployee);
    Sheet sheet = NeedHead();
    if (asks_for_user) sheet.columns.emplace_back("MayDecide");
    for (const auto& need : person->colWBBedarf()->NewEnum()) {
        AddNeedRow(context, sheet, *need);
        if (asks_for_user) sheet.rows.back().emplace_back(need->BenutzerHatGenehmigungsrechte(user) ? "yes" : "no");
    }
    context.Print(sheet);
    context.Note(Counted(sheet.rows.size(), "training need"));
    return kDone;
}

void AddList(Program& program, CLI::App* needs) {
    auto* command = needs->add_subcommand("list", "List the training needs of an employee and how far each has come");
    const auto options = std::make_shared<ListOptions>();
    AddPerson(command, options->person);
    command->add_option("--user-id", options->user, "Show whether this user may decide on each now")->type_name("N");
    command->footer(
        "State is that of the need: open, fulfilled, rejected. Process is that of its approval, \"Kein Vorgang\" where\n"
        "there is none. A need costs up to three statements, up to three more with --user-id.");
    program.OnCommand(command, [&program, options] { return List(program.Work(), *options); });
}

// add

void ShowNeed(Context& context, Int32 key, const char* outcome) {
    Sheet sheet = NeedHead();
    AddNeedRow(context, sheet, *NeedOf(context, key));
    sheet.columns.emplace_back("Outcome");
    sheet.rows.front().emplace_back(outcome);
    context.Print(sheet, Shape::kOneRow);
}

Int32 CountOfNeeds(Context& context, Int32 person) {
    const auto list = New<colANWBBedarf>();
    list->LoadBedarfArbeitnehmer(context.Session(), context.Client(), person);
    return list->Count();
}

int Add(Context& context, const PersonAndUser& typed) {
    const Int32 key = ReadInt32("PERSON", typed.person);
    const Int32 area = ReadInt32("AREA", typed.area);
    const Int32 user = ReadUser(typed.user);
    const auto person = PersonOf(context, key, KindOfPerson::kEmployee);
    if (LookUpArea(context, "WBS_ID", area).IsNull()) {
        Raise(ErrorNumber::kKeyNotFound, fmt::format("There is no focus area {}.", area));
    }
    const Int32 before = CountOfNeeds(context, key);
    Int32 need = 0;
    try {
        need = person->BedarfErfassen(area, user);
    } catch (...) {
        if (CountOfNeeds(context, key) != before) {
            fmt::print(stderr, "lumoseminar: the need was recorded, but its process was not opened.\n");
        }
        throw;
    }
    ShowNeed(context, need, "recorded, process opened");
    return kDone;
}

void AddAdd(Program& program, CLI::App* needs) {
    auto* command = needs->add_subcommand("add", "Record a new training need, and show the record as it is stored");
    const auto typed = std::make_shared<PersonAndUser>();
    AddPerson(command, typed->person);
    command->add_option("AREA", typed->area, "Key of the focus area (WBS)")->required()->type_name("N");
    AddUserOption(command, typed->user, "Number of the user on whose behalf the process is opened")->required();
    program.OnCommand(command, [&program, typed] { return Add(program.Work(), *typed); });
}

// reject

int Reject(Context& context, Int32 key, Int32 user) {
    const auto need = NeedOf(context, key);
    return TakeStep(ProcessOf(*need), [&] {
        // The result is false in any case.
        need->BedarfAblehnen(user);
        const bool is_over = StateOf(*NeedOf(context, key)) == "rejected";
        ShowNeed(context, key, is_over ? "rejected" : "rejection recorded, more is pending");
        return kDone;
    });
}

void AddReject(Program& program, CLI::App* needs) {
    struct Typed {
        std::string key;
        std::string user;
    };
    auto* command = needs->add_subcommand("reject", "Reject a training need, and show the record as it is stored");
    const auto typed = std::make_shared<Typed>();
    command->add_option("KEY", typed->key, "WBID of the need")->required()->type_name("N");
    AddUserOption(command, typed->user, "Number of the user who decides")->required();
    command->footer("It is approved by consent --need.");
    program.OnCommand(command, [&program, typed] {
        const Int32 key = ReadInt32("KEY", typed->key);
        return Reject(program.Work(), key, ReadUser(typed->user));
    });
}

// remove

int Remove(Context& context, const std::vector<Int32>& keys) {
    // Every key is looked up before anything is removed.
    std::vector<Ref<clsANWBBedarf>> needs;
    needs.reserve(keys.size());
    for (const Int32 key : keys) needs.push_back(NeedOf(context, key));
    Sheet sheet{{"WBID", "ANNr", "Outcome"}, {}};
    try {
        for (const auto& need : needs) {
            need->DeleteFromDatabase();
            sheet.rows.push_back({need->WBID(), need->ANNr(), "removed"});
        }
    } catch (...) {
        context.Print(sheet);
        throw;
    }
    context.Print(sheet);
    return kDone;
}

void AddRemove(Program& program, CLI::App* needs) {
    auto* command = needs->add_subcommand("remove", "Remove training needs; none where one of the keys is unknown");
    const auto typed = std::make_shared<std::vector<std::string>>();
    command->add_option("KEY", *typed, "WBID of each need")->required()->type_name("N");
    command->footer("Their processes are dropped.");
    program.OnCommand(command, [&program, typed] { return Remove(program.Work(), ReadKeys("KEY", *typed)); });
}

}  // namespace

void AddNeeds(Program& program) {
    auto* needs = program.AddCommand("needs", "The training needs of an employee: list, add, reject, remove");
    needs->require_subcommand(1);
    AddList(program, needs);
    AddAdd(program, needs);
    AddReject(program, needs);
    AddRemove(program, needs);
}

}  // namespace frontend
