#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/Bitmap.h"

namespace quillon {

// Picture files made byte by byte, in forms that the toolkit does not write.

/// A bitmap with a colour table. Indices row by row from the top; 1, 4 or 8 bits
/// a pixel. Colours are pixel words.
std::string indexedBmp(int width, int height, int bits, const std::vector<int>& indices,
                       const std::vector<PixelWord>& colors);
/// A bitmap of 24 or 32 bits a pixel.
std::string directBmp(const Bitmap& picture, int bits);
/// A bitmap of 32 bits a pixel that says it has an alpha channel.
std::string alphaBmp(int width, int height, const std::vector<std::uint32_t>& argb);
/// A bitmap of 8 bits a pixel in runs.
std::string runLengthBmp();

/// A frame of a GIF: indices row by row, -1 for the transparent one.
struct GifFrame {
    std::vector<int> indices;
    bool transparent = false;
};
/// A GIF with a table of four colours; index 3 is the transparent one where a
/// frame says so. More than one frame makes an animation.
std::string gif(int width, int height, const std::vector<PixelWord>& colors,
                const std::vector<GifFrame>& frames);

/// A JPEG file with an orientation tag put in.
std::string withOrientation(const std::string& jpeg, int orientation);

}  // namespace quillon
