#pragma once
// The services every operation uses instead of a window system. The app implements
// them with Qt dialogs; tests script them word for word.
#include <string>

namespace aq {

inline constexpr const char* kAppTitle = "Aquarium File Manager";

enum class Answer { Ok, Cancel, Yes, No, Retry };

class Ui {
public:
    virtual ~Ui() = default;
    virtual void ShowMessage(const std::string& text, const std::string& title = kAppTitle) = 0;
    virtual Answer AskYesNo(const std::string& text, const std::string& title = kAppTitle) = 0;
    virtual Answer AskYesNoCancel(const std::string& text, const std::string& title = kAppTitle) = 0;
    virtual Answer AskOkCancel(const std::string& text, const std::string& title = kAppTitle) = 0;
    virtual Answer AskRetryCancel(const std::string& text, const std::string& title = kAppTitle) = 0;
    // Returns "" when cancelled.
    virtual std::string AskText(const std::string& prompt, const std::string& title, const std::string& defaultText) = 0;
    // File dialogs: every argument may be empty; the result is "" when cancelled.
    virtual std::string ChooseOpenFile(const std::string& folder, const std::string& name, const std::string& extension,
                                       const std::string& description, const std::string& title) = 0;
    virtual std::string ChooseSaveFile(const std::string& folder, const std::string& name, const std::string& extension,
                                       const std::string& description, const std::string& title) = 0;
    // Lets waiting window events run (timer ticks and user events included).
    virtual void YieldToUi() = 0;
    virtual void SetWaitCursor(bool on) = 0;
};

// Shows the wait cursor for a scope.
class WaitCursor {
public:
    explicit WaitCursor(Ui& ui) : ui_(ui) { ui_.SetWaitCursor(true); }
    ~WaitCursor() { ui_.SetWaitCursor(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    Ui& ui_;
};

}  // namespace aq
