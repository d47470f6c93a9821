#pragma once
// The 49 genomes of the default pool: a family tree whose species come out as the
// program's documentation shows them.
#include "format/Records.h"
#include "Rng.h"

void buildGenomes(aq::Pool& pool, Rng& rng);
