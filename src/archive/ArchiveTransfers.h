#pragma once
// Moving and copying the simulator's eight working files out to the archive
// folders, and copying archived files back over them, as dialogues over the Ui.
#include <string>
#include <system_error>

#include "state/App.h"

namespace aq {

// The live name of entry `index` of lstArchive: the first half are drifter files, the
// second pool files, numbered from 1 in each half ("Drifter_3.DNA", "Pool_1.AQP").
std::string archiveLiveName(const CheckList& list, int index);

// The path of `name` in `folder`, matching a file on disk in any capitals
// ("pool_1.aqp" answers for "Pool_1.AQP"); joinPath(folder, name) when none is there.
std::string liveFilePath(const std::string& folder, const std::string& name);

// Copies `from` over `to` through a temporary file beside `to` and a rename, so `to`
// is never left half written. Returns the failure, empty on success.
std::error_code copyFileSafely(const std::string& from, const std::string& to);
// The program's error number for a failure: 53 for a missing source file, 76 for
// a folder that is not there.
int errorNumber(const std::error_code& ec, bool sourceThere);

void cmdCopyToArchive(App& app);
void cmdReplaceFromArchive(App& app);

}  // namespace aq
