#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <map>
#include <thread>

#include "series/Simulator.h"

extern char** environ;

namespace aq {

namespace {

class PosixSimulator : public Simulator {
public:
    std::uint32_t start(const std::string& executable, const std::string& folder) override {
        struct stat st {};
        if (executable.empty() || ::stat(executable.c_str(), &st) != 0 || !S_ISREG(st.st_mode) ||
            ::access(executable.c_str(), X_OK) != 0)
            return 0;
        int fds[2];
        if (::pipe2(fds, O_CLOEXEC) != 0) return 0;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, fds[1], STDOUT_FILENO);
        if (!folder.empty()) posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
        // The child starts with no blocked signals and default handlers, whatever this
        // program set for itself, so SIGTERM reaches it.
        posix_spawnattr_t attr;
        posix_spawnattr_init(&attr);
        sigset_t none, defaults;
        sigemptyset(&none);
        sigemptyset(&defaults);
        for (int sig : {SIGTERM, SIGINT, SIGPIPE, SIGCHLD}) sigaddset(&defaults, sig);
        posix_spawnattr_setsigmask(&attr, &none);
        posix_spawnattr_setsigdefault(&attr, &defaults);
        posix_spawnattr_setflags(&attr, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        std::string arg0 = executable;
        char* argv[] = {arg0.data(), nullptr};
        pid_t pid = 0;
        int rc = posix_spawn(&pid, executable.c_str(), &actions, &attr, argv, environ);
        posix_spawnattr_destroy(&attr);
        posix_spawn_file_actions_destroy(&actions);
        ::close(fds[1]);
        if (rc != 0 || pid <= 0) {
            ::close(fds[0]);
            return 0;
        }
        ::fcntl(fds[0], F_SETFL, ::fcntl(fds[0], F_GETFL) | O_NONBLOCK);
        children_[static_cast<std::uint32_t>(pid)] = Child{pid, fds[0]};
        return static_cast<std::uint32_t>(pid);
    }

    std::uint32_t findWindow(std::uint32_t processId) override {
        auto it = children_.find(processId);
        if (it == children_.end()) return 0;
        poll(it->second);
        return it->second.ready && !it->second.exited ? processId : 0;
    }

    void close(std::uint32_t window) override {
        auto it = children_.find(window);
        if (it == children_.end()) return;
        Child& c = it->second;
        poll(c);
        if (c.exited) return;
        ::kill(c.pid, SIGTERM);
        // The simulator saves before it goes; give a large pool time, then make sure. One that
        // never said ready is stuck starting and has nothing to save: a short grace will do.
        auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(c.ready ? 60 : 2);
        while (!c.exited && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            poll(c);
        }
        if (!c.exited) {
            ::kill(c.pid, SIGKILL);
            ::waitpid(c.pid, nullptr, 0);
            finish(c);
        }
    }

    // A child counts as its own window, so it is closed the same way, ready or not.
    void closeProcess(std::uint32_t processId) override { close(processId); }

    ~PosixSimulator() override {
        for (auto& [id, c] : children_)
            if (c.out >= 0) ::close(c.out);
    }

private:
    struct Child {
        pid_t pid = 0;
        int out = -1;
        bool ready = false;
        bool exited = false;
        std::string seen{};
    };

    static void finish(Child& c) {
        c.exited = true;
        if (c.out >= 0) ::close(c.out);
        c.out = -1;
    }

    static void poll(Child& c) {
        if (c.exited) return;
        char buf[256];
        ssize_t n;
        while (c.out >= 0 && (n = ::read(c.out, buf, sizeof buf)) > 0) {
            if (!c.ready) {
                c.seen.append(buf, static_cast<std::size_t>(n));
                if (c.seen.find("ready\n") != std::string::npos) c.ready = true;
                if (c.seen.size() > 4096) c.seen.erase(0, c.seen.size() - 16);
            }
        }
        int status = 0;
        if (::waitpid(c.pid, &status, WNOHANG) == c.pid) finish(c);
    }

    std::map<std::uint32_t, Child> children_;
};

}  // namespace

Simulator& posixSimulator() {
    static PosixSimulator simulator;
    return simulator;
}

}  // namespace aq
