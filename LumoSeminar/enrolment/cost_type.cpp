#include <LumoSeminar/enrolment/cost_type.h>

#include <LumoSeminar/frame/common.h>
#include <LumoSeminar/frame/session_calls.h>

namespace LumoSeminar {
namespace {

// Keys up to 100 are given out.
constexpr const char* kInsertDefaultCostType =
    "Insert Into sysIData_KostenArten (KostenArten_ID,KostenArten)  "
    "Select isnull(Max(KostenArten_ID),0) +1, 'Teilnehmerkosten'  From sysIData_KostenArten  "
    "Having Max(KostenArten_ID) < 100 or Max(KostenArten_ID) is null";

Variant LookUpDefaultCostType(const Ref<DataSession>& session) {
    return session->LookupValue("KostenArten_ID", "sysIData_KostenArten", "KostenArten = 'Teilnehmerkosten'");
}

}  // namespace

Int32 DefaultCostType(const Ref<DataSession>& session) {
    const auto key = To<Int32>(common::Nz(LookUpDefaultCostType(session), Int32{0}));
    if (key != 0) return key;
    ExecuteOrRaise(session, kInsertDefaultCostType);
    return To<Int32>(LookUpDefaultCostType(session));
}

}  // namespace LumoSeminar
