#pragma once
// A caption that answers a click.
#include <QLabel>
#include <QMouseEvent>
#include <functional>

namespace aqapp {

class ClickLabel : public QLabel {
public:
    ClickLabel(const QString& text, QWidget* parent, std::function<void()> onClick)
        : QLabel(text, parent), onClick_(std::move(onClick)) {}

protected:
    void mouseReleaseEvent(QMouseEvent* e) override {
        if (e->button() == Qt::LeftButton && rect().contains(e->position().toPoint())) onClick_();
    }

private:
    std::function<void()> onClick_;
};

}  // namespace aqapp
