#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace test_support {

/// A folder that is gone after the test.
class Folder {
  public:
    Folder() {
        std::string name = testing::TempDir() + "lumo_test_XXXXXX";
        if (!mkdtemp(name.data())) ADD_FAILURE() << "no folder " << name;
        path_ = name;
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string Path() const { return path_.string(); }
    std::string File(const std::string& name) const { return (path_ / name).string(); }

  private:
    std::filesystem::path path_;
};

/// One end of a pipe.
class PipeEnd {
  public:
    explicit PipeEnd(int file = -1) : file_(file) {}
    PipeEnd(PipeEnd&& other) noexcept : file_(std::exchange(other.file_, -1)) {}
    PipeEnd& operator=(PipeEnd&& other) noexcept {
        std::swap(file_, other.file_);
        return *this;
    }
    ~PipeEnd() { Close(); }
    int Get() const { return file_; }
    void Close() {
        if (file_ >= 0) close(file_);
        file_ = -1;
    }
    /// False where nobody reads.
    bool Write(std::string_view text) const {
        return write(file_, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    }
    /// What is there, at least a byte; empty at the end.
    std::string Read() const {
        std::array<char, 4096> bytes{};
        ssize_t count = 0;
        do {
            count = read(file_, bytes.data(), bytes.size());
        } while (count < 0 && errno == EINTR);
        return {bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
    }
    std::string ReadAll() const {
        std::string all;
        for (std::string part = Read(); !part.empty(); part = Read()) all += part;
        return all;
    }

  private:
    int file_;
};

/// A process of its own that runs a function: it reads what the test tells it and writes what it has to say. No
/// database may be open when it is started.
class Child {
  public:
    using Function = std::function<void(PipeEnd& hears, PipeEnd& tells)>;

    explicit Child(const Function& run) {
        std::array<int, 2> down{};
        std::array<int, 2> up{};
        if (pipe(down.data()) != 0 || pipe(up.data()) != 0) std::abort();
        PipeEnd child_hears(down[0]);
        tells = PipeEnd(down[1]);
        hears = PipeEnd(up[0]);
        PipeEnd child_tells(up[1]);
        process_ = fork();
        if (process_ < 0) std::abort();
        if (process_ > 0) return;
        tells.Close();
        hears.Close();
        try {
            run(child_hears, child_tells);
        } catch (const std::exception& failure) {
            child_tells.Write(std::string("raised: ") + failure.what());
        }
        _exit(0);
    }
    ~Child() { Kill(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    void Kill() {
        if (process_ <= 0) return;
        kill(process_, SIGKILL);
        Wait();
    }
    /// True if it ended of itself, without a complaint of a sanitizer.
    bool Wait() {
        int status = 0;
        while (process_ > 0 && waitpid(process_, &status, 0) < 0 && errno == EINTR) {
        }
        process_ = -1;
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    PipeEnd hears;
    PipeEnd tells;

  private:
    pid_t process_ = -1;
};

}  // namespace test_support
