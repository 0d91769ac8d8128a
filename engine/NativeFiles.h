#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/Desktop.h"

namespace quillon {

/// Files and folders of a POSIX system. Paths are those of the lab, see
/// NativePaths.h. What the system refuses, and what is neither file nor folder,
/// throws PathFileAccessError; a missing file FileNotFound, a missing folder
/// PathNotFound, a full disk DiskFull.
class NativeFiles : public Files {
public:
    bool isFolder(const std::string& path) override;
    bool isReadable(const std::string& path) override;
    std::uint64_t length(const std::string& path) override;
    /// A file on a medium that cannot be written stays as it is, without an error.
    void clearAttributes(const std::string& path) override;
    void createFolder(const std::string& path) override;
    /// The folder outlives a failure of the power under its new name.
    void moveFolder(const std::string& from, const std::string& to) override;
    void removeFolder(const std::string& path) override;
    bool createFile(const std::string& path) override;
    /// Names that begin with a point are hidden here and left out. The order is
    /// that of the names without regard to case.
    std::vector<std::string> list(const std::string& folder, const std::string& patterns) override;
    /// The copy is an ordinary new file, also where the original is write-protected.
    void copy(const std::string& from, const std::string& to) override;
    /// A file that nobody may write is not removed.
    void remove(const std::string& path) override;
    std::string read(const std::string& path) override;
    /// An existing file keeps its rights, a link still leads to the file that is
    /// written. A file that nobody may write is not replaced.
    void write(const std::string& path, std::string_view bytes) override;
    void setWriteManner(WriteManner manner) override { manner_ = manner; }
    /// Throws PathFileAccessError where a link stands at the path.
    void writePrivately(const std::string& path, std::string_view bytes) override;
    /// Nanoseconds.
    std::int64_t lastWritten(const std::string& path) override;
    /// By an advisory lock, so that only programs that ask are kept off.
    std::unique_ptr<HeldFile> hold(const std::string& path) override;

private:
    WriteManner manner_ = WriteManner::Careful;
};

}  // namespace quillon
