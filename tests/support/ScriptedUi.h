#pragma once
// A Ui that plays a script: each prompt the program shows must be the next one
// expected, word for word, and gets the scripted answer. Anything else is recorded
// as a failure, so a test checks `failures` and that the script was used up.
#include <deque>
#include <string>
#include <vector>

#include "base/Ui.h"

namespace aqtest {

struct Prompt {
    std::string kind;  // "message", "yesno", "yesnocancel", "okcancel", "retrycancel", "text", "open", "save"
    std::string title;
    std::string text;  // message or prompt; for file dialogs "folder|name|extension|description"
    aq::Answer answer = aq::Answer::Ok;
    std::string reply{};  // for text and file dialogs
};

class ScriptedUi : public aq::Ui {
public:
    std::deque<Prompt> script;
    std::vector<std::string> failures;
    std::vector<Prompt> seen;
    int waitDepth = 0;
    int yields = 0;

    ScriptedUi& message(std::string text, std::string title = aq::kAppTitle) {
        script.push_back({"message", std::move(title), std::move(text)});
        return *this;
    }
    ScriptedUi& ask(std::string kind, std::string text, std::string title, aq::Answer a) {
        script.push_back({std::move(kind), std::move(title), std::move(text), a});
        return *this;
    }
    ScriptedUi& text(std::string prompt, std::string title, std::string reply) {
        script.push_back({"text", std::move(title), std::move(prompt), aq::Answer::Ok, std::move(reply)});
        return *this;
    }
    // A file dialog; `details` is "folder|name|extension|description", or "*" for any.
    ScriptedUi& file(std::string kind, std::string title, std::string reply, std::string details = "*") {
        script.push_back({std::move(kind), std::move(title), std::move(details), aq::Answer::Ok, std::move(reply)});
        return *this;
    }
    bool done() const { return script.empty() && failures.empty(); }
    std::string report() const {
        std::string r;
        for (const auto& f : failures) r += f + "\n";
        for (const auto& p : script) r += "unused: " + p.kind + " [" + p.title + "] " + p.text + "\n";
        return r;
    }

    void ShowMessage(const std::string& text, const std::string& title) override { next("message", title, text); }
    aq::Answer AskYesNo(const std::string& t, const std::string& title) override { return next("yesno", title, t).answer; }
    aq::Answer AskYesNoCancel(const std::string& t, const std::string& title) override {
        return next("yesnocancel", title, t).answer;
    }
    aq::Answer AskOkCancel(const std::string& t, const std::string& title) override {
        return next("okcancel", title, t).answer;
    }
    aq::Answer AskRetryCancel(const std::string& t, const std::string& title) override {
        return next("retrycancel", title, t).answer;
    }
    std::string AskText(const std::string& prompt, const std::string& title, const std::string& def) override {
        Prompt p = next("text", title, prompt);
        return p.reply == "=default" ? def : p.reply;
    }
    std::string ChooseOpenFile(const std::string& folder, const std::string& name, const std::string& ext,
                               const std::string& desc, const std::string& title) override {
        return next("open", title, folder + "|" + name + "|" + ext + "|" + desc).reply;
    }
    std::string ChooseSaveFile(const std::string& folder, const std::string& name, const std::string& ext,
                               const std::string& desc, const std::string& title) override {
        return next("save", title, folder + "|" + name + "|" + ext + "|" + desc).reply;
    }
    void YieldToUi() override { ++yields; }
    void SetWaitCursor(bool on) override { waitDepth += on ? 1 : -1; }

private:
    Prompt next(const std::string& kind, const std::string& title, const std::string& text) {
        seen.push_back({kind, title, text});
        if (script.empty()) {
            failures.push_back("unexpected " + kind + " [" + title + "] " + text);
            return Prompt{kind, title, text, aq::Answer::Cancel};
        }
        Prompt p = script.front();
        script.pop_front();
        bool anyText = (kind == "open" || kind == "save") && p.text == "*";
        if (p.kind != kind || p.title != title || (!anyText && p.text != text))
            failures.push_back("expected " + p.kind + " [" + p.title + "] " + p.text + "\n     got " + kind + " [" +
                               title + "] " + text);
        return p;
    }
};

}  // namespace aqtest
