#pragma once

#include <string>

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/command_line/command.h"
#include "frontend/context.h"

namespace frontend {

/// A kind of person, as clsWBPerson::ModId counts them.
enum class KindOfPerson : LumoSeminar::Byte { kEmployee = 2, kApplicant = 3, kWorker = 4 };

inline constexpr KindOfPerson kKindsOfPersons[] = {KindOfPerson::kEmployee, KindOfPerson::kApplicant, KindOfPerson::kWorker};

/// "employee", "applicant", "worker"
const char* NameOf(KindOfPerson kind);

/// The option --kind, for `typed`; without it the person is an employee.
void AddKindOption(Command& command, std::string& typed);

/// What was typed behind --kind. Raises UsageError.
KindOfPerson ReadKind(const std::string& typed);

/// A person of the client; applicants and temporary workers belong to all clients. Raises key not found (5) where the
/// person has no row.
LumoSeminar::Ref<LumoSeminar::clsWBPerson> PersonOf(Context& context, LumoSeminar::Int32 key, KindOfPerson kind);

}  // namespace frontend
