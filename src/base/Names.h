#pragma once
// Name helpers that need no dialog and no program state: names made unique in a
// folder, text replacement, and the file dialogs' filters.
#include <string>

#include "base/CheckList.h"

namespace aq {

// `name` with ".0", ".1", ... before its extension: the first that no file in `folder` has.
std::string uniqueFileName(const std::string& folder, const std::string& name);
// Every match of `pattern` (case-sensitive, multi-line) replaced; `text` unchanged
// when nothing matches or the pattern is not valid.
std::string regexReplace(const std::string& text, const std::string& pattern, const std::string& replacement,
                         bool ignoreCase = false);
int selectedCount(const CheckList& list);

// The filter list of a file dialog: "label|pattern|label|pattern...", and the
// extension in the form the dialogs take it (lower case, no dot).
std::string dialogExtension(const std::string& extension);
std::string fileDialogFilter(const std::string& extension, const std::string& description);

}  // namespace aq
