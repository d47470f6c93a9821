// A seeded random walk of user actions through the pool editor, its files and its undo
// history, with the promises the program makes about them checked after every step:
// the changed mark says exactly whether the file holds the pool on show, nothing is
// replaced or closed unasked while it doesn't, no file gets a pool that was never on
// show, and finished species numbers are those of the threshold and depth now set.
#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <set>

#include "base/FileIo.h"
#include "base/QuietUi.h"
#include "files/PoolMerge.h"
#include "files/PoolSave.h"
#include "foodeditor/FoodEdits.h"
#include "format/PoolFile.h"
#include "generator/Generator.h"
#include "pooleditor/BulkEdits.h"
#include "pooleditor/DrifterList.h"
#include "pooleditor/SelectionCommands.h"
#include "pooleditor/SpeciesPass.h"
#include "series/Harvest.h"
#include "shell/Shutdown.h"
#include "shell/UndoHistory.h"
#include "support/ManualClock.h"
#include "support/PoolFixtures.h"
#include "support/TempDir.h"

namespace {

using aq::Answer;

const char* const kPoolNames[] = {"a.aqp", "b.aqp", "c.aqp"};

// Answers every question and file dialog at random; notes whether the question about
// the changed pool was asked.
struct RandomUi : aq::QuietUi {
    RandomUi(std::mt19937& rng, std::string folder) : rng(rng), folder(std::move(folder)) {}
    std::mt19937& rng;
    std::string folder;
    bool askedAboutChanges = false;

    int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng); }
    Answer AskYesNo(const std::string&, const std::string&) override { return pick(2) ? Answer::Yes : Answer::No; }
    Answer AskYesNoCancel(const std::string&, const std::string& title) override {
        if (title == "File Has Changed" || title == "Pool File Has Changed") askedAboutChanges = true;
        const Answer answers[] = {Answer::Yes, Answer::No, Answer::Cancel};
        return answers[pick(3)];
    }
    Answer AskOkCancel(const std::string&, const std::string&) override {
        return pick(2) ? Answer::Ok : Answer::Cancel;
    }
    Answer AskRetryCancel(const std::string&, const std::string&) override {
        return pick(4) ? Answer::Cancel : Answer::Retry;
    }
    std::string AskText(const std::string&, const std::string&, const std::string&) override {
        const char* answers[] = {" 2000", "5", ""};
        return answers[pick(3)];
    }
    std::string poolName() { return pick(5) ? folder + "/" + kPoolNames[pick(3)] : std::string(); }
    std::string ChooseOpenFile(const std::string&, const std::string&, const std::string&, const std::string&,
                               const std::string&) override {
        return poolName();
    }
    // A pool made from a selection goes to a file of its own: it is no pool on show.
    std::string ChooseSaveFile(const std::string&, const std::string&, const std::string&, const std::string&,
                               const std::string& title) override {
        return title == "Save Pool As" ? poolName() : folder + "/selection.aqp";
    }
};

std::string fileBytes(const std::string& path) {
    std::string bytes;
    return aq::readWholeFile(path, bytes, std::size_t{1} << 26).empty() ? bytes : "missing";
}

// `n` drifters of the default pool from `first` on, and as much food: small pools keep
// ten thousand steps quick.
aq::Pool cut(aq::Pool p, int first, int n) {
    p.drifters.erase(p.drifters.begin(), p.drifters.begin() + first);
    p.drifters.resize(static_cast<std::size_t>(n));
    p.food.resize(static_cast<std::size_t>(n));
    p.drifterCount = p.foodCount = n;
    return p;
}

// A state of the editor as the user sees it: the pool, its file, whether one is open,
// the ticks of both lists.
struct Shown {
    std::size_t pool;
    std::string path;
    bool loaded;
    std::vector<bool> ticks;
    bool operator==(const Shown&) const = default;
};

struct Walk {
    explicit Walk(unsigned seed) : rng(seed), ui(rng, dir.path()) {
        EXPECT_EQ(aq::writePool(dir.file("a.aqp"), cut(aqtest::defaultPool(), 0, 14)), "");
        EXPECT_EQ(aq::writePool(dir.file("b.aqp"), cut(aqtest::defaultPool(), 10, 8)), "");
        for (const char* name : kPoolNames) seen[name] = fileBytes(dir.file(name));
        start();
    }
    // A new run of the program, after it closed.
    void start() {
        app = std::make_unique<aq::App>(ui, clock);
        app->comboPoolPath = app->programFolder = dir.path();
        app->defaultPool = cut(aqtest::defaultPool(), 0, 20);
        app->defaultPoolUsable = true;
        history = aq::PoolHistory();
        history.reset(*app);
    }
    int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng); }
    int slide(const aq::SliderState& s) { return s.min + pick(s.max - s.min + 1); }
    // The user's ticks, and the boxes that follow them.
    void tickSome() {
        for (aq::CheckList* l : {&app->lstSpeciatePool, &app->lstPoolFood})
            for (int n = pick(4); n > 0 && l->count() > 0; --n) l->setChecked(pick(l->count()), pick(2) == 1);
        aq::setSpeciatePoolSliders(*app);
        aq::setFoodSliders(*app);
    }
    bool fileHoldsPool() {
        return !app->openPoolPath.empty() && fileBytes(app->openPoolPath) == aq::poolBytes(app->openPool);
    }
    // Runs a pending species pass to its end; the clock stands still, so one slice does.
    bool runSpeciesPass() {
        if (!app->poolSpeciesPending || app->openPool.drifterCount < 1) return false;
        aq::speciatePoolList(*app);
        return !app->poolSpeciesPending;
    }

    aqtest::TempDir dir;
    std::mt19937 rng;
    RandomUi ui;
    aqtest::ManualClock clock;
    std::unique_ptr<aq::App> app;
    aq::PoolHistory history;
    std::map<std::string, std::string> seen;  // each pool file's bytes as last seen
    std::map<std::string, std::filesystem::file_time_type> stamps;
    std::set<std::size_t> shownPools;  // every pool that was on show
    std::deque<Shown> undos, redos;
    Shown shown() const {
        Shown s{app->poolLoaded ? std::hash<std::string>{}(aq::poolBytes(app->openPool)) : 0,
                app->openPoolPath,
                app->poolLoaded,
                {}};
        for (const aq::CheckList* l : {&app->lstSpeciatePool, &app->lstPoolFood})
            for (int i = 0; i < l->count(); ++i) s.ticks.push_back(l->checked(i));
        return s;
    }
};

TEST(EditingModel, RandomActionsKeepTheChangedMarkTheFilesAndTheSpeciesTrue) {
    // AQ_SEED repeats a failed walk.
    const char* given = std::getenv("AQ_SEED");
    const unsigned seed = given ? static_cast<unsigned>(std::stoul(given)) : std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    Walk w(seed);
    auto& app = w.app;
    aq::StartupSettings settings;
    enum Kind { Edit, Replace, Close, Undo, Redo };
    const std::vector<std::pair<Kind, std::function<void()>>> actions = {
        {Replace, [&] { aq::initiateLoadPoolFile(*app); }},
        {Edit, [&] { aq::mSavePool(*app); }},
        // Merges stop at a small pool, so ten thousand steps stay quick.
        {Edit, [&] { app->openPool.drifterCount < 50 ? aq::mMergePool(*app) : aq::mSelectPoolDelete(*app); }},
        {Edit, [&] { app->openPool.foodCount < 50 ? aq::mMergeFood(*app) : aq::mSelectFoodDelete(*app); }},
        {Replace,
         [&] {
             settings.seed = w.pick(1000);
             aq::generateStartupPool(*app, settings);
         }},
        {Replace, [&] { aq::GetSuccessfulCommand(*app); }},
        {Edit, [&] { aq::mSelectKill(*app); }},
        {Edit, [&] { aq::mSelectRevive(*app); }},
        {Edit, [&] { aq::mSelectPoolFeed(*app); }},
        {Edit, [&] { aq::mSelectPoolDelete(*app); }},
        {Edit, [&] { aq::mSelectFoodDelete(*app); }},
        {Edit, [&] { aq::MoveDrifterBox(*app, aq::Axis::X, w.slide(app->SliderSpeciatePoolDrifterX)); }},
        {Edit, [&] { aq::StretchDrifterBox(*app, aq::Axis::Y, w.slide(app->SliderSpeciatePoolDrifterHeight)); }},
        {Edit, [&] { aq::MoveFoodBox(*app, aq::Axis::Y, w.slide(app->SliderFoodY)); }},
        {Edit, [&] { aq::StretchFoodBox(*app, aq::Axis::X, w.slide(app->SliderFoodWidth)); }},
        {Edit, [&] { aq::setPoolSpeciesThresholdPosition(*app, w.pick(1001)); }},
        {Edit, [&] { aq::ToggleQuickSpeciate(*app); }},
        {Undo, [] {}},
        {Redo, [] {}},
        {Undo, [] {}},
        {Close, [] {}},
        {Edit, [&] { aq::mSavePoolAs(*app); }},
    };
    for (int step = 0; step < 10000; ++step) {
        const std::size_t which = static_cast<std::size_t>(w.pick(static_cast<int>(actions.size())));
        const auto& [kind, act] = actions[which];
        SCOPED_TRACE("step " + std::to_string(step) + ", action " + std::to_string(which));
        w.tickSome();
        const bool watched = kind == Replace || kind == Close;
        const bool heldBefore = !watched || !app->poolLoaded || w.fileHoldsPool();
        const std::string before = watched ? aq::poolBytes(app->openPool) : std::string();
        const std::uint64_t readsBefore = app->poolReads;
        w.ui.askedAboutChanges = false;
        // The model's own history: what was on show before each step, and after each undo.
        const Shown was = w.shown();
        if (kind == Close) {
            if (aq::closeProgram(*app)) {
                ASSERT_TRUE(heldBefore || w.ui.askedAboutChanges) << "closed on a pool its file does not hold";
                w.start();
                w.undos.clear();
                w.redos.clear();
            }
        } else if (kind == Undo || kind == Redo) {
            auto& from = kind == Undo ? w.undos : w.redos;
            auto& to = kind == Undo ? w.redos : w.undos;
            ASSERT_EQ(kind == Undo ? w.history.undo(*app) : w.history.redo(*app), !from.empty());
            if (!from.empty()) {
                ASSERT_EQ(w.shown(), from.back()) << "undo or redo brought back another pool, file or ticks";
                from.pop_back();
                to.push_back(was);
            }
        } else {
            w.history.prepare(*app);
            act();
            w.history.commit(*app, "step");
            if (app->poolReads != readsBefore) {
                w.undos.clear();
                w.redos.clear();
            } else if (w.shown().pool != was.pool || app->poolLoaded != was.loaded) {
                w.undos.push_back(was);
                if (w.undos.size() > aq::PoolHistory::kMaxSteps) w.undos.pop_front();
                w.redos.clear();
            }
        }
        if (kind == Replace && !w.ui.askedAboutChanges &&
            (app->poolReads != readsBefore || aq::poolBytes(app->openPool) != before)) {
            ASSERT_TRUE(heldBefore) << "replaced a pool its file does not hold";
        }
        const bool passEnded = w.pick(2) && w.runSpeciesPass();

        // The mark says exactly whether the file holds the pool on show.
        ASSERT_EQ(app->poolChanged, app->poolLoaded && !w.fileHoldsPool()) << app->openPoolPath;
        // A load whose file dialog was cancelled leaves the lists empty.
        const bool listed = app->lstSpeciatePool.count() == app->openPool.drifterCount &&
                            app->lstPoolFood.count() == app->openPool.foodCount;
        ASSERT_TRUE(listed || app->lstSpeciatePool.count() == 0 || app->lstPoolFood.count() == 0);
        // A file only ever gets a pool that was on show.
        if (app->poolLoaded) w.shownPools.insert(std::hash<std::string>{}(aq::poolBytes(app->openPool)));
        for (const char* name : kPoolNames) {
            std::error_code ec;
            const auto stamp = std::filesystem::last_write_time(w.dir.file(name), ec);
            if (!ec && stamp == w.stamps[name]) continue;
            w.stamps[name] = stamp;
            std::string bytes = fileBytes(w.dir.file(name));
            if (bytes == w.seen[name]) continue;
            ASSERT_TRUE(w.shownPools.count(std::hash<std::string>{}(bytes))) << name << " got a pool never on show";
            w.seen[name] = std::move(bytes);
        }
        // The species numbers on show are worked out at the threshold and depth now set,
        // or about to be; a pass that ends gives a fresh pass's numbers.
        if (app->poolLoaded && app->openPool.drifterCount > 0 && !app->poolSpeciesPending) {
            ASSERT_TRUE(app->poolTagsThreshold == app->poolThreshold && app->poolTagsDepth == app->similarityDepth);
        }
        if (passEnded && listed) {
            std::vector<std::int32_t> tags;
            for (int i = 0; i < app->lstSpeciatePool.count(); ++i) tags.push_back(app->lstSpeciatePool.tag(i));
            ASSERT_EQ(tags, aq::poolSpeciesTags(app->openPool, app->poolThreshold, app->similarityDepth));
        }
    }
}

}  // namespace
