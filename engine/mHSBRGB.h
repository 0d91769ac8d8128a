#pragma once

#include "engine/Numbers.h"

namespace quillon {

/// Hue, lightness and saturation to red, green and blue, in Singles. The three
/// colour arguments are on the scale 0 to 239. A swap other than 0 gives a pixel
/// word (blue lowest), 0 a colour value (red lowest).
Long HSBtoRGB(Integer h, Integer s, Integer b, Integer swap);

}  // namespace quillon
