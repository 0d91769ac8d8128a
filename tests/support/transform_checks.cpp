#include "tests/support/transform_checks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>

#include "tests/support/reference_transform.h"

namespace quillon {

namespace {

constexpr int kSide = 256;
using Plane = std::vector<std::complex<double>>;

Plane planeOf(const ComplexGrid& grid) {
    Plane plane;
    for (int v = 0; v < kSide; ++v)
        for (int u = 0; u < kSide; ++u)
            plane.emplace_back(grid(u, v).re, grid(u, v).im);
    return plane;
}

Plane planeOf(const Bitmap& image) {
    Plane plane;
    for (const PixelWord word : image.words)
        plane.emplace_back(word & 0xFF, 0);
    return plane;
}

Plane difference(Plane a, const Plane& b) {
    for (std::size_t i = 0; i < a.size(); ++i)
        a[i] -= b[i];
    return a;
}

double largest(const Plane& plane) {
    double size = 0;
    for (const auto& value : plane)
        size = std::max(size, std::abs(value));
    return size;
}

}  // namespace

void expectForwardLikeDoubles(const ChannelUnderTest& lab) {
    const Plane expected = referenceTransform(planeOf(lab.pb1.Image()), kSide, +1);
    const Plane error = difference(planeOf(lab.channel.spectrum()), expected);
    EXPECT_LE(rootMeanSquare(error), transformTolerance(kSide, rootMeanSquare(expected)));
    // No single cell strays: the zero frequency is the sum of all greys.
    EXPECT_LE(largest(error),
              std::numeric_limits<Single>::epsilon() * std::log2(kSide) * largest(expected));
}

void expectInverseLikeDoubles(const ChannelUnderTest& lab) {
    Plane expected = referenceTransform(planeOf(lab.channel.spectrum()), kSide, -1);
    for (auto& value : expected)
        value = value.real() / (kSide * kSide);
    const Plane error = difference(planeOf(lab.channel.reconstruction()), expected);
    const double tolerance = transformTolerance(kSide, rootMeanSquare(expected));
    EXPECT_LE(rootMeanSquare(error), tolerance);
    EXPECT_LE(largest(error), 8 * tolerance);
}

void expectImageComesBack(const ChannelUnderTest& lab) {
    const Plane image = planeOf(lab.pb1.Image());
    const Plane error = difference(planeOf(lab.channel.reconstruction()), image);
    // There and back: two transforms.
    const double tolerance = 2 * transformTolerance(kSide, rootMeanSquare(image));
    EXPECT_LE(rootMeanSquare(error), tolerance);
    EXPECT_LE(largest(error), 8 * tolerance);
}

}  // namespace quillon
