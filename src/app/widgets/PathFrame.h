#pragma once
// FrmTa(0), "Directory Paths": the simulator's folder and the two archive folders,
// each a combo box with its list of alternatives and a button that browses.
#include <QGroupBox>
#include <functional>

class QComboBox;
class QPushButton;

namespace aq {
struct App;
}

namespace aqapp {

class PathFrame : public QGroupBox {
    Q_OBJECT
public:
    PathFrame(aq::App& app, QWidget* parent);
    // Shows the boxes' texts and lists as the core holds them.
    void refresh();
    QComboBox* box(int i) const { return boxes_[i]; }
    // Asks for a folder for box `i`, starting at `start`; "" keeps the box as it was.
    // While the browser is open the box follows the folder on show. Tests replace it.
    std::function<QString(int i, const QString& start)> chooseFolder;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void onButton(int i);
    QString browse(int i, const QString& start);
    std::string& text(int i);
    void setBoxText(int i, const QString& t);

    aq::App& app_;
    QComboBox* boxes_[3] = {};
    QPushButton* buttons_[3] = {};
    QString lastPathText_;
    bool syncing_ = false;
};

}  // namespace aqapp
