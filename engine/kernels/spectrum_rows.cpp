#include "engine/kernels/spectrum_rows.h"

#include <algorithm>
#include <array>

#include "engine/kernels/instruction_sets.h"

namespace quillon::kernels {

std::span<const SpectrumRows* const> spectrumRowsLevels() {
#if defined(__x86_64__)
    static constexpr std::array kLevels = {&kPortableSpectrumRows, &kAvx2SpectrumRows};
#else
    static constexpr std::array kLevels = {&kPortableSpectrumRows};
#endif
    return std::span(kLevels).first(std::min(instructionSets(), kLevels.size()));
}

const SpectrumRows& spectrumRows() {
    static const SpectrumRows& chosen = *spectrumRowsLevels().back();
    return chosen;
}

}  // namespace quillon::kernels
