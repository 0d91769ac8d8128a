#pragma once

#include "engine/Bitmap.h"

namespace quillon {

// The picture of the selector of colour schemes: seven bands one above the
// other, each uniform from top to bottom.
inline constexpr int kLutSelectorRows = 7;
inline constexpr int kLutSelectorBandHeight = 10;
inline constexpr int kLutSelectorWidth = 256;
inline constexpr int kLutSelectorHeight = kLutSelectorRows * kLutSelectorBandHeight;

/// The selector's picture, 256 by 70. Band 0 is the grey ramp, column x having
/// the grey x; bands 1 to 6 are the colour schemes, a magnitude of x having the
/// colour of column x. A band is read at line row * 10 + 5.
Bitmap lutSelectorPicture();

}  // namespace quillon
