#include "app/not_done.h"

#include "engine/NativePaths.h"
#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

/// The longest name that the usual disks keep, in bytes.
constexpr std::size_t kLongestName = 255;

ErrorNumber numberOf(const std::exception& error) {
    const auto* known = dynamic_cast<const RunTimeError*>(&error);
    return known == nullptr ? ErrorNumber{} : known->number();
}

bool isFolder(Files& files, const std::string& path) {
    return FolderExists(files, AddBackslash(path));
}

std::string folderNotFound(const std::string& path) {
    const std::string folder = path.substr(0, path.size() - lastName(path).size());
    return "folder not found: " + shownPath(folder.empty() ? path : folder);
}

}  // namespace

bool isCancelled(const std::exception& error) {
    return numberOf(error) == ErrorNumber::DialogCancelled;
}

std::string whyNotSaved(Files& files, const std::string& path, const std::exception& error,
                        const std::string& what) {
    const std::string begin = what + ": ";
    switch (numberOf(error)) {
        case ErrorNumber::PathFileAccessError:
        case ErrorNumber::PermissionDenied:
            // The system gives the same error for three reasons.
            if (isFolder(files, path))
                return begin + "a folder has this name";
            if (lastName(path).size() > kLongestName)
                return begin + "the name is too long";
            return begin + "no right to write here";
        case ErrorNumber::DiskFull:
            return begin + "the disk is full";
        case ErrorNumber::FileNotFound:
        case ErrorNumber::PathNotFound:
            return begin + folderNotFound(path);
        case ErrorNumber::DeviceIoError:
            return begin + "the disk does not answer";
        case ErrorNumber::Overflow:
            return begin + "a number is too large";
        default:
            return begin + error.what();
    }
}

std::string whyNotLoaded(Files& files, const std::string& path, const std::exception& error) {
    const std::string name = lastName(path);
    switch (numberOf(error)) {
        case ErrorNumber::InvalidPicture:
            return "not a picture: " + name;
        case ErrorNumber::FileNotFound:
            return "file not found: " + name;
        case ErrorNumber::PathNotFound:
            return folderNotFound(path);
        case ErrorNumber::PathFileAccessError:
        case ErrorNumber::PermissionDenied:
            return (isFolder(files, path) ? "not a file: " : "no right to read: ") + name;
        case ErrorNumber::DeviceIoError:
            return "the disk does not answer: " + name;
        default:
            return std::string("not loaded: ") + error.what();
    }
}

std::string whyNotListed(const std::string& folder, const std::exception& error) {
    switch (numberOf(error)) {
        case ErrorNumber::FileNotFound:
        case ErrorNumber::PathNotFound:
            return folderNotFound(folder);
        case ErrorNumber::PathFileAccessError:
        case ErrorNumber::PermissionDenied:
            return "no right to read: " + shownPath(folder);
        default:
            return std::string("no batch: ") + error.what();
    }
}

void reportUnopened(Lab& lab, Opening outcome, const std::string& missing,
                    const std::string& noProgram) {
    switch (outcome) {
        case Opening::Asked:
        case Opening::Reserved:
            return;
        case Opening::Missing:
            return lab.reportNotDone(missing);
        case Opening::NoProgram:
            return lab.reportNotDone(noProgram);
    }
}

}  // namespace quillon
