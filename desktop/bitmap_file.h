#pragma once

#include <string>
#include <string_view>

#include "engine/Bitmap.h"

namespace quillon {

/// A picture as a BMP file of 24 bits a pixel: rows from the bottom, each filled
/// up with zeros to a multiple of four bytes, at 96 dots an inch. The picture is
/// not empty.
std::string bitmapFile(const Bitmap& picture);

/// The picture of a whole BMP file of the plainest kind, 24 bits a pixel behind a
/// header of 54 bytes, in a fraction of the toolkit's time. The empty picture for
/// any other file.
Bitmap pictureOfUsualBitmap(std::string_view file);

}  // namespace quillon
