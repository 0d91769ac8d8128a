#pragma once

#include <cstddef>

#include "engine/Numbers.h"
#include "engine/clComplexImage.h"

namespace quillon {

// The flat array that a transform works on: cell (x, y) is element x * 256 + y,
// its real part at an odd index, its imaginary part behind it. Index 0 is unused.

inline constexpr std::size_t kFlatLength =
    static_cast<std::size_t>(2 * kTransformSide * kTransformSide + 1);

constexpr std::size_t realPart(Long x, Long y) noexcept {
    return static_cast<std::size_t>(2 * (x * kTransformSide + y) + 1);
}
constexpr std::size_t imaginaryPart(Long x, Long y) noexcept {
    return realPart(x, y) + 1;
}

/// Visits every cell (x, y) of a transform once. The flat array runs down the
/// columns while grids and pictures run along the rows; small tiles keep the
/// lines of both in the cache.
template <class Visit>
void forEachCell(Visit visit) {
    constexpr Long kTile = 16;
    for (Long left = 0; left < kTransformSide; left += kTile)
        for (Long top = 0; top < kTransformSide; top += kTile)
            for (Long x = left; x < left + kTile; ++x)
                for (Long y = top; y < top + kTile; ++y)
                    visit(x, y);
}

}  // namespace quillon
