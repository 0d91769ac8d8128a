#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "engine/SpectrumIndex.h"
#include "engine/clComplexImage.h"
#include "engine/transform256.h"

namespace quillon {

enum class RingSide {
    Outside,  ///< a low-pass cuts from the circle outward
    Inside,   ///< a high-pass cuts from the circle inward
};

/// The pixels of the FT panel that a filter cuts, one bit each, so that whole
/// rows of a circle or a rectangle are cut at once.
class SpectrumCut {
public:
    /// Cuts one side of a circle. Points on the circle belong to both sides.
    /// `radiusSquared` and the centre in panel pixels.
    void addRing(RingSide side, Single centreX, Single centreY, Single radiusSquared);
    /// Cuts rectangles, borders included; what lies off the panel is left out. A
    /// thousand of them cost little more than one, and large ones no more than
    /// small ones.
    void addRectangles(std::span<const MaskRectangle> rectangles);

    bool contains(Long x, Long y) const noexcept {
        const auto column = static_cast<unsigned>(x);
        return (rows_[static_cast<std::size_t>(y)][column / 64] >> column % 64 & 1U) != 0;
    }

    /// The cells of the spectrum that the cut pixels show.
    CellBits cells(const SpectrumIndex& index) const;

private:
    using Row = std::array<std::uint64_t, kTransformSide / 64>;
    using Rows = std::array<Row, kTransformSide>;

    static Row columns(Long first, Long end) noexcept;
    CellBits cellsOfWholeIndex() const;

    Rows rows_{};
};

}  // namespace quillon
