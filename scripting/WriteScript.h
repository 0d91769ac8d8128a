#pragma once

#include <array>
#include <string>

#include "app/Lab.h"
#include "engine/Bitmap.h"

namespace quillon {

/// Writes what both channels hold as a script that brings it back: files,
/// filters, masks and inverted panels, with a title in the block of channel 1
/// (the name of the script where the title is empty). Radii are written as whole
/// numbers. A channel without a file writes nothing.
///
/// A picture that was computed on and has no file is first saved as a bitmap in
/// the image folder, which is then the channel's file: stamp "mmddyy_hhmm" with
/// "t.bmp" or "b.bmp", or "last1.bmp" and "last2.bmp" under the title
/// "last.ftscr".
///
/// The file is written whole or not at all. Throws RunTimeError; the channels
/// then keep the files they were given.
void WriteScript(Lab& lab, const std::string& path, const std::string& title);

/// The same for a script that only bridges the time until the next one: no
/// channel takes a new file, and a picture that only an earlier snapshot of this
/// lab needed is removed once this one is written.
void writeSnapshot(Lab& lab, const std::string& path, const std::string& title);

/// All that a script of this moment would hold, but for its title.
struct SessionContent {
    std::string lines;
    /// By channel: the image that would have to be saved with the script, empty
    /// where its file holds it.
    std::array<Bitmap, 2> pictures;

    friend bool operator==(const SessionContent&, const SessionContent&) = default;
};

/// What a script would hold now, to be compared with what the last one held.
/// Takes well below a millisecond and touches no file.
SessionContent sessionContent(const Lab& lab);

}  // namespace quillon
