// The Alt letters of the tabs' own controls. The captions stay the program's words; a
// letter is only underlined. None is a letter of the menu bar (F, E, M, S, O, H), and
// none is used twice on one tab.
#include <QAbstractButton>
#include <QGroupBox>

#include "app/window/MainWindow.h"
#include "app/window/WindowParts.h"

namespace aqapp {

namespace {

struct Mark {
    const char* name;  // the control
    const char* word;  // the word of its caption that holds the letter, the letter after '&'
};

const Mark kMarks[] = {
    // Archive: A D Q T G N U R B.
    {"cmdLstArchiveAll", "&All"},
    {"cmdLstArchiveAllDrifter", "&DNA"},
    {"cmdLstArchiveAllPool", "A&QP"},
    {"cmdCopyToArchive", "&to"},
    {"chkDeleteOriginal", "Ori&ginal"},
    {"chkAutoName", "Auto-&name"},
    {"chkNowName", "&Using"},
    {"cmdReplaceFromArchive", "&Replace"},
    {"chkAutoBackup", "&backup"},
    // Startup pool: T P D W L X I R G; a frame's letter reaches its chosen option.
    {"frStartupPoolType", "&Type"},
    {"frStartupFoodPlace", "&Placement"},
    {"frStartupDrifterPlace", "&Drifter"},
    {"frStartupWallPlace", "&Walls"},
    {"chkStartupSplitPool", "Sp&lit"},
    {"chkStartupExtraFood", "E&xtra"},
    {"chkStartupExtraDrifters", "Dr&ifters"},
    {"cmdStartupRnd", "&Randomize"},
    {"cmdNewStartupPool", "&Generate"},
    // Series: N T R A L U B P C W.
    {"cmdCreateSeriesNow", "&Now"},
    {"cmdCreateSeriesStop", "S&top"},
    {"cmdCreateSeriesRestart", "&Restart"},
    {"cmdCreateSeriesNext", "&and"},
    {"chkPlague", "A&llow"},
    {"chkGetSuc", "&Upon"},
    {"chkBranchingSeries", "&Branching"},
    {"optionCreateSeriesPrompt", "&prompt"},
    {"optionContinueSeries", "&Continue"},
    {"optionCreateSeriesOverwrite", "&without"},
};

bool isLetter(const QString& s, qsizetype i) { return i >= 0 && i < s.size() && s[i].isLetter(); }

}  // namespace

QString withMnemonic(const QString& name, const QString& shown) {
    // The program's captions hold no '&' of their own: one there is a mark set before.
    const QString caption = QString(shown).remove('&');
    for (const Mark& m : kMarks) {
        if (name != QLatin1String(m.name)) continue;
        const QString marked = QString::fromUtf8(m.word);
        const QString word = QString(marked).remove('&');
        // The word whole, not inside a longer one.
        for (qsizetype at = caption.indexOf(word); at >= 0; at = caption.indexOf(word, at + 1))
            if (!isLetter(caption, at - 1) && !isLetter(caption, at + word.size()))
                return QString(caption).replace(at, word.size(), marked);
    }
    return caption;
}

void installMnemonics(MainWindow& w) {
    for (const Mark& m : kMarks) {
        if (auto* b = w.findChild<QAbstractButton*>(m.name))
            b->setText(withMnemonic(m.name, b->text()));
        else if (auto* g = w.findChild<QGroupBox*>(m.name))
            g->setTitle(withMnemonic(m.name, g->title()));
    }
}

}  // namespace aqapp
