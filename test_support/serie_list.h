#pragma once

#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/scheduling/colSerie.h>

namespace LumoSeminar {

/// For tests: the way to the session of a list of series. No call of the class gives it one, and without one nothing is
/// ever loaded.
Ref<DataSession>& SessionOf(colSerie& list);

template <Ref<DataSession> colSerie::*kSession>
struct WayToTheSession {
    friend Ref<DataSession>& SessionOf(colSerie& list) { return list.*kSession; }
};
// Access is not checked for what is named here.
template struct WayToTheSession<&colSerie::session_>;

}  // namespace LumoSeminar
