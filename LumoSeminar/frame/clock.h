#pragma once

#include <LumoSeminar/frame/date_time.h>

namespace LumoSeminar {

/// The present moment in local time, to the millisecond.
DateTime Now();

/// The present day, without time.
DateTime Today();

/// While it lives, Now() of this thread gives the pinned moment. For tests. The innermost pin counts.
class PinnedNow {
  public:
    explicit PinnedNow(DateTime moment);
    ~PinnedNow();
    PinnedNow(const PinnedNow&) = delete;
    PinnedNow& operator=(const PinnedNow&) = delete;

  private:
    const DateTime moment_;
    const DateTime* outer_;
};

}  // namespace LumoSeminar
