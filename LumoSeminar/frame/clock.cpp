#include <LumoSeminar/frame/clock.h>

#include <chrono>
#include <ctime>

namespace LumoSeminar {
namespace {

thread_local const DateTime* pinned = nullptr;

}  // namespace

DateTime Now() {
    if (pinned) return *pinned;
    const auto now = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    const auto second = std::chrono::floor<std::chrono::seconds>(now);
    const std::time_t since_epoch = std::chrono::system_clock::to_time_t(second);
    std::tm local{};
    localtime_r(&since_epoch, &local);
    const std::chrono::local_seconds local_second{std::chrono::seconds{since_epoch + local.tm_gmtoff}};
    const auto date = std::chrono::floor<std::chrono::days>(local_second);
    return DateTime(date, (local_second - date) + (now - second));
}

DateTime Today() { return Now().DatePart(); }

PinnedNow::PinnedNow(DateTime moment) : moment_(moment), outer_(pinned) { pinned = &moment_; }

PinnedNow::~PinnedNow() { pinned = outer_; }

}  // namespace LumoSeminar
