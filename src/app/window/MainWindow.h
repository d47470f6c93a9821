#pragma once
// frmAqFile: six tabs over the "Directory Paths" frame, the menu tree and the
// background timer.
#include <QMainWindow>
#include <QTimer>
#include <memory>
#include <vector>

#include "state/App.h"
#include "shell/MultiTask.h"

class QTabWidget;
class QComboBox;

namespace aqapp {

class TabFrame;
class MapPanel;
class PathFrame;
class EditMenu;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    // `programFolder` holds the settings file and the simulator hand-over file.
    // `homeFolder`, the program's own folder, is where the folder search and the dialogs
    // start; empty means `programFolder`.
    MainWindow(aq::Ui& ui, aq::Clock& clock, const QString& programFolder, QWidget* parent = nullptr,
               const QString& homeFolder = {});
    ~MainWindow() override;

    aq::App& app() { return *app_; }
    // A menu item by name; submenus answer with their menu's action.
    QAction* menuItem(const QString& name) const;
    // Runs `fn` when the named menu item is triggered.
    void onMenu(const QString& name, std::function<void()> fn);

    int selectedTab() const;  // 1..6
    void selectTab(int tab);
    void updateMenuState();
    // Brings every tab in step with the core state.
    void refreshAll();
    bool frameShown(int index) const;
    QTimer& multiTaskTimer() { return tmrMultiTask_; }
    MapPanel* mapPanel() { return mapPanel_; }
    PathFrame* pathFrame() const { return pathFrame_; }
    EditMenu& editMenu() const { return *edits_; }

    static const char* const kCaption;

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void tick();

    std::unique_ptr<aq::App> app_;
    QTabWidget* tabs_ = nullptr;
    std::vector<TabFrame*> frames_;  // index k-1 is FrmTa(k)
    QTimer tmrMultiTask_;
    aq::MultiTask task_;
    MapPanel* mapPanel_ = nullptr;
    PathFrame* pathFrame_ = nullptr;
    EditMenu* edits_ = nullptr;
};

}  // namespace aqapp
