#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "engine/ComplexGrid.h"
#include "engine/kernels/transform256_levels.h"

namespace quillon {

// The transform of fourn for a square of 256 by 256 where its cells lie in raster
// order, cell (x, y) behind (x-1, y), as pixels do. Cell (x, y) is element
// x * 256 + y of fourn's flattened array and holds the same bits; nothing has to be
// transposed on the way. Cells beyond the 256 by 256 stay as they are.

/// One bit for every cell: cell (x, y) is bit x % 8 of byte x / 8 of row y.
using CellBits = std::array<std::array<std::uint8_t, 32>, 256>;

// The doors throw RunTimeError SubscriptOutOfRange for a grid of fewer cells.

/// The spectrum of a picture whose rows of 256 pixels lie one behind the other:
/// the forward transform with the pixels as real parts and imaginary parts of 0.
void forwardTransform256(std::span<const std::uint8_t, 256 * 256> pixels, ComplexGrid& spectrum);

/// What inverseTransform256 tells beside its result.
using kernels::InverseFindings;

/// The real part of the inverse transform of a copy of the spectrum, each part of
/// which is divided by 65536 and rounded to Single and whose cells in `cut` are
/// then set to 0. Where `cut` is null no cell is. The result goes to the real
/// parts of `picture`, whose imaginary parts stay. The two grids must be two, of
/// the same bounds.
InverseFindings inverseTransform256(const ComplexGrid& spectrum, const CellBits* cut,
                                    ComplexGrid& picture);

}  // namespace quillon
