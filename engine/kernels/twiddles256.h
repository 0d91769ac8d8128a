#pragma once

namespace quillon::kernels {

/// The 255 twiddles of one direction of a run of 256 elements, rounded to
/// Single, as the kernels read them.
///
/// The kernels keep a run in natural order and let the twiddles follow instead:
/// pass k (0 to 7) joins elements that lie 128 >> k apart, and every contiguous
/// block of 256 >> k elements has one twiddle. That of block b stands at index
/// 2^k + b, in heap order. Index 0 is unused.
struct Twiddles256 {
    alignas(64) float re[256];
    alignas(64) float im[256];

    /// The twiddles of passes 3 to 7 for the sweep along the rows, which has by
    /// then transposed its vectors so that the eight lanes lie in eight different
    /// blocks: lane i belongs to the frequencies 8n + kLaneFrequency[i]. Pass k has
    /// 2^(k-3) vectors, from index 2^(k-3) on. Index 0 is unused.
    alignas(64) float lanesRe[32][8];
    alignas(64) float lanesIm[32][8];
    /// The same for vectors of two rows, every group of four lanes twice.
    alignas(64) float twoRowLanesRe[32][16];
    alignas(64) float twoRowLanesIm[32][16];
};

/// In this order of the lanes pass 2 and the transpose need no exchange of
/// register halves, and interleaving two vectors of it is one step.
inline constexpr int kLaneFrequency[8] = {0, 1, 4, 5, 2, 3, 6, 7};

extern const Twiddles256 kForwardTwiddles;
extern const Twiddles256 kInverseTwiddles;

}  // namespace quillon::kernels
