#include "analysis/spectrum_combination.h"

#include <cmath>

#include "engine/ExchangeArray.h"
#include "engine/RunTimeError.h"

namespace quillon {

namespace {

struct Complex {
    Single re = 0;
    Single im = 0;
};

Complex at(const ExchangeArray& p, Long u, Long v) {
    return {p(u, v, 0), p(u, v, 1)};
}

// Products and sums are Doubles, rounded once where a Single is stored: of two
// large products that almost cancel, the difference stays right.

Complex product(Complex a, Complex b) {
    const Double ar = a.re;
    const Double ai = a.im;
    const Double br = b.re;
    const Double bi = b.im;
    return {checkedSingle(br * ar - bi * ai), checkedSingle(br * ai + bi * ar)};
}

/// a / b, scaled by the larger part of b, so that its square cannot overflow.
Complex scaledQuotient(Complex a, Complex b) {
    const Double ar = a.re;
    const Double ai = a.im;
    const Double br = b.re;
    const Double bi = b.im;
    if (std::fabs(b.im) <= std::fabs(b.re)) {
        const Double r = divideSingle(bi, br);
        const Double d = checkedSingle(r * bi + br);
        return {divideSingle(r * ai + ar, d), divideSingle(ai - r * ar, d)};
    }
    const Double r = divideSingle(br, bi);
    const Double d = checkedSingle(r * br + bi);
    return {divideSingle(r * ar + ai, d), divideSingle(r * ai - ar, d)};
}

/// a / b by the squared length of b.
Complex plainQuotient(Complex a, Complex b) {
    const Double ar = a.re;
    const Double ai = a.im;
    const Double br = b.re;
    const Double bi = b.im;
    const Double d = checkedSingle(bi * bi + br * br);
    return {divideSingle(bi * ai + br * ar, d), divideSingle(-(bi * ar - br * ai), d)};
}

/// Takes both spectra, lets `combine` make each cell of the result, and gives the
/// whole to the target.
template <class Combine>
void combineSpectra(clComplexImage& channel1, clComplexImage& channel2, Long W, Long H,
                    Integer target, Combine combine) {
    ExchangeArray a(W, H);
    channel1.GetFTArray(a);
    ExchangeArray b(W, H);
    channel2.GetFTArray(b);
    ExchangeArray c(W, H);
    for (Long u = 0; u < W; ++u)
        for (Long v = 0; v < H; ++v) {
            const Complex cell = combine(a, b, u, v);
            c(u, v, 0) = cell.re;
            c(u, v, 1) = cell.im;
        }
    (target < 4 ? channel1 : channel2).SetFTArray(c);
}

}  // namespace

void ConvolveSpectra(clComplexImage& channel1, clComplexImage& channel2, Long W, Long H,
                     Integer target) {
    combineSpectra(channel1, channel2, W, H, target,
                   [](const ExchangeArray& a, const ExchangeArray& b, Long u, Long v) {
                       return product(at(a, u, v), at(b, u, v));
                   });
}

void DeconvolveSpectra(clComplexImage& channel1, clComplexImage& channel2, Long W, Long H,
                       Integer target) {
    if (target >= 4) {
        combineSpectra(channel1, channel2, W, H, target,
                       [](const ExchangeArray& a, const ExchangeArray& b, Long u, Long v) {
                           return scaledQuotient(at(a, u, v), at(b, u, v));
                       });
        return;
    }
    // The two targets differ on purpose. Here the denominator lies mirrored and
    // one step off the mirror of the cell, so that the zero frequency of channel 2
    // divides the last cell of channel 1.
    const Double n = static_cast<Double>(W) * H;
    combineSpectra(channel1, channel2, W, H, target,
                   [=](const ExchangeArray& a, const ExchangeArray& b, Long u, Long v) {
                       const Complex whole = at(a, u, v);
                       const Complex part{divideSingle(whole.re, n), divideSingle(whole.im, n)};
                       return plainQuotient(part, at(b, W - u - 1, H - v - 1));
                   });
}

}  // namespace quillon
