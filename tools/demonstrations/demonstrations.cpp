#include "tools/demonstrations/demonstrations.h"

namespace quillon::demonstrations {

std::vector<Demonstration> drawAll() {
    std::vector<Demonstration> pictures;
    addWaves(pictures);
    addEdges(pictures);
    addTextures(pictures);
    addLattices(pictures);
    addSymmetry(pictures);
    addSampling(pictures);
    addMeasures(pictures);
    return pictures;
}

}  // namespace quillon::demonstrations
