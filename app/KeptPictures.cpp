#include "app/KeptPictures.h"

#include <algorithm>
#include <exception>
#include <string_view>
#include <utility>

#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

bool holds(const Desktop& desktop, const std::string& file, const Bitmap& picture) {
    try {
        return desktop.pictures.load(file) == picture;
    } catch (const std::exception&) {
        return false;
    }
}

void removeIfThere(const Desktop& desktop, const std::string& file) {
    try {
        desktop.files.remove(file);
    } catch (const std::exception&) {
        // It is gone already, or the folder refuses: it then takes its room.
    }
}

/// A new empty file: the first of the counted names that nothing has yet.
std::string newFile(const Desktop& desktop, const CountedName& name) {
    int count = 1;
    while (!desktop.files.createFile(name.number(count)))
        ++count;
    return name.number(count);
}

/// Without its folder, whichever sign parts them.
std::string bareName(const std::string& file) {
    return upperCased(std::string_view(file).substr(file.find_last_of("\\/") + 1));
}

bool sameName(const std::string& a, const std::string& b) {
    return bareName(a) == bareName(b);
}

}  // namespace

std::string KeptPictures::keep(const Desktop& desktop, Channel which, const Bitmap& picture,
                               const CountedName& name, KeepFor time) {
    std::optional<Entry>& latest = latest_[static_cast<std::size_t>(which)];
    if (latest && FolderPart(latest->file) == FolderPart(name.stem) &&
        latest->suffix == name.suffix && latest->picture == picture &&
        holds(desktop, latest->file, picture)) {
        if (time == KeepFor::Good)
            latest->time = KeepFor::Good;
        return latest->file;
    }
    std::string file = newFile(desktop, name);
    try {
        desktop.pictures.save(picture, file);
    } catch (const std::exception&) {
        removeIfThere(desktop, file);
        throw;
    }
    supersede(latest);
    latest = Entry{file, name.suffix, picture, time};
    return file;
}

void KeptPictures::spare(const std::string& file) {
    for (std::optional<Entry>& entry : latest_)
        if (entry && sameName(entry->file, file))
            entry->time = KeepFor::Good;
    std::erase_if(superseded_, [&](const Entry& entry) { return sameName(entry.file, file); });
}

void KeptPictures::removeUnnamed(const Desktop& desktop, const std::vector<std::string>& named) {
    for (std::optional<Entry>& entry : latest_)
        if (entry && entry->time == KeepFor::Snapshot &&
            std::ranges::find(named, entry->file) == named.end())
            supersede(entry);
    for (const Entry& entry : std::exchange(superseded_, {}))
        if (holds(desktop, entry.file, entry.picture))
            removeIfThere(desktop, entry.file);
}

void KeptPictures::supersede(std::optional<Entry>& entry) {
    if (entry && entry->time == KeepFor::Snapshot)
        superseded_.push_back(std::move(*entry));
    entry.reset();
}

}  // namespace quillon
