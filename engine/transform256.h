#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "engine/kernels/aligned_floats.h"
#include "engine/kernels/transform256_levels.h"

namespace quillon {

// The transform of fourn for a square of 256 by 256 where its cells lie in raster
// order, cell (x, y) behind (x-1, y), as pixels do. Cell (x, y) is element
// x * 256 + y of fourn's flattened array and holds the same bits; nothing has to be
// transposed on the way.

/// Real and imaginary parts of 256 by 256 cells, each in a plane of its own, rows
/// kStride floats apart. Every row begins on a cache line, and the stride is no
/// power of two, so that a walk down a column uses the whole cache.
class ComplexPlanes {
public:
    static constexpr std::ptrdiff_t kStride = 256 + 16;

    /// All zero.
    ComplexPlanes() : re_(kernels::alignedFloats(kFloats)), im_(kernels::alignedFloats(kFloats)) {}

    float* re() noexcept { return re_.get(); }
    float* im() noexcept { return im_.get(); }
    const float* re() const noexcept { return re_.get(); }
    const float* im() const noexcept { return im_.get(); }

    /// Where cell (x, y) stands in either plane.
    static constexpr std::ptrdiff_t at(std::ptrdiff_t x, std::ptrdiff_t y) noexcept {
        return y * kStride + x;
    }

private:
    static constexpr std::size_t kFloats = static_cast<std::size_t>(256 * kStride);

    kernels::AlignedFloats re_;
    kernels::AlignedFloats im_;
};

/// One bit for every cell: cell (x, y) is bit x % 8 of byte x / 8 of row y.
using CellBits = std::array<std::array<std::uint8_t, 32>, 256>;

/// The spectrum of a picture whose rows of 256 pixels lie one behind the other:
/// the forward transform with the pixels as real parts and imaginary parts of 0.
void forwardTransform256(std::span<const std::uint8_t, 256 * 256> pixels, ComplexPlanes& spectrum);

/// What inverseTransform256 tells beside its result.
using kernels::InverseFindings;

/// The real part of the inverse transform of a copy of the spectrum, each part of
/// which is divided by 65536 and rounded to Single and whose cells in `cut` are
/// then set to 0. Where `cut` is null no cell is. The result goes to
/// picture.re(); picture.im() is used on the way and left in disorder. The two
/// arguments must be two.
InverseFindings inverseTransform256(const ComplexPlanes& spectrum, const CellBits* cut,
                                    ComplexPlanes& picture);

}  // namespace quillon
