#include "tests/support/RecordingFiles.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "engine/RunTimeError.h"

namespace quillon {
namespace {

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
    });
    return text;
}

std::string normal(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    while (!path.empty() && path.back() == '\\')
        path.pop_back();
    return path;
}

std::string folderOf(const std::string& normalPath) {
    const std::size_t separator = normalPath.rfind('\\');
    return separator == std::string::npos ? std::string() : normalPath.substr(0, separator);
}

std::string nameOf(const std::string& normalPath) {
    return normalPath.substr(normalPath.rfind('\\') + 1);
}

/// "" is the current folder or the root of the current drive, "C:" that of a drive.
bool isRoot(const std::string& normalPath) {
    return normalPath.empty() || (normalPath.size() == 2 && normalPath[1] == ':');
}

bool contains(const std::set<std::string>& paths, const std::string& normalPath) {
    return std::any_of(paths.begin(), paths.end(), [&](const std::string& path) {
        return lowered(path) == lowered(normalPath);
    });
}

/// Whether a path is a folder's own or that of something in it.
bool isWithin(const std::string& normalPath, const std::string& folder) {
    const std::string path = lowered(normalPath);
    return path == lowered(folder) || path.starts_with(lowered(folder) + '\\');
}

bool matches(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*" || pattern == "*")
        return true;
    if (pattern.empty())
        return name.empty();
    if (pattern.front() == '*')
        return matches(name, pattern.substr(1)) ||
               (!name.empty() && matches(name.substr(1), pattern));
    return !name.empty() && (pattern.front() == '?' || pattern.front() == name.front()) &&
           matches(name.substr(1), pattern.substr(1));
}

bool matchesOne(const std::string& name, const std::string& patterns) {
    std::size_t start = 0;
    while (start <= patterns.size()) {
        const std::size_t end = std::min(patterns.find(';', start), patterns.size());
        if (matches(lowered(name), lowered(patterns.substr(start, end - start))))
            return true;
        start = end + 1;
    }
    return false;
}

void replaceBytes(RecordingFiles::File& file, std::string_view bytes) {
    file = RecordingFiles::File();
    file.bytes = bytes;
}

}  // namespace

RecordingFiles::File& RecordingFiles::addFile(const std::string& path, std::string_view bytes) {
    addFolder(folderOf(normal(path)));
    File* file = find(path);
    if (file == nullptr)
        file = &files_[normal(path)];
    replaceBytes(*file, bytes);
    return *file;
}

void RecordingFiles::addFolder(const std::string& path) {
    for (std::string folder = normal(path); !knowsFolder(folder); folder = folderOf(folder))
        folders_.insert(folder);
}

RecordingFiles::File* RecordingFiles::find(const std::string& path) {
    const std::string wanted = normal(path);
    if (const auto exact = files_.find(wanted); exact != files_.end())
        return &exact->second;
    const auto similar = std::find_if(files_.begin(), files_.end(), [&](const auto& entry) {
        return lowered(entry.first) == lowered(wanted);
    });
    return similar == files_.end() ? nullptr : &similar->second;
}

std::string RecordingFiles::bytesOf(const std::string& path) {
    const File* file = find(path);
    if (file == nullptr) {
        ADD_FAILURE() << "there is no file " << path;
        return {};
    }
    return file->bytes;
}

void RecordingFiles::makeFolderReadOnly(const std::string& path) {
    addFolder(path);
    readOnlyFolders_.insert(normal(path));
}

void RecordingFiles::checkWritable(const std::string& path) {
    if (contains(readOnlyFolders_, folderOf(normal(path))))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    const File* file = find(path);
    if (knowsFolder(normal(path)) || (file != nullptr && file->readOnly))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    if (diskFull)
        throw RunTimeError(ErrorNumber::DiskFull);
}

bool RecordingFiles::knowsFolder(const std::string& path) const {
    return isRoot(path) || contains(folders_, path);
}

RecordingFiles::File& RecordingFiles::fileToWrite(const std::string& path) {
    if (!knowsFolder(folderOf(normal(path))))
        throw RunTimeError(ErrorNumber::PathNotFound);
    checkWritable(path);
    File* file = find(path);
    return file != nullptr ? *file : files_[normal(path)];
}

RecordingFiles::File& RecordingFiles::existing(const std::string& path) {
    File* file = find(path);
    if (file == nullptr)
        throw RunTimeError(ErrorNumber::FileNotFound);
    if (contains(unreadable, normal(path)))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    return *file;
}

bool RecordingFiles::isFolder(const std::string& path) {
    log_.add("files.isFolder(" + path + ")");
    return knowsFolder(normal(path));
}

bool RecordingFiles::isReadable(const std::string& path) {
    log_.add("files.isReadable(" + path + ")");
    return find(path) != nullptr && !contains(unreadable, normal(path));
}

std::uint64_t RecordingFiles::length(const std::string& path) {
    log_.add("files.length(" + path + ")");
    const File* file = find(path);
    if (file == nullptr)
        throw RunTimeError(ErrorNumber::FileNotFound);
    return file->bytes.size();
}

void RecordingFiles::clearAttributes(const std::string& path) {
    log_.add("files.clearAttributes(" + path + ")");
    File* file = find(path);
    if (file == nullptr)
        throw RunTimeError(ErrorNumber::FileNotFound);
    file->readOnly = false;
}

void RecordingFiles::createFolder(const std::string& path) {
    log_.add("files.createFolder(" + path + ")");
    if (!knowsFolder(folderOf(normal(path))))
        throw RunTimeError(ErrorNumber::PathNotFound);
    if (exists(path))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    checkWritable(path);
    folders_.insert(normal(path));
}

void RecordingFiles::moveFolder(const std::string& from, const std::string& to) {
    log_.add("files.moveFolder(" + from + ", " + to + ")");
    const std::string source = normal(from);
    const std::string target = normal(to);
    if (!knowsFolder(source) || knowsFolder(target) || exists(to))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    checkWritable(target);
    const auto moved = [&](const std::string& path) {
        return isWithin(path, source) ? target + path.substr(source.size()) : path;
    };
    std::map<std::string, File> files;
    for (auto& [path, file] : files_)
        files.emplace(moved(path), std::move(file));
    files_ = std::move(files);
    std::set<std::string> folders;
    for (const std::string& path : folders_)
        folders.insert(moved(path));
    folders_ = std::move(folders);
}

void RecordingFiles::removeFolder(const std::string& path) {
    log_.add("files.removeFolder(" + path + ")");
    const std::string folder = normal(path);
    if (!knowsFolder(folder))
        throw RunTimeError(ErrorNumber::PathNotFound);
    if (contains(readOnlyFolders_, folderOf(folder)))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    std::erase_if(files_, [&](const auto& entry) { return isWithin(entry.first, folder); });
    std::erase_if(folders_, [&](const std::string& entry) { return isWithin(entry, folder); });
}

bool RecordingFiles::createFile(const std::string& path) {
    log_.add("files.createFile(" + path + ")");
    if (exists(path) || knowsFolder(normal(path)))
        return false;
    fileToWrite(path);
    return true;
}

std::vector<std::string> RecordingFiles::list(const std::string& folder,
                                              const std::string& patterns) {
    log_.add("files.list(" + folder + ", " + patterns + ")");
    if (!knowsFolder(normal(folder)))
        throw RunTimeError(ErrorNumber::PathNotFound);
    std::vector<std::string> names;
    for (const auto& [path, file] : files_) {
        if (lowered(folderOf(path)) == lowered(normal(folder)) &&
            matchesOne(nameOf(path), patterns))
            names.push_back(nameOf(path));
    }
    std::sort(names.begin(), names.end());
    return names;
}

void RecordingFiles::copy(const std::string& from, const std::string& to) {
    log_.add("files.copy(" + from + ", " + to + ")");
    const File source = existing(from);
    File& copied = fileToWrite(to);
    copied = source;
    copied.written = ++writes_;
}

void RecordingFiles::remove(const std::string& path) {
    log_.add("files.remove(" + path + ")");
    const File* wanted = find(path);
    if (wanted == nullptr)
        throw RunTimeError(ErrorNumber::FileNotFound);
    if (wanted->readOnly || contains(readOnlyFolders_, folderOf(normal(path))))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    std::erase_if(files_, [wanted](const auto& entry) { return &entry.second == wanted; });
}

std::string RecordingFiles::read(const std::string& path) {
    log_.add("files.read(" + path + ")");
    return existing(path).bytes;
}

void RecordingFiles::write(const std::string& path, std::string_view bytes) {
    log_.add("files.write(" + path + ")");
    File& file = fileToWrite(path);
    replaceBytes(file, bytes);
    file.written = ++writes_;
}

void RecordingFiles::writePrivately(const std::string& path, std::string_view bytes) {
    log_.add("files.writePrivately(" + path + ")");
    File& file = fileToWrite(path);
    replaceBytes(file, bytes);
    file.privately = true;
    file.written = ++writes_;
}

std::int64_t RecordingFiles::lastWritten(const std::string& path) {
    log_.add("files.lastWritten(" + path + ")");
    return existing(path).written;
}

/// Lets its file go at the end.
class RecordingFiles::Hold : public HeldFile {
public:
    Hold(std::shared_ptr<std::set<std::string>> held, std::string path)
        : held_(std::move(held)), path_(std::move(path)) {}
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold() override { held_->erase(path_); }

private:
    std::shared_ptr<std::set<std::string>> held_;
    std::string path_;
};

std::unique_ptr<HeldFile> RecordingFiles::hold(const std::string& path) {
    log_.add("files.hold(" + path + ")");
    try {
        if (!exists(path))
            replaceBytes(fileToWrite(path), "");
    } catch (const RunTimeError&) {
        return nullptr;
    }
    if (!held_->insert(lowered(normal(path))).second)
        return nullptr;
    return std::make_unique<Hold>(held_, lowered(normal(path)));
}

}  // namespace quillon
