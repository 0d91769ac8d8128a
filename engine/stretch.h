#pragma once

#include "engine/Bitmap.h"

namespace quillon {

/// `source` stretched to width by height pixels, each axis by itself: an axis that
/// grows or keeps its length takes the source pixel under the centre of the
/// target pixel (the right or lower one of two); an axis that shrinks averages the
/// source exactly over the target pixel's area. Each byte is rounded half up. The
/// empty bitmap where the source or the target has no pixel.
Bitmap stretched(const Bitmap& source, int width, int height);

/// The part of stretched(source, width, height) that `window`, which must lie
/// inside it, frames. Costs no more than the window.
Bitmap stretchedPart(const Bitmap& source, int width, int height, PixelArea window);

/// The pixel of an axis of `source` pixels that lies under the centre of pixel
/// `index` when the axis is drawn `target` pixels long.
int nearestPixel(int index, int source, int target) noexcept;

}  // namespace quillon
