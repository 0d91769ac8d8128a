#include <algorithm>
#include <cmath>
#include <cstdint>

#include "tools/demonstrations/demonstrations.h"

namespace quillon::demonstrations {

namespace {

/// Numbers from 0 up to 1 that look random and are the same on every machine.
class Sequence {
public:
    explicit Sequence(std::uint32_t seed) : state_(seed) {}
    double next() {
        state_ = state_ * 1664525U + 1013904223U;
        return (state_ >> 8) / 16777216.0;
    }

private:
    std::uint32_t state_;
};

/// The shorter way between two places around a picture whose edges meet.
double around(double from, double to) {
    const double way = std::abs(from - to);
    return std::min(way, kSide - way);
}

/// Round soft clouds that go on across the borders: no edge anywhere.
GreyPicture clouds() {
    constexpr int kClouds = 80;
    constexpr double kWidth = 14;
    Sequence sequence(7);
    double left[kClouds], top[kClouds], weight[kClouds];
    for (int i = 0; i < kClouds; ++i) {
        left[i] = sequence.next() * kSide;
        top[i] = sequence.next() * kSide;
        weight[i] = i % 2 == 0 ? 60 : -60;
    }
    return drawn([&](int x, int y) {
        double sum = 127.5;
        for (int i = 0; i < kClouds; ++i) {
            const double away = std::hypot(around(x, left[i]), around(y, top[i])) / kWidth;
            sum += weight[i] * std::exp(-away * away / 2);
        }
        return sum;
    });
}

}  // namespace

void addTextures(std::vector<Demonstration>& pictures) {
    pictures.push_back({"clouds.bmp", clouds()});
}

}  // namespace quillon::demonstrations
