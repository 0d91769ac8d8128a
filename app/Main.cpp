#include "app/Main.h"

#include <exception>

#include "app/companion_probe.h"
#include "app/folder_setup.h"

namespace quillon {

void Main(Desktop& desktop, MainWindowOpener& opener) {
    try {
        const Folders folders = deriveFolders(desktop.environment);
        setUpFolders(desktop, folders);
        opener.openMainWindow(folders);
        probeCompanion(desktop);
    } catch (const std::exception& failure) {
        // The closing sentence stands behind every failure at this stage, whatever its cause.
        desktop.dialogs.messageBox(
            std::string("Error: ") + failure.what() + "\n\nScreen must be in 32-bit Color mode !",
            "", MessageIcon::None, MessageButtons::Ok);
    }
}

}  // namespace quillon
