#include "app/window/EditMenu.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAction>
#include <QEvent>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <QTimer>

#include "app/window/MainWindow.h"

namespace aqapp {

namespace {

const int kGeneTab = 5;

QString plain(QString caption) { return caption.remove('&'); }

// What a drag of each slider does, as its step's name.
QString sliderStep(const QString& name) {
    const bool size = name.endsWith("Width") || name.endsWith("Height");
    if (name.startsWith("SliderSpeciatePoolDrifter")) return size ? "Stretch Drifters" : "Move Drifters";
    if (name.startsWith("SliderFood")) return size ? "Stretch Food" : "Move Food";
    if (name == "VsGeneValue") return "Change Gene Value";
    if (name == "VsGeneRange") return "Change Gene Spread";
    return {};
}

// Prepares both histories when a list gets the focus, before the list's own load.
class FocusWatch : public QObject {
public:
    FocusWatch(QWidget* target, std::function<void()> before, std::function<void()> after)
        : QObject(target), before_(std::move(before)), after_(std::move(after)) {
        target->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* e) override {
        if (e->type() == QEvent::FocusIn) {
            before_();
            QTimer::singleShot(0, this, after_);
        }
        return QObject::eventFilter(watched, e);
    }

private:
    std::function<void()> before_, after_;
};

}  // namespace

EditMenu::EditMenu(MainWindow& w) : QObject(&w), w_(w) {
    auto* menu = new QMenu("&Edit", &w);
    menu->setObjectName("mEdit");
    menu->menuAction()->setObjectName("mEditAction");
    QAction* before = w.menuItem("mMode");
    w.menuBar()->insertMenu(before, menu);
    undo_ = menu->addAction("&Undo");
    undo_->setObjectName("mUndo");
    undo_->setShortcut(QKeySequence::Undo);
    redo_ = menu->addAction("&Redo");
    redo_->setObjectName("mRedo");
    redo_->setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    connect(undo_, &QAction::triggered, this, [this] { undoOrRedo(true); });
    connect(redo_, &QAction::triggered, this, [this] { undoOrRedo(false); });
    connect(menu, &QMenu::aboutToShow, this, [this] {
        prepare();
        refreshItems();
    });
    undo_->setEnabled(false);
    redo_->setEnabled(false);
}

bool EditMenu::genesOnShow() const { return w_.selectedTab() == kGeneTab; }

void EditMenu::prepare() {
    pool_.prepare(w_.app());
    dna_.prepare(w_.app());
}

void EditMenu::commit(const QString& name) {
    std::string n = plain(name).toStdString();
    pool_.commit(w_.app(), n);
    dna_.commit(w_.app(), n);
    refreshItems();
    emit stepped();
}

void EditMenu::step(const QString& name, const std::function<void()>& fn) {
    prepare();
    fn();
    commit(name);
}

void EditMenu::undoOrRedo(bool undo) {
    aq::App& app = w_.app();
    // Not while a command is waiting for the simulator or a dialog.
    if (app.uiBusy) return;
    if (genesOnShow())
        undo ? dna_.undo(app) : dna_.redo(app);
    else
        undo ? pool_.undo(app) : pool_.redo(app);
    refreshItems();
    emit stepped();
}

void EditMenu::refreshItems() {
    const bool genes = genesOnShow();
    const std::string u = genes ? dna_.undoName() : pool_.undoName();
    const std::string r = genes ? dna_.redoName() : pool_.redoName();
    undo_->setText(u.empty() ? "&Undo" : "&Undo " + QString::fromStdString(u));
    redo_->setText(r.empty() ? "&Redo" : "&Redo " + QString::fromStdString(r));
    undo_->setEnabled(genes ? dna_.canUndo() : pool_.canUndo());
    redo_->setEnabled(genes ? dna_.canRedo() : pool_.canRedo());
}

void EditMenu::watchControls() {
    QWidget* tabs = w_.findChild<QWidget*>("TabStrip1");
    for (QAbstractButton* b : tabs->findChildren<QAbstractButton*>()) {
        connect(b, &QAbstractButton::pressed, this, [this] { prepare(); });
        connect(b, &QAbstractButton::clicked, this, [this, b] { commit(b->text()); });
    }
    for (QAbstractSlider* s : tabs->findChildren<QAbstractSlider*>()) {
        QString name = sliderStep(s->objectName());
        if (name.isEmpty()) continue;
        // One step per drag; a key, a wheel or a click on the groove is a step of its own.
        connect(s, &QAbstractSlider::sliderPressed, this, [this] { prepare(); });
        connect(s, &QAbstractSlider::actionTriggered, this, [this, s] {
            if (!s->isSliderDown()) prepare();
        });
        connect(s, &QAbstractSlider::valueChanged, this, [this, s, name] {
            if (!s->isSliderDown()) commit(name);
        });
        connect(s, &QAbstractSlider::sliderReleased, this, [this, name] { commit(name); });
    }
    for (const char* list : {"lstSpeciatePool", "lstSpeciateDrifters"})
        if (auto* v = w_.findChild<QListView*>(list))
            new FocusWatch(
                v, [this] { prepare(); }, [this] { commit("Load"); });
    connect(w_.findChild<QTabWidget*>("TabStrip1"), &QTabWidget::currentChanged, this, [this] { refreshItems(); });
    refreshItems();
}

}  // namespace aqapp
