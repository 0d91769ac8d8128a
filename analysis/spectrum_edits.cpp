#include <cmath>

#include "engine/RunTimeError.h"
#include "engine/clComplexImage.h"

namespace quillon {

namespace {

// An edit computes in Double and rounds once, where it stores into a cell: the
// same picture on every machine, and cells that can be checked to the last bit
// against plain arithmetic.

/// What an edit makes of a cell.
struct Edited {
    Single re = 0;
    Single im = 0;
};

/// The least value starts here: a spectrum whose parts are all larger is taken
/// to begin at this number.
constexpr Single kStartOfLeast = 9999999.0F;

Double lengthOf(Double re, Double im) noexcept {
    return std::sqrt(re * re + im * im);
}

/// The magnitude of a cell, 1 where it is 0.
Single magnitudeOf(const ComplexCell& cell) {
    const Single m = checkedSingle(lengthOf(cell.re, cell.im));
    return m == 0.0F ? 1.0F : m;
}

/// A cell of magnitude m in the direction of (a, b). No direction is a division
/// by 0, and not guarded.
Edited turned(Single m, Single a, Single b) {
    const Single r = checkedSingle(lengthOf(a, b));
    if (r == 0.0F)
        throw RunTimeError(ErrorNumber::DivisionByZero);
    const auto part = [&](Double along) { return checkedSingle(along / r * m); };
    return {part(a), part(b)};
}

}  // namespace

template <class Visit>
void clComplexImage::visitSpectrum(Visit visit) {
    // The order decides which random number goes to which cell.
    for (Long u = 0; u < nfftX; ++u)
        for (Long v = 0; v < nfftY; ++v)
            visit(u, v, ftData.at(u, v));
}

template <class Edit>
void clComplexImage::editSpectrum(Edit edit) {
    visitSpectrum([&](Long u, Long v, ComplexCellReference cell) {
        const Edited edited = edit(u, v, cell);
        cell = {edited.re, edited.im};
    });
}

bool clComplexImage::hasImage() const {
    return !bound(pbIMG).Tag.empty();
}

void clComplexImage::showEdit() {
    DrawFT(ftData, nfftX, nfftY, pbFFT, 1, bInvert[1]);
    runFOURN(0, 0);
}

void clComplexImage::DiscardPhases() {
    if (!hasImage())
        return;
    editSpectrum([](Long, Long, const ComplexCell& cell) { return Edited{magnitudeOf(cell), 0}; });
    showEdit();
}

void clComplexImage::DiscardMagnitudes() {
    if (!hasImage())
        return;
    editSpectrum([](Long, Long, const ComplexCell& cell) {
        const Single m = magnitudeOf(cell);
        return Edited{divideSingle(cell.re, m), divideSingle(cell.im, m)};
    });
    showEdit();
}

void clComplexImage::RandomizePhases() {
    if (!hasImage())
        return;
    // The direction is that of a point in a square, so the diagonals turn up more
    // often than the axes; the lessons count on the pictures that come of it.
    editSpectrum([this](Long, Long, const ComplexCell& cell) {
        const Single m = magnitudeOf(cell);
        const Single a = rnd_() - 0.5F;
        const Single b = rnd_() - 0.5F;
        return turned(m, a, b);
    });
    showEdit();
}

Single clComplexImage::spectrumRange() {
    Single hi = 0;
    Single lo = kStartOfLeast;
    visitSpectrum([&](Long, Long, const ComplexCell& cell) {
        for (const Single part : {cell.re, cell.im}) {
            if (part > hi)
                hi = part;
            if (part < lo)
                lo = part;
        }
    });
    return checkedSingle((std::fabs(static_cast<Double>(hi)) + std::fabs(static_cast<Double>(lo))) /
                         2);
}

void clComplexImage::RandomizeMagnitudes() {
    if (!hasImage())
        return;
    const Single range = spectrumRange();
    Single s = 0;
    editSpectrum([&](Long, Long, const ComplexCell& cell) {
        const Single m = magnitudeOf(cell);
        const Single f = checkedSingle(static_cast<Double>(rnd_()) * range / m);
        const Edited edited{checkedSingle(static_cast<Double>(f) * cell.re),
                            checkedSingle(static_cast<Double>(f) * cell.im)};
        s = checkedSingle(s + lengthOf(edited.re, edited.im));
        return edited;
    });
    const Single mean = divideSingle(divideSingle(s, nfftX), nfftY);
    ifacSqrt = divideSingle(range, 4.0 * mean);
    showEdit();
}

void clComplexImage::SwapPhases(const ExchangeArray& p) {
    if (!hasImage())
        return;
    editSpectrum([&](Long u, Long v, const ComplexCell& cell) {
        return turned(magnitudeOf(cell), p(u, v, 0), p(u, v, 1));
    });
    showEdit();
}

void clComplexImage::GetFTArray(ExchangeArray& p) const {
    for (Long u = 0; u < nfftX; ++u)
        for (Long v = 0; v < nfftY; ++v) {
            const ComplexCell cell = ftData.at(u, v);
            p(u, v, 0) = cell.re;
            p(u, v, 1) = cell.im;
        }
}

void clComplexImage::SetFTArray(const ExchangeArray& p) {
    editSpectrum([&](Long u, Long v, const ComplexCell&) {
        return Edited{p(u, v, 0), p(u, v, 1)};
    });
    showEdit();
}

}  // namespace quillon
