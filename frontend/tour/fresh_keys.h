#pragma once

#include <string>
#include <vector>

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

/// New rows get the largest key plus one. Where rows of removed subjects are still there under such keys (the days of a
/// date, the steps of a request), they would be taken for those of the new ones. While this lives, a row that nobody
/// lists keeps the keys in use away, so that what is added has nothing from before, and nothing from before goes with it.
class FreshKeys {
  public:
    explicit FreshKeys(const LumoSeminar::Ref<LumoSeminar::DataSession>& session);
    ~FreshKeys();
    FreshKeys(const FreshKeys&) = delete;
    FreshKeys& operator=(const FreshKeys&) = delete;

  private:
    void TakeBack() noexcept;

    LumoSeminar::Ref<LumoSeminar::DataSession> session_;
    std::vector<std::string> take_back_;
};

}  // namespace frontend
