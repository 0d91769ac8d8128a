#include <cmath>
#include <numbers>

#include "tools/demonstrations/demonstrations.h"

namespace quillon::demonstrations {

namespace {

constexpr double kMean = 127.5;

/// The height of a cosine wave of u periods across the picture and v down it, its
/// first crest `lag` periods away from the picture's upper left corner.
double wave(int u, int v, int x, int y, double lag = 0) {
    return std::cos(2 * std::numbers::pi * (static_cast<double>(u * x + v * y) / kSide - lag));
}

GreyPicture oneWave(int u, int v, double amplitude, double lag = 0) {
    return drawn([&](int x, int y) { return kMean + amplitude * wave(u, v, x, y, lag); });
}

}  // namespace

void addWaves(std::vector<Demonstration>& pictures) {
    pictures.push_back({"wave-8.bmp", oneWave(8, 0, 100)});
    pictures.push_back({"wave-8-shifted.bmp", oneWave(8, 0, 100, 0.25)});
    pictures.push_back({"wave-8-weak.bmp", oneWave(8, 0, 10)});
    pictures.push_back({"wave-32.bmp", oneWave(32, 0, 100)});
    pictures.push_back({"wave-oblique.bmp", oneWave(16, 12, 100)});
    pictures.push_back({"two-waves.bmp", drawn([](int x, int y) {
                            return kMean + 60 * wave(8, 0, x, y) + 60 * wave(16, 12, x, y);
                        })});
    pictures.push_back(
        {"stripes.bmp", drawn([](int x, int) { return x / 16 % 2 == 0 ? 215.0 : 40.0; })});
}

}  // namespace quillon::demonstrations
