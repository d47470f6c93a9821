// The keyboard of a desktop editor: open, save, help, the tabs and quitting.
#include <QAction>
#include <QMenu>

#include "app/window/MainWindow.h"
#include "app/window/WindowParts.h"

namespace aqapp {

namespace {

// The help item that tells about the tab on show.
const char* helpOfTab(int tab) {
    if (tab == 1) return "mHelpArchiveHelp";
    if (tab >= 3 && tab <= 5) return "mHelpSpeciateHelp";
    return "mHelpHelp";
}

}  // namespace

void installShortcuts(MainWindow& w) {
    w.menuItem("mLoadPool")->setShortcut(QKeySequence::Open);
    w.menuItem("mSavePool")->setShortcut(QKeySequence::Save);
    w.menuItem("mSaveDrifter")->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));

    // Closing by the menu asks the same questions as the window's close button.
    auto* file = w.findChild<QMenu*>("mFile");
    file->addSeparator();
    QAction* exit = file->addAction("E&xit");
    exit->setObjectName("mExit");
    exit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    QObject::connect(exit, &QAction::triggered, &w, [&w] { w.close(); });

    auto* help = new QAction(&w);
    help->setObjectName("keyHelp");
    help->setShortcut(QKeySequence::HelpContents);
    QObject::connect(help, &QAction::triggered, &w, [&w] {
        if (QAction* a = w.menuItem(helpOfTab(w.selectedTab()))) a->trigger();
    });
    w.addAction(help);
    for (int tab = 1; tab <= 6; ++tab) {
        auto* a = new QAction(&w);
        a->setObjectName(QString("keyTab%1").arg(tab));
        a->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + tab)));
        QObject::connect(a, &QAction::triggered, &w, [&w, tab] { w.selectTab(tab); });
        w.addAction(a);
    }
}

}  // namespace aqapp
