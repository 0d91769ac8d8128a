#include "engine/NativePaths.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "engine/RunTimeError.h"

namespace quillon {

namespace {

/// Whether there is an entry of exactly this name, also a link that leads nowhere.
bool entryExists(const std::string& native) {
    struct stat status {};
    return ::lstat(native.c_str(), &status) == 0;
}

char withoutCase(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool equalButForCase(std::string_view a, std::string_view b) noexcept {
    return std::ranges::equal(
        a, b, {}, [](char letter) { return withoutCase(letter); },
        [](char letter) { return withoutCase(letter); });
}

struct FolderCloser {
    void operator()(DIR* folder) const noexcept { ::closedir(folder); }
};

/// The first entry, in byte order, whose name differs in case alone. Every new
/// file of a folder is looked for so, and a folder may hold thousands.
std::optional<std::string> similarEntry(const std::string& folder, std::string_view name) {
    std::optional<std::string> first;
    const std::unique_ptr<DIR, FolderCloser> entries(
        ::opendir(folder.empty() ? "." : folder.c_str()));
    if (!entries)
        return first;
    while (const dirent* entry = ::readdir(entries.get())) {
        const std::string_view found = entry->d_name;
        if (equalButForCase(found, name) && (!first.has_value() || found < *first))
            first.emplace(found);
    }
    return first;
}

}  // namespace

std::string nativePath(std::string path) {
    if (path.find('\0') != std::string::npos)
        throw RunTimeError(ErrorNumber::FileNotFound);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

std::string shownPath(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

std::string labPath(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

std::string foundPath(const std::string& path) {
    const std::string native = nativePath(path);
    if (entryExists(native))
        return native;
    std::string found;
    std::size_t start = 0;
    while (start < native.size()) {
        const std::size_t end = std::min(native.find('/', start), native.size());
        const std::string name = native.substr(start, end - start);
        const bool exact = name.empty() || entryExists(found + name);
        found += exact ? name : similarEntry(found, name).value_or(name);
        if (end < native.size())
            found += '/';
        start = end + 1;
    }
    return found;
}

std::string pathInFoundFolder(const std::string& path) {
    const std::string native = nativePath(path);
    const std::size_t name = native.rfind('/') + 1;
    return foundPath(native.substr(0, name)) + native.substr(name);
}

std::string nativeFolder(const std::string& native) {
    const std::size_t last = native.rfind('/');
    if (last == std::string::npos)
        return ".";
    return last == 0 ? "/" : native.substr(0, last);
}

std::string withoutCase(std::string_view name) {
    std::string lowered(name);
    for (char& letter : lowered)
        letter = withoutCase(letter);
    return lowered;
}

}  // namespace quillon
