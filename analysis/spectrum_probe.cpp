#include <cmath>

#include "analysis/centred_cell.h"
#include "engine/NumberText.h"
#include "engine/clComplexImage.h"

namespace quillon {

std::string clComplexImage::getVXY(Single x, Single y) const {
    // A view that does not exist reads no cell, whether or not there is one.
    if (mView < 0 || mView > 4)
        return "";
    const ComplexCell cell = ftData.at(centredCell(nfftX, static_cast<Double>(x)),
                                       centredCell(nfftY, static_cast<Double>(y)));
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
        default:
            return " Im= " + trimmedText(cell.im, 2);
    }
}

}  // namespace quillon
