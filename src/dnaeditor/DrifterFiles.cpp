#include "dnaeditor/DrifterFiles.h"

#include <algorithm>
#include <filesystem>

#include "dnaeditor/GenePanel.h"
#include "base/FileIo.h"
#include "base/Paths.h"

namespace aq {

namespace {

constexpr const char* kLoadTitle = "Aquarium File Manager - Load Drifter Files";

}  // namespace

bool saveDrifterFile(App& app, const std::string& path, int index) {
    Genome genome = app.dna.dnaGenes[static_cast<std::size_t>(index)];
    if (path.empty()) return false;
    WaitCursor wait(app.ui);
    std::string error = writeGenomeFile(path, genome);
    if (!error.empty()) {
        app.ui.ShowMessage("Error saving " + path + ", error: " + error, "Aquarium File Manager - Save DNA File");
        return false;
    }
    return true;
}

void loadDrifterFiles(App& app, const std::string& folder) {
    DnaFolder& d = app.dna;
    namespace fs = std::filesystem;
    std::vector<std::string> names;
    std::error_code ec;
    fs::directory_iterator it(folder.empty() ? fs::path(".") : fs::path(folder), ec);
    for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
        std::error_code fileEc;
        if (!it->is_regular_file(fileEc)) continue;
        std::string name = it->path().filename().string();
        if (name.size() >= 4 && lowered(name.substr(name.size() - 4)) == ".dna") names.push_back(name);
    }
    if (ec) {
        app.ui.ShowMessage("Error reading " + folder + ", error: " + ec.message(), kLoadTitle);
        d.dnaCount = 0;
        return;
    }
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        std::string la = lowered(a), lb = lowered(b);
        return la != lb ? la < lb : a < b;
    });
    d.dnaCount = static_cast<std::int32_t>(names.size());
    if (d.dnaCount < 1) return;

    WaitCursor wait(app.ui);
    d.dnaGenes.assign(names.size(), Genome{});
    d.dnaPaths.assign(names.size(), std::string());
    d.dnaChanged.assign(names.size(), 0);
    std::size_t kept = 0;
    for (const std::string& name : names) {
        std::string path = (fs::path(folder) / name).string();
        std::string error = readGenomeFile(path, d.dnaGenes[kept]);
        if (!error.empty()) {
            // A file that can't be read gets no entry, so no later save writes a blank genome over it.
            app.ui.ShowMessage("Error opening " + name + ", error: " + error, kLoadTitle);
            continue;
        }
        d.dnaPaths[kept] = path;
        ++kept;
    }
    d.dnaGenes.resize(kept);
    d.dnaPaths.resize(kept);
    d.dnaChanged.resize(kept);
    d.dnaCount = static_cast<std::int32_t>(kept);
    app.dnaLoaded = true;
}

void populateSpeciateDriftersList(App& app) {
    std::vector<CheckRow> rows;
    rows.reserve(app.dna.dnaPaths.size());
    for (const std::string& path : app.dna.dnaPaths) rows.push_back({fileNameOfPath(path), false, -1});
    app.lstSpeciateDrifters.assign(std::move(rows));
}

void restoreDrifterSpeciateScroll(App& app) {
    DnaFolder& d = app.dna;
    d.scrollDrifterSpeciesThreshold.min = 0;
    d.scrollDrifterSpeciesThreshold.max = 1000;
    d.thresholdItems.clear();
    for (int k = 0; k <= 100; k += 10) d.thresholdItems.push_back(std::to_string(k) + "%");
}

void initiateLoadDrifterArchive(App& app) {
    app.lstSpeciateDrifters.clear();
    app.dna.dnaFolder = app.comboDrifterPath;
    loadDrifterFiles(app, app.dna.dnaFolder);
    if (app.dna.dnaCount <= 0) {
        app.ui.ShowMessage("Nothing to load.  Try a different Drifter Archive path.");
        setGeneSliders(app);
        app.stateChanged();
        return;
    }
    showNewDnaList(app);
}

void showNewDnaList(App& app) {
    restoreDrifterSpeciateScroll(app);
    if (app.dna.comboSpeciateDrifterGroup == 2) app.lstSpeciateDrifters.setEnabled(false);
    populateSpeciateDriftersList(app);
    // A pass begun on the old list would go on numbering lines that now name other files.
    app.dna.pass.passRunning = false;
    app.speciesPending = true;
    if (app.dna.dnaCount == 1) {
        app.speciesPending = false;
        app.lstSpeciateDrifters.setEnabled(true);
        app.lstSpeciateDrifters.setVisible(true);
    }
    // Nothing is ticked in a new list: the gene panel says so.
    setGeneSliders(app);
    app.stateChanged();
}

void ApplyDrifterGroup(App& app) {
    if (app.uiBusy) return;
    CheckList& list = app.lstSpeciateDrifters;
    const int c = list.currentIndex();
    if (c < 0 || c >= list.count() || c >= app.dna.dnaCount) return;
    {
        BusyScope busy(app);
        const bool on = list.checked(c);
        const int mode = app.dna.comboSpeciateDrifterGroup;
        const Genome& clicked = app.dna.dnaGenes[static_cast<std::size_t>(c)];
        if (mode == 1) {
            for (int i = 0; i < list.count() && i < app.dna.dnaCount; ++i)
                if (drifterGenomesSimilar(app, clicked, app.dna.dnaGenes[static_cast<std::size_t>(i)]))
                    list.setChecked(i, on);
        } else if (mode == 2) {
            const std::int32_t tag = list.tag(c);
            for (int i = 0; i < list.count(); ++i)
                if (list.tag(i) == tag) list.setChecked(i, on);
        } else if (mode >= 3) {
            app.ui.ShowMessage("ToDo");
        }
        list.setCurrentIndex(c);
        list.setVisible(true);
    }
    setGeneSliders(app);
    app.stateChanged();
}

void InvertDrifterSelection(App& app) {
    CheckList& list = app.lstSpeciateDrifters;
    {
        BusyScope busy(app);
        const int current = list.currentIndex();
        list.setVisible(false);
        for (int i = 0; i < list.count(); ++i) list.setChecked(i, !list.checked(i));
        list.setCurrentIndex(current);
        list.setVisible(true);
    }
    setGeneSliders(app);
    app.stateChanged();
}

void setDrifterGroupMode(App& app, int mode) {
    app.dna.comboSpeciateDrifterGroup = mode;
    app.lstSpeciateDrifters.setEnabled(!(mode == 2 && app.speciesPending));
}

}  // namespace aq
