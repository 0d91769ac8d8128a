#pragma once

#include <cstdint>
#include <cstring>

#include "engine/kernels/greys.h"

namespace quillon::kernels {

/// Greys on vectors of the compiler's own, which it turns into instructions of the
/// set that it compiles a file for.
template <int kWidth>
struct GreysKernel {
    using Floats [[gnu::vector_size(4 * kWidth)]] = float;
    using Words [[gnu::vector_size(4 * kWidth)]] = std::int32_t;

    [[gnu::always_inline]] static void greysOf(const float* parts, const GreyScale& scale,
                                               std::int32_t* words) noexcept {
        // A float this large has no room for a fraction: the sum is rounded to a
        // whole number, which its lowest bits hold.
        constexpr float kShift = 12582912.0F;
        Floats x;
        std::memcpy(&x, parts, sizeof x);
        x = (x - scale.lowest) * 255.0F / scale.range + kShift;
        const Words level = (reinterpret_cast<Words>(x) & 0xFF) ^ scale.flip;
        const Words grey = level | level << 8 | level << 16;
        std::memcpy(words, &grey, sizeof grey);
    }

    [[gnu::always_inline]] static void run(const float* parts, std::size_t count,
                                           const GreyScale& scale, std::int32_t* words) noexcept {
        constexpr std::size_t kStep = kWidth;
        std::size_t i = 0;
        for (; i + kStep <= count; i += kStep)
            greysOf(parts + i, scale, words + i);
        if (i == count)
            return;
        float lastParts[kStep] = {};
        std::int32_t lastWords[kStep];
        std::memcpy(lastParts, parts + i, (count - i) * sizeof(float));
        greysOf(lastParts, scale, lastWords);
        std::memcpy(words + i, lastWords, (count - i) * sizeof(std::int32_t));
    }
};

}  // namespace quillon::kernels
