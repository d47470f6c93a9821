#include "foodeditor/FoodList.h"

#include <cstdio>

#include "base/NumberText.h"

namespace aq {

std::string FoodLineText(const FoodBit& f) {
    char family[8];
    std::snprintf(family, sizeof family, "%X", static_cast<unsigned>(f.family));
    return std::string("{") + family + "} Food bit @ " + NumberText(f.x) + "X, " + NumberText(f.y) + "Y. ";
}

void listPoolFood(App& app, int index) {
    BusyScope busy(app);
    std::string line = FoodLineText(app.openPool.food[static_cast<std::size_t>(index)]);
    CheckList& list = app.lstPoolFood;
    if (list.count() <= index)
        list.insert(index, std::move(line));
    else
        list.setText(index, std::move(line));
}

void populateFoodList(App& app) {
    CheckList& list = app.lstPoolFood;
    list.setVisible(false);
    for (int i = 0; i < app.openPool.foodCount; ++i) listPoolFood(app, i);
    list.setVisible(true);
    int keep = app.openPool.foodCount > 0 ? app.openPool.foodCount : 0;
    while (list.count() > keep) list.remove(list.count() - 1);
}

}  // namespace aq
