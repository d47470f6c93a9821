// The command-line tool with awkward paths, bad arguments and bad pools: clear
// errors, the exit codes its users script against, and no output left behind.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "format/PoolFile.h"
#include "support/PoolFixtures.h"
#include "support/RunCli.h"
#include "support/TempDir.h"

using namespace aqtest;

namespace {

std::string quote(const std::string& s) {
    std::string q = "'";
    for (char c : s) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

// aqfm with its errors in the output.
CliResult aqfm(const std::string& args) { return runCli(args, true); }

}  // namespace

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
        {"info a b", 2, "expected 1 argument"},
        {"food", 2, "aqfm food: expected 1 argument, got 0"},
        {"info --nope x", 2, "unknown option --nope"},
        {"default", 2, "missing -o"},
        {"default -o", 2, "needs a value"},
        {"default -o " + quote(dir.file("no/such/folder/x.aqp")), 1, "Error saving"},
        {"generate -o " + quote(dir.file("missing/new.aqp")), 1,
         "Error saving " + dir.file("missing/new.aqp") + ", error: No such file or directory"},
        {"info --help", 0, "usage: aqfm info FILE"},
        {"generate --type 3" + out, 2, "option --type must be 0 to 2, got 3"},
        {"generate --food 5" + out, 2, "option --food must be 0 to 4, got 5"},
        {"generate --placement -1" + out, 2, "option --placement must be 0 to 2, got -1"},
        {"generate --walls x" + out, 2, "option --walls needs a whole number, got \"x\""},
        {"generate --state 1000000" + out, 2, "needs a hexadecimal number up to FFFFFF, got \"1000000\""},
        {"generate --state xyz" + out, 2, "up to FFFFFF, got \"xyz\""},
        {"generate --extra-food --no-extra-food" + out, 2, "--extra-food and --no-extra-food exclude each other"},
        {"generate --seed" + out, 2, "expected 0 arguments, got 1"},  // -o is the seed
        {"generate extra-positional" + out, 2, "expected 0 arguments, got 1"},
        {"generate", 2, "aqfm generate: missing -o"},
        {prepare + " bogus" + out, 2, "unknown step \"bogus\""},
        {prepare + " resetCounters:meals,kids" + out, 2, "step resetCounters does not know \"kids\""},
        {prepare + " ensureMinimumDrifters" + out, 2, "step ensureMinimumDrifters takes 1 argument(s)"},
        {prepare + " feedByColor:9:0" + out, 2, "step feedByColor needs a whole number from -1 to 5, got \"9\""},
        {prepare + " group:2:fast" + out, 2, "step group does not know \"fast\""},
        {prepare + out, 2, "give a pool file and at least one step"},
        {"harvest " + quote(dir.path()) + " --max 0" + out, 2, "option --max must be 1 to 2000, got 0"},
        {"harvest " + quote(dir.file("missing")) + out, 1, "Error reading " + dir.file("missing")},
        {"scores " + quote(dir.file("missing.aqp")), 1, "Error opening " + dir.file("missing.aqp")},
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
    const std::string commands[] = {
        "info FILE",
        "drifters FILE",
        "food FILE",
        "keys FILE",
        "keys FILE --short",
        "minorities FILE --by segments",
        "species FILE",
        "range FILE",
        "dna FILE 0 -o OUT",
        "merge FILE GOOD -o OUT",
        "merge GOOD FILE --drifters -o OUT",
        "harvest DIR --open FILE -o OUT",
    };
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
