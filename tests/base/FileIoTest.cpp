// The atomic writer against the real file system: what it refuses to replace, where its
// temporary file goes, and that a killed save leaves nothing behind for good.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "base/FileIo.h"
#include "support/RunCli.h"
#include "support/TempDir.h"

#ifndef _WIN32
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>
#endif

namespace {

namespace fs = std::filesystem;
using aqtest::readBytes;
using aqtest::TempDir;

std::set<std::string> namesIn(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& e : fs::directory_iterator(folder)) names.insert(e.path().filename().string());
    return names;
}

#ifndef _WIN32
TEST(AtomicWrite, OddTargetsAreRefusedAndLinksAreKept) {
    TempDir dir;
    fs::create_directories(dir.file("real"));
    ASSERT_EQ(::mkfifo(dir.file("fifo").c_str(), 0644), 0);
    fs::create_symlink("/dev/null", dir.file("null"));
    fs::create_symlink("real/pool.aqp", dir.file("link"));
    fs::create_symlink("real/new.aqp", dir.file("dangling"));
    aqtest::writeBytes(dir.file("real/pool.aqp"), "old");
    ::chmod(dir.file("real/pool.aqp").c_str(), 0600);

    EXPECT_EQ(aq::writeFileAtomically(dir.file("fifo"), "x"), "Not a regular file");
    EXPECT_EQ(aq::writeFileAtomically(dir.file("null"), "x"), "Not a regular file");
    EXPECT_EQ(aq::copyFileAtomically(dir.file("real/pool.aqp"), dir.file("fifo")).message(), "Not a regular file");
    EXPECT_TRUE(fs::is_fifo(fs::symlink_status(dir.file("fifo"))));
    EXPECT_EQ(fs::read_symlink(dir.file("null")), "/dev/null");
    // aqfm says so and fails.
    aqtest::CliResult r = aqtest::runCli("generate -o '" + dir.file("fifo") + "'", true);
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.out.find("Error saving " + dir.file("fifo") + ", error: Not a regular file"), std::string::npos)
        << r.out;

    // Through a link the file it names is replaced, its mode kept; a dangling link's file is made.
    EXPECT_EQ(aq::writeFileAtomically(dir.file("link"), "new"), "");
    EXPECT_EQ(aq::writeFileAtomically(dir.file("dangling"), "made"), "");
    EXPECT_TRUE(fs::is_symlink(dir.file("link")) && fs::is_symlink(dir.file("dangling")));
    EXPECT_EQ(readBytes(dir.file("real/pool.aqp")) + readBytes(dir.file("real/new.aqp")), "newmade");
    EXPECT_EQ(fs::status(dir.file("real/pool.aqp")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(namesIn(dir.path()), (std::set<std::string>{"dangling", "fifo", "link", "null", "real"}));
    EXPECT_EQ(namesIn(dir.file("real")), (std::set<std::string>{"new.aqp", "pool.aqp"}));
}

TEST(AtomicWrite, AKilledSaveLeavesNoTemporaryAfterTheNextSave) {
    TempDir dir;
    const std::string path = dir.file("pool.aqp");
    const std::string big(1 << 20, 'b');
    const pid_t child = ::fork();
    if (child == 0)
        for (;;) aq::writeFileAtomically(path, big);
    for (int ms = 0; ms < 2000 && !fs::exists(path); ++ms) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));  // into a later save
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);

    // Leftovers a minute old of the killed saver and of an older version go; those of a
    // live saver, or too fresh to judge, stay.
    auto id = [](pid_t pid) {
        char hex[16];
        std::snprintf(hex, sizeof hex, "%x", unsigned(pid));
        return std::string(hex);
    };
    auto plant = [&](const std::string& name) {
        aqtest::writeBytes(dir.file(name), "");
        return name;
    };
    plant(".aq" + id(child) + "-beef");
    plant(".aq0123abcd");
    const std::string live = plant(".aq" + id(::getpid()) + "-beef");
    for (const auto& e : fs::directory_iterator(dir.path()))
        fs::last_write_time(e.path(), fs::file_time_type::clock::now() - std::chrono::minutes(2));
    const std::string fresh = plant(".aq" + id(child) + "-cafe");

    EXPECT_EQ(aq::writeFileAtomically(path, "last"), "");
    EXPECT_EQ(namesIn(dir.path()), (std::set<std::string>{"pool.aqp", live, fresh}));
    EXPECT_EQ(readBytes(path), "last");
}
#endif

#ifdef _WIN32
TEST(AtomicWrite, TheTemporaryGoesBesideABackslashPath) {
    TempDir dir, elsewhere;
    const std::string path = dir.path() + "\\pool.aqp";
    ASSERT_NE(path.find('\\'), std::string::npos);
    // The current folder takes no files: a temporary put there would fail the save.
    const fs::path before = fs::current_path();
    fs::current_path(elsewhere.path());
    aq::setRefusingFolder(elsewhere.path());
    const std::string error = aq::writeFileAtomically(path, "saved");
    aq::setRefusingFolder("");
    fs::current_path(before);
    EXPECT_EQ(error, "");
    EXPECT_EQ(readBytes(path), "saved");
    EXPECT_EQ(namesIn(dir.path()), std::set<std::string>{"pool.aqp"});
    EXPECT_TRUE(namesIn(elsewhere.path()).empty());
}
#endif

}  // namespace
