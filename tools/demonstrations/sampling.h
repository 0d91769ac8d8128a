#pragma once

#include "tools/demonstrations/GreyPicture.h"

namespace quillon::demonstrations {

/// The picture with every fourth pixel of every fourth row kept, all others black.
GreyPicture everyFourthPixel(const GreyPicture& picture);

}  // namespace quillon::demonstrations
