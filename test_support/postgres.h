#pragma once

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <test_support/odbc_drivers.h>
#include <test_support/processes.h>

namespace test_support {

/// A PostgreSQL server on a folder of its own, reached through a socket there. It ends with the test program, however
/// that ends. The server refuses to be run by root: root's becomes the user postgres.
class PostgresServer {
  public:
    static constexpr const char* kUser = "lumo";
    static constexpr const char* kPassword = "a}b;c";

    /// Empty where no server is installed.
    static std::string Programs() {
        std::string found;
        std::error_code ignored;
        for (const auto& version : std::filesystem::directory_iterator("/usr/lib/postgresql", ignored)) {
            const auto programs = version.path() / "bin";
            if (std::filesystem::exists(programs / "postgres")) found = std::max(found, programs.string());
        }
        return found;
    }
    static bool IsInstalled() { return !Programs().empty() && !OdbcDriverFile(kDriver).empty(); }

    PostgresServer() {
        if (geteuid() == 0) {
            const passwd* postgres = getpwnam("postgres");
            if (!postgres) {
                ADD_FAILURE() << "no user postgres";
                return;
            }
            user_ = *postgres;
            if (chown(folder_.Path().c_str(), user_.pw_uid, user_.pw_gid) != 0) ADD_FAILURE() << "chown";
        }
        std::ofstream(folder_.File("password")) << kPassword;
        Run({"initdb", "-D", Data(), "-U", kUser, "-A", "scram-sha-256", "--pwfile=" + folder_.File("password"), "-E",
             "UTF8", "--locale=C.UTF-8", "--no-sync"});
        Start();
    }
    ~PostgresServer() { Stop(); }
    PostgresServer(const PostgresServer&) = delete;
    PostgresServer& operator=(const PostgresServer&) = delete;

    void Start() {
        process_ = Launch({"postgres", "-D", Data(), "-k", folder_.Path(), "-c", "listen_addresses=", "-c", "fsync=off"});
        for (int i = 0; i < 600 && !std::filesystem::exists(folder_.File(".s.PGSQL.5432.lock")); ++i) Pause();
        for (int i = 0; i < 600 && Exit(Launch({"pg_isready", "-q", "-h", folder_.Path()})) != 0; ++i) Pause();
    }
    /// At once, without a word to those who are connected.
    void Stop() {
        if (process_ <= 0) return;
        kill(process_, SIGQUIT);
        Exit(process_);
        process_ = -1;
    }

    /// Without user and password.
    std::string ServerText() const {
        return "Driver=" + OdbcDriverFile(kDriver) + ";Servername=" + folder_.Path() + ";Database=postgres";
    }
    std::string ConnectionText() const { return ServerText() + ";UID=lumo;PWD={a}}b;c}"; }

  private:
    static constexpr const char* kDriver = "psqlodbcw.so";

    static void Pause() { std::this_thread::sleep_for(std::chrono::milliseconds(20)); }
    std::string Data() const { return folder_.File("data"); }

    pid_t Launch(const std::vector<std::string>& words) const {
        std::vector<std::string> copies = words;
        const std::string file = Programs() + "/" + words.front();
        const std::string log = folder_.File("log");
        std::vector<char*> arguments;
        for (std::string& word : copies) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        const pid_t child = fork();
        if (child != 0) return child;
        if (user_.pw_uid != 0 && (setgroups(0, nullptr) != 0 || setgid(user_.pw_gid) != 0 || setuid(user_.pw_uid) != 0))
            _exit(126);
        prctl(PR_SET_PDEATHSIG, SIGQUIT);
        const int to = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
        dup2(to, 1);
        dup2(to, 2);
        if (chdir("/") == 0) execv(file.c_str(), arguments.data());
        _exit(127);
    }
    static int Exit(pid_t process) {
        int status = 0;
        while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
        }
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    void Run(const std::vector<std::string>& words) const { EXPECT_EQ(Exit(Launch(words)), 0) << words.front(); }

    Folder folder_;
    passwd user_{};
    pid_t process_ = -1;
};

/// One server for the whole program; null where none is installed.
inline PostgresServer* SharedPostgres() {
    static const std::unique_ptr<PostgresServer> server =
        PostgresServer::IsInstalled() ? std::make_unique<PostgresServer>() : nullptr;
    return server.get();
}

}  // namespace test_support
