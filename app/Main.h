#pragma once

#include "app/Folders.h"
#include "engine/Desktop.h"

namespace quillon {

/// Whoever can bring up the main window.
class MainWindowOpener {
public:
    virtual ~MainWindowOpener() = default;
    /// Builds the window and runs its whole opening. What the opening does not
    /// handle itself is thrown; a window that is on the screen by then stays there.
    virtual void openMainWindow(const Folders& folders) = 0;
};

/// Where the program begins: works out the folders, sets the user's up, opens
/// the window and looks for the companion program. A failure on the way is told
/// in a dialog and ends the routine; it never throws.
void Main(Desktop& desktop, MainWindowOpener& opener);

}  // namespace quillon
