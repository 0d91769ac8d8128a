#include <cmath>

#include "engine/NumberText.h"
#include "engine/RunTimeError.h"
#include "engine/clComplexImage.h"

namespace quillon {

namespace {

/// The cell that a panel position reads: the panel has the zero frequency in
/// the middle, the spectrum at 0. A tie goes to the even cell.
Long cellAt(Long side, Single position) {
    if (side == 0)
        throw RunTimeError(ErrorNumber::DivisionByZero);
    return remainder(toLong(static_cast<Double>(side) / 2 + static_cast<Double>(position)), side);
}

}  // namespace

std::string clComplexImage::getVXY(Single x, Single y) const {
    const ComplexCell& cell = ftData.at(cellAt(nfftX, x), cellAt(nfftY, y));
    const Double re = cell.re;
    const Double im = cell.im;
    switch (mView) {
        case 0:
        case 1:
            return " M= " + trimmedText(static_cast<Single>(std::sqrt(re * re + im * im)), 2);
        case 2:
            return " Ph= " + trimmedText(PhaseDeg(cell.re, cell.im), 2);
        case 3:
            return " Re= " + trimmedText(cell.re, 2);
        case 4:
            return " Im= " + trimmedText(cell.im, 2);
        default:
            return "";
    }
}

}  // namespace quillon
