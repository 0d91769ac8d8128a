#pragma once

#include <string>
#include <vector>

#include "engine/Bitmap.h"

namespace quillon {

// Small pictures as rows of letters: '.' black, '#' white, 'R' red, 'G' green,
// 'B' blue, 'Y' yellow, 'C' cyan, 'M' magenta, '-' grey 128.

/// Rows of equal length. Fails the test for a letter it does not know.
Bitmap pictureOf(const std::vector<std::string>& rows);

/// The rows of a picture, one for each line; '?' for any other colour.
std::vector<std::string> textOf(const Bitmap& picture);

/// A picture of random words, the top byte 0, always the same for a seed.
Bitmap randomPicture(int width, int height, unsigned seed);

}  // namespace quillon
