#pragma once
// The archive list's three check buttons and the caption of the archive button.
#include <string>

#include "state/App.h"

namespace aq {

// Each checks its entries when half or fewer of them are checked, else clears them.
void cmdLstArchiveAll(App& app);
void cmdLstArchiveAllDrifter(App& app);
void cmdLstArchiveAllPool(App& app);

// "Copy Selected Files to Archive" when chkDeleteOriginal is 0, else "Move ...".
std::string copyToArchiveCaption(const ArchiveOptions& options);

}  // namespace aq
