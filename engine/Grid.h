#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "engine/Numbers.h"
#include "engine/RunTimeError.h"

namespace quillon {

/// A two-dimensional array whose indices run from 0 up to and including the
/// bounds: first index x to the right, second y downward. Kept in raster order,
/// so the cells of a row lie side by side, as in a picture.
template <class Cell>
class Grid {
public:
    Grid() = default;
    /// Allocates indices 0 to xBound and 0 to yBound, zeroed.
    Grid(Long xBound, Long yBound) { allocate(xBound, yBound); }

    /// Allocates afresh and zeroes every cell.
    void allocate(Long xBound, Long yBound) {
        columns_ = static_cast<std::size_t>(xBound) + 1;
        rows_ = static_cast<std::size_t>(yBound) + 1;
        cells_.assign(columns_ * rows_, Cell{});
    }

    bool allocated() const noexcept { return !cells_.empty(); }
    Long xBound() const noexcept { return static_cast<Long>(columns_) - 1; }
    Long yBound() const noexcept { return static_cast<Long>(rows_) - 1; }

    /// The cell at (x, y); the caller has made sure that it exists.
    Cell& operator()(Long x, Long y) noexcept { return cells_[index(x, y)]; }
    const Cell& operator()(Long x, Long y) const noexcept { return cells_[index(x, y)]; }

    /// The cell at (x, y); throws RunTimeError SubscriptOutOfRange where there is none.
    Cell& at(Long x, Long y) {
        check(x, y);
        return (*this)(x, y);
    }
    const Cell& at(Long x, Long y) const {
        check(x, y);
        return (*this)(x, y);
    }

    /// The cells of row y, x from 0 on.
    Cell* row(Long y) noexcept { return cells_.data() + index(0, y); }
    const Cell* row(Long y) const noexcept { return cells_.data() + index(0, y); }

private:
    void check(Long x, Long y) const {
        if (x < 0 || y < 0 || x > xBound() || y > yBound())
            throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    }
    std::size_t index(Long x, Long y) const noexcept {
        return static_cast<std::size_t>(y) * columns_ + static_cast<std::size_t>(x);
    }

    std::size_t columns_ = 0;
    std::size_t rows_ = 0;
    std::vector<Cell> cells_;
};

}  // namespace quillon
