#include "app/window/MenuTree.h"

#include <QMenuBar>

namespace aqapp {

namespace {

struct Item {
    int depth;  // 0 menu bar, 1 item of a menu, 2 item of a submenu...
    const char* name;
    const char* caption;
    bool submenu = false;
    bool checked = false;
    bool checkable = false;
};

const Item kMenu[] = {
    {0, "mFile", "&File", true},
    {1, "mFilePool", "&Pool File", true},
    {2, "mLoadPool", "&Load Pool File"},
    {2, "mMergePool", "&Merge in Drifters from another Pool"},
    {2, "mMergeFood", "Merge in &Food from another Pool"},
    {2, "mGetSuc", "Get Successful Drifters from Pool Archive"},
    {2, "mSavePool", "&Save Pool File"},
    {2, "mSavePoolAs", "Save Pool File &As..."},
    {1, "mFileDrifter", "&Drifter Files", true},
    {2, "mLoadDrifter", "&Load Drifter Files"},
    {2, "mImportDrifters", "&Import Drifters from Pool File"},
    {2, "mSaveSelectedDrifters", "&Save Selected Drifter Files"},
    {2, "mSaveDrifter", "&Save Changed Drifter Files"},
    {0, "mMode", "&Mode", true},
    {1, "mArchive", "&Archive"},
    {1, "mStartup", "Make Startup Pool"},
    {1, "mSpeciatePool", "Edit &Pool File Drifters"},
    {1, "mEditFood", "Edit Food within Pool File"},
    {1, "mSpeciateDrifters", "Edit &Drifter Files"},
    {1, "mCreateSeries", "Create &Series"},
    {0, "mSelection", "&Selection", true},
    {1, "mSelectFood", "&Food in Pool File", true},
    {2, "mSelectSwitchFood", "Switch to &this list"},
    {2, "mSelectFoodInvert", "&Invert Selection"},
    {2, "mSelectFoodDelete", "&Delete Selected Food"},
    {1, "mSelectPool", "Drifters in &Pool File", true},
    {2, "mSelectSwitchPool", "Switch to &this list"},
    {2, "mSelectPoolInvert", "&Invert Selection"},
    {2, "mDeSelectMutants", "Deselect Mi&norities"},
    {2, "mSelectKill", "&Kill Selected Drifters"},
    {2, "mSelectRevive", "&Revive Selected Drifters"},
    {2, "mSelectPoolFeed", "&Feed Selected Drifters"},
    {2, "mSelectPoolMove", "&Move Selected Drifters"},
    {2, "mSelectPoolDelete", "&Delete Selected Drifters"},
    {2, "mSelect", "Select", true},
    {3, "mSelectAll", "All"},
    {3, "mSelectOldest", "Oldest"},
    {3, "mSelectMostProlithic", "Most Prolithic"},
    {3, "mSelectMaternal", "Most Maternal"},
    {3, "mSelectPaternal", "Most Paternal"},
    {3, "mSelectBiggestEater", "Biggest Eater"},
    {3, "mSelectHeaviest", "Heaviest"},
    {2, "mSelectMutants", "Minorities", true},
    {3, "mSelectMutantsBySegmentCount", "By Number of Segments"},
    {3, "mSelectMutantsByBranching", "By Branching Order"},
    {3, "mSelectMutantsByColorOrder", "By Color Order"},
    {3, "mSelectMutantsByColors", "By Colors"},
    {1, "mSelectDrifter", "in Drifter &Archive", true},
    {2, "mSelectSwitchDrifter", "Switch to &this list"},
    {2, "mSelectDrifterInvert", "&Invert Selection"},
    {2, "mSelectDrifterMove", "&Move Selected Drifter Files"},
    {2, "mSelectDrifterDelete", "&Delete Selected Drifter Files"},
    {0, "mOptions", "&Options", true},
    {1, "mQuickSpec", "&Quick Speciate", false, true, true},
    {1, "mEnable", "Enable &All Menu Items", false, false, true},
    {1, "mPSO", "&Pool Series Options", true},
    {2, "mNoStill", "&Eliminate Stillborns", false, true, true},
    {2, "mNoOld", "&Always Start with Room for New Drifters", false, false, true},
    {2, "mSeriesGroup", "&Group Drifters at Start", false, false, true},
    {2, "mFeedColor", "Feed D&rifters by Color", false, false, true},
    {2, "mSeriesFeedAll", "&Feed All Drifters at Start", false, false, true},
    {2, "mSeriesFeedHungry", "Feed &Hungry Drifters", false, false, true},
    {2, "mSeriesFeedFed", "Feed Drifters &That Have Eaten Food Bits", false, false, true},
    {2, "mSeriesGatherFood", "Gather Food at &start", false, false, true},
    {2, "mSeriesCloneSuccessful", "Clone Successful Drifters at Start", false, true, true},
    {2, "mRestoreYouth", "&Restore Youth at Start", false, false, true},
    {2, "mCloneWhenExtinct", "&Clone and Retry on Pool Extinction", false, true, true},
    {2, "mNoFoodEaten", "Reset Number of Food &Bits Eaten", false, false, true},
    {2, "mNoOffspring", "Reset Number of &Offspring", false, false, true},
    {2, "mSeriesAddFood", "Add Food Near &Youngest Drifters", false, true, true},
    {2, "mSeriesGravity", "Gravitate Toward Center on &Load", false, true, true},
    {2, "mSeriesNoMutants", "Delete &Minorities Before Saving", true},
    {3, "mSeriesNoMutantsBySegmentCount", "By Number of Segments", false, false, true},
    {3, "mSeriesNoMutantsByBranching", "By Branching Order", false, false, true},
    {3, "mSeriesNoMutantsByColorOrder", "By Color Order", false, false, true},
    {3, "mSeriesNoMutantsByColors", "By Colors", false, false, true},
    {2, "mSeriesDeleteStarters", "Delete Starter D&rifters Before Saving", false, false, true},
    {2, "mDrainEdge", "&Drain Drifter Energy Near Pool's Edge", false, false, true},
    {2, "mSeriesExtinction", "Allow Pool-Wide E&xtinction", false, false, true},
    {0, "mHelp", "&Help", true},
    {1, "mHelpWelcome", "&Welcome", true},
    {2, "mHelpHelp", "&Getting Started"},
    {2, "mHelpAbout", "&About Aquarium File Manager"},
    {1, "mHelpArchive", "&Archive", true},
    {2, "mHelpArchiveHelp", "&Help"},
    {2, "mHelpArchiveAbout", "&About"},
    {1, "mHelpSpeciate", "&Speciate", true},
    {2, "mHelpSpeciateHelp", "&Help"},
};

}  // namespace

void buildMenuTree(QMainWindow* window) {
    QMenu* parents[4] = {};
    for (const Item& it : kMenu) {
        if (it.submenu) {
            QMenu* m = it.depth == 0 ? window->menuBar()->addMenu(it.caption) : parents[it.depth - 1]->addMenu(it.caption);
            m->setObjectName(it.name);
            m->menuAction()->setObjectName(QString(it.name) + "Action");
            parents[it.depth] = m;
            continue;
        }
        QAction* a = parents[it.depth - 1]->addAction(it.caption);
        a->setObjectName(it.name);
        if (it.checkable) {
            a->setCheckable(true);
            a->setChecked(it.checked);
        }
    }
}

}  // namespace aqapp
