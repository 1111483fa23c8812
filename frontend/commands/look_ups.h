#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/commands/persons.h"
#include "frontend/context.h"

namespace frontend {

// Plain selects of the front end's own, for what the library has no list of, and the names that people type in place of
// keys. Where the database refuses a select they raise 9999.

/// The rows of a select.
Sheet Select(Context& context, const LumoSeminar::Text& sql);

/// A row of one of the three tables of persons.
struct PersonRow {
    KindOfPerson kind = KindOfPerson::kEmployee;
    LumoSeminar::Int32 key = 0;
    /// As people know it; the key for those who have no other.
    LumoSeminar::Text number;
    LumoSeminar::Text name;
    LumoSeminar::Text first_name;

    /// "Kölbl, Norbert"; without a comma where one of the names is missing.
    LumoSeminar::Text NameVorname() const;
};

/// The persons of a kind by name: the employees of the client, the applicants and temporary workers of all clients.
std::vector<PersonRow> PersonsOf(Context& context, KindOfPerson kind);

/// Whether a client has such an employee.
bool IsEmployee(Context& context, LumoSeminar::Int32 client, LumoSeminar::Int32 key);

/// The key of a person of whom the number or the name was typed: "130", "Kölbl", "Kölbl, Norbert", "Norbert Kölbl", the
/// front of a name, in any capitals. A name in full counts more than the front of others. A number is not looked up.
/// Raises UsageError where the text is neither, key not found (5) where nobody has that name, Undecided where more than
/// one person has it.
/// @param named  what was typed: "PERSON", "--person"
LumoSeminar::Int32 ReadPerson(Context& context, std::string_view named, const std::string& typed,
                              KindOfPerson kind = KindOfPerson::kEmployee);

/// The focus areas that the client sees, by name.
Sheet FocusAreas(Context& context);

/// The key of a focus area, of which the key or the name was typed. Raises as ReadPerson.
LumoSeminar::Int32 ReadFocusArea(Context& context, std::string_view named, const std::string& typed);

}  // namespace frontend
