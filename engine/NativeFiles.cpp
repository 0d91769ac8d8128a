#include "engine/NativeFiles.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>

#include "engine/NativeErrors.h"
#include "engine/NativePaths.h"
#include "engine/PendingFile.h"

namespace quillon {

namespace {

using Status = struct stat;

/// What stands at a native path, links followed; nothing where there is nothing.
std::optional<Status> statusOf(const std::string& native) {
    Status status{};
    if (::stat(native.c_str(), &status) == 0)
        return status;
    if (errno == ENOENT || errno == ENOTDIR)
        return std::nullopt;
    throw systemError(errno, native);
}

std::string withoutClosingSlash(std::string native) {
    while (native.size() > 1 && native.ends_with('/'))
        native.pop_back();
    return native;
}

bool isProtected(const Status& status) {
    return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

/// Where a chain of links ends, whether or not there is a file.
std::string linkTarget(std::filesystem::path native) {
    constexpr int kLongestChain = 40;
    std::error_code error;
    for (int i = 0; i < kLongestChain && std::filesystem::is_symlink(native, error); ++i) {
        const std::filesystem::path next = std::filesystem::read_symlink(native, error);
        if (error)
            break;
        // An absolute path takes the place of all that stands before it.
        native = native.parent_path() / next;
    }
    return native.native();
}

/// Refuses a target that is no file or may not be written.
void checkReplaceable(const std::string& native, const Status& status) {
    if (!S_ISREG(status.st_mode) || isProtected(status) ||
        ::faccessat(AT_FDCWD, native.c_str(), W_OK, AT_EACCESS) != 0)
        throw RunTimeError(ErrorNumber::PathFileAccessError);
}

std::string readToEnd(int descriptor, const std::string& native, std::size_t expected) {
    std::string bytes;
    std::size_t length = 0;
    while (true) {
        if (length == bytes.size())
            bytes.resize(std::max(expected, length) + 4096);
        const ssize_t count = ::read(descriptor, bytes.data() + length, bytes.size() - length);
        if (count == 0)
            break;
        if (count < 0 && errno != EINTR)
            throw systemError(errno, native);
        if (count > 0)
            length += static_cast<std::size_t>(count);
    }
    bytes.resize(length);
    return bytes;
}

/// Closes what it holds.
class OpenFile {
public:
    explicit OpenFile(int descriptor) noexcept : descriptor_(descriptor) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }
    int descriptor() const noexcept { return descriptor_; }

private:
    int descriptor_;
};

/// The lock goes when the descriptor is closed, by whomever.
class LockedFile : public HeldFile {
public:
    explicit LockedFile(int descriptor) noexcept : file_(descriptor) {}

    bool lock() const noexcept { return ::flock(file_.descriptor(), LOCK_EX | LOCK_NB) == 0; }
    /// False where the path has become another file's, or none's, since it was opened.
    bool isAt(const std::string& native) const noexcept {
        Status held{};
        Status found{};
        return ::fstat(file_.descriptor(), &held) == 0 && ::lstat(native.c_str(), &found) == 0 &&
               held.st_dev == found.st_dev && held.st_ino == found.st_ino;
    }

private:
    OpenFile file_;
};

/// The place behind one character, which in UTF-8 may have several bytes.
std::size_t behindCharacter(std::string_view name, std::size_t at) {
    const auto continues = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    };
    ++at;
    while (at < name.size() && continues(name[at]))
        ++at;
    return at;
}

/// "*" stands for any characters or none, "?" for one. Both in lower case.
bool matches(std::string_view name, std::string_view pattern) {
    std::size_t n = 0;
    std::size_t p = 0;
    std::optional<std::size_t> starPattern;
    std::size_t starName = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            starPattern = ++p;
            starName = n;
        } else if (p < pattern.size() && pattern[p] == '?') {
            n = behindCharacter(name, n);
            ++p;
        } else if (p < pattern.size() && pattern[p] == name[n]) {
            ++n;
            ++p;
        } else if (starPattern.has_value()) {
            // The last star takes one byte more, and the rest is tried again.
            p = *starPattern;
            n = ++starName;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

bool matchesOne(const std::string& name, const std::string& patterns) {
    const std::string lowered = withoutCase(name);
    std::size_t start = 0;
    while (start <= patterns.size()) {
        const std::size_t end = std::min(patterns.find(';', start), patterns.size());
        const std::string pattern = withoutCase(patterns.substr(start, end - start));
        // A name without a point is one of all files too.
        if (pattern == "*.*" || (!pattern.empty() && matches(lowered, pattern)))
            return true;
        start = end + 1;
    }
    return false;
}

}  // namespace

bool NativeFiles::isFolder(const std::string& path) {
    Status status{};
    return ::stat(foundPath(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool NativeFiles::isReadable(const std::string& path) {
    if (path.find('\0') != std::string::npos)
        return false;
    const std::string native = foundPath(path);
    Status status{};
    return ::stat(native.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           ::faccessat(AT_FDCWD, native.c_str(), R_OK, AT_EACCESS) == 0;
}

std::uint64_t NativeFiles::length(const std::string& path) {
    const std::optional<Status> status = statusOf(foundPath(path));
    if (!status.has_value() || !S_ISREG(status->st_mode))
        throw RunTimeError(ErrorNumber::FileNotFound);
    return static_cast<std::uint64_t>(status->st_size);
}

void NativeFiles::clearAttributes(const std::string& path) {
    const std::string native = foundPath(path);
    const std::optional<Status> status = statusOf(native);
    if (!status.has_value())
        throw RunTimeError(ErrorNumber::FileNotFound);
    const bool lacksWriting = S_ISREG(status->st_mode) && (status->st_mode & S_IWUSR) == 0;
    if (!lacksWriting || status->st_uid != ::geteuid())
        return;
    constexpr mode_t kRights = 07777;
    // A refusal leaves the file as readable as it was.
    static_cast<void>(::chmod(native.c_str(), (status->st_mode & kRights) | S_IWUSR));
}

void NativeFiles::createFolder(const std::string& path) {
    const std::string native = withoutClosingSlash(foundPath(path));
    constexpr mode_t kEverybodyButTheMask = 0777;
    if (::mkdir(native.c_str(), kEverybodyButTheMask) != 0) {
        const int code = errno;
        // Nothing found can only mean the folder above.
        throw code == ENOENT || code == ENOTDIR ? RunTimeError(ErrorNumber::PathNotFound)
                                                : systemError(code, native);
    }
}

void NativeFiles::moveFolder(const std::string& from, const std::string& to) {
    const std::string source = withoutClosingSlash(foundPath(from));
    const std::string target = withoutClosingSlash(foundPath(to));
    Status status{};
    // The system would put a folder in the place of an empty one.
    if (!isFolder(from) || ::lstat(target.c_str(), &status) == 0)
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    if (::rename(source.c_str(), target.c_str()) != 0)
        throw systemError(errno, target);
    settleFolder(nativeFolder(target));
}

void NativeFiles::removeFolder(const std::string& path) {
    const std::string native = withoutClosingSlash(foundPath(path));
    if (!isFolder(path))
        throw RunTimeError(ErrorNumber::PathNotFound);
    std::error_code error;
    std::filesystem::remove_all(native, error);
    if (error)
        throw systemError(error.value(), native);
}

bool NativeFiles::createFile(const std::string& path) {
    const std::string native = foundPath(path);
    constexpr mode_t kEverybodyButTheMask = 0666;
    const OpenFile file(::open(native.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                               kEverybodyButTheMask));
    if (file.descriptor() >= 0)
        return true;
    const int code = errno;
    if (code == EEXIST)
        return false;
    // Nothing found can only mean the folder above.
    throw code == ENOENT || code == ENOTDIR ? RunTimeError(ErrorNumber::PathNotFound)
                                            : systemError(code, native);
}

std::vector<std::string> NativeFiles::list(const std::string& folder, const std::string& patterns) {
    const std::string native = foundPath(folder);
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(native, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code unknown;
        const std::string name = entry->path().filename().native();
        if (!name.starts_with('.') && matchesOne(name, patterns) && entry->is_regular_file(unknown))
            names.push_back(name);
    }
    if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory)
        throw RunTimeError(ErrorNumber::PathNotFound);
    if (error)
        throw systemError(error.value(), native);
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        const int order = withoutCase(a).compare(withoutCase(b));
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

void NativeFiles::copy(const std::string& from, const std::string& to) {
    write(to, read(from));
}

void NativeFiles::remove(const std::string& path) {
    const std::string native = foundPath(path);
    Status status{};
    if (::lstat(native.c_str(), &status) != 0)
        throw systemError(errno, native);
    if (S_ISDIR(status.st_mode) || (S_ISREG(status.st_mode) && isProtected(status)))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    if (::unlink(native.c_str()) != 0)
        throw systemError(errno, native);
}

std::string NativeFiles::read(const std::string& path) {
    const std::string native = foundPath(path);
    // Without waiting, because a pipe may have no writer.
    const OpenFile file(::open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    Status status{};
    if (file.descriptor() < 0 || ::fstat(file.descriptor(), &status) != 0)
        throw systemError(errno, native);
    // A device or a pipe would have no end.
    if (!S_ISREG(status.st_mode))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    return readToEnd(file.descriptor(), native, static_cast<std::size_t>(status.st_size));
}

void NativeFiles::write(const std::string& path, std::string_view bytes) {
    const std::string native =
        linkTarget(manner_ == WriteManner::Quick ? pathInFoundFolder(path) : foundPath(path));
    if (native.empty())
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    const std::optional<Status> before = statusOf(native);
    if (before.has_value())
        checkReplaceable(native, *before);
    constexpr mode_t kOwnerOnly = 0600;
    constexpr mode_t kEverybodyButTheMask = 0666;
    PendingFile pending(native, before.has_value() ? kOwnerOnly : kEverybodyButTheMask);
    pending.write(bytes);
    if (before.has_value())
        pending.setRights(before->st_mode, before->st_gid);
    pending.putInPlace(manner_);
}

void NativeFiles::writePrivately(const std::string& path, std::string_view bytes) {
    const std::string native = pathInFoundFolder(path);
    Status status{};
    // Whatever stands there is replaced and never written into, but only a file is.
    const bool exists = ::lstat(native.c_str(), &status) == 0;
    if (native.empty() || (exists && !S_ISREG(status.st_mode)))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    constexpr mode_t kOwnerOnly = 0600;
    PendingFile pending(native, kOwnerOnly);
    pending.write(bytes);
    pending.putInPlace(WriteManner::Quick);
}

std::int64_t NativeFiles::lastWritten(const std::string& path) {
    const std::optional<Status> status = statusOf(foundPath(path));
    if (!status.has_value() || !S_ISREG(status->st_mode))
        throw RunTimeError(ErrorNumber::FileNotFound);
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    return status->st_mtim.tv_sec * kNanoseconds + status->st_mtim.tv_nsec;
}

std::unique_ptr<HeldFile> NativeFiles::hold(const std::string& path) {
    const std::string native = pathInFoundFolder(path);
    constexpr mode_t kOwnerOnly = 0600;
    const int descriptor =
        ::open(native.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, kOwnerOnly);
    if (descriptor < 0)
        return nullptr;
    auto file = std::make_unique<LockedFile>(descriptor);
    // Whoever held it may have removed it between the two steps.
    if (!file->lock() || !file->isAt(native))
        return nullptr;
    return file;
}

}  // namespace quillon
