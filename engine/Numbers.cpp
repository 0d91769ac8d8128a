#include "engine/Numbers.h"

#include <cmath>
#include <limits>

#include "engine/RunTimeError.h"

namespace quillon {

namespace {

template <class Whole>
Whole toWhole(Double value) {
    const Double rounded = roundHalfEven(value);
    // The negated form also refuses a value that is not a number.
    if (!(rounded >= std::numeric_limits<Whole>::min() &&
          rounded <= std::numeric_limits<Whole>::max()))
        throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<Whole>(rounded);
}

}  // namespace

Double roundHalfEven(Double value) noexcept {
    // remainder() is exact and its quotient is rounded half to even, whatever
    // the rounding mode in force.
    return std::isfinite(value) ? value - std::remainder(value, 1.0) : value;
}

Integer toInteger(Double value) {
    return toWhole<Integer>(value);
}

Long toLong(Double value) {
    return toWhole<Long>(value);
}

Single checkedSingle(Double value) {
    const auto stored = static_cast<Single>(value);
    if (!std::isfinite(stored))
        throw RunTimeError(ErrorNumber::Overflow);
    return stored;
}

Single divideSingle(Double n, Double d) {
    if (d == 0.0)
        throw RunTimeError(ErrorNumber::DivisionByZero);
    return checkedSingle(n / d);
}

}  // namespace quillon
