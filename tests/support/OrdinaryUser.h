#pragma once

#include <sys/types.h>
#include <unistd.h>

#include "tests/support/TemporaryFolder.h"

namespace quillon {

/// Permissions do not bind root. While this lives, a test that runs as root acts
/// as a user without rights, to whom it gives a folder; any other test stays
/// what it is.
class OrdinaryUser {
public:
    explicit OrdinaryUser(const TemporaryFolder& folder) : before_(::geteuid()) {
        if (before_ == 0)
            changed_ = ::chown(folder.path().c_str(), kNobody, static_cast<gid_t>(-1)) == 0 &&
                       ::seteuid(kNobody) == 0;
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() {
        if (changed_ && ::seteuid(before_) != 0)
            ::_exit(2);
    }

    /// False where permissions still do not bind.
    bool isBound() const noexcept { return ::geteuid() != 0; }

private:
    static constexpr uid_t kNobody = 65534;
    uid_t before_;
    bool changed_ = false;
};

}  // namespace quillon
