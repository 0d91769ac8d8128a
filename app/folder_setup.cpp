#include "app/folder_setup.h"

#include <exception>

#include "engine/NativePaths.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

void announce(Dialogs& dialogs, const Folders& folders) {
    dialogs.messageBox(
        "The following user folder will be created:\n" + shownPath(folders.UserRoot) +
            "\n\nDemo Image Files will be copied to:\n" + shownPath(folders.ImagePath),
        "Folder Setup", MessageIcon::Information, MessageButtons::Ok);
}

/// A folder that is filled under another name beside its place. Until it is put
/// there it does not count, and one that is not put there is removed.
class UnfinishedFolder {
public:
    /// `place` has its closing backslash.
    UnfinishedFolder(Files& files, const std::string& place)
        : files_(files), place_(place), path_(besides(place)) {
        // An earlier start may have been killed in the midst of it.
        if (files_.isFolder(path_))
            files_.removeFolder(path_);
        files_.createFolder(path_);
    }
    UnfinishedFolder(const UnfinishedFolder&) = delete;
    UnfinishedFolder& operator=(const UnfinishedFolder&) = delete;
    ~UnfinishedFolder() {
        if (finished_)
            return;
        try {
            files_.removeFolder(path_);
        } catch (const std::exception&) {
            // The next start removes it.
        }
    }

    const std::string& path() const { return path_; }
    void putInPlace() {
        files_.moveFolder(path_, place_);
        finished_ = true;
    }

private:
    static std::string besides(const std::string& place) {
        const std::string name = place.substr(0, place.size() - 1);
        return FolderPart(name) + ".unfinished-" + FileNamePart(name) + '\\';
    }

    Files& files_;
    const std::string place_;
    const std::string path_;
    bool finished_ = false;
};

/// `master` is the read-only folder of the demonstration files, `target` the
/// user's folder with its closing backslash.
void makeAndFill(Files& files, const std::string& master, const std::string& target) {
    if (FolderExists(files, target))
        return;
    UnfinishedFolder folder(files, target);
    // A program without demonstration files has nothing to copy; that is no failure.
    if (files.isFolder(master))
        for (const std::string& name : files.list(master, "*.*"))
            if (!FileExists(files, folder.path() + name))
                files.copy(AddBackslash(master) + name, folder.path() + name);
    folder.putInPlace();
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
