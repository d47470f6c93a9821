// Undo and redo: what a step weighs and what it brings back. The editing walk checks
// undo over random actions.
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

// Everything undo must bring back of the pool tabs, byte for byte: the records as far
// as the arrays go (past the counts too), the other fields and the rows.
std::string shown(const aq::App& app) {
    const aq::Pool& p = app.openPool;
    std::string s = aq::poolBytes(p);
    s.append(reinterpret_cast<const char*>(p.drifters.data()), p.drifters.size() * sizeof(aq::DrifterRec));
    s.append(reinterpret_cast<const char*>(p.food.data()), p.food.size() * sizeof(aq::FoodBit));
    for (const aq::CheckList* l : {&app.lstSpeciatePool, &app.lstPoolFood})
        for (int i = 0; i < l->count(); ++i) s += l->text(i) + (l->checked(i) ? "+" : "-");
    return s;
}

// A step keeps what it changed: 500 one-drifter steps at 2000 drifters stay well under
// the cap, and every step undoes and redoes exactly, also one that changes the counts
// and the arrays' lengths.
TEST(UndoHistory, AStepWeighsWhatItChanged) {
    DeletingUi ui;
    aqtest::ManualClock clock;
    aq::App app(ui, clock);
    app.openPool = aqtest::makePool(2000, 2000);
    app.poolLoaded = true;
    aq::showNewOpenPool(app);
    aq::PoolHistory history;
    history.reset(app);
    // Undoing a step brings back the state as it was when the step began: with the
    // ticks made before it.
    std::vector<std::string> states;
    auto killOne = [&](int i) {
        if (i > 0) app.lstSpeciatePool.setChecked(i - 1, false);
        app.lstSpeciatePool.setChecked(i, true);
        history.prepare(app);
        if (i == 0) states.push_back(shown(app));
        aq::killSelectedPoolSpecies(app);
        history.commit(app, "Kill");
    };
    for (int i = 0; i < 250; ++i) killOne(i);
    history.prepare(app);
    states.push_back(shown(app));
    app.openPool = aqtest::makePool(2300, 10);
    app.openPool.drifters.resize(2310);
    aq::showNewOpenPool(app);
    history.commit(app, "Generate");
    for (int i = 0; i < 249; ++i) killOne(i);
    states.push_back(shown(app));
    EXPECT_EQ(history.undoCount(), 500u);
    EXPECT_GE(history.bytes(), 499 * sizeof(aq::DrifterRec));
    EXPECT_LT(history.bytes(), std::size_t{20} << 20);

    // Undoing all, then redoing all, passes through the states as they were.
    const int undos[] = {249, 1, 250};
    for (int k = 0; k < 3; ++k) {
        for (int n = 0; n < undos[k]; ++n) ASSERT_TRUE(history.undo(app));
        EXPECT_TRUE(shown(app) == states[static_cast<std::size_t>(2 - k)]) << "undone to state " << 2 - k;
    }
    EXPECT_FALSE(history.canUndo());
    for (int k = 0; k < 3; ++k) {
        for (int n = 0; n < undos[2 - k]; ++n) ASSERT_TRUE(history.redo(app));
        EXPECT_TRUE(shown(app) == states[static_cast<std::size_t>(k + 1)]) << "redone to state " << k + 1;
    }
    EXPECT_FALSE(history.canRedo());

    // A gene edit weighs the genome it changed, not all of them.
    app.dna.dnaGenes.assign(2000, aq::Genome{});
    for (int i = 0; i < 2000; ++i) app.lstSpeciateDrifters.add(std::string(100, 'a'));
    aq::DnaHistory genes;
    genes.reset(app);
    genes.prepare(app);
    app.dna.dnaGenes[7][0] = 1;
    genes.commit(app, "Change Gene Value");
    EXPECT_GE(genes.bytes(), sizeof(aq::Genome));
    EXPECT_LT(genes.bytes(), 4 * sizeof(aq::Genome));
    EXPECT_TRUE(genes.undo(app));
    EXPECT_EQ(app.dna.dnaGenes[7][0], 0);
    EXPECT_TRUE(genes.redo(app));
    EXPECT_EQ(app.dna.dnaGenes[7][0], 1);
}

}  // namespace
