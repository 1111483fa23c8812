#include "frontend/output/progress.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace frontend {
namespace {

constexpr std::size_t kBar = 30;

}  // namespace

Progress::Progress(std::string title, std::size_t steps) : title_(std::move(title)), steps_(steps) {
    if (terminal_.is_terminal) Draw();
}

Progress::~Progress() {
    if (terminal_.is_terminal && !finished_) std::fputc('\n', stderr);
}

void Progress::Step() {
    ++done_;
    if (terminal_.is_terminal) Draw();
}

void Progress::Finish(const std::string& note) {
    finished_ = true;
    if (terminal_.is_terminal) {
        Draw();
        fmt::print(stderr, "  {}\n", note);
    } else {
        fmt::print(stderr, "{}: {}\n", title_, note);
    }
}

void Progress::Draw() const {
    const std::size_t filled = steps_ == 0 ? kBar : std::min(kBar, kBar * done_ / steps_);
    fmt::print(stderr, "\r{:<12} [{}{}] {}/{}", title_, std::string(filled, '#'), std::string(kBar - filled, '.'), done_, steps_);
    std::fflush(stderr);
}

}  // namespace frontend
