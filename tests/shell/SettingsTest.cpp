// The settings text and aqfm.ini: exact lines, round trip, the forgiving reader.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "shell/Settings.h"
#include "support/ScriptedSession.h"

namespace {

struct Fixture : aqtest::Session {
    Fixture() { app.programFolder = dir.path(); }
    std::string iniPath() const { return dir.file("aqfm.ini"); }
    void use(const std::string& text) {
        app.settingsText = text;
        aq::ini(app, "Use");
    }
};

TEST(Settings, StoreInOrderReadForgivingly) {
    Fixture f;
    for (int i = 0; i < 7; ++i) f.app.archive.lstArchive.setChecked(i, true);
    f.app.archive.chkAutoName = 1;
    f.app.archive.chkNowName = 0;
    f.app.archive.chkDeleteOriginal = 0;
    f.app.archive.chkAutoBackup = 1;
    f.app.comboAquariumPathItems = {"/g/Aquarium5", "/g/Aquarium4"};
    f.app.comboDrifterPathItems = {"/g/Aquarium5/Drifters"};
    f.app.comboPoolPathItems = {"/g/Aquarium5/Pools"};
    f.app.comboAquariumPath = "/g/Aquarium5";
    f.app.comboDrifterPath = "/g/Aquarium5/Drifters";
    f.app.comboPoolPath = "/g/Aquarium5/Pools";
    aq::ini(f.app, " Set ");
    std::string want;
    for (int i = 0; i < 8; ++i)
        want += "lstArchive.Selected(" + std::to_string(i) + ") = " + (i < 7 ? "True" : "False") + "\r\n";
    want +=
        "chkAutoName.Value = 1\r\nchkNowName.Value = 0\r\nchkDeleteOriginal.Value = 0\r\nchkAutoBackup.Value = 1\r\n"
        "comboAquariumPath.ListItem = /g/Aquarium5\r\ncomboAquariumPath.ListItem = /g/Aquarium4\r\n"
        "comboDrifterPath.ListItem = /g/Aquarium5/Drifters\r\ncomboPoolPath.ListItem = /g/Aquarium5/Pools\r\n"
        "comboAquariumPath.Text = /g/Aquarium5\r\ncomboDrifterPath.Text = /g/Aquarium5/Drifters\r\n"
        "comboPoolPath.Text = /g/Aquarium5/Pools\r\n";
    EXPECT_EQ(f.app.settingsText, want);
    EXPECT_FALSE(f.app.uiBusy);
    EXPECT_EQ(f.ui.yields, 1);
    // The reader forgives blanks, line ends and garbage.
    Fixture g;
    for (int i = 0; i < 8; ++i) g.app.archive.lstArchive.setChecked(i, true);
    g.app.archive.chkAutoName = 0, g.app.archive.chkNowName = 1;
    g.app.settingsText =
        "  chkAutoName.Value=1\n"
        "garbage without equals\r"
        "chkautoname.value = 0\r\n"  // keys are case-sensitive
        "\tchkNowName.Value = 0 \t\r\n"
        "chkNowName.Value = 3\n"  // out of range
        "unknown.Key = 7\n"
        "chkAutoBackup.Value = banana\n"
        "chkDeleteOriginal.Value = 2 trailing\n"
        "lstArchive.Selected(5) = False\n"
        "lstArchive.Selected(9) = False\n"
        "lstArchive.Selected(x) = False\n"
        "lstArchive.Selected(1) = maybe\n"
        "lstArchive.Selected(2) = 0\n"
        "comboDrifterPath.Text = /a=b/c\n"
        "comboPoolPath.ListItem = /P\n"
        "comboPoolPath.ListItem = /p \n"
        "= lonely\n";
    aq::ini(g.app, " GET ");  // the same as "Use"
    const auto& arch = g.app.archive;
    EXPECT_EQ(std::vector<int>({arch.chkAutoName, arch.chkNowName, arch.chkAutoBackup, arch.chkDeleteOriginal}),
              std::vector<int>({1, 0, 0, 2}));
    // 0 counts as False; a shorter file leaves the rest alone.
    EXPECT_EQ(std::vector<bool>({arch.lstArchive.checked(1), arch.lstArchive.checked(2), arch.lstArchive.checked(5),
                                 arch.lstArchive.checked(7)}),
              std::vector<bool>({true, false, false, true}));
    EXPECT_EQ(g.app.comboDrifterPath, "/a");  // "=" cuts a folder short
    EXPECT_EQ(g.app.comboPoolPathItems, std::vector<std::string>{"/P"});
    EXPECT_EQ(g.app.comboPoolPath, "/P");
}

TEST(Settings, LoadStartupAndFileErrors) {
    Fixture f;
    f.app.settingsText = "chkAutoName.Value = 1\r\n";
    aq::ini(f.app, "Load");  // no file
    EXPECT_EQ(f.app.settingsText, "chkAutoName.Value = 1\r\n");
    for (const char* held : {"no equals sign here\r\n", ""}) {
        aqtest::writeBytes(f.iniPath(), held);
        aq::ini(f.app, "Load");
        EXPECT_EQ(f.app.settingsText, "chkAutoName.Value = 1\r\n") << held;
    }
    aqtest::writeBytes(f.iniPath(), "chkNowName.Value = 0");
    aq::ini(f.app, "Load");
    EXPECT_EQ(f.app.settingsText, "chkNowName.Value = 0");
    EXPECT_SCRIPT_DONE(f.ui);
    // At startup without a file every entry is checked; a file restores the controls it names.
    Fixture fresh;
    aq::startupSettings(fresh.app);
    EXPECT_EQ(fresh.app.archive.lstArchive.checkedCount(), 8);
    EXPECT_EQ(std::pair(fresh.app.archive.chkDeleteOriginal, fresh.app.archive.chkNowName), std::pair(1, 1));

    Fixture g;
    aqtest::writeBytes(g.iniPath(), "lstArchive.Selected(0) = False\r\nchkNowName.Value = 0\r\n");
    aq::startupSettings(g.app);
    EXPECT_TRUE(!g.app.archive.lstArchive.checked(0) && g.app.archive.lstArchive.checked(1));
    // The file does not name chkDeleteOriginal: its third state stays.
    EXPECT_EQ(std::pair(g.app.archive.chkNowName, g.app.archive.chkDeleteOriginal), std::pair(0, 2));
#ifndef _WIN32  // the messages below carry this system's error texts
    // File errors are shown in the program's words.
    Fixture err;
    std::filesystem::create_directory(err.iniPath());  // a folder where the file should be
    err.ui.message("Error opening " + err.iniPath() + ", error: Is a directory", "Aquarium File Manager - Load File");
    aq::ini(err.app, "Load");
    EXPECT_SCRIPT_DONE(err.ui);
    std::filesystem::remove(err.iniPath());
    ASSERT_EQ(::mkfifo(err.iniPath().c_str(), 0644), 0);  // nothing may wait for a writer
    err.ui.message("Error opening " + err.iniPath() + ", error: Not a regular file",
                   "Aquarium File Manager - Load File");
    aq::ini(err.app, "Load");
    EXPECT_SCRIPT_DONE(err.ui);
    std::filesystem::remove(err.iniPath());
    std::filesystem::create_directory(err.iniPath());
    err.app.settingsText = "x = 1";
    err.ui.script.push_back({"message", "Aquarium File Manager - Save Text File", "*"});
    aq::ini(err.app, "Save");
    ASSERT_FALSE(err.ui.seen.empty());
    EXPECT_EQ(err.ui.seen.back().text.rfind("Error opening " + err.iniPath() + ", error: ", 0), 0u);
    EXPECT_EQ(err.ui.waitDepth, 0);
#endif
}

}  // namespace
