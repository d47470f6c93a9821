#include "shell/MenuState.h"

namespace aq {

std::vector<std::pair<std::string, bool>> updateMenu(int tab, bool all) {
    std::vector<std::pair<std::string, bool>> items;
    auto onTab = [&](int t, std::initializer_list<const char*> names) {
        for (const char* n : names) items.emplace_back(n, tab == t || all);
    };
    auto offTab = [&](int t, const char* name) { items.emplace_back(name, tab != t || all); };
    offTab(4, "mSelectSwitchFood");
    onTab(4, {"mSelectFoodInvert", "mSelectFoodDelete"});
    offTab(3, "mSelectSwitchPool");
    onTab(3, {"mSelectPoolInvert", "mSelectKill", "mSelectRevive", "mSelectPoolFeed", "mSelectPoolMove",
              "mSelectPoolDelete", "mSelect"});
    offTab(5, "mSelectSwitchDrifter");
    onTab(5, {"mSelectDrifterInvert", "mSelectDrifterMove", "mSelectDrifterDelete"});
    return items;
}

}  // namespace aq
