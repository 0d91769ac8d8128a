#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "engine/Numbers.h"
#include "engine/RunTimeError.h"
#include "engine/kernels/aligned_floats.h"

namespace quillon {

/// One complex value. The third Single is part of the cell and never used.
struct ComplexCell {
    Single re = 0;
    Single im = 0;
    Single unused = 0;
};

/// A cell of a ComplexGrid, to be read and written in its place.
class ComplexCellReference {
public:
    ComplexCellReference(std::span<Single> realParts, std::span<Single> imaginaryParts,
                         std::size_t place) noexcept
        : re(realParts[place]), im(imaginaryParts[place]) {}
    ComplexCellReference(const ComplexCellReference&) = default;

    Single& re;
    Single& im;

    operator ComplexCell() const noexcept { return {re, im}; }
    const ComplexCellReference& operator=(const ComplexCell& cell) const noexcept {
        re = cell.re;
        im = cell.im;
        return *this;
    }
    const ComplexCellReference& operator=(const ComplexCellReference& cell) const noexcept {
        return *this = ComplexCell(cell);
    }
};

/// Complex cells whose indices run from 0 up to and including the bounds: first
/// index x to the right, second y downward.
///
/// The real and the imaginary parts lie in a plane each, in raster order, as
/// pixels do and as the transforms want them. Rows begin on a cache line, stride()
/// Singles apart; for a side of 256 that is no power of two, so that a walk down a
/// column uses the whole cache.
class ComplexGrid {
public:
    ComplexGrid() = default;
    /// Allocates indices 0 to xBound and 0 to yBound, zeroed.
    ComplexGrid(Long xBound, Long yBound) { allocate(xBound, yBound); }

    /// Allocates afresh and zeroes every cell.
    void allocate(Long xBound, Long yBound) {
        columns_ = static_cast<std::size_t>(xBound) + 1;
        rows_ = static_cast<std::size_t>(yBound) + 1;
        stride_ = (columns_ + kLine - 1) / kLine * kLine;
        re_.assign(stride_ * rows_, 0.0F);
        im_.assign(stride_ * rows_, 0.0F);
        touch();
    }

    /// Another number whenever a cell may have been written. Two grids of the same
    /// number hold the same cells.
    std::uint64_t revision() const noexcept { return revision_; }

    bool allocated() const noexcept { return !re_.empty(); }
    Long xBound() const noexcept { return static_cast<Long>(columns_) - 1; }
    Long yBound() const noexcept { return static_cast<Long>(rows_) - 1; }

    /// The cell at (x, y); the caller has made sure that it exists.
    ComplexCellReference operator()(Long x, Long y) noexcept {
        touch();
        return {re_, im_, index(x, y)};
    }
    ComplexCell operator()(Long x, Long y) const noexcept {
        const std::size_t place = index(x, y);
        return {re_[place], im_[place]};
    }

    /// The cell at (x, y); throws RunTimeError SubscriptOutOfRange where there is none.
    ComplexCellReference at(Long x, Long y) {
        check(x, y);
        return (*this)(x, y);
    }
    ComplexCell at(Long x, Long y) const {
        check(x, y);
        return (*this)(x, y);
    }

    /// The parts of row y, x from 0 on.
    std::span<const Single> realRow(Long y) const noexcept {
        return {re_.data() + index(0, y), columns_};
    }
    std::span<const Single> imaginaryRow(Long y) const noexcept {
        return {im_.data() + index(0, y), columns_};
    }

    /// The planes for the kernels: cell (x, y) stands at y * stride() + x. A plane
    /// that is to be written is fetched anew each time, so that its grid knows.
    Single* realPlane() noexcept {
        touch();
        return re_.data();
    }
    Single* imaginaryPlane() noexcept {
        touch();
        return im_.data();
    }
    const Single* realPlane() const noexcept { return re_.data(); }
    const Single* imaginaryPlane() const noexcept { return im_.data(); }
    std::ptrdiff_t stride() const noexcept { return static_cast<std::ptrdiff_t>(stride_); }

private:
    void touch() noexcept { revision_ = ++lastRevision_; }

    static inline std::uint64_t lastRevision_ = 0;
    static constexpr std::size_t kLine = kernels::kCacheLine / sizeof(Single);

    void check(Long x, Long y) const {
        if (x < 0 || y < 0 || x > xBound() || y > yBound())
            throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    }
    std::size_t index(Long x, Long y) const noexcept {
        return static_cast<std::size_t>(y) * stride_ + static_cast<std::size_t>(x);
    }

    std::uint64_t revision_ = 0;
    std::size_t columns_ = 0;
    std::size_t rows_ = 0;
    std::size_t stride_ = 0;
    kernels::AlignedFloats re_;
    kernels::AlignedFloats im_;
};

}  // namespace quillon
