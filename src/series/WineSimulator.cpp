#include "series/WineSimulator.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <optional>

#include "series/Win32Simulator.h"
#include "series/WineBroker.h"

extern char** environ;

namespace aq {

namespace {

bool isExecutableFile(const std::string& path) {
    struct stat st {};
    return ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

// WINE names the program to use, else "wine" on PATH.
std::string findWine() {
    std::string name = "wine";
    if (const char* w = std::getenv("WINE"); w && *w) name = w;
    if (name.find('/') != std::string::npos) return isExecutableFile(name) ? name : "";
    const char* path = std::getenv("PATH");
    std::string dirs = path ? path : "/usr/bin:/bin";
    for (std::size_t b = 0; b <= dirs.size();) {
        std::size_t e = dirs.find(':', b);
        if (e == std::string::npos) e = dirs.size();
        std::string candidate = (e > b ? dirs.substr(b, e - b) : ".") + "/" + name;
        if (isExecutableFile(candidate)) return candidate;
        b = e + 1;
    }
    return "";
}

// AQFM_WINCTL names the broker, else it sits beside the program or in its libexec folder.
std::string findBroker(const std::string& programFolder) {
    if (const char* b = std::getenv("AQFM_WINCTL"); b && *b) return b;
    for (const std::string& p :
         {programFolder + "/" + kBrokerName, programFolder + "/../libexec/aqfilemanager/" + kBrokerName}) {
        struct stat st {};
        if (::stat(p.c_str(), &st) == 0 && S_ISREG(st.st_mode)) return p;
    }
    return "";
}

// One wine process running the broker; requests are answered in order.
class Broker {
public:
    ~Broker() { stop(); }
    bool running() const { return pid_ > 0; }

    std::string launch(const std::string& wine, const std::string& broker) {
        // A broker that dies must not take this program with it when a request is written.
        ::signal(SIGPIPE, SIG_IGN);
        int in[2], out[2];
        if (::pipe2(in, O_CLOEXEC) != 0) return "no pipe";
        if (::pipe2(out, O_CLOEXEC) != 0) {
            ::close(in[0]);
            ::close(in[1]);
            return "no pipe";
        }
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
        // Wine starts with the signals this program ignores back at their defaults.
        posix_spawnattr_t attr;
        posix_spawnattr_init(&attr);
        sigset_t defaults;
        sigemptyset(&defaults);
        for (int sig : {SIGTERM, SIGINT, SIGPIPE, SIGCHLD}) sigaddset(&defaults, sig);
        posix_spawnattr_setsigdefault(&attr, &defaults);
        posix_spawnattr_setflags(&attr, POSIX_SPAWN_SETSIGDEF);
        std::string a0 = wine, a1 = broker;
        char* argv[] = {a0.data(), a1.data(), nullptr};
        pid_t pid = 0;
        int rc = posix_spawn(&pid, wine.c_str(), &actions, &attr, argv, environ);
        posix_spawnattr_destroy(&attr);
        posix_spawn_file_actions_destroy(&actions);
        ::close(in[0]);
        ::close(out[1]);
        if (rc != 0) {
            ::close(in[1]);
            ::close(out[0]);
            return "wine could not be started";
        }
        pid_ = pid;
        to_ = in[1];
        from_ = out[0];
        // A fresh Wine folder is set up on first use, which takes a while.
        std::optional<std::string> hello = readLine(180);
        if (!hello || *hello != kBrokerHello) {
            stop();
            return "the Wine helper " + broker + " did not answer";
        }
        return "";
    }

    // One request and its answer; nullopt when the broker has failed (it is then stopped).
    std::optional<std::string> ask(const std::string& request, int timeoutSeconds) {
        if (!running()) return std::nullopt;
        std::string line = request + "\n";
        for (std::size_t done = 0; done < line.size();) {
            ssize_t n = ::write(to_, line.data() + done, line.size() - done);
            if (n <= 0) {
                stop();
                return std::nullopt;
            }
            done += static_cast<std::size_t>(n);
        }
        std::optional<std::string> answer = readLine(timeoutSeconds);
        if (!answer) stop();
        return answer;
    }

    void stop() {
        if (to_ >= 0) ::close(to_);  // the broker ends at the end of its input
        to_ = -1;
        if (pid_ > 0) {
            auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
            while (::waitpid(pid_, nullptr, WNOHANG) == 0) {
                if (std::chrono::steady_clock::now() > deadline) {
                    ::kill(pid_, SIGKILL);
                    ::waitpid(pid_, nullptr, 0);
                    break;
                }
                ::usleep(10000);
            }
        }
        pid_ = 0;
        if (from_ >= 0) ::close(from_);
        from_ = -1;
        buffer_.clear();
    }

private:
    std::optional<std::string> readLine(int timeoutSeconds) {
        auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(timeoutSeconds);
        for (;;) {
            std::size_t nl = buffer_.find('\n');
            if (nl != std::string::npos) {
                std::string line = buffer_.substr(0, nl);
                buffer_.erase(0, nl + 1);
                if (!line.empty() && line.back() == '\r') line.pop_back();
                return line;
            }
            auto left =
                std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
            if (left.count() <= 0 || buffer_.size() > 65536) return std::nullopt;
            pollfd p{from_, POLLIN, 0};
            int r = ::poll(&p, 1, static_cast<int>(left.count()));
            if (r < 0 && errno == EINTR) continue;
            if (r <= 0) return std::nullopt;
            char buf[512];
            ssize_t n = ::read(from_, buf, sizeof buf);
            if (n <= 0) return std::nullopt;
            buffer_.append(buf, static_cast<std::size_t>(n));
        }
    }

    pid_t pid_ = 0;
    int to_ = -1;
    int from_ = -1;
    std::string buffer_;
};

std::uint32_t number(const std::optional<std::string>& s) {
    if (!s || s->empty()) return 0;
    char* end = nullptr;
    unsigned long v = std::strtoul(s->c_str(), &end, 10);
    return *end == '\0' ? static_cast<std::uint32_t>(v) : 0;
}

// The seven calls, each one request to the broker. A failed broker answers 0 throughout,
// which the series sees as a simulator without a window.
class BrokerApi : public Win32Api {
public:
    explicit BrokerApi(Broker& b) : b_(b) {}
    bool CreateProcessA(const std::string& commandLine, const std::string& currentDirectory,
                        std::uint32_t& processId) override {
        std::uint32_t pid = number(b_.ask("create\t" + commandLine + "\t" + currentDirectory, 60));
        if (pid == 0) return false;
        processId = pid;
        return true;
    }
    std::uint32_t FindWindowA(const std::string& className) override {
        return number(b_.ask("find\t" + className, 10));
    }
    std::uint32_t GetActiveWindow() override { return number(b_.ask("active", 10)); }
    std::uint32_t GetWindow(std::uint32_t window, std::uint32_t command) override {
        return number(b_.ask("next\t" + std::to_string(window) + "\t" + std::to_string(command), 10));
    }
    void GetWindowThreadProcessId(std::uint32_t window, std::uint32_t& processId) override {
        std::optional<std::string> a = b_.ask("owner\t" + std::to_string(window), 10);
        if (a && *a != "-") processId = number(a);
    }
    void SendMessageA(std::uint32_t window, std::uint32_t message, std::uintptr_t wParam,
                      std::intptr_t lParam) override {
        // The simulator saves its pool before it answers a close; a big pool takes time.
        b_.ask("send\t" + std::to_string(window) + "\t" + std::to_string(message) + "\t" + std::to_string(wParam) +
                   "\t" + std::to_string(lParam),
               120);
    }
    bool TerminateProcess(std::uint32_t processId, std::uint32_t graceMs) override {
        return number(b_.ask("end\t" + std::to_string(processId) + "\t" + std::to_string(graceMs),
                             static_cast<int>(graceMs / 1000) + 30)) == 1;
    }

private:
    Broker& b_;
};

}  // namespace

bool isWindowsProgram(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    char mz[2] = {};
    return in.read(mz, 2) && mz[0] == 'M' && mz[1] == 'Z';
}

struct WineSimulator::Impl {
    Broker broker;
    BrokerApi api{broker};
    Win32Simulator simulator{api};
    std::string problem;
};

WineSimulator::WineSimulator() : impl_(new Impl) {}
WineSimulator::~WineSimulator() { delete impl_; }

std::string WineSimulator::startProblem() const { return impl_->problem; }

std::uint32_t WineSimulator::start(const std::string& executable, const std::string& folder) {
    impl_->problem.clear();
    if (!impl_->broker.running()) {
        std::string wine = findWine();
        if (wine.empty()) {
            impl_->problem =
                executable +
                " is a Windows program, and Wine is needed to run it here, but Wine was not found.  Install it "
                "(on Debian or Ubuntu: sudo apt install wine), or name it in the WINE environment variable.";
            return 0;
        }
        std::string broker = findBroker(folder);
        if (broker.empty()) {
            impl_->problem = executable + " is a Windows program, but " + kBrokerName +
                             ", which runs it through Wine, is missing from " + folder + ".  Reinstall the program.";
            return 0;
        }
        if (std::string error = impl_->broker.launch(wine, broker); !error.empty()) {
            impl_->problem = executable + " could not be run through Wine: " + error + ".";
            return 0;
        }
    }
    return impl_->simulator.start(executable, folder);
}

std::uint32_t WineSimulator::findWindow(std::uint32_t processId) {
    return impl_->broker.running() ? impl_->simulator.findWindow(processId) : 0;
}

void WineSimulator::close(std::uint32_t window) {
    if (impl_->broker.running()) impl_->simulator.close(window);
}

void WineSimulator::closeProcess(std::uint32_t processId) {
    if (impl_->broker.running()) impl_->simulator.closeProcess(processId);
}

}  // namespace aq
