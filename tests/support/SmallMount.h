#pragma once

#ifdef __linux__
#include <sys/mount.h>
#endif

#include <fstream>
#include <string>
#include <utility>

namespace quillon {

/// A real disk of its own, of 64 kB, in the place of a folder while this lives.
/// Only some users may mount one, so a test asks whether it is there.
class SmallMount {
public:
    explicit SmallMount(std::string folder) : folder_(std::move(folder)) {
#ifdef __linux__
        mounted_ = ::mount("tmpfs", folder_.c_str(), "tmpfs", 0, "size=64k,mode=0777") == 0;
#endif
    }
    SmallMount(const SmallMount&) = delete;
    SmallMount& operator=(const SmallMount&) = delete;
    ~SmallMount() {
#ifdef __linux__
        if (mounted_)
            ::umount2(folder_.c_str(), MNT_DETACH);
#endif
    }

    bool isMounted() const noexcept {
        return mounted_;
    }
    /// Writes until not a byte more fits.
    void fill() const {
        std::ofstream filler(folder_ + "/filler", std::ios::binary);
        while (filler.put('x').flush()) {
        }
    }

private:
    std::string folder_;
    bool mounted_ = false;
};

}  // namespace quillon
