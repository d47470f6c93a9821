#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTimer>

#include "app/pictures/PictureCommand.h"
#include "app/window/MainWindow.h"
#include "app/window/ProgramHelp.h"
#include "app/window/QtUi.h"
#include "app/window/WindowParts.h"
#include "base/Clock.h"

namespace {

// The settings and the hand-over file live beside the program when that folder is the
// user's to write (a portable install), otherwise in the user's application data folder.
// A system folder never counts, even for root: a package's files must stay its own.
QString programFolder() {
    QString dir = QCoreApplication::applicationDirPath();
    bool system = false;
    for (const char* root : {"/usr", "/bin", "/sbin", "/opt"})
        system = system || dir == root || dir.startsWith(QString(root) + "/");
    if (!system && QFileInfo(dir).isWritable()) return dir;
    QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(data);
    return data;
}

}  // namespace

int main(int argc, char** argv) {
    if (auto status = aqapp::runProgramHelp(argc, argv)) return *status;
    if (auto status = aqapp::runPictureCommand(argc, argv)) return *status;
    QApplication qapp(argc, argv);
    QCoreApplication::setApplicationName("AqFileManager");
    QCoreApplication::setOrganizationName("Aquarium");
    QGuiApplication::setDesktopFileName("aqfilemanager");
    aqapp::QtUi ui;
    aq::SystemClock clock;
    aqapp::MainWindow window(ui, clock, programFolder(), nullptr, QCoreApplication::applicationDirPath());
    ui.setParentWidget(&window);
    window.show();
    // AqFileManager FILE...: pools and DNA files opened once the window is up.
    QStringList files = QCoreApplication::arguments().mid(1);
    if (!files.isEmpty()) QTimer::singleShot(0, &window, [&window, files] { aqapp::openFiles(window, files); });
    return qapp.exec();
}
