#include "files/PoolOps.h"

#include <cstring>
#include <filesystem>

#include "format/PoolFile.h"

namespace aq {

bool loadPoolFile(App& app, const std::string& path, bool intoOpen) {
    std::error_code ec;
    if (path.empty() || !std::filesystem::exists(path, ec)) return false;
    WaitCursor wait(app.ui);
    // Read into a fresh pool so a bad file never leaves workPool half-written.
    Pool fresh;
    PoolReadResult r = readPool(path, fresh);
    if (r.status == PoolReadStatus::NotFound) return false;
    if (r.status == PoolReadStatus::BadVersion) {
        app.ui.ShowMessage("Not a Aquarium 4 or 5 data file");
        return false;
    }
    if (r.status == PoolReadStatus::Error) {
        app.ui.ShowMessage("Error opening " + path + ", error: " + r.error, "Aquarium File Manager - Load Pool File");
        return false;
    }
    app.workPool = std::move(fresh);
    if (intoOpen) {
        if (!app.uiBusy) app.poolLoaded = true;
        app.openPool = app.workPool;
        app.poolFiles.note(path, app.openPool);
        ++app.poolReads;
    }
    return true;
}

bool savePoolFile(App& app, const std::string& path, bool fromOpen) {
    if (fromOpen) app.workPool = app.openPool;
    if (path.empty()) return false;
    std::error_code ec;
    std::filesystem::path p(path);
    if (!std::filesystem::exists(p, ec) && p.has_parent_path())
        std::filesystem::create_directory(p.parent_path(), ec);  // a failure shows in the write below
    WaitCursor wait(app.ui);
    std::string error = writePool(path, app.workPool);
    if (!error.empty()) {
        app.ui.ShowMessage("Error saving " + path + ", error: " + error, "Aquarium File Manager - Save Pool File");
        return false;
    }
    if (fromOpen)
        app.poolFiles.note(path, app.workPool);
    else
        app.poolFiles.update(path, app.workPool);
    return true;
}

void loadDefaultPool(App& app) {
    WaitCursor wait(app.ui);
    auto bytes = defaultPoolBytes();
    std::int32_t version = 0;
    if (bytes.size() >= 4) std::memcpy(&version, bytes.data(), 4);
    PoolReadResult r;
    if (version == 4) r = parsePool(bytes, app.defaultPool);
    if (version != 4 || r.status != PoolReadStatus::Ok) {
        app.defaultPoolUsable = false;
        app.ui.ShowMessage("Error loading default pool. Not a Aquarium 4 data file");
        return;
    }
    app.defaultPoolUsable = true;
}

}  // namespace aq
