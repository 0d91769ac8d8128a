#pragma once

#include <array>
#include <cstdint>

#include "engine/clComplexImage.h"

namespace quillon {

enum class RingSide {
    Outside,  ///< a low-pass cuts from the circle outward
    Inside,   ///< a high-pass cuts from the circle inward
};

/// The pixels of the FT panel that a filter cuts, one bit each, so that a list
/// of a thousand rectangles costs little more than one rectangle.
class SpectrumCut {
public:
    /// Cuts one side of a circle. Points on the circle belong to both sides.
    /// `radiusSquared` and the centre in panel pixels.
    void addRing(RingSide side, Single centreX, Single centreY, Single radiusSquared);
    /// Cuts a rectangle, borders included; what lies off the panel is left out.
    void addRectangle(const MaskRectangle& rectangle);

    bool contains(Long x, Long y) const noexcept {
        const auto column = static_cast<unsigned>(x);
        return (rows_[static_cast<std::size_t>(y)][column / 64] >> column % 64 & 1U) != 0;
    }

private:
    using Row = std::array<std::uint64_t, kTransformSide / 64>;

    std::array<Row, kTransformSide> rows_{};
};

}  // namespace quillon
