#include <fmt/format.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "frontend/asking.h"
#include "frontend/commands/arguments.h"
#include "frontend/commands/commands.h"
#include "frontend/commands/look_ups.h"
#include "frontend/commands/need_record.h"
#include "frontend/commands/persons.h"
#include "frontend/commands/requests.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/output/screen_text.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

struct PersonAndUser {
    std::string person;
    std::string area;
    std::string user;
};

void AddPerson(Command& command, std::string& person) { TakeEmployee(command, &person); }

// list

struct ListOptions {
    std::string person;
    std::optional<std::string> user;
};

int List(Context& context, const ListOptions& options) {
    const bool asks_for_user = options.user.has_value();
    const Int32 user = asks_for_user ? ReadUser(*options.user) : 0;
    const Int32 key = ReadPerson(context, "PERSON", options.person);
    const auto person = PersonOf(context, key, KindOfPerson::kEmployee);
    Sheet sheet = NeedHead();
    if (asks_for_user) sheet.columns.emplace_back("MayDecide");
    for (const auto& need : person->colWBBedarf()->NewEnum()) {
        AddNeedRow(context, sheet, *need);
        if (asks_for_user) sheet.rows.back().emplace_back(need->BenutzerHatGenehmigungsrechte(user));
    }
    context.Print(sheet);
    context.Note(Counted(sheet.rows.size(), "training need"));
    return kDone;
}

void AddList(Command& needs) {
    auto& command = needs.Add("list", "List the training needs of an employee and how far each has come");
    const auto options = std::make_shared<ListOptions>();
    AddPerson(command, options->person);
    command.Option("--user-id", &options->user, "N", "Show whether this user may decide on each now");
    command.Remark(
        "State is that of the need: open, fulfilled, rejected. Process is that of its approval, \"Kein Vorgang\" where\n"
        "there is none. A need costs up to three statements, up to three more with --user-id.");
    command.Does([options](Context& context) { return List(context, *options); });
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
    const Int32 user = ReadUser(typed.user);
    const Int32 key = ReadPerson(context, "PERSON", typed.person);
    const Int32 area = ReadFocusArea(context, "AREA", typed.area);
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
            fmt::print(stderr, "lumoseminar: The need was recorded, but its process was not opened.\n");
        }
        throw;
    }
    ShowNeed(context, need, "recorded, process opened");
    return kDone;
}

void AddAdd(Command& needs) {
    auto& command = needs.Add("add", "Record a new training need, and show the record as it is stored");
    const auto typed = std::make_shared<PersonAndUser>();
    AddPerson(command, typed->person);
    command.Argument("AREA", &typed->area, "Key or name of the focus area (WBS)").Required().Naming(Names::kFocusArea);
    AddUserOption(command, typed->user, "Number of the user on whose behalf the process is opened").Required();
    command.Writes();
    command.Does([typed](Context& context) { return Add(context, *typed); });
}

// reject

int Reject(Context& context, Int32 key, Int32 user) {
    const auto need = NeedOf(context, key);
    return TakeStep(ProcessOf(*need), [&] {
        // It is written with all its texts.
        need->Bemerkungen(Quoted(need->Bemerkungen()));
        // The result is false in any case.
        need->BedarfAblehnen(user);
        const bool is_over = StateOf(*NeedOf(context, key)) == "rejected";
        ShowNeed(context, key, is_over ? "rejected" : "rejection recorded, more is pending");
        return kDone;
    });
}

void AddReject(Command& needs) {
    struct Typed {
        std::string key;
        std::string user;
    };
    auto& command = needs.Add("reject", "Reject a training need, and show the record as it is stored");
    const auto typed = std::make_shared<Typed>();
    command.Argument("KEY", &typed->key, "WBID of the need").Required().Naming(Names::kNeed);
    AddUserOption(command, typed->user, "Number of the user who decides").Required();
    command.Remark("It is approved by consent --need.");
    command.Writes();
    command.Does([typed](Context& context) {
        const Int32 key = ReadInt32("KEY", typed->key);
        return Reject(context, key, ReadUser(typed->user));
    });
}

// remove

Question MayRemove(Context& context, const std::vector<Int32>& keys) {
    Question question{"", fmt::format("Remove {}?", Counted(keys.size(), "training need")), "Nothing was removed."};
    for (const Int32 key : keys) {
        const auto need = NeedOf(context, key);
        const Variant area = LookUpArea(context, "Weiterbildungsschwerpunkt", need->WBS());
        question.facts +=
            fmt::format("Training need {} of employee {}, {}: its process goes with it (\"{}\").\n", key, need->ANNr(),
                        Visible(area.IsNull() ? fmt::format("focus area {}", need->WBS()) : To<Text>(area)),
                        Visible(need->StatusText()));
    }
    return question;
}

int Remove(Context& context, const std::vector<Int32>& keys) {
    // Every key is looked up before anything is removed.
    std::vector<Ref<clsANWBBedarf>> needs;
    needs.reserve(keys.size());
    for (const Int32 key : keys) needs.push_back(NeedOf(context, key));
    if (!IsAgreedOrYes(context, [&] { return MayRemove(context, keys); })) return kRefused;
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

void AddRemove(Command& needs) {
    auto& command = needs.Add("remove", "Remove training needs; none where one of the keys is unknown");
    const auto typed = std::make_shared<std::vector<std::string>>();
    command.Argument("KEY", typed.get(), "WBID of each need").Required().Naming(Names::kNeed);
    command.Remark("Their processes are dropped.");
    command.Asks();
    command.Writes();
    command.Does([typed](Context& context) { return Remove(context, ReadKeys("KEY", *typed)); });
}

}  // namespace

void AddNeeds(Command& program) {
    auto& needs = program.Add("needs", "The training needs of an employee: list, add, reject, remove");
    AddList(needs);
    AddAdd(needs);
    AddReject(needs);
    AddRemove(needs);
}

}  // namespace frontend
