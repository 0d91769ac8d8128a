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

/// The pictures that are made of a photograph, itself the first: with stripes, with
/// noise, blurred and so on, and the small pictures by which it is blurred.
std::vector<Demonstration> drawFromPhotograph(const GreyPicture& cup);

// The subjects, a file each.
void addWaves(std::vector<Demonstration>& pictures);
void addEdges(std::vector<Demonstration>& pictures);
void addTextures(std::vector<Demonstration>& pictures);
void addLattices(std::vector<Demonstration>& pictures);
void addSymmetry(std::vector<Demonstration>& pictures);
void addSampling(std::vector<Demonstration>& pictures);
void addMeasures(std::vector<Demonstration>& pictures);

}  // namespace quillon::demonstrations
