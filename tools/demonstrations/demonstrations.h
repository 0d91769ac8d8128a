#pragma once

#include <string>
#include <vector>

#include "tools/demonstrations/GreyPicture.h"

namespace quillon::demonstrations {

/// A demonstration picture that is drawn, under the name it has in Images/.
struct Demonstration {
    std::string name;
    GreyPicture picture;
};

/// All pictures, by subject. Each is drawn the same every time.
std::vector<Demonstration> drawAll();

// The subjects, a file each.
void addWaves(std::vector<Demonstration>& pictures);
void addEdges(std::vector<Demonstration>& pictures);
void addTextures(std::vector<Demonstration>& pictures);

}  // namespace quillon::demonstrations
