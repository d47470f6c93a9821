// Drawing the series view: a branching series of 500 pools with the chart of one branch,
// offscreen at 1000x800, from figures made in memory. One frame is 16 ms.
#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include "app/pictures/SeriesDrawing.h"

namespace {

// The first 500 files a branching series makes when every pool has both children: the
// chosen file, "0" to "9", "00" to "99", then "000" on.
aqapp::SeriesScene bigSeries() {
    std::vector<aq::SeriesMember> members;
    std::vector<std::string> level{""};
    while (members.size() < 500) {
        std::vector<std::string> longer;
        for (const std::string& s : level) {
            if (members.size() >= 500) break;
            aq::SeriesMember m;
            m.suffix = s;
            m.parent = aq::seriesParent(s, true).value_or("");
            m.generation = aq::seriesGeneration(s, true);
            m.path = "/series/pool" + s + ".aqp";
            members.push_back(m);
            for (char d = '0'; d <= '9'; ++d) longer.push_back(s + d);
        }
        level = longer;
    }
    aqapp::SeriesScene scene;
    scene.setMembers(std::move(members));
    for (std::size_t i = 0; i < scene.figures.size(); ++i) {
        aq::PoolFigures f;
        f.drifters = 2000;
        f.alive = int(i * 37 % 2001);
        f.food = 1500;
        f.clock = int(i) * 1000;
        f.bestScore = float(i % 97) / 7;
        f.species = int(i * 13 % 40);
        scene.figures[i] = f;
    }
    scene.running = 321;
    scene.hover = 250;
    return scene;
}

void DrawSeries500(benchmark::State& state) {
    const aqapp::SeriesScene scene = bigSeries();
    QImage image(1000, 800, QImage::Format_ARGB32_Premultiplied);
    const aqapp::PictureColors colors = aqapp::PictureColors::light();
    for (auto _ : state) {
        QPainter painter(&image);
        aqapp::paintSeries(painter, image.size(), scene, colors);
    }
}

}  // namespace

BENCHMARK(DrawSeries500)->Unit(benchmark::kMillisecond);

#include "QtBenchMain.h"
