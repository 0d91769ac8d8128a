#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "engine/Bitmap.h"
#include "engine/Desktop.h"
#include "tests/support/CallLog.h"

namespace quillon {

/// A file system in memory. Names are found without regard to case where the
/// exact name does not exist; "/" and "\" are the same, a closing separator
/// does not count. The root of every drive and the current folder exist.
class RecordingFiles : public Files {
public:
    struct File {
        std::string bytes;
        /// What the pictures service sees in the file, if it can decode it.
        std::optional<Bitmap> picture;
        bool readOnly = false;
        bool privately = false;
        /// Counts the writes, to the last of this file.
        std::int64_t written = 0;
    };

    explicit RecordingFiles(CallLog& log) : log_(log) {}

    // What a test sets up and looks at; none of it is logged.

    /// Puts a file there, or a folder, with the folders above it.
    File& addFile(const std::string& path, std::string_view bytes);
    void addFolder(const std::string& path);
    /// The file, or nullptr.
    File* find(const std::string& path);
    bool exists(const std::string& path) { return find(path) != nullptr; }
    /// The bytes of a file; fails the test where there is none.
    std::string bytesOf(const std::string& path);
    /// Nothing can be made, changed or removed in such a folder: PathFileAccessError.
    void makeFolderReadOnly(const std::string& path);
    /// Nothing more can be written: DiskFull.
    bool diskFull = false;
    /// How the next write goes about it.
    WriteManner writeManner = WriteManner::Careful;
    /// Files that cannot be read: PathFileAccessError.
    std::set<std::string> unreadable;

    /// Throws what a write to the path would throw, but for missing folders.
    void checkWritable(const std::string& path);

    bool isFolder(const std::string& path) override;
    bool isReadable(const std::string& path) override;
    std::uint64_t length(const std::string& path) override;
    void clearAttributes(const std::string& path) override;
    void createFolder(const std::string& path) override;
    void moveFolder(const std::string& from, const std::string& to) override;
    void removeFolder(const std::string& path) override;
    bool createFile(const std::string& path) override;
    std::vector<std::string> list(const std::string& folder, const std::string& patterns) override;
    void copy(const std::string& from, const std::string& to) override;
    void remove(const std::string& path) override;
    std::string read(const std::string& path) override;
    void write(const std::string& path, std::string_view bytes) override;
    void setWriteManner(WriteManner manner) override { writeManner = manner; }
    void writePrivately(const std::string& path, std::string_view bytes) override;
    std::int64_t lastWritten(const std::string& path) override;
    std::unique_ptr<HeldFile> hold(const std::string& path) override;

private:
    class Hold;

    bool knowsFolder(const std::string& path) const;
    File& fileToWrite(const std::string& path);
    File& existing(const std::string& path);

    CallLog& log_;
    std::map<std::string, File> files_;
    std::set<std::string> folders_;
    std::set<std::string> readOnlyFolders_;
    /// Shared with the holds, which may outlive the files.
    std::shared_ptr<std::set<std::string>> held_ = std::make_shared<std::set<std::string>>();
    std::int64_t writes_ = 0;
};

}  // namespace quillon
