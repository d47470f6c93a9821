// The files users actually meet, fed to every reader and to the command-line tool: each
// gets the program's message and, from aqfm, the exit code its users script against;
// nothing crashes or blocks, and no file changes that the program did not mean to write.
// DNA files of every size, folders that only look like DNA files, and saves or archive
// copies that fail half way: the old file stays byte for byte.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "archive/ArchiveTransfers.h"
#include "base/FileIo.h"
#include "dnaeditor/DrifterFiles.h"
#include "files/PoolOps.h"
#include "format/DnaFile.h"
#include "format/PoolFile.h"
#include "pooleditor/DrifterList.h"
#include "shell/Settings.h"
#include "support/PoolFixtures.h"
#include "support/RunCli.h"
#include "support/ScriptedSession.h"
#include "support/TempDir.h"

using namespace aq;
using namespace aqtest;

namespace {

const std::string kLoadTitle = "Aquarium File Manager - Load Pool File";
const std::string kSaveTitle = "Aquarium File Manager - Save Pool File";

struct Fixture : Session {
    Fixture() {
        app.openPool = makePool(1, 1);
        app.poolLoaded = true;
    }
};

void putInt(std::string& bytes, std::size_t at, std::int32_t v) { std::memcpy(bytes.data() + at, &v, 4); }

// Loads a bad file over a pool on show: the load fails, the pool, the file and the
// cursor stay as they were, and the messages shown come back as "title|text".
std::vector<std::string> loadBad(const std::string& path) {
    Fixture f;
    std::string before = poolBytes(f.app.openPool);
    std::error_code ec;
    std::string file = std::filesystem::is_regular_file(path, ec) ? readBytes(path) : "";
    EXPECT_FALSE(loadPoolFile(f.app, path, true));
    EXPECT_EQ(poolBytes(f.app.openPool), before);
    EXPECT_EQ(f.ui.waitDepth, 0);
    if (std::filesystem::is_regular_file(path, ec)) {
        EXPECT_EQ(readBytes(path), file) << "the file is never touched";
    }
    std::vector<std::string> shown;
    for (const auto& p : f.ui.seen) shown.push_back(p.title + "|" + p.text);
    return shown;
}

std::string pattern(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + 3);
    return bytes;
}

std::size_t filesIn(const std::string& folder) {
    namespace fs = std::filesystem;
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

std::string quote(const std::string& s) {
    std::string q = "'";
    for (char c : s) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

// aqfm with its errors in the output.
CliResult aqfm(const std::string& args) { return runCli(args, true); }

}  // namespace

TEST(BadInput, PoolsTruncatedAtEveryBoundaryAndInsideRecords) {
    TempDir dir;
    const std::string good = poolBytes(makePool(3, 4));
    std::vector<long> cuts;
    for (long c = 0; c <= 20; ++c) cuts.push_back(c);
    for (long k = 1; k <= 3; ++k)
        for (long d : {-1L, 0L, 1L, -2000L}) cuts.push_back(16 + 4016 * k + d);
    for (long k = 1; k <= 4; ++k)
        for (long d : {-1L, 0L, 1L, -10L}) cuts.push_back(20 + 3 * 4016 + 20 * k + d);
    for (long back : {32280L, 32279L, 32276L, 32000L, 100L, 4L, 1L}) cuts.push_back(long(good.size()) - back);
    std::string path = dir.file("cut.aqp");
    for (long cut : cuts) {
        SCOPED_TRACE(cut);
        writeBytes(path, good.substr(0, std::size_t(cut)));
        auto shown = loadBad(path);
        ASSERT_EQ(shown.size(), 1u);
        EXPECT_EQ(shown[0].rfind(kLoadTitle + "|Error opening " + path + ", error: file is truncated: ", 0), 0u)
            << shown[0];
    }
}

TEST(BadInput, VersionsCountsFoldersAndLockedFilesGetTheirMessage) {
    TempDir dir;
    const std::string good = poolBytes(makePool(3, 2));
    auto with = [&](std::size_t at, std::int32_t v) {
        std::string b = good;
        putInt(b, at, v);
        return b;
    };
    const std::size_t foodCount = 16 + 3 * 4016;
    const std::string notAq = kAppTitle + std::string("|Not a Aquarium 4 or 5 data file");
    const std::string truncated = "error: file is truncated: ";
    const std::string claims = "error: the file claims ", hold = ", more than the 32767 the program can hold";
    std::string manyFood = poolBytes(makePool(0, 0));
    putInt(manyFood, 16, 32768);
    manyFood.insert(20, std::string(32768 * 20, '\0'));
    // A text ending in "..." is the start of the message.
    struct Case {
        std::string name, bytes, says;
    } cases[] = {
        {"v3", with(0, 3), notAq},
        {"v6", with(0, 6), notAq},
        {"v-4", with(0, -4), notAq},
        {"empty", "", truncated + "the header needs 12 bytes, 0 remain"},
        {"in-drifter", good.substr(0, 16 + 4016 + 100), truncated + "3 drifters need 12048 bytes, 4116 remain"},
        {"huge", with(12, 2147483647), claims + "2147483647 drifters" + hold},
        {"lying-food", with(foodCount, 100000), claims + "100000 food bits" + hold},
        // The bytes are there, but a 16-bit counter could never walk them.
        {"food-32768", manyFood, claims + "32768 food bits" + hold},
        {"trailer", good.substr(0, good.size() - 1), truncated + "the world block needs 32280 bytes, 32279 remain"},
        {"drifters-32767", with(12, 32767), truncated + "32767 drifters need ..."},
        {"more-drifters", with(12, 4), "error: ..."},
        {"million-food", with(foodCount, 1 << 20), claims + "..."},
        {"more-food", with(foodCount, 3), truncated + "..."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::string path = dir.file(c.name + ".aqp");
        writeBytes(path, c.bytes);
        std::string want =
            c.says.rfind(kAppTitle, 0) == 0 ? c.says : kLoadTitle + "|Error opening " + path + ", " + c.says;
        auto shown = loadBad(path);
        ASSERT_EQ(shown.size(), 1u);
        bool prefix = want.size() > 3 && want.compare(want.size() - 3, 3, "...") == 0;
        EXPECT_EQ(shown[0].substr(0, prefix ? want.size() - 3 : std::string::npos),
                  prefix ? want.substr(0, want.size() - 3) : want);
    }
    // A missing file says nothing; a folder and an unreadable file say why.
    EXPECT_TRUE(loadBad(dir.file("nothing.aqp")).empty());
    std::filesystem::create_directory(dir.file("folder.aqp"));
    EXPECT_EQ(
        loadBad(dir.file("folder.aqp")),
        std::vector<std::string>{kLoadTitle + "|Error opening " + dir.file("folder.aqp") + ", error: Is a directory"});
    writeBytes(dir.file("locked.aqp"), good);
    ::chmod(dir.file("locked.aqp").c_str(), 0);
    if (::geteuid() != 0) {  // root reads anything
        auto shown = loadBad(dir.file("locked.aqp"));
        ASSERT_EQ(shown.size(), 1u);
        EXPECT_EQ(shown[0].rfind(kLoadTitle + "|Error opening " + dir.file("locked.aqp") + ", error: ", 0), 0u);
    }
}

TEST(BadInput, NegativeCountsKeepThePoolAndItsListOnShow) {
    TempDir dir;
    struct Case {
        std::int32_t drifters, food;
        const char* message;
    } cases[] = {
        {-1, -1, "Nothing to Load"}, {-5, 0, "Error Loading Drifters."}, {0, -2147483647, "Error Loading Food."}};
    for (const Case& c : cases) {
        Pool p = makePool(0, 0);
        p.drifterCount = c.drifters;
        p.foodCount = c.food;
        writeBytes(dir.file("neg.aqp"), poolBytes(p));
        Fixture f;
        f.app.openPool = makePool(2, 1);
        populateSpeciatePoolList(f.app);
        f.ui.file("open", "Select Pool File", dir.file("neg.aqp")).message(c.message);
        initiateLoadPoolFile(f.app);
        EXPECT_SCRIPT_DONE(f.ui);
        EXPECT_EQ(f.app.openPool.drifterCount, 2);
        EXPECT_EQ(f.app.lstSpeciatePool.count(), 2);
    }
}

TEST(BadInput, SettingsFilesWithJunkStillStartTheProgram) {
    std::string junk;
    for (int i = 0; i < 4096; ++i) junk += static_cast<char>((i * 131 + 7) % 256);
    std::string texts[] = {
        junk,
        "comboPoolPath.Text = " + std::string(200000, 'x') + "\r\n",
        "chkAutoName.Value = 1\r\nno equals here\r\n = 5\r\ncomboPoolPath.Text = /a=b=c\r\n" + junk,
        std::string("\0\0\0chkNowName.Value = 1\n", 24),
        std::string(100000, '\n'),
        "chkAutoName.Value = 1\r\n\x01\x02 = \xff\r\ncomboPoolPath.Text = /a=b\r\n",
    };
    for (const std::string& text : texts) {
        Fixture f;
        f.app.programFolder = f.dir.path();
        writeBytes(f.dir.file("aqfm.ini"), text);
        ini(f.app, "Load");
        ini(f.app, "Use");
        EXPECT_TRUE(f.ui.failures.empty()) << f.ui.report();
        EXPECT_EQ(readBytes(f.dir.file("aqfm.ini")), text) << "reading never rewrites the file";
    }
}

TEST(BadInput, AFullDiskOrReadOnlyFolderKeepsTheOldPool) {
    Fixture f;
    const TempDir& dir = f.dir;
    std::string path = dir.file("pool with spaces ü.aqp");
    std::string old = poolBytes(makePool(2, 2));
    writeBytes(path, old);
    f.app.openPool = makePool(4, 4);
    for (long long after : {0LL, 16LL, 1000LL, 30000LL}) {
        f.ui.message("Error saving " + path + ", error: No space left on device", kSaveTitle);
        setWriteFailureAfter(after);
        EXPECT_FALSE(savePoolFile(f.app, path, true));
        setWriteFailureAfter(-1);
        EXPECT_EQ(readBytes(path), old);
    }
    EXPECT_EQ(filesIn(dir.path()), 1u) << "no temporary file is left";
    if (::geteuid() != 0) {  // root writes anywhere
        std::filesystem::permissions(dir.path(),
                                     std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
        f.ui.message("Error saving " + path + ", error: Permission denied", kSaveTitle);
        EXPECT_FALSE(savePoolFile(f.app, path, true));
        std::filesystem::permissions(dir.path(), std::filesystem::perms::owner_all);
        EXPECT_EQ(readBytes(path), old);
    }
    // A name as long as the folder allows still saves: the temporary name is short.
    EXPECT_TRUE(savePoolFile(f.app, dir.file(std::string(251, 'n') + ".aqp"), true));
    EXPECT_SCRIPT_DONE(f.ui);
}

TEST(DnaFiles, EverySizeReadsAsOneGenomeAndStaysUntouched) {
    TempDir dir;
    const std::size_t sizes[] = {0, 10, 1000, 5000};
    for (std::size_t size : sizes) writeBytes(dir.file("s" + std::to_string(10000 + size) + ".dna"), pattern(size));
    std::filesystem::create_directory(dir.file("x.dna"));

    for (std::size_t size : sizes) {
        SCOPED_TRACE(size);
        Genome g;
        EXPECT_EQ(readGenomeFile(dir.file("s" + std::to_string(10000 + size) + ".dna"), g), "");
        // The file's first 1000 bytes, zeros after a short file's end; bytes past 1000 are not genes.
        std::string want = pattern(std::min<std::size_t>(size, kGeneCount));
        want.resize(kGeneCount, '\0');
        EXPECT_EQ(std::string(g.begin(), g.end()), want);
    }
    Genome g;
    g.fill(9);
    EXPECT_EQ(readGenomeFile(dir.file("x.dna"), g), "Is a directory");
    EXPECT_EQ(readGenomeFile(dir.file("none.dna"), g), "No such file or directory");

    // The folder load takes the four files, passes over the folder x.dna and changes nothing on disk.
    Session f;
    f.app.comboDrifterPath = dir.path();
    initiateLoadDrifterArchive(f.app);
    EXPECT_SCRIPT_DONE(f.ui);
    EXPECT_EQ(f.app.dna.dnaCount, 4);
    for (std::size_t size : sizes)
        EXPECT_EQ(readBytes(dir.file("s" + std::to_string(10000 + size) + ".dna")), pattern(size));

    // A folder holding nothing but a folder named like a DNA file has nothing to load.
    Session e;
    std::filesystem::create_directory(e.dir.file("x.dna"));
    e.app.comboDrifterPath = e.dir.path();
    e.ui.message("Nothing to load.  Try a different Drifter Archive path.");
    initiateLoadDrifterArchive(e.app);
    EXPECT_SCRIPT_DONE(e.ui);
    EXPECT_EQ(e.app.dna.dnaCount, 0);
}

TEST(DnaFiles, FailedSaveLeavesTheOldFileByteForByte) {
    TempDir dir;
    const std::string old = pattern(1000);
    const std::string path = dir.file("Drifter_1.DNA");
    for (long long failAfter : {0LL, 1LL, 500LL, 999LL}) {
        SCOPED_TRACE(failAfter);
        writeBytes(path, old);
        Session f;
        f.app.dna.dnaGenes.assign(1, Genome{});
        f.app.dna.dnaGenes[0].fill(42);
        f.ui.message("Error saving " + path + ", error: No space left on device",
                     "Aquarium File Manager - Save DNA File");
        setWriteFailureAfter(failAfter);
        EXPECT_FALSE(saveDrifterFile(f.app, path, 0));
        setWriteFailureAfter(-1);
        EXPECT_SCRIPT_DONE(f.ui);
        EXPECT_EQ(f.ui.waitDepth, 0);
        EXPECT_EQ(readBytes(path), old);
        EXPECT_EQ(filesIn(dir.path()), 1u);
    }
    // Room for exactly the file: the save goes through.
    Session full;
    full.app.dna.dnaGenes.assign(1, Genome{});
    setWriteFailureAfter(1000);
    EXPECT_TRUE(saveDrifterFile(full.app, path, 0));
    setWriteFailureAfter(-1);
    // A folder that is gone: the message names the path, and nothing appears.
    Session f;
    f.app.dna.dnaGenes.assign(1, Genome{});
    const std::string lost = dir.file("gone/Drifter_2.DNA");
    f.ui.message("Error saving " + lost + ", error: No such file or directory",
                 "Aquarium File Manager - Save DNA File");
    EXPECT_FALSE(saveDrifterFile(f.app, lost, 0));
    EXPECT_SCRIPT_DONE(f.ui);
    EXPECT_EQ(filesIn(dir.path()), 1u);
}

TEST(DnaFiles, FailedArchiveCopyLeavesNoHalfFile) {
    TempDir dir;
    const std::string live = dir.file("Pool_1.AQP");
    writeBytes(live, pattern(5000));
    std::filesystem::create_directory(dir.file("archive"));
    const std::string kept = dir.file("archive/Pool_1.AQP");
    writeBytes(kept, "old archive");
    // A folder in the archive's place, a missing archive folder, a missing source.
    std::filesystem::create_directory(dir.file("archive/busy.AQP"));
    std::filesystem::create_directory(dir.file("archive/busy.AQP/inside"));
    EXPECT_TRUE(copyFileSafely(live, dir.file("archive/busy.AQP")));
    EXPECT_TRUE(copyFileSafely(live, dir.file("nowhere/Pool_1.AQP")));
    EXPECT_TRUE(copyFileSafely(dir.file("Pool_9.AQP"), kept));
    EXPECT_EQ(readBytes(kept), "old archive");
    EXPECT_EQ(readBytes(live), pattern(5000));
    EXPECT_EQ(filesIn(dir.file("archive")), 2u);
    EXPECT_FALSE(std::filesystem::exists(dir.file("nowhere")));
    // And a copy that works replaces the old archive file whole.
    EXPECT_FALSE(copyFileSafely(live, kept));
    EXPECT_EQ(readBytes(kept), pattern(5000));
    EXPECT_EQ(filesIn(dir.file("archive")), 2u);
}

TEST(CliRobustness, AwkwardPathsWork) {
    TempDir dir;
    std::filesystem::create_directory(dir.file("a folder ünïcödé"));
    for (std::string name : {"a folder ünïcödé/pool one.aqp", "-leading dash.aqp", "--double.aqp"}) {
        SCOPED_TRACE(name);
        bool dash = name[0] == '-';
        std::string full = dir.file(name);
        std::string cmd = dash ? "cd " + quote(dir.path()) + " && " + AQ_CLI + " default -o " + quote("./" + name)
                               : std::string(AQ_CLI) + " default -o " + quote(full);
        ASSERT_EQ(std::system(cmd.c_str()), 0);
        EXPECT_EQ(readBytes(full).size(), 229204u);
        CliResult info = aqfm("info -- " + quote(full));
        EXPECT_EQ(info.status, 0) << info.out;
        EXPECT_NE(info.out.find("drifterCount: 49\n"), std::string::npos);
    }
}

TEST(CliRobustness, UsageErrors) {
    TempDir dir;
    ASSERT_EQ(aq::writePool(dir.file("d.aqp"), makePool(2, 2)), "");
    const std::string out = " -o " + quote(dir.file("x.aqp")), prepare = "prepare " + quote(dir.file("d.aqp"));
    struct Case {
        std::string args;
        int status;
        std::string says;
    } cases[] = {
        {"", 2, "usage: aqfm COMMAND"},
        {"frobnicate", 2, "unknown command"},
        {"info", 2, "expected 1 argument"},
        {"info --nope x", 2, "unknown option --nope"},
        {"default", 2, "missing -o"},
        {"default -o", 2, "needs a value"},
        {"generate -o " + quote(dir.file("missing/new.aqp")), 1,
         "Error saving " + dir.file("missing/new.aqp") + ", error: No such file or directory"},
        {"info --help", 0, "usage: aqfm info FILE"},
        {"generate --type 3" + out, 2, "option --type must be 0 to 2, got 3"},
        {"generate --placement -1" + out, 2, "option --placement must be 0 to 2, got -1"},
        {"generate --walls x" + out, 2, "option --walls needs a whole number, got \"x\""},
        {"generate --state 1000000" + out, 2, "needs a hexadecimal number up to FFFFFF, got \"1000000\""},
        {"generate --extra-food --no-extra-food" + out, 2, "--extra-food and --no-extra-food exclude each other"},
        {"generate --seed" + out, 2, "expected 0 arguments, got 1"},  // -o is the seed
        {prepare + " bogus" + out, 2, "unknown step \"bogus\""},
        {prepare + " resetCounters:meals,kids" + out, 2, "step resetCounters does not know \"kids\""},
        {prepare + " ensureMinimumDrifters" + out, 2, "step ensureMinimumDrifters takes 1 argument(s)"},
        {prepare + " feedByColor:9:0" + out, 2, "step feedByColor needs a whole number from -1 to 5, got \"9\""},
        {prepare + out, 2, "give a pool file and at least one step"},
        {"harvest " + quote(dir.path()) + " --max 0" + out, 2, "option --max must be 1 to 2000, got 0"},
        {"harvest " + quote(dir.file("missing")) + out, 1, "Error reading " + dir.file("missing")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.args);
        CliResult r = aqfm(c.args);
        EXPECT_EQ(r.status, c.status) << r.out;
        EXPECT_NE(r.out.find(c.says), std::string::npos) << r.out;
    }
    EXPECT_FALSE(std::filesystem::exists(dir.file("x.aqp")));
}

TEST(CliRobustness, EveryCommandGivenABadPoolExitsOneAndWritesNothing) {
    TempDir dir;
    const std::string good = aq::poolBytes(makePool(2, 2));
    writeBytes(dir.file("good.aqp"), good);
    writeBytes(dir.file("cut.aqp"), good.substr(0, good.size() / 2));
    writeBytes(dir.file("junk.aqp"), "junk");
    std::string v6 = good;
    v6[0] = 6;
    writeBytes(dir.file("v6.aqp"), v6);
    std::filesystem::create_directory(dir.file("folder.aqp"));
    const std::string out = dir.file("out.bin");
    // What must never block a reader or go without a reason.
    ASSERT_EQ(::mkfifo(dir.file("fifo.aqp").c_str(), 0644), 0);
    const int sock = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    std::snprintf(addr.sun_path, sizeof addr.sun_path, "%s", dir.file("sock.aqp").c_str());
    ASSERT_EQ(::bind(sock, reinterpret_cast<sockaddr*>(&addr), sizeof addr), 0);
    std::filesystem::create_symlink("nowhere.aqp", dir.file("dangling.aqp"));
    std::filesystem::create_symlink("loop.aqp", dir.file("loop.aqp"));

    // FILE stands for the bad pool, OUT for the output the command would write.
    const std::string commands[] = {"info FILE",
                                    "drifters FILE",
                                    "food FILE",
                                    "keys FILE --short",
                                    "species FILE",
                                    "range FILE",
                                    "dna FILE 0 -o OUT",
                                    "merge FILE GOOD -o OUT",
                                    "minorities FILE --by segments",
                                    "merge GOOD FILE --drifters -o OUT",
                                    "harvest DIR --open FILE -o OUT"};
    const struct {
        std::string file, says;
    } bad[] = {
        {dir.file("missing.aqp"), "Error opening"},
        {dir.file("cut.aqp"), "file is truncated"},
        {dir.file("junk.aqp"), "file is truncated"},
        {dir.file("v6.aqp"), "Not a Aquarium 4 or 5 data file"},
        {dir.file("folder.aqp"), "Is a directory"},
        {dir.file("fifo.aqp"), "Error opening " + dir.file("fifo.aqp") + ", error: Not a regular file"},
        {"/dev/zero", "Error opening /dev/zero, error: Not a regular file"},
        {dir.file("sock.aqp"), "error: Not a regular file"},
        {dir.file("dangling.aqp"), "error: No such file or directory"},
        {dir.file("loop.aqp"), "error: Too many levels of symbolic links"},
    };
    for (const std::string& command : commands) {
        for (const auto& b : bad) {
            std::string args = command;
            auto put = [&](const std::string& key, const std::string& value) {
                if (auto at = args.find(key); at != std::string::npos) args.replace(at, key.size(), quote(value));
            };
            put("FILE", b.file);
            put("GOOD", dir.file("good.aqp"));
            put("OUT", out);
            put("DIR", dir.file("folder.aqp"));
            SCOPED_TRACE(args);
            CliResult r = aqfm(args);
            EXPECT_EQ(r.status, 1) << r.out;
            EXPECT_NE(r.out.find(b.says), std::string::npos) << r.out;
            EXPECT_FALSE(std::filesystem::exists(out));
        }
    }
    EXPECT_EQ(readBytes(dir.file("good.aqp")), good);
    // Only the files the test wrote: no temporary left by a command that gave up.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), std::filesystem::directory_iterator()), 9);
    ::close(sock);

    // A harvest of this folder skips every file it can't read, and says how many.
    CliResult h = aqfm("harvest " + quote(dir.path()) + " -o " + quote(out));
    EXPECT_EQ(h.status, 0) << h.out;
    EXPECT_NE(h.out.find("Skipped 7 files that could not be read."), std::string::npos) << h.out;
    EXPECT_NE(h.out.find("Error opening fifo.aqp, error: Not a regular file"), std::string::npos) << h.out;
}
