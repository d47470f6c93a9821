#pragma once
// The pool editor's benchmarks' world: 2000 drifters and 2000 food bits, and an App
// with that pool open, its lists filled and every row ticked.
#include <algorithm>
#include <array>
#include <random>

#include "Genomes.h"
#include "base/Clock.h"
#include "foodeditor/FoodEdits.h"
#include "foodeditor/FoodList.h"
#include "format/Records.h"
#include "pooleditor/BulkEdits.h"
#include "pooleditor/DrifterList.h"
#include "state/App.h"
#include "support/PoolFixtures.h"
#include "support/ScriptedUi.h"

namespace {

constexpr int kCount = 2000;

// 60 lineages of mutated copies, spread over the world, with food bits among them.
const aq::Pool& worldPool() {
    static aq::Pool p = [] {
        aq::Pool pool = aqtest::makePool(kCount, kCount);
        std::mt19937 rng(5);
        std::uniform_real_distribution<float> place(-3500.0f, 3500.0f);
        const Ancestors ancestors = randomAncestors(rng, 60);
        for (auto& d : pool.drifters) {
            descendantGenes(d.genes, ancestors, rng);
            d.x = d.prevX = place(rng);
            d.y = d.prevY = place(rng);
            for (auto& s : d.segments) {
                float* pt = &s.point1X;
                for (int k = 0; k < 8; ++k) pt[k] = (k % 2 == 0 ? d.x : d.y) + static_cast<float>(k);
            }
        }
        for (auto& f : pool.food) {
            f.x = place(rng);
            f.y = place(rng);
        }
        return pool;
    }();
    return p;
}

// An App with the world pool open, its lists filled and every row ticked.
struct Loaded {
    aqtest::ScriptedUi ui;
    aq::SystemClock clock;
    aq::App app{ui, clock};
    Loaded() {
        app.openPool = worldPool();
        app.openPoolPath = "bench.aqp";
        app.poolLoaded = true;
        aq::populateSpeciatePoolList(app);
        aq::populateFoodList(app);
        for (int i = 0; i < app.lstSpeciatePool.count(); ++i) app.lstSpeciatePool.setChecked(i, true);
        for (int i = 0; i < app.lstPoolFood.count(); ++i) app.lstPoolFood.setChecked(i, true);
        aq::setSpeciatePoolSliders(app);
        aq::setFoodSliders(app);
        for (const auto& d : app.openPool.drifters) {
            aq::Genome g;
            std::copy(std::begin(d.genes), std::end(d.genes), g.begin());
            app.dna.dnaGenes.push_back(g);
            app.dna.dnaPaths.push_back("bench.dna");
            app.dna.dnaChanged.push_back(0);
        }
        app.dna.dnaCount = kCount;
    }
};

}  // namespace
