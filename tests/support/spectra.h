#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/Grid.h"
#include "engine/clComplexImage.h"

namespace quillon {

/// A plane of cells for the renderers, with a name that tells what is special
/// about it and, where it is random, its seed.
struct NamedSpectrum {
    std::string name;
    ComplexGrid cells;
};

/// Random, degenerate and picture-like planes of side 256, each kind that the
/// renderers could stumble over.
std::vector<NamedSpectrum> spectraToRender(std::uint32_t seed);

/// Random cells of any size.
ComplexGrid randomSpectrum(Long w, Long h, std::uint32_t seed);

}  // namespace quillon
