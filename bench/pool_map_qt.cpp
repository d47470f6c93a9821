// Drawing the pool map with 2000 drifters and 2000 food bits, and the genome picture of
// 2000 genomes, offscreen; bench/run.sh sets each against the 16 ms of a frame.
#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include "app/pictures/GenomePicture.h"
#include "app/pictures/PoolMap.h"
#include "support/PoolFixtures.h"

namespace {

// 2000 copies of the default pool's drifters spread over the world, and 2000 food bits.
// Newborns have every point of their bodies on their positions, as a generated pool's have.
aq::Pool bigPool(bool newborn) {
    aq::Pool base = aqtest::defaultPool();
    aq::Pool p = base;
    p.drifters.clear();
    for (int i = 0; i < 2000; ++i) {
        aq::DrifterRec d = base.drifters[static_cast<std::size_t>(i % 49)];
        float dx = static_cast<float>((i * 37) % 7000 - 3500), dy = static_cast<float>((i * 91) % 7000 - 3500);
        d.x += dx;
        d.y += dy;
        for (auto& s : d.segments) {
            float* pt = &s.point1X;
            for (int k = 0; k < 8; ++k) pt[k] = newborn ? (k % 2 == 0 ? d.x : d.y) : pt[k] + (k % 2 == 0 ? dx : dy);
        }
        p.drifters.push_back(d);
    }
    p.drifterCount = 2000;
    p.food.resize(2000);
    for (int i = 0; i < 2000; ++i) {
        p.food[static_cast<std::size_t>(i)].x = static_cast<float>((i * 53) % 7600 - 3800);
        p.food[static_cast<std::size_t>(i)].y = static_cast<float>((i * 29) % 7600 - 3800);
        p.food[static_cast<std::size_t>(i)].family = static_cast<std::uint8_t>(i % 6);
    }
    p.foodCount = 2000;
    return p;
}

void DrawMap2000(benchmark::State& state) {
    aq::Pool pool = bigPool(state.range(0) != 0);
    aqapp::PoolMap map;
    map.resize(1000, 800);
    map.setPool(&pool);
    QImage image(map.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        QPainter painter(&image);
        map.paintPool(painter);
    }
}

// 2000 genomes, each strip drawn: the picture on a screen scrolls beyond a few hundred,
// so the export, which squeezes every strip in, is the larger job.
void DrawGenes2000(benchmark::State& state) {
    aq::Pool pool = bigPool(false);
    for (int i = 0; i < 2000; ++i)
        for (int g = 0; g < 1000; ++g)
            pool.drifters[std::size_t(i)].genes[g] = static_cast<std::uint8_t>((i * 7 + g * 13) % 256);
    aqapp::GenomePicture picture;
    picture.resize(1000, 800);
    picture.setSource([&pool] {
        std::vector<aqapp::GenomeStrip> strips;
        for (int i = 0; i < 2000; ++i)
            strips.push_back({QString("Drifter %1").arg(i), pool.drifters[std::size_t(i)].genes, i});
        return strips;
    });
    picture.refresh();
    const bool all = state.range(0) != 0;
    QImage image(picture.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        QPainter painter(&image);
        picture.paintPicture(painter, picture.size(), all);
    }
}

}  // namespace

BENCHMARK(DrawGenes2000)->ArgName("all")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(DrawMap2000)->ArgName("newborn")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

#include "QtBenchMain.h"
