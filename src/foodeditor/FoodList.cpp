#include "foodeditor/FoodList.h"

namespace aq {

// The food tab fills this in; until then the list stays empty.
void populateFoodList(App& /*app*/) {}

}  // namespace aq
