#pragma once

#include <cstddef>

#include "engine/Numbers.h"
#include "engine/clComplexImage.h"

namespace quillon {

// The flat array that fourn works on: cell (x, y) is element x * 256 + y,
// its real part at an odd index, its imaginary part behind it. Index 0 is unused.

inline constexpr std::size_t kFlatLength =
    static_cast<std::size_t>(2 * kTransformSide * kTransformSide + 1);

constexpr std::size_t realPart(Long x, Long y) noexcept {
    return static_cast<std::size_t>(2 * (x * kTransformSide + y) + 1);
}
constexpr std::size_t imaginaryPart(Long x, Long y) noexcept {
    return realPart(x, y) + 1;
}

}  // namespace quillon
