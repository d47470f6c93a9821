#pragma once
// The main window offscreen with a scripted Ui, a hand-moved clock and a temporary
// program folder, plus short ways to reach its controls by their names and to load a pool.
#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSettings>
#include <QtTest>
#include <type_traits>
#include <utility>

#include "app/window/MainWindow.h"
#include "format/PoolFile.h"
#include "support/ManualClock.h"
#include "support/ScriptedUi.h"
#include "support/TempDir.h"

#define SCRIPT_DONE(h) QVERIFY2((h).ui.done(), (h).ui.report().c_str())

namespace aqtest {

template <class UiT = ScriptedUi>
struct Window {
    ManualClock clock;
    UiT ui = makeUi();
    TempDir dir;
    // The window's own settings (geometry, recent files) go to the test's folder.
    bool settingsInDir = [this] {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(dir.path()));
        return true;
    }();
    aqapp::MainWindow w{ui, clock, QString::fromStdString(dir.path())};

    aq::App& app() { return w.app(); }
    std::string file(const std::string& name) { return dir.file(name); }
    void menu(const char* name) { w.menuItem(name)->trigger(); }

    template <class T = QWidget>
    T* get(const QString& name) {
        T* c = w.findChild<T*>(name);
        if (!c) qFatal("no control %s", qPrintable(name));
        return c;
    }
    void click(const char* name) { get<QAbstractButton>(name)->click(); }
    // Clicks a button or triggers a menu item with nothing scripted, every prompt cancelled:
    // the first prompt as "kind [title] text", or "" for none.
    std::string firstPrompt(const char* item) {
        const std::size_t failed = ui.failures.size();
        ui.seen.clear();
        if (auto* b = w.findChild<QAbstractButton*>(item))
            b->click();
        else
            menu(item);
        ui.failures.resize(failed);  // the prompts it met were not scripted
        return ui.seen.empty() ? "" : ui.seen[0].kind + " [" + ui.seen[0].title + "] " + ui.seen[0].text;
    }
    // Loads `pool` from pool.aqp through the File menu, on the drifter tab.
    void loadPool(const aq::Pool& pool) {
        aq::writePool(file("pool.aqp"), pool);
        w.selectTab(3);
        ui.file("open", "Select Pool File", file("pool.aqp"));
        menu("mLoadPool");
    }

    // The text a user reads on a control: an Alt letter's '&' is not read.
    QString text(const QString& name) {
        QObject* c = get<QObject>(name);
        if (auto* b = qobject_cast<QAbstractButton*>(c)) return QString(b->text()).remove('&');
        if (auto* l = qobject_cast<QLabel*>(c)) return l->text();
        if (auto* e = qobject_cast<QLineEdit*>(c)) return e->text();
        if (auto* x = qobject_cast<QComboBox*>(c)) return x->currentText();
        return {};
    }
    QAbstractItemModel* rows(const char* list) { return get<QListView>(list)->model(); }
    QString row(const char* list, int r) { return rows(list)->index(r, 0).data().toString(); }
    void tick(const char* list, int r, bool on = true) {
        rows(list)->setData(rows(list)->index(r, 0), on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    }

private:
    UiT makeUi() {
        if constexpr (std::is_constructible_v<UiT, ManualClock&>)
            return UiT(clock);
        else
            return UiT();
    }
};

}  // namespace aqtest
