#include "engine/NativeErrors.h"

#include <sys/stat.h>

#include <cerrno>

#include "engine/NativePaths.h"

namespace quillon {

namespace {

bool folderExists(const std::string& native) {
    struct stat status {};
    return ::stat(native.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

ErrorNumber numberOf(int code, const std::string& native) {
    switch (code) {
        case ENOENT:
        case ENOTDIR:
            return folderExists(nativeFolder(native)) ? ErrorNumber::FileNotFound
                                                      : ErrorNumber::PathNotFound;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return ErrorNumber::DiskFull;
        case EIO:
        case ENXIO:
        case ENODEV:
            return ErrorNumber::DeviceIoError;
        case EBUSY:
        case ETXTBSY:
            return ErrorNumber::PermissionDenied;
        default:
            return ErrorNumber::PathFileAccessError;
    }
}

}  // namespace

RunTimeError systemError(int code, const std::string& native) {
    return RunTimeError(numberOf(code, native));
}

}  // namespace quillon
