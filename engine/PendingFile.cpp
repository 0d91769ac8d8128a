#include "engine/PendingFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <random>
#include <utility>

#include "engine/NativeErrors.h"
#include "engine/NativePaths.h"

namespace quillon {

namespace {

/// Short, whatever the name of the file, and hidden from lists of files.
std::string temporaryName() {
    // Opening the source of randomness takes longer than creating the file. It is
    // never closed, because a session may be kept as late as within exit().
    static std::random_device& random = *new std::random_device;
    char name[32];
    std::snprintf(name, sizeof name, ".quillon-%08x%08x", static_cast<unsigned>(random()),
                  static_cast<unsigned>(random()));
    return name;
}

}  // namespace

void settleFolder(const std::string& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

PendingFile::PendingFile(const std::string& target, mode_t mode) : target_(target) {
    constexpr int kAttempts = 100;
    for (int i = 0; i < kAttempts && descriptor_ < 0; ++i) {
        path_ = nativeFolder(target_) + '/' + temporaryName();
        descriptor_ =
            ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
        if (descriptor_ < 0 && errno != EEXIST && errno != EINTR)
            break;
    }
    if (descriptor_ < 0)
        throw systemError(errno, target_);
}

PendingFile::~PendingFile() {
    if (descriptor_ >= 0)
        ::close(descriptor_);
    if (!path_.empty())
        ::unlink(path_.c_str());
}

void PendingFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            throw systemError(errno, target_);
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void PendingFile::setRights(mode_t mode, gid_t group) {
    // A group that the user is not in cannot be given; the file is then the
    // user's own group's, and nobody else gains a right.
    const bool sameGroup = ::fchown(descriptor_, static_cast<uid_t>(-1), group) == 0;
    constexpr mode_t kAllRights = 0777;
    constexpr mode_t kWithoutGroup = 0707;
    if (::fchmod(descriptor_, mode & (sameGroup ? kAllRights : kWithoutGroup)) != 0)
        throw systemError(errno, target_);
}

void PendingFile::putInPlace(WriteManner manner) {
    const bool waits = manner == WriteManner::Careful;
    if (waits && ::fsync(descriptor_) != 0 && errno != EINVAL && errno != EROFS)
        throw systemError(errno, target_);
    const int descriptor = std::exchange(descriptor_, -1);
    if (::close(descriptor) != 0 && errno != EINTR)
        throw systemError(errno, target_);
    if (::rename(path_.c_str(), target_.c_str()) != 0)
        throw systemError(errno, target_);
    path_.clear();
    if (waits)
        settleFolder(nativeFolder(target_));
}

}  // namespace quillon
