#pragma once

#include <string>

#include "engine/Desktop.h"
#include "engine/PictureBox.h"

namespace quillon {

/// Draws the grid pattern of a code "b.w.x.i" on a panel and puts it on the
/// clipboard: white bands w pixels wide with b pixels between them, both across
/// and down; with x other than 0 the bands are drawn with the XOR pen, so that
/// crossings turn black; with i other than 0 the result is complemented. Words
/// may also stand apart by "-", "," or a blank; a leading G is ignored, and a
/// leading P draws no bands.
///
/// The pen is one pixel wide whatever tool came before, and is restored. A band
/// is a filled box, which on this surface ends at its corners whatever the pen;
/// with a border of the pen's width Freehand's two pixels would make each band
/// begin a pixel further to the left and above than the code tells.
///
/// Throws RunTimeError SubscriptOutOfRange for a code of one word.
void DrawGridPattern(Desktop& desktop, PictureBox& pb, const std::string& code);

}  // namespace quillon
