#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "engine/Bitmap.h"
#include "engine/Desktop.h"

namespace quillon {

enum class Channel : int;

/// How long a kept picture has to be there.
enum class KeepFor {
    Good,      ///< a script names it that its user may read at any time
    Snapshot,  ///< until the next snapshot of the session
};

/// A file name with room for a counter: "stem" "suffix", "stem_2" "suffix", ...
struct CountedName {
    std::string stem;
    std::string suffix;

    std::string number(int count) const {
        return stem + (count == 1 ? "" : "_" + std::to_string(count)) + suffix;
    }
};

/// The pictures that this lab has written because they existed on a panel alone.
/// Each is a new file; an older one is never written over, not even by two labs
/// in the same moment.
class KeptPictures {
public:
    /// The file that holds a channel's picture. The one that was written last is
    /// taken again while it holds the same picture and the name asked for lies in
    /// the same folder and ends alike, whatever the time that stands in it. Throws
    /// RunTimeError where the picture cannot be written; no file is then left behind.
    std::string keep(const Desktop& desktop, Channel which, const Bitmap& picture,
                     const CountedName& name, KeepFor time);

    /// The file stays from now on, because a channel or a script has it. Folders
    /// are not looked at: the same file has more than one path.
    void spare(const std::string& file);

    /// A snapshot that names these files is the only one now. Removes the pictures
    /// that only snapshots before it named; one that somebody else has written over
    /// is left.
    void removeUnnamed(const Desktop& desktop, const std::vector<std::string>& named);

private:
    struct Entry {
        std::string file;
        std::string suffix;
        Bitmap picture;
        KeepFor time = KeepFor::Good;
    };
    void supersede(std::optional<Entry>& entry);

    /// By channel: what was written last.
    std::array<std::optional<Entry>, 2> latest_;
    std::vector<Entry> superseded_;
};

}  // namespace quillon
