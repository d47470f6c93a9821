#include "dnaeditor/GenePanel.h"

#include <cmath>

#include "generator/StartupSettings.h"
#include "base/NumberText.h"

namespace aq {

namespace {

const char* const kRestCaption = "Use the scrollbars to change the numeric value of the chosen gene.";

struct Spread {
    int lo = 255, hi = 0, ticked = 0;
    int r() const { return hi - lo; }
    double c() const { return (hi + lo) / 2.0; }
};

Spread spreadOf(const App& app, int g) {
    Spread s;
    const CheckList& list = app.lstSpeciateDrifters;
    for (int i = 0; i < list.count() && i < app.dna.dnaCount; ++i) {
        if (!list.checked(i)) continue;
        int v = app.dna.dnaGenes[static_cast<std::size_t>(i)][static_cast<std::size_t>(g)];
        s.lo = std::min(s.lo, v);
        s.hi = std::max(s.hi, v);
        ++s.ticked;
    }
    return s;
}

void storeGene(App& app, int i, int g, int value) {
    auto& gene = app.dna.dnaGenes[static_cast<std::size_t>(i)][static_cast<std::size_t>(g)];
    if (gene == value) return;
    gene = static_cast<std::uint8_t>(value);
    app.dna.dnaChanged[static_cast<std::size_t>(i)] = 1;
}

// Where value v lands when the spread r about c becomes s; nothing when that isn't
// a whole number within 0..255.
std::optional<int> scaled(int v, double c, int r, int s) {
    double x = c + s * (v - c) / r;
    double whole = std::floor(x + 0.5);
    if (std::fabs(x - whole) > 0.001 || whole < 0 || whole > 255) return std::nullopt;
    return static_cast<int>(whole);
}

bool acceptable(const App& app, int g, const Spread& sp, int s) {
    const CheckList& list = app.lstSpeciateDrifters;
    for (int i = 0; i < list.count() && i < app.dna.dnaCount; ++i)
        if (list.checked(i) &&
            !scaled(app.dna.dnaGenes[static_cast<std::size_t>(i)][static_cast<std::size_t>(g)], sp.c(), sp.r(), s))
            return false;
    return true;
}

}  // namespace

int chosenGene(const std::string& text) {
    double n = std::nearbyint(SeedValue(text) + 1000.0);
    if (!std::isfinite(n)) return 0;
    return static_cast<int>(std::fabs(std::fmod(n, 1000.0)));
}

std::optional<std::string> steppedGeneText(const std::string& text, int delta) {
    double v = SeedValue(text) + delta;
    if (!std::isfinite(v)) return std::nullopt;
    std::string digits =
        v == std::floor(v) && std::fabs(v) < 1e15 ? NumberText(static_cast<std::int64_t>(v)) : NumberText(v);
    return v < 0 ? digits : " " + digits;
}

void setGeneSliders(App& app) {
    GenePanelState& p = app.dna.gene;
    const int ticked = app.lstSpeciateDrifters.checkedCount();
    if (p.txtGene.empty() || ticked == 0) {
        p.VsGeneRange.visible = false;
        p.VsGeneValue.visible = false;
        p.lblGeneRange = "\r\nSelect drifters in the list on the left, and a gene number above this text.";
        app.stateChanged();
        return;
    }
    const std::string plural = ticked == 1 ? "" : "s";
    const int g = chosenGene(p.txtGene);
    p.cmdZeroGeneEnabled = g != 0;
    {
        BusyScope busy(app);
        const Spread s = spreadOf(app, g);
        p.VsGeneValue.min = 0;
        p.VsGeneValue.max = 255;
        if (s.r() == 255) {
            p.VsGeneRange.pos = 255;
            p.VsGeneRange.visible = true;
            p.VsGeneValue.visible = false;
        } else if (s.lo == s.hi) {
            p.VsGeneValue.pos = s.lo;
            p.VsGeneRange.visible = false;
            p.VsGeneValue.visible = true;
        } else {
            p.VsGeneRange.pos = s.r();
            p.VsGeneValue.pos = static_cast<int>(std::nearbyint(s.r() / 2.0 + s.lo));
            p.VsGeneRange.visible = true;
            p.VsGeneValue.visible = true;
        }
        if (s.lo == s.hi)
            p.lblGeneRange = "\r\nThe chosen gene has a value of " + std::to_string(s.lo) +
                             " within the selected drifter" + plural + ".";
        else
            p.lblGeneRange = "\r\nValues for the chosen gene within the selected drifter" + plural + " range from " +
                             std::to_string(s.lo) + " to " + std::to_string(s.hi) + ".";
        // Keep every ticked value within 0..255 whatever the position.
        p.VsGeneValue.min = static_cast<int>(std::floor(s.r() / 2.0));
        p.VsGeneValue.max = 255 - static_cast<int>(std::floor(s.r() / 2.0 + 0.5));
        if (s.lo == s.hi) {
            p.VsGeneValue.min = 0;
            p.VsGeneValue.max = 255;
        }
    }
    app.stateChanged();
}

void ShiftGeneValues(App& app) {
    if (app.uiBusy) return;
    const int p = app.dna.gene.VsGeneValue.pos;
    const int g = chosenGene(app.dna.gene.txtGene);
    const Spread s = spreadOf(app, g);
    const int base = static_cast<int>(std::floor(s.c()));
    const CheckList& list = app.lstSpeciateDrifters;
    for (int i = 0; i < list.count() && i < app.dna.dnaCount; ++i) {
        if (!list.checked(i)) continue;
        int v = app.dna.dnaGenes[static_cast<std::size_t>(i)][static_cast<std::size_t>(g)];
        storeGene(app, i, g, std::clamp(v - base + p, 0, 255));
    }
    setGeneSliders(app);
}

void ScaleGeneSpread(App& app) {
    if (app.uiBusy) return;
    GenePanelState& panel = app.dna.gene;
    const int wish = panel.VsGeneRange.pos;
    const int g = chosenGene(panel.txtGene);
    const Spread s = spreadOf(app, g);
    if (s.lo == s.hi || s.ticked == 0) {
        panel.VsGeneRange.visible = false;
        app.stateChanged();
        return;
    }
    const int d = (wish > s.r()) - (wish < s.r());
    std::optional<int> found;
    for (int S = wish; !found && S >= 1 && S <= 255; S += d) {
        if (acceptable(app, g, s, S)) found = S;
        if (d == 0) break;
    }
    for (int S = s.r() + d; !found && d != 0 && S >= 1 && S <= 255; S += d)
        if (acceptable(app, g, s, S)) found = S;
    {
        BusyScope busy(app);
        if (found) {
            panel.VsGeneRange.pos = *found;
            const CheckList& list = app.lstSpeciateDrifters;
            for (int i = 0; i < list.count() && i < app.dna.dnaCount; ++i) {
                if (!list.checked(i)) continue;
                int v = app.dna.dnaGenes[static_cast<std::size_t>(i)][static_cast<std::size_t>(g)];
                storeGene(app, i, g, *scaled(v, s.c(), s.r(), *found));
            }
        } else {
            panel.VsGeneRange.pos = s.r();
        }
    }
    setGeneSliders(app);
}

void geneScrollFocus(App& app, bool rangeBar, bool gained) {
    if (!gained)
        app.dna.gene.lblGeneRange = kRestCaption;
    else if (rangeBar)
        app.dna.gene.lblGeneRange =
            "Use the scrollbar to make the values of the chosen gene closer to or farther from the same in all "
            "selected drifters.";
    else
        app.dna.gene.lblGeneRange =
            "The scrollbar on the left can be used to increase or decrease the value of the chosen gene in all "
            "selected drifters.";
    app.stateChanged();
}

}  // namespace aq
