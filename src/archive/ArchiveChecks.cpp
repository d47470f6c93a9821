#include "archive/ArchiveChecks.h"

namespace aq {

namespace {

// Entries [from, to) are checked when at most `limit` of them are, else cleared.
void toggleRange(App& app, int from, int to, int limit) {
    CheckList& list = app.archive.lstArchive;
    BusyScope busy(app);
    int current = list.currentIndex();
    int checked = 0;
    for (int i = from; i < to; ++i) checked += list.checked(i) ? 1 : 0;
    bool on = checked <= limit;
    for (int i = from; i < to; ++i) list.setChecked(i, on);
    list.setCurrentIndex(current);
}

}  // namespace

void cmdLstArchiveAll(App& app) {
    int count = app.archive.lstArchive.count();
    toggleRange(app, 0, count, count / 2);
}

void cmdLstArchiveAllDrifter(App& app) {
    int count = app.archive.lstArchive.count();
    toggleRange(app, 0, count / 2, count / 4);
}

void cmdLstArchiveAllPool(App& app) {
    int count = app.archive.lstArchive.count();
    toggleRange(app, count / 2, count, count / 4);
}

std::string copyToArchiveCaption(const ArchiveOptions& options) {
    return options.chkDeleteOriginal == 0 ? "Copy Selected Files to Archive" : "Move Selected Files to Archive";
}

}  // namespace aq
