// The help line of the "Startup Pool" tab: one text per control the pointer is over.
#include <string>
#include <string_view>

#include "generator/StartupSettings.h"

namespace aq {

const char* const kStartupHelpStart =
    "Select a Seed Number and click the Generate Pool button.  Then save your new Startup Pool file.";

namespace {

constexpr const char* kCrLf = "\r\n";

std::string foodPlaceHelp() {
    return std::string(
               "If you select Gathered food placement, the food will be placed very close to the center of the "
               "pool when the Startup Pool is generated.") +
           kCrLf +
           "If you select Centrally Scattered, the food will be scattered near the center of the pool, when the new "
           "Startup Pool is generated." +
           kCrLf +
           "If you select Spiral food placement, the food will be placed in a spiral near the center of the pool." +
           kCrLf +
           "If you select Evenly Distributed food placement, the food will be scattered across the entire new pool." +
           kCrLf +
           "If you select Peripheral food placement, the food will be placed near the outer edges of the new pool.";
}

std::string poolTypeHelp() {
    return std::string(
               "Select the Test Startup Pool if you would like a simple pool with a small sampling of drifters.") +
           kCrLf +
           "Select the Ordered Startup Pool if you would like to begin with many identical drifters and little or no "
           "variety." +
           kCrLf + "Select the Chaotic Startup Pool for a larger variety of drifter types." + kCrLf +
           "The drifters are selected from a small set, and were pre-evolved." +
           "  The exception is drifter #0, also known as " + "\"" + "The Dot" + "\"" +
           " which is a single celled drifter with the simplest genetic code possible in Aquarium.";
}

std::string wallPlaceHelp() {
    return std::string(
               "If you select Double Vertical wall placement, the generated startup pool will have two vertical "
               "walls.") +
           kCrLf +
           "If you select Default wall placement, the generated startup pool will have one vertical wall  and one "
           "horizontal wall." +
           kCrLf +
           "If you select Double Horizontal wall placement, the generated startup pool will have two horizontal walls.";
}

std::string drifterPlaceHelp() {
    return std::string(
               "If you select Random drifter placement, the drifters will be scattered near the center of the "
               "pool when the Startup Pool is generated.") +
           kCrLf +
           "If you select Central Ring, the drifters will be placed in a circle near the center of the pool, when the "
           "new Startup Pool is generated." +
           kCrLf +
           "If you select Peripheral drifter placement, the drifters will be placed near the outer edges of the new "
           "pool." +
           kCrLf +
           "These settings will take effect when the Generate Pool Now button is clicked to generate a new Startup "
           "Pool.";
}

}  // namespace

std::string startupHelpText(std::string_view control) {
    std::string_view group = control.substr(0, control.find('('));
    if (group == "chkStartupSplitPool")
        return "A checkmark in the Split Pool checkbox will cause the contents of the new Startup Pool to be divided "
               "up "
               "eight ways around the center when the pool is generated.";
    if (group == "chkStartupExtraFood")
        return "A checkmark in the Extra Food checkbox will cause the Generate Pool Now button to supply twice as much "
               "food in the new pool as it would otherwise.";
    if (group == "chkStartupExtraDrifters")
        return "A checkmark in the Extra Drifters checkbox will cause the Generate Pool Now button to place twice as "
               "many drifters in the new pool as it would otherwise.";
    if (group == "txtSeedNumber")
        return "Select a Seed Number before clicking the Generate Pool button. The seed number can by typed in "
               "directly "
               "or adjusted using the buttons provided just below the text-box.";
    if (group == "cmdRewSeed" || group == "cmdFfSeed")
        return "The seed number can by typed in directly or adjusted using the buttons provided just below the "
               "text-box.";
    if (group == "cmdStartupRnd")
        return "Clicking the Randomize Settings button will select a seed number at random, along with randomly "
               "selected settings for pool type, food placement, wall placement, and drifter placement.";
    if (group == "cmdNewStartupPool")
        return std::string(
                   "Select a Seed Number and click the [Generate Pool Now] button to generate a pool "
                   "corresponding to that seed number. The generated pool can then be edited and saved as if "
                   "it had been loaded from a file.") +
               kCrLf + kCrLf + "Caution: Depending on the settings used, it may take a while to generate the new pool.";
    if (group == "frStartupFoodPlace")
        return "Select how you would like the Food placed in the new Startup Pool to be generated.";
    if (group == "frStartupPoolType") return "Select the type of Startup Pool to be generated.";
    if (group == "frStartupWallPlace")
        return "Select the configuration of Great Walls for the Startup Pool to be generated.";
    if (group == "frStartupDrifterPlace")
        return "Select how you would like the Drifters placed in the new Startup Pool to be generated.";
    if (group == "optFoodPlace") return foodPlaceHelp();
    if (group == "optPoolType") return poolTypeHelp();
    if (group == "optWallPlace") return wallPlaceHelp();
    if (group == "optDrifterPlace") return drifterPlaceHelp();
    return "";
}

}  // namespace aq
