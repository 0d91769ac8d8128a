#pragma once

#include <cstdint>

#include "engine/Bitmap.h"

namespace quillon {

enum class PenMode { Copy, Xor };

/// What a drawing call leaves on each pixel that it touches, and how wide. A pen
/// of width w at (x, y) covers x - w / 2 to x + (w - 1) / 2 (whole division), and
/// the same downward: the 2 by 2 block of a pen of width 2 has the point as its
/// lower right pixel.
struct Pen {
    int width = 1;
    PenMode mode = PenMode::Copy;
    PixelWord word = 0;

    int before() const noexcept { return width / 2; }
    int after() const noexcept { return (width - 1) / 2; }
    void touch(PixelWord& pixel) const noexcept {
        pixel = mode == PenMode::Xor ? pixel ^ word : word;
    }
};

// Drawing on a bitmap. Everything clips, at any distance, in no more time than
// the bitmap's own sides take. Every pixel is touched at most once in a call.

/// The pen once at the point.
void drawDot(Bitmap& canvas, const Pen& pen, std::int64_t x, std::int64_t y) noexcept;

/// From the first point up to but not including the second. Along its longer
/// side the line has one pixel at each step, the nearest to the true line; of two
/// equally near the upper or left one, so that a line has the same pixels both
/// ways. No length is nothing with a pen of width 1 and one dot with a wider one.
void drawLine(Bitmap& canvas, const Pen& pen, std::int64_t x1, std::int64_t y1, std::int64_t x2,
              std::int64_t y2) noexcept;

/// All pixels from (left, top) to (right, bottom), inclusive; none where right is
/// less than left or bottom less than top. The pen's width does not matter.
void fillBox(Bitmap& canvas, const Pen& pen, std::int64_t left, std::int64_t top,
             std::int64_t right, std::int64_t bottom) noexcept;

/// The border of that box with the pen; left <= right, top <= bottom.
void outlineBox(Bitmap& canvas, const Pen& pen, std::int64_t left, std::int64_t top,
                std::int64_t right, std::int64_t bottom) noexcept;

}  // namespace quillon
