#pragma once
// A Ui with no window: questions get the negative answer, file dialogs give no
// file and messages go nowhere unless a subclass shows them. For the CLI and
// benchmarks.
#include "base/Ui.h"

namespace aq {

class QuietUi : public Ui {
public:
    void ShowMessage(const std::string&, const std::string&) override {}
    Answer AskYesNo(const std::string&, const std::string&) override { return Answer::No; }
    Answer AskYesNoCancel(const std::string&, const std::string&) override { return Answer::Cancel; }
    Answer AskOkCancel(const std::string&, const std::string&) override { return Answer::Cancel; }
    Answer AskRetryCancel(const std::string&, const std::string&) override { return Answer::Cancel; }
    std::string AskText(const std::string&, const std::string&, const std::string&) override { return ""; }
    std::string ChooseOpenFile(const std::string&, const std::string&, const std::string&, const std::string&,
                               const std::string&) override {
        return "";
    }
    std::string ChooseSaveFile(const std::string&, const std::string&, const std::string&, const std::string&,
                               const std::string&) override {
        return "";
    }
    void YieldToUi() override {}
    void SetWaitCursor(bool) override {}
};

}  // namespace aq
