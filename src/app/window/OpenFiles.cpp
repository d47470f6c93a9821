// Files from outside the program: the command line, a drop on the window, and the
// "&Recent Pool Files" menu. They go through the same load flows as the menus.
#include <QAction>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QSettings>
#include <QUrl>

#include "app/window/EditMenu.h"
#include "app/window/MainWindow.h"
#include "app/window/WindowParts.h"
#include "dnaeditor/DrifterFiles.h"
#include "pooleditor/DrifterList.h"
#include "files/PathBoxes.h"

namespace aqapp {

namespace {

const int kRecentCount = 8;

QStringList localFiles(const QMimeData* data) {
    QStringList files;
    if (data && data->hasUrls())
        for (const QUrl& url : data->urls())
            if (url.isLocalFile()) files << url.toLocalFile();
    return files;
}

class FileOpening : public QObject {
public:
    explicit FileOpening(MainWindow& w) : QObject(&w), w_(w) {
        w.setAcceptDrops(true);
        w.installEventFilter(this);
        menu_ = new QMenu("&Recent Pool Files", &w);
        menu_->setObjectName("mRecentPools");
        menu_->menuAction()->setObjectName("mRecentPoolsAction");
        auto* poolMenu = w.findChild<QMenu*>("mFilePool");
        poolMenu->insertMenu(w.menuItem("mMergePool"), menu_);
        recent_ = windowSettings()->value("recentPoolFiles").toStringList();
        showRecent();
        connect(&w.editMenu(), &EditMenu::stepped, this, &FileOpening::noteOpenPool);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* e) override {
        if (e->type() == QEvent::DragEnter || e->type() == QEvent::DragMove) {
            auto* d = static_cast<QDropEvent*>(e);
            if (!localFiles(d->mimeData()).isEmpty()) {
                d->acceptProposedAction();
                return true;
            }
        } else if (e->type() == QEvent::Drop) {
            auto* d = static_cast<QDropEvent*>(e);
            QStringList files = localFiles(d->mimeData());
            if (!files.isEmpty()) {
                d->acceptProposedAction();
                openFiles(w_, files);
                return true;
            }
        }
        return QObject::eventFilter(watched, e);
    }

private:
    // The pool on show joins the top of the list once it belongs to a file.
    void noteOpenPool() {
        const aq::App& app = w_.app();
        if (!app.poolLoaded || app.openPoolPath.empty()) return;
        QString path = QFileInfo(QString::fromStdString(app.openPoolPath)).absoluteFilePath();
        if (!recent_.isEmpty() && recent_.front() == path) return;
        recent_.removeAll(path);
        recent_.prepend(path);
        while (recent_.size() > kRecentCount) recent_.removeLast();
        windowSettings()->setValue("recentPoolFiles", recent_);
        showRecent();
    }

    void showRecent() {
        // The entries go; the separator and "Clear List" under them stay.
        if (!clear_) {
            separator_ = menu_->addSeparator();
            clear_ = menu_->addAction("&Clear List");
            clear_->setObjectName("mRecentPoolsClear");
            connect(clear_, &QAction::triggered, this, [this] {
                recent_.clear();
                windowSettings()->remove("recentPoolFiles");
                showRecent();
            });
        }
        // Later, as the entry chosen may be the one whose signal runs this.
        for (QAction* a : menu_->actions())
            if (a != separator_ && a != clear_) {
                menu_->removeAction(a);
                a->setParent(nullptr);
                a->deleteLater();
            }
        for (int k = 0; k < recent_.size(); ++k) {
            QString path = recent_[k];
            auto* a = new QAction(QString("&%1 %2").arg(k + 1).arg(path), menu_);
            a->setObjectName(QString("mRecentPool%1").arg(k + 1));
            connect(a, &QAction::triggered, this, [this, path] { openFiles(w_, {path}); });
            menu_->insertAction(separator_, a);
        }
        clear_->setEnabled(!recent_.isEmpty());
    }

    MainWindow& w_;
    QMenu* menu_;
    QAction* separator_ = nullptr;
    QAction* clear_ = nullptr;
    QStringList recent_;
};

}  // namespace

void installFileOpening(MainWindow& w) { new FileOpening(w); }

void openFiles(MainWindow& w, const QStringList& paths) {
    QString pool, dnaFolder;
    for (const QString& p : paths) {
        QFileInfo info(p);
        if (info.isDir())
            dnaFolder = info.absoluteFilePath();
        else if (info.suffix().compare("dna", Qt::CaseInsensitive) == 0)
            dnaFolder = info.absolutePath();
        else if (pool.isEmpty())
            // Anything else is offered to the pool reader, which says what is wrong with it.
            pool = info.absoluteFilePath();
    }
    aq::App& app = w.app();
    if (!dnaFolder.isEmpty()) {
        w.selectTab(5);
        w.editMenu().step("Load Drifter Files", [&] {
            aq::comboDrifterPath_set(app, dnaFolder.toStdString());
            aq::initiateLoadDrifterArchive(app);
        });
    }
    if (!pool.isEmpty()) {
        w.selectTab(3);
        w.editMenu().step("Load Pool File", [&] { aq::initiateLoadPoolFile(app, pool.toStdString()); });
    }
    w.refreshAll();
}

}  // namespace aqapp
