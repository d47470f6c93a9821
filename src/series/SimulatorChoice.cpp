#include "series/Simulator.h"
#include "series/WineSimulator.h"

namespace aq {

namespace {

// Each start picks the way to run its program; finding and closing, a window or a whole
// process, go to the one that started the last simulator, since one runs at a time.
class SystemSimulator : public Simulator {
public:
    std::uint32_t start(const std::string& executable, const std::string& folder) override {
        if (isWindowsProgram(executable)) {
            std::uint32_t pid = wine_.start(executable, folder);
            problem_ = wine_.startProblem();
            if (pid != 0) current_ = &wine_;
            return pid;
        }
        problem_.clear();
        std::uint32_t pid = posixSimulator().start(executable, folder);
        if (pid != 0) current_ = &posixSimulator();
        return pid;
    }
    std::uint32_t findWindow(std::uint32_t processId) override { return current_->findWindow(processId); }
    void close(std::uint32_t window) override { current_->close(window); }
    void closeProcess(std::uint32_t processId) override { current_->closeProcess(processId); }
    std::string startProblem() const override { return problem_; }

private:
    WineSimulator wine_;
    Simulator* current_ = &posixSimulator();
    std::string problem_;
};

}  // namespace

Simulator& systemSimulator() {
    static SystemSimulator simulator;
    return simulator;
}

}  // namespace aq
