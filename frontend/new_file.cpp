#include "frontend/new_file.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

namespace fs = std::filesystem;

namespace {

constexpr LumoSeminar::Int32 kFileThere = 58;
constexpr LumoSeminar::Int32 kNoAccess = 75;

}  // namespace

NewFile::NewFile(fs::path place)
    : place_(std::move(place)), name_(place_.string() + ".new-" + std::to_string(getpid())) {}

NewFile::~NewFile() {
    std::error_code ignored;
    for (const char* end : {"", "-wal", "-shm"}) fs::remove(name_ + end, ignored);
}

void NewFile::PutInPlace() {
    // A second name is never given over a file that is there; moving would take its place.
    if (link(name_.c_str(), place_.c_str()) == 0) return;
    const int failure = errno;
    std::error_code failed;
    if (failure != EEXIST && !fs::exists(fs::symlink_status(place_, failed))) {
        // There are file systems without second names.
        fs::rename(name_, place_, failed);
        if (!failed) return;
    }
    if (failure == EEXIST) {
        LumoSeminar::Raise(kFileThere, "The file " + LumoSeminar::OneLine(place_.string()) +
                                           " was made by somebody else meanwhile. It stays as it is.");
    }
    LumoSeminar::Raise(kNoAccess, "The file " + LumoSeminar::OneLine(place_.string()) +
                                      " cannot be made: " + std::generic_category().message(failure) + ".");
}

}  // namespace frontend
