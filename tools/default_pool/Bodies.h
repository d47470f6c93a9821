#pragma once
// The 49 bodies of the default pool: segment trees, colours and corner points.
#include "format/Records.h"
#include "Rng.h"

// Segment counts must already be set; the colours of drifters 1, 12 and 35 are the
// ones the documentation shows.
void buildBodies(aq::Pool& pool, Rng& rng);
