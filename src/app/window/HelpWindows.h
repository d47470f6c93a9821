#pragma once
// frmHelp, frmAbout and dlgNotification: made on first use, then only hidden and
// shown, so a later call finds a window with its old contents.
#include <QDialog>
#include <QTimer>

#include "base/Notice.h"

class QLabel;

namespace aq {
struct App;
}

namespace aqapp {

class MainWindow;

class HelpWindow : public QDialog {
    Q_OBJECT
public:
    explicit HelpWindow(QWidget* parent);
    // "Archive" and "Speciate" have their own texts; any other topic gets the welcome.
    void showTopic(const QString& topic);

private:
    QLabel* lblHelp_;
    QLabel* lblHelpText_;
};

class AboutWindow : public QDialog {
    Q_OBJECT
public:
    explicit AboutWindow(QWidget* parent);
    void showTopic(const QString& topic);

private:
    QLabel* lblTitle_;
    QLabel* lblVersion_;
    QLabel* lblDescription_;
    QLabel* lblDisclaimer_;
};

// The notice the species passes show while they run. It goes by itself 5 seconds
// after the last stir (its load, the pointer over it) once both species lists are free.
class NotificationDialog : public QDialog, public aq::Notice {
    Q_OBJECT
public:
    NotificationDialog(aq::App& app, QWidget* parent);
    void show(const std::string& text) override;
    void stir() override;
    void hide() override { QDialog::hide(); }
    // One tick of Timer1 (every 777 ms).
    void tick();
    double lastStir() const { return lastStir_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    aq::App& app_;
    QLabel* label1_;
    QTimer* timer1_;
    double lastStir_ = 0;
};

// Connects the help menu and gives the core its notice window.
void installHelpWindows(MainWindow& w);

}  // namespace aqapp
