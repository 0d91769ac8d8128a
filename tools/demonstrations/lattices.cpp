#include <cmath>

#include "tools/demonstrations/demonstrations.h"

namespace quillon::demonstrations {

namespace {

struct Step {
    int x, y;
};

/// White points at whole multiples of two steps from the upper left corner. The
/// steps are chosen so that the points meet themselves across the borders: then
/// the spectrum has sharp points too.
GreyPicture lattice(Step a, Step b) {
    GreyPicture picture;
    for (int i = -kSide; i < kSide; ++i)
        for (int j = -kSide; j < kSide; ++j) {
            const int x = i * a.x + j * b.x;
            const int y = i * a.y + j * b.y;
            if (x >= 0 && x < kSide && y >= 0 && y < kSide)
                picture.at(x, y) = 255;
        }
    return picture;
}

/// A fish that swims to the left, 24 pixels long, its middle at (0, 0).
bool inFish(double x, double y) {
    const bool body = std::hypot((x + 2) / 9.5, y / 5.5) <= 1;
    const bool eye = std::hypot(x + 7, y + 1) <= 1.3;
    const bool tail = x >= 6 && x <= 12 && std::abs(y) <= (x - 4.5) * 0.75;
    const bool fin = x >= -3 && x <= 4 && y <= 0 && y >= -8 && y >= -4 - (x + 3);
    return (body || tail || fin) && !eye;
}

}  // namespace

void addLattices(std::vector<Demonstration>& pictures) {
    pictures.push_back({"lattice-rectangular.bmp", lattice({32, 0}, {0, 8})});
    pictures.push_back({"lattice-oblique.bmp", lattice({16, 0}, {8, 16})});
    pictures.push_back({"lattice-of-fish.bmp", lattice({32, 0}, {16, 32})});
    pictures.push_back({"fish.bmp", drawnSmooth([](double x, double y) {
                            return inFish(x - kSide / 2.0, y - kSide / 2.0) ? 255.0 : 0.0;
                        })});
}

}  // namespace quillon::demonstrations
