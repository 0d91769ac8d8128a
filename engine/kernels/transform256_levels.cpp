#include "engine/kernels/transform256_levels.h"

#include <array>

#include "engine/kernels/instruction_sets.h"

namespace quillon::kernels {

std::span<const Transform256Level* const> transform256Levels() {
#if defined(__x86_64__)
    static constexpr std::array kLevels = {&kPortableLevel, &kAvx2Level, &kAvx512Level};
#else
    static constexpr std::array kLevels = {&kPortableLevel};
#endif
    return std::span(kLevels).first(instructionSets());
}

const Transform256Level& transform256() {
    static const Transform256Level& chosen = *transform256Levels().back();
    return chosen;
}

}  // namespace quillon::kernels
