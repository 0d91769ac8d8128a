#pragma once

#include <type_traits>
#include <utility>

namespace quillon::kernels {

/// Calls step(0) to step(n - 1) with the numbers as constants, written out, so
/// that an array that only such steps index can live in registers.
template <int n, class Step>
[[gnu::always_inline]] inline void unrolled(const Step& step) noexcept {
    [&]<int... k>(std::integer_sequence<int, k...>) __attribute__((always_inline)) {
        (step(std::integral_constant<int, k>{}), ...);
    }
    (std::make_integer_sequence<int, n>{});
}

}  // namespace quillon::kernels
