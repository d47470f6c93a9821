// The series view: where its pools stand, how it follows a folder and fills in figures
// in the background, what a click on a pool does, the store a second view starts from,
// and the series picture of the command line.
#include <QSlider>
#include <QStandardPaths>
#include <QStatusBar>
#include <filesystem>

#include "Window.h"
#include "app/pictures/MapPanel.h"
#include "app/pictures/PictureCommand.h"
#include "app/pictures/SeriesView.h"
#include "base/NumberText.h"
#include "support/PoolFixtures.h"

namespace {

// `n` living drifters of unrelated genes, the last of them `dead` ones.
aq::Pool seriesPool(int n, int dead = 0) {
    std::vector<aq::DrifterRec> drifters;
    for (int i = 0; i < n; ++i) {
        drifters.push_back(aqtest::makeDrifter(i, 2, i % 6, float(i * 100), 0));
        std::memset(drifters.back().genes, i * 50, sizeof drifters.back().genes);
        drifters.back().alive = i < n - dead;
    }
    return aqtest::poolOf(drifters, 3);
}

// The row `aqfm series --species 44.4` gives a pool, as the tooltip shows it.
std::string row(const std::string& file, const std::string& suffix, const std::string& parent, int generation,
                const aq::Pool& p) {
    aq::PoolFigures f = aq::poolFigures(p);
    return "file: " + file + "\nsuffix: " + suffix + "\nparent: " + parent +
           "\ngeneration: " + std::to_string(generation) + "\ndrifters: " + std::to_string(f.drifters) +
           "\nalive: " + std::to_string(f.alive) + "\nfood: " + std::to_string(f.food) +
           "\nclock: " + std::to_string(f.clock) + "\nbest score: " + aq::NumberText(*f.bestScore) +
           "\nspecies: " + std::to_string(aq::speciesCount(p, {44.4f, 100}));
}

std::string tip(const aqapp::SeriesView& v, const std::string& suffix) {
    return v.tipAt(v.poolCentre(suffix).toPoint()).toStdString();
}

}  // namespace

class SeriesViewTest : public QObject {
    Q_OBJECT
    aqtest::TempDir cache_;

private slots:
    void initTestCase() { qputenv("XDG_CACHE_HOME", QByteArray::fromStdString(cache_.path())); }

    // Columns are generations; a continuing child ("1" after "0", else the only one)
    // keeps the row, the other child's subtree starts below all the continuing one used.
    // The chart's branch runs from the first file to the pool, then on along its row.
    void theLayoutPutsGenerationsInColumnsAndBranchesBelow() {
        struct Place {
            const char* suffix;
            int column, row;
        };
        const std::vector<Place> branching = {{"", 0, 0},   {"0", 1, 0},  {"1", 2, 0},  {"2", 3, 0},  {"00", 2, 2},
                                              {"01", 3, 2}, {"10", 3, 1}, {"20", 4, 0}, {"000", 3, 3}};
        const std::vector<Place> plain = {{"", 0, 0}, {"1", 1, 0}, {"2", 2, 0}};
        for (bool b : {true, false}) {
            const auto& places = b ? branching : plain;
            std::vector<aq::SeriesMember> members;
            for (const Place& p : places)
                members.push_back(
                    {p.suffix, aq::seriesParent(p.suffix, b).value_or(""), "", aq::seriesGeneration(p.suffix, b)});
            aqapp::SeriesLayout layout = aqapp::layoutSeries(members);
            for (std::size_t i = 0; i < places.size(); ++i) {
                QCOMPARE(layout.places[i].column, places[i].column);
                QCOMPARE(layout.places[i].row, places[i].row);
            }
            QCOMPARE(layout.rows, b ? 4 : 1);
            // "00": down from the first file, then on to "01".
            if (b) QCOMPARE(aqapp::seriesBranch(layout, 4), std::vector<int>({0, 1, 4, 5}));
        }
    }

    // While on show the view picks up a new file within a second and a half; the figures,
    // species last, come from the background; a click loads the pool the usual way, but
    // not while a series runs; the saved figures serve the next view without a read.
    void theViewFollowsTheFolderAndLoadsAClickedPool() {
        aqtest::TempDir series;
        const aq::Pool first = seriesPool(5), second = seriesPool(4, 1);
        QVERIFY(aq::writePool(series.file("pool.aqp"), first).empty());
        QVERIFY(aq::writePool(series.file("pool0.aqp"), second).empty());
        const std::string expected = row("pool0.aqp", "0", "pool.aqp", 1, second);
        {
            aqtest::Window<> h;
            h.w.show();
            QVERIFY(QTest::qWaitForWindowExposed(&h.w));
            h.w.selectTab(6);
            aqapp::SeriesView& view = *h.w.mapPanel()->series();
            QVERIFY(view.isVisible() && !view.scene().hint.isEmpty());
            h.ui.file("open", "Select the First Pool of a Series", series.file("pool.aqp"));
            h.click("cmdChooseSeries");
            QVERIFY(QTest::qWaitFor([&] { return tip(view, "0") == expected; }, 10000));

            QVERIFY(aq::writePool(series.file("pool1.aqp"), first).empty());
            QVERIFY(QTest::qWaitFor([&] { return view.poolCentre("1").x() >= 0; }, 1500));
            QVERIFY(QTest::qWaitFor([&] { return tip(view, "1") == row("pool1.aqp", "1", "0 (pool0.aqp)", 2, first); }, 10000));

            h.app().series.run.seriesRunning = true;
            h.app().series.run.seriesFile = series.file("pool.aqp");
            h.app().series.run.runningSuffix = "1";
            view.refresh();
            QCOMPARE(view.scene().running, 2);
            QTest::mouseClick(&view, Qt::LeftButton, {}, view.poolCentre("1").toPoint());
            QVERIFY(h.app().openPoolPath.empty() && !h.w.statusBar()->currentMessage().isEmpty());
            h.app().series.run.seriesRunning = false;

            h.loadPool(aqtest::makePool(3, 3));  // and changed, by a drag
            h.tick("lstSpeciatePool", 0);
            h.get<QSlider>("SliderSpeciatePoolDrifterX")->setValue(100);
            h.w.selectTab(6);
            h.ui.ask("yesnocancel",
                     "The currently open pool file has been changed.  Save changes before opening another file?",
                     "File Has Changed", aq::Answer::No);
            QTest::mouseClick(&view, Qt::LeftButton, {}, view.poolCentre("1").toPoint());
            SCRIPT_DONE(h);
            QCOMPARE(h.app().openPoolPath, series.file("pool1.aqp"));
            QCOMPARE(h.w.selectedTab(), 3);
        }
        const std::string store =
            QStandardPaths::writableLocation(QStandardPaths::CacheLocation).toStdString() + "/series-figures.txt";
        QVERIFY(aqtest::readBytes(store).find(series.file("pool1.aqp") + "\t") != std::string::npos);
        aqapp::SeriesView again(store);
        again.setSource([&] { return aqapp::SeriesView::Source{series.file("pool.aqp"), true, {}, {44.4f, 100}}; });
        again.resize(500, 400);
        again.show();
        QVERIFY(QTest::qWaitFor([&] { return tip(again, "0") == expected; }, 3000));
        QCOMPARE(again.poolsRead(), 0);
    }

    // The picture without a window, its usage errors and a missing first file.
    void thePictureCommandDrawsASeries() {
        aqtest::TempDir dir;
        QVERIFY(aq::writePool(dir.file("pool.aqp"), seriesPool(3)).empty());
        QVERIFY(aq::writePool(dir.file("pool1.aqp"), seriesPool(2, 2)).empty());
        aqtest::writeBytes(dir.file("pool2.aqp"), "not a pool");
        std::string message;
        QCOMPARE(aqapp::pictureCommand(
                     {"series", dir.file("pool.aqp"), dir.file("s.png"), "--plain", "--size", "640x480"}, message),
                 0);
        QCOMPARE(QImage(QString::fromStdString(dir.file("s.png"))).size(), QSize(640, 480));
        QCOMPARE(aqapp::pictureCommand({"series", dir.file("pool.aqp"), dir.file("t.png"), "--depth"}, message), 2);
        QCOMPARE(aqapp::pictureCommand({"map", dir.file("pool.aqp"), dir.file("t.png"), "--plain"}, message), 2);
        QCOMPARE(aqapp::pictureCommand({"series", dir.file("none.aqp"), dir.file("t.png")}, message), 1);
        QVERIFY(message.find("none.aqp") != std::string::npos && !std::filesystem::exists(dir.file("t.png")));

        // A view shown and gone at once leaves no read behind to call it.
        for (int k = 0; k < 3; ++k) {
            aqapp::SeriesView brief("");
            brief.setSource([&] { return aqapp::SeriesView::Source{dir.file("pool.aqp"), false, {}, {}}; });
            brief.show();
            QTest::qWait(k);
        }
        QTest::qWait(20);
    }
};

QTEST_MAIN(SeriesViewTest)
#include "SeriesViewTest.moc"
