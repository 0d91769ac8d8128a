#include <cmath>
#include <numbers>

#include "tools/demonstrations/demonstrations.h"

namespace quillon::demonstrations {

namespace {

constexpr double kMiddle = kSide / 2.0;
constexpr double kDark = 40;
constexpr double kLight = 215;

/// A rectangle of the given half sides about the middle, turned by an angle
/// clockwise.
GreyPicture rectangle(double halfWidth, double halfHeight, double degrees) {
    const double turn = degrees * std::numbers::pi / 180;
    return drawnSmooth([&](double x, double y) {
        const double along = (x - kMiddle) * std::cos(turn) + (y - kMiddle) * std::sin(turn);
        const double across = (y - kMiddle) * std::cos(turn) - (x - kMiddle) * std::sin(turn);
        return std::abs(along) <= halfWidth && std::abs(across) <= halfHeight ? kLight : kDark;
    });
}

}  // namespace

void addEdges(std::vector<Demonstration>& pictures) {
    pictures.push_back({"rectangle.bmp", rectangle(48, 24, 0)});
    pictures.push_back({"rectangle-turned.bmp", rectangle(48, 24, 30)});
    pictures.push_back({"disc.bmp", drawnSmooth([](double x, double y) {
                            return std::hypot(x - kMiddle, y - kMiddle) <= 56 ? kLight : kDark;
                        })});
    // No edge inside, but the left border is black and the right one white.
    pictures.push_back({"ramp.bmp", drawn([](int x, int) { return x; })});
}

}  // namespace quillon::demonstrations
