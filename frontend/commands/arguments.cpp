#include "frontend/commands/arguments.h"

namespace frontend {

Parameter& TakeDate(Command& command, Parameter::Target typed) {
    return command.Argument("DATE", typed, "SemTerminID of the date").Required().Naming(Names::kDate);
}

Parameter& TakeEmployee(Command& command, Parameter::Target typed) {
    return command.Argument("PERSON", typed, "Number or name of the employee").Required().Naming(Names::kPerson);
}

Parameter& TakePerson(Command& command, Parameter::Target typed) {
    return command
        .Argument("PERSON", typed, "Number or name of the employee, key or name of the applicant or temporary worker")
        .Required()
        .Naming(Names::kPerson);
}

}  // namespace frontend
