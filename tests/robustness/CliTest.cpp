// The command-line tool with awkward paths and bad arguments: clear errors and
// the exit codes its users script against.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "pool/PoolFile.h"
#include "robustness/CliRun.h"
#include "support/PoolFixtures.h"
#include "support/TempDir.h"

using namespace aqtest;

TEST(CliRobustness, AwkwardPathsWork) {
    TempDir dir;
    std::filesystem::create_directory(dir.file("a folder ünïcödé"));
    for (std::string name : {"a folder ünïcödé/pool one.aqp", "-leading dash.aqp", "--double.aqp"}) {
        SCOPED_TRACE(name);
        std::string path = name[0] == '-' ? name : dir.file(name);
        std::string prefix = name[0] == '-' ? "cd " + quote(dir.path()) + " && " : "";
        std::string cmd = prefix + std::string(AQ_CLI) + " default -o " + (name[0] == '-' ? "./" : "") + quote(path);
        ASSERT_EQ(std::system(cmd.c_str()), 0);
        std::string full = name[0] == '-' ? dir.file(name) : path;
        EXPECT_EQ(readBytes(full).size(), 229204u);
        CliRun info = aqfm("info -- " + quote(full));
        EXPECT_EQ(info.code, 0) << info.out;
        EXPECT_NE(info.out.find("drifterCount: 49\n"), std::string::npos);
    }
}

TEST(CliRobustness, ErrorsAndUsage) {
    TempDir dir;
    writeBytes(dir.file("bad.aqp"), "junk");
    writeBytes(dir.file("v6.aqp"), std::string("\x06\0\0\0", 4) + std::string(40000, '\0'));
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
        {"info " + quote(dir.file("missing.aqp")), 1, "Error opening"},
        {"info " + quote(dir.file("bad.aqp")), 1, "file is truncated"},
        {"drifters " + quote(dir.file("v6.aqp")), 1, "Not a Aquarium 4 or 5 data file"},
        {"info " + quote(dir.path()), 1, "Is a directory"},
        {"default -o " + quote(dir.file("no/such/folder/x.aqp")), 1, "Error saving"},
        {"info --help", 0, "usage: aqfm info FILE"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.args);
        CliRun r = aqfm(c.args);
        EXPECT_EQ(r.code, c.code) << r.out;
        EXPECT_NE(r.out.find(c.says), std::string::npos) << r.out;
    }
}
