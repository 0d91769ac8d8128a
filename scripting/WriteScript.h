#pragma once

#include <array>
#include <string>

#include "app/Lab.h"
#include "engine/Bitmap.h"

namespace quillon {

/// Writes what both channels hold as a script that brings it back: files,
/// filters, masks and inverted panels, with a title in the block of channel 1
/// (the name of the script where the title is empty). Radii are written as whole
/// numbers of 16 bits. A channel without a file whose image panel was left empty
/// writes nothing.
///
/// An image that its file does not bring back, because it was drawn on, rolled,
/// pasted or begun afresh since, or the file is gone, is first saved as a new
/// bitmap in the image folder: stamp "mmddyy_hhmm" with "t.bmp" or "b.bmp", or
/// with "_2t.bmp" and so on where there is one of that name. The script names it
/// and does not invert it, because it is saved as it is seen. The channel keeps
/// its file; one that had none takes the bitmap, which under the title
/// "last.ftscr" is called "last1.bmp" or "last2.bmp".
///
/// The file is written whole or not at all. Throws RunTimeError; the channels
/// then keep the files they were given.
void WriteScript(Lab& lab, const std::string& path, const std::string& title);

/// The text of such a script, whose pictures are saved already.
std::string prepareScript(Lab& lab, const std::string& title);

/// The same for a script that only bridges the time until the next one: no
/// channel takes a new file, and a picture that only the snapshot before needed
/// is removed once this one is written. All snapshots of a lab have one path. The
/// title is not empty.
void writeSnapshot(Lab& lab, const std::string& path, const std::string& title);

/// The snapshot has been removed: the pictures that only it named go too.
void endSnapshots(Lab& lab);

/// All that a script of this moment would hold, but for its title.
struct SessionContent {
    std::string lines;
    /// By channel: the image that would be saved with the script; empty where its
    /// file holds it.
    std::array<Bitmap, 2> pictures;

    friend bool operator==(const SessionContent&, const SessionContent&) = default;
};

/// What a script would hold now, to be compared with what the last one held. No
/// file is looked at.
SessionContent sessionContent(const Lab& lab);

}  // namespace quillon
