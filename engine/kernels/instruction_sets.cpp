#include "engine/kernels/instruction_sets.h"

namespace quillon::kernels {

std::size_t instructionSets() noexcept {
#if defined(__x86_64__)
    if (!__builtin_cpu_supports("avx2") || !__builtin_cpu_supports("fma"))
        return 1;
    const bool wide = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl") &&
                      __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512bw");
    return wide ? 3 : 2;
#else
    return 1;
#endif
}

}  // namespace quillon::kernels
