// The command-line tool with awkward paths, bad arguments and bad pools: clear
// errors, the exit codes its users script against, and no output left behind.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "format/PoolFile.h"
#include "robustness/CliRun.h"
#include "support/PoolFixtures.h"
#include "support/TempDir.h"

using namespace aqtest;

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
        CliRun info = aqfm("info -- " + quote(full));
        EXPECT_EQ(info.code, 0) << info.out;
        EXPECT_NE(info.out.find("drifterCount: 49\n"), std::string::npos);
    }
}

TEST(CliRobustness, UsageErrors) {
    TempDir dir;
    struct Case {
        std::string args;
        int code;
        std::string says;
    } cases[] = {
        {"", 2, "usage: aqfm COMMAND"},
        {"frobnicate", 2, "unknown command"},
        {"info", 2, "expected 1 argument"},
        {"info a b", 2, "expected 1 argument"},
        {"info --nope x", 2, "unknown option --nope"},
        {"default", 2, "missing -o"},
        {"default -o", 2, "needs a value"},
        {"default -o " + quote(dir.file("no/such/folder/x.aqp")), 1, "Error saving"},
        {"generate -o " + quote(dir.file("missing/new.aqp")), 1,
         "Error saving " + dir.file("missing/new.aqp") + ", error: No such file or directory"},
        {"info --help", 0, "usage: aqfm info FILE"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.args);
        CliRun r = aqfm(c.args);
        EXPECT_EQ(r.code, c.code) << r.out;
        EXPECT_NE(r.out.find(c.says), std::string::npos) << r.out;
    }
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
    };
    const struct {
        std::string file, says;
    } bad[] = {
        {dir.file("missing.aqp"), "Error opening"},  {dir.file("cut.aqp"), "file is truncated"},
        {dir.file("junk.aqp"), "file is truncated"}, {dir.file("v6.aqp"), "Not a Aquarium 4 or 5 data file"},
        {dir.file("folder.aqp"), "Is a directory"},
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
            SCOPED_TRACE(args);
            CliRun r = aqfm(args);
            EXPECT_EQ(r.code, 1) << r.out;
            EXPECT_NE(r.out.find(b.says), std::string::npos) << r.out;
            EXPECT_FALSE(std::filesystem::exists(out));
        }
    }
    EXPECT_EQ(readBytes(dir.file("good.aqp")), good);
    // Only the files the test wrote: no temporary left by a command that gave up.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), std::filesystem::directory_iterator()), 5);
}
