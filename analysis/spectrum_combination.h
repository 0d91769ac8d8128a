#pragma once

#include "engine/Numbers.h"
#include "engine/clComplexImage.h"

namespace quillon {

// Both stored spectra, combined cell by cell into one of the channels: channel 1
// for a target below 4, else channel 2. No new transform is made, so edits count
// and filters do not; the target's own filter acts when it is reconstructed. W
// and H are the sides of a transform. The result is written at the end, so where
// a step throws RunTimeError (DivisionByZero, Overflow, SubscriptOutOfRange)
// the target stays as it was.

/// The complex product: the circular convolution of the two images about the top
/// left pixel, times W * H.
void ConvolveSpectra(clComplexImage& channel1, clComplexImage& channel2, Long W, Long H,
                     Integer target);

/// Channel 1 divided by channel 2. Into channel 2 it is the plain quotient of
/// equal cells. Into channel 1 it is another formula: the numerator is divided by
/// W * H and the denominator is taken from cell (W - u - 1, H - v - 1).
void DeconvolveSpectra(clComplexImage& channel1, clComplexImage& channel2, Long W, Long H,
                       Integer target);

}  // namespace quillon
