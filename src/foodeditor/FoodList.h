#pragma once
// The lines of lstPoolFood: one per food bit of openPool.
#include <string>

#include "format/Records.h"
#include "state/App.h"

namespace aq {

// "{family in hex} Food bit @ xX, yY. " (the trailing blank belongs to the line).
std::string FoodLineText(const FoodBit& f);

// Writes food bit `index`'s line to its row, adding the row when the list is shorter.
void listPoolFood(App& app, int index);

// Brings lstPoolFood in step with openPool; remaining rows keep their ticks.
void populateFoodList(App& app);

}  // namespace aq
