#pragma once

#include "frontend/stop_signals.h"

namespace frontend {

/// Thrown by the tour between two calls, so that what it has added is taken back on the way out.
struct TourInterrupted {};

/// Throws TourInterrupted where a signal has come in, see StopSignals.
inline void CheckInterruption() {
    if (StopSignals::Came() != 0) throw TourInterrupted();
}

}  // namespace frontend
