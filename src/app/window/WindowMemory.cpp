// What the window remembers between runs of its own: geometry, the map toggle and
// the splitter beside the tabs.
#include <QEvent>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStyle>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <algorithm>

#include "app/window/MainWindow.h"
#include "app/window/WindowParts.h"

namespace aqapp {

namespace {

// Fits the window into the screen's free area: `first` places it the first time (centred,
// with room for the desktop's frame); otherwise only a window that does not fit is made
// smaller and moved onto the screen.
void fitToScreen(QWidget& w, bool first) {
    QScreen* screen = w.screen();
    if (!screen) return;
    const QRect room = screen->availableGeometry();
    // The desktop's frame: known once the window is on show, else a title bar's height.
    QMargins frame(w.geometry().left() - w.frameGeometry().left(), w.geometry().top() - w.frameGeometry().top(),
                   w.frameGeometry().right() - w.geometry().right(),
                   w.frameGeometry().bottom() - w.geometry().bottom());
    if (!w.isVisible() || frame.isNull()) frame = QMargins(0, w.style()->pixelMetric(QStyle::PM_TitleBarHeight), 0, 0);
    const QSize frameExtra(frame.left() + frame.right(), frame.top() + frame.bottom());
    QSize most = room.size() - frameExtra;
    // The first time, some of the screen is left around the window, as the program always did.
    if (first) most = most.boundedTo(QSize(int(room.width() * 0.96), int(room.height() * 0.9)) - frameExtra);
    QRect outer = QRect(w.pos(), w.size() + frameExtra);
    if (!first && room.contains(outer)) return;
    w.resize(w.size().boundedTo(most));
    // The size may be held up by the window's minimum; the title bar goes on the screen even then.
    outer.setSize(w.size() + frameExtra);
    if (first) outer.moveCenter(room.center());
    outer.moveLeft(std::max(room.left(), std::min(outer.left(), room.right() + 1 - outer.width())));
    outer.moveTop(std::max(room.top(), std::min(outer.top(), room.bottom() + 1 - outer.height())));
    w.move(outer.topLeft());
}

class WindowMemory : public QObject {
public:
    explicit WindowMemory(MainWindow& w) : QObject(&w), w_(w) {
        auto s = windowSettings();
        // A window kept from a bigger screen still fits this one; one kept at another scale,
        // which Qt does not restore, is placed as the first time.
        const bool kept = s->contains("geometry") && w.restoreGeometry(s->value("geometry").toByteArray());
        fitToScreen(w, !kept);
        if (s->contains("showMap")) toggle()->setChecked(s->value("showMap").toBool());
        // A splitter kept narrower than the tabs' controls, even collapsed, gives them their
        // width: the tabs cannot be collapsed and have their minimum.
        if (s->contains("splitter")) splitter()->restoreState(s->value("splitter").toByteArray());
        w.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* e) override {
        if (e->type() == QEvent::Show && !shown_) {
            // The desktop's frame is known once the window is on show, on some desktops a
            // moment later: the window fits again with it.
            shown_ = true;
            fitToScreen(w_, false);
            QTimer::singleShot(500, this, [this] { fitToScreen(w_, false); });
        }
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
    bool shown_ = false;
};

}  // namespace

std::unique_ptr<QSettings> windowSettings() {
    return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, "Aquarium", "AqFileManager");
}

void installWindowMemory(MainWindow& w) { new WindowMemory(w); }

}  // namespace aqapp
