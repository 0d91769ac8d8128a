#include "engine/kernels/transform256_levels.h"

#include <vector>

namespace quillon::kernels {
namespace {

std::vector<const Transform256Level*> findLevels() {
    std::vector<const Transform256Level*> levels{&kPortableLevel};
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma")) {
        levels.push_back(&kAvx2Level);
        if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl") &&
            __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512bw"))
            levels.push_back(&kAvx512Level);
    }
#endif
    return levels;
}

}  // namespace

std::span<const Transform256Level* const> transform256Levels() {
    static const std::vector<const Transform256Level*> levels = findLevels();
    return levels;
}

const Transform256Level& transform256() {
    static const Transform256Level& chosen = *transform256Levels().back();
    return chosen;
}

}  // namespace quillon::kernels
