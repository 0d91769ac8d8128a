#pragma once

#include <array>
#include <vector>

#include "engine/Numbers.h"

namespace quillon {

/// For a pixel of the FT panel, the cell of ftData that is shown there.
struct FtIndexCell {
    Integer u = 0;
    Integer v = 0;
};

/// Where the quadrants' exchange puts each index of an axis of the given length:
/// the zero frequency goes to length / 2 - 1. Ties go to the even position.
std::vector<Integer> centredPositions(Long length);

/// The cells of ftData that the pixels of the FT panel show, as the last draw has
/// noted them. A draw notes one cell after the other, column after column; pixels
/// whose cell it has not come to show (0, 0).
///
/// Nothing is stored for a pixel: its cell follows from the place where the draw
/// put the columns and rows, and from how far it came.
class SpectrumIndex {
public:
    /// Allocates indices 0 to w and 0 to h for a spectrum of w by h cells; no cell
    /// is noted.
    void allocate(Long w, Long h);

    bool allocated() const noexcept { return xBound_ >= 0; }
    Long xBound() const noexcept { return xBound_; }
    Long yBound() const noexcept { return yBound_; }

    /// The cell at (x, y), which must lie within the bounds.
    FtIndexCell operator()(Long x, Long y) const noexcept;

    /// Notes the first cells in the order of a draw: (0, 0), (0, 1), ... (1, 0).
    void note(Long cells) noexcept;
    void noteAll() noexcept { note(xBound_ * yBound_); }

    /// Whether every cell of a spectrum of this size has been noted.
    bool isWhole(Long w, Long h) const noexcept {
        return xBound_ == w && yBound_ == h && noted_ == w * h;
    }

private:
    /// The indices that an axis puts on one position, the later one first, -1 for
    /// none: an odd side puts two on every other position.
    using Sources = std::array<Long, 2>;
    static std::vector<Sources> sourcesOf(Long length);

    Long xBound_ = -1;
    Long yBound_ = -1;
    /// The columns and rows of ftData at each position of the panel.
    std::vector<Sources> columns_;
    std::vector<Sources> rows_;
    Long noted_ = 0;
};

}  // namespace quillon
