#include "pooleditor/DrifterList.h"

#include "base/NumberText.h"
#include "files/FileNames.h"
#include "files/PoolOps.h"
#include "files/PoolSave.h"
#include "foodeditor/FoodList.h"

namespace aq {

namespace {
const char* const kFirstColor[6] = {"Red ", "Orange ", "Yellow ", "Green ", "Blue ", "Purple "};
const char* const kSecondColor[6] = {"& red ", "& orange ", "& yellow ", "& green ", "& blue ", "& purple "};

const char* colorWord(const char* const* words, int code) { return (code >= 0 && code < 6) ? words[code] : ""; }
}  // namespace

std::string DrifterLineText(const DrifterRec& d) {
    std::string line;
    line.reserve(128);
    if (d.alive == 0) line += "Dead, ";

    // Distinct colours in the order they first appear along the body.
    int colors[6];
    int k = 0;
    int segs = d.segmentCount < kSegmentSlots ? d.segmentCount : kSegmentSlots;
    for (int s = 0; s < segs && k < 6; ++s) {
        int c = d.segments[s].color;
        bool seen = false;
        for (int j = 0; j < k; ++j) seen = seen || colors[j] == c;
        if (!seen) colors[k++] = c;
    }
    if (k == 1) line += colorWord(kFirstColor, colors[0]);
    if (k == 2) (line += colorWord(kFirstColor, colors[0])) += colorWord(kSecondColor, colors[1]);
    if (k == 3) line += "three-color ";
    if (k == 4) line += "four-color ";
    if (k >= 5) line += "Multicolor ";

    line += NumberText(d.segmentCount) + " segment ";
    line += "drifter #" + NumberText(d.id);
    line += ", age=" + NumberText(d.age);
    if (d.maternalOffspring > 0) line += ", mother of " + NumberText(d.maternalOffspring);
    if (d.paternalOffspring > 0) line += ", father of " + NumberText(d.paternalOffspring);
    line += ", energy level = " + NumberText(d.energy) + ".";
    line += ", @ " + RoundedText(d.x) + "X, " + RoundedText(d.y) + "Y";
    if (d.mealsEaten > 0) {
        line += ", has eaten " + NumberText(d.mealsEaten) + " meal";
        if (d.mealsEaten != 1) line += "s";
    }
    return line;
}

void listPoolDrifter(App& app, int index) {
    BusyScope busy(app);
    std::string line = DrifterLineText(app.openPool.drifters[static_cast<std::size_t>(index)]);
    CheckList& list = app.lstSpeciatePool;
    if (list.count() <= index) {
        list.insert(index, std::move(line));
        list.setTag(index, -1);
        return;
    }
    std::int32_t tag = list.tag(index);
    if (tag >= 0) line = "{" + NumberText(tag) + "} " + line;
    list.setText(index, std::move(line));
}

void populateSpeciatePoolList(App& app) {
    CheckList& list = app.lstSpeciatePool;
    list.setVisible(false);
    for (int i = 0; i < app.openPool.drifterCount; ++i) listPoolDrifter(app, i);
    list.setVisible(true);
    int keep = app.openPool.drifterCount > 0 ? app.openPool.drifterCount : 0;
    while (list.count() > keep) list.remove(keep);
}

void initiateLoadPoolFile(App& app, const std::string& chosen) {
    if (!saveChangesFirst(app,
                          "The currently open pool file has been changed.  Save changes before opening another file?"))
        return;
    app.lstSpeciatePool.clear();
    app.lstPoolFood.clear();

    std::string previousPath = app.openPoolPath;
    bool previousChanged = app.poolChanged;
    app.openPoolPath = !chosen.empty()
                           ? chosen
                           : locateSourceFile(app, app.comboPoolPath, "", "aqp", "Aquarium Files", "Select Pool File");
    if (app.openPoolPath.empty()) {
        // No file chosen: the pool on show still belongs to its own.
        app.openPoolPath = previousPath;
        app.stateChanged();
        return;
    }
    // A pool that lies about its counts must not replace the one on show.
    Pool before = app.openPool;
    bool loadedBefore = app.poolLoaded;
    if (!loadPoolFile(app, app.openPoolPath, true)) {
        // The pool on show stays, and so does the file it belongs to: a later save
        // must not overwrite the file that could not be read.
        app.openPoolPath = previousPath;
        app.poolChanged = previousChanged;
        showNewOpenPool(app);
        return;
    }
    app.poolChanged = false;

    const char* problem = nullptr;
    if (app.openPool.drifterCount < 0 && app.openPool.foodCount < 0)
        problem = "Nothing to Load";
    else if (app.openPool.drifterCount < 0)
        problem = "Error Loading Drifters.";
    else if (app.openPool.foodCount < 0)
        problem = "Error Loading Food.";
    if (problem) {
        app.openPoolPath.clear();
        app.openPool = std::move(before);
        app.poolLoaded = loadedBefore;
        app.ui.ShowMessage(problem);
        showNewOpenPool(app);
        return;
    }
    showNewOpenPool(app);
}

void showNewOpenPool(App& app) {
    // Every row is new and has no species yet, also when the pool on show came back
    // after a failed load: a pass begun on the old rows is dropped and a new one is
    // due. The extended species mode lets no tick through until the species are known;
    // an empty pool has no pass to wait for.
    const bool any = app.openPool.drifterCount > 0;
    app.poolPassRunning = false;
    app.lstSpeciatePool.setEnabled(!(any && app.comboSpeciatePoolGroup0 == 2));
    populateSpeciatePoolList(app);
    populateFoodList(app);
    app.poolSpeciesPending = any;
    app.stateChanged();
}

}  // namespace aq
