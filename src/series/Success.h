#pragma once
// How successful a drifter was: its score, and the norm that makes scores of
// different pools comparable.
#include <string>

#include "format/Records.h"

namespace aq {

// Length alone for the dead; for the living, meals, offspring and age, less for
// short and motionless bodies.
float SuccessScore(const Pool& pool, int index);
float SuccessScore(const DrifterRec& d);
// The best of a per-drifter figure over the pool, at least 1; -1 when a record has no segments.
float SuccessNorm(const Pool& pool);
// That figure for one drifter with at least one segment.
float SuccessNormFigure(const DrifterRec& d);
// Two keys of one or more lines count as one body shape when any line matches its
// counterpart; an empty key matches nothing.
bool SameMorph(const std::string& keyA, const std::string& keyB);

}  // namespace aq
