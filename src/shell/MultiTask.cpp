#include "shell/MultiTask.h"

#include "base/Clock.h"
#include "dnaeditor/DrifterFiles.h"
#include "foodeditor/FoodThreshold.h"
#include "pooleditor/SpeciesPass.h"

namespace aq {

void tmrMultiTaskTick(App& app, MultiTask& task, FramesShown shown) {
    if (task.restart) {
        task.phase = -1;
        task.restart = false;
        if (--task.sweep < 0) task.sweep = 3;
    }
    ++task.phase;
    auto typedLongAgo = [&] { return elapsedSeconds(app.lastThresholdEdit, app.clock.secondsSinceMidnight()) > 5.0; };
    switch (task.phase) {
        case 0:
            if (app.poolSpeciesPending) speciatePoolList(app);
            break;
        case 1:
            if (app.speciesPending) speciateDrifterList(app);
            break;
        case 2:
            if ((shown.frame3 || task.sweep == 0) && app.poolThresholdTyped) {
                validatePoolSpeciesThreshold(app);
                if (typedLongAgo()) scrollPoolSpeciesThresholdChange(app);
            }
            break;
        case 3:
            // The food threshold is read while the drifter frame is on show, as it always was.
            if ((shown.frame3 || task.sweep == 0) && app.foodThresholdTyped) {
                validateFoodThreshold(app);
                if (typedLongAgo()) scrollFoodThresholdChange(app);
            }
            break;
        case 4:
            if ((shown.frame4 || task.sweep == 0) && app.drifterThresholdTyped) {
                validateDrifterSpeciesThreshold(app);
                if (typedLongAgo()) scrollDrifterSpeciesThresholdChange(app);
            }
            break;
        default:
            task.restart = true;
            break;
    }
    if (app.openPool.drifterCount == 1) {
        app.poolSpeciesPending = false;
        app.lstSpeciatePool.setVisible(true);
    }
    if (!app.poolSpeciesPending && !app.speciesPending) app.lstSpeciatePool.setEnabled(true);
}

bool noticeMayFade(App& app, double lastStir) {
    return elapsedSeconds(lastStir, app.clock.secondsSinceMidnight()) > 5.0 && app.lstSpeciatePool.enabled() &&
           app.lstSpeciateDrifters.enabled();
}

}  // namespace aq
