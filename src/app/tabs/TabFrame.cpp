#include "app/tabs/TabFrame.h"

#include "app/window/MainWindow.h"

namespace aqapp {

TabFrame::TabFrame(MainWindow& window, int index, const QString& caption)
    : QGroupBox(caption), window_(window), app_(window.app()), index_(index) {
    setObjectName(QString("FrmTa(%1)").arg(index));
}

}  // namespace aqapp
