#pragma once
// The main window's menu tree: every item with its object name, caption and check.
#include <QMainWindow>

namespace aqapp {

// Builds the menus of `window`; each item is a QAction (or a QMenu for submenus)
// whose object name is the item's name, so features find them with findChild.
void buildMenuTree(QMainWindow* window);

}  // namespace aqapp
