#include "engine/spectrum_cut.h"

#include <algorithm>

namespace quillon {

void SpectrumCut::addRing(RingSide side, Single centreX, Single centreY, Single radiusSquared) {
    std::array<Double, kTransformSide> squares;
    for (std::size_t x = 0; x < squares.size(); ++x) {
        const Double distance = static_cast<Double>(x) - centreX;
        squares[x] = distance * distance;
    }
    for (std::size_t y = 0; y < rows_.size(); ++y) {
        const Double dy = static_cast<Double>(y) - centreY;
        const Double square = dy * dy;
        for (std::size_t x = 0; x < squares.size(); ++x) {
            const auto d2 = static_cast<Single>(squares[x] + square);
            const bool cut = side == RingSide::Outside ? d2 >= radiusSquared : d2 <= radiusSquared;
            rows_[y][x / 64] |= static_cast<std::uint64_t>(cut) << x % 64;
        }
    }
}

void SpectrumCut::addRectangle(const MaskRectangle& rectangle) {
    const Long left = std::max<Long>(rectangle.left, 0);
    const Long right = std::min<Long>(rectangle.right, kTransformSide - 1);
    const Long top = std::max<Long>(rectangle.top, 0);
    const Long bottom = std::min<Long>(rectangle.bottom, kTransformSide - 1);
    if (left > right)
        return;

    // The same bits in every row of the rectangle.
    Row bits{};
    for (Long word = left / 64; word <= right / 64; ++word) {
        const Long first = std::max<Long>(left - word * 64, 0);
        const Long last = std::min<Long>(right - word * 64, 63);
        bits[static_cast<std::size_t>(word)] = ~std::uint64_t{0} >> (63 - (last - first)) << first;
    }
    for (Long y = top; y <= bottom; ++y)
        for (std::size_t word = 0; word < bits.size(); ++word)
            rows_[static_cast<std::size_t>(y)][word] |= bits[word];
}

}  // namespace quillon
