#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

#include "engine/Desktop.h"

namespace quillon {

/// Waits until the names in a folder are on the disk: a new name outlives a crash
/// only then. Some file systems refuse to be asked for that; nothing is lost by it.
void settleFolder(const std::string& folder);

/// A file under way: it is written beside its place under a name of its own and
/// then put there in one step, so that a reader, a full disk or a crash never
/// meets half a file. What is not put in place is removed. Paths are native;
/// failures throw RunTimeError.
class PendingFile {
public:
    /// Made in the folder of `target`, with the rights `mode` less the user's
    /// mask. It is always a new file: a name that exists, also as a link, is not used.
    PendingFile(const std::string& target, mode_t mode);
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    ~PendingFile();

    void write(std::string_view bytes);
    /// Takes over rights and, where the system allows it, the group of the file
    /// that is to be replaced.
    void setRights(mode_t mode, gid_t group);
    /// Puts the file in place; Careful, with its bytes and its name on the disk.
    void putInPlace(WriteManner manner);

private:
    std::string target_;
    std::string path_;
    int descriptor_ = -1;
};

}  // namespace quillon
