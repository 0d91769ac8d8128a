#include "engine/spectrum_cut.h"

#include <algorithm>
#include <bit>
#include <vector>

namespace quillon {

namespace {

/// One side of a circle on the rows of the panel, from the top one down. Along a
/// row the squared distance falls up to the column next to the centre and rises
/// behind it, so the columns within the circle are a run. From row to row its ends
/// move little: each is sought from where it was.
class RingRows {
public:
    RingRows(RingSide side, Single centreX, Single centreY, Single radiusSquared)
        : side_(side), centreY_(centreY), radiusSquared_(radiusSquared) {
        for (std::size_t x = 0; x < squares_.size(); ++x) {
            const Double distance = static_cast<Double>(x) - centreX;
            squares_[x] = distance * distance;
        }
        nearest_ = static_cast<Long>(std::ranges::min_element(squares_) - squares_.begin());
        first_ = nearest_;
        end_ = nearest_;
    }

    /// Moves first() and end() to the columns of row y that lie within the circle.
    void goTo(Long y) {
        const Double distance = static_cast<Double>(y) - centreY_;
        square_ = distance * distance;
        if (!isWithin(nearest_)) {
            first_ = end_ = nearest_;
            return;
        }
        while (!isWithin(first_))
            ++first_;
        while (first_ > 0 && isWithin(first_ - 1))
            --first_;
        end_ = std::max(end_, nearest_ + 1);
        while (!isWithin(end_ - 1))
            --end_;
        while (end_ < kTransformSide && isWithin(end_))
            ++end_;
    }

    Long first() const noexcept { return first_; }
    Long end() const noexcept { return end_; }

private:
    /// Whether the column is kept by a low-pass, or cut by a high-pass.
    bool isWithin(Long x) const noexcept {
        const auto d2 = static_cast<Single>(squares_[static_cast<std::size_t>(x)] + square_);
        return side_ == RingSide::Outside ? !(d2 >= radiusSquared_) : d2 <= radiusSquared_;
    }

    RingSide side_;
    Double centreY_;
    Single radiusSquared_;
    std::array<Double, kTransformSide> squares_;
    Double square_ = 0;
    Long nearest_;
    Long first_;
    Long end_;
};

/// For every column of the panel, and for one behind the last, the bits of a row
/// from that column on.
constexpr auto kColumnsFrom = [] {
    std::array<std::array<std::uint64_t, kTransformSide / 64>, kTransformSide + 1> rows{};
    for (std::size_t first = 0; first < rows.size(); ++first)
        for (std::size_t x = first; x < kTransformSide; ++x)
            rows[first][x / 64] |= std::uint64_t{1} << x % 64;
    return rows;
}();

template <class Row>
void cutAlso(Row& row, const Row& bits) noexcept {
    for (std::size_t word = 0; word < row.size(); ++word)
        row[word] |= bits[word];
}

}  // namespace

/// The bits of the columns from `first` up to but not including `end`.
SpectrumCut::Row SpectrumCut::columns(Long first, Long end) noexcept {
    Row bits;
    for (std::size_t word = 0; word < bits.size(); ++word)
        bits[word] = kColumnsFrom[static_cast<std::size_t>(first)][word] &
                     ~kColumnsFrom[static_cast<std::size_t>(end)][word];
    return bits;
}

void SpectrumCut::addRing(RingSide side, Single centreX, Single centreY, Single radiusSquared) {
    RingRows ring(side, centreX, centreY, radiusSquared);
    for (Long y = 0; y < kTransformSide; ++y) {
        ring.goTo(y);
        Row bits = columns(ring.first(), ring.end());
        if (side == RingSide::Outside)
            for (std::uint64_t& word : bits)
                word = ~word;
        cutAlso(rows_[static_cast<std::size_t>(y)], bits);
    }
}

void SpectrumCut::addRectangles(std::span<const MaskRectangle> rectangles) {
    // The rows of a rectangle are two runs of 2^k rows, k as large as fits, that
    // may share rows. runs[k][y] gathers the columns of all runs of 2^k rows from y
    // on; at the end every run falls into its two halves, the longest ones first.
    constexpr std::size_t kLengths = std::bit_width(static_cast<unsigned>(kTransformSide));
    std::vector<Rows> runs(kLengths);
    for (const MaskRectangle& rectangle : rectangles) {
        const Long left = std::max<Long>(rectangle.left, 0);
        const Long right = std::min<Long>(rectangle.right, kTransformSide - 1);
        const Long top = std::max<Long>(rectangle.top, 0);
        const Long bottom = std::min<Long>(rectangle.bottom, kTransformSide - 1);
        if (left > right || top > bottom)
            continue;
        const Row bits = columns(left, right + 1);
        const auto height = static_cast<unsigned>(bottom - top + 1);
        Rows& run = runs[static_cast<std::size_t>(std::bit_width(height) - 1)];
        cutAlso(run[static_cast<std::size_t>(top)], bits);
        cutAlso(run[static_cast<std::size_t>(bottom) + 1 - std::bit_floor(height)], bits);
    }
    for (std::size_t k = kLengths - 1; k > 0; --k) {
        const std::size_t half = std::size_t{1} << (k - 1);
        for (std::size_t y = 0; y + 2 * half <= rows_.size(); ++y) {
            cutAlso(runs[k - 1][y], runs[k][y]);
            cutAlso(runs[k - 1][y + half], runs[k][y]);
        }
    }
    for (std::size_t y = 0; y < rows_.size(); ++y)
        cutAlso(rows_[y], runs[0][y]);
}

CellBits SpectrumCut::cells(const SpectrumIndex& index) const {
    if (index.isWhole(kTransformSide, kTransformSide))
        return cellsOfWholeIndex();
    CellBits cut{};
    for (Long y = 0; y <= std::min(index.yBound(), kTransformSide - 1); ++y)
        for (Long x = 0; x <= std::min(index.xBound(), kTransformSide - 1); ++x) {
            const auto [u, v] = index(x, y);
            if (!contains(x, y) || u >= kTransformSide || v >= kTransformSide)
                continue;
            std::uint8_t& eight = cut[static_cast<std::size_t>(v)][static_cast<std::size_t>(u) / 8];
            eight = static_cast<std::uint8_t>(eight | 1U << u % 8);
        }
    return cut;
}

/// A whole spectrum is shown rolled by 127 pixels in each direction, so its bits
/// are the panel's rolled back.
CellBits SpectrumCut::cellsOfWholeIndex() const {
    CellBits cut;
    for (std::size_t v = 0; v < cut.size(); ++v) {
        const Row& row = rows_[(v + 127) % rows_.size()];
        for (std::size_t word = 0; word < row.size(); ++word) {
            // 127 bits on: one word and 63 bits.
            const std::uint64_t rolled =
                row[(word + 1) % row.size()] >> 63 | row[(word + 2) % row.size()] << 1;
            for (std::size_t byte = 0; byte < 8; ++byte)
                cut[v][8 * word + byte] = static_cast<std::uint8_t>(rolled >> 8 * byte);
        }
    }
    return cut;
}

}  // namespace quillon
