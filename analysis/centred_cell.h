#pragma once

#include "engine/Numbers.h"
#include "engine/RunTimeError.h"

namespace quillon {

/// The row or column of the spectrum that a panel position reads: the panel has
/// the zero frequency in the middle, the spectrum at 0. A tie goes to the even
/// cell; a position far to the left gives a negative remainder. Throws
/// RunTimeError DivisionByZero for a spectrum of no size.
inline Long centredCell(Long side, Double position) {
    if (side == 0)
        throw RunTimeError(ErrorNumber::DivisionByZero);
    return remainder(toLong(static_cast<Double>(side) / 2 + position), side);
}

}  // namespace quillon
