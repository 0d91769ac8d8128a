#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quillon::kernels {

/// How real parts become greys.
struct GreyScale {
    float lowest;
    /// The largest part less the lowest; more than 0.
    float range;
    /// 255 where the greys are inverted, else 0.
    std::int32_t flip;
};

/// The pixel words of `count` real parts between the lowest and the largest: the
/// grey (re - lowest) * 255 / range, each step rounded to Single, the result to the
/// nearest whole number, ties to the even one; as all three bytes. All levels give
/// the same words. Parts outside the range give any grey.
using Greys = void (*)(const float* parts, std::size_t count, const GreyScale& scale,
                       std::int32_t* words) noexcept;

void greysPortable(const float* parts, std::size_t count, const GreyScale& scale,
                   std::int32_t* words) noexcept;
#if defined(__x86_64__)
void greysAvx2(const float* parts, std::size_t count, const GreyScale& scale,
               std::int32_t* words) noexcept;
void greysAvx512(const float* parts, std::size_t count, const GreyScale& scale,
                 std::int32_t* words) noexcept;
#endif

/// Those that this machine can run, from the slowest to the fastest.
std::span<const Greys> greysLevels();

/// The fastest of them.
Greys greys();

}  // namespace quillon::kernels
