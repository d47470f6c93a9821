#pragma once
// Which Selection menu items are enabled on which tab.
#include <string>
#include <utility>
#include <vector>

namespace aq {

// The Enabled state of every item updateMenu sets, for the selected tab (1..6)
// and the check of mEnable.
std::vector<std::pair<std::string, bool>> updateMenu(int selectedTab, bool all);

}  // namespace aq
