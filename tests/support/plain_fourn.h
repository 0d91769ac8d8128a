#pragma once

#include <span>

#include "engine/Numbers.h"

namespace quillon {

/// The transform of engine/fourn.h as one plain loop, subscripts from 1, in the
/// order in which its arithmetic is defined: the slow twin that the fast kernels
/// must match bit for bit. Sides are powers of two; nothing is checked. Compiled
/// without contraction, like everything here; the one fused step is written out.
void plainFourn(std::span<Single> data, std::span<const Long> nn, Integer ndim, Integer isign);

}  // namespace quillon
