#pragma once
// The Ui services as Qt dialogs.
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include "base/Ui.h"

namespace aqapp {

class QtUi : public aq::Ui {
public:
    void setParentWidget(QWidget* w) { parent_ = w; }
    void ShowMessage(const std::string& text, const std::string& title) override;
    aq::Answer AskYesNo(const std::string& text, const std::string& title) override;
    aq::Answer AskYesNoCancel(const std::string& text, const std::string& title) override;
    aq::Answer AskOkCancel(const std::string& text, const std::string& title) override;
    aq::Answer AskRetryCancel(const std::string& text, const std::string& title) override;
    std::string AskText(const std::string& prompt, const std::string& title, const std::string& defaultText) override;
    std::string ChooseOpenFile(const std::string& folder, const std::string& name, const std::string& extension,
                               const std::string& description, const std::string& title) override;
    std::string ChooseSaveFile(const std::string& folder, const std::string& name, const std::string& extension,
                               const std::string& description, const std::string& title) override;
    void YieldToUi() override;
    void SetWaitCursor(bool on) override;

private:
    QPointer<QWidget> parent_;
    int waitDepth_ = 0;
    std::string lastSaveName_;
};

// Text in messages uses CR LF line breaks; Qt wants LF.
QString messageText(const std::string& text);
// The file dialogs' filter list as Qt name filters, "All Files" first.
QStringList nameFilters(const std::string& extension, const std::string& description);

}  // namespace aqapp
