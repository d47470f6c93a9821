#include "app/widgets/PathFrame.h"

#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "state/App.h"
#include "files/PathBoxes.h"

namespace aqapp {

namespace {
const char* const kLabels[3] = {"Aquarium:", "Drifter File Archive:", "Pool File Archive:"};
const char* const kLabelNames[3] = {"Label3", "Label4", "Label5"};
const char* const kBoxNames[3] = {"comboAquariumPath", "comboDrifterPath", "comboPoolPath"};
const char* const kButtonNames[3] = {"cmdAquariumPath", "cmdDrifterPath", "cmdPoolPath"};
const char* const kButtonTips[3] = {
    "Add the Currently Selected Aquarium Path to the DropBox List and Select a New Aquarium Folder",
    "Add the Currently Selected Drifters Path to the DropBox List and Select a New Drifter Archive Folder",
    "Add the Currently Selected Pools Path to the DropBox List and Select a New Pool Archive Folder"};
void (*const kSetters[3])(aq::App&, const std::string&, std::int16_t) = {
    aq::comboAquariumPath_set, aq::comboDrifterPath_set, aq::comboPoolPath_set};
}  // namespace

PathFrame::PathFrame(aq::App& app, QWidget* parent) : QGroupBox("Directory Paths", parent), app_(app) {
    setObjectName("FrmTa(0)");
    auto* grid = new QGridLayout(this);
    for (int i = 0; i < 3; ++i) {
        auto* label = new QLabel(kLabels[i], this);
        label->setObjectName(kLabelNames[i]);
        auto* box = new QComboBox(this);
        box->setObjectName(kBoxNames[i]);
        box->setEditable(true);
        box->setInsertPolicy(QComboBox::NoInsert);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->installEventFilter(this);
        box->lineEdit()->installEventFilter(this);
        connect(box, &QComboBox::currentTextChanged, this, [this, i](const QString& t) {
            if (!syncing_) text(i) = t.toStdString();
        });
        auto* button = new QPushButton("...", this);
        button->setObjectName(kButtonNames[i]);
        button->setToolTip(kButtonTips[i]);
        connect(button, &QPushButton::clicked, this, [this, i] { onButton(i); });
        grid->addWidget(label, i, 0);
        grid->addWidget(box, i, 1);
        grid->addWidget(button, i, 2);
        boxes_[i] = box;
        buttons_[i] = button;
    }
    grid->setColumnStretch(1, 1);
    chooseFolder = [this](int i, const QString& start) { return browse(i, start); };
    refresh();
}

std::string& PathFrame::text(int i) {
    std::string* texts[3] = {&app_.comboAquariumPath, &app_.comboDrifterPath, &app_.comboPoolPath};
    return *texts[i];
}

void PathFrame::setBoxText(int i, const QString& t) {
    text(i) = t.toStdString();
    refresh();
}

void PathFrame::refresh() {
    const std::vector<std::string>* lists[3] = {&app_.comboAquariumPathItems, &app_.comboDrifterPathItems,
                                                &app_.comboPoolPathItems};
    syncing_ = true;
    for (int i = 0; i < 3; ++i) {
        QStringList items;
        for (const auto& s : *lists[i]) items << QString::fromStdString(s);
        QStringList shown;
        for (int k = 0; k < boxes_[i]->count(); ++k) shown << boxes_[i]->itemText(k);
        if (shown != items) {
            boxes_[i]->clear();
            boxes_[i]->addItems(items);
        }
        QString t = QString::fromStdString(text(i));
        if (boxes_[i]->currentText() != t) boxes_[i]->setEditText(t);
    }
    syncing_ = false;
}

void PathFrame::onButton(int i) {
    if (app_.uiBusy) return;
    {
        aq::BusyScope busy(app_);
        kSetters[i](app_, text(i), -1);
    }
    refresh();
    lastPathText_ = QString::fromStdString(text(i));
    QString chosen = chooseFolder(i, lastPathText_);
    if (!chosen.isEmpty()) setBoxText(i, QDir::toNativeSeparators(chosen));
    boxes_[i]->setFocus();
    boxes_[i]->lineEdit()->end(false);
}

QString PathFrame::browse(int i, const QString& start) {
    QFileDialog dlg(window(), kLabels[i]);
    dlg.setFileMode(QFileDialog::Directory);
    dlg.setOption(QFileDialog::ShowDirsOnly);
    dlg.setOption(QFileDialog::DontUseNativeDialog);  // the box follows the folder on show
    // The deepest part of the box's text that exists is where the browser opens.
    QString at = start;
    while (!at.isEmpty() && !QDir(at).exists()) {
        int cut = at.lastIndexOf('/');
        at = cut > 0 ? at.left(cut) : (cut == 0 ? "/" : QString());
    }
    if (!at.isEmpty()) dlg.setDirectory(at);
    connect(&dlg, &QFileDialog::directoryEntered, this, [this, i](const QString& d) {
        aq::BusyScope busy(app_);
        setBoxText(i, QDir::toNativeSeparators(d));
    });
    if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) {
        setBoxText(i, start);  // Esc puts the box back
        return {};
    }
    return dlg.selectedFiles().first();
}

bool PathFrame::eventFilter(QObject* watched, QEvent* event) {
    int i = -1;
    for (int k = 0; k < 3; ++k)
        if (boxes_[k] && (watched == boxes_[k] || watched == boxes_[k]->lineEdit())) i = k;
    if (i < 0) return QGroupBox::eventFilter(watched, event);
    auto trimBox = [&] {
        aq::BusyScope busy(app_);
        QString t = boxes_[i]->currentText().trimmed();
        if (t != boxes_[i]->currentText()) setBoxText(i, t);
    };
    switch (event->type()) {
        case QEvent::FocusIn:
            trimBox();
            lastPathText_ = boxes_[i]->currentText();
            break;
        case QEvent::FocusOut:
            trimBox();
            break;
        case QEvent::KeyPress:
            if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
                setBoxText(i, lastPathText_);
                boxes_[i]->lineEdit()->selectAll();
                return true;
            }
            break;
        default:
            break;
    }
    return QGroupBox::eventFilter(watched, event);
}

}  // namespace aqapp
