// The species pass over a DNA folder, its prefixes, the group ticks and the threshold range.
#include <gtest/gtest.h>

#include "dnaeditor/DnaFixture.h"
#include "dnaeditor/GenePanel.h"
#include "support/CountingView.h"
#include "support/RecordingNotice.h"

namespace {

using aqtest::genome;
using namespace std::string_literals;
using Files = std::vector<std::pair<std::string, aq::Genome>>;

struct Species : aqtest::DnaFixture {
    // Files named in order with the given genomes, loaded and worked out in one slice.
    explicit Species(const Files& files, bool run = true) {
        for (auto& [name, g] : files) writeDna(name, g);
        load();
        if (run) aq::speciateDrifterList(app);
    }
};

TEST(DrifterSpecies, PrefixesAndTypedThresholds) {
    // Under 96.5% at depth 100: a difference in 4 of the first 100 genes splits.
    const aq::Genome a = genome(1), b = genome(1, {9}), c = genome(2);
    // The files, their lines and tags after the pass.
    const std::tuple<Files, std::vector<std::string>, std::vector<std::int32_t>> cases[] = {
        {{{"a.dna", a}, {"b.dna", b}, {"c.dna", c}}, {"{0}, a.dna", "{0}, b.dna", "{1}, c.dna"}, {0, 0, 1}},
        {{{"a.dna", a}, {"b.dna", a}}, {"a.dna", "b.dna"}, {0, 0}},                                    // one species
        {{{"a.dna", a}, {"c.dna", c}, {"d.dna", genome(3)}}, {"a.dna", "c.dna", "d.dna"}, {0, 1, 2}},  // all apart
        // A name that starts with "{" loses its head when the lines are written.
        {{{"{x.dna", a}, {"{y, z.dna", b}, {"q.dna", c}}, {"{0}, q.dna", "{1}, x.dna", "{1}, z.dna"}, {0, 1, 1}},
    };
    for (const auto& [files, lines, tags] : cases) {
        Species s(files, false);
        aqtest::CountingView view;  // the lines are rewritten out of the view's sight
        s.app.lstSpeciateDrifters.setObserver(&view);
        aq::speciateDrifterList(s.app);
        s.app.lstSpeciateDrifters.setObserver(nullptr);
        EXPECT_EQ(view.rows, 0);
        EXPECT_EQ(s.lines(), lines);
        std::vector<std::int32_t> got;
        for (int i = 0; i < s.app.lstSpeciateDrifters.count(); ++i) got.push_back(s.app.lstSpeciateDrifters.tag(i));
        EXPECT_EQ(got, tags);
    }
    // A typed threshold is clamped to the scroll bar.
    Species s({{"a.dna", genome(1)}, {"b.dna", genome(2)}});
    for (auto [text, pos] : {std::pair{"95%", 950}, {" 12.34 ", 123}, {"101", 1000}, {"abc", 0}, {"-5", 1000}}) {
        aq::typeDrifterSpeciesThreshold(s.app, text, 2);
        EXPECT_TRUE(s.app.drifterThresholdTyped);
        aq::validateDrifterSpeciesThreshold(s.app);
        // The typed text stays as typed, the caret where it was.
        EXPECT_EQ(std::tuple(s.app.drifterThresholdTyped, s.app.dna.scrollDrifterSpeciesThreshold.pos,
                             s.app.dna.thresholdText, s.app.dna.thresholdCaret),
                  std::tuple(false, pos, text, 2));
    }
    s.app.uiBusy = true;
    aq::validateDrifterSpeciesThreshold(s.app);
    EXPECT_TRUE(s.app.drifterThresholdTyped);  // the next sweep retries
}

TEST(DrifterSpecies, ANewThresholdOrAReloadReworksThePass) {
    Species s({{"a.dna", genome(1)}, {"b.dna", genome(1, {9})}, {"c.dna", genome(1, {9, 9, 9, 9, 9, 9})}});
    s.app.dna.scrollDrifterSpeciesThreshold.pos = 900;
    aq::scrollDrifterSpeciesThresholdChange(s.app);
    EXPECT_EQ(std::tuple(s.app.drifterThreshold, s.app.dna.thresholdText, s.app.lstSpeciateDrifters.enabled()),
              std::tuple(90.0f, " 90%", false));
    aq::speciateDrifterList(s.app);
    EXPECT_EQ(s.lines(), (std::vector<std::string>{"a.dna", "b.dna", "c.dna"}));  // all one species now
    EXPECT_TRUE(s.app.lstSpeciateDrifters.enabled());
    Species r({{"a.dna", genome(1)}, {"b.dna", genome(1, {9})}, {"c.dna", genome(2)}}, false);
    r.tick({0, 1});
    aq::setGeneSliders(r.app);
    ASSERT_TRUE(r.app.dna.gene.VsGeneValue.visible);
    // A pass under way on the old list, as a slice cut short by its time leaves it.
    r.app.dna.pass.passIndex = 2;
    r.app.dna.pass.maxGroup = 5;
    r.app.dna.pass.passRunning = true;
    r.load();
    EXPECT_FALSE(r.app.dna.gene.VsGeneValue.visible || r.app.dna.gene.VsGeneRange.visible);
    aq::speciateDrifterList(r.app);  // from the first file, not from where the old pass stopped
    EXPECT_EQ(r.lines(), (std::vector<std::string>{"{0}, a.dna", "{0}, b.dna", "{1}, c.dna"}));
}

TEST(DrifterSpecies, GroupTicksAndTheThresholdRange) {
    Species s({{"a.dna", genome(1)}, {"b.dna", genome(1, {9})}, {"c.dna", genome(2)}});
    aq::CheckList& list = s.app.lstSpeciateDrifters;
    list.setCurrentIndex(1);
    list.setChecked(1, true);
    aq::ApplyDrifterGroup(s.app);  // mode 2: the whole extended species
    EXPECT_EQ(s.ticked(), (std::vector<int>{0, 1}));
    aq::InvertDrifterSelection(s.app);
    EXPECT_EQ(s.ticked(), (std::vector<int>{2}));

    s.app.speciesPending = true;  // extended species wait for a pending pass, the other modes don't
    aq::setDrifterGroupMode(s.app, 2);
    const bool waited = !list.enabled();
    aq::setDrifterGroupMode(s.app, 0);
    EXPECT_TRUE(waited && list.enabled());
    s.app.speciesPending = false;
    list.setChecked(0, true);
    list.setCurrentIndex(0);
    aq::ApplyDrifterGroup(s.app);
    EXPECT_EQ(s.ticked(), (std::vector<int>{0, 2}));

    aq::setDrifterGroupMode(s.app, 1);
    list.setChecked(0, false);
    aq::ApplyDrifterGroup(s.app);  // local species: similar to a.dna
    EXPECT_EQ(s.ticked(), (std::vector<int>{2}));

    aq::setDrifterGroupMode(s.app, 4);
    list.setChecked(0, true);
    s.ui.message("ToDo");
    s.run(aq::ApplyDrifterGroup);
    EXPECT_EQ(std::pair(list.checkedCount(), s.app.uiBusy), std::pair(2, false));
    // The threshold range narrows the scroll bar.
    // Depth 1000: 923 and 971 equal genes give a step of 4, 13 items.
    Species t({{"a.dna", genome(1)},
               {"b.dna", genome(1, std::vector<int>(77, 7))},
               {"c.dna", genome(1, std::vector<int>(29, 6))}},
              false);
    t.app.similarityDepth = 1000;
    t.ui.message("Range found.  Listed drifters all match from 92.3% to  97.1% of each other's genetic sequences.");
    t.run(aq::findDrifterThresholdRange);
    const auto& bar = t.app.dna.scrollDrifterSpeciesThreshold;
    EXPECT_EQ(std::vector<int>({bar.min, bar.pos, bar.max}), std::vector<int>({923, 965, 971}));
    ASSERT_EQ(t.app.dna.thresholdItems.size(), 13u);
    const auto& progress = t.app.dna.drifterProgressBar1;
    EXPECT_EQ(std::tuple(progress.visible, progress.value, progress.max), std::tuple(false, 2, 2));

    // Width 7: eight items one apart; width 20: eleven items two apart.
    for (auto [head, items, first] :
         {std::tuple(9, std::size_t{8}, "99.1%"s), std::tuple(22, std::size_t{11}, "97.8%"s)}) {
        Species u({{"a.dna", genome(1)}, {"b.dna", genome(1, {5, 5})}, {"c.dna", genome(1, std::vector<int>(head, 4))}},
                  false);
        u.app.similarityDepth = 1000;
        u.ui.message("*");
        aq::findDrifterThresholdRange(u.app);
        EXPECT_EQ(std::pair(u.app.dna.thresholdItems.size(), u.app.dna.thresholdItems.front()),
                  std::pair(items, first));
    }

    // All alike, or one file alone: no range, and the full range comes back.
    for (int files : {1, 2}) {
        Species v({{"a.dna", genome(1)}, {"b.dna", genome(1)}}, false);
        v.app.dna.dnaCount = files;
        v.ui.message("No range found.  Listed drifters all match  100% of each other's genetic sequences.");
        v.run(aq::findDrifterThresholdRange);
    }
}

TEST(DrifterSpecies, SlowPassesShowTheNoticeWithGrowingPatience) {
    aqtest::DnaFixture f;
    aq::App& app = f.app;
    for (int i = 0; i < 100; ++i) f.writeDna("f" + std::to_string(100 + i) + ".dna", genome(i));
    aqtest::RecordingNotice recorder;
    app.notice = &recorder;
    f.clock.step = 0.9;
    f.load();
    auto runPass = [&] {
        for (int slice = 0; slice < 1000 && app.speciesPending; ++slice) aq::speciateDrifterList(app);
    };
    runPass();
    EXPECT_EQ(
        recorder.shown,
        std::vector<std::string>{
            "Please be patient. Extended species grouping may take several minutes on larger aquariums.\r\n\r\n"
            "An extended species is any group of entities within a aquarium each of which is genetically compatible "
            "with at least one other member of the group. Genetic comparisons are being done between all possible "
            "pairs of drifters to see if their genetic code sequences are close enough to identical to be within "
            "the selected species boundary threshold."});
    app.speciesPending = true;
    runPass();
    EXPECT_EQ(std::pair(recorder.shown.size(), app.dna.pass.patience), std::pair(std::size_t{2}, std::int16_t{32}));
}

}  // namespace
