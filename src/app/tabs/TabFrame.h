#pragma once
// One tab's frame, FrmTa(k): a group box with the frame's caption. Each tab is its
// own class; it builds its controls, connects its menu items and refreshes itself.
#include <QGroupBox>

namespace aq {
struct App;
}

namespace aqapp {

class MainWindow;

class TabFrame : public QGroupBox {
    Q_OBJECT
public:
    TabFrame(MainWindow& window, int index, const QString& caption);
    int frameIndex() const { return index_; }
    // Brings the widgets in step with the core state after an operation.
    virtual void refresh() {}

protected:
    MainWindow& window_;
    aq::App& app_;

private:
    int index_;
};

// The six tabs' frames.
TabFrame* makeArchiveTab(MainWindow& w);
TabFrame* makeStartupTab(MainWindow& w);
TabFrame* makePoolDriftersTab(MainWindow& w);
TabFrame* makePoolFoodTab(MainWindow& w);
TabFrame* makeDrifterFilesTab(MainWindow& w);
TabFrame* makeSeriesTab(MainWindow& w);

}  // namespace aqapp
