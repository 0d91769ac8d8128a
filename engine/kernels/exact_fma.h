#pragma once

namespace quillon::kernels {

// Vectors of the compiler's own, on every processor.
using Floats2 [[gnu::vector_size(8)]] = float;
using Floats4 [[gnu::vector_size(16)]] = float;
using Doubles2 [[gnu::vector_size(16)]] = double;
using Bits2 [[gnu::vector_size(16)]] = long long;

/// a b + c with one rounding to Single, without an instruction for it.
///
/// The product is exact in Double. The sum is rounded to odd there: where it is
/// not exact, the last bit of the neighbour that has an odd one is kept. A Double
/// so rounded never lies halfway between two Singles unless the exact sum does, so
/// the last rounding is that of the exact sum, subnormal Singles included.
[[gnu::always_inline]] inline Floats2 exactFma(Floats2 a, Floats2 b, Floats2 c) noexcept {
    const Doubles2 product =
        __builtin_convertvector(a, Doubles2) * __builtin_convertvector(b, Doubles2);
    const Doubles2 addend = __builtin_convertvector(c, Doubles2);
    const Doubles2 sum = product + addend;
    const Doubles2 shadow = sum - product;
    const Doubles2 error = (product - (sum - shadow)) + (addend - shadow);

    const Bits2 bits = reinterpret_cast<Bits2>(sum);
    const Bits2 inexact = (error < 0.0) | (error > 0.0);
    const Bits2 even = (bits & 1) - 1;
    // The sum moves away from zero where the error has its sign.
    const Bits2 opposite = reinterpret_cast<Bits2>((reinterpret_cast<Bits2>(error) ^ bits) < 0);
    const Bits2 step = opposite | 1;
    const Bits2 odd = bits + (step & inexact & even);
    return __builtin_convertvector(reinterpret_cast<Doubles2>(odd), Floats2);
}

[[gnu::always_inline]] inline Floats4 exactFma(Floats4 a, Floats4 b, Floats4 c) noexcept {
    const Floats2 low =
        exactFma(__builtin_shufflevector(a, a, 0, 1), __builtin_shufflevector(b, b, 0, 1),
                 __builtin_shufflevector(c, c, 0, 1));
    const Floats2 high =
        exactFma(__builtin_shufflevector(a, a, 2, 3), __builtin_shufflevector(b, b, 2, 3),
                 __builtin_shufflevector(c, c, 2, 3));
    return __builtin_shufflevector(low, high, 0, 1, 2, 3);
}

}  // namespace quillon::kernels
