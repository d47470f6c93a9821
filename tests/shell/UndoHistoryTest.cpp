// Undo and redo: what a step weighs. The editing walk checks what undo brings back.
#include <gtest/gtest.h>

#include "base/QuietUi.h"
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
