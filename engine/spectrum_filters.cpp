#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

#include "engine/RunTimeError.h"
#include "engine/clComplexImage.h"
#include "engine/mFFTUTIL.h"
#include "engine/spectrum_cut.h"

namespace quillon {

namespace {

bool isMask(Integer i) {
    return i >= 0 && i < kMaskLimit;
}

}  // namespace

void clComplexImage::NoFilterFT() {
    bFilter = false;
    bLowpass = false;
    bHighpass = false;
    bMask = false;
    bRing = false;
    nmask = 0;
}

void clComplexImage::SetFilterFT(Integer m) {
    NoFilterFT();
    bFilter = m == 2 || m == 3 || m == 4;
    bRing = m == 2 || m == 3;
    bLowpass = m == 2;
    bHighpass = m == 3;
    bMask = m == 4;
}

void clComplexImage::SetFilterRad(Single R) {
    filter_rad = R;
    filter_xm = static_cast<Single>(nfftX - 1) / 2.0F;
    filter_ym = filter_xm;
}

void clComplexImage::AddMask(Integer X1, Integer Y1, Integer X2, Integer Y2) {
    if (!isMask(nmask))
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    maskRect[static_cast<std::size_t>(nmask)] = {MinOf(X1, X2), MinOf(Y1, Y2), MaxOf(X1, X2),
                                                 MaxOf(Y1, Y2)};
    ++nmask;
}

void clComplexImage::GetMask(Integer i, std::span<Single> x) const {
    if (!isMask(i) || x.size() < 4)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    const MaskRectangle& mask = maskRect[static_cast<std::size_t>(i)];
    x[0] = mask.left;
    x[1] = mask.top;
    x[2] = mask.right;
    x[3] = mask.bottom;
}

/// The cells that the filter in force takes away from the copy on its way to the
/// inverse transform, or nothing where none is in force. Circle and rectangles are
/// told in panel pixels; ftIndex says which cell each of them shows, so before the
/// first draw nothing is cut.
std::optional<CellBits> clComplexImage::cutCells() const {
    if (!bRing && !bMask)
        return std::nullopt;
    SpectrumCut cut;
    if (bRing) {
        // A radius whose square does not fit a Single counts as none.
        const Single square = filter_rad * filter_rad;
        const Single r2 = std::isfinite(square) ? square : 0.0F;
        if (bLowpass)
            cut.addRing(RingSide::Outside, filter_xm, filter_ym, r2);
        if (bHighpass)
            cut.addRing(RingSide::Inside, filter_xm, filter_ym, r2);
    }
    if (bMask) {
        const Integer masks = std::clamp<Integer>(nmask, 0, kMaskLimit);
        cut.addRectangles(std::span(maskRect).first(static_cast<std::size_t>(masks)));
    }
    return cut.cells(ftIndex);
}

}  // namespace quillon
