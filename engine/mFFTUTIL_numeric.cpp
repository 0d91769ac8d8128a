#include <cmath>

#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

// Exactly these decimals, not the nearest Doubles to pi: angles on the negative
// real axis come out of them.
constexpr Double kHalfTurn = 3.14159265358979;
constexpr Double kFullTurn = 6.28318530717958;

}  // namespace

Double Atan2Rad(Double y, Double x) {
    if (x == 0.0 && y == 0.0)
        return 0.0;
    Double angle;
    if (x == 0.0)
        angle = kHalfTurn / 2 + (y < 0.0 ? kHalfTurn : 0.0);
    else
        angle = std::atan(y / x) + (x < 0.0 ? kHalfTurn : 0.0);
    return angle < 0.0 ? angle + kFullTurn : angle;
}

}  // namespace quillon
