#pragma once
// The "&Edit" menu: undo and redo of the open pool's edits, and of the gene edits
// while the drifter files tab is on show. Every user action that may change the pool
// (a menu item, a button, a slider drag, a load by a click on a list) runs between
// the histories' prepare and commit, so each becomes one step with its caption.
#include <QObject>
#include <QString>
#include <functional>

#include "shell/UndoHistory.h"

class QAction;

namespace aqapp {

class MainWindow;

class EditMenu : public QObject {
    Q_OBJECT
public:
    // Adds the menu after "&File"; call once the menu tree is built.
    explicit EditMenu(MainWindow& w);
    // Runs a user's action as one step named `name` (a caption; '&' marks are dropped).
    void step(const QString& name, const std::function<void()>& fn);
    // Watches the tabs' buttons, box sliders, gene bars and lists; call once they exist.
    void watchControls();
    // Brings the two items' captions and states up to date.
    void refreshItems();

    aq::PoolHistory& poolHistory() { return pool_; }
    aq::DnaHistory& dnaHistory() { return dna_; }

signals:
    // After every user action and every undo or redo.
    void stepped();

private:
    void prepare();
    void commit(const QString& name);
    void undoOrRedo(bool undo);
    bool genesOnShow() const;

    MainWindow& w_;
    aq::PoolHistory pool_;
    aq::DnaHistory dna_;
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
};

}  // namespace aqapp
