// Path splitting and joining, with the program's backslash forms and this system's "/" forms.
#include <gtest/gtest.h>

#include "base/Paths.h"

namespace {

TEST(Paths, JoinPath) {
    struct Case {
        const char *folder, *name, *want;
    } cases[] = {
        {"C:", "x", "C:x"},
        {"C:\\", "x", "C:\\\\x"},
        {"/home/aq", "aqfm.ini", "/home/aq/aqfm.ini"},
        {"/home/aq/", "x.dna", "/home/aq/x.dna"},
    };
    for (const Case& c : cases) EXPECT_EQ(aq::joinPath(c.folder, c.name), c.want) << c.folder << " + " << c.name;
}

TEST(Paths, SplitPathFolderAndFile) {
    struct Case {
        const char *whole, *folder, *file;
    } cases[] = {
        {"x.dna", "", "x.dna"},
        {"C:\\x.dna", "C:\\", "x.dna"},
        {"C:x", "C:", "x"},
        {"a/b/x", "a/b/", "x"},
        {"/x.dna", "/", "x.dna"},
        {"\\\\host\\share\\x", "\\\\host\\share", "x"},
        {"/home/aq/Pools/Pool_1.AQP", "/home/aq/Pools", "Pool_1.AQP"},
        {"/home/aq/", "/home/aq", ""},
        {"", "", ""},
    };
    for (const Case& c : cases) {
        std::string folder = "junk", file = "junk";
        aq::SplitPath(c.whole, folder, file);
        EXPECT_EQ(folder, c.folder) << c.whole;
        EXPECT_EQ(file, c.file) << c.whole;
        EXPECT_EQ(aq::folderOfPath(c.whole), c.folder) << c.whole;
        EXPECT_EQ(aq::fileNameOfPath(c.whole), c.file) << c.whole;
    }
}

TEST(Paths, DriveOfPath) {
    struct Case {
        const char *path, *drive;
    } cases[] = {
        {"\\\\host\\share\\x", "\\\\host"},
        {"C:\\x", "C:"},
        {"x", ""},
        {"//host/share/x", "//host"},
        {"\\\\host", ""},
        {"/home/aq", "/"},
        {"/home/a:b/x", "/"},
    };
    for (const Case& c : cases) EXPECT_EQ(aq::driveOfPath(c.path), c.drive) << c.path;
}

}  // namespace
