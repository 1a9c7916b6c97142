// The menu of what tells about the program.
#pragma once

class QMainWindow;

namespace NolSchedCtls {

// Adds it to the window's menus, after the others: what they offer stands among the keys.
void AddHelpMenu(QMainWindow& window);

}  // namespace NolSchedCtls
