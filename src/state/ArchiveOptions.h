#pragma once
// The archive tab's controls as plain data: the eight entries of lstArchive with
// their ticks and the four option boxes. The settings file keeps them between runs.
#include <string>

#include "base/CheckList.h"

namespace aq {

struct ArchiveOptions {
    ArchiveOptions() {
        for (const char* name : {"Drifter_1.DNA", "Drifter_2.DNA", "Drifter_3.DNA", "Drifter_4.DNA", "Pool_1.AQP",
                                 "Pool_2.AQP", "Pool_3.AQP", "Pool_4.AQP"})
            lstArchive.add(name);
    }
    CheckList lstArchive;
    // Check box values: 0 off, 1 on, 2 the third state (counts as on).
    int chkAutoName = 0;
    int chkNowName = 1;
    int chkDeleteOriginal = 1;
    int chkAutoBackup = 0;
    std::string lblArchiveInstruct = "Welcome to the Aquarium File Manager.";
};

}  // namespace aq
