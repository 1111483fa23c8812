#pragma once

#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

/// Key of the cost type 'Teilnehmerkosten', which is made where it is missing. One lookup, otherwise two and a
/// statement. Raises 9999 where the statement is refused, and invalid use of Null (94) where the largest key is 100
/// already: no type is made then. Not for front ends.
Int32 DefaultCostType(const Ref<DataSession>& session);

}  // namespace LumoSeminar
