#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "app/MainWindow.h"
#include "app/QtUi.h"
#include "shell/Clock.h"

namespace {

// The settings and the hand-over file live beside the program when that folder is
// writable (a portable install), otherwise in the user's application data folder.
QString programFolder() {
    QString dir = QCoreApplication::applicationDirPath();
    QFileInfo info(dir);
    if (info.isWritable()) return dir;
    QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(data);
    return data;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication qapp(argc, argv);
    QCoreApplication::setApplicationName("AqFileManager");
    QCoreApplication::setOrganizationName("Aquarium");
    aqapp::QtUi ui;
    aq::SystemClock clock;
    aqapp::MainWindow window(ui, clock, programFolder(), nullptr, QCoreApplication::applicationDirPath());
    ui.setParentWidget(&window);
    window.show();
    return qapp.exec();
}
