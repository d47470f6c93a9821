// The gene panel: choosing a gene, shifting and spreading the ticked values.
#include <gtest/gtest.h>

#include "dnaeditor/DnaFixture.h"
#include "dnaeditor/GenePanel.h"

namespace {

// Ticked files whose gene 7 holds `values`, one file each, plus one unticked file at 99.
struct Panel : aqtest::DnaFixture {
    explicit Panel(std::vector<int> values) {
        for (int v : values) add(v, true);
        add(99, false);
        app.dnaLoaded = true;
        app.dna.gene.txtGene = "7";
        aq::setGeneSliders(app);
    }
    void add(int v, bool ticked) {
        aq::Genome g = aqtest::genome(1);
        g[7] = static_cast<std::uint8_t>(v);
        app.dna.dnaGenes.push_back(g);
        app.dna.dnaPaths.push_back("/x/" + std::to_string(app.dna.dnaCount) + ".dna");
        app.dna.dnaChanged.push_back(0);
        ++app.dna.dnaCount;
        app.lstSpeciateDrifters.add("f");
        app.lstSpeciateDrifters.setChecked(app.lstSpeciateDrifters.count() - 1, ticked);
    }
    std::vector<int> values() const {
        std::vector<int> out;
        for (int i = 0; i + 1 < app.dna.dnaCount; ++i) out.push_back(app.dna.dnaGenes[static_cast<std::size_t>(i)][7]);
        EXPECT_EQ(app.dna.dnaGenes.back()[7], 99) << "the unticked file changed";
        return out;
    }
    void spread(int pos) {
        app.dna.gene.VsGeneRange.pos = pos;
        aq::ScaleGeneSpread(app);
    }
    void shift(int pos) {
        app.dna.gene.VsGeneValue.pos = pos;
        aq::ShiftGeneValues(app);
    }
};

TEST(GenePanel, ChosenGeneShiftSpreadAndCaption) {
    std::vector<int> genes;
    for (const char* text : {"-1", "1000", "1001", "-1001", "12abc", "abc", "2.5", "3.5", "-2000", " 5"})
        genes.push_back(aq::chosenGene(text));
    EXPECT_EQ(genes, (std::vector<int>{999, 0, 1, 1, 12, 0, 2, 4, 0, 5}));
    auto step = [](const char* text, int by) { return aq::steppedGeneText(text, by).value_or("none"); };
    EXPECT_EQ(step("0", -1) + "|" + step("4", 1) + "|" + step("-1", 1) + "|" + step("x", 1), "-1| 5| 0| 1");
    // A shift keeps the distances between the ticked values.
    Panel p({10, 15});
    const auto& bar = p.app.dna.gene.VsGeneValue;
    EXPECT_EQ(std::vector<int>({bar.min, bar.pos, bar.max}), std::vector<int>({2, 12, 252}));  // 12.5 to even
    p.shift(13);
    EXPECT_EQ(bar.pos, 14);  // 13.5 to even, now over 11 and 16
    // From 14, floor(13.5) is 13: 15 adds 2.
    for (auto [pos, values] : {std::pair{15, std::vector<int>{13, 18}}, {2, {0, 5}}, {252, {250, 255}}}) {
        p.shift(pos);
        EXPECT_EQ(p.values(), values) << pos;
    }
    EXPECT_EQ(p.app.dna.gene.lblGeneRange,
              "\r\nValues for the chosen gene within the selected drifters range from 250 to 255.");
    // The ticked values, the spread asked for and the one it ends on, the values and change marks after.
    const std::tuple<std::vector<int>, int, int, std::vector<int>, std::vector<std::uint8_t>> cases[] = {
        {{10, 20}, 11, 12, {9, 21}, {1, 1, 0}},
        {{10, 13, 20}, 11, 20, {5, 11, 25}, {1, 1, 1, 0}},
        {{10, 13, 20}, 9, 10, {10, 13, 20}, {0, 0, 0, 0}},
        {{10, 20}, 10, 10, {10, 20}, {0, 0, 0}},
        {{10, 15, 20}, 4, 4, {13, 15, 17}, {1, 0, 1, 0}},
        {{0, 250}, 254, 250, {0, 250}, {0, 0, 0}},  // wider would leave 0..255
        {{11, 16}, 1, 1, {13, 14}, {1, 1, 0}},      // the narrowest spread there is
    };
    for (const auto& [values, wish, ends, after, changed] : cases) {
        Panel p(values);
        p.spread(wish);
        SCOPED_TRACE(testing::Message() << values.size() << " values, wish " << wish);
        EXPECT_EQ(std::pair(p.app.dna.gene.VsGeneRange.pos, p.app.uiBusy), std::pair(ends, false));
        EXPECT_EQ(p.values(), after);
        EXPECT_EQ(p.app.dna.dnaChanged, changed);
    }
    Panel full({0, 255}), one({7}), same({4, 4});
    EXPECT_EQ(std::tuple(full.app.dna.gene.VsGeneRange.visible, full.app.dna.gene.VsGeneRange.pos,
                         full.app.dna.gene.VsGeneValue.visible),
              std::tuple(true, 255, false));

    auto& g = one.app.dna.gene;
    EXPECT_EQ(g.lblGeneRange, "\r\nThe chosen gene has a value of 7 within the selected drifter.");
    EXPECT_TRUE(!g.VsGeneRange.visible && g.VsGeneValue.visible && g.cmdZeroGeneEnabled);
    EXPECT_EQ(std::vector<int>({g.VsGeneValue.min, g.VsGeneValue.pos, g.VsGeneValue.max}),
              std::vector<int>({0, 7, 255}));
    one.spread(5);  // a single value has no spread
    EXPECT_FALSE(g.VsGeneRange.visible);

    auto& h = same.app.dna.gene;
    same.shift(4);  // the bar already stands there: nothing changes
    EXPECT_EQ(same.app.dna.dnaChanged, (std::vector<std::uint8_t>{0, 0, 0}));
    h.txtGene = "1000";  // gene 0, whose value is 1: no "zero" button
    aq::setGeneSliders(same.app);
    EXPECT_FALSE(h.cmdZeroGeneEnabled);
    aq::geneScrollFocus(same.app, true, true);
    EXPECT_EQ(h.lblGeneRange,
              "Use the scrollbar to make the values of the chosen gene closer to or farther from the same in all "
              "selected drifters.");
}

}  // namespace
