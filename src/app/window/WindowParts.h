#pragma once
// What the main window has around the program's own controls: keyboard shortcuts,
// the status bar, files opened from outside, the remembered geometry and the icon.
#include <QIcon>
#include <QString>
#include <QStringList>
#include <memory>

class QSettings;

namespace aqapp {

class MainWindow;

// Installs all of the parts below; the window calls it once its tabs exist.
void installWindowParts(MainWindow& w);

// Ctrl+O, Ctrl+S, Ctrl+Shift+S, Ctrl+Alt+S, Delete on the pool's two tabs, F1 and "E&xit"
// (Ctrl+Q) in "&File". (Ctrl+1..6 are the Mode menu's, set with it.)
void installShortcuts(MainWindow& w);
// Alt letters for the tabs' buttons, check boxes and option frames, clear of the menu bar's.
void installMnemonics(MainWindow& w);
// The caption of a control with its Alt letter marked, for a caption set after installMnemonics.
QString withMnemonic(const QString& name, const QString& caption);
// The bar under the window: file, changed mark, counts, ticks, species progress.
void installStatusLine(MainWindow& w);
// Dropped files and the "&Recent Pool Files" menu.
void installFileOpening(MainWindow& w);
// Window geometry, the map toggle and the splitter, restored now, kept on closing.
void installWindowMemory(MainWindow& w);

// Opens files given from outside (the command line, a drop): a pool file on the
// drifter tab through the normal load, a DNA file or a folder on the drifter files tab.
void openFiles(MainWindow& w, const QStringList& paths);

// The window's own settings (geometry, recent files), in the user's configuration
// folder; aqfm.ini keeps only the lines the program has always written.
std::unique_ptr<QSettings> windowSettings();

// The program's icon, drawn at the sizes a desktop asks for.
QIcon appIcon();

}  // namespace aqapp
