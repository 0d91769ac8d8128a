#pragma once

#include <string>

#include "engine/Bitmap.h"

namespace quillon {

/// A picture as a BMP file of 24 bits a pixel: rows from the bottom, each filled
/// up with zeros to a multiple of four bytes, at 96 dots an inch. The picture is
/// not empty.
std::string bitmapFile(const Bitmap& picture);

}  // namespace quillon
