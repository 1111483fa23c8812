#include <LumoSeminar/frame/session_calls.h>

#include <LumoSeminar/frame/common.h>

namespace LumoSeminar {

Bool ConnectionIsOpen(const Ref<DataSession>& session) { return common::OpenADOConnection(session->AdoConnection()); }

Bool ExecuteOrRaise(const Ref<DataSession>& session, const Text& sql) {
    if (!session->ExecuteSql(sql)) RaiseRefused(session->LastErrorText());
    return true;
}

Ref<RecordSet> SelectOrRaise(const Ref<DataSession>& session, const Text& sql) {
    if (!session->OpenSelect(sql)) RaiseRefused(session->LastErrorText());
    return session->Recordset();
}

Int32 NextKey(const Ref<DataSession>& session, const Text& expression, const Text& table, const Text& where) {
    return Add(To<Int32>(common::Nz(session->LookupValue(expression, table, where), Int32{0})), 1);
}

}  // namespace LumoSeminar
