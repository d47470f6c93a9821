#pragma once
// The morphology key: a drifter's body plan as a short text. Drifters with equal keys
// count as the same shape.
#include <string>

#include "format/Records.h"

namespace aq {

// Segment count, colours and branching; unless `shortKey`, the length and mass classes
// and (with `detailed`) the taper of the body, compressed when asked. An index outside
// the pool gives "".
std::string DrifterKey(const Pool& pool, int index, bool shortKey, bool compressed, bool detailed);

// The key of `d`, appended to `out`; for callers that make many keys in one buffer.
void appendDrifterKey(std::string& out, const DrifterRec& d, bool shortKey, bool compressed, bool detailed);

// The compressed key and the compressed detailed key, on two lines.
std::string DrifterKeyPair(const Pool& pool, int index);

// Runs of one character become one; then "0}" becomes "}".
std::string CompressKey(const std::string& text);

}  // namespace aq
