#include "app/window/HelpWindows.h"

#include <QAction>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "app/window/MainWindow.h"
#include "app/window/WindowParts.h"
#include "shell/MultiTask.h"
#include "state/App.h"

namespace aqapp {

namespace {

const QString kTitle = aq::kAppTitle;
const char* const kVersion = "Version 3.1.1";
const char* const kDescription =
    "A companion of Aquarium versions 4.1 and 4.0: it archives, edits and creates their pool and drifter files.";
const char* const kDisclaimer =
    "Warning: As with the use of any file utility, it s a good idea to keep backup copies of your important files to "
    "prevent the possibility of their loss or destruction through the use of this program.  This program is intended "
    "to serve a useful purpose, and to cause no harm, but I can not gaurantee that it will operate as intended on all "
    "systems.  Please use your own descretion.";

QLabel* addLabel(QWidget* parent, QLayout* layout, const char* name, bool wrap = true) {
    auto* l = new QLabel(parent);
    l->setObjectName(name);
    l->setWordWrap(wrap);
    layout->addWidget(l);
    return l;
}

QLabel* addIcon(QWidget* parent, QLayout* layout, const char* name) {
    auto* pic = new QLabel(parent);
    pic->setObjectName(name);
    pic->setPixmap(appIcon().pixmap(32, 32));
    layout->addWidget(pic);
    return pic;
}

QPushButton* addOk(QDialog* dlg, QLayout* layout, const char* name) {
    auto* ok = new QPushButton("OK", dlg);
    ok->setObjectName(name);
    QObject::connect(ok, &QPushButton::clicked, dlg, &QDialog::hide);
    layout->addWidget(ok);
    return ok;
}

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent) {
    setObjectName("frmHelp");
    setModal(false);
    auto* top = new QHBoxLayout(this);
    auto* left = new QVBoxLayout;
    addIcon(this, left, "Picture1");
    left->addStretch();
    top->addLayout(left);
    auto* right = new QVBoxLayout;
    lblHelp_ = addLabel(this, right, "lblHelp");
    QFont bold = lblHelp_->font();
    bold.setBold(true);
    lblHelp_->setFont(bold);
    lblHelpText_ = addLabel(this, right, "lblHelpText");
    right->addStretch();
    addOk(this, right, "cmdOK");
    top->addLayout(right, 1);
    resize(460, 260);
}

void HelpWindow::showTopic(const QString& topic) {
    QDialog::show();
    if (topic == "Archive") {
        setWindowTitle(kTitle + " Help - Archive");
        lblHelp_->setText("Aquarium File Manager - Archive...");
        lblHelpText_->setText(
            "Use the checkboxes in the list on the left to select which of the pre-named Aquarium data files you "
            "would like to archive or restore, and then click the appropraite command button.");
    } else if (topic == "Speciate") {
        setWindowTitle(kTitle + " Help - Speciate");
        lblHelp_->setText("Aquarium File Manager - Speciate...");
        lblHelpText_->setText(
            "Although the latest version of Aquarium at the time of this writing (version 4.1) does not support "
            "speciation directly, editing a pool file with this program should allow you to simulate the effects of "
            "speciation by restricting the range of genetic diversification within a given pool.  As drifters evolve "
            "and become genetically diverse, simply save the pool and then isolate a species and move it to another "
            "pool file. Then load the new file into Aquarium.");
    } else {
        setWindowTitle(kTitle + " Help");
        lblHelp_->setText("Welcome to Aquarium File Manager...");
        lblHelpText_->setText(
            "Use the Tabs at the top of the application window to choose a task, and the tools needed for that task "
            "should be presented to you.  I hope this program will prove useful to you.  Thanks for choosing to give "
            "it a try.");
    }
}

AboutWindow::AboutWindow(QWidget* parent) : QDialog(parent) {
    setObjectName("frmAbout");
    setModal(false);
    auto* top = new QHBoxLayout(this);
    auto* left = new QVBoxLayout;
    addIcon(this, left, "picIconx");
    left->addStretch();
    top->addLayout(left);
    auto* right = new QVBoxLayout;
    lblTitle_ = addLabel(this, right, "lblTitle");
    lblVersion_ = addLabel(this, right, "lblVersion");
    lblDescription_ = addLabel(this, right, "lblDescription");
    auto* line = new QFrame(this);
    line->setObjectName("Line1");
    line->setFrameShape(QFrame::HLine);
    right->addWidget(line);
    lblDisclaimer_ = addLabel(this, right, "lblDisclaimer");
    addOk(this, right, "cmdOKx");
    top->addLayout(right, 1);
    resize(480, 320);
}

void AboutWindow::showTopic(const QString& topic) {
    QDialog::show();
    setWindowTitle("About " + kTitle);
    lblVersion_->setText(kVersion);
    lblTitle_->setText(kTitle);
    lblDescription_->setText(kDescription);
    lblDisclaimer_->setText(kDisclaimer);
    if (topic == "Archive") {
        lblTitle_->setText(kTitle + " - Archive");
        lblDescription_->setText("This feature set is intended to help you preserve and organize your Aquarium files.");
        lblDisclaimer_->setText(
            "Version 4.1 and earlier of Aquarium allow you to save a pool in one of 4 pre-named pool files and to save "
            "a drifter's genetic sequence in one of 4 pre-named DNA files.\n"
            "These features should give you a convenient way to store those files in another folder using unique "
            "filenames, and copy them over one of these pre-named files when they are needed later.");
    } else if (topic == "Speciate") {
        lblTitle_->setText(kTitle + " - Speciate");
        lblDescription_->setText(
            "This feature set is intended to help you simulate the effects of speciation within the Aquarium "
            "environment.");
        lblDisclaimer_->setText(
            "Although the latest version of Aquarium at the time of this writing (version 4.1) does not support "
            "speciation directly, this should allow you to simulate the effects of speciation by restricting the "
            "range of genetic diversification within a given pool.  As drifters evolve and become genetically "
            "diverse, simply save the pool and then isolate a species and load it back into Aquarium.");
    }
}

NotificationDialog::NotificationDialog(aq::App& app, QWidget* parent) : QDialog(parent), app_(app) {
    setObjectName("dlgNotification");
    setWindowTitle("Note:");
    setModal(false);
    auto* layout = new QVBoxLayout(this);
    label1_ = new QLabel("Please click OK to continue", this);
    label1_->setObjectName("Label1");
    label1_->setWordWrap(true);
    layout->addWidget(label1_);
    auto* ok = new QPushButton("OK", this);
    ok->setObjectName("OKButton");
    connect(ok, &QPushButton::clicked, this, [this] { QDialog::hide(); });
    layout->addWidget(ok);
    // Moving the pointer over the window or its button is a stir.
    setMouseTracking(true);
    ok->setMouseTracking(true);
    label1_->setMouseTracking(true);
    installEventFilter(this);
    ok->installEventFilter(this);
    label1_->installEventFilter(this);
    timer1_ = new QTimer(this);
    timer1_->setObjectName("Timer1");
    timer1_->setInterval(777);
    connect(timer1_, &QTimer::timeout, this, &NotificationDialog::tick);
    timer1_->start();
    stir();  // the load
}

void NotificationDialog::show(const std::string& text) {
    label1_->setText(QString::fromStdString(text));
    QDialog::show();
}

void NotificationDialog::stir() { lastStir_ = app_.clock.secondsSinceMidnight(); }

void NotificationDialog::tick() {
    if (isVisible() && aq::noticeMayFade(app_, lastStir_)) QDialog::hide();
}

bool NotificationDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove) stir();
    return QDialog::eventFilter(watched, event);
}

namespace {

// The core's notice: the dialog is made on the first show.
class LazyNotice : public aq::Notice {
public:
    explicit LazyNotice(MainWindow& w) : w_(w) {}
    void show(const std::string& text) override { dialog().show(text); }
    void stir() override {
        if (auto* d = existing()) d->stir();
    }
    void hide() override {
        if (auto* d = existing()) d->hide();
    }

private:
    NotificationDialog* existing() { return w_.findChild<NotificationDialog*>("dlgNotification"); }
    NotificationDialog& dialog() {
        if (auto* d = existing()) return *d;
        return *new NotificationDialog(w_.app(), &w_);
    }
    MainWindow& w_;
};

template <class Window>
Window& windowOf(MainWindow& w, const char* name) {
    if (auto* existing = w.findChild<Window*>(name)) return *existing;
    return *new Window(&w);
}

}  // namespace

void installHelpWindows(MainWindow& w) {
    struct Item {
        const char* menu;
        bool about;
        const char* topic;
    };
    const Item items[] = {{"mHelpHelp", false, "Help"},
                          {"mHelpAbout", true, "About"},
                          {"mHelpArchiveHelp", false, "Archive"},
                          {"mHelpArchiveAbout", true, "Archive"},
                          {"mHelpSpeciateHelp", false, "Speciate"}};
    for (const Item& item : items) {
        QString topic = item.topic;
        if (item.about)
            w.onMenu(item.menu, [&w, topic] { windowOf<AboutWindow>(w, "frmAbout").showTopic(topic); });
        else
            w.onMenu(item.menu, [&w, topic] { windowOf<HelpWindow>(w, "frmHelp").showTopic(topic); });
    }
    auto* notice = new LazyNotice(w);
    w.app().notice = notice;
    // The notice lives as long as the window.
    QObject::connect(&w, &QObject::destroyed, [notice] { delete notice; });
}

}  // namespace aqapp
