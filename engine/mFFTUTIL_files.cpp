#include <string>

#include "engine/Desktop.h"
#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

bool FileExists(Files& files, const std::string& path) {
    if (path.empty())
        return false;
    try {
        files.clearAttributes(path);
        return files.length(path) >= 1;
    } catch (const RunTimeError&) {
        return false;
    }
}

bool FolderExists(Files& files, const std::string& path) {
    try {
        if (files.isFolder(path))
            return true;
        // What a path with a closing backslash names can only be a folder.
        if (path.empty() || path.ends_with('\\'))
            return false;
        files.length(path);
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

Opening OpenInBrowser(Shell& shell, const std::string& address) {
    try {
        return shell.openAddress(address);
    } catch (const RunTimeError&) {
        // A lab without a browser goes on without the page.
        return Opening::NoProgram;
    }
}

std::string ReadWholeFile(Files& files, const std::string& path) {
    std::uint64_t length = 0;
    try {
        length = files.length(path);
    } catch (const RunTimeError& error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
        return {};
    }
    // The bytes go into an array of the file's length, and there is no array of
    // no elements.
    if (length == 0)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return files.read(path);
}

}  // namespace quillon
