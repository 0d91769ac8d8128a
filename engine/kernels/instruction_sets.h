#pragma once

#include <cstddef>

namespace quillon::kernels {

/// How many of the instruction sets that kernels are built for the machine has.
/// They come in this order, each with all before it: what every processor has,
/// AVX2 with FMA, AVX-512 (F, VL, DQ, BW).
std::size_t instructionSets() noexcept;

}  // namespace quillon::kernels
