#pragma once
// A program state with a folder of DNA files on disk, for the drifter file tests.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dnaeditor/DrifterFiles.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

namespace aqtest {

// A genome whose every gene is `fill`, with the first genes set from `head`.
inline aq::Genome genome(int fill, std::vector<int> head = {}) {
    aq::Genome g;
    g.fill(static_cast<std::uint8_t>(fill));
    for (std::size_t i = 0; i < head.size(); ++i) g[i] = static_cast<std::uint8_t>(head[i]);
    return g;
}

struct DnaFixture {
    ScriptedUi ui;
    SteppingClock clock;
    aq::App app{ui, clock};
    TempDir dir;

    std::string path(const std::string& name) const { return dir.file(name); }
    void writeDna(const std::string& name, const aq::Genome& g) { writeBytes(path(name), {g.begin(), g.end()}); }
    // Loads the folder as the menu command does.
    void load() {
        app.comboDrifterPath = dir.path();
        aq::initiateLoadDrifterArchive(app);
    }
    // Runs a command and checks that every scripted prompt came, and nothing else.
    void run(void (*command)(aq::App&)) {
        command(app);
        EXPECT_TRUE(ui.done()) << ui.report();
    }
    void tick(std::initializer_list<int> rows) {
        for (int r : rows) app.lstSpeciateDrifters.setChecked(r, true);
    }
    std::vector<int> ticked() const {
        std::vector<int> out;
        for (int i = 0; i < app.lstSpeciateDrifters.count(); ++i)
            if (app.lstSpeciateDrifters.checked(i)) out.push_back(i);
        return out;
    }
    std::vector<std::string> lines() const {
        std::vector<std::string> out;
        for (int i = 0; i < app.lstSpeciateDrifters.count(); ++i) out.push_back(app.lstSpeciateDrifters.text(i));
        return out;
    }
};

}  // namespace aqtest
