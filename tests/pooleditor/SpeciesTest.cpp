// Kinship of two genomes, the species pass in slices, the threshold controls, the range,
// and the same through aqfm species, range, keys and minorities.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <random>

#include "pooleditor/EqualCount.h"
#include "pooleditor/PackedGenes.h"
#include "pooleditor/PoolEditorFixture.h"
#include "pooleditor/Similarity.h"
#include "shell/MultiTask.h"
#include "support/RecordingNotice.h"
#include "support/RunCli.h"
#include "support/ScriptedSession.h"

using namespace aq;
using namespace aqtest;

namespace {

using Genes = std::array<std::uint8_t, 1000>;

// A pool open from a file, its species due.
struct Editor : PoolEditor {
    explicit Editor(const Pool& pool, int depth = 100) : PoolEditor(pool) {
        app.openPoolPath = "/pools/open.aqp";
        app.similarityDepth = static_cast<std::int16_t>(depth);
        app.poolLoaded = app.poolSpeciesPending = true;
    }
};

}  // namespace

TEST(Similarity, ThresholdsAtBothDepthsAndAPlainByteCount) {
    // Equal genes in every hundred (so depth 1000 sees ten times as many), threshold, depth, similar.
    const std::tuple<int, float, int, bool> cases[] = {
        {96, 96.5f, 100, true},   {95, 96.5f, 100, false},   {44, 44.4f, 100, true},    {43, 44.4f, 100, false},
        {0, 0.0f, 100, true},     {99, 100.0f, 100, false},  {100, 100.0f, 100, true},  {96, -3.5f, 100, true},
        {95, -3.5f, 100, false},  {97, 96.5f, 1000, true},   {96, 96.5f, 1000, false},  {45, 44.4f, 1000, true},
        {44, 44.4f, 1000, false}, {100, 100.0f, 1000, true}, {99, 100.0f, 1000, false}, {0, 0.0f, 1000, true},
        {45, -55.6f, 1000, true}, {44, -55.6f, 1000, false}, {97, 96.5f, 0, true},      {96, 96.5f, 0, false},
    };
    for (auto [same, threshold, depth, similar] : cases) {
        Genes a, b;
        for (int i = 0; i < 1000; ++i) {
            a[i] = static_cast<std::uint8_t>(i * 7);
            b[i] = i % 100 < same ? a[i] : static_cast<std::uint8_t>(a[i] + 1);
        }
        SCOPED_TRACE(testing::Message() << "same " << same << " threshold " << threshold << " depth " << depth);
        EXPECT_EQ(GenomesSimilar(a.data(), b.data(), threshold, depth), similar);
        EXPECT_EQ(GenomesSimilar(b.data(), a.data(), threshold, depth), similar) << "symmetry";
    }
    // Zero genes match like any other value.
    Genes zeros{}, ones;
    ones.fill(1);
    EXPECT_TRUE(GenomesSimilar(zeros.data(), zeros.data(), 100.0f, 1000));
    EXPECT_TRUE(GenomesSimilar(zeros.data(), ones.data(), 0.04f, 1000));  // need 0
    EXPECT_FALSE(GenomesSimilar(zeros.data(), ones.data(), 0.1f, 1000));
    // The fast scan against a byte-by-byte count over random genomes with planted matches.
    const unsigned seed = 20261123;
    std::mt19937 rng(seed);
    std::uniform_int_distribution<int> byte(0, 255), share(0, 1000);
    const float thresholds[] = {0.0f, 10.0f, 44.4f, 50.0f, 89.9f, 90.0f, 96.5f, 100.0f, -3.5f, 150.0f, -150.0f};
    for (int round = 0; round < 400; ++round) {
        Genes a, b;
        for (auto& g : a) g = static_cast<std::uint8_t>(byte(rng));
        int keep = share(rng);
        for (int i = 0; i < 1000; ++i) b[i] = (share(rng) < keep) ? a[i] : static_cast<std::uint8_t>(byte(rng));
        for (int n : {100, 1000, 37, 999}) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << " round " << round << " depth " << n);
            int equal = 0;
            for (int i = 0; i < n; ++i) equal += a[i] == b[i];
            ASSERT_EQ(equalGeneCount(a.data(), b.data(), n), equal);
            // Each width of compare the processor has counts alike.
            auto all = [](int, int) { return false; };
            ASSERT_EQ(detail::countEqualSse2(a.data(), b.data(), n, all), equal);
#if defined(AQ_AVX2_COUNT)
            if (detail::vectorLevel() >= 1) {
                ASSERT_EQ(detail::countEqualAvx2(a.data(), b.data(), n, all), equal);
            }
            if (detail::vectorLevel() >= 2) {
                ASSERT_EQ(detail::countEqualAvx512(a.data(), b.data(), n, all), equal);
            }
#endif
            for (float t : thresholds)
                ASSERT_EQ(GenomesSimilar(a.data(), b.data(), t, n), equal >= similarityNeed(n, t)) << t;
            // Stopping early is allowed only when the pair can change neither end of the range.
            int low = share(rng) % (n + 1), high = share(rng) % (n + 1);
            int m = equalGeneCountOutside(a.data(), b.data(), n, low, high);
            if (m != equal) {
                ASSERT_LE(low, high);
                ASSERT_TRUE(m >= low && equal <= high && equal >= low);
            }
        }
    }
}

TEST(Similarity, RangeAndSpeciesAreThoseOfEveryPair) {
    // Lineages of mutated copies with exact repeats among them, in pools that fill the
    // pass's blocks of rows and columns partly and wholly.
    const unsigned seed = 33;
    std::mt19937 rng(seed);
    for (int round = 0; round < 40; ++round) {
        const int n = static_cast<int>(round % 4 ? 257 + rng() % 70 : rng() % 70),
                  lineages = 1 + static_cast<int>(rng() % 8);
        const int mutation = 5 + static_cast<int>(rng() % 30),
                  repeats = round % 3 ? 0 : 1 + static_cast<int>(rng() % 2);
        std::vector<Genome> ancestors(static_cast<std::size_t>(lineages)), genomes(static_cast<std::size_t>(n));
        for (Genome& g : ancestors)
            for (auto& gene : g) gene = static_cast<std::uint8_t>(rng() % 7);
        for (Genome& g : genomes) {
            g = ancestors[rng() % ancestors.size()];
            for (auto& gene : g)
                if (static_cast<int>(rng() % 100) < mutation) gene = static_cast<std::uint8_t>(rng() % 7);
        }
        for (int r = 0; r < repeats && n > 1; ++r) genomes[rng() % std::size_t(n)] = genomes[rng() % std::size_t(n)];
        // Without repeats, one pair alone is nearly the same, often on the blocks' edges.
        const int edges[] = {0, 63, 64, 255, 256, n - 1};
        const int a = std::min(n - 1, edges[round % 6]), b = std::min(n - 1, edges[(round / 6 + 1) % 6]);
        if (a != b && repeats == 0) {
            genomes[std::size_t(b)] = genomes[std::size_t(a)];
            genomes[std::size_t(b)][0] ^= 1;
        }
        for (int depth : {1, 37, 100, 1000}) {
            int low = 1000, high = -1;
            for (int i = 0; i < n; ++i)
                for (int j = 0; j < i; ++j) {
                    int m = 0;
                    for (int k = 0; k < depth; ++k)
                        m += genomes[std::size_t(i)][std::size_t(k)] == genomes[std::size_t(j)][std::size_t(k)];
                    low = std::min(low, m), high = std::max(high, m);
                }
            // The complete species pass, against the first similar earlier genome found one by one.
            Pool pool = makePool(n, 0);
            for (int i = 0; i < n; ++i)
                std::memcpy(pool.drifters[std::size_t(i)].genes, genomes[std::size_t(i)].data(), 1000);
            std::vector<std::int32_t> tags;
            for (int i = 0, fresh = 0; i < n; ++i) {
                int j = 0;
                while (j < i &&
                       !GenomesSimilar(genomes[std::size_t(j)].data(), genomes[std::size_t(i)].data(), 60.0f, depth))
                    ++j;
                tags.push_back(j < i ? tags[std::size_t(j)] : fresh++);
            }
            EXPECT_EQ(poolSpeciesTags(pool, 60.0f, depth), tags)
                << "seed " << seed << " round " << round << " depth " << depth;
            auto [fastLow, fastHigh] = equalGeneRange(PackedGenes(genomes, n, depth));
            EXPECT_EQ(std::pair(fastLow, fastHigh), std::pair(low, high))
                << "seed " << seed << " round " << round << " depth " << depth;
        }
    }
}

TEST(SpeciesPass, TheDefaultPoolAtBothDepthsAndInSlices) {
    // Depth, threshold position, species count, the first tags.
    const std::tuple<int, int, int, std::vector<std::int32_t>> cases[] = {
        {100, 444, 25, {0, 0, 0, 0, 0, 1, 2, 2, 2, 2, 2, 2, 2, 3, 4, 5, 6, 7, 8, 9}},
        {1000, 444, 27, {0, 0, 0, 0, 1, 2, 0, 0, 0, 0, 0, 0, 0, 3, 4, 5}},
        {1000, 965, 46, {0, 1, 2, 3}},
    };
    for (const auto& [depth, position, count, first] : cases) {
        SCOPED_TRACE(testing::Message() << depth << " " << position);
        Editor e(defaultPool(), depth);
        e.app.poolThreshold = static_cast<float>(position / 10.0);
        e.finish();
        auto tags = e.tags();
        EXPECT_EQ(std::pair(*std::max_element(tags.begin(), tags.end()) + 1,
                            std::vector<std::int32_t>(tags.begin(), tags.begin() + std::ssize(first))),
                  std::pair(count, first));
        EXPECT_EQ(tags, poolSpeciesTags(e.app.openPool, e.app.poolThreshold, depth));
        // The tags stand at the head of the lines, and the pass leaves the list usable.
        EXPECT_EQ(e.app.lstSpeciatePool.text(0), "{0} " + DrifterLineText(e.app.openPool.drifters[0]));
        EXPECT_TRUE(e.app.lstSpeciatePool.enabled() && e.app.lstSpeciatePool.visible());
        EXPECT_FALSE(e.app.poolPassRunning || e.app.PoolProgressBar1.visible || e.app.uiBusy);
    }
    Editor whole(defaultPool(), 1000), sliced(defaultPool(), 1000), late(defaultPool());
    EXPECT_EQ(whole.finish(), 1);
    sliced.clock.step = 0.7;  // three readings fill a slice
    EXPECT_GT(sliced.finish(), 10);
    EXPECT_EQ(sliced.tags(), whole.tags());
    EXPECT_EQ(sliced.app.lstSpeciatePool.text(4), whole.app.lstSpeciatePool.text(4));
    // A start time that single precision rounds up still gets its whole slice.
    late.clock.seconds = 4000.0002;
    EXPECT_EQ(late.finish(), 1);
    // A slice ends when its two seconds are up: readings at 0.5, 1 and 1.5 s pass, 2 s does not.
    Editor edge(defaultPool());
    edge.clock.step = 0.5;
    edge.app.uiBusy = true;  // a list change the program makes itself starts no slice
    speciatePoolList(edge.app);
    EXPECT_FALSE(edge.app.poolPassRunning);
    edge.app.uiBusy = false;
    speciatePoolList(edge.app);
    EXPECT_EQ(edge.app.poolPassIndex, 3);
}

TEST(SpeciesPass, APassUnderWay) {
    // Those numbered keep their species, the rest are judged anew under the new threshold.
    Editor e(kinPool({100, 50, 10, 10, 10, 10, 10, 10, 10, 10}));
    e.clock.step = 0.7;
    speciatePoolList(e.app);  // numbers drifters 0 and 1, then runs out of time
    ASSERT_EQ(e.app.poolPassIndex, 2);
    setPoolSpeciesThresholdPosition(e.app, 0);  // everything is similar now
    EXPECT_EQ(e.app.txtPoolSpeciesThreshold, " 0");
    EXPECT_TRUE(e.app.poolSpeciesPending && e.app.poolPassRunning);
    e.finish();
    EXPECT_EQ(e.tags(), (std::vector<std::int32_t>(10, 0)));
    // In extended species mode the list waits for the new numbers.
    e.app.comboSpeciatePoolGroup0 = 2;
    setPoolSpeciesThresholdPosition(e.app, 500);
    EXPECT_FALSE(e.app.lstSpeciatePool.enabled());
    // A list out of step with the pool restarts the pass.
    Editor o(kinPool({100, 50, 10, 10}));
    o.clock.step = 0.7;
    speciatePoolList(o.app);
    ASSERT_EQ(o.app.poolPassIndex, 2);
    o.app.lstSpeciatePool.remove(3);  // the list no longer matches the pool
    speciatePoolList(o.app);
    EXPECT_EQ(o.app.poolPassIndex, 0);
    EXPECT_TRUE(o.app.poolPassRunning && o.app.poolSpeciesPending && !o.app.uiBusy);
    populateSpeciatePoolList(o.app);
    o.finish();
    EXPECT_EQ(o.tags(), (std::vector<std::int32_t>{0, 0, 1, 2}));
    // The notice comes once for a slow pass, and patience grows.
    Pool alike = makePool(1000, 0);  // look-alikes: the pass compares every pair
    for (auto& d : alike.drifters) std::memset(d.genes, 7, sizeof d.genes);
    Editor slow(alike);
    slow.app.comboSpeciatePoolGroup0 = 2;
    slow.app.lastHelpMove = slow.clock.seconds - 100;
    RecordingNotice recorder;
    slow.app.notice = &recorder;
    slow.clock.step = 0.9;  // two drifters a slice
    speciatePoolList(slow.app);
    EXPECT_EQ(std::tuple(recorder.shown, slow.app.poolPatience, slow.app.lstSpeciatePool.enabled()),
              std::tuple(std::vector<std::string>{kPoolSpeciesNotice}, 16, false));
    slow.finish();
    EXPECT_TRUE(recorder.shown.size() == 1 && slow.app.lstSpeciatePool.enabled());
    for (int expected : {32, 64, 128, 256, 256}) {
        slow.app.poolSpeciesPending = true;
        slow.finish();
        EXPECT_EQ(slow.app.poolPatience, expected);
    }
    // None outside "extended species.".
    slow.app.comboSpeciatePoolGroup0 = 1;
    slow.app.poolSpeciesPending = true;
    slow.finish();
    EXPECT_EQ(recorder.shown.size(), 6u);
}

TEST(SpeciesThreshold, TypedTextsTheLateRewriteAndRanges) {
    // Typed text, the scroll bar's position, the text as rewritten later.
    const std::tuple<const char*, int, const char*> cases[] = {
        {" 95% ", 950, " 95"}, {"abc", 0, " 0"},    {"-5", 1000, " 100"},    {"300", 1000, " 100"},
        {".7", 7, " .7"},      {"1e1", 100, " 10"}, {"44.45", 444, " 44.4"},  // 444.5 goes to the even 444
    };
    for (auto [typed, position, canonical] : cases) {
        SCOPED_TRACE(typed);
        Session s;
        App& app = s.app;
        MultiTask task;
        auto sweep = [&] {
            for (int t = 0; t < 6; ++t) tmrMultiTaskTick(app, task, FramesShown{true, false});
        };
        typePoolSpeciesThreshold(app, typed);
        app.uiBusy = true;  // busy: the typed text waits for the next sweep
        validatePoolSpeciesThreshold(app);
        EXPECT_EQ(std::pair(app.poolThresholdTyped, app.scrollPoolSpeciesThreshold), std::pair(true, 444));
        app.uiBusy = false;
        sweep();
        // The text stays as typed at first.
        EXPECT_EQ(std::tuple(app.poolThresholdTyped, app.scrollPoolSpeciesThreshold, app.txtPoolSpeciesThreshold),
                  std::tuple(false, position, typed));
        EXPECT_FLOAT_EQ(app.poolThreshold, static_cast<float>(position / 10.0));
        // Typed again and left alone for more than five seconds: the text is rewritten.
        typePoolSpeciesThreshold(app, typed);
        s.clock.advance(5.5);
        sweep();
        EXPECT_EQ(app.txtPoolSpeciesThreshold, canonical);
    }
    const std::tuple<Pool, int, const char*> ranges[] = {
        {defaultPool(), 100, "Range found.  Listed drifters all match from 0% to  95%"},
        {defaultPool(), 1000, "Range found.  Listed drifters all match from 0% to  99.5%"},
        {kinPool({60, 60}), 100, "Zero range found.  Listed drifters all match  60%"},
        {kinPool({100, 100, 95, 3}), 100, "Range found.  Listed drifters all match from 3% to  100%"},  // to even
        {kinPool({100, 100, 90}), 1000, "Range found.  Listed drifters all match from 9% to  10%"},
        {kinPool({100}), 100, "Zero range found.  Listed drifters all match  100%"},  // one drifter
    };
    for (const auto& [pool, depth, message] : ranges) {
        Editor e(pool, depth);
        e.ui.message(std::string(message) + " of each other's genetic sequences.");
        findPoolThresholdRange(e.app);
        EXPECT_TRUE(e.ui.done()) << e.ui.report();
        EXPECT_FALSE(e.app.PoolProgressBar1.visible);
    }
}

TEST(SpeciesCli, SpeciesRangesKeysAndMinorities) {
    TempDir dir;
    std::string pool = dir.file("kin.aqp");
    ASSERT_EQ(writePool(pool, kinPool({100, 50, 44, 43, 100, 10})), "");
    // Arguments, exit status, output.
    const std::tuple<std::string, int, std::string> cases[] = {
        {"species " + pool, 0, "0\n0\n0\n1\n0\n2\n"},
        {"species " + pool + " --threshold 96.5 --depth 1000", 0, "0\n1\n2\n3\n4\n5\n"},
        {"range " + pool + " --depth 1000", 0,
         "Range found.  Listed drifters all match from 1% to  10% of each other's genetic sequences.\n"},
        {"species " + pool + " --depth 0", 2, ""},
        {"drifters " + pool + " --depth 100", 2, ""},
        {"species " + dir.file("missing.aqp"), 1, ""},
    };
    for (const auto& [args, status, out] : cases) {
        CliResult r = runCli(args);
        EXPECT_EQ(std::tie(r.status, r.out), std::tie(status, out)) << args;
    }
    CliResult lines = runCli("drifters " + pool + " --species 44.4");
    EXPECT_TRUE(lines.status == 0 && lines.out.starts_with("{0} ") && lines.out.find("\n{2} ") != std::string::npos);
    EXPECT_EQ(runCli("drifters " + pool).out.find('{'), std::string::npos);
    TempDir keysDir;
    std::string defaultFile = keysDir.file("default.aqp");
    ASSERT_EQ(runCli("default -o " + defaultFile).status, 0);
    auto firstLine = [&](const std::string& args) {
        std::string out = runCli("keys " + defaultFile + args).out;
        return out.substr(0, out.find('\n'));
    };
    EXPECT_EQ(firstLine(" --short"), "10{}");  // the Dot
    EXPECT_EQ(firstLine(" --pair"), firstLine(" --compressed") + "\t" + firstLine(" --compressed --detailed"));
    // Two drifters stand alone in their segment counts: those of 1 and 6 segments.
    CliResult minor = runCli("minorities " + defaultFile + " --by segments --count-still");
    EXPECT_EQ(std::tie(minor.status, minor.out), std::make_tuple(0, std::string("0\n48\n")));
    EXPECT_EQ(runCli("minorities " + defaultFile + " --by legs").status, 2);
    EXPECT_EQ(runCli("minorities " + defaultFile).status, 2);
    EXPECT_EQ(runCli("keys " + defaultFile + " --pair --short").status, 2);
}
