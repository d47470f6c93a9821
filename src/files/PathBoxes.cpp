#include "files/PathBoxes.h"

#include <algorithm>
#include <filesystem>

#include "base/Paths.h"

namespace aq {

namespace fs = std::filesystem;

namespace {

// The pool box compares trimmed and in any capitals; the other two compare exactly.
void setBox(std::string& text, std::vector<std::string>& items, const std::string& path, std::int16_t position,
            bool looseText, std::unordered_set<std::string>* known = nullptr) {
    std::string t = trimmed(path);
    if (t.empty()) return;
    if (looseText) {
        if (lowered(trimmed(text)) != lowered(t)) text = t;
    } else if (text != path) {
        text = path;
    }
    std::string key = lowered(t);
    if (known) {
        if (!known->insert(key).second) return;
    } else {
        for (const auto& item : items)
            if (lowered(trimmed(item)) == key) return;
    }
    if (position > 0 && static_cast<std::size_t>(position) <= items.size())
        items.insert(items.begin() + position, t);
    else
        items.push_back(t);
}

}  // namespace

void comboAquariumPath_set(App& app, const std::string& path, std::int16_t position) {
    setBox(app.comboAquariumPath, app.comboAquariumPathItems, path, position, false);
}
void comboDrifterPath_set(App& app, const std::string& path, std::int16_t position) {
    setBox(app.comboDrifterPath, app.comboDrifterPathItems, path, position, false);
}
void comboPoolPath_set(App& app, const std::string& path, std::int16_t position) {
    setBox(app.comboPoolPath, app.comboPoolPathItems, path, position, true);
}

void pathBoxAppend(App& app, int box, const std::string& path, std::unordered_set<std::string>& known) {
    if (known.empty()) {
        const auto& items = box == 0   ? app.comboAquariumPathItems
                            : box == 1 ? app.comboDrifterPathItems
                                       : app.comboPoolPathItems;
        for (const auto& item : items) known.insert(lowered(trimmed(item)));
    }
    if (box == 0) setBox(app.comboAquariumPath, app.comboAquariumPathItems, path, -1, false, &known);
    if (box == 1) setBox(app.comboDrifterPath, app.comboDrifterPathItems, path, -1, false, &known);
    if (box == 2) setBox(app.comboPoolPath, app.comboPoolPathItems, path, -1, true, &known);
}

}  // namespace aq
