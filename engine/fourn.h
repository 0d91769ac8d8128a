#pragma once

#include <span>

#include "engine/Numbers.h"

namespace quillon {

/// In-place, N-dimensional, decimation-in-time, radix-2 complex Fourier
/// transform, unnormalised: with two dimensions of side N
///
///   F(u, v) = sum over x, y of f(x, y) exp(isign 2 pi i (u x + v y) / N)
///
/// `data` is used from index 1: element k of the flattened array has its real
/// part at 2k+1 and its imaginary part at 2k+2; index 0 is never touched. `nn`
/// is used at indices 1 to ndim, each a power of two (not checked); dimension 1
/// varies fastest. `isign` is +1 or -1. A `ndim` of 0 or less does nothing.
/// Throws RunTimeError SubscriptOutOfRange where data is too short for the grid.
///
/// The rounding is part of the contract: twiddles run by recurrence in Double
/// and are rounded to Single at each use; of the two products of a butterfly the
/// first is rounded, the second enters exactly, and the result is rounded once.
/// Every processor gives the same bits.
///
/// Method: Danielson and Lanczos, J. Franklin Inst. 233 (1942) 365; Cooley and
/// Tukey, Math. Comp. 19 (1965) 297.
void fourn(std::span<Single> data, std::span<const Long> nn, Integer ndim, Integer isign);

}  // namespace quillon
