#include "pooleditor/GroupSelection.h"

#include <algorithm>

#include "pooleditor/BulkEdits.h"
#include "pooleditor/Similarity.h"

namespace aq {

const std::vector<std::string>& poolGroup0Items() {
    static const std::vector<std::string> items = {
        "Select individual drifters.",
        "local species.",
        "extended species.",
        "similar age.",
        "similar length.",
        "similar mass.",
        "same colors.",
        "same base color.",
        "same color order.",
        "same number of color.",
        "same color sequence.",
        "same age or older.",
        "same age or younger.",
        "same total segemt lenth or higher.",
        "same total segemt lenth or lower.",
        "same mass or heavier.",
        "same mass or lighter.",
        "same energy level or higher.",
        "same energy level or lower.",
        "same energy efficiency or heavier.",
        "same energy efficiency or lower.",
        "same maternal offspring count or higher.",
        "same maternal offspring count or lower.",
        "same paternal offspring count or higher.",
        "same paternal offspring count or lower.",
        "same number of meals eaten or higher.",
        "same number of meals eaten or lower.",
        "same number of segments.",
    };
    return items;
}

namespace {

// Group1-3 index -> the Group0 criterion it stands for.
constexpr int kSlotCriterion[14] = {-1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 15, 16, 27};

}  // namespace

const std::vector<std::string>& poolGroupSlotItems() {
    static const std::vector<std::string> items = [] {
        std::vector<std::string> v{""};
        for (int i = 1; i < 13; ++i) v.push_back(poolGroup0Items()[static_cast<std::size_t>(kSlotCriterion[i])]);
        v.push_back("same segment count.");
        return v;
    }();
    return items;
}

const std::vector<std::string>& poolBoolItems() {
    static const std::vector<std::string> items = {"", "And", "Or", "Xor", "Eqv"};
    return items;
}

int poolSentenceIndex(const App& app, int k) {
    return k == 0 ? app.comboSpeciatePoolGroup0 : app.comboSpeciatePoolSentence[k - 1];
}

void setPoolSentenceIndex(App& app, int k, int index) {
    if (k == 0)
        app.comboSpeciatePoolGroup0 = index;
    else
        app.comboSpeciatePoolSentence[k - 1] = index;
}

void UpdatePoolGroupControls(App& app, bool fromGroup0) {
    bool leftSet = true;
    for (int k = 0; k < 7; ++k) {
        app.poolSentenceEnabled[k] = leftSet;
        leftSet = leftSet && poolSentenceIndex(app, k) > 0;
    }
    // No tick may arrive in "extended species." before the species numbers are complete.
    if (fromGroup0) app.lstSpeciatePool.setEnabled(!(app.comboSpeciatePoolGroup0 == 2 && app.poolSpeciesPending));
}

GroupContext groupContext(const App& app) {
    double t = app.poolThreshold;
    return {app.openPool,        app.lstSpeciatePool, app.poolThreshold,
            app.similarityDepth, 1 - (100 - t) / 100, 1 + (100 - t) / 100};
}

namespace {

struct Colors {
    int k = 0;
    int c[6] = {};
    bool has(int color) const { return std::find(c, c + k, color) != c + k; }
};

int usedSegments(const DrifterRec& d) { return std::clamp(d.segmentCount, 0, kSegmentSlots); }

// Distinct colours in order of first appearance, as the list lines name them.
Colors colorSummary(const DrifterRec& d) {
    Colors s;
    for (int i = 0; i < usedSegments(d) && s.k < 6; ++i)
        if (!s.has(d.segments[i].color)) s.c[s.k++] = d.segments[i].color;
    return s;
}

bool sameColorSequence(const DrifterRec& a, const DrifterRec& b) {
    const DrifterRec& shorter = usedSegments(a) <= usedSegments(b) ? a : b;
    const DrifterRec& longer = &shorter == &a ? b : a;
    int m = usedSegments(shorter);
    if (m == 0) return usedSegments(longer) == 0;
    for (int s = 0; s < m; ++s)
        if (a.segments[s].color != b.segments[s].color) return false;
    int last = shorter.segments[m - 1].color;
    for (int s = m; s < usedSegments(longer); ++s)
        if (longer.segments[s].color != last) return false;
    return true;
}

}  // namespace

bool CriterionHolds(const GroupContext& g, int slot, int index, int k, int c) {
    if (slot > 0) index = (index >= 1 && index <= 13) ? kSlotCriterion[index] : -1;
    if (index < 1) return false;
    const DrifterRec& K = g.pool.drifters[static_cast<std::size_t>(k)];
    const DrifterRec& C = g.pool.drifters[static_cast<std::size_t>(c)];
    // The bounds are taken on C's value, so "similar" isn't symmetric.
    auto similarFloat = [&](float cv, float kv) {
        return static_cast<float>(cv * g.low) <= kv && static_cast<float>(cv * g.high) >= kv;
    };
    switch (index) {
        case 1:
            return GenomesSimilar(K.genes, C.genes, g.threshold, g.depth);
        case 2:
            return g.list.tag(c) == g.list.tag(k);
        case 3:
            return C.age * g.low <= K.age && C.age * g.high >= K.age;
        case 4:
            return similarFloat(C.totalLength, K.totalLength);
        case 5:
            return similarFloat(C.mass, K.mass);
        case 6: {
            Colors sk = colorSummary(K), sc = colorSummary(C);
            if (sk.k != sc.k) return false;
            for (int i = 0; i < sk.k; ++i)
                if (!sc.has(sk.c[i])) return false;
            return true;
        }
        case 7:
            return C.segments[0].color == K.segments[0].color;
        case 8: {
            Colors sk = colorSummary(K), sc = colorSummary(C);
            for (int i = 0; i < std::min(sk.k, sc.k); ++i)
                if (sk.c[i] != sc.c[i]) return false;
            return true;
        }
        case 9:
            return colorSummary(C).k == colorSummary(K).k;
        case 10:
            return c == k || sameColorSequence(K, C);
        case 11:
            return C.age >= K.age;
        case 12:
            return C.age <= K.age;
        case 13:
            return C.totalLength >= K.totalLength;
        case 14:
            return C.totalLength <= K.totalLength;
        case 15:
            return C.mass >= K.mass;
        case 16:
            return C.mass <= K.mass;
        case 17:
            return C.energy >= K.energy;
        case 18:
            return C.energy <= K.energy;
        case 19:
            return C.energyEfficiency >= K.energyEfficiency;
        case 20:
            return C.energyEfficiency <= K.energyEfficiency;
        case 21:
            return C.maternalOffspring >= K.maternalOffspring;
        case 22:
            return C.maternalOffspring <= K.maternalOffspring;
        case 23:
            return C.paternalOffspring >= K.paternalOffspring;
        case 24:
            return C.paternalOffspring <= K.paternalOffspring;
        case 25:
            return C.mealsEaten >= K.mealsEaten;
        case 26:
            return C.mealsEaten <= K.mealsEaten;
        case 27:
            return C.segmentCount == K.segmentCount;
        default:
            return false;
    }
}

void poolTickedByUser(App& app, int row) {
    if (app.uiBusy) return;
    app.lstSpeciatePool.setCurrentIndex(row);
    ApplyPoolGroup(app);
}

void ApplyPoolGroup(App& app) {
    app.uiBusy = true;
    CheckList& list = app.lstSpeciatePool;
    int k = list.currentIndex();
    int rows = std::min({list.count(), app.openPool.drifterCount, static_cast<int>(app.openPool.drifters.size())});
    if (k < 0 || k >= rows) {
        app.uiBusy = false;
        return;
    }
    GroupContext g = groupContext(app);
    bool tick = list.checked(k);
    for (int c = 0; c < rows; ++c) {
        bool result = CriterionHolds(g, 0, app.comboSpeciatePoolGroup0, k, c);
        // Strictly left to right: ((a op b) op c) op d; a slot whose controls are disabled is skipped.
        for (int slot = 1; slot <= 3; ++slot) {
            int boolControl = 2 * slot - 1, groupControl = 2 * slot;
            if (!app.poolSentenceEnabled[boolControl] || !app.poolSentenceEnabled[groupControl]) continue;
            bool m = CriterionHolds(g, slot, poolSentenceIndex(app, groupControl), k, c);
            switch (poolSentenceIndex(app, boolControl)) {
                case 1:
                    result = result && m;
                    break;
                case 2:
                    result = result || m;
                    break;
                case 3:
                    result = result != m;
                    break;
                case 4:
                    result = result == m;
                    break;
                default:
                    break;
            }
        }
        if (result) list.setChecked(c, tick);
    }
    setSpeciatePoolSliders(app);
    list.setCurrentIndex(k);
    list.setVisible(true);
    app.uiBusy = false;
}

}  // namespace aq
