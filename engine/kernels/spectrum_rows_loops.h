#pragma once

#include <cstddef>
#include <cstdint>

#include "engine/kernels/spectrum_rows.h"

// The plain loops of SpectrumRows. Every file that includes them is compiled for
// another instruction set, and the compiler makes vectors of them.

namespace quillon::kernels {
namespace {

void magnitudes(const float* re, const float* im, std::size_t count, float* sizes) noexcept {
    for (std::size_t i = 0; i < count; ++i) {
        const double x = re[i];
        const double y = im[i];
        sizes[i] = static_cast<float>(__builtin_sqrt(x * x + y * y));
    }
}

/// Sizes are never negative, so that their bits rise as they do.
float greatest(const float* values, std::size_t count) noexcept {
    std::int32_t most = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto bits = __builtin_bit_cast(std::int32_t, __builtin_fabsf(values[i]));
        most = bits > most ? bits : most;
    }
    return __builtin_bit_cast(float, most);
}

void scaleLinear(float* values, std::size_t count, float divisor) noexcept {
    for (std::size_t i = 0; i < count; ++i)
        values[i] = values[i] / divisor * 255.0F;
}

void scaleSquareRoot(float* values, std::size_t count, float divisor) noexcept {
    for (std::size_t i = 0; i < count; ++i) {
        const float t = __builtin_fabsf(values[i]) / divisor * 255.0F;
        const float root = __builtin_sqrtf(t);
        values[i] = __builtin_copysignf(t < 1.0F ? 0.0F : root, values[i]);
    }
}

void levels(const float* steps, std::size_t count, float factor, std::uint8_t flip,
            std::uint8_t* result) noexcept {
    // A float this large has no room for a fraction: the sum is rounded to a whole
    // number, which its lowest bits hold.
    constexpr float kShift = 12582912.0F;
    for (std::size_t i = 0; i < count; ++i) {
        const float x = __builtin_fabsf(steps[i]) * factor;
        const float g = x < 255.0F ? x : 255.0F;
        const auto bits = __builtin_bit_cast(std::uint32_t, g + kShift);
        result[i] = static_cast<std::uint8_t>(bits ^ flip);
    }
}

constexpr SpectrumRows rowsNamed(const char* name) {
    return {name, magnitudes, greatest, scaleLinear, scaleSquareRoot, levels};
}

}  // namespace
}  // namespace quillon::kernels
