#pragma once

#include <string>

#include "app/Lab.h"

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

}  // namespace quillon
