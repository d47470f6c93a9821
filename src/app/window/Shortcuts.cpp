// The keyboard of a desktop editor: open, save, save as, delete, help and quitting.
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
    // The desktop's "Save As" key, Ctrl+Shift+S, saves the changed drifter files here.
    w.menuItem("mSavePoolAs")->setShortcut(QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_S));
    // Delete deletes the ticks of the list in hand, with the menu item's question; a text
    // box keeps the key for its own text.
    const char* deletes[2][2] = {{"mSelectPoolDelete", "FrmTa(3)"}, {"mSelectFoodDelete", "FrmTa(4)"}};
    for (const auto& [item, frame] : deletes) {
        QAction* a = w.menuItem(item);
        a->setShortcut(QKeySequence::Delete);
        a->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        w.findChild<QWidget*>(frame)->addAction(a);
    }

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
}

}  // namespace aqapp
