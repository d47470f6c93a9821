// Undo and redo: a random run of edits undone back to the loaded file, byte for byte.
#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "base/QuietUi.h"
#include "foodeditor/FoodEdits.h"
#include "foodeditor/FoodList.h"
#include "format/PoolFile.h"
#include "pooleditor/BulkEdits.h"
#include "pooleditor/DrifterList.h"
#include "shell/UndoHistory.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"

namespace {

// Deletes without saving what it deletes.
struct DeletingUi : aq::QuietUi {
    aq::Answer AskYesNoCancel(const std::string&, const std::string&) override { return aq::Answer::No; }
};

std::vector<bool> ticks(const aq::CheckList& l) {
    std::vector<bool> t;
    for (int i = 0; i < l.count(); ++i) t.push_back(l.checked(i));
    return t;
}

TEST(UndoHistory, RandomEditsUndoToTheLoadedFileAndRedoToTheLast) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 rng(seed);
    DeletingUi ui;
    aqtest::ManualClock clock;
    aq::App app(ui, clock);
    app.openPool = aqtest::defaultPool();
    app.poolLoaded = true;
    app.openPoolPath = "loaded.aqp";
    app.poolFiles.note(app.openPoolPath, app.openPool);
    aq::showNewOpenPool(app);
    aq::setSpeciatePoolSliders(app);
    aq::setFoodSliders(app);
    const std::string loaded = aq::poolBytes(app.openPool);
    aq::PoolHistory history;
    history.reset(app);
    std::vector<bool> ticksBefore;

    auto pick = [&](int n) { return std::uniform_int_distribution<int>(0, std::max(n - 1, 0))(rng); };
    auto slide = [&](const aq::SliderState& s) { return s.min + pick(s.max - s.min + 1); };
    // Deletions are drawn rarely, so the pool keeps most of its records.
    const std::function<void()> edits[] = {
        [&] { aq::killSelectedPoolSpecies(app); },
        [&] { aq::reviveSelectedPoolSpecies(app); },
        [&] { aq::feedSelectedPoolSpecies(app); },
        [&] {
            if (pick(8) == 0 && app.openPool.drifterCount > 10) aq::deleteSelectedPoolSpecies(app, false);
        },
        [&] {
            if (pick(8) == 0 && app.openPool.foodCount > 10) aq::deleteSelectedFood(app);
        },
        [&] { aq::MoveDrifterBox(app, aq::Axis::X, slide(app.SliderSpeciatePoolDrifterX)); },
        [&] { aq::StretchDrifterBox(app, aq::Axis::Y, slide(app.SliderSpeciatePoolDrifterHeight)); },
        [&] { aq::MoveFoodBox(app, aq::Axis::Y, slide(app.SliderFoodY)); },
        [&] { aq::StretchFoodBox(app, aq::Axis::X, slide(app.SliderFoodWidth)); }};
    int steps = 0;
    for (int n = 0; n < 200; ++n) {
        for (aq::CheckList* l : {&app.lstSpeciatePool, &app.lstPoolFood})
            if (l->count() > 0) l->setChecked(pick(l->count()), pick(2) == 1);
        aq::setSpeciatePoolSliders(app);
        aq::setFoodSliders(app);
        history.prepare(app);
        if (history.undoCount() == 0) ticksBefore = ticks(app.lstSpeciatePool);
        edits[pick(9)]();
        const std::size_t had = history.undoCount();
        history.commit(app, "edit " + std::to_string(n));
        steps += history.undoCount() > had;
    }
    ASSERT_GT(steps, 50);
    EXPECT_EQ(history.undoCount(), std::size_t(steps));
    const std::string last = aq::poolBytes(app.openPool);
    const auto lastRows = app.lstSpeciatePool.count();

    while (history.undo(app)) {
    }
    EXPECT_TRUE(aq::poolBytes(app.openPool) == loaded);
    EXPECT_FALSE(app.poolChanged);  // back at the file's state
    EXPECT_EQ(ticks(app.lstSpeciatePool), ticksBefore);
    EXPECT_EQ(app.lstSpeciatePool.count(), app.openPool.drifterCount);
    EXPECT_EQ(app.lstPoolFood.count(), app.openPool.foodCount);
    while (history.redo(app)) {
    }
    EXPECT_TRUE(aq::poolBytes(app.openPool) == last);
    EXPECT_EQ(app.lstSpeciatePool.count(), lastRows);
    EXPECT_TRUE(app.poolChanged);
}

// The 256 MB cap weighs what a step really holds: records, the carried history block
// and the rows' text.
TEST(UndoHistory, AStepWeighsAllItHolds) {
    DeletingUi ui;
    aqtest::ManualClock clock;
    aq::App app(ui, clock);
    app.openPool = aqtest::makePool(20, 2000);
    app.openPool.historyBlock.resize(2 << 20);
    app.poolLoaded = true;
    aq::showNewOpenPool(app);
    aq::PoolHistory history;
    history.reset(app);
    history.prepare(app);
    app.lstSpeciatePool.setChecked(0, true);
    aq::killSelectedPoolSpecies(app);
    history.commit(app, "Kill");
    const aq::Pool& p = app.openPool;
    std::size_t least =
        p.drifters.size() * sizeof(aq::DrifterRec) + p.food.size() * sizeof(aq::FoodBit) + p.historyBlock.size();
    for (int i = 0; i < app.lstSpeciatePool.count(); ++i) least += app.lstSpeciatePool.text(i).size();
    for (int i = 0; i < app.lstPoolFood.count(); ++i) least += app.lstPoolFood.text(i).size();
    EXPECT_GE(history.bytes(), least);
    EXPECT_LT(history.bytes(), least + (1u << 20));  // row bookkeeping and the snapshot itself

    // A gene edit weighs the genomes and the list's rows.
    app.dna.dnaGenes.assign(2000, aq::Genome{});
    for (int i = 0; i < 2000; ++i) app.lstSpeciateDrifters.add(std::string(100, 'a'));
    aq::DnaHistory genes;
    genes.reset(app);
    genes.prepare(app);
    app.dna.dnaGenes[0][0] = 1;
    genes.commit(app, "Change Gene Value");
    EXPECT_GE(genes.bytes(), 2000 * (sizeof(aq::Genome) + 100));
    EXPECT_LT(genes.bytes(), 2000 * (sizeof(aq::Genome) + 100) + (1u << 20));
    EXPECT_TRUE(genes.undo(app));
    EXPECT_EQ(app.dna.dnaGenes[0][0], 0);
}

}  // namespace
