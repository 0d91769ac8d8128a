#include "app/folder_setup.h"

#include <exception>

#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

void announce(Dialogs& dialogs, const Folders& folders) {
    dialogs.messageBox("The following user folder will be created:\n" + folders.UserRoot +
                           "\n\nDemo Image Files will be copied to:\n" + folders.ImagePath,
                       "Folder Setup", MessageIcon::Information, MessageButtons::Ok);
}

/// `master` is the read-only folder of the demonstration files, `target` the
/// user's folder with its closing backslash.
void makeAndFill(Files& files, const std::string& master, const std::string& target) {
    if (FolderExists(files, target))
        return;
    files.createFolder(target);
    // A program without demonstration files has nothing to copy; that is no failure.
    if (!FolderExists(files, master))
        return;
    for (const std::string& name : files.list(master, "*.*"))
        if (!FileExists(files, target + name))
            files.copy(AddBackslash(master) + name, target + name);
}

}  // namespace

void setUpFolders(Desktop& desktop, const Folders& folders) {
    try {
        if (!FolderExists(desktop.files, folders.UserRoot)) {
            announce(desktop.dialogs, folders);
            desktop.files.createFolder(folders.UserRoot);
        }
        desktop.screen.setMousePointer(kPointerWait);
        const std::string program = desktop.environment.programFolder();
        makeAndFill(desktop.files, program + "\\Images", folders.ImagePath);
        makeAndFill(desktop.files, program + "\\Scripts", folders.ScriptPath);
        desktop.screen.setMousePointer(kPointerDefault);
    } catch (const std::exception& failure) {
        desktop.screen.setMousePointer(kPointerDefault);
        desktop.dialogs.messageBox(std::string("Error: ") + failure.what(), "Userfolder Error",
                                   MessageIcon::Critical, MessageButtons::Ok);
    }
}

}  // namespace quillon
