// Every command that reads a pool, given a file users meet by mistake: exit 1 with
// a message, and no output file left behind for a script to pick up.
#include <gtest/gtest.h>

#include <filesystem>

#include "pool/PoolFile.h"
#include "robustness/CliRun.h"
#include "support/PoolFixtures.h"
#include "support/TempDir.h"

using namespace aqtest;

TEST(CliEveryCommand, BadPoolsExitOneAndWriteNothing) {
    TempDir dir;
    const std::string good = aq::poolBytes(makePool(2, 2));
    writeBytes(dir.file("good.aqp"), good);
    writeBytes(dir.file("cut.aqp"), good.substr(0, good.size() / 2));
    std::string v6 = good;
    v6[0] = 6;
    writeBytes(dir.file("v6.aqp"), v6);
    const std::string out = dir.file("out.bin");

    // FILE stands for the bad pool, OUT for the output the command would write.
    const std::string commands[] = {
        "info FILE",        "drifters FILE",      "food FILE",         "keys FILE",
        "keys FILE --short", "minorities FILE --by segments", "species FILE", "range FILE",
        "dna FILE 0 -o OUT", "merge FILE GOOD -o OUT", "merge GOOD FILE --drifters -o OUT",
    };
    const struct {
        std::string file;
        std::string says;
    } bad[] = {
        {dir.file("missing.aqp"), "Error opening"},
        {dir.file("cut.aqp"), "file is truncated"},
        {dir.file("v6.aqp"), "Not a Aquarium 4 or 5 data file"},
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
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), std::filesystem::directory_iterator()), 3);
}
