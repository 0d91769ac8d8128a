#include <cmath>
#include <numbers>

#include "tools/demonstrations/demonstrations.h"

namespace quillon::demonstrations {

namespace {

constexpr double kMiddle = kSide / 2.0;
constexpr double kDark = 40;
constexpr double kLight = 215;
constexpr double kDiscRadius = 8;

/// A letter F, 96 high and 60 wide, its middle at (0, 0).
bool inLetter(double x, double y) {
    const bool stem = x >= -30 && x <= -10 && std::abs(y) <= 48;
    const bool upperBar = std::abs(x) <= 30 && y >= -48 && y <= -28;
    const bool lowerBar = x >= -30 && x <= 18 && y >= -10 && y <= 10;
    return stem || upperBar || lowerBar;
}

GreyPicture letter(double degrees) {
    const double turn = degrees * std::numbers::pi / 180;
    return drawnSmooth([&](double x, double y) {
        const double right = x - kMiddle;
        const double down = y - kMiddle;
        return inLetter(right * std::cos(turn) - down * std::sin(turn),
                        right * std::sin(turn) + down * std::cos(turn))
                   ? kLight
                   : kDark;
    });
}

/// A star of so many points, one of them upward; its outline runs straight from
/// the outer to the inner radius.
GreyPicture star(int points, double outer, double inner) {
    return drawnSmooth([&](double x, double y) {
        const double radius = std::hypot(x - kMiddle, y - kMiddle);
        const double half = std::numbers::pi / points;
        // Only the angle to the nearest point matters, by the symmetry.
        const double angle =
            std::abs(std::remainder(std::atan2(x - kMiddle, kMiddle - y), 2 * half));
        // The straight line between the point and the notch, in this angle.
        const double edge = outer * inner * std::sin(half) /
                            (outer * std::sin(angle) + inner * std::sin(half - angle));
        return radius <= edge ? kLight : kDark;
    });
}

/// The distance of a point from a place, the picture going on across its borders.
double distance(double x, double y, double placeX, double placeY) {
    return std::hypot(std::remainder(x - placeX, kSide), std::remainder(y - placeY, kSide));
}

/// A disc about the upper left corner, so that it stands in all four: an even
/// picture, whose spectrum is real.
GreyPicture cornerDisc() {
    return drawnSmooth(
        [](double x, double y) { return distance(x, y, 0, 0) <= kDiscRadius ? 255.0 : 0.0; });
}

/// A light disc right of the corner, a dark one as far left of it: but for its mean
/// grey an odd picture, whose spectrum is imaginary.
GreyPicture cornerPair() {
    constexpr double kAway = 14;
    return drawnSmooth([](double x, double y) {
        if (distance(x, y, kAway, 0) <= kDiscRadius)
            return 228.0;
        return distance(x, y, -kAway, 0) <= kDiscRadius ? 28.0 : 128.0;
    });
}

}  // namespace

void addSymmetry(std::vector<Demonstration>& pictures) {
    pictures.push_back({"letter.bmp", letter(0)});
    pictures.push_back({"letter-turned.bmp", letter(30)});
    // A triangle is a star of three points whose notches lie on its sides.
    pictures.push_back({"triangle.bmp", star(3, 72, 36)});
    pictures.push_back({"star.bmp", star(5, 72, 28)});
    pictures.push_back({"corner-disc.bmp", cornerDisc()});
    pictures.push_back({"corner-pair.bmp", cornerPair()});
}

}  // namespace quillon::demonstrations
