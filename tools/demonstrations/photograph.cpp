#include <cmath>
#include <numbers>
#include <random>

#include "tools/demonstrations/demonstrations.h"
#include "tools/demonstrations/sampling.h"

namespace quillon::demonstrations {

namespace {

constexpr double kMiddle = kSide / 2.0;

/// The grey at a place, the picture going on across its borders.
int around(const GreyPicture& picture, int x, int y) {
    return picture.at((x % kSide + kSide) % kSide, (y % kSide + kSide) % kSide);
}

/// Less contrast leaves room for what is added: greys from 40 to 215.
double faded(int grey) {
    return 40 + grey * 175 / 255.0;
}

/// Slanting stripes as a bad scan adds them: a wave of 36 periods across and 20
/// down, and its first overtone, since the stripes are no pure wave.
GreyPicture striped(const GreyPicture& cup) {
    return drawn([&](int x, int y) {
        const double turn = 2 * std::numbers::pi * (36 * x + 20 * y) / kSide;
        return faded(cup.at(x, y)) + 28 * std::cos(turn) + 10 * std::cos(2 * turn);
    });
}

/// Each pixel with an error of its own, 25 greys in the root mean square.
GreyPicture noisy(const GreyPicture& cup) {
    std::mt19937 generator(1);
    return drawn([&](int x, int y) {
        // The sum of twelve even draws from 0 to 1 has the mean 6 and the spread 1.
        double sum = 0;
        for (int i = 0; i < 12; ++i)
            sum += static_cast<double>(generator()) / 4294967296.0;
        return faded(cup.at(x, y)) + 25 * (sum - 6);
    });
}

/// The weights by which a picture is smeared; they are shown as a picture too.
GreyPicture twoDots() {
    GreyPicture picture;
    picture.at(0, 0) = 255;
    picture.at(28, 12) = 153;
    return picture;
}

GreyPicture smallSpot() {
    return drawnSmooth([](double x, double y) {
        return std::hypot(x - kMiddle, y - kMiddle) <= 4.5 ? 255.0 : 0.0;
    });
}

/// The picture smeared by weights whose middle lies at (middle, middle).
GreyPicture smeared(const GreyPicture& picture, const GreyPicture& weights, int middle) {
    struct Weight {
        int x, y;
        double share;
    };
    std::vector<Weight> shares;
    double total = 0;
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            if (weights.at(x, y) != 0) {
                shares.push_back({x - middle, y - middle, static_cast<double>(weights.at(x, y))});
                total += weights.at(x, y);
            }
    return drawn([&](int x, int y) {
        double sum = 0;
        for (const Weight& weight : shares)
            sum += weight.share * around(picture, x - weight.x, y - weight.y);
        return sum / total;
    });
}

/// Weights of a bell of three pixels' spread: nothing finer than eight pixels is left.
GreyPicture bell() {
    return drawn([](int x, int y) {
        const double away = std::hypot(x - kMiddle, y - kMiddle) / 3;
        return 255 * std::exp(-away * away / 2);
    });
}

}  // namespace

std::vector<Demonstration> drawFromPhotograph(const GreyPicture& cup) {
    constexpr int kCentred = kSide / 2;
    std::vector<Demonstration> pictures;
    pictures.push_back({"cup.bmp", cup});
    pictures.push_back({"cup-striped.bmp", striped(cup)});
    pictures.push_back({"cup-noisy.bmp", noisy(cup)});
    pictures.push_back({"two-dots.bmp", twoDots()});
    pictures.push_back({"cup-twice.bmp", smeared(cup, twoDots(), 0)});
    pictures.push_back({"small-spot.bmp", smallSpot()});
    pictures.push_back({"cup-blurred.bmp", smeared(cup, smallSpot(), kCentred)});
    const GreyPicture soft = smeared(cup, bell(), kCentred);
    pictures.push_back({"cup-sampled.bmp", everyFourthPixel(soft)});
    return pictures;
}

}  // namespace quillon::demonstrations
