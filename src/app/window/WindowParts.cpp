#include "app/window/WindowParts.h"

#include <QApplication>

#include "app/window/MainWindow.h"

namespace aqapp {

void installWindowParts(MainWindow& w) {
    QApplication::setWindowIcon(appIcon());
    w.setWindowIcon(appIcon());
    installShortcuts(w);
    installMnemonics(w);
    installFileOpening(w);
    installStatusLine(w);
    installWindowMemory(w);
}

}  // namespace aqapp
