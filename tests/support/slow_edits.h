#pragma once

#include <span>

#include "engine/ExchangeArray.h"
#include "engine/Grid.h"
#include "engine/Rnd.h"
#include "engine/clComplexImage.h"

// The edits and combinations of spectra as plain loops over whole copies, cell by
// cell as they are told, for spectra on which no step fails.
namespace quillon::slow {

using Spectrum = ComplexGrid;

Spectrum discardPhases(const Spectrum& f);
Spectrum discardMagnitudes(const Spectrum& f);
Spectrum randomizePhases(const Spectrum& f, Rnd& rnd);
struct RandomMagnitudes {
    Spectrum spectrum;
    Single range = 0;
    /// The square-root scale's intensity factor that goes with it.
    Single ifacSqrt = 0;
};
RandomMagnitudes randomizeMagnitudes(const Spectrum& f, Rnd& rnd);
/// The magnitudes of `own` in the directions of `other`.
Spectrum swapPhases(const Spectrum& own, const Spectrum& other);

Spectrum convolve(const Spectrum& a, const Spectrum& b);
Spectrum deconvolveIntoChannel1(const Spectrum& a, const Spectrum& b);
Spectrum deconvolveIntoChannel2(const Spectrum& a, const Spectrum& b);

/// How many cells differ in a bit; -0 and 0 are different.
long differingCells(const Spectrum& a, const Spectrum& b);
ExchangeArray toExchangeArray(const Spectrum& f);

}  // namespace quillon::slow
