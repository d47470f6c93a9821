// The species pass over a DNA folder, its prefixes, the group ticks and the threshold range.
#include <gtest/gtest.h>

#include "support/RecordingNotice.h"

#include "dnaeditor/DnaFixture.h"

namespace {

using aqtest::genome;

struct Species : aqtest::DnaFixture {
    // Files named in order with the given genomes, loaded and worked out in one slice.
    Species(std::vector<std::pair<std::string, aq::Genome>> files, bool run = true) {
        for (auto& [name, g] : files) writeDna(name, g);
        load();
        if (run) aq::speciateDrifterList(app);
    }
};

TEST(DrifterSpecies, PrefixesOnlyWhenTheSpeciesTellFilesApart) {
    // Under 96.5% at depth 100: a difference in 4 of the first 100 genes splits.
    const aq::Genome a = genome(1), b = genome(1, {9}), c = genome(2);
    {
        Species s({{"a.dna", a}, {"b.dna", b}, {"c.dna", c}});
        EXPECT_EQ(s.lines(), (std::vector<std::string>{"{0}, a.dna", "{0}, b.dna", "{1}, c.dna"}));
        EXPECT_FALSE(s.app.speciesPending);
        EXPECT_TRUE(s.app.lstSpeciateDrifters.enabled());
        EXPECT_EQ(s.app.lstSpeciateDrifters.tag(2), 1);
    }
    {
        Species s({{"a.dna", a}, {"b.dna", a}});
        EXPECT_EQ(s.lines(), (std::vector<std::string>{"a.dna", "b.dna"}));  // one species
        EXPECT_EQ(s.app.lstSpeciateDrifters.tag(1), 0);
    }
    {
        Species s({{"a.dna", a}, {"c.dna", c}, {"d.dna", genome(3)}});
        EXPECT_EQ(s.lines(), (std::vector<std::string>{"a.dna", "c.dna", "d.dna"}));  // all apart
        EXPECT_EQ(s.app.lstSpeciateDrifters.tag(2), 2);
    }
    {
        // A name that starts with "{" loses its head when the lines are written.
        Species s({{"{x.dna", a}, {"{y, z.dna", b}, {"q.dna", c}});
        EXPECT_EQ(s.lines(), (std::vector<std::string>{"{0}, q.dna", "{1}, x.dna", "{1}, z.dna"}));
    }
}

TEST(DrifterSpecies, ANewThresholdReworksThePass) {
    Species s({{"a.dna", genome(1)}, {"b.dna", genome(1, {9})}, {"c.dna", genome(1, {9, 9, 9, 9, 9, 9})}});
    EXPECT_EQ(s.lines(), (std::vector<std::string>{"{0}, a.dna", "{0}, b.dna", "{1}, c.dna"}));
    s.app.dna.scrollDrifterSpeciesThreshold.pos = 900;
    aq::scrollDrifterSpeciesThresholdChange(s.app);
    EXPECT_EQ(s.app.drifterThreshold, 90.0f);
    EXPECT_EQ(s.app.dna.thresholdText, " 90%");
    EXPECT_TRUE(s.app.speciesPending);
    EXPECT_FALSE(s.app.lstSpeciateDrifters.enabled());
    aq::speciateDrifterList(s.app);
    EXPECT_EQ(s.lines(), (std::vector<std::string>{"a.dna", "b.dna", "c.dna"}));  // all one species now
    EXPECT_TRUE(s.app.lstSpeciateDrifters.enabled());
}

TEST(DrifterSpecies, TypedThresholdIsClampedToTheScrollbar) {
    Species s({{"a.dna", genome(1)}, {"b.dna", genome(2)}});
    const struct {
        const char* text;
        int pos;
    } cases[] = {{"95%", 950}, {" 12.34 ", 123}, {"101", 1000}, {"abc", 0}, {"-5", 1000}};
    for (const auto& c : cases) {
        aq::typeDrifterSpeciesThreshold(s.app, c.text, 2);
        EXPECT_TRUE(s.app.drifterThresholdTyped);
        aq::validateDrifterSpeciesThreshold(s.app);
        EXPECT_FALSE(s.app.drifterThresholdTyped);
        EXPECT_EQ(s.app.dna.scrollDrifterSpeciesThreshold.pos, c.pos) << c.text;
        EXPECT_EQ(s.app.dna.thresholdText, c.text);  // the typed text stays as typed
        EXPECT_EQ(s.app.dna.thresholdCaret, 2);
    }
    s.app.uiBusy = true;
    aq::validateDrifterSpeciesThreshold(s.app);
    EXPECT_TRUE(s.app.drifterThresholdTyped);  // the next sweep retries
}

TEST(DrifterSpecies, GroupTicksSpreadByMode) {
    Species s({{"a.dna", genome(1)}, {"b.dna", genome(1, {9})}, {"c.dna", genome(2)}});
    aq::CheckList& list = s.app.lstSpeciateDrifters;
    list.setCurrentIndex(1);
    list.setChecked(1, true);
    aq::ApplyDrifterGroup(s.app);  // mode 2: the whole extended species
    EXPECT_TRUE(list.checked(0));
    EXPECT_FALSE(list.checked(2));
    aq::InvertDrifterSelection(s.app);
    EXPECT_EQ(list.checkedCount(), 1);
    EXPECT_TRUE(list.checked(2));

    aq::setDrifterGroupMode(s.app, 0);
    list.setChecked(0, true);
    list.setCurrentIndex(0);
    aq::ApplyDrifterGroup(s.app);
    EXPECT_EQ(list.checkedCount(), 2);

    aq::setDrifterGroupMode(s.app, 1);
    list.setChecked(0, false);
    aq::ApplyDrifterGroup(s.app);  // local species: similar to a.dna
    EXPECT_FALSE(list.checked(1));
    EXPECT_TRUE(list.checked(2));

    aq::setDrifterGroupMode(s.app, 4);
    list.setChecked(0, true);
    s.ui.message("ToDo");
    aq::ApplyDrifterGroup(s.app);
    EXPECT_TRUE(s.ui.done()) << s.ui.report();
    EXPECT_EQ(list.checkedCount(), 2);
    EXPECT_FALSE(s.app.uiBusy);
}

TEST(DrifterSpecies, ThresholdRangeNarrowsTheScrollbar) {
    // Pairs share 97 and 92 of the first 100 genes (at depth 100).
    std::vector<int> three(3, 9), eight(8, 8);
    Species s({{"a.dna", genome(1)}, {"b.dna", genome(1, three)}, {"c.dna", genome(1, eight)}}, false);
    s.ui.message("Range found.  Listed drifters all match from 92% to  97% of each other's genetic sequences.");
    aq::findDrifterThresholdRange(s.app);
    EXPECT_TRUE(s.ui.done()) << s.ui.report();
    EXPECT_EQ(s.app.dna.scrollDrifterSpeciesThreshold.min, 920);
    EXPECT_EQ(s.app.dna.scrollDrifterSpeciesThreshold.max, 970);
    EXPECT_EQ(s.app.dna.thresholdItems, (std::vector<std::string>{"92%", "92.5%", "93%", "93.5%", "94%", "94.5%", "95%",
                                                                  "95.5%", "96%", "96.5%", "97%"}));
    EXPECT_FALSE(s.app.dna.drifterProgressBar1.visible);

    // Depth 1000: 923 and 971 equal genes give a step of 4, 13 items.
    std::vector<int> g77(77, 7), g29(29, 6);
    Species t({{"a.dna", genome(1)}, {"b.dna", genome(1, g77)}, {"c.dna", genome(1, g29)}}, false);
    t.app.similarityDepth = 1000;
    t.ui.message("Range found.  Listed drifters all match from 92.3% to  97.1% of each other's genetic sequences.");
    aq::findDrifterThresholdRange(t.app);
    EXPECT_TRUE(t.ui.done()) << t.ui.report();
    ASSERT_EQ(t.app.dna.thresholdItems.size(), 13u);
    EXPECT_EQ(t.app.dna.thresholdItems[1], "92.7%");
    EXPECT_EQ(t.app.dna.thresholdItems.back(), "97.1%");
    EXPECT_EQ(t.app.dna.scrollDrifterSpeciesThreshold.pos, 965);

    // Width 7: eight items one apart.
    std::vector<int> g2(2, 5), g9(9, 4);
    Species u({{"a.dna", genome(1)}, {"b.dna", genome(1, g2)}, {"c.dna", genome(1, g9)}}, false);
    u.app.similarityDepth = 1000;
    u.ui.message("*");
    aq::findDrifterThresholdRange(u.app);
    EXPECT_EQ(u.app.dna.thresholdItems.size(), 8u);
    EXPECT_EQ(u.app.dna.thresholdItems.front(), "99.1%");

    // All alike: no range, and the full range comes back.
    Species v({{"a.dna", genome(1)}, {"b.dna", genome(1)}}, false);
    v.ui.message("No range found.  Listed drifters all match  100% of each other's genetic sequences.");
    aq::findDrifterThresholdRange(v.app);
    EXPECT_TRUE(v.ui.done()) << v.ui.report();
    EXPECT_EQ(v.app.dna.scrollDrifterSpeciesThreshold.min, 0);
    EXPECT_EQ(v.app.dna.scrollDrifterSpeciesThreshold.max, 1000);
}

}  // namespace

namespace {

// A clock that moves on by itself at every reading, so each slice runs out of time.
class SlowClock : public aqtest::ManualClock {
public:
    double secondsSinceMidnight() override { return seconds += 0.9; }
};

TEST(DrifterSpecies, SlowPassesShowTheNoticeWithGrowingPatience) {
    aqtest::ScriptedUi ui;
    SlowClock clock;
    aq::App app(ui, clock);
    aqtest::TempDir dir;
    for (int i = 0; i < 100; ++i) {
        std::string bytes(1000, static_cast<char>(i));
        aqtest::writeBytes(dir.file("f" + std::to_string(100 + i) + ".dna"), bytes);
    }
    aqtest::RecordingNotice recorder;
    app.notice = &recorder;
    std::vector<std::string>& notices = recorder.shown;
    app.comboDrifterPath = dir.path();
    aq::initiateLoadDrifterArchive(app);
    auto runPass = [&] {
        for (int slice = 0; slice < 1000 && app.speciesPending; ++slice) aq::speciateDrifterList(app);
    };
    runPass();
    EXPECT_FALSE(app.speciesPending);
    ASSERT_EQ(notices.size(), 1u);
    EXPECT_EQ(notices[0],
              "Please be patient. Extended species grouping may take several minutes on larger aquariums.\r\n\r\n"
              "An extended species is any group of entities within a aquarium each of which is genetically compatible "
              "with at least one other member of the group. Genetic comparisons are being done between all possible "
              "pairs of drifters to see if their genetic code sequences are close enough to identical to be within "
              "the selected species boundary threshold.");
    EXPECT_EQ(app.dna.pass.patience, 16);
    EXPECT_TRUE(app.lstSpeciateDrifters.enabled());
    EXPECT_EQ(app.lstSpeciateDrifters.text(99), "f199.dna");  // every file its own species: no prefix

    app.speciesPending = true;
    runPass();
    EXPECT_EQ(notices.size(), 2u);
    EXPECT_EQ(app.dna.pass.patience, 32);
}

}  // namespace
