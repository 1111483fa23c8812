#include "frontend/commands/look_ups.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/output/screen_text.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

// Key, number, name and first name.
Text SelectOf(Context& context, KindOfPerson kind) {
    switch (kind) {
        case KindOfPerson::kApplicant:
            return "SELECT BWID, BWNr, Nachname, Vornamem FROM BW WHERE 1 = 1";
        case KindOfPerson::kWorker:
            return "SELECT LID, '', Name, Vorname FROM LA WHERE 1 = 1";
        case KindOfPerson::kEmployee:
            break;
    }
    return fmt::format("SELECT ANNR, '', Name, Vorname FROM arbeitnehmer WHERE MDNR = {}", context.Client());
}

struct NameColumns {
    const char* name;
    const char* first_name;
};

NameColumns NameColumnsOf(KindOfPerson kind) {
    return kind == KindOfPerson::kApplicant ? NameColumns{"Nachname", "Vornamem"} : NameColumns{"Name", "Vorname"};
}

Text TextOf(const Variant& value) { return value.IsNull() ? Text() : To<Text>(value); }

std::vector<PersonRow> SelectPersons(Context& context, KindOfPerson kind, const Text& condition) {
    const auto [name, first_name] = NameColumnsOf(kind);
    const auto sheet =
        Select(context, SelectOf(context, kind) + condition + fmt::format(" ORDER BY {}, {}, 1", name, first_name));
    std::vector<PersonRow> persons;
    for (const auto& row : sheet.rows) {
        PersonRow person{kind, To<Int32>(row[0]), TextOf(row[1]), TextOf(row[2]), TextOf(row[3])};
        if (kind != KindOfPerson::kApplicant) person.number = fmt::to_string(person.key);
        persons.push_back(std::move(person));
    }
    return persons;
}

// The front of a value, as a pattern of LIKE.
Text FrontPattern(std::string_view front) {
    Text pattern;
    for (const char c : front) {
        if (c == '%' || c == '_' || c == '[') {
            pattern += fmt::format("[{}]", c);
        } else {
            pattern += c;
        }
    }
    return fmt::format("N'{}%'", Quoted(pattern));
}

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

struct TypedName {
    std::string_view name;
    std::string_view first_name;
};

// What a text may mean. Only where there is a comma is it known which of the words are the name.
std::vector<TypedName> ReadName(std::string_view typed) {
    if (const auto comma = typed.find(','); comma != std::string_view::npos) {
        return {{Trimmed(typed.substr(0, comma)), Trimmed(typed.substr(comma + 1))}};
    }
    std::vector<TypedName> names = {{Trimmed(typed), {}}};
    for (auto blank = typed.find(' '); blank != std::string_view::npos; blank = typed.find(' ', blank + 1)) {
        const auto front = Trimmed(typed.substr(0, blank));
        const auto back = Trimmed(typed.substr(blank));
        if (front.empty() || back.empty()) continue;
        names.push_back({back, front});
        names.push_back({front, back});
    }
    return names;
}

Text ConditionFor(const std::vector<TypedName>& names, KindOfPerson kind) {
    const auto columns = NameColumnsOf(kind);
    Text condition;
    for (const auto& one : names) {
        condition += condition.empty() ? " AND (" : " OR ";
        condition += fmt::format("({} LIKE {}", columns.name, FrontPattern(one.name));
        if (!one.first_name.empty())
            condition += fmt::format(" AND {} LIKE {}", columns.first_name, FrontPattern(one.first_name));
        condition += ")";
    }
    return condition + ")";
}

bool IsInFull(const PersonRow& person, const TypedName& typed) {
    return FoldCase(person.name) == FoldCase(typed.name) &&
           (typed.first_name.empty() || FoldCase(person.first_name) == FoldCase(typed.first_name));
}

// Those whose name was typed in full; without any, those whose name begins so; without any, those whose first name does.
std::vector<PersonRow> PersonsNamed(Context& context, std::string_view typed, KindOfPerson kind) {
    const auto names = ReadName(typed);
    auto persons = SelectPersons(context, kind, ConditionFor(names, kind));
    if (persons.empty() && names.size() == 1 && names.front().first_name.empty()) {
        return SelectPersons(
            context, kind, fmt::format(" AND {} LIKE {}", NameColumnsOf(kind).first_name, FrontPattern(names.front().name)));
    }
    std::vector<PersonRow> in_full;
    std::ranges::copy_if(persons, std::back_inserter(in_full), [&](const PersonRow& person) {
        return std::ranges::any_of(names, [&](const TypedName& name) { return IsInFull(person, name); });
    });
    return in_full.empty() ? persons : in_full;
}

struct Candidate {
    Text key;
    Text name;
};

Text Listed(const std::vector<Candidate>& candidates) {
    constexpr std::size_t kMost = 20;
    std::size_t width = 0;
    for (const auto& one : candidates) width = std::max(width, one.key.size());
    Text lines;
    for (std::size_t i = 0; i < std::min(candidates.size(), kMost); ++i) {
        lines += fmt::format("\n    {:>{}}  {}", candidates[i].key, width, Visible(candidates[i].name));
    }
    if (candidates.size() > kMost) lines += fmt::format("\n    and {} more", candidates.size() - kMost);
    return lines;
}

std::vector<Candidate> CandidatesOf(const std::vector<PersonRow>& persons) {
    std::vector<Candidate> candidates;
    for (const auto& person : persons) candidates.push_back({fmt::to_string(person.key), person.NameVorname()});
    return candidates;
}

[[noreturn]] void RaiseUndecided(std::string_view named, std::string_view typed, const Text& count,
                                 const std::vector<Candidate>& candidates) {
    throw Undecided(fmt::format("{}: {} is not unambiguous: {}.{}", named, OneLine(typed), count, Listed(candidates)));
}

// Somebody of another kind may be meant.
[[noreturn]] void RaiseNobodyNamed(Context& context, std::string_view typed, KindOfPerson kind) {
    const bool of_client = kind == KindOfPerson::kEmployee;
    Text told = fmt::format("There is no {} {}{}.", NameOf(kind), OneLine(typed),
                            of_client ? fmt::format(" of client {}", context.Client()) : "");
    for (const auto other : kKindsOfPersons) {
        if (other == kind) continue;
        const auto persons = PersonsNamed(context, typed, other);
        if (persons.size() == 1) {
            told += fmt::format(" {} is {} {}.", persons.front().NameVorname(), NameOf(other), persons.front().key);
        } else if (!persons.empty()) {
            told += fmt::format(" There are {} of that name.", Counted(persons.size(), NameOf(other)));
        }
    }
    Raise(ErrorNumber::kKeyNotFound, told);
}

bool HasLetter(std::string_view text) {
    return std::ranges::any_of(text, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
    });
}

// For what is no name.
Int32 ReadKey(std::string_view named, const std::string& typed) {
    if (typed.empty() || typed.find_first_not_of("-0123456789") != std::string::npos) {
        throw UsageError(fmt::format("{}: {} is neither a number nor a name.", named, OneLine(typed)));
    }
    return ReadInt32(named, typed);
}

}  // namespace

Sheet Select(Context& context, const Text& sql) {
    const auto& session = context.Session();
    if (!session->OpenSelect(sql)) RaiseRefused(session->LastErrorText());
    const auto rows = session->Recordset();
    auto sheet = ReadRows(rows);
    rows->Close();
    return sheet;
}

Text PersonRow::NameVorname() const {
    return name.empty() || first_name.empty() ? name + first_name : name + ", " + first_name;
}

std::vector<PersonRow> PersonsOf(Context& context, KindOfPerson kind) { return SelectPersons(context, kind, ""); }

bool IsEmployee(Context& context, Int32 client, Int32 key) {
    return !Select(context, fmt::format("SELECT ANNR FROM arbeitnehmer WHERE MDNR = {} AND ANNR = {}", client, key))
                .rows.empty();
}

Int32 ReadPerson(Context& context, std::string_view named, const std::string& typed, KindOfPerson kind) {
    if (!HasLetter(typed)) return ReadKey(named, typed);
    if (kind == KindOfPerson::kApplicant) {
        const auto numbered = SelectPersons(context, kind, fmt::format(" AND BWNr = N'{}'", Quoted(Trimmed(typed))));
        if (numbered.size() == 1) return numbered.front().key;
    }
    const auto persons = PersonsNamed(context, typed, kind);
    if (persons.empty()) RaiseNobodyNamed(context, typed, kind);
    if (persons.size() > 1) RaiseUndecided(named, typed, Counted(persons.size(), NameOf(kind)), CandidatesOf(persons));
    return persons.front().key;
}

Sheet FocusAreas(Context& context) {
    // Where the constants are kept per client, each has focus areas of its own.
    const bool is_per_client =
        !Select(context, "SELECT OptionID FROM optionen_database_dt WHERE OptionID = 30 AND Wert = '-1'").rows.empty();
    Text sql = "SELECT WBS_ID AS SchwerpunktID, Weiterbildungsschwerpunkt AS WBS FROM sysIData_WBS";
    if (is_per_client) {
        sql += fmt::format(" WHERE WBS_ID IN (SELECT WBS_ID FROM sysIData_WBS_Mandant_IT WHERE MDNr = {})", context.Client());
    }
    return Select(context, sql + " ORDER BY Weiterbildungsschwerpunkt, WBS_ID");
}

Int32 ReadFocusArea(Context& context, std::string_view named, const std::string& typed) {
    if (!HasLetter(typed)) return ReadKey(named, typed);
    const auto wanted = FoldCase(Trimmed(typed));
    std::vector<Candidate> in_full;
    std::vector<Candidate> by_front;
    for (const auto& row : FocusAreas(context).rows) {
        const Candidate area{fmt::to_string(To<Int32>(row[0])), TextOf(row[1])};
        const auto name = FoldCase(area.name);
        if (name == wanted) in_full.push_back(area);
        if (name.starts_with(wanted)) by_front.push_back(area);
    }
    const auto& found = in_full.empty() ? by_front : in_full;
    if (found.empty()) {
        Raise(ErrorNumber::kKeyNotFound,
              fmt::format("There is no focus area {}. \"lumoseminar focus list\" tells which there are.", OneLine(typed)));
    }
    if (found.size() > 1) RaiseUndecided(named, typed, Counted(found.size(), "focus area"), found);
    return To<Int32>(Variant(found.front().key));
}

}  // namespace frontend
