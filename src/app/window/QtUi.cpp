#include "app/window/QtUi.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QLocale>
#include <QMessageBox>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QTreeView>
#include <algorithm>

#include "files/FileNames.h"

namespace aqapp {

QString messageText(const std::string& text) {
    QString s = QString::fromStdString(text);
    s.replace("\r\n", "\n");
    return s;
}

QStringList nameFilters(const std::string& extension, const std::string& description) {
    QStringList parts = QString::fromStdString(aq::fileDialogFilter(extension, description)).split('|');
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString label = parts[i];
        QString pattern = parts[i + 1];
        // "*.*" would hide names without a dot here; list both spellings as names keep their capitals.
        QString qtPattern = pattern == "*.*" ? QString("*") : pattern.toLower() + " " + pattern.toUpper();
        int paren = label.lastIndexOf(" (");
        filters << (paren < 0 ? label : label.left(paren)) + " (" + qtPattern + ")";
    }
    return filters;
}

namespace {
aq::Answer ask(QWidget* parent, const std::string& text, const std::string& title, QMessageBox::StandardButtons buttons,
               QMessageBox::StandardButton def) {
    QMessageBox box(QMessageBox::Question, QString::fromStdString(title), messageText(text), buttons, parent);
    box.setDefaultButton(def);
    switch (box.exec()) {
        case QMessageBox::Yes:
            return aq::Answer::Yes;
        case QMessageBox::No:
            return aq::Answer::No;
        case QMessageBox::Ok:
            return aq::Answer::Ok;
        case QMessageBox::Retry:
            return aq::Answer::Retry;
        default:
            return aq::Answer::Cancel;
    }
}
}  // namespace

void QtUi::ShowMessage(const std::string& text, const std::string& title) {
    QMessageBox box(QMessageBox::Information, QString::fromStdString(title), messageText(text), QMessageBox::Ok,
                    parent_);
    box.exec();
}

aq::Answer QtUi::AskYesNo(const std::string& text, const std::string& title) {
    return ask(parent_, text, title, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
}

aq::Answer QtUi::AskYesNoCancel(const std::string& text, const std::string& title) {
    return ask(parent_, text, title, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
}

aq::Answer QtUi::AskOkCancel(const std::string& text, const std::string& title) {
    return ask(parent_, text, title, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok);
}

aq::Answer QtUi::AskRetryCancel(const std::string& text, const std::string& title) {
    return ask(parent_, text, title, QMessageBox::Retry | QMessageBox::Cancel, QMessageBox::Retry);
}

std::string QtUi::AskText(const std::string& prompt, const std::string& title, const std::string& defaultText) {
    bool ok = false;
    QString s = QInputDialog::getText(parent_, QString::fromStdString(title), messageText(prompt), QLineEdit::Normal,
                                      QString::fromStdString(defaultText), &ok);
    return ok ? s.toStdString() : std::string();
}

namespace {
// Qt's own dialog (where there is no native one) makes its size and date columns too
// narrow for their text: they get the width of theirs, the name the rest.
void widenColumns(QFileDialog& dlg) {
    auto* tree = dlg.findChild<QTreeView*>("treeView");
    if (!tree) return;
    QHeaderView* head = tree->header();
    const QFontMetrics fm(tree->font());
    // The header's margins and its sort arrow.
    const int pad = 2 * head->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, head) + fm.height() + 8;
    const QString date =
        QLocale::system().toString(QDateTime(QDate(2000, 12, 28), QTime(23, 59, 59)), QLocale::ShortFormat);
    const int widths[3] = {fm.horizontalAdvance(QLocale::system().formattedDataSize(888888888)),
                           std::max(fm.horizontalAdvance("unknown"), fm.horizontalAdvance("Folder")),
                           fm.horizontalAdvance(date)};
    int others = 0;
    for (int k = 0; k < 3; ++k) {
        head->resizeSection(k + 1, std::max(head->sectionSize(k + 1), widths[k] + pad));
        others += head->sectionSize(k + 1);
    }
    head->resizeSection(0, std::max(head->sectionSize(0), tree->viewport()->width() - others));
}

std::string chooseFile(QWidget* parent, bool save, const std::string& folder, const std::string& name,
                       const std::string& extension, const std::string& description, const std::string& title) {
    QFileDialog dlg(parent, QString::fromStdString(title));
    dlg.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // A name that does not exist is returned too: the callers tell the user "File Not Found".
    dlg.setFileMode(QFileDialog::AnyFile);
    // The save dialog asks nothing about a file that exists: the callers ask.
    if (save) dlg.setOption(QFileDialog::DontConfirmOverwrite);
    QStringList filters = nameFilters(extension, description);
    dlg.setNameFilters(filters);
    if (filters.size() > 1) dlg.selectNameFilter(filters[1]);
    if (!folder.empty() && QDir(QString::fromStdString(folder)).exists())
        dlg.setDirectory(QString::fromStdString(folder));
    if (!name.empty()) dlg.selectFile(QString::fromStdString(name));
    // Qt's own dialog opens big enough for the name, size and date of each file.
    dlg.setViewMode(QFileDialog::Detail);
    if (QScreen* screen = parent ? parent->screen() : QGuiApplication::primaryScreen())
        dlg.resize(QSize(960, 600).boundedTo(screen->availableGeometry().size() * 0.9));
    QTimer::singleShot(0, &dlg, [&dlg] { widenColumns(dlg); });  // once it is laid out
    if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return {};
    return QDir::toNativeSeparators(dlg.selectedFiles().first()).toStdString();
}
}  // namespace

std::string QtUi::ChooseOpenFile(const std::string& folder, const std::string& name, const std::string& extension,
                                 const std::string& description, const std::string& title) {
    return chooseFile(parent_, false, folder, name, extension, description, title);
}

std::string QtUi::ChooseSaveFile(const std::string& folder, const std::string& name, const std::string& extension,
                                 const std::string& description, const std::string& title) {
    // The save dialog keeps the name of its last answer when it is given none; only the
    // open dialog starts with an empty name.
    std::string shown = name.empty() ? lastSaveName_ : name;
    std::string chosen = chooseFile(parent_, true, folder, shown, extension, description, title);
    if (!chosen.empty()) lastSaveName_ = QFileInfo(QString::fromStdString(chosen)).fileName().toStdString();
    return chosen;
}

void QtUi::YieldToUi() { QCoreApplication::processEvents(QEventLoop::AllEvents, 50); }

void QtUi::SetWaitCursor(bool on) {
    if (on) {
        if (waitDepth_++ == 0) QApplication::setOverrideCursor(Qt::WaitCursor);
    } else if (waitDepth_ > 0 && --waitDepth_ == 0) {
        QApplication::restoreOverrideCursor();
    }
}

}  // namespace aqapp
