#pragma once
// The notice window (dlgNotification) as the long passes see it: they set its text
// and show it without waiting, and it goes by itself once they are done.
#include <string>

namespace aq {

class Notice {
public:
    virtual ~Notice() = default;
    // Sets the text and shows the window; the caller goes on running.
    virtual void show(const std::string& text) { (void)text; }
    // A stir keeps the window up for another 5 seconds.
    virtual void stir() {}
    virtual void hide() {}
};

}  // namespace aq
