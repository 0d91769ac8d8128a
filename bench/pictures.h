#pragma once

#include "engine/Bitmap.h"

namespace quillon {

/// Soft shading, an outline, a texture and grain, as a photograph has them, of
/// 256 by 256 pixels. Another number gives another picture, the same in every run.
Bitmap pictureLike(int number = 0);

}  // namespace quillon
