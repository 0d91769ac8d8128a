#include "engine/kernels/greys.h"

#include <array>

#include "engine/kernels/instruction_sets.h"

namespace quillon::kernels {

std::span<const Greys> greysLevels() {
#if defined(__x86_64__)
    static constexpr std::array<Greys, 3> kLevels = {greysPortable, greysAvx2, greysAvx512};
#else
    static constexpr std::array<Greys, 1> kLevels = {greysPortable};
#endif
    return std::span(kLevels).first(instructionSets());
}

Greys greys() {
    static const Greys chosen = greysLevels().back();
    return chosen;
}

}  // namespace quillon::kernels
