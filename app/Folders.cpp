#include "app/Folders.h"

#include "engine/Desktop.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

Folders deriveFolders(Environment& environment) {
    const std::string applicationData = withoutOuterBlanks(environment.applicationDataFolder());
    const std::string program = environment.programFolder();
    Folders folders;
    // The cut to the last backslash goes up one level.
    folders.UserRoot = AddBackslash(FolderPart(applicationData)) + "Quillon\\";
    folders.ImagePath = folders.UserRoot + "Images\\";
    folders.ScriptPath = folders.UserRoot + "Scripts\\";
    folders.DocPath = program + "\\Doc\\";
    folders.LibPath = program + "\\Lib\\";
    folders.LibPath2 = folders.LibPath;
    return folders;
}

}  // namespace quillon
