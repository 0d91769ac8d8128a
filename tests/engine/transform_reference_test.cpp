#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>

#include "tests/support/ChannelUnderTest.h"
#include "tests/support/reference_transform.h"

namespace quillon {
namespace {

constexpr int kSide = 256;
using Plane = std::vector<std::complex<double>>;

Plane planeOf(const Grid<ComplexCell>& grid) {
    Plane plane;
    for (int v = 0; v < kSide; ++v)
        for (int u = 0; u < kSide; ++u)
            plane.emplace_back(grid(u, v).re, grid(u, v).im);
    return plane;
}

Plane planeOf(const std::function<int(int, int)>& grey) {
    Plane plane;
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            plane.emplace_back(grey(x, y), 0);
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

class TransformAgainstDoubles : public testing::TestWithParam<std::uint32_t> {
protected:
    /// Seed 0 is the scene, any other noise of that seed.
    std::function<int(int, int)> picture() const {
        if (GetParam() == 0)
            return scene;
        return noise(GetParam());
    }
};

TEST_P(TransformAgainstDoubles, ForwardIsTheSumWithThePositiveSignUpToRounding) {
    SCOPED_TRACE(testing::Message() << "seed " << GetParam());
    ChannelUnderTest lab;
    lab.show(picture());
    lab.channel.runFOURN(1);
    const Plane expected = referenceTransform(planeOf(picture()), kSide, +1);
    const Plane error = difference(planeOf(lab.channel.spectrum()), expected);
    EXPECT_LE(rootMeanSquare(error), transformTolerance(kSide, rootMeanSquare(expected)));
    // No single cell strays: the zero frequency is the sum of all greys.
    EXPECT_LE(largest(error),
              std::numeric_limits<Single>::epsilon() * std::log2(kSide) * largest(expected));
}

TEST_P(TransformAgainstDoubles, InverseIsTheSumWithTheNegativeSignOverTheNumberOfCells) {
    SCOPED_TRACE(testing::Message() << "seed " << GetParam());
    ChannelUnderTest lab;
    lab.show(picture());
    lab.channel.runFOURN(1);
    Plane expected = referenceTransform(planeOf(lab.channel.spectrum()), kSide, -1);
    for (auto& value : expected)
        value = value.real() / (kSide * kSide);
    const Plane error = difference(planeOf(lab.channel.reconstruction()), expected);
    const double tolerance = transformTolerance(kSide, rootMeanSquare(expected));
    EXPECT_LE(rootMeanSquare(error), tolerance);
    EXPECT_LE(largest(error), 8 * tolerance);
}

TEST_P(TransformAgainstDoubles, WithoutAFilterTheReconstructionIsTheImageUpToRounding) {
    SCOPED_TRACE(testing::Message() << "seed " << GetParam());
    ChannelUnderTest lab;
    lab.show(picture());
    lab.channel.CalculateAll();
    const Plane image = planeOf(picture());
    const Plane error = difference(planeOf(lab.channel.reconstruction()), image);
    // There and back: two transforms.
    const double tolerance = 2 * transformTolerance(kSide, rootMeanSquare(image));
    EXPECT_LE(rootMeanSquare(error), tolerance);
    EXPECT_LE(largest(error), 8 * tolerance);
}

INSTANTIATE_TEST_SUITE_P(Pictures, TransformAgainstDoubles, testing::Values(0U, 1U, 20240607U));

}  // namespace
}  // namespace quillon
