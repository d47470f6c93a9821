#pragma once
// Runs an action when a widget gets the keyboard focus from the user (a click or
// Tab), not when the window is merely activated again after a dialog closes.
#include <QEvent>
#include <QFocusEvent>
#include <QObject>
#include <functional>

namespace aqapp {

class LoadOnFocus : public QObject {
public:
    LoadOnFocus(QObject* target, std::function<void()> action) : QObject(target), action_(std::move(action)) {
        target->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusIn && !running_) {
            auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
                running_ = true;
                action_();
                running_ = false;
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> action_;
    bool running_ = false;
};

}  // namespace aqapp
