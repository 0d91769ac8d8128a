#include "tools/demonstrations/sampling.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "tools/demonstrations/demonstrations.h"

namespace quillon::demonstrations {

namespace {

/// Rings whose frequency grows with the distance from the middle, at r pixels
/// 0.85 r periods across the picture's side; they fade out before the border.
GreyPicture zonePlate() {
    return drawn([](int x, int y) {
        const double r = std::hypot(x - kSide / 2.0, y - kSide / 2.0);
        const double fade = std::clamp((126 - r) / 12, 0.0, 1.0);
        return 127.5 + 110 * fade * std::cos(std::numbers::pi * 0.85 * r * r / kSide);
    });
}

}  // namespace

GreyPicture everyFourthPixel(const GreyPicture& picture) {
    return drawn([&](int x, int y) { return x % 4 == 0 && y % 4 == 0 ? picture.at(x, y) : 0; });
}

void addSampling(std::vector<Demonstration>& pictures) {
    const GreyPicture rings = zonePlate();
    pictures.push_back({"rings.bmp", rings});
    pictures.push_back({"rings-sampled.bmp", everyFourthPixel(rings)});
}

}  // namespace quillon::demonstrations
