#pragma once

#include <cstdint>

namespace quillon {

// The lab's number types. Integer and Long overflow with an error, never silently.
using Integer = std::int16_t;
using Long = std::int32_t;
using Single = float;
using Double = double;

/// Rounds to the nearest whole number, ties to the even one (2.5 gives 2, 3.5 gives 4).
Double roundHalfEven(Double value) noexcept;

/// Converts as roundHalfEven rounds. Throws RunTimeError Overflow where the
/// result does not fit or the value is not a number.
Integer toInteger(Double value);
Long toLong(Double value);

/// Throws RunTimeError Overflow when a stored Single is infinite or not a
/// number; otherwise gives the value back.
Single checkedSingle(Double value);

/// n / d as the lab divides: throws Division by zero (11) for d = 0, also for
/// 0 / 0, and Overflow (6) for a quotient too large for a Single; the quotient
/// is formed in Double and rounded once.
Single divideSingle(Double n, Double d);

/// Half of a whole number, ties to the even one.
constexpr Long halved(Long number) noexcept {
    const Long below = number >> 1;
    return (number & 1) == 0 ? below : below + (below & 1);
}

/// The remainder with the sign of the dividend.
constexpr Long remainder(Long dividend, Long divisor) noexcept {
    return dividend % divisor;
}

}  // namespace quillon
