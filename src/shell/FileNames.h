#pragma once
// Names made from the clock, names made unique in a folder, the next name of a
// numbered series, and the file dialogs with their filters and memory.
#include <string>

#include "shell/App.h"

namespace aq {

// The date and time as a text that can stand in a file name ("2026-11-23 10'00'00").
std::string nowFileName(App& app);
// `name` with ".0", ".1", ... before its extension: the first that no file in `folder` has.
std::string uniqueFileName(const std::string& folder, const std::string& name);
// The name after `name` in a numbered series ("Pool_1.AQP" gives "Pool_2.AQP"); it
// remembers the last base and digit in `app`. `folder` is not used.
std::string nextNumberedName(App& app, const std::string& folder, const std::string& name,
                             const std::string& extension);
// Every match of `pattern` (case-sensitive, multi-line) replaced; `text` unchanged
// when nothing matches or the pattern is not valid.
std::string regexReplace(const std::string& text, const std::string& pattern, const std::string& replacement,
                         bool ignoreCase = false);
int selectedCount(const CheckList& list);

// The filter list of a file dialog: "label|pattern|label|pattern...", and the
// extension in the form the dialogs take it (lower case, no dot).
std::string dialogExtension(const std::string& extension);
std::string fileDialogFilter(const std::string& extension, const std::string& description);

// Asks for a file to write; a missing `folder` is made first. "" when cancelled.
std::string locateDestFile(App& app, const std::string& folder, const std::string& name, const std::string& extension,
                           const std::string& description, const std::string& title);
// Asks for a file to read; the callers test that it exists. "" when cancelled.
std::string locateSourceFile(App& app, const std::string& folder, const std::string& name, const std::string& extension,
                             const std::string& description, const std::string& title);

}  // namespace aq
