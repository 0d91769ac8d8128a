#include "engine/fourn.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

#include "engine/RunTimeError.h"
#include "engine/kernels/aligned_floats.h"
#include "engine/kernels/transform256_levels.h"
#include "engine/kernels/twiddles.h"

namespace quillon {
namespace {

/// Indices are Longs: a grid too large for them is an overflow.
Long checkedLong(std::int64_t value) {
    if (value > std::numeric_limits<Long>::max() || value < std::numeric_limits<Long>::min())
        throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<Long>(value);
}

/// One dimension in the flattened array. ip1, ip2 and ip3 are the distances, in
/// Singles, from one element of the dimension to the next, from one run along it
/// to the next, and over all runs.
struct Dimension {
    Long ip1;
    Long ip2;
    Long ip3;
};

/// The array with every subscript checked: a side that is no power of two takes
/// the passes beyond the end of the grid, which must not go unnoticed.
class CheckedArray {
public:
    explicit CheckedArray(std::span<Single> data) : data_(data) {}

    Single& operator()(Long index) const {
        if (index < 0 || static_cast<std::size_t>(index) >= data_.size())
            throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
        return data_[static_cast<std::size_t>(index)];
    }

private:
    std::span<Single> data_;
};

/// Puts every run along the dimension into bit-reversed order.
void reverseBits(const CheckedArray& data, const Dimension& d) {
    Long i2rev = 1;
    for (Long i2 = 1; i2 <= d.ip2; i2 += d.ip1) {
        if (i2 < i2rev) {
            for (Long i1 = i2; i1 <= i2 + d.ip1 - 2; i1 += 2) {
                for (Long i3 = i1; i3 <= d.ip3; i3 += d.ip2) {
                    const Long i3rev = i2rev + i3 - i2;
                    std::swap(data(i3), data(i3rev));
                    std::swap(data(i3 + 1), data(i3rev + 1));
                }
            }
        }
        Long ibit = d.ip2 / 2;
        while (ibit >= d.ip1 && i2rev > ibit) {
            i2rev -= ibit;
            ibit /= 2;
        }
        i2rev += ibit;
    }
}

/// One butterfly. Of the two products of a sum the first is rounded by itself,
/// the second enters exactly, and the sum is rounded once.
void butterfly(const CheckedArray& data, Long k1, Long k2, Single wr, Single wi) {
    const Single tempr = std::fma(-wi, data(k2 + 1), wr * data(k2));
    const Single tempi = std::fma(wi, data(k2), wr * data(k2 + 1));
    data(k2) = data(k1) - tempr;
    data(k2 + 1) = data(k1 + 1) - tempi;
    data(k1) += tempr;
    data(k1 + 1) += tempi;
}

/// The step of a pass; a sign other than +1 or -1 scales the angle.
kernels::TwiddleStep stepOf(int pass, Integer isign) {
    if (isign == 1 || isign == -1)
        return kernels::twiddleStep(pass, isign);
    const Double theta = std::ldexp(isign * kernels::kFullTurn, -(pass + 1));
    const Double wtemp = std::sin(0.5 * theta);
    return {-2.0 * (wtemp * wtemp), std::sin(theta)};
}

/// The Danielson-Lanczos passes along a dimension in bit-reversed order.
void joinBlocks(const CheckedArray& data, const Dimension& d, Integer isign) {
    int pass = 0;
    for (Long step1 = d.ip1; step1 < d.ip2; ++pass) {
        const Long step2 = checkedLong(std::int64_t{2} * step1);
        const kernels::TwiddleStep step = stepOf(pass, isign);
        kernels::Twiddle twiddle;
        for (Long i3 = 1; i3 <= step1; i3 += d.ip1) {
            const auto wr = static_cast<Single>(twiddle.wr);
            const auto wi = static_cast<Single>(twiddle.wi);
            for (Long i1 = i3; i1 <= i3 + d.ip1 - 2; i1 += 2)
                for (Long i2 = i1; i2 <= d.ip3; i2 += step2)
                    butterfly(data, i2, i2 + step1, wr, wi);
            twiddle.advance(step);
        }
        step1 = step2;
    }
}

/// The number of elements; checks what the subscripts of the loops would meet.
Long elementCount(std::span<const Long> nn, Integer ndim) {
    Long ntot = 1;
    bool anyZero = false;
    for (std::size_t idim = 1; idim <= static_cast<std::size_t>(ndim); ++idim) {
        if (idim >= nn.size())
            throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
        ntot = checkedLong(std::int64_t{ntot} * nn[idim]);
        anyZero = anyZero || nn[idim] == 0;
    }
    if (anyZero)
        throw RunTimeError(ErrorNumber::DivisionByZero);
    return ntot;
}

bool isSquareOf256(std::span<const Long> nn, Integer ndim, Integer isign) {
    return ndim == 2 && nn[1] == 256 && nn[2] == 256 && (isign == 1 || isign == -1);
}

/// The fast way for the one size that the lab uses. An array whose first element
/// does not lie on a cache line keeps the state between the two dimensions in one
/// that does, or nearly every access would meet two lines.
void transformSquare(Single* elements, Integer isign) {
    const kernels::Twiddles256& twiddles =
        isign > 0 ? kernels::kForwardTwiddles : kernels::kInverseTwiddles;
    if (reinterpret_cast<std::uintptr_t>(elements) % kernels::kCacheLine == 0) {
        kernels::transform256().flat(elements, elements, 512, twiddles);
        return;
    }
    constexpr std::ptrdiff_t kStride = 512 + 16;
    thread_local kernels::AlignedFloats between(256 * kStride);
    kernels::transform256().flat(elements, between.data(), kStride, twiddles);
}

}  // namespace

void fourn(std::span<Single> data, std::span<const Long> nn, Integer ndim, Integer isign) {
    if (ndim <= 0)
        return;
    const Long ntot = elementCount(nn, ndim);
    if (checkedLong(std::int64_t{2} * ntot) >= static_cast<std::int64_t>(data.size()))
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    for (std::size_t idim = 1; idim <= static_cast<std::size_t>(ndim); ++idim)
        if (nn[idim] < 0)
            return;  // No loop runs over a negative side.

    if (isSquareOf256(nn, ndim, isign)) {
        transformSquare(data.data() + 1, isign);
        return;
    }

    const CheckedArray checked(data);
    Long nprev = 1;
    for (std::size_t idim = 1; idim <= static_cast<std::size_t>(ndim); ++idim) {
        const Long n = nn[idim];
        const Long nrem = ntot / (n * nprev);
        const Long ip1 = 2 * nprev;
        const Long ip2 = ip1 * n;
        const Dimension dimension{ip1, ip2, ip2 * nrem};
        reverseBits(checked, dimension);
        joinBlocks(checked, dimension, isign);
        nprev *= n;
    }
}

}  // namespace quillon
