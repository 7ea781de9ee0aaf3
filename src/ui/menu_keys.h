#pragma once

class QMainWindow;

namespace tessaview {

/// Lets F10 open the first menu of a window with the focus, and Shift+F10 the context menu of
/// whatever has the focus in the program, as the key of that name does, which not every keyboard
/// has. They live as long as the window.
void addMenuKeys(QMainWindow& window);

} // namespace tessaview
