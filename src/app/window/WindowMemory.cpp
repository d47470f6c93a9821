// What the window remembers between runs of its own: geometry, the map toggle and
// the splitter beside the tabs.
#include <QEvent>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QTabWidget>
#include <QToolButton>

#include "app/window/MainWindow.h"
#include "app/window/WindowParts.h"

namespace aqapp {

namespace {

class WindowMemory : public QObject {
public:
    explicit WindowMemory(MainWindow& w) : QObject(&w), w_(w) {
        auto s = windowSettings();
        if (s->contains("geometry")) w.restoreGeometry(s->value("geometry").toByteArray());
        // A window kept from a bigger screen still fits this one.
        if (QScreen* screen = w.screen()) {
            QSize room = screen->availableGeometry().size();
            if (w.width() > room.width() || w.height() > room.height()) w.resize(w.size().boundedTo(room));
        }
        if (s->contains("showMap")) toggle()->setChecked(s->value("showMap").toBool());
        if (s->contains("splitter")) splitter()->restoreState(s->value("splitter").toByteArray());
        w.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* e) override {
        if (e->type() == QEvent::Close) {
            auto s = windowSettings();
            s->setValue("geometry", w_.saveGeometry());
            s->setValue("showMap", toggle()->isChecked());
            s->setValue("splitter", splitter()->saveState());
        }
        return QObject::eventFilter(watched, e);
    }

private:
    QToolButton* toggle() const { return w_.findChild<QToolButton*>("cmdShowMap"); }
    QSplitter* splitter() const {
        return qobject_cast<QSplitter*>(w_.findChild<QTabWidget*>("TabStrip1")->parentWidget());
    }

    MainWindow& w_;
};

}  // namespace

std::unique_ptr<QSettings> windowSettings() {
    return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, "Aquarium", "AqFileManager");
}

void installWindowMemory(MainWindow& w) { new WindowMemory(w); }

}  // namespace aqapp
