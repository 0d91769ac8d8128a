#include "engine/NativePaths.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

#include "engine/RunTimeError.h"

namespace quillon {

namespace {

/// Whether there is an entry of exactly this name, also a link that leads nowhere.
bool entryExists(const std::string& native) {
    struct stat status {};
    return ::lstat(native.c_str(), &status) == 0;
}

/// The first entry, in byte order, whose name differs in case alone.
std::optional<std::string> similarEntry(const std::string& folder, const std::string& name) {
    const std::string wanted = withoutCase(name);
    std::optional<std::string> first;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder.empty() ? "." : folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::string found = entry->path().filename().native();
        if (withoutCase(found) == wanted && (!first.has_value() || found < *first))
            first = std::move(found);
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
    for (char& letter : lowered) {
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    }
    return lowered;
}

}  // namespace quillon
