#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "engine/kernels/twiddles256.h"

namespace quillon::kernels {

/// What an inverse transform tells about its way.
struct InverseFindings {
    /// The extremes of the real parts of the result; the infinities where one of
    /// them is not finite.
    float lowest;
    float highest;
    /// Whether any real part of the divided spectrum, before the cut, is not 0.
    bool anyRealPart;
};

/// The transforms of a square of 256 by 256 for one instruction set. All levels
/// give the same bits. Nothing is checked, nothing is allocated; planes and
/// `between` may have any alignment and are fastest on cache lines.
struct Transform256Level {
    const char* name;

    /// In place on pairs of real and imaginary part, element (i, j) at i * 256 + j,
    /// first along j, then along i. `between` holds the state between the two and
    /// has room for 256 rows that lie `stride` floats apart (at least 512); it may
    /// be `data` itself, with a stride of 512.
    void (*flat)(float* data, float* between, std::ptrdiff_t stride,
                 const Twiddles256& twiddles) noexcept;

    /// From 256 rows of 256 pixels to planes of real and imaginary parts, rows
    /// `stride` floats apart, both raster order, first along y, then along x.
    void (*forward)(const std::uint8_t* pixels, float* re, float* im,
                    std::ptrdiff_t stride) noexcept;

    /// From a spectrum in planes, each value divided by 65536 and the cells of
    /// `cut` then set to 0, to the real plane `outRe`, first along y, then along x.
    /// `cut` is null or has 32 bytes a row, cell (x, y) being bit x % 8 of byte
    /// 32 y + x / 8. `outIm` is used on the way and left in disorder. All planes
    /// have rows `stride` floats apart.
    InverseFindings (*inverse)(const float* re, const float* im, const std::uint8_t* cut,
                               float* outRe, float* outIm, std::ptrdiff_t stride) noexcept;
};

extern const Transform256Level kPortableLevel;
#if defined(__x86_64__)
extern const Transform256Level kAvx2Level;
extern const Transform256Level kAvx512Level;
#endif

/// The levels that this machine can run, from the slowest to the fastest.
std::span<const Transform256Level* const> transform256Levels();

/// The fastest of them.
const Transform256Level& transform256();

}  // namespace quillon::kernels
