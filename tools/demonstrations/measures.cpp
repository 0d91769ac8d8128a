#include <cmath>
#include <numbers>

#include "tools/demonstrations/demonstrations.h"

namespace quillon::demonstrations {

namespace {

/// Upright bands of plain greys. Their widths stand as 1 to 2 to 4 to 6 to 3.
double greyBand(int x) {
    if (x < 16)
        return 40;
    if (x < 48)
        return 80;
    if (x < 112)
        return 120;
    return x < 208 ? 160 : 200;
}

}  // namespace

// Pictures whose numbers are known beforehand.
void addMeasures(std::vector<Demonstration>& pictures) {
    pictures.push_back({"known-waves.bmp", drawn([](int x, int y) {
                            const double turn = 2 * std::numbers::pi / kSide;
                            return 128 + 60 * std::cos(turn * 10 * x) +
                                   30 * std::sin(turn * 20 * y);
                        })});
    pictures.push_back({"grey-bands.bmp", drawn([](int x, int) { return greyBand(x); })});
}

}  // namespace quillon::demonstrations
