#pragma once

#include <sys/mount.h>

#include <string>

namespace quillon {

/// While this lives, a folder is the root of a disk of its own in memory, of so
/// many bytes, empty at first. Only root may mount one.
class TinyDisk {
public:
    TinyDisk(std::string folder, std::size_t bytes) : folder_(std::move(folder)) {
        const std::string size = "size=" + std::to_string(bytes);
        mounted_ = ::mount("none", folder_.c_str(), "tmpfs", 0, size.c_str()) == 0;
    }
    TinyDisk(const TinyDisk&) = delete;
    TinyDisk& operator=(const TinyDisk&) = delete;
    ~TinyDisk() {
        if (mounted_)
            ::umount2(folder_.c_str(), MNT_DETACH);
    }

    /// False where this user may mount nothing.
    bool isMounted() const noexcept { return mounted_; }
    /// Gives the disk another size.
    bool resize(std::size_t bytes) const {
        const std::string size = "size=" + std::to_string(bytes);
        return ::mount("none", folder_.c_str(), "tmpfs", MS_REMOUNT, size.c_str()) == 0;
    }

private:
    std::string folder_;
    bool mounted_ = false;
};

}  // namespace quillon
